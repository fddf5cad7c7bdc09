// A pane of a window that folds away by itself where the window is too narrow for it, and comes
// back with the room.
#pragma once

#include <QAction>

namespace zolt20::composer {

class FoldingPane {
 public:
  FoldingPane() = default;
  /// For the action that shows the pane, and the width from which on there is room for it.
  FoldingPane(QAction* action, int leastWidth) : action_(action), leastWidth_(leastWidth) {}

  QAction* action() const { return action_; }

  /// The window has this width now. What the person shows or hides stays so until there is another
  /// amount of room.
  void FitInto(int width) {
    if (isNarrow_ == (width < leastWidth_)) return;
    isNarrow_ = !isNarrow_;
    if (isNarrow_) wasShown_ = action_->isChecked();
    if (isNarrow_ || wasShown_) action_->setChecked(!isNarrow_);
  }

  /// Whether the pane is shown, or will be where there is room; what settings keep.
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
