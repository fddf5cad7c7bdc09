// The select list: plain fields, whole tables and function expressions, how they come and go, and
// how the other lists follow.
#include <algorithm>
#include <map>

#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

using Lists = std::map<std::string, Texts>;

const char* const kNoTable = "Tables Not Selected --Select A Table To Proceed Further";
const char* const kNoField = "Fields Not Selected --Select A Field To Proceed Further";
const char* const kNotAllowed =
    "Selection Not Allowed --Select A Different Field To Proceed Further";
const char* const kTwoBlanks =
    "Field Already  Selected --Select A Different Field To Proceed Further";
const char* const kOneBlank =
    "Field Already Selected --Select A Different Field To Proceed Further";

// Two tables, both marked: CUSTOMER with one index, CUST_NO and NAME, and ORDERITM with QTY.
class SelectedFieldsTest : public ControlTest {
 protected:
  void SetUp() override {
    Use("CUSTOMER1,ORDERITM0", {"CUSTOMER.CUST_NO", "CUSTOMER.NAME", "ORDERITM.QTY"});
  }

  /// A new control with this catalogue, all its tables marked.
  void Use(std::string_view tables, const Texts& fields) {
    MakeNew();
    Texts records;
    for (const std::string& field : fields)
      records.push_back(Field("N" + field));
    Catalogue(tables, List(records));
    for (int row = 0; row < static_cast<int>(Rows("lsttables").size()); ++row)
      Mark("lsttables", row);
  }

  void MarkRow(std::string_view list, std::string_view text) {
    const Texts rows = Rows(list);
    Mark(list, static_cast<int>(std::find(rows.begin(), rows.end(), text) - rows.begin()));
  }

  /// ">" with the field marked, a plain one or a whole table.
  void Add(std::string_view field) {
    MarkRow("lstFields", field);
    Click("cmdMoveOne");
  }

  /// ">" with the function and the field marked.
  void Add(std::string_view function, std::string_view field) {
    MarkRow("lstFunctions", function);
    Add(field);
  }

  /// ">" with the first function marked and no field.
  void AddCountOfRows() {
    Mark("lstFunctions", 0);
    Click("cmdMoveOne");
  }

  Texts Selected() { return Rows("lstSelectedFields"); }

  /// The rows of the order lists, which are the same in both.
  Texts Order() {
    EXPECT_EQ(Rows("lstorderbyasc"), Rows("lstorderbydesc"));
    return Rows("lstorderbyasc");
  }

  /// Whether the order lists are enabled, which is the same for both.
  bool OrderEnabled() {
    EXPECT_EQ(Enabled("lstorderbyasc"), Enabled("lstorderbydesc"));
    return Enabled("lstorderbyasc");
  }

  /// All the lists that follow the select list or might, and the select list.
  Lists AllLists() {
    Lists lists;
    for (const char* name : {"lstSelectedFields", "lstorderbyasc", "lstorderbydesc", "lstGroupby",
                             "cboWhereFields", "cboWhereFields1", "lstFields", "lstFunctions"}) {
      lists[name] = Rows(name);
    }
    return lists;
  }

  void ExpectNoCatalogueMarks() {
    EXPECT_EQ(ListIndex("lstFunctions"), -1);
    EXPECT_EQ(MarkedRows("lstFunctions"), RowNumbers{});
    EXPECT_EQ(ListIndex("lstFields"), -1);
    EXPECT_EQ(MarkedRows("lstFields"), RowNumbers{});
  }
};

// ">" with something missing.

TEST_F(SelectedFieldsTest, WithoutAMarkedTableMoveOneAsksForOne) {
  MakeNew();
  Catalogue("CUSTOMER1", Field("NCUSTOMER.CUST_NO"));
  Mark("lstFunctions", 0);
  Click("cmdMoveOne");
  EXPECT_EQ(Log(), Texts{ErrorMessage(kNoTable)});
  EXPECT_EQ(Focused(), "lsttables");
  ExpectNoCatalogueMarks();
  EXPECT_EQ(Selected(), Texts{});
}

TEST_F(SelectedFieldsTest, WithoutAMarkedTableTheMarkOfAFieldStays) {
  // A row of tables that the list of the host no longer has is unmarked without effect.
  host().PrpStrTables(u"");
  for (const int row : {0, 1})
    ExpectError(ErrorKind::kSubscript, [this, row] { Click("lsttables", row); });
  Add("sum", "CUSTOMER.NAME");
  EXPECT_EQ(Log(), (Texts{"changed PrpStrTables", ErrorMessage(kNoTable)}));
  EXPECT_EQ(MarkedRows("lstFunctions"), RowNumbers{});
  EXPECT_EQ(MarkedRows("lstFields"), RowNumbers{2});
  EXPECT_EQ(ListIndex("lstFields"), 2);
}

TEST_F(SelectedFieldsTest, WithoutAMarkedFieldMoveOneAsksForOne) {
  Click("cmdMoveOne");
  EXPECT_EQ(Log(), Texts{ErrorMessage(kNoField)});
  EXPECT_EQ(Focused(), "lstFields");
  ExpectNoCatalogueMarks();
  EXPECT_EQ(Selected(), Texts{});
}

