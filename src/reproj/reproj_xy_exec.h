// The PROJ step of a transformation: from one definition to another.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "proj4/proj_library.h"
#include "reproj/xy_array.h"

// From the source definition to the target, or back.
enum class reproj_direction { forward, backward };

// What a caller does with the points of a long array before and after they are transformed.
// The thread that transforms a block of them does it, so the threads share this work, too:
// several threads call it at the same time, each for other points. It is also called if there is
// no operation. The caller owns it, and keeps it until the call for the array returns.
class Tblock_work {
 public:
  virtual void before(std::size_t first, std::size_t count) noexcept = 0;
  virtual void after(std::size_t first, std::size_t count) noexcept = 0;

 protected:
  ~Tblock_work() = default;
};

// Geographic coordinates are degrees, longitude first; projected ones have the unit of
// their definition, easting first. A transformer has its own PROJ context: it does not
// use the default context of the process, which belongs to the host, and prints nothing.
//
// One thread at a time may use a transformer; two transformers are independent.
class Tzu_reproj_xy_exec {
 public:
  // Takes two PROJ.4 texts; narrow texts are in the system's code page, and null is an
  // empty text. False when PROJ finds no operation for them; every apply then fails. The
  // same two definitions again keep the operation, because making one is slow.
  bool init(char const* source, char const* target);
  bool init(wchar_t const* source, wchar_t const* target);
  // Takes two coordinate systems in any notation that PROJ reads (a definition, a code, a
  // name, WKT, a URN), in UTF-8, and gives them to PROJ as they are: the library does not
  // read them, and longitudes have PROJ's own range. The command line uses it to give
  // PROJ's answer; hosts get the definitions as the library reads them, by init. False
  // as for init.
  bool init_as_written(std::string const& source, std::string const& target);
  // Takes the operation of another transformer, which is faster than making it. False when
  // the other one has none, or when there is no memory.
  bool init_as(Tzu_reproj_xy_exec const& other);
  void clear() noexcept;
  bool has_operation() const noexcept { return normalized_ != nullptr; }

  // Transform in place. A point that fails gets a coordinate that is not finite, and the
  // result is false; the other points are transformed. Without an operation the result
  // is false, and points of a geographic source are in radians afterwards. Each array
  // has `count` elements.
  bool apply(double* x, double* y, reproj_direction direction = reproj_direction::forward);
  bool apply(std::size_t count, double* x, double* y,
             reproj_direction direction = reproj_direction::forward, Tblock_work* work = nullptr);
  // Why the last single point failed, in PROJ's words; empty when it did not fail.
  std::string get_reason() const;
  bool apply(Tzu_xy_array& points, reproj_direction direction = reproj_direction::forward) {
    return apply(points.get_size(), points.get_x_ptr(), points.get_y_ptr(), direction);
  }

  // Whether PROJ accepts the definition in the form that init gives it. Narrow text in
  // the system's code page.
  static bool verify_pj4str(char const* definition);

  // Whether PROJ finds a coordinate system in a text that it gets as it is written.
  static bool verify_as_written(std::string const& text);
  // Whether PROJ also finds an operation from geographic coordinates to it; `reason` is
  // PROJ's where it does not.
  static bool has_operation_as_written(std::string const& text, std::string& reason);
  // Whether its coordinates are angles.
  static bool is_geographic_as_written(std::string const& text);
  // The name of the system that PROJ chose for a text that is only similar to that name;
  // empty where the text is exact. UTF-8.
  static std::string find_name_taken(std::string const& text);

  // West, south, east and north of the area of use of a system as written, in degrees;
  // nothing where PROJ does not know it. East is more than 180 where the area crosses
  // that meridian.
  static std::optional<std::array<double, 4>> find_area_of_use(std::string const& text);

  // The missing grids of the best ways between two systems as written; without them PROJ
  // takes another way. No grid is downloaded. Takes milliseconds.
  static std::vector<std::string> find_missing_grids(std::string const& source,
                                                     std::string const& target);

  // From this size on the processors share an array.
  static std::size_t get_parallel_size() noexcept;

 private:
  // The PROJ objects of an additional thread; kept for the next long array.
  struct Thelper {
    zu::proj_library::context context;
    zu::proj_library::object operation;
  };

  bool take(std::string source, std::string target);
  bool create();
  class Tarray;

  bool share(Tarray& array);
  // Returns how many of the wanted helpers exist.
  std::size_t prepare_helpers(std::size_t wanted);

  zu::proj_library::context context_;
  zu::proj_library::object operation_;
  zu::proj_library::object normalized_;
  bool angular_input_ = false;
  bool angular_output_ = false;
  // The texts that PROJ got for the operation.
  std::string source_;
  std::string target_;
  std::vector<Thelper> helpers_;
};
