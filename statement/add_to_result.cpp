// The six Add To Result buttons, the statements behind the Result, and reading the selected fields
// back.
#include <utility>

#include "shell/control.h"
#include "shell/table_key.h"

namespace zolt20 {
namespace {

// Whether an item of a select list stands for all fields of a table.
bool StandsForTable(StringView item) {
  return Holds(item, u"*") && !Holds(item, u")");
}

}  // namespace

bool ZOLT20MapControl::TablesAndFieldsSelected() {
  if (lsttables.SelCount() == 0) {
    ShowMessage(u"Tables Not Selected --Select A Table To Proceed Further");
    return false;
  }
  if (lstSelectedFields.ListCount() == 0) {
    ShowMessage(u"Fields Not Selected --Select A Field To Proceed Further");
    return false;
  }
  return true;
}

void ZOLT20MapControl::BuildClauses() {
  BuildSelectDoPart();
  BuildOrderPart();
  BuildGroupBy();
  BuildSelectEmptyPart();
  BuildSelectEOSPart();
  BuildSelectErrorPart();
  BuildSelectPart();
  BuildWherePart();
}

String ZOLT20MapControl::AssembleStatement() const {
  return Concat(mstrSelectClause, mstrFromClause, mstrWhereClause, mstrGroupbyClause,
                mstrOrderbyClause, mstrAsSetClause, mstrSelectDoClause, mstrSelectEOSClause,
                mstrSelectEmptyClause, mstrSelectErrorClause, kLineBreak, u"endselect");
}

void ZOLT20MapControl::cmdAddSelect_Click() {
  if (!TablesAndFieldsSelected()) return;
  BuildClauses();
  mstrStatement = AssembleStatement();
  mblnSelectAdded = true;
  if (mintStatementCount > 0) mstrStatement.insert(0, kLineBreak);
  mintCurrentStatement = mintStatementCount;
  StoreStatement(mstrStatement);
}

void ZOLT20MapControl::cmdAddWhereQuery_Click() {
  AddQueryPart();
}

void ZOLT20MapControl::cmdAddSelectDoQuer_Click() {
  if (!TablesAndFieldsSelected()) return;
  BuildClauses();
  // ODD: the other four rewriting buttons look at the Result first.
  mstrStatement = AssembleStatement();
  RewriteCurrentStatement();
}

void ZOLT20MapControl::cmdAddSEOStoquery_Click() {
  AddQueryPart();
}

void ZOLT20MapControl::cmdSelectmpty_Click() {
  AddQueryPart();
}

void ZOLT20MapControl::cmdAddtoSERROR_Click() {
  AddQueryPart();
}

void ZOLT20MapControl::AddQueryPart() {
  if (!TablesAndFieldsSelected()) return;
  BuildClauses();
  // ODD: with the Result emptied by hand the statement before comes back, and not the one that the
  // form shows now.
  if (!TxtOutput.Text().empty()) mstrStatement = AssembleStatement();
  RewriteCurrentStatement();
}

void ZOLT20MapControl::RewriteCurrentStatement() {
  if (!mblnSelectAdded) return ShowMessage(u"Select Statement Not Present");
  if (mintCurrentStatement > 0) mstrStatement.insert(0, kLineBreak);
  KeepWrittenStatements(mintCurrentStatement.value());
  marrResultStatements(mintCurrentStatement.value()) = mstrStatement;
  RewriteResult();
}

void ZOLT20MapControl::AppendStatement(String statement) {
  KeepWrittenStatements(mintStatementCount.value());
  marrResultStatements.Resize(mintStatementCount);
  marrResultStatements(mintStatementCount.value()) = std::move(statement);
  ++mintStatementCount;
}

void ZOLT20MapControl::StoreStatement(String statement) {
  AppendStatement(std::move(statement));
  RewriteResult();
}

// Makes the Result the concatenation of all statements. Those in the cache are not written again.
void ZOLT20MapControl::RewriteResult() {
  const std::vector<String>& statements = marrResultStatements.Entries();
  ForgetChangedResult();
  const auto known = static_cast<std::size_t>(written_.count);
  if (known + 1 == statements.size()) {
    TxtOutput.ReplaceFrom(written_.length, statements.back());
  } else {
    String rest;
    for (std::size_t i = known; i < statements.size(); ++i)
      rest += statements[i];
    TxtOutput.ReplaceFrom(written_.length, rest);
  }
  written_ = {TxtOutput.Revision(), static_cast<int>(statements.size()), TxtOutput.Text().size()};
}

// Invalidates the cache if anything else has written the Result.
void ZOLT20MapControl::ForgetChangedResult() {
  if (written_.revision != TxtOutput.Revision()) written_ = {TxtOutput.Revision(), 0, 0};
}

// To be called before entries from `count` on change: drops them from the cache.
void ZOLT20MapControl::KeepWrittenStatements(int count) {
  ForgetChangedResult();
  while (written_.count > count) {
    --written_.count;
    written_.length -= std::as_const(marrResultStatements)(written_.count).size();
  }
}

// Takes the blanks from both ends of the Result and appends `end`.
void ZOLT20MapControl::EndTrimmedResult(StringView end) {
  const StringView result = Trim(TxtOutput.Text());
  if (result.data() != TxtOutput.Text().data()) {
    TxtOutput.Text(Concat(result, end));
    return;
  }
  ForgetChangedResult();
  while (written_.length > result.size())
    KeepWrittenStatements(written_.count - 1);
  TxtOutput.ReplaceFrom(result.size(), end);
  written_.revision = TxtOutput.Revision();
}

String ZOLT20MapControl::prpstrSelectedFields() {
  ReadSelectedFields();
  return mstrSelectedFields;
}

void ZOLT20MapControl::ReadSelectedFields() {
  if (mintStatementCount == 0) return;
  const std::vector<String>& statements = marrResultStatements.Entries();
  const String* chosen = &std::as_const(marrResultStatements)(0);
  for (const String& statement : statements) {
    if (FindIgnoringCase(statement, u"dump ") == StringView::npos) continue;
    chosen = &statement;
    break;
  }

  // ODD: every statement but the first begins with a line break, and so is none to this test.
  if (!EqualIgnoringCase(Left(Trim(*chosen), 6), u"select")) return;
  const std::size_t select = FindIgnoringCase(*chosen, u"select ");
  const std::size_t from = FindIgnoringCase(*chosen, u"from ");
  if (from == StringView::npos || (select != StringView::npos && from < select)) return;

  const StringView list = Mid(*chosen, 8, static_cast<std::int64_t>(from) + 1 - 8);
  const std::vector<StringView> items = Split(list, u",");
  std::vector<StringView> wholeTables;
  for (const StringView item : items) {
    if (StandsForTable(item)) wholeTables.push_back(Left(item, kTableLength));
  }
  if (!wholeTables.empty()) marrFields.FindNamesHolding(wholeTables);
  String records;
  for (const StringView item : items)
    AppendRecordsOf(item, records);
  mstrSelectedFields = Trim(Mid(records, 2));
}

// Appends each record that the item stands for, with a comma before it.
void ZOLT20MapControl::AppendRecordsOf(StringView item, String& records) const {
  if (marrFields.Count() == 0) return;
  const bool isFunction = Holds(item, u")");
  const bool isWholeTable = StandsForTable(item);

  // As in a walk over the records: the first record raises if it is broken, then the item is bound,
  // then any broken record raises.
  String binding;
  if (!isWholeTable) {
    marrFields.At(0);
    binding = BuildFieldBinding(item);
  }
  marrFields.RaiseIfBroken();
  const FieldRecords::Places places = isWholeTable
                                          ? marrFields.WithNameHolding(Left(item, kTableLength))
                                          : marrFields.WithNameIn(binding);
  for (const auto place : places) {
    records += u',';
    if (isFunction) {
      records += binding;
      continue;
    }
    const FieldRecord record = marrFields.At(place);
    if (!record.hasRest) Raise(ErrorKind::kSubscript);
    records += Concat(record.type, kSeparator, record.flagAndName, kSeparator, record.rest);
  }
}

}  // namespace zolt20
