#include "text/own_texts.h"

#include <array>
#include <cstddef>

#include "text/rc.h"

namespace zu {
namespace {

struct Tentry {
  own_text which;
  wchar_t const* english;
  wchar_t const* russian;
};

constexpr std::array<Tentry, 2> entries{{
    {own_text::no_catalogue,
     L"The catalogue of projections, datums and ellipsoids is missing.\n"
     L"None of these folders is there:",
     L"Нет каталога проекций, датумов и эллипсоидов.\n"
     L"Ни одной из этих папок нет:"},
    {own_text::type_a_point, L"Type \".\" before the decimals, not \",\".",
     L"Дробную часть отделяйте точкой \".\", а не запятой."},
}};

constexpr bool is_in_order() {
  for (std::size_t i = 0; i < entries.size(); ++i)
    if (static_cast<std::size_t>(entries.at(i).which) != i) return false;
  return true;
}
static_assert(is_in_order());

}  // namespace

wchar_t const* get_own_text(own_text which) {
  Tentry const& entry = entries.at(static_cast<std::size_t>(which));
  return Tzu_rc::is_russian() ? entry.russian : entry.english;
}

}  // namespace zu
