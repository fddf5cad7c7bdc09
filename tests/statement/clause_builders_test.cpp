// The text of every clause of a select statement, as Add To Result puts it into the Result.
#include <algorithm>
#include <functional>
#include <ostream>
#include <string>
#include <variant>
#include <vector>

#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

using namespace std::string_view_literals;

constexpr int kWherePage = 1;

// CUSTOMER with CUST_NO and NAME, ORDERITM with QTY. A test chooses fields and fills boxes, and
// then takes the statement.
class ClauseBuildersTest : public ControlTest {
 protected:
  void SetUp() override { Use("CUSTOMER0,ORDERITM0", CustomerAndOrder()); }

  static Texts CustomerAndOrder() { return {"CUSTOMER.CUST_NO", "CUSTOMER.NAME", "ORDERITM.QTY"}; }

  /// A new control with this catalogue, all its tables marked.
  void Use(std::string_view tables, const Texts& fields) {
    MakeNew();
    Catalogue(tables, Records(fields));
    for (int row = 0; row < static_cast<int>(Rows("lsttables").size()); ++row)
      Mark("lsttables", row);
  }

  static std::string Records(const Texts& fields) {
    Texts records;
    for (const std::string& field : fields)
      records.push_back(Field("N" + field));
    return List(records);
  }

  void MarkRow(std::string_view list, std::string_view text) {
    const Texts rows = Rows(list);
    Mark(list, static_cast<int>(std::find(rows.begin(), rows.end(), text) - rows.begin()));
  }

  void Add(std::string_view field) {
    MarkRow("lstFields", field);
    Click("cmdMoveOne");
  }

  void Add(std::string_view function, std::string_view field) {
    MarkRow("lstFunctions", function);
    Add(field);
  }

  void AddCountOfRows() {
    Mark("lstFunctions", 0);
    Click("cmdMoveOne");
  }

  /// Types into a box of another page.
  void Fill(int page, std::string_view box, std::string_view text) {
    Tab(page);
    Type(box, text);
    Tab(0);
  }

  /// Marks a row of an order list.
  void Order(std::string_view list, std::string_view row) {
    Tab(kWherePage);
    MarkRow(list, row);
    Tab(0);
  }

  /// The Result after a click on Add To Result.
  std::string Statement() {
    Click("cmdAddSelect");
    return Result();
  }

  /// The field records of a select statement that the host inserted.
  std::string RecordsOf(std::string_view statement) {
    host().prpStroutput(Wide(statement));
    return Narrow(host().prpstrSelectedFields());
  }
};

// The statement as a whole.

TEST_F(ClauseBuildersTest, TheSmallestStatementHasThreeLines) {
  Add("CUSTOMER.NAME");
  Click("lsttables", 1);
  EXPECT_EQ(Statement(), "select CUSTOMER.NAME\r\nfrom  CUSTOMER\r\nendselect");
}

TEST_F(ClauseBuildersTest, AFullStatementHasItsClausesInTheFixedOrder) {
  Add("CUSTOMER.CUST_NO");
  Add("ORDERITM.QTY");
  MarkRow("lstGroupby", "CUSTOMER.CUST_NO");
  Order("lstorderbyasc", "CUSTOMER.CUST_NO");
  Order("lstorderbydesc", "ORDERITM.QTY");
  Fill(kWherePage, "txtAsSet", "100");
  Fill(kWherePage, "txtwhereCondition", "CUSTOMER.CUST_NO = 10");
  Fill(2, "txtSelectDo", "first line\r\nsecond line");
  Fill(3, "txtSelectEOS", "the eos text");
  Fill(4, "txtselectempty", "the empty text");
  Fill(5, "txtSelectError", "the error text");
  EXPECT_EQ(Statement(),
            "select CUSTOMER.CUST_NO,ORDERITM.QTY\r\n"
            "from  ORDERITM,CUSTOMER\r\n"
            "where CUSTOMER.CUST_NO = 10\r\n"
            "group by  CUSTOMER.CUST_NO\r\n"
            "order by CUSTOMER.CUST_NO,ORDERITM.QTY desc\r\n"
            "as set with 100 rows \r\n"
            "selectdo\r\n"
            "\tfirst line\r\n"
            "\tsecond line\r\n"
            "selecteos\r\n"
            "\tthe eos text\r\n"
            "selectempty\r\n"
            "\tthe empty text\r\n"
            "selecterror\r\n"
            "\tthe error text\r\n"
            "endselect");
}

