// The scroll bars of the form, in a window that is smaller than the form needs.
#pragma once

#include <windows.h>

namespace zolt20::com {

class FormScroll {
 public:
  /// The size that is left for the form in a window of the size `whole`, less the scroll bars.
  /// There is a scroll bar for each direction in which the form does not fit, where one bar may
  /// make the other one necessary.
  static SIZE RoomFor(SIZE form, SIZE whole);

  /// Fits the scroll bars of the window to a form of that size, in pixels. Re-entrancy: the window
  /// may get WM_SIZE within this call.
  void Fit(HWND window, SIZE form);
  /// The scroll position: the place of the form in the upper left corner of the window.
  POINT Corner() const { return corner_; }

  // Each returns whether the form scrolled, and its child windows with it.
  bool OnScroll(HWND window, int bar, int code);
  bool OnWheel(HWND window, int turn);
  /// Scrolls a place of the window into view, or its beginning if it is larger than the window.
  bool Reveal(HWND window, const RECT& place);

 private:
  bool GoTo(HWND window, POINT corner);

  POINT corner_{};
  int wheel_ = 0;  // accumulated turns of less than a line
};

}  // namespace zolt20::com
