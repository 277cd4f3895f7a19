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

// Geographic coordinates are degrees, longitude first; projected ones are in the
// unit of their definition, easting first. A transformer has a PROJ context of
// its own: the process's default context, which is the host's, is not touched,
// and nothing is printed.
//
// One thread at a time uses a transformer; two transformers are independent.
class Tzu_reproj_xy_exec {
 public:
  // Takes two PROJ.4 texts, narrow ones in the system's code page; null counts as
  // empty. False when PROJ makes no operation of them; every apply then fails.
  // The same two definitions again keep the operation, whose making is dear.
  bool init(char const* source, char const* target);
  bool init(wchar_t const* source, wchar_t const* target);
  // Takes two coordinate systems in any notation that PROJ reads (a definition, a
  // code, a name, WKT, a URN), in UTF-8, and hands them over as they are written:
  // nothing is read, dropped or added, and longitudes are PROJ's own. For who wants
  // PROJ's answer, as the command line does; hosts' data live by the definitions as
  // the library reads them, which init gives. False as there.
  bool init_as_written(std::string const& source, std::string const& target);
  void clear() noexcept;
  bool has_operation() const noexcept { return normalized_ != nullptr; }

  // Transform in place. A point that fails is left with a coordinate that is not
  // finite and makes the result false; the others are transformed all the same.
  // Without an operation every result is false, and points of a geographic
  // source are left in radians. Arrays are of `count` elements each.
  bool apply(double* x, double* y, reproj_direction direction = reproj_direction::forward);
  bool apply(std::size_t count, double* x, double* y,
             reproj_direction direction = reproj_direction::forward);
  // Why the last single point failed, in PROJ's words; empty where it did not.
  std::string get_reason() const;
  bool apply(Tzu_xy_array& points, reproj_direction direction = reproj_direction::forward) {
    return apply(points.get_size(), points.get_x_ptr(), points.get_y_ptr(), direction);
  }

  // Whether PROJ makes an operation of the definition in the form in which init
  // would hand it over. Narrow text in the system's code page.
  static bool verify_pj4str(char const* definition);

  // Whether PROJ finds a coordinate system in a text as it is written, and whether
  // its coordinates are angles.
  static bool verify_as_written(std::string const& text);
  // The same, also whether PROJ gets from it to geographic coordinates; PROJ's reason
  // where not.
  static bool has_operation_as_written(std::string const& text, std::string& reason);
  static bool is_geographic_as_written(std::string const& text);
  // The system that PROJ takes for a text that is only like its name; empty where the
  // text says exactly what is meant. UTF-8.
  static std::string find_name_taken(std::string const& text);

  // West, south, east and north of where a system as written is used, in degrees;
  // nothing where PROJ does not know. East is more than 180 over that meridian.
  static std::optional<std::array<double, 4>> find_area_of_use(std::string const& text);

  // The grids of the best ways between two systems as written that are not there, so
  // that PROJ has to take another way. None is ever fetched. Takes milliseconds.
  static std::vector<std::string> find_missing_grids(std::string const& source,
                                                     std::string const& target);

  // Arrays from this size on are shared among the processors.
  static std::size_t get_parallel_size() noexcept;

 private:
  // What a thread beside the caller's works with; kept for the next long array.
  struct Thelper {
    zu::proj_library::context context;
    zu::proj_library::object operation;
  };

  bool take(std::string source, std::string target);
  bool create();
  bool transform_shared(std::size_t count, double* x, double* y, PJ_DIRECTION direction);
  // How many of the wanted there are.
  std::size_t prepare_helpers(std::size_t wanted);

  zu::proj_library::context context_;
  zu::proj_library::object operation_;
  zu::proj_library::object normalized_;
  bool angular_input_ = false;
  bool angular_output_ = false;
  // What the operation was made of, as handed to PROJ.
  std::string source_;
  std::string target_;
  std::vector<Thelper> helpers_;
};
