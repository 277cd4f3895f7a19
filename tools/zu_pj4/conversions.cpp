#include "conversions.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>
#include <new>
#include <set>
#include <system_error>
#include <utility>

#include "answers.h"
#include "basic/file.h"
#include "basic/file_system.h"
#include "basic/path.h"
#include "basic/str.h"
#include "error.h"
#include "interchange/add_file.h"
#include "interchange/file_types.h"
#include "interchange/foreign_messages.h"
#include "interchange/known_system_index.h"
#include "interchange/proj4_conv.h"
#include "systems.h"
#include "terminal.h"
#include "text/strconv.h"
#include "text/string_adapter.h"
#include "text_lines.h"
#include "zu_pj_edit/zu_pj4_layer.h"

namespace conversions {
namespace {

using text_lines::in_one_line;
using text_lines::in_quotes;

// Collects the messages of GDAL and PROJ during a conversion.
class Treasons {
 public:
  Treasons() : scope_([this](std::string_view text) { add(text); }) {}
  // Returns the messages in one line after ": ", or nothing, and forgets them.
  std::string take() { return std::exchange(text_, {}); }

 private:
  void add(std::string_view text) {
    std::string const line =
        in_one_line(terminal::from_wide(zu::strconv::from_utf8(std::string(text))));
    if (!line.empty() && text_.find(line) == std::string::npos)
      text_.append(text_.empty() ? ": " : "; ").append(line);
  }

