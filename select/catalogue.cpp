// The catalogue: the host's tables and fields, and what marking a table brings into the lists.
#include <array>
#include <utility>

#include "shell/control.h"
#include "shell/table_key.h"

namespace zolt20 {

void ZOLT20MapControl::PrpStrTables(String tables) {
  mPrpStrTables = Shared<String>(std::move(tables));
  marrTables = SplitList(mPrpStrTables);
  std::vector<StringView> names;
  for (std::size_t i = 0; i < marrTables.Count(); ++i) {
    const StringView entry = marrTables(i);
    // ODD: a short entry gives no row but keeps its place in the array, so each later row reads the
    // index count of another table.
    if (entry.size() >= kTableLength) names.push_back(Left(entry, kTableLength));
  }
  lsttables.AddItems(names);
  host_.PropertyChanged("PrpStrTables");
}

void ZOLT20MapControl::PrpStrFields(String fields) {
  mPrpStrFields = Shared<String>(std::move(fields));
  marrFields = FieldRecords(mPrpStrFields);
  host_.PropertyChanged("PrpStrFields");
}

void ZOLT20MapControl::lsttables_Click() {
  const int i = lsttables.ListIndex();
  if (i < 0) return;
  const StringView table = lsttables.List(i);
  const StringView entry = marrTables(static_cast<std::size_t>(i));
  if (lsttables.Selected(i)) {
    MarkTable(table, entry);
  } else {
    UnmarkTable(table, entry);
  }
}

void ZOLT20MapControl::MarkTable(StringView table, StringView entry) {
  // ODD: the messages only warn. The row stays marked and goes into the from clause.
  const bool mentioned = mPrpStrFields.IsSameAs(marrFields.List()) ? marrFields.Mentions(table)
                                                                   : Holds(*mPrpStrFields, table);
  if (!mentioned) return ShowMessage(u"No Fields Present For The Selected Table");
  if (entry.size() <= kTableLength) return ShowMessage(u"Not a Valid Table");
  const StringView count = Mid(entry, kTableLength + 1);
  if (!IsNumeric(count)) return ShowMessage(u"Not a Valid Table");

  lstFields.AddItem(Concat(table, u".*"));

  const int indexCount = ToInteger(count).value();
  std::vector<RowText> indexes;
  for (int k = 1; k <= indexCount; ++k) {
    indexes.emplace_back(Concat(Left(entry, kTableLength), u"._index", ToText(k)));
  }
  RowsControl::AddTextsToBoth(lstorderbyasc, lstorderbydesc, indexes);
  cboWhereFields.AddTexts(indexes);

  std::vector<RowText> names;
  for (const auto place : marrFields.OfTable(table))
    names.emplace_back(marrFields.At(place).Name());
  lstFields.AddTexts(names);
  lstGroupby.AddTexts(names);
  cboWhereFields.AddTexts(names);
  cboWhereFields1.AddTexts(names);
  marrFields.RaiseIfBroken();
}

void ZOLT20MapControl::UnmarkTable(StringView table, StringView entry) {
  static_assert(StartRuns::kLength == kTableLength);
  // ODD: letter case counts in the other lists, not here.
  const auto isOfEntry = [entry](StringView start) {
    return EqualIgnoringCase(start, Left(entry, kTableLength));
  };
  RowsControl::RemoveItemsFromBoth(lstorderbyasc, lstorderbydesc,
                                   lstorderbyasc.RowsWhereStart(isOfEntry));
  const auto isOfTable = [table](StringView start) { return start == table; };
  for (RowsControl* list :
       std::array<RowsControl*, 4>{&lstFields, &lstGroupby, &cboWhereFields, &cboWhereFields1})
    list->RemoveItems(list->RowsWhereStart(isOfTable));
  // Unmarking CUSTOMER also removes expressions on its fields, such as sum ( CUSTOMER.CUST_NO ).
  lstSelectedFields.RemoveWhere([table](StringView row) { return Holds(row, table); });
}

void ZOLT20MapControl::lstFunctions_DblClick() {
  UnmarkRows(lstFunctions);
}

void ZOLT20MapControl::lstFields_DblClick() {
  UnmarkRows(lstFields);
}

void ZOLT20MapControl::UnmarkRows(ListBox& list) {
  for (int i = list.ListCount() - 1; i >= 0; --i) {
    if (list.Selected(i)) list.Selected(i, false);
  }
}

}  // namespace zolt20
