// The six Add To Result buttons and the list of statements behind the Result.
#include <ostream>

#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

constexpr std::string_view kNoTable = "Tables Not Selected --Select A Table To Proceed Further";
constexpr std::string_view kNoField = "Fields Not Selected --Select A Field To Proceed Further";
constexpr std::string_view kNoStatement = "Select Statement Not Present";

/// An Add To Result button with its page; for one that rewrites, the box of the page and its
/// clause.
struct AddButton {
  const char* name;
  int page;
  const char* box;
  const char* keyword;

  friend std::ostream& operator<<(std::ostream& out, const AddButton& button) {
    return out << button.name;
  }
};

constexpr AddButton kSelect{"cmdAddSelect", 0, "", ""};
constexpr AddButton kWhere{"cmdAddWhereQuery", 1, "txtwhereCondition", "where"};
constexpr AddButton kDo{"cmdAddSelectDoQuer", 2, "txtSelectDo", "selectdo"};
constexpr AddButton kEos{"cmdAddSEOStoquery", 3, "txtSelectEOS", "selecteos"};
constexpr AddButton kEmpty{"cmdSelectmpty", 4, "txtselectempty", "selectempty"};
constexpr AddButton kError{"cmdAddtoSERROR", 5, "txtSelectError", "selecterror"};

std::string NameOf(const ::testing::TestParamInfo<AddButton>& info) {
  return info.param.name;
}

/// The statement of CUSTOMER.NO with these clauses.
std::string Statement(const std::string& clauses = "") {
  return "select CUSTOMER.NO\r\nfrom  CUSTOMER" + clauses + "\r\nendselect";
}

/// The clause of a button's box.
std::string Block(const AddButton& button, const std::string& text) {
  return std::string("\r\n") + button.keyword + (button.page == 1 ? " " : "\r\n\t") + text;
}

class AddToResultTest : public ControlTest {
 protected:
  /// CUSTOMER is marked, its field NO selected.
  void ChooseField() {
    Catalogue("CUSTOMER0", List({Field("NCUSTOMER.NO"), Field("NCUSTOMER.NAME")}));
    ChooseAgain();
  }
  void ChooseAgain() {
    Tab(0);
    Mark("lsttables", 0);
    Mark("lstFields", 1);
    Click("cmdMoveOne");
  }
  void Fill(const AddButton& button, std::string_view text) {
    Tab(button.page);
    Type(button.box, text);
  }
  void Add(const AddButton& button) {
    Tab(button.page);
    if (!Enabled(button.name)) EnableTheWherePageButton();
    Click(button.name);
  }
  /// With nothing on its page the button stays enabled after a row limit came and went, since the
  /// box alone does not disable it.
  void EnableTheWherePageButton() {
    Type("txtAsSet", "1");
    Key("txtAsSet", '2');
    Type("txtAsSet", "");
    ASSERT_TRUE(Enabled("cmdAddWhereQuery"));
  }
  void SetWhere(std::string_view condition) {
    host().prpSelectWherePart(Wide(condition));
    ASSERT_EQ(Log(), (Texts{"changed prpSelectWherePart"}));
  }
  void Insert(std::string_view encoded) { host().prpStroutput(Wide(encoded)); }
};

// All buttons: the two checks.

class EveryAddButtonTest : public AddToResultTest,
                           public ::testing::WithParamInterface<AddButton> {};

TEST_P(EveryAddButtonTest, RefusesWithoutAMarkedTable) {
  Catalogue("CUSTOMER0", Field("NCUSTOMER.NO"));
  Type("TxtOutput", "by hand");
  Add(GetParam());
  EXPECT_EQ(Log(), (Texts{ErrorMessage(kNoTable)}));
  EXPECT_EQ(Result(), "by hand");
  EXPECT_EQ(Focused(), GetParam().name);
}

TEST_P(EveryAddButtonTest, RefusesWithoutAMarkedTableThoughSomethingIsSelected) {
  ChooseField();
  Mark("lstFunctions", 0);
  Click("cmdMoveOne");
  Mark("lsttables", 0);
  ASSERT_EQ(Rows("lstSelectedFields"), (Texts{"count ( * ) "}));
  Add(GetParam());
  EXPECT_EQ(Log(), (Texts{ErrorMessage(kNoTable)}));
  EXPECT_EQ(Result(), "");
}

TEST_P(EveryAddButtonTest, RefusesWithoutASelectedField) {
  Catalogue("CUSTOMER0", Field("NCUSTOMER.NO"));
  Mark("lsttables", 0);
  Type("TxtOutput", "by hand");
  Add(GetParam());
  EXPECT_EQ(Log(), (Texts{ErrorMessage(kNoField)}));
  EXPECT_EQ(Result(), "by hand");
  EXPECT_EQ(Focused(), GetParam().name);
}