  std::string text_;
  zu::foreign_messages::Tsink_scope scope_;
};

// Puts the text that `produce` feeds into `text`; false when it fails.
using producer = std::function<bool(Izu_string_adp*)>;

bool collect(producer const& produce, std::wstring& text) {
  Tzu_std_wstring_adapter target(&text);
  zu::string_adp const adapter(target);
  return produce(adapter.get());
}

using convert_text = std::function<bool(wchar_t const*, Izu_string_adp*)>;

// Converts a text; throws `failure` with the reason.
std::string converted(std::string const& text, convert_text const& convert,
                      std::string const& failure) {
  Treasons reasons;
  std::wstring result;
  std::wstring const wide = terminal::to_wide(text);
  auto const produce = [&](Izu_string_adp* adapter) { return convert(wide.c_str(), adapter); };
  if (!collect(produce, result)) throw Terror(failure + reasons.take());
  return terminal::from_wide(result);
}

std::string no_esri(std::string const& definition) {
  return "cannot convert " + in_quotes(definition) + " to ESRI WKT";
}

// The definition with only what is read of one of its pieces.
std::string with_loss(std::string_view definition, zu::reading_loss const& loss) {
  std::string text(definition);
  std::size_t at = text.find(loss.piece);
  // The piece may also begin another one: "+lon_0=3" and "+lon_0=37".
  auto const is_whole = [&] {
    std::size_t const end = at + loss.piece.size();
    return end == text.size() || text[end] == '+' || zu::str::trim(text.substr(end, 1)).empty();
  };
  while (at != std::string::npos && !is_whole()) at = text.find(loss.piece, at + 1);
  if (at == std::string::npos) return text;
  std::string const key = loss.piece.substr(0, loss.piece.find('=') + 1);
  return text.replace(at, loss.piece.size(), loss.kept.empty() ? "" : key + loss.kept);
}

// What ESRI WKT holds of a definition, as a definition. Two texts of WKT may differ only in the
// name that GDAL gives to an unknown datum.
std::wstring kept_in_wkt(std::string_view definition) {
  auto const convert = [](convert_text const& by, std::wstring const& text) {
    std::wstring result;
    collect([&](Izu_string_adp* adapter) { return by(text.c_str(), adapter); }, result);
    return result;
  };
  return convert(&zu_pj4_import_esri_prj,
                 convert(&zu_pj4_export_esri, zu::strconv::from_system(definition)));
}

// GDAL reads some pieces that the library does not read. These are not lost in ESRI WKT.
void tell_losses_in_wkt(std::string const& definition, Tlosses const& losses) {
  std::string const text = terminal::to_library(definition);
  losses.tell(text, [&text](zu::reading_loss const& loss) {
    return kept_in_wkt(text) == kept_in_wkt(with_loss(text, loss));
  });
}

void write_file(std::string const& definition, std::string const& name) {
  std::wstring const wide = terminal::to_wide(name);
  std::wstring const text = terminal::to_wide(definition);
  zu::file_type const& type = zu::type_of(zu::kind_of_file(wide));
  // A definition is written in the system's code page; this throws where that is not possible.
  if (!type.has_wkt) terminal::to_library(definition);
  Treasons reasons;
  if (type.save(wide, text)) return;
  if (!type.has_wkt) throw Terror("cannot write " + name);
  std::string const reason = reasons.take();
  // Finds out whether the conversion failed or the write after it.
  std::wstring ignored;
  auto const produce = [&](Izu_string_adp* adapter) {
    return zu_pj4_export_esri(text.c_str(), adapter) != 0;
  };
  throw Terror(collect(produce, ignored) ? "cannot write " + name : no_esri(definition) + reason);
}

// The text of its exception does not name the file.
std::string read_file(std::string const& name, zu::file_kind kind) {
  std::wstring const wide = terminal::to_wide(name);
  if (!zu::file::exists(wide)) throw Terror("no such file");
  zu::file_type const& type = zu::type_of(kind);
  Treasons reasons;
  std::wstring definition;
  auto const produce = [&](Izu_string_adp* adapter) { return type.load(wide, adapter); };
  if (collect(produce, definition) && !definition.empty()) return terminal::from_wide(definition);
  if (!zu::file::open(wide, "rb")) throw Terror("cannot be read");
  throw Terror((type.has_wkt ? "no ESRI WKT" : "no PROJ.4 definition") + reasons.take());
}

std::string load_file(std::string const& name, zu::file_kind kind) try {
  return read_file(name, kind);
} catch (Terror const& error) {
  throw Terror(name + ": " + error.what());
}

std::wstring identity_of(std::string const& name) {
  return zu::file_system::identity(terminal::to_wide(name));
}

bool is_link(std::string const& name) {
  std::error_code ignored;
  return std::filesystem::is_symlink(terminal::to_path(name), ignored);
}

// The name of the file that a conversion makes.
std::string result_of(std::string const& name, std::string const& kind, std::string const& folder) {
  std::wstring const wide = terminal::to_wide(name);
  std::wstring const made =
      folder.empty() ? wide
                     : zu::path::join(terminal::to_wide(folder), zu::path::file_name_of(wide));
  return terminal::from_wide(zu::path::replace_extension(made, terminal::to_wide("." + kind)));
}

// Why a file is not converted: a run must not overwrite its own inputs and outputs. Empty
// when there is no reason.
std::string refusal_of(std::string const& name, std::string const& target,
                       std::wstring const& identity, std::set<std::wstring> const& inputs,
                       std::map<std::wstring, std::string> const& outputs) {
  if (inputs.contains(identity))
    return identity == identity_of(name)
               ? "would overwrite itself"
               : "would overwrite " + target + ", which is to be converted, too";
  auto const made = outputs.find(identity);
  return made == outputs.end()
             ? ""
             : "would overwrite " + target + ", which was made of " + made->second;
}

void convert_file(std::string const& name, std::string const& target, Tlosses const& losses) try {
  std::string const definition = read_file(name, zu::kind_of_file(terminal::to_wide(name)));
  save(definition, target, losses);
} catch (std::bad_alloc const& error) {
  // The other files may be smaller.
  throw Terror(error.what());
}

std::string definition_in_esri(std::string const& text) {
  return converted(text, &zu_pj4_import_esri_prj, "standard input: no ESRI WKT");
}

}  // namespace

int to_esri(std::vector<std::string> const& definitions, text_lines::Tsetting const& setting) {
  auto const make = [](Tlosses const& losses) {
    return [losses](std::string const& text) {
      std::string const definition = systems::definition_of(text);
      std::string wkt = converted(definition, &zu_pj4_export_esri, no_esri(text));
      tell_losses_in_wkt(definition, losses);
      return wkt;
    };
  };
  return text_lines::print_each(definitions, setting, text_lines::on_failure::go_on,
                                text_lines::equal_texts::remember, make);
}

int import(std::vector<std::string> const& texts, text_lines::Tsetting const& setting) {
  auto const make = [](Tlosses const& losses) {
    return [losses](std::string const& text) {
      if (std::string known = systems::known_to_proj(text); known != text) return known;
      zu::proj4_conv converter;
      auto const by_converter = [&converter](wchar_t const* wide, Izu_string_adp* adapter) {
        return converter.import_crs(wide, adapter);
      };
      std::string definition = converted(text, by_converter, "cannot import " + in_quotes(text));
      losses.tell_name_taken(converter.get_name_taken(), {});
      return definition;
    };
  };
  return text_lines::print_each(texts, setting, text_lines::on_failure::go_on,
                                text_lines::equal_texts::remember, make);
}

std::string from_esri(std::string const& name) {
  return name == "-" ? definition_in_esri(text_lines::read_all())
                     : load_file(name, zu::file_kind::esri);
}

int convert(std::vector<std::string> const& names, std::string const& kind,
            std::string const& folder, text_lines::Tsetting const& setting) {
  if (!folder.empty() && !zu::file_system::make_folders(terminal::to_wide(folder)))
    throw Terror("cannot make the folder " + folder);
  auto const target_of = [&](std::string const& name) { return result_of(name, kind, folder); };
  // The inputs, and the outputs, each with its input.
  std::set<std::wstring> inputs;
  std::map<std::wstring, std::string> outputs;
  for (std::string const& name : names) inputs.insert(identity_of(name));

  std::size_t done = 0;
  std::size_t failed = 0;
  int status = 0;
  auto const print = [&](answers::answer const& given, std::string const& name) {
    text_lines::print(given, name + ": ", *setting.env);
    if (given.status != 0) ++failed;
    status = std::max(status, given.status);
    setting.env->wait(++done, names.size(), "converting");
  };
  auto const take = [&](answers::answer const& given, std::string const& name) {
    if (given.status != 0) outputs.erase(identity_of(target_of(name)));
    print(given, name);
  };
  auto const make = [&](Tlosses const& losses) {
    return [&, losses](std::string const& name) {
      convert_file(name, target_of(name), losses);
      return std::string();
    };
  };
  answers::Tqueue queue(
      setting.jobs, [&] { return text_lines::make_answerer(*setting.losses, make); }, take);
  for (std::string const& name : names) {
    std::string const target = target_of(name);
    std::wstring identity = identity_of(target);
    // An earlier conversion may fail, or make the file that a link leads to.
    if (outputs.contains(identity) || is_link(target)) {
      queue.finish();
      identity = identity_of(target);
    }
    std::string const reason = refusal_of(name, target, identity, inputs, outputs);
    if (reason.empty()) {
      outputs.emplace(identity, name);
      queue.add(name, name);
    } else {
      queue.finish();
      print({{{answers::note_kind::error, reason}}, {}, exit_some_failed}, name);
    }
  }
  queue.finish();
  setting.env->finished(std::to_string(done - failed) + " of " + std::to_string(done) +
                        " files converted");
  if (failed != 0)
    setting.env->error(std::to_string(failed) + " of " + std::to_string(done) +
                       " files not converted");
  return status;
}

std::string load(std::string const& name) {
  if (name != "-") return load_file(name, zu::kind_of_file(terminal::to_wide(name)));
  std::string const text = text_lines::read_all();
  std::wstring definition;
  auto const produce = [&](Izu_string_adp* adapter) {
    return Tzu_add_file::load_pj4_text(text, adapter);
  };
  if (collect(produce, definition) && !definition.empty()) return terminal::from_wide(definition);
  return definition_in_esri(text);
}

void save(std::string const& definition, std::string const& name, Tlosses const& losses) {
  if (zu::type_of(zu::kind_of_file(terminal::to_wide(name))).has_wkt)
    tell_losses_in_wkt(definition, losses);
  else
    losses.tell(terminal::to_library(definition));
  write_file(definition, name);
}

std::vector<std::string> file_kinds() {
  std::vector<std::string> kinds;
  for (zu::file_type const& type : zu::file_types())
    kinds.push_back(terminal::from_wide(std::wstring(type.extension.substr(1))));
  return kinds;
}

void list_known(std::ostream& out) {
  std::size_t row = 0;
  for (zu::known_system const& system : zu::known_systems)
    out << row++ << '\t' << known_system_name(system) << '\t'
        << (system.confirmed ? "confirmed\t" : "unconfirmed\t")
        << (system.confirmed ? system.proj4 : "") << '\n';
}

bool show_known(std::ostream& out, std::string const& definition_or_name) {
  for (zu::known_system const& system : zu::known_systems) {
    if (zu::str::trim_stricmp(known_system_name(system), definition_or_name) != 0) continue;
    if (!system.confirmed)
      throw Terror("nobody has published the numbers of " + definition_or_name);
    out << system.proj4 << '\n' << system.wkt << '\n';
    return true;
  }
  Tzu_proj4_str set;
  set.set(definition_or_name.c_str());
  set.decompose();
  zu::known_system const* const system = zu::find_known_system(set);
  if (system != nullptr) out << known_system_name(*system) << '\n';
  return system != nullptr;
}

}  // namespace conversions
