// Reads, writes, describes and edits a definition.
#include "fuzz.h"
#include "pj_edit/edit_rules.h"
#include "proj4/proj4_str.h"
#include "zu_pj_edit/zu_pj4_layer.h"

namespace {

std::string rewritten(std::string const& definition) {
  Tzu_proj4_str set;
  set.set(definition.c_str());
  set.decompose();
  set.compose();
  return set.get();
}

std::string edited(std::string const& definition) {
  static zu::Tzu_pj_editor editor(zu::catalogue_lists::shipped());
  editor.set_proj4_string(definition.c_str());
  return editor.get_proj4_string();
}

}  // namespace

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  std::string const definition(fuzz::text_of(data, size));
  // The "+" in the exponent of a huge number begins a key, as any "+" does.
  auto const has_huge = [](std::string const& text) {
    return text.find("e+") != std::string::npos;
  };
  std::string const written = rewritten(definition);
  fuzz::require(has_huge(written) || rewritten(written) == written,
                "a text of ours is not read as it was written");
  // The first edit writes every number, so the second one may recognise a zone and
  // write its meridian, which may differ by 360 degrees. A third edit must change nothing.
  std::string const applied = edited(edited(definition));
  fuzz::require(has_huge(applied) || edited(applied) == applied,
                "the dialog changes what it has written");
  fuzz::fed([&](auto* adapter) { return zu_pj4_get_text(definition.c_str(), adapter) != 0; });
  fuzz::fed([&](auto* adapter) { return zu_pj4_get_short_text(definition.c_str(), adapter) != 0; });
  return 0;
}
