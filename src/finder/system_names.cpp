#include "finder/system_names.h"

#include <memory>
#include <utility>

#include "interchange/known_system_index.h"
#include "interchange/known_systems.h"
#include "proj4/named_files.h"
#include "proj4/proj4_str.h"
#include "proj4/proj_library.h"

namespace zu {
namespace {

struct list_closer {
  void operator()(PJ_OBJ_LIST* list) const noexcept { proj_list_destroy(list); }
};

struct numbers_closer {
  void operator()(int* numbers) const noexcept { proj_int_list_destroy(numbers); }
};

std::string text_or_empty(char const* text) { return text == nullptr ? "" : text; }

}  // namespace

std::vector<system_name> find_system_names(std::string const& definition, int least) {
  std::vector<system_name> names;
  Tzu_proj4_str set;
  set.set(definition.c_str());
  set.decompose();
  if (known_system const* const known = find_known_system(set)) {
    std::string const name(known_system_name(*known));
    names.push_back({name, name, 100});
  }
  // With a shift the definition would become another kind of object, and PROJ does not
  // identify that kind.
  set.set_is_lon_wrap(false);
  set.get_towgs84().set_def(false);
  set.get_nadgrids().set_def(false);
  set.compose_for_proj4();
  std::string const text = std::string(set.get()) + " +type=crs";
  auto const context = proj_library::make_context();
  if (!context || !set.get_proj().get_def()) return names;
  proj_library::object const system(proj_create(context.get(), text.c_str()));
  if (!system) return names;
  int* told = nullptr;
  std::unique_ptr<PJ_OBJ_LIST, list_closer> const found(
      proj_identify(context.get(), system.get(), nullptr, nullptr, &told));
  std::unique_ptr<int, numbers_closer> const confidences(told);
  int const count = found && confidences ? proj_list_get_count(found.get()) : 0;
  for (int i = 0; i < count; ++i) {
    int const confidence = confidences.get()[i];
    proj_library::object const each(proj_list_get(context.get(), found.get(), i));
    if (confidence < least || !each) continue;
    names.push_back({text_or_empty(proj_get_id_auth_name(each.get(), 0)) + ":" +
                         text_or_empty(proj_get_id_code(each.get(), 0)),
                     text_or_empty(proj_get_name(each.get())), confidence});
  }
  return names;
}

}  // namespace zu
