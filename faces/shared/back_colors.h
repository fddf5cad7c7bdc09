// Background colours: what the BackColor of a control means, independent of the platform.
#pragma once

#include <optional>

#include "surface/surface.h"

namespace zolt20::faces {

/// A colour by its parts, 0 to 255.
struct Rgb {
  int red = 0;
  int green = 0;
  int blue = 0;
};

/// The system colours that the form has, by the numbers of a BackColor.
enum class SystemColor : unsigned {
  kInactiveTitleBar = 0x80000003,
  kHighlightedText = 0x8000000E,
};

/// The BackColor of a control that has one: a combo box, or the box of a condition.
std::optional<unsigned> BackColorOf(const Control& control);

/// The system colour that a BackColor stands for; none for a plain number.
std::optional<SystemColor> SystemColorOf(unsigned backColor);

/// Whether a text of that colour can be read on a background: a contrast of at least 4.5 to 1.
bool CanBeRead(const Rgb& text, const Rgb& background);

}  // namespace zolt20::faces
