// PROJ: owners of its objects, where its database is, and its quiet use.
#pragma once

#include <proj.h>

#include <memory>
#include <string>
#include <string_view>

namespace zu::proj_library {

struct object_closer {
  void operator()(PJ* object) const noexcept { proj_destroy(object); }
};
using object = std::unique_ptr<PJ, object_closer>;

struct context_closer {
  void operator()(PJ_CONTEXT* context) const noexcept { proj_context_destroy(context); }
};
using context = std::unique_ptr<PJ_CONTEXT, context_closer>;

// Whether PROJ may be left to look for its data in its own installation.
bool is_installed() noexcept;

// Folder of "proj.db", in UTF-8, beside this library. Empty where none is shipped
// and PROJ is installed.
std::string const& shipped_data_folder();

// Shows PROJ's default context the shipped database; once in a process.
void prepare_default_context();

// Whether PROJ's default context can read the database; it tells why not. Without
// one GDAL goes on with less, and datums lose their shift.
bool has_database();

// A context of the caller's own that finds the database, says nothing and never
// asks the network. Null only without memory.
context make_context();

// Whether PROJ would look a text up among its names: codes and definitions have what
// names have not.
bool is_name(std::string_view text) noexcept;
// The name and code of a system that PROJ found for a text that is only like its name;
// empty where the text is that name, whatever its case, or no name at all. UTF-8.
std::string name_taken(PJ const* system, std::string_view text);

}  // namespace zu::proj_library
