// The one place that connects the events of the controls to their handlers.
#include "shell/control.h"

namespace zolt20 {

void ZOLT20MapControl::OnClick(Control& source) {
  switch (source.design().name) {
    case ControlName::cmdClear:
      return cmdClear_Click();
    case ControlName::cmdCancel:
      return cmdCancel_Click();
    case ControlName::cmdDone:
      return cmdDone_Click();
    case ControlName::cmdFunction:
      return cmdFunction_Click(source.Index());
    case ControlName::cmdCondition:
      return cmdCondition_Click(source.Index());
    case ControlName::cmdSubQuery:
      return cmdSubQuery_Click(source.Index());
    case ControlName::lsttables:
      return lsttables_Click();
    case ControlName::cmdMoveOne:
      return cmdMoveOne_Click();
    case ControlName::cmdMoveAll:
      return cmdMoveAll_Click();
    case ControlName::cmdRemoveOne:
      return cmdRemoveOne_Click();
    case ControlName::cmdRemoveAll:
      return cmdRemoveAll_Click();
    case ControlName::cboWhereFields:
      return cboWhereFields_Click();
    case ControlName::cboOper:
      return cboOper_Click();
    case ControlName::cmdAnd:
      return cmdAnd_Click();
    case ControlName::CmdOr:
      return CmdOr_Click();
    case ControlName::cmdCancelWhere:
      return cmdCancelWhere_Click();
    default:
      return OnStatementClick(source);
  }
}

void ZOLT20MapControl::OnStatementClick(Control& source) {
  switch (source.design().name) {
    case ControlName::cmdAddSelect:
      return cmdAddSelect_Click();
    case ControlName::cmdAddWhereQuery:
      return cmdAddWhereQuery_Click();
    case ControlName::cmdAddSelectDoQuer:
      return cmdAddSelectDoQuer_Click();
    case ControlName::cmdAddSEOStoquery:
      return cmdAddSEOStoquery_Click();
    case ControlName::cmdSelectmpty:
      return cmdSelectmpty_Click();
    case ControlName::cmdAddtoSERROR:
      return cmdAddtoSERROR_Click();
    case ControlName::optIfThen:
      return optIfThen_Click();
    case ControlName::optFor:
      return optFor_Click();
    case ControlName::optwhile:
      return optwhile_Click();
    case ControlName::optRepeat:
      return optRepeat_Click();
    case ControlName::optCase:
      return optCase_Click();
    case ControlName::cmdNext:
      return cmdNext_Click();
    case ControlName::cmdAdd:
      return cmdAdd_Click();
    case ControlName::cmdBuild:
      return cmdBuild_Click();
    default:
      return;
  }
}

void ZOLT20MapControl::OnDoubleClick(Control& list) {
  switch (list.design().name) {
    case ControlName::lstFunctions:
      return lstFunctions_DblClick();
    case ControlName::lstFields:
      return lstFields_DblClick();
    default:
      return;
  }
}

void ZOLT20MapControl::OnChange(Control& source) {
  switch (source.design().name) {
    case ControlName::txtwhereCondition:
      return txtwhereCondition_Change();
    case ControlName::VscrCase:
      return VscrCase_Change();
    default:
      return;
  }
}

void ZOLT20MapControl::OnItemCheck(ListBox& list, int row) {
  switch (list.design().name) {
    case ControlName::lstorderbyasc:
      return lstorderbyasc_ItemCheck(row);
    default:  // lstorderbydesc
      return lstorderbydesc_ItemCheck(row);
  }
}

void ZOLT20MapControl::OnKeyPress(TextBox& box, Integer& code) {
  if (box.design().name == ControlName::txtAsSet) txtAsSet_KeyPress(code);
}

void ZOLT20MapControl::OnGotFocus(Control& source) {
  switch (source.design().name) {
    case ControlName::CmdOr:
      return CmdOr_GotFocus();
    case ControlName::cmdBuild:
      return cmdBuild_GotFocus();
    case ControlName::txtForStmt:
      return txtForStmt_GotFocus();
    case ControlName::txtWhlStm:
      return txtWhlStm_GotFocus();
    case ControlName::txtStmt1:
      return txtStmt1_GotFocus();
    case ControlName::txtStmt2:
      return txtStmt2_GotFocus();
    case ControlName::TxtDef:
      return TxtDef_GotFocus();
    case ControlName::txtRepStm:
      return txtRepStm_GotFocus();
    case ControlName::txtStmt:
      return txtStmt_GotFocus(source.Index());
    default:
      return;
  }
}

void ZOLT20MapControl::OnTabChain(SyntaxTextBox& box) {
  switch (box.design().name) {
    case ControlName::TxtOutput:
      return TxtOutput_TabChain();
    case ControlName::txtSelectError:
      return txtSelectError_TabChain();
    default:
      return;
  }
}

void ZOLT20MapControl::OnTabClick(Integer previousTab) {
  tabVrn_Click(previousTab);
}

}  // namespace zolt20