TEST_P(EveryAddButtonTest, KeepsTheStatementWhenItRefuses) {
  ChooseField();
  Add(kSelect);
  Click("cmdRemoveAll");
  Add(GetParam());
  EXPECT_EQ(Log(), (Texts{ErrorMessage(kNoField)}));
  EXPECT_EQ(Result(), Statement());
}

TEST_P(EveryAddButtonTest, WritesEveryClauseInTheFixedOrder) {
  ChooseField();
  Add(kSelect);
  Mark("lstGroupby", 0);
  Tab(1);
  Mark("lstorderbyasc", 0);
  Type("txtAsSet", "100");
  SetWhere("CUSTOMER.NO = 1");
  for (const AddButton& other : {kDo, kEos, kEmpty, kError})
    Fill(other, std::string(other.keyword) + " it");
  Add(GetParam());
  const std::string rewritten = Statement(
      "\r\nwhere CUSTOMER.NO = 1\r\ngroup by  CUSTOMER.NO\r\norder by CUSTOMER.NO"
      "\r\nas set with 100 rows "
      "\r\nselectdo\r\n\tselectdo it\r\nselecteos\r\n\tselecteos it"
      "\r\nselectempty\r\n\tselectempty it\r\nselecterror\r\n\tselecterror it");
  const bool adds = GetParam().page == 0;
  EXPECT_EQ(Result(), adds ? Statement() + "\r\n" + rewritten : rewritten);
}

TEST_P(EveryAddButtonTest, LeavesTheFormAsItIs) {
  ChooseField();
  Add(kSelect);
  Fill(kDo, "do it");
  SetWhere("CUSTOMER.NO = 1");
  Add(GetParam());
  EXPECT_EQ(MarkedRows("lsttables"), (RowNumbers{0}));
  EXPECT_EQ(Rows("lstSelectedFields"), (Texts{"CUSTOMER.NO"}));
  EXPECT_EQ(Text("txtwhereCondition"), "CUSTOMER.NO = 1");
  EXPECT_EQ(Text("txtSelectDo"), "do it");
}

TEST_P(EveryAddButtonTest, LosesTextTypedIntoTheResult) {
  ChooseField();
  Add(kSelect);
  Type("TxtOutput", "by hand");
  Add(GetParam());
  const bool adds = GetParam().page == 0;
  EXPECT_EQ(Result(), adds ? Statement() + "\r\n" + Statement() : Statement());
}

INSTANTIATE_TEST_SUITE_P(Buttons, EveryAddButtonTest,
                         ::testing::Values(kSelect, kWhere, kDo, kEos, kEmpty, kError), NameOf);

// The button of the Select List page.

TEST_F(AddToResultTest, ASmallStatementHasThreeLines) {
  ChooseField();
  Add(kSelect);
  EXPECT_EQ(Result(), "select CUSTOMER.NO\r\nfrom  CUSTOMER\r\nendselect");
}

TEST_F(AddToResultTest, AddSelectNeedsNoStatementBefore) {
  ChooseField();
  Fill(kDo, "do it");
  Add(kSelect);
  EXPECT_EQ(Log(), Texts{});
  EXPECT_EQ(Result(), Statement(Block(kDo, "do it")));
}

TEST_F(AddToResultTest, ASecondStatementStandsOnANewLine) {
  ChooseField();
  Add(kSelect);
  Add(kSelect);
  EXPECT_EQ(Result(),
            "select CUSTOMER.NO\r\nfrom  CUSTOMER\r\nendselect"
            "\r\nselect CUSTOMER.NO\r\nfrom  CUSTOMER\r\nendselect");
}

TEST_F(AddToResultTest, EveryFurtherClickAddsOneStatementMore) {
  ChooseField();
  for (int click = 0; click < 4; ++click)
    Add(kSelect);
  EXPECT_EQ(Result(),
            Statement() + "\r\n" + Statement() + "\r\n" + Statement() + "\r\n" + Statement());
}

TEST_F(AddToResultTest, ANewStatementLeavesTheOneBeforeAsItWas) {
  ChooseField();
  Add(kSelect);
  Fill(kDo, "do it");
  Add(kSelect);
  EXPECT_EQ(Result(), Statement() + "\r\n" + Statement(Block(kDo, "do it")));
}

