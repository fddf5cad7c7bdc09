// The lower part of the Where page: two order lists that exclude each other, and the row limit.
#include "shell/control.h"

namespace zolt20 {

// ODD: marks in the descending list alone don't hold the button enabled in any handler but that
// list's own.
bool ZOLT20MapControl::AscendingOrder() const {
  return lstorderbyasc.SelCount() > 0;
}

void ZOLT20MapControl::EnableAddWhereQuery(bool isOrdered) {
  cmdAddWhereQuery.Enabled(isOrdered || !txtAsSet.Text().empty() ||
                           !txtwhereCondition.Text().empty());
}

void ZOLT20MapControl::lstorderbyasc_ItemCheck(Integer Item) {
  if (lstorderbyasc.ListCount() <= 0) return;
  const int row = Item.value();
  const bool marked = lstorderbyasc.Selected(row);
  if (marked && lstorderbydesc.List(row) == lstorderbyasc.List(row)) {
    if (!lstorderbydesc.Selected(row)) {
      lstorderbyasc.Selected(row, true);
      lstorderbydesc.Selected(row, false);
    } else {
      lstorderbyasc.Selected(
          row, false);  // runs lstorderbyasc_ItemCheck, which unmarks the other row too
      lstorderbydesc.Selected(row, true);  // runs lstorderbydesc_ItemCheck
    }
  }
  // ODD: unmarking here unmarks the row of the other list; the other way round it does not.
  if (!marked) lstorderbydesc.Selected(row, false);
  EnableAddWhereQuery(AscendingOrder());
}

void ZOLT20MapControl::lstorderbydesc_ItemCheck(Integer Item) {
  if (lstorderbydesc.ListCount() <= 0) return;
  const int row = Item.value();
  const bool marked = lstorderbydesc.Selected(row);
  if (marked && lstorderbydesc.List(row) == lstorderbyasc.List(row)) {
    if (!lstorderbyasc.Selected(row)) {
      lstorderbydesc.Selected(row, true);
      lstorderbyasc.Selected(row, false);
    } else {
      lstorderbyasc.Selected(row, true);
      lstorderbydesc.Selected(row, false);  // runs lstorderbydesc_ItemCheck
    }
  }
  if (!marked) lstorderbydesc.Selected(row, false);
  EnableAddWhereQuery(lstorderbydesc.SelCount() > 0 || AscendingOrder());
}

void ZOLT20MapControl::txtAsSet_KeyPress(Integer& KeyAscii) {
  constexpr int kBackspace = 8;
  constexpr int kDropped = 1;
  const bool isDigit = KeyAscii >= u'0' && KeyAscii <= u'9';
  if (!isDigit && KeyAscii != kBackspace) KeyAscii = kDropped;
  // ODD: the key has not taken effect yet, so the button lags one key behind the box.
  EnableAddWhereQuery(AscendingOrder());
}

}  // namespace zolt20
