// What the files of tests/cases/test_cases do with their texts.

#include <algorithm>
#include <cmath>
#include <memory>
#include <sstream>
#include <stdexcept>

#include "basic/file_system.h"
#include "basic/number.h"
#include "basic/prp_val.h"
#include "case_file.h"
#include "catalogue_tables.h"
#include "fed_by.h"
#include "interchange/known_systems.h"
#include "interchange/proj4_conv.h"
#include "pj_edit/edit_files.h"
#include "pj_edit/edit_find.h"
#include "pj_edit/edit_history.h"
#include "pj_edit/edit_note.h"
#include "pj_edit/edit_paste.h"
#include "pj_edit/edit_tips.h"
#include "pj_edit/point_trial.h"
#include "proj4/short_text.h"
#include "reproj/reproj_d2.h"
#include "text/rc.h"
#include "text/strconv.h"
#include "zu_pj_edit/zu_pj4_layer.h"

namespace {

using case_file::scope;
using case_file::words;
using zu::strconv::encodings;
using zu::strconv::from_utf8;
using zu::strconv::to_utf8;

struct definition : Tzu_proj4_str {
  explicit definition(std::string const& text) {
    set(text.c_str());
    decompose();
  }
  std::string composed() {
    compose();
    return get();
  }
};

// Reading and writing the result changes nothing.
OPERATION(normalize) {
  std::string const once = definition(a.at(0)).composed();
  std::string const again = definition(once).composed();
  return again == once ? once : once + " and then " + again;
}

// For PROJ, and after that in the ordinary form.
OPERATION(normalize_for_proj) {
  definition set(a.at(0));
  set.compose_for_proj4();
  std::string const text = set.get();
  return text + " | " + set.composed();
}

// Each loss: the piece, why, what is kept, and "!" where points move.
OPERATION(losses) {
  static constexpr std::array reasons{"before", "unknown", "repeated", "unread",   "tail",
                                      "eighth", "changed", "sphere",   "lon_wrap", "count"};
  std::string text;
  auto const add = [](void* context, zu_pj4_loss const* loss) {
    auto& told = *static_cast<std::string*>(context);
    told.append(told.empty() ? "" : " | ").append(loss->piece).append(" ");
    told.append(reasons.at(loss->reason)).append(*loss->kept == '\0' ? "" : " ");
    told.append(loss->kept).append(loss->moves_points != 0 ? "!" : "");
  };
  zu_pj4_find_losses(a.at(0).c_str(), add, &text);
  return text;
}

OPERATION(kinds) {
  definition const set(a.at(0));
  return std::string(set.is_sphere() ? "sphere " : "") + (set.is_valid() ? "valid " : "") +
         (set.get_is_long_lat() ? "geographic " : "");
}

OPERATION(compare) {
  definition left(a.at(0));
  definition const right(a.at(1));
  left.set_is_lon_wrap(false);
  bool const equal = left.equal(right);
  return equal != right.equal(left) ? "one way" : equal ? "equal" : "different";
}

OPERATION(geographic) {
  definition set(a.at(0));
  set.set_is_long_lat();
  return set.composed();
}

// The host's own language is taken over first.
void speak(std::string const& language) {
  Tzu_rc::get_auto_lang();
  Tzu_rc::set_lang(language == "en" ? 0 : language == "ru" ? 1 : 2);
}

OPERATION(interface) {
  speak(a.at(0));
  return to_utf8(
      zu::strconv::from_interface(Tzu_rc::get_str(std::stoi(a.at(1)), std::stoi(a.at(2)))));
}

// With "; " for the ends of the lines.
OPERATION(describe) {
  speak(a.at(0));
  auto text = to_utf8(zu::strconv::from_interface(definition(a.at(1)).get_text()));
  for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos;)
    text.replace(at, 2, "; ");
  return text;
}

std::string fed(std::function<int(Izu_string_adp*)> const& produce) {
  bool done = false;
  auto const text = core_test::fed_by([&](auto* adapter) { done = produce(adapter) != 0; });
  return done == (text != L"unfed") ? to_utf8(text) : "says otherwise than it feeds";
}

