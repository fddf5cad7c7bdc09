// The tool tip that shows the whole text of an elided row while the mouse is over it.
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

  /// The mouse is over `row` of the list, -1 for none, which lies at `place`. `text()` returns the
  /// text of its tip, "" for no tip; it is called only when the row differs from the last one.
  template <typename Text>
  void Over(int row, const RECT& place, const Text& text) {
    if (row == row_) return;
    row_ = row;
    Show(place, row < 0 ? String() : text());
  }
  /// To be called when rows changed or moved.
  void Forget() { row_ = -1; }
  /// Passes a mouse message of the list on to the tool tip.
  void Relay(UINT message, WPARAM wide, LPARAM longer) const;

 private:
  void Show(const RECT& place, String text);

  HWND list_;
  HWND tip_ = nullptr;  // made for the first row that has a tip
  int row_ = -1;
};

}  // namespace zolt20::com
