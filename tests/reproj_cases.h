// Systems that a survey of Russia meets, each beside what makes it by hand of
// PROJ's own operations, and points in them.
#pragma once

#include <string>
#include <vector>

#include "libproj.h"

namespace reproj_test {

struct system {
  std::string definition;
  // From radians to the plane; empty for a geographic system.
  std::string projection;
  std::string ellipsoid;
  // The seven numbers as a step's keys; empty for none.
  std::string helmert;
};

struct pair {
  char const* name = nullptr;
  system source;
  system target;
  // Degrees in the source's datum.
  double west = 0;
  double south = 0;
  double east = 0;
  double north = 0;
};

// Eleven pairs.
std::vector<pair> const& pairs();

// 20,000 points of the source system inside the pair's limits, always the same ones.
std::vector<libproj::point> points_of(libproj::Tcontext const& context, pair const& which);

// Where PROJ's own operations, put together by hand, bring points.
std::vector<libproj::point> by_hand(libproj::Tcontext const& context, pair const& which,
                                    std::vector<libproj::point> points);

// How far two results for the target are apart: the farthest pair of points as a
// part of what is allowed (1e-9 degree, 1e-5 m). Longitudes a turn apart are
// equal. Infinite when a point is missing or not finite.
double apart(pair const& which, std::vector<libproj::point> const& left,
             std::vector<libproj::point> const& right);

}  // namespace reproj_test
