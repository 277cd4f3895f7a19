// What the files of tests/cases/test_cases do with their texts.

#include <algorithm>
#include <cmath>
#include <memory>
#include <sstream>
#include <stdexcept>

#include "basic/file_system.h"
#include "basic/ini.h"
#include "basic/number.h"
#include "basic/path.h"
#include "basic/prp_val.h"
#include "basic/str.h"
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
#include "proj4/proj4_str_correct.h"
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
std::string normalize(scope& /*in*/, words const& a) {
  std::string const once = definition(a.at(0)).composed();
  std::string const again = definition(once).composed();
  return again == once ? once : once + " and then " + again;
}

// For PROJ, and after that in the ordinary form.
std::string normalize_for_proj(scope& /*in*/, words const& a) {
  definition set(a.at(0));
  set.compose_for_proj4();
  std::string const text = set.get();
  return text + " | " + set.composed();
}

// Each loss: the piece, why, what is kept, and "!" where points move.
std::string losses(scope& /*in*/, words const& a) {
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

std::string kinds(scope& /*in*/, words const& a) {
  definition const set(a.at(0));
  return std::string(set.is_sphere() ? "sphere " : "") + (set.is_valid() ? "valid " : "") +
         (set.get_is_long_lat() ? "geographic " : "");
}

std::string compare(scope& /*in*/, words const& a) {
  definition left(a.at(0));
  definition const right(a.at(1));
  left.set_is_lon_wrap(false);
  bool const equal = left.equal(right);
  return equal != right.equal(left) ? "one way" : equal ? "equal" : "different";
}

std::string geographic(scope& /*in*/, words const& a) {
  definition set(a.at(0));
  set.set_is_long_lat();
  return set.composed();
}

// The host's own language is taken over first.
void speak(std::string const& language) {
  Tzu_rc::get_auto_lang();
  Tzu_rc::set_lang(language == "en" ? 0 : language == "ru" ? 1 : 2);
}

std::string interface(scope& /*in*/, words const& a) {
  speak(a.at(0));
  return to_utf8(
      zu::strconv::from_interface(Tzu_rc::get_str(std::stoi(a.at(1)), std::stoi(a.at(2)))));
}

// With "; " for the ends of the lines.
std::string describe(scope& /*in*/, words const& a) {
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

std::string summarize(scope& /*in*/, words const& a) {
  speak(a.at(0));
  return fed([&](auto* to) { return Tzu_short_text_helper::get_short_text(a.at(1).c_str(), to); });
}

// All parts, also those that the summary leaves out. Nothing of an earlier definition is
// left.
std::string parts(scope& /*in*/, words const& a) {
  static Tzu_pj4_parts read;
  speak("en");
  if (!read.init(a.at(0).c_str())) return read.get_def() == nullptr ? "none" : "a row of before";
  return read.get_pj4_caption() + read.get_pj4_name() + read.get_pj4_zone();
}

case_file::operation converted_by(int (*convert)(wchar_t const*, Izu_string_adp*)) {
  return [convert](scope& /*in*/, words const& a) {
    return fed([&](auto* to) { return convert(from_utf8(a.at(0)).c_str(), to); });
  };
}

std::string patch_for_gdal(scope& /*in*/, words const& a) {
  return Tzu_proj4_str_correct().patch_proj4_for_gdal(a.at(0).c_str());
}

// The names that ESRI WKT has for seven numbers and an ellipsoid, and the definition that
// is read from it.
std::string names_in_esri(scope& /*in*/, words const& a) {
  auto const wkt = fed([&](auto* to) {
    auto const definition = "+proj=longlat +towgs84=" + a.at(0) + " " + a.at(1) + " +no_defs";
    return zu_pj4_export_esri(from_utf8(definition).c_str(), to);
  });
  std::string text;
  for (char const* tag : {"GEOGCS", "DATUM", "SPHEROID"})
    text += zu::proj4_conv::extract_wkt_tag(wkt, tag) + " ";
  return text + fed([&](auto* to) { return zu_pj4_import_esri_prj(from_utf8(wkt).c_str(), to); });
}

// The second text is the file's content.
std::string load(scope& in, words const& a) {
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

std::string table(scope& in, words const& a) {
  std::istringstream lines(in.input);
  words rows;
  for (std::string row; std::getline(lines, row);) rows.push_back(row);
  core_test::write_table(in.folder.file(a.at(0) + ".dbf"), core_test::columns_of(a[0]), rows);
  return "";
}

std::string use_tables(scope& in, words const& a) {
  Tzu_pj_dbf::set_catalogue_folder(in.folder.file(a.empty() ? "" : a[0]));
  in.state = std::make_shared<catalogue>();
  Tzu_pj_dbf::set_catalogue_folder("");
  auto const& lists = catalogue_of(in).editor.lists();
  std::ostringstream text;
  text << lists.usual.get_size() << " usual, " << lists.zonal.get_size() << " zonal, "
       << lists.datums.get_size() << " datums, " << lists.ellipses.get_size() << " ellipsoids";
  return text.str();
}

std::string apply(scope& in, words const& a) {
  auto& editor = catalogue_of(in).editor;
  editor.set_proj4_string(a.at(0).c_str());
  return editor.get_proj4_string();
}

std::string applied(scope& in, words const& /*a*/) {
  return catalogue_of(in).editor.get_proj4_string();
}

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

std::string opened(scope& in, words const& a) {
  catalogue_of(in).editor.set_proj4_string(a.at(0).c_str());
  return shown(in);
}

// A user's choices: "usual 4", "zonal Banded", "zone 8", "number k_0 3", "shift 0 1.5".
std::string choose(scope& in, words const& a) {
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
std::string step(scope& in, words const& a) {
  auto& [projections, datums, editor, history] = catalogue_of(in);
  editor.set_step(a.at(0) == "undo" ? history.undo() : history.redo());
  return std::string(history.can_undo() ? "<" : "") + (history.can_redo() ? "> " : " ") +
         editor.get_proj4_string();
}

// Chooses so many numbers, and counts how many can be undone.
std::string many_steps(scope& in, words const& a) {
  auto& [projections, datums, editor, history] = catalogue_of(in);
  editor.choose_datum(zu::edit_state::custom_datum);
  history.start(editor.step());
  for (int i = 1; i <= std::stoi(a.at(0)); ++i) editor.set_shift(0, i);
  int undone = 0;
  for (; history.can_undo(); ++undone) editor.set_step(history.undo());
  return std::to_string(undone);
}

// The note on a paste, or the new definition.
std::string paste(scope& in, words const& a) {
  auto& editor = catalogue_of(in).editor;
  speak(a.at(0));
  auto const result = zu::paste_definition(editor, from_utf8(a.at(1)));
  return to_utf8(result.note) + (result.taken ? editor.get_proj4_string() : "");
}

std::string angle(scope& /*in*/, words const& a) {
  auto const value = zu::read_angle(from_utf8(a.at(0)));
  return value ? zu::number::format_double(*value) : "none";
}

// A definition, a way and a point of it.
std::string try_point(scope& /*in*/, words const& a) {
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
std::string tip(scope& in, words const& a) {
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
std::string note(scope& in, words const& a) {
  auto& [projections, datums, editor, history] = catalogue_of(in);
  speak(a.at(0));
  if (a.size() > 1) editor.set_proj4_string(a[1].c_str());
  auto faults = projections.get_faults();
  std::ranges::copy(datums.get_faults(), std::back_inserter(faults));
  return in.without_folder(to_utf8(zu::compose_note(L"", zu::tell_catalogue({}, faults), editor)));
}

// The note on a file after loading it, or after saving a definition in it.
std::string file_note(scope& in, words const& a) {
  speak(a.at(0));
  std::wstring const name = in.folder.wide(from_utf8(a.at(1)));
  auto const kind = zu::kind_of_file(name);
  return to_utf8(zu::compose_note(a.size() > 2 ? zu::save_definition(name, kind, a[2])
                                               : zu::load_definition(name, kind).failure,
                                  L"", catalogue_of(in).editor));
}

std::string zonal_names(scope& in, words const& /*a*/) {
  auto const& editor = catalogue_of(in).editor;
  std::string text;
  for (auto const& name : editor.zonal_names()) {
    text += name;
    for (int const zone : editor.zones_of(" " + name)) text += " " + std::to_string(zone);
    text += "\n";
  }
  return text;
}

// A value in brackets is there, but is not to be used.
template <class Param, class Value>
void add_param(std::ostringstream& text, std::string_view key, Param const& param,
               Value const& value) {
  if (!param.get_use_proj4() && !param.get_def_default() && value == Value()) return;
  text << "; " << key << (param.get_use_proj4() ? "" : ", not of PROJ")
       << (param.get_show() ? ", shown" : "");
  if (param.get_def_default()) text << ", is " << value;
  if (!param.get_def_default() && value != Value()) text << ", (" << value << ")";
}

// All that a row of the usual or the zonal projections says.
std::string projection(scope& in, words const& a) {
  auto const& lists = catalogue_of(in).editor.lists();
  auto const& row = (a.at(0) == "usual" ? lists.usual : lists.zonal).get(std::stoul(a.at(1)));
  std::ostringstream text;
  text << row.get_index() << ": " << row.get_caption() << "/" << row.get_add_caption() << "/"
       << row.get_prj4_name();
  add_param(text, "south", row.get_south(), row.get_south().get_default());
  add_param(text, "zone", row.get_zone(), row.get_zone().get_default());
  add_param(text, "zone_name", row.get_zone_name(), row.get_zone_name().get_default());
  add_param(text, "units", row.get_units(), row.get_units().get_default());
  add_param(text, "datum", row.get_datum(), row.get_datum().get_default());
  for (std::size_t i = 0; i < proj_numbers_count; ++i) {
    auto const number = static_cast<proj_number>(i);
    auto const& param = row.get_number(number);
    add_param(text, proj_number_key(number), param, param.get_default());
    if (param.get_def_min() || param.get_min() != 0) text << ", from " << param.get_min();
    if (param.get_def_max() || param.get_max() != 0) text << ", to " << param.get_max();
  }
  return text.str();
}

std::string datums(scope& in, words const& /*a*/) {
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

std::string decode(scope& /*in*/, words const& a) {
  return to_utf8(zu::strconv::decode(encoding_of(a.at(0)), a.at(1)));
}

std::string encode(scope& /*in*/, words const& a) {
  return zu::strconv::encode(encoding_of(a.at(0)), from_utf8(a.at(1)));
}

// There and back.
std::string page(scope& in, words const& a) {
  std::string const text = decode(in, a);
  return encode(in, {a.at(0), text}) == a.at(1) ? text : text + ", which is written otherwise";
}

std::string path_parts(scope& /*in*/, words const& a) {
  std::wstring const path = from_utf8(a.at(0));
  std::wstring text;
  for (auto const part :
       {zu::path::folder_of(path), zu::path::stem_of(path), zu::path::extension_of(path)})
    text.append(L"(").append(part).append(L")");
  return to_utf8(text + zu::path::replace_extension(path, L".prj"));
}

std::string find_files(scope& in, words const& a) {
  auto const found = zu::file_system::find(in.folder.wide(from_utf8(a.at(0))), from_utf8(a.at(1)));
  if (!found) return "no folder";
  std::wstring text;
  for (auto const& name : *found) text.append(name).append(L"|");
  return to_utf8(text);
}

std::string property(scope& /*in*/, words const& a) {
  auto const parsed = Tzu_prp_val::parse(a.at(0));
  std::ostringstream text;
  text << parsed.get_name() << ": " << parsed.get_as_int(42) << " "
       << zu::number::format_double(parsed.get_as_dbl(42)) << " " << parsed.get_as_bool(false)
       << parsed.get_as_bool(true);
  return text.str();
}

std::string ini_value(scope& in, words const& a) {
  Tzu_ini ini;
  ini.load_from_file(in.folder.wide(from_utf8(a.at(0))));
  return ini.get_as_str(a.at(1), a.at(2), "none");
}

std::string scan_int(scope& /*in*/, words const& a) {
  auto const value = zu::number::scan_int(a.at(0));
  return value ? std::to_string(*value) : "none";
}

std::string split(scope& /*in*/, words const& a) {
  std::string text;
  for (auto const piece : zu::str::split(a.at(0), a.at(1))) text.append("(").append(piece) += ")";
  auto const [name, value] = zu::str::divide_str(a[0], a[1].at(0));
  return text.append(" ").append(name).append(":").append(value);
}

std::string known(scope& /*in*/, words const& a) {
  auto const& row = zu::known_systems.at(std::stoul(a.at(0)));
  return a.at(1) == "wkt" ? row.wkt : row.proj4;
}

std::string known_from_esri(scope& /*in*/, words const& a) {
  auto const* const wkt = zu::known_systems.at(std::stoul(a.at(0))).wkt;
  return fed([&](auto* to) { return zu_pj4_import_esri_prj(from_utf8(wkt).c_str(), to); });
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
std::string transform(scope& /*in*/, words const& a) {
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
std::string there_and_back(scope& /*in*/, words const& a) {
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
std::string search(scope& /*in*/, words const& a) {
  auto const rows = find_systems(a.at(0), false);
  return rows.empty() ? "" : rows.front()->id;
}

// Takes the first row, deprecated ones included, and gives what the dialog tells of it.
std::string take(scope& in, words const& a) {
  speak(a.at(0));
  auto const rows = find_systems(a.at(1), true);
  std::string definition;
  std::wstring const text = zu::tell_row(*rows.at(0)) + L"\n" +
                            zu::tell_system(*rows[0], catalogue_of(in).editor.lists(), definition);
  zu::system_finder::remember(*rows[0]);
  return to_utf8(text);
}

std::string box(scope& /*in*/, words const& a) {
  Tzu_reproj_d2 d2;
  auto const limits = numbers_of(a.at(2));
  Tzu_box_d2 now{limits.at(0), limits.at(1), limits.at(2), limits.at(3)};
  if (!d2.init_ex(a.at(0).c_str(), a.at(1).c_str())) return "no operation";
  bool const done = d2.apply_box_approx(&now);
  return (done ? "" : "failed ") + text_of({now.min_x, now.min_y, now.max_x, now.max_y});
}

}  // namespace

case_file::operations const& case_file::of_program() {
  static operations const all{{"search", &search},
                              {"take", &take},
                              {"step", &step},
                              {"many_steps", &many_steps},
                              {"paste", &paste},
                              {"tip", &tip},
                              {"angle", &angle},
                              {"try_point", &try_point},
                              {"normalize", &normalize},
                              {"normalize_for_proj", &normalize_for_proj},
                              {"losses", &losses},
                              {"kinds", &kinds},
                              {"compare", &compare},
                              {"geographic", &geographic},
                              {"describe", &describe},
                              {"summarize", &summarize},
                              {"parts", &parts},
                              {"interface", &interface},
                              {"to_esri", converted_by(&zu_pj4_export_esri)},
                              {"from_esri", converted_by(&zu_pj4_import_esri_prj)},
                              {"import", converted_by(&zu_pj4_import_crs)},
                              {"names_in_esri", &names_in_esri},
                              {"patch_for_gdal", &patch_for_gdal},
                              {"load", &load},
                              {"table", &table},
                              {"use_tables", &use_tables},
                              {"apply", &apply},
                              {"applied", &applied},
                              {"open", &opened},
                              {"choose", &choose},
                              {"note", &note},
                              {"file_note", &file_note},
                              {"zonal_names", &zonal_names},
                              {"projection", &projection},
                              {"datums", &datums},
                              {"page", &page},
                              {"decode", &decode},
                              {"encode", &encode},
                              {"path_parts", &path_parts},
                              {"find", &find_files},
                              {"property", &property},
                              {"ini_value", &ini_value},
                              {"scan_int", &scan_int},
                              {"split", &split},
                              {"known", &known},
                              {"known_from_esri", &known_from_esri},
                              {"transform", &transform},
                              {"there_and_back", &there_and_back},
                              {"box", &box}};

  return all;
}