TEST_F(ClauseBuildersTest, WithFunctionsTheFirstLineTakesTheBindings) {
  AddCountOfRows();
  Add("sum", "ORDERITM.QTY");
  EXPECT_EQ(Statement(),
            "select count ( * ) :var.count,sum ( ORDERITM.QTY ) :var.sum.ORDERITM.QTY\r\n"
            "from  ORDERITM,CUSTOMER\r\n"
            "endselect");
}

TEST_F(ClauseBuildersTest, EveryCombinationDropsJustTheLinesOfTheAbsentClauses) {
  Use("CUSTOMER0", {"CUSTOMER.NAME"});
  Add("CUSTOMER.NAME");
  const auto toggles = [this](int page, std::string_view box, std::string_view text) {
    return [=, this] { Fill(page, box, Text(box).empty() ? text : ""); };
  };
  struct Clause {
    const char* lines;
    std::function<void()> toggle;
    bool isThere = false;
  };
  std::vector<Clause> clauses{
      {"\r\nwhere NAME = 1", toggles(kWherePage, "txtwhereCondition", "NAME = 1")},
      {"\r\ngroup by  CUSTOMER.NAME", [this] { MarkRow("lstGroupby", "CUSTOMER.NAME"); }},
      {"\r\norder by CUSTOMER.NAME", [this] { Order("lstorderbyasc", "CUSTOMER.NAME"); }},
      {"\r\nas set with 5 rows ", toggles(kWherePage, "txtAsSet", "5")},
      {"\r\nselectdo\r\n\tdo text", toggles(2, "txtSelectDo", "do text")},
      {"\r\nselecteos\r\n\teos text", toggles(3, "txtSelectEOS", "eos text")},
      {"\r\nselectempty\r\n\tno text", toggles(4, "txtselectempty", "no text")},
      {"\r\nselecterror\r\n\tbad text", toggles(5, "txtSelectError", "bad text")},
  };
  for (unsigned step = 0; step < 1U << clauses.size(); ++step) {
    const unsigned combination = step ^ step >> 1;  // one clause comes or goes at each step
    std::string expected = "select CUSTOMER.NAME\r\nfrom  CUSTOMER";
    for (std::size_t i = 0; i < clauses.size(); ++i) {
      const bool wanted = (combination >> i & 1U) != 0;
      if (wanted != clauses[i].isThere) clauses[i].toggle();
      clauses[i].isThere = wanted;
      if (wanted) expected += clauses[i].lines;
    }
    const ControlSnapshot form = host().Save();
    ASSERT_EQ(Statement(), expected + "\r\nendselect") << "combination " << combination;
    host().Restore(form);
  }
}

TEST_F(ClauseBuildersTest, EveryClauseIsBuiltAnewForTheNextStatement) {
  Use("CUSTOMER0", {"CUSTOMER.NAME"});
  Add("CUSTOMER.NAME");
  MarkRow("lstGroupby", "CUSTOMER.NAME");
  Order("lstorderbyasc", "CUSTOMER.NAME");
  const std::vector<std::pair<int, const char*>> boxes{
      {1, "txtAsSet"},     {1, "txtwhereCondition"}, {2, "txtSelectDo"},
      {3, "txtSelectEOS"}, {4, "txtselectempty"},    {5, "txtSelectError"}};
  for (const auto& [page, box] : boxes)
    Fill(page, box, "xy");
  const std::string first = Statement();
  MarkRow("lstGroupby", "CUSTOMER.NAME");
  Order("lstorderbyasc", "CUSTOMER.NAME");
  for (const auto& [page, box] : boxes)
    Fill(page, box, "");
  EXPECT_EQ(Statement(), first + "\r\nselect CUSTOMER.NAME\r\nfrom  CUSTOMER\r\nendselect");
}

// Select and from.

