#include <gtest/gtest.h>
#include <wx/app.h>

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <stdexcept>

#include "core_support.h"
#include "gui_support.h"
#include "text/rc.h"
#include "vcl/application.h"
#include "vcl/bottom_buttons.h"
#include "vcl/caption_panel.h"
#include "vcl/event_guard.h"
#include "vcl/look_scope.h"
#include "vcl/panel.h"
#include "vcl/toolkit.h"

namespace {

using Tbar = Tzu_vcl_bottom_buttons;
using messages = std::vector<std::wstring>;

std::string locale_after_start;

// A form as the dialog's panels are made: edits in a group box, a list, a bar.
class Tdemo_form : public Tzu_vcl_form {
 public:
  void create() override {
    auto* const column = zu::vcl::make_sizer<wxBoxSizer>(wxVERTICAL);
    panel = zu::vcl::make_child<Tzu_vcl_panel>(this);
    group = zu::vcl::make_child<Tzu_vcl_group_box>(panel);
    list = zu::vcl::make_child<Tzu_vcl_caption_selbox>(group);
    first = zu::vcl::make_child<Tzu_vcl_caption_dbl_edit>(group);
    second = zu::vcl::make_child<Tzu_vcl_caption_dbl_edit>(group);
    third = zu::vcl::make_child<Tzu_vcl_caption_dbl_edit>(group);
    for (Tzu_vcl_caption_panel* const line :
         std::initializer_list<Tzu_vcl_caption_panel*>{list, first, second, third}) {
      line->create();
      group->get_sizer()->Add(line, 0, wxEXPAND | wxALL, FromDIP(2));
    }
    first->set_edit_width(70);
    second->set_edit_width(70);
    third->set_caption_width(100);
    panel->SetSizer(group->get_sizer());
    bar = zu::vcl::make_child<Tzu_vcl_bottom_buttons>(this);
    bar->create();
    bar->set_save_visible(true);
    bar->set_load_visible(true);
    bar->on_cancel = [this] { close_form(); };
    column->Add(panel, 1, wxEXPAND);
    column->Add(bar, 0, wxEXPAND);
    SetSizer(column);
    fit_to_content();
  }

  void load_rc() override {
    set_caption(zu::vcl::rc_text(6, 14));
    group->set_caption(zu::vcl::rc_text(6, 16));
    list->set_caption(zu::vcl::rc_text(6, 34));
    first->set_caption(zu::vcl::rc_text(6, 4));
    second->set_caption(zu::vcl::rc_text(6, 22));
    third->set_caption(zu::vcl::rc_text(6, 27));
    third->set_edit_enabled(false);
    bar->load_rc();
    fit_to_content();
  }

  Tzu_vcl_panel* panel = nullptr;
  Tzu_vcl_group_box* group = nullptr;
  Tzu_vcl_caption_selbox* list = nullptr;
  Tzu_vcl_caption_dbl_edit* first = nullptr;
  Tzu_vcl_caption_dbl_edit* second = nullptr;
  Tzu_vcl_caption_dbl_edit* third = nullptr;
  Tzu_vcl_bottom_buttons* bar = nullptr;
};

class vcl : public testing::Test {
 protected:
  void SetUp() override {
    form.create();
    form.load_rc();
    first = form.first->get_edit();
    second = form.second->get_edit();
  }

  void run(std::function<void()> const& script) { gui::show_and_run(form, script); }

