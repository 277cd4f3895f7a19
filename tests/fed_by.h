// What a producer feeds into a string adapter.
#pragma once

#include <string>

#include "core_support.h"
#include "text/string_adapter.h"

namespace core_test {

// "unfed" when nothing is. The result goes into the record.
template <class Producer>
std::wstring fed_by(Producer produce) {
  std::wstring text = L"unfed";
  Tzu_std_wstring_adapter target(&text);
  zu::string_adp const adapter(target);
  produce(adapter.get());
  return recorded(text);
}

// The same of ASCII text; "failed" when the producer says so, which has to feed
// nothing then, and "fed nothing" when it feeds nothing and says otherwise.
template <class Producer>
std::string made_by(Producer produce) {
  bool done = false;
  std::wstring const text = fed_by([&](Izu_string_adp* adapter) { done = produce(adapter); });
  if (text == L"unfed") return done ? "fed nothing" : "failed";
  std::string narrow;
  for (wchar_t const c : text) narrow += static_cast<char>(c);
  return done ? narrow : "failed, fed " + narrow;
}

}  // namespace core_test
