#include "platform_support.h"

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <stdexcept>

namespace core_test {
namespace {

struct closer {
  void operator()(std::FILE* file) const noexcept { static_cast<void>(std::fclose(file)); }
};
using stream = std::unique_ptr<std::FILE, closer>;

stream temporary(std::string_view content = "") {
  stream file(std::tmpfile());
  if (!file || std::fwrite(content.data(), 1, content.size(), file.get()) != content.size() ||
      std::fflush(file.get()) != 0)
    throw std::runtime_error("no temporary file");
  std::rewind(file.get());
  return file;
}

std::string content_of(std::FILE* file) {
  std::string text;
  std::rewind(file);
  for (int c = std::fgetc(file); c != EOF; c = std::fgetc(file)) text += static_cast<char>(c);
  return text;
}

}  // namespace

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

outcome run(command const& wanted) {
  std::vector<std::string> texts = wanted.arguments;
  texts.insert(texts.begin(), wanted.program);
  std::vector<char*> arguments;
  arguments.reserve(texts.size() + 1);
  for (std::string& text : texts) arguments.push_back(text.data());
  arguments.push_back(nullptr);

  stream const in = temporary(wanted.input);
  stream const out(wanted.loses_output ? stream(std::fopen("/dev/full", "w")) : temporary());
  stream const err = temporary();
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, fileno(in.get()), 0);
  posix_spawn_file_actions_adddup2(&actions, fileno(out.get()), 1);
  posix_spawn_file_actions_adddup2(&actions, fileno(err.get()), 2);
  pid_t process = 0;
  int const started =
      posix_spawn(&process, wanted.program.c_str(), &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (started != 0) throw std::runtime_error("cannot start " + wanted.program);
  int status = 0;
  waitpid(process, &status, 0);
  outcome result;
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  if (!wanted.loses_output) result.out = content_of(out.get());
  result.err = content_of(err.get());
  return result;
}

}  // namespace core_test
