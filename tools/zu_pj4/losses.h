// Reports what definitions lose when the library reads them.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "error.h"
#include "proj4/reading_report.h"

enum class loss_mode { warn, refuse, quiet };

// A definition loses something, and the user does not allow that.
class Tloss_error : public Terror {
 public:
  using Terror::Terror;
};

class Tlosses {
 public:
  // Gets each report in the mode `warn`.
  using receiver = std::function<void(std::string const& sentence)>;

  Tlosses(receiver warn, loss_mode mode) : warn_(std::move(warn)), mode_(mode) {}
  // The same mode with another receiver.
  Tlosses told_to(receiver warn) const { return {std::move(warn), mode_}; }

  // Reports each loss of a definition in the library's encoding. `where` stands before
  // the report; it ends in ": " or is empty. Throws Tloss_error in the mode `refuse`.
  void tell(std::string_view definition, std::string const& where = {}) const;
  // Reports only the losses for which `is_lost` is true.
  void tell(std::string_view definition,
            std::function<bool(zu::reading_loss const&)> const& is_lost) const;
  // Reports the name of the system that PROJ chose for a text that is only similar to that
  // name. UTF-8; an empty name is not reported.
  void tell_name_taken(std::string const& name, std::string const& where) const;
  // Reports one sentence in the same way.
  void tell_one(std::string const& sentence) const;

 private:
  receiver warn_;
  loss_mode mode_;
};
