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

}  // namespace core_test
