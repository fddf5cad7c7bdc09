// The select list: how fields and function expressions enter and leave lstSelectedFields.
//
// The list works in one of two modes. In aggregate mode it holds function expressions only, and the
// order lists are disabled.
#include <algorithm>
#include <unordered_map>

#include "shell/control.h"
#include "shell/table_key.h"

namespace zolt20 {
namespace {

constexpr StringView kAlreadySelected =
    u"Field Already  Selected --Select A Different Field To Proceed Further";
constexpr StringView kSelectedWithTable =
    u"Field Already Selected --Select A Different Field To Proceed Further";

StringView TableOf(StringView row) {
  return Left(row, kTableLength);
}

bool StartsWithFunction(StringView text) {
  const StringView three = Left(text, 3);
  return three == u"avg" || three == u"sum" || three == u"min" || three == u"max" ||
         Left(text, 5) == u"count";
}

// The last marked row of a list, -1 for none.
int LastMarkedRow(const ListBox& list) {
  int row = list.ListCount() - 1;
  while (row >= 0 && !list.Selected(row))
    --row;
  return row;
}

}  // namespace

void ZOLT20MapControl::cmdMoveOne_Click() {
  if (lsttables.SelCount() == 0) {
    ShowMessage(u"Tables Not Selected --Select A Table To Proceed Further");
    lsttables.SetFocus();
    lstFunctions.ListIndex(-1);
    return;
  }
  MoveMarkedFields();
}

void ZOLT20MapControl::MoveMarkedFields() {
  StringView function;
  if (lstFunctions.SelCount() > 0) function = lstFunctions.List(LastMarkedRow(lstFunctions));
  StringView field;
  if (!lstFunctions.Selected(0)) {
    if (lstFields.SelCount() <= 0) {
      ShowMessage(u"Fields Not Selected --Select A Field To Proceed Further");
      lstFields.SetFocus();
      ForgetCatalogueMarks();
      return;
    }
    field = lstFields.List(LastMarkedRow(lstFields));
  }
  if (field.empty()) {
    AddSelectedField(lstFunctions.List(0));
  } else if (function.empty()) {
    AddSelectedField(field);
  } else {
    AddSelectedField(Concat(function, u" ( ", field, u" ) "));
  }
}

Variant ZOLT20MapControl::AddSelectedField(StringView X) {
  // ODD: a plain field of a table named like a function turns the mode on as well, and is then
  // refused.
  if (StartsWithFunction(X)) mblnAggregateMode = true;
  if (mblnAggregateMode) {
    AddFunction(X);
    return {};
  }
  if (lstSelectedFields.LastRowOf(X) >= 0) {
    ShowMessage(kAlreadySelected);
    lstFields.ListIndex(-1);
    lstFunctions.ListIndex(-1);
    return {};
  }
  if (Holds(X, u"*")) {
    AddWholeTable(X);
    return {};
  }
  const std::vector<int> ofItsTable = lstSelectedFields.RowsStarting(TableOf(X), kTableLength);
  if (std::any_of(ofItsTable.begin(), ofItsTable.end(),
                  [this](int row) { return Holds(lstSelectedFields.List(row), u"*"); })) {
    ShowMessage(kSelectedWithTable);
    return {};
  }
  const RowText row(X);
  lstSelectedFields.AddItem(row);
  lstFields.ListIndex(-1);
  lstFunctions.ListIndex(-1);
  // ODD: the where combos have the field already, from the marking of its table; each chosen field
  // stands there twice.
  cboWhereFields.AddItem(row);
  cboWhereFields1.AddItem(row);
  RowsControl::AddTextsToBoth(lstorderbyasc, lstorderbydesc, {&row, 1});
  return {};
}

void ZOLT20MapControl::AddFunction(StringView X) {
  if (!Holds(X, u")")) {
    return ShowMessage(u"Selection Not Allowed --Select A Different Field To Proceed Further");
  }
  // Removes plain rows from the last row upwards, but none above a row that equals X.
  const int same = lstSelectedFields.LastRowOf(X);
  std::vector<int> plainRows =
      lstSelectedFields.RowsWhere([](StringView row) { return !Holds(row, u")"); });
  plainRows.erase(plainRows.begin(), std::upper_bound(plainRows.begin(), plainRows.end(), same));
  lstSelectedFields.RemoveItems(plainRows);
  if (same >= 0) {
    ShowMessage(kAlreadySelected);
    lstFields.ListIndex(-1);
    lstFunctions.ListIndex(-1);
    return;
  }
  lstSelectedFields.AddItem(X);
  for (int i = lstorderbyasc.ListCount() - 1; i >= 0; --i) {
    lstorderbyasc.Selected(i, false);   // runs ItemCheck
    lstorderbydesc.Selected(i, false);  // runs ItemCheck
  }
  lstorderbyasc.Enabled(false);
  lstorderbydesc.Enabled(false);
  ForgetCatalogueMarks();
}

void ZOLT20MapControl::AddWholeTable(StringView X) {
  lstSelectedFields.RemoveItems(lstSelectedFields.RowsStarting(TableOf(X), kTableLength));
  lstSelectedFields.AddItem(X);
  // ODD: the marks stay, and rows that fields of this table put into the order lists stay too, so a
  // name may stand twice.
  std::vector<RowText> names;
  for (const auto place : marrFields.OfTable(TableOf(X)))
    names.emplace_back(marrFields.At(place).Name());
  RowsControl::AddTextsToBoth(lstorderbyasc, lstorderbydesc, names);
  marrFields.RaiseIfBroken();
}

void ZOLT20MapControl::ForgetCatalogueMarks() {
  lstFunctions.ListIndex(-1);
  lstFields.ListIndex(-1);
}

void ZOLT20MapControl::cmdMoveAll_Click() {
  if (mblnAggregateMode) return;
  if (lsttables.SelCount() > 0) {
    lstSelectedFields.Clear();
    for (int i = lsttables.ListCount() - 1; i >= 0; --i) {
      if (lsttables.Selected(i)) lstSelectedFields.AddItem(Concat(lsttables.List(i), u".*"));
    }
    // The order lists get the tables from last to first, and the fields of each from last to first.
    std::unordered_map<StringView, std::vector<RowText>> fieldsOfTable;
    for (int j = lstFields.ListCount() - 1; j >= 0; --j) {
      const StringView field = lstFields.List(j);
      if (!Holds(field, u"*")) fieldsOfTable[TableOf(field)].emplace_back(field);
    }
    for (int i = lsttables.ListCount() - 1; i >= 0; --i) {
      const auto fields = fieldsOfTable.find(TableOf(lsttables.List(i)));
      if (fields == fieldsOfTable.end()) continue;
      RowsControl::AddTextsToBoth(lstorderbyasc, lstorderbydesc, fields->second);
    }
  }
  mblnAggregateMode = false;
  ForgetCatalogueMarks();
}

void ZOLT20MapControl::cmdRemoveOne_Click() {
  String removed;
  if (const int row = LastMarkedRow(lstSelectedFields); row >= 0) {
    removed = lstSelectedFields.List(row);
    lstSelectedFields.RemoveItem(row);
  }
  for (int i = lstorderbyasc.ListCount() - 1; i >= 0; --i) {
    if (EqualIgnoringCase(lstorderbyasc.List(i), removed)) {
      RowsControl::RemoveItemsFromBoth(lstorderbyasc, lstorderbydesc, {&i, 1});
      break;
    }
  }
  if (Holds(removed, u"*")) {
    // ODD: "index" here, "_index" in cmdRemoveAll_Click: a field named reindex stays here and goes
    // there.
    std::vector<int> rows;
    for (int i = 0; i < lstorderbyasc.ListCount(); ++i) {
      if (TableOf(lstorderbydesc.List(i)) == TableOf(removed) &&
          !Holds(lstorderbyasc.List(i), u"index")) {
        rows.push_back(i);
      }
    }
    RowsControl::RemoveItemsFromBoth(lstorderbyasc, lstorderbydesc, rows);
  }
  if (lstSelectedFields.ListCount() == 0) {
    mblnAggregateMode = false;
    lstorderbyasc.Enabled(true);
    lstorderbydesc.Enabled(true);
  }
  if (!mblnAggregateMode) {
    lstorderbyasc.Enabled(true);
    lstorderbydesc.Enabled(true);
  }
  ForgetCatalogueMarks();
}

void ZOLT20MapControl::cmdRemoveAll_Click() {
  if (lstSelectedFields.ListCount() > 0) {
    lstSelectedFields.Clear();
    mblnAggregateMode = false;
  }
  const std::vector<int> rows =
      lstorderbyasc.RowsWhere([](StringView row) { return !Holds(row, u"_index"); });
  RowsControl::RemoveItemsFromBoth(lstorderbyasc, lstorderbydesc, rows);
  if (!mblnAggregateMode) {
    lstorderbyasc.Enabled(true);
    lstorderbydesc.Enabled(true);
  }
  ForgetCatalogueMarks();
  lstorderbyasc.Enabled(true);
  lstorderbydesc.Enabled(true);
}

}  // namespace zolt20
