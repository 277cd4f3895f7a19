// The modules of this process: the module of this library, and functions of modules
// that the host has loaded.
#pragma once

#include <string>
#include <string_view>

namespace zu::module {

using function = void (*)();

// Path of the module that contains this library; that is the running program where the
// library is linked into it. Empty when the system does not tell it.
std::wstring own_path();

// Address of `symbol` in the loaded module `stem` ("zuk_basic" stands for
// "zuk_basic.dll" on Windows, "zuk_basic.so" or "libzuk_basic.so" elsewhere).
// Null when the module is not loaded or exports no such symbol. Never loads a module
// and does not keep it loaded. Works without free memory, so destructors may call it.
function find_loaded(std::string_view stem, char const* symbol) noexcept;

template <class Signature>
Signature* find_loaded_as(std::string_view stem, char const* symbol) noexcept {
  return reinterpret_cast<Signature*>(find_loaded(stem, symbol));
}

}  // namespace zu::module
