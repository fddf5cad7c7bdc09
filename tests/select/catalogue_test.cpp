// The catalogue: the host's tables and fields, and what marking and unmarking a table does to the
// lists that offer fields.
#include <algorithm>
#include <map>
#include <ostream>
#include <string>

#include "tests/support/control_test.h"
#include "tests/support/silent.h"

namespace zolt20::tests {
namespace {

using Lists = std::map<std::string, Texts>;

const char* const kNoFields = "No Fields Present For The Selected Table";
const char* const kNotValid = "Not a Valid Table";

class CatalogueTest : public ControlTest {
 protected:
  /// All lists that marking a table fills, by their names.
  Lists FilledLists() {
    Lists lists;
    for (const char* name : {"lstFields", "lstGroupby", "lstorderbyasc", "lstorderbydesc",
                             "cboWhereFields", "cboWhereFields1"}) {
      lists[name] = Rows(name);
    }
    return lists;
  }

  /// Clicks the row, to unmark it where it is marked.
  void Unmark(std::string_view list, int row) { Click(list, row); }

  /// Chooses a field of the catalogue for the select list.
  void Choose(std::string_view field) {
    const Texts rows = Rows("lstFields");
    const auto row = std::find(rows.begin(), rows.end(), field) - rows.begin();
    Mark("lstFields", static_cast<int>(row));
    Click("cmdMoveOne");
  }
};

const Lists kEmptyLists{{"lstFields", {}},      {"lstGroupby", {}},     {"lstorderbyasc", {}},
                        {"lstorderbydesc", {}}, {"cboWhereFields", {}}, {"cboWhereFields1", {}}};

// The table list.

TEST_F(CatalogueTest, CreationWithoutACatalogueAsksForNoTable) {
  EXPECT_EQ(Rows("lsttables"), Texts{});
  EXPECT_EQ(ListIndex("lsttables"), -1);
}

TEST_F(CatalogueTest, ATableIsShownByTheFirstEightCharactersOfItsEntry) {
  host().PrpStrTables(u"CUSTOMER2,ORDERITM0,INVOICES,PAYMENTSx");
  EXPECT_EQ(Rows("lsttables"), (Texts{"CUSTOMER", "ORDERITM", "INVOICES", "PAYMENTS"}));
  EXPECT_EQ(Log(), Texts{"changed PrpStrTables"});
}

TEST_F(CatalogueTest, AnEntryOfUnderEightCharactersGivesNoRowAndNoMessage) {
  host().PrpStrTables(u"SHORT1,,CUSTOMER2,SEVENCH");
  EXPECT_EQ(Rows("lsttables"), Texts{"CUSTOMER"});
  EXPECT_EQ(Log(), Texts{"changed PrpStrTables"});
}

TEST_F(CatalogueTest, AnEmptyTableListGivesNoRow) {
  host().PrpStrTables(u"");
  EXPECT_EQ(Rows("lsttables"), Texts{});
  EXPECT_EQ(Log(), Texts{"changed PrpStrTables"});
}

TEST_F(CatalogueTest, TheTableListKeepsTheOrderOfTheHost) {
  host().PrpStrTables(u"ZEBRATAB0,APPLETAB0");
  EXPECT_EQ(Rows("lsttables"), (Texts{"ZEBRATAB", "APPLETAB"}));
  EXPECT_EQ(Log(), Texts{"changed PrpStrTables"});
}

TEST_F(CatalogueTest, ASecondTableListAddsItsRowsBehindTheOldOnes) {
  Catalogue("CUSTOMER0", Field("NCUSTOMER.CUST_NO"));
  Mark("lsttables", 0);
  host().PrpStrTables(u"ORDERITM0,CUSTOMER0");
  EXPECT_EQ(Rows("lsttables"), (Texts{"CUSTOMER", "ORDERITM", "CUSTOMER"}));
  EXPECT_EQ(MarkedRows("lsttables"), RowNumbers{0});
  EXPECT_EQ(Log(), Texts{"changed PrpStrTables"});
}

TEST_F(CatalogueTest, TheFieldListFillsNoList) {
  Catalogue("CUSTOMER2", Field("NCUSTOMER.CUST_NO"));
  EXPECT_EQ(FilledLists(), kEmptyLists);
  EXPECT_EQ(Rows("lstSelectedFields"), Texts{});
}

// A host that looks at the form when a property is reported.
class LookingHost final : public SilentHost {
 public:
  void PropertyChanged(std::string_view /*property*/) override {
    rowsAtReport = control->Form().lsttables.ListCount();
  }

