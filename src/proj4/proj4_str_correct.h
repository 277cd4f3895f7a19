// Patches a definition into the form that GDAL's PROJ.4 import expects.
#pragma once

#include <string>

#include "proj4/proj4_str.h"

class Tzu_proj4_str_correct {
 public:
  // Takes and parses a definition. Null counts as empty.
  void set_proj4(char const* text);
  // Parses the last definition again.
  void load_src();
  // Composes; the text is valid until the next operation.
  char const* get_proj4();
  void save_dst();
  bool get_changed() const noexcept { return changed_; }

  // Gives a Lambert conic its second parallel and its origin where they are missing. Both get
  // the value of lat_1, even when lat_1 itself is not defined. True when something was
  // changed.
  bool patch_lcc_1sp_for_gdal();
  // Omits "+lon_wrap=45". Always true.
  bool patch_lon_wrap_for_gdal();
  // Does all of the above with a text. The result is valid until the next operation.
  char const* patch_proj4_for_gdal(char const* text);

 private:
  Tzu_proj4_str set_;
  std::string source_;
  std::string destination_;
  bool changed_ = false;
};
