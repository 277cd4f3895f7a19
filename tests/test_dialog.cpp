// The whole dialog, opened as a host opens it and driven by real input.

#include <gtest/gtest.h>

#include <clocale>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "basic/str.h"
#include "core_support.h"
#include "gui_support.h"
#include "pj_edit/vcl_pj_edit_form.h"
#include "text/rc.h"
#include "vcl/application.h"
#include "vcl/toolkit.h"
#include "zu_pj_edit/zu_pj_edit.h"

namespace {

using gui::click;
using gui::pick;
using Tform = Tzu_vcl_pj_edit_form;
using Tscript = std::function<void(Tform&)>;

constexpr char const* pulkovo_zone_7 =
    "+proj=tmerc +lon_0=39 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=1 "
    "+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +ellps=krass +units=m +lon_wrap=45 +no_defs";
constexpr char const* moscow_tm =
    "+proj=tmerc +lon_0=37.5 +lat_0=55.5 +x_0=12 +y_0=14 +k_0=1 +towgs84=1,2,3,0,0,0,0 "
    "+ellps=krass +units=m +lon_wrap=45 +no_defs";

struct outcome {
  std::string text;
  int changed;
};

// Opens the dialog through the exported function and runs the script on it.
outcome open_dialog(char const* definition, Tscript const& script, void* owner = nullptr) {
  unsigned char changed = 7;
  std::string text;
  gui::run_in_form([&] { text = zu_proj4_form_execute(owner, definition, &changed); },
                   [&](Tzu_vcl_form& form) { script(dynamic_cast<Tform&>(form)); });
  return {text, changed};
}

void press_button(Tform& form, Tzu_vcl_bottom_buttons::button_index button) {
  click(*form.get_buttons()->get_button(button));
}
void apply(Tform& form) { press_button(form, Tzu_vcl_bottom_buttons::apply); }
void cancel(Tform& form) { press_button(form, Tzu_vcl_bottom_buttons::cancel); }

Tzu_vcl_dbl_edit& number(Tform& form, proj_number which) {
  return *form.get_editor()->get_proj()->get_params()->get_edit(which)->get_edit();
}

Tzu_vcl_selbox& type(Tform& form) { return *form.get_editor()->get_type()->get_selbox(); }
Tzu_vcl_selbox& datum(Tform& form) {
  return *form.get_editor()->get_datum()->get_datum()->get_selbox();
}
Tzu_vcl_selbox& ellipse(Tform& form) {
  return *form.get_editor()->get_datum()->get_ellipse()->get_ellipse()->get_selbox();
}
Tzu_vcl_dbl_edit& shift(Tform& form, std::size_t index) {
  return *form.get_editor()->get_datum()->get_params()->get_edit(index);
}

// As a file dialog gives it.
std::wstring file_in(core_test::Ttemp_folder const& folder, wchar_t const* name) {
  return std::filesystem::path(folder.wide(name)).make_preferred().wstring();
}

// What GDAL's own program makes of a file, where there is one.
void expect_gdal_reads(std::string const& file, char const* definition) {
  std::string const program = core_test::system_program("gdalsrsinfo");
  if (program.empty()) return;
  auto const told = core_test::run({program, {"-o", "proj4", file}, ""});
  EXPECT_EQ(zu::str::trim(told.out), definition) << told.err;
}

class dialog : public testing::Test {
 protected:
  void SetUp() override {
    Tzu_rc::get_auto_lang();
    Tzu_rc::set_lang(0);
  }
  gui::Tanswers answers;
};

TEST_F(dialog, ends_with_the_input_unless_applied) {
  // No catalogue row, spelling or order of keys may touch what is not applied.
  for (char const* const text : {"+units=m  +proj=merc +zone=x", "", "not a definition"}) {
    outcome const result = open_dialog(text, cancel);
    EXPECT_EQ(result.text, text);
    EXPECT_EQ(result.changed, 0);
  }
  EXPECT_EQ(open_dialog(nullptr, cancel).text, "");
  // The window manager's way of closing is no Apply either.
  outcome const closed = open_dialog("+proj=merc", [](Tform& form) { form.Close(); });
  EXPECT_EQ(closed.text, "+proj=merc");
  EXPECT_EQ(closed.changed, 0);
}

TEST_F(dialog, gives_back_what_was_applied) {
  outcome const untouched = open_dialog(pulkovo_zone_7, apply);
  EXPECT_EQ(untouched.text, pulkovo_zone_7);
  EXPECT_EQ(untouched.changed, 1);
  // A result may be handed in again: it is the library's own text.
  unsigned char changed = 0;
  char const* again = nullptr;
  gui::run_in_form(
      [&] { again = zu_proj4_form_execute(nullptr, untouched.text.c_str(), &changed); },
      [](Tzu_vcl_form& form) { apply(dynamic_cast<Tform&>(form)); });
  gui::run_in_form([&] { again = zu_proj4_form_execute(nullptr, again, &changed); },
                   [](Tzu_vcl_form& form) { cancel(dynamic_cast<Tform&>(form)); });
  EXPECT_STREQ(again, pulkovo_zone_7);

  outcome const unknown = open_dialog("+proj=nonsense +lat_0=1 +ellps=krass", [](Tform& form) {
    EXPECT_FALSE(form.get_editor()->get_proj()->IsShown());
    EXPECT_FALSE(form.get_editor()->get_datum()->IsShown());
    apply(form);
  });
  EXPECT_EQ(unknown.text, "");
  EXPECT_EQ(unknown.changed, 1);
}

TEST_F(dialog, writes_the_numbers_that_were_typed) {
  outcome const result = open_dialog(moscow_tm, [](Tform& form) {
    EXPECT_EQ(number(form, proj_number::lon_0).get_text(), L"37.5");
    gui::type_over(number(form, proj_number::lon_0), "38.25");
    gui::type_over(shift(form, 4), "-0.35");
    // Typed and not left: Apply takes it all the same.
    gui::type_over(number(form, proj_number::y_0), "-5811057.628");
    apply(form);
  });
  EXPECT_EQ(result.text,
            "+proj=tmerc +lon_0=38.25 +lat_0=55.5 +x_0=12 +y_0=-5811057.628 +k_0=1 "
            "+towgs84=1,2,3,0,-0.35,0,0 +ellps=krass +units=m +lon_wrap=45 +no_defs");
}

TEST_F(dialog, refuses_bad_numbers_and_stays_open) {
  struct row {
    proj_number which;
    char const* typed;
    wchar_t const* message;
  };
  for (row const& bad : {row{proj_number::lat_0, "91", L"Number must be less than: 90"},
                         row{proj_number::lat_0, "-90.5", L"Number must be greater than: -90"},
                         row{proj_number::x_0, "--1", L"Wrong number: --1"}}) {
    outcome const result = open_dialog(moscow_tm, [&](Tform& form) {
      gui::type_over(number(form, bad.which), bad.typed);
      answers.expect_message();
      apply(form);
      EXPECT_TRUE(
          gui::wait_until([&] { return wxWindow::FindFocus() == &number(form, bad.which); }));
      EXPECT_EQ(answers.take_messages(), std::vector<std::wstring>{bad.message});
      EXPECT_EQ(number(form, bad.which).get_text(),
                std::wstring(bad.typed, bad.typed + std::strlen(bad.typed)));
      EXPECT_TRUE(form.is_open()) << bad.typed;
      cancel(form);
    });
    EXPECT_EQ(result.changed, 0) << bad.typed;
  }
  // Limits are inclusive, and a scale of 0 is outside them.
  outcome const edge = open_dialog(moscow_tm, [&](Tform& form) {
    gui::type_over(number(form, proj_number::k_0), "0");
    answers.expect_message();
    apply(form);
    gui::type_over(number(form, proj_number::k_0), "0.9996");
    gui::type_over(number(form, proj_number::lat_0), "90");
    apply(form);
  });
  EXPECT_NE(edge.text.find("+lat_0=90 "), std::string::npos) << edge.text;
  EXPECT_NE(edge.text.find("+k_0=0.9996 "), std::string::npos) << edge.text;
}

TEST_F(dialog, shows_what_the_type_selector_says) {
  outcome const result = open_dialog("", [](Tform& form) {
    Tzu_vcl_pj_edit& editor = *form.get_editor();
    pick(type(form), L"Usual projections");
    EXPECT_TRUE(editor.get_proj()->get_usual()->IsShownOnScreen());
    EXPECT_FALSE(editor.get_proj()->get_zonal()->IsShownOnScreen());
    pick(*editor.get_proj()->get_usual()->get_selbox(), L"Mercator");
    EXPECT_FALSE(number(form, proj_number::lat_0).IsShownOnScreen());
    EXPECT_EQ(number(form, proj_number::k_0).get_text(), L"1");
    pick(type(form), L"Zonal projections");
    EXPECT_FALSE(editor.get_proj()->get_usual()->IsShownOnScreen());
    EXPECT_TRUE(editor.get_proj()->get_zonal()->IsShownOnScreen());
    // The first zonal entry is Gauss and Kruger's, which brings its datum.
    EXPECT_EQ(datum(form).get_active_caption(), L"PULKOVO_1942");
    pick(*editor.get_proj()->get_zonal()->get_selbox(), L"UTM North");
    pick(*editor.get_proj()->get_zone()->get_selbox(), L"37");
    pick(datum(form), L"WGS84");
    EXPECT_TRUE(gui::find_clipped(form).empty());
    apply(form);
  });
  EXPECT_EQ(result.text,
            "+proj=utm +zone=37 +datum=WGS84 +towgs84=0,0,0,0,0,0,0 +ellps=WGS84 +units=m "
            "+lon_wrap=45 +no_defs");
}

TEST_F(dialog, gives_gauss_kruger_its_datum_when_chosen_in_zonal_mode_only) {
  outcome const result = open_dialog(moscow_tm, [](Tform& form) {
    EXPECT_EQ(datum(form).get_active_caption(), L"_Custom");
    pick(type(form), L"Zonal projections");
    pick(*form.get_editor()->get_proj()->get_zonal()->get_selbox(), L"Gauss-Kruger (plus zone)");
    EXPECT_EQ(datum(form).get_active_caption(), L"PULKOVO_1942");
    pick(*form.get_editor()->get_proj()->get_zone()->get_selbox(), L"7");
    apply(form);
  });
  EXPECT_EQ(result.text, pulkovo_zone_7);
}

TEST_F(dialog, lets_the_seven_numbers_be_edited_for_a_custom_datum_only) {
  outcome const result = open_dialog(pulkovo_zone_7, [](Tform& form) {
    EXPECT_FALSE(shift(form, 0).get_edit_enabled());
    EXPECT_FALSE(ellipse(form).IsEnabled());
    pick(datum(form), L"_Custom");
    EXPECT_TRUE(shift(form, 0).get_edit_enabled());
    gui::type_over(shift(form, 0), "25");
    EXPECT_TRUE(ellipse(form).IsEnabled());
    apply(form);
  });
  EXPECT_NE(result.text.find("+towgs84=25,-140.95,-79.8,0,0.35,0.79,-0.22 +ellps=krass"),
            std::string::npos)
      << result.text;
}

TEST_F(dialog, loads_and_saves_definition_files) {
  core_test::Ttemp_folder const folder;
  core_test::put_file(folder.file("plain.pj4"), std::string("  ") + pulkovo_zone_7 + "\n");
  std::wstring const plain = file_in(folder, L"plain.pj4");

  // A loaded definition replaces all of the one before; Cancel gives the input.
  outcome const loaded = open_dialog(moscow_tm, [&](Tform& form) {
    answers.expect_file(plain, 0);
    press_button(form, Tzu_vcl_bottom_buttons::load);
    apply(form);
  });
  EXPECT_EQ(loaded.text, pulkovo_zone_7);
  EXPECT_EQ(open_dialog(moscow_tm,
                        [&](Tform& form) {
                          answers.expect_file(plain, 0);
                          press_button(form, Tzu_vcl_bottom_buttons::load);
                          cancel(form);
                        })
                .text,
            moscow_tm);

  // A file that cannot be read leaves an empty definition, an answer of
  // "cancel" leaves everything.
  outcome const failed = open_dialog(moscow_tm, [&](Tform& form) {
    answers.expect_file(plain, 0, wxID_CANCEL);
    press_button(form, Tzu_vcl_bottom_buttons::load);
    EXPECT_EQ(type(form).get_active_caption(), L"Usual projections");
    core_test::put_file(folder.file("empty.pj4"), "proj=utm\n");
    answers.expect_file(file_in(folder, L"empty.pj4"), 0);
    press_button(form, Tzu_vcl_bottom_buttons::load);
    EXPECT_EQ(type(form).get_active_caption(), L"Unknown");
    apply(form);
  });
  EXPECT_EQ(failed.text, "");

  // Saving forces the extension, and asks before that hits another file.
  std::string const saved = folder.file("saved.pj4");
  open_dialog(pulkovo_zone_7, [&](Tform& form) {
    answers.expect_file(file_in(folder, L"saved.txt"), 0);
    press_button(form, Tzu_vcl_bottom_buttons::save);
    EXPECT_EQ(core_test::get_file(saved),
              std::string("[projection]\n\npj4=") + pulkovo_zone_7 + "\n");
    core_test::put_file(saved, "precious");
    answers.expect_file(file_in(folder, L"saved.txt"), 0);
    answers.expect_message(wxID_NO);
    press_button(form, Tzu_vcl_bottom_buttons::save);
    EXPECT_EQ(core_test::get_file(saved), "precious");
    answers.take_messages();
    cancel(form);
  });
}

// As published for the Moscow region.
constexpr char const* moscow_region_wkt =
    R"(PROJCS["Russia_Cadastre_50_1",GEOGCS["GCS_Pulkovo_1995",DATUM["D_Pulkovo_1995",)"
    R"(SPHEROID["Krasovsky_1940",6378245.0,298.3]],PRIMEM["Greenwich",0.0],)"
    R"(UNIT["Degree",0.0174532925199433]],PROJECTION["Gauss_Kruger"],)"
    R"(PARAMETER["False_Easting",1250000.0],PARAMETER["False_Northing",-5712900.566],)"
    R"(PARAMETER["Central_Meridian",35.4833333333],PARAMETER["Scale_Factor",1.0],)"
    R"(PARAMETER["Latitude_Of_Origin",0.0],UNIT["Meter",1.0],AUTHORITY["CUSTOM",100278]])";
constexpr char const* moscow_region =
    "+proj=tmerc +lon_0=35.4833333333 +lat_0=0 +x_0=1250000 +y_0=-5712900.566 +k_0=1 "
    "+towgs84=24.82,-131.21,-82.66,0,0,0.16,-0.12 +ellps=krass +units=m +lon_wrap=45 +no_defs";

TEST_F(dialog, loads_esri_files_and_codes) {
  core_test::Ttemp_folder const folder;
  struct row {
    wchar_t const* name;
    int filter_index;
    std::string content;
    std::string applied;
  };
  std::vector<row> const rows{
      // GDAL's shift for the datum's name: the file holds none.
      {L"region.prj", 1, moscow_region_wkt,
       "+proj=tmerc +lon_0=35.4833333333 +lat_0=0 +x_0=1250000 +y_0=-5712900.566 +k_0=1 "
       "+towgs84=24.47,-130.89,-81.56,0,0,0.13,-0.22 +ellps=krass +units=m +lon_wrap=45 +no_defs"},
      {L"code.pj4", 0, "[projection]\npj4=+init=epsg:28407\n", pulkovo_zone_7},
      // Each in the file of the other kind.
      {L"region.pj4", 0, moscow_region_wkt, ""},
      {L"definition.prj", 1, pulkovo_zone_7, ""},
      {L"code_that_is_none.pj4", 0, "+init=epsg:1", ""}};
  for (row const& each : rows) {
    std::wstring const name = file_in(folder, each.name);
    std::ofstream(std::filesystem::path(name), std::ios::binary) << each.content;
    outcome const loaded = open_dialog(moscow_tm, [&](Tform& form) {
      answers.expect_file(name, each.filter_index);
      press_button(form, Tzu_vcl_bottom_buttons::load);
      apply(form);
    });
    EXPECT_EQ(loaded.text, each.applied) << each.content;
  }
}

TEST_F(dialog, saves_esri_files_that_other_programs_read) {
  core_test::Ttemp_folder const folder;
  std::string const saved = folder.file("saved.prj");
  std::wstring const chosen = file_in(folder, L"saved.txt");
  auto const save = [&](char const* definition) {
    open_dialog(definition, [&](Tform& form) {
      answers.expect_file(chosen, 1);
      press_button(form, Tzu_vcl_bottom_buttons::save);
      cancel(form);
    });
  };
  // What cannot be converted writes nothing.
  save("+proj=nonsense +lat_0=1");
  EXPECT_EQ(folder.count(), 0U);

  save(moscow_region);
  EXPECT_EQ(folder.count(), 1U);
  EXPECT_EQ(core_test::get_file(saved), moscow_region_wkt);
  expect_gdal_reads(saved,
                    "+proj=tmerc +lat_0=0 +lon_0=35.4833333333 +k=1 +x_0=1250000 "
                    "+y_0=-5712900.566 +ellps=krass +towgs84=24.47,-130.89,-81.56,0,0,0.13,-0.22 "
                    "+units=m +no_defs");
  std::filesystem::remove(saved);
  save(moscow_tm);
  EXPECT_TRUE(core_test::get_file(saved).starts_with("PROJCS[\"unknown\","));
  expect_gdal_reads(saved,
                    "+proj=tmerc +lat_0=55.5 +lon_0=37.5 +k=1 +x_0=12 +y_0=14 +ellps=krass "
                    "+units=m +no_defs");
}

TEST_F(dialog, speaks_both_languages_and_clips_nothing) {
  struct row {
    int lang;
    wchar_t const* title;
    wchar_t const* apply;
    wchar_t const* rotate;
  };
  for (row const& expected : {row{0, L"Projection", L"Apply", L"Rotate"},
                              row{1, L"Проекция", L"Применить", L"Поворот"}}) {
    Tzu_rc::set_lang(expected.lang);
    for (char const* const definition :
         {"", pulkovo_zone_7, moscow_tm,
          "+proj=lcc +lat_1=52 +lat_2=64 +lat_0=0 +lon_0=45 +ellps=clrk66 +towgs84=1,2,3"}) {
      open_dialog(definition, [&](Tform& form) {
        EXPECT_EQ(form.get_caption(), expected.title);
        EXPECT_EQ(form.get_buttons()->get_button(Tzu_vcl_bottom_buttons::apply)->get_caption(),
                  expected.apply);
        auto const clipped = gui::find_clipped(form);
        EXPECT_TRUE(clipped.empty())
            << wxString(clipped.empty() ? L"" : clipped.front()).utf8_str();
        cancel(form);
      });
    }
  }
}

TEST_F(dialog, tab_walks_in_reading_order) {
  open_dialog(moscow_tm, [](Tform& form) {
    Tzu_vcl_bottom_buttons const& bar = *form.get_buttons();
    std::vector<wxWindow*> const order{&type(form),
                                       form.get_editor()->get_proj()->get_usual()->get_selbox(),
                                       &number(form, proj_number::lon_0),
                                       &number(form, proj_number::lat_0),
                                       &number(form, proj_number::k_0),
                                       &number(form, proj_number::x_0),
                                       &number(form, proj_number::y_0),
                                       &datum(form),
                                       &shift(form, 0),
                                       &shift(form, 3),
                                       &shift(form, 1),
                                       &shift(form, 4),
                                       &shift(form, 2),
                                       &shift(form, 5),
                                       &shift(form, 6),
                                       &ellipse(form)};
    for (std::size_t i = 0; i < order.size(); ++i) {
      if (i != 0) gui::press(WXK_TAB);
      wxWindow* const focus = wxWindow::FindFocus();
      // GTK gives the keys to a part of a list that the toolkit does not know.
      bool const is_known = focus != nullptr || dynamic_cast<wxChoice*>(order[i]) == nullptr;
      if (is_known) {
        EXPECT_EQ(focus, order[i]) << i;
      }
    }
    // The ellipsoid's two numbers are for reading, and for copying by key.
    gui::press(WXK_TAB);
    gui::press(WXK_TAB);
    for (auto const button : {Tzu_vcl_bottom_buttons::save, Tzu_vcl_bottom_buttons::load,
                              Tzu_vcl_bottom_buttons::apply, Tzu_vcl_bottom_buttons::cancel}) {
      gui::press(WXK_TAB);
      EXPECT_EQ(wxWindow::FindFocus(), bar.get_button(button));
    }
    cancel(form);
  });
}

TEST_F(dialog, puts_the_owner_back_on_every_way_out) {
  gui::Tforeign_window host({100, 100, 500, 400});
  int before = 0;
  Tzu_application::instance().set_handle(&before);
  open_dialog(
      moscow_tm,
      [&](Tform& form) {
        EXPECT_EQ(Tzu_application::instance().get_handle(), host.get_handle());
        EXPECT_EQ(gui::get_owner(form), host.get_handle());
        cancel(form);
      },
      host.get_handle());
  EXPECT_EQ(Tzu_application::instance().get_handle(), &before);

  unsigned char changed = 7;
  EXPECT_THROW(
      gui::run_in_form([&] { zu_proj4_form_execute(host.get_handle(), moscow_tm, &changed); },
                       [](Tzu_vcl_form& form) {
                         auto& editor = dynamic_cast<Tform&>(form);
                         editor.get_buttons()->on_apply = [] {
                           throw std::range_error("thrown inside");
                         };
                         apply(editor);
                       }),
      std::range_error);
  EXPECT_EQ(Tzu_application::instance().get_handle(), &before);
  EXPECT_EQ(changed, 0);
  EXPECT_EQ(zu_proj4_form_execute_w(host.get_handle(), &before, &before), nullptr);
  EXPECT_EQ(Tzu_application::instance().get_handle(), &before);
  Tzu_application::instance().set_handle(nullptr);
}

TEST_F(dialog, reads_and_writes_the_same_numbers_in_every_locale) {
  for (char const* const name : core_test::comma_locales()) {
    core_test::Tc_locale const locale(name);
    ASSERT_TRUE(locale.is_set()) << name << " is not generated";
    std::string const kept = std::setlocale(LC_ALL, nullptr);
    outcome const result = open_dialog(moscow_tm, [](Tform& form) {
      EXPECT_EQ(number(form, proj_number::lon_0).get_text(), L"37.5");
      gui::type_over(number(form, proj_number::lat_0), "55.25");
      apply(form);
    });
    EXPECT_EQ(std::setlocale(LC_ALL, nullptr), kept) << "the host's locale was changed";
    EXPECT_NE(result.text.find("+lon_0=37.5 +lat_0=55.25 "), std::string::npos) << result.text;
  }
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  zu::vcl::start();
  return RUN_ALL_TESTS();
}
