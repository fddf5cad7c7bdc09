// Texts between host and control: their encoding, the box that takes a text, reading the Result.
//
// Encoded text is one line: "~" is a line break, the character of code 1 a tab, "`^`" a double
// quote. The marker "*zlt*" at its start keeps it from being indented.
#include <algorithm>
#include <cstdint>
#include <utility>

#include "shell/control.h"
#include "surface/scan.h"

namespace zolt20 {
namespace {

constexpr StringView kMarker = u"*zlt*";

enum class Indentation { kKept, kOneTabLess };

// A text of the host, decoded.
struct Decoded {
  String text;
  bool isMarked = false;    // holds the marker
  bool hasTwoTabs = false;  // in a row
};

// A special character is replaced, begins the marker, or counts for the indentation. All characters
// below kFirstPlain are tested, since the others among them are rare.
constexpr char16_t kFirstPlain = u'\r' + 1;

bool IsSpecial(char16_t character) {
  return character < kFirstPlain || character == u'`' || character == u'~' || character == u'*';
}

std::uint64_t AnyIsSpecial(std::uint64_t word) {
  return scan::AnyBelow(word, kFirstPlain) | scan::AnyIs(word, u'`') | scan::AnyIs(word, u'~') |
         scan::AnyIs(word, u'*');
}

// Decodes in one pass. With kOneTabLess every line but the first loses one level of indentation.
Decoded Decode(StringView encoded, Indentation indentation) {
  constexpr StringView kQuote = u"`^`";
  Decoded decoded;
  String& text = decoded.text;
  text.reserve(encoded.size() +
               static_cast<std::size_t>(std::count(encoded.begin(), encoded.end(), u'~')));
  const char16_t* at = encoded.data();
  const char16_t* const end = at + encoded.size();
  std::size_t unindented = 0;  // the length of the text when a tab was last removed
  for (;;) {
    const char16_t* const special = scan::FindFirst(at, end, AnyIsSpecial, IsSpecial);
    text.append(at, special);
    if (special == end) return decoded;
    at = special + 1;
    const StringView rest(special, static_cast<std::size_t>(end - special));
    if (*special == u'~') {
      text += kLineBreak;
    } else if (*special == u'`' && rest.starts_with(kQuote)) {
      text += u'"';
      at = special + kQuote.size();
    } else if (*special == u'\x1' || *special == kTabCharacter.front()) {
      if (indentation == Indentation::kOneTabLess && text.size() != unindented &&
          text.ends_with(kLineBreak)) {
        unindented = text.size();
        continue;
      }
      if (text.ends_with(kTabCharacter)) decoded.hasTwoTabs = true;
      text += kTabCharacter;
    } else {
      if (rest.starts_with(kMarker)) decoded.isMarked = true;
      text += *special;
    }
  }
}

String Indented(StringView text) {
  return Replace(text, kLineBreak, u"\r\n\t");
}

// ODD: with the marker anywhere, the first five characters go, marker or not.
StringView Unmarked(StringView text) {
  return Mid(text, 6);
}

// Appends a text to that of a box, or replaces it if the box counts as empty.
template <typename Box>
void Insert(Box& box, bool countsAsEmpty, Decoded&& decoded) {
  if (countsAsEmpty && decoded.isMarked) {
    box.Text(Unmarked(decoded.text));
  } else if (countsAsEmpty) {
    box.Text(std::move(decoded.text));
  } else if (decoded.isMarked) {
    box.ReplaceFrom(box.Text().size(), Concat(kLineBreak, Unmarked(decoded.text)));
  } else {
    box.ReplaceFrom(box.Text().size(), Concat(u"\r\n\t", Indented(decoded.text)));
  }
}

template <typename Box>
void InsertInto(Box& box, Decoded&& decoded) {
  Insert(box, box.Text().empty(), std::move(decoded));
}

}  // namespace

void ZOLT20MapControl::prpStroutput(String encoded) {
  Decoded decoded = Decode(encoded, Indentation::kKept);
  if (mstrActiveBox == u"txtforstmt") {
    // ODD: a box of blanks counts as empty here, and nowhere else.
    const bool isBlank = Trim(txtForStmt.Text()).empty();
    Insert(txtForStmt, isBlank, std::move(decoded));
  } else if (mstrActiveBox == u"txtwhlstm") {
    InsertInto(txtWhlStm, std::move(decoded));
  } else if (mstrActiveBox == u"txtstmt2") {
    // ODD: the first text for the else box goes to the box before it, in place of what stands
    // there.
    if (txtStmt2.Text().empty() && !decoded.isMarked) {
      txtStmt1.Text(std::move(decoded.text));
    } else {
      InsertInto(txtStmt2, std::move(decoded));
    }
  } else if (mstrActiveBox == u"txtstmt1") {
    InsertInto(txtStmt1, std::move(decoded));
  } else if (mstrActiveBox == u"txtdef") {
    InsertInto(TxtDef, std::move(decoded));
  } else if (mstrActiveBox == u"txtrepstm") {
    InsertInto(txtRepStm, std::move(decoded));
  } else if (Mid(mstrActiveBox, 2, 7) == u"txtstmt") {
    InsertInto(txtStmt(ToInteger(Mid(mstrActiveBox, 9))), std::move(decoded));
  } else {
    InsertInto(TxtOutput, std::move(decoded));
    KeepResultAsStatement();
  }
}

// ODD: the new statement entry is the whole Result, although the earlier entries have parts of it.
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
  mPrpSelectWherePart = Decode(encoded, Indentation::kOneTabLess).text;
  txtwhereCondition.Text(mPrpSelectWherePart);  // runs txtwhereCondition_Change
  host_.PropertyChanged("prpSelectWherePart");
}

