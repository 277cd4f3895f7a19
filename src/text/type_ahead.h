// Finding an entry of a list by the first letters of it.
#pragma once

#include <chrono>
#include <optional>
#include <span>
#include <string>

namespace zu {

class Tzu_type_ahead {
 public:
  using clock = std::chrono::steady_clock;

  // Letters that come after a longer pause are a new word.
  static constexpr std::chrono::milliseconds pause{1000};

  // The entry that the letters typed so far mean when `letter` comes next: one
  // that begins with them, or else one in which a word does. The search begins
  // at the `current` entry, with a first letter behind it, and goes round; a
  // letter repeated goes on to the next entry of that letter. Empty when the
  // letters mean none. Captions and letters are compared as they stand.
  std::optional<std::size_t> type(wchar_t letter, clock::time_point now,
                                  std::span<std::wstring const> captions,
                                  std::optional<std::size_t> current);

  // Whether a blank that comes now belongs to a word.
  bool is_typing(clock::time_point now) const;

 private:
  std::wstring typed_;
  clock::time_point last_;
};

}  // namespace zu
