// Systems that a survey of Russia meets, and points in them.
#pragma once

#include <random>
#include <string>
#include <vector>

#include "reproj/reproj_xy.h"

namespace reproj_test {

struct point {
  double x = 0;
  double y = 0;
};

struct pair {
  char const* name;
  std::string source;
  std::string target;
  // Degrees in the source's datum.
  double west, south, east, north;
};

inline std::vector<pair> const& pairs() {
  std::string const pulkovo = " +ellps=krass +towgs84=23.57,-140.95,-79.8,0,-0.35,-0.79,-0.22";
  std::string const zone = "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0" + pulkovo;
  std::string const lambert = "+proj=lcc +lat_1=52 +lat_2=64 +lat_0=58 +lon_0=45" + pulkovo;
  std::string const utm = "+proj=utm +zone=37 +datum=WGS84";
  std::string const geographic = "+proj=longlat +datum=WGS84";
  std::string const pz90 =
      "+proj=longlat +a=6378136 +rf=298.25784 +towgs84=-1.08,-0.27,-0.9,0,0,-0.16,-0.12";
  static std::vector<pair> const all{
      {"zone to WGS 84", zone, geographic, 34, 41, 44, 78},
      {"WGS 84 to zone", geographic, zone, 34, 41, 44, 78},
      {"UTM", geographic, utm, 33, -80, 45, 84},
      {"zone to UTM", zone, utm, 36, 45, 42, 70},
      {"Lambert", lambert, geographic, 20, 41, 100, 80},
      {"polar", geographic, "+proj=stere +lat_0=90 +lat_ts=70 +lon_0=105 +k=1 +datum=WGS84", -180,
       55, 180, 89.9},
      {"sphere", "+proj=merc +R=6371000", "+proj=longlat +R=6371000", -179.9, -85, 179.9, 85},
      {"datums over Russia", "+proj=longlat" + pulkovo, pz90, 19, 41, 190, 82},
      {"datum over the world", geographic, "+proj=longlat" + pulkovo, -180, -89, 180, 89},
      {"antimeridian", "+proj=utm +zone=1 +ellps=WGS84", "+proj=longlat +ellps=WGS84", 179, 50, 184,
       80},
      {"Albers", "+proj=aea +lat_1=52 +lat_2=64 +lon_0=105 +x_0=18500000 +ellps=WGS84",
       "+proj=laea +lat_0=60 +lon_0=90 +ellps=WGS84", 20, 41, 190, 82}};
  return all;
}

// 20,000 points of the source system inside the pair's limits, always the same ones.
inline std::vector<point> points_of(pair const& which) {
  std::mt19937 random(17);  // NOLINT(cert-msc51-cpp): repeatable
  auto const between = [&random](double low, double high) {
    return low + (high - low) * (static_cast<double>(random()) / 4294967296.0);
  };
  Tzu_reproj_xy from_degrees;
  bool const is_geographic = which.source.starts_with("+proj=longlat");
  if (!is_geographic) from_degrees.init_from_latlong(which.source.c_str());
  std::vector<point> points(20000);
  for (point& one : points) {
    one = {between(which.west, which.east), between(which.south, which.north)};
    if (!is_geographic) from_degrees.apply(&one.x, &one.y);
  }
  return points;
}

}  // namespace reproj_test