TEST_F(AddToResultTest, AnInvalidTableCountsAsMarkedAndIsWritten) {
  Catalogue("CUSTOMER", Field("NCUSTOMER.NO"));
  Mark("lsttables", 0);
  ASSERT_EQ(Log(), (Texts{ErrorMessage("Not a Valid Table")}));
  Mark("lstFunctions", 0);
  Click("cmdMoveOne");
  Add(kSelect);
  EXPECT_EQ(Result(), "select count ( * ) :var.count\r\nfrom  CUSTOMER\r\nendselect");
}

TEST_F(AddToResultTest, AGroupFieldOutsideTheSelectListIsNotAddedToIt) {
  ChooseField();
  Mark("lstGroupby", 1);
  Add(kSelect);
  EXPECT_EQ(Result(), Statement("\r\ngroup by  CUSTOMER.NAME"));
}

TEST_F(AddToResultTest, AnErrorInABuilderLeavesTheResultAndAddsNoStatement) {
  Catalogue("CUSTOMER0", Field("NCUSTOMER.NO"));
  Mark("lsttables", 0);
  Mark("lstFunctions", 2);
  Mark("lstFields", 1);
  Click("cmdMoveOne");
  host().PrpStrFields(u"broken");
  ASSERT_EQ(Log(), (Texts{"changed PrpStrFields"}));
  ExpectError(ErrorKind::kSubscript, [&] { Click("cmdAddSelect"); });
  EXPECT_EQ(Result(), "");
  host().PrpStrFields(u"");
  ASSERT_EQ(Log(), (Texts{"changed PrpStrFields"}));
  Add(kDo);
  EXPECT_EQ(Log(), (Texts{ErrorMessage(kNoStatement)}));
}

TEST_F(AddToResultTest, ABoxTooLongForABuilderLeavesTheStatementAsItWas) {
  ChooseField();
  Add(kSelect);
  Fill(kDo, std::string(32768, 'x'));
  ExpectError(ErrorKind::kOverflow, [&] { Add(kDo); });
  EXPECT_EQ(Result(), Statement());
}

// The button of the Where page.

TEST_F(AddToResultTest, TheWherePageButtonIsDisabledAtFirst) {
  ChooseField();
  Add(kSelect);
  Tab(1);
  EXPECT_EQ(host().UserClick(On("cmdAddWhereQuery")), Outcome::kNotEnabled);
  EXPECT_EQ(Result(), Statement());
}

TEST_F(AddToResultTest, AStoredConditionEnablesTheWherePageButton) {
  ChooseField();
  Add(kSelect);
  SetWhere("CUSTOMER.NO = 1");
  Tab(1);
  Click("cmdAddWhereQuery");
  EXPECT_EQ(Result(), Statement("\r\nwhere CUSTOMER.NO = 1"));
}

TEST_F(AddToResultTest, TheWherePageButtonBringsTheOrderAndTheRowLimit) {
  ChooseField();
  Add(kSelect);
  Tab(1);
  Mark("lstorderbydesc", 0);
  Type("txtAsSet", "10");
  Click("cmdAddWhereQuery");
  EXPECT_EQ(Result(), Statement("\r\norder by CUSTOMER.NO desc\r\nas set with 10 rows "));
}

TEST_F(AddToResultTest, TheWherePageButtonRewritesAfterItsConditionWasTakenOut) {
  ChooseField();
  Add(kSelect);
  Fill(kWhere, "CUSTOMER.NO = 1");
  Mark("lstorderbyasc", 0);
  Click("cmdAddWhereQuery");
  Type("txtwhereCondition", "");
  Click("cmdAddWhereQuery");
  EXPECT_EQ(Result(), Statement("\r\norder by CUSTOMER.NO"));
}

// The buttons that rewrite.

class RewritingTest : public AddToResultTest, public ::testing::WithParamInterface<AddButton> {};

TEST_P(RewritingTest, BringsTheTextOfItsBox) {
  ChooseField();
  Add(kSelect);
  Fill(GetParam(), "new text");
  EXPECT_EQ(Result(), Statement());
  Add(GetParam());
  EXPECT_EQ(Result(), Statement(Block(GetParam(), "new text")));
}

TEST_P(RewritingTest, AddsTheWhereLineOnceTheConditionIsFilled) {
  ChooseField();
  Add(kSelect);
  SetWhere("CUSTOMER.NO = 1");
  Add(GetParam());
  EXPECT_EQ(Result(), Statement("\r\nwhere CUSTOMER.NO = 1"));
}

