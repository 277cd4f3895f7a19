// The command-line program: what the library knows, for a shell.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <functional>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "basic/file.h"
#include "basic/str.h"
#include "catalogue/pj_dbf.h"
#include "catalogue_listing.h"
#include "interchange/add_file.h"
#include "pj_edit/edit_rules.h"
#include "proj4/proj4_str.h"
#include "terminal.h"
#include "text/rc.h"
#include "text/string_adapter.h"
#include "zu_pj_edit/version.h"
#include "zu_pj_edit/zu_pj_edit.h"

namespace {

constexpr int exit_cancelled = 1;
constexpr int exit_error = 2;

// Shown in one line on standard error.
class Terror : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Passes each definition, or each line of standard input for "-", through
// `convert`, which works on the library's texts, and prints one line for each.
void for_each_definition(std::vector<std::string> const& definitions,
                         std::function<std::string(std::string const&)> const& convert) {
  auto const print = [&convert](std::string const& definition) {
    std::cout << terminal::from_library(convert(terminal::to_library(definition))) << '\n';
  };
  for (std::string const& definition : definitions) {
    if (definition != "-") {
      print(definition);
      continue;
    }
    for (std::string line; std::getline(std::cin, line);) print(line);
  }
}

std::string normalize(std::string const& definition) {
  Tzu_proj4_str set;
  set.set(definition.c_str());
  set.decompose();
  set.compose();
  return set.get();
}

void need_catalogue() {
  if (Tzu_datum_def_dbf::get_ellipses().get_size() == 0)
    throw Terror("no catalogue of projections and datums: cannot read " +
                 terminal::from_library(Tzu_pj_dbf::get_ellipse_db_path()));
}

void apply(std::vector<std::string> const& definitions) {
  need_catalogue();
  zu::Tzu_pj_editor editor(zu::catalogue_lists::shipped());
  for_each_definition(definitions, [&editor](std::string const& definition) -> std::string {
    editor.set_proj4_string(definition.c_str());
    return editor.get_proj4_string();
  });
}

int edit(std::string const& definition) {
  unsigned char changed = 0;
  std::string const input = terminal::to_library(definition);
  std::cout << terminal::from_library(zu_proj4_form_execute(nullptr, input.c_str(), &changed))
            << '\n';
  return changed != 0 ? 0 : exit_cancelled;
}

// ESRI projection files go by their extension.
void refuse_esri_file(std::string const& name) {
  std::string_view const view = name;
  if (view.size() >= 4 && zu::str::equal_no_case(view.substr(view.size() - 4), ".prj"))
    throw Terror("this version does not convert ESRI projection files: " + name);
}

void load(std::string const& name) {
  refuse_esri_file(name);
  std::wstring definition;
  Tzu_std_wstring_adapter target(&definition);
  zu::string_adp const adapter(target);
  std::wstring const wide = terminal::to_wide(name);
  if (!zu::file::exists(wide)) throw Terror("no such file: " + name);
  if (!Tzu_add_file::load_pj4_simple(wide, adapter.get()) || definition.empty())
    throw Terror("no PROJ.4 definition in " + name);
  std::cout << terminal::from_wide(definition) << '\n';
}

void save(std::string const& definition, std::string const& name) {
  refuse_esri_file(name);
  // The file is in the system's code page.
  terminal::to_library(definition);
  if (!Tzu_add_file::save_pj4_ini(terminal::to_wide(name), terminal::to_wide(definition)))
    throw Terror("cannot write " + name);
}

struct options {
  std::string catalogue;
  std::string lang;
  std::vector<std::string> definitions;
  std::string definition;
  std::string file;
  std::string list;
  bool json = false;
};

// What is wrong with it; empty when nothing.
std::string check_folder(std::string const& name) {
  std::error_code ignored;
  if (std::filesystem::is_directory(terminal::to_path(name), ignored)) return "";
  return "there is no such folder: " + name;
}

void use_options(options const& chosen) {
  if (!chosen.catalogue.empty())
    Tzu_pj_dbf::set_catalogue_folder(terminal::to_library(chosen.catalogue));
  if (chosen.lang.empty()) return;
  // The host's language is fetched once; only what is set after that stays.
  Tzu_rc::get_auto_lang();
  Tzu_rc::set_lang(chosen.lang == "ru" ? 1 : 0);
}

int run_command(std::vector<std::string> arguments) {
  options chosen;
  CLI::App app{"Reads, edits and writes coordinate-system definitions (PROJ.4 strings)."};
  app.name("zu_pj4");
  app.set_version_flag("--version", "zu_pj4 " ZU_PJ_EDIT_VERSION);
  app.require_subcommand(1);
  app.fallthrough();
  app.footer(
      "Example: zu_pj4 normalize \"+units=m +proj=utm +zone=37 +datum=WGS84\"\n"
      "Exit status: 0 done, 1 cancelled by the user (edit), 2 error.");
  app.add_option("--catalogue", chosen.catalogue,
                 "folder with the catalogue's tables (default: prj_def beside this program)")
      ->type_name("DIR")
      ->check(&check_folder);
  app.add_option("--lang", chosen.lang, "language of the dialog: en or ru")
      ->type_name("LANG")
      ->check(CLI::IsMember({"en", "ru"}));

  auto const add_definitions = [&](CLI::App* command) {
    command
        ->add_option("DEF", chosen.definitions,
                     "PROJ.4 definition; - reads one a line from standard input")
        ->required();
  };
  auto* const edit_command =
      app.add_subcommand("edit", "Open the dialog on a definition and print the result");
  edit_command->add_option("DEF", chosen.definition, "PROJ.4 definition (default: empty)");
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
  auto* const load_command = app.add_subcommand("load", "Print the definition in a .pj4 file");
  load_command->add_option("FILE", chosen.file, "the file")->required();
  auto* const save_command = app.add_subcommand("save", "Write a definition into a .pj4 file");
  save_command->add_option("DEF", chosen.definition, "PROJ.4 definition")->required();
  save_command->add_option("FILE", chosen.file, "the file; an existing one is replaced")
      ->required();

  try {
    // The parser takes them from the last to the first.
    std::ranges::reverse(arguments);
    app.parse(std::move(arguments));
  } catch (CLI::Success const& request) {
    return app.exit(request);
  } catch (CLI::ParseError const& error) {
    throw Terror(std::string(error.what()) + " (zu_pj4 --help tells more)");
  }
  use_options(chosen);
  if (*edit_command) return edit(chosen.definition);
  if (*apply_command) apply(chosen.definitions);
  if (*normalize_command) for_each_definition(chosen.definitions, normalize);
  if (*catalogue_command) {
    need_catalogue();
    print_catalogue(std::cout, chosen.list, chosen.json);
  }
  if (*load_command) load(chosen.file);
  if (*save_command) save(chosen.definition, chosen.file);
  return 0;
}

int run(int argc, char** argv) {
  terminal::prepare_streams();
  int const status = run_command(terminal::arguments(argc, argv));
  if (!std::cout.flush()) throw Terror("cannot write to standard output");
  return status;
}

}  // namespace

int main(int argc, char** argv) try {
  return run(argc, argv);
} catch (std::exception const& error) {
  std::cerr << "zu_pj4: " << error.what() << '\n';
  return exit_error;
}
