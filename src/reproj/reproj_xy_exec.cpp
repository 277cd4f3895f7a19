#include "reproj/reproj_xy_exec.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <exception>
#include <numbers>
#include <span>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "basic/str.h"
#include "basic/thread.h"
#include "proj4/named_files.h"
#include "proj4/proj4_str.h"
#include "text/strconv.h"

namespace {

constexpr double degree = std::numbers::pi / 180;

// From this size on two processors are faster than one even with the fastest operation,
// and even when PROJ has to clone it first. Measured: 20 to 50 us to start and join a
// thread, 80 to 100 us for a clone, 150 to 450 ns for a point.
constexpr std::size_t parallel_size = 4096;
// The points that a thread takes at a time: many, so that taking them costs little, but
// few of the whole array, so that all threads end at about the same time.
constexpr std::size_t block_size = 512;
constexpr std::size_t max_helpers = 15;

struct Tprepared {
  std::string text;
  bool is_long_lat = false;
};

// The definition in the form for PROJ. Empty when it has no projection, or when PROJ
// would open a file for it that is no grid of a datum shift.
Tprepared prepare(std::wstring_view definition) {
  Tzu_proj4_str set;
  set.set(zu::strconv::to_utf8(definition).c_str());
  set.decompose();
  // Without a projection there is no operation, and PROJ would first search all names of
  // its database.
  if (!set.get_proj().get_def()) return {};
  set.compose_for_proj4();
  bool const is_safe = zu::named_files::has_none_but(set.get(), zu::named_files::shift_grids::any);
  return {is_safe ? set.get() : "", set.get_is_long_lat()};
}

// The text for PROJ, not changed, but with "+type=crs" where PROJ could take it for a
// step of a transformation. Empty when PROJ would open a file for it.
std::string as_written(std::string const& text) {
  if (!zu::named_files::has_none_but(text, zu::named_files::shift_grids::any)) return {};
  bool const is_proj4 =
      zu::str::trim(text).substr(0, 1).find_first_of("{[") == std::string_view::npos &&
      text.find('[') == std::string::npos &&
      (text.find("proj=") != std::string::npos || text.find("init=") != std::string::npos);
  return is_proj4 && text.find("type=crs") == std::string::npos ? text + " +type=crs" : text;
}

std::wstring widen(char const* text) {
  return zu::strconv::from_system(text == nullptr ? std::string_view() : text);
}

PJ_DIRECTION to_proj(reproj_direction direction) noexcept {
  return direction == reproj_direction::forward ? PJ_FWD : PJ_INV;
}

// Accepts "+init=" as PROJ's own programs do.
zu::proj_library::context make_lenient_context() {
  auto context = zu::proj_library::make_context();
  if (context) proj_context_use_proj4_init_rules(context.get(), 1);
  return context;
}

zu::proj_library::object create_system(PJ_CONTEXT* context, std::string const& text) {
  return zu::proj_library::object(text.empty() ? nullptr : proj_create(context, text.c_str()));
}

struct factory_closer {
  void operator()(PJ_OPERATION_FACTORY_CONTEXT* factory) const noexcept {
    proj_operation_factory_context_destroy(factory);
  }
};
using operation_factory = std::unique_ptr<PJ_OPERATION_FACTORY_CONTEXT, factory_closer>;

struct list_closer {
  void operator()(PJ_OBJ_LIST* list) const noexcept { proj_list_destroy(list); }
};
using operation_list = std::unique_ptr<PJ_OBJ_LIST, list_closer>;

void scale(std::size_t count, double* x, double* y, double factor) noexcept {
  for (double& value : std::span(x, count)) value *= factor;
  for (double& value : std::span(y, count)) value *= factor;
}

bool transform_block(PJ* operation, PJ_DIRECTION direction, std::size_t count, double* x,
                     double* y) noexcept {
  try {
    proj_trans_generic(operation, direction, x, sizeof(double), count, y, sizeof(double), count,
                       nullptr, 0, 0, nullptr, 0, 0);
  } catch (std::exception const&) {
    // PROJ opens a grid when the first point needs it, and there may be no memory for it.
    std::fill_n(x, count, HUGE_VAL);
    std::fill_n(y, count, HUGE_VAL);
  }
  bool all = true;
  for (std::size_t i = 0; i < count; ++i) all = all && std::isfinite(x[i]) && std::isfinite(y[i]);
  return all;
}

}  // namespace

