// Memory that runs out while the dialog opens and applies. The toolkit may end the program
// when it gets no memory, so only this library's allocations fail here.

#include <gtest/gtest.h>
#include <wx/timer.h>

#include <new>
#include <string>
#include <tuple>
#include <utility>

#include "failing_allocator.h"
#include "gui_support.h"
#include "vcl/application.h"
#include "zu_pj_edit/zu_pj_edit.h"

namespace {

using failing_allocator::lack;

// Presses Apply when the form is open. The given allocation fails of those that open the form,
// or of those of Apply. Returns the result and whether memory was denied.
std::pair<std::string, bool> apply_dialog(std::size_t of_opening = 0, std::size_t of_apply = 0,
                                          lack how_long = lack::once) {
  bool is_denied = false;
  auto const deny = [how_long](std::size_t nth) {
    if (nth > 0) failing_allocator::arm(nth, how_long, failing_allocator::own);
  };
  auto const disarm = [&] { is_denied = failing_allocator::disarm() || is_denied; };
  wxTimer user;
  user.Bind(wxEVT_TIMER, [&](wxTimerEvent& /*event*/) {
    disarm();
    auto* const form = gui::find_open<gui::Tform>();
    if (form == nullptr) {
      user.StartOnce(1);
      return;
    }
    wxWindow& button = *form->get_buttons()->get_button(gui::Tbar::apply);
    wxCommandEvent press(wxEVT_BUTTON, button.GetId());
    deny(of_apply);
    button.ProcessWindowEvent(press);
  });
  user.StartOnce(1);
  unsigned char changed = 7;
  std::string text = "no memory";
  try {
    deny(of_opening);
    char const* const given = zu_proj4_form_execute(nullptr, gui::moscow_tm, &changed);
    disarm();
    text = changed == 1 ? given : "not changed";
  } catch (std::bad_alloc const&) {
    disarm();
    EXPECT_EQ(changed, 0);
  }
  return {text, is_denied};
}

TEST(OutOfMemory, the_dialog_passes_it_on_and_opens_again) {
  int host = 0;
  Tzu_application& application = Tzu_application::instance();
  Tzu_handle_scope const scope(&host);
  ASSERT_EQ(apply_dialog().first, gui::moscow_tm);
  for (bool const of_apply : {false, true}) {
    // Opening allocates alike for each of many controls, so a sample is enough.
    std::size_t const step = of_apply ? 1 : 173;
    for (lack const how_long : {lack::once, lack::for_good}) {
      bool is_denied = true;
      for (std::size_t n = 1; is_denied && !HasFailure(); n += step) {
        SCOPED_TRACE(testing::Message() << "denied " << n << (of_apply ? ", Apply" : ""));
        std::string text;
        std::tie(text, is_denied) = apply_dialog(of_apply ? 0 : n, of_apply ? n : 0, how_long);
        EXPECT_TRUE(text == gui::moscow_tm || (is_denied && text == "no memory")) << text;
        EXPECT_EQ(application.get_handle(), &host);
        EXPECT_EQ(apply_dialog().first, gui::moscow_tm);
      }
    }
  }
}

}  // namespace
