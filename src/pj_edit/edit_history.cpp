#include "pj_edit/edit_history.h"

#include <utility>

namespace zu {
namespace {

// They take about half a megabyte.
constexpr std::size_t most_steps = 500;

}  // namespace

void Tedit_history::start(edit_step first) {
  steps_.clear();
  steps_.push_back(std::move(first));
  current_ = 0;
}

void Tedit_history::record(edit_step step) {
  if (step == steps_[current_]) return;
  steps_.resize(current_ + 1);
  steps_.push_back(std::move(step));
  if (steps_.size() > most_steps) steps_.pop_front();
  current_ = steps_.size() - 1;
}

edit_step const& Tedit_history::undo() {
  if (can_undo()) --current_;
  return steps_[current_];
}

edit_step const& Tedit_history::redo() {
  if (can_redo()) ++current_;
  return steps_[current_];
}

}  // namespace zu
