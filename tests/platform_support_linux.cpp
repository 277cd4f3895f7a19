#include "platform_support.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <stdexcept>

namespace core_test {

void set_variable(char const* name, char const* value) {
  value != nullptr ? setenv(name, value, 1) : unsetenv(name);
}

bool can_have_system_page(std::string_view encoding) {
  char const* const only = std::getenv("ZU_TEST_PAGE");
  return only == nullptr || encoding == only;
}

std::vector<char const*> comma_locales() { return {"de_DE.UTF-8", "ru_RU.CP1251"}; }

std::filesystem::path program_path() { return std::filesystem::read_symlink("/proc/self/exe"); }

Tloaded_module::Tloaded_module(std::string const& path)
    : handle_(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) {
  if (handle_ == nullptr) ADD_FAILURE() << dlerror();
}

Tloaded_module::~Tloaded_module() {
  if (handle_ != nullptr) dlclose(handle_);
}

void* Tloaded_module::find(char const* symbol) const { return dlsym(handle_, symbol); }

bool is_shell_utf8() { return false; }

std::filesystem::path shell_path(std::string const& name) { return name; }

int run_in(std::string const& folder, command const& wanted) {
  std::vector<std::string> texts = wanted.arguments;
  texts.insert(texts.begin(), wanted.program);
  std::vector<char*> arguments;
  arguments.reserve(texts.size() + 1);
  for (std::string& text : texts) arguments.push_back(text.data());
  arguments.push_back(nullptr);

  std::string const out = wanted.loses_output ? "/dev/full" : folder + "out";
  constexpr int to_new = O_WRONLY | O_CREAT;
  posix_spawn_file_actions_t streams;
  posix_spawn_file_actions_init(&streams);
  posix_spawn_file_actions_addopen(&streams, 0, (folder + "in").c_str(), O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&streams, 1, out.c_str(), to_new, 0600);
  posix_spawn_file_actions_addopen(&streams, 2, (folder + "err").c_str(), to_new, 0600);
  pid_t process = 0;
  int const started =
      posix_spawn(&process, wanted.program.c_str(), &streams, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&streams);
  if (started != 0) throw std::runtime_error("cannot start " + wanted.program);
  int status = 0;
  waitpid(process, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace core_test
