// The scroll bars of the form, in a place that is smaller than the form needs.
#pragma once

#include <windows.h>

namespace zolt20::com {

class FormScroll {
 public:
  /// The room for the form in a window of the whole size, beside the bars that it needs there: what
  /// needs more than that has a bar.
  static SIZE RoomFor(SIZE form, SIZE whole);

  /// Fits the bars of the window to a form of that size, in pixels. The window may get a message of
  /// its new size meanwhile.
  void Fit(HWND window, SIZE form);
  /// Which place of the form stands in the corner of the window.
  POINT Corner() const { return corner_; }

  // Each gives whether the form moved, by which its windows moved along.
  bool OnScroll(HWND window, int bar, int code);
  bool OnWheel(HWND window, int turn);
  /// Brings a place of the window into sight; of what is larger than the window its beginning.
  bool Reveal(HWND window, const RECT& place);

 private:
  bool GoTo(HWND window, POINT corner);

  POINT corner_{};
  int wheel_ = 0;  // turns that were not enough for a line yet
};

}  // namespace zolt20::com
