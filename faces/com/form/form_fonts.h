// The letters of the form at the resolution of its window.
#pragma once

#include <windows.h>

#include <memory>

#include "faces/com/form/form_places.h"

namespace zolt20::com {

struct DeleteObjectFor {
  void operator()(void* object) const { DeleteObject(object); }
};
using Font = std::unique_ptr<std::remove_pointer_t<HFONT>, DeleteObjectFor>;

/// A label that tells how a page is used, small and out of the way: one that begins with a number.
bool IsInstruction(const Control& control);

class FormFonts {
 public:
  FormFonts() = default;
  explicit FormFonts(HWND window);

  int Dpi() const { return dpi_; }
  LineHeights Lines() const { return lines_; }
  HFONT Usual() const { return verdana_.get(); }
  HFONT Of(const Surface& form, const Control& control) const;

 private:
  int dpi_ = 96;
  Font verdana_;
  Font small_;
  Font arial_;
  LineHeights lines_;
};

}  // namespace zolt20::com
