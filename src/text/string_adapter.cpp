#include "text/string_adapter.h"

#include "text/strconv.h"

void Tzu_string_adapter_base::zu_ansi_string_callback(char const* text, void* context) {
  static_cast<Tzu_string_adapter_base*>(context)->feed(text);
}

void Tzu_string_adapter_base::zu_unicode_string_callback(wchar_t const* text, void* context) {
  static_cast<Tzu_string_adapter_base*>(context)->feed(text);
}

void Tzu_std_wstring_adapter::feed(char const* text) {
  *target_ = text == nullptr ? std::wstring() : zu::strconv::from_system(text);
}

void Tzu_std_wstring_adapter::feed(wchar_t const* text) { *target_ = text == nullptr ? L"" : text; }

void Tzu_std_string_adapter::feed(char const* text) { *target_ = text == nullptr ? "" : text; }

void Tzu_std_string_adapter::feed(wchar_t const* text) {
  *target_ = text == nullptr ? std::string() : zu::strconv::to_system(text);
}