TEST_F(SelectedFieldsTest, AFunctionWordWithoutAFieldIsTakenBackWithTheMessage) {
  MarkRow("lstFunctions", "sum");
  Click("cmdMoveOne");
  EXPECT_EQ(Log(), Texts{ErrorMessage(kNoField)});
  EXPECT_EQ(Focused(), "lstFields");
  ExpectNoCatalogueMarks();
  EXPECT_EQ(Selected(), Texts{});
  EXPECT_TRUE(OrderEnabled());
}

// Plain fields.

TEST_F(SelectedFieldsTest, APlainFieldJoinsTheSelectListTheOrderListsAndTheWhereCombosAgain) {
  Lists lists = AllLists();
  Add("CUSTOMER.NAME");
  lists["lstSelectedFields"] = {"CUSTOMER.NAME"};
  lists["lstorderbyasc"] = lists["lstorderbydesc"] = {"CUSTOMER._index1", "CUSTOMER.NAME"};
  lists["cboWhereFields"] = {"CUSTOMER._index1", "CUSTOMER.CUST_NO", "CUSTOMER.NAME",
                             "ORDERITM.QTY", "CUSTOMER.NAME"};
  lists["cboWhereFields1"] = {"CUSTOMER.CUST_NO", "CUSTOMER.NAME", "ORDERITM.QTY", "CUSTOMER.NAME"};
  EXPECT_EQ(AllLists(), lists);
  ExpectNoCatalogueMarks();
  EXPECT_TRUE(OrderEnabled());
}

TEST_F(SelectedFieldsTest, TheSelectListIsSortedAndTheOrderListsAreNot) {
  Add("ORDERITM.QTY");
  Add("CUSTOMER.NAME");
  Add("CUSTOMER.CUST_NO");
  EXPECT_EQ(Selected(), (Texts{"CUSTOMER.CUST_NO", "CUSTOMER.NAME", "ORDERITM.QTY"}));
  EXPECT_EQ(Order(),
            (Texts{"CUSTOMER._index1", "ORDERITM.QTY", "CUSTOMER.NAME", "CUSTOMER.CUST_NO"}));
}

TEST_F(SelectedFieldsTest, TheSameFieldTwiceGetsTheMessageWithTwoBlanksAndLosesItsMark) {
  Add("CUSTOMER.NAME");
  const Lists lists = AllLists();
  Add("CUSTOMER.NAME");
  EXPECT_EQ(Log(), Texts{ErrorMessage(kTwoBlanks)});
  EXPECT_EQ(AllLists(), lists);
  ExpectNoCatalogueMarks();
}

TEST_F(SelectedFieldsTest, FieldsThatDifferInLetterCaseAreTwo) {
  Use("CUSTOMER0", {"CUSTOMER.name", "CUSTOMER.NAME"});
  Add("CUSTOMER.name");
  Add("CUSTOMER.NAME");
  EXPECT_EQ(Selected(), (Texts{"CUSTOMER.NAME", "CUSTOMER.name"}));
}

TEST_F(SelectedFieldsTest, GroupByAndWhereOfferEveryFieldWhateverWasChosen) {
  const Texts fields{"CUSTOMER.CUST_NO", "CUSTOMER.NAME", "ORDERITM.QTY"};
  Add("CUSTOMER.*");
  EXPECT_EQ(Rows("lstGroupby"), fields);
  EXPECT_EQ(Rows("cboWhereFields1"), fields);
  Add("sum", "ORDERITM.QTY");
  Click("cmdRemoveAll");
  EXPECT_EQ(Rows("lstGroupby"), fields);
  EXPECT_EQ(Rows("cboWhereFields1"), fields);
}

// Whole tables.

TEST_F(SelectedFieldsTest, AWholeTableBringsItsFieldsIntoTheOrderListsAndKeepsTheMarks) {
  Lists lists = AllLists();
  Add("CUSTOMER.*");
  lists["lstSelectedFields"] = {"CUSTOMER.*"};
  lists["lstorderbyasc"] =
      lists["lstorderbydesc"] = {"CUSTOMER._index1", "CUSTOMER.CUST_NO", "CUSTOMER.NAME"};
  EXPECT_EQ(AllLists(), lists);
  EXPECT_EQ(MarkedRows("lstFields"), RowNumbers{0});
  EXPECT_EQ(ListIndex("lstFields"), 0);
}

TEST_F(SelectedFieldsTest, AWholeTableTakesThePlaceOfItsFieldsAndTheirOrderRowsStay) {
  Add("CUSTOMER.NAME");
  Add("ORDERITM.QTY");
  Add("CUSTOMER.*");
  EXPECT_EQ(Selected(), (Texts{"CUSTOMER.*", "ORDERITM.QTY"}));
  EXPECT_EQ(Order(), (Texts{"CUSTOMER._index1", "CUSTOMER.NAME", "ORDERITM.QTY", "CUSTOMER.CUST_NO",
                            "CUSTOMER.NAME"}));
}

