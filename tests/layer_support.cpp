#include "layer_support.h"

#include <optional>
#include <string>

#include "suite/zuk_basic.h"
#include "text/rc.h"

namespace {

class Treceiver {
 public:
  Treceiver() = default;
  ~Treceiver() { zu_string_adp_destroy(adapter); }
  Treceiver(Treceiver const&) = delete;
  Treceiver& operator=(Treceiver const&) = delete;

  std::optional<std::string> narrow;
  std::optional<std::wstring> wide;
  Izu_string_adp* const adapter = zu_string_adp_create(
      [](char const* text, void* context) { static_cast<Treceiver*>(context)->narrow = text; },
      [](wchar_t const* text, void* context) { static_cast<Treceiver*>(context)->wide = text; },
      this);
};

Treceiver& receiver() {
  static Treceiver instance;
  return instance;
}

}  // namespace

Izu_string_adp* layer_adapter() {
  receiver().narrow.reset();
  receiver().wide.reset();
  return receiver().adapter;
}

char const* layer_received_narrow() {
  return receiver().narrow ? receiver().narrow->c_str() : nullptr;
}

wchar_t const* layer_received_wide() {
  return receiver().wide ? receiver().wide->c_str() : nullptr;
}

void layer_set_language(int language) {
  Tzu_rc::get_auto_lang();
  Tzu_rc::set_lang(language);
}
