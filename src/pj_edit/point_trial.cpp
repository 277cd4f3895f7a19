#include "pj_edit/point_trial.h"

#include <array>
#include <cmath>

#include "basic/number.h"
#include "basic/str.h"
#include "proj4/proj4_str.h"
#include "text/own_texts.h"
#include "text/strconv.h"

namespace zu {
namespace {

constexpr char const* wgs_84 = "+proj=longlat +datum=WGS84 +no_defs";

// 1 for a letter of north or east, -1 for one of south or west, 0 for any other letter.
int side_of(wchar_t c) {
  if (std::wstring_view(L"NnEeСсВв").find(c) != std::wstring_view::npos) return 1;
  return std::wstring_view(L"SsWwЮюЗз").find(c) != std::wstring_view::npos ? -1 : 0;
}

// Removes such a letter from either end and returns its sign.
int take_side(std::wstring& text) {
  if (text.empty()) return 0;
  int const side = side_of(text.front());
  if (side != 0) {
    text.erase(0, 1);
    return side;
  }
  // An "s" behind a number may mean seconds.
  if (text.back() == L's' && text.find(L'm') != std::wstring::npos) return 0;
  int const last = side_of(text.back());
  if (last != 0) text.pop_back();
  return last;
}

// Degrees, minutes, seconds; missing ones are zero.
std::optional<std::array<double, 3>> read_parts(std::wstring const& text) {
  std::array<double, 3> parts{};
  std::size_t count = 0;
  std::string piece;
  for (wchar_t const c : text + L" ") {
    if ((c >= L'0' && c <= L'9') || c == L'.' || c == L'-' || c == L'+') {
      piece.push_back(static_cast<char>(c));
      continue;
    }
    if (std::wstring_view(L" \t°'\"′″’”dmsDM").find(c) == std::wstring_view::npos) return {};
    if (piece.empty()) continue;
    auto const number = number::read_double(piece);
    if (!number || count == parts.size() || (count > 0 && piece.front() == '-')) return {};
    parts.at(count) = *number;
    ++count;
    piece.clear();
  }
  return count == 0 || parts[1] >= 60 || parts[2] >= 60 ? std::nullopt : std::optional(parts);
}

}  // namespace

std::optional<double> read_angle(std::wstring_view text) {
  std::wstring trimmed(text);
  strutil::trim_inplace(trimmed);
  int const side = take_side(trimmed);
  auto const parts = read_parts(trimmed);
  if (!parts) return {};
  auto const [degrees, minutes, seconds] = *parts;
  bool const is_negative = std::signbit(degrees);
  if (is_negative && side != 0) return {};
  double const size = std::abs(degrees) + minutes / 60 + seconds / 3600;
  return is_negative || side < 0 ? -size : size;
}

void Tpoint_trial::set_definition(std::string const& definition) {
  is_ready_ = reproj_.init(wgs_84, definition.c_str());
  Tzu_proj4_str set;
  set.set(definition.c_str());
  set.decompose();
  is_geographic_ = set.get_is_long_lat();
}

trial_result Tpoint_trial::forward(double longitude, double latitude) {
  return transform(longitude, latitude, reproj_direction::forward);
}

trial_result Tpoint_trial::backward(double x, double y) {
  return transform(x, y, reproj_direction::backward);
}

trial_result Tpoint_trial::transform(double x, double y, reproj_direction direction) {
  if (!is_ready_) return {{}, get_own_text(own_text::no_transformation)};
  if (reproj_.apply(&x, &y, direction)) return {std::array{x, y}, {}};
  std::wstring const reason = strconv::from_utf8(reproj_.get_reason());
  return {{}, fill_own_text(own_text::point_refused, reason)};
}

}  // namespace zu