TEST_F(SelectedFieldsTest, AWholeTableLeavesAFieldThatHoldsItsNameFurtherIn) {
  Use("CUSTOMER0,ORDERITM0", {"CUSTOMER.A", "ORDERITM.CUSTOMER_NO"});
  Add("ORDERITM.CUSTOMER_NO");
  Add("CUSTOMER.*");
  EXPECT_EQ(Selected(), (Texts{"CUSTOMER.*", "ORDERITM.CUSTOMER_NO"}));
  EXPECT_EQ(Order(), (Texts{"ORDERITM.CUSTOMER_NO", "CUSTOMER.A"}));
}

TEST_F(SelectedFieldsTest, AWholeTableLeavesTheFieldsOfATableInOtherLetterCase) {
  Use("CUSTOMER0,customer0", {"CUSTOMER.A", "customer.B"});
  Add("customer.B");
  Add("CUSTOMER.*");
  EXPECT_EQ(Selected(), (Texts{"CUSTOMER.*", "customer.B"}));
  EXPECT_EQ(Order(), (Texts{"customer.B", "CUSTOMER.A"}));
}

TEST_F(SelectedFieldsTest, AFieldOfAWholeTableGetsTheMessageWithOneBlankAndKeepsItsMark) {
  Add("CUSTOMER.*");
  const Lists lists = AllLists();
  Add("CUSTOMER.NAME");
  EXPECT_EQ(Log(), Texts{ErrorMessage(kOneBlank)});
  EXPECT_EQ(AllLists(), lists);
  EXPECT_EQ(MarkedRows("lstFields"), RowNumbers{2});
  EXPECT_EQ(ListIndex("lstFields"), 2);
}

TEST_F(SelectedFieldsTest, AFieldOfAnotherTableGoesBesideAWholeTable) {
  Add("CUSTOMER.*");
  Add("ORDERITM.QTY");
  EXPECT_EQ(Selected(), (Texts{"CUSTOMER.*", "ORDERITM.QTY"}));
}

TEST_F(SelectedFieldsTest, AWholeTableTwiceGetsTheMessageWithTwoBlanksAndLosesItsMark) {
  Add("CUSTOMER.*");
  const Lists lists = AllLists();
  Add("CUSTOMER.*");
  EXPECT_EQ(Log(), Texts{ErrorMessage(kTwoBlanks)});
  EXPECT_EQ(AllLists(), lists);
  ExpectNoCatalogueMarks();
}

TEST_F(SelectedFieldsTest, AFieldWithAStarInItsNameCountsAsAWholeTable) {
  Use("CUSTOMER0", {"CUSTOMER.A", "CUSTOMER.B*C"});
  Add("CUSTOMER.A");
  Add("CUSTOMER.B*C");
  EXPECT_EQ(Selected(), Texts{"CUSTOMER.B*C"});
  EXPECT_EQ(Order(), (Texts{"CUSTOMER.A", "CUSTOMER.A", "CUSTOMER.B*C"}));
  EXPECT_EQ(MarkedRows("lstFields"), RowNumbers{2});
}

TEST_F(SelectedFieldsTest, ABrokenRecordStopsAWholeTableBehindWhatWasAdded) {
  MakeNew();
  Catalogue("CUSTOMER0", List({Field("NCUSTOMER.A"), "broken", Field("NCUSTOMER.B")}));
  ExpectError(ErrorKind::kSubscript, [this] { Mark("lsttables", 0); });
  ExpectError(ErrorKind::kSubscript, [this] { Add("CUSTOMER.*"); });
  EXPECT_EQ(Selected(), Texts{"CUSTOMER.*"});
  EXPECT_EQ(Order(), Texts{"CUSTOMER.A"});
}

TEST_F(SelectedFieldsTest, ABrokenRecordIsNoMatterToAPlainFieldOrAFunction) {
  host().PrpStrFields(u"broken");
  Add("CUSTOMER.NAME");
  Add("sum", "CUSTOMER.*");
  EXPECT_EQ(Selected(), Texts{"sum ( CUSTOMER.* ) "});
  EXPECT_EQ(Log(), Texts{"changed PrpStrFields"});
}

TEST_F(SelectedFieldsTest, AWholeTableFailsWhenTheFieldListWasNeverWritten) {
  MemoryBag bag;
  bag.values["mPrpStrFields"] = Field("NCUSTOMER.A");
  MakeStored(bag);
  host().PrpStrTables(u"CUSTOMER0");
  ExpectError(ErrorKind::kSubscript, [this] { Mark("lsttables", 0); });
  ExpectError(ErrorKind::kSubscript, [this] { Add("CUSTOMER.*"); });
  EXPECT_EQ(Selected(), Texts{"CUSTOMER.*"});
  EXPECT_EQ(Order(), Texts{});
  EXPECT_EQ(Log(), Texts{"changed PrpStrTables"});
}

// Function expressions.

class FunctionWordTest : public SelectedFieldsTest,
                         public ::testing::WithParamInterface<const char*> {};