  ZOLT20MapControl* control = nullptr;
  int rowsAtReport = -1;
};

TEST(CatalogueReport, TheTableListIsReportedWhenTheRowsStand) {
  LookingHost host;
  ZOLT20MapControl control(host);
  host.control = &control;
  control.PrpStrTables(u"CUSTOMER2,ORDERITM0");
  EXPECT_EQ(host.rowsAtReport, 2);
}

// Marking a table.

TEST_F(CatalogueTest, MarkingATableFillsTheLists) {
  Catalogue("CUSTOMER2", List({Field("NCUSTOMER.CUST_NO"), Field("YCUSTOMER.NAME")}));
  Mark("lsttables", 0);
  const Texts indexes{"CUSTOMER._index1", "CUSTOMER._index2"};
  const Texts fields{"CUSTOMER.CUST_NO", "CUSTOMER.NAME"};
  EXPECT_EQ(FilledLists(),
            (Lists{{"lstFields", {"CUSTOMER.*", "CUSTOMER.CUST_NO", "CUSTOMER.NAME"}},
                   {"lstGroupby", fields},
                   {"lstorderbyasc", indexes},
                   {"lstorderbydesc", indexes},
                   {"cboWhereFields",
                    {"CUSTOMER._index1", "CUSTOMER._index2", "CUSTOMER.CUST_NO", "CUSTOMER.NAME"}},
                   {"cboWhereFields1", fields}}));
  EXPECT_EQ(Rows("lstSelectedFields"), Texts{});
  EXPECT_EQ(MarkedRows("lsttables"), RowNumbers{0});
}

TEST_F(CatalogueTest, FieldsStandInTheOrderOfTheRecordsAmongThoseOfOtherTables) {
  Catalogue("CUSTOMER0", List({Field("NCUSTOMER.Z"), Field("NORDERITM.QTY"), Field("NCUSTOMER.A"),
                               Field("NCUSTOMER.Z")}));
  Mark("lsttables", 0);
  EXPECT_EQ(Rows("lstFields"), (Texts{"CUSTOMER.*", "CUSTOMER.Z", "CUSTOMER.A", "CUSTOMER.Z"}));
}

TEST_F(CatalogueTest, AnIndexCountOfZeroGivesNoIndexRows) {
  Catalogue("ORDERITM0", Field("NORDERITM.QTY"));
  Mark("lsttables", 0);
  EXPECT_EQ(FilledLists(), (Lists{{"lstFields", {"ORDERITM.*", "ORDERITM.QTY"}},
                                  {"lstGroupby", {"ORDERITM.QTY"}},
                                  {"lstorderbyasc", {}},
                                  {"lstorderbydesc", {}},
                                  {"cboWhereFields", {"ORDERITM.QTY"}},
                                  {"cboWhereFields1", {"ORDERITM.QTY"}}}));
}

TEST_F(CatalogueTest, ANegativeIndexCountGivesNoIndexRows) {
  Catalogue("ORDERITM-3", Field("NORDERITM.QTY"));
  Mark("lsttables", 0);
  EXPECT_EQ(FilledLists(), (Lists{{"lstFields", {"ORDERITM.*", "ORDERITM.QTY"}},
                                  {"lstGroupby", {"ORDERITM.QTY"}},
                                  {"lstorderbyasc", {}},
                                  {"lstorderbydesc", {}},
                                  {"cboWhereFields", {"ORDERITM.QTY"}},
                                  {"cboWhereFields1", {"ORDERITM.QTY"}}}));
}

TEST_F(CatalogueTest, IndexNumbersHaveNoLeadingZeros) {
  Catalogue("CUSTOMER10", Field("NCUSTOMER.CUST_NO"));
  Mark("lsttables", 0);
  const Texts rows = Rows("lstorderbydesc");
  ASSERT_EQ(rows.size(), 10U);
  EXPECT_EQ(rows[0], "CUSTOMER._index1");
  EXPECT_EQ(rows[8], "CUSTOMER._index9");
  EXPECT_EQ(rows[9], "CUSTOMER._index10");
}

struct IndexCount {
  const char* text;
  std::size_t rows;
};

void PrintTo(const IndexCount& value, std::ostream* out) {
  *out << ::testing::PrintToString(std::string(value.text));
}

class NumericIndexCountTest : public CatalogueTest,
                              public ::testing::WithParamInterface<IndexCount> {};

TEST_P(NumericIndexCountTest, IsRoundedToAnInteger) {
  Catalogue(std::string("CUSTOMER") + GetParam().text, Field("NCUSTOMER.CUST_NO"));
  Mark("lsttables", 0);
  EXPECT_EQ(Rows("lstFields"), (Texts{"CUSTOMER.*", "CUSTOMER.CUST_NO"}));
  EXPECT_EQ(Rows("lstorderbyasc").size(), GetParam().rows);
  EXPECT_EQ(Rows("lstorderbydesc"), Rows("lstorderbyasc"));
  EXPECT_EQ(Rows("cboWhereFields").size(), GetParam().rows + 1);
  EXPECT_EQ(Rows("cboWhereFields1").size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Counts, NumericIndexCountTest,
                         ::testing::Values(IndexCount{"2", 2}, IndexCount{"002", 2},
                                           IndexCount{"+2", 2}, IndexCount{"-2", 0},
                                           IndexCount{" 2 ", 2}, IndexCount{"2.", 2},
                                           IndexCount{".5", 0}, IndexCount{"0.5", 0},
                                           IndexCount{"0.51", 1}, IndexCount{"1.5", 2},
                                           IndexCount{"2.5", 2}, IndexCount{"3.5", 4},
                                           IndexCount{"1e1", 10}, IndexCount{"20E-1", 2},
                                           IndexCount{"-32768", 0}, IndexCount{"-32768.5", 0}));

class UnfitIndexCountTest : public CatalogueTest,
                            public ::testing::WithParamInterface<const char*> {};

TEST_P(UnfitIndexCountTest, IsShownAndAnsweredWithTheMessage) {
  Catalogue(std::string("CUSTOMER") + GetParam(), Field("NCUSTOMER.CUST_NO"));
  EXPECT_EQ(Rows("lsttables"), Texts{"CUSTOMER"});
  Mark("lsttables", 0);
  EXPECT_EQ(Log(), Texts{ErrorMessage(kNotValid)});
  EXPECT_EQ(FilledLists(), kEmptyLists);
  EXPECT_EQ(MarkedRows("lsttables"), RowNumbers{0});
}

INSTANTIATE_TEST_SUITE_P(Counts, UnfitIndexCountTest,
                         ::testing::Values("", "x", " ", ".", "+", "- 2", "2x", "1.2.3", "1e", "e1",
                                           "0x2", "\t2"));

class GreatIndexCountTest : public CatalogueTest,
                            public ::testing::WithParamInterface<const char*> {};

TEST_P(GreatIndexCountTest, OverflowsBehindTheRowOfTheWholeTable) {
  Catalogue(std::string("CUSTOMER") + GetParam(), Field("NCUSTOMER.CUST_NO"));
  ExpectError(ErrorKind::kOverflow, [this] { Mark("lsttables", 0); });
  Lists lists = kEmptyLists;
  lists["lstFields"] = {"CUSTOMER.*"};
  EXPECT_EQ(FilledLists(), lists);
  EXPECT_EQ(MarkedRows("lsttables"), RowNumbers{0});
}

INSTANTIATE_TEST_SUITE_P(Counts, GreatIndexCountTest,
                         ::testing::Values("32768", "40000", "32767.5", "-32769", "1e5"));

TEST_F(CatalogueTest, TheGreatestIntegerIsAnIndexCount) {
  Catalogue("CUSTOMER32767", Field("NCUSTOMER.CUST_NO"));
  Mark("lsttables", 0);
  const Texts rows = Rows("lstorderbyasc");
  ASSERT_EQ(rows.size(), 32767U);
  EXPECT_EQ(rows.back(), "CUSTOMER._index32767");
}

TEST_F(CatalogueTest, TwoTablesStandInTheOrderOfMarking) {
  Catalogue("CUSTOMER1,ORDERITM1", List({Field("NCUSTOMER.CUST_NO"), Field("NORDERITM.QTY")}));
  Mark("lsttables", 1);
  Mark("lsttables", 0);
  const Texts indexes{"ORDERITM._index1", "CUSTOMER._index1"};
  const Texts fields{"ORDERITM.QTY", "CUSTOMER.CUST_NO"};
  EXPECT_EQ(FilledLists(),
            (Lists{{"lstFields", {"ORDERITM.*", "ORDERITM.QTY", "CUSTOMER.*", "CUSTOMER.CUST_NO"}},
                   {"lstGroupby", fields},
                   {"lstorderbyasc", indexes},
                   {"lstorderbydesc", indexes},
                   {"cboWhereFields",
                    {"ORDERITM._index1", "ORDERITM.QTY", "CUSTOMER._index1", "CUSTOMER.CUST_NO"}},
                   {"cboWhereFields1", fields}}));
  EXPECT_EQ(MarkedRows("lsttables"), (RowNumbers{0, 1}));
}

TEST_F(CatalogueTest, TypeWordFlagAndFurtherTextDoNotMatter) {
  Catalogue("CUSTOMER0", List({Field("NCUSTOMER.A", "char", ""), Field("YCUSTOMER.B", "", "X Y"),
                               Field("?CUSTOMER.C", "decimal"), Field(" CUSTOMER.D"),
                               "long*Q*V*R*N*NCUSTOMER.E"}));
  Mark("lsttables", 0);
  const Texts fields{"CUSTOMER.A", "CUSTOMER.B", "CUSTOMER.C", "CUSTOMER.D", "CUSTOMER.E"};
  EXPECT_EQ(Rows("lstGroupby"), fields);
  EXPECT_EQ(Rows("cboWhereFields"), fields);
  EXPECT_EQ(Rows("cboWhereFields1"), fields);
}

TEST_F(CatalogueTest, AFieldBelongsToATableByEightCharactersAndNothingElse) {
  Catalogue("CUSTOMER0", List({Field("NCUSTOMER"), Field("NCUSTOMERS.A"), Field("Ncustomer.B"),
                               Field("NNCUSTOMER.C"), Field("NCUSTOME"), Field("")}));
  Mark("lsttables", 0);
  EXPECT_EQ(Rows("lstFields"), (Texts{"CUSTOMER.*", "CUSTOMER", "CUSTOMERS.A"}));
}

TEST_F(CatalogueTest, ANewFieldListHoldsForTheNextMarking) {
  Catalogue("CUSTOMER0", Field("NCUSTOMER.OLD"));
  host().PrpStrFields(Wide(Field("NCUSTOMER.NEW")));
  Mark("lsttables", 0);
  EXPECT_EQ(Rows("lstFields"), (Texts{"CUSTOMER.*", "CUSTOMER.NEW"}));
  EXPECT_EQ(Log(), Texts{"changed PrpStrFields"});
}

// Tables without fields, and tables that are not valid.

TEST_F(CatalogueTest, ATableOutsideTheFieldListIsAnsweredWithAMessageAndStaysMarked) {
  Catalogue("CUSTOMER2", Field("NORDERITM.QTY"));
  Mark("lsttables", 0);
  EXPECT_EQ(Log(), Texts{ErrorMessage(kNoFields)});
  EXPECT_EQ(FilledLists(), kEmptyLists);
  EXPECT_EQ(MarkedRows("lsttables"), RowNumbers{0});
}

TEST_F(CatalogueTest, TheFieldListIsSearchedWithLetterCase) {
  Catalogue("CUSTOMER2", Field("Ncustomer.CUST_NO"));
  Mark("lsttables", 0);
  EXPECT_EQ(Log(), Texts{ErrorMessage(kNoFields)});
}

TEST_F(CatalogueTest, FieldsAreAskedForBeforeTheIndexCount) {
  Catalogue("CUSTOMERx", Field("NORDERITM.QTY"));
  Mark("lsttables", 0);
  EXPECT_EQ(Log(), Texts{ErrorMessage(kNoFields)});
}

TEST_F(CatalogueTest, AnEmptyFieldListHasNoFieldsOfAnyTable) {
  Catalogue("CUSTOMER2", "");
  Mark("lsttables", 0);
  EXPECT_EQ(Log(), Texts{ErrorMessage(kNoFields)});
}

TEST_F(CatalogueTest, WithoutAnyFieldListThereAreNoFieldsOfAnyTable) {
  host().PrpStrTables(u"CUSTOMER2");
  Mark("lsttables", 0);
  EXPECT_EQ(Log(), (Texts{"changed PrpStrTables", ErrorMessage(kNoFields)}));
  EXPECT_EQ(FilledLists(), kEmptyLists);
}

class MentionTest : public CatalogueTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(MentionTest, OutsideATableOfItsOwnGivesTheWholeTableAndTheIndexesAlone) {
  Catalogue("CUSTOMER1", GetParam());
  Mark("lsttables", 0);
  EXPECT_EQ(FilledLists(), (Lists{{"lstFields", {"CUSTOMER.*"}},
                                  {"lstGroupby", {}},
                                  {"lstorderbyasc", {"CUSTOMER._index1"}},
                                  {"lstorderbydesc", {"CUSTOMER._index1"}},
                                  {"cboWhereFields", {"CUSTOMER._index1"}},
                                  {"cboWhereFields1", {}}}));
}

INSTANTIATE_TEST_SUITE_P(Places, MentionTest,
                         ::testing::Values("long*Q*V*R*N*NORDERITM.CUSTOMER_NO*Q*V*R*N*X",
                                           "CUSTOMER*Q*V*R*N*NORDERITM.QTY*Q*V*R*N*X",
                                           "long*Q*V*R*N*NORDERITM.QTY*Q*V*R*N*of CUSTOMER",
                                           "long*Q*V*R*N*CUSTOMER.QTY*Q*V*R*N*X"));

TEST_F(CatalogueTest, ATableThatIsNotValidGoesIntoTheFromClause) {
  Catalogue("CUSTOMERx,INVOICES0,ORDERITM0",
            List({Field("NCUSTOMER.CUST_NO"), Field("NORDERITM.QTY")}));
  Mark("lsttables", 0);
  Mark("lsttables", 1);
  Mark("lsttables", 2);
  EXPECT_EQ(Log(), (Texts{ErrorMessage(kNotValid), ErrorMessage(kNoFields)}));
  Choose("ORDERITM.QTY");
  Click("cmdAddSelect");
  EXPECT_EQ(Result(), "select ORDERITM.QTY\r\nfrom  ORDERITM,INVOICES,CUSTOMER\r\nendselect");
}

TEST_F(CatalogueTest, UnmarkingATableThatIsNotValidShowsNoSecondMessage) {
  Catalogue("CUSTOMERx", Field("NCUSTOMER.CUST_NO"));
  Mark("lsttables", 0);
  Unmark("lsttables", 0);
  EXPECT_EQ(Log(), Texts{ErrorMessage(kNotValid)});
  EXPECT_EQ(MarkedRows("lsttables"), RowNumbers{});
}

// Rows and entries out of step.

TEST_F(CatalogueTest, AShortEntryShiftsEveryLaterRowAgainstTheEntries) {
  Catalogue("SHORT1,CUSTOMER2,ORDERITM0",
            List({Field("NCUSTOMER.CUST_NO"), Field("NORDERITM.QTY")}));
  Mark("lsttables", 0);
  EXPECT_EQ(Log(), Texts{ErrorMessage(kNotValid)});
  EXPECT_EQ(FilledLists(), kEmptyLists);
  Mark("lsttables", 1);
  const Texts indexes{"CUSTOMER._index1", "CUSTOMER._index2"};
  EXPECT_EQ(FilledLists(),
            (Lists{{"lstFields", {"ORDERITM.*", "ORDERITM.QTY"}},
                   {"lstGroupby", {"ORDERITM.QTY"}},
                   {"lstorderbyasc", indexes},
                   {"lstorderbydesc", indexes},
                   {"cboWhereFields", {"CUSTOMER._index1", "CUSTOMER._index2", "ORDERITM.QTY"}},
                   {"cboWhereFields1", {"ORDERITM.QTY"}}}));
}

TEST_F(CatalogueTest, UnmarkingAShiftedRowTakesTheOrderRowsOfTheEntryAndTheOthersOfTheTable) {
  Catalogue("SHORT1,CUSTOMER2,ORDERITM0",
            List({Field("NCUSTOMER.CUST_NO"), Field("NORDERITM.QTY")}));
  Mark("lsttables", 1);
  Choose("ORDERITM.QTY");
  Unmark("lsttables", 1);
  EXPECT_EQ(FilledLists(), (Lists{{"lstFields", {}},
                                  {"lstGroupby", {}},
                                  {"lstorderbyasc", {"ORDERITM.QTY"}},
                                  {"lstorderbydesc", {"ORDERITM.QTY"}},
                                  {"cboWhereFields", {"CUSTOMER._index1", "CUSTOMER._index2"}},
                                  {"cboWhereFields1", {}}}));
  EXPECT_EQ(Rows("lstSelectedFields"), Texts{});
}

TEST_F(CatalogueTest, AfterASecondTableListTheOldRowsReadItsEntries) {
  Catalogue("CUSTOMER2", List({Field("NCUSTOMER.CUST_NO"), Field("NORDERITM.QTY")}));
  host().PrpStrTables(u"ORDERITM1,CUSTOMER2");
  Mark("lsttables", 0);
  EXPECT_EQ(Rows("lstFields"), (Texts{"CUSTOMER.*", "CUSTOMER.CUST_NO"}));
  EXPECT_EQ(Rows("lstorderbyasc"), Texts{"ORDERITM._index1"});
  EXPECT_EQ(Rows("cboWhereFields"), (Texts{"ORDERITM._index1", "CUSTOMER.CUST_NO"}));
  EXPECT_EQ(Log(), Texts{"changed PrpStrTables"});
}

TEST_F(CatalogueTest, ARowBehindTheEntriesOfTheLastTableListFailsWhenMarked) {
  Catalogue("SHORT1,CUSTOMER2", List({Field("NCUSTOMER.CUST_NO"), Field("NORDERITM.QTY")}));
  host().PrpStrTables(u"ORDERITM0");
  ExpectError(ErrorKind::kSubscript, [this] { Mark("lsttables", 1); });
  EXPECT_EQ(MarkedRows("lsttables"), RowNumbers{1});
  EXPECT_EQ(ListIndex("lsttables"), 1);
  EXPECT_EQ(FilledLists(), kEmptyLists);
  EXPECT_EQ(Log(), Texts{"changed PrpStrTables"});
}

TEST_F(CatalogueTest, ARowBehindTheEntriesOfTheLastTableListFailsWhenUnmarked) {
  Catalogue("CUSTOMER0,ORDERITM0", Field("NORDERITM.QTY"));
  Mark("lsttables", 1);
  const Lists marked = FilledLists();
  host().PrpStrTables(u"");
  ExpectError(ErrorKind::kSubscript, [this] { Unmark("lsttables", 1); });
  EXPECT_EQ(MarkedRows("lsttables"), RowNumbers{});
  EXPECT_EQ(FilledLists(), marked);
  EXPECT_EQ(Log(), Texts{"changed PrpStrTables"});
}

// Records without a separator.

TEST_F(CatalogueTest, ARecordWithoutASeparatorEndsTheWalkBehindWhatWasAdded) {
  Catalogue("CUSTOMER1", List({Field("NCUSTOMER.A"), "CUSTOMER.LOST", Field("NCUSTOMER.B")}));
  ExpectError(ErrorKind::kSubscript, [this] { Mark("lsttables", 0); });
  EXPECT_EQ(FilledLists(), (Lists{{"lstFields", {"CUSTOMER.*", "CUSTOMER.A"}},
                                  {"lstGroupby", {"CUSTOMER.A"}},
                                  {"lstorderbyasc", {"CUSTOMER._index1"}},
                                  {"lstorderbydesc", {"CUSTOMER._index1"}},
                                  {"cboWhereFields", {"CUSTOMER._index1", "CUSTOMER.A"}},
                                  {"cboWhereFields1", {"CUSTOMER.A"}}}));
  EXPECT_EQ(MarkedRows("lsttables"), RowNumbers{0});
}

TEST_F(CatalogueTest, AnEmptyRecordIsOneWithoutASeparator) {
  Catalogue("CUSTOMER0", Field("NCUSTOMER.A") + ",");
  ExpectError(ErrorKind::kSubscript, [this] { Mark("lsttables", 0); });
  EXPECT_EQ(Rows("lstFields"), (Texts{"CUSTOMER.*", "CUSTOMER.A"}));
}

TEST_F(CatalogueTest, ABrokenRecordIsNotReachedBehindAMessage) {
  Catalogue("CUSTOMERx", "CUSTOMER.LOST");
  Mark("lsttables", 0);
  EXPECT_EQ(Log(), Texts{ErrorMessage(kNotValid)});
}

TEST_F(CatalogueTest, UnmarkingDoesNotReadTheRecords) {
  Catalogue("CUSTOMER1", List({Field("NCUSTOMER.A"), "broken"}));
  ExpectError(ErrorKind::kSubscript, [this] { Mark("lsttables", 0); });
  Unmark("lsttables", 0);
  EXPECT_EQ(FilledLists(), kEmptyLists);
}

TEST_F(CatalogueTest, AFieldListOutOfThePropertyBagIsSearchedButHasNoRecords) {
  MemoryBag bag;
  bag.values["mPrpStrTables"] = "ORDERITM0";
  bag.values["mPrpStrFields"] = Field("NCUSTOMER.CUST_NO");
  MakeStored(bag);
  EXPECT_EQ(Rows("lsttables"), Texts{});
  host().PrpStrTables(u"CUSTOMER1");
  ExpectError(ErrorKind::kSubscript, [this] { Mark("lsttables", 0); });
  EXPECT_EQ(FilledLists(), (Lists{{"lstFields", {"CUSTOMER.*"}},
                                  {"lstGroupby", {}},
                                  {"lstorderbyasc", {"CUSTOMER._index1"}},
                                  {"lstorderbydesc", {"CUSTOMER._index1"}},
                                  {"cboWhereFields", {"CUSTOMER._index1"}},
                                  {"cboWhereFields1", {}}}));
  EXPECT_EQ(Log(), Texts{"changed PrpStrTables"});
}

// Unmarking a table.

TEST_F(CatalogueTest, UnmarkingTakesTheTableOutOfEveryList) {
  Catalogue("CUSTOMER2", List({Field("NCUSTOMER.CUST_NO"), Field("YCUSTOMER.NAME")}));
  Mark("lsttables", 0);
  Unmark("lsttables", 0);
  EXPECT_EQ(FilledLists(), kEmptyLists);
  EXPECT_EQ(MarkedRows("lsttables"), RowNumbers{});
}

TEST_F(CatalogueTest, UnmarkingLeavesTheOtherTables) {
  Catalogue("CUSTOMER1,ORDERITM1", List({Field("NCUSTOMER.CUST_NO"), Field("NORDERITM.QTY")}));
  Mark("lsttables", 1);
  const Lists other = FilledLists();
  Mark("lsttables", 0);
  Unmark("lsttables", 0);
  EXPECT_EQ(FilledLists(), other);
}

TEST_F(CatalogueTest, ATableMarkedAgainFillsTheListsAsTheFirstTime) {
  Catalogue("CUSTOMER2", List({Field("NCUSTOMER.Z"), Field("YCUSTOMER.A"), Field("NCUSTOMER.M")}));
  Mark("lsttables", 0);
  const Lists first = FilledLists();
  Unmark("lsttables", 0);
  Mark("lsttables", 0);
  EXPECT_EQ(FilledLists(), first);
  EXPECT_EQ(Rows("lstFields"), (Texts{"CUSTOMER.*", "CUSTOMER.Z", "CUSTOMER.A", "CUSTOMER.M"}));
}

TEST_F(CatalogueTest, UnmarkingTakesTheChosenFieldsOutOfTheSelectListAndTheOthers) {
  Catalogue("CUSTOMER1,ORDERITM0", List({Field("NCUSTOMER.CUST_NO"), Field("NORDERITM.QTY")}));
  Mark("lsttables", 0);
  Mark("lsttables", 1);
  Choose("CUSTOMER.CUST_NO");
  Choose("ORDERITM.QTY");
  Unmark("lsttables", 0);
  EXPECT_EQ(Rows("lstSelectedFields"), Texts{"ORDERITM.QTY"});
  EXPECT_EQ(FilledLists(), (Lists{{"lstFields", {"ORDERITM.*", "ORDERITM.QTY"}},
                                  {"lstGroupby", {"ORDERITM.QTY"}},
                                  {"lstorderbyasc", {"ORDERITM.QTY"}},
                                  {"lstorderbydesc", {"ORDERITM.QTY"}},
                                  {"cboWhereFields", {"ORDERITM.QTY", "ORDERITM.QTY"}},
                                  {"cboWhereFields1", {"ORDERITM.QTY", "ORDERITM.QTY"}}}));
}

TEST_F(CatalogueTest, UnmarkingTakesEverySelectedRowThatHoldsTheNameAnywhere) {
  Catalogue("CUSTOMER0,ORDERITM0", List({Field("NCUSTOMER.ORDERITM_NO"), Field("NCUSTOMER.NAME"),
                                         Field("NORDERITM.QTY")}));
  Mark("lsttables", 0);
  Mark("lsttables", 1);
  Choose("CUSTOMER.ORDERITM_NO");
  Choose("CUSTOMER.NAME");
  Unmark("lsttables", 1);
  EXPECT_EQ(Rows("lstSelectedFields"), Texts{"CUSTOMER.NAME"});
  EXPECT_EQ(Rows("lstorderbyasc"), (Texts{"CUSTOMER.ORDERITM_NO", "CUSTOMER.NAME"}));
}

TEST_F(CatalogueTest, UnmarkingTakesExpressionsAndLeavesTheModeWithTheOrderListsDisabled) {
  Catalogue("CUSTOMER0,ORDERITM0", List({Field("NCUSTOMER.CUST_NO"), Field("NORDERITM.QTY")}));
  Mark("lsttables", 0);
  Mark("lsttables", 1);
  Mark("lstFunctions", 2);
  Choose("CUSTOMER.CUST_NO");
  ASSERT_EQ(Rows("lstSelectedFields"), Texts{"sum ( CUSTOMER.CUST_NO ) "});
  Unmark("lsttables", 0);
  EXPECT_EQ(Rows("lstSelectedFields"), Texts{});
  EXPECT_FALSE(Enabled("lstorderbyasc"));
  EXPECT_FALSE(Enabled("lstorderbydesc"));
  Choose("ORDERITM.QTY");
  EXPECT_EQ(
      Log(),
      Texts{ErrorMessage("Selection Not Allowed --Select A Different Field To Proceed Further")});
}

TEST_F(CatalogueTest, LetterCaseDoesNotCountInTheOrderListsAndCountsInTheOthers) {
  Catalogue("CUSTOMER1,customer1", List({Field("NCUSTOMER.A"), Field("Ncustomer.B")}));
  Mark("lsttables", 0);
  Mark("lsttables", 1);
  Choose("customer.B");
  Unmark("lsttables", 0);
  EXPECT_EQ(FilledLists(),
            (Lists{{"lstFields", {"customer.*", "customer.B"}},
                   {"lstGroupby", {"customer.B"}},
                   {"lstorderbyasc", {}},
                   {"lstorderbydesc", {}},
                   {"cboWhereFields", {"customer._index1", "customer.B", "customer.B"}},
                   {"cboWhereFields1", {"customer.B", "customer.B"}}}));
  EXPECT_EQ(Rows("lstSelectedFields"), Texts{"customer.B"});
}

TEST_F(CatalogueTest, LettersOfLatin1HaveTwoCasesTooAndOthersDoNot) {
  Catalogue("K\u00C4UFER011,k\u00E4ufer011,\u0410BCDEFGH1,\u0430BCDEFGH1",
            List({Field("NK\u00C4UFER01.A"), Field("Nk\u00E4ufer01.A"), Field("N\u0410BCDEFGH.A"),
                  Field("N\u0430BCDEFGH.A")}));
  for (int row = 0; row < 4; ++row)
    Mark("lsttables", row);
  Unmark("lsttables", 0);
  EXPECT_EQ(Rows("lstorderbyasc"), (Texts{"\u0410BCDEFGH._index1", "\u0430BCDEFGH._index1"}));
  Unmark("lsttables", 2);
  EXPECT_EQ(Rows("lstorderbydesc"), Texts{"\u0430BCDEFGH._index1"});
}

TEST_F(CatalogueTest, TheSameTableTwiceInTheListIsUnmarkedForBothRows) {
  Catalogue("CUSTOMER1,CUSTOMER1", Field("NCUSTOMER.A"));
  Mark("lsttables", 0);
  Mark("lsttables", 1);
  EXPECT_EQ(Rows("lstFields"), (Texts{"CUSTOMER.*", "CUSTOMER.A", "CUSTOMER.*", "CUSTOMER.A"}));
  Unmark("lsttables", 0);
  EXPECT_EQ(FilledLists(), kEmptyLists);
  EXPECT_EQ(MarkedRows("lsttables"), RowNumbers{1});
}

// Clicks from code.

TEST_F(CatalogueTest, ClearingThePageUnmarksTheTablesThroughTheirClicks) {
  Catalogue("CUSTOMER2,ORDERITM1", List({Field("NCUSTOMER.CUST_NO"), Field("NORDERITM.QTY")}));
  Mark("lsttables", 0);
  host().ClearAll(0);
  EXPECT_EQ(FilledLists(), kEmptyLists);
  EXPECT_EQ(MarkedRows("lsttables"), RowNumbers{});
}

TEST_F(CatalogueTest, ClearingThePageShowsTheMessageOfAMarkedTableAgain) {
  Catalogue("CUSTOMERx,ORDERITM1", List({Field("NCUSTOMER.CUST_NO"), Field("NORDERITM.QTY")}));
  Mark("lsttables", 0);
  Mark("lsttables", 1);
  EXPECT_EQ(Log(), Texts{ErrorMessage(kNotValid)});
  host().ClearAll(0);
  EXPECT_EQ(Log(), Texts{ErrorMessage(kNotValid)});
  EXPECT_EQ(MarkedRows("lsttables"), RowNumbers{});
}

// Taking a marking back.

TEST_F(CatalogueTest, ADoubleClickTakesTheMarkFromAFunction) {
  Mark("lstFunctions", 3);
  DoubleClick("lstFunctions", 3);
  EXPECT_EQ(MarkedRows("lstFunctions"), RowNumbers{});
  EXPECT_EQ(ListIndex("lstFunctions"), -1);
}

TEST_F(CatalogueTest, ADoubleClickTakesTheMarkFromAFieldAndFromNoFunction) {
  Catalogue("CUSTOMER0", Field("NCUSTOMER.A"));
  Mark("lsttables", 0);
  Mark("lstFunctions", 2);
  Mark("lstFields", 0);
  DoubleClick("lstFields", 1);
  EXPECT_EQ(MarkedRows("lstFields"), RowNumbers{});
  EXPECT_EQ(ListIndex("lstFields"), -1);
  EXPECT_EQ(MarkedRows("lstFunctions"), RowNumbers{2});
}

TEST_F(CatalogueTest, ADoubleClickOnATableDoesNothing) {
  Catalogue("CUSTOMER0", Field("NCUSTOMER.A"));
  Mark("lsttables", 0);
  const Texts fields = Rows("lstFields");
  DoubleClick("lsttables", 0);
  EXPECT_EQ(MarkedRows("lsttables"), RowNumbers{0});
  EXPECT_EQ(Rows("lstFields"), fields);
}

}  // namespace
}  // namespace zolt20::tests
