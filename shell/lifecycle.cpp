// Creation, page changes with their tab order, the buttons below the Result, the request buttons,
// the state as a value.
#include <array>
#include <utility>

#include "shell/control.h"

namespace zolt20 {
namespace {

constexpr std::array<StringView, 6> kFunctions{
    u"count ( * ) ", u"count", u"sum", u"avg", u"max", u"min",
};

constexpr std::array<StringView, 10> kOperators{
    u"=",          u"<>",   u"!=",      u"IN",      u"EXISTS",
    u"NOT EXISTS", u"LIKE", u"INRANGE", u"BETWEEN", u"REFERS TO",
};

constexpr int kConditionPage = 6;

// The code of the page that a request button stands on, "" beyond the pages in `codes`.
StringView PageCode(StringView codes, Integer index) {
  return Mid(codes, index.value() + 1, 1);
}

}  // namespace

ZOLT20MapControl::ZOLT20MapControl(ControlHost& host, FormVisible visible)
    : Surface(visible), host_(host) {
  UserControl_Initialize();
}

void ZOLT20MapControl::UserControl_Initialize() {
  lstFunctions.ListIndex(-1);
  cmdCancelWhere.Caption(u"Clear");
  lsttables.ListIndex(-1);
  lstFunctions.AddItems(kFunctions);
  cboOper.AddItems(kOperators);
  tabVrn.Tab(0);
  cmdAddWhereQuery.Enabled(false);
  cmdSubQuery(4).Enabled(false);
  cmdFunction(4).Enabled(false);
  cmdBuild.Enabled(false);
  ResetConditionPage();
  tabVrn_Click(0);
}

void ZOLT20MapControl::ResetConditionPage() {
  VscrCase.Visible(false);
  ShowInstructions();
}

void ZOLT20MapControl::ShowInstructions() {
  fraif.Visible(false);
  fraFor.Visible(false);
  fraOnCase.Visible(false);
  frawhile.Visible(false);
  fraSelect.Visible(true);
  frarepeat.Visible(false);
  Frainitial.Visible(true);
}

void ZOLT20MapControl::tabVrn_Click(Integer /*PreviousTab*/) {
  switch (tabVrn.Tab().value()) {
    case 0:
      tabVrn.TabIndex(0);
      WriteTabOrder({&lsttables, &lstFunctions, &lstFields, &cmdMoveOne, &cmdMoveAll, &cmdRemoveOne,
                     &cmdRemoveAll, &lstSelectedFields, &lstGroupby, &cmdAddSelect, &cmdClear,
                     &cmdCancel, &cmdDone});
      break;
    case 1:
      // ODD: cmdCancel comes twice, so it ends behind cmdClear, and cmdCancelWhere not at all.
      tabVrn.TabIndex(0);
      WriteTabOrder({&lstorderbyasc, &lstorderbydesc, &cboWhereFields, &cboOper, &cboWhereFields1,
                     &txtwhereCondition, &cmdAnd, &CmdOr, &cmdCancel, &cmdAddWhereQuery, &cmdClear,
                     &cmdCancel, &cmdDone});
      break;
    case 2:
      tabVrn.TabIndex(0);
      txtSelectDo.SetFocus();
      WriteTabOrder({&txtSelectDo, &cmdFunction(0), &cmdCondition(0), &cmdSubQuery(0),
                     &cmdAddSelectDoQuer, &cmdClear, &cmdCancel, &cmdDone});
      break;
    case 3:
      tabVrn.TabIndex(0);
      txtSelectEOS.SetFocus();
      WriteTabOrder({&txtSelectEOS, &cmdFunction(1), &cmdCondition(1), &cmdSubQuery(1),
                     &cmdAddSEOStoquery, &cmdClear, &cmdCancel, &cmdDone});
      break;
    case 4:
      tabVrn.TabIndex(0);
      txtselectempty.SetFocus();
      WriteTabOrder({&txtselectempty, &cmdFunction(2), &cmdCondition(2), &cmdSubQuery(2),
                     &cmdSelectmpty, &cmdClear, &cmdCancel, &cmdDone});
      break;
    case 5:
      // ODD: the buttons of page 4 take the places here; those of this page get theirs from
      // txtSelectError_TabChain.
      tabVrn.TabIndex(0);
      txtSelectError.SetFocus();  // runs txtSelectError_TabChain
      WriteTabOrder({&txtSelectError, &cmdFunction(2), &cmdCondition(2), &cmdSubQuery(2),
                     &cmdAddtoSERROR, &cmdClear, &cmdCancel, &cmdDone});
      break;
    default:  // kConditionPage
      tabVrn.TabIndex(0);
      WriteTabOrder({&optIfThen, &cmdClear, &cmdCancel, &cmdDone});
      break;
  }
}

// Gives the controls consecutive places in the tab order; a control that comes twice ends at the
// later place. Returns the place behind the last.
Integer ZOLT20MapControl::WriteTabOrder(std::initializer_list<Control*> controls,
                                        Integer firstPlace) {
  Integer place = firstPlace;
  for (Control* control : controls) {
    control->TabIndex(place);
    ++place;
  }
  return place;
}

void ZOLT20MapControl::TxtOutput_TabChain() {
  ChainLastButtons(TxtOutput);
}

void ZOLT20MapControl::ChainLastButtons(const Control& before) {
  cmdClear.TabIndex(before.TabIndex() + 1);
  cmdCancel.TabIndex(cmdClear.TabIndex() + 1);
  cmdDone.TabIndex(cmdCancel.TabIndex() + 1);
}

void ZOLT20MapControl::txtSelectError_TabChain() {
  cmdFunction(3).TabIndex(txtSelectError.TabIndex() + 1);
  cmdCondition(3).TabIndex(cmdFunction(3).TabIndex() + 1);
  cmdSubQuery(3).TabIndex(cmdCondition(3).TabIndex() + 1);
}

void ZOLT20MapControl::cmdClear_Click() {
  const Integer page = tabVrn.Tab();
  mintCurrentStatement = 0;
  if (mintStatementCount > 0 && marrResultStatements.UpperBound() > 0) {
    KeepWrittenStatements(0);
    // ODD: the entry at the upper bound keeps its text; it shows again when a statement box of
    // another page is added to the Result before a new statement is.
    for (int i = 0; i < marrResultStatements.UpperBound(); ++i)
      marrResultStatements(i).clear();
  }
  mintStatementCount = 0;
  ClearAll(page);
  ForgetOpenKinds();
  cmdSubQuery(4).Enabled(false);
  cmdFunction(4).Enabled(false);
  cmdBuild.Enabled(false);
  ResetConditionPage();
  // ODD: the kind stays chosen, so Add Condition runs a pass for it on empty boxes.
  EmptyConditionPage();
  mstrRepeatHead.clear();
  cmdAddSelect.Enabled(true);
}

void ZOLT20MapControl::ForgetOpenKinds() {
  // ODD: from one above the last entry, which a full stack does not have.
  for (Integer i = mintOpenKinds; i >= 0; --i)
    marrOpenKinds(i).clear();
  mintOpenKinds = 0;
  // ODD: case rows that are loaded stay, and the next clicks on cmdNext fail on them.
  mintCaseRow = 0;
  mintTabCount = 0;
}

// Of the case rows it empties row 0 alone, the one that is never unloaded.
void ZOLT20MapControl::EmptyConditionPage() {
  for (OptionButton* option : {&optCase, &optIfThen, &optFor, &optRepeat, &optwhile})
    option->Value(false);
  for (TextBox* box : {&txtRepCnd, &txtCond, &txtStmt1, &txtStmt2, &TxtDef, &txtRepStm, &txtWhlCnd,
                       &txtWhlStm, &txtVariable, &txtFinVal, &txtStep, &txtForStmt, &txtinitval,
                       &TxtExpr(0), &txtStmt(0), &txtcaseexp}) {
    box->Text(u"");
  }
}

void ZOLT20MapControl::cmdCancel_Click() {
  host_.eventCancel();
}

void ZOLT20MapControl::cmdDone_Click() {
  if (cmdBuild.Enabled() && tabVrn.Tab() == kConditionPage) {
    ShowMessage(u"Build Condition");
    return;
  }
  host_.eventDone();
}

Variant ZOLT20MapControl::ClearAll(Integer i_intTabNo) {
  switch (i_intTabNo.value()) {
    case 0:
      cmdAddSelect.Enabled(true);
      for (int i = lsttables.ListCount() - 1; i >= 0; --i) {
        lsttables.ListIndex(i);                                   // runs lsttables_Click
        if (lsttables.Selected(i)) lsttables.Selected(i, false);  // runs lsttables_Click
      }
      lstSelectedFields.Clear();
      TxtOutput.Text(u"");
      mblnSelectAdded = false;
      lstorderbyasc.Enabled(true);
      lstorderbydesc.Enabled(true);
      break;
    case 1:
      ClearMarks(lstorderbyasc, lstorderbyasc);
      // ODD: the rows of the other list are counted here.
      ClearMarks(lstorderbydesc, lstorderbyasc);
      TxtOutput.Text(u"");
      txtAsSet.Text(u"");
      txtwhereCondition.Text(u"");
      txtCondition.Text(u"");
      mstrAsSetClause.clear();
      mstrOrderbyClause.clear();
      break;
    case 2:
      txtSelectDo.Text(u"");
      mstrSelectDoClause.clear();
      break;
    case 3:
      txtSelectEOS.Text(u"");
      mstrSelectEOSClause.clear();
      break;
    case 4:
      txtselectempty.Text(u"");
      mstrSelectEmptyClause.clear();
      break;
    case 5:
      txtSelectError.Text(u"");
      mstrSelectErrorClause.clear();
      break;
    default:
      break;
  }
  TxtOutput.Text(u"");
  mblnAggregateMode = false;
  return {};
}

// Unmarks the first rows of an order list, as many as `countedBy` has rows.
void ZOLT20MapControl::ClearMarks(ListBox& list, const ListBox& countedBy) {
  if (list.SelCount() < 1) return;
  for (int i = countedBy.ListCount() - 1; i >= 0; --i) {
    if (list.Selected(i)) list.Selected(i, false);  // runs ItemCheck
  }
}

void ZOLT20MapControl::cmdFunction_Click(Integer Index) {
  if (const StringView code = PageCode(u"DEOFC", Index); !code.empty()) mstrSQLPart = code;
  host_.eventFunction();
}

void ZOLT20MapControl::cmdCondition_Click(Integer Index) {
  if (const StringView code = PageCode(u"DEOF", Index); !code.empty()) mstrSQLPart = code;
  host_.eventCondition();
}

void ZOLT20MapControl::cmdSubQuery_Click(Integer Index) {
  if (const StringView code = PageCode(u"DEOFC", Index); !code.empty()) mstrSQLPart = code;
  host_.eventSubQuery();
}

void ZOLT20MapControl::ShowMessage(StringView text) {
  host_.ShowMessage(
      {text, u"Maintain Mapping Objects", MessageIcon::kCritical, MessageButtons::kOk});
}

ControlSnapshot ZOLT20MapControl::Save() const {
  ControlSnapshot snapshot;
  snapshot.surface_ = Surface::Save();
  snapshot.variables_ = *this;
  return snapshot;
}

void ZOLT20MapControl::Restore(ControlSnapshot snapshot) {
  Surface::Restore(std::move(snapshot.surface_));
  static_cast<ModuleVariables&>(*this) = std::move(snapshot.variables_);
}

}  // namespace zolt20
