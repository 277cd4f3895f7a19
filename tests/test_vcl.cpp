// The widgets, in the dialog and apart from what it means.

#include <gtest/gtest.h>
#include <wx/platinfo.h>

#include <array>
#include <cstdlib>
#include <stdexcept>
#include <tuple>

#include "core_support.h"
#include "gui_support.h"
#include "vcl/event_guard.h"

namespace {

using namespace gui;  // NOLINT(google-build-using-namespace): what a user does
using messages = std::vector<std::wstring>;

TEST(vcl, edit_reads_whole_numbers_only) {
  double number = 77;
  for (char const* const text : {"", " ", "-", ".", "--1", "1.2.3", "1e", "0,5", "0x1F", "inf",
                                 "nan", "1 2", "1e999", "\xD9\xA1"}) {
    EXPECT_FALSE(Tzu_vcl_dbl_edit::str2dbl(text, &number)) << text;
    EXPECT_EQ(77, number) << text;
  }
  for (char const* const text : {"0", " -1.5\t", ".5", "5.", "1e5", "+2.5E-1"}) {
    EXPECT_TRUE(Tzu_vcl_dbl_edit::str2dbl(text, &number)) << text;
    EXPECT_EQ(std::strtod(text, nullptr), number) << text;
  }
}

TEST(vcl, keys_that_type_no_number_are_swallowed) {
  open_dialog(moscow_tm, [](Tform& form) {
    Tzu_vcl_dbl_edit& edit = number(form, proj_number::x_0);
    for (auto const& [typed, left] :
         std::initializer_list<std::pair<char const*, wchar_t const*>>{{"1e5", L"15"},
                                                                       {"+1,5 x", L"15"},
                                                                       {"-1.2.3", L"-1.2.3"},
                                                                       {"123", L"123"},
                                                                       {"e,", L"123"}}) {
      type_over(edit, typed);
      EXPECT_EQ(left, edit.get_text());
      EXPECT_EQ(std::string_view(typed).ends_with(','), edit.get_tip() != nullptr) << typed;
    }
    press('A', wxMOD_CONTROL);
    press('C', wxMOD_CONTROL);
    press(WXK_END);
    press('V', wxMOD_CONTROL);
    EXPECT_EQ(L"123123", edit.get_text());
    press(WXK_BACK);
    press(WXK_HOME);
    press(WXK_DELETE);
    EXPECT_EQ(L"2312", edit.get_text());
    EXPECT_EQ(12, edit.get_value());
    press(WXK_RETURN);
    EXPECT_EQ(2312, edit.get_value());
    EXPECT_EQ(&edit, wxWindow::FindFocus());
  });
}

TEST(vcl, refused_numbers_stay_with_a_message_and_the_focus) {
  Tanswers answers;
  core_test::Tenvironment const user({{"LC_ALL", "de_DE.UTF-8"}});
  outcome const result = open_dialog(moscow_tm, [&](Tform& form) {
    // A refused value that the user has not touched must not ask for the focus, too.
    number(form, proj_number::lat_0).set_min(60);
    answers.expect_message();
    type_over(number(form, proj_number::lon_0), "-");
    press(WXK_TAB);
    EXPECT_EQ(messages{L"Central Meridian: Wrong number: -"}, answers.take_messages());
    EXPECT_EQ(&number(form, proj_number::lon_0), wxWindow::FindFocus());
    number(form, proj_number::lon_0).set_value(37.5);
    number(form, proj_number::lat_0).set_min(-90);
    number(form, proj_number::lat_0).set_max(89.5);
    for (auto const& [which, typed, message] :
         std::initializer_list<std::tuple<proj_number, char const*, wchar_t const*>>{
             {proj_number::x_0, "--1", L"False Easting: Wrong number: --1"},
             {proj_number::lat_0, "91", L"Latitude of Origin: Number must be less than: 89,5"},
             {proj_number::lat_0, "-90.5", L"Latitude of Origin: Number must be greater than: -90"},
             {proj_number::k_0, "0", L"Scale Factor: Number must be greater than: 1e-06"}}) {
      Tzu_vcl_dbl_edit& edit = number(form, which);
      edit.set_value(2);
      for (bool const by_button : {false, true}) {
        answers.expect_message();
        type_over(edit, typed);
        by_button ? apply(form) : press(WXK_TAB);
        EXPECT_TRUE(form.is_open()) << typed;
        EXPECT_EQ(messages{message}, answers.take_messages());
        EXPECT_EQ(&edit, wxWindow::FindFocus()) << typed;
        EXPECT_EQ(wxString(typed).ToStdWstring(), edit.get_text());
        EXPECT_EQ(2, edit.get_value()) << typed;
      }
      edit.set_value(2);
    }
    for (auto const& [which, typed] :
         std::initializer_list<std::pair<proj_number, char const*>>{{proj_number::x_0, "-0.5"},
                                                                    {proj_number::k_0, "0.9996"},
                                                                    {proj_number::lat_0, "-90"},
                                                                    {proj_number::lat_0, "89.5"}}) {
      type_over(number(form, which), typed);
      press(WXK_TAB);
      EXPECT_NE(&number(form, which), wxWindow::FindFocus()) << typed;
      EXPECT_EQ(std::strtod(typed, nullptr), number(form, which).get_value());
    }
    answers.expect_message();
    shift(form, 0).set_text(L"");
    EXPECT_FALSE(form.commit_edits());
    EXPECT_EQ(messages{L"Shift, Axis X: Wrong number: "}, answers.take_messages());
    shift(form, 0).Hide();
    apply(form);
  });
  EXPECT_EQ(result.text,
            "+proj=tmerc +lon_0=37.5 +lat_0=89.5 +x_0=-0.5 +y_0=14 +k_0=0.9996 "
            "+towgs84=1,2,3,0,0,0,0 +ellps=krass +units=m +lon_wrap=45 +no_defs");
}

TEST(vcl, untouched_text_keeps_every_bit_of_the_value) {
  double const value = 0.1 + 0.2;
  open_dialog(moscow_tm, [&](Tform& form) {
    Tzu_vcl_dbl_edit& edit = number(form, proj_number::k_0);
    edit.set_value(value);
    edit.set_min(value);
    EXPECT_EQ(L"0.3", edit.get_text());
    focus(edit);
    press(WXK_RETURN);
    press(WXK_TAB);
    EXPECT_EQ(value, edit.get_value());
    type_over(edit, "0.30");
    edit.set_use_min(false);
    press(WXK_RETURN);
    EXPECT_EQ(0.30, edit.get_value());
  });
}

TEST(vcl, selector_chooses_by_key_and_by_caption) {
  Tzu_vcl_form form;
  Tzu_vcl_selbox& list = *zu::vcl::make_child<Tzu_vcl_selbox>(&form);
  list.on_change = [] { ADD_FAILURE() << "only the user's choice counts"; };
  unsigned key = 0;
  EXPECT_FALSE(list.find_str(L"one", &key));
  list.add_item(L"one", 0);
  list.add_items(std::vector<Tzu_vcl_selbox_item>{{L"two", 2}, {L"again", 2}, {L"two", 1U << 31}});
  EXPECT_EQ(L"one", list.get_active_caption());
  EXPECT_TRUE(list.find_str(L"two", &key));
  EXPECT_EQ(2U, key);
  list.set_active_idx(1U << 31);
  EXPECT_EQ(L"two", list.get_active_caption());
  list.set_active_caption(L"two");
  EXPECT_EQ(2U, list.get_active_idx());
  list.set_item_captions(1, L"три");
  list.set_item_captions(9, L"nowhere");
  EXPECT_EQ(L"три", list.GetStringSelection().ToStdWstring());
  list.set_active_idx(55);
  EXPECT_EQ(L"", list.get_active_caption());
  list.set_active_caption(L"again");
  list.set_active_caption(L"nowhere");
  EXPECT_EQ(0U, list.get_active_idx());
}

// The table may have another code page than the system.
TEST(vcl, zonal_projection_is_chosen_by_the_catalogues_own_bytes) {
  constexpr char const* name = "\xC6\xFF";
  Tzu_pj_proj_defs zonal;
  zonal.add().set_caption("UTM");
  zonal.add().set_caption(name);
  Tzu_pj_datum_defs const datums;
  Tzu_pj_ellipse_defs const ellipses;
  zu::Tzu_pj_editor editor({zonal, zonal, datums, ellipses});
  Tzu_vcl_form form;
  auto& panel = *zu::vcl::make_child<Tzu_vcl_pj_proj>(&form, editor);
  panel.create();
  panel.get_zonal()->get_selbox()->SetSelection(1);
  panel.get_zonal()->on_change();
  EXPECT_EQ(editor.state().zonal_name, name);
}

TEST(vcl, keys_choose_in_a_list_and_the_wheel_in_one_that_has_the_focus) {
  open_dialog(moscow_tm, [](Tform& form) {
    Tzu_vcl_selbox& list = type(form);
    auto const shows = [&](wchar_t const* caption) {
      wait_for("the list's choice", [&] { return list.get_active_caption() == caption; });
      return form.get_editor()->get_proj()->get_zonal()->IsShownOnScreen() == (caption[0] == L'Z');
    };
    focus(number(form, proj_number::x_0));
    turn_wheel(list);
    EXPECT_TRUE(shows(L"Usual projections"));
    focus(list);
    turn_wheel(list);
    EXPECT_TRUE(shows(L"Zonal projections"));
    press(WXK_UP);
    EXPECT_TRUE(shows(L"Usual projections"));
    press('Z');
    EXPECT_TRUE(shows(L"Zonal projections"));
  });
}

TEST(vcl, bar_places_its_buttons_to_the_pixel) {
  Tzu_vcl_form form;
  Tbar& bar = *zu::vcl::make_child<Tbar>(&form);
  bar.create();
  bar.load_rc();
  bar.SetSize(1000, bar.GetMinSize().y);
  wxSize const slot = bar.get_slot_size();
  EXPECT_GE(slot.x, bar.FromDIP(Tbar::button_width));
  EXPECT_LT(slot.x, bar.FromDIP(130));
  int const margin = bar.FromDIP(Tbar::margin);
  // Slots of Save, Load, Apply, Cancel, Help from the left end or, negative, from the right
  // end; 0 is hidden.
  for (std::array<int, 5> const& slots : std::initializer_list<std::array<int, 5>>{
           {0, 0, -2, -1, 0}, {1, 2, -2, -1, 0}, {0, 1, -3, -2, -1}, {1, 0, -2, 0, -1}}) {
    for (std::size_t i = 0; i < slots.size(); ++i)
      bar.set_visible(static_cast<Tbar::button_index>(i), slots.at(i) != 0);
    for (std::size_t i = 0; i < slots.size(); ++i) {
      int const begin = slots.at(i) > 0 ? margin - (slot.x + margin) : 1000;
      wxPoint const place(begin + slots.at(i) * (slot.x + margin), margin);
      wxRect const got = bar.get_button(static_cast<Tbar::button_index>(i))->GetRect();
      EXPECT_TRUE(slots.at(i) == 0 || got == wxRect(place, slot)) << slots.at(i);
    }
  }
  EXPECT_EQ(slot, bar.get_slot_size()) << "layouts must not add up";
}

TEST(vcl, exceptions_of_handlers_come_out_of_the_dialog) {
  auto const fail = [] { throw std::out_of_range("from a handler"); };
  auto const later = [&](Tform& form) {
    zu::vcl::call_after_guarded(form, fail);
    wait_for("the end of the form", [&] { return !form.is_open(); });
  };
  EXPECT_THROW(open_dialog(moscow_tm, later), std::out_of_range);
  Tzu_vcl_form form;
  zu::vcl::call_after_guarded(form, fail);
  EXPECT_THROW(form.show_modal(), std::out_of_range) << "thrown before the form is up";
}

TEST(vcl, only_the_window_manager_closes_besides_the_program) {
  open_dialog(moscow_tm, [](Tform& form) {
    EXPECT_FALSE(form.HasFlag(wxCLOSE_BOX | wxRESIZE_BORDER | wxMINIMIZE_BOX | wxMAXIMIZE_BOX));
    Tzu_vcl_dbl_edit& edit = number(form, proj_number::x_0);
    shift(form, 0).set_edit_enabled(false);
    for (wxWindow* const control : std::initializer_list<wxWindow*>{
             &edit, &shift(form, 0), &datum(form), form.get_buttons()->get_button(Tbar::save)}) {
      focus(*control);
      press(WXK_ESCAPE);
      if (dynamic_cast<Tzu_vcl_edit*>(control) != nullptr) press(WXK_RETURN);
      EXPECT_TRUE(form.is_open());
    }
    type_over(edit, "5");
    edit.on_change = [] { ADD_FAILURE() << "a form that closes takes no more input"; };
    form.Close();
    EXPECT_FALSE(form.is_open());
  });
}

TEST(vcl, owner_is_any_window_or_none) {
  // The form fits inside, so the edges of the screen do not move it.
  Tforeign_window owner({200, 150, 1000, 700});
  auto const lose_owner = [&](Tform& form) {
    EXPECT_EQ(owner.get_handle(), get_owner(form));
    owner.destroy();
    // Windows destroys a window with its owner.
    EXPECT_EQ(wxPlatformInfo::Get().GetPortId() == wxPORT_GTK, form.is_open());
    if (form.is_open()) focus(number(form, proj_number::x_0));
  };
  open_dialog(moscow_tm, lose_owner, owner.get_handle());
  auto const expect_none = [](Tform& form) { EXPECT_EQ(nullptr, get_owner(form)); };
  for (auto* const handle : {owner.get_handle(), static_cast<void*>(nullptr),
                             reinterpret_cast<void*>(0x7), reinterpret_cast<void*>(~0ULL)})
    open_dialog(moscow_tm, expect_none, handle);
}

}  // namespace
