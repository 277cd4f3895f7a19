// The whole dialog: opened as by a host, used by real input.

#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <initializer_list>
#include <iostream>
#include <string>

#include "catalogue/catalogue.h"
#include "core_support.h"
#include "gui_support.h"
#include "interchange/known_systems.h"
#include "pj_edit/vcl_pj_find.h"
#include "pj_edit/vcl_pj_trial.h"
#include "text/own_texts.h"
#include "text/rc.h"
#include "text/strconv.h"
#include "vcl/application.h"
#include "vcl/clipboard.h"
#include "zu_pj_edit/zu_pj_edit.h"

namespace {

using namespace gui;  // NOLINT(google-build-using-namespace): what a user does

constexpr char const* pulkovo_zone_7 =
    "+proj=tmerc +lon_0=39 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=1 "
    "+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +ellps=krass +units=m +lon_wrap=45 +no_defs";

class dialog : public testing::Test {
 protected:
  void SetUp() override { Tzu_rc::set_lang(0); }

  // A path as a file dialog returns it.
  std::wstring chosen(wchar_t const* name) const {
    return std::filesystem::path(folder.wide(name)).make_preferred().wstring();
  }
  void load(Tform& form, wchar_t const* name, int filter_index, int result = wxID_OK) {
    answers.expect_file(chosen(name), filter_index, result);
    press_button(form, Tbar::load);
  }
  // `replace` answers the question whether to replace a file.
  void save(Tform& form, int filter_index, int replace = wxID_NONE) {
    answers.expect_file(chosen(L"saved.txt"), filter_index);
    if (replace != wxID_NONE) answers.expect_message(replace);
    press_button(form, Tbar::save);
  }

