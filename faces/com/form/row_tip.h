// The tip that shows the whole text of a row that is cut, while the mouse is over it.
#pragma once

#include <windows.h>

#include "surface/string.h"

namespace zolt20::com {

class RowTip {
 public:
  explicit RowTip(HWND list) : list_(list) {}
  ~RowTip();
  RowTip(const RowTip&) = delete;
  RowTip& operator=(const RowTip&) = delete;

  /// The mouse is over that row of the list, -1 for none, which lies there. `text` is what its tip
  /// says; none when it is empty. Asked only when the row is another one.
  template <typename Text>
  void Over(int row, const RECT& place, const Text& text) {
    if (row == row_) return;
    row_ = row;
    Show(place, row < 0 ? String() : text());
  }
  /// The rows are others, or have other places.
  void Forget() { row_ = -1; }
  /// What the mouse does in the list.
  void Relay(UINT message, WPARAM wide, LPARAM longer) const;

 private:
  void Show(const RECT& place, String text);

  HWND list_;
  HWND tip_ = nullptr;  // from the first row on that has one
  int row_ = -1;
};

}  // namespace zolt20::com
