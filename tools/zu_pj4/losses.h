// What definitions lose on being read, for who called the program.
#pragma once

#include <string>
#include <string_view>

#include "basic/env.h"
#include "error.h"

enum class loss_mode { warn, refuse, quiet };

// A definition that would lose something where nothing may be lost.
class Tloss_error : public Terror {
 public:
  using Terror::Terror;
};

class Tlosses {
 public:
  // The environment must outlive this.
  Tlosses(Tzu_env& env, loss_mode mode) : env_(&env), mode_(mode) {}

  // Tells each loss of a definition in the library's encoding, behind `where`, which
  // ends in ": " or is empty. Throws Tloss_error instead where that is wanted.
  void tell(std::string_view definition, std::string const& where = {}) const;
  // Tells of a system that PROJ took for a text that is only like its name, in UTF-8;
  // empty when it did not.
  void tell_name_taken(std::string const& name, std::string const& where) const;
  // The same of a sentence.
  void tell_one(std::string const& sentence) const;

 private:
  Tzu_env* env_;
  loss_mode mode_;
};
