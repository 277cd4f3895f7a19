// A second process that keeps a file from others until it is told to let go, and
// the pauses that a program makes for it.
#pragma once

#include <windows.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace core_test {

class Tfile_holder {
 public:
  // How it has the file open: for nobody else, to write it, to read it.
  enum Tsharing { alone, writing, reading };

  // Returns when the process has the file; a failure is one of the test.
  Tfile_holder(std::string const& name, Tsharing sharing);
  ~Tfile_holder() { let_go(); }
  Tfile_holder(Tfile_holder const&) = delete;
  Tfile_holder& operator=(Tfile_holder const&) = delete;

  // Returns when the process has ended.
  void let_go();

 private:
  struct closer {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const noexcept { CloseHandle(handle); }
  };
  using handle = std::unique_ptr<HANDLE, closer>;

  handle process_;
  handle told_;
};

// Runs `act`, whose calls of Sleep take no time, and gives their milliseconds.
// Each calls `in_pause` with its number, from 1.
std::vector<unsigned> pauses_of(std::function<void()> const& act,
                                std::function<void(std::size_t)> const& in_pause = {});

}  // namespace core_test
