// Announcements for screen readers: which other controls changed by a gesture, in words that a face
// has read out. Knows no platform.
#pragma once

#include <map>
#include <utility>

#include "faces/shared/words.h"
#include "shell/control.h"

namespace zolt20::faces {

/// Observes the changes on a form. The control and the words must outlive it.
class ToldChanges final : private SurfaceObserver {
 public:
  explicit ToldChanges(ZOLT20MapControl& control, const Words& words = Words::English());
  ~ToldChanges() override;

  /// Drops all changes noted so far, so they are not told.
  void Forget() {
    changed_.clear();
    said_.clear();
  }
  /// The next TakeWords begins with these words.
  void Say(String words) { said_ = std::move(words); }
  /// The changes since Forget() or the last TakeWords, in the order of the form: "Fields 42 rows,
  /// Result 3 lines". Leaves out controls that are not shown, and the control with the focus, which
  /// a screen reader reads by itself. Short: after a few changes comes "and more". "" when there is
  /// nothing to tell.
  String TakeWords();

 private:
  void ControlChanged(const Control& control, Property property) noexcept override;
  void RowsAboutToChange(const Control& /*list*/, const RowChange& /*change*/) noexcept override {}
  void RowsChanged(const Control& list, const RowChange& change) noexcept override;
  void MarksChanged(const Control& list, int first, int count) noexcept override;
  void FocusChanged(const Control* /*control*/) noexcept override {}
  void TabOrderChanged(int /*first*/, int /*last*/) noexcept override {}
  void ElementLoaded(const Control& element) noexcept override;
  void ElementUnloading(const Control& element) noexcept override;
  void StateReplaced() noexcept override { Forget(); }

  ZOLT20MapControl& control_;
  const Words& words_;
  String said_;
  std::map<const Control*, unsigned> changed_;  // a bit for each Property, then these below
};

}  // namespace zolt20::faces
