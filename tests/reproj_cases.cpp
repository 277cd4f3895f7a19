#include "reproj_cases.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace reproj_test {
namespace {

using libproj::point;

constexpr char const* pulkovo_1942 =
    "+x=23.57 +y=-140.95 +z=-79.8 +rx=0 +ry=-0.35 +rz=-0.79 +s=-0.22";
constexpr char const* pulkovo_1942_key =
    " +ellps=krass +towgs84=23.57,-140.95,-79.8,0,-0.35,-0.79,-0.22";
constexpr char const* pz_90 = "+x=-1.08 +y=-0.27 +z=-0.9 +rx=0 +ry=0 +rz=-0.16 +s=-0.12";

system plain(std::string const& projection, std::string const& ellipsoid) {
  return {projection + " " + ellipsoid, projection, ellipsoid, ""};
}

system pulkovo(std::string const& projection) {
  return {(projection.empty() ? "+proj=longlat" : projection) + pulkovo_1942_key, projection,
          "+ellps=krass", pulkovo_1942};
}

system geographic(std::string const& ellipsoid) {
  return {"+proj=longlat " + ellipsoid, "", ellipsoid, ""};
}

struct step {
  std::string operation;
  bool inverse = false;
};

// From what the system has for coordinates to WGS 84 in radians. The sphere has
// no shift: its latitudes are taken as they are.
std::vector<step> steps_to_wgs84(system const& from) {
  std::vector<step> steps;
  if (from.projection.empty())
    steps.push_back({"+proj=unitconvert +xy_in=deg +xy_out=rad"});
  else
    steps.push_back({from.projection + " " + from.ellipsoid, true});
  if (from.helmert.empty()) return steps;
  steps.push_back({"+proj=cart " + from.ellipsoid});
  steps.push_back({"+proj=helmert +exact +convention=position_vector " + from.helmert});
  steps.push_back({"+proj=cart +ellps=WGS84", true});
  return steps;
}

std::string pipeline_of(pair const& which) {
  std::vector<step> steps = steps_to_wgs84(which.source);
  std::vector<step> const back = steps_to_wgs84(which.target);
  std::for_each(back.rbegin(), back.rend(), [&steps](step const& one) {
    steps.push_back({one.operation, !one.inverse});
  });
  std::string text = "+proj=pipeline";
  for (step const& one : steps)
    text.append(" +step ").append(one.inverse ? "+inv " : "").append(one.operation);
  return text;
}

void transform(libproj::Tcontext const& context, std::string const& operation,
               std::vector<point>& points) {
  libproj::object const made = context.create(operation);
  for (point& one : points) {
    PJ_COORD const result =
        proj_trans(made.get(), made ? PJ_FWD : PJ_IDENT, proj_coord(one.x, one.y, 0, HUGE_VAL));
    one = made ? point{result.xy.x, result.xy.y} : point{HUGE_VAL, HUGE_VAL};
  }
}

double turn_apart(double left, double right) { return std::abs(std::remainder(left - right, 360)); }

}  // namespace

std::vector<pair> const& pairs() {
  std::string const zone = "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0";
  std::string const lambert = "+proj=lcc +lat_1=52 +lat_2=64 +lat_0=58 +lon_0=45";
  std::string const arctic = "+proj=stere +lat_0=90 +lat_ts=70 +lon_0=105 +k=1";
  std::string const wgs84 = "+ellps=WGS84";
  system const pz90{
      "+proj=longlat +a=6378136 +rf=298.25784 +towgs84=-1.08,-0.27,-0.9,0,0,-0.16,-0.12", "",
      "+a=6378136 +rf=298.25784", pz_90};
  system const wgs84_shifted{"+proj=longlat +datum=WGS84", "", wgs84, ""};
  static std::vector<pair> const all{
      {"zone to WGS 84", pulkovo(zone), wgs84_shifted, 34, 41, 44, 78},
      {"WGS 84 to zone", wgs84_shifted, pulkovo(zone), 34, 41, 44, 78},
      {"UTM", geographic(wgs84), plain("+proj=utm +zone=37", wgs84), 33, -80, 45, 84},
      {"zone to UTM",
       pulkovo(zone),
       {"+proj=utm +zone=37 +datum=WGS84", "+proj=utm +zone=37", wgs84, ""},
       36,
       45,
       42,
       70},
      {"Lambert", pulkovo(lambert), wgs84_shifted, 20, 41, 100, 80},
      {"polar", wgs84_shifted, {arctic + " +datum=WGS84", arctic, wgs84, ""}, -180, 55, 180, 89.9},
      {"sphere", plain("+proj=merc", "+R=6371000"), geographic("+R=6371000"), -179.9, -85, 179.9,
       85},
      {"datums over Russia", pulkovo(""), pz90, 19, 41, 190, 82},
      {"datum over the world", wgs84_shifted, pulkovo(""), -180, -89, 180, 89},
      {"antimeridian", plain("+proj=utm +zone=1", wgs84), geographic(wgs84), 179, 50, 184, 80},
      {"Albers", plain("+proj=aea +lat_1=52 +lat_2=64 +lat_0=0 +lon_0=105 +x_0=18500000", wgs84),
       plain("+proj=laea +lat_0=60 +lon_0=90", wgs84), 20, 41, 190, 82}};
  return all;
}

std::vector<point> points_of(libproj::Tcontext const& context, pair const& which) {
  std::mt19937 random(17);  // NOLINT(cert-msc32-c,cert-msc51-cpp): repeatable
  auto const between = [&random](double low, double high) {
    return low + (high - low) * (static_cast<double>(random()) / 4294967296.0);
  };
  std::vector<point> points(points_per_pair);
  for (point& one : points) {
    one.x = between(which.west, which.east);
    one.y = between(which.south, which.north);
  }
  if (!which.source.projection.empty())
    transform(context,
              "+proj=pipeline +step +proj=unitconvert +xy_in=deg +xy_out=rad +step " +
                  which.source.projection + " " + which.source.ellipsoid,
              points);
  return points;
}

std::vector<point> by_hand(libproj::Tcontext const& context, pair const& which,
                           std::vector<point> points) {
  transform(context, pipeline_of(which), points);
  return points;
}

double apart(pair const& which, std::vector<point> const& left, std::vector<point> const& right) {
  bool const degrees = which.target.projection.empty();
  double largest = left.size() == right.size() ? 0 : std::numeric_limits<double>::infinity();
  for (std::size_t i = 0; i < std::min(left.size(), right.size()); ++i) {
    double const x = degrees ? turn_apart(left[i].x, right[i].x) : std::abs(left[i].x - right[i].x);
    double const distance = std::max(x, std::abs(left[i].y - right[i].y)) / (degrees ? 1e-9 : 1e-5);
    // A NaN compares as nothing.
    largest = distance <= largest    ? largest
              : std::isnan(distance) ? std::numeric_limits<double>::infinity()
                                     : distance;
  }
  return largest;
}

}  // namespace reproj_test
