// The stored parts that a host hands back: how each is split and compared, what it marks, lists or
// fills, and when it reports.
#include <functional>
#include <map>
#include <random>
#include <stdexcept>
#include <utility>

#include "tests/support/silent.h"
#include "tests/support/written_form.h"

namespace zolt20::tests {
namespace {

const char* const kNotAllowed =
    "Selection Not Allowed --Select A Different Field To Proceed Further";
const char* const kTwoBlanks =
    "Field Already  Selected --Select A Different Field To Proceed Further";
const char* const kOneBlank =
    "Field Already Selected --Select A Different Field To Proceed Further";
const char* const kInvalid = "Not a Valid Table";

/// The records of these fields, none of them flagged.
std::string Records(const Texts& fields) {
  Texts records;
  for (const std::string& field : fields)
    records.push_back(Field("N" + field));
  return List(records);
}

// Two tables, none marked: CUSTOMER with one index, NO and NAME, and ORDERITM with QTY.
class ReloadingTest : public ControlTest {
 protected:
  void SetUp() override {
    Use("CUSTOMER1,ORDERITM0", {"CUSTOMER.NO", "CUSTOMER.NAME", "ORDERITM.QTY"});
  }

  /// A new control with this catalogue.
  void Use(std::string_view tables, const Texts& fields) {
    MakeNew();
    Catalogue(tables, Records(fields));
  }
  /// The same with CUSTOMER as its one table, marked.
  void UseMarked(const Texts& fields) {
    Use("CUSTOMER1", fields);
    Mark("lsttables", 0);
  }

  // The properties, each with the messages that may come and its one report.
  void Select(std::string_view value, const Texts& messages = {}) {
    host().prpSelectPart(Wide(value));
    Texts log = Messages(messages);
    log.insert(log.begin(), "changed prpSelectPart");
    EXPECT_EQ(Log(), log);
  }
  void From(std::string_view value, const Texts& messages = {}) {
    host().prpSelectFromPart(Wide(value));
    Texts log = Messages(messages);
    log.emplace_back("changed prpSelectFromPart");
    EXPECT_EQ(Log(), log);
  }
  void GroupBy(std::string_view value) {
    host().prpSelectGroupbyPart(Wide(value));
    EXPECT_EQ(Log(), Texts{"changed prpSelectGroupbyPart"});
  }
  void OrderBy(std::string_view value) {
    host().prpSelectOrderbyPart(Wide(value));
    EXPECT_EQ(Log(), Texts{"changed prpSelectOrderbyPart"});
  }
  void AsSet(std::string_view value) {
    host().prpSelectAsSetPart(Wide(value));
    EXPECT_EQ(Log(), Texts{"changed prpSelectAsSetPart"});
  }

  RowNumbers Tables() { return MarkedRows("lsttables"); }
  Texts Selected() { return Rows("lstSelectedFields"); }
  Texts Order() {
    EXPECT_EQ(Rows("lstorderbyasc"), Rows("lstorderbydesc"));
    return Rows("lstorderbyasc");
  }
  Texts Marked(std::string_view list) {
    const Texts rows = Rows(list);
    Texts marked;
    for (const int row : MarkedRows(list))
      marked.push_back(rows.at(static_cast<std::size_t>(row)));
    return marked;
  }
  Texts Ascending() { return Marked("lstorderbyasc"); }
  Texts Descending() { return Marked("lstorderbydesc"); }
  Texts Grouped() { return Marked("lstGroupby"); }
  bool OrderEnabled() {
    EXPECT_EQ(Enabled("lstorderbyasc"), Enabled("lstorderbydesc"));
    return Enabled("lstorderbyasc");
  }
  /// The value of that key as a host stores it.
  std::string Stored(const std::string& key) {
    MemoryBag bag;
    host().UserControl_WriteProperties(bag);
    return bag.values[key];
  }

