// The search for listed systems by the words that a user types.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "finder/system_list.h"

namespace zu {

// Prepares a text for comparison: lower case, one blank between words, and a blank between a
// letter and a digit ("UTM zone 37N" becomes "utm zone 37 n"). UTF-8.
std::string fold_words(std::string_view text);

struct geographic_place {
  double longitude;  // degrees
  double latitude;
};

struct search_request {
  // Words in any order and case. Each word must be in a system's name, codes or area. Without
  // words all systems are found.
  std::string words;
  std::optional<system_kind> kind;
  std::optional<geographic_place> place;  // must be in the system's area
  bool deprecated = false;                // find deprecated systems as well
};

class Tsystem_search {
 public:
  // Systems added later come after earlier ones that fit equally well.
  void add(std::vector<listed_system> systems);

  std::vector<listed_system> const& systems() const noexcept { return systems_; }

  // Places in systems(), the best first, at most `limit` of them. The order: the system with
  // exactly this code or name; names that begin with the words; names in which all words begin
  // a word; the rest. Among equal ones: more of the words whole and together; known systems
  // before zones and systems of the EPSG, and these before others; the smaller area, when a
  // place is given; the shorter name.
  std::vector<std::size_t> find(search_request const& request, std::size_t limit) const;

 private:
  // Positions in text_ of parts that each have a blank at both ends.
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
