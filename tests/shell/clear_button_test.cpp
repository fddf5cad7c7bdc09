#include <array>

#include "tests/support/written_form.h"

namespace zolt20::tests {
namespace {

const std::string kSelectCustNo = "select CUSTOMER.CUST_NO\r\nfrom  CUSTOMER\r\nendselect";

class ClearButtonTest : public ControlTest {
 protected:
  ClearButtonTest() {
    Catalogue("CUSTOMER1", Field("NCUSTOMER.CUST_NO"));
    Mark("lsttables", 0);
    Click("lstFields", 1);
    Click("cmdMoveOne");
  }
  void AddStatements(int count) {
    for (int i = 0; i < count; ++i)
      Click("cmdAddSelect");
  }
  static constexpr std::array<std::string_view, 16> kConditionBoxes{
      "txtRepCnd",  "txtCond",    "txtStmt1",    "txtStmt2",  "TxtDef",  "txtRepStm",
      "txtWhlCnd",  "txtWhlStm",  "txtVariable", "txtFinVal", "txtStep", "txtForStmt",
      "txtinitval", "TxtExpr(0)", "txtStmt(0)",  "txtcaseexp"};
  void FillTheConditionPage() {
    for (const std::string_view name : kConditionBoxes) {
      const_cast<TextBox&>(dynamic_cast<const TextBox&>(On(name))).Text(u"x");
    }
  }
};

TEST_F(ClearButtonTest, ClearsTheOwnBoxesOfThePageOnly) {
  constexpr std::array<std::string_view, 4> kBoxes{"txtSelectDo", "txtSelectEOS", "txtselectempty",
                                                   "txtSelectError"};
  for (std::size_t cleared = 0; cleared < kBoxes.size(); ++cleared) {
    Surface& form = Written(host());
    for (SyntaxTextBox* box :
         {&form.txtSelectDo, &form.txtSelectEOS, &form.txtselectempty, &form.txtSelectError})
      box->Text(u"x");
    Tab(static_cast<int>(cleared) + 2);
    Click("cmdClear");
    for (std::size_t box = 0; box < kBoxes.size(); ++box)
      EXPECT_EQ(Text(kBoxes.at(box)), box == cleared ? "" : "x");
  }
  EXPECT_EQ(Rows("lstSelectedFields"), Texts{"CUSTOMER.CUST_NO"});
  EXPECT_EQ(MarkedRows("lsttables"), RowNumbers{0});
}

TEST_F(ClearButtonTest, OnPageZeroItUnmarksTheTables) {
  Click("cmdClear");
  EXPECT_EQ(MarkedRows("lsttables"), RowNumbers{});
  EXPECT_EQ(Rows("lstSelectedFields"), Texts{});
}

TEST_F(ClearButtonTest, OnTheWherePageItClearsThatPageAndLeavesTheSelectedFields) {
  Type("TxtOutput", "x");
  Tab(1);
  Mark("lstorderbyasc", 0);
  Mark("lstorderbydesc", 1);
  Type("txtAsSet", "10");
  Type("txtwhereCondition", "a = 1");
  Type("txtCondition", "x");
  Written(host()).fraif.Visible(true);
  Click("cmdClear");
  EXPECT_EQ(MarkedRows("lstorderbyasc"), RowNumbers{});
  EXPECT_EQ(MarkedRows("lstorderbydesc"), RowNumbers{});
  for (const std::string_view box : {"txtAsSet", "txtwhereCondition", "txtCondition", "TxtOutput"})
    EXPECT_EQ(Text(box), "") << box;
  EXPECT_FALSE(Visible("fraif"));
  EXPECT_EQ(Rows("lstSelectedFields"), Texts{"CUSTOMER.CUST_NO"});
}

TEST_F(ClearButtonTest, OnTheConditionPageItEmptiesTheResultAndNoBoxOfTheOtherPages) {
  Surface& form = Written(host());
  for (SyntaxTextBox* box : {&form.txtSelectDo, &form.txtSelectEOS, &form.txtselectempty,
                             &form.txtSelectError, &form.TxtOutput}) {
    box->Text(u"x");
  }
  for (TextBox* box : {&form.txtAsSet, &form.txtwhereCondition, &form.txtCondition})
    box->Text(u"x");
  Tab(6);
  Click("cmdClear");
  EXPECT_EQ(Result(), "");
  for (const std::string_view box :
       {"txtSelectDo", "txtSelectEOS", "txtselectempty", "txtSelectError", "txtAsSet",
        "txtwhereCondition", "txtCondition"}) {
    EXPECT_EQ(Text(box), "x") << box;
  }
}

// The statements behind the Result.

TEST_F(ClearButtonTest, TheStatementsAreForgotten) {
  AddStatements(2);
  Tab(6);
  Click("cmdClear");
  Tab(0);
  Click("cmdAddSelect");
  EXPECT_EQ(Result(), kSelectCustNo);
}

TEST_F(ClearButtonTest, TheSelectedFieldsAreNoLongerReadFromThem) {
  AddStatements(1);
  Tab(6);
  Click("cmdClear");
  EXPECT_EQ(host().prpstrSelectedFields(), u"");
}

TEST_F(ClearButtonTest, OneStatementIsNotEmptiedButRewritten) {
  AddStatements(1);
  Tab(2);
  Click("cmdClear");
  Click("cmdAddSelectDoQuer");
  EXPECT_EQ(Result(), kSelectCustNo);
}

TEST_F(ClearButtonTest, TheLastStatementEscapesAndShowsBehindTheNextRewrite) {
  AddStatements(3);
  Tab(2);
  Click("cmdClear");
  EXPECT_EQ(Result(), "");
  Click("cmdAddSelectDoQuer");
  // The first entry is written anew, the second was emptied, the third was kept with its line
  // break.
  EXPECT_EQ(Result(), kSelectCustNo + "\r\n" + kSelectCustNo);
}

TEST_F(ClearButtonTest, OfTwoStatementsTheFirstIsEmptied) {
  AddStatements(2);
  Tab(2);
  Type("txtSelectDo", "do it");
  Click("cmdAddSelectDoQuer");
  Click("cmdClear");
  Click("cmdAddSelectDoQuer");
  EXPECT_EQ(
      Result(),
      kSelectCustNo +
          "\r\nselect CUSTOMER.CUST_NO\r\nfrom  CUSTOMER\r\nselectdo\r\n\tdo it\r\nendselect");
}

TEST_F(ClearButtonTest, WithoutStatementsNothingFails) {
  for (const int page : {0, 1, 2, 3, 4, 5, 6}) {
    Tab(page);
    Click("cmdClear");
  }
  EXPECT_EQ(Result(), "");
}

TEST_F(ClearButtonTest, TheDepthIsZero) {
  host().prpintTabcount(3);
  Tab(2);
  Click("cmdClear");
  EXPECT_EQ(host().prpintTabcount(), 0);
}

// The Condition page, whatever page it is clicked on.

TEST_F(ClearButtonTest, FromEveryPageItEmptiesTheBoxesOfTheConditionPage) {
  for (const int page : {0, 1, 2, 3, 4, 5, 6}) {
    FillTheConditionPage();
    Tab(page);
    Click("cmdClear");
    for (const std::string_view box : kConditionBoxes)
      EXPECT_EQ(Text(box), "") << box << " from page " << page;
  }
}

TEST_F(ClearButtonTest, FromEveryPageItShowsTheInstructions) {
  for (const int page : {0, 1, 2, 3, 4, 5, 6}) {
    Surface& form = Written(host());
    for (Frame* frame :
         {&form.fraif, &form.fraFor, &form.fraOnCase, &form.frawhile, &form.frarepeat})
      frame->Visible(true);
    form.VscrCase.Visible(true);
    form.fraSelect.Visible(false);
    form.Frainitial.Visible(false);
    Tab(page);
    Click("cmdClear");
    for (const std::string_view name :
         {"fraif", "fraFor", "fraOnCase", "frawhile", "frarepeat", "VscrCase"}) {
      EXPECT_FALSE(Visible(name)) << name << " from page " << page;
    }
    EXPECT_TRUE(Visible("fraSelect"));
    EXPECT_TRUE(Visible("Frainitial"));
  }
}

TEST_F(ClearButtonTest, FromEveryPageItDisablesTheButtonsOfTheConditionPage) {
  for (const int page : {0, 1, 2, 3, 4, 5, 6}) {
    Surface& form = Written(host());
    for (Button* button : {&form.cmdSubQuery(4), &form.cmdFunction(4), &form.cmdBuild})
      button->Enabled(true);
    form.cmdAddSelect.Enabled(false);
    Tab(page);
    Click("cmdClear");
    for (const std::string_view name : {"cmdSubQuery(4)", "cmdFunction(4)", "cmdBuild"})
      EXPECT_FALSE(Enabled(name)) << name;
    EXPECT_TRUE(Enabled("cmdAddSelect"));
  }
}

TEST_F(ClearButtonTest, NoOptionStaysChosen) {
  for (OptionButton* option :
       {&Written(host()).optCase, &Written(host()).optIfThen, &Written(host()).optFor,
        &Written(host()).optRepeat, &Written(host()).optwhile}) {
    Tab(6);
    option->Value(true);
    Click("cmdClear");
    EXPECT_FALSE(Option(option->name())) << option->name();
  }
}

TEST_F(ClearButtonTest, TheCaseRowsAboveTheFirstStayLoadedWithTheirTexts) {
  Surface& form = Written(host());
  form.TxtExpr.Load(1);
  form.txtStmt.Load(1);
  form.TxtExpr(1).Text(u"value");
  form.txtStmt(1).Text(u"statement");
  Click("cmdClear");
  EXPECT_EQ(Text("TxtExpr(1)"), "value");
  EXPECT_EQ(Text("txtStmt(1)"), "statement");
}

TEST_F(ClearButtonTest, TheActiveBoxStaysTheTarget) {
  Tab(6);
  Written(host()).fraif.Visible(true);
  Focus("txtStmt1");
  Click("cmdClear");
  host().prpStroutput(u"x");
  EXPECT_EQ(Text("txtStmt1"), "x");
  EXPECT_EQ(Result(), "");
}

TEST_F(ClearButtonTest, TheAddButtonOfTheWherePageIsNotReset) {
  Tab(6);
  for (const bool enabled : {true, false}) {
    Written(host()).cmdAddWhereQuery.Enabled(enabled);
    Click("cmdClear");
    EXPECT_EQ(Enabled("cmdAddWhereQuery"), enabled);
  }
}

TEST_F(ClearButtonTest, ThePageCodeAndThePersistedPartsStay) {
  Tab(3);
  Click("cmdFunction(1)");
  host().prpSelectEOSPart(u"x");
  Log();
  Click("cmdClear");
  EXPECT_EQ(host().prpStrSQLPart(), u"E");
  MemoryBag bag;
  host().UserControl_WriteProperties(bag);
  EXPECT_EQ(bag.values["prpSelectEOSPart"], "x");
}

TEST_F(ClearButtonTest, ThePageStaysAndTheHostIsToldNothing) {
  Tab(4);
  Click("cmdClear");
  EXPECT_TRUE(Shown("txtselectempty"));
  EXPECT_EQ(Log(), Texts{});
}

TEST_F(ClearButtonTest, AnErrorOfTheTablesLeavesItHalfDone) {
  host().PrpStrTables(u"ORDERITM0");  // a second row behind an array of one
  Log();
  host().prpintTabcount(2);
  Written(host()).fraif.Visible(true);
  ExpectError(ErrorKind::kSubscript, [this] { host().UserClick(On("cmdClear")); });
  EXPECT_EQ(host().prpintTabcount(), 2);
  EXPECT_TRUE(Visible("fraif"));
}

TEST_F(ClearButtonTest, AnErrorOfTheTablesComesAfterTheStatementsAreForgotten) {
  AddStatements(2);
  host().PrpStrTables(u"ORDERITM0");
  Log();
  ExpectError(ErrorKind::kSubscript, [this] { host().UserClick(On("cmdClear")); });
  EXPECT_EQ(Result(), kSelectCustNo + "\r\n" + kSelectCustNo);
  Click("cmdAddSelect");
  EXPECT_EQ(Result(), kSelectCustNo);
}

}  // namespace
}  // namespace zolt20::tests
