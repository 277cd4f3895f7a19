#include "comparisons.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>
#include <stdexcept>

#include "basic/file.h"
#include "basic/str.h"
#include "conversions.h"
#include "error.h"
#include "pj_edit/definition_check.h"
#include "proj4/proj4_str.h"
#include "proj4/reading_report.h"
#include "reproj/system_distance.h"
#include "systems.h"
#include "terminal.h"
#include "text/own_texts.h"
#include "text/strconv.h"
#include "text_lines.h"

namespace comparisons {
namespace {

// The pieces of a definition by key; a key that is not among the parameters keeps its
// text.
std::map<std::string, std::string> pieces_of(std::string const& definition) {
  std::map<std::string, std::string> pieces;
  Tzu_proj4_str set;
  set.set(definition.c_str());
  set.decompose();
  for (Tzu_proj4_param* const param : set.get_list())
    if (param->get_def()) pieces[param->get_name()] = zu::str::trim(param->get_out_str());
  for (zu::reading_loss const& loss : zu::find_reading_losses(definition)) {
    if (loss.reason != zu::loss_reason::unknown_key) continue;
    auto const name = zu::str::divide_str(std::string_view(loss.piece).substr(1), '=').name;
    pieces.emplace(name, loss.piece);
  }
  return pieces;
}

constexpr std::array<char const*, 5> kind_names{"reading", "operation", "limits", "dialog", "prj"};

struct Tsubject {
  std::string definition;  // in the library's encoding
  std::string given;       // UTF-8
};

bool is_file(std::string const& text) {
  return text.find('=') == std::string::npos && text.find('[') == std::string::npos &&
         zu::file::exists(terminal::to_wide(text));
}

Tsubject subject_of(std::string const& text) {
  std::string const whole = is_file(text) ? conversions::load(text) : text;
  std::string const definition = systems::definition_in_any(whole);
  return {terminal::to_library(definition),
          zu::strconv::to_utf8(terminal::to_wide(systems::known_to_proj(whole)))};
}

std::string utf8(std::wstring const& text) { return zu::strconv::to_utf8(text); }

std::string as_json(std::string const& text, std::vector<zu::check_finding> const& findings) {
  nlohmann::ordered_json told = nlohmann::ordered_json::array();
  for (zu::check_finding const& finding : findings) {
    told.push_back({{"kind", kind_names.at(static_cast<std::size_t>(finding.kind))},
                    {"text", utf8(finding.sentence)}});
    // Digits after the millimetres differ from machine to machine.
    if (finding.metres) told.back()["metres"] = std::round(*finding.metres * 1e3) / 1e3;
  }
  nlohmann::ordered_json const line{{"definition", utf8(terminal::to_wide(text))},
                                    {"findings", told}};
  return line.dump() + '\n';
}

answers::answer check_one(std::string const& text, bool json, zu::Tzu_pj_editor& editor) try {
  Tsubject const subject = subject_of(text);
  auto const findings = zu::check_definition(subject.definition, subject.given, editor);
  answers::answer given;
  if (!findings.empty()) given.status = exit_some_failed;
  if (json) {
    given.output = as_json(text, findings);
  } else {
    for (zu::check_finding const& finding : findings)
      given.notes.push_back({answers::note_kind::finding, terminal::from_wide(finding.sentence)});
  }
  return given;
} catch (std::runtime_error const& error) {
  return {{{answers::note_kind::error, error.what()}}, {}, exit_error};
}

}  // namespace

int check(std::vector<std::string> const& texts, bool json, text_lines::Tsetting const& setting) {
  int status = 0;
  auto const print = [&](answers::answer const& given, std::string const& where) {
    text_lines::print(given, where, *setting.env);
    status = std::max(status, given.status);
  };
  auto const make = [json] {
    auto const editor = std::make_shared<zu::Tzu_pj_editor>(zu::catalogue_lists::shipped());
    auto const check_new = [json, editor](std::string const& text) {
      return check_one(text, json, *editor);
    };
    auto const remembered = answers::remembering(check_new);
    return [=](std::string const& line) -> answers::answer {
      std::string const text(zu::str::trim(line));
      if (text.empty()) return {};
      // A file may change.
      return is_file(text) ? check_new(text) : remembered(text);
    };
  };
  answers::Tqueue queue(setting.jobs, make, print);
  for (std::string const& text : texts) {
    if (text == "-")
      text_lines::add_lines(queue);
    else
      queue.add(text, texts.size() == 1 ? "" : text_lines::in_one_line(text) + ": ");
  }
  queue.finish();
  return status;
}

int diff(std::ostream& out, std::string const& first, std::string const& second) {
  auto const left = pieces_of(terminal::to_library(systems::definition_in_any(first)));
  auto const right = pieces_of(terminal::to_library(systems::definition_in_any(second)));
  bool differ = false;
  auto const print = [&](std::string const& one, std::string const& other) {
    differ = true;
    out << terminal::from_library(one.empty() ? "-" : one) << '\t'
        << terminal::from_library(other.empty() ? "-" : other) << '\n';
  };
  for (auto const& [key, piece] : left) {
    auto const found = right.find(key);
    std::string const other = found == right.end() ? "" : found->second;
    if (other != piece) print(piece, other);
  }
  for (auto const& [key, piece] : right)
    if (!left.contains(key)) print("", piece);

  auto const system_of = [](std::string const& text) {
    return zu::strconv::to_utf8(terminal::to_wide(systems::known_to_proj(text)));
  };
  std::string const system = system_of(first);
  auto const area = zu::area_of_system(system);
  auto const distance = area ? zu::compare_systems(system, system_of(second), *area) : std::nullopt;
  if (!distance) throw Terror("PROJ cannot compare coordinates of the two");
  auto const print_distance = [&out](zu::own_text which, zu::moved_place const& place) {
    out << terminal::from_wide(
               zu::fill_own_text(which, zu::tell_metres(place), zu::tell_place(place)))
        << '\n';
  };
  print_distance(zu::own_text::least_distance, distance->least);
  print_distance(zu::own_text::most_distance, distance->most);
  return differ || distance->most.metres > zu::same_place_metres ? exit_some_failed : 0;
}

}  // namespace comparisons