// All that is done with an array. Several threads take blocks of a long one until none is
// left. No point depends on another, so the result does not depend on which thread took
// which block.
class Tzu_reproj_xy_exec::Tarray {
 public:
  Tarray(std::size_t count, double* x, double* y, PJ_DIRECTION direction,
         Tblock_work* work) noexcept
      : count_(count), x_(x), y_(y), direction_(direction), work_(work) {}
  void set_angular(bool input, bool output) noexcept {
    angular_input_ = input;
    angular_output_ = output;
  }

  // Without an operation the result is false, and only the rest is done.
  bool transform(PJ* operation, std::size_t first, std::size_t size) const noexcept {
    double* const x = x_ + first;
    double* const y = y_ + first;
    if (work_ != nullptr) work_->before(first, size);
    if (angular_input_) scale(size, x, y, degree);
    bool const all = operation != nullptr && transform_block(operation, direction_, size, x, y);
    if (operation != nullptr && angular_output_) scale(size, x, y, 1 / degree);
    if (work_ != nullptr) work_->after(first, size);
    return all;
  }
  void take_blocks(PJ* operation) noexcept {
    bool all = true;
    for (std::size_t first = next_.fetch_add(block_size); first < count_;
         first = next_.fetch_add(block_size))
      all = transform(operation, first, std::min(block_size, count_ - first)) && all;
    if (!all) all_ = false;
  }
  std::size_t count() const noexcept { return count_; }
  bool all() const noexcept { return all_; }

  // The part of one thread.
  struct Tshare {
    Tarray* array = nullptr;
    PJ* operation = nullptr;
    zu::Tthread thread;
  };
  static void work_on_share(void* context) {
    auto const& share = *static_cast<Tshare const*>(context);
    share.array->take_blocks(share.operation);
  }

 private:
  std::size_t count_;
  double* x_;
  double* y_;
  PJ_DIRECTION direction_;
  Tblock_work* work_;
  bool angular_input_ = false;
  bool angular_output_ = false;
  std::atomic<std::size_t> next_{0};
  std::atomic<bool> all_{true};
};

bool Tzu_reproj_xy_exec::init(char const* source, char const* target) {
  return init(widen(source).c_str(), widen(target).c_str());
}

bool Tzu_reproj_xy_exec::init(wchar_t const* source, wchar_t const* target) {
  Tprepared from = prepare(source == nullptr ? L"" : source);
  Tprepared to = prepare(target == nullptr ? L"" : target);
  if (take(std::move(from.text), std::move(to.text))) return true;
  angular_input_ = from.is_long_lat;
  angular_output_ = to.is_long_lat;
  return false;
}

bool Tzu_reproj_xy_exec::init_as_written(std::string const& source, std::string const& target) {
  if (!context_) context_ = make_lenient_context();
  return context_ != nullptr && take(as_written(source), as_written(target));
}

bool Tzu_reproj_xy_exec::init_as(Tzu_reproj_xy_exec const& other) {
  clear();
  if (!context_) context_ = zu::proj_library::make_context();
  if (!context_ || !other.has_operation()) return false;
  normalized_.reset(proj_clone(context_.get(), other.normalized_.get()));
  if (!normalized_) return false;
  angular_input_ = other.angular_input_;
  angular_output_ = other.angular_output_;
  source_ = other.source_;
  target_ = other.target_;
  return true;
}

bool Tzu_reproj_xy_exec::take(std::string source, std::string target) {
  if (has_operation() && source == source_ && target == target_) return true;
  clear();
  source_ = std::move(source);
  target_ = std::move(target);
  return !source_.empty() && !target_.empty() && create();
}

bool Tzu_reproj_xy_exec::create() {
  using zu::proj_library::object;
  if (!context_) context_ = zu::proj_library::make_context();
  // With a null context PROJ would use the default one.
  if (!context_) return false;
  operation_ =
      object(proj_create_crs_to_crs(context_.get(), source_.c_str(), target_.c_str(), nullptr));
  if (!operation_) return false;
  normalized_ = object(proj_normalize_for_visualization(context_.get(), operation_.get()));
  if (!normalized_) return false;
  angular_input_ = proj_angular_input(normalized_.get(), PJ_FWD) != 0;
  angular_output_ = proj_angular_output(normalized_.get(), PJ_FWD) != 0;
  return true;
}