TEST_P(FunctionWordTest, WithAFieldGivesAnExpressionAndDisablesTheOrderLists) {
  Add(GetParam(), "CUSTOMER.NAME");
  EXPECT_EQ(Selected(), Texts{std::string(GetParam()) + " ( CUSTOMER.NAME ) "});
  EXPECT_FALSE(OrderEnabled());
  ExpectNoCatalogueMarks();
}

INSTANTIATE_TEST_SUITE_P(Words, FunctionWordTest,
                         ::testing::Values("count", "sum", "avg", "max", "min"));

TEST_F(SelectedFieldsTest, AFunctionChangesNoOtherListThanTheSelectList) {
  Lists lists = AllLists();
  Add("sum", "ORDERITM.QTY");
  lists["lstSelectedFields"] = {"sum ( ORDERITM.QTY ) "};
  EXPECT_EQ(AllLists(), lists);
}

TEST_F(SelectedFieldsTest, TheFirstFunctionNeedsNoFieldAndIgnoresAMarkedOne) {
  Mark("lstFields", 1);
  AddCountOfRows();
  EXPECT_EQ(Selected(), Texts{"count ( * ) "});
  EXPECT_FALSE(OrderEnabled());
  ExpectNoCatalogueMarks();
}

TEST_F(SelectedFieldsTest, TheCountOfRowsCanBeAddedOnce) {
  AddCountOfRows();
  Mark("lstFields", 1);
  AddCountOfRows();
  EXPECT_EQ(Log(), Texts{ErrorMessage(kTwoBlanks)});
  EXPECT_EQ(Selected(), Texts{"count ( * ) "});
  ExpectNoCatalogueMarks();
}

TEST_F(SelectedFieldsTest, AFunctionTakesAWholeTableToo) {
  Add("sum", "CUSTOMER.*");
  EXPECT_EQ(Selected(), Texts{"sum ( CUSTOMER.* ) "});
  EXPECT_EQ(Order(), Texts{"CUSTOMER._index1"});
}

TEST_F(SelectedFieldsTest, TwoFunctionsOfOneFieldAreTwoEntries) {
  Add("sum", "ORDERITM.QTY");
  Add("avg", "ORDERITM.QTY");
  EXPECT_EQ(Selected(), (Texts{"avg ( ORDERITM.QTY ) ", "sum ( ORDERITM.QTY ) "}));
}

TEST_F(SelectedFieldsTest, TheSameFunctionTwiceGetsTheMessageWithTwoBlanksAndLosesBothMarks) {
  Add("sum", "ORDERITM.QTY");
  const Lists lists = AllLists();
  Add("sum", "ORDERITM.QTY");
  EXPECT_EQ(Log(), Texts{ErrorMessage(kTwoBlanks)});
  EXPECT_EQ(AllLists(), lists);
  ExpectNoCatalogueMarks();
}

TEST_F(SelectedFieldsTest, AFunctionDrivesOutPlainFieldsAndWholeTablesAndTheOthersKeepTheirRows) {
  Add("CUSTOMER.NAME");
  Add("ORDERITM.*");
  Tab(1);
  Mark("lstorderbyasc", 1);
  Mark("lstorderbydesc", 2);
  Tab(0);
  Lists lists = AllLists();
  Add("max", "CUSTOMER.NAME");
  lists["lstSelectedFields"] = {"max ( CUSTOMER.NAME ) "};
  EXPECT_EQ(AllLists(), lists);
  EXPECT_EQ(Order(), (Texts{"CUSTOMER._index1", "CUSTOMER.NAME", "ORDERITM.QTY"}));
  EXPECT_EQ(MarkedRows("lstorderbyasc"), RowNumbers{});
  EXPECT_EQ(MarkedRows("lstorderbydesc"), RowNumbers{});
  EXPECT_FALSE(OrderEnabled());
}

TEST_F(SelectedFieldsTest, InFunctionModeAPlainFieldIsRefusedAndKeepsItsMark) {
  AddCountOfRows();
  const Lists lists = AllLists();
  Add("CUSTOMER.NAME");
  EXPECT_EQ(Log(), Texts{ErrorMessage(kNotAllowed)});
  EXPECT_EQ(AllLists(), lists);
  EXPECT_EQ(MarkedRows("lstFields"), RowNumbers{2});
}

TEST_F(SelectedFieldsTest, InFunctionModeAWholeTableIsRefusedAndKeepsItsMark) {
  AddCountOfRows();
  const Lists lists = AllLists();
  Add("CUSTOMER.*");
  EXPECT_EQ(Log(), Texts{ErrorMessage(kNotAllowed)});
  EXPECT_EQ(AllLists(), lists);
  EXPECT_EQ(MarkedRows("lstFields"), RowNumbers{0});
}

