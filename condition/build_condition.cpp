// Build Condition: the closing lines of all that is open, innermost first.
#include "shell/control.h"

namespace zolt20 {

void ZOLT20MapControl::cmdBuild_Click() {
  cmdBuild.Enabled(false);
  cmdSubQuery(4).Enabled(false);
  cmdFunction(4).Enabled(false);
  mintConditionsAdded = 0;
  for (Integer i = mintOpenKinds - 1; i >= 0; --i) {
    CloseKind(marrOpenKinds(i));
    --mintTabCount;
  }
  ForgetOpenKinds();
}

// ODD: the text kept of a kind tells that such a statement was added at some time, not that this
// one was. Nothing empties it here, and a level that writes no closing line still ends.
void ZOLT20MapControl::CloseKind(StringView kind) {
  if (kind == u"if") {
    if (!mstrIfText.empty()) StoreClosingText(mintTabCount, u"endif");
  } else if (kind == u"For") {
    if (!mstrForText.empty()) StoreClosingText(mintTabCount, u"endfor");
  } else if (kind == u"Repeat") {
    CloseRepeat();
  } else if (kind == u"While") {
    if (!mstrWhileText.empty()) StoreClosingText(mintTabCount, u"endwhile");
  } else {  // "Case"
    CloseCase();
  }
}

// ODD: the condition is taken off before the marker is looked at, and with none left the first one
// is read again.
void ZOLT20MapControl::CloseRepeat() {
  if (mintRepeatConds != 0) --mintRepeatConds;
  if (mstrRepeatMark.empty()) return;
  StoreClosingText(mintTabCount, Concat(u"Until  ( ", marrRepeatConds(mintRepeatConds), u" )"));
}

// Uses the depth of the head, since case rows without a statement raise the current depth.
void ZOLT20MapControl::CloseCase() {
  // ODD: as with Repeat, so a default may be written twice.
  if (mintCaseDefaults != 0) --mintCaseDefaults;
  if (mstrCaseText.empty()) return;
  const String& statement = marrCaseDefaults(mintCaseDefaults);
  if (mintCaseLevel == -1) return;
  const Integer depth = marrCaseTabs(mintCaseLevel);
  if (statement.empty()) {
    StoreClosingText(depth, u"endcase");
  } else {
    // ODD: with a default "endcase" stands at the left margin. Of the default's lines only the
    // first one is indented.
    StoreClosingText(depth + 1, Concat(u"default: ", kLineBreak, IndentLines(depth + 2), statement,
                                       kLineBreak, u"endcase"));
  }
  --mintCaseLevel;
}

// ODD: a line break in front even of the first statement of a Result.
void ZOLT20MapControl::StoreClosingText(Integer depth, StringView text) {
  StoreStatement(Concat(kLineBreak, IndentLines(depth), text));
}

void ZOLT20MapControl::cmdBuild_GotFocus() {
  ChainLastButtons(cmdBuild);
}

}  // namespace zolt20
