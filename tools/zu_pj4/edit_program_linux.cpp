#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "basic/path.h"
#include "edit.h"
#include "error.h"
#include "suite/host.h"

int edit(std::string const& /*definition*/, Tlosses const& /*losses*/, char** arguments) {
  auto const program =
      zu::path::to_native(zu::host::program_path()).replace_filename("zu_pj4_edit");
  execv(program.c_str(), arguments);
  throw Terror("cannot start " + program.string() + ": " + std::generic_category().message(errno));
}
