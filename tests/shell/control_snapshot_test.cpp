#include "tests/support/written_form.h"

namespace zolt20::tests {
namespace {

class ControlSnapshotTest : public ControlTest {
 protected:
  ControlSnapshotTest() {
    Catalogue("CUSTOMER1", List({Field("NCUSTOMER.CUST_NO"), Field("NCUSTOMER.NAME")}));
    Mark("lsttables", 0);
    Click("lstFields", 1);
    Click("cmdMoveOne");
  }
};

const std::string kSelectCustNo = "select CUSTOMER.CUST_NO\r\nfrom  CUSTOMER\r\nendselect";

TEST_F(ControlSnapshotTest, TheFormComesBackWithoutAnEvent) {
  const ControlSnapshot kept = host().Save();
  Click("cmdClear");
  Tab(5);
  host().Restore(kept);
  EXPECT_EQ(MarkedRows("lsttables"), RowNumbers{0});
  EXPECT_EQ(Rows("lstSelectedFields"), Texts{"CUSTOMER.CUST_NO"});
  EXPECT_TRUE(Shown("lsttables"));
  EXPECT_EQ(Focused(), "cmdMoveOne");
  EXPECT_EQ(TabIndex("cmdDone"), 13);
  EXPECT_EQ(Log(), Texts{});
}

TEST_F(ControlSnapshotTest, TheVariablesOfTheContractComeBack) {
  host().prpintTabcount(2);
  host().Syntax_Highlight(true);
  Tab(2);
  Click("cmdFunction(0)");
  const ControlSnapshot kept = host().Save();
  host().prpintTabcount(0);
  host().Syntax_Highlight(false);
  Tab(3);
  Click("cmdFunction(1)");
  Log();
  host().Restore(kept);
  EXPECT_EQ(host().prpintTabcount(), 2);
  EXPECT_TRUE(host().Syntax_Highlight());
  EXPECT_EQ(host().prpStrSQLPart(), u"D");
}

TEST_F(ControlSnapshotTest, TheStatementsBehindTheResultComeBack) {
  Click("cmdAddSelect");
  const ControlSnapshot kept = host().Save();
  Click("cmdAddSelect");
  Tab(6);
  Click("cmdClear");
  host().Restore(kept);
  EXPECT_EQ(Result(), kSelectCustNo);
  Click("cmdAddSelect");
  EXPECT_EQ(Result(), kSelectCustNo + "\r\n" + kSelectCustNo);
}

TEST_F(ControlSnapshotTest, TheModeOfTheSelectListComesBack) {
  const ControlSnapshot plain = host().Save();
  Click("lstFunctions", 0);
  Click("cmdMoveOne");
  const ControlSnapshot aggregate = host().Save();
  host().Restore(plain);
  EXPECT_TRUE(Enabled("lstorderbyasc"));
  Click("lstFields", 2);
  Click("cmdMoveOne");
  EXPECT_EQ(Rows("lstSelectedFields"), (Texts{"CUSTOMER.CUST_NO", "CUSTOMER.NAME"}));
  host().Restore(aggregate);
  Click("lstFields", 2);
  Click("cmdMoveOne");
  EXPECT_EQ(
      Log(),
      Texts{ErrorMessage("Selection Not Allowed --Select A Different Field To Proceed Further")});
}

TEST_F(ControlSnapshotTest, TheActiveBoxComesBack) {
  Tab(6);
  Written(host()).fraif.Visible(true);
  Focus("txtStmt1");
  const ControlSnapshot kept = host().Save();
  Focus("txtStmt2");
  host().Restore(kept);
  host().prpStroutput(u"x");
  EXPECT_EQ(Text("txtStmt1"), "x");
}

TEST_F(ControlSnapshotTest, TheCatalogueAndThePersistedPartsComeBack) {
  host().prpSelectDoPart(u"a");
  const ControlSnapshot kept = host().Save();
  host().PrpStrTables(u"ORDERITM0");
  host().PrpStrFields(u"");
  host().prpSelectDoPart(u"b");
  Log();
  host().Restore(kept);
  EXPECT_EQ(Rows("lsttables"), Texts{"CUSTOMER"});
  MemoryBag bag;
  host().UserControl_WriteProperties(bag);
  EXPECT_EQ(bag.values["PrpStrTables"], "CUSTOMER1");
  EXPECT_EQ(bag.values["prpSelectDoPart"], "a");
  Mark("lsttables", 0);  // off
  Mark("lsttables", 0);  // and on again: its fields are known
  EXPECT_EQ(Rows("lstFields"), (Texts{"CUSTOMER.*", "CUSTOMER.CUST_NO", "CUSTOMER.NAME"}));
}

TEST_F(ControlSnapshotTest, AStateCanBeSavedFromInsideAnEvent) {
  Tab(2);
  ControlSnapshot inside = host().Save();
  Answer("eventFunction", [&] { inside = host().Save(); });
  Click("cmdFunction(0)");
  host().prpSelectDoPart(u"x");
  Log();
  host().Restore(inside);
  EXPECT_EQ(host().prpStrSQLPart(), u"D");
  EXPECT_EQ(Text("txtSelectDo"), "");
  EXPECT_EQ(Log(), Texts{});
}

TEST_F(ControlSnapshotTest, AStateOfAFailedHandlerCanBeKeptAndPutBack) {
  ExpectError(ErrorKind::kValue, [this] { host().prpTab(9); });
  const ControlSnapshot kept = host().Save();
  host().prpTab(1);
  Log();
  host().Restore(kept);
  MemoryBag bag;
  host().UserControl_WriteProperties(bag);
  EXPECT_EQ(bag.values["prpTab"], "9");
  EXPECT_TRUE(Shown("lsttables"));
}

TEST_F(ControlSnapshotTest, AStateFitsAnotherControl) {
  Click("cmdAddSelect");
  const ControlSnapshot kept = host().Save();
  MakeNew();
  host().Restore(kept);
  EXPECT_EQ(Result(), kSelectCustNo);
  Tab(2);
  Type("txtSelectDo", "do it");
  Click("cmdAddSelectDoQuer");
  EXPECT_EQ(Result(),
            "select CUSTOMER.CUST_NO\r\nfrom  CUSTOMER\r\nselectdo\r\n\tdo it\r\nendselect");
}

TEST_F(ControlSnapshotTest, FacesAreToldOnce) {
  const ControlSnapshot kept = host().Save();
  Type("TxtOutput", "x");
  const TouchedControls touched(host());
  host().Restore(kept);
  EXPECT_EQ(touched.names, std::set<std::string>{"state"});
}

}  // namespace
}  // namespace zolt20::tests