 private:
  static Texts Messages(const Texts& texts) {
    Texts lines;
    for (const std::string& text : texts)
      lines.push_back(ErrorMessage(text));
    return lines;
  }
};

// prpSelectPart: the tables.

TEST_F(ReloadingTest, TheLastElementOfASelectListSelectsNoTable) {
  Select("CUSTOMER.NO,ORDERITM.QTY");
  EXPECT_EQ(Tables(), RowNumbers{0});
  EXPECT_EQ(Rows("lstFields"), (Texts{"CUSTOMER.*", "CUSTOMER.NO", "CUSTOMER.NAME"}));
  EXPECT_EQ(Rows("lstGroupby"), (Texts{"CUSTOMER.NO", "CUSTOMER.NAME"}));
}

TEST_F(ReloadingTest, TheLastFieldIsSelectedAllTheSame) {
  Select("CUSTOMER.NO,ORDERITM.QTY");
  EXPECT_EQ(Selected(), (Texts{"CUSTOMER.NO", "ORDERITM.QTY"}));
  EXPECT_EQ(Order(), (Texts{"CUSTOMER._index1", "CUSTOMER.NO", "ORDERITM.QTY"}));
  EXPECT_EQ(Rows("cboWhereFields"), (Texts{"CUSTOMER._index1", "CUSTOMER.NO", "CUSTOMER.NAME",
                                           "CUSTOMER.NO", "ORDERITM.QTY"}));
  EXPECT_EQ(Rows("cboWhereFields1"),
            (Texts{"CUSTOMER.NO", "CUSTOMER.NAME", "CUSTOMER.NO", "ORDERITM.QTY"}));
}

TEST_F(ReloadingTest, WithATrailingCommaTheEmptyLastElementIsTheOneLeftOut) {
  Select("CUSTOMER.NO,ORDERITM.QTY,");
  EXPECT_EQ(Tables(), (RowNumbers{0, 1}));
  EXPECT_EQ(Selected(), (Texts{"CUSTOMER.NO", "ORDERITM.QTY"}));
}

TEST_F(ReloadingTest, ASingleElementSelectsNoTable) {
  Select("CUSTOMER.NO");
  EXPECT_EQ(Tables(), RowNumbers{});
  EXPECT_EQ(Rows("lstFields"), Texts{});
  EXPECT_EQ(Selected(), Texts{"CUSTOMER.NO"});
  EXPECT_EQ(Order(), Texts{"CUSTOMER.NO"});
}

TEST_F(ReloadingTest, ATableNamedInsideAnElementOfAnotherTableIsSelectedToo) {
  Select("CUSTOMER.ORDERITM_NO,");
  EXPECT_EQ(Tables(), (RowNumbers{0, 1}));
}

TEST_F(ReloadingTest, ATableNamedInAFunctionOrBehindTheColonIsSelected) {
  Select("sum ( ORDERITM.QTY ) :var.sum.CUSTOMER,");
  EXPECT_EQ(Tables(), (RowNumbers{0, 1}));
}

TEST_F(ReloadingTest, LetterCaseCountsInTheTablesOfASelectList) {
  Select("customer.NO,Orderitm.QTY,");
  EXPECT_EQ(Tables(), RowNumbers{});
}

TEST_F(ReloadingTest, ATableNameBrokenByACommaIsNotFound) {
  Select("CUST,OMER.NO,");
  EXPECT_EQ(Tables(), RowNumbers{});
  EXPECT_EQ(Selected(), (Texts{"CUST", "OMER.NO"}));
}

TEST_F(ReloadingTest, TheTablesOfASelectListAreSelectedFromTheLastRowToTheFirst) {
  Select("CUSTOMER.NO,ORDERITM.QTY,");
  EXPECT_EQ(Rows("lstFields"),
            (Texts{"ORDERITM.*", "ORDERITM.QTY", "CUSTOMER.*", "CUSTOMER.NO", "CUSTOMER.NAME"}));
  EXPECT_EQ(ListIndex("lsttables"), 0);
}

TEST_F(ReloadingTest, ATableThatIsSelectedIsNotSelectedAgain) {
  Mark("lsttables", 0);
  Mark("lsttables", 1);
  const Texts fields = Rows("lstFields");
  Select("CUSTOMER.NO,");
  EXPECT_EQ(Tables(), (RowNumbers{0, 1}));
  EXPECT_EQ(Rows("lstFields"), fields);
  EXPECT_EQ(ListIndex("lsttables"), 1);
}

TEST_F(ReloadingTest, ATableThatStandsTwiceIsSelectedTwice) {
  Use("CUSTOMER1,CUSTOMER0", {"CUSTOMER.NO"});
  Select("CUSTOMER.NO,");
  EXPECT_EQ(Tables(), (RowNumbers{0, 1}));
  EXPECT_EQ(Rows("lstFields"), (Texts{"CUSTOMER.*", "CUSTOMER.NO", "CUSTOMER.*", "CUSTOMER.NO"}));
}

TEST_F(ReloadingTest, AnInvalidTableIsToldOnceAndStaysSelected) {
  Use("CUSTOMER", {"CUSTOMER.NO"});
  Select("CUSTOMER.NO,", {kInvalid});
  EXPECT_EQ(Tables(), RowNumbers{0});
  EXPECT_EQ(Selected(), Texts{"CUSTOMER.NO"});
  Select("CUSTOMER.NAME,");
}

// prpSelectPart: the fields.

TEST_F(ReloadingTest, FieldsComeInTheOrderOfTheElements) {
  Select("ORDERITM.QTY,CUSTOMER.NO,CUSTOMER.NAME,");
  EXPECT_EQ(Selected(), (Texts{"CUSTOMER.NAME", "CUSTOMER.NO", "ORDERITM.QTY"}));
  EXPECT_EQ(Order(), (Texts{"CUSTOMER._index1", "ORDERITM.QTY", "CUSTOMER.NO", "CUSTOMER.NAME"}));
}

TEST_F(ReloadingTest, EmptyElementsOfASelectListAreSkipped) {
  Select(",,CUSTOMER.NO,,CUSTOMER.NAME,,");
  EXPECT_EQ(Selected(), (Texts{"CUSTOMER.NAME", "CUSTOMER.NO"}));
}

TEST_F(ReloadingTest, FieldsKeepTheBlanksAroundTheComma) {
  Select("CUSTOMER.NO , CUSTOMER.NAME");
  EXPECT_EQ(Selected(), (Texts{" CUSTOMER.NAME", "CUSTOMER.NO "}));
  EXPECT_EQ(Order(), (Texts{"CUSTOMER._index1", "CUSTOMER.NO ", " CUSTOMER.NAME"}));
}

TEST_F(ReloadingTest, AnElementOfOneBlankIsAField) {
  Select(" ");
  EXPECT_EQ(Selected(), Texts{" "});
  EXPECT_EQ(Rows("cboWhereFields"), Texts{" "});
}

TEST_F(ReloadingTest, AnEmptySelectListOnlyReports) {
  Select("CUSTOMER.NO,");
  Select("");
  EXPECT_EQ(Selected(), Texts{"CUSTOMER.NO"});
  EXPECT_EQ(Tables(), RowNumbers{0});
  EXPECT_EQ(Stored("prpSelectPart"), "");
}

TEST_F(ReloadingTest, AFieldTakesTheCatalogueMarksAndABoundExpressionDoesNot) {
  Mark("lsttables", 0);
  for (const char* value : {"count ( * ) :var.count", "sum ( CUSTOMER.NO ) "}) {
    Mark("lstFunctions", 1);
    Mark("lstFields", 2);
    Select(value);
    const bool bound = std::string_view(value).find(':') != std::string_view::npos;
    EXPECT_EQ(MarkedRows("lstFunctions"), bound ? RowNumbers{1} : RowNumbers{}) << value;
    EXPECT_EQ(MarkedRows("lstFields"), bound ? RowNumbers{2} : RowNumbers{}) << value;
  }
  Click("cmdRemoveAll");
  Mark("lstFunctions", 1);
  Mark("lstFields", 2);
  Select("CUSTOMER.NO");
  EXPECT_EQ(ListIndex("lstFunctions"), -1);
  EXPECT_EQ(ListIndex("lstFields"), -1);
}

TEST_F(ReloadingTest, AWholeTableBringsItsFieldsIntoTheOrderLists) {
  Select("CUSTOMER.*,");
  EXPECT_EQ(Selected(), Texts{"CUSTOMER.*"});
  EXPECT_EQ(Order(), (Texts{"CUSTOMER._index1", "CUSTOMER.NO", "CUSTOMER.NAME"}));
}

TEST_F(ReloadingTest, AFieldBehindItsWholeTableIsRefusedAndTheNextElementComes) {
  Select("CUSTOMER.*,CUSTOMER.NO,ORDERITM.QTY", {kOneBlank});
  EXPECT_EQ(Selected(), (Texts{"CUSTOMER.*", "ORDERITM.QTY"}));
}

TEST_F(ReloadingTest, AFieldBeforeItsWholeTableGivesWay) {
  Select("CUSTOMER.NO,CUSTOMER.*");
  EXPECT_EQ(Selected(), Texts{"CUSTOMER.*"});
  EXPECT_EQ(Order(), (Texts{"CUSTOMER._index1", "CUSTOMER.NO", "CUSTOMER.NO", "CUSTOMER.NAME"}));
}

TEST_F(ReloadingTest, AFieldTwiceIsRefusedAndTheNextElementComes) {
  Select("CUSTOMER.NO,CUSTOMER.NO,CUSTOMER.NAME", {kTwoBlanks});
  EXPECT_EQ(Selected(), (Texts{"CUSTOMER.NAME", "CUSTOMER.NO"}));
}

TEST_F(ReloadingTest, AFunctionWithoutAVariableTakesThePlainFieldsAndTheOrderMarks) {
  Select("CUSTOMER.NO,");
  OrderBy("CUSTOMER.NO,CUSTOMER._index1 desc");
  ASSERT_TRUE(Enabled("cmdAddWhereQuery"));
  Select("sum ( CUSTOMER.NO ) ");
  EXPECT_EQ(Selected(), Texts{"sum ( CUSTOMER.NO ) "});
  EXPECT_EQ(Order(), (Texts{"CUSTOMER._index1", "CUSTOMER.NO"}));
  EXPECT_EQ(Ascending(), Texts{});
  EXPECT_EQ(Descending(), Texts{});
  EXPECT_FALSE(OrderEnabled());
  EXPECT_FALSE(Enabled("cmdAddWhereQuery"));
}

TEST_F(ReloadingTest, AFunctionWithoutAVariableComesOnlyOnce) {
  Select("sum ( CUSTOMER.NO ) ,sum ( CUSTOMER.NO ) ,avg ( CUSTOMER.NO ) ", {kTwoBlanks});
  EXPECT_EQ(Selected(), (Texts{"avg ( CUSTOMER.NO ) ", "sum ( CUSTOMER.NO ) "}));
}

TEST_F(ReloadingTest, AFieldOfATableNamedLikeAFunctionIsRefusedAndAllBehindItToo) {
  Use("sumtable0,CUSTOMER0", {"sumtable.NO", "CUSTOMER.NO"});
  Select("sumtable.NO,CUSTOMER.NO", {kNotAllowed, kNotAllowed});
  EXPECT_EQ(Selected(), Texts{});
  EXPECT_TRUE(OrderEnabled());
  Select("CUSTOMER.NO", {kNotAllowed});
}

// prpSelectPart: bound expressions.

TEST_F(ReloadingTest, ABoundExpressionShowsWhatStandsBeforeTheColonWithItsBlank) {
  Select("count ( * ) :var.count");
  EXPECT_EQ(Selected(), Texts{"count ( * ) "});
  EXPECT_FALSE(OrderEnabled());
  EXPECT_EQ(Order(), Texts{});
  EXPECT_EQ(Rows("cboWhereFields"), Texts{});
}

TEST_F(ReloadingTest, ABoundExpressionRefusesPlainFieldsFromThenOn) {
  Mark("lsttables", 0);
  Select("count ( * ) :var.count,CUSTOMER.NO", {kNotAllowed});
  Mark("lstFields", 1);
  Click("cmdMoveOne");
  EXPECT_EQ(Log(), Texts{ErrorMessage(kNotAllowed)});
  EXPECT_EQ(Selected(), Texts{"count ( * ) "});
}

TEST_F(ReloadingTest, ABoundExpressionLeavesThePlainFieldsAndTheOrderMarks) {
  Select("CUSTOMER.NO,");
  OrderBy("CUSTOMER.NO");
  Select("sum ( CUSTOMER.NO ) :var.sum.CUSTOMER.NO");
  EXPECT_EQ(Selected(), (Texts{"CUSTOMER.NO", "sum ( CUSTOMER.NO ) "}));
  EXPECT_EQ(Ascending(), Texts{"CUSTOMER.NO"});
  EXPECT_FALSE(OrderEnabled());
}

TEST_F(ReloadingTest, ABoundExpressionTwiceComesTwiceWithoutAMessage) {
  Select("count ( * ) :var.count,count ( * ) :var.count");
  EXPECT_EQ(Selected(), (Texts{"count ( * ) ", "count ( * ) "}));
}

TEST_F(ReloadingTest, TheFirstOfSeveralColonsDecides) {
  Select("max ( A ) :var:max: x");
  EXPECT_EQ(Selected(), Texts{"max ( A ) "});
}

TEST_F(ReloadingTest, NothingBeforeTheColonGivesAnEmptyRow) {
  Select(":,:var");
  EXPECT_EQ(Selected(), (Texts{"", ""}));
  EXPECT_FALSE(OrderEnabled());
}

TEST_F(ReloadingTest, AFieldWithAColonCountsAsABoundExpression) {
  Select("CUSTOMER.NO:x,CUSTOMER.NAME", {kNotAllowed});
  EXPECT_EQ(Selected(), Texts{"CUSTOMER.NO"});
  EXPECT_EQ(Order(), Texts{"CUSTOMER._index1"});
  EXPECT_EQ(Rows("cboWhereFields1"), (Texts{"CUSTOMER.NO", "CUSTOMER.NAME"}));
  EXPECT_FALSE(OrderEnabled());
}

TEST_F(ReloadingTest, AFunctionBehindABoundFieldTakesItsRow) {
  Select("CUSTOMER.NO:x,min ( CUSTOMER.NO ) ");
  EXPECT_EQ(Selected(), Texts{"min ( CUSTOMER.NO ) "});
}

// prpSelectPart: errors.

TEST_F(ReloadingTest, AFaultyTableLeavesTheTablesBeforeItAndComesBeforeTheFields) {
  Use("CUSTOMER99999,ORDERITM0", {"CUSTOMER.NO", "ORDERITM.QTY"});
  ExpectError(ErrorKind::kOverflow, [this] { host().prpSelectPart(u"CUSTOMER.NO,ORDERITM.QTY,"); });
  EXPECT_EQ(Log(), Texts{"changed prpSelectPart"});
  EXPECT_EQ(Tables(), (RowNumbers{0, 1}));
  EXPECT_EQ(Rows("lstFields"), (Texts{"ORDERITM.*", "ORDERITM.QTY", "CUSTOMER.*"}));
  EXPECT_EQ(Selected(), Texts{});
  EXPECT_EQ(Stored("prpSelectPart"), "CUSTOMER.NO,ORDERITM.QTY,");
}

TEST_F(ReloadingTest, AFaultyRecordLeavesTheElementsBeforeItAndHalfOfItsOwn) {
  host().PrpStrFields(Wide(Field("NINVOICES.NO") + ",broken," + Field("NINVOICES.DAY")));
  ASSERT_EQ(Log(), Texts{"changed PrpStrFields"});
  ExpectError(ErrorKind::kSubscript, [this] { host().prpSelectPart(u"A,INVOICES.*,B"); });
  EXPECT_EQ(Log(), Texts{"changed prpSelectPart"});
  EXPECT_EQ(Selected(), (Texts{"A", "INVOICES.*"}));
  EXPECT_EQ(Order(), (Texts{"A", "INVOICES.NO"}));
}

TEST_F(ReloadingTest, AWholeTableFailsBeforeTheFieldsAreKnown) {
  MakeNew();
  ExpectError(ErrorKind::kSubscript, [this] { host().prpSelectPart(u"A,CUSTOMER.*"); });
  EXPECT_EQ(Log(), Texts{"changed prpSelectPart"});
  EXPECT_EQ(Selected(), (Texts{"A", "CUSTOMER.*"}));
}

// prpSelectFromPart.

TEST_F(ReloadingTest, AFromListSelectsAllItsTablesTheLastOneToo) {
  From("CUSTOMER,ORDERITM");
  EXPECT_EQ(Tables(), (RowNumbers{0, 1}));
  EXPECT_EQ(Rows("lstFields"),
            (Texts{"ORDERITM.*", "ORDERITM.QTY", "CUSTOMER.*", "CUSTOMER.NO", "CUSTOMER.NAME"}));
  EXPECT_EQ(ListIndex("lsttables"), 0);
}

TEST_F(ReloadingTest, AFromListOfOneTableSelectsIt) {
  From("ORDERITM");
  EXPECT_EQ(Tables(), RowNumbers{1});
  EXPECT_EQ(Rows("lstGroupby"), Texts{"ORDERITM.QTY"});
  EXPECT_EQ(Selected(), Texts{});
}

TEST_F(ReloadingTest, AFromListIsComparedWholeAndUntrimmed) {
  for (const char* value : {"CUSTOMER.NO", "CUSTOMER1", "customer", " CUSTOMER", "CUSTOMER ", "",
                            ",", "CUSTOME", "\tCUSTOMER", "NOSUCHTB"}) {
    From(value);
    EXPECT_EQ(Tables(), RowNumbers{}) << value;
  }
}

TEST_F(ReloadingTest, ABlankBehindTheCommaOfAFromListLosesThatTable) {
  From("CUSTOMER, ORDERITM");
  EXPECT_EQ(Tables(), RowNumbers{0});
}

TEST_F(ReloadingTest, ATableTwiceInAFromListIsSelectedOnce) {
  From("ORDERITM,,ORDERITM");
  EXPECT_EQ(Rows("lstFields"), (Texts{"ORDERITM.*", "ORDERITM.QTY"}));
}

TEST_F(ReloadingTest, ATableThatStandsTwiceIsSelectedTwiceByAFromList) {
  Use("CUSTOMER1,CUSTOMER0", {"CUSTOMER.NO"});
  From("CUSTOMER");
  EXPECT_EQ(Tables(), (RowNumbers{0, 1}));
}

TEST_F(ReloadingTest, AFromListAddsToTheSelectedTables) {
  Mark("lsttables", 1);
  From("CUSTOMER");
  From("ORDERITM");
  EXPECT_EQ(Tables(), (RowNumbers{0, 1}));
  EXPECT_EQ(Rows("lstFields"),
            (Texts{"ORDERITM.*", "ORDERITM.QTY", "CUSTOMER.*", "CUSTOMER.NO", "CUSTOMER.NAME"}));
  EXPECT_EQ(ListIndex("lsttables"), 0);
}

TEST_F(ReloadingTest, TheMessagesOfAFromListComeBeforeItsReportAndOnce) {
  Use("CUSTOMERx,ORDERITM0", {"CUSTOMER.NO"});
  From("CUSTOMER,ORDERITM", {"No Fields Present For The Selected Table", kInvalid});
  EXPECT_EQ(Tables(), (RowNumbers{0, 1}));
  From("CUSTOMER,ORDERITM");
}

TEST_F(ReloadingTest, AFaultyTableOfAFromListLeavesTheTablesBeforeItAndNoReport) {
  Use("AAAAAAAA0,CUSTOMER99999,ORDERITM0", {"AAAAAAAA.X", "CUSTOMER.NO", "ORDERITM.QTY"});
  ExpectError(ErrorKind::kOverflow,
              [this] { host().prpSelectFromPart(u"AAAAAAAA,CUSTOMER,ORDERITM"); });
  EXPECT_EQ(Tables(), (RowNumbers{1, 2}));
  EXPECT_EQ(Rows("lstFields"), (Texts{"ORDERITM.*", "ORDERITM.QTY", "CUSTOMER.*"}));
  EXPECT_EQ(Stored("prpSelectFromPart"), "AAAAAAAA,CUSTOMER,ORDERITM");
}

TEST_F(ReloadingTest, ATableRowBeyondTheListOfTheHostFailsMarked) {
  host().PrpStrTables(u"INVOICES0");
  ASSERT_EQ(Log(), Texts{"changed PrpStrTables"});
  ExpectError(ErrorKind::kSubscript, [this] { host().prpSelectFromPart(u"CUSTOMER,INVOICES"); });
  EXPECT_EQ(Tables(), RowNumbers{2});
}

// prpSelectGroupbyPart.

TEST_F(ReloadingTest, AGroupListMarksItsFields) {
  From("CUSTOMER,ORDERITM");
  GroupBy("CUSTOMER.NAME,ORDERITM.QTY");
  EXPECT_EQ(Grouped(), (Texts{"ORDERITM.QTY", "CUSTOMER.NAME"}));
  EXPECT_EQ(ListIndex("lstGroupby"), 0);
}

TEST_F(ReloadingTest, AGroupListIsTrimmedOfBlanksAlone) {
  From("CUSTOMER");
  GroupBy("  CUSTOMER.NO , \tCUSTOMER.NAME");
  EXPECT_EQ(Grouped(), Texts{"CUSTOMER.NO"});
}

TEST_F(ReloadingTest, AGroupRowWithABlankAtItsEndIsNeverFound) {
  UseMarked({"CUSTOMER.NO "});
  GroupBy("CUSTOMER.NO ,CUSTOMER.NO");
  EXPECT_EQ(Grouped(), Texts{});
}

TEST_F(ReloadingTest, AGroupListComparesWholeNamesWithLetterCase) {
  From("CUSTOMER");
  GroupBy("CUSTOMER.no,CUSTOMER.N,CUSTOMER.NO2,customer.NO");
  EXPECT_EQ(Grouped(), Texts{});
}

TEST_F(ReloadingTest, TheLastOfTwoEqualGroupRowsIsMarked) {
  UseMarked({"CUSTOMER.NO", "CUSTOMER.NO", "CUSTOMER.NAME"});
  GroupBy("CUSTOMER.NO,CUSTOMER.NO");
  EXPECT_EQ(MarkedRows("lstGroupby"), RowNumbers{1});
}

TEST_F(ReloadingTest, AGroupListAddsToTheMarksAndPassesOverWhatItDoesNotFind) {
  From("CUSTOMER");
  Mark("lstGroupby", 1);
  GroupBy("NOWHERE.NO,CUSTOMER.NO");
  EXPECT_EQ(MarkedRows("lstGroupby"), (RowNumbers{0, 1}));
  GroupBy("");
  EXPECT_EQ(MarkedRows("lstGroupby"), (RowNumbers{0, 1}));
  EXPECT_EQ(Stored("prpSelectGroupbyPart"), "");
}

TEST_F(ReloadingTest, AnEmptyElementOfAGroupListFailsPastTheEndOfTheList) {
  From("CUSTOMER");
  for (const char* value : {"CUSTOMER.NO,", "CUSTOMER.NO,,CUSTOMER.NAME", "CUSTOMER.NO,  "}) {
    ExpectError(ErrorKind::kIndex, [&] { host().prpSelectGroupbyPart(Wide(value)); });
    EXPECT_EQ(Grouped(), Texts{"CUSTOMER.NO"}) << value;
    EXPECT_EQ(Stored("prpSelectGroupbyPart"), value);
    EXPECT_EQ(Log(), Texts{}) << value;
  }
}

TEST_F(ReloadingTest, AnEmptyElementOfAGroupListFailsInAnEmptyListToo) {
  ExpectError(ErrorKind::kIndex, [this] { host().prpSelectGroupbyPart(u" "); });
  ExpectError(ErrorKind::kIndex, [this] { host().prpSelectGroupbyPart(u",CUSTOMER.NO"); });
  GroupBy("CUSTOMER.NO");
}

// prpSelectOrderbyPart.

class OrderByTest : public ReloadingTest {
 protected:
  void SetUp() override {
    ReloadingTest::SetUp();
    Select("CUSTOMER.NO,CUSTOMER.NAME,");
    ASSERT_EQ(Order(), (Texts{"CUSTOMER._index1", "CUSTOMER.NO", "CUSTOMER.NAME"}));
  }
};

TEST_F(OrderByTest, AnOrderListMarksEachListByTheWordDesc) {
  OrderBy("CUSTOMER.NAME,CUSTOMER.NO desc,CUSTOMER._index1");
  EXPECT_EQ(Ascending(), (Texts{"CUSTOMER._index1", "CUSTOMER.NAME"}));
  EXPECT_EQ(Descending(), Texts{"CUSTOMER.NO"});
  EXPECT_EQ(ListIndex("lstorderbyasc"), 0);
  EXPECT_EQ(ListIndex("lstorderbydesc"), 1);
}

TEST_F(OrderByTest, TheAscendingTestTakesNoBlankAndNoOtherLetterCase) {
  OrderBy(" CUSTOMER.NO,CUSTOMER.NO ,customer.NO,CUSTOMER.N,CUSTOMER.NO asc");
  EXPECT_EQ(Ascending(), Texts{});
  EXPECT_EQ(Descending(), Texts{});
}

TEST_F(OrderByTest, TheDescendingTestIsTrimmedOfBlanks) {
  OrderBy("  CUSTOMER.NO   desc ,\tCUSTOMER.NAME desc");
  EXPECT_EQ(Descending(), Texts{"CUSTOMER.NO"});
}

TEST_F(OrderByTest, DescInUpperCaseMarksNothing) {
  OrderBy("CUSTOMER.NO DESC,CUSTOMER.NO Desc,CUSTOMER.NAME desC");
  EXPECT_EQ(Ascending(), Texts{});
  EXPECT_EQ(Descending(), Texts{});
  EXPECT_FALSE(Enabled("cmdAddWhereQuery"));
}

TEST_F(OrderByTest, DescCountsAnywhereInTheElement) {
  OrderBy("desc CUSTOMER.NO,CUSTOMER.desc_index1,CUSTOMER.NAdescMEdesc");
  EXPECT_EQ(Ascending(), Texts{});
  EXPECT_EQ(Descending(), (Texts{"CUSTOMER._index1", "CUSTOMER.NO", "CUSTOMER.NAME"}));
}

TEST_F(OrderByTest, DescIsTakenOutOnceFromLeftToRight) {
  OrderBy("CUSTOMER.NO dedescsc");
  EXPECT_EQ(Descending(), Texts{});
  OrderBy("CUSTOMER.NO descdesc");
  EXPECT_EQ(Descending(), Texts{"CUSTOMER.NO"});
}

TEST_F(OrderByTest, AFieldDescriptionIsFoundInNeitherList) {
  Select("CUSTOMER.description");
  ASSERT_EQ(Order().back(), "CUSTOMER.description");
  OrderBy("CUSTOMER.description,CUSTOMER.description desc");
  EXPECT_EQ(Ascending(), Texts{});
  EXPECT_EQ(Descending(), Texts{});
  Select("CUSTOMER.ription");
  OrderBy("CUSTOMER.description");
  EXPECT_EQ(Descending(), Texts{"CUSTOMER.ription"});
}

TEST_F(OrderByTest, AFieldDescriptionInUpperCaseIsMarkedDescending) {
  Select("CUSTOMER.DESCRIPTION");
  OrderBy("CUSTOMER.DESCRIPTION");
  EXPECT_EQ(Ascending(), Texts{});
  EXPECT_EQ(Descending(), Texts{"CUSTOMER.DESCRIPTION"});
}

TEST_F(OrderByTest, ARowWithBlanksIsTrimmedInTheDescendingListAlone) {
  Select(" ORDERITM.QTY ");
  OrderBy("ORDERITM.QTY");
  EXPECT_EQ(Ascending(), Texts{});
  OrderBy("ORDERITM.QTY desc");
  EXPECT_EQ(Descending(), Texts{" ORDERITM.QTY "});
}

TEST_F(OrderByTest, ARowWithBlanksIsMarkedAscendingByTheSameBlanks) {
  Select(" ORDERITM.QTY ");
  OrderBy(" ORDERITM.QTY ");
  EXPECT_EQ(Ascending(), Texts{" ORDERITM.QTY "});
}

TEST_F(OrderByTest, TheLastOfTwoEqualOrderRowsIsMarked) {
  Select("CUSTOMER.*");
  ASSERT_EQ(Order(), (Texts{"CUSTOMER._index1", "CUSTOMER.NO", "CUSTOMER.NAME", "CUSTOMER.NO",
                            "CUSTOMER.NAME"}));
  OrderBy("CUSTOMER.NO,CUSTOMER.NO,CUSTOMER.NAME desc");
  EXPECT_EQ(MarkedRows("lstorderbyasc"), RowNumbers{3});
  EXPECT_EQ(MarkedRows("lstorderbydesc"), RowNumbers{4});
}

TEST_F(OrderByTest, TheMarkThatCameFirstWins) {
  OrderBy("CUSTOMER.NO,CUSTOMER.NAME desc,CUSTOMER.NO desc,CUSTOMER.NAME");
  EXPECT_EQ(Ascending(), Texts{"CUSTOMER.NO"});
  EXPECT_EQ(Descending(), Texts{"CUSTOMER.NAME"});
}

TEST_F(OrderByTest, AMarkEnablesTheAddButtonOfItsPage) {
  for (const char* value : {"CUSTOMER.NO", "CUSTOMER.NAME desc"}) {
    host().ClearAll(1);
    ASSERT_FALSE(Enabled("cmdAddWhereQuery"));
    OrderBy(value);
    EXPECT_TRUE(Enabled("cmdAddWhereQuery")) << value;
  }
}

TEST_F(OrderByTest, AMarkThatIsThereAlreadyRunsNothing) {
  OrderBy("CUSTOMER.NO");
  Written(host()).cmdAddWhereQuery.Enabled(false);
  OrderBy("CUSTOMER.NO");
  EXPECT_EQ(Ascending(), Texts{"CUSTOMER.NO"});
  EXPECT_FALSE(Enabled("cmdAddWhereQuery"));
}

TEST_F(OrderByTest, AnOrderListAddsToTheMarksAndPassesOverWhatItDoesNotFind) {
  OrderBy("CUSTOMER.NO,CUSTOMER._index1 desc");
  OrderBy(",NOWHERE.NO,,CUSTOMER.NAME,desc,");
  OrderBy("");
  EXPECT_EQ(Ascending(), (Texts{"CUSTOMER.NO", "CUSTOMER.NAME"}));
  EXPECT_EQ(Descending(), Texts{"CUSTOMER._index1"});
  EXPECT_EQ(Stored("prpSelectOrderbyPart"), "");
}

TEST_F(OrderByTest, DisabledOrderListsAreMarkedAsWell) {
  Select("count ( * ) :var.count");
  ASSERT_FALSE(OrderEnabled());
  OrderBy("CUSTOMER.NO,CUSTOMER.NAME desc");
  EXPECT_EQ(Ascending(), Texts{"CUSTOMER.NO"});
  EXPECT_EQ(Descending(), Texts{"CUSTOMER.NAME"});
}

TEST_F(OrderByTest, RowsThatOnlyTheDescendingListHasAreNotReached) {
  Written(host()).lstorderbydesc.AddItem(u"further");
  OrderBy("further desc");
  EXPECT_EQ(Descending(), Texts{});
}

TEST_F(OrderByTest, ARowThatOnlyTheAscendingListHasIsAnEmptyPlaceOfTheOther) {
  Written(host()).lstorderbyasc.AddItem(u"further");
  ExpectError(ErrorKind::kIndex, [this] { host().prpSelectOrderbyPart(u"CUSTOMER.NO,desc"); });
  EXPECT_EQ(Ascending(), Texts{"CUSTOMER.NO"});
  EXPECT_EQ(Stored("prpSelectOrderbyPart"), "CUSTOMER.NO,desc");
}

// prpSelectAsSetPart.

TEST_F(ReloadingTest, ARowLimitIsWrittenAsItStands) {
  for (const char* value : {"10", " 007 ", " ", "many,or few"}) {
    AsSet(value);
    EXPECT_EQ(Text("txtAsSet"), value);
    EXPECT_EQ(Stored("prpSelectAsSetPart"), value);
  }
}

TEST_F(ReloadingTest, AnEmptyRowLimitKeepsTheBox) {
  AsSet("10");
  AsSet("");
  EXPECT_EQ(Text("txtAsSet"), "10");
  EXPECT_EQ(Stored("prpSelectAsSetPart"), "");
}

TEST_F(ReloadingTest, ARowLimitThatDiffersPutsTheCaretToTheStart) {
  Tab(1);
  Type("txtAsSet", "10");
  AsSet("10");
  EXPECT_EQ(Caret("txtAsSet"), 2);
  AsSet("20");
  EXPECT_EQ(Caret("txtAsSet"), 0);
}

TEST_F(ReloadingTest, TheAddButtonDoesNotFollowARowLimitUntilAKeyComes) {
  AsSet("10");
  EXPECT_FALSE(Enabled("cmdAddWhereQuery"));
  Tab(1);
  Key("txtAsSet", 'x');
  EXPECT_EQ(Text("txtAsSet"), "10");
  EXPECT_TRUE(Enabled("cmdAddWhereQuery"));
}

// Together.

TEST_F(ReloadingTest, AReloadIntoAFullControlAddsToItsChoice) {
  Select("CUSTOMER.NO,");
  Select("ORDERITM.QTY,CUSTOMER.NO,", {kTwoBlanks});
  EXPECT_EQ(Selected(), (Texts{"CUSTOMER.NO", "ORDERITM.QTY"}));
  EXPECT_EQ(Tables(), (RowNumbers{0, 1}));
}

TEST_F(ReloadingTest, PartsOfAFinishedStatementBringItBack) {
  From("ORDERITM,CUSTOMER");
  Select("CUSTOMER.NAME,CUSTOMER.NO,ORDERITM.QTY");
  GroupBy("CUSTOMER.NO,CUSTOMER.NAME");
  OrderBy("CUSTOMER._index1 desc,CUSTOMER.NO,ORDERITM.QTY desc");
  AsSet("10");
  Click("cmdAddSelect");
  EXPECT_EQ(Result(),
            "select CUSTOMER.NAME,CUSTOMER.NO,ORDERITM.QTY\r\nfrom  ORDERITM,CUSTOMER"
            "\r\ngroup by  CUSTOMER.NO,CUSTOMER.NAME"
            "\r\norder by CUSTOMER._index1 desc,CUSTOMER.NO,ORDERITM.QTY desc"
            "\r\nas set with 10 rows \r\nendselect");
}

TEST_F(ReloadingTest, BoundExpressionsAreBoundAgainInTheStatement) {
  Select("count ( * ) :var.count,sum ( CUSTOMER.NO ) :var.sum.CUSTOMER.NO,");
  Click("cmdAddSelect");
  EXPECT_EQ(Result(),
            "select count ( * ) :var.count,sum ( CUSTOMER.NO ) :var.sum.CUSTOMER.NO"
            "\r\nfrom  CUSTOMER\r\nendselect");
}

// What the host sees of the form when it is told.

// A host that looks at the form, or writes to it, while it is told something.
class LookingHost final : public SilentHost {
 public:
  void PropertyChanged(std::string_view property) override {
    if (whenChanged) whenChanged(property);
  }
  void ShowMessage(const Message& message) override {
    if (whenShown) whenShown(message.text);
  }

