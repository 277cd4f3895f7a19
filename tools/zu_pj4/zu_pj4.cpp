// The command-line program: the functions of the library for a shell.

#include <sqlite3.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <functional>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "answers.h"
#include "basic/env.h"
#include "basic/float_environment.h"
#include "catalogue/pj_dbf.h"
#include "catalogue_listing.h"
#include "comparisons.h"
#include "conversions.h"
#include "edit.h"
#include "error.h"
#include "losses.h"
#include "memory.h"
#include "pj_edit/edit_rules.h"
#include "proj4/proj4_str.h"
#include "systems.h"
#include "terminal.h"
#include "text/rc.h"
#include "text_lines.h"
#include "transformations.h"
#include "zu_pj_edit/version.h"

namespace {

using convert_definition = std::function<std::string(std::string const&)>;

// Prints the result of a function for each definition; both are in the library's encoding.
// `make` makes the function for one thread.
int print_each(std::vector<std::string> const& definitions, text_lines::Tsetting const& setting,
               std::function<convert_definition()> const& make) {
  auto const make_one = [&make](Tlosses const& losses) {
    return [losses, convert = make()](std::string const& text) {
      std::string const definition = terminal::to_library(systems::definition_of(text));
      losses.tell(definition);
      return terminal::from_library(convert(definition));
    };
  };
  return text_lines::print_each(definitions, setting, text_lines::on_failure::stop,
                                text_lines::equal_texts::convert_again, make_one);
}

std::string normalize(std::string const& definition) {
  Tzu_proj4_str set;
  set.set(definition.c_str());
  set.decompose();
  set.compose();
  return set.get();
}

void need_catalogue() {
  std::string reasons;
  for (auto const& [table, column] : zu::get_catalogue_faults()) {
    reasons.append(reasons.empty() ? "" : "; ").append(column.empty() ? "cannot open " : "");
    reasons.append(terminal::from_library(table));
    if (!column.empty()) reasons.append(" has no column ").append(column);
  }
  if (!reasons.empty()) throw Terror("no catalogue of projections and datums: " + reasons);
}

int apply_each(std::vector<std::string> const& definitions, text_lines::Tsetting const& setting) {
  need_catalogue();
  auto const make = [] {
    auto const editor = std::make_shared<zu::Tzu_pj_editor>(zu::catalogue_lists::shipped());
    return [editor](std::string const& definition) -> std::string {
      editor->set_proj4_string(definition.c_str());
      return editor->get_proj4_string();
    };
  };
  return print_each(definitions, setting, make);
}

int describe(std::string const& definition, bool is_short, Tzu_env& env, Tlosses const& losses) {
  bool const is_stream = definition == "-";
  auto const make = [&](Tlosses const& own_losses) {
    return [&, own_losses](std::string const& text) {
      std::string told = transformations::describe(text, is_short, own_losses, {});
      // The caller adds a line end. In a stream a blank line follows each description.
      if (is_short || !is_stream) told.pop_back();
      return told;
    };
  };
  // The captions of parameters are in a buffer that threads cannot share.
  return text_lines::print_each({definition}, {&env, &losses, 1}, text_lines::on_failure::stop,
                                text_lines::equal_texts::remember, make);
}

struct options {
  std::string catalogue;
  std::string lang;
  std::vector<std::string> definitions;
  std::string definition;
  std::string file;
  std::vector<std::string> files;
  std::string kind;
  std::string folder;
  std::string list;
  bool json = false;
  bool all = false;
  bool is_short = false;
  bool strict = false;
  bool quiet = false;
  unsigned jobs = answers::default_jobs();
  transformations::request transformation;
  systems::search search;
  std::vector<std::string> corners;
};

int known(options const& chosen) {
  if (chosen.all == !chosen.definition.empty())
    throw Terror("known takes --list, a definition or a name");
  if (chosen.all)
    conversions::list_known(std::cout);
  else if (std::string const text = text_lines::text_of(chosen.definition);
           !conversions::show_known(std::cout, text))
    throw Terror("no known system: " + text_lines::in_one_line(text));
  return 0;
}

// An error message; empty when the folder exists.
std::string check_folder(std::string const& name) {
  std::error_code ignored;
  if (std::filesystem::is_directory(terminal::to_path(name), ignored)) return "";
  return "there is no such folder: " + name;
}

void use_options(options const& chosen) {
  if (!chosen.catalogue.empty())
    Tzu_pj_dbf::set_catalogue_folder(terminal::to_library(chosen.catalogue));
  // The first call of get_auto_lang writes the language, so it comes before set_lang and
  // before threads that read the language.
  Tzu_rc::get_auto_lang();
  if (!chosen.lang.empty()) Tzu_rc::set_lang(chosen.lang == "ru" ? 1 : 0);
}

void add_jobs(CLI::App* command, unsigned& jobs) {
  constexpr unsigned most_jobs = 256;
  command->add_option("--jobs", jobs, "number of threads (default: enough for all processors)")
      ->type_name("N")
      ->check(CLI::Range(1U, most_jobs));
}

struct comparison_commands {
  CLI::App* check;
  CLI::App* diff;
};

comparison_commands add_comparison_commands(CLI::App& app, options& chosen) {
  auto* const check =
      app.add_subcommand("check",
                         "Tell what becomes of definitions: read, by PROJ, in the dialog, "
                         "in a .prj file");
  check
      ->add_option("DEF|FILE", chosen.definitions,
                   "coordinate system in any notation, or a .pj4 or .prj file; - reads one a line "
                   "from standard input")
      ->required();
  check->add_flag("--json", chosen.json, "a line of JSON for each");
  auto* const diff = app.add_subcommand(
      "diff", "Tell where two coordinate systems differ, and how far apart they lie");
  diff->add_option("A", chosen.definition,
                   "coordinate system in any notation; - reads one of the two from standard input")
      ->required();
  diff->add_option("B", chosen.file, "the other one")->required();
  return {check, diff};
}

CLI::App* add_find_command(CLI::App& app, options& chosen) {
  constexpr std::size_t usual_limit = 20;
  auto* const find =
      app.add_subcommand("find", "Find coordinate systems by words of their name, code or area");
  find->add_option("WORD", chosen.search.words, "in any order and case; none lists all");
  find->add_option("--at", chosen.search.at, "only systems whose area holds this place")
      ->type_name("LON,LAT");
  find->add_option("--kind", chosen.search.kind, "known, zonal, projected or geographic")
      ->type_name("KIND")
      ->check(CLI::IsMember({"known", "zonal", "projected", "geographic"}));
  find->add_flag("--deprecated", chosen.search.deprecated, "also systems that are deprecated");
  chosen.search.limit = usual_limit;
  find->add_option("--limit", chosen.search.limit, "at most so many (default: 20)")->type_name("N");
  find->add_flag("--json", chosen.search.json, "a line of JSON for each");
  return find;
}

struct transformation_commands {
  CLI::App* describe;
  CLI::App* transform;
  CLI::App* box;
};

transformation_commands add_transformation_commands(CLI::App& app, options& chosen) {
  auto* const describe = app.add_subcommand("describe", "Tell in words what a definition says");
  describe
      ->add_option("DEF", chosen.definition,
                   "PROJ.4 definition or EPSG:code; - reads one a line from standard input")
      ->required();
  describe->add_flag("--short", chosen.is_short, "in one line, by the catalogue");
  auto const add_ways = [&](CLI::App* command) {
    auto& wanted = chosen.transformation;
    command
        ->add_option("--from", wanted.from,
                     "coordinate system that is given, in any notation that PROJ reads")
        ->type_name("DEF")
        ->required();
    command->add_option("--to", wanted.to, "coordinate system that is wanted")
        ->type_name("DEF")
        ->required();
    command->add_flag("--library", wanted.by_library,
                      "as the library does it for hosts, not PROJ: what is not among its "
                      "parameters is dropped, longitudes run from -135 to 225");
    command->add_flag("--inverse", wanted.inverse, "the other way, from --to to --from");
    command
        ->add_option("--digits", wanted.digits,
                     "digits behind the point (default: 9 of degrees, 4 of other units)")
        ->type_name("N")
        ->check(CLI::Range(0, 20));
  };
  auto* const transform = app.add_subcommand(
      "transform", "Transform the points that are the first two columns of a text");
  add_ways(transform);
  add_jobs(transform, chosen.transformation.jobs);
  transform->add_option("FILE", chosen.file, "the text (default, and for -: standard input)");
  auto* const box = app.add_subcommand("box", "Transform a box");
  add_ways(box);
  box->add_option("X0 Y0 X1 Y1", chosen.corners, "two opposite corners")->required()->expected(4);
  return {describe, transform, box};
}

// `argv` has the arguments as the system gave them.
int run_command(std::vector<std::string> arguments, char** argv, Tzu_env& env) {
  options chosen;
  CLI::App app{"Reads, edits, converts and writes coordinate-system definitions (PROJ.4 strings)."};
  app.name("zu_pj4");
  app.set_version_flag("--version", "zu_pj4 " ZU_PJ_EDIT_VERSION);
  app.require_subcommand(1);
  app.fallthrough();
  // On Windows, too, a text or a file name may begin with a slash.
  app.allow_windows_style_options(false);
  app.add_option("--catalogue", chosen.catalogue,
                 "folder with the catalogue's tables (default: prj_def beside this program)")
      ->type_name("DIR")
      ->check(&check_folder);
  app.add_option("--lang", chosen.lang, "language of the dialog and of descriptions: en or ru")
      ->type_name("LANG")
      ->check(CLI::IsMember({"en", "ru"}));

  auto* const strict =
      app.add_flag("--strict", chosen.strict,
                   "what a definition loses on being read is an error, not a warning");
  app.add_flag("--quiet", chosen.quiet, "no warnings of what a definition loses")->excludes(strict);

  auto const add_definitions = [&](CLI::App* command) {
    command
        ->add_option("DEF", chosen.definitions,
                     "PROJ.4 definition or EPSG:code; - reads one a line from standard input")
        ->required();
  };
  auto* const edit_command =
      app.add_subcommand("edit", "Open the dialog on a definition and print the result");
  edit_command->add_option("DEF", chosen.definition,
                           "PROJ.4 definition (default: empty); - reads it from standard input");
  auto* const apply_command = app.add_subcommand(
      "apply", "Print what opening a definition and pressing Apply gives; needs no display");
  add_definitions(apply_command);
  auto* const normalize_command = app.add_subcommand(
      "normalize", "Read a definition and write it in the library's one canonical form");
  add_definitions(normalize_command);
  auto* const catalogue_command = app.add_subcommand("catalogue", "List what the dialog offers");
  catalogue_command->add_option("LIST", chosen.list, "usual, zonal, datums or ellipsoids")
      ->required()
      ->check(CLI::IsMember({"usual", "zonal", "datums", "ellipsoids"}));
  catalogue_command->add_flag("--json", chosen.json, "as a JSON array");
  auto* const load_command =
      app.add_subcommand("load", "Print the definition in a .pj4 or .prj file");
  load_command->add_option("FILE", chosen.file, "the file; - reads standard input")->required();
  auto* const save_command =
      app.add_subcommand("save", "Write a definition into a .pj4 or .prj file");
  save_command
      ->add_option("DEF", chosen.definition,
                   "PROJ.4 definition or EPSG:code; - reads it from standard input")
      ->required();
  save_command->add_option("FILE", chosen.file, "the file; an existing one is replaced")
      ->required();
  auto* const to_esri_command =
      app.add_subcommand("to-esri", "Print definitions as ESRI WKT, a line each");
  add_definitions(to_esri_command);
  auto* const from_esri_command =
      app.add_subcommand("from-esri", "Print the definition of one ESRI WKT text");
  from_esri_command->add_option("FILE", chosen.file, "the .prj file; - reads standard input")
      ->required();
  auto* const import_command = app.add_subcommand(
      "import", "Print the definitions of coordinate systems given in any notation, a line each");
  import_command
      ->add_option("TEXT", chosen.definitions,
                   "EPSG:28407, a URN, WKT, PROJ.4; - reads one a line from standard input")
      ->required();
  auto* const convert_command =
      app.add_subcommand("convert", "Convert definition files of either kind to one kind");
  convert_command->add_option("IN", chosen.files, "the .pj4 and .prj files")->required();
  convert_command->add_option("--to", chosen.kind, "kind of the files to write: pj4 or prj")
      ->required()
      ->check(CLI::IsMember(conversions::file_kinds()));
  convert_command
      ->add_option("--out-dir", chosen.folder,
                   "folder to write to, made when missing (default: beside each file); existing "
                   "files are replaced")
      ->type_name("DIR");
  auto* const known_command =
      app.add_subcommand("known", "Find a system whose ESRI WKT is known beforehand, or list all");
  known_command->add_flag("--list", chosen.all, "list row, name, whether confirmed, definition");
  known_command->add_option("DEF|NAME", chosen.definition,
                            "of a definition print the name, of a name the definition and WKT");
  auto const [describe_command, transform_command, box_command] =
      add_transformation_commands(app, chosen);

  auto* const find_command = add_find_command(app, chosen);
  auto const [check_command, diff_command] = add_comparison_commands(app, chosen);
  for (CLI::App* const command : {apply_command, normalize_command, to_esri_command, import_command,
                                  convert_command, check_command})
    add_jobs(command, chosen.jobs);

  // After the commands, because the help of a command does not show it.
  app.footer(
      "Example: zu_pj4 normalize \"+units=m +proj=utm +zone=37 +datum=WGS84\"\n"
      "Exit status: 0 done, 1 cancelled by the user (edit) or not all done (streams, to-esri,\n"
      "import, convert, transform), 2 error.");

  try {
    // The parser wants the last argument first.
    std::ranges::reverse(arguments);
    app.parse(std::move(arguments));
  } catch (CLI::Success const& request) {
    return app.exit(request);
  } catch (CLI::ParseError const& error) {
    throw Terror(std::string(error.what()) + " (zu_pj4 --help tells more)");
  }
  use_options(chosen);
  auto const warn = [&env](std::string const& sentence) { env.warning(sentence); };
  Tlosses const losses(warn, chosen.strict  ? loss_mode::refuse
                             : chosen.quiet ? loss_mode::quiet
                                            : loss_mode::warn);
  text_lines::Tsetting const setting{&env, &losses, chosen.jobs};
  if (*edit_command) return edit(chosen.definition, losses, argv);
  if (*apply_command) return apply_each(chosen.definitions, setting);
  if (*normalize_command) return print_each(chosen.definitions, setting, [] { return &normalize; });
  if (*catalogue_command) {
    need_catalogue();
    print_catalogue(std::cout, chosen.list, chosen.json);
  }
  if (*load_command) std::cout << conversions::load(chosen.file) << '\n';
  if (*save_command) {
    std::string const definition = systems::definition_of(text_lines::text_of(chosen.definition));
    conversions::save(definition, chosen.file, losses);
  }
  if (*to_esri_command) return conversions::to_esri(chosen.definitions, setting);
  if (*from_esri_command) std::cout << conversions::from_esri(chosen.file) << '\n';
  if (*import_command) return conversions::import(chosen.definitions, setting);
  if (*convert_command)
    return conversions::convert(chosen.files, chosen.kind, chosen.folder, setting);
  if (*known_command) return known(chosen);
  if (*describe_command) return describe(chosen.definition, chosen.is_short, env, losses);
  if (*find_command) return systems::find(std::cout, chosen.search);
  if (*check_command) {
    need_catalogue();
    return comparisons::check(chosen.definitions, chosen.json, setting);
  }
  if (*diff_command) {
    return comparisons::diff(std::cout, text_lines::text_of(chosen.definition),
                             text_lines::text_of(chosen.file));
  }
  if (*transform_command)
    return transformations::transform(chosen.transformation, chosen.file, env, losses);
  if (*box_command)
    std::cout << transformations::box(chosen.transformation, chosen.corners, losses);
  return 0;
}

int run(int argc, char** argv, Tzu_env& env) {
  terminal::prepare_streams();
  int const status = run_command(terminal::arguments(argc, argv), argv, env);
  if (!std::cout.flush()) throw Terror("cannot write to standard output");
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  // The program that starts this one may have switched floating-point traps on.
  zu::Tfloat_scope const floats;
  memory::keep_freed();
  // SQLite counts its memory, and all threads wait for each other there.
  sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
  Tzu_env_console env;
  try {
    return run(argc, argv, env);
  } catch (std::exception const& error) {
    env.error(error.what());
    return exit_error;
  }
}
