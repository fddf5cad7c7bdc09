// Undo and redo: two stacks of snapshots of the control, each from before a step of the person.
// Knows no platform.
#pragma once

#include <any>
#include <cstddef>
#include <deque>
#include <optional>
#include <utility>
#include <vector>

#include "faces/shared/shown_text.h"
#include "shell/control.h"

namespace zolt20::faces {

/// How the history records a gesture: as a step of its own, merged with the texts or the keys that
/// were typed before it in the same box, or not at all.
enum class Recording { kStep, kTypedText, kTypedKeys, kNothing };

class History {
 public:
  static constexpr std::size_t kSteps = 200;

  /// A state to go back to.
  struct Step {
    ControlSnapshot state;
    std::any hostData;  ///< a value of the host's that goes with the state
  };

  bool IsOn() const { return isOn_; }
  /// Switching off clears the history; while it is off, nothing is recorded.
  void Switch(bool on) {
    isOn_ = on;
    if (!on) Forget();
  }

  bool CanUndo() const { return !undo_.empty(); }
  bool CanRedo() const { return !redo_.empty(); }

  /// A gesture on `source` begins.
  void Begin(const ZOLT20MapControl& control, const std::any& hostData, const Control& source,
             Recording recording) {
    recording_ = recording;
    source_ = &source;
    goesOn_ = typing_ == &source && typingRecording_ == recording;
    before_.reset();
    if (!isOn_ || goesOn_ || recording == Recording::kNothing) return;
    before_ = Step{control.Save(), hostData};
    textBefore_ = TextOf(source);
  }
  /// Whether the gesture is merged with the step before.
  bool GoesOn() const { return goesOn_; }
  /// The gesture is over; `anythingChanged` unless it changed the focus alone or nothing. Returns
  /// whether the steps changed.
  bool End(bool anythingChanged) {
    std::optional<Step> before = std::exchange(before_, std::nullopt);
    if (!goesOn_) typing_ = nullptr;
    if (before && anythingChanged) {
      Add(std::move(*before));
      return true;
    }
    // A run of typing that has come back to the text where it began is dropped as a step.
    if (!goesOn_ || undo_.empty() || !textBefore_ ||
        StringView(*textBefore_) != StringView(TypedText(*source_)))
      return false;
    undo_.pop_back();
    typing_ = nullptr;
    return true;
  }

  void Forget() {
    undo_.clear();
    redo_.clear();
    typing_ = nullptr;
  }

  /// Returns the state to restore and stores `now` on the other stack. Not on an empty stack.
  Step Undo(Step now) { return Exchange(std::move(now), undo_, redo_); }
  Step Redo(Step now) { return Exchange(std::move(now), redo_, undo_); }

 private:
  void Add(Step before) {
    if (!isOn_) return;  // switched off within the step
    undo_.push_back(std::move(before));
    if (undo_.size() > kSteps) undo_.pop_front();
    redo_.clear();
    typing_ = recording_ == Recording::kTypedText || recording_ == Recording::kTypedKeys ? source_
                                                                                         : nullptr;
    typingRecording_ = recording_;
  }

  template <typename From, typename To>
  Step Exchange(Step now, From& from, To& to) {
    to.push_back(std::move(now));
    Step taken = std::move(from.back());
    from.pop_back();
    typing_ = nullptr;
    return taken;
  }

  bool isOn_ = true;
  std::deque<Step> undo_;
  std::vector<Step> redo_;
  const Control* typing_ = nullptr;  // the box that a run of typing is in
  Recording typingRecording_ = Recording::kTypedText;

  // Of the gesture in progress.
  Recording recording_ = Recording::kStep;
  const Control* source_ = nullptr;
  bool goesOn_ = false;
  std::optional<Step> before_;
  std::optional<String> textBefore_;  // when the run of typing began
};

}  // namespace zolt20::faces
