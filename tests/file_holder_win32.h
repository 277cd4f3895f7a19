// Holds a file open, so that others cannot open it; counts how often a program waits for
// it.
#pragma once

#include <windows.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace core_test {

// For the system it is the same whether this program or another one has the file.
class Tfile_holder {
 public:
  // How it has the file open: for nobody else, to write it, to read it.
  enum Tsharing { alone, writing, reading };

  // The test fails when this does.
  Tfile_holder(std::string const& name, Tsharing sharing);
  void let_go() { file_.reset(); }

 private:
  struct closer {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const noexcept { CloseHandle(handle); }
  };
  std::unique_ptr<HANDLE, closer> file_;
};

// Runs `act`. Its calls of Sleep take no time; gives their milliseconds.
// Each calls `in_pause` with its number, from 1.
std::vector<unsigned> pauses_of(std::function<void()> const& act,
                                std::function<void(std::size_t)> const& in_pause = {});

}  // namespace core_test
