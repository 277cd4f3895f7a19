// Finding a system for the dialog: the list, what is told of a row, what was taken
// before. Free of the form toolkit.
#pragma once

#include <atomic>
#include <memory>
#include <string>
#include <vector>

#include "basic/thread.h"
#include "finder/system_search.h"
#include "pj_edit/edit_rules.h"

namespace zu {

// The list is made once in a process: the known systems and zones at once, PROJ's
// systems by a thread, for a tenth of a second. On the dialog's thread only.
class Tsystem_finder {
 public:
  static constexpr std::size_t most_rows = 200;

  // Starts what is to be made.
  Tsystem_finder();
  ~Tsystem_finder();
  Tsystem_finder(Tsystem_finder const&) = delete;
  Tsystem_finder& operator=(Tsystem_finder const&) = delete;

  // Whether the list has got longer since the last call.
  bool has_more();

  // What fits, the best first; without words what was taken before in this process
  // stands first. The systems live until has_more tells of more.
  std::vector<listed_system const*> find(std::wstring const& words, bool deprecated) const;

  // Puts a system before others while nothing is searched for.
  static void remember(listed_system const& system);

 private:
  static void load(void* context);

  // Made by the thread; taken over when it says so.
  std::unique_ptr<Tsystem_search> loaded_;
  std::atomic<bool> is_loaded_{false};
  Tthread thread_;
};

// A row of the list: name, code and area.
std::wstring tell_row(listed_system const& system);

// The lines below the list: the definition, the area in words and as a box, whether it
// is deprecated, and what the dialog does not keep of it. `definition` gets what is to
// be edited; empty where there is none.
std::wstring tell_system(listed_system const& system, catalogue_lists const& lists,
                         std::string& definition);

}  // namespace zu
