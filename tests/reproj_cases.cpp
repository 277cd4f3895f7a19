#include "reproj_cases.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace reproj_test {
namespace {

using libproj::point;

// With the key of its datum and the seven numbers as a step's, if it has a shift.
system make(std::string const& projection, std::string const& ellipsoid,
            std::string const& datum = "", std::string const& helmert = "") {
  return {(projection.empty() ? "+proj=longlat" : projection) + " " + ellipsoid + datum, projection,
          ellipsoid, helmert};
}

system pulkovo(std::string const& projection) {
  return make(projection, "+ellps=krass", " +towgs84=23.57,-140.95,-79.8,0,-0.35,-0.79,-0.22",
              "+x=23.57 +y=-140.95 +z=-79.8 +rx=0 +ry=-0.35 +rz=-0.79 +s=-0.22");
}

// Between what the system has for coordinates and WGS 84 in radians. The sphere
// has no shift: its latitudes are taken as they are.
std::string steps(system const& of, bool to_wgs84) {
  std::string const there = to_wgs84 ? " +step " : " +step +inv ";
  std::string const back = to_wgs84 ? " +step +inv " : " +step ";
  std::string first = of.projection.empty() ? there + "+proj=unitconvert +xy_in=deg +xy_out=rad"
                                            : back + of.projection + " " + of.ellipsoid;
  if (of.helmert.empty()) return first;
  std::string const cart = there + "+proj=cart " + of.ellipsoid;
  std::string const shift =
      there + "+proj=helmert +exact +convention=position_vector " + of.helmert;
  std::string const wgs84 = back + "+proj=cart +ellps=WGS84";
  return to_wgs84 ? first + cart + shift + wgs84 : wgs84 + shift + cart + first;
}

void transform(libproj::Tcontext const& context, std::string const& steps,
               std::vector<point>& points) {
  libproj::object const made = context.create("+proj=pipeline" + steps);
  for (point& one : points) {
    PJ_COORD const result =
        proj_trans(made.get(), made ? PJ_FWD : PJ_IDENT, proj_coord(one.x, one.y, 0, HUGE_VAL));
    one = made ? point{result.xy.x, result.xy.y} : point{HUGE_VAL, HUGE_VAL};
  }
}

}  // namespace

std::vector<pair> const& pairs() {
  std::string const zone = "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0";
  std::string const lambert = "+proj=lcc +lat_1=52 +lat_2=64 +lat_0=58 +lon_0=45";
  std::string const arctic = "+proj=stere +lat_0=90 +lat_ts=70 +lon_0=105 +k=1";
  std::string const wgs84 = "+ellps=WGS84";
  std::string const utm = "+proj=utm +zone=37";
  std::string const sphere = "+R=6371000";
  std::string const datum = " +datum=WGS84";
  system const pz90 =
      make("", "+a=6378136 +rf=298.25784", " +towgs84=-1.08,-0.27,-0.9,0,0,-0.16,-0.12",
           "+x=-1.08 +y=-0.27 +z=-0.9 +rx=0 +ry=0 +rz=-0.16 +s=-0.12");
  system const shifted = make("", "+ellps=WGS84", datum);
  static std::vector<pair> const all{
      {"zone to WGS 84", pulkovo(zone), shifted, 34, 41, 44, 78},
      {"WGS 84 to zone", shifted, pulkovo(zone), 34, 41, 44, 78},
      {"UTM", make("", wgs84), make(utm, wgs84), 33, -80, 45, 84},
      {"zone to UTM", pulkovo(zone), make(utm, wgs84, datum), 36, 45, 42, 70},
      {"Lambert", pulkovo(lambert), shifted, 20, 41, 100, 80},
      {"polar", shifted, make(arctic, wgs84, datum), -180, 55, 180, 89.9},
      {"sphere", make("+proj=merc", sphere), make("", sphere), -179.9, -85, 179.9, 85},
      {"datums over Russia", pulkovo(""), pz90, 19, 41, 190, 82},
      {"datum over the world", shifted, pulkovo(""), -180, -89, 180, 89},
      {"antimeridian", make("+proj=utm +zone=1", wgs84), make("", wgs84), 179, 50, 184, 80},
      {"Albers", make("+proj=aea +lat_1=52 +lat_2=64 +lat_0=0 +lon_0=105 +x_0=18500000", wgs84),
       make("+proj=laea +lat_0=60 +lon_0=90", wgs84), 20, 41, 190, 82}};
  return all;
}

std::vector<point> points_of(libproj::Tcontext const& context, pair const& which) {
  std::mt19937 random(17);  // NOLINT(cert-msc51-cpp): repeatable
  auto const between = [&random](double low, double high) {
    return low + (high - low) * (static_cast<double>(random()) / 4294967296.0);
  };
  std::vector<point> points(20000);
  for (point& one : points) {
    one.x = between(which.west, which.east);
    one.y = between(which.south, which.north);
  }
  if (!which.source.projection.empty())
    transform(context,
              steps(make("", ""), true) +
                  steps(make(which.source.projection, which.source.ellipsoid), false),
              points);
  return points;
}

std::vector<point> by_hand(libproj::Tcontext const& context, pair const& which,
                           std::vector<point> points) {
  transform(context, steps(which.source, true) + steps(which.target, false), points);
  return points;
}

double apart(pair const& which, std::vector<point> const& left, std::vector<point> const& right) {
  bool const degrees = which.target.projection.empty();
  double largest = left.size() == right.size() ? 0 : HUGE_VAL;
  for (std::size_t i = 0; i < std::min(left.size(), right.size()); ++i) {
    double const x = left[i].x - right[i].x;
    double const distance =
        std::hypot(degrees ? std::remainder(x, 360) : x, left[i].y - right[i].y) /
        (degrees ? 1e-9 : 1e-5);
    // A NaN compares as nothing.
    largest = std::isnan(distance) ? HUGE_VAL : std::max(largest, distance);
  }
  return largest;
}

}  // namespace reproj_test