  std::function<void(std::string_view)> whenChanged;
  std::function<void(StringView)> whenShown;
};

// A control with the marked table CUSTOMER, its fields NO and NAME, and ORDERITM with QTY.
class ReportTest : public ::testing::Test {
 protected:
  void SetUp() override {
    control_.UserControl_InitProperties();
    control_.PrpStrTables(u"CUSTOMER0,ORDERITM0");
    control_.PrpStrFields(Wide(Records({"CUSTOMER.NO", "CUSTOMER.NAME", "ORDERITM.QTY"})));
    control_.prpSelectPart(u"CUSTOMER.NO,");
    host_.whenChanged = [this](std::string_view property) {
      seen_.push_back(std::string(property) + ": " + State());
    };
  }

  /// The rows of the select list and all marks.
  std::string State() {
    std::string state = "select";
    const Surface& form = control_.Form();
    for (int row = 0; row < form.lstSelectedFields.ListCount(); ++row)
      state += " " + Narrow(form.lstSelectedFields.List(row));
    for (const ListBox* list :
         {&form.lsttables, &form.lstGroupby, &form.lstorderbyasc, &form.lstorderbydesc}) {
      state += "; " + std::string(list->name());
      for (int row = 0; row < list->ListCount(); ++row) {
        if (list->Selected(row)) state += " " + std::to_string(row);
      }
    }
    return state + "; limit " + Narrow(form.txtAsSet.Text());
  }

