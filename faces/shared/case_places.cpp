#include "faces/shared/case_places.h"

namespace zolt20::faces {
namespace {

constexpr int kRowGapTwips = 10;

}  // namespace

CaseSpan CaseSpanOf(const Surface& form, const Control& control) {
  const Geometry first = PlaceAtDesign(ControlName::TxtExpr);
  const int pitch = first.height + kRowGapTwips;
  const int rowsInFrame = (form.fracase.Height() - first.top) / pitch;
  CaseSpan span{{control.Top()}, {control.Height()}};
  if (&control == &form.fracase) {
    span.top = {};
    span.height.rows = rowsInFrame;
  } else if (&control == &form.VscrCase) {
    span.height.rows = rowsInFrame;
    span.height.buttons = -1;
  } else if (&control == &form.cmdNext) {
    span.top.rows = rowsInFrame;
    span.top.buttons = -1;
    span.height.buttons = 1;
  } else {
    span.top.rows = (control.Top() - first.top) / pitch;
    span.height.rows = 1;
    // Else the lower edge of a row scrolled out at the top would still be visible.
    if (control.Top() < 0) span.top.twips -= first.top;
  }
  return span;
}

}  // namespace zolt20::faces