TEST_P(RewritingTest, FollowsEveryLaterChange) {
  ChooseField();
  Add(kSelect);
  Fill(GetParam(), "first text");
  Add(GetParam());
  Fill(GetParam(), "second text");
  Add(GetParam());
  EXPECT_EQ(Result(), Statement(Block(GetParam(), "second text")));
  Fill(GetParam(), "");
  Add(GetParam());
  EXPECT_EQ(Result(), Statement());
}

TEST_P(RewritingTest, ChangesTheLastStatementAlone) {
  ChooseField();
  Add(kSelect);
  Add(kSelect);
  Fill(GetParam(), "new text");
  Add(GetParam());
  EXPECT_EQ(Result(), Statement() + "\r\n" + Statement(Block(GetParam(), "new text")));
  Add(GetParam());
  EXPECT_EQ(Result(), Statement() + "\r\n" + Statement(Block(GetParam(), "new text")));
}

TEST_P(RewritingTest, LeavesTheCountOfStatements) {
  ChooseField();
  Add(kSelect);
  Add(GetParam());
  Add(GetParam());
  Add(kSelect);
  EXPECT_EQ(Result(), Statement() + "\r\n" + Statement());
  Fill(GetParam(), "new text");
  Add(GetParam());
  EXPECT_EQ(Result(), Statement() + "\r\n" + Statement(Block(GetParam(), "new text")));
}

TEST_P(RewritingTest, NeedsAStatement) {
  ChooseField();
  Type("TxtOutput", "by hand");
  Fill(GetParam(), "new text");
  Add(GetParam());
  EXPECT_EQ(Log(), (Texts{ErrorMessage(kNoStatement)}));
  EXPECT_EQ(Result(), "by hand");
  EXPECT_EQ(Focused(), GetParam().name);
}

TEST_P(RewritingTest, AddsNoEntryWhenThereIsNoStatement) {
  ChooseField();
  Add(GetParam());
  EXPECT_EQ(Log(), (Texts{ErrorMessage(kNoStatement)}));
  Add(kSelect);
  EXPECT_EQ(Result(), Statement());
}

TEST_P(RewritingTest, AsksForTablesAndFieldsBeforeItAsksForAStatement) {
  Add(GetParam());
  EXPECT_EQ(Log(), (Texts{ErrorMessage(kNoTable)}));
  Catalogue("CUSTOMER0", Field("NCUSTOMER.NO"));
  Tab(0);
  Mark("lsttables", 0);
  Add(GetParam());
  EXPECT_EQ(Log(), (Texts{ErrorMessage(kNoField)}));
}

TEST_P(RewritingTest, NeedsANewStatementAfterTheSelectListWasCleared) {
  ChooseField();
  Add(kSelect);
  host().ClearAll(0);
  ChooseAgain();
  Add(GetParam());
  EXPECT_EQ(Log(), (Texts{ErrorMessage(kNoStatement)}));
  EXPECT_EQ(Result(), "");
}

TEST_P(RewritingTest, AssemblesEvenWhenThereIsNoStatementIfTheResultHoldsText) {
  ChooseField();
  Type("TxtOutput", "by hand");
  Fill(GetParam(), "new text");
  Add(GetParam());
  ASSERT_EQ(Log(), (Texts{ErrorMessage(kNoStatement)}));
  Insert("inserted");
  Type("TxtOutput", "");
  Fill(kEos, "later text");
  Add(kEos);
  EXPECT_EQ(Result(), Statement(Block(GetParam(), "new text")));
}

TEST_P(RewritingTest, TakesTheInsertedTextForTheCurrentStatement) {
  ChooseField();
  Insert("inserted");
  Add(GetParam());
  EXPECT_EQ(Result(), Statement());
}

INSTANTIATE_TEST_SUITE_P(Buttons, RewritingTest,
                         ::testing::Values(kWhere, kDo, kEos, kEmpty, kError), NameOf);

// With the Result emptied by hand.

class LookingTest : public RewritingTest {};

TEST_P(LookingTest, BringsTheFormerStatementBackIntoAnEmptiedResult) {
  ChooseField();
  Add(kSelect);
  Fill(GetParam(), "new text");
  Type("TxtOutput", "");
  Add(GetParam());
  EXPECT_EQ(Result(), Statement());
}

TEST_P(LookingTest, PutsASecondLineBreakBeforeTheFormerStatement) {
  ChooseField();
  Add(kSelect);
  Add(kSelect);
  Fill(GetParam(), "new text");
  Type("TxtOutput", "");
  Add(GetParam());
  EXPECT_EQ(Result(), Statement() + "\r\n\r\n" + Statement());
  Type("TxtOutput", "");
  Add(GetParam());
  EXPECT_EQ(Result(), Statement() + "\r\n\r\n\r\n" + Statement());
}