  LookingHost host_;
  ZOLT20MapControl control_{host_};
  Texts seen_;
};

TEST_F(ReportTest, ASelectListIsReportedBeforeItsEffects) {
  control_.prpSelectPart(u"CUSTOMER.NAME,ORDERITM.QTY,");
  EXPECT_EQ(seen_, Texts{"prpSelectPart: select CUSTOMER.NO; lsttables 0; lstGroupby; "
                         "lstorderbyasc; lstorderbydesc; limit "});
  EXPECT_EQ(State(),
            "select CUSTOMER.NAME CUSTOMER.NO ORDERITM.QTY; lsttables 0 1; lstGroupby; "
            "lstorderbyasc; lstorderbydesc; limit ");
}

TEST_F(ReportTest, TheSelectListIsStoredWhenItIsReported) {
  MemoryBag bag;
  host_.whenChanged = [&](std::string_view) { control_.UserControl_WriteProperties(bag); };
  control_.prpSelectPart(u"ORDERITM.QTY,");
  EXPECT_EQ(bag.values["prpSelectPart"], "ORDERITM.QTY,");
}

TEST_F(ReportTest, TheOtherPartsAreReportedBehindTheirEffects) {
  control_.prpSelectFromPart(u"ORDERITM");
  control_.prpSelectGroupbyPart(u"CUSTOMER.NAME");
  control_.prpSelectOrderbyPart(u"CUSTOMER.NO desc");
  control_.prpSelectAsSetPart(u"10");
  EXPECT_EQ(seen_, (Texts{"prpSelectFromPart: select CUSTOMER.NO; lsttables 0 1; lstGroupby; "
                          "lstorderbyasc; lstorderbydesc; limit ",
                          "prpSelectGroupbyPart: select CUSTOMER.NO; lsttables 0 1; lstGroupby 1; "
                          "lstorderbyasc; lstorderbydesc; limit ",
                          "prpSelectOrderbyPart: select CUSTOMER.NO; lsttables 0 1; lstGroupby 1; "
                          "lstorderbyasc; lstorderbydesc 0; limit ",
                          "prpSelectAsSetPart: select CUSTOMER.NO; lsttables 0 1; lstGroupby 1; "
                          "lstorderbyasc; lstorderbydesc 0; limit 10"}));
}

TEST_F(ReportTest, AHostThatFailsAtTheReportOfASelectListLeavesTheFormAsItIs) {
  const std::string before = State();
  host_.whenChanged = [](std::string_view) { throw std::runtime_error("the host's own"); };
  EXPECT_THROW(control_.prpSelectPart(u"ORDERITM.QTY,"), std::runtime_error);
  EXPECT_EQ(State(), before);
  EXPECT_THROW(control_.prpSelectFromPart(u"ORDERITM"), std::runtime_error);
  EXPECT_NE(State(), before);
}

TEST_F(ReportTest, AnotherSelectListWrittenInsideTheReportComesFirstAndBothCome) {
  Texts reports;
  host_.whenChanged = [&](std::string_view property) {
    reports.emplace_back(property);
    if (reports.size() == 1) control_.prpSelectPart(u"ORDERITM.QTY");
  };
  control_.prpSelectPart(u"CUSTOMER.NAME");
  EXPECT_EQ(reports, (Texts{"prpSelectPart", "prpSelectPart"}));
  const Surface& form = control_.Form();
  EXPECT_EQ(Narrow(form.lstorderbyasc.List(1)), "ORDERITM.QTY");
  EXPECT_EQ(Narrow(form.lstorderbyasc.List(2)), "CUSTOMER.NAME");
  EXPECT_EQ(form.lstorderbyasc.ListCount(), 3);
}

TEST_F(ReportTest, ASelectListWrittenInsideAMessageDoesNotStopTheOneInProgress) {
  int messages = 0;
  host_.whenShown = [&](StringView) {
    if (++messages == 1) control_.prpSelectPart(u"ORDERITM.QTY");
  };
  control_.prpSelectPart(u"CUSTOMER.NO,CUSTOMER.NAME");
  EXPECT_EQ(messages, 1);
  EXPECT_EQ(State(),
            "select CUSTOMER.NAME CUSTOMER.NO ORDERITM.QTY; lsttables 0; lstGroupby; "
            "lstorderbyasc; lstorderbydesc; limit ");
}

// The five properties once more, as plain loops over the rows of a second form.

using Pieces = std::vector<String>;

Pieces PiecesOf(const String& text, const String& separator) {
  Pieces pieces;
  if (text.empty()) return pieces;
  std::size_t from = 0;
  while (true) {
    const std::size_t at = text.find(separator, from);
    pieces.push_back(text.substr(from, at == String::npos ? String::npos : at - from));
    if (at == String::npos) return pieces;
    from = at + separator.size();
  }
}

bool Contains(const String& text, const String& part) {
  return text.find(part) != String::npos;
}

String First(const String& text, std::size_t count) {
  return text.substr(0, count);
}

String Unpadded(String text) {
  while (!text.empty() && text.front() == u' ')
    text.erase(0, 1);
  while (!text.empty() && text.back() == u' ')
    text.pop_back();
  return text;
}

String Lowered(String text) {
  for (char16_t& character : text) {
    if (character >= u'A' && character <= u'Z') character += u'a' - u'A';
  }
  return text;
}

String Without(String text, const String& part) {
  std::size_t at = 0;
  while ((at = text.find(part, at)) != String::npos)
    text.erase(at, part.size());
  return text;
}

class PlainLoops {
 public:
  PlainLoops(const String& tables, String fields) : fields_(std::move(fields)) {
    control_.UserControl_InitProperties();
    control_.PrpStrTables(tables);
    control_.PrpStrFields(fields_);
  }

