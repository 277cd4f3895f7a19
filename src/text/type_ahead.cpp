#include "text/type_ahead.h"

#include <algorithm>
#include <string_view>

namespace zu {
namespace {

bool begins_a_word(std::wstring_view caption, std::wstring_view typed) {
  constexpr std::wstring_view between_words = L" _-.,;:/\\()[]\"'+";
  for (std::size_t at = caption.find(typed); at != std::wstring_view::npos;
       at = caption.find(typed, at + 1)) {
    if (at == 0 || between_words.find(caption[at - 1]) != std::wstring_view::npos) return true;
  }
  return false;
}

// Searches from `start` to the end of the list and then from its beginning.
template <class Predicate>
std::optional<std::size_t> find_round(std::span<std::wstring const> captions, std::size_t start,
                                      Predicate predicate) {
  for (std::size_t i = 0; i < captions.size(); ++i) {
    std::size_t const position = (start + i) % captions.size();
    if (predicate(captions[position])) return position;
  }
  return std::nullopt;
}

std::optional<std::size_t> find(std::span<std::wstring const> captions, std::size_t start,
                                std::wstring_view typed) {
  auto const found = find_round(
      captions, start, [&](std::wstring const& caption) { return caption.starts_with(typed); });
  if (found) return found;
  return find_round(captions, start,
                    [&](std::wstring const& caption) { return begins_a_word(caption, typed); });
}

}  // namespace

bool Tzu_type_ahead::is_typing(clock::time_point now) const {
  return !typed_.empty() && now - last_ <= pause;
}

std::optional<std::size_t> Tzu_type_ahead::type(wchar_t letter, clock::time_point now,
                                                std::span<std::wstring const> captions,
                                                std::optional<std::size_t> current) {
  if (!is_typing(now)) typed_.clear();
  typed_ += letter;
  last_ = now;
  std::size_t const here = current.value_or(0);
  std::size_t const next = current ? here + 1 : 0;
  if (auto const found = find(captions, typed_.size() == 1 ? next : here, typed_)) return found;
  bool const is_repeated = std::ranges::all_of(typed_, [&](wchar_t c) { return c == letter; });
  return is_repeated ? find(captions, next, {&letter, 1}) : std::nullopt;
}

}  // namespace zu
