// The joining half of the Where page, its And, Or and Cancel or Clear buttons: a condition is
// appended to the where text, or discarded, or the where text is emptied.
#include <algorithm>
#include <array>

#include "shell/control.h"

namespace zolt20 {
namespace {

// The operators whose right side is always the text of txtCondition.
constexpr std::array<StringView, 11> kTemplateOperators{
    u"#<=",    u"#>=",  u"#<",      u"#>",      u"REFERS TO", u"NOT EXISTS",
    u"EXISTS", u"LIKE", u"BETWEEN", u"INRANGE", u"IN",
};

bool TakesTemplate(StringView op) {
  return std::find(kTemplateOperators.begin(), kTemplateOperators.end(), op) !=
         kTemplateOperators.end();
}

// The text without blanks, tabs and line breaks at its start and blanks at its end.
StringView CleanStart(StringView text) {
  for (;;) {
    text = Trim(text);
    if (text.starts_with(kLineBreak)) {
      text.remove_prefix(kLineBreak.size());
    } else if (text.starts_with(kTabCharacter)) {
      text.remove_prefix(kTabCharacter.size());
    } else {
      return text;
    }
  }
}

}  // namespace

void ZOLT20MapControl::cmdAnd_Click() {
  ApplyCondition(u"and ");
}

void ZOLT20MapControl::CmdOr_Click() {
  ApplyCondition(u"or ");
}

void ZOLT20MapControl::ApplyCondition(StringView word) {
  // ODD: a refusal below takes neither of the two back, so the next click on the button wipes the
  // where text.
  cmdAddWhereQuery.Enabled(true);
  cmdCancelWhere.Caption(u"Clear");
  txtwhereCondition.Text(CleanStart(txtwhereCondition.Text()));  // runs txtwhereCondition_Change

  const String op = cboOper.Text();
  const String field = cboWhereFields.Text();
  if (Trim(field).empty()) {
    if (Trim(op) != u"EXISTS" && Trim(op) != u"NOT EXISTS") {
      ShowMessage(u"Where Field is not selected");
      cboWhereFields.SetFocus();
      return;
    }
  } else if (Trim(op).empty()) {
    ShowMessage(u"Operator is not selected");
    cboOper.SetFocus();
    return;
  }

  if (TakesTemplate(op)) {
    JoinTemplate(word);
    cboWhereFields1.Text(u"");
    PutChoosingBack();
    return;
  }
  const bool isFlagged = marrFields.IsFlagged(field);
  const String value = cboWhereFields1.Text();
  if (Trim(value).empty()) {
    if (Holds(field, u"_index") || isFlagged) {
      JoinTemplate(word);
      PutChoosingBack();
      return;
    }
    // ODD: it is the value that is missing, and the words are those for the operand.
    ShowMessage(u"Where Field is not selected");
    cboWhereFields1.SetFocus();
    return;
  }
  const String& where = txtwhereCondition.Text();
  if (Trim(where).empty()) {
    txtwhereCondition.ReplaceFrom(where.size(), Concat(field, u" ", op, u" ", value));
  } else {
    // ODD: two blanks before the value here, one in the first condition.
    txtwhereCondition.ReplaceFrom(where.size(),
                                  Concat(kLineBreak, word, field, u" ", op, u"  ", value));
  }
  cboWhereFields1.Text(u"");
  PutChoosingBack();
}

void ZOLT20MapControl::JoinTemplate(StringView word) {
  const String& where = txtwhereCondition.Text();
  if (where.empty()) {
    txtwhereCondition.Text(txtCondition.Text());
  } else {
    txtwhereCondition.ReplaceFrom(where.size(), Concat(kLineBreak, word, txtCondition.Text()));
  }
}

void ZOLT20MapControl::PutChoosingBack() {
  cboWhereFields1.ListIndex(-1);
  cboWhereFields.ListIndex(-1);  // runs cboWhereFields_Click
  cboOper.ListIndex(-1);         // runs cboOper_Click
  ShowValueView();
  txtCondition.Text(u"");
}

void ZOLT20MapControl::cmdCancelWhere_Click() {
  if (cmdCancelWhere.Caption() == u"Cancel") {
    mblnWhereResetting = true;
    cboWhereFields1.ListIndex(-1);
    txtCondition.Text(u"");
    ShowValueView();
    cboOper.ListIndex(-1);         // runs cboOper_Click
    cboWhereFields.ListIndex(-1);  // runs cboWhereFields_Click
    mblnWhereResetting = false;
    cmdCancelWhere.Caption(u"Clear");
  } else {
    // ODD: the operator stays chosen, unlike at a Cancel.
    txtwhereCondition.Text(u"");  // runs txtwhereCondition_Change
    txtCondition.Text(u"");
    cboWhereFields.ListIndex(-1);  // runs cboWhereFields_Click
    cboWhereFields1.ListIndex(-1);
  }
  EnableAddWhereQuery(AscendingOrder());
}

void ZOLT20MapControl::txtwhereCondition_Change() {
  EnableAddWhereQuery(AscendingOrder());
}

void ZOLT20MapControl::CmdOr_GotFocus() {
  cmdCancelWhere.TabIndex(CmdOr.TabIndex() + 1);
}

}  // namespace zolt20
