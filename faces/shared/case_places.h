// Scaling the rows of an On...Case, their scroll bar and button to a larger font. The form's own
// places suit small letters; a face measures its letters, and this computes how far each control
// moves and grows. The state of the form does not change.
#pragma once

#include "surface/surface.h"

namespace zolt20::faces {

/// The least width of the frame of the rows: what lies in it, with the same margin on the right as
/// on the left.
inline constexpr int kCaseFrameTwips = 6720 + 825 + 120;

/// A length that grows with the font: the form's own `twips`, plus `rows` times the growth of a row
/// and `buttons` times the growth of the button over their heights in the form.
struct Stretch {
  int twips = 0;
  int rows = 0;
  int buttons = 0;

  /// The length in the unit that `down` converts twips to; the two growths are in it, from 0.
  template <typename Measure>
  auto In(const Measure& down, decltype(down(0)) row, decltype(down(0)) button) const {
    return down(twips) + rows * row + buttons * button;
  }

  friend bool operator==(const Stretch&, const Stretch&) = default;
};

struct CaseSpan {
  Stretch top;  // 0 for the frame, which the face places itself
  Stretch height;
};

/// The top and height of the frame of the rows, fracase, or of a control in it. Where rows grow,
/// the rows below move down, and the frame still shows as many whole rows as in the form and
/// nothing of the others. The button grows upwards, and the scroll bar ends above it.
CaseSpan CaseSpanOf(const Surface& form, const Control& control);

}  // namespace zolt20::faces
