#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "basic/module.h"
#include "catalogue/catalogue.h"
#include "catalogue/pj_dbf.h"
#include "core_support.h"
#include "suite/zuk_basic.h"
#include "text/rc.h"
#include "text/string_adapter.h"

namespace {

using core_test::recorded;
using core_test::Tenvironment;
using core_test::Tloaded_module;
using core_test::Ttemp_folder;

// As modules/zuk_basic.cpp has it.
struct zuk_basic_state {
  wchar_t const* main_module_path;
  int language;
  int adapters;
  int feeds;
};

zuk_basic_state& state_of(Tloaded_module const& module) {
  return *static_cast<zuk_basic_state*>(module.find("zuk_basic_now"));
}

struct module_name {
  char const* file;
  bool is_zuk_basic;
};

// As the platform's own names of modules have it.
std::vector<module_name> module_names() {
  std::string const suffix = std::filesystem::path(ZU_TEST_MODULE).extension().string();
  if (suffix == ".dll")
    return {{"zuk_basic.dll", true},      {"ZUK_Basic.DLL", true},
            {"zuk_basic_old.dll", false}, {"my_zuk_basic.dll", false},
            {"libzuk_basic.dll", false},  {"zuk_basic.dll.2.dll", false}};
  return {{"zuk_basic.so", true},      {"libzuk_basic.so", true},  {"zuk_basic.so.2", true},
          {"zuk_basic_old.so", false}, {"my_zuk_basic.so", false}, {"zuk_basic.dll", false}};
}

TEST(Host_module, is_found_by_its_file_name_while_loaded) {
  for (auto const& [file, found] : module_names()) {
    Ttemp_folder const folder;
    std::string const path = folder.file(file);
    std::filesystem::copy_file(ZU_TEST_MODULE, path);
    EXPECT_EQ(zu::module::find_loaded("zuk_basic", "zu_res_get_lng"), nullptr) << "before " << file;
    {
      Tloaded_module const module(path);
      EXPECT_EQ(zu::module::find_loaded("zuk_basic", "zu_res_get_lng") != nullptr, found) << file;
      EXPECT_EQ(zu::module::find_loaded("zuk_basic", "no_such_symbol"), nullptr) << file;
    }
    // The question must not keep the host's module loaded.
    EXPECT_EQ(zu::module::find_loaded("zuk_basic", "zu_res_get_lng"), nullptr) << "after " << file;
  }
}

TEST(Host_module, answers_instead_of_the_stand_ins) {
  Tloaded_module const module(ZU_TEST_MODULE);
  for (int const language : {0, 1, 7}) {
    state_of(module).language = language;
    EXPECT_EQ(zu_res_get_lng(), language);
  }
  EXPECT_STREQ(zu_options_get_main_module_path(), L"/opt/suite/bin/suite");
  EXPECT_EQ(recorded(Tzu_pj_dbf::get_dll_path()), "/opt/suite/bin/");
  EXPECT_EQ(recorded(Tzu_pj_dbf::get_zone_db_path()), "/opt/suite/bin/prj_def/pj_proj2.dbf");
  // A host that knows no path: the tables of the working folder.
  for (wchar_t const* path : {L"", L"suite", static_cast<wchar_t const*>(nullptr)}) {
    state_of(module).main_module_path = path;
    EXPECT_EQ(recorded(Tzu_pj_dbf::get_ellipse_db_path()), "prj_def/pj_ellps.dbf");
  }
}

TEST(Host_module, adapters_are_made_fed_and_destroyed_there) {
  Tloaded_module const module(ZU_TEST_MODULE);
  std::wstring text;
  Tzu_std_wstring_adapter target(&text);
  {
    zu::string_adp const adapter(target);
    EXPECT_EQ(state_of(module).adapters, 1);
    zu_string_adp_feed_c(adapter.get(), "narrow");
    EXPECT_EQ(text, L"narrow");
    zu_string_adp_feed(adapter.get(), L"wide");
    EXPECT_EQ(text, L"wide");
    EXPECT_EQ(state_of(module).feeds, 2);
  }
  EXPECT_EQ(state_of(module).adapters, 0);
}

// The language is taken once in a process, so each case needs its own.
void exit_with_language(int host_language) {
  Tloaded_module const module(ZU_TEST_MODULE);
  state_of(module).language = host_language;
  bool const english = Tzu_rc::get_str(5, 0) == std::string_view("Apply");
  state_of(module).language = english ? 0 : 1;
  bool const stays = english == (Tzu_rc::get_str(5, 0) == std::string_view("Apply"));
  std::exit(!stays ? 2 : english ? 1 : 0);
}

TEST(Host_module_death, language_0_is_russian_and_the_first_one_stays) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  Tenvironment const environment{{"LC_ALL", "de_DE.UTF-8"}};
  EXPECT_EXIT(exit_with_language(0), testing::ExitedWithCode(0), "");
  EXPECT_EXIT(exit_with_language(1), testing::ExitedWithCode(1), "");
  EXPECT_EXIT(exit_with_language(2), testing::ExitedWithCode(1), "");
}

TEST(Stand_in, main_module_is_the_running_program) {
  std::filesystem::path const program = core_test::program_path();
  std::wstring const path = zu_options_get_main_module_path();
  EXPECT_TRUE(std::filesystem::equivalent(path, program));
  std::filesystem::path const folder = Tzu_pj_dbf::get_dll_path();
  EXPECT_EQ(folder, program.parent_path() / "");
  EXPECT_FALSE(folder.has_filename()) << "ends with its separator";
}

TEST(Stand_in, catalogue_can_be_kept_elsewhere) {
  Ttemp_folder const folder;
  Tzu_pj_dbf::set_catalogue_folder(folder.file("tables"));
  EXPECT_EQ(Tzu_pj_dbf::get_datum_db_path(), folder.file("tables/pj_datum.dbf"));
  Tzu_pj_def_dbf catalogue;
  EXPECT_EQ(catalogue.get_proj_defs().get_size(), 2U);
  Tzu_pj_dbf::set_catalogue_folder("");
  EXPECT_EQ(Tzu_pj_dbf::get_datum_db_path(), Tzu_pj_dbf::get_dll_path() + "prj_def/pj_datum.dbf");
}

}  // namespace