void Tzu_reproj_xy_exec::clear() noexcept {
  helpers_.clear();
  normalized_.reset();
  operation_.reset();
  angular_input_ = false;
  angular_output_ = false;
  source_.clear();
  target_.clear();
}

bool Tzu_reproj_xy_exec::apply(double* x, double* y, reproj_direction direction) {
  bool const forward = direction == reproj_direction::forward;
  if (forward ? angular_input_ : angular_output_) scale(1, x, y, degree);
  if (!has_operation()) return false;
  PJ_COORD result = proj_coord(HUGE_VAL, HUGE_VAL, HUGE_VAL, HUGE_VAL);
  proj_errno_reset(normalized_.get());
  try {
    result = proj_trans(normalized_.get(), to_proj(direction), proj_coord(*x, *y, 0, HUGE_VAL));
  } catch (std::exception const&) {
    // As in transform_block.
  }
  *x = result.xy.x;
  *y = result.xy.y;
  if (!std::isfinite(*x) || !std::isfinite(*y)) return false;
  if (forward ? angular_output_ : angular_input_) scale(1, x, y, 1 / degree);
  return true;
}

std::string Tzu_reproj_xy_exec::get_reason() const {
  int const error = normalized_ ? proj_errno(normalized_.get()) : 0;
  return error == 0 ? "" : proj_context_errno_string(context_.get(), error);
}

bool Tzu_reproj_xy_exec::apply(std::size_t count, double* x, double* y, reproj_direction direction,
                               Tblock_work* work) {
  bool const forward = direction == reproj_direction::forward;
  Tarray array(count, x, y, to_proj(direction), work);
  array.set_angular(forward ? angular_input_ : angular_output_,
                    forward ? angular_output_ : angular_input_);
  if (count < parallel_size || !has_operation())
    return array.transform(normalized_.get(), 0, count);
  return share(array);
}

bool Tzu_reproj_xy_exec::share(Tarray& array) {
  // Each thread gets at least half of parallel_size.
  std::size_t const parts = 2 * array.count() / parallel_size;
  std::size_t const processors = std::max(1U, std::thread::hardware_concurrency());
  std::size_t const helpers = prepare_helpers(std::min({processors, parts, max_helpers + 1}) - 1);
  std::array<Tarray::Tshare, max_helpers> shares;
  for (std::size_t i = 0; i < helpers; ++i) {
    shares[i].array = &array;
    shares[i].operation = helpers_[i].operation.get();
    // Where the system has no thread left, the other threads do its part.
    shares[i].thread.start(&Tarray::work_on_share, &shares[i]);
  }
  array.take_blocks(normalized_.get());
  for (Tarray::Tshare& share : std::span(shares).first(helpers)) share.thread.join();
  return array.all();
}

std::size_t Tzu_reproj_xy_exec::prepare_helpers(std::size_t wanted) {
  try {
    while (helpers_.size() < wanted) {
      Thelper helper;
      helper.context = zu::proj_library::make_context();
      if (!helper.context) break;
      helper.operation.reset(proj_clone(helper.context.get(), normalized_.get()));
      if (!helper.operation) break;
      helpers_.push_back(std::move(helper));
    }
  } catch (std::exception const&) {
    // Without memory for more helpers the existing ones do all the work.
  }
  return std::min(wanted, helpers_.size());
}

bool Tzu_reproj_xy_exec::verify_as_written(std::string const& text) {
  auto const context = make_lenient_context();
  return context && create_system(context.get(), as_written(text)) != nullptr;
}

bool Tzu_reproj_xy_exec::has_operation_as_written(std::string const& text, std::string& reason) {
  auto const context = make_lenient_context();
  if (!context) return false;
  auto const operation = zu::proj_library::object(
      proj_create_crs_to_crs(context.get(), "EPSG:4326", as_written(text).c_str(), nullptr));
  if (operation) return true;
  int const error = proj_context_errno(context.get());
  char const* const said = error == 0 ? nullptr : proj_context_errno_string(context.get(), error);
  reason = said == nullptr ? "" : said;
  return false;
}

