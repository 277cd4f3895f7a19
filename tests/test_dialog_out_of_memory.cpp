// Memory that runs out while the dialog is made, shown and applied. The toolkit ends
// the program at some of the places where it is denied any itself, so only what this
// library takes is.

#include <gtest/gtest.h>
#include <wx/timer.h>

#include <new>
#include <string>
#include <utility>

#include "failing_allocator.h"
#include "pj_edit/vcl_pj_edit_form.h"
#include "vcl/application.h"
#include "vcl/toolkit.h"
#include "zu_pj_edit/zu_pj_edit.h"

namespace {

using failing_allocator::lack;

constexpr char const* zone_7 =
    "+proj=tmerc +lon_0=39 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=1 "
    "+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +ellps=krass +units=m +lon_wrap=45 +no_defs";

enum class act { open, apply };

struct denial {
  act which = act::open;
  std::size_t nth = 0;  // none for 0
  lack how_long = lack::once;

  void begin(act now) const {
    if (now == which && nth > 0) failing_allocator::arm(nth, how_long, failing_allocator::own);
  }
};

// Presses Apply once the form is open.
class Tuser : public wxTimer {
 public:
  explicit Tuser(denial const& denied) : denied_(denied) { StartOnce(1); }
  void Notify() override {
    is_denied_ = failing_allocator::disarm() || is_denied_;
    for (wxWindow* const window : wxTopLevelWindows) {
      auto* const form = dynamic_cast<Tzu_vcl_pj_edit_form*>(window);
      if (form == nullptr || !form->is_open()) continue;
      wxWindow& button = *form->get_buttons()->get_button(Tzu_vcl_bottom_buttons::apply);
      wxCommandEvent press(wxEVT_BUTTON, button.GetId());
      press.SetEventObject(&button);
      denied_.begin(act::apply);
      button.ProcessWindowEvent(press);
      return;
    }
    StartOnce(1);
  }
  bool is_denied() const { return failing_allocator::disarm() || is_denied_; }

 private:
  denial denied_;
  bool is_denied_ = false;
};

struct ending {
  std::string text;
  bool is_denied = false;
};

ending apply_dialog(denial const& denied = {}) {
  Tuser user(denied);
  unsigned char changed = 7;
  char const* given = nullptr;
  try {
    denied.begin(act::open);
    given = zu_proj4_form_execute(nullptr, zone_7, &changed);
  } catch (std::bad_alloc const&) {
    return {"no memory", user.is_denied()};
  }
  bool const is_denied = user.is_denied();
  return {changed == 1 ? given : "not changed", is_denied};
}

TEST(OutOfMemory, the_dialog_passes_it_on_and_opens_again) {
  int host = 0;
  Tzu_application& application = Tzu_application::instance();
  application.set_handle(&host);
  ASSERT_EQ(apply_dialog().text, zone_7);
  // To open takes much the same for each of many controls and list items, and time.
  for (auto const& [which, step] : {std::pair(act::open, 173), std::pair(act::apply, 1)}) {
    for (lack const how_long : {lack::once, lack::for_good}) {
      bool is_denied = true;
      for (std::size_t n = 1; is_denied && !HasFailure(); n += static_cast<std::size_t>(step)) {
        SCOPED_TRACE(testing::Message() << "denied " << n << (which == act::open ? "" : ", Apply"));
        ending const got = apply_dialog({which, n, how_long});
        is_denied = got.is_denied;
        EXPECT_EQ(got.text, is_denied && got.text == "no memory" ? got.text : zone_7);
        EXPECT_EQ(application.get_handle(), &host);
        EXPECT_EQ(apply_dialog().text, zone_7);
      }
    }
  }
  application.set_handle(nullptr);
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  zu::vcl::start();
  return RUN_ALL_TESTS();
}
