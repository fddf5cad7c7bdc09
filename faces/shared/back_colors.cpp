#include "faces/shared/back_colors.h"

#include <algorithm>
#include <cmath>

namespace zolt20::faces {
namespace {

// The relative luminance of a colour, how bright it is to the eye, from 0 to 1.
double LuminanceOf(const Rgb& color) {
  const auto part = [](int value) {
    const double share = value / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * part(color.red) + 0.7152 * part(color.green) + 0.0722 * part(color.blue);
}

}  // namespace

std::optional<unsigned> BackColorOf(const Control& control) {
  if (control.kind() == Kind::ComboBox) return static_cast<const ComboBox&>(control).BackColor();
  if (control.design().name == ControlName::txtCondition)
    return static_cast<const TextBox&>(control).BackColor();
  return std::nullopt;
}

std::optional<SystemColor> SystemColorOf(unsigned backColor) {
  for (const SystemColor color : {SystemColor::kInactiveTitleBar, SystemColor::kHighlightedText}) {
    if (backColor == static_cast<unsigned>(color)) return color;
  }
  return std::nullopt;
}

bool CanBeRead(const Rgb& text, const Rgb& background) {
  constexpr double kLeastContrast = 4.5;
  const auto [dark, bright] = std::minmax({LuminanceOf(text), LuminanceOf(background)});
  return (bright + 0.05) / (dark + 0.05) >= kLeastContrast;
}

}  // namespace zolt20::faces
