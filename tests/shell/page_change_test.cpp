#include "tests/support/written_form.h"

namespace zolt20::tests {
namespace {

// What stands at the head of the tab order when the page was just activated.
const Texts kOrders[] = {
    {"tabVrn", "lsttables", "lstFunctions", "lstFields", "cmdMoveOne", "cmdMoveAll", "cmdRemoveOne",
     "cmdRemoveAll", "lstSelectedFields", "lstGroupby", "cmdAddSelect", "cmdClear", "cmdCancel",
     "cmdDone"},
    {},  // see below
    {"tabVrn", "txtSelectDo", "cmdFunction(0)", "cmdCondition(0)", "cmdSubQuery(0)",
     "cmdAddSelectDoQuer", "cmdClear", "cmdCancel", "cmdDone"},
    {"tabVrn", "txtSelectEOS", "cmdFunction(1)", "cmdCondition(1)", "cmdSubQuery(1)",
     "cmdAddSEOStoquery", "cmdClear", "cmdCancel", "cmdDone"},
    {"tabVrn", "txtselectempty", "cmdFunction(2)", "cmdCondition(2)", "cmdSubQuery(2)",
     "cmdSelectmpty", "cmdClear", "cmdCancel", "cmdDone"},
    // The buttons of the page before.
    {"tabVrn", "txtSelectError", "cmdFunction(2)", "cmdCondition(2)", "cmdSubQuery(2)",
     "cmdAddtoSERROR", "cmdClear", "cmdCancel", "cmdDone"},
    {"tabVrn", "optIfThen", "cmdClear", "cmdCancel", "cmdDone"},
};

constexpr std::string_view kBoxes[] = {
    "", "", "txtSelectDo", "txtSelectEOS", "txtselectempty", "txtSelectError", ""};

class PageChangeTest : public ControlTest {
 protected:
  void ExpectOrderOf(int page) {
    const Texts& wanted = kOrders[page];
    EXPECT_EQ(TabOrder(static_cast<int>(wanted.size()) - 1), wanted) << "page " << page;
  }
};

TEST_F(PageChangeTest, EveryPageWritesItsTabOrderFromEveryOther) {
  for (int from = 0; from <= 6; ++from) {
    for (int to = 0; to <= 6; ++to) {
      if (to == from || to == 1) continue;
      Tab(from);
      Tab(to);
      ExpectOrderOf(to);
    }
  }
}

TEST_F(PageChangeTest, OnTheWherePageCancelMovesTwiceAndEndsBehindClear) {
  Tab(1);
  EXPECT_EQ(TabOrder(10), (Texts{"tabVrn", "lstorderbyasc", "lstorderbydesc", "cboWhereFields",
                                 "cboOper", "cboWhereFields1", "txtwhereCondition", "cmdAnd",
                                 "CmdOr", "cmdAddWhereQuery", "cmdClear"}));
  EXPECT_EQ(TabIndex("cmdCancel"), 12);
  EXPECT_EQ(TabIndex("cmdDone"), 13);
}

TEST_F(PageChangeTest, WhatStoodBehindClearSlipsIntoTheGapThatCancelLeaves) {
  Tab(1);
  EXPECT_EQ(TabOrder(13)[11], "lsttables");
}

TEST_F(PageChangeTest, OnTheWherePageTheSmallCancelButtonGetsNoPlace) {
  Tab(1);
  EXPECT_GT(TabIndex("cmdCancelWhere"), 13);
}

TEST_F(PageChangeTest, PagesWithALargeBoxGiveItTheFocus) {
  for (const int page : {2, 3, 4, 5}) {
    Tab(page);
    EXPECT_EQ(Focused(), kBoxes[page]);
  }
}

TEST_F(PageChangeTest, TheOtherPagesLeaveTheFocusOnTheStrip) {
  for (const int page : {1, 6, 0}) {
    Tab(page);
    EXPECT_EQ(Focused(), "tabVrn");
  }
}

TEST_F(PageChangeTest, OnPageFiveTheButtonsOfTheBoxFollowTheWritesOfThePage) {
  Tab(5);
  EXPECT_GT(TabIndex("cmdFunction(3)"), TabIndex("cmdDone"));
  EXPECT_GT(TabIndex("cmdCondition(3)"), TabIndex("cmdDone"));
  EXPECT_GT(TabIndex("cmdSubQuery(3)"), TabIndex("cmdDone"));
}

TEST_F(PageChangeTest, APageChangeTouchesNothingButPageFocusAndOrder) {
  Catalogue("CUSTOMER2", Field("NCUSTOMER.CUST_NO"));
  Mark("lsttables", 0);
  const TouchedControls touched(host());
  for (const int page : {1, 2, 3, 4, 5, 6, 0})
    Tab(page);
  EXPECT_EQ(touched.names, (std::set<std::string>{"tabVrn", "focus", "tab order"}));
}

TEST_F(PageChangeTest, AClickOnTheActivePageWritesNoTabOrder) {
  Written(host()).cmdDone.TabIndex(1);
  Tab(0);
  EXPECT_EQ(TabIndex("cmdDone"), 1);
}

TEST_F(PageChangeTest, APageBoxThatIsDisabledFailsThePageChangeHalfDone) {
  Written(host()).txtSelectEOS.Enabled(false);
  ExpectError(ErrorKind::kArgument, [this] { host().UserTab(3); });
  EXPECT_TRUE(Shown("txtSelectEOS"));
  EXPECT_EQ(TabOrder(2), (Texts{"tabVrn", "lsttables", "lstFunctions"}));
}

using TabChainTest = ControlTest;

TEST_F(TabChainTest, TheResultPullsTheThreeButtonsBehindIt) {
  Written(host()).TxtOutput.TabIndex(1);
  Focus("TxtOutput");
  EXPECT_EQ(TabOrder(4), (Texts{"tabVrn", "TxtOutput", "cmdClear", "cmdCancel", "cmdDone"}));
}

TEST_F(TabChainTest, ButtonsThatStoodBeforeTheResultMissThePlaceBehindIt) {
  // On page 0 the three stand at 11 to 13 and the Result at 15; each sum is taken before its button
  // leaves its place.
  EXPECT_EQ(TabIndex("TxtOutput"), 15);
  Focus("TxtOutput");
  const Texts order = TabOrder(18);
  EXPECT_EQ(Texts(order.begin() + 10, order.end()),
            (Texts{"cmdAddSelect", "lblResult", "TxtOutput", "Label1", "cmdClear", "Label4",
                   "cmdCancel", "Label3", "cmdDone"}));
}

TEST_F(TabChainTest, TheNextFocusOfTheResultClosesTheChain) {
  Focus("TxtOutput");
  Focus("tabVrn");
  Focus("TxtOutput");
  const Texts order = TabOrder(15);
  EXPECT_EQ(Texts(order.begin() + 12, order.end()),
            (Texts{"TxtOutput", "cmdClear", "cmdCancel", "cmdDone"}));
}

TEST_F(TabChainTest, TheErrorBoxPullsItsOwnButtonsWhenItTakesTheFocusAgain) {
  Tab(5);
  Focus("tabVrn");
  Focus("txtSelectError");
  EXPECT_EQ(TabOrder(6), (Texts{"tabVrn", "txtSelectError", "cmdFunction(3)", "cmdCondition(3)",
                                "cmdSubQuery(3)", "cmdFunction(2)", "cmdCondition(2)"}));
}

TEST_F(TabChainTest, TheOtherPageBoxesPullNothing) {
  for (const int page : {2, 3, 4}) {
    Tab(page);
    Focus("tabVrn");
    const Texts before = TabOrder(140);
    Focus(kBoxes[page]);
    EXPECT_EQ(TabOrder(140), before) << "page " << page;
  }
}

}  // namespace
}  // namespace zolt20::tests
