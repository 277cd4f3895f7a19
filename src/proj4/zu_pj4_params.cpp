#include <zu_pj_edit/zu_pj4_layer.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <span>
#include <type_traits>

#include "basic/float_environment.h"
#include "basic/str.h"
#include "proj4/proj4_str.h"
#include "proj4/reading_report.h"
#include "proj4/short_text.h"
#include "text/strconv.h"

struct zu_pj4_params {
  Tzu_proj4_str set;
};

namespace {

static_assert(static_cast<int>(zu::loss_reason::other_count) == ZU_PJ4_LOSS_OTHER_COUNT);

constexpr int failed = 0;
constexpr int done = 1;

constexpr int flag(bool value) noexcept { return value ? 1 : 0; }

// Runs an operation; one without a result cannot fail. All access to sets and parameters goes
// through this function, so the floating-point scope is here.
template <class Operation, class... Objects>
int result_of(Operation operation, Objects&... objects) {
  zu::Tfloat_scope const scope;
  if constexpr (std::is_void_v<std::invoke_result_t<Operation, Objects&...>>) {
    operation(objects...);
    return done;
  } else {
    return flag(operation(objects...));
  }
}

template <class Operation>
int act(zu_pj4_params* params, Operation operation) {
  return params == nullptr ? failed : result_of(operation, params->set);
}

// Null when no parameter of the kind has the name.
template <class Param = Tzu_proj4_param>
Param* find(zu_pj4_params* params, char const* name) {
  if (params == nullptr || name == nullptr) return nullptr;
  for (Tzu_proj4_param* const param : params->set.get_list())
    if (zu::str::equal_no_case(param->name(), name)) return dynamic_cast<Param*>(param);
  return nullptr;
}

template <class Param = Tzu_proj4_param, class Operation>
int act_on(zu_pj4_params* params, char const* name, Operation operation) {
  auto* const param = find<Param>(params, name);
  return param == nullptr ? failed : result_of(operation, *param);
}

// Copies a value to the caller. Fails without a place for it.
template <class Param, class Value, class Get>
int get_from(zu_pj4_params* params, char const* name, Value* value, Get get) {
  if (value == nullptr) return failed;
  return act_on<Param>(params, name, [=](Param& param) { *value = get(param); });
}

void feed_text(Tzu_proj4_str& set, Izu_string_adp* adapter) {
  zu_string_adp_feed(adapter, zu::strconv::from_interface(set.get_text()).c_str());
}

}  // namespace

int zu_pj4_get_text(char const* definition, Izu_string_adp* adapter) {
  if (definition == nullptr || adapter == nullptr) return failed;
  return result_of([=] {
    Tzu_proj4_str set;
    set.set(definition);
    set.decompose();
    feed_text(set, adapter);
  });
}

int zu_pj4_get_short_text(char const* definition, Izu_string_adp* adapter) {
  return result_of([=] { return Tzu_short_text_helper::get_short_text(definition, adapter); });
}

unsigned zu_pj4_find_losses(char const* definition,
                            void (*found)(void* context, zu_pj4_loss const* loss), void* context) {
  if (definition == nullptr) return 0;
  return zu::in_float_scope([=] {
    auto const losses = zu::find_reading_losses(definition);
    for (zu::reading_loss const& loss : losses) {
      if (found == nullptr) break;
      std::wstring const sentence = zu::tell(loss);
      // Both enumerations of reasons have the same order.
      zu_pj4_loss const told{loss.piece.c_str(), static_cast<zu_pj4_loss_reason>(loss.reason),
                             loss.kept.c_str(), flag(loss.moves_points), sentence.c_str()};
      found(context, &told);
    }
    return static_cast<unsigned>(losses.size());
  });
}

zu_pj4_params* zu_pj4_params_create() {
  return zu::in_float_scope([] { return std::make_unique<zu_pj4_params>().release(); });
}

void zu_pj4_params_destroy(zu_pj4_params* params) {
  zu::Tfloat_scope const scope;
  std::unique_ptr<zu_pj4_params> const owned(params);
}

int zu_pj4_params_set(zu_pj4_params* params, char const* definition) {
  if (definition == nullptr) return failed;
  return act(params, [definition](auto& set) { set.set(definition); });
}

char const* zu_pj4_params_get(zu_pj4_params* params) {
  return params == nullptr ? nullptr : params->set.get();
}

int zu_pj4_params_decompose(zu_pj4_params* params) {
  return act(params, [](auto& set) { set.decompose(); });
}

int zu_pj4_params_compose(zu_pj4_params* params) {
  return act(params, [](auto& set) { set.compose(); });
}

int zu_pj4_params_compose_for_proj4(zu_pj4_params* params) {
  return act(params, [](auto& set) { set.compose_for_proj4(); });
}

int zu_pj4_params_set_all_undefined(zu_pj4_params* params) {
  return act(params, [](auto& set) { set.set_all_undefined(); });
}

int zu_pj4_params_set_is_long_lat(zu_pj4_params* params) {
  return act(params, [](auto& set) { set.set_is_long_lat(); });
}

