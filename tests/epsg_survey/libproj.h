// PROJ as an independent party for tests: how it reads a definition.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "proj4/proj_library.h"

namespace libproj {

using zu::proj_library::object;

// A context that does not print and does not use the network.
class Tcontext {
 public:
  Tcontext();
  PJ_CONTEXT* get() const noexcept { return context_.get(); }
  object create(std::string const& text) const { return object(proj_create(get(), text.c_str())); }

 private:
  zu::proj_library::context context_;
};

// The keys of a definition in order, without "+"; a flag has an empty value.
using key_list = std::vector<std::pair<std::string, std::string>>;
key_list keys_of(std::string_view definition);
std::optional<std::string> value_of(key_list const& keys, std::string_view key);
// "+key=value ..." for the wanted keys.
using wanted_keys = std::function<bool(std::string const&)>;
std::string join(key_list const& keys, wanted_keys const& wanted);

// Keys for the ellipsoid and the datum. Those of the projection are all others but for the
// unit and those that move no coordinate.
bool is_geodetic(std::string_view key);
bool is_of_projection(std::string_view key);

struct point {
  double x = 0;
  double y = 0;
};

// Results of an operation for points in degrees, in metres; an angle becomes metres on
// the equator. No value where the operation fails.
std::vector<std::optional<point>> project(Tcontext const& context, std::string const& operation,
                                          std::vector<point> const& degrees);

// The largest distance in metres between two results; infinite for a point with a value
// in only one of them. Empty when no point has a value in either.
std::optional<double> distance(std::vector<std::optional<point>> const& left,
                               std::vector<std::optional<point>> const& right);
// Whether they are less than a millimetre apart.
bool are_near(std::vector<std::optional<point>> const& left,
              std::vector<std::optional<point>> const& right);

struct ellipsoid {
  double a = 0;
  double b = 0;
};
// The ellipsoid of a coordinate system; empty when the definition is none.
std::optional<ellipsoid> ellipsoid_of(Tcontext const& context, std::string const& crs);
// Whether there are both, within a tenth of a millimetre.
bool are_alike(std::optional<ellipsoid> const& left, std::optional<ellipsoid> const& right);
// Whether two coordinate systems have the same unit on their first axis.
bool have_same_unit(Tcontext const& context, std::string const& left, std::string const& right);

// The points by the keys of the projection alone, on an ellipsoid; and by those of the datum
// alone, without grids.
std::vector<std::optional<point>> projected(Tcontext const& context, key_list const& keys,
                                            ellipsoid const& shape,
                                            std::vector<point> const& degrees,
                                            wanted_keys const& wanted = is_of_projection);
std::vector<std::optional<point>> shifted(Tcontext const& context, key_list const& keys,
                                          std::vector<point> const& degrees);

}  // namespace libproj
