#include "tests/support/written_form.h"

namespace zolt20::tests {
namespace {

using CancelButtonTest = ControlTest;

TEST_F(CancelButtonTest, RaisesItsEventOnEveryPageAndClearsNothing) {
  Type("TxtOutput", "x");
  for (const int page : {0, 1, 2, 3, 4, 5, 6}) {
    Tab(page);
    const TouchedControls touched(host());
    Click("cmdCancel");
    EXPECT_EQ(touched.names, std::set<std::string>{"focus"});
    EXPECT_EQ(Log(), Texts{"eventCancel"});
  }
  EXPECT_EQ(Result(), "x");
}

class DoneButtonTest : public ControlTest {
 protected:
  /// A statement of the Condition page is unfinished.
  void LeaveAStatementOpen() { Written(host()).cmdBuild.Enabled(true); }
};

TEST_F(DoneButtonTest, RaisesItsEventOnEveryPageWhenNothingIsOpen) {
  for (const int page : {0, 1, 2, 3, 4, 5, 6}) {
    Tab(page);
    Click("cmdDone");
    EXPECT_EQ(Log(), Texts{"eventDone"}) << "page " << page;
  }
}

TEST_F(DoneButtonTest, WithAnOpenStatementOnTheConditionPageItOnlySaysSo) {
  LeaveAStatementOpen();
  Tab(6);
  Click("cmdDone");
  EXPECT_EQ(Log(), Texts{ErrorMessage("Build Condition")});
}

TEST_F(DoneButtonTest, WithAnOpenStatementItLeavesFromAnyOtherPage) {
  LeaveAStatementOpen();
  for (const int page : {0, 1, 2, 3, 4, 5}) {
    Tab(page);
    Click("cmdDone");
    EXPECT_EQ(Log(), Texts{"eventDone"}) << "page " << page;
  }
}

TEST_F(DoneButtonTest, BuildsAndCopiesNothing) {
  Catalogue("CUSTOMER0", Field("NCUSTOMER.CUST_NO"));
  Mark("lsttables", 0);
  Click("lstFields", 1);
  Click("cmdMoveOne");
  const TouchedControls touched(host());
  Click("cmdDone");
  EXPECT_EQ(touched.names, std::set<std::string>{"focus"});
  EXPECT_EQ(Log(), Texts{"eventDone"});
}

TEST_F(DoneButtonTest, TheHostReadsTheResultFromInsideTheEvent) {
  host().prpStroutput(u"a~b");
  String read;
  Answer("eventDone", [&] { read = host().prpStroutput(); });
  Click("cmdDone");
  EXPECT_EQ(read, u"a\r\nb");
  EXPECT_EQ(Log(), Texts{"eventDone"});
}

}  // namespace
}  // namespace zolt20::tests
