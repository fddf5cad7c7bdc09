// Restoring the stored parts of a statement that the host hands back. Each property splits,
// compares and iterates in its own way, and none of them clears anything first.
#include <span>
#include <unordered_set>
#include <utility>

#include "shell/control.h"
#include "shell/table_key.h"

namespace zolt20 {
namespace {

// The tables of the list whose name, always 8 characters, stands anywhere in one of the texts. Also
// holds pieces of text that are false positives of the filter; these name no table of the list.
std::unordered_set<StringView> TablesNamedIn(std::span<const StringView> texts,
                                             const ListBox& tables) {
  TableFilter known(static_cast<std::size_t>(tables.ListCount()));
  for (int row = 0; row < tables.ListCount(); ++row)
    known.Add(TableKey(tables.List(row)));
  std::unordered_set<StringView> named;
  for (const StringView text : texts) {
    for (std::size_t at = 0; at + kTableLength <= text.size(); ++at) {
      const StringView piece = text.substr(at, kTableLength);
      if (known.MayHold(TableKey(piece))) named.insert(piece);
    }
  }
  return named;
}

}  // namespace

void ZOLT20MapControl::prpSelectPart(String selectList) {
  mPrpSelectPart = std::move(selectList);
  mstrSelectClause = Concat(u"select ", mPrpSelectPart);
  const String list = mPrpSelectPart;
  const std::vector<StringView> elements = Split(list, u",");
  host_.PropertyChanged("prpSelectPart");

  // ODD: the last element selects no table.
  const std::span<const StringView> naming(elements.data(),
                                           elements.empty() ? 0 : elements.size() - 1);
  const std::unordered_set<StringView> named = TablesNamedIn(naming, lsttables);
  for (int i = lsttables.ListCount() - 1; i >= 0; --i) {
    if (named.count(lsttables.List(i)) != 0 && !lsttables.Selected(i)) {
      lsttables.Selected(i, true);  // runs lsttables_Click
    }
  }

  for (const StringView element : elements) {
    if (element.empty()) continue;
    if (!Holds(element, u":")) {
      AddSelectedField(element);
      continue;
    }
    lstSelectedFields.AddItem(element.substr(0, element.find(u':')));
    lstorderbyasc.Enabled(false);
    lstorderbydesc.Enabled(false);
    mblnAggregateMode = true;
  }
}

void ZOLT20MapControl::prpSelectFromPart(String tables) {
  mPrpSelectFromPart = std::move(tables);
  const String list = mPrpSelectFromPart;
  const std::vector<StringView> elements = Split(list, u",");
  const std::unordered_set<StringView> named(elements.begin(), elements.end());
  for (int i = lsttables.ListCount() - 1; i >= 0; --i) {
    if (named.count(lsttables.List(i)) != 0 && !lsttables.Selected(i)) {
      lsttables.Selected(i, true);  // runs lsttables_Click
    }
  }
  host_.PropertyChanged("prpSelectFromPart");
}

void ZOLT20MapControl::prpSelectGroupbyPart(String fields) {
  mPrpSelectGroupbyPart = std::move(fields);
  for (const StringView element : Split(mPrpSelectGroupbyPart, u",")) {
    // ODD: the walk begins one place past the last row, so an empty element finds the empty place
    // there, and marking it fails.
    int i = lstGroupby.ListCount();
    while (i >= 0 && lstGroupby.List(i) != Trim(element))
      --i;
    if (i >= 0) lstGroupby.Selected(i, true);
  }
  host_.PropertyChanged("prpSelectGroupbyPart");
}

void ZOLT20MapControl::prpSelectOrderbyPart(String fields) {
  mPrpSelectOrderbyPart = std::move(fields);
  const String list = mPrpSelectOrderbyPart;
  for (const StringView element : Split(list, u",")) {
    // ODD: "desc" counts anywhere and in any letter case, but only the lower-case word is taken out
    // of the name.
    const bool isDescending = FindIgnoringCase(element, u"desc") != StringView::npos;
    const String removed = Replace(element, u"desc", u"");
    const StringView name = isDescending ? Trim(removed) : element;
    for (int i = lstorderbyasc.ListCount() - 1; i >= 0; --i) {
      if (!isDescending && lstorderbyasc.List(i) == name) {
        lstorderbyasc.Selected(i, true);  // runs lstorderbyasc_ItemCheck
        break;
      }
      if (isDescending && Trim(lstorderbydesc.List(i)) == name) {
        lstorderbydesc.Selected(i, true);  // runs lstorderbydesc_ItemCheck
        break;
      }
    }
  }
  host_.PropertyChanged("prpSelectOrderbyPart");
}

void ZOLT20MapControl::prpSelectAsSetPart(String rows) {
  mPrpSelectAsSetPart = std::move(rows);
  if (!mPrpSelectAsSetPart.empty()) txtAsSet.Text(mPrpSelectAsSetPart);
  host_.PropertyChanged("prpSelectAsSetPart");
}

}  // namespace zolt20
