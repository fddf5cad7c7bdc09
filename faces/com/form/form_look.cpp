#include "faces/com/form/form_look.h"

#include "faces/com/form/readable.h"

namespace zolt20::com {

FormLook::FormLook(std::optional<COLORREF> face, std::optional<COLORREF> text, bool isMirrored)
    : isMirrored_(isMirrored) {
  if (!face || !text || !CanBeRead(*text, *face)) return;
  face_ = face;
  text_ = text;
}

HBRUSH FormLook::Brush(HDC canvas) const {
  if (!face_) return GetSysColorBrush(COLOR_BTNFACE);
  SetDCBrushColor(canvas, *face_);
  return static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
}

}  // namespace zolt20::com