  Tdemo_form form;
  Tzu_vcl_dbl_edit* first = nullptr;
  Tzu_vcl_dbl_edit* second = nullptr;
};

TEST(vcl_start, host_locale_survives) { EXPECT_EQ("C", locale_after_start); }

TEST(vcl_application, handle_is_given_back_on_every_way_out) {
  auto& application = Tzu_application::instance();
  int first = 0;
  int second = 0;
  ASSERT_EQ(nullptr, application.get_handle());
  try {
    Tzu_handle_scope const outer(&first);
    {
      Tzu_handle_scope const inner(&second);
      EXPECT_EQ(&second, application.get_handle());
    }
    EXPECT_EQ(&first, application.get_handle());
    throw std::runtime_error("out");
  } catch (std::runtime_error const&) {
    EXPECT_EQ(nullptr, application.get_handle());
  }
}

TEST(vcl_bottom_buttons, places_to_the_pixel) {
  struct Tcase {
    std::array<bool, 5> visible;
    std::array<int, 5> lefts;
  };
  // Save, Load, Apply, Cancel, Help on a bar of 600.
  constexpr std::array cases{
      Tcase{{false, false, true, true, false}, {-1, -1, 452, 526, -1}},
      Tcase{{false, false, true, true, true}, {-1, -1, 378, 452, 526}},
      Tcase{{true, true, true, true, false}, {4, 78, 452, 526, -1}},
      Tcase{{false, true, true, true, false}, {-1, 4, 452, 526, -1}},
      Tcase{{true, false, true, false, true}, {4, -1, 452, -1, 526}},
  };
  for (auto const& [visible, lefts] : cases) {
    EXPECT_EQ(lefts, Tbar::button_lefts(600, Tbar::button_width, Tbar::margin, visible));
  }
}

TEST(vcl_dbl_edit, reads_whole_numbers_only) {
  struct Tcase {
    char const* text;
    double number;  // NaN: refused
  };
  constexpr double refused = std::numeric_limits<double>::quiet_NaN();
  for (auto const& [text, number] : std::initializer_list<Tcase>{
           {"0", 0},         {" -1.5\t", -1.5}, {".5", .5},         {"5.", 5},
           {"1e5", 1e5},     {"+2.5E-1", .25},  {"", refused},      {" ", refused},
           {"-", refused},   {".", refused},    {"--1", refused},   {"1.2.3", refused},
           {"1e", refused},  {"0,5", refused},  {"0x1F", refused},  {"inf", refused},
           {"nan", refused}, {"1 2", refused},  {"1e999", refused}, {"\xD9\xA1", refused}}) {
    double result = 77;
    bool const read = Tzu_vcl_dbl_edit::str2dbl(text, &result);
    EXPECT_EQ(!std::isnan(number), read) << text;
    EXPECT_EQ(read ? number : 77, result) << text;
  }
}

TEST_F(vcl, keys_that_type_no_number_are_swallowed) {
  run([&] {
    gui::Tanswers answers;
    for (auto const& [typed, left] : std::initializer_list<std::pair<char const*, wchar_t const*>>{
             {"1e5", L"15"}, {"+1,5 x", L"15"}, {"--1", L"--1"}, {"1.2.3", L"1.2.3"}}) {
      gui::type_over(*first, typed);
      EXPECT_EQ(left, first->get_text());
    }
    gui::type_over(*first, "123");
    gui::press('A', wxMOD_CONTROL);
    gui::press('C', wxMOD_CONTROL);
    gui::press(WXK_END);
    gui::press('V', wxMOD_CONTROL);
    EXPECT_EQ(L"123123", first->get_text());
    gui::press(WXK_BACK);
    gui::press(WXK_HOME);
    gui::press(WXK_DELETE);
    EXPECT_EQ(L"2312", first->get_text());
    EXPECT_EQ(0, first->get_value());
    gui::press(WXK_RETURN);
    EXPECT_EQ(2312, first->get_value());
    EXPECT_EQ(first, wxWindow::FindFocus());
    EXPECT_TRUE(form.is_open());
    gui::press(WXK_TAB);
    EXPECT_EQ(second, wxWindow::FindFocus());
    gui::press(WXK_ESCAPE);
    EXPECT_TRUE(form.is_open());
  });
}

TEST_F(vcl, refused_numbers_stay_with_a_message_and_the_focus) {
  first->set_min(0);
  first->set_max(0.1);
  int changes = 0;
  form.first->on_change = [&] { ++changes; };
  run([&] {
    struct Tcase {
      bool use_bounds;
      char const* typed;
      wchar_t const* message;  // empty: accepted
    };
    for (auto const& [use_bounds, typed, message] :
         std::initializer_list<Tcase>{{false, "--1", L"Wrong number: --1"},
                                      {false, "1.2.3", L"Wrong number: 1.2.3"},
                                      {false, "-0.5", L""},
                                      {false, "7", L""},
                                      {true, "-0.5", L"Number must be greater than: 0"},
                                      {true, "0.2", L"Number must be less than: 0.1"},
                                      {true, "0", L""},
                                      {true, "0.1", L""}}) {
      first->set_value(-1);
      first->set_use_min(use_bounds);
      first->set_use_max(use_bounds);
      changes = 0;
      gui::Tanswers answers;
      bool const is_accepted = *message == 0;
      if (!is_accepted) answers.expect_message();
      gui::type_over(*first, typed);
      gui::press(WXK_TAB);
      EXPECT_EQ(is_accepted ? messages() : messages{message}, answers.take_messages());
      EXPECT_EQ(is_accepted ? second : first, wxWindow::FindFocus()) << typed;
      EXPECT_EQ(wxString(typed).ToStdWstring(), first->get_text());
      EXPECT_EQ(is_accepted ? wxAtof(typed) : -1, first->get_value());
      EXPECT_EQ(is_accepted ? 1 : 0, changes) << typed;
    }
    gui::Tanswers answers;
    answers.expect_message();
    first->set_text(L"");
    EXPECT_FALSE(form.commit_edits());
    EXPECT_EQ(messages{L"Wrong number: "}, answers.take_messages());
    form.first->Hide();
    EXPECT_TRUE(form.commit_edits()) << "a hidden edit has nothing to accept";
  });
}

// An untouched value that the bounds refuse and a typed bad one would have
// asked for the focus in turns.
TEST_F(vcl, two_refused_edits_do_not_fight_for_the_focus) {
  second->set_min(5);
  second->set_use_min(true);
  run([&] {
    gui::Tanswers answers;
    answers.expect_message();
    gui::type_over(*first, "-");
    gui::press(WXK_TAB);
    EXPECT_EQ(messages{L"Wrong number: -"}, answers.take_messages());
    EXPECT_EQ(first, wxWindow::FindFocus());
  });
}

TEST_F(vcl, buttons_and_a_bad_number) {
  int applies = 0;
  form.bar->on_apply = [&] {
    if (form.commit_edits()) ++applies;
  };
  run([&] {
    gui::Tanswers answers;
    gui::type_over(*first, "1.");
    gui::click(*form.bar->get_button(Tbar::apply));
    EXPECT_EQ(1, applies);
    EXPECT_EQ(1, first->get_value());
    answers.expect_message();
    gui::type_over(*first, "-");
    gui::click(*form.bar->get_button(Tbar::apply));
    EXPECT_EQ(1, applies);
    EXPECT_EQ(messages{L"Wrong number: -"}, answers.take_messages());
    EXPECT_EQ(first, wxWindow::FindFocus());
    gui::click(*form.bar->get_button(Tbar::cancel));
    EXPECT_FALSE(form.is_open());
    EXPECT_EQ(messages(), answers.take_messages());
  });
}

TEST_F(vcl, untouched_text_keeps_every_bit_of_the_value) {
  double const value = 0.1 + 0.2;
  run([&] {
    form.first->set_value(value);
    first->set_min(value);
    first->set_use_min(true);
    EXPECT_EQ(L"0.3", first->get_text());
    gui::focus(*first);
    gui::press(WXK_RETURN);
    gui::press(WXK_TAB);
    EXPECT_EQ(value, form.first->get_value());
    gui::type_over(*first, "0.30");
    first->set_use_min(false);
    gui::press(WXK_RETURN);
    EXPECT_EQ(0.30, first->get_value());
  });
}

TEST_F(vcl, point_in_every_locale) {
  for (char const* const name : core_test::comma_locales()) {
    core_test::Tc_locale const locale(name);
    ASSERT_TRUE(locale.is_set()) << name;
    first->set_value(0.1);
    EXPECT_EQ(L"0.1", first->get_text()) << name;
    double number = 0;
    EXPECT_TRUE(Tzu_vcl_dbl_edit::str2dbl("2.5", &number)) << name;
    EXPECT_EQ(2.5, number) << name;
  }
}

TEST_F(vcl, disabled_edit_shows_and_takes_nothing) {
  run([&] {
    form.first->set_edit_enabled(false);
    first->set_value(3);
    gui::type_over(*first, "7");
    EXPECT_EQ(L"3", first->get_text());
    form.first->set_edit_enabled(true);
    gui::type_over(*first, "7");
    EXPECT_EQ(L"7", first->get_text());
  });
}

TEST_F(vcl, selector_works_by_keys) {
  auto& list = *form.list;
  int changes = 0;
  list.on_change = [&] { ++changes; };
  unsigned key = 77;
  EXPECT_EQ(0U, list.get_active_idx());
  EXPECT_EQ(L"", list.get_active_caption());
  EXPECT_FALSE(list.find_str(L"one", &key));
  list.add_item(L"one", 0);
  EXPECT_EQ(L"one", list.get_active_caption());
  std::vector<Tzu_vcl_selbox_item> const more{{L"two", 2}, {L"again", 2}, {L"two", 4000000000U}};
  list.add_items(more);
  EXPECT_EQ(L"one", list.get_active_caption());
  EXPECT_TRUE(list.find_str(L"two", &key));
  EXPECT_EQ(2U, key);
  EXPECT_FALSE(list.find_str(L"Two", &key));
  list.set_active_idx(4000000000U);
  EXPECT_EQ(L"two", list.get_active_caption());
  EXPECT_EQ(4000000000U, list.get_active_idx());
  list.set_active_caption(L"two");
  EXPECT_EQ(2U, list.get_active_idx());
  list.set_item_captions(1, L"три");
  list.set_item_captions(9, L"nowhere");
  EXPECT_EQ(L"три", list.get_active_caption());
  EXPECT_EQ(L"три", list.get_selbox()->GetStringSelection().ToStdWstring());
  EXPECT_EQ(L"again", list.get_item_captions(2));
  EXPECT_EQ(L"", list.get_item_captions(9));
  list.set_active_idx(55);
  EXPECT_EQ(0U, list.get_active_idx());
  list.set_active_caption(L"again");
  list.set_active_caption(L"nowhere");
  EXPECT_EQ(L"", list.get_active_caption());
  EXPECT_EQ(0, changes) << "only the user's choice counts";
  run([&] {
    gui::focus(*list.get_selbox());
    list.set_active_idx(0);
    gui::press(WXK_DOWN);
    EXPECT_TRUE(gui::wait_until([&] { return changes > 0; }));
    EXPECT_EQ(2U, list.get_active_idx());
  });
  list.clear();
  EXPECT_EQ(0U, list.get_items_count());
  EXPECT_EQ(0U, list.get_active_idx());
}

TEST_F(vcl, wheel_chooses_in_a_list_that_has_the_focus_only) {
  auto& list = *form.list;
  for (unsigned const key : {1U, 2U, 3U}) list.add_item(std::to_wstring(key), key);
  int changes = 0;
  list.on_change = [&] { ++changes; };
  run([&] {
    gui::focus(*first);
    gui::turn_wheel(*list.get_selbox());
    EXPECT_EQ(1U, list.get_active_idx());
    EXPECT_EQ(0, changes);
    gui::focus(*list.get_selbox());
    gui::turn_wheel(*list.get_selbox());
    EXPECT_TRUE(gui::wait_until([&] { return changes == 1; }));
    EXPECT_EQ(2U, list.get_active_idx());
  });
}

TEST_F(vcl, no_key_closes_the_form) {
  run([&] {
    for (wxWindow* const control :
         std::initializer_list<wxWindow*>{first, form.third->get_edit(), form.list->get_selbox(),
                                          form.bar->get_button(Tbar::save)}) {
      gui::focus(*control);
      gui::press(WXK_ESCAPE);
      EXPECT_TRUE(form.is_open());
    }
    for (auto* const edit : {first, form.third->get_edit()}) {
      gui::focus(*edit);
      gui::press(WXK_RETURN);
      EXPECT_TRUE(form.is_open());
    }
  });
}

TEST_F(vcl, bar_stands_as_its_rule_says) {
  struct Tcounted_bar : Tbar {
    using Tbar::Tbar;
    void layout_buttons() override {
      ++layouts;
      Tbar::layout_buttons();
    }
    int layouts = 0;
  };
  auto* const bar = zu::vcl::make_child<Tcounted_bar>(&form);
  bar->create();
  bar->load_rc();
  bar->SetSize(1000, bar->GetMinSize().y);
  wxSize const slot = bar->get_slot_size();
  EXPECT_GE(slot.x, bar->FromDIP(Tbar::button_width));
  EXPECT_LT(slot.x, bar->FromDIP(130));
  int const margin = bar->FromDIP(Tbar::margin);
  for (unsigned flags = 0; flags < 32; ++flags) {
    std::array<bool, 5> visible{};
    for (auto const index : {Tbar::save, Tbar::load, Tbar::apply, Tbar::cancel, Tbar::help}) {
      visible[index] = (flags >> index & 1U) != 0;
      int const before = bar->layouts;
      bool const is_change = bar->get_visible(index) != visible[index];
      bar->set_visible(index, visible[index]);
      EXPECT_EQ(before + (is_change ? 1 : 0), bar->layouts);
    }
    auto const lefts = Tbar::button_lefts(1000, slot.x, margin, visible);
    for (auto const index : {Tbar::save, Tbar::load, Tbar::apply, Tbar::cancel, Tbar::help}) {
      if (!visible[index]) continue;
      EXPECT_EQ(wxRect(wxPoint(lefts[index], margin), slot), bar->get_button(index)->GetRect())
          << flags << " " << index;
    }
  }
  EXPECT_EQ(slot, bar->get_slot_size()) << "layouts must not add up";
}

TEST_F(vcl, bar_buttons_fire_their_events) {
  form.bar->set_help_visible(true);
  std::string fired;
  form.bar->on_save = [&] { fired += 's'; };
  form.bar->on_load = [&] { fired += 'l'; };
  form.bar->on_apply = [&] { fired += 'a'; };
  form.bar->on_cancel = [&] { fired += 'c'; };
  form.bar->on_help = nullptr;
  run([&] {
    for (auto const index : {Tbar::save, Tbar::load, Tbar::apply, Tbar::cancel, Tbar::help}) {
      gui::click(*form.bar->get_button(index));
    }
    EXPECT_EQ("slac", fired);
    gui::focus(*form.bar->get_button(Tbar::save));
    for (auto const index : {Tbar::load, Tbar::apply, Tbar::cancel, Tbar::help}) {
      gui::press(WXK_TAB);
      EXPECT_EQ(form.bar->get_button(index), wxWindow::FindFocus());
    }
  });
}

TEST_F(vcl, exceptions_of_handlers_come_out_of_show_modal) {
  auto const fail = [] { throw std::out_of_range("from a handler"); };
  auto const expect_throw = [&](std::function<void()> const& script) {
    EXPECT_THROW(run(script), std::out_of_range);
    EXPECT_FALSE(form.IsShown());
  };
  form.bar->on_save = fail;
  expect_throw([&] { gui::click(*form.bar->get_button(Tbar::save)); });
  expect_throw([&] {
    form.first->on_change = fail;
    gui::focus(*first);
    gui::press(WXK_TAB);
  });
  form.first->on_change = nullptr;
  expect_throw([&] {
    zu::vcl::call_after_guarded(*first, fail);
    gui::pump();
  });
  zu::vcl::call_after_guarded(*first, fail);
  EXPECT_THROW(form.show_modal(), std::out_of_range) << "thrown before the form is up";
}

TEST_F(vcl, only_the_window_manager_closes_besides_the_program) {
  run([&] {
    EXPECT_FALSE(form.HasFlag(wxCLOSE_BOX | wxRESIZE_BORDER | wxMINIMIZE_BOX | wxMAXIMIZE_BOX));
    gui::type_over(*first, "5");
    form.first->on_change = [] { ADD_FAILURE() << "a form that closes takes no more input"; };
    form.Close();
    EXPECT_FALSE(form.is_open());
  });
}

TEST_F(vcl, owner_is_any_window_or_none) {
  auto const show = [&](void* handle, std::function<void()> const& script) {
    Tzu_handle_scope const scope(handle);
    run(script);
  };
  wxRect const place(320, 150, 700, 500);
  gui::Tforeign_window owner(place);
  show(owner.get_handle(), [&] {
    EXPECT_EQ(owner.get_handle(), gui::get_owner(form));
    wxRect const centred = wxRect(form.GetSize()).CentreIn(place);
    EXPECT_NEAR(centred.x, form.GetPosition().x, 1);
    EXPECT_NEAR(centred.y, form.GetPosition().y, 1);
    owner.destroy();
    EXPECT_EQ(gui::is_form_to_outlive_owner(), form.is_open());
    if (form.is_open()) gui::focus(*first);
  });
  for (auto* const handle : {owner.get_handle(), static_cast<void*>(nullptr),
                             reinterpret_cast<void*>(0x7), reinterpret_cast<void*>(~0ULL)}) {
    Tdemo_form ownerless;
    ownerless.create();
    Tzu_handle_scope const scope(handle);
    gui::show_and_run(ownerless, [&] { EXPECT_EQ(nullptr, gui::get_owner(ownerless)); });
  }
}

TEST_F(vcl, nothing_is_clipped) {
  form.bar->set_help_visible(true);
  for (int const lang : {1, 0}) {
    Tzu_rc::set_lang(lang);
    form.list->set_edit_width(70);
    form.list->add_item(L"Gauss-Kruger (plus zone)", 1);
    form.second->set_value(-5811057.628);
    form.load_rc();
    run([&] {
      EXPECT_EQ(messages(), gui::find_clipped(form)) << lang;
      wxSize const line = form.second->GetSize();
      EXPECT_EQ(line.x, second->GetRect().GetRight() + 1);
      EXPECT_EQ(0, form.first->get_label()->GetPosition().x);
      EXPECT_EQ(form.FromDIP(100), form.third->get_edit()->GetPosition().x);
      if (char const* const folder = std::getenv("ZU_SCREENSHOTS")) {
        gui::save_screenshot(form, std::string(folder) + "/kit" + std::to_string(lang));
      }
    });
  }
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  zu::vcl::Tzu_look_scope const look;
  core_test::Tenvironment const user({{"LC_ALL", "C.UTF-8"}});
  zu::vcl::start();
  locale_after_start = std::setlocale(LC_ALL, nullptr);
  Tzu_rc::get_auto_lang();
  wxSetAssertHandler([](wxString const& file, int line, wxString const&, wxString const& condition,
                        wxString const& message) {
    ADD_FAILURE() << file.utf8_str() << ":" << line << ": " << condition.utf8_str() << " "
                  << message.utf8_str();
  });
  return RUN_ALL_TESTS();
}