TEST_F(SelectedFieldsTest, ADuplicateFunctionDrivesOutThePlainRowsBehindItAndNoneBefore) {
  Use("CUSTOMER0,zebratab0", {"CUSTOMER.A", "zebratab.A"});
  Add("sum", "CUSTOMER.A");
  host().ClearAll(7);  // ends the mode and leaves the list
  Add("CUSTOMER.A");
  Add("zebratab.A");
  ASSERT_EQ(Selected(), (Texts{"CUSTOMER.A", "sum ( CUSTOMER.A ) ", "zebratab.A"}));
  Add("sum", "CUSTOMER.A");
  EXPECT_EQ(Log(), Texts{ErrorMessage(kTwoBlanks)});
  EXPECT_EQ(Selected(), (Texts{"CUSTOMER.A", "sum ( CUSTOMER.A ) "}));
  ExpectNoCatalogueMarks();
  Add("zebratab.A");
  EXPECT_EQ(Log(), Texts{ErrorMessage(kNotAllowed)});
}

// Tables whose names start like a function.

class FunctionLikeTableTest : public SelectedFieldsTest,
                              public ::testing::WithParamInterface<const char*> {};

TEST_P(FunctionLikeTableTest, IsRefusedAndTurnsTheModeOn) {
  const std::string table = GetParam();
  Use(table + "0,CUSTOMER0", {table + ".A", "CUSTOMER.A"});
  Add("CUSTOMER.A");
  const Lists lists = AllLists();
  Add(table + ".A");
  EXPECT_EQ(Log(), Texts{ErrorMessage(kNotAllowed)});
  EXPECT_EQ(MarkedRows("lstFields"), RowNumbers{1});
  Add("CUSTOMER.*");
  EXPECT_EQ(Log(), Texts{ErrorMessage(kNotAllowed)});
  EXPECT_EQ(MarkedRows("lstFields"), RowNumbers{2});
  EXPECT_EQ(AllLists(), lists);
  EXPECT_TRUE(OrderEnabled());
}

INSTANTIATE_TEST_SUITE_P(Names, FunctionLikeTableTest,
                         ::testing::Values("sumtable", "avgtable", "mintable", "maxtable",
                                           "counters"));

TEST_F(SelectedFieldsTest, TheModeOfARefusedFieldEndsLikeAnyOther) {
  Use("sumtable0,CUSTOMER0", {"sumtable.A", "CUSTOMER.A"});
  Add("sumtable.A");
  Click("cmdRemoveOne");
  Add("CUSTOMER.A");
  EXPECT_EQ(Selected(), Texts{"CUSTOMER.A"});
  EXPECT_EQ(Log(), Texts{ErrorMessage(kNotAllowed)});
}

TEST_F(SelectedFieldsTest, TheWholeOfATableNamedLikeAFunctionIsRefusedTooAndItsFunctionIsNot) {
  Use("sumtable0", {"sumtable.A"});
  Add("sumtable.*");
  EXPECT_EQ(Log(), Texts{ErrorMessage(kNotAllowed)});
  Add("sum", "sumtable.A");
  EXPECT_EQ(Selected(), Texts{"sum ( sumtable.A ) "});
}

class PlainTableTest : public SelectedFieldsTest,
                       public ::testing::WithParamInterface<const char*> {};

TEST_P(PlainTableTest, IsNotTakenForAFunction) {
  const std::string table = GetParam();
  Use(table + "0", {table + ".sum"});
  Add(table + ".sum");
  EXPECT_EQ(Selected(), Texts{table + ".sum"});
  EXPECT_TRUE(OrderEnabled());
}

INSTANTIATE_TEST_SUITE_P(Names, PlainTableTest,
                         ::testing::Values("SUMTABLE", "Sumtable", "asumtabl", "counabcd",
                                           "mi_table", "COUNTERS"));

// ">>".

TEST_F(SelectedFieldsTest, MoveAllTakesTheMarkedTablesWholeAndAddsAllFieldsFromTheLast) {
  Lists lists = AllLists();
  Mark("lstFunctions", 2);
  Mark("lstFields", 1);
  Click("cmdMoveAll");
  lists["lstSelectedFields"] = {"CUSTOMER.*", "ORDERITM.*"};
  lists["lstorderbyasc"] = lists["lstorderbydesc"] = {"CUSTOMER._index1", "ORDERITM.QTY",
                                                      "CUSTOMER.NAME", "CUSTOMER.CUST_NO"};
  EXPECT_EQ(AllLists(), lists);
  ExpectNoCatalogueMarks();
}

TEST_F(SelectedFieldsTest, MoveAllWalksTheTablesInTheirOrderNotInThatOfMarking) {
  Click("lsttables", 0);
  Click("lsttables", 0);
  ASSERT_EQ(Rows("lstFields"), (Texts{"ORDERITM.*", "ORDERITM.QTY", "CUSTOMER.*",
                                      "CUSTOMER.CUST_NO", "CUSTOMER.NAME"}));
  Click("cmdMoveAll");
  EXPECT_EQ(Order(),
            (Texts{"CUSTOMER._index1", "ORDERITM.QTY", "CUSTOMER.NAME", "CUSTOMER.CUST_NO"}));
}

TEST_F(SelectedFieldsTest, MoveAllLeavesUnmarkedTablesOut) {
  Click("lsttables", 0);
  Click("cmdMoveAll");
  EXPECT_EQ(Selected(), Texts{"ORDERITM.*"});
  EXPECT_EQ(Order(), Texts{"ORDERITM.QTY"});
}