bool Tzu_reproj_xy_exec::is_geographic_as_written(std::string const& text) {
  auto const context = make_lenient_context();
  if (!context) return false;
  auto system = create_system(context.get(), as_written(text));
  while (system) {
    auto const type = proj_get_type(system.get());
    // A bound system and a compound one contain the system that is meant.
    if (type == PJ_TYPE_BOUND_CRS)
      system.reset(proj_get_source_crs(context.get(), system.get()));
    else if (type == PJ_TYPE_COMPOUND_CRS)
      system.reset(proj_crs_get_sub_crs(context.get(), system.get(), 0));
    else
      return type == PJ_TYPE_GEOGRAPHIC_2D_CRS || type == PJ_TYPE_GEOGRAPHIC_3D_CRS;
  }
  return false;
}

std::string Tzu_reproj_xy_exec::find_name_taken(std::string const& text) {
  if (!zu::proj_library::is_name(text)) return {};
  auto const context = make_lenient_context();
  if (!context) return {};
  auto const system = create_system(context.get(), as_written(text));
  return system ? zu::proj_library::name_taken(system.get(), text) : std::string();
}

std::optional<std::array<double, 4>> Tzu_reproj_xy_exec::find_area_of_use(std::string const& text) {
  auto const context = make_lenient_context();
  if (!context) return {};
  auto const system = create_system(context.get(), as_written(text));
  double west = 0;
  double south = 0;
  double east = 0;
  double north = 0;
  // PROJ gives a bound below -180 where it does not know the area.
  if (!system ||
      proj_get_area_of_use(context.get(), system.get(), &west, &south, &east, &north, nullptr) ==
          0 ||
      west < -180)
    return {};
  return std::array{west, south, east < west ? east + 360 : east, north};
}

std::vector<std::string> Tzu_reproj_xy_exec::find_missing_grids(std::string const& source_text,
                                                                std::string const& target_text) {
  std::vector<std::string> names;
  auto const context = make_lenient_context();
  if (!context) return names;
  auto const source = create_system(context.get(), as_written(source_text));
  auto const target = create_system(context.get(), as_written(target_text));
  operation_factory const factory(proj_create_operation_factory_context(context.get(), nullptr));
  if (!source || !target || !factory) return names;
  // The order of an installation with all grids.
  proj_operation_factory_context_set_grid_availability_use(context.get(), factory.get(),
                                                           PROJ_GRID_AVAILABILITY_IGNORED);
  proj_operation_factory_context_set_spatial_criterion(context.get(), factory.get(),
                                                       PROJ_SPATIAL_CRITERION_PARTIAL_INTERSECTION);
  operation_list const found(
      proj_create_operations(context.get(), source.get(), target.get(), factory.get()));
  int const count = found ? proj_list_get_count(found.get()) : 0;
  for (int i = 0; i < count; ++i) {
    zu::proj_library::object const way(proj_list_get(context.get(), found.get(), i));
    // The ways after the first one that works are not better.
    if (!way || proj_coordoperation_is_instantiable(context.get(), way.get()) != 0) break;
    int const grids = proj_coordoperation_get_grid_used_count(context.get(), way.get());
    for (int k = 0; k < grids; ++k) {
      char const* name = nullptr;
      int available = 1;
      proj_coordoperation_get_grid_used(context.get(), way.get(), k, &name, nullptr, nullptr,
                                        nullptr, nullptr, nullptr, &available);
      if (available == 0 && name != nullptr && std::ranges::find(names, name) == names.end())
        names.emplace_back(name);
    }
  }
  return names;
}

bool Tzu_reproj_xy_exec::verify_pj4str(char const* definition) {
  std::string const text = prepare(widen(definition)).text;
  if (text.empty()) return false;
  auto const context = zu::proj_library::make_context();
  return context && zu::proj_library::object(proj_create(context.get(), text.c_str())) != nullptr;
}

std::size_t Tzu_reproj_xy_exec::get_parallel_size() noexcept { return parallel_size; }
