#include <array>

#include "tests/support/written_form.h"

namespace zolt20::tests {
namespace {

class ClearAllTest : public ControlTest {
 protected:
  ClearAllTest() {
    Catalogue("CUSTOMER1,ORDERITM0",
              List({Field("NCUSTOMER.CUST_NO"), Field("NCUSTOMER.NAME"), Field("NORDERITM.QTY")}));
  }
  void ChooseCustNo() {
    Mark("lsttables", 0);
    Click("lstFields", 1);
    Click("cmdMoveOne");
  }
  void ChooseAFunction() {
    Click("lstFunctions", 0);
    Click("cmdMoveOne");
  }
  void FillEveryBox() {
    Surface& form = Written(host());
    for (SyntaxTextBox* box : PageBoxes())
      box->Text(u"x");
    form.TxtOutput.Text(u"x");
    for (TextBox* box : {&form.txtAsSet, &form.txtwhereCondition, &form.txtCondition, &form.txtCond,
                         &form.txtForStmt}) {
      box->Text(u"x");
    }
    form.cboWhereFields1.Text(u"x");
  }
  std::array<SyntaxTextBox*, 4> PageBoxes() {
    Surface& form = Written(host());
    return {&form.txtSelectDo, &form.txtSelectEOS, &form.txtselectempty, &form.txtSelectError};
  }
};

const std::string kSelectCustNo = "select CUSTOMER.CUST_NO\r\nfrom  CUSTOMER\r\nendselect";

TEST_F(ClearAllTest, EveryNumberEmptiesTheResult) {
  for (const int number : {0, 1, 2, 3, 4, 5, 6, 7, -1, 32767, -32768}) {
    Type("TxtOutput", "x");
    host().ClearAll(number);
    EXPECT_EQ(Result(), "") << number;
  }
}

TEST_F(ClearAllTest, EveryNumberEndsTheAggregateMode) {
  for (const int number : {1, 2, 3, 4, 5, 6, 7, -1}) {
    MakeNew();
    Catalogue("CUSTOMER0", Field("NCUSTOMER.CUST_NO"));
    Mark("lsttables", 0);
    ChooseAFunction();
    host().ClearAll(number);
    Click("lstFields", 1);
    Click("cmdMoveOne");  // refused with a message in the mode
    EXPECT_EQ(Rows("lstSelectedFields"), (Texts{"CUSTOMER.CUST_NO", "count ( * ) "})) << number;
    EXPECT_EQ(Log(), Texts{}) << number;
  }
}

TEST_F(ClearAllTest, ANumberBeyondThePagesOrOfTheConditionPageTouchesNothingElse) {
  ChooseCustNo();
  FillEveryBox();
  for (const int number : {6, 7, -1}) {
    Written(host()).TxtOutput.Text(u"x");
    const TouchedControls touched(host());
    host().ClearAll(number);
    EXPECT_EQ(touched.names, std::set<std::string>{"TxtOutput"}) << number;
  }
}

// Page 0.

TEST_F(ClearAllTest, PageZeroUnmarksTheTablesAndSoEmptiesTheListsOfTheirFields) {
  Mark("lsttables", 1);
  ChooseCustNo();
  host().ClearAll(0);
  EXPECT_EQ(Rows("lsttables"), (Texts{"CUSTOMER", "ORDERITM"}));
  EXPECT_EQ(MarkedRows("lsttables"), RowNumbers{});
  for (const std::string_view list : {"lstFields", "lstGroupby", "lstorderbyasc", "lstorderbydesc",
                                      "cboWhereFields", "cboWhereFields1", "lstSelectedFields"}) {
    EXPECT_EQ(Rows(list), Texts{}) << list;
  }
}

TEST_F(ClearAllTest, PageZeroWritesListIndexForEveryTableDownToTheFirst) {
  host().ClearAll(0);
  EXPECT_EQ(ListIndex("lsttables"), 0);
}

TEST_F(ClearAllTest, PageZeroClicksEachMarkedTableOnceMoreBeforeItUnmarksIt) {
  MakeNew();
  Catalogue("CUSTOMER", Field("NCUSTOMER.CUST_NO"));  // without an index count
  Mark("lsttables", 0);
  EXPECT_EQ(Log(), Texts{ErrorMessage("Not a Valid Table")});
  host().ClearAll(0);
  EXPECT_EQ(MarkedRows("lsttables"), RowNumbers{});
  EXPECT_EQ(Log(), Texts{ErrorMessage("Not a Valid Table")});
}

TEST_F(ClearAllTest, PageZeroClicksUnmarkedTablesTooWhichTakesTheirRowsOut) {
  Written(host()).lstFields.AddItem(u"ORDERITM.QTY");
  Written(host()).lstGroupby.AddItem(u"OTHERTAB.QTY");
  host().ClearAll(0);
  EXPECT_EQ(Rows("lstFields"), Texts{});
  EXPECT_EQ(Rows("lstGroupby"), Texts{"OTHERTAB.QTY"});
}

TEST_F(ClearAllTest, PageZeroClearsWhateverWasSelected) {
  Mark("lsttables", 0);
  ChooseAFunction();  // holds no table's name
  host().ClearAll(0);
  EXPECT_EQ(Rows("lstSelectedFields"), Texts{});
}

TEST_F(ClearAllTest, PageZeroEnablesTheAddButtonAndTheOrderLists) {
  Mark("lsttables", 0);
  ChooseAFunction();
  EXPECT_FALSE(Enabled("lstorderbyasc"));
  Written(host()).cmdAddSelect.Enabled(false);
  host().ClearAll(0);
  EXPECT_TRUE(Enabled("cmdAddSelect"));
  EXPECT_TRUE(Enabled("lstorderbyasc"));
  EXPECT_TRUE(Enabled("lstorderbydesc"));
}

TEST_F(ClearAllTest, OnlyPageZeroEnablesTheOrderLists) {
  Mark("lsttables", 0);
  ChooseAFunction();
  for (const int number : {1, 2, 3, 4, 5, 6, 7})
    host().ClearAll(number);
  EXPECT_FALSE(Enabled("lstorderbyasc"));
  EXPECT_FALSE(Enabled("lstorderbydesc"));
}

TEST_F(ClearAllTest, PageZeroForgetsThatAStatementWasAdded) {
  ChooseCustNo();
  Click("cmdAddSelect");
  host().ClearAll(0);
  ChooseCustNo();
  Tab(2);
  Click("cmdAddSelectDoQuer");
  EXPECT_EQ(Result(), "");
  EXPECT_EQ(Log(), Texts{ErrorMessage("Select Statement Not Present")});
}

TEST_F(ClearAllTest, TheOtherPagesRememberThatAStatementWasAdded) {
  ChooseCustNo();
  Click("cmdAddSelect");
  for (const int number : {1, 2, 3, 4, 5, 6, 7})
    host().ClearAll(number);
  Tab(2);
  Click("cmdAddSelectDoQuer");
  EXPECT_EQ(Result(), kSelectCustNo);
}

TEST_F(ClearAllTest, TheStatementsBehindTheResultAreKept) {
  for (const int number : {0, 1, 2, 3, 4, 5, 6, 7}) {
    MakeNew();
    Catalogue("CUSTOMER0", Field("NCUSTOMER.CUST_NO"));
    ChooseCustNo();
    Click("cmdAddSelect");
    host().ClearAll(number);
    if (number == 0) ChooseCustNo();
    Click("cmdAddSelect");
    EXPECT_EQ(Result(), kSelectCustNo + "\r\n" + kSelectCustNo) << number;
  }
}

TEST_F(ClearAllTest, PageZeroLeavesTheBoxesOfTheOtherPagesAndTheFunctions) {
  FillEveryBox();
  Click("lstFunctions", 2);
  host().ClearAll(0);
  for (const std::string_view box :
       {"txtAsSet", "txtwhereCondition", "txtCondition", "txtSelectDo", "txtSelectEOS",
        "txtselectempty", "txtSelectError", "txtCond", "cboWhereFields1"}) {
    EXPECT_EQ(Text(box), "x") << box;
  }
  EXPECT_EQ(Rows("lstFunctions").size(), 6U);
  EXPECT_EQ(MarkedRows("lstFunctions"), RowNumbers{2});
}

TEST_F(ClearAllTest, PageZeroFailsHalfDoneWhereATableHasNoEntry) {
  host().PrpStrTables(u"CUSTOMER1");  // adds a third row behind an array of one
  Log();
  Type("TxtOutput", "x");
  Written(host()).cmdAddSelect.Enabled(false);
  ExpectError(ErrorKind::kSubscript, [this] { host().ClearAll(0); });
  EXPECT_TRUE(Enabled("cmdAddSelect"));
  EXPECT_EQ(ListIndex("lsttables"), 2);
  EXPECT_EQ(Result(), "x");
}

// Page 1.

TEST_F(ClearAllTest, PageOneTakesTheOrderMarksAndLeavesTheRows) {
  ChooseCustNo();  // the order lists hold the index row and the field
  Tab(1);
  Mark("lstorderbyasc", 0);
  Mark("lstorderbydesc", 1);
  host().ClearAll(1);
  for (const std::string_view list : {"lstorderbyasc", "lstorderbydesc"}) {
    EXPECT_EQ(MarkedRows(list), RowNumbers{}) << list;
    EXPECT_EQ(Rows(list), (Texts{"CUSTOMER._index1", "CUSTOMER.CUST_NO"})) << list;
  }
}

TEST_F(ClearAllTest, PageOneEmptiesItsBoxes) {
  FillEveryBox();
  host().ClearAll(1);
  for (const std::string_view box : {"txtAsSet", "txtwhereCondition", "txtCondition"})
    EXPECT_EQ(Text(box), "") << box;
}

TEST_F(ClearAllTest, PageOneLeavesTheOtherPagesAndTheSelectedFields) {
  ChooseCustNo();
  FillEveryBox();
  host().ClearAll(1);
  EXPECT_EQ(Rows("lstSelectedFields"), Texts{"CUSTOMER.CUST_NO"});
  EXPECT_EQ(MarkedRows("lsttables"), RowNumbers{0});
  for (const std::string_view box : {"txtSelectDo", "txtSelectEOS", "txtselectempty",
                                     "txtSelectError", "cboWhereFields1", "txtCond"}) {
    EXPECT_EQ(Text(box), "x") << box;
  }
}

TEST_F(ClearAllTest, PageOneCountsTheAscendingRowsForTheDescendingListToo) {
  Surface& form = Written(host());
  form.lstorderbyasc.AddItem(u"a");
  form.lstorderbydesc.AddItem(u"a");
  form.lstorderbydesc.AddItem(u"b");
  form.lstorderbydesc.Selected(0, true);
  form.lstorderbydesc.Selected(1, true);
  host().ClearAll(1);
  EXPECT_EQ(MarkedRows("lstorderbydesc"), RowNumbers{1});
}

TEST_F(ClearAllTest, PageOneFailsWhereTheDescendingListIsTheShorterAndHasAMark) {
  Surface& form = Written(host());
  form.lstorderbyasc.AddItem(u"a");
  form.lstorderbyasc.AddItem(u"b");
  form.lstorderbydesc.AddItem(u"a");
  form.lstorderbydesc.Selected(0, true);
  form.txtAsSet.Text(u"1");
  ExpectError(ErrorKind::kIndex, [this] { host().ClearAll(1); });
  EXPECT_EQ(Text("txtAsSet"), "1");
}

TEST_F(ClearAllTest, PageOneDoesNotLookAtAListWithoutMarks) {
  Surface& form = Written(host());
  form.lstorderbyasc.AddItem(u"a");
  form.lstorderbyasc.AddItem(u"b");
  form.lstorderbydesc.AddItem(u"a");
  host().ClearAll(1);
  EXPECT_EQ(Rows("lstorderbyasc").size(), 2U);
}

// Pages 2 to 5.

TEST_F(ClearAllTest, PagesTwoToFiveEmptyTheirBoxAndTheResultOnly) {
  for (int page = 2; page <= 5; ++page) {
    FillEveryBox();
    const TouchedControls touched(host());
    host().ClearAll(page);
    const std::string box(PageBoxes().at(static_cast<std::size_t>(page) - 2)->name());
    EXPECT_EQ(Text(box), "");
    EXPECT_EQ(touched.names, (std::set<std::string>{box, "TxtOutput"})) << "page " << page;
  }
}

TEST_F(ClearAllTest, ThePersistedPartsAndThePageCodeSurvive) {
  host().prpSelectWherePart(u"a");
  host().prpSelectDoPart(u"b");
  Tab(3);
  Click("cmdFunction(1)");
  Log();
  MemoryBag before;
  host().UserControl_WriteProperties(before);
  for (const int number : {0, 1, 2, 3, 4, 5, 6, 7})
    host().ClearAll(number);
  MemoryBag behind;
  host().UserControl_WriteProperties(behind);
  EXPECT_EQ(behind.values, before.values);
  EXPECT_EQ(host().prpStrSQLPart(), u"E");
}

TEST_F(ClearAllTest, TheActiveBoxAndTheDepthSurvive) {
  Tab(6);
  Written(host()).fraif.Visible(true);
  Focus("txtStmt1");
  host().prpintTabcount(2);
  for (const int number : {0, 1, 2, 3, 4, 5, 6, 7})
    host().ClearAll(number);
  host().prpStroutput(u"x");
  EXPECT_EQ(Text("txtStmt1"), "x");
  EXPECT_EQ(host().prpintTabcount(), 2);
}

TEST_F(ClearAllTest, TellsTheHostNothing) {
  ChooseCustNo();
  for (const int number : {0, 1, 2, 3, 4, 5, 6, 7})
    host().ClearAll(number);
  EXPECT_EQ(Log(), Texts{});
}

}  // namespace
}  // namespace zolt20::tests
