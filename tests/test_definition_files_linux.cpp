// Definition files where names are bytes of the system's code page.

#include <gtest/gtest.h>

#include "core_support.h"
#include "fed_by.h"
#include "interchange/add_file.h"
#include "zu_pj_edit/zu_pj4_layer.h"

namespace {

TEST(Definition_file_linux, plain_form_has_no_other_names_either) {
  for (auto const& page : core_test::system_pages()) {
    core_test::Ttemp_folder const folder;
    core_test::Tsystem_page const system(page);
    for (wchar_t const* letter : page.foreign)
      EXPECT_FALSE(Tzu_add_file::save_pj4_mgs(folder.wide(letter), L"+proj=merc")) << page.encoding;
    EXPECT_EQ(folder.count(), 0U);
  }
}

// The device can be opened but takes no byte, as a full disk. No user may make a file among
// a process's own files, or read its memory.
TEST(Definition_file_linux, what_cannot_be_read_or_written_is_a_failure) {
  for (wchar_t const* name : {L"/dev/full", L"/proc/self/f.prj"}) {
    EXPECT_FALSE(zu_pj4_export_esri_prj(L"+proj=longlat +datum=WGS84", name));
    EXPECT_FALSE(Tzu_add_file::save_pj4_ini(name, L"+proj=merc"));
    EXPECT_FALSE(Tzu_add_file::save_pj4_mgs(name, L"+proj=merc"));
  }
  EXPECT_EQ(core_test::fed_by([](Izu_string_adp* adapter) {
              zu_pj4_import_esri(L"/proc/self/mem", adapter);
              zu_pj4_load_simple_w(L"/proc/self/mem", adapter);
            }),
            L"unfed");
}

}  // namespace