TEST_F(SelectedFieldsTest, MoveAllReplacesTheSelectListAndAddsToTheOrderLists) {
  Add("CUSTOMER.NAME");
  const Texts operands = Rows("cboWhereFields");
  const Texts values = Rows("cboWhereFields1");
  Click("cmdMoveAll");
  EXPECT_EQ(Selected(), (Texts{"CUSTOMER.*", "ORDERITM.*"}));
  EXPECT_EQ(Order(), (Texts{"CUSTOMER._index1", "CUSTOMER.NAME", "ORDERITM.QTY", "CUSTOMER.NAME",
                            "CUSTOMER.CUST_NO"}));
  EXPECT_EQ(Rows("cboWhereFields"), operands);
  EXPECT_EQ(Rows("cboWhereFields1"), values);
}

TEST_F(SelectedFieldsTest, MoveAllTwiceListsEachWholeTableOnceAndEveryOrderRowTwice) {
  Click("cmdMoveAll");
  Click("cmdMoveAll");
  EXPECT_EQ(Selected(), (Texts{"CUSTOMER.*", "ORDERITM.*"}));
  EXPECT_EQ(Order(), (Texts{"CUSTOMER._index1", "ORDERITM.QTY", "CUSTOMER.NAME", "CUSTOMER.CUST_NO",
                            "ORDERITM.QTY", "CUSTOMER.NAME", "CUSTOMER.CUST_NO"}));
}

TEST_F(SelectedFieldsTest, MoveAllInFunctionModeDoesNothingAtAll) {
  AddCountOfRows();
  Mark("lstFunctions", 2);
  Mark("lstFields", 1);
  const Lists lists = AllLists();
  Click("cmdMoveAll");
  EXPECT_EQ(AllLists(), lists);
  EXPECT_EQ(MarkedRows("lstFunctions"), RowNumbers{2});
  EXPECT_EQ(MarkedRows("lstFields"), RowNumbers{1});
  EXPECT_FALSE(OrderEnabled());
}

TEST_F(SelectedFieldsTest, MoveAllWithoutAMarkedTableOnlyForgetsTheMarks) {
  AddCountOfRows();
  host().ClearAll(7);  // ends the mode and leaves the list
  Click("lsttables", 0);
  Click("lsttables", 1);
  Mark("lstFunctions", 2);
  const Lists lists = AllLists();
  Click("cmdMoveAll");
  EXPECT_EQ(AllLists(), lists);
  EXPECT_EQ(Selected(), Texts{"count ( * ) "});
  ExpectNoCatalogueMarks();
}

TEST_F(SelectedFieldsTest, MoveAllTakesATableThatIsNotValidAsWell) {
  MakeNew();
  Catalogue("CUSTOMERx,ORDERITM0", List({Field("NCUSTOMER.A"), Field("NORDERITM.QTY")}));
  Mark("lsttables", 0);
  Mark("lsttables", 1);
  EXPECT_EQ(Log(), Texts{ErrorMessage("Not a Valid Table")});
  Click("cmdMoveAll");
  EXPECT_EQ(Selected(), (Texts{"CUSTOMER.*", "ORDERITM.*"}));
  EXPECT_EQ(Order(), Texts{"ORDERITM.QTY"});
}

TEST_F(SelectedFieldsTest, MoveAllAddsNoFieldWithAStarInItsName) {
  Use("CUSTOMER0", {"CUSTOMER.A", "CUSTOMER.B*C"});
  Click("cmdMoveAll");
  EXPECT_EQ(Order(), Texts{"CUSTOMER.A"});
}

TEST_F(SelectedFieldsTest, MoveAllAddsTheFieldsOnceForEachRowOfTheirTable) {
  Use("CUSTOMER0,CUSTOMER0", {"CUSTOMER.A"});
  Click("lsttables", 1);
  Click("lsttables", 1);
  ASSERT_EQ(Rows("lstFields"), (Texts{"CUSTOMER.*", "CUSTOMER.A"}));
  Click("cmdMoveAll");
  EXPECT_EQ(Selected(), (Texts{"CUSTOMER.*", "CUSTOMER.*"}));
  EXPECT_EQ(Order(), (Texts{"CUSTOMER.A", "CUSTOMER.A"}));
}

// "<".

TEST_F(SelectedFieldsTest, RemoveOneTakesTheLastMarkedEntryAndItsOrderRow) {
  Add("CUSTOMER.CUST_NO");
  Add("CUSTOMER.NAME");
  Add("ORDERITM.QTY");
  Mark("lstSelectedFields", 1);
  Mark("lstSelectedFields", 0);
  Lists lists = AllLists();
  Click("cmdRemoveOne");
  lists["lstSelectedFields"] = {"CUSTOMER.CUST_NO", "ORDERITM.QTY"};
  lists["lstorderbyasc"] =
      lists["lstorderbydesc"] = {"CUSTOMER._index1", "CUSTOMER.CUST_NO", "ORDERITM.QTY"};
  EXPECT_EQ(AllLists(), lists);
  EXPECT_EQ(MarkedRows("lstSelectedFields"), RowNumbers{0});
}

