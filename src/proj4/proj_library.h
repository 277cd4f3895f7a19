// PROJ: owners of its objects, the place of its database, and contexts that print nothing.
#pragma once

#include <proj.h>

#include <memory>
#include <mutex>
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

// Whether PROJ finds its data in an installation of its own.
bool is_installed() noexcept;

// Folder of "proj.db" beside this library, in UTF-8. Empty when PROJ is installed and the
// library was shipped without the database.
std::string const& shipped_data_folder();

// Tells PROJ's default context where the shipped database is. Does so once in a process.
void prepare_default_context();

// The context for this thread's calls of PROJ: that of its Tthread_context, or else null, which
// is PROJ's default context. Do not destroy it.
PJ_CONTEXT* current_context() noexcept;

// Whether the current context can read the database; PROJ reports the reason when it
// cannot. Without a database GDAL still works, but datums lose their shift.
bool has_database();

// Makes a context for one caller. It finds the database (that of this thread's Tthread_context,
// if there is one), prints nothing and never uses the network. Null only when there is not enough
// memory.
context make_context();

// Gives this thread a context of its own, until it is destroyed on the same thread. A thread
// has one at most. Threads that work at the same time need one each, because only one thread
// may use PROJ's default context. So while such threads work, the other threads of the program
// need one, too.
//
// The context has a connection of its own to the database: all contexts with the same path of
// the database share one connection, and wait for each other. So the path has another spelling
// in each thread.
class Tthread_context {
 public:
  // Throws std::bad_alloc when there is not enough memory.
  Tthread_context();
  ~Tthread_context();
  Tthread_context(Tthread_context const&) = delete;
  Tthread_context& operator=(Tthread_context const&) = delete;

 private:
  std::string database_;
  context own_;
};

// While it lives, PROJ's default context has the database of this thread's Tthread_context, and
// no other thread makes a context. GDAL copies the default context for each thread that uses it.
class Tdatabase_scope {
 public:
  Tdatabase_scope();
  ~Tdatabase_scope();
  Tdatabase_scope(Tdatabase_scope const&) = delete;
  Tdatabase_scope& operator=(Tdatabase_scope const&) = delete;

 private:
  std::scoped_lock<std::mutex> lock_;
};

// Whether PROJ would look for a text among the names of its systems. Codes and definitions
// have characters that names do not have.
bool is_name(std::string_view text) noexcept;
// The name and code of a system that PROJ found, when the text is only similar to its name.
// Empty when the text is that name in any case, or is no name at all. UTF-8.
std::string name_taken(PJ const* system, std::string_view text);

}  // namespace zu::proj_library
