// The text of each clause of a select statement, rebuilt from the form.
//
// Every clause but the first begins with its own line break, so the statement is the concatenation
// of its clauses.
#include "shell/control.h"

namespace zolt20 {
namespace {

constexpr StringView kBlankEnds{u"\r\n\t \0", 5};

// The text without CR, LF, tabs, blanks and NULs at both ends; "" for the texts told of below.
StringView TrimBlankEnds(StringView text) {
  const Integer length = static_cast<std::int64_t>(text.size());  // `overflow` past 16 bits
  if (text.empty()) return {};
  const std::size_t firstFilled = text.find_first_not_of(kBlankEnds);
  const Integer start = firstFilled == StringView::npos
                            ? length
                            : Integer(static_cast<std::int64_t>(firstFilled) + 1);
  const StringView rest = Mid(text, start.value());
  if (Trim(rest).empty()) return {};
  // ODD: the length of the rest is held against its place, so a text of one character gives
  // nothing, and so does any text whose leading blanks are about as many as its other characters.
  if (Integer(static_cast<std::int64_t>(rest.size())) - start <= 0) return {};
  return rest.substr(0, rest.find_last_not_of(kBlankEnds) + 1);
}

// "" for a box without text, else the keyword on a line of its own and the text indented by a tab.
String BlockOf(const SyntaxTextBox& box, StringView keyword) {
  if (TrimBlankEnds(box.Text()).empty()) return {};
  const String indented = Replace(box.Text(), kLineBreak, u"\r\n\t");
  return Concat(kLineBreak, keyword, u"\r\n\t", TrimBlankEnds(indented));
}

// The keyword and the list, without the comma that the list begins with; "" for an empty list.
String ClauseOf(StringView keyword, StringView commaList) {
  return commaList.empty() ? String() : Concat(keyword, commaList.substr(1));
}

void Append(String& list, StringView entry) {
  list += u',';
  list += entry;
}

}  // namespace

void ZOLT20MapControl::BuildSelectPart() {
  String tables;
  for (int i = lsttables.ListCount() - 1; i >= 0; --i) {
    if (lsttables.Selected(i)) Append(tables, lsttables.List(i));
  }
  String fields;
  mstrSelectClause.clear();
  mstrFromClause.clear();
  for (int i = 0; i < lstSelectedFields.ListCount(); ++i) {
    const StringView entry = lstSelectedFields.List(i);
    if (mblnAggregateMode) {
      const String binding = BuildFieldBinding(entry);
      Append(fields, Split(binding, kSeparator)[1]);
    } else {
      Append(fields, entry);
    }
  }
  mstrSelectClause = ClauseOf(u"select ", fields);
  mstrFromClause = ClauseOf(u"\r\nfrom  ", tables);
}

String ZOLT20MapControl::BuildFieldBinding(StringView L) const {
  constexpr StringView kRecordStart = u"long*Q*V*R*N*";
  constexpr StringView kCountOfRows = u"count ( * ) :var.count";
  if (EqualIgnoringCase(L, u"count ( * ) ")) return Concat(kRecordStart, kCountOfRows);

  marrFields.RaiseIfBrokenBeforeNameIn(L);
  const auto length = static_cast<std::int64_t>(L.size());
  const bool holdsStar = Holds(L, u"*");
  if (EqualIgnoringCase(Left(L, 8), u"count ( ")) {
    // ODD: the count of a whole table counts the rows of all, and the table's name is gone.
    if (holdsStar) return Concat(kRecordStart, kCountOfRows);
    return Concat(kRecordStart, L, u":var.count.", Mid(L, 9, length - 11));
  }
  const StringView bound = Mid(L, 6, length - (holdsStar ? 10 : 7));
  return Concat(kRecordStart, L, u":var.", Trim(Left(L, 3)), u".", Trim(bound));
}

Variant ZOLT20MapControl::BuildGroupBy() {
  String fields;
  mstrGroupbyClause.clear();
  for (int i = 0; i < lstGroupby.ListCount(); ++i) {
    if (!lstGroupby.Selected(i)) continue;
    const StringView field = lstGroupby.List(i);
    Append(fields, field);
    // ODD: a grouped field that the selected fields lack is appended to the select clause in vain:
    // that clause is rebuilt after this one.
    if (!mblnAggregateMode && !AddGroupByField(field)) Append(mstrSelectClause, field);
  }
  mstrGroupbyClause = ClauseOf(u"\r\ngroup by  ", fields);
  return {};
}

bool ZOLT20MapControl::AddGroupByField(StringView F) const {
  for (int i = lstSelectedFields.ListCount() - 1; i >= 0; --i) {
    const StringView entry = lstSelectedFields.List(i);
    // All fields of one table (TABLE.*) cover the fields of every table; the form does not tell.
    if ((Holds(entry, F) || Holds(entry, u"*")) && !Holds(entry, u")")) return true;
    if (entry == F) return true;
  }
  return false;
}

void ZOLT20MapControl::BuildWherePart() {
  mstrWhereClause.clear();
  const StringView condition = TrimBlankEnds(txtwhereCondition.Text());
  if (!condition.empty()) mstrWhereClause = Concat(u"\r\nwhere ", condition);
}

void ZOLT20MapControl::BuildOrderPart() {
  String fields;
  mstrOrderbyClause.clear();
  mstrAsSetClause.clear();
  for (int i = 0; i < lstorderbyasc.ListCount(); ++i) {
    if (lstorderbyasc.Selected(i)) Append(fields, lstorderbyasc.List(i));
    if (lstorderbydesc.Selected(i)) {
      Append(fields, lstorderbydesc.List(i));
      fields += u" desc";
    }
  }
  if (!Trim(txtAsSet.Text()).empty()) {
    mstrAsSetClause = Concat(u"\r\nas set with ", txtAsSet.Text(), u" rows ");
  }
  mstrOrderbyClause = ClauseOf(u"\r\norder by ", fields);
}

void ZOLT20MapControl::BuildSelectDoPart() {
  mstrSelectDoClause.clear();
  mstrSelectDoClause = BlockOf(txtSelectDo, u"selectdo");
}

void ZOLT20MapControl::BuildSelectEOSPart() {
  mstrSelectEOSClause.clear();
  mstrSelectEOSClause = BlockOf(txtSelectEOS, u"selecteos");
}

void ZOLT20MapControl::BuildSelectEmptyPart() {
  mstrSelectEmptyClause.clear();
  mstrSelectEmptyClause = BlockOf(txtselectempty, u"selectempty");
}

void ZOLT20MapControl::BuildSelectErrorPart() {
  mstrSelectErrorClause.clear();
  mstrSelectErrorClause = BlockOf(txtSelectError, u"selecterror");
}

}  // namespace zolt20