TEST_F(SelectedFieldsTest, RemoveOneForgetsTheMarksOfTheCatalogue) {
  Add("CUSTOMER.NAME");
  Mark("lstSelectedFields", 0);
  Mark("lstFunctions", 2);
  Mark("lstFields", 1);
  Click("cmdRemoveOne");
  ExpectNoCatalogueMarks();
}

TEST_F(SelectedFieldsTest, RemoveOneTakesTheLastOfSeveralEqualOrderRows) {
  Add("CUSTOMER.NAME");
  Add("ORDERITM.QTY");
  AddCountOfRows();
  Mark("lstSelectedFields", 0);
  Click("cmdRemoveOne");
  Add("CUSTOMER.NAME");
  ASSERT_EQ(Order(), (Texts{"CUSTOMER._index1", "CUSTOMER.NAME", "ORDERITM.QTY", "CUSTOMER.NAME"}));
  Mark("lstSelectedFields", 0);
  Click("cmdRemoveOne");
  EXPECT_EQ(Order(), (Texts{"CUSTOMER._index1", "CUSTOMER.NAME", "ORDERITM.QTY"}));
}

TEST_F(SelectedFieldsTest, RemoveOneFindsItsOrderRowWithoutLetterCase) {
  Use("CUSTOMER0", {"CUSTOMER.name", "CUSTOMER.NAME"});
  Add("CUSTOMER.name");
  Add("CUSTOMER.NAME");
  Mark("lstSelectedFields", 1);
  Click("cmdRemoveOne");
  EXPECT_EQ(Selected(), Texts{"CUSTOMER.NAME"});
  EXPECT_EQ(Order(), Texts{"CUSTOMER.name"});
}

TEST_F(SelectedFieldsTest, RemoveOneOfAWholeTableTakesItsFieldsAndKeepsWhatHoldsIndex) {
  Use("CUSTOMER1,ORDERITM0",
      {"CUSTOMER.A", "CUSTOMER.reindex", "CUSTOMER.INDEX", "ORDERITM.QTY", "CUSTOMER.my_index"});
  Add("CUSTOMER.*");
  Add("ORDERITM.QTY");
  Mark("lstSelectedFields", 0);
  Click("cmdRemoveOne");
  EXPECT_EQ(Selected(), Texts{"ORDERITM.QTY"});
  EXPECT_EQ(Order(),
            (Texts{"CUSTOMER._index1", "CUSTOMER.reindex", "CUSTOMER.my_index", "ORDERITM.QTY"}));
}

TEST_F(SelectedFieldsTest, RemoveOneOfAWholeTableLeavesATableInOtherLetterCase) {
  Use("CUSTOMER0,customer0", {"CUSTOMER.A", "customer.B"});
  Click("cmdMoveAll");
  Mark("lstSelectedFields", 0);
  Click("cmdRemoveOne");
  EXPECT_EQ(Selected(), Texts{"customer.*"});
  EXPECT_EQ(Order(), Texts{"customer.B"});
}

TEST_F(SelectedFieldsTest, RemoveOneOfTheFunctionOfAWholeTableTakesNoOrderRow) {
  Add("CUSTOMER.*");
  Add("sum", "CUSTOMER.*");
  Mark("lstSelectedFields", 0);
  Click("cmdRemoveOne");
  EXPECT_EQ(Selected(), Texts{});
  EXPECT_EQ(Order(), (Texts{"CUSTOMER._index1", "CUSTOMER.CUST_NO", "CUSTOMER.NAME"}));
}

TEST_F(SelectedFieldsTest, RemoveOneOfTheLastFunctionEndsTheMode) {
  Add("sum", "ORDERITM.QTY");
  Mark("lstSelectedFields", 0);
  Click("cmdRemoveOne");
  EXPECT_TRUE(OrderEnabled());
  Add("ORDERITM.QTY");
  EXPECT_EQ(Selected(), Texts{"ORDERITM.QTY"});
}

TEST_F(SelectedFieldsTest, RemoveOneOfSeveralFunctionsKeepsTheMode) {
  Add("sum", "ORDERITM.QTY");
  Add("avg", "ORDERITM.QTY");
  Mark("lstSelectedFields", 0);
  Click("cmdRemoveOne");
  EXPECT_EQ(Selected(), Texts{"sum ( ORDERITM.QTY ) "});
  EXPECT_FALSE(OrderEnabled());
  Add("ORDERITM.QTY");
  EXPECT_EQ(Log(), Texts{ErrorMessage(kNotAllowed)});
}

TEST_F(SelectedFieldsTest, RemoveOneWithoutAMarkedEntryOnlyForgetsTheMarks) {
  Add("CUSTOMER.NAME");
  Mark("lstFields", 1);
  Mark("lstFunctions", 1);
  const Lists lists = AllLists();
  Click("cmdRemoveOne");
  EXPECT_EQ(AllLists(), lists);
  ExpectNoCatalogueMarks();
}

