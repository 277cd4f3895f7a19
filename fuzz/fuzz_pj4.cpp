// Loads a definition file, saves the definition and loads it again.
#include "fuzz.h"
#include "interchange/add_file.h"

namespace {

std::wstring loaded(std::wstring const& name) {
  return fuzz::fed([&](auto* adapter) { return Tzu_add_file::load_pj4_simple(name, adapter); });
}

}  // namespace

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  static std::string const narrow = fuzz::folder().file("f.pj4");
  static std::wstring const name = fuzz::folder().wide(L"f.pj4");
  core_test::put_file(narrow, fuzz::text_of(data, size));
  std::wstring const text = loaded(name);
  Tzu_add_file::save_pj4_mgs(name, text);
  if (!Tzu_add_file::save_pj4_ini(name, text)) return 0;
  std::wstring const again = loaded(name);
  fuzz::require(Tzu_add_file::save_pj4_ini(name, again), "what was saved cannot be saved again");
  fuzz::require(loaded(name) == again, "a file of ours is not read as it was written");
  return 0;
}
