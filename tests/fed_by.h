// What a producer feeds into a string adapter.
#pragma once

#include <string>

#include "core_support.h"
#include "text/string_adapter.h"
#include "zu_pj_edit/zu_pj4_layer.h"

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

inline std::wstring load_simple(std::wstring const& name) {
  return fed_by([&](Izu_string_adp* adapter) { zu_pj4_load_simple_w(name.c_str(), adapter); });
}

inline std::wstring load_esri(std::wstring const& name) {
  return fed_by([&](Izu_string_adp* adapter) { zu_pj4_import_esri(name.c_str(), adapter); });
}

}  // namespace core_test
