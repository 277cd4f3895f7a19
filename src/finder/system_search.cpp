#include "finder/system_search.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "basic/str.h"
#include "text/strconv.h"

namespace zu {
namespace {

enum class letter_kind { none, letter, digit };

letter_kind kind_of(wchar_t c) {
  if (c >= L'0' && c <= L'9') return letter_kind::digit;
  bool const is_letter = (c >= L'a' && c <= L'z') || c >= 0xC0;
  return is_letter && c != 0xD7 && c != 0xF7 ? letter_kind::letter : letter_kind::none;
}

// Handles Latin, Greek and Cyrillic letters. The tables of the toolkit and of the system
// depend on the locale.
wchar_t lower(wchar_t c) {
  auto const in = [c](wchar_t first, wchar_t last) { return c >= first && c <= last; };
  if (in(L'A', L'Z') || in(0xC0, 0xDE) || in(0x391, 0x3A9) || in(0x410, 0x42F))
    return static_cast<wchar_t>(c + 0x20);
  if (in(0x400, 0x40F)) c = static_cast<wchar_t>(c + 0x50);
  // Most people write the letter without its dots.
  if (c == 0x451) return 0x435;
  return in(0x100, 0x17F) && c % 2 == 0 ? static_cast<wchar_t>(c + 1) : c;
}

bool contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

// The words of a request, prepared for the search.
class Twords {
 public:
  explicit Twords(std::string_view words) : whole_(fold_words(words)) {
    for (std::string_view const word : str::split(whole_, " "))
      if (!word.empty())
        words_.push_back(
            {std::string(word), " " + std::string(word), " " + std::string(word) + " "});
  }

  bool empty() const noexcept { return words_.empty(); }
  std::string const& whole() const noexcept { return whole_; }

  bool are_all_in(std::string_view text) const {
    return std::ranges::all_of(words_,
                               [text](auto const& word) { return contains(text, word.any); });
  }
  bool all_begin_words_of(std::string_view text) const {
    return std::ranges::all_of(words_,
                               [text](auto const& word) { return contains(text, word.begin); });
  }
  std::ptrdiff_t count_whole_in(std::string_view text) const {
    return std::ranges::count_if(words_,
                                 [text](auto const& word) { return contains(text, word.whole); }) +
           (contains(text, " " + whole_ + " ") ? 1 : 0);
  }

 private:
  struct Tword {
    std::string any;
    std::string begin;
    std::string whole;
  };
  std::string whole_;
  std::vector<Tword> words_;
};

// Users more often mean systems of these sources.
int origin_of(listed_system const& system) {
  if (system.kind == system_kind::known) return 0;
  return system.kind == system_kind::zonal || system.id.starts_with("EPSG:") ? 1 : 2;
}

}  // namespace

std::string fold_words(std::string_view text) {
  std::wstring folded;
  letter_kind before = letter_kind::none;
  for (wchar_t const given : strconv::from_utf8(text)) {
    wchar_t const c = lower(given);
    letter_kind const kind = kind_of(c);
    if (kind != before && !folded.empty() && folded.back() != L' ') folded.push_back(L' ');
    if (kind != letter_kind::none) folded.push_back(c);
    before = kind;
  }
  if (!folded.empty() && folded.back() == L' ') folded.pop_back();
  return strconv::to_utf8(folded);
}

void Tsystem_search::add(std::vector<listed_system> systems) {
  for (listed_system& system : systems) {
    Tkey key;
    key.begin = text_.size();
    text_.append(" ").append(fold_words(system.name)).append(" ");
    text_.append(fold_words(system.id + " " + system.other_words + " " + system.other_codes));
    text_.append(" ");
    key.words = text_.size();
    text_.append(fold_words(system.area + " " + system.russian_area)).append(" ");
    key.end = text_.size();
    keys_.push_back(key);
    std::string codes = "\n" + fold_words(system.id) + "\n" + fold_words(system.name) + "\n";
    for (std::string_view const code : str::split(system.other_codes, "\n"))
      codes.append(fold_words(code)).append("\n");
    codes_.push_back(std::move(codes));
    systems_.push_back(std::move(system));
  }
}

std::vector<std::size_t> Tsystem_search::find(search_request const& request,
                                              std::size_t limit) const {
  Twords const words(request.words);
  std::string const code = "\n" + words.whole() + "\n";
  std::string const name = " " + words.whole();
  struct Tfound {
    int rank;
    std::ptrdiff_t missing;  // number of words that are no whole words of it
    int origin;
    double size;
    std::size_t length;
    std::size_t place;
  };
  auto const order = [](Tfound const& each) {
    return std::tie(each.rank, each.missing, each.origin, each.size, each.length, each.place);
  };
  std::vector<Tfound> found;
  std::string_view const all = text_;
  for (std::size_t i = 0; i < systems_.size(); ++i) {
    listed_system const& system = systems_[i];
    Tkey const& key = keys_[i];
    std::string_view const text = all.substr(key.begin, key.end - key.begin);
    if ((request.kind && system.kind != *request.kind) ||
        (system.is_deprecated && !request.deprecated) || !words.are_all_in(text))
      continue;
    if (request.place &&
        !(system.box && system.box->contains(request.place->longitude, request.place->latitude)))
      continue;
    Tfound each{3, 0, origin_of(system), 0, 0, i};
    if (request.place) each.size = system.box->size();
    if (!words.empty()) {
      std::string_view const named = all.substr(key.begin, key.words - key.begin);
      if (contains(codes_[i], code))
        each.rank = 0;
      else if (text.starts_with(name))
        each.rank = 1;
      else if (words.all_begin_words_of(named))
        each.rank = 2;
      each.missing = -words.count_whole_in(named);
      each.length = system.name.size();
    }
    found.push_back(each);
  }
  limit = std::min(limit, found.size());
  std::ranges::partial_sort(found, found.begin() + static_cast<std::ptrdiff_t>(limit), {}, order);
  std::vector<std::size_t> places(limit);
  std::transform(found.begin(), found.begin() + static_cast<std::ptrdiff_t>(limit), places.begin(),
                 [](Tfound const& each) { return each.place; });
  return places;
}

}  // namespace zu
