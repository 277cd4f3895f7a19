// Texts that only this library shows. The suite shares the table of Tzu_rc,
// which is fixed, so they stand beside it.
#pragma once

#include <string>

namespace zu {

// In the order of the table in own_texts.cpp.
enum class own_text { type_a_point, count };

// In the interface language, as Tzu_rc has it.
std::wstring get_own_text(own_text which);

}  // namespace zu
