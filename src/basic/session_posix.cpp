#include "basic/session.h"

#include <langinfo.h>
#include <locale.h>  // NOLINT(modernize-deprecated-headers): newlocale is of POSIX
#include <pwd.h>
#include <unistd.h>

#include <array>
#include <memory>
#include <type_traits>

#include "basic/code_page.h"

namespace zu::session {
namespace {

struct locale_deleter {
  void operator()(locale_t handle) const noexcept { freelocale(handle); }
};
using locale_ptr = std::unique_ptr<std::remove_pointer_t<locale_t>, locale_deleter>;

}  // namespace

std::wstring user_name() {
  // Only one thread calls the library: the host's.
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

std::wstring decimal_separator() {
  locale_ptr const user{newlocale(LC_NUMERIC_MASK, "", nullptr)};
  if (!user) return L".";
  return code_page::to_wide(code_page::system, nl_langinfo_l(RADIXCHAR, user.get()));
}

}  // namespace zu::session