TEST_F(ClauseBuildersTest, TheTablesStandInTheReverseOfTheirListWhateverTheOrderOfMarking) {
  MakeNew();
  Catalogue("TABLEAAA0,TABLEBBB0,TABLECCC0,TABLEDDD0",
            Records({"TABLEAAA.X", "TABLEBBB.X", "TABLECCC.X", "TABLEDDD.X"}));
  for (const int row : {1, 3, 0})
    Mark("lsttables", row);
  Add("TABLEAAA.X");
  EXPECT_EQ(Statement(), "select TABLEAAA.X\r\nfrom  TABLEDDD,TABLEBBB,TABLEAAA\r\nendselect");
}

TEST_F(ClauseBuildersTest, TheSelectListComesInItsSortOrder) {
  Add("ORDERITM.*");
  Add("CUSTOMER.NAME");
  Add("CUSTOMER.CUST_NO");
  EXPECT_EQ(Statement(),
            "select CUSTOMER.CUST_NO,CUSTOMER.NAME,ORDERITM.*\r\n"
            "from  ORDERITM,CUSTOMER\r\n"
            "endselect");
}

// Bindings.

struct Binding {
  const char* function;
  const char* field;
  const char* item;
};

void PrintTo(const Binding& value, std::ostream* out) {
  *out << value.function << " of " << value.field;
}

class BindingTest : public ClauseBuildersTest, public ::testing::WithParamInterface<Binding> {};

TEST_P(BindingTest, FollowsItsExpression) {
  Use("TABLE1230", {"TABLE123.QTY", "TABLE123.Q"});
  Add(GetParam().function, GetParam().field);
  EXPECT_EQ(Statement(),
            std::string("select ") + GetParam().item + "\r\nfrom  TABLE123\r\nendselect");
}

INSTANTIATE_TEST_SUITE_P(
    Expressions, BindingTest,
    ::testing::Values(Binding{"sum", "TABLE123.QTY", "sum ( TABLE123.QTY ) :var.sum.TABLE123.QTY"},
                      Binding{"avg", "TABLE123.QTY", "avg ( TABLE123.QTY ) :var.avg.TABLE123.QTY"},
                      Binding{"max", "TABLE123.QTY", "max ( TABLE123.QTY ) :var.max.TABLE123.QTY"},
                      Binding{"min", "TABLE123.Q", "min ( TABLE123.Q ) :var.min.TABLE123.Q"},
                      Binding{"count", "TABLE123.QTY",
                              "count ( TABLE123.QTY ) :var.count.TABLE123.QTY"},
                      Binding{"count", "TABLE123.Q", "count ( TABLE123.Q ) :var.count.TABLE123.Q"},
                      Binding{"max", "TABLE123.*", "max ( TABLE123.* ) :var.max.TABLE123"},
                      Binding{"sum", "TABLE123.*", "sum ( TABLE123.* ) :var.sum.TABLE123"},
                      Binding{"count", "TABLE123.*", "count ( * ) :var.count"}));

TEST_F(ClauseBuildersTest, TheCountOfRowsAndThatOfAWholeTableAreTheSameItem) {
  AddCountOfRows();
  Add("count", "CUSTOMER.*");
  EXPECT_EQ(Statement(),
            "select count ( * ) :var.count,count ( * ) :var.count\r\n"
            "from  ORDERITM,CUSTOMER\r\n"
            "endselect");
}

TEST_F(ClauseBuildersTest, PlainEntriesAreCutAtTheSamePlacesWhenARefusedFieldTurnedTheModeOn) {
  Use("CUSTOMER0,ORDERITM0,sumtable0", {"CUSTOMER.CUST_NO", "ORDERITM.QTY", "sumtable.A"});
  Add("CUSTOMER.CUST_NO");
  Add("ORDERITM.*");
  Add("sumtable.A");
  EXPECT_EQ(
      Log(),
      Texts{ErrorMessage("Selection Not Allowed --Select A Different Field To Proceed Further")});
  EXPECT_EQ(Statement(),
            "select CUSTOMER.CUST_NO:var.CUS.MER.CUST_,ORDERITM.*:var.ORD.\r\n"
            "from  sumtable,ORDERITM,CUSTOMER\r\n"
            "endselect");
}

