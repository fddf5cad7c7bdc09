// Add Condition: the boxes of the chosen kind become the head of a statement, one pass deeper than
// the pass before.
//
// Only heads are written here. What Build Condition needs to close them is stored: one marker per
// kind, the conditions of Repeats, the defaults and depths of On...Cases.
#include <utility>

#include "shell/control.h"

namespace zolt20 {
namespace {

bool IsFilled(const TextBox& box) {
  return !Trim(box.Text()).empty();
}

}  // namespace

void ZOLT20MapControl::cmdAdd_Click() {
  mstrActiveBox.clear();
  mblnAddClicked = true;
  // ODD: this outlasts the refusal below, so a click with no kind chosen deepens the next pass too.
  if (!Trim(TxtOutput.Text()).empty()) {
    EndTrimmedResult(kLineBreak);
    if (mintConditionsAdded > 0) ++mintTabCount;
  }
  if (!mblnKindChosen) return ShowMessage(u"Select A Condition");
  if (mstrConditionKind == u"For") {
    AddFor();
  } else if (mstrConditionKind == u"if") {
    AddIf();
  } else if (mstrConditionKind == u"Repeat") {
    AddRepeat();
  } else if (mstrConditionKind == u"While") {
    AddWhile();
  } else {  // "Case"
    AddCase();
  }
  EndPass();
}

void ZOLT20MapControl::AddFor() {
  // ODD: the texts of this kind alone go in with their blanks, and its head always ends in a line
  // break.
  const StringView step = Trim(txtStep.Text());
  const String stepPart = step.empty() || step == u"0"
                              ? String(kLineBreak)
                              : Concat(u"  Step    ", txtStep.Text(), kLineBreak);
  String text;
  if (IsFilled(txtVariable) && IsFilled(txtinitval) && IsFilled(txtFinVal)) {
    text = Concat(IndentLines(mintTabCount), u"for ", txtVariable.Text(), u" = ", txtinitval.Text(),
                  u" to ", txtFinVal.Text(), stepPart);
    if (IsFilled(txtForStmt)) text += StatementBlock(txtForStmt.Text());
  }
  // ODD: without the line break that the markers of If and While have in front.
  mstrForText = text;
  StoreStatement(OnNewLine(text));
  ++mintConditionsAdded;
}

void ZOLT20MapControl::AddIf() {
  const StringView condition = Trim(txtCond.Text());
  String text;
  String elsePart;
  if (!condition.empty()) {
    if (const StringView statement = Trim(txtStmt1.Text()); !statement.empty()) {
      text = Concat(IndentLines(mintTabCount), u"if ", condition, u" then ", kLineBreak,
                    StatementBlock(statement));
    } else {
      // ODD: at the left margin, whatever the depth.
      text = Concat(u"if ", condition, u" then ");
    }
    if (const StringView statement = Trim(txtStmt2.Text()); !statement.empty()) {
      elsePart = Concat(kLineBreak, IndentLines(mintTabCount), u"else", kLineBreak,
                        StatementBlock(statement));
    }
  }
  // ODD: Build Condition adds an endif if mstrIfText is not empty. After other statements the line
  // break alone makes it so, even when the If has no condition.
  String marker = OnNewLine(text);
  StoreStatement(Concat(marker, elsePart));
  ++mintConditionsAdded;
  mstrIfText = std::move(marker);
}

void ZOLT20MapControl::AddRepeat() {
  const StringView condition = Trim(txtRepCnd.Text());
  const StringView statement = Trim(txtRepStm.Text());
  // ODD: the head is stored even with both boxes empty, and then no Until follows.
  mstrRepeatHead = Concat(IndentLines(mintTabCount), u"repeat ");
  if (!statement.empty()) mstrRepeatHead += Concat(kLineBreak, StatementBlock(statement));
  if (!condition.empty()) {
    marrRepeatConds(mintRepeatConds) = condition;
    ++mintRepeatConds;
  }
  if (condition.empty() && statement.empty()) {
    mstrRepeatMark.clear();
  } else {
    mstrRepeatMark = u"value";
    // This Result is seen only if StoreStatement below raises `overflow`; else StoreStatement
    // writes the whole Result anew.
    EndTrimmedResult(mstrRepeatHead);
  }
  StoreStatement(OnNewLine(mstrRepeatHead));
  // ODD: counted twice, which leaves an empty entry behind the text.
  ++mintStatementCount;
  ++mintConditionsAdded;
}

void ZOLT20MapControl::AddWhile() {
  const StringView condition = Trim(txtWhlCnd.Text());
  const StringView statement = Trim(txtWhlStm.Text());
  String text;
  if (!condition.empty() && !statement.empty()) {
    text = Concat(IndentLines(mintTabCount), u"while ", condition, kLineBreak,
                  StatementBlock(statement));
  } else if (!condition.empty()) {
    // ODD: two blanks without a statement, one with it.
    text = Concat(IndentLines(mintTabCount), u"while  ", condition);
  }
  String marker = OnNewLine(text);
  StoreStatement(marker);
  mstrWhileText = std::move(marker);
  ++mintConditionsAdded;
}

void ZOLT20MapControl::AddCase() {
  const StringView expression = Trim(txtcaseexp.Text());
  ++mintCaseLevel;
  marrCaseTabs(mintCaseLevel) = mintTabCount;
  String text;
  if (!expression.empty()) {
    for (Integer i = 0; i <= TxtExpr.UpperBound(); ++i)
      text += CaseRow(Trim(TxtExpr(i).Text()), Trim(txtStmt(i).Text()));
  }
  if (const StringView statement = Trim(TxtDef.Text()); !statement.empty()) {
    marrCaseDefaults(mintCaseDefaults) = statement;
    ++mintCaseDefaults;
  }
  // ODD: of the five, this kind alone stores nothing when it has no text.
  if (!text.empty()) {
    text = Concat(IndentLines(marrCaseTabs(mintCaseLevel)), u"on case ", expression, text);
    StoreStatement(OnNewLine(text));
  }
  mstrCaseText = std::move(text);
  ++mintConditionsAdded;
}

// A row of an On...Case with the line break before it, "" for a row with no value.
String ZOLT20MapControl::CaseRow(StringView value, StringView statement) {
  if (value.empty()) return {};
  const Integer depth = mintTabCount;
  ++mintTabCount;
  if (statement.empty()) {
    // ODD: the depth is not lowered again, so that all rows up to Build Condition are one tab
    // deeper. The row ends in ": " instead of " :", and in no "break" statement.
    return Concat(kLineBreak, IndentLines(mintTabCount), u"case ", value, u": ");
  }
  String row =
      Concat(kLineBreak, IndentLines(mintTabCount), u"case ", value, u" :", kLineBreak,
             StatementBlock(statement), kLineBreak, IndentLines(mintTabCount + 1), u"break");
  mintTabCount = depth;
  return row;
}

// A statement one tab deeper than its head, on all its lines.
String ZOLT20MapControl::StatementBlock(StringView statement) const {
  const Integer depth = mintTabCount + 1;
  // The lines after the first have a tab of their own, which stays at a depth below 0.
  const String lineStart = Concat(kLineBreak, kTabCharacter, IndentLines(depth - 1));
  return Concat(IndentLines(depth), Replace(statement, kLineBreak, lineStart));
}

// The text, with a line break before it if the Result has statements already.
String ZOLT20MapControl::OnNewLine(StringView text) const {
  return mintStatementCount > 0 ? Concat(kLineBreak, text) : String(text);
}

// Ends a pass: shows the instructions again, so that the next pass can nest inside this one.
void ZOLT20MapControl::EndPass() {
  cmdSubQuery(4).Enabled(true);
  cmdFunction(4).Enabled(true);
  const Integer lastRow = TxtExpr.UpperBound();
  for (Integer i = 1; i <= lastRow; ++i) {
    TxtExpr.Unload(i);
    txtStmt.Unload(i);
  }
  // ODD: the bar and row 0 stay where the scrolling left them, maybe above the frame.
  mblnKindChosen = false;
  cmdBuild.Enabled(true);
  fracase.Visible(false);
  ShowInstructions();
  EmptyConditionPage();
  mstrRepeatHead.clear();
  mintCaseRow = 0;
}

}  // namespace zolt20
