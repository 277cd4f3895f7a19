// Reports what definitions lose when the library reads them.
#pragma once

#include <string>
#include <string_view>

#include "basic/env.h"
#include "error.h"

enum class loss_mode { warn, refuse, quiet };

// A definition loses something, and the user does not allow that.
class Tloss_error : public Terror {
 public:
  using Terror::Terror;
};

class Tlosses {
 public:
  // The environment must outlive this.
  Tlosses(Tzu_env& env, loss_mode mode) : env_(&env), mode_(mode) {}

  // Reports each loss of a definition in the library's encoding. `where` stands before
  // the report; it ends in ": " or is empty. Throws Tloss_error in the mode `refuse`.
  void tell(std::string_view definition, std::string const& where = {}) const;
  // Reports the name of the system that PROJ chose for a text that is only similar to that
  // name. UTF-8; an empty name is not reported.
  void tell_name_taken(std::string const& name, std::string const& where) const;
  // Reports one sentence in the same way.
  void tell_one(std::string const& sentence) const;

 private:
  Tzu_env* env_;
  loss_mode mode_;
};
