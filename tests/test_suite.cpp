#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "basic/module.h"
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

// Names of files, and whether they are the module's by the platform's rules.
std::vector<std::pair<char const*, bool>> module_names() {
  if (std::filesystem::path(ZU_TEST_MODULE).extension() == ".dll")
    return {{"ZUK_Basic.DLL", true},
            {"zuk_basic_old.dll", false},
            {"my_zuk_basic.dll", false},
            {"libzuk_basic.dll", false}};
  return {{"libzuk_basic.so", true},
          {"zuk_basic.so.2", true},
          {"zuk_basic_old.so", false},
          {"my_zuk_basic.so", false}};
}

TEST(Host_module, is_found_by_its_file_name_while_loaded) {
  for (auto const& [file, found] : module_names()) {
    Ttemp_folder const folder;
    std::string const path = folder.file(file);
    std::filesystem::copy_file(ZU_TEST_MODULE, path);
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
}

TEST(Host_module, tells_whose_catalogue_counts) {
  namespace fs = std::filesystem;
  Tloaded_module const module(ZU_TEST_MODULE);
  Ttemp_folder const folder;
  std::wstring const host = folder.wide(L"suite");
  auto const own = fs::path(zu::module::own_path()).replace_filename("prj_def");
  // There is none next to the host's program: this library's counts.
  for (wchar_t const* path : {host.c_str(), L"", L"suite", static_cast<wchar_t const*>(nullptr)}) {
    state_of(module).main_module_path = path;
    EXPECT_EQ(fs::path(Tzu_pj_dbf::get_zone_db_path()), own / "pj_proj2.dbf");
  }
  state_of(module).main_module_path = host.c_str();
  fs::create_directory(folder.file("prj_def"));
  EXPECT_EQ(Tzu_pj_dbf::get_zone_db_path(), folder.file("prj_def/pj_proj2.dbf"));
  EXPECT_TRUE(Tzu_pj_dbf::get_missing_folders().empty());
  Tzu_pj_dbf::set_catalogue_folder(folder.file("other"));
  EXPECT_EQ(Tzu_pj_dbf::get_zone_db_path(), folder.file("other/pj_proj2.dbf"));
  EXPECT_EQ(Tzu_pj_dbf::get_missing_folders(), std::vector{folder.wide(L"other")});
  Tzu_pj_dbf::set_catalogue_folder("");
}

TEST(Host_module, adapters_are_made_fed_and_destroyed_there) {
  Tloaded_module const module(ZU_TEST_MODULE);
  std::wstring text;
  Tzu_std_wstring_adapter target(&text);
  {
    zu::string_adp const adapter(target);
    zu_string_adp_feed_c(adapter.get(), "narrow");
    EXPECT_EQ(text, L"narrow");
    zu_string_adp_feed(adapter.get(), L"wide");
    EXPECT_EQ(text, L"wide");
    EXPECT_EQ(state_of(module).adapters, 1);
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
  EXPECT_TRUE(std::filesystem::equivalent(zu_options_get_main_module_path(), program));
  std::filesystem::path const folder = Tzu_pj_dbf::get_dll_path();
  EXPECT_EQ(folder, program.parent_path() / "") << "ends with its separator";
}

}  // namespace
