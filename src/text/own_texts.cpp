#include "text/own_texts.h"

#include <array>
#include <cstddef>

#include "text/rc.h"

namespace zu {
namespace {

struct Trow {
  wchar_t const* english;
  wchar_t const* russian;
};

constexpr std::array<Trow, static_cast<std::size_t>(own_text::count)> texts{{
    {L"Type \".\" before the decimals, not \",\".",
     L"Дробную часть отделяйте точкой \".\", а не запятой."},
}};

}  // namespace

std::wstring get_own_text(own_text which) {
  Trow const& row = texts.at(static_cast<std::size_t>(which));
  return Tzu_rc::is_russian() ? row.russian : row.english;
}

}  // namespace zu
