#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "edit.h"
#include "error.h"

int edit(std::string const& /*definition*/, Tlosses const& /*losses*/, char** arguments) {
  // A shell that finds the program through PATH gives it a name without a folder.
  auto const program =
      std::filesystem::read_symlink("/proc/self/exe").replace_filename("zu_pj4_edit");
  execv(program.c_str(), arguments);
  throw Terror("cannot start " + program.string() + ": " + std::generic_category().message(errno));
}
