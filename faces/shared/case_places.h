// Where the rows of an On...Case, their scroll bar and button stand when letters need more room
// than the form has for them. The form's own places are those of small letters; a face measures its
// letters, and this tells how far each thing moves. No state of the form changes with it.
#pragma once

#include "surface/surface.h"

namespace zolt20::faces {

/// How wide the frame of the rows is at least: what lies in it, with a margin behind it like that
/// before it.
inline constexpr int kCaseFrameTwips = 6720 + 825 + 120;

/// A height that grows with the letters: that of the form, and on top of it so many times the twips
/// by which a row, and by which the button, is taller than in the form.
struct Stretch {
  int twips = 0;
  int rows = 0;
  int buttons = 0;

  /// For growths from 0, in the measure of `down`, which turns twips into it.
  template <typename Measure>
  auto In(const Measure& down, decltype(down(0)) row, decltype(down(0)) button) const {
    return down(twips) + rows * row + buttons * button;
  }

  friend bool operator==(const Stretch&, const Stretch&) = default;
};

struct CaseSpan {
  Stretch top;  // 0 for the frame, whose top the face knows
  Stretch height;
};

/// Of the frame of the rows, fracase, or of a control in it. Where a row grows, the rows below move
/// along, and as many of them as the form has room for stay within the frame; of the others nothing
/// is in it. The button grows upwards, and the scroll bar ends above it.
CaseSpan CaseSpanOf(const Surface& form, const Control& control);

}  // namespace zolt20::faces
