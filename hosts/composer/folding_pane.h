// A pane that hides itself while its window is too narrow for it, and shows itself again when the
// window is wide enough.
#pragma once

#include <QAction>

namespace zolt20::composer {

class FoldingPane {
 public:
  FoldingPane() = default;
  /// `action` is the checkable action that shows the pane, `leastWidth` the width of the window
  /// from which on there is room for the pane.
  FoldingPane(QAction* action, int leastWidth) : action_(action), leastWidth_(leastWidth) {}

  QAction* action() const { return action_; }

  /// Called with each new width of the window. The person may show or hide the pane at any width;
  /// that choice holds until the width passes `leastWidth`.
  void FitInto(int width) {
    if (isNarrow_ == (width < leastWidth_)) return;
    isNarrow_ = !isNarrow_;
    if (isNarrow_) wasShown_ = action_->isChecked();
    if (isNarrow_ || wasShown_) action_->setChecked(!isNarrow_);
  }

  /// Whether the pane is shown, or would be shown in a wider window. This is what settings store.
  bool IsWanted() const { return isNarrow_ ? wasShown_ : action_->isChecked(); }
  void Want(bool isWanted) {
    wasShown_ = isWanted;
    action_->setChecked(isWanted && !isNarrow_);
  }

 private:
  QAction* action_ = nullptr;
  int leastWidth_ = 0;
  bool isNarrow_ = false;
  bool wasShown_ = true;  // when the window became narrow
};

}  // namespace zolt20::composer
