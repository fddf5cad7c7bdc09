// Values that no honest host would send: they end in what the rules of the form give, or in an
// error, and the control stays usable. The sanitizers look on.
#include "shell/contract.h"
#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

constexpr std::size_t kTenMegabytes = 5'000'000;  // of 16-bit characters

class HostileValuesTest : public ControlTest {
 protected:
  // Composes a statement, whatever came before.
  void ExpectUsable() {
    MakeNew();
    Catalogue("CUSTOMER1", Field("NCUSTOMER.CUST_NO"));
    Mark("lsttables", 0);
    Mark("lstFields", 1);
    Click("cmdMoveOne");
    Click("cmdAddSelect");
    EXPECT_EQ(Result(), "select CUSTOMER.CUST_NO\r\nfrom  CUSTOMER\r\nendselect");
  }
};

TEST_F(HostileValuesTest, EveryTextPropertyTakesTenMegabytes) {
  for (const char16_t filling : {u'x', u',', u'~'}) {
    for (const Member& member : Members()) {
      if (member.let == nullptr || member.type != ValueType::kString) continue;
      MakeNew();
      const String value(kTenMegabytes, filling);
      if (filling == u',' && member.name == "prpSelectGroupbyPart") {
        // The first empty element meets the empty place past the end of the list.
        ExpectError(ErrorKind::kIndex, [&] { member.let(host(), value); });
        EXPECT_EQ(Log(), Texts{});
        continue;
      }
      member.let(host(), value);
      EXPECT_EQ(Log(), member.reports ? Texts{"changed " + std::string(member.name)} : Texts{});
    }
  }
  ExpectUsable();
}

TEST_F(HostileValuesTest, AStatementBoxOfTenMegabytesOverflowsTheStatement) {
  Catalogue("CUSTOMER1", Field("NCUSTOMER.CUST_NO"));
  Mark("lsttables", 0);
  Mark("lstFields", 1);
  Click("cmdMoveOne");
  host().prpSelectDoPart(String(kTenMegabytes, u'~'));
  Log();
  ExpectError(ErrorKind::kOverflow, [&] { Click("cmdAddSelect"); });
  EXPECT_EQ(Result(), "");
  Tab(2);
  Click("cmdClear");
  Tab(0);
  Click("cmdAddSelect");
  EXPECT_EQ(Result(), "select CUSTOMER.CUST_NO\r\nfrom  CUSTOMER\r\nendselect");
}

TEST_F(HostileValuesTest, AListOfCommasHasNoTable) {
  host().PrpStrTables(String(kTenMegabytes, u','));
  EXPECT_EQ(Log(), Texts{"changed PrpStrTables"});
  EXPECT_EQ(Rows("lsttables"), Texts{});
}

TEST_F(HostileValuesTest, ALastTableBehindCommasReadsItsOwnPlace) {
  // The one row there is stands at place 0, and so reads the empty entry of that place.
  host().PrpStrTables(String(1000, u',') + u"CUSTOMER1");
  host().PrpStrFields(Wide(Field("NCUSTOMER.CUST_NO")));
  Log();
  Mark("lsttables", 0);
  EXPECT_EQ(Log(), Texts{ErrorMessage("Not a Valid Table")});
}

TEST_F(HostileValuesTest, AFieldListOfCommasFailsTheWalkAtItsFirstRecord) {
  host().PrpStrTables(u"CUSTOMER1");
  host().PrpStrFields(String(kTenMegabytes, u',') + u"CUSTOMER");
  Log();
  ExpectError(ErrorKind::kSubscript, [&] { Mark("lsttables", 0); });
  // What stands before the walk is done.
  EXPECT_EQ(Rows("lstFields"), Texts{"CUSTOMER.*"});
  EXPECT_EQ(Rows("lstorderbyasc"), Texts{"CUSTOMER._index1"});
}

