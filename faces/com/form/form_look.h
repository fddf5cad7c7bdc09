// How the container wants the form to look, where its design says nothing of that: the colours of
// the form behind its controls, and from which side it is read.
#pragma once

#include <windows.h>

#include <optional>

namespace zolt20::com {

class FormLook {
 public:
  FormLook() = default;
  /// Colours are taken when both are given and the one can be read on the other; otherwise the form
  /// has those of the system.
  FormLook(std::optional<COLORREF> face, std::optional<COLORREF> text, bool isMirrored);

  COLORREF Face() const { return face_.value_or(GetSysColor(COLOR_BTNFACE)); }
  COLORREF Text() const { return text_.value_or(GetSysColor(COLOR_BTNTEXT)); }
  /// A brush of the face, good until the canvas gets another one.
  HBRUSH Brush(HDC canvas) const;
  /// The form begins on the right.
  bool IsMirrored() const { return isMirrored_; }
  bool operator==(const FormLook& other) const = default;

 private:
  std::optional<COLORREF> face_;
  std::optional<COLORREF> text_;
  bool isMirrored_ = false;
};

}  // namespace zolt20::com