  ZOLT20MapControl& control() { return control_; }
  Texts Log() { return std::exchange(host_.log, {}); }

  void Let(int property, const String& value) {
    switch (property) {
      case 0:
        return SelectPart(value);
      case 1:
        return FromPart(value);
      case 2:
        return GroupbyPart(value);
      case 3:
        return OrderbyPart(value);
      default:
        return AsSetPart(value);
    }
  }

 private:
  void Report(std::string_view property) { host_.PropertyChanged(property); }
  void Message(std::string_view text) { host_.log.push_back(ErrorMessage(text)); }
  static String Row(const RowsControl& list, int row) { return String(list.List(row)); }

  void SelectPart(const String& value) {
    const Pieces elements = PiecesOf(value, u",");
    Report("prpSelectPart");
    for (int i = form_.lsttables.ListCount() - 1; i >= 0; --i) {
      for (int j = static_cast<int>(elements.size()) - 2; j >= 0; --j) {
        if (Contains(elements[static_cast<std::size_t>(j)], Row(form_.lsttables, i)) &&
            !form_.lsttables.Selected(i)) {
          form_.lsttables.Selected(i, true);
        }
      }
    }
    for (const String& element : elements) {
      if (element.empty()) continue;
      if (!Contains(element, u":")) {
        AddSelectedField(element);
      } else {
        form_.lstSelectedFields.AddItem(PiecesOf(element, u":").front());
        form_.lstorderbyasc.Enabled(false);
        form_.lstorderbydesc.Enabled(false);
        aggregate_ = true;
      }
    }
  }

