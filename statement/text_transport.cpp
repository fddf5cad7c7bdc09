// Text that crosses the boundary: its encoding, the box that takes it, the way back.
//
// Encoded text is one line: "~" is a line break, the character of code 1 a tab, "`^`" a double
// quote. The marker "*zlt*" at its head keeps it from being indented.
#include <utility>

#include "shell/control.h"

namespace zolt20 {
namespace {

constexpr StringView kMarker = u"*zlt*";

String Decode(StringView encoded) {
  return Replace(Replace(Replace(encoded, u"~", kLineBreak), u"\u0001", kTabCharacter), u"`^`",
                 u"\"");
}

// The decoded text with one level of indentation taken off every line but the first.
String DecodeIndented(StringView encoded) {
  return Replace(Decode(encoded), u"\r\n\t", kLineBreak);
}

String Indented(StringView text) {
  return Replace(text, kLineBreak, u"\r\n\t");
}

bool IsMarked(StringView text) {
  return Holds(text, kMarker);
}

// ODD: with the marker anywhere, the first five characters go, marker or not.
StringView Unmarked(StringView text) {
  return Mid(text, 6);
}

// What a box that holds `old` holds when it has taken `text`.
String Inserted(StringView old, bool countsAsEmpty, StringView text) {
  if (countsAsEmpty) return String(IsMarked(text) ? Unmarked(text) : text);
  if (IsMarked(text)) return Concat(old, kLineBreak, Unmarked(text));
  return Concat(old, u"\r\n\t", Indented(text));
}

template <typename Box>
void InsertInto(Box& box, StringView text) {
  box.Text(Inserted(box.Text(), box.Text().empty(), text));
}

}  // namespace

void ZOLT20MapControl::prpStroutput(String encoded) {
  const String text = Decode(encoded);
  if (mstrActiveBox == u"txtforstmt") {
    // ODD: a box of blanks counts as empty here, and nowhere else.
    const bool isBlank = Trim(txtForStmt.Text()).empty();
    txtForStmt.Text(Inserted(txtForStmt.Text(), isBlank, text));
  } else if (mstrActiveBox == u"txtwhlstm") {
    InsertInto(txtWhlStm, text);
  } else if (mstrActiveBox == u"txtstmt2") {
    // ODD: the first text for the else box goes to the box before it, in place of what stands
    // there.
    if (txtStmt2.Text().empty() && !IsMarked(text)) {
      txtStmt1.Text(text);
    } else {
      InsertInto(txtStmt2, text);
    }
  } else if (mstrActiveBox == u"txtstmt1") {
    InsertInto(txtStmt1, text);
  } else if (mstrActiveBox == u"txtdef") {
    InsertInto(TxtDef, text);
  } else if (mstrActiveBox == u"txtrepstm") {
    InsertInto(txtRepStm, text);
  } else if (Mid(mstrActiveBox, 2, 7) == u"txtstmt") {
    InsertInto(txtStmt(ToInteger(Mid(mstrActiveBox, 9))), text);
  } else {
    InsertInto(TxtOutput, text);
    KeepResultAsStatement();
  }
}

// ODD: the whole of the Result becomes the new entry, with what the entries before hold already.
void ZOLT20MapControl::KeepResultAsStatement() {
  const StringView result = Trim(TxtOutput.Text());
  if (result.empty()) return;
  mintCurrentStatement = mintStatementCount;
  mblnSelectAdded = true;
  AppendStatement(String(result));
}

String ZOLT20MapControl::prpStroutput() {
  // ODD: one tab whatever the depth, and one more at each read.
  if (mintTabCount > 0) TxtOutput.Text(Indented(TxtOutput.Text()));
  return TxtOutput.Text();
}

void ZOLT20MapControl::prpSelectWherePart(String encoded) {
  mPrpSelectWherePart = std::move(encoded);
  mPrpSelectWherePart = DecodeIndented(mPrpSelectWherePart);
  txtwhereCondition.Text(mPrpSelectWherePart);  // runs txtwhereCondition_Change
  host_.PropertyChanged("prpSelectWherePart");
}

void ZOLT20MapControl::prpSelectDoPart(String encoded) {
  // ODD: the variable keeps the encoded text, unlike its three sisters, and blanks at the ends go.
  mPrpSelectDoPart = std::move(encoded);
  const String text = Replace(DecodeIndented(mPrpSelectDoPart), u"\t\t", kTabCharacter);
  const String& old = txtSelectDo.Text();
  if (old.empty()) {
    txtSelectDo.Text(IsMarked(text) ? Trim(Unmarked(text)) : StringView(text));
  } else if (IsMarked(text)) {
    txtSelectDo.Text(Concat(old, kLineBreak, Trim(Unmarked(text))));
  } else {
    txtSelectDo.Text(Concat(old, u"\r\n\t", Trim(Indented(text))));
  }
  host_.PropertyChanged("prpSelectDoPart");
}

void ZOLT20MapControl::prpSelectEOSPart(String encoded) {
  mPrpSelectEOSPart = DecodeIndented(encoded);
  InsertInto(txtSelectEOS, mPrpSelectEOSPart);
  host_.PropertyChanged("prpSelectEOSPart");
}

void ZOLT20MapControl::prpSelectEmptyPart(String encoded) {
  mPrpSelectEmptyPart = DecodeIndented(encoded);
  InsertInto(txtselectempty, mPrpSelectEmptyPart);
  host_.PropertyChanged("prpSelectEmptyPart");
}

void ZOLT20MapControl::prpSelectErrorPart(String encoded) {
  mPrpSelectErrorPart = DecodeIndented(encoded);
  InsertInto(txtSelectError, mPrpSelectErrorPart);
  host_.PropertyChanged("prpSelectErrorPart");
}

void ZOLT20MapControl::txtForStmt_GotFocus() {
  mstrActiveBox = u"txtforstmt";
}

void ZOLT20MapControl::txtWhlStm_GotFocus() {
  mstrActiveBox = u"txtwhlstm";
}

void ZOLT20MapControl::txtStmt1_GotFocus() {
  mstrActiveBox = u"txtstmt1";
}

void ZOLT20MapControl::txtStmt2_GotFocus() {
  mstrActiveBox = u"txtstmt2";
}

void ZOLT20MapControl::TxtDef_GotFocus() {
  mstrActiveBox = u"txtdef";
}

void ZOLT20MapControl::txtRepStm_GotFocus() {
  mstrActiveBox = u"txtrepstm";
}

void ZOLT20MapControl::txtStmt_GotFocus(Integer Index) {
  mstrActiveBox = Concat(u"Ctxtstmt", ToText(Index));
}

}  // namespace zolt20
