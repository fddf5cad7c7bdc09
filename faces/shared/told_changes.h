// What a person does not see of their gesture, in words: which other controls became others by it.
// A face has them read out. Knows no platform.
#pragma once

#include <map>
#include <utility>

#include "faces/shared/words.h"
#include "shell/control.h"

namespace zolt20::faces {

/// Hears what changes on a form. The control and the words outlive it.
class ToldChanges final : private SurfaceObserver {
 public:
  explicit ToldChanges(ZOLT20MapControl& control, const Words& words = Words::English());
  ~ToldChanges() override;

  /// What changed until now is not to be told.
  void Forget() {
    changed_.clear();
    said_.clear();
  }
  /// The next words begin with these.
  void Say(String words) { said_ = std::move(words); }
  /// What changed since Forget() or the last words, in the order of the form: "Fields 42 rows,
  /// Result 3 lines". Only what is shown and is not the control with the focus, which a screen
  /// reader reads by itself. Few words: behind them stands "and more". "" when there is nothing to
  /// tell.
  String TakeWords();

 private:
  void PropertyChanged(const Control& control, Property property) noexcept override;
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