  void AddSelectedField(const String& x) {
    ListBox& list = form_.lstSelectedFields;
    const String three = First(x, 3);
    if (three == u"avg" || three == u"sum" || three == u"min" || three == u"max" ||
        First(x, 5) == u"count") {
      aggregate_ = true;
    }
    if (aggregate_) return AddFunction(x);
    for (int i = list.ListCount() - 1; i >= 0; --i) {
      if (Row(list, i) == x) return Refuse();
    }
    if (Contains(x, u"*")) return AddWholeTable(x);
    for (int i = list.ListCount() - 1; i >= 0; --i) {
      if (First(Row(list, i), 8) == First(x, 8) && Contains(Row(list, i), u"*")) {
        return Message(kOneBlank);
      }
    }
    list.AddItem(x);
    form_.lstFields.ListIndex(-1);
    form_.lstFunctions.ListIndex(-1);
    form_.cboWhereFields.AddItem(x);
    form_.cboWhereFields1.AddItem(x);
    form_.lstorderbyasc.AddItem(x);
    form_.lstorderbydesc.AddItem(x);
  }

  void Refuse() {
    Message(kTwoBlanks);
    form_.lstFields.ListIndex(-1);
    form_.lstFunctions.ListIndex(-1);
  }

  void AddFunction(const String& x) {
    ListBox& list = form_.lstSelectedFields;
    if (!Contains(x, u")")) return Message(kNotAllowed);
    for (int i = list.ListCount() - 1; i >= 0; --i) {
      if (!Contains(Row(list, i), u")")) list.RemoveItem(i);
      if (Row(list, i) == x) return Refuse();
    }
    list.AddItem(x);
    for (int i = form_.lstorderbyasc.ListCount() - 1; i >= 0; --i) {
      form_.lstorderbyasc.Selected(i, false);
      form_.lstorderbydesc.Selected(i, false);
    }
    form_.lstorderbyasc.Enabled(false);
    form_.lstorderbydesc.Enabled(false);
    form_.lstFunctions.ListIndex(-1);
    form_.lstFields.ListIndex(-1);
  }