int zu_pj4_params_set_is_lon_wrap(zu_pj4_params* params, int value) {
  return act(params, [value](auto& set) { set.set_is_lon_wrap(value != 0); });
}

int zu_pj4_params_is_valid(zu_pj4_params* params) {
  return act(params, [](auto const& set) { return set.is_valid(); });
}

int zu_pj4_params_is_sphere(zu_pj4_params* params) {
  return act(params, [](auto const& set) { return set.is_sphere(); });
}

int zu_pj4_params_equal(zu_pj4_params* params, zu_pj4_params* other) {
  if (other == nullptr) return failed;
  return act(params, [other](auto const& set) { return set.equal(other->set); });
}

int zu_pj4_params_get_is_long_lat(zu_pj4_params* params) {
  return act(params, [](auto const& set) { return set.get_is_long_lat(); });
}

int zu_pj4_params_get_is_lon_wrap(zu_pj4_params* params) {
  return act(params, [](auto const& set) { return set.get_is_lon_wrap(); });
}

int zu_pj4_params_get_text(zu_pj4_params* params, Izu_string_adp* adapter) {
  if (adapter == nullptr) return failed;
  return act(params, [adapter](auto& set) { feed_text(set, adapter); });
}

unsigned zu_pj4_params_get_count() { return Tzu_proj4_str::params_count; }

char const* zu_pj4_params_get_name(zu_pj4_params* params, unsigned index) {
  if (params == nullptr || index >= Tzu_proj4_str::params_count) return nullptr;
  return params->set.get_list()[index]->get_name();
}

int zu_pj4_params_get_def(zu_pj4_params* params, char const* name) {
  return act_on(params, name, [](auto const& param) { return param.get_def(); });
}

int zu_pj4_params_set_def(zu_pj4_params* params, char const* name, int def) {
  return act_on(params, name, [def](auto& param) { param.set_def(def != 0); });
}

char const* zu_pj4_params_get_out_str(zu_pj4_params* params, char const* name) {
  char const* text = nullptr;
  act_on(params, name, [&text](auto& param) { text = param.get_out_str(); });
  return text;
}

int zu_pj4_params_val_from_str(zu_pj4_params* params, char const* name, char const* text) {
  if (text == nullptr) return failed;
  return act_on(params, name, [text](auto& param) { return param.val_from_str(text); });
}

int zu_pj4_params_get_str(zu_pj4_params* params, char const* name, char const** value) {
  return get_from<Tzu_proj4_param_str>(params, name, value,
                                       [](auto const& param) { return param.get_str(); });
}

int zu_pj4_params_set_str(zu_pj4_params* params, char const* name, char const* value) {
  if (value == nullptr) return failed;
  return act_on<Tzu_proj4_param_str>(params, name, [value](auto& param) { param.set_str(value); });
}

int zu_pj4_params_get_dbl(zu_pj4_params* params, char const* name, double* value) {
  return get_from<Tzu_proj4_param_dbl>(params, name, value,
                                       [](auto const& param) { return param.get_dbl(); });
}

int zu_pj4_params_set_dbl(zu_pj4_params* params, char const* name, double value) {
  return act_on<Tzu_proj4_param_dbl>(params, name, [value](auto& param) {
    bool const is_number = std::isfinite(value);
    if (is_number) param.set_dbl(value);
    return is_number;
  });
}

int zu_pj4_params_get_int(zu_pj4_params* params, char const* name, int* value) {
  return get_from<Tzu_proj4_param_int>(params, name, value,
                                       [](auto const& param) { return param.get_int(); });
}

int zu_pj4_params_set_int(zu_pj4_params* params, char const* name, int value) {
  return act_on<Tzu_proj4_param_int>(params, name, [value](auto& param) { param.set_int(value); });
}

int zu_pj4_params_get_bool(zu_pj4_params* params, char const* name, int* value) {
  return get_from<Tzu_proj4_param_bool>(params, name, value,
                                        [](auto const& param) { return flag(param.get_bool()); });
}

int zu_pj4_params_set_bool(zu_pj4_params* params, char const* name, int value) {
  return act_on<Tzu_proj4_param_bool>(params, name,
                                      [value](auto& param) { param.set_bool(value != 0); });
}

int zu_pj4_params_get_towgs84(zu_pj4_params* params, double* values) {
  if (values == nullptr) return failed;
  return act(params,
             [values](auto& set) { std::ranges::copy(set.get_towgs84().get_values(), values); });
}

int zu_pj4_params_set_towgs84(zu_pj4_params* params, double const* values) {
  if (values == nullptr) return failed;
  return act(params, [values](auto& set) {
    std::span<double const, Tzu_proj4_param_towgs84::count> const given(
        values, Tzu_proj4_param_towgs84::count);
    if (!std::ranges::all_of(given, [](double value) { return std::isfinite(value); }))
      return false;
    for (unsigned i = 0; i < given.size(); ++i) set.get_towgs84().set_dbl(i, given[i]);
    return true;
  });
}
