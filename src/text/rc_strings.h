// The table of interface texts of the whole suite. The dialog shows a part of them.
#pragma once

#include <span>

namespace zu {

struct rc_entry {
  char const* english;  // ASCII
  char const* russian;  // code page 1251
};

// The twelve groups in order; static read-only data.
std::span<std::span<rc_entry const> const> rc_groups() noexcept;

}  // namespace zu
