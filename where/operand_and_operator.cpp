// The choosing half of the Where page: the operand and operator picked decide how the right side is
// entered, as a value or in a template text that the user completes.
#include <algorithm>
#include <array>

#include "shell/control.h"

namespace zolt20 {
namespace {

constexpr unsigned kInactive = 0x80000003;
constexpr unsigned kWhite = 0xFFFFFF;

constexpr std::array<StringView, 4> kRelations{u">", u"<", u">=", u"<="};
constexpr std::array<StringView, 4> kFlaggedRelations{u"#>", u"#<", u"#>=", u"#<="};

// The text that an operator puts behind the operand, and the caret counted from the operand's end.
struct Template {
  StringView op;
  StringView text;
  int caret;
};

// The carets follow no rule that the texts show.
constexpr std::array<Template, 7> kTemplates{{
    {u"IN", u" IN (        )", 6},
    {u"EXISTS", u"EXISTS  (  \r\n)", 9},
    {u"NOT EXISTS", u"NOT EXISTS  (  \r\n)", 14},
    {u"BETWEEN", u" BETWEEN {          }  AND {         } ", 11},
    {u"INRANGE", u" IN RANGE            AND              ", 11},
    {u"LIKE", u" LIKE ", 7},
    {u"REFERS TO", u" REFERS TO                          ", 12},
}};

constexpr StringView kPair = u" {  ,  }";
constexpr StringView kIndexPair = u" {: }";

bool IsRelation(StringView row) {
  const auto isRow = [word = Trim(row)](StringView relation) { return word == relation; };
  return std::any_of(kRelations.begin(), kRelations.end(), isRow) ||
         std::any_of(kFlaggedRelations.begin(), kFlaggedRelations.end(), isRow);
}

bool NamesIndex(StringView operand) {
  return Holds(operand, u"_index");
}

}  // namespace

void ZOLT20MapControl::cboWhereFields_Click() {
  if (mblnWhereResetting) return;
  const bool isFlagged = marrFields.IsFlagged(Trim(cboWhereFields.Text()));
  cboOper.RemoveWhere(IsRelation);
  cboOper.AddItems(isFlagged ? kFlaggedRelations : kRelations);
  if (isFlagged) OpenTemplateOfOperand(kPair);
  const bool namesIndex = NamesIndex(cboWhereFields.Text());
  if (namesIndex) OpenTemplateOfOperand(kIndexPair);
  if (!isFlagged && !namesIndex) ShowValueView();
}

// Shows a template with the operand, the operator and `pair`, the empty braces for the value. While
// no operator is picked, two blanks stand in its place. The focus goes to the combo of operators.
void ZOLT20MapControl::OpenTemplateOfOperand(StringView pair) {
  cboWhereFields1.Enabled(false);
  cboWhereFields1.BackColor(kInactive);
  ShowTemplate(Concat(cboWhereFields.Text(), u" ", cboOper.Text(), pair), PairCaret());
  cboOper.SetFocus();
}

int ZOLT20MapControl::PairCaret() const {
  return static_cast<int>(cboWhereFields.Text().size() + 1 + cboOper.Text().size() + 3);
}

void ZOLT20MapControl::ShowTemplate(StringView text, int caret) {
  FrawhereCondition.Visible(false);
  FraCondition.Caption(cboOper.Text());
  FraCondition.Visible(true);
  cmdCancelWhere.Caption(u"Cancel");
  txtCondition.Text(text);
  txtCondition.SelStart(caret);
}

void ZOLT20MapControl::ShowValueView() {
  cboWhereFields1.Enabled(true);
  cboWhereFields1.BackColor(kWhite);
  FrawhereCondition.Visible(true);
  FraCondition.Visible(false);
}

void ZOLT20MapControl::cboOper_Click() {
  if (cboWhereFields.ListIndex() == -1) {
    // Undoes the pick, since an operand must be picked first.
    cboOper.ListIndex(-1);  // runs cboOper_Click
    return;
  }
  const bool isFlagged = marrFields.IsFlagged(cboWhereFields.Text());
  if (mblnWhereResetting) return;
  const String op = cboOper.Text();
  const auto* const known =
      std::find_if(kTemplates.begin(), kTemplates.end(),
                   [&op](const Template& candidate) { return candidate.op == op; });
  if (known != kTemplates.end()) {
    cboWhereFields1.Enabled(false);
    // ODD: with the operand thrown away, its handler enables the value again, and so it stays white
    // beside the template.
    if (op == u"EXISTS" || op == u"NOT EXISTS")
      cboWhereFields.ListIndex(-1);  // runs cboWhereFields_Click
    const String& field = cboWhereFields.Text();
    ShowTemplate(Concat(field, known->text), static_cast<int>(field.size()) + known->caret);
    txtCondition.SetFocus();
  } else if (NamesIndex(cboWhereFields.Text())) {
    OpenPairOfOperator(kIndexPair);
  } else if (Holds(op, u"#") || isFlagged) {
    OpenPairOfOperator(kPair);
  } else if (cboWhereFields1.ListCount() > 0) {
    cboWhereFields1.ListIndex(-1);
    FrawhereCondition.Visible(true);
    FraCondition.Visible(false);
    cmdCancelWhere.Caption(u"Cancel");
    cboWhereFields1.Enabled(true);
    cboWhereFields1.BackColor(kWhite);
  }
  if (!cboWhereFields1.Enabled()) cboWhereFields1.BackColor(kInactive);
}

void ZOLT20MapControl::OpenPairOfOperator(StringView pair) {
  cboWhereFields1.Enabled(false);
  ShowTemplate(Concat(cboWhereFields.Text(), u" ", cboOper.Text(), pair), PairCaret());
  txtCondition.SetFocus();
}

}  // namespace zolt20
