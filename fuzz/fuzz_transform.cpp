// Transforms points between two definitions. The input is two lines, then coordinates.
#include <bit>
#include <cmath>
#include <cstring>
#include <vector>

#include "fuzz.h"
#include "reproj/reproj_xy.h"

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  std::string_view rest = fuzz::text_of(data, size);
  auto const take_line = [&rest] {
    std::string line(rest.substr(0, rest.find('\n')));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    return line;
  };
  std::string const source = take_line();
  std::string const target = take_line();
  std::vector<double> x(rest.size() / 16);
  std::vector<double> y(x.size());
  if (!x.empty()) {
    std::memcpy(x.data(), rest.data(), x.size() * 8);
    std::memcpy(y.data(), rest.data() + x.size() * 8, y.size() * 8);
  }
  Tzu_reproj_xy reproj;
  if (!reproj.init(source.c_str(), target.c_str())) return 0;
  for (auto const direction : {reproj_direction::forward, reproj_direction::backward}) {
    auto alone_x = x;
    auto alone_y = y;
    bool const all = reproj.apply_xy(x.size(), x.data(), y.data(), direction);
    bool all_alone = true;
    for (std::size_t i = 0; i < x.size(); ++i) {
      bool const done = reproj.apply(&alone_x[i], &alone_y[i], direction);
      all_alone = all_alone && done;
      fuzz::require(done == (std::isfinite(x[i]) && std::isfinite(y[i])),
                    "the result of a point tells otherwise than its coordinates");
      fuzz::require(!done || (x[i] == alone_x[i] && y[i] == alone_y[i]),
                    "a point depends on the others");
    }
    fuzz::require(all == all_alone, "the result of an array tells otherwise than its points");
  }
  return 0;
}