  void AddWholeTable(const String& x) {
    ListBox& list = form_.lstSelectedFields;
    for (int i = list.ListCount() - 1; i >= 0; --i) {
      if (First(Row(list, i), 8) == First(x, 8)) list.RemoveItem(i);
    }
    list.AddItem(x);
    for (const String& record : PiecesOf(fields_, u",")) {
      const Pieces parts = PiecesOf(record, u"*Q*V*R*N*");
      if (parts.size() < 2) throw RuntimeError(ErrorKind::kSubscript);
      const String name = parts[1].empty() ? String() : parts[1].substr(1);
      if (First(name, 8) == First(x, 8)) {
        form_.lstorderbyasc.AddItem(name);
        form_.lstorderbydesc.AddItem(name);
      }
    }
  }

  void FromPart(const String& value) {
    const Pieces elements = PiecesOf(value, u",");
    for (int i = form_.lsttables.ListCount() - 1; i >= 0; --i) {
      for (const String& element : elements) {
        if (Row(form_.lsttables, i) == element && !form_.lsttables.Selected(i)) {
          form_.lsttables.Selected(i, true);
        }
      }
    }
    Report("prpSelectFromPart");
  }

  void GroupbyPart(const String& value) {
    for (const String& element : PiecesOf(value, u",")) {
      for (int i = form_.lstGroupby.ListCount(); i >= 0; --i) {
        if (Unpadded(element) == Row(form_.lstGroupby, i)) {
          form_.lstGroupby.Selected(i, true);
          break;
        }
      }
    }
    Report("prpSelectGroupbyPart");
  }

