#include "suite/zuk_basic.h"

#include <memory>

#include "basic/module.h"
#include "suite/host.h"

struct Izu_string_adp {
  zu_ansi_callback narrow;
  zu_unicode_callback wide;
  void* context;
};

namespace {

// The suite's own function with the same name and signature; null when its module is not
// loaded.
template <class Function>
Function* of_suite(Function& /*stand_in*/, char const* name) {
  return zu::module::find_loaded_as<Function>("zuk_basic", name);
}

}  // namespace

wchar_t const* zu_options_get_main_module_path() {
  if (auto* suite = of_suite(zu_options_get_main_module_path, "zu_options_get_main_module_path"))
    return suite();
  static std::wstring path;
  path = zu::host::program_path();
  return path.c_str();
}

int zu_res_get_lng() {
  if (auto* suite = of_suite(zu_res_get_lng, "zu_res_get_lng")) return suite();
  return zu::host::is_language_russian() ? 0 : 1;
}

Izu_string_adp* zu_string_adp_create(zu_ansi_callback narrow, zu_unicode_callback wide,
                                     void* context) {
  if (auto* suite = of_suite(zu_string_adp_create, "zu_string_adp_create"))
    return suite(narrow, wide, context);
  return std::make_unique<Izu_string_adp>(Izu_string_adp{narrow, wide, context}).release();
}

void zu_string_adp_destroy(Izu_string_adp* adapter) {
  if (auto* suite = of_suite(zu_string_adp_destroy, "zu_string_adp_destroy")) return suite(adapter);
  std::unique_ptr<Izu_string_adp> const owned(adapter);
}

void zu_string_adp_feed_c(Izu_string_adp* adapter, char const* text) {
  if (auto* suite = of_suite(zu_string_adp_feed_c, "zu_string_adp_feed_c"))
    return suite(adapter, text);
  if (adapter != nullptr && adapter->narrow != nullptr) adapter->narrow(text, adapter->context);
}

void zu_string_adp_feed(Izu_string_adp* adapter, wchar_t const* text) {
  if (auto* suite = of_suite(zu_string_adp_feed, "zu_string_adp_feed")) return suite(adapter, text);
  if (adapter != nullptr && adapter->wide != nullptr) adapter->wide(text, adapter->context);
}