OPERATION(summarize) {
  speak(a.at(0));
  return fed([&](auto* to) { return Tzu_short_text_helper::get_short_text(a.at(1).c_str(), to); });
}

std::string converted(std::string const& text, int (*convert)(wchar_t const*, Izu_string_adp*)) {
  return fed([&](auto* to) { return convert(from_utf8(text).c_str(), to); });
}

OPERATION(to_esri) { return converted(a.at(0), &zu_pj4_export_esri); }
OPERATION(from_esri) { return converted(a.at(0), &zu_pj4_import_esri_prj); }
OPERATION(import) { return converted(a.at(0), &zu_pj4_import_crs); }

// The names that ESRI WKT has for seven numbers and an ellipsoid, and the definition that
// is read from it.
OPERATION(names_in_esri) {
  auto const wkt = converted("+proj=longlat +towgs84=" + a.at(0) + " " + a.at(1) + " +no_defs",
                             &zu_pj4_export_esri);
  std::string text;
  for (char const* tag : {"GEOGCS", "DATUM", "SPHEROID"})
    text += zu::proj4_conv::extract_wkt_tag(wkt, tag) + " ";
  return text + converted(wkt, &zu_pj4_import_esri_prj);
}

// The second text is the file's content.
OPERATION(load) {
  if (a.size() > 1) core_test::put_file(in.folder.file(a[0]), a[1]);
  std::wstring const name = in.folder.wide(from_utf8(a.at(0)));
  return to_utf8(core_test::fed_by([&](auto* to) {
    if (a[0].ends_with(".prj"))
      zu_pj4_import_esri(name.c_str(), to);
    else
      zu_pj4_load_simple_w(name.c_str(), to);
  }));
}

// The catalogue of the case: the one that ships, or tables in the folder.
struct catalogue {
  Tzu_pj_def_dbf projections;
  Tzu_datum_def_dbf datums;
  zu::Tzu_pj_editor editor{{projections.get_proj_defs(), projections.get_zone_defs(),
                            datums.get_datum_defs(), datums.get_ellipse_defs()}};
  zu::Tedit_history history;

  catalogue() {
    history.start(editor.step());
    editor.on_change = [this] { history.record(editor.step()); };
  }
};

catalogue& catalogue_of(scope& in) {
  if (!in.state.has_value()) in.state = std::make_shared<catalogue>();
  return *std::any_cast<std::shared_ptr<catalogue>&>(in.state);
}

OPERATION(table) {
  std::istringstream lines(in.input);
  words rows;
  for (std::string row; std::getline(lines, row);) rows.push_back(row);
  core_test::write_table(in.folder.file(a.at(0) + ".dbf"), core_test::columns_of(a[0]), rows);
  return "";
}

OPERATION(use_tables) {
  Tzu_pj_dbf::set_catalogue_folder(in.folder.file(a.empty() ? "" : a[0]));
  in.state = std::make_shared<catalogue>();
  Tzu_pj_dbf::set_catalogue_folder("");
  auto const& editor = catalogue_of(in).editor;
  auto const& lists = editor.lists();
  std::ostringstream text;
  text << lists.usual.get_size() << " usual, " << lists.datums.get_size() << " datums, "
       << lists.ellipses.get_size() << " ellipsoids";
  for (auto const& name : editor.zonal_names()) {
    text << ", " << name;
    for (int const zone : editor.zones_of(" " + name)) text << " " << zone;
  }
  return text.str();
}

OPERATION(apply) {
  auto& editor = catalogue_of(in).editor;
  editor.set_proj4_string(a.at(0).c_str());
  return editor.get_proj4_string();
}

OPERATION(applied) { return catalogue_of(in).editor.get_proj4_string(); }

std::string shown(scope& in) {
  auto const& editor = catalogue_of(in).editor;
  auto const& state = editor.state();
  std::ostringstream text;
  if (state.kind == zu::definition_kind::usual) text << "usual " << state.usual_id;
  if (state.kind == zu::definition_kind::zonal) text << state.zonal_name << " zone " << state.zone;
  text << ", datum " << (editor.is_datum_editable() ? "custom" : std::to_string(state.datum_id))
       << ", ellipsoid " << state.ellipse_id;
  return text.str();
}