  void OrderbyPart(const String& value) {
    for (const String& element : PiecesOf(value, u",")) {
      for (int i = form_.lstorderbyasc.ListCount() - 1; i >= 0; --i) {
        const bool descending = Contains(Lowered(element), u"desc");
        if (!descending && Row(form_.lstorderbyasc, i) == element) {
          form_.lstorderbyasc.Selected(i, true);
          break;
        }
        const String name = Unpadded(Without(element, u"desc"));
        if (descending && Unpadded(Row(form_.lstorderbydesc, i)) == name) {
          form_.lstorderbydesc.Selected(i, true);
          break;
        }
      }
    }
    Report("prpSelectOrderbyPart");
  }

  void AsSetPart(const String& value) {
    if (!value.empty()) form_.txtAsSet.Text(value);
    Report("prpSelectAsSetPart");
  }

  RecordingHost host_;
  ZOLT20MapControl control_{host_};
  Surface& form_ = Written(control_);
  String fields_;
  bool aggregate_ = false;
};

/// Every control of a form with what can be read of it.
Texts Everything(const Surface& form) {
  Texts lines;
  for (const Control* control : form.Controls()) {
    std::string line(control->name());
    if (!control->Enabled()) line += " disabled";
    const auto* list = dynamic_cast<const ListBox*>(control);
    if (const auto* rows = dynamic_cast<const RowsControl*>(control)) {
      line += " at " + std::to_string(rows->ListIndex());
      for (int row = 0; row < rows->ListCount(); ++row) {
        line += list != nullptr && list->Selected(row) ? " +[" : " [";
        line += Narrow(rows->List(row)) + "]";
      }
    } else if (const auto* box = dynamic_cast<const TextBox*>(control)) {
      line += " " + std::to_string(box->SelStart()) + " " + Narrow(box->Text());
    }
    lines.push_back(std::move(line));
  }
  return lines;
}

/// The kind of the error that comes, "" for none.
std::string ErrorOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    return std::string(error.kind_word());
  }
  return "";
}

// The same texts from the same seed on every platform. The values mostly name what the catalogue
// holds.
class Generator {
 public:
  explicit Generator(unsigned seed) : random_(seed) {}

  int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
  bool OneIn(int count) { return Below(count) == 0; }
  std::string From(const Texts& texts) {
    return texts.at(static_cast<std::size_t>(Below(static_cast<int>(texts.size()))));
  }

  std::string Tables() {
    tables_.clear();
    withFunctions_ = OneIn(2);
    Texts entries;
    for (int count = 1 + Below(4); count > 0; --count) {
      if (OneIn(12)) entries.emplace_back("SHORT1");
      tables_.push_back(AnyTable());
      entries.push_back(tables_.back() +
                        From({"0", "1", "2", "1", "0", "2", "1", "", "x", " 1.5", "99999"}));
    }
    return List(entries);
  }

  std::string Fields() {
    names_.clear();
    Texts records;
    for (int count = 2 + Below(5); count > 0; --count) {
      names_.push_back(Table() + AnyField());
      records.push_back(OneIn(60) ? "broken" : Field(From({"N", "Y"}) + names_.back()));
    }
    return List(records);
  }

  /// The order part twice as often as the others.
  int Property() {
    const int part = Below(6);
    return part == 5 ? 3 : part;
  }

  std::string Value(int property) {
    if (property == 4) return From({"", "10", " ", "007", "x,y"});
    Texts elements;
    for (int count = Below(6); count > 0; --count)
      elements.push_back(Blanks() + Element(property) + Blanks());
    if (property != 2 && OneIn(2)) elements.emplace_back("");
    return List(elements);
  }

 private:
  std::string AnyTable() {
    return From({"CUSTOMER", "ORDERITM", "customer", "sumtable", "DESCRIPT", "descript"});
  }
  std::string AnyField() {
    return "." + From({"NO", "NAME", "no", "description", "DESCR", "ription", "ORDERITM_NO",
                       "reindex", "NO ", "a*b", "f(x)"});
  }
  std::string Table() { return OneIn(8) ? AnyTable() : From(tables_); }
  std::string Name() { return OneIn(8) ? Table() + AnyField() : From(names_); }
  std::string Blanks() { return OneIn(12) ? " " : ""; }
  std::string Expression() { return From({"sum", "avg", "max", "count"}) + " ( " + Name() + " ) "; }

  std::string Element(int property) {
    switch (property) {
      case 0:
        switch (Below(withFunctions_ ? 9 : 6)) {
          case 0:
            return Table() + ".*";
          case 1:
            return From({"", " ", "*", ")"});
          case 6:
            return Expression();
          case 7:
            return Expression() + ":var.x." + Table();
          case 8:
            return From({":", "count ( * ) ", "count ( * ) :var.count"});
          default:
            return Name();
        }
      case 1:
        return OneIn(6) ? Name() : Table();
      case 2:
        return OneIn(20) ? From({"", " "}) : Name();
      default: {
        if (OneIn(15)) return From({"", " ", "desc", "DESC"});
        const std::string name = OneIn(3) ? Table() + "._index" + From({"1", "2"}) : Name();
        return name + From({"", "", "", "", "", " desc", " desc", "  desc", " DESC", "desc"});
      }
    }
  }

  std::mt19937 random_;
  Texts tables_;
  Texts names_;
  bool withFunctions_ = false;
};

class DifferentialTest : public ControlTest {
 protected:
  void Let(int property, const String& value) {
    switch (property) {
      case 0:
        return host().prpSelectPart(value);
      case 1:
        return host().prpSelectFromPart(value);
      case 2:
        return host().prpSelectGroupbyPart(value);
      case 3:
        return host().prpSelectOrderbyPart(value);
      default:
        return host().prpSelectAsSetPart(value);
    }
  }
};

TEST_F(DifferentialTest, EveryPartDoesWhatPlainLoopsOverTheRowsDo) {
  constexpr int kControls = 250;
  constexpr int kValues = 7;
  const Texts keys{"prpSelectPart", "prpSelectFromPart", "prpSelectGroupbyPart",
                   "prpSelectOrderbyPart", "prpSelectAsSetPart"};
  Generator generate(4404);
  int failures = 0;
  std::map<std::string, int> marked;
  for (int number = 0; number < kControls && !HasFailure(); ++number) {
    const std::string tables = generate.Tables();
    const std::string fields = generate.Fields();
    MakeNew();
    Catalogue(tables, fields);
    PlainLoops plain(Wide(tables), Wide(fields));
    plain.Log();
    const Surface& form = host().Form();
    const Surface& plainForm = plain.control().Form();
    std::string story = "tables " + tables + "\nfields " + fields;
    for (int step = 0; step < kValues && !HasFailure(); ++step) {
      // Tables and fields come first, so that the other parts find something.
      const int property = step == 0 ? 1 : step == 1 ? 0 : generate.Property();
      const std::string value = generate.Value(property);
      story += "\n" + keys.at(static_cast<std::size_t>(property)) + " [" + value + "]";
      SCOPED_TRACE(story);
      const std::string expected = ErrorOf([&] { plain.Let(property, Wide(value)); });
      EXPECT_EQ(ErrorOf([&] { Let(property, Wide(value)); }), expected);
      EXPECT_EQ(Log(), plain.Log());
      EXPECT_EQ(Everything(form), Everything(plainForm));
      if (!expected.empty()) ++failures;
    }
    for (const ListBox* list :
         {&form.lsttables, &form.lstGroupby, &form.lstorderbyasc, &form.lstorderbydesc}) {
      marked[std::string(list->name())] += list->SelCount() > 0 ? 1 : 0;
    }
  }
  // The values reach what they are made for.
  EXPECT_GT(failures, kControls / 10);
  for (const auto& [list, count] : marked)
    EXPECT_GT(count, kControls / 10) << list;
}

}  // namespace
}  // namespace zolt20::tests
