#include "proj4/reading_report.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

#include "basic/number.h"
#include "basic/str.h"
#include "catalogue/definition_keys.h"
#include "proj4/proj4_str.h"
#include "text/own_texts.h"
#include "text/strconv.h"

namespace zu {
namespace {

using str::equal_no_case;

struct Tkey {
  std::string_view name;
  key_kind kind;
  bool is_angle;
};

// The names of all keys that are read, sorted, so that those with the same first letter follow
// each other.
constexpr auto keys = [] {
  constexpr auto names = [] {
    std::array<Tkey, 2 * definition_keys_count> all{};
    std::size_t count = 0;
    for (auto const& entry : definition_keys) {
      for (std::string_view const name : {entry.name, entry.other_name}) {
        auto* const end = all.begin() + count;
        bool const is_new = std::ranges::find(all.begin(), end, name, &Tkey::name) == end;
        if (is_new && !name.empty())
          all.at(count++) = {name, entry.kind, entry.unit == key_unit::degrees};
      }
    }
    return std::pair(all, count);
  }();
  std::array<Tkey, names.second> sorted{};
  std::copy_n(names.first.begin(), names.second, sorted.begin());
  std::ranges::sort(sorted, {}, &Tkey::name);
  return sorted;
}();

// The place of the first key with each first letter.
constexpr auto first_places = [] {
  std::array<std::size_t, 128> places{};
  places.fill(keys.size());
  for (std::size_t i = keys.size(); i-- > 0;)
    places.at(static_cast<std::size_t>(keys.at(i).name.front())) = i;
  return places;
}();

constexpr std::size_t place_of(std::string_view name) {
  return static_cast<std::size_t>(
      std::ranges::find_if(keys,
                           [name](Tkey const& key) { return equal_no_case(key.name, name); }) -
      keys.begin());
}

// Pieces that only repeat a default. An empty value here matches any value.
constexpr std::array<str::name_value, 7> needless{{{"no_defs", ""},
                                                   {"wktext", ""},
                                                   {"type", "crs"},
                                                   {"pm", "greenwich"},
                                                   {"pm", "0"},
                                                   {"axis", "enu"},
                                                   {"to_meter", "1"}}};
// Keys without an influence on the place of a point.
constexpr std::array<std::string_view, 5> idle_keys{"title", "vunits", "vto_meter", "geoidgrids",
                                                    "geoid_crs"};

bool is_needless(str::name_value const& piece) {
  return std::ranges::any_of(needless, [&piece](auto const& each) {
    return each.name == piece.name && (each.value.empty() || each.value == piece.value);
  });
}

// PROJ reads the same number with such an end: "37d", "39E".
bool is_degree_mark(std::string_view tail) {
  if (!tail.empty() && (tail.front() == 'd' || tail.front() == 'D')) tail.remove_prefix(1);
  return tail.empty() ||
         (tail.size() == 1 && std::string_view("eEnN").find(tail[0]) != std::string_view::npos);
}

// A number without an exponent and far below a trillion. Such a number is read whole.
bool is_plain_number(std::string_view value) {
  constexpr std::size_t most_whole_digits = 11;
  if (!value.empty() && value.front() == '-') value.remove_prefix(1);
  std::size_t const point = std::min(value.find('.'), value.size());
  std::size_t digits = 0;
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (i == point) continue;
    if (value[i] < '0' || value[i] > '9') return false;
    ++digits;
  }
  return digits > 0 && point <= most_whole_digits;
}

bool is_shift_count(std::size_t count) {
  return count == 3 || count == Tzu_proj4_param_towgs84::count;
}

bool are_plain_numbers(std::string_view value) {
  std::size_t count = 1;
  for (auto cut = value.find(','); cut != std::string_view::npos; cut = value.find(','), ++count) {
    if (!is_plain_number(value.substr(0, cut))) return false;
    value.remove_prefix(cut + 1);
  }
  return is_shift_count(count) && is_plain_number(value);
}

bool is_read_whole(key_kind kind, std::string_view value) {
  switch (kind) {
    case key_kind::text:
      return !value.empty();
    case key_kind::flag:
      return value.empty();
    case key_kind::whole:
      return is_plain_number(value) && value.size() < 9 &&
             value.find('.') == std::string_view::npos;
    case key_kind::shift:
      return are_plain_numbers(value);
    case key_kind::number:
      break;
  }
  return is_plain_number(value);
}

// The place of a key in its usual spelling; keys.size() when there is none.
std::size_t usual_place_of(std::string_view name) {
  if (name.empty() || (static_cast<unsigned char>(name.front()) & 0x80U) != 0) return keys.size();
  std::size_t place = first_places.at(static_cast<std::size_t>(name.front()));
  while (place < keys.size() && keys.at(place).name != name) ++place;
  return place;
}

// Cuts the next piece, which begins with "+", off a text.
str::name_value take_piece(std::string_view& text) {
  text.remove_prefix(1);
  auto const end = std::min(text.find('+'), text.size());
  std::string_view piece = text.substr(0, end);
  text.remove_prefix(end);
  if (!piece.empty() && piece.back() == ' ') piece.remove_suffix(1);
  auto const cut = std::min(piece.find('='), piece.size());
  return {piece.substr(0, cut), piece.substr(std::min(cut + 1, piece.size()))};
}

// Whether a text is written as nearly all texts are and loses nothing. This check looks at
// each character once: reading a long stream of definitions must not take twice the time
// because of the report. False when that is not certain.
bool is_plain(std::string_view text) {
  if (!text.empty() && text.front() != '+') return false;
  // A bit for each key.
  unsigned given = 0;
  static_assert(keys.size() <= std::numeric_limits<unsigned>::digits);
  bool may_be_sphere = false;
  while (!text.empty()) {
    auto const parts = take_piece(text);
    std::size_t const place = usual_place_of(parts.name);
    if (place == keys.size()) {
      if (is_needless(parts) || (parts.name == "lon_wrap" && parts.value == "45")) continue;
      return false;
    }
    unsigned const bit = 1U << place;
    if ((given & bit) != 0 || !is_read_whole(keys.at(place).kind, parts.value)) return false;
    given |= bit;
    may_be_sphere = may_be_sphere || equal_no_case(parts.value, "sphere");
  }
  auto const has = [given](std::string_view key) { return (given & 1U << place_of(key)) != 0; };
  may_be_sphere = may_be_sphere || has("a") || has("R");
  return !(has("k") && has("k_0")) && !(has("R") && (has("a") || has("b"))) &&
         !(may_be_sphere && has("towgs84"));
}

struct Tpiece {
  std::string_view text;
  str::name_value parts;
  std::size_t place;  // of its key; keys.size() when the key is not read
};

class Treport {
 public:
  explicit Treport(std::string_view definition);
  std::vector<reading_loss> take() { return std::move(losses_); }

