#include "file_holder_win32.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace core_test {
namespace {

// Called in place of a wait of so many milliseconds.
std::function<void(unsigned)>& in_sleep() {
  static std::function<void(unsigned)> instance;
  return instance;
}

}  // namespace

// Stands for the system's function in this program, under both of its names.
void WINAPI watched_sleep(DWORD milliseconds) __asm__("Sleep");
void WINAPI watched_sleep(DWORD milliseconds) {
  if (in_sleep()) {
    in_sleep()(milliseconds);
  } else {
    SleepEx(milliseconds, FALSE);
  }
}

Tfile_holder::Tfile_holder(std::string const& name, Tsharing sharing) {
  DWORD const access = sharing == reading ? GENERIC_READ : GENERIC_READ | GENERIC_WRITE;
  DWORD const others = sharing == alone     ? 0
                       : sharing == writing ? FILE_SHARE_READ | FILE_SHARE_WRITE
                                            : FILE_SHARE_READ;
  HANDLE const file = CreateFileW(std::filesystem::path(name).c_str(), access, others, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  EXPECT_NE(file, INVALID_HANDLE_VALUE) << name;
  if (file != INVALID_HANDLE_VALUE) file_.reset(file);
}

std::vector<unsigned> pauses_of(std::function<void()> const& act,
                                std::function<void(std::size_t)> const& in_pause) {
  std::vector<unsigned> made;
  in_sleep() = [&](unsigned milliseconds) {
    made.push_back(milliseconds);
    if (in_pause) in_pause(made.size());
  };
  act();
  in_sleep() = nullptr;
  return made;
}

}  // namespace core_test

// NOLINTNEXTLINE(clang-diagnostic-reserved-identifier): the linker's name
extern "C" decltype(&Sleep) __imp_Sleep;
decltype(&Sleep) __imp_Sleep = &core_test::watched_sleep;
