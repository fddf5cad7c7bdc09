// Choosing operand and operator: what the operator list offers, which text the template starts
// with, and which of the two views the page shows.
#include <ostream>
#include <string>

#include "tests/where/where_page_test.h"

namespace zolt20::tests {
namespace {

const Texts kTenOperators{"!=", "<>",      "=",    "BETWEEN",    "EXISTS",
                          "IN", "INRANGE", "LIKE", "NOT EXISTS", "REFERS TO"};

const Texts kStart{"both views", "enabled, white", "Clear"};
const Texts kValueView{"value view", "enabled, white", "Cancel"};
const Texts kTemplateView{"template view", "disabled, grey", "Cancel"};
const Texts kWhiteTemplateView{"template view", "enabled, white", "Cancel"};

class OperandAndOperatorTest : public WherePageTest {
 protected:
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

  /// A control as a handler sees it, for what neither a person nor a host can bring about.
  template <typename Kind>
  Kind& Inside(std::string_view name) {
    return const_cast<Kind&>(dynamic_cast<const Kind&>(On(name)));
  }
};

// The operator list.

TEST_F(OperandAndOperatorTest, BeforeTheFirstOperandTheListHoldsTenOperatorsInSortOrder) {
  Open();
  EXPECT_EQ(Rows("cboOper"), kTenOperators);
  EXPECT_EQ(Page(), kStart);
}

TEST_F(OperandAndOperatorTest, AnOperandThatIsNotFlaggedBringsThePlainRelations) {
  Open();
  Pick("cboWhereFields", "CUSTOMER.A");
  EXPECT_EQ(Rows("cboOper"), kPlainOperators);
}

TEST_F(OperandAndOperatorTest, AFlaggedOperandBringsTheRelationsWithANumberSign) {
  Open();
  Pick("cboWhereFields", "CUSTOMER.F");
  EXPECT_EQ(Rows("cboOper"), kFlaggedOperators);
}

TEST_F(OperandAndOperatorTest, AnIndexBringsThePlainRelations) {
  Open();
  Pick("cboWhereFields", "CUSTOMER._index1");
  EXPECT_EQ(Rows("cboOper"), kPlainOperators);
}

TEST_F(OperandAndOperatorTest, EveryFurtherOperandKeepsFourteenEntries) {
  Open();
  for (const char* operand : {"CUSTOMER.A", "CUSTOMER.B", "CUSTOMER.B", "CUSTOMER._index1"}) {
    Pick("cboWhereFields", operand);
    EXPECT_EQ(Rows("cboOper"), kPlainOperators) << operand;
    Pick("cboWhereFields", "CUSTOMER.F");
    EXPECT_EQ(Rows("cboOper"), kFlaggedOperators) << operand;
  }
}

TEST_F(OperandAndOperatorTest, TheOperandListHasTheIndexesAndTheValueListDoesNot) {
  Open();
  EXPECT_EQ(Rows("cboWhereFields"),
            (Texts{"CUSTOMER._index1", "CUSTOMER.A", "CUSTOMER.B", "CUSTOMER.F"}));
  EXPECT_EQ(Rows("cboWhereFields1"), (Texts{"CUSTOMER.A", "CUSTOMER.B", "CUSTOMER.F"}));
}

struct Relation {
  const char* operand;
  const char* relation;
  const char* nextOperand;
};

std::ostream& operator<<(std::ostream& out, const Relation& relation) {
  return out << relation.operand << " " << relation.relation << " then " << relation.nextOperand;
}

class RelationTest : public OperandAndOperatorTest,
                     public ::testing::WithParamInterface<Relation> {};

TEST_P(RelationTest, ChosenGoesWithTheNextOperand) {
  Open();
  Choose(GetParam().operand, GetParam().relation);
  ASSERT_EQ(Text("cboOper"), GetParam().relation);
  Pick("cboWhereFields", GetParam().nextOperand);
  EXPECT_EQ(ListIndex("cboOper"), -1);
  EXPECT_EQ(Text("cboOper"), "");
  EXPECT_EQ(Text("cboWhereFields"), GetParam().nextOperand);
}

INSTANTIATE_TEST_SUITE_P(Relations, RelationTest,
                         ::testing::Values(Relation{"CUSTOMER.A", ">", "CUSTOMER.F"},
                                           Relation{"CUSTOMER.A", "<", "CUSTOMER.B"},
                                           Relation{"CUSTOMER.A", ">=", "CUSTOMER.F"},
                                           Relation{"CUSTOMER.A", "<=", "CUSTOMER.A"},
                                           Relation{"CUSTOMER.F", "#>", "CUSTOMER.F"},
                                           Relation{"CUSTOMER.F", "#<", "CUSTOMER.A"},
                                           Relation{"CUSTOMER.F", "#>=", "CUSTOMER.A"},
                                           Relation{"CUSTOMER.F", "#<=", "CUSTOMER._index1"}));

TEST_F(OperandAndOperatorTest, EveryOtherOperatorStaysChosenWithTheNextOperand) {
  Open();
  for (const char* op : {"!=", "<>", "=", "BETWEEN", "IN", "INRANGE", "LIKE", "REFERS TO"}) {
    Choose("CUSTOMER.A", op);
    Pick("cboWhereFields", "CUSTOMER.F");
    EXPECT_EQ(Text("cboOper"), op);
    Pick("cboWhereFields", "CUSTOMER.B");
    EXPECT_EQ(Text("cboOper"), op);
  }
}

// The flag of an operand.

struct Flag {
  Texts records;
  bool isFlagged;
};

std::ostream& operator<<(std::ostream& out, const Flag& flag) {
  return out << List(flag.records);
}

class FlagTest : public OperandAndOperatorTest, public ::testing::WithParamInterface<Flag> {};

TEST_P(FlagTest, IsThatOfTheFirstRecordOfJustThatName) {
  Open(GetParam().records);
  Pick("cboWhereFields", "CUSTOMER.A");
  EXPECT_EQ(Rows("cboOper"), GetParam().isFlagged ? kFlaggedOperators : kPlainOperators);
}

INSTANTIATE_TEST_SUITE_P(
    Records, FlagTest,
    ::testing::Values(Flag{{Field("YCUSTOMER.A")}, true}, Flag{{Field("NCUSTOMER.A")}, false},
                      Flag{{Field("yCUSTOMER.A")}, false}, Flag{{Field(" CUSTOMER.A")}, false},
                      Flag{{Field("XCUSTOMER.A")}, false}, Flag{{Field("#CUSTOMER.A")}, false},
                      Flag{{"long*Q*V*R*N*YCUSTOMER.A"}, true},
                      Flag{{Field("YCUSTOMER.A"), Field("NCUSTOMER.A")}, true},
                      Flag{{Field("NCUSTOMER.A"), Field("YCUSTOMER.A")}, false},
                      Flag{{Field("YCUSTOMER.AA"), Field("NCUSTOMER.A")}, false},
                      Flag{{Field("YCUSTOMER.a"), Field("NCUSTOMER.A")}, false},
                      Flag{{Field("NCUSTOMER.B"), Field("YCUSTOMER.A")}, true},
                      Flag{{Field("NCUSTOMER.A", "Y", "Y")}, false}));

TEST_F(OperandAndOperatorTest, TheOperandPickLooksForTheTrimmedNameAndTheOperatorPickForTheWhole) {
  Open({Field("YCUSTOMER.A "), Field("NCUSTOMER.B")});
  Pick("cboWhereFields", "CUSTOMER.A ");
  EXPECT_EQ(Rows("cboOper"), kPlainOperators);
  EXPECT_EQ(Page(), (Texts{"value view", "enabled, white", "Clear"}));
  Pick("cboOper", "=");
  EXPECT_EQ(Text("txtCondition"), "CUSTOMER.A  = {  ,  }");
  EXPECT_EQ(Page(), kTemplateView);
}

TEST_F(OperandAndOperatorTest, ATrimmedNameThatIsFlaggedOpensTheTemplateOfTheWholeName) {
  Open({Field("YCUSTOMER.A"), Field("NCUSTOMER.A ")});
  Pick("cboWhereFields", "CUSTOMER.A ");
  EXPECT_EQ(Rows("cboOper"), kFlaggedOperators);
  EXPECT_EQ(Text("txtCondition"), "CUSTOMER.A   {  ,  }");
  Pick("cboOper", "=");
  EXPECT_EQ(Page(), kValueView);
}

TEST_F(OperandAndOperatorTest, AnOperatorWithANumberSignTakesThePairForAnOperandNotFlaggedToo) {
  Open({Field("YCUSTOMER.A"), Field("NCUSTOMER.A ")});
  Choose("CUSTOMER.A ", "#>");
  EXPECT_EQ(Text("txtCondition"), "CUSTOMER.A  #> {  ,  }");
  EXPECT_EQ(Caret("txtCondition"), 17);
  EXPECT_EQ(Page(), kTemplateView);
}

// Picking the operand.

TEST_F(OperandAndOperatorTest, APlainOperandShowsTheValueViewAndLeavesTheCaptionAndTheFocus) {
  Open();
  Pick("cboWhereFields", "CUSTOMER.A");
  EXPECT_EQ(Page(), (Texts{"value view", "enabled, white", "Clear"}));
  EXPECT_EQ(Text("txtCondition"), "");
  EXPECT_EQ(Focused(), "cboWhereFields");
}

struct OperandTemplate {
  const char* op;  // chosen with the operand CUSTOMER.A before; nullptr for none
  const char* operand;
  const char* text;
  int caret;
  const char* caption;
};

std::ostream& operator<<(std::ostream& out, const OperandTemplate& row) {
  return out << row.operand << " under " << (row.op == nullptr ? "no operator" : row.op);
}

class OperandTemplateTest : public OperandAndOperatorTest,
                            public ::testing::WithParamInterface<OperandTemplate> {};

TEST_P(OperandTemplateTest, IsOpenedByTheOperandPickWithTheFocusOnTheOperator) {
  Open({Field("NCUSTOMER.A"), Field("YCUSTOMER.F"), Field("NCUSTOMER.N_index"),
        Field("YCUSTOMER.Y_indexes")});
  if (GetParam().op != nullptr) Choose("CUSTOMER.A", GetParam().op);
  Pick("cboWhereFields", GetParam().operand);
  EXPECT_EQ(Text("txtCondition"), GetParam().text);
  EXPECT_EQ(Caret("txtCondition"), GetParam().caret);
  EXPECT_EQ(Caption("FraCondition"), GetParam().caption);
  EXPECT_EQ(Page(), kTemplateView);
  EXPECT_EQ(Focused(), "cboOper");
}

INSTANTIATE_TEST_SUITE_P(
    Operands, OperandTemplateTest,
    ::testing::Values(
        OperandTemplate{nullptr, "CUSTOMER.F", "CUSTOMER.F  {  ,  }", 14, ""},
        OperandTemplate{">", "CUSTOMER.F", "CUSTOMER.F  {  ,  }", 14, ""},
        OperandTemplate{"=", "CUSTOMER.F", "CUSTOMER.F = {  ,  }", 15, "="},
        OperandTemplate{"<>", "CUSTOMER.F", "CUSTOMER.F <> {  ,  }", 16, "<>"},
        OperandTemplate{"IN", "CUSTOMER.F", "CUSTOMER.F IN {  ,  }", 16, "IN"},
        OperandTemplate{"REFERS TO", "CUSTOMER.F", "CUSTOMER.F REFERS TO {  ,  }", 23, "REFERS TO"},
        OperandTemplate{nullptr, "CUSTOMER._index1", "CUSTOMER._index1  {: }", 20, ""},
        OperandTemplate{">", "CUSTOMER._index1", "CUSTOMER._index1  {: }", 20, ""},
        OperandTemplate{"=", "CUSTOMER._index1", "CUSTOMER._index1 = {: }", 21, "="},
        OperandTemplate{"LIKE", "CUSTOMER._index1", "CUSTOMER._index1 LIKE {: }", 24, "LIKE"},
        OperandTemplate{nullptr, "CUSTOMER.N_index", "CUSTOMER.N_index  {: }", 20, ""},
        OperandTemplate{nullptr, "CUSTOMER.Y_indexes", "CUSTOMER.Y_indexes  {: }", 22, ""},
        OperandTemplate{"!=", "CUSTOMER.Y_indexes", "CUSTOMER.Y_indexes != {: }", 24, "!="}));

TEST_F(OperandAndOperatorTest, AFlaggedFieldNamedLikeAnIndexHasItsTemplateAndTheFlaggedRelations) {
  Open({Field("YCUSTOMER.Y_index")});
  Pick("cboWhereFields", "CUSTOMER.Y_index");
  EXPECT_EQ(Rows("cboOper"), kFlaggedOperators);
  EXPECT_EQ(Text("txtCondition"), "CUSTOMER.Y_index  {: }");
}

TEST_F(OperandAndOperatorTest, OnlyTheLowerCaseWordBehindALowLineNamesAnIndex) {
  Open({Field("NCUSTOMER.A_INDEX"), Field("NCUSTOMER.index"), Field("NCUSTOMER.A_Index")});
  for (const char* operand : {"CUSTOMER.A_INDEX", "CUSTOMER.index", "CUSTOMER.A_Index"}) {
    Pick("cboWhereFields", operand);
    EXPECT_EQ(Page(), (Texts{"value view", "enabled, white", "Clear"})) << operand;
  }
}

TEST_F(OperandAndOperatorTest, APlainOperandBehindATemplateKeepsOperatorTextAndCaption) {
  Open();
  Choose("CUSTOMER.A", "IN");
  Pick("cboWhereFields", "CUSTOMER.B");
  EXPECT_EQ(Page(), kValueView);
  EXPECT_EQ(Text("cboOper"), "IN");
  EXPECT_EQ(Text("txtCondition"), "CUSTOMER.A IN (        )");
  EXPECT_EQ(Caption("FraCondition"), "IN");
}

TEST_F(OperandAndOperatorTest, AFlaggedOperandKeepsTheValueInTheDisabledCombo) {
  Open();
  Pick("cboWhereFields", "CUSTOMER.A");
  Type("cboWhereFields1", "10");
  Pick("cboWhereFields", "CUSTOMER.F");
  EXPECT_EQ(Text("cboWhereFields1"), "10");
  EXPECT_EQ(Page(), kTemplateView);
}

TEST_F(OperandAndOperatorTest, AnOperatorThatTakesATemplateKeepsTheValueToo) {
  Open();
  Pick("cboWhereFields1", "CUSTOMER.B");
  Choose("CUSTOMER.A", "LIKE");
  EXPECT_EQ(Text("cboWhereFields1"), "CUSTOMER.B");
  EXPECT_EQ(ListIndex("cboWhereFields1"), 1);
  EXPECT_EQ(Page(), kTemplateView);
}

// Picking the operator.

TEST_F(OperandAndOperatorTest, WithoutAnOperandEveryOperatorPickIsUndoneWithoutAMessage) {
  Open();
  for (const std::string& op : kTenOperators) {
    Pick("cboOper", op);
    EXPECT_EQ(ListIndex("cboOper"), -1) << op;
    EXPECT_EQ(Text("cboOper"), "") << op;
    EXPECT_EQ(Text("txtCondition"), "") << op;
    EXPECT_EQ(Page(), kStart) << op;
  }
  EXPECT_EQ(Rows("cboOper"), kTenOperators);
  EXPECT_EQ(Focused(), "cboOper");
}

TEST_F(OperandAndOperatorTest, AnUndonePickLeavesAnOpenTemplate) {
  Open();
  Choose("CUSTOMER.A", "EXISTS");
  Pick("cboOper", "IN");
  EXPECT_EQ(Text("cboOper"), "");
  EXPECT_EQ(Text("txtCondition"), "EXISTS  (  \r\n)");
  EXPECT_EQ(Caption("FraCondition"), "EXISTS");
  EXPECT_EQ(Page(), kWhiteTemplateView);
}

struct OperatorTemplate {
  const char* operand;
  const char* op;
  const char* text;
  int caret;
};

std::ostream& operator<<(std::ostream& out, const OperatorTemplate& row) {
  return out << row.operand << " " << row.op;
}

class OperatorTemplateTest : public OperandAndOperatorTest,
                             public ::testing::WithParamInterface<OperatorTemplate> {};

TEST_P(OperatorTemplateTest, OpensWithItsTextItsCaretAndTheFocus) {
  const auto& [operand, op, text, caret] = GetParam();
  Open({Field("NCUSTOMER.A"), Field("YCUSTOMER.F"), Field("YCUSTOMER.Y_index")});
  Choose(operand, op);
  EXPECT_EQ(Text("txtCondition"), text);
  EXPECT_EQ(Caret("txtCondition"), caret);
  EXPECT_EQ(Caption("FraCondition"), op);
  EXPECT_EQ(Text("cboOper"), op);
  EXPECT_EQ(Focused(), "txtCondition");
  const bool dropsOperand = std::string_view(op).ends_with("EXISTS");
  EXPECT_EQ(Page(), dropsOperand ? kWhiteTemplateView : kTemplateView);
  EXPECT_EQ(Text("cboWhereFields"), dropsOperand ? "" : operand);
}

INSTANTIATE_TEST_SUITE_P(
    OfAPlainField, OperatorTemplateTest,
    ::testing::Values(OperatorTemplate{"CUSTOMER.A", "IN", "CUSTOMER.A IN (        )", 16},
                      OperatorTemplate{"CUSTOMER.A", "EXISTS", "EXISTS  (  \r\n)", 9},
                      OperatorTemplate{"CUSTOMER.A", "NOT EXISTS", "NOT EXISTS  (  \r\n)", 14},
                      OperatorTemplate{"CUSTOMER.A", "BETWEEN",
                                       "CUSTOMER.A BETWEEN {          }  AND {         } ", 21},
                      OperatorTemplate{"CUSTOMER.A", "INRANGE",
                                       "CUSTOMER.A IN RANGE            AND              ", 21},
                      OperatorTemplate{"CUSTOMER.A", "LIKE", "CUSTOMER.A LIKE ", 16},
                      OperatorTemplate{"CUSTOMER.A", "REFERS TO",
                                       "CUSTOMER.A REFERS TO                          ", 22}));

INSTANTIATE_TEST_SUITE_P(
    OfAFlaggedField, OperatorTemplateTest,
    ::testing::Values(OperatorTemplate{"CUSTOMER.F", "IN", "CUSTOMER.F IN (        )", 16},
                      OperatorTemplate{"CUSTOMER.F", "EXISTS", "EXISTS  (  \r\n)", 9},
                      OperatorTemplate{"CUSTOMER.F", "NOT EXISTS", "NOT EXISTS  (  \r\n)", 14},
                      OperatorTemplate{"CUSTOMER.F", "BETWEEN",
                                       "CUSTOMER.F BETWEEN {          }  AND {         } ", 21},
                      OperatorTemplate{"CUSTOMER.F", "INRANGE",
                                       "CUSTOMER.F IN RANGE            AND              ", 21},
                      OperatorTemplate{"CUSTOMER.F", "LIKE", "CUSTOMER.F LIKE ", 16},
                      OperatorTemplate{"CUSTOMER.F", "REFERS TO",
                                       "CUSTOMER.F REFERS TO                          ", 22},
                      OperatorTemplate{"CUSTOMER.F", "=", "CUSTOMER.F = {  ,  }", 15},
                      OperatorTemplate{"CUSTOMER.F", "<>", "CUSTOMER.F <> {  ,  }", 16},
                      OperatorTemplate{"CUSTOMER.F", "!=", "CUSTOMER.F != {  ,  }", 16},
                      OperatorTemplate{"CUSTOMER.F", "#>", "CUSTOMER.F #> {  ,  }", 16},
                      OperatorTemplate{"CUSTOMER.F", "#<", "CUSTOMER.F #< {  ,  }", 16},
                      OperatorTemplate{"CUSTOMER.F", "#>=", "CUSTOMER.F #>= {  ,  }", 17},
                      OperatorTemplate{"CUSTOMER.F", "#<=", "CUSTOMER.F #<= {  ,  }", 17}));

INSTANTIATE_TEST_SUITE_P(
    OfAnIndex, OperatorTemplateTest,
    ::testing::Values(
        OperatorTemplate{"CUSTOMER._index1", "IN", "CUSTOMER._index1 IN (        )", 22},
        OperatorTemplate{"CUSTOMER._index1", "EXISTS", "EXISTS  (  \r\n)", 9},
        OperatorTemplate{"CUSTOMER._index1", "NOT EXISTS", "NOT EXISTS  (  \r\n)", 14},
        OperatorTemplate{"CUSTOMER._index1", "BETWEEN",
                         "CUSTOMER._index1 BETWEEN {          }  AND {         } ", 27},
        OperatorTemplate{"CUSTOMER._index1", "INRANGE",
                         "CUSTOMER._index1 IN RANGE            AND              ", 27},
        OperatorTemplate{"CUSTOMER._index1", "LIKE", "CUSTOMER._index1 LIKE ", 22},
        OperatorTemplate{"CUSTOMER._index1", "REFERS TO",
                         "CUSTOMER._index1 REFERS TO                          ", 28},
        OperatorTemplate{"CUSTOMER._index1", "=", "CUSTOMER._index1 = {: }", 21},
        OperatorTemplate{"CUSTOMER._index1", "<>", "CUSTOMER._index1 <> {: }", 22},
        OperatorTemplate{"CUSTOMER._index1", "!=", "CUSTOMER._index1 != {: }", 22},
        OperatorTemplate{"CUSTOMER._index1", ">", "CUSTOMER._index1 > {: }", 21},
        OperatorTemplate{"CUSTOMER._index1", "<", "CUSTOMER._index1 < {: }", 21},
        OperatorTemplate{"CUSTOMER._index1", ">=", "CUSTOMER._index1 >= {: }", 22},
        OperatorTemplate{"CUSTOMER._index1", "<=", "CUSTOMER._index1 <= {: }", 22}));

INSTANTIATE_TEST_SUITE_P(
    OfAFlaggedFieldNamedLikeAnIndex, OperatorTemplateTest,
    ::testing::Values(OperatorTemplate{"CUSTOMER.Y_index", "#>=", "CUSTOMER.Y_index #>= {: }", 23},
                      OperatorTemplate{"CUSTOMER.Y_index", "=", "CUSTOMER.Y_index = {: }", 21},
                      OperatorTemplate{"CUSTOMER.Y_index", "IN", "CUSTOMER.Y_index IN (        )",
                                       22}));

TEST_F(OperandAndOperatorTest, PickingTheSameOperatorAgainStartsItsTemplateAfresh) {
  Open();
  Choose("CUSTOMER.A", "IN");
  Type("txtCondition", "CUSTOMER.A IN ( 1, 2 )");
  Pick("cboOper", "IN");
  EXPECT_EQ(Text("txtCondition"), "CUSTOMER.A IN (        )");
  EXPECT_EQ(Caret("txtCondition"), 16);
}

TEST_F(OperandAndOperatorTest, EveryPlainOperatorClearsTheValueAndShowsTheValueView) {
  Open();
  Pick("cboWhereFields", "CUSTOMER.A");
  for (const char* op : {"=", "<>", "!=", ">", "<", ">=", "<="}) {
    Pick("cboOper", "IN");
    ASSERT_EQ(Page(), kTemplateView);
    Pick("cboOper", "=");
    Type("cboWhereFields1", "10");
    Pick("cboOper", op);
    EXPECT_EQ(Text("cboWhereFields1"), "") << op;
    EXPECT_EQ(Page(), kValueView) << op;
    EXPECT_EQ(Text("cboOper"), op);
    EXPECT_EQ(Text("cboWhereFields"), "CUSTOMER.A");
    EXPECT_EQ(Focused(), "cboOper");
  }
}

TEST_F(OperandAndOperatorTest, APlainOperatorTakesTheEntryAwayThatWasPickedAsTheValue) {
  Open();
  Pick("cboWhereFields", "CUSTOMER.A");
  Pick("cboWhereFields1", "CUSTOMER.B");
  Pick("cboOper", "=");
  EXPECT_EQ(ListIndex("cboWhereFields1"), -1);
  EXPECT_EQ(Text("cboWhereFields1"), "");
}

TEST_F(OperandAndOperatorTest, APlainOperatorLeavesTheTemplateTextBehindTheValueView) {
  Open();
  Choose("CUSTOMER.A", "LIKE");
  Pick("cboOper", "=");
  EXPECT_EQ(Page(), kValueView);
  EXPECT_EQ(Text("txtCondition"), "CUSTOMER.A LIKE ");
  EXPECT_EQ(Caption("FraCondition"), "LIKE");
}

TEST_F(OperandAndOperatorTest, WithNothingInTheValueListAPlainOperatorChangesNothing) {
  Open();
  Pick("cboWhereFields", "CUSTOMER.A");
  Type("cboWhereFields1", "10");
  Inside<ComboBox>("cboWhereFields1").Clear();
  Pick("cboOper", "=");
  EXPECT_EQ(Text("cboOper"), "=");
  EXPECT_EQ(Text("cboWhereFields1"), "10");
  EXPECT_EQ(Page(), (Texts{"value view", "enabled, white", "Clear"}));
}

TEST_F(OperandAndOperatorTest, WithNothingInTheValueListAPlainOperatorLeavesTheTemplateView) {
  Open();
  Choose("CUSTOMER.A", "IN");
  Inside<ComboBox>("cboWhereFields1").Clear();
  Pick("cboOper", "=");
  EXPECT_EQ(Page(), kTemplateView);
  EXPECT_EQ(Text("txtCondition"), "CUSTOMER.A IN (        )");
}

TEST_F(OperandAndOperatorTest, WithNothingInTheValueListADisabledValueStillTurnsGrey) {
  Open();
  Pick("cboWhereFields", "CUSTOMER.A");
  Inside<ComboBox>("cboWhereFields1").Clear();
  Inside<ComboBox>("cboWhereFields1").Enabled(false);
  ASSERT_EQ(BackColor(), kWhite);
  Pick("cboOper", "=");
  EXPECT_EQ(Page(), (Texts{"value view", "disabled, grey", "Clear"}));
}

// The operators that throw the operand away.

class ExistsTest : public OperandAndOperatorTest,
                   public ::testing::WithParamInterface<const char*> {};

TEST_P(ExistsTest, LeavesTheValueEnabledAndWhiteBehindAGreyOne) {
  Open();
  Choose("CUSTOMER.A", "IN");
  ASSERT_EQ(Page(), kTemplateView);
  Pick("cboOper", GetParam());
  EXPECT_EQ(Page(), kWhiteTemplateView);
  EXPECT_EQ(ListIndex("cboWhereFields"), -1);
}

TEST_P(ExistsTest, PutsThePlainRelationsBackForAFlaggedOperand) {
  Open();
  Choose("CUSTOMER.F", GetParam());
  EXPECT_EQ(Rows("cboOper"), kPlainOperators);
  EXPECT_EQ(Text("cboOper"), GetParam());
  EXPECT_EQ(Caption("FraCondition"), GetParam());
}

TEST_P(ExistsTest, KeepsWhatStandsInTheValue) {
  Open();
  Pick("cboWhereFields", "CUSTOMER.A");
  Type("cboWhereFields1", "10");
  Pick("cboOper", GetParam());
  EXPECT_EQ(Text("cboWhereFields1"), "10");
}

TEST_P(ExistsTest, PickedAgainIsUndoneForWantOfAnOperand) {
  Open();
  Choose("CUSTOMER.A", GetParam());
  Pick("cboOper", GetParam());
  EXPECT_EQ(Text("cboOper"), "");
  EXPECT_EQ(Page(), kWhiteTemplateView);
}

INSTANTIATE_TEST_SUITE_P(Operators, ExistsTest, ::testing::Values("EXISTS", "NOT EXISTS"));

// Records without a separator, and no records at all.

TEST_F(OperandAndOperatorTest, ABrokenRecordBehindTheOperandsOwnIsNotReached) {
  Open();
  Rewrite({Field("YCUSTOMER.A"), "broken"});
  Choose("CUSTOMER.A", "#>");
  EXPECT_EQ(Text("txtCondition"), "CUSTOMER.A #> {  ,  }");
}

TEST_F(OperandAndOperatorTest, ABrokenRecordBeforeTheOperandsOwnFailsTheOperandPick) {
  Open();
  Rewrite({"broken", Field("YCUSTOMER.A")});
  ExpectError(ErrorKind::kSubscript, [this] { Pick("cboWhereFields", "CUSTOMER.A"); });
  EXPECT_EQ(Text("cboWhereFields"), "CUSTOMER.A");
  EXPECT_EQ(Rows("cboOper"), kTenOperators);
  EXPECT_EQ(Page(), kStart);
}

TEST_F(OperandAndOperatorTest, ABrokenRecordFailsThePickOfAnOperandWithoutARecord) {
  Open();
  Rewrite({Field("NCUSTOMER.A"), "broken"});
  ExpectError(ErrorKind::kSubscript, [this] { Pick("cboWhereFields", "CUSTOMER._index1"); });
  EXPECT_EQ(Text("txtCondition"), "");
  EXPECT_EQ(Page(), kStart);
}

TEST_F(OperandAndOperatorTest, ABrokenRecordBeforeTheOperandsOwnFailsTheOperatorPick) {
  Open();
  Pick("cboWhereFields", "CUSTOMER.A");
  Rewrite({"broken", Field("NCUSTOMER.A")});
  ExpectError(ErrorKind::kSubscript, [this] { Pick("cboOper", "IN"); });
  EXPECT_EQ(Text("cboOper"), "IN");
  EXPECT_EQ(Text("txtCondition"), "");
  EXPECT_EQ(Page(), (Texts{"value view", "enabled, white", "Clear"}));
}

TEST_F(OperandAndOperatorTest, AnUndonePickReadsNoRecord) {
  Open();
  Rewrite({"broken"});
  Pick("cboOper", "IN");
  EXPECT_EQ(Text("cboOper"), "");
}

TEST_P(ExistsTest, FailsHalfwayAtABrokenRecordBehindTheOperandsOwn) {
  Open();
  Pick("cboWhereFields", "CUSTOMER.A");
  Rewrite({Field("NCUSTOMER.A"), "broken"});
  ExpectError(ErrorKind::kSubscript, [this] { Pick("cboOper", GetParam()); });
  EXPECT_EQ(ListIndex("cboWhereFields"), -1);
  EXPECT_EQ(Text("cboOper"), GetParam());
  EXPECT_EQ(Text("txtCondition"), "");
  EXPECT_EQ(Page(), (Texts{"value view", "disabled, white", "Clear"}));
}

TEST_F(OperandAndOperatorTest, WithFieldsNeverWrittenTheOperandPickFails) {
  MemoryBag bag;
  bag.values["mPrpStrFields"] = Field("NCUSTOMER.A");
  MakeStored(bag);
  host().PrpStrTables(u"CUSTOMER1");
  EXPECT_EQ(Log(), Texts{"changed PrpStrTables"});
  ExpectError(ErrorKind::kSubscript, [this] { Mark("lsttables", 0); });
  Tab(1);
  ExpectError(ErrorKind::kSubscript, [this] { Pick("cboWhereFields", "CUSTOMER._index1"); });
  EXPECT_EQ(Rows("cboOper"), kTenOperators);
  ExpectError(ErrorKind::kSubscript, [this] { Pick("cboOper", "IN"); });
  EXPECT_EQ(Page(), kStart);
}

}  // namespace
}  // namespace zolt20::tests
