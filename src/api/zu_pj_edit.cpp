#include "zu_pj_edit/zu_pj_edit.h"

#include <cstdio>
#include <string>

#include "api/final_call.h"
#include "basic/float_environment.h"
#include "basic/module.h"
#include "pj_edit/vcl_pj_edit_form.h"
#include "vcl/application.h"
#include "vcl/look_scope.h"
#include "vcl/toolkit.h"

namespace {

// The results live as long as the library. Each call overwrites them.
// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables)
std::string execute_result;
std::string edit_result;
// For the wide call and exceptions that run no destructors.
void* kept_handle = nullptr;
zu::Tfloat_scope const* kept_floats = nullptr;
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

char const* zu_vcl_pj_edit(char const* definition, unsigned char* changed) {
  zu::vcl::Tzu_look_scope const look;
  zu::vcl::start();
  Tzu_vcl_pj_edit_form form;
  form.create();
  form.load_rc();
  edit_result = form.pj_edit(definition, changed);
  return edit_result.c_str();
}

}  // namespace

char const* zu_proj4_form_execute(zu_pj_edit_window owner, char const* definition,
                                  unsigned char* changed) {
  zu::Tfloat_scope const floats;
  Tzu_handle_scope const scope(owner);
  *changed = 0;
  // The caller may pass the last result as input.
  std::string const input = definition == nullptr ? "" : definition;
  execute_result = input;
  try {
    execute_result = zu_vcl_pj_edit(input.c_str(), changed);
  } catch (zu::vcl::Tstart_error const& error) {
    (void)std::fprintf(stderr, "zu_pj_edit: no dialog: %s\n", error.what());
  }
  return execute_result.c_str();
}

void* zu_proj4_form_execute_w(zu_pj_edit_window owner, void* first, void* second) {
  zu::Tfloat_scope const floats;
  // Only the call reads this, and the scope lives longer than the call.
  kept_floats = &floats;  // cppcheck-suppress danglingLifetime
  kept_handle = Tzu_application::instance().get_handle();
  Tzu_handle_scope const scope(owner);
  auto* const execute = zu::module::find_loaded_as<zu::wide_function>(
      "zuk_scene2d_editor_bdl", "zu_proj4_form_execute_w__impl");
  if (execute == nullptr) return nullptr;
  // The window is already the application's window, so the module gets none.
  return zu::final_call(execute, nullptr, first, second,
                        {[] { kept_floats->restore(); },
                         [] { Tzu_application::instance().set_handle(kept_handle); }});
}