OPERATION(open) {
  catalogue_of(in).editor.set_proj4_string(a.at(0).c_str());
  return shown(in);
}

// A user's choices: "usual 4", "zonal Banded", "zone 8", "number k_0 3", "shift 0 1.5".
OPERATION(choose) {
  auto& editor = catalogue_of(in).editor;
  auto const number = [&](std::size_t i) { return std::stod(a.at(i)); };
  auto const id = [&] { return static_cast<std::uint32_t>(std::stoul(a.at(1))); };
  if (a.at(0) == "usual") editor.choose_kind(zu::definition_kind::usual), editor.choose_usual(id());
  if (a[0] == "kind") editor.choose_kind(zu::definition_kind::zonal);
  if (a[0] == "zonal") editor.choose_zonal(a.at(1));
  if (a[0] == "zone") editor.choose_zone(std::stoi(a.at(1)));
  if (a[0] == "datum") editor.choose_datum(id());
  if (a[0] == "custom") editor.choose_datum(zu::edit_state::custom_datum);
  if (a[0] == "ellipsoid") editor.choose_ellipse(id());
  if (a[0] == "number") {
    auto const* const found = std::ranges::find(zu::all_proj_numbers, a.at(1), &proj_number_key);
    if (found == zu::all_proj_numbers.end()) throw std::invalid_argument("no number " + a[1]);
    editor.set_number(*found, number(2));
  }
  if (a[0] == "shift") editor.set_shift(id(), number(2));
  return shown(in);
}

// "undo" or "redo": whether there are more, and the definition then.
OPERATION(step) {
  auto& [projections, datums, editor, history] = catalogue_of(in);
  editor.set_step(a.at(0) == "undo" ? history.undo() : history.redo());
  return std::string(history.can_undo() ? "<" : "") + (history.can_redo() ? "> " : " ") +
         editor.get_proj4_string();
}

// Chooses so many numbers, and counts how many can be undone.
OPERATION(many_steps) {
  auto& [projections, datums, editor, history] = catalogue_of(in);
  editor.choose_datum(zu::edit_state::custom_datum);
  history.start(editor.step());
  for (int i = 1; i <= std::stoi(a.at(0)); ++i) editor.set_shift(0, i);
  int undone = 0;
  for (; history.can_undo(); ++undone) editor.set_step(history.undo());
  return std::to_string(undone);
}

// The note on a paste, or the new definition.
OPERATION(paste) {
  auto& editor = catalogue_of(in).editor;
  speak(a.at(0));
  auto const result = zu::paste_definition(editor, from_utf8(a.at(1)));
  return to_utf8(result.note) + (result.taken ? editor.get_proj4_string() : "");
}

OPERATION(angle) {
  auto const value = zu::read_angle(from_utf8(a.at(0)));
  return value ? zu::number::format_double(*value) : "none";
}

// A definition, a way and a point of it.
OPERATION(try_point) {
  speak("en");
  zu::Tpoint_trial trial;
  trial.set_definition(a.at(0));
  double const x = std::stod(a.at(2));
  double const y = std::stod(a.at(3));
  auto const result = a.at(1) == "forward" ? trial.forward(x, y) : trial.backward(x, y);
  if (!result.place) return to_utf8(result.failure);
  std::string text;
  for (double const number : *result.place) {
    text.append(text.empty() ? "" : " ");
    zu::number::append_fixed(text, number, trial.is_geographic() ? 6 : 3);
  }
  return text;
}

// Of a key, of one of the seven numbers, of the ellipsoid, of a zone.
OPERATION(tip) {
  auto& editor = catalogue_of(in).editor;
  speak(a.at(0));
  for (std::size_t i = 0; i < proj_numbers_count; ++i)
    if (auto const which = static_cast<proj_number>(i); a.at(1) == proj_number_key(which))
      return to_utf8(zu::tell_number(editor, which));
  if (a[1] == "ellipsoid") return to_utf8(zu::tell_ellipse(editor));
  if (a[1] == "zone") return to_utf8(zu::tell_zone(editor));
  return to_utf8(zu::tell_shift(editor, std::stoul(a[1])));
}

