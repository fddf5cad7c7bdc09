// How a face learns what changed on a surface.
//
// A notice says which control and which of its properties or rows changed; the new values are read
// from the surface, which already has them. So a face needs no copy of anything and updates just
// what it shows. Notices are synchronous: inside the write, before the handler that the write runs.
// An observer reads only: it makes no gesture, writes no property of the control, and throws
// nothing.
#pragma once

namespace zolt20 {

class Control;

enum class Property {
  kEnabled,
  kVisible,
  kText,
  kSelStart,
  kBackColor,
  kCaption,
  kValue,
  kMax,
  kTab,
  kListIndex,
  kHighlight,
  kPlace,  ///< Left, Top, Width or Height
};

/// Rows `first` to `first` + `count` - 1 are inserted or removed. With kReplaced any row may be
/// different afterwards, and so may the number of rows.
struct RowChange {
  enum class What { kInserted, kRemoved, kReplaced };

  What what;
  int first;
  int count;
};

class SurfaceObserver {
 public:
  virtual ~SurfaceObserver() = default;

  virtual void ControlChanged(const Control& control, Property property) noexcept = 0;

  /// Comes before the change: the rows are still as they were. RowsChanged for the same change
  /// follows, with no other notice between.
  virtual void RowsAboutToChange(const Control& list, const RowChange& change) noexcept = 0;
  virtual void RowsChanged(const Control& list, const RowChange& change) noexcept = 0;
  /// The marks of rows `first` to `first` + `count` - 1 changed.
  virtual void MarksChanged(const Control& list, int first, int count) noexcept = 0;

  /// `control` has the focus now; nullptr when none has.
  virtual void FocusChanged(const Control* control) noexcept = 0;
  /// Places `first` to `last` of the tab order, from 0, now hold other controls, are new, or are
  /// gone.
  virtual void TabOrderChanged(int first, int last) noexcept = 0;

  /// An element of a control array exists from now on.
  virtual void ElementLoaded(const Control& element) noexcept = 0;
  /// An element of a control array is about to be destroyed. It is out of the tab order and has no
  /// focus any more.
  virtual void ElementUnloading(const Control& element) noexcept = 0;

  /// A snapshot was put back: anything may be different.
  virtual void StateReplaced() noexcept = 0;
};

}  // namespace zolt20