TEST_F(ClauseBuildersTest, TheCountPatternsAreReadWithoutLetterCase) {
  MakeNew();
  Catalogue("TABLE1230", List({Field("N"), Field("NTABLE123.QTY")}));
  EXPECT_EQ(RecordsOf("select COUNT ( * ) ,Count ( TABLE123.QTY ) ,COUNT ( TABLE123.* ) ,"
                      "TABLE123.QTY from TABLE123"),
            "long*Q*V*R*N*count ( * ) :var.count,"
            "long*Q*V*R*N*Count ( TABLE123.QTY ) :var.count.TABLE123.QTY,"
            "long*Q*V*R*N*Count ( TABLE123.QTY ) :var.count.TABLE123.QTY,"
            "long*Q*V*R*N*count ( * ) :var.count," +
                List({Field("N"), Field("NTABLE123.QTY")}));
}

TEST_F(ClauseBuildersTest, TheTypeWordIsLongWhateverTheRecordsSay) {
  MakeNew();
  Catalogue("TABLE1230", Field("NTABLE123.QTY", "decimal"));
  EXPECT_EQ(RecordsOf("select avg ( TABLE123.QTY ) ,TABLE123.* from TABLE123"),
            "long*Q*V*R*N*avg ( TABLE123.QTY ) :var.avg.TABLE123.QTY," +
                Field("NTABLE123.QTY", "decimal"));
}

// Failures of the bindings.

TEST_F(ClauseBuildersTest, ABrokenRecordFailsTheBindingThatReachesIt) {
  Add("sum", "ORDERITM.QTY");
  host().PrpStrFields(Wide(List({Field("NCUSTOMER.NAME"), "broken", Field("NORDERITM.QTY")})));
  ExpectError(ErrorKind::kSubscript, [this] { Click("cmdAddSelect"); });
  EXPECT_EQ(Result(), "");
  EXPECT_EQ(Log(), Texts{"changed PrpStrFields"});
}

TEST_F(ClauseBuildersTest, ABrokenRecordBehindEveryOtherFailsTheBindingWithoutAMatch) {
  Add("sum", "ORDERITM.QTY");
  host().PrpStrFields(Wide(List({Field("Norderitm.QTY"), Field("NORDERITM.QTY2"), "broken"})));
  ExpectError(ErrorKind::kSubscript, [this] { Click("cmdAddSelect"); });
  EXPECT_EQ(Log(), Texts{"changed PrpStrFields"});
}

class MatchTest : public ClauseBuildersTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(MatchTest, EndsTheWalkBeforeTheBrokenRecord) {
  Add("sum", "ORDERITM.QTY");
  host().PrpStrFields(Wide(List({Field("NCUSTOMER.NAME"), GetParam(), "broken"})));
  EXPECT_EQ(Statement(),
            "select sum ( ORDERITM.QTY ) :var.sum.ORDERITM.QTY\r\n"
            "from  ORDERITM,CUSTOMER\r\n"
            "endselect");
  EXPECT_EQ(Log(), Texts{"changed PrpStrFields"});
}

INSTANTIATE_TEST_SUITE_P(Names, MatchTest,
                         ::testing::Values("long*Q*V*R*N*NORDERITM.QTY*Q*V*R*N*X",
                                           "long*Q*V*R*N*NORDERITM.QT", "*Q*V*R*N*YITM",
                                           "*Q*V*R*N*Nsum ( O", "long*Q*V*R*N*N", "long*Q*V*R*N*"));

TEST_F(ClauseBuildersTest, TheCountOfRowsReadsNoRecordAndThatOfAWholeTableDoes) {
  AddCountOfRows();
  host().PrpStrFields(u"broken");
  EXPECT_EQ(Statement(), "select count ( * ) :var.count\r\nfrom  ORDERITM,CUSTOMER\r\nendselect");
  Add("count", "CUSTOMER.*");
  ExpectError(ErrorKind::kSubscript, [this] { Click("cmdAddSelect"); });
  EXPECT_EQ(Log(), Texts{"changed PrpStrFields"});
}

TEST_F(ClauseBuildersTest, PlainFieldsReadNoRecord) {
  Add("CUSTOMER.NAME");
  host().PrpStrFields(u"broken");
  EXPECT_EQ(Statement(), "select CUSTOMER.NAME\r\nfrom  ORDERITM,CUSTOMER\r\nendselect");
  EXPECT_EQ(Log(), Texts{"changed PrpStrFields"});
}