TEST_P(LookingTest, BringsTheNewTextAtTheNextClick) {
  ChooseField();
  Add(kSelect);
  Add(kSelect);
  Fill(GetParam(), "new text");
  Type("TxtOutput", "");
  Add(GetParam());
  Add(GetParam());
  EXPECT_EQ(Result(), Statement() + "\r\n" + Statement(Block(GetParam(), "new text")));
}

TEST_P(LookingTest, AssemblesNothingIntoAnEmptyResult) {
  ChooseField();
  Add(GetParam());
  ASSERT_EQ(Log(), (Texts{ErrorMessage(kNoStatement)}));
  Insert("inserted");
  Type("TxtOutput", "");
  Add(GetParam());
  EXPECT_EQ(Result(), "");
}

INSTANTIATE_TEST_SUITE_P(Buttons, LookingTest, ::testing::Values(kWhere, kEos, kEmpty, kError),
                         NameOf);

TEST_F(AddToResultTest, TheDoButtonBringsTheNewTextIntoAnEmptiedResult) {
  ChooseField();
  Add(kSelect);
  Add(kSelect);
  Fill(kDo, "new text");
  Type("TxtOutput", "");
  Add(kDo);
  EXPECT_EQ(Result(), Statement() + "\r\n" + Statement(Block(kDo, "new text")));
}

TEST_F(AddToResultTest, TheDoButtonAssemblesEvenForAnEmptyResultWithoutAStatement) {
  ChooseField();
  Fill(kDo, "new text");
  Add(kDo);
  ASSERT_EQ(Log(), (Texts{ErrorMessage(kNoStatement)}));
  Insert("inserted");
  Type("TxtOutput", "");
  Add(kEos);
  EXPECT_EQ(Result(), Statement(Block(kDo, "new text")));
}

TEST_F(AddToResultTest, ARefusalForWantOfATableAssemblesNothing) {
  ChooseField();
  Add(kSelect);
  Mark("lsttables", 0);
  Fill(kDo, "new text");
  Add(kDo);
  ASSERT_EQ(Log(), (Texts{ErrorMessage(kNoTable)}));
  ChooseAgain();
  Type("TxtOutput", "");
  Add(kEos);
  EXPECT_EQ(Result(), Statement());
}

TEST_F(AddToResultTest, ARefusalForWantOfAFieldAssemblesNothing) {
  ChooseField();
  Add(kSelect);
  Click("cmdRemoveAll");
  Fill(kDo, "new text");
  Add(kDo);
  ASSERT_EQ(Log(), (Texts{ErrorMessage(kNoField)}));
  Tab(0);
  Mark("lstFields", 1);
  Click("cmdMoveOne");
  Type("TxtOutput", "");
  Add(kEos);
  EXPECT_EQ(Result(), Statement());
}

TEST_F(AddToResultTest, AResultOfOneBlankIsNotEmpty) {
  ChooseField();
  Add(kSelect);
  Fill(kEos, "new text");
  Type("TxtOutput", " ");
  Add(kEos);
  EXPECT_EQ(Result(), Statement(Block(kEos, "new text")));
}

// Clearing.

TEST_F(AddToResultTest, ClearAllKeepsTheStatementsBehindTheResult) {
  ChooseField();
  Add(kSelect);
  host().ClearAll(0);
  EXPECT_EQ(Result(), "");
  ChooseAgain();
  Add(kSelect);
  EXPECT_EQ(Result(), Statement() + "\r\n" + Statement());
}

TEST_F(AddToResultTest, ClearForgetsTheStatements) {
  ChooseField();
  Add(kSelect);
  Add(kSelect);
  Tab(2);
  Click("cmdClear");
  Add(kSelect);
  EXPECT_EQ(Result(), Statement());
}

TEST_F(AddToResultTest, ClearOfAnotherPageKeepsTheLastEntryForARewrite) {
  ChooseField();
  Add(kSelect);
  Add(kSelect);
  Add(kSelect);
  Tab(2);
  Click("cmdClear");
  Fill(kDo, "new text");
  Add(kDo);
  EXPECT_EQ(Result(), Statement(Block(kDo, "new text")) + "\r\n" + Statement());
}

TEST_F(AddToResultTest, ClearOfTheSelectListAsksForANewStatement) {
  ChooseField();
  Add(kSelect);
  Click("cmdClear");
  ChooseAgain();
  Add(kDo);
  EXPECT_EQ(Log(), (Texts{ErrorMessage(kNoStatement)}));
  EXPECT_EQ(Result(), "");
}

}  // namespace
}  // namespace zolt20::tests
