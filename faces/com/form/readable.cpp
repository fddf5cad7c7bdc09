#include "faces/com/form/readable.h"

#include "faces/shared/back_colors.h"

namespace zolt20::com {
namespace {

faces::Rgb PartsOf(COLORREF color) {
  return {GetRValue(color), GetGValue(color), GetBValue(color)};
}

COLORREF Mixed(COLORREF one, COLORREF other, int percentOfOne) {
  const auto part = [percentOfOne](int of, int with) {
    return (of * percentOfOne + with * (100 - percentOfOne)) / 100;
  };
  return RGB(part(GetRValue(one), GetRValue(other)), part(GetGValue(one), GetGValue(other)),
             part(GetBValue(one), GetBValue(other)));
}

}  // namespace

COLORREF Readable(COLORREF wanted, COLORREF plain, COLORREF behind) {
  constexpr int kStep = 10;
  for (int percent = 100; percent > 0; percent -= kStep) {
    const COLORREF color = Mixed(wanted, plain, percent);
    if (CanBeRead(color, behind)) return color;
  }
  return plain;
}

COLORREF Quiet(COLORREF plain, COLORREF behind) {
  constexpr int kPercent = 67;
  return Readable(Mixed(plain, behind, kPercent), plain, behind);
}

bool CanBeRead(COLORREF text, COLORREF behind) {
  return faces::CanBeRead(PartsOf(text), PartsOf(behind));
}

}  // namespace zolt20::com
