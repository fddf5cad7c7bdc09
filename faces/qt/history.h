// What Undo and Redo put back: states of the control, from before each step of a person.
#pragma once

#include <QVariant>
#include <cstddef>
#include <deque>
#include <optional>
#include <vector>

#include "shell/control.h"

namespace zolt20::qt {

/// A state to go back to.
struct Step {
  ControlSnapshot state;
  QVariant hostData;  // a value of the host's that goes with it
};

class History {
 public:
  static constexpr std::size_t kSteps = 200;

  bool IsOn() const { return isOn_; }
  /// Switched off it forgets, and keeps nothing.
  void Switch(bool on);

  bool CanUndo() const { return !undo_.empty(); }
  bool CanRedo() const { return !redo_.empty(); }

  /// Whether typing into the control goes on with the step before.
  bool IsTypingIn(const Control& control) const { return typing_ == &control; }
  /// A step was done, from this state. Typing into `typing` goes on with it.
  void Add(Step before, const Control* typing);
  /// The run of typing has come back to where it began: it is no step.
  void DropTyping();
  /// A run of typing is over.
  void EndTyping() { typing_ = nullptr; }
  void Forget();

  /// The state to put back, in exchange for the state as it is now. There is one.
  Step Undo(Step now);
  Step Redo(Step now);

 private:
  bool isOn_ = true;
  std::deque<Step> undo_;
  std::vector<Step> redo_;
  const Control* typing_ = nullptr;
};

}  // namespace zolt20::qt