TEST_F(HostileValuesTest, IndexCountsBeyond16BitsOverflowBehindTheFirstRow) {
  for (const char* count :
       {"32768", "99999999999999999999", "1e5", "32767.5", "1e999999999999999999999"}) {
    MakeNew();
    Catalogue("CUSTOMER" + std::string(count), Field("NCUSTOMER.CUST_NO"));
    ExpectError(ErrorKind::kOverflow, [&] { Mark("lsttables", 0); });
    EXPECT_EQ(Rows("lstFields"), Texts{"CUSTOMER.*"}) << count;
    EXPECT_EQ(Rows("lstorderbyasc"), Texts{}) << count;
  }
}

TEST_F(HostileValuesTest, IndexCountsUpTo16BitsAreAllListed) {
  Catalogue("CUSTOMER32767", Field("NCUSTOMER.CUST_NO"));
  Mark("lsttables", 0);
  const Texts rows = Rows("lstorderbydesc");
  ASSERT_EQ(rows.size(), 32767U);
  EXPECT_EQ(rows.back(), "CUSTOMER._index32767");
  Mark("lsttables", 0);
  EXPECT_EQ(Rows("lstorderbyasc"), Texts{});
}

TEST_F(HostileValuesTest, TinyCountsAndHugeExponentsRoundToNothing) {
  for (const char* count : {"-32768", "1e-999999999999999999999", "0.5", "-0", "0e99999999999"}) {
    MakeNew();
    Catalogue("CUSTOMER" + std::string(count), Field("NCUSTOMER.CUST_NO"));
    Mark("lsttables", 0);
    EXPECT_EQ(Rows("lstorderbyasc"), Texts{}) << count;
    EXPECT_EQ(Rows("lstFields"), (Texts{"CUSTOMER.*", "CUSTOMER.CUST_NO"})) << count;
  }
}

TEST_F(HostileValuesTest, NamesWithNulsAndLoneSurrogatesAreNamesLikeOthers) {
  String table = u"AB_CD_EF";
  table[2] = u'\0';
  table[5] = u'\xDC00';
  String field = table + u".F_G";
  field[10] = u'\xD83D';
  host().PrpStrTables(table + u"1");
  host().PrpStrFields(u"long*Q*V*R*N*N" + field + u"*Q*V*R*N*X");
  Log();
  Mark("lsttables", 0);
  Mark("lstFields", 1);
  Click("cmdMoveOne");
  Click("cmdAddSelect");
  EXPECT_EQ(host().prpStroutput(), u"select " + field + u"\r\nfrom  " + table + u"\r\nendselect");
  EXPECT_EQ(host().prpstrSelectedFields(), u"long*Q*V*R*N*N" + field + u"*Q*V*R*N*X");
}

TEST_F(HostileValuesTest, PagesAndDepthsAtTheEndsOfTheRangeAreTakenAsTheyAre) {
  for (const int page : {-32768, -1, 7, 32767}) {
    ExpectError(ErrorKind::kValue, [&] { host().prpTab(page); });
    host().ClearAll(page);
  }
  ExpectError(ErrorKind::kOverflow, [&] { host().prpTab(32768); });
  for (const int depth : {-32768, 32767}) {
    host().prpintTabcount(depth);
    EXPECT_EQ(host().prpintTabcount(), depth);
    EXPECT_EQ(host().prpStroutput(), u"");
  }
}

TEST_F(HostileValuesTest, KeysOfAnyCodeLeaveTheTextWhole) {
  Tab(1);
  for (const int code : {-32768, -1, 0, 1, 7, 31, 32767})
    Key("txtwhereCondition", code);
  EXPECT_EQ(Text("txtwhereCondition"), "\xE7\xBF\xBF");
  Key("txtwhereCondition", 8);
  Key("txtwhereCondition", 8);
  EXPECT_EQ(Text("txtwhereCondition"), "");
}

}  // namespace
}  // namespace zolt20::tests
