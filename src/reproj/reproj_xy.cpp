#include "reproj/reproj_xy.h"

#include <cmath>
#include <string_view>

#include "proj4/proj4_str.h"
#include "text/strconv.h"

namespace {

// The text may be in any encoding that contains ASCII.
std::string geographic_of(std::string const& definition) {
  Tzu_proj4_str set;
  set.set(definition.c_str());
  set.decompose();
  if (!set.get_proj().get_def()) return {};
  set.set_is_long_lat();
  set.compose();
  return set.get();
}

std::wstring geographic_of(std::wstring_view definition) {
  return zu::strconv::from_utf8(geographic_of(zu::strconv::to_utf8(definition)));
}

std::string composed_for_proj4(char const* definition) {
  Tzu_proj4_str set;
  set.set(definition);
  set.decompose();
  set.compose_for_proj4();
  return set.get();
}

}  // namespace

bool Tzu_reproj_xy::init_to_latlong(char const* definition) {
  return init(definition, convert_to_latlong(definition).c_str());
}

bool Tzu_reproj_xy::init_to_latlong(wchar_t const* definition) {
  return init(definition, geographic_of(definition == nullptr ? L"" : definition).c_str());
}

bool Tzu_reproj_xy::init_from_latlong(char const* definition) {
  return init(convert_to_latlong(definition).c_str(), definition);
}

bool Tzu_reproj_xy::init_from_latlong(wchar_t const* definition) {
  return init(geographic_of(definition == nullptr ? L"" : definition).c_str(), definition);
}

std::string Tzu_reproj_xy::convert_to_latlong(char const* definition) {
  return geographic_of(std::string(definition == nullptr ? "" : definition));
}

bool Tzu_reproj_xy::rpj_is_needed(char const* source, char const* target) {
  return composed_for_proj4(source) != composed_for_proj4(target);
}

void Tzu_reproj_xy::clear() noexcept {
  exec_.clear();
  before_ = {};
  after_ = {};
  use_reproj_ = true;
}

Tzu_matrix3x3 Tzu_reproj_xy::identity() noexcept {
  Tzu_matrix3x3 matrix{};
  zu_matrix3x3_init_single(&matrix);
  return matrix;
}

void Tzu_reproj_xy::Taffine::set(Tzu_matrix3x3 const& wanted) noexcept {
  matrix = wanted;
  inverse = wanted;
  // The step does not use the last row.
  inverse.e[6] = 0;
  inverse.e[7] = 0;
  inverse.e[8] = 1;
  is_singular = zu_matrix3x3_invert(&inverse) == 0;
}

bool Tzu_reproj_xy::has_singular() const noexcept {
  return (before_.use && before_.is_singular) || (after_.use && after_.is_singular);
}

bool Tzu_reproj_xy::is_blocked(reproj_direction direction) const noexcept {
  return (use_reproj_ && !exec_.has_operation()) ||
         (direction == reproj_direction::backward && has_singular());
}

// The affine steps of the chain, and the work of its caller.
class Tzu_reproj_xy::Tchain_work final : public Tblock_work {
 public:
  Tchain_work(Tzu_reproj_xy const& chain, double* x, double* y, reproj_direction direction,
              Tblock_work* work) noexcept
      : x_(x), y_(y), work_(work) {
    bool const forward = direction == reproj_direction::forward;
    Taffine const& first = forward ? chain.before_ : chain.after_;
    Taffine const& last = forward ? chain.after_ : chain.before_;
    if (first.use) first_ = forward ? &first.matrix : &first.inverse;
    if (last.use) last_ = forward ? &last.matrix : &last.inverse;
  }
  void before(std::size_t first, std::size_t count) noexcept override {
    if (work_ != nullptr) work_->before(first, count);
    if (first_ != nullptr) apply_affine_xy(*first_, count, x_ + first, y_ + first);
  }
  void after(std::size_t first, std::size_t count) noexcept override {
    if (last_ != nullptr) apply_affine_xy(*last_, count, x_ + first, y_ + first);
    if (work_ != nullptr) work_->after(first, count);
  }

 private:
  double* x_;
  double* y_;
  Tblock_work* work_;
  Tzu_matrix3x3 const* first_ = nullptr;
  Tzu_matrix3x3 const* last_ = nullptr;
};

bool Tzu_reproj_xy::apply(double* x, double* y, reproj_direction direction) {
  if (direction == reproj_direction::backward && has_singular()) return false;
  Tchain_work chain(*this, x, y, direction, nullptr);
  chain.before(0, 1);
  bool const done = !use_reproj_ || exec_.apply(x, y, direction);
  chain.after(0, 1);
  return done;
}

bool Tzu_reproj_xy::apply_xy(std::size_t count, double* x, double* y, reproj_direction direction,
                             Tblock_work* work) {
  if (direction == reproj_direction::backward && has_singular()) return false;
  Tchain_work chain(*this, x, y, direction, work);
  if (use_reproj_) return exec_.apply(count, x, y, direction, &chain);
  chain.before(0, count);
  chain.after(0, count);
  return true;
}

void Tzu_reproj_xy::apply_affine(Tzu_matrix3x3 const& matrix, double* x, double* y) noexcept {
  apply_affine_xy(matrix, 1, x, y);
}

void Tzu_reproj_xy::apply_affine_xy(Tzu_matrix3x3 const& matrix, std::size_t count, double* x,
                                    double* y) noexcept {
  auto const& e = matrix.e;
  for (std::size_t i = 0; i < count; ++i) {
    double const old_x = x[i];
    double const old_y = y[i];
    // A point that failed in an earlier step does not change.
    if (!std::isfinite(old_x) || !std::isfinite(old_y)) continue;
    x[i] = e[0] * old_x + e[1] * old_y + e[2];
    y[i] = e[3] * old_x + e[4] * old_y + e[5];
  }
}
