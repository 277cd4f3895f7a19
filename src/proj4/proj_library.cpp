#include "proj4/proj_library.h"

#include <atomic>
#include <mutex>
#include <new>

#include "basic/file.h"
#include "basic/module.h"
#include "basic/path.h"
#include "basic/str.h"
#include "text/strconv.h"

namespace zu::proj_library {
namespace {

std::string find_shipped_folder() {
  std::wstring const folder(path::folder_of(module::own_path()));
  if (is_installed() && !file::exists(folder + L"proj.db")) return {};
  return strconv::to_utf8(folder);
}

void show_shipped_data(PJ_CONTEXT* context) {
  std::string const& folder = shipped_data_folder();
  if (folder.empty()) return;
  char const* const paths = folder.c_str();
  proj_context_set_search_paths(context, 1, &paths);
}

// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables)
thread_local PJ_CONTEXT* context_of_thread = nullptr;
// The database of the thread's context; null for PROJ's usual one.
thread_local char const* database_of_thread = nullptr;
// Each new context is a copy of the default context.
std::mutex default_context;
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

// The path of the database in a spelling that no other thread has. Empty without a database.
std::string database_for_thread() {
  static std::atomic<unsigned> threads = 0;
  context const finder = make_context();
  char const* const path = finder ? proj_context_get_database_path(finder.get()) : nullptr;
  if (path == nullptr) return {};
  std::string own = path;
  std::size_t const name = own.find_last_of("/\\") + 1;
  if (name == 0) return {};
  std::string const same_folder{'.', own[name - 1]};
  for (unsigned more = ++threads; more > 0; --more) own.insert(name, same_folder);
  return own;
}

}  // namespace

std::string const& shipped_data_folder() {
  static std::string const folder = find_shipped_folder();
  return folder;
}

void prepare_default_context() {
  static bool const done = (show_shipped_data(nullptr), true);
  static_cast<void>(done);
}

PJ_CONTEXT* current_context() noexcept { return context_of_thread; }

bool has_database() {
  // All contexts look in the same folder.
  static std::atomic<bool> found = false;
  if (found) return true;
  prepare_default_context();
  found = proj_context_get_database_metadata(current_context(), "EPSG.VERSION") != nullptr;
  return found;
}

context make_context() {
  std::unique_lock lock(default_context);
  context made(proj_context_create());
  lock.unlock();
  if (!made) return made;
  proj_log_level(made.get(), PJ_LOG_NONE);
  show_shipped_data(made.get());
  proj_context_set_enable_network(made.get(), 0);
  if (database_of_thread != nullptr)
    proj_context_set_database_path(made.get(), database_of_thread, nullptr, nullptr);
  return made;
}

Tthread_context::Tthread_context() {
  prepare_default_context();
  database_ = database_for_thread();
  if (!database_.empty()) database_of_thread = database_.c_str();
  own_ = make_context();
  if (!own_) {
    database_of_thread = nullptr;
    throw std::bad_alloc();
  }
  context_of_thread = own_.get();
}
Tthread_context::~Tthread_context() {
  context_of_thread = nullptr;
  database_of_thread = nullptr;
}

Tdatabase_scope::Tdatabase_scope() : lock_(default_context) {
  if (database_of_thread != nullptr)
    proj_context_set_database_path(nullptr, database_of_thread, nullptr, nullptr);
}
Tdatabase_scope::~Tdatabase_scope() {
  if (database_of_thread != nullptr)
    proj_context_set_database_path(nullptr, nullptr, nullptr, nullptr);
}

bool is_name(std::string_view text) noexcept {
  return text.find_first_of(":+=[{") == std::string_view::npos;
}

std::string name_taken(PJ const* system, std::string_view text) {
  if (!is_name(text)) return {};
  char const* const name = proj_get_name(system);
  if (name == nullptr || str::trim_stricmp(name, text) == 0) return {};
  char const* const authority = proj_get_id_auth_name(system, 0);
  char const* const code = proj_get_id_code(system, 0);
  std::string taken = name;
  if (authority != nullptr && code != nullptr)
    taken.append(" (").append(authority).append(":").append(code).append(")");
  return taken;
}

}  // namespace zu::proj_library
