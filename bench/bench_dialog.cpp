// Measures the time from the call to the first paint of the editor's form. Compares it with an
// empty form of the same size, and with a form that has as many standard controls as the
// editor. Needs a display.

#include <benchmark/benchmark.h>
#include <wx/choice.h>
#include <wx/dialog.h>
#include <wx/evtloop.h>

#include <array>
#include <chrono>
#include <optional>

#include "pj_edit/edit_rules.h"
#include "pj_edit/vcl_pj_edit_form.h"
#include "ratio.h"
#include "vcl/look_scope.h"
#include "vcl/panel.h"
#include "vcl/toolkit.h"

namespace {

using clock_type = std::chrono::steady_clock;

constexpr char const* definition =
    "+proj=tmerc +lon_0=78.05 +lat_0=0 +x_0=4500000 +y_0=-5811057.628 +k_0=1 "
    "+towgs84=24.82,-131.21,-82.66,0,0,0.16,-0.12 +ellps=krass +units=m +lon_wrap=45 +no_defs";

// Closes a modal dialog after its first paint and stores the time. The first paint is over
// when the event loop is idle after the window was drawn.
class Tfirst_paint {
 public:
  explicit Tfirst_paint(wxDialog& dialog) : dialog_(dialog) {
    dialog_.Bind(wxEVT_PAINT, &Tfirst_paint::on_paint, this);
  }
  std::optional<clock_type::time_point> time() const { return time_; }

 private:
  void on_paint(wxPaintEvent& event) {
    event.Skip();
    if (time_) return;
    time_ = clock_type::now();
    dialog_.CallAfter([this] { dialog_.EndModal(wxID_CANCEL); });
  }

  wxDialog& dialog_;
  std::optional<clock_type::time_point> time_;
};

// The last size of the editor.
wxSize& form_size() {
  static wxSize size{600, 360};
  return size;
}

void finish(benchmark::State& state, clock_type::time_point start, Tfirst_paint const& painted) {
  if (!painted.time()) return state.SkipWithError("the form did not paint");
  state.SetIterationTime(std::chrono::duration<double>(*painted.time() - start).count());
}

void open_editor(benchmark::State& state) {
  for ([[maybe_unused]] auto _ : state) {
    auto const start = clock_type::now();
    Tzu_vcl_pj_edit_form form;
    Tfirst_paint const painted(form);
    form.create();
    form.load_rc();
    unsigned char changed = 0;
    form.pj_edit(definition, &changed);
    form_size() = form.GetSize();
    finish(state, start, painted);
  }
}

// The time of the toolkit alone for the same controls: as many labels, edits, boxes and
// buttons, and lists with the same items.
void add_stock_controls(wxDialog& form, std::array<wxArrayString, 6> const& lists) {
  constexpr int labels = 27;
  constexpr int edits = 20;
  constexpr int boxes = 5;
  constexpr int buttons = 5;
  auto* const grid = zu::vcl::set_sizer<wxGridSizer>(form, 8, wxSize(2, 2));
  for (int i = 0; i < labels; ++i)
    grid->Add(zu::vcl::make_child<wxStaticText>(&form, wxID_ANY, "Latitude of Origin"));
  for (int i = 0; i < edits; ++i) grid->Add(zu::vcl::make_child<wxTextCtrl>(&form, wxID_ANY, "0"));
  for (int i = 0; i < boxes; ++i)
    grid->Add(zu::vcl::make_child<wxStaticBox>(&form, wxID_ANY, "Projection"));
  for (int i = 0; i < buttons; ++i)
    grid->Add(zu::vcl::make_child<wxButton>(&form, wxID_ANY, "Apply"));
  for (wxArrayString const& items : lists) {
    auto* const list = zu::vcl::make_child<wxChoice>(&form, wxID_ANY);
    list->Append(items);
    list->SetSelection(0);
    grid->Add(list);
  }
  grid->SetSizeHints(&form);
}

void open_stock_form(benchmark::State& state) {
  auto const catalogue = zu::catalogue_lists::shipped();
  auto const captions = [](auto const& records) {
    wxArrayString items;
    for (auto const& record : records) items.push_back(wxString::FromUTF8(record.get_caption()));
    return items;
  };
  std::array<wxArrayString, 6> lists{captions(catalogue.datums), captions(catalogue.ellipses),
                                     captions(catalogue.usual)};
  lists[3].assign(3, "type");
  lists[4].assign(4, "zonal");
  lists[5].assign(60, "zone");
  for ([[maybe_unused]] auto _ : state) {
    auto const start = clock_type::now();
    wxDialog form(nullptr, wxID_ANY, "Projection", wxDefaultPosition, wxDefaultSize,
                  wxCAPTION | wxDIALOG_NO_PARENT);
    Tfirst_paint const painted(form);
    add_stock_controls(form, lists);
    form.ShowModal();
    finish(state, start, painted);
  }
}

void open_empty_form(benchmark::State& state) {
  for ([[maybe_unused]] auto _ : state) {
    auto const start = clock_type::now();
    wxDialog form(nullptr, wxID_ANY, "Projection", wxDefaultPosition, form_size(),
                  wxCAPTION | wxDIALOG_NO_PARENT);
    Tfirst_paint const painted(form);
    form.ShowModal();
    finish(state, start, painted);
  }
}

BENCHMARK(open_editor)
    ->UseManualTime()
    ->Iterations(20)
    ->Repetitions(5)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(open_stock_form)
    ->UseManualTime()
    ->Iterations(20)
    ->Repetitions(5)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(open_empty_form)
    ->UseManualTime()
    ->Iterations(20)
    ->Repetitions(5)
    ->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  // All forms get the same look of controls as the dialog in a host.
  zu::vcl::Tzu_look_scope const look;
  zu::vcl::start();
  // The catalogue is read once in a process.
  zu::catalogue_lists::shipped();
  return bench::run(argc, argv, "open_editor",
                    {{"open_stock_form", "at most 2"}, {"open_empty_form", "at most 2"}});
}
