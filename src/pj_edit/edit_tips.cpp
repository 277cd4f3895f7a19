#include "pj_edit/edit_tips.h"

#include "basic/number.h"
#include "basic/str.h"
#include "text/own_texts.h"
#include "text/rc.h"
#include "text/strconv.h"

namespace zu {
namespace {

std::wstring wide(std::string_view text) { return strconv::from_system(text); }

std::wstring wide_number(double value) { return wide(number::format_double(value, 15)); }

std::wstring tell_limits(number_state const& number) {
  if (number.use_min && number.use_max)
    return L", " + fill_own_text(own_text::limits_between, wide_number(number.min),
                                 wide_number(number.max));
  if (number.use_min) return L", " + fill_own_text(own_text::limit_low, wide_number(number.min));
  if (number.use_max) return L", " + fill_own_text(own_text::limit_high, wide_number(number.max));
  return {};
}

own_text unit_of(proj_number which) {
  switch (entry_of(which).unit) {
    case key_unit::metres:
      return own_text::unit_metres;
    case key_unit::ratio:
      return own_text::unit_ratio;
    case key_unit::degrees:
    case key_unit::none:
      break;
  }
  return own_text::unit_degrees;
}

own_text unit_of_shift(std::size_t index) {
  if (index < 3) return own_text::unit_metres;
  return index < 6 ? own_text::unit_seconds : own_text::unit_millionths;
}

}  // namespace

std::wstring tell_number(Tzu_pj_editor const& editor, proj_number which) {
  return wide(proj_number_key(which)) + L", " + get_own_text(unit_of(which)) +
         tell_limits(editor.state().number(which));
}

std::wstring tell_shift(Tzu_pj_editor const& editor, std::size_t index) {
  std::wstring text = L"towgs84, ";
  text += get_own_text(unit_of_shift(index));
  std::wstring const reason = tell_ellipse(editor);
  return reason.empty() ? text : text + L"\n" + reason;
}

std::wstring tell_ellipse(Tzu_pj_editor const& editor) {
  auto const* const datum = editor.datum_record();
  if (editor.is_datum_editable() || datum == nullptr) return {};
  return fill_own_text(own_text::fixed_by_datum, wide(datum->get_caption()));
}

std::wstring tell_zone(Tzu_pj_editor const& editor) {
  auto const* const zone = editor.zonal_record();
  if (!editor.get_is_zonal() || zone == nullptr) return {};
  bool const is_utm = str::equal_no_case(zone->get_prj4_name(), "utm");
  std::wstring text;
  for (proj_number const which : {proj_number::lon_0, proj_number::k_0, proj_number::x_0}) {
    Tzu_pj_dbl_param const& fixed = zone->get_number(which);
    double value = fixed.get_default();
    // The name of Universal Transverse Mercator and the zone define all three.
    if (is_utm && which == proj_number::lon_0) value = zone->get_zone().get_default() * 6 - 183;
    if (is_utm && which == proj_number::k_0) value = 0.9996;
    if (is_utm && which == proj_number::x_0) value = 500000;
    if (!is_utm && !fixed.get_def_default()) continue;
    text.append(text.empty() ? L"" : L"\n");
    text.append(strconv::from_interface(Tzu_rc::get_str(*entry_of(which).caption))).append(L" ");
    text.append(wide_number(value));
  }
  return text;
}

}  // namespace zu