TEST_F(ClauseBuildersTest, AFieldListThatWasNeverWrittenFailsABinding) {
  MemoryBag bag;
  bag.values["mPrpStrFields"] = Field("NCUSTOMER.NAME");
  MakeStored(bag);
  host().PrpStrTables(u"CUSTOMER0");
  ExpectError(ErrorKind::kSubscript, [this] { Mark("lsttables", 0); });
  Add("sum", "CUSTOMER.*");
  ExpectError(ErrorKind::kSubscript, [this] { Click("cmdAddSelect"); });
  EXPECT_EQ(Result(), "");
  EXPECT_EQ(Log(), Texts{"changed PrpStrTables"});
}

TEST_F(ClauseBuildersTest, AFieldListThatWasNeverWrittenIsNoMatterToTheCountOfRows) {
  MakeNew();
  host().PrpStrTables(u"CUSTOMER0");
  Mark("lsttables", 0);
  AddCountOfRows();
  EXPECT_EQ(Statement(), "select count ( * ) :var.count\r\nfrom  CUSTOMER\r\nendselect");
  EXPECT_EQ(Log(), (Texts{"changed PrpStrTables",
                          ErrorMessage("No Fields Present For The Selected Table")}));
}

TEST_F(ClauseBuildersTest, AnEmptyFieldListFailsNoBinding) {
  Add("sum", "ORDERITM.QTY");
  host().PrpStrFields(u"");
  EXPECT_EQ(Statement(),
            "select sum ( ORDERITM.QTY ) :var.sum.ORDERITM.QTY\r\n"
            "from  ORDERITM,CUSTOMER\r\n"
            "endselect");
  EXPECT_EQ(Log(), Texts{"changed PrpStrFields"});
}

struct ShortItem {
  const char* text;
  bool fails;
};

void PrintTo(const ShortItem& value, std::ostream* out) {
  *out << ::testing::PrintToString(std::string(value.text));
}

class ShortItemTest : public ClauseBuildersTest, public ::testing::WithParamInterface<ShortItem> {};

TEST_P(ShortItemTest, FailsWhereTheLengthOfItsBindingIsNegative) {
  const std::string statement =
      std::string("select ") + GetParam().text + ",CUSTOMER.* from CUSTOMER";
  if (GetParam().fails) {
    ExpectError(ErrorKind::kArgument, [&] { RecordsOf(statement); });
  } else {
    EXPECT_EQ(RecordsOf(statement), Records({"CUSTOMER.CUST_NO", "CUSTOMER.NAME"}));
  }
}

INSTANTIATE_TEST_SUITE_P(Lengths, ShortItemTest,
                         ::testing::Values(ShortItem{"abcdef", true}, ShortItem{"abcdefg", false},
                                           ShortItem{"a", true}, ShortItem{"max ( *)", true},
                                           ShortItem{"max ( a*)", true},
                                           ShortItem{"max ( ab*)", false},
                                           ShortItem{"count ( a)", true},
                                           ShortItem{"count ( ab)", false}));

// Group by.

TEST_F(ClauseBuildersTest, GroupFieldsStandInTheOrderOfTheirList) {
  Add("CUSTOMER.*");
  for (const char* field : {"ORDERITM.QTY", "CUSTOMER.CUST_NO"})
    MarkRow("lstGroupby", field);
  EXPECT_EQ(Statement(),
            "select CUSTOMER.*\r\n"
            "from  ORDERITM,CUSTOMER\r\n"
            "group by  CUSTOMER.CUST_NO,ORDERITM.QTY\r\n"
            "endselect");
}

TEST_F(ClauseBuildersTest, AGroupFieldOutsideTheSelectListDoesNotComeIntoIt) {
  Add("CUSTOMER.NAME");
  MarkRow("lstGroupby", "ORDERITM.QTY");
  EXPECT_EQ(Statement(),
            "select CUSTOMER.NAME\r\n"
            "from  ORDERITM,CUSTOMER\r\n"
            "group by  ORDERITM.QTY\r\n"
            "endselect");
}

TEST_F(ClauseBuildersTest, AGroupFieldBesideFunctionsStandsInTheGroupByClauseAlone) {
  Add("sum", "ORDERITM.QTY");
  MarkRow("lstGroupby", "CUSTOMER.NAME");
  MarkRow("lstGroupby", "ORDERITM.QTY");
  EXPECT_EQ(Statement(),
            "select sum ( ORDERITM.QTY ) :var.sum.ORDERITM.QTY\r\n"
            "from  ORDERITM,CUSTOMER\r\n"
            "group by  CUSTOMER.NAME,ORDERITM.QTY\r\n"
            "endselect");
}

