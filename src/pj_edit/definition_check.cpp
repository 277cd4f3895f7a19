#include "pj_edit/definition_check.h"

#include <utility>

#include "basic/number.h"
#include "pj_edit/edit_note.h"
#include "proj4/reading_report.h"
#include "reproj/reproj_xy_exec.h"
#include "reproj/system_distance.h"
#include "text/own_texts.h"
#include "text/strconv.h"
#include "text/string_adapter.h"
#include "zu_pj_edit/zu_pj4_layer.h"

namespace zu {
namespace {

class Tcheck {
 public:
  Tcheck(std::string definition, std::string given, Tzu_pj_editor& editor)
      : definition_(std::move(definition)),
        given_(std::move(given)),
        editor_(&editor),
        area_(area_of_system(given_)) {}

  std::vector<check_finding> run() {
    std::string const taken = Tzu_reproj_xy_exec::find_name_taken(given_);
    if (!taken.empty())
      add(check_kind::reading, fill_own_text(own_text::name_taken, strconv::from_utf8(taken)));
    for (reading_loss const& loss : find_reading_losses(definition_))
      add(check_kind::reading, tell(loss));
    check_operation();
    editor_->set_proj4_string(definition_.c_str());
    check_limits();
    check_dialog();
    check_file();
    return std::move(findings_);
  }

 private:
  void add(check_kind kind, std::wstring sentence, std::optional<double> metres = {}) {
    findings_.push_back({kind, std::move(sentence), metres});
  }

  void check_operation() {
    std::string reason;
    is_transformed_ = Tzu_reproj_xy_exec::has_operation_as_written(given_, reason);
    if (!is_transformed_)
      add(check_kind::operation, fill_own_text(own_text::no_operation, strconv::from_utf8(reason)));
  }

  void check_limits() {
    edit_state const& state = editor_->state();
    Tzu_pj_proj_def const* const record =
        editor_->get_is_zonal() ? editor_->zonal_record() : editor_->usual_record();
    if (state.kind == definition_kind::none || record == nullptr) return;
    for (proj_number const which : all_proj_numbers) {
      auto const& range = record->get_number(which);
      double const value = state.number(which).value;
      bool const is_low = range.get_def_min() && value < range.get_min();
      bool const is_high = range.get_def_max() && value > range.get_max();
      if (!range.get_show() || (!is_low && !is_high)) continue;
      std::string const piece =
          std::string(proj_number_key(which)) + "=" + number::format_double(value);
      std::string const limits =
          number::format_double(range.get_min()) + " ... " + number::format_double(range.get_max());
      add(check_kind::limits, fill_own_text(own_text::out_of_limits, strconv::from_system(piece),
                                            strconv::from_system(limits)));
    }
  }

  // Adds how far points move with another definition. Returns whether they move.
  bool add_moves(check_kind kind, own_text which, std::string const& other) {
    if (!area_ || !is_transformed_) return false;
    auto const found =
        compare_systems(given_, strconv::to_utf8(strconv::from_system(other)), *area_);
    if (!found || found->most.metres <= same_place_metres) return false;
    moved_place const& most = found->most;
    add(kind, fill_own_text(which, tell_metres(most), tell_place(most)), most.metres);
    return true;
  }

  void check_dialog() {
    std::string const result = editor_->get_proj4_string();
    if (result.empty()) {
      add(check_kind::dialog, get_own_text(own_text::apply_empties));
      return;
    }
    if (std::wstring added = tell_addition(*editor_); !added.empty())
      add(check_kind::dialog, std::move(added));
    if (add_moves(check_kind::dialog, own_text::apply_moves, result))
      add(check_kind::dialog, fill_own_text(own_text::apply_changes, strconv::from_system(result)));
  }

  void check_file() {
    std::wstring wkt;
    std::wstring back;
    Tzu_std_wstring_adapter wkt_target(&wkt);
    Tzu_std_wstring_adapter back_target(&back);
    string_adp const wkt_adapter(wkt_target);
    string_adp const back_adapter(back_target);
    std::wstring const wide = strconv::from_system(definition_);
    if (zu_pj4_export_esri(wide.c_str(), wkt_adapter.get()) == 0 ||
        zu_pj4_import_esri_prj(wkt.c_str(), back_adapter.get()) == 0) {
      add(check_kind::prj_file, get_own_text(own_text::prj_refused));
      return;
    }
    if (add_moves(check_kind::prj_file, own_text::prj_moves, strconv::to_system(back)))
      add(check_kind::prj_file, fill_own_text(own_text::prj_changes, back));
  }

  std::string definition_;
  std::string given_;
  Tzu_pj_editor* editor_;
  std::optional<geographic_area> area_;
  bool is_transformed_ = false;
  std::vector<check_finding> findings_;
};

}  // namespace

std::vector<check_finding> check_definition(std::string const& definition, std::string const& given,
                                            Tzu_pj_editor& editor) {
  return Tcheck(definition, given, editor).run();
}

}  // namespace zu
