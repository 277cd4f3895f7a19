// Steps back and forth between the states of an edited definition.
#pragma once

#include <cstddef>
#include <deque>

#include "pj_edit/edit_state.h"

namespace zu {

class Tedit_history {
 public:
  // Forgets all; there is one step then.
  void start(edit_step first);
  // Adds a step behind the current one, in place of those that were taken back; none
  // where nothing has changed. Of very many the first are forgotten.
  void record(edit_step step);

  bool can_undo() const noexcept { return current_ > 0; }
  bool can_redo() const noexcept { return current_ + 1 < steps_.size(); }
  // The step that is current then; the same where there is none to go to.
  edit_step const& undo();
  edit_step const& redo();

 private:
  std::deque<edit_step> steps_{1};
  std::size_t current_ = 0;
};

}  // namespace zu
