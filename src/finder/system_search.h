// The search among listed systems, by words as a user types them.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "finder/system_list.h"

namespace zu {

// A text as it is compared: lower case, words parted by one blank, a letter and a digit
// beside each other parted, too ("UTM zone 37N" is "utm zone 37 n"). UTF-8.
std::string fold_words(std::string_view text);

struct geographic_place {
  double longitude;  // degrees
  double latitude;
};

struct search_request {
  // In any order and case; each is to be in a system's name, codes or area. None finds
  // all.
  std::string words;
  std::optional<system_kind> kind;
  std::optional<geographic_place> place;  // to be in the system's area
  bool deprecated = false;                // these, too
};

class Tsystem_search {
 public:
  // Later systems stand behind earlier ones that fit as well.
  void add(std::vector<listed_system> systems);

  std::vector<listed_system> const& systems() const noexcept { return systems_; }

  // Places in systems(), the best first: one with just this code or name; names that
  // begin so; all words begin words of the name; the rest. Of equal ones those with
  // more of the words whole and together, then the known systems, then zones and the
  // EPSG's, then, where a place is given, the smaller area, then the shorter name. At
  // most `limit`.
  std::vector<std::size_t> find(search_request const& request, std::size_t limit) const;

 private:
  // Parts of text_, each with a blank at both ends.
  struct Tkey {
    std::size_t begin = 0;  // the name
    std::size_t words = 0;  // end of the name, id and other words
    std::size_t end = 0;    // end of these and the area
  };

  std::vector<listed_system> systems_;
  std::vector<Tkey> keys_;
  std::vector<std::string> codes_;  // of each system, "\ncode\ncode\n"
  std::string text_;
};

}  // namespace zu
