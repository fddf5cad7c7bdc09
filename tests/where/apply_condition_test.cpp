// Applying a condition, dropping it, and wiping the where text.
#include <ostream>
#include <string>

#include "tests/where/where_page_test.h"

namespace zolt20::tests {
namespace {

const char* const kNoWhereField = "Where Field is not selected";
const char* const kNoOperator = "Operator is not selected";

class ApplyConditionTest : public WherePageTest {
 protected:
  using WherePageTest::Choose;
  void Choose(std::string_view operand, std::string_view op, std::string_view value) {
    Choose(operand, op);
    Type("cboWhereFields1", value);
  }

  /// Clicks a button of which the handler refuses with this message.
  void ClickRefused(std::string_view button, const char* message) {
    EXPECT_EQ(Log(), Texts{});
    Click(button);
    EXPECT_EQ(Log(), Texts{ErrorMessage(message)});
  }

  /// Unmarks the table, so that its entries leave the combos, a chosen one with them.
  void UnmarkTable() {
    Tab(0);
    Click("lsttables", 0);
    Tab(1);
  }

  std::string Where() { return Text("txtwhereCondition"); }

  unsigned BackColor() { return dynamic_cast<const ComboBox&>(On("cboWhereFields1")).BackColor(); }

  /// The view, the state of the value, the caption of cmdCancelWhere.
  Texts Page() {
    const bool showsWhere = Visible("FrawhereCondition");
    const bool showsTemplate = Visible("FraCondition");
    std::string view = "no view";
    if (showsWhere) view = showsTemplate ? "both views" : "value view";
    if (!showsWhere && showsTemplate) view = "template view";
    std::string value = Enabled("cboWhereFields1") ? "enabled, " : "disabled, ";
    value += BackColor() == kWhite ? "white" : BackColor() == kInactive ? "grey" : "odd";
    return {view, value, Caption("cmdCancelWhere")};
  }

  /// Operand, operator, value, template.
  Texts Chosen() {
    return {Text("cboWhereFields"), Text("cboOper"), Text("cboWhereFields1"), Text("txtCondition")};
  }