// The note on the catalogue and on a definition, which is opened if it is given.
OPERATION(note) {
  auto& [projections, datums, editor, history] = catalogue_of(in);
  speak(a.at(0));
  if (a.size() > 1) editor.set_proj4_string(a[1].c_str());
  auto faults = projections.get_faults();
  std::ranges::copy(datums.get_faults(), std::back_inserter(faults));
  return in.without_folder(to_utf8(zu::compose_note(L"", zu::tell_catalogue({}, faults), editor)));
}

// The note on a file after loading it, or after saving a definition in it.
OPERATION(file_note) {
  speak(a.at(0));
  std::wstring const name = in.folder.wide(from_utf8(a.at(1)));
  auto const kind = zu::kind_of_file(name);
  return to_utf8(zu::compose_note(a.size() > 2 ? zu::save_definition(name, kind, a[2])
                                               : zu::load_definition(name, kind).failure,
                                  L"", catalogue_of(in).editor));
}

// All that a row of the usual or the zonal projections says. A value in brackets is there,
// but is not to be used.
OPERATION(projection) {
  auto const& lists = catalogue_of(in).editor.lists();
  auto const& row = (a.at(0) == "usual" ? lists.usual : lists.zonal).get(std::stoul(a.at(1)));
  std::ostringstream text;
  text << row.get_index() << ": " << row.get_caption() << "/" << row.get_add_caption() << "/"
       << row.get_prj4_name();
  auto const add = [&text](std::string_view key, auto const& param) {
    auto const& value = param.get_default();
    bool const is_given = value != std::decay_t<decltype(value)>();
    if (!param.get_use_proj4() && !param.get_def_default() && !is_given) return;
    text << "; " << key << (param.get_use_proj4() ? "" : ", not of PROJ")
         << (param.get_show() ? ", shown" : "");
    if (param.get_def_default())
      text << ", is " << value;
    else if (is_given)
      text << ", (" << value << ")";
  };
  add("south", row.get_south());
  add("zone", row.get_zone());
  add("zone_name", row.get_zone_name());
  add("units", row.get_units());
  add("datum", row.get_datum());
  for (auto const number : zu::all_proj_numbers) {
    auto const& param = row.get_number(number);
    add(proj_number_key(number), param);
    if (param.get_def_min() || param.get_min() != 0) text << ", from " << param.get_min();
    if (param.get_def_max() || param.get_max() != 0) text << ", to " << param.get_max();
  }
  return text.str();
}

OPERATION(datums) {
  auto const& lists = catalogue_of(in).editor.lists();
  std::ostringstream text;
  for (auto const& row : lists.datums) {
    text << row.get_index() << ": " << row.get_caption() << "/" << row.get_prj4_name();
    for (double const number : row.get_towgs84()) text << " " << number;
    text << " on " << row.get_ellipse_index() << "\n";
  }
  for (auto const& row : lists.ellipses)
    text << row.get_index() << ": " << row.get_caption() << "/" << row.get_prj4_name() << " a "
         << row.get_semi_major() << (row.get_def_semi_minor() ? " b " : " (b) ")
         << row.get_semi_minor() << (row.get_def_inv_flattening() ? " rf " : " (rf) ")
         << row.get_inv_flattening() << "\n";
  return text.str();
}

encodings encoding_of(std::string const& name) {
  for (std::size_t i = 0; i < zu::strconv::encodings_count; ++i)
    if (name == zu::strconv::get_encoding(static_cast<encodings>(i)).name)
      return static_cast<encodings>(i);
  throw std::invalid_argument(name);
}

OPERATION(decode) { return to_utf8(zu::strconv::decode(encoding_of(a.at(0)), a.at(1))); }

OPERATION(encode) { return zu::strconv::encode(encoding_of(a.at(0)), from_utf8(a.at(1))); }

// There and back.
OPERATION(page) {
  std::string const text = decode(in, a);
  return encode(in, {a.at(0), text}) == a.at(1) ? text : text + ", which is written otherwise";
}

