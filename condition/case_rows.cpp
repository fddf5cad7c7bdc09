// The rows of an On...Case: a value and its statements each, moved by a scroll bar.
//
// A row's texts are stored in its two boxes and nowhere else. The scroll bar moves rows relative to
// where they are; it never sets absolute places.
#include "shell/control.h"

namespace zolt20 {
namespace {

constexpr int kRowHeightTwips = 680;
constexpr int kRowGapTwips = 10;

// Loads element r of an array and places it below element r - 1.
void LoadBelow(ControlArray<TextBox>& boxes, Integer r) {
  boxes.Load(r);
  TextBox& box = boxes(r);
  const TextBox& above = boxes(r - 1);
  box.Visible(true);
  box.Left(above.Left());
  box.Top(above.Height() + above.Top() + kRowGapTwips);
}

}  // namespace

void ZOLT20MapControl::cmdNext_Click() {
  ++mintCaseRow;
  const Integer r = mintCaseRow;
  LoadBelow(TxtExpr, r);
  LoadBelow(txtStmt, r);
  TxtExpr(r).SetFocus();
  if (TxtExpr.UpperBound() > 3) {
    VscrCase.Max(TxtExpr.UpperBound().value() - 3);  // runs VscrCase_Change when Value is above it
    VscrCase.Value(VscrCase.Value() + 1);            // runs VscrCase_Change
  }
  // ODD: the bar shows from the fourth row on, and with four rows has nothing to scroll.
  VscrCase.Visible(r > 2);
  WriteRowPlaces();
}

void ZOLT20MapControl::VscrCase_Change() {
  const Integer r = mintCaseRow;
  const Integer value = VscrCase.Value();
  constexpr int kPitchTwips = ScrollBar::SmallChange() * kRowHeightTwips + kRowGapTwips;

  // ODD: one row, however far the bar went, so rows and Value may part for good.
  Integer i = 0;
  if (mintLastScrollValue < value) {
    for (; i <= r; ++i)
      MoveRow(i, -kPitchTwips);
  } else if (mintLastScrollValue > value) {
    for (; i <= r; ++i)
      MoveRow(i, kPitchTwips);
  }
  --i;
  mintLastScrollValue = value;
  VscrCase.Visible((TxtExpr(r).Height() + 100) * r.value() > fracase.Height() ||
                   TxtExpr(i).Top() < 300);
}

void ZOLT20MapControl::MoveRow(Integer i, int byTwips) {
  for (TextBox* box : {&TxtExpr(i), &txtStmt(i)})
    box->Top(box->Top() + byTwips);
}

// Writes the tab order of the rows, behind tabVrn, optCase, txtcaseexp and TxtDef.
void ZOLT20MapControl::WriteRowPlaces() {
  Integer place = 4;
  for (Integer i = 0; i <= TxtExpr.UpperBound(); ++i)
    place = WriteTabOrder({&TxtExpr(i), &txtStmt(i)}, place);
  WriteButtonPlaces(WriteTabOrder({&cmdNext}, place));
}

}  // namespace zolt20