  /// That nothing of a condition is in work.
  void ExpectPutBack() {
    EXPECT_EQ(Chosen(), (Texts{"", "", "", ""}));
    EXPECT_EQ(ListIndex("cboWhereFields"), -1);
    EXPECT_EQ(ListIndex("cboOper"), -1);
    EXPECT_EQ(ListIndex("cboWhereFields1"), -1);
    EXPECT_EQ(Page(), (Texts{"value view", "enabled, white", "Clear"}));
  }
};

const Texts kValueView{"value view", "enabled, white", "Clear"};

// The forms in which a condition joins the where text.

struct Joined {
  const char* button;
  const char* where;
  const char* withValue;
  const char* withTemplate;
};

std::ostream& operator<<(std::ostream& out, const Joined& joined) {
  return out << joined.button << " behind '" << joined.where << "'";
}

class JoinTest : public ApplyConditionTest, public ::testing::WithParamInterface<Joined> {};

TEST_P(JoinTest, TheValueHasOneBlankBeforeItFirstAndTwoLater) {
  Open();
  Type("txtwhereCondition", GetParam().where);
  Choose("CUSTOMER.A", "=", "10");
  Click(GetParam().button);
  EXPECT_EQ(Where(), GetParam().withValue);
  ExpectPutBack();
}

TEST_P(JoinTest, TheTemplateGoesInAsItStands) {
  Open();
  Type("txtwhereCondition", GetParam().where);
  Choose("CUSTOMER.A", "LIKE");
  Type("txtCondition", "CUSTOMER.A LIKE 'x%' ");
  Click(GetParam().button);
  EXPECT_EQ(Where(), GetParam().withTemplate);
  ExpectPutBack();
}

INSTANTIATE_TEST_SUITE_P(
    Words, JoinTest,
    ::testing::Values(
        Joined{"cmdAnd", "", "CUSTOMER.A = 10", "CUSTOMER.A LIKE 'x%' "},
        Joined{"CmdOr", "", "CUSTOMER.A = 10", "CUSTOMER.A LIKE 'x%' "},
        Joined{"cmdAnd", "x", "x\r\nand CUSTOMER.A =  10", "x\r\nand CUSTOMER.A LIKE 'x%' "},
        Joined{"CmdOr", "x", "x\r\nor CUSTOMER.A =  10", "x\r\nor CUSTOMER.A LIKE 'x%' "},
        Joined{"cmdAnd", "x\r\n", "x\r\n\r\nand CUSTOMER.A =  10",
               "x\r\n\r\nand CUSTOMER.A LIKE 'x%' "},
        Joined{"CmdOr", "x\t", "x\t\r\nor CUSTOMER.A =  10", "x\t\r\nor CUSTOMER.A LIKE 'x%' "},
        Joined{"cmdAnd", " \r\n\t x ", "x\r\nand CUSTOMER.A =  10",
               "x\r\nand CUSTOMER.A LIKE 'x%' "},
        Joined{"CmdOr", " \t\r\n ", "CUSTOMER.A = 10", "CUSTOMER.A LIKE 'x%' "}));

TEST_F(ApplyConditionTest, ConditionsStandInTheOrderOfApplicationWithNoParenthesis) {
  Open();
  Choose("CUSTOMER.A", "=", "10");
  Click("cmdAnd");
  Choose("CUSTOMER.A", "=", "10");
  Click("CmdOr");
  Choose("CUSTOMER.F", "#>");
  Click("cmdAnd");
  EXPECT_EQ(Where(), "CUSTOMER.A = 10\r\nor CUSTOMER.A =  10\r\nand CUSTOMER.F #> {  ,  }");
}

TEST_F(ApplyConditionTest, EveryPlainOperatorTakesTheValue) {
  for (const char* op : {"=", "<>", "!=", ">", "<", ">=", "<="}) {
    MakeNew();
    Open();
    Choose("CUSTOMER.A", op, "10");
    Click("cmdAnd");
    EXPECT_EQ(Where(), "CUSTOMER.A " + std::string(op) + " 10");
    ExpectPutBack();
  }
}

TEST_F(ApplyConditionTest, TheValueIsCopiedWithItsBlanks) {
  Open();
  Choose("CUSTOMER.A", "=", " 10 ");
  Click("cmdAnd");
  EXPECT_EQ(Where(), "CUSTOMER.A =  10 ");
}

TEST_F(ApplyConditionTest, TheOperandIsCopiedWithItsBlanks) {
  Open({Field("NCUSTOMER.A ")});
  Choose("CUSTOMER.A ", "=", "10");
  Click("cmdAnd");
  EXPECT_EQ(Where(), "CUSTOMER.A  = 10");
}

TEST_F(ApplyConditionTest, AValueThatWasPickedFromTheListStandsForItsText) {
  Open();
  Choose("CUSTOMER.A", "<>");
  Pick("cboWhereFields1", "CUSTOMER.B");
  Click("cmdAnd");
  EXPECT_EQ(Where(), "CUSTOMER.A <> CUSTOMER.B");
  ExpectPutBack();
}

// Which right side is taken.

struct Untouched {
  const char* operand;
  const char* op;
  const char* text;
};

std::ostream& operator<<(std::ostream& out, const Untouched& row) {
  return out << row.operand << " " << row.op;
}

class TemplateOperatorTest : public ApplyConditionTest,
                             public ::testing::WithParamInterface<Untouched> {};

TEST_P(TemplateOperatorTest, TakesTheTemplateWhateverStandsInTheValue) {
  Open();
  Pick("cboWhereFields", GetParam().operand);
  Pick("cboWhereFields1", "CUSTOMER.B");
  Pick("cboOper", GetParam().op);
  ASSERT_EQ(Text("cboWhereFields1"), "CUSTOMER.B");
  Click("cmdAnd");
  EXPECT_EQ(Where(), GetParam().text);
  ExpectPutBack();
  EXPECT_EQ(Rows("cboOper"), kPlainOperators);
}

TEST_P(TemplateOperatorTest, JoinsItsTemplateBehindAWord) {
  Open();
  Type("txtwhereCondition", "x");
  Choose(GetParam().operand, GetParam().op);
  Click("CmdOr");
  EXPECT_EQ(Where(), "x\r\nor " + std::string(GetParam().text));
  ExpectPutBack();
}

// The combo of the value is disabled for the flagged field, so nothing can be picked there.
class FlaggedRelationTest : public TemplateOperatorTest {};

TEST_P(FlaggedRelationTest, TakesTheTemplateWhateverStandsInTheValue) {
  Open();
  Type("cboWhereFields1", "10");
  Choose(GetParam().operand, GetParam().op);
  ASSERT_EQ(Text("cboWhereFields1"), "10");
  Click("cmdAnd");
  EXPECT_EQ(Where(), GetParam().text);
  ExpectPutBack();
  EXPECT_EQ(Rows("cboOper"), kPlainOperators);
}

INSTANTIATE_TEST_SUITE_P(
    Operators, TemplateOperatorTest,
    ::testing::Values(
        Untouched{"CUSTOMER.A", "IN", "CUSTOMER.A IN (        )"},
        Untouched{"CUSTOMER.A", "EXISTS", "EXISTS  (  \r\n)"},
        Untouched{"CUSTOMER.A", "NOT EXISTS", "NOT EXISTS  (  \r\n)"},
        Untouched{"CUSTOMER.A", "BETWEEN", "CUSTOMER.A BETWEEN {          }  AND {         } "},
        Untouched{"CUSTOMER.A", "INRANGE", "CUSTOMER.A IN RANGE            AND              "},
        Untouched{"CUSTOMER.A", "LIKE", "CUSTOMER.A LIKE "},
        Untouched{"CUSTOMER.A", "REFERS TO", "CUSTOMER.A REFERS TO                          "}));

INSTANTIATE_TEST_SUITE_P(Operators, FlaggedRelationTest,
                         ::testing::Values(Untouched{"CUSTOMER.F", "#>", "CUSTOMER.F #> {  ,  }"},
                                           Untouched{"CUSTOMER.F", "#<", "CUSTOMER.F #< {  ,  }"},
                                           Untouched{"CUSTOMER.F", "#>=", "CUSTOMER.F #>= {  ,  }"},
                                           Untouched{"CUSTOMER.F", "#<=", "CUSTOMER.F #<= {  ,  }"},
                                           Untouched{"CUSTOMER.F", "IN",
                                                     "CUSTOMER.F IN (        )"}));

TEST_F(ApplyConditionTest, AnIndexWithAPlainOperatorTakesItsTemplate) {
  Open();
  Choose("CUSTOMER._index1", "=");
  Type("txtCondition", "CUSTOMER._index1 = {1:2}");
  Click("cmdAnd");
  EXPECT_EQ(Where(), "CUSTOMER._index1 = {1:2}");
  ExpectPutBack();
}

TEST_F(ApplyConditionTest, AFlaggedFieldWithAPlainOperatorTakesItsTemplate) {
  Open();
  Type("txtwhereCondition", "x");
  Choose("CUSTOMER.F", "!=");
  Click("cmdAnd");
  EXPECT_EQ(Where(), "x\r\nand CUSTOMER.F != {  ,  }");
  ExpectPutBack();
  EXPECT_EQ(Rows("cboOper"), kPlainOperators);
}

class OpenTemplateTest : public ApplyConditionTest,
                         public ::testing::WithParamInterface<const char*> {};

TEST_P(OpenTemplateTest, GivesWayToAValueUnderAPlainOperator) {
  Open();
  Type("cboWhereFields1", "10");
  Choose(GetParam(), "=");
  EXPECT_EQ(Page(), (Texts{"template view", "disabled, grey", "Cancel"}));
  Click("cmdAnd");
  EXPECT_EQ(Where(), std::string(GetParam()) + " = 10");
  ExpectPutBack();
}

TEST_P(OpenTemplateTest, IsTakenWhenTheValueHoldsBlanksAlone) {
  Open();
  Type("cboWhereFields1", "   ");
  Choose(GetParam(), "=");
  Type("txtCondition", "by hand");
  Click("cmdAnd");
  EXPECT_EQ(Where(), "by hand");
  ExpectPutBack();
}

INSTANTIATE_TEST_SUITE_P(Operands, OpenTemplateTest,
                         ::testing::Values("CUSTOMER.F", "CUSTOMER._index1"));

TEST_F(ApplyConditionTest, TheFlagIsThatOfTheOperandWithItsBlanks) {
  Open({Field("YCUSTOMER.A ")});
  Choose("CUSTOMER.A ", "=");
  Click("cmdAnd");
  EXPECT_EQ(Where(), "CUSTOMER.A  = {  ,  }");
}

TEST_F(ApplyConditionTest, AnOldTemplateGoesInUnderItsOperatorWithAnotherOperand) {
  Open();
  Choose("CUSTOMER.A", "IN");
  Pick("cboWhereFields", "CUSTOMER.B");
  Click("cmdAnd");
  EXPECT_EQ(Where(), "CUSTOMER.A IN (        )");
  ExpectPutBack();
}

TEST_F(ApplyConditionTest, AnEmptiedTemplateAddsTheWordAlone) {
  Open();
  Type("txtwhereCondition", "x");
  Choose("CUSTOMER.A", "LIKE");
  Type("txtCondition", "");
  Click("CmdOr");
  EXPECT_EQ(Where(), "x\r\nor ");
}

TEST_F(ApplyConditionTest, AnEmptiedTemplateAddsNothingFirstAndLeavesTheButtonOn) {
  Open();
  Choose("CUSTOMER.A", "LIKE");
  Type("txtCondition", "");
  EXPECT_FALSE(Enabled("cmdAddWhereQuery"));
  Click("cmdAnd");
  EXPECT_EQ(Where(), "");
  EXPECT_TRUE(Enabled("cmdAddWhereQuery"));
  ExpectPutBack();
}

TEST_F(ApplyConditionTest, ExistsNeedsNoOperandAndItsParenthesisClosesOnALineOfItsOwn) {
  Open();
  Choose("CUSTOMER.A", "EXISTS");
  ASSERT_EQ(ListIndex("cboWhereFields"), -1);
  Click("cmdAnd");
  EXPECT_EQ(Where(), "EXISTS  (  \r\n)");
  Choose("CUSTOMER.A", "NOT EXISTS");
  Click("CmdOr");
  EXPECT_EQ(Where(), "EXISTS  (  \r\n)\r\nor NOT EXISTS  (  \r\n)");
  ExpectPutBack();
}

TEST_F(ApplyConditionTest, ExistsWithAnOperandPickedAfterItTakesTheTemplateToo) {
  Open();
  Choose("CUSTOMER.A", "EXISTS");
  Pick("cboWhereFields", "CUSTOMER.B");
  Click("cmdAnd");
  EXPECT_EQ(Where(), "EXISTS  (  \r\n)");
  ExpectPutBack();
}

TEST_F(ApplyConditionTest, AnAppliedRelationLeavesWithTheRelationsOfItsOperand) {
  Open();
  Choose("CUSTOMER.F", "#<=");
  ASSERT_EQ(Rows("cboOper"), kFlaggedOperators);
  Click("cmdAnd");
  EXPECT_EQ(Rows("cboOper"), kPlainOperators);
  ExpectPutBack();
}

// What comes before every check.

struct Cleaned {
  const char* typed;
  const char* where;
};

std::ostream& operator<<(std::ostream& out, const Cleaned& cleaned) {
  return out << '"' << cleaned.where << '"';
}

class CleanStartTest : public ApplyConditionTest, public ::testing::WithParamInterface<Cleaned> {};

TEST_P(CleanStartTest, TakesBlanksTabsAndLineBreaksFromTheStartEvenOfARefusal) {
  Tab(1);
  Type("txtwhereCondition", GetParam().typed);
  ClickRefused("cmdAnd", kNoWhereField);
  EXPECT_EQ(Where(), GetParam().where);
}

INSTANTIATE_TEST_SUITE_P(
    Starts, CleanStartTest,
    ::testing::Values(Cleaned{"", ""}, Cleaned{"x", "x"}, Cleaned{"  x  ", "x"},
                      Cleaned{"\tx", "x"}, Cleaned{"\r\nx", "x"}, Cleaned{"\t\t\r\n\r\nx", "x"},
                      Cleaned{" \t \r\n \r\n\t  x", "x"}, Cleaned{"\r\n\t \r\n x", "x"},
                      Cleaned{"   ", ""}, Cleaned{"\t", ""}, Cleaned{"\r\n", ""},
                      Cleaned{" \r\n \t ", ""}, Cleaned{"x\r\n", "x\r\n"}, Cleaned{"x\t", "x\t"},
                      Cleaned{"x \t ", "x \t"}, Cleaned{"x\r\n  ", "x\r\n"},
                      Cleaned{"x \r\n \t y", "x \r\n \t y"}, Cleaned{"\nx", "\nx"},
                      Cleaned{"\rx", "\rx"}, Cleaned{" \r", "\r"}, Cleaned{"\n\r\nx", "\n\r\nx"},
                      Cleaned{"\r\r\nx", "\r\r\nx"}, Cleaned{"\u00A0x", "\u00A0x"}));

class ApplyButtonTest : public ApplyConditionTest,
                        public ::testing::WithParamInterface<const char*> {};

TEST_P(ApplyButtonTest, WithNothingChosenIsRefusedAndTurnsTheButtonOn) {
  Open();
  EXPECT_FALSE(Enabled("cmdAddWhereQuery"));
  ClickRefused(GetParam(), kNoWhereField);
  EXPECT_EQ(Focused(), "cboWhereFields");
  EXPECT_TRUE(Enabled("cmdAddWhereQuery"));
  EXPECT_EQ(Where(), "");
  EXPECT_EQ(Page(), (Texts{"both views", "enabled, white", "Clear"}));
}

TEST_P(ApplyButtonTest, WithoutAnOperatorIsRefusedWithAnOpenTemplateUnderTheCaptionClear) {
  Open();
  Pick("cboWhereFields", "CUSTOMER.F");
  ASSERT_EQ(Caption("cmdCancelWhere"), "Cancel");
  ClickRefused(GetParam(), kNoOperator);
  EXPECT_EQ(Focused(), "cboOper");
  EXPECT_TRUE(Enabled("cmdAddWhereQuery"));
  EXPECT_EQ(Page(), (Texts{"template view", "disabled, grey", "Clear"}));
  EXPECT_EQ(Chosen(), (Texts{"CUSTOMER.F", "", "", "CUSTOMER.F  {  ,  }"}));
  EXPECT_EQ(Where(), "");
}

TEST_P(ApplyButtonTest, WithoutAValueIsRefusedInTheWordsForTheOperand) {
  Open();
  Type("txtwhereCondition", "\t x");
  Choose("CUSTOMER.A", "=");
  ASSERT_EQ(Caption("cmdCancelWhere"), "Cancel");
  ClickRefused(GetParam(), kNoWhereField);
  EXPECT_EQ(Focused(), "cboWhereFields1");
  EXPECT_TRUE(Enabled("cmdAddWhereQuery"));
  EXPECT_EQ(Page(), kValueView);
  EXPECT_EQ(Chosen(), (Texts{"CUSTOMER.A", "=", "", ""}));
  EXPECT_EQ(Where(), "x");
}

TEST_P(ApplyButtonTest, WithBlanksForAValueIsRefusedAndLeavesThem) {
  Open();
  Choose("CUSTOMER.A", ">=", "  ");
  ClickRefused(GetParam(), kNoWhereField);
  EXPECT_EQ(Focused(), "cboWhereFields1");
  EXPECT_EQ(Chosen(), (Texts{"CUSTOMER.A", ">=", "  ", ""}));
}

TEST_P(ApplyButtonTest, WithAnOperatorThatLostItsOperandIsRefused) {
  Open();
  Choose("CUSTOMER.A", "LIKE");
  UnmarkTable();
  ASSERT_EQ(Text("cboWhereFields"), "");
  ClickRefused(GetParam(), kNoWhereField);
  EXPECT_EQ(Focused(), "cboWhereFields");
  EXPECT_EQ(Chosen(), (Texts{"", "LIKE", "", "CUSTOMER.A LIKE "}));
  EXPECT_EQ(Page(), (Texts{"template view", "disabled, grey", "Clear"}));
}

TEST_P(ApplyButtonTest, WithAnOperandOfBlanksIsRefused) {
  Catalogue("        0", Field("N        "));
  Mark("lsttables", 0);
  Tab(1);
  Choose("        ", "=", "10");
  ClickRefused(GetParam(), kNoWhereField);
  EXPECT_EQ(Focused(), "cboWhereFields");
  EXPECT_EQ(Where(), "");
}

TEST_P(ApplyButtonTest, SetsTheCaptionToClearWhenItSucceeds) {
  Open();
  Choose("CUSTOMER.A", "IN");
  ASSERT_EQ(Caption("cmdCancelWhere"), "Cancel");
  Click(GetParam());
  EXPECT_EQ(Caption("cmdCancelWhere"), "Clear");
  EXPECT_TRUE(Enabled("cmdAddWhereQuery"));
  EXPECT_EQ(Focused(), GetParam());
}

TEST_P(ApplyButtonTest, TurnsTheButtonOffAgainWhenItEmptiesAWhereTextOfBlanks) {
  Open();
  Type("txtwhereCondition", "   ");
  EXPECT_TRUE(Enabled("cmdAddWhereQuery"));
  ClickRefused(GetParam(), kNoWhereField);
  EXPECT_EQ(Where(), "");
  EXPECT_FALSE(Enabled("cmdAddWhereQuery"));
  EXPECT_EQ(Caption("cmdCancelWhere"), "Clear");
}

TEST_P(ApplyButtonTest, LeavesTheButtonOnForAMarkWhenItEmptiesAWhereTextOfBlanks) {
  Open();
  Mark("lstorderbyasc", 0);
  Type("txtwhereCondition", "   ");
  ClickRefused(GetParam(), kNoWhereField);
  EXPECT_TRUE(Enabled("cmdAddWhereQuery"));
}

INSTANTIATE_TEST_SUITE_P(Buttons, ApplyButtonTest, ::testing::Values("cmdAnd", "CmdOr"));

// Dropping a condition.

TEST_F(ApplyConditionTest, CancelDropsAnOpenTemplateAndASecondClickWipesTheWhereText) {
  Open();
  Type("txtwhereCondition", " x\r\n");
  Choose("CUSTOMER.A", "IN");
  Click("cmdCancelWhere");
  EXPECT_EQ(Where(), " x\r\n");
  ExpectPutBack();
  Click("cmdCancelWhere");
  EXPECT_EQ(Where(), "");
  ExpectPutBack();
}

TEST_F(ApplyConditionTest, CancelDropsAValue) {
  Open();
  Choose("CUSTOMER.A", "=", "10");
  Click("cmdCancelWhere");
  ExpectPutBack();
  Choose("CUSTOMER.A", "=");
  Pick("cboWhereFields1", "CUSTOMER.B");
  Click("cmdCancelWhere");
  ExpectPutBack();
}

TEST_F(ApplyConditionTest, CancelKeepsTheRelationsOfItsOperandUntilTheNextOne) {
  Open();
  Choose("CUSTOMER.F", "#>");
  Click("cmdCancelWhere");
  EXPECT_EQ(Rows("cboOper"), kFlaggedOperators);
  ExpectPutBack();
  Pick("cboWhereFields", "CUSTOMER.A");
  EXPECT_EQ(Rows("cboOper"), kPlainOperators);
}

TEST_F(ApplyConditionTest, CancelDropsAnExistsWithoutItsOperand) {
  Open();
  Choose("CUSTOMER.A", "EXISTS");
  Click("cmdCancelWhere");
  ExpectPutBack();
}

TEST_F(ApplyConditionTest, BehindACancelTheHandlersRunInFullAgain) {
  Open();
  Choose("CUSTOMER.F", "IN");
  Click("cmdCancelWhere");
  Choose("CUSTOMER.F", "#>");
  EXPECT_EQ(Page(), (Texts{"template view", "disabled, grey", "Cancel"}));
  EXPECT_EQ(Text("txtCondition"), "CUSTOMER.F #> {  ,  }");
}

// Wiping the where text.

TEST_F(ApplyConditionTest, ClearWipesTheWhereTextAndTheOperandWithIt) {
  Open();
  Type("txtwhereCondition", "x");
  Pick("cboWhereFields", "CUSTOMER.A");
  Type("cboWhereFields1", "10");
  Click("cmdCancelWhere");
  EXPECT_EQ(Where(), "");
  ExpectPutBack();
}

TEST_F(ApplyConditionTest, ClearTakesTheEntryAwayThatWasPickedAsTheValue) {
  Open();
  Pick("cboWhereFields1", "CUSTOMER.B");
  Click("cmdCancelWhere");
  EXPECT_EQ(ListIndex("cboWhereFields1"), -1);
  EXPECT_EQ(Text("cboWhereFields1"), "");
}

TEST_F(ApplyConditionTest, ClearKeepsAnOperatorThatIsNoRelation) {
  Open();
  Choose("CUSTOMER.A", "=");
  ClickRefused("cmdAnd", kNoWhereField);
  Click("cmdCancelWhere");
  EXPECT_EQ(Chosen(), (Texts{"", "=", "", ""}));
  EXPECT_EQ(Page(), kValueView);
  ClickRefused("cmdAnd", kNoWhereField);
  EXPECT_EQ(Focused(), "cboWhereFields");
}

TEST_F(ApplyConditionTest, ClearKeepsAnOperatorOfATemplateThatLostItsOperand) {
  Open();
  Choose("CUSTOMER.A", "LIKE");
  UnmarkTable();
  ClickRefused("cmdAnd", kNoWhereField);
  Click("cmdCancelWhere");
  EXPECT_EQ(Chosen(), (Texts{"", "LIKE", "", ""}));
  ClickRefused("CmdOr", kNoWhereField);
}

TEST_F(ApplyConditionTest, ClearRunsTheOperandsHandlerAndSoDropsARelation) {
  Open();
  Choose("CUSTOMER.A", ">");
  ClickRefused("cmdAnd", kNoWhereField);
  Click("cmdCancelWhere");
  EXPECT_EQ(Rows("cboOper"), kPlainOperators);
  ExpectPutBack();
}

TEST_F(ApplyConditionTest, BehindARefusalTheButtonWipesTheWhereTextInsteadOfTheCondition) {
  Open();
  Type("txtwhereCondition", "x");
  Pick("cboWhereFields", "CUSTOMER.F");
  ClickRefused("cmdAnd", kNoOperator);
  EXPECT_EQ(Where(), "x");
  Click("cmdCancelWhere");
  EXPECT_EQ(Where(), "");
  EXPECT_EQ(Rows("cboOper"), kPlainOperators);
  ExpectPutBack();
}

TEST_F(ApplyConditionTest, ClearWithoutAnOperandRunsNoHandlerAndLeavesTheTemplateView) {
  Open();
  Pick("cboWhereFields", "CUSTOMER.F");
  UnmarkTable();
  ClickRefused("cmdAnd", kNoWhereField);
  Click("cmdCancelWhere");
  EXPECT_EQ(Chosen(), (Texts{"", "", "", ""}));
  EXPECT_EQ(Page(), (Texts{"template view", "disabled, grey", "Clear"}));
  EXPECT_EQ(Rows("cboOper"), kFlaggedOperators);
}

// What the button says.

TEST_F(ApplyConditionTest, TheButtonSaysClearFromTheStart) {
  EXPECT_EQ(Caption("cmdCancelWhere"), "Clear");
}

TEST_F(ApplyConditionTest, TheButtonSaysCancelOnceAConditionIsInWork) {
  Open();
  Pick("cboWhereFields", "CUSTOMER.A");
  EXPECT_EQ(Caption("cmdCancelWhere"), "Clear");
  Pick("cboOper", "=");
  EXPECT_EQ(Caption("cmdCancelWhere"), "Cancel");
}

class CaptionTest : public ApplyConditionTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(CaptionTest, TurnsToCancelByTheOperandOfATemplateAlone) {
  Open();
  Pick("cboWhereFields", GetParam());
  EXPECT_EQ(Caption("cmdCancelWhere"), "Cancel");
}

TEST_P(CaptionTest, TurnsToCancelByEveryOperatorOfSuchAnOperand) {
  Open();
  for (const char* op :
       {"=", "<>", "!=", "IN", "LIKE", "INRANGE", "BETWEEN", "REFERS TO", "EXISTS", "NOT EXISTS"}) {
    Pick("cboWhereFields", GetParam());
    Pick("cboOper", "=");
    Click("cmdCancelWhere");
    ASSERT_EQ(Caption("cmdCancelWhere"), "Clear");
    Choose(GetParam(), op);
    EXPECT_EQ(Caption("cmdCancelWhere"), "Cancel") << op;
  }
}

INSTANTIATE_TEST_SUITE_P(Operands, CaptionTest,
                         ::testing::Values("CUSTOMER.F", "CUSTOMER._index1"));

TEST_F(ApplyConditionTest, EveryOperatorOfAPlainOperandTurnsTheCaptionToCancel) {
  for (const std::string& op : kPlainOperators) {
    MakeNew();
    Open();
    Pick("cboWhereFields", "CUSTOMER.A");
    ASSERT_EQ(Caption("cmdCancelWhere"), "Clear");
    Pick("cboOper", op);
    EXPECT_EQ(Caption("cmdCancelWhere"), "Cancel") << op;
  }
}

TEST_F(ApplyConditionTest, AnUndonePickLeavesTheCaption) {
  Open();
  Pick("cboOper", "IN");
  EXPECT_EQ(Caption("cmdCancelWhere"), "Clear");
}

// The button of the statement.

TEST_F(ApplyConditionTest, EveryChangeOfTheWhereTextSetsTheButtonOfTheStatement) {
  Tab(1);
  Type("txtwhereCondition", "x");
  EXPECT_TRUE(Enabled("cmdAddWhereQuery"));
  Type("txtwhereCondition", "");
  EXPECT_FALSE(Enabled("cmdAddWhereQuery"));
  Key("txtwhereCondition", 'x');
  EXPECT_TRUE(Enabled("cmdAddWhereQuery"));
  Click("cmdCancelWhere");
  EXPECT_FALSE(Enabled("cmdAddWhereQuery"));
}

TEST_F(ApplyConditionTest, AWhereTextFromTheHostSetsTheButtonOfTheStatement) {
  host().prpSelectWherePart(u"x");
  EXPECT_TRUE(Enabled("cmdAddWhereQuery"));
  host().prpSelectWherePart(u"");
  EXPECT_FALSE(Enabled("cmdAddWhereQuery"));
  EXPECT_EQ(Log(), (Texts{"changed prpSelectWherePart", "changed prpSelectWherePart"}));
}

TEST_F(ApplyConditionTest, ACancelSetsTheButtonOfTheStatement) {
  Open();
  ClickRefused("cmdAnd", kNoWhereField);
  EXPECT_TRUE(Enabled("cmdAddWhereQuery"));
  Choose("CUSTOMER.A", "IN");
  EXPECT_TRUE(Enabled("cmdAddWhereQuery"));
  Click("cmdCancelWhere");
  EXPECT_FALSE(Enabled("cmdAddWhereQuery"));
}

// The tab order behind "Apply as OR".

TEST_F(ApplyConditionTest, TheFocusOnApplyAsOrPutsCancelBehindItInTheTabOrder) {
  Tab(1);
  EXPECT_GT(TabIndex("cmdCancelWhere"), 9);
  Focus("CmdOr");
  EXPECT_EQ(TabOrder(10), (Texts{"tabVrn", "lstorderbyasc", "lstorderbydesc", "cboWhereFields",
                                 "cboOper", "cboWhereFields1", "txtwhereCondition", "cmdAnd",
                                 "CmdOr", "cmdCancelWhere", "cmdAddWhereQuery"}));
}

TEST_F(ApplyConditionTest, AClickOnApplyAsOrMovesTheFocusAndSoTheTabOrder) {
  Tab(1);
  ClickRefused("CmdOr", kNoWhereField);
  EXPECT_EQ(TabIndex("CmdOr"), 8);
  EXPECT_EQ(TabIndex("cmdCancelWhere"), 9);
}

TEST_F(ApplyConditionTest, AClickOnApplyAsAndLeavesTheTabOrder) {
  Tab(1);
  const int place = TabIndex("cmdCancelWhere");
  ClickRefused("cmdAnd", kNoWhereField);
  EXPECT_EQ(TabIndex("cmdCancelWhere"), place);
}

// Errors on the way.

TEST_F(ApplyConditionTest, TheFocusOnADisabledValueFailsBehindTheMessage) {
  Open();
  Choose("CUSTOMER.F", "=");
  Rewrite({Field("NCUSTOMER.F")});
  ExpectError(ErrorKind::kArgument, [this] { Click("cmdAnd"); });
  EXPECT_EQ(Log(), Texts{ErrorMessage(kNoWhereField)});
  EXPECT_TRUE(Enabled("cmdAddWhereQuery"));
  EXPECT_EQ(Page(), (Texts{"template view", "disabled, grey", "Clear"}));
  EXPECT_EQ(Where(), "");
}

TEST_F(ApplyConditionTest, ABrokenRecordBeforeTheOperandsOwnFailsBeforeAnythingIsJoined) {
  Open();
  Type("txtwhereCondition", "\tx");
  Choose("CUSTOMER.A", "=", "10");
  Rewrite({"broken", Field("NCUSTOMER.A")});
  ExpectError(ErrorKind::kSubscript, [this] { Click("cmdAnd"); });
  EXPECT_EQ(Where(), "x");
  EXPECT_EQ(Chosen(), (Texts{"CUSTOMER.A", "=", "10", ""}));
  EXPECT_EQ(Page(), kValueView);
}

TEST_F(ApplyConditionTest, ABrokenRecordBehindTheOperandsOwnFailsWhileTheControlsArePutBack) {
  Open();
  Choose("CUSTOMER.A", "=", "10");
  Rewrite({Field("NCUSTOMER.A"), "broken"});
  ExpectError(ErrorKind::kSubscript, [this] { Click("cmdAnd"); });
  EXPECT_EQ(Where(), "CUSTOMER.A = 10");
  EXPECT_EQ(Chosen(), (Texts{"", "=", "", ""}));
}

TEST_F(ApplyConditionTest, ATemplateIsJoinedBeforeABrokenRecordIsReached) {
  Open();
  Choose("CUSTOMER.A", "IN");
  Rewrite({"broken"});
  ExpectError(ErrorKind::kSubscript, [this] { Click("CmdOr"); });
  EXPECT_EQ(Where(), "CUSTOMER.A IN (        )");
  EXPECT_EQ(Chosen(), (Texts{"", "IN", "", "CUSTOMER.A IN (        )"}));
  EXPECT_EQ(Page(), (Texts{"template view", "disabled, grey", "Clear"}));
}

TEST_F(ApplyConditionTest, AnExistsWithoutAnOperandReadsNoRecord) {
  Open();
  Choose("CUSTOMER.A", "EXISTS");
  Rewrite({"broken"});
  Click("cmdAnd");
  EXPECT_EQ(Where(), "EXISTS  (  \r\n)");
  ExpectPutBack();
}

TEST_F(ApplyConditionTest, ARefusalWithoutAnOperandReadsNoRecord) {
  Open();
  Rewrite({"broken"});
  ClickRefused("cmdAnd", kNoWhereField);
  EXPECT_EQ(Where(), "");
}

TEST_F(ApplyConditionTest, ACancelThatFailsAtABrokenRecordLeavesTheOperandsHandlerShutOff) {
  Open();
  Choose("CUSTOMER.A", "IN");
  Type("txtCondition", "by hand");
  Rewrite({"broken"});
  ExpectError(ErrorKind::kSubscript, [this] { Click("cmdCancelWhere"); });
  EXPECT_EQ(Chosen(), (Texts{"CUSTOMER.A", "", "", ""}));
  EXPECT_EQ(Page(), (Texts{"value view", "enabled, white", "Cancel"}));
  Rewrite({Field("YCUSTOMER.F")});
  Choose("CUSTOMER.F", "LIKE");
  EXPECT_EQ(Rows("cboOper"), kPlainOperators);
  EXPECT_EQ(Chosen(), (Texts{"CUSTOMER.F", "LIKE", "", ""}));
  Click("cmdCancelWhere");
  ExpectPutBack();
  Pick("cboWhereFields", "CUSTOMER.F");
  EXPECT_EQ(Rows("cboOper"), kFlaggedOperators);
}

TEST_F(ApplyConditionTest, ACancelWithoutAnOperandReadsNoRecord) {
  Open();
  Choose("CUSTOMER.A", "NOT EXISTS");
  Rewrite({"broken"});
  Click("cmdCancelWhere");
  ExpectPutBack();
}

TEST_F(ApplyConditionTest, AClearFailsAtABrokenRecordBehindTheWipedTexts) {
  Open();
  Type("txtwhereCondition", "x");
  Pick("cboWhereFields", "CUSTOMER.A");
  Type("cboWhereFields1", "10");
  Rewrite({"broken"});
  ExpectError(ErrorKind::kSubscript, [this] { Click("cmdCancelWhere"); });
  EXPECT_EQ(Where(), "");
  EXPECT_EQ(Chosen(), (Texts{"", "", "10", ""}));
}

}  // namespace
}  // namespace zolt20::tests
