#include "proj4/proj4_str.h"
#include "text/rc.h"
#include "text/strconv.h"

namespace {

// Of the interface texts.
constexpr int captions = 6;
constexpr int projection = 14;
constexpr int unknown = 29;

// Values come in the system's code page, captions in that of the interface.
std::string to_interface(std::string_view value) {
  return zu::strconv::encode(zu::strconv::encodings::cp1251, zu::strconv::from_system(value));
}

}  // namespace

char const* Tzu_proj4_str::get_text() {
  text_.clear();
  auto const add = [this](int entry, std::string_view value) {
    text_.append(Tzu_rc::get_str(captions, entry)).append(" = ").append(value).append("\r\n");
  };
  auto const tell = [&add](int entry, auto const& param) {
    if (param.get_def()) add(entry, to_interface(param.get_value_text()));
  };
  tell(projection, proj_);
  tell(33, zone_);
  tell(17, lon_0_);
  tell(18, lonc_);
  tell(19, lat_0_);
  tell(20, x_0_);
  tell(21, y_0_);
  tell(22, lat_1_);
  tell(23, lat_ts_);
  tell(24, lat_2_);
  tell(26, k_0_);
  tell(27, alpha_);
  tell(6, datum_);
  tell(7, towgs84_);
  tell(0, ellps_);
  tell(2, a_);
  tell(3, b_);
  tell(4, rf_);
  if (text_.empty()) add(projection, std::string(Tzu_rc::get_str(captions, unknown)));
  return text_.c_str();
}
