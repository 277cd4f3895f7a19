#include <iostream>

#include "edit.h"
#include "systems.h"
#include "terminal.h"
#include "text_lines.h"
#include "vcl/look_scope.h"
#include "vcl/toolkit.h"
#include "zu_pj_edit/zu_pj_edit.h"

int edit(std::string const& definition, Tlosses const& losses, char** /*arguments*/) {
  // Fails without a display; the dialog itself would only look cancelled.
  zu::vcl::Tzu_look_scope const look;
  zu::vcl::start();
  unsigned char changed = 0;
  std::string const input =
      terminal::to_library(systems::definition_of(text_lines::text_of(definition)));
  losses.tell(input);
  std::cout << terminal::from_library(zu_proj4_form_execute(nullptr, input.c_str(), &changed))
            << '\n';
  constexpr int cancelled = 1;
  return changed != 0 ? 0 : cancelled;
}
