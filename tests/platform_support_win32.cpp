#include "platform_support.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <stdexcept>

namespace core_test {
namespace {

struct handle_closer {
  using pointer = HANDLE;
  void operator()(HANDLE handle) const noexcept { CloseHandle(handle); }
};
using handle_ptr = std::unique_ptr<HANDLE, handle_closer>;

std::wstring to_wide(std::string const& text) {
  auto const size = static_cast<int>(text.size());
  std::wstring wide(text.size(), L'\0');
  wide.resize(static_cast<std::size_t>(
      MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), size)));
  return wide;
}

// The file may be a new one.
handle_ptr open_for_child(std::filesystem::path const& name, DWORD access) {
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  HANDLE const handle = CreateFileW(name.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    &inherited, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) throw std::runtime_error("no temporary file");
  return handle_ptr(handle);
}

// Quotes an argument as the C run-time expects it.
std::wstring quoted(std::wstring const& argument) {
  std::wstring text = L"\"";
  std::size_t backslashes = 0;
  for (wchar_t const c : argument) {
    // Backslashes before a quote are doubled, and the quote gets one more.
    if (c == L'"') text.append(backslashes + 1, L'\\');
    backslashes = c == L'\\' ? backslashes + 1 : 0;
    text += c;
  }
  return text.append(backslashes, L'\\') + L"\"";
}

}  // namespace

void set_variable(char const* name, char const* value) {
  _putenv_s(name, value == nullptr ? "" : value);
}

bool can_have_system_page(std::string_view encoding) {
  return encoding == (GetACP() == CP_UTF8 ? "UTF-8" : "CP" + std::to_string(GetACP()));
}

std::vector<char const*> comma_locales() { return {"German_Germany.1252", "Russian_Russia.1251"}; }

std::filesystem::path program_path() {
  std::array<wchar_t, 32768> path{};
  auto size = static_cast<DWORD>(path.size());
  return QueryFullProcessImageNameW(GetCurrentProcess(), 0, path.data(), &size) != 0 ? path.data()
                                                                                     : L"";
}

Tloaded_module::Tloaded_module(std::string const& path)
    : handle_(LoadLibraryW(std::filesystem::path(path).make_preferred().c_str())) {
  if (handle_ == nullptr) ADD_FAILURE() << path << ": error " << GetLastError();
}

Tloaded_module::~Tloaded_module() {
  if (handle_ != nullptr) FreeLibrary(static_cast<HMODULE>(handle_));
}

void* Tloaded_module::find(char const* symbol) const {
  return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(handle_), symbol));
}

bool is_shell_utf8() { return true; }

std::filesystem::path shell_path(std::string const& name) { return to_wide(name); }

int run_in(std::string const& folder, command const& wanted) {
  auto const in = open_for_child(folder + "in", GENERIC_READ);
  auto const out =
      open_for_child(folder + "out", wanted.loses_output ? GENERIC_READ : GENERIC_WRITE);
  auto const err = open_for_child(folder + "err", GENERIC_WRITE);

  std::wstring const program = shell_path(wanted.program).make_preferred().wstring();
  std::wstring line = quoted(program);
  for (std::string const& argument : wanted.arguments) line += L" " + quoted(to_wide(argument));
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdInput = in.get();
  start.hStdOutput = out.get();
  start.hStdError = err.get();
  PROCESS_INFORMATION started{};
  if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                     &start, &started) == 0)
    throw std::runtime_error("cannot start " + wanted.program);
  handle_ptr const process(started.hProcess);
  handle_ptr const thread(started.hThread);
  WaitForSingleObject(process.get(), INFINITE);
  DWORD status = 0;
  GetExitCodeProcess(process.get(), &status);
  return static_cast<int>(status);
}

}  // namespace core_test
