// The six Add To Result buttons, the statements behind the Result, and reading the selected fields
// back.
#include <utility>

#include "shell/control.h"

namespace zolt20 {

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
  marrResultStatements(mintCurrentStatement.value()) = mstrStatement;
  RewriteResult();
}

void ZOLT20MapControl::AppendStatement(String statement) {
  marrResultStatements.Resize(mintStatementCount);
  marrResultStatements(mintStatementCount.value()) = std::move(statement);
  ++mintStatementCount;
}

void ZOLT20MapControl::StoreStatement(String statement) {
  AppendStatement(std::move(statement));
  RewriteResult();
}

void ZOLT20MapControl::RewriteResult() {
  String result;
  for (const String& statement : marrResultStatements.Entries())
    result += statement;
  TxtOutput.Text(std::move(result));
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
  String records;
  for (const StringView item : Split(list, u","))
    AppendRecordsOf(item, records);
  mstrSelectedFields = Trim(Mid(records, 2));
}

// Each of the records that the item stands for, behind a comma.
void ZOLT20MapControl::AppendRecordsOf(StringView item, String& records) const {
  if (marrFields.Count() == 0) return;
  const bool isFunction = Holds(item, u")");
  const bool isWholeTable = !isFunction && Holds(item, u"*");

  // The walk over the records binds the item at the first of them, and fails at the first broken
  // one.
  String binding;
  if (!isWholeTable) {
    marrFields.At(0);
    binding = BuildFieldBinding(item);
  }
  marrFields.RaiseIfBroken();
  const FieldRecords::Places places =
      isWholeTable ? marrFields.WithNameHolding(Left(item, 8)) : marrFields.WithNameIn(binding);
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
