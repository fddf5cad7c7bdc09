// The line above a list with which a person filters it, and what is told beside the name of the
// list of marks that the filter hides. No control of the form.
#pragma once

#include <windows.h>

#include "surface/string.h"

namespace zolt20::com {

class FilterLine {
 public:
  /// Windows within `parent`. Throws std::runtime_error when the platform refuses.
  explicit FilterLine(HWND parent);

  HWND Line() const { return line_; }
  HWND Marks() const { return marks_; }
  String Text() const;
  void SetFont(HFONT font) const;
  void Enable(bool enabled) const;
  void ShowMarks(const String& text) const;
  /// Gets the focus, with its text marked.
  void TakeFocus() const;

 private:
  HWND line_;
  HWND marks_;
};

}  // namespace zolt20::com