OPERATION(find) {
  auto const found = zu::file_system::find(in.folder.wide(from_utf8(a.at(0))), from_utf8(a.at(1)));
  if (!found) return "no folder";
  std::wstring text;
  for (auto const& name : *found) text.append(name).append(L"|");
  return to_utf8(text);
}

OPERATION(property) {
  auto const parsed = Tzu_prp_val::parse(a.at(0));
  std::ostringstream text;
  text << parsed.get_name() << ": " << parsed.get_as_int(42) << " "
       << zu::number::format_double(parsed.get_as_dbl(42)) << " " << parsed.get_as_bool(false)
       << parsed.get_as_bool(true);
  return text.str();
}

OPERATION(known) {
  auto const& row = zu::known_systems.at(std::stoul(a.at(0)));
  return a.at(1) == "wkt" ? row.wkt : row.proj4;
}

std::vector<double> numbers_of(std::string const& text) {
  std::istringstream stream(text);
  std::vector<double> numbers;
  for (double one = 0; stream >> one;) numbers.push_back(one);
  return numbers;
}

// To twelve digits. The next ones depend on the mathematics library.
std::string text_of(std::vector<double> const& numbers) {
  std::string text;
  for (double const one : numbers)
    text.append(text.empty() ? "" : " ").append(zu::number::format_double(one));
  return text;
}

// A point from one system to another. An empty text is the other one's geographic system.
OPERATION(transform) {
  Tzu_reproj_xy reproj;
  bool const made = a.at(0).empty()   ? reproj.init_from_latlong(a.at(1).c_str())
                    : a.at(1).empty() ? reproj.init_to_latlong(a[0].c_str())
                                      : reproj.init(a[0].c_str(), a[1].c_str());
  auto point = numbers_of(a.at(2));
  bool const done = reproj.apply(&point.at(0), &point.at(1));
  if (!made) return done || text_of(point) != a[2] ? "moved all the same" : "no operation";
  return done ? text_of(point) : "failed";
}

// A name, a system, degrees and metres; the last two have to agree to the published
// digits.
OPERATION(there_and_back) {
  Tzu_reproj_xy reproj;
  if (!reproj.init_from_latlong(a.at(1).c_str())) return "no operation";
  auto const degrees = numbers_of(a.at(2));
  auto const metres = numbers_of(a.at(3));
  auto there = degrees;
  auto back = metres;
  reproj.apply(&there.at(0), &there.at(1));
  reproj.apply(&back.at(0), &back.at(1), reproj_direction::backward);
  bool const is_near = std::hypot(there[0] - metres.at(0), there[1] - metres.at(1)) <= 0.01 &&
                       std::hypot(back[0] - degrees.at(0), back[1] - degrees.at(1)) <= 3e-7;
  return is_near ? "as published" : text_of(there) + ", back " + text_of(back);
}

// As the dialog searches when its list is whole.
std::vector<zu::listed_system const*> find_systems(std::string const& text, bool deprecated) {
  zu::system_finder::start();
  zu::system_finder::finish();
  zu::system_finder::has_more();
  return zu::system_finder::find(from_utf8(text), deprecated);
}

// The id of what comes first.
OPERATION(search) {
  auto const rows = find_systems(a.at(0), false);
  return rows.empty() ? "" : rows.front()->id;
}

// Takes the first row, deprecated ones included, and gives what the dialog tells of it.
OPERATION(take) {
  speak(a.at(0));
  auto const rows = find_systems(a.at(1), true);
  std::string definition;
  std::wstring const text = zu::tell_row(*rows.at(0)) + L"\n" +
                            zu::tell_system(*rows[0], catalogue_of(in).editor.lists(), definition);
  zu::system_finder::remember(*rows[0]);
  return to_utf8(text);
}

OPERATION(box) {
  Tzu_reproj_d2 d2;
  auto const limits = numbers_of(a.at(2));
  Tzu_box_d2 now{limits.at(0), limits.at(1), limits.at(2), limits.at(3)};
  if (!d2.init_ex(a.at(0).c_str(), a.at(1).c_str())) return "no operation";
  bool const done = d2.apply_box_approx(&now);
  return (done ? "" : "failed ") + text_of({now.min_x, now.min_y, now.max_x, now.max_y});
}

}  // namespace
