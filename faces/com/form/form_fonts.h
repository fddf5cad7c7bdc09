// The fonts of the form at the resolution (DPI) of its window.
#pragma once

#include <windows.h>

#include <memory>

#include "faces/shared/form_places.h"

namespace zolt20::com {

inline constexpr int kTwipsPerInch = 1440;
/// The font height in twips: 8 1/4 points.
inline constexpr int kFontTwips = 165;

struct DeleteObjectFor {
  void operator()(void* object) const { DeleteObject(object); }
};
using Font = std::unique_ptr<std::remove_pointer_t<HFONT>, DeleteObjectFor>;

class FormFonts {
 public:
  FormFonts() = default;
  explicit FormFonts(HWND window);

  int Dpi() const { return dpi_; }
  /// The metrics of the fonts, in twips. Valid as long as this object lives.
  const faces::Letters& Needs() const { return needs_; }
  int Twips(int pixels) const;
  HFONT Usual() const { return verdana_.get(); }
  HFONT Of(const Control& control) const;

 private:
  int dpi_ = 96;
  Font verdana_;
  Font small_;
  Font arial_;
  faces::Letters needs_;
};

}  // namespace zolt20::com