  core_test::Ttemp_folder folder;
  Tanswers answers;
};

TEST_F(dialog, ends_with_the_input_unless_applied) {
  // The catalogue and the order of keys must not change a text that is not applied.
  for (char const* const text : {"+units=m  +proj=merc +zone=x", "", "not a definition"}) {
    outcome const result = open_dialog(text, cancel);
    EXPECT_EQ(result.text, text);
    EXPECT_EQ(result.changed, 0);
  }
  EXPECT_EQ(open_dialog(nullptr, cancel).text, "");
  // The window manager's button closes without Apply.
  EXPECT_EQ(open_dialog("+proj=merc", [](Tform& form) { form.Close(); }).text, "+proj=merc");
}

TEST_F(dialog, gives_back_what_was_applied) {
  outcome const untouched = open_dialog(pulkovo_zone_7, apply);
  EXPECT_EQ(untouched.text, pulkovo_zone_7);
  EXPECT_EQ(untouched.changed, 1);
  // A host may hand in the library's own text.
  EXPECT_EQ(open_dialog(untouched.given, cancel).text, pulkovo_zone_7);

  outcome const unknown = open_dialog("+proj=nonsense +lat_0=1 +ellps=krass", [](Tform& form) {
    EXPECT_FALSE(form.get_editor()->get_proj()->IsShown());
    EXPECT_FALSE(form.get_editor()->get_datum()->IsShown());
    apply(form);
  });
  EXPECT_EQ(unknown.text, "");
  EXPECT_EQ(unknown.changed, 1);
}

// The search for an ellipsoid, PROJ and GDAL divide by zero here. The host traps that.
TEST_F(dialog, does_not_divide_by_what_is_not_given) {
  EXPECT_EQ(open_dialog("+proj=longlat +R=6371000", apply).text,
            "+proj=longlat +a=6371000 +b=6371000 +lon_wrap=45 +no_defs");
  EXPECT_EQ(open_dialog("+proj=stere +lat_0=90 +lat_ts=70 +a=6378137 +b=6356752", apply).text,
            "+proj=stere +lon_0=0 +lat_0=90 +x_0=0 +y_0=0 +lat_ts=70 +k_0=1 +datum=WGS84 "
            "+towgs84=0,0,0,0,0,0,0 +ellps=WGS84 +units=m +lon_wrap=45 +no_defs");
}

TEST_F(dialog, says_where_a_missing_catalogue_was_looked_for) {
  std::wstring const missing = folder.wide(L"prj_def");
  // The catalogue is read only once.
  EXPECT_TRUE(zu::get_catalogue_faults().empty());
  Tzu_pj_dbf::set_catalogue_folder(folder.file("prj_def"));
  for (int const lang : {1, 0}) {
    Tzu_rc::set_lang(lang);
    outcome const result = open_dialog("", [&](Tform& form) {
      EXPECT_EQ(form.get_note()->get_text(),
                std::wstring(zu::get_own_text(zu::own_text::no_catalogue)) + L" " + missing);
      EXPECT_TRUE(form.get_note()->IsShownOnScreen());
      EXPECT_GE(spare_pixels(form), 0);
      apply(form);
    });
    EXPECT_EQ(result.text, "");
    EXPECT_EQ(result.changed, 1);
  }
  Tzu_pj_dbf::set_catalogue_folder("");
  open_dialog("", [](Tform& form) { EXPECT_FALSE(form.get_note()->IsShown()); });
}

TEST_F(dialog, shows_what_the_selectors_say) {
  outcome const result = open_dialog(moscow_tm, [](Tform& form) {
    Tzu_vcl_pj_proj& proj = *form.get_editor()->get_proj();
    pick(type(form), L"Usual projections");
    EXPECT_TRUE(proj.get_usual()->IsShownOnScreen());
    EXPECT_FALSE(proj.get_zonal()->IsShownOnScreen());
    EXPECT_EQ(datum(form).get_active_caption(), L"_Custom");
    pick(*proj.get_usual()->get_selbox(), L"Mercator");
    EXPECT_FALSE(number(form, proj_number::lat_0).IsShownOnScreen());
    EXPECT_EQ(number(form, proj_number::k_0).get_text(), L"1");
    pick(type(form), L"Zonal projections");
    EXPECT_FALSE(proj.get_usual()->IsShownOnScreen());
    EXPECT_TRUE(proj.get_zonal()->IsShownOnScreen());
    // The first zonal entry sets its own datum.
    EXPECT_EQ(datum(form).get_active_caption(), L"PULKOVO_1942");
    pick(*proj.get_zonal()->get_selbox(), L"UTM North");
    pick(*proj.get_zone()->get_selbox(), L"37");
    pick(datum(form), L"WGS84");
    EXPECT_GE(spare_pixels(form), 0);
    apply(form);
  });
  EXPECT_EQ(result.text,
            "+proj=utm +zone=37 +datum=WGS84 +towgs84=0,0,0,0,0,0,0 +ellps=WGS84 +units=m "
            "+lon_wrap=45 +no_defs");
}

TEST_F(dialog, lets_the_seven_numbers_be_edited_for_a_custom_datum_only) {
  outcome const result = open_dialog(pulkovo_zone_7, [](Tform& form) {
    type_over(shift(form, 0), "7");
    EXPECT_EQ(shift(form, 0).get_text(), L"23.57");
    EXPECT_FALSE(ellipse(form).IsEnabled());
    pick(datum(form), L"_Custom");
    type_over(shift(form, 0), "25");
    EXPECT_TRUE(ellipse(form).IsEnabled());
    apply(form);
  });
  EXPECT_NE(result.text.find("+towgs84=25,-140.95,-79.8,0,0.35,0.79,-0.22 +ellps=krass"),
            std::string::npos)
      << result.text;
}

// The published system of the Moscow region.
zu::known_system const& moscow_region() {
  return *std::ranges::find(zu::known_systems, "Russia_Cadastre_50_1", zu::known_system_name);
}

TEST_F(dialog, loads_files_of_both_types) {
  struct row {
    wchar_t const* name;
    int filter_index;
    std::string content;
    std::string applied;
    bool is_told;
  };
  for (row const& each : std::initializer_list<row>{
           {L"plain.pj4", 0, std::string("  ") + pulkovo_zone_7 + "\n", pulkovo_zone_7, false},
           // The form adds the shift that the code lacks.
           {L"code.pj4", 0, "[projection]\npj4=+init=epsg:28407\n", pulkovo_zone_7, true},
           // GDAL knows a shift for this datum. The file has none.
           {L"region.prj", 1, moscow_region().wkt,
            "+proj=tmerc +lon_0=35.4833333333 +lat_0=0 +x_0=1250000 +y_0=-5712900.566 +k_0=1 "
            "+towgs84=24.47,-130.89,-81.56,0,0,0.13,-0.22 +ellps=krass +units=m +lon_wrap=45 "
            "+no_defs",
            false},
           // An unreadable file gives an empty definition, also one of the other type.
           {L"text.pj4", 0, "proj=utm\n", "", true},
           {L"definition.prj", 1, pulkovo_zone_7, "", true}}) {
    core_test::put_file(folder.file(wxString(each.name).ToStdString()), each.content);
    outcome const loaded = open_dialog(moscow_tm, [&](Tform& form) {
      load(form, each.name, each.filter_index);
      EXPECT_EQ(type(form).get_active_caption() == L"Unknown", each.applied.empty());
      EXPECT_EQ(form.get_note()->IsShownOnScreen(), each.is_told);
      apply(form);
    });
    EXPECT_EQ(loaded.text, each.applied) << each.content;
  }
  answers.take_messages();
  auto const loaded_and_cancelled = [&](Tform& form) {
    load(form, L"plain.pj4", 1, wxID_CANCEL);
    EXPECT_EQ(type(form).get_active_caption(), L"Usual projections");
    load(form, L"region.prj", 1);
    load(form, L"plain.pj4", 0);
    auto const shown = answers.take_messages();
    EXPECT_EQ(shown.at(1), shown.at(0)) << "what was cancelled counts for nothing";
    EXPECT_EQ(shown.at(2), L"Load: " + chosen(L"") + L", 1");
    EXPECT_EQ(type(form).get_active_caption(), L"Zonal projections");
  };
  EXPECT_EQ(open_dialog(moscow_tm, loaded_and_cancelled).text, moscow_tm);
  auto const drop_two = [&](Tform& form) {
    gui::platform::drop_file(form, chosen(L"text.pj4"));
    EXPECT_TRUE(form.get_note()->IsShownOnScreen());
    EXPECT_EQ(type(form).get_active_caption(), L"Usual projections");
    gui::platform::drop_file(form, chosen(L"plain.pj4"));
    apply(form);
  };
  EXPECT_EQ(open_dialog(moscow_tm, drop_two).text, pulkovo_zone_7);
}

TEST_F(dialog, saves_files_of_both_types) {
  std::string const saved = folder.file("saved.pj4");
  open_dialog(pulkovo_zone_7, [&](Tform& form) {
    // The dialog adds the extension and asks before it replaces another file.
    save(form, 0);
    EXPECT_EQ(core_test::get_file(saved),
              std::string("[projection]\n\npj4=") + pulkovo_zone_7 + "\n");
    EXPECT_EQ(form.get_note()->get_text(), L"Saved as saved.pj4");
    core_test::put_file(saved, "precious");
    save(form, 0, wxID_NO);
    EXPECT_EQ(core_test::get_file(saved), "precious");
  });
  for (char const* const definition : {"+proj=nonsense +lat_0=1", moscow_region().proj4}) {
    EXPECT_EQ(folder.count(), 1U) << "what cannot be converted writes nothing";
    open_dialog(definition, [&](Tform& form) { save(form, 1); });
  }
  EXPECT_EQ(core_test::get_file(folder.file("saved.prj")), moscow_region().wkt);
}

// Prints for people: the type, the language, the spare pixels of the tightest control, and
// the distance between the centres of the form and its owner.
TEST_F(dialog, speaks_both_languages_and_fits_its_window) {
  for (bool const russian : {false, true}) {
    Tzu_rc::set_lang(russian ? 1 : 0);
    for (char const* const definition :
         {"", pulkovo_zone_7, moscow_tm,
          "+proj=lcc +lat_1=52 +lat_2=64 +lat_0=0 +lon_0=45 +ellps=clrk66 +towgs84=1,2,3 "
          "+nadgrids=a_grid_with_a_name_that_is_too_long_for_the_list_to_stay_in_three_lines.gsb "
          "+pm=paris +xi=1 +eta=2 +zeta=3 +theta=4 +kappa=5 +lambda=6 +sigma=7 +tau=8 +phi=9"}) {
      Tforeign_window const owner({150, 120, 1000, 720});
      wait_for("the focus of the owner", [&] { return has_focus(owner); });
      open_dialog(
          definition,
          [&](Tform& form) {
            EXPECT_EQ(form.get_caption(), russian ? L"Проекция" : L"Projection");
            EXPECT_EQ(form.get_buttons()->get_button(Tbar::apply)->get_caption(),
                      russian ? L"Применить" : L"Apply");
            int spare = 0;
            wxPoint off;
            // A large form gets its place and its size in several steps.
            wait_for("the form over the middle of its owner, with room for all controls", [&] {
              spare = spare_pixels(form);
              off = offset_of(form, owner);
              return spare >= 0 && std::abs(off.x) + std::abs(off.y) <= 2;
            });
            std::cout << "fit: " << wxString(type(form).get_active_caption()).utf8_str()
                      << (russian ? " ru" : " en") << ": " << spare << " to spare, " << off.x << ','
                      << off.y << " off\n";
          },
          owner.get_handle());
      wait_for("the focus of the owner after the dialog", [&] { return has_focus(owner); });
    }
  }
}

// check_accessibility and the hosts of Windows know the whole order.
TEST_F(dialog, tab_stops_at_controls_that_appear_later) {
  open_dialog("", [](Tform& form) {
    pick(type(form), L"Usual projections");
    pick(datum(form), L"_Custom");
    focus(type(form));
    for (int i = 0; i < 2; ++i) press(WXK_TAB);
    EXPECT_EQ(wxWindow::FindFocus(), &number(form, proj_number::lon_0));
    focus(datum(form));
    for (std::size_t const index : {0U, 3U, 1U}) {
      press(WXK_TAB);
      EXPECT_EQ(wxWindow::FindFocus(), &shift(form, index));
    }
  });
}

TEST_F(dialog, steps_back_copies_and_pastes) {
  constexpr int both = wxMOD_CONTROL | wxMOD_SHIFT;
  std::string shown;
  auto const edit_and_apply = [&](Tform& form) {
    Tzu_vcl_result_strip const& strip = *form.get_result();
    auto const result = [&strip] { return zu::strconv::to_utf8(strip.get_text()); };
    auto const is_zone = [&](char const* meridian) {
      return result().find(std::string("+lon_0=") + meridian + " ") != std::string::npos;
    };
    EXPECT_EQ(result(), pulkovo_zone_7);
    EXPECT_FALSE(strip.get_undo()->IsEnabled() || strip.get_redo()->IsEnabled());
    pick(*form.get_editor()->get_proj()->get_zone()->get_selbox(), L"8");
    EXPECT_TRUE(is_zone("45"));
    press('Z', wxMOD_CONTROL);
    EXPECT_EQ(result(), pulkovo_zone_7);
    press('Y', wxMOD_CONTROL);
    EXPECT_TRUE(is_zone("45"));
    click(*strip.get_undo());
    EXPECT_EQ(result(), pulkovo_zone_7);
    pick(datum(form), L"_Custom");
    type_over(shift(form, 0), "25");
    // An edit that has the focus undoes its own text.
    press('Z', wxMOD_CONTROL);
    EXPECT_EQ(datum(form).get_active_caption(), L"_Custom");
    type_over(shift(form, 0), "25");
    press(WXK_TAB);
    EXPECT_NE(result().find("+towgs84=25,"), std::string::npos) << result();

    press('C', both);
    EXPECT_EQ(zu::vcl::text_on_clipboard(), strip.get_text());
    zu::vcl::put_on_clipboard(L"+towgs84=9,8,7");
    focus(shift(form, 2));
    press('V', wxMOD_CONTROL);
    EXPECT_NE(result().find("+towgs84=9,8,7,"), std::string::npos) << result();
    zu::vcl::put_on_clipboard(L"none such");
    shown = result();
    press('V', both);
    EXPECT_EQ(result(), shown);
    EXPECT_EQ(form.get_note()->get_text(),
              L"Nothing was pasted: this is no coordinate system: none such");
    zu::vcl::put_on_clipboard(L"EPSG:32637");
    press('V', both);
    EXPECT_EQ(type(form).get_active_caption(), L"Zonal projections");
    EXPECT_EQ(form.get_note()->get_text(), L"");
    EXPECT_GE(spare_pixels(form), 0);
    shown = result();
    apply(form);
  };
  outcome const result = open_dialog(pulkovo_zone_7, edit_and_apply);
  EXPECT_EQ(result.text,
            "+proj=utm +zone=37 +datum=WGS84 +towgs84=0,0,0,0,0,0,0 +ellps=WGS84 +units=m "
            "+lon_wrap=45 +no_defs");
  EXPECT_EQ(shown, result.text);
}

// Presses the key that opens such a window and runs the script. The script closes the window.
template <class Window>
void run_in_window(Tform& form, int key, std::function<void(Window&)> const& script) {
  run_in<Window>([key] { press(key, wxMOD_CONTROL); },
                 [&](Window& window) {
                   script(window);
                   EXPECT_EQ(find_open<Window>(), nullptr) << "the window is still open";
                 });
  wait_for("the form's keyboard", [&] { return platform::has_keyboard(form); });
}

TEST_F(dialog, finds_a_system_and_tries_a_point) {
  auto const find_and_try = [](Tform& form) {
    run_in_window<Tzu_vcl_pj_find>(form, 'F', [](Tzu_vcl_pj_find& window) {
      EXPECT_GT(window.get_list()->GetCount(), 0U);
      type_over(*window.get_words(), "tyumen");
      wait_for("two systems", [&] { return window.get_list()->GetCount() == 2; });
      press(WXK_DOWN);
      EXPECT_EQ(window.get_list()->GetStringSelection(),
                L"Russia_Cadastre_72_3 \u2013 Tyumen Oblast");
      EXPECT_NE(window.get_details()->get_text().find(L"+lon_0=72.05 "), std::wstring::npos);
      press(WXK_RETURN);
    });
    EXPECT_EQ(number(form, proj_number::lon_0).get_text(), L"72.05");
    run_in_window<Tzu_vcl_pj_find>(form, 'F', [](Tzu_vcl_pj_find& window) {
      EXPECT_EQ(window.get_list()->GetStringSelection(),
                L"Russia_Cadastre_72_3 \u2013 Tyumen Oblast");
      type_over(*window.get_words(), "nobody");
      wait_for("an empty list", [&] { return window.get_list()->GetCount() == 0; });
      press(WXK_RETURN);
      press(WXK_ESCAPE);
    });
    // The origin of the zone.
    run_in_window<Tzu_vcl_pj_trial>(form, 'T', [](Tzu_vcl_pj_trial& window) {
      type_over(*window.get_edit(Tzu_vcl_pj_trial::longitude), "39 00 00");
      type_over(*window.get_edit(Tzu_vcl_pj_trial::latitude), "95");
      EXPECT_EQ(window.get_edit(Tzu_vcl_pj_trial::x)->get_text(), L"");
      EXPECT_EQ(window.get_message(), L"PROJ: Invalid coordinate");
      press(WXK_ESCAPE);
    });
    press('Z', wxMOD_CONTROL);
    EXPECT_EQ(form.get_result()->get_text(), zu::strconv::from_utf8(pulkovo_zone_7));
    apply(form);
  };
  EXPECT_EQ(open_dialog(pulkovo_zone_7, find_and_try).text, pulkovo_zone_7);
}

TEST_F(dialog, puts_the_owner_back_on_every_way_out) {
  Tforeign_window const host({100, 100, 500, 400});
  int before = 0;
  auto& application = Tzu_application::instance();
  Tzu_handle_scope const scope(&before);
  auto const look = [&](Tform& form) {
    EXPECT_EQ(application.get_handle(), host.get_handle());
    cancel(form);
  };
  open_dialog(moscow_tm, look, host.get_handle());
  EXPECT_EQ(application.get_handle(), &before);
  auto const fail = [](Tform& form) {
    number(form, proj_number::x_0).on_change = [] { throw std::range_error("thrown inside"); };
    focus(number(form, proj_number::x_0));
    press(WXK_TAB);
  };
  EXPECT_THROW(open_dialog(moscow_tm, fail, host.get_handle()), std::range_error);
  EXPECT_EQ(application.get_handle(), &before);
  EXPECT_EQ(zu_proj4_form_execute_w(host.get_handle(), &before, &before), nullptr);
  EXPECT_EQ(application.get_handle(), &before);
}

TEST_F(dialog, shows_and_writes_numbers_in_every_locale) {
  for (char const* const name : core_test::comma_locales()) {
    core_test::Tc_locale const locale(name);
    std::string const kept = std::setlocale(LC_ALL, nullptr);
    outcome const result = open_dialog(moscow_tm, [](Tform& form) {
      EXPECT_EQ(number(form, proj_number::lon_0).get_text(), L"37.5");
      type_over(number(form, proj_number::lon_0), "38.25");
      type_over(shift(form, 4), "-0.35");
      // Apply also takes the value of the edit that has the focus.
      type_over(number(form, proj_number::y_0), "-5811057.628");
      apply(form);
    });
    EXPECT_EQ(std::setlocale(LC_ALL, nullptr), kept) << "the host's locale was changed";
    EXPECT_EQ(result.text,
              "+proj=tmerc +lon_0=38.25 +lat_0=55.5 +x_0=12 +y_0=-5811057.628 +k_0=1 "
              "+towgs84=1,2,3,0,-0.35,0,0 +ellps=krass +units=m +lon_wrap=45 +no_defs")
        << name;
  }
}

}  // namespace
