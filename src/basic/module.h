// The modules of this process: the one that holds this library, and functions of
// those that the host has loaded.
#pragma once

#include <string>
#include <string_view>

namespace zu::module {

using function = void (*)();

// Path of the module that this library is in; the running program's when it is
// linked in there. Empty when it cannot be told.
std::wstring own_path();

// Address of `symbol` in the loaded module `stem` ("zuk_basic" stands for
// "zuk_basic.dll" on Windows, "zuk_basic.so" or "libzuk_basic.so" elsewhere).
// Null when the module is not loaded or exports no such symbol. The module is
// never loaded, and not kept loaded, by the question. Needs no memory, so that
// destructors may ask.
function find_loaded(std::string_view stem, char const* symbol) noexcept;

template <class Signature>
Signature* find_loaded_as(std::string_view stem, char const* symbol) noexcept {
  return reinterpret_cast<Signature*>(find_loaded(stem, symbol));
}

}  // namespace zu::module
