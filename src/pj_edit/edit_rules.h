// The editing rules: what the dialog takes from a definition, what each choice of the user
// changes, and what is written back. They do not use the form toolkit, so the same rules run
// in the dialog, in the command-line program and in tests without a display.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/catalogue.h"
#include "pj_edit/edit_state.h"
#include "proj4/proj4_str.h"

namespace zu {

// The lists in which the rules search. They must live longer than the rules.
struct catalogue_lists {
  Tzu_pj_proj_defs const& usual;
  Tzu_pj_proj_defs const& zonal;
  Tzu_pj_datum_defs const& datums;
  Tzu_pj_ellipse_defs const& ellipses;

  // The lists of the installation's catalogue.
  static catalogue_lists shipped();
};

// The edited definition: a state, the catalogue it refers to, and the rules.
class Tzu_pj_editor {
 public:
  explicit Tzu_pj_editor(catalogue_lists const& lists);

  edit_state const& state() const noexcept { return state_; }
  catalogue_lists const& lists() const noexcept { return lists_; }
  // The last definition that was taken, unchanged.
  std::string const& given() const noexcept { return given_; }

  edit_step step() const { return {state_, given_}; }
  // Goes to an earlier or later step. Does not call on_change.
  void set_step(edit_step const& step);
  // Called after each change below, even when everything stayed the same.
  std::function<void()> on_change;

  // Takes a definition: tries the zonal list first, then the usual list, else kind none. Then
  // takes datum and ellipsoid. Nothing of an earlier definition stays. Null counts as empty.
  void set_proj4_string(char const* text);
  // The composed definition; empty for kind none. Valid until the next call.
  char const* get_proj4_string();

  // Choices of the user.
  void choose_kind(definition_kind kind);
  void choose_usual(std::uint32_t id);
  void choose_zonal(std::string_view name);
  void choose_zone(int zone);
  void choose_datum(std::uint32_t id);
  void choose_ellipse(std::uint32_t id);
  void set_number(proj_number which, double value);
  void set_shift(std::size_t index, double value);
  // Sets all seven. Does nothing when a datum of the catalogue is chosen: the user cannot
  // change its numbers.
  void set_shifts(std::array<double, 7> const& values);

  // The entries of the selectors.
  std::vector<std::string> zonal_names() const;
  std::vector<int> zones_of(std::string_view name) const;

  // The chosen records; null when the catalogue does not have them.
  Tzu_pj_proj_def const* usual_record() const {
    return lists_.usual.find_by_index(state_.usual_id);
  }
  Tzu_pj_proj_def const* zonal_record() const {
    return lists_.zonal.find_by_caption_and_zone(state_.zonal_name, state_.zone);
  }
  Tzu_pj_datum_def const* datum_record() const {
    return lists_.datums.find_by_index(state_.datum_id);
  }
  Tzu_pj_ellipse_def const* ellipse_record() const {
    return lists_.ellipses.find_by_index(state_.ellipse_id);
  }

  bool get_is_zonal() const noexcept { return state_.kind == definition_kind::zonal; }
  // Whether a Gauss-Kruger system of the zonal list is chosen.
  bool is_gauss_kruger() const;
  // The user may change the seven numbers and the ellipsoid with "_Custom" only. A datum of
  // the catalogue has its own.
  bool is_datum_editable() const noexcept { return state_.datum_id == edit_state::custom_datum; }

 private:
  template <class Act>
  void change(Act act);
  void proj4_str_to_controls(Tzu_proj4_str& definition);
  void controls_to_proj4_str(Tzu_proj4_str& definition) const;
  void clear();
  void apply_record(Tzu_pj_proj_def const* record);
  void fill_numbers(Tzu_pj_proj_def const& record, Tzu_proj4_str& definition);
  void show_zonal(std::string_view name);
  bool take_zonal(Tzu_proj4_str& definition);
  bool take_usual(Tzu_proj4_str& definition);
  void take_datum(Tzu_proj4_str& definition);
  void take_ellipse(Tzu_proj4_str& definition);
  void keep_lost_pieces(Tzu_proj4_str& definition);
  void select_pulkovo_1942();
  Tzu_pj_proj_def const* match_usual(Tzu_proj4_str& definition) const;
  Tzu_pj_proj_def const* match_zonal(Tzu_proj4_str& definition) const;
  // The three tries for an ellipsoid: by its name, by its axes, and the one for definitions
  // without either.
  Tzu_pj_ellipse_def const* proj4_str_try_ellipse_name(Tzu_proj4_str& definition) const;
  Tzu_pj_ellipse_def const* proj4_str_try_ellipse_params(Tzu_proj4_str& definition) const;
  Tzu_pj_ellipse_def const* proj4_str_try_ellipse_default() const;
  Tzu_pj_ellipse_def const* match_ellipse(Tzu_proj4_str& definition) const;
  void write_projection(Tzu_pj_proj_def const& record, Tzu_proj4_str& definition) const;
  void write_datum(Tzu_proj4_str& definition) const;
  void write_ellipse(Tzu_proj4_str& definition) const;

  catalogue_lists lists_;
  edit_state state_;
  std::string given_;
  Tzu_proj4_str definition_;
  unsigned changes_ = 0;  // number of changes in progress; they can be nested
};

}  // namespace zu