// A clear takes the control out of the mode of functions and leaves them in the list.
TEST_F(ClauseBuildersTest, AGroupFieldThatAFunctionAloneHoldsStandsInTheGroupByClause) {
  Add("sum", "CUSTOMER.NAME");
  host().ClearAll(6);
  MarkRow("lstGroupby", "CUSTOMER.NAME");
  EXPECT_EQ(Statement(),
            "select sum ( CUSTOMER.NAME ) \r\n"
            "from  ORDERITM,CUSTOMER\r\n"
            "group by  CUSTOMER.NAME\r\n"
            "endselect");
}

TEST_F(ClauseBuildersTest, AGroupFieldWithABracketInItsNameIsOneOfTheSelectList) {
  Use("CUSTOMER0", {"CUSTOMER.NO(1)"});
  Add("CUSTOMER.NO(1)");
  MarkRow("lstGroupby", "CUSTOMER.NO(1)");
  EXPECT_EQ(Statement(),
            "select CUSTOMER.NO(1)\r\n"
            "from  CUSTOMER\r\n"
            "group by  CUSTOMER.NO(1)\r\n"
            "endselect");
}

TEST_F(ClauseBuildersTest, TheHostCanBuildTheGroupByClauseAndGetsNothingFromIt) {
  Add("CUSTOMER.NAME");
  MarkRow("lstGroupby", "ORDERITM.QTY");
  EXPECT_TRUE(std::holds_alternative<std::monostate>(host().BuildGroupBy()));
  EXPECT_EQ(Result(), "");
  EXPECT_EQ(Statement(),
            "select CUSTOMER.NAME\r\n"
            "from  ORDERITM,CUSTOMER\r\n"
            "group by  ORDERITM.QTY\r\n"
            "endselect");
}

// Order by and the row limit.

TEST_F(ClauseBuildersTest, OrderFieldsOfBothListsStandInterleavedInTheOrderOfTheRows) {
  Use("CUSTOMER1", {"CUSTOMER.A", "CUSTOMER.B", "CUSTOMER.C"});
  Add("CUSTOMER.*");
  Order("lstorderbydesc", "CUSTOMER.C");
  Order("lstorderbyasc", "CUSTOMER.B");
  Order("lstorderbydesc", "CUSTOMER.A");
  Order("lstorderbyasc", "CUSTOMER._index1");
  EXPECT_EQ(Statement(),
            "select CUSTOMER.*\r\n"
            "from  CUSTOMER\r\n"
            "order by CUSTOMER._index1,CUSTOMER.A desc,CUSTOMER.B,CUSTOMER.C desc\r\n"
            "endselect");
}

TEST_F(ClauseBuildersTest, ADescendingMarkAloneGivesAnOrderByLineAndNoAsSetLine) {
  Add("CUSTOMER.NAME");
  Order("lstorderbydesc", "CUSTOMER.NAME");
  EXPECT_EQ(Statement(),
            "select CUSTOMER.NAME\r\n"
            "from  ORDERITM,CUSTOMER\r\n"
            "order by CUSTOMER.NAME desc\r\n"
            "endselect");
}

struct RowLimit {
  const char* text;
  const char* clause;
};

void PrintTo(const RowLimit& value, std::ostream* out) {
  *out << ::testing::PrintToString(std::string(value.text));
}

class RowLimitTest : public ClauseBuildersTest, public ::testing::WithParamInterface<RowLimit> {};

TEST_P(RowLimitTest, GoesIntoTheAsSetLineAsItStands) {
  Add("CUSTOMER.NAME");
  Fill(kWherePage, "txtAsSet", GetParam().text);
  EXPECT_EQ(Statement(), std::string("select CUSTOMER.NAME\r\nfrom  ORDERITM,CUSTOMER") +
                             GetParam().clause + "\r\nendselect");
}

