// Finds an entry of a list by its first letters.
#pragma once

#include <chrono>
#include <optional>
#include <span>
#include <string>

namespace zu {

class Tzu_type_ahead {
 public:
  using clock = std::chrono::steady_clock;

  // After a longer pause the next letter begins a new word.
  static constexpr std::chrono::milliseconds pause{1000};

  // Adds `letter` to the typed letters and finds an entry that begins with them, or else
  // an entry with a word that begins with them. The search begins at the `current`
  // entry, for a first letter after it, and goes round the list. The same letter again
  // finds the next entry of that letter. Empty when there is no such entry. The caller
  // folds the case of captions and letters.
  std::optional<std::size_t> type(wchar_t letter, clock::time_point now,
                                  std::span<std::wstring const> captions,
                                  std::optional<std::size_t> current);

  // Whether a blank that is typed now belongs to a word.
  bool is_typing(clock::time_point now) const;

 private:
  std::wstring typed_;
  clock::time_point last_;
};

}  // namespace zu