TEST_F(SelectedFieldsTest, RemoveOneWithoutAMarkedFunctionKeepsTheMode) {
  AddCountOfRows();
  Click("cmdRemoveOne");
  EXPECT_EQ(Selected(), Texts{"count ( * ) "});
  EXPECT_FALSE(OrderEnabled());
}

TEST_F(SelectedFieldsTest, RemoveOneFromAnEmptyListEndsTheMode) {
  Add("sum", "ORDERITM.QTY");
  Click("lsttables", 1);
  ASSERT_EQ(Selected(), Texts{});
  ASSERT_FALSE(OrderEnabled());
  Click("cmdRemoveOne");
  EXPECT_TRUE(OrderEnabled());
  Add("CUSTOMER.NAME");
  EXPECT_EQ(Selected(), Texts{"CUSTOMER.NAME"});
}

TEST_F(SelectedFieldsTest, RemoveOneOutsideTheModeEnablesTheOrderLists) {
  AddCountOfRows();
  host().ClearAll(7);  // ends the mode and leaves the order lists disabled
  ASSERT_FALSE(OrderEnabled());
  Click("cmdRemoveOne");
  EXPECT_EQ(Selected(), Texts{"count ( * ) "});
  EXPECT_TRUE(OrderEnabled());
}

TEST_F(SelectedFieldsTest, AnExpressionWithNothingBehindItsParenthesisIsNoPlainRow) {
  host().prpSelectPart(u"max ( ORDERITM.QTY ):var.max");
  EXPECT_EQ(Log(), Texts{"changed prpSelectPart"});
  Add("sum", "ORDERITM.QTY");
  EXPECT_EQ(Selected(), (Texts{"max ( ORDERITM.QTY )", "sum ( ORDERITM.QTY ) "}));
}

// "<<".

TEST_F(SelectedFieldsTest, RemoveAllEmptiesTheSelectListAndKeepsTheIndexRows) {
  Add("CUSTOMER.*");
  Add("ORDERITM.QTY");
  Mark("lstFunctions", 2);
  Mark("lstFields", 1);
  Lists lists = AllLists();
  Click("cmdRemoveAll");
  lists["lstSelectedFields"] = {};
  lists["lstorderbyasc"] = lists["lstorderbydesc"] = {"CUSTOMER._index1"};
  EXPECT_EQ(AllLists(), lists);
  ExpectNoCatalogueMarks();
}

TEST_F(SelectedFieldsTest, RemoveAllTellsIndexRowsByTheirUnderscore) {
  Use("CUSTOMER1", {"CUSTOMER.reindex", "CUSTOMER.my_index", "CUSTOMER.MY_INDEX"});
  Add("CUSTOMER.*");
  Click("cmdRemoveAll");
  EXPECT_EQ(Order(), (Texts{"CUSTOMER._index1", "CUSTOMER.my_index"}));
}

TEST_F(SelectedFieldsTest, RemoveAllEndsTheMode) {
  Add("sum", "ORDERITM.QTY");
  Add("avg", "ORDERITM.QTY");
  Click("cmdRemoveAll");
  EXPECT_EQ(Selected(), Texts{});
  EXPECT_TRUE(OrderEnabled());
  Add("ORDERITM.QTY");
  EXPECT_EQ(Selected(), Texts{"ORDERITM.QTY"});
}

TEST_F(SelectedFieldsTest, RemoveAllTakesAnOnlyEntryToo) {
  Add("sum", "ORDERITM.QTY");
  Click("cmdRemoveAll");
  EXPECT_EQ(Selected(), Texts{});
  Add("ORDERITM.QTY");
  EXPECT_EQ(Selected(), Texts{"ORDERITM.QTY"});
}

TEST_F(SelectedFieldsTest, RemoveAllFromAnEmptyListEnablesTheOrderListsAndKeepsTheMode) {
  Add("sum", "ORDERITM.QTY");
  Click("lsttables", 1);
  ASSERT_FALSE(OrderEnabled());
  Click("cmdRemoveAll");
  EXPECT_TRUE(OrderEnabled());
  Add("CUSTOMER.NAME");
  EXPECT_EQ(Log(), Texts{ErrorMessage(kNotAllowed)});
}

TEST_F(SelectedFieldsTest, RemoveAllWithNothingToDoOnlyForgetsTheMarks) {
  Mark("lstFields", 1);
  Mark("lstFunctions", 1);
  const Lists lists = AllLists();
  Click("cmdRemoveAll");
  EXPECT_EQ(AllLists(), lists);
  ExpectNoCatalogueMarks();
}

TEST_F(SelectedFieldsTest, ClearingAPageEndsTheMode) {
  Add("sum", "ORDERITM.QTY");
  host().ClearAll(7);
  Add("CUSTOMER.NAME");
  EXPECT_EQ(Selected(), (Texts{"CUSTOMER.NAME", "sum ( ORDERITM.QTY ) "}));
}

}  // namespace
}  // namespace zolt20::tests