INSTANTIATE_TEST_SUITE_P(Texts, RowLimitTest,
                         ::testing::Values(RowLimit{"", ""}, RowLimit{"   ", ""},
                                           RowLimit{"5", "\r\nas set with 5 rows "},
                                           RowLimit{"  5 ", "\r\nas set with   5  rows "},
                                           RowLimit{"\t", "\r\nas set with \t rows "},
                                           RowLimit{"many", "\r\nas set with many rows "}));

// The ends of the where text and of the statement blocks.

struct Ends {
  std::string_view text;
  std::string_view trimmed;
};

void PrintTo(const Ends& value, std::ostream* out) {
  *out << ::testing::PrintToString(std::string(value.text));
}

class WhereTest : public ClauseBuildersTest, public ::testing::WithParamInterface<Ends> {};

TEST_P(WhereTest, LosesItsBlankEndsOrEverything) {
  Add("CUSTOMER.NAME");
  Fill(kWherePage, "txtwhereCondition", GetParam().text);
  std::string expected = "select CUSTOMER.NAME\r\nfrom  ORDERITM,CUSTOMER";
  if (!GetParam().trimmed.empty()) expected += "\r\nwhere " + std::string(GetParam().trimmed);
  EXPECT_EQ(Statement(), expected + "\r\nendselect");
}

INSTANTIATE_TEST_SUITE_P(
    Texts, WhereTest,
    ::testing::Values(
        // What is left is held against the place where it starts.
        Ends{"", ""}, Ends{"x", ""}, Ends{"ab", "ab"}, Ends{" ab", ""}, Ends{" abc", "abc"},
        Ends{"\r\nabcd", "abcd"}, Ends{"\r\nabc", ""}, Ends{"\t\t\t", ""}, Ends{"   ", ""},
        Ends{"\r\n", ""}, Ends{" \t", ""}, Ends{"\t ", ""}, Ends{" ", ""},
        Ends{"\r\n\r\n\r\nabcdefg", ""}, Ends{"\r\n\r\n\r\nabcdefgh", "abcdefgh"},
        // The blanks behind it count as what is left.
        Ends{"x ", "x"}, Ends{" ab ", "ab"}, Ends{" a\r\n", "a"}, Ends{"\t \tx   \r\n", "x"},
        // Which characters are blank.
        Ends{"\0abc"sv, "abc"}, Ends{"\0ab"sv, ""}, Ends{"ab\0\t \r\n"sv, "ab"}, Ends{"\fa", "\fa"},
        Ends{"\u00A0a", "\u00A0a"}, Ends{"\0\0\0\0"sv, ""},
        // What lies inside stays.
        Ends{"a = 1\r\n AND\r\n\r\n\tb = 2 ", "a = 1\r\n AND\r\n\r\n\tb = 2"},
        Ends{"a\0b"sv, "a\0b"sv}));

struct Block {
  int page;
  const char* box;
  const char* keyword;
};

void PrintTo(const Block& value, std::ostream* out) {
  *out << value.box;
}

struct BlockText {
  std::string_view text;
  const char* block;  // behind the keyword; nullptr for no clause at all
};

void PrintTo(const BlockText& value, std::ostream* out) {
  *out << ::testing::PrintToString(std::string(value.text));
}

class BlockTest : public ClauseBuildersTest,
                  public ::testing::WithParamInterface<std::tuple<Block, BlockText>> {};

TEST_P(BlockTest, StandsOneTabInBehindItsKeyword) {
  const auto& [block, text] = GetParam();
  Add("CUSTOMER.NAME");
  Fill(block.page, block.box, text.text);
  std::string expected = "select CUSTOMER.NAME\r\nfrom  ORDERITM,CUSTOMER";
  if (text.block != nullptr) expected += std::string("\r\n") + block.keyword + text.block;
  EXPECT_EQ(Statement(), expected + "\r\nendselect");
}

const Block kDo{2, "txtSelectDo", "selectdo"};
const Block kEndOfSet{3, "txtSelectEOS", "selecteos"};
const Block kEmpty{4, "txtselectempty", "selectempty"};
const Block kError{5, "txtSelectError", "selecterror"};

