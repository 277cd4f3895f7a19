// Steps back and forth between the states of an edited definition.
#pragma once

#include <cstddef>
#include <deque>

#include "pj_edit/edit_state.h"

namespace zu {

class Tedit_history {
 public:
  // Forgets all steps and starts with this one.
  void start(edit_step first);
  // Adds a step after the current one and drops the steps that were undone. Adds none when
  // nothing has changed. Forgets the first steps when there are very many.
  void record(edit_step step);

  bool can_undo() const noexcept { return current_ > 0; }
  bool can_redo() const noexcept { return current_ + 1 < steps_.size(); }
  // Both return the new current step. It is the same as before when there is no step to go to.
  edit_step const& undo();
  edit_step const& redo();

 private:
  std::deque<edit_step> steps_{1};
  std::size_t current_ = 0;
};

}  // namespace zu
