#include "basic/session.h"

#include <pwd.h>
#include <unistd.h>

#include <array>

#include "basic/code_page.h"

namespace zu::session {

std::wstring user_name() {
  // One thread by contract, the host's.
  // cppcheck-suppress getpwuidCalled
  passwd const* const entry = getpwuid(geteuid());
  return entry == nullptr ? std::wstring() : code_page::to_wide(code_page::system, entry->pw_name);
}

std::wstring computer_name() {
  std::array<char, 256> name{};
  if (gethostname(name.data(), name.size() - 1) != 0) return {};
  std::string_view const whole = name.data();
  return code_page::to_wide(code_page::system, whole.substr(0, whole.find('.')));
}

bool is_terminal(std::FILE* stream) noexcept { return isatty(fileno(stream)) == 1; }

}  // namespace zu::session