INSTANTIATE_TEST_SUITE_P(
    Boxes, BlockTest,
    ::testing::Combine(
        ::testing::Values(kDo, kEndOfSet, kEmpty, kError),
        ::testing::Values(
            BlockText{"", nullptr}, BlockText{"x", nullptr}, BlockText{"xy", "\r\n\txy"},
            BlockText{" ab", nullptr}, BlockText{" abc", "\r\n\tabc"},
            BlockText{"one\r\ntwo", "\r\n\tone\r\n\ttwo"},
            // A line keeps the tabs that it has.
            BlockText{"if\r\n\tthen\r\nendif", "\r\n\tif\r\n\t\tthen\r\n\tendif"},
            // A blank line gets a tab too.
            BlockText{"one\r\n\r\ntwo", "\r\n\tone\r\n\t\r\n\ttwo"},
            // Only both characters together are a line break.
            BlockText{"one\ntwo\rthree", "\r\n\tone\ntwo\rthree"},
            BlockText{"one\r\n \r\n", "\r\n\tone"},
            // More blank lines than text.
            BlockText{"\r\n\r\n\r\nabc", nullptr}, BlockText{"\r\nabc", nullptr},
            // With the tabs the blank lines outweigh the text, and the block stays empty.
            BlockText{"\r\nabcd", "\r\n\t"}, BlockText{"\r\nabcde", "\r\n\tabcde"},
            BlockText{"\r\n\r\nabcdef", "\r\n\t"},
            BlockText{"\r\n\r\n\r\n\r\nabc\r\nabcde", "\r\n\t"},
            BlockText{"\r\na\r\nb\r\nc", "\r\n\ta\r\n\tb\r\n\tc"})));

// Long texts.

TEST_F(ClauseBuildersTest, AWhereTextOfTheGreatestIntegerGoesIn) {
  Add("CUSTOMER.NAME");
  const std::string text(32767, 'x');
  Fill(kWherePage, "txtwhereCondition", text);
  EXPECT_TRUE(Statement() ==
              "select CUSTOMER.NAME\r\nfrom  ORDERITM,CUSTOMER\r\nwhere " + text + "\r\nendselect");
}

TEST_F(ClauseBuildersTest, ALongerWhereTextOverflowsAndAddsNoStatement) {
  Add("CUSTOMER.NAME");
  Fill(kWherePage, "txtwhereCondition", std::string(32768, 'x'));
  ExpectError(ErrorKind::kOverflow, [this] { Click("cmdAddSelect"); });
  EXPECT_EQ(Result(), "");
}

TEST_F(ClauseBuildersTest, BlankEndsCountInTheLengthOfALongText) {
  Add("CUSTOMER.NAME");
  for (const std::string& text : {" " + std::string(32767, 'x'), std::string(32767, 'x') + " ",
                                  std::string(32767, ' ') + "x", std::string(32768, ' ')}) {
    Fill(kWherePage, "txtwhereCondition", text);
    ExpectError(ErrorKind::kOverflow, [this] { Click("cmdAddSelect"); });
  }
  EXPECT_EQ(Result(), "");
}

class LongBlockTest : public ClauseBuildersTest, public ::testing::WithParamInterface<Block> {};

TEST_P(LongBlockTest, GoesInUpToTheGreatestInteger) {
  Add("CUSTOMER.NAME");
  const std::string text(32767, 'x');
  Fill(GetParam().page, GetParam().box, text);
  EXPECT_TRUE(Statement() == std::string("select CUSTOMER.NAME\r\nfrom  ORDERITM,CUSTOMER\r\n") +
                                 GetParam().keyword + "\r\n\t" + text + "\r\nendselect");
}

TEST_P(LongBlockTest, OverflowsBeyondIt) {
  Add("CUSTOMER.NAME");
  Fill(GetParam().page, GetParam().box, std::string(32768, 'x'));
  ExpectError(ErrorKind::kOverflow, [this] { Click("cmdAddSelect"); });
  EXPECT_EQ(Result(), "");
}

TEST_P(LongBlockTest, OverflowsWithTheTabsThatItsLinesGet) {
  Add("CUSTOMER.NAME");
  Fill(GetParam().page, GetParam().box, std::string(32764, 'x') + "\r\nx");
  ExpectError(ErrorKind::kOverflow, [this] { Click("cmdAddSelect"); });
  EXPECT_EQ(Result(), "");
}

INSTANTIATE_TEST_SUITE_P(Boxes, LongBlockTest, ::testing::Values(kDo, kEndOfSet, kEmpty, kError));

}  // namespace
}  // namespace zolt20::tests
