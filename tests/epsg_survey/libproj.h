// PROJ as an independent party for tests: how it reads a definition.
#pragma once

#include <proj.h>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace libproj {

struct context_closer {
  void operator()(PJ_CONTEXT* context) const noexcept { proj_context_destroy(context); }
};
struct object_closer {
  void operator()(PJ* object) const noexcept { proj_destroy(object); }
};
using object = std::unique_ptr<PJ, object_closer>;

// A context that does not print and does not use the network.
class Tcontext {
 public:
  Tcontext();
  PJ_CONTEXT* get() const noexcept { return context_.get(); }
  object create(std::string const& text) const { return object(proj_create(get(), text.c_str())); }

 private:
  std::unique_ptr<PJ_CONTEXT, context_closer> context_;
};

// The keys of a definition in order, without "+"; a flag has an empty value.
using key_list = std::vector<std::pair<std::string, std::string>>;
key_list keys_of(std::string_view definition);
std::optional<std::string> value_of(key_list const& keys, std::string_view key);
// "+key=value ..." for the wanted keys.
std::string join(
    key_list const& keys,
    std::function<bool(std::string const&)> const& wanted = [](auto const&) { return true; });

// Kinds of keys: for the ellipsoid and the datum, for the unit, and keys that move no
// coordinate.
bool is_geodetic(std::string_view key);
bool is_unit(std::string_view key);
bool is_neutral(std::string_view key);
// All others.
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

struct ellipsoid {
  double a = 0;
  double b = 0;
};
// The ellipsoid of a coordinate system; empty when the definition is none.
std::optional<ellipsoid> ellipsoid_of(Tcontext const& context, std::string const& crs);
// Metres (or radians) to the unit of the first axis of a coordinate system.
std::optional<double> unit_of(Tcontext const& context, std::string const& crs);

}  // namespace libproj
