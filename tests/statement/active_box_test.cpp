// The statement box in which the user last stood takes the host's text.
#include <array>

#include "tests/support/control_test.h"
#include "tests/support/written_form.h"

namespace zolt20::tests {
namespace {

class ActiveBoxTest : public ControlTest {
 protected:
  // Page 6 with the frames of all kinds, and two more rows of an On...Case.
  ActiveBoxTest() {
    Tab(6);
    Surface& form = Written(host());
    for (Frame* frame :
         {&form.fraif, &form.fraFor, &form.frawhile, &form.frarepeat, &form.fraOnCase}) {
      frame->Visible(true);
    }
    for (const int row : {1, 12}) {
      form.txtStmt.Load(row);
      form.txtStmt(row).Visible(true);
    }
  }

  void Insert(std::string_view encoded) { host().prpStroutput(Wide(encoded)); }

  // The box holds `old` and has been visited; what it holds behind the insertion.
  std::string Inserted(const std::string& box, std::string_view old, std::string_view encoded) {
    Type(box, old);
    Insert(encoded);
    return Text(box);
  }
};

constexpr std::array<const char*, 9> kBoxes{
    "txtForStmt", "txtWhlStm",  "txtStmt2",   "txtStmt1",    "TxtDef",
    "txtRepStm",  "txtStmt(0)", "txtStmt(1)", "txtStmt(12)",
};

TEST_F(ActiveBoxTest, EachTakesTheTextByTheFourRowsOfTheRule) {
  for (const char* box : kBoxes) {
    EXPECT_EQ(Inserted(box, "",
                       "*zlt*a~\x01"
                       "b"),
              "a\r\n\tb")
        << box;
    EXPECT_EQ(Inserted(box, "x", "*zlt*a~b"), "x\r\na\r\nb") << box;
    EXPECT_EQ(Inserted(box, "x", "a~b"), "x\r\n\ta\r\n\tb") << box;
    if (box == std::string("txtStmt2")) continue;  // has a way of its own
    EXPECT_EQ(Inserted(box, "", "a~b"), "a\r\nb") << box;
  }
}

TEST_F(ActiveBoxTest, TheTextIsDecodedAndKeepsTheTabsBehindItsLineBreaks) {
  for (const char* box : kBoxes) {
    EXPECT_EQ(Inserted(box, "x",
                       "`^`a`^`~\x01\x01"
                       "b"),
              "x\r\n\t\"a\"\r\n\t\t\tb")
        << box;
  }
}

TEST_F(ActiveBoxTest, AnEmptyTextAddsALineToABoxThatIsNotEmpty) {
  EXPECT_EQ(Inserted("txtStmt1", "x", ""), "x\r\n\t");
  EXPECT_EQ(Inserted("txtStmt1", "", ""), "");
}

TEST_F(ActiveBoxTest, TheCaretPlaysNoPart) {
  Type("txtStmt1", "xy");
  Written(host()).txtStmt1.SelStart(1);
  Insert("*zlt*a");
  EXPECT_EQ(Text("txtStmt1"), "xy\r\na");
  EXPECT_EQ(Caret("txtStmt1"), 0);
}

TEST_F(ActiveBoxTest, ABoxOfBlanksCountsAsEmptyForTheForStatementAlone) {
  EXPECT_EQ(Inserted("txtForStmt", "  ", "a"), "a");
  EXPECT_EQ(Inserted("txtForStmt", "  ", "*zlt*a"), "a");
  EXPECT_EQ(Inserted("txtWhlStm", "  ", "a"), "  \r\n\ta");
  EXPECT_EQ(Inserted("txtRepStm", "  ", "*zlt*a"), "  \r\na");
}

TEST_F(ActiveBoxTest, TheFirstTextForTheElseBoxReplacesThatOfTheBoxBefore) {
  Type("txtStmt1", "old");
  Focus("txtStmt2");
  Insert("a~b");
  EXPECT_EQ(Text("txtStmt1"), "a\r\nb");
  EXPECT_EQ(Text("txtStmt2"), "");
}

TEST_F(ActiveBoxTest, AMarkedTextOrASecondOneGoesToTheElseBox) {
  Type("txtStmt1", "old");
  Focus("txtStmt2");
  Insert("*zlt*a");
  EXPECT_EQ(Text("txtStmt2"), "a");
  Insert("b");
  EXPECT_EQ(Text("txtStmt2"), "a\r\n\tb");
  EXPECT_EQ(Text("txtStmt1"), "old");
}

TEST_F(ActiveBoxTest, OtherBoxesOfThePageLeaveTheTargetAsItIs) {
  Focus("txtWhlStm");
  for (const char* box : {"txtCond", "txtWhlCnd", "txtRepCnd", "txtVariable", "txtinitval",
                          "txtFinVal", "txtStep", "txtcaseexp", "TxtExpr(0)", "TxtOutput"}) {
    Focus(box);
  }
  Insert("a");
  EXPECT_EQ(Text("txtWhlStm"), "a");
  EXPECT_EQ(Result(), "");
}

TEST_F(ActiveBoxTest, TheTargetOutlivesItsFrameThePageAndAClear) {
  Focus("txtRepStm");
  Written(host()).frarepeat.Visible(false);
  Insert("a");
  EXPECT_EQ(Text("txtRepStm"), "a");
  Tab(2);
  Click("cmdClear");
  host().ClearAll(6);
  Insert("b");
  EXPECT_EQ(Text("txtRepStm"), "b");
  EXPECT_EQ(Result(), "");
}

TEST_F(ActiveBoxTest, ARowThatIsGoneIsAnError) {
  Focus("txtStmt(12)");
  Written(host()).txtStmt.Unload(12);
  ExpectError(ErrorKind::kElement, [&] { Insert("a"); });
  EXPECT_EQ(Result(), "");
}

TEST_F(ActiveBoxTest, NothingBecomesAStatementAndNothingIsReported) {
  for (const char* box : kBoxes) {
    Focus(box);
    Insert("select A.B~from  A~endselect");
  }
  EXPECT_EQ(host().prpstrSelectedFields(), u"");
  EXPECT_EQ(Result(), "");
  EXPECT_EQ(Log(), Texts{});
}

TEST_F(ActiveBoxTest, TheConditionPagesButtonsAskForTextUnderItsCode) {
  Surface& form = Written(host());
  form.cmdFunction(4).Enabled(true);
  form.cmdSubQuery(4).Enabled(true);
  Type("txtStmt1", "x");
  Answer("eventSubQuery", [&] {
    EXPECT_EQ(host().prpStrSQLPart(), u"C");
    Insert("a");
  });
  Click("cmdSubQuery(4)");
  EXPECT_EQ(Text("txtStmt1"), "x\r\n\ta");
  Answer("eventFunction", [&] {
    EXPECT_EQ(host().prpStrSQLPart(), u"C");
    Insert("*zlt*f ( )");
  });
  Click("cmdFunction(4)");
  EXPECT_EQ(Text("txtStmt1"), "x\r\n\ta\r\nf ( )");
  EXPECT_EQ(Log(), (Texts{"eventSubQuery", "eventFunction"}));
}

}  // namespace
}  // namespace zolt20::tests
