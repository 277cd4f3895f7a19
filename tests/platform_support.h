// What the tests ask of the platform.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace core_test {

// Null takes the variable away.
void set_variable(char const* name, char const* value);

// Whether a test can have that code page ("CP1251") for the system's. Off
// Windows the environment picks the page; the variable ZU_TEST_PAGE, where it
// is set, names the only one to be picked.
bool can_have_system_page(std::string_view encoding);

// Locales of the C library with a decimal comma, the German one first. Off
// Windows they are those of LOCPATH.
std::vector<char const*> comma_locales();

// The running program, as the system tells it.
std::filesystem::path program_path();

// A module that is loaded for a scope, as a host loads its own.
class Tloaded_module {
 public:
  explicit Tloaded_module(std::string const& path);
  ~Tloaded_module();
  Tloaded_module(Tloaded_module const&) = delete;
  Tloaded_module& operator=(Tloaded_module const&) = delete;

  void* find(char const* symbol) const;

 private:
  void* handle_;
};

// Whether the shell speaks UTF-8 to programs whatever the system's code page.
bool is_shell_utf8();
// A file's name in the shell's encoding.
std::filesystem::path shell_path(std::string const& name);

// What a shell gives a program and gets from it. Texts are in the shell's
// encoding: the locale's, on Windows UTF-8.
struct outcome {
  int status = -1;
  std::string out;
  std::string err;
};

struct command {
  std::string program;
  std::vector<std::string> arguments;
  std::string input;
  // Writing to standard output fails.
  bool loses_output = false;
};

// Throws std::runtime_error when the program cannot be started.
outcome run(command const& wanted);
// Returns the status. The program's streams are the files "in", "out" and "err" of the folder,
// whose name ends with a separator.
int run_in(std::string const& folder, command const& wanted);

}  // namespace core_test
