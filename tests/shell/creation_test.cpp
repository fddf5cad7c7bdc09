#include "tests/support/written_form.h"

namespace zolt20::tests {
namespace {

using CreationTest = ControlTest;

TEST_F(CreationTest, TheFunctionsStandInTheOrderOfFilling) {
  EXPECT_EQ(Rows("lstFunctions"), (Texts{"count ( * ) ", "count", "sum", "avg", "max", "min"}));
  EXPECT_EQ(ListIndex("lstFunctions"), -1);
}

TEST_F(CreationTest, TheOperatorsStandSorted) {
  EXPECT_EQ(Rows("cboOper"), (Texts{"!=", "<>", "=", "BETWEEN", "EXISTS", "IN", "INRANGE", "LIKE",
                                    "NOT EXISTS", "REFERS TO"}));
  EXPECT_EQ(Text("cboOper"), "");
}

TEST_F(CreationTest, TheCancelButtonOfTheWherePageSaysClear) {
  EXPECT_EQ(Caption("cmdCancelWhere"), "Clear");
}

TEST_F(CreationTest, FourButtonsAreDisabled) {
  Texts disabled;
  for (const Control* control : host().Form().Controls()) {
    if (!control->Enabled()) disabled.emplace_back(control->name());
  }
  EXPECT_EQ(
      std::set<std::string>(disabled.begin(), disabled.end()),
      (std::set<std::string>{"cmdAddWhereQuery", "cmdSubQuery(4)", "cmdFunction(4)", "cmdBuild"}));
}

TEST_F(CreationTest, FiveFramesAndTheScrollBarAreHidden) {
  std::set<std::string> hidden;
  for (const Control* control : host().Form().Controls()) {
    if (!control->Visible()) hidden.emplace(control->name());
  }
  EXPECT_EQ(hidden, (std::set<std::string>{"VscrCase", "fraif", "fraFor", "fraOnCase", "frawhile",
                                           "frarepeat"}));
}

TEST_F(CreationTest, PageZeroIsActiveWithItsTabOrder) {
  EXPECT_TRUE(Shown("lsttables"));
  EXPECT_EQ(TabOrder(13),
            (Texts{"tabVrn", "lsttables", "lstFunctions", "lstFields", "cmdMoveOne", "cmdMoveAll",
                   "cmdRemoveOne", "cmdRemoveAll", "lstSelectedFields", "lstGroupby",
                   "cmdAddSelect", "cmdClear", "cmdCancel", "cmdDone"}));
}

TEST_F(CreationTest, NoControlHasTheFocusAndTheHostIsToldNothing) {
  EXPECT_EQ(Focused(), "nothing");
  EXPECT_EQ(Log(), Texts{});
}

TEST_F(CreationTest, TwoControlsShareNothing) {
  RecordingHost otherHost;
  ZOLT20MapControl other(otherHost);
  other.PrpStrTables(u"CUSTOMER2");
  EXPECT_EQ(Rows("lsttables"), Texts{});
  EXPECT_EQ(otherHost.log, Texts{"changed PrpStrTables"});
}

}  // namespace
}  // namespace zolt20::tests
