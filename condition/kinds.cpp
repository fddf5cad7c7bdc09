// The start of a pass: choosing one of the five kinds, and the stack of kinds that are open.
//
// A kind goes on the stack when its option is clicked, not when it is added. The stack holds kind
// words alone; what is needed to close a construct is stored elsewhere, by kind.
#include <algorithm>

#include "shell/control.h"

namespace zolt20 {

void ZOLT20MapControl::optIfThen_Click() {
  ChooseKind(u"if");
  // ODD: choosing If clears its three boxes; the boxes of the other four kinds keep their texts.
  for (TextBox* box : {&txtCond, &txtStmt1, &txtStmt2})
    box->Text(u"");
  PushKind();
  ShowPanel(fraif);
  cmdNext.Visible(false);
  StartFillingIn(txtCond);
  tabVrn.TabIndex(0);
  WriteButtonPlaces(WriteTabOrder({&optIfThen, &txtCond, &txtStmt1, &txtStmt2}));
}

void ZOLT20MapControl::optFor_Click() {
  ChooseKind(u"For");
  PushKind();
  ShowPanel(fraFor);
  cmdNext.Visible(false);
  StartFillingIn(txtVariable);
  tabVrn.TabIndex(0);
  WriteButtonPlaces(
      WriteTabOrder({&optFor, &txtVariable, &txtinitval, &txtFinVal, &txtStep, &txtForStmt}));
}

void ZOLT20MapControl::optwhile_Click() {
  ChooseKind(u"While");
  PushKind();
  // ODD: While alone leaves cmdNext as it is, out of sight within fracase.
  ShowPanel(frawhile);
  StartFillingIn(txtWhlCnd);
  tabVrn.TabIndex(0);
  WriteButtonPlaces(WriteTabOrder({&optwhile, &txtWhlCnd, &txtWhlStm}));
}

void ZOLT20MapControl::optRepeat_Click() {
  ChooseKind(u"Repeat");
  PushKind();
  ShowPanel(frarepeat);
  cmdNext.Visible(false);
  StartFillingIn(txtRepCnd);
  tabVrn.TabIndex(0);
  WriteButtonPlaces(WriteTabOrder({&optRepeat, &txtRepCnd, &txtRepStm}));
}

void ZOLT20MapControl::optCase_Click() {
  ChooseKind(u"Case");
  PushKind();
  ShowPanel(fraOnCase);
  cmdNext.Visible(true);
  StartFillingIn(txtcaseexp);
  tabVrn.TabIndex(0);
  WriteTabOrder({&optCase, &txtcaseexp, &TxtDef});
  WriteRowPlaces();
}

// Pops the kind chosen before if boxes still hold text, which counts as filled in but not added.
void ZOLT20MapControl::ChooseKind(StringView kind) {
  // ODD: text in any of these counts, also that of another kind; text in txtForStmt and in the case
  // rows counts as nothing typed.
  const auto boxes = {&txtCond,   &txtStmt1,  &txtStmt2,   &txtWhlCnd, &txtWhlStm,
                      &txtRepCnd, &txtRepStm, &txtinitval, &TxtDef,    &txtVariable,
                      &txtFinVal, &txtStep,   &txtcaseexp};
  const bool isUnfinished = std::any_of(boxes.begin(), boxes.end(),
                                        [](const TextBox* box) { return !box->Text().empty(); });
  if (isUnfinished && mintOpenKinds > 0) --mintOpenKinds;
  cmdFunction(4).Enabled(true);
  cmdSubQuery(4).Enabled(true);
  mstrConditionKind = kind;
}

void ZOLT20MapControl::PushKind() {
  marrOpenKinds(mintOpenKinds) = mstrConditionKind;
  ++mintOpenKinds;
}

void ZOLT20MapControl::ShowPanel(const Frame& panel) {
  Frainitial.Visible(false);
  for (Frame* frame : {&fraif, &fraFor, &frawhile, &frarepeat, &fraOnCase})
    frame->Visible(frame == &panel);
  fracase.Visible(&panel == &fraOnCase);
}

void ZOLT20MapControl::StartFillingIn(TextBox& first) {
  mblnKindChosen = true;
  first.SetFocus();
}

void ZOLT20MapControl::WriteButtonPlaces(Integer firstPlace) {
  WriteTabOrder(
      {&cmdFunction(4), &cmdSubQuery(4), &cmdAdd, &cmdBuild, &cmdClear, &cmdCancel, &cmdDone},
      firstPlace);
}

String ZOLT20MapControl::IndentLines(Integer count) {
  String tabs(static_cast<std::size_t>(std::max(count, Integer(0)).value()), u'\t');
  return tabs;
}

}  // namespace zolt20
