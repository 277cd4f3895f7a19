// Calls the function of a fuzzer for each file of the folders, as an ordinary test.
#include <filesystem>
#include <span>

#include "fuzz.h"

int main(int argc, char** argv) {
  std::size_t count = 0;
  for (char const* folder : std::span(argv, static_cast<std::size_t>(argc)).subspan(1))
    for (auto const& entry : std::filesystem::directory_iterator(folder)) {
      std::string const content = core_test::read_file(entry.path().string());
      std::vector<std::uint8_t> const bytes(content.begin(), content.end());
      LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
      ++count;
    }
  std::printf("%zu inputs\n", count);
  return count == 0 ? 1 : 0;
}
