// The filter line above a list, and the label beside the list's name that tells of marks that the
// filter hides. Neither is a control of the form.
#pragma once

#include <windows.h>

#include "surface/string.h"

namespace zolt20::com {

class FilterLine {
 public:
  /// Makes the windows within `parent`. Throws std::runtime_error when the platform refuses.
  explicit FilterLine(HWND parent);

  HWND Line() const { return line_; }
  HWND Marks() const { return marks_; }
  String Text() const;
  void SetFont(HFONT font) const;
  void Enable(bool enabled) const;
  void ShowMarks(const String& text) const;
  /// Takes the focus and selects its text.
  void TakeFocus() const;

 private:
  HWND line_;
  HWND marks_;
};

}  // namespace zolt20::com
