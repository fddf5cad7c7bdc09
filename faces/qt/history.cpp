#include "faces/qt/history.h"

#include <utility>

namespace zolt20::qt {

void History::Switch(bool on) {
  isOn_ = on;
  if (!on) Forget();
}

void History::Add(Step before, const Control* typing) {
  if (!isOn_) return;  // switched off within the step
  undo_.push_back(std::move(before));
  if (undo_.size() > kSteps) undo_.pop_front();
  redo_.clear();
  typing_ = typing;
}

void History::DropTyping() {
  undo_.pop_back();
  typing_ = nullptr;
}

void History::Forget() {
  undo_.clear();
  redo_.clear();
  typing_ = nullptr;
}

Step History::Undo(Step now) {
  redo_.push_back(std::move(now));
  Step before = std::move(undo_.back());
  undo_.pop_back();
  typing_ = nullptr;
  return before;
}

Step History::Redo(Step now) {
  undo_.push_back(std::move(now));
  Step after = std::move(redo_.back());
  redo_.pop_back();
  typing_ = nullptr;
  return after;
}

}  // namespace zolt20::qt