void ZOLT20MapControl::prpSelectDoPart(String encoded) {
  // ODD: the variable keeps the encoded text, unlike its three sisters, and blanks at the ends go.
  mPrpSelectDoPart = std::move(encoded);
  Decoded decoded = Decode(mPrpSelectDoPart, Indentation::kOneTabLess);
  String text = std::move(decoded.text);
  if (decoded.hasTwoTabs) text = Replace(text, u"\t\t", kTabCharacter);
  const std::size_t old = txtSelectDo.Text().size();
  if (old == 0 && decoded.isMarked) {
    txtSelectDo.Text(Trim(Unmarked(text)));
  } else if (old == 0) {
    txtSelectDo.Text(std::move(text));
  } else if (decoded.isMarked) {
    txtSelectDo.ReplaceFrom(old, Concat(kLineBreak, Trim(Unmarked(text))));
  } else {
    txtSelectDo.ReplaceFrom(old, Concat(u"\r\n\t", Trim(Indented(text))));
  }
  host_.PropertyChanged("prpSelectDoPart");
}

void ZOLT20MapControl::prpSelectEOSPart(String encoded) {
  Decoded decoded = Decode(encoded, Indentation::kOneTabLess);
  mPrpSelectEOSPart = decoded.text;
  InsertInto(txtSelectEOS, std::move(decoded));
  host_.PropertyChanged("prpSelectEOSPart");
}

void ZOLT20MapControl::prpSelectEmptyPart(String encoded) {
  Decoded decoded = Decode(encoded, Indentation::kOneTabLess);
  mPrpSelectEmptyPart = decoded.text;
  InsertInto(txtselectempty, std::move(decoded));
  host_.PropertyChanged("prpSelectEmptyPart");
}

void ZOLT20MapControl::prpSelectErrorPart(String encoded) {
  Decoded decoded = Decode(encoded, Indentation::kOneTabLess);
  mPrpSelectErrorPart = decoded.text;
  InsertInto(txtSelectError, std::move(decoded));
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
