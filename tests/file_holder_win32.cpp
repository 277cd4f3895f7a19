#include "file_holder_win32.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>

#include "platform_support.h"

namespace core_test {
namespace {

struct pause_watch {
  std::vector<unsigned> made;
  std::function<void(std::size_t)> in_pause;
};

pause_watch*& watch() {
  static pause_watch* instance = nullptr;
  return instance;
}

}  // namespace

// Stands for the system's function in this program, under both of its names.
void WINAPI watched_sleep(DWORD milliseconds) __asm__("Sleep");
void WINAPI watched_sleep(DWORD milliseconds) {
  if (watch() == nullptr) {
    SleepEx(milliseconds, FALSE);
    return;
  }
  watch()->made.push_back(milliseconds);
  if (watch()->in_pause) watch()->in_pause(watch()->made.size());
}

// Handed down are an event, by which the process tells that it has the file, and
// a mutex, which it waits for: it gets it also when this process dies.
Tfile_holder::Tfile_holder(std::string const& name, Tsharing sharing) {
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  handle const held(CreateEventW(&inherited, TRUE, FALSE, nullptr));
  told_.reset(CreateMutexW(&inherited, TRUE, nullptr));
  auto const number = [](HANDLE object) {
    return std::to_wstring(reinterpret_cast<std::uintptr_t>(object));
  };
  std::wstring const program = program_path().parent_path() / L"zu_file_holder.exe";
  std::wstring line = L"holder " + number(held.get()) + L" " + number(told_.get()) + L" " +
                      std::to_wstring(sharing) + L" \"" + std::filesystem::path(name).wstring() +
                      L"\"";
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION started{};
  if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                     &start, &started) == 0) {
    ADD_FAILURE() << "cannot start zu_file_holder.exe";
    return;
  }
  process_.reset(started.hProcess);
  handle const thread(started.hThread);
  std::array<HANDLE, 2> const either{held.get(), process_.get()};
  if (WaitForMultipleObjects(2, either.data(), FALSE, INFINITE) != WAIT_OBJECT_0)
    ADD_FAILURE() << "zu_file_holder.exe cannot open " << name;
}

void Tfile_holder::let_go() {
  if (!process_) return;
  ReleaseMutex(told_.get());
  WaitForSingleObject(process_.get(), INFINITE);
  process_.reset();
}

std::vector<unsigned> pauses_of(std::function<void()> const& act,
                                std::function<void(std::size_t)> const& in_pause) {
  pause_watch watching{{}, in_pause};
  watch() = &watching;
  act();
  watch() = nullptr;
  return watching.made;
}

}  // namespace core_test

// NOLINTNEXTLINE(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp): the linker's name
extern "C" decltype(&Sleep) __imp_Sleep;
decltype(&Sleep) __imp_Sleep = &core_test::watched_sleep;
