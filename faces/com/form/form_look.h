// The look that the container's ambient properties give the form: the colours of the form behind
// its controls, and whether it is mirrored (right to left).
#pragma once

#include <windows.h>

#include <optional>

namespace zolt20::com {

class FormLook {
 public:
  FormLook() = default;
  /// Uses the colours when both are given and have enough contrast; otherwise the system's colours
  /// are the fallback.
  FormLook(std::optional<COLORREF> face, std::optional<COLORREF> text, bool isMirrored);

  COLORREF Face() const { return face_.value_or(GetSysColor(COLOR_BTNFACE)); }
  COLORREF Text() const { return text_.value_or(GetSysColor(COLOR_BTNTEXT)); }
  /// A brush of the form's colour, valid until Brush is called for the same canvas again. Not to be
  /// deleted.
  HBRUSH Brush(HDC canvas) const;
  /// Whether the form is laid out from right to left.
  bool IsMirrored() const { return isMirrored_; }
  bool operator==(const FormLook& other) const = default;

 private:
  std::optional<COLORREF> face_;
  std::optional<COLORREF> text_;
  bool isMirrored_ = false;
};

}  // namespace zolt20::com