 private:
  void add(std::string_view piece, loss_reason reason, bool moves_points,
           std::string_view kept = {});
  void check_begin(std::string_view text);
  void check_unknown(Tpiece const& piece);
  void check_value(Tpiece const& piece);
  void check_number(Tpiece const& piece, std::string_view value, bool is_angle);
  void check_zone(Tpiece const& piece);
  void check_shift(Tpiece const& piece);
  bool is_sphere() const;
  bool is_given_elsewhere(std::size_t place) const;
  // Both pieces when the "+" of an exponent has cut a number in two, else empty.
  std::string_view whole_number(std::size_t index) const;

  std::string_view definition_;
  std::vector<Tpiece> pieces_;
  // For each key: whether any piece has it, and whether a piece before the current one has it.
  std::array<bool, keys.size() + 1> given_{};
  std::array<bool, keys.size() + 1> taken_{};
  std::vector<reading_loss> losses_;
};

Treport::Treport(std::string_view definition) : definition_(definition) {
  auto const texts = str::split(definition, "+");
  check_begin(str::trim(texts.front()));
  pieces_.reserve(texts.size());
  for (std::size_t i = 1; i < texts.size(); ++i) {
    auto const parts = str::divide_str(texts[i], '=');
    pieces_.push_back({str::trim(texts[i]), parts, place_of(parts.name)});
    given_.at(pieces_.back().place) = true;
  }
  for (std::size_t i = 0; i < pieces_.size(); ++i) {
    Tpiece const& piece = pieces_[i];
    if (piece.text.empty()) continue;
    if (piece.place == keys.size()) {
      check_unknown(piece);
    } else if (is_given_elsewhere(piece.place)) {
      add(piece.text, loss_reason::repeated_key, true);
    } else if (auto const whole = whole_number(i); !whole.empty()) {
      add(whole, loss_reason::unread_tail, true,
          piece.parts.value.substr(0, piece.parts.value.size() - 1));
      ++i;
    } else {
      check_value(piece);
    }
    taken_.at(piece.place) = true;
  }
}

void Treport::add(std::string_view piece, loss_reason reason, bool moves_points,
                  std::string_view kept) {
  std::string text(reason == loss_reason::text_before ? "" : "+");
  losses_.push_back({text.append(piece), reason, std::string(kept), moves_points});
}

void Treport::check_begin(std::string_view text) {
  if (text.empty()) return;
  bool const says_something =
      text.find('=') != std::string_view::npos || equal_no_case(text, keys[place_of("south")].name);
  add(text, loss_reason::text_before, says_something);
}

void Treport::check_unknown(Tpiece const& piece) {
  if (is_needless(piece.parts)) return;
  if (piece.parts.name != "lon_wrap")
    add(piece.text, loss_reason::unknown_key,
        std::ranges::find(idle_keys, piece.parts.name) == idle_keys.end());
  else if (number::read_double(piece.parts.value) != 45.0)
    add(piece.text, loss_reason::other_lon_wrap, true);
}

void Treport::check_value(Tpiece const& piece) {
  std::string_view const value = piece.parts.value;
  switch (keys.at(piece.place).kind) {
    case key_kind::text:
      if (value.empty()) add(piece.text, loss_reason::unread_value, true);
      break;
    case key_kind::flag:
      // PROJ writes yes as an empty value or as "T".
      if (!value.empty() && !equal_no_case(value, "t"))
        add(piece.text, loss_reason::unread_value, true);
      break;
    case key_kind::number:
      check_number(piece, value, keys.at(piece.place).is_angle);
      break;
    case key_kind::whole:
      check_zone(piece);
      break;
    case key_kind::shift:
      check_shift(piece);
      break;
  }
}

void Treport::check_number(Tpiece const& piece, std::string_view value, bool is_angle) {
  // Numbers from here on are written with a "+" in their exponent. That "+" cuts them when
  // they are read.
  constexpr double too_large = 999999999999.5;
  auto const number = number::scan_double(value);
  if (!number) {
    add(piece.text, loss_reason::unread_value, true);
  } else if (std::abs(*number) >= too_large) {
    add(piece.text, loss_reason::changed_number, true, number::format_double(*number));
  } else if (!number::read_double(value)) {
    auto const digits = std::min(value.find_last_of("0123456789."), value.size() - 1) + 1;
    bool const is_same = is_angle && is_degree_mark(value.substr(digits)) &&
                         number::read_double(value.substr(0, digits)) == number;
    add(piece.text, loss_reason::unread_tail, !is_same, number::format_double(*number));
  }
}

void Treport::check_zone(Tpiece const& piece) {
  std::string_view const value = piece.parts.value;
  auto const zone = number::scan_int(value);
  if (!zone)
    add(piece.text, loss_reason::unread_value, true);
  else if (number::read_double(value) != static_cast<double>(*zone))
    add(piece.text, loss_reason::unread_tail, true, number::format_int(*zone));
}

void Treport::check_shift(Tpiece const& piece) {
  auto const numbers = str::split(piece.parts.value, ",");
  std::size_t const before = losses_.size();
  for (std::size_t i = 0; i < std::min(numbers.size(), Tzu_proj4_param_towgs84::count); ++i) {
    // One sentence is enough for the seven numbers.
    if (losses_.size() == before) check_number(piece, str::trim(numbers[i]), false);
  }
  if (numbers.size() > Tzu_proj4_param_towgs84::count)
    add(piece.text, loss_reason::eighth_number, true);
  else if (losses_.size() == before && !is_shift_count(numbers.size()))
    add(piece.text, loss_reason::other_count, true);
  if (is_sphere()) add(piece.text, loss_reason::sphere_shift, true);
}

bool Treport::is_sphere() const {
  if (!given_.at(place_of("ellps")) && !given_.at(place_of("a")) && !given_.at(place_of("R")))
    return false;
  Tzu_proj4_str set;
  set.set(std::string(definition_).c_str());
  set.decompose();
  return set.is_sphere();
}

bool Treport::is_given_elsewhere(std::size_t place) const {
  if (taken_.at(place)) return true;
  if (place == place_of("k")) return given_.at(place_of("k_0"));
  return place == place_of("R") && given_.at(place_of("a")) && given_.at(place_of("b"));
}

std::string_view Treport::whole_number(std::size_t index) const {
  Tpiece const& piece = pieces_[index];
  if (keys.at(piece.place).kind != key_kind::number || index + 1 == pieces_.size()) return {};
  std::string_view const value = piece.parts.value;
  std::string_view const next = pieces_[index + 1].text;
  bool const is_cut = value.size() > 1 && (value.back() == 'e' || value.back() == 'E') &&
                      number::read_double(value.substr(0, value.size() - 1)) && !next.empty() &&
                      next.find_first_not_of("0123456789") == std::string_view::npos;
  if (!is_cut) return {};
  auto const begin = static_cast<std::size_t>(piece.text.data() - definition_.data());
  auto const end = static_cast<std::size_t>(next.data() - definition_.data()) + next.size();
  return definition_.substr(begin, end - begin);
}

// The sentences stand in the order of the reasons.
constexpr own_text sentence_of(loss_reason reason) {
  return static_cast<own_text>(static_cast<int>(own_text::text_before) + static_cast<int>(reason));
}
static_assert(sentence_of(loss_reason::unread_tail) == own_text::unread_tail &&
              sentence_of(loss_reason::other_count) == own_text::other_count);

}  // namespace

std::vector<reading_loss> find_reading_losses(std::string_view definition) {
  if (is_plain(definition)) return {};
  return Treport(definition).take();
}

std::wstring tell(reading_loss const& loss) {
  return fill_own_text(sentence_of(loss.reason), strconv::from_system(loss.piece),
                       strconv::from_system(loss.kept));
}

}  // namespace zu
