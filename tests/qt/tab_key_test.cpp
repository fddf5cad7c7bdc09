// The Tab key: it follows the tab order of the surface at that moment, and leaves the widget at the
// ends of that order.
#include <algorithm>

#include "tests/qt/widget_test.h"

namespace zolt20::tests {
namespace {

class TabKeyTest : public WidgetTest {
 protected:
  // The controls that the Tab key can come to, in the tab order of this moment.
  Texts Stops() {
    Texts names;
    for (const Control* control : form().TabOrder()) {
      if (control->TakesFocus() && control->Enabled() && control->Shown())
        names.emplace_back(control->name());
    }
    return names;
  }
  // Where the next press must come to from the control with the focus, with nothing else in the
  // window: at the end it goes on at the beginning.
  std::string Next(bool forward) {
    Texts stops = Stops();
    if (!forward) std::reverse(stops.begin(), stops.end());
    const auto now = std::find(stops.begin(), stops.end(), Focused());
    if (now == stops.end() || now + 1 == stops.end()) return stops.front();
    return *(now + 1);
  }
  void PressTab(bool forward = true) {
    forward ? Press(Qt::Key_Tab) : Press(Qt::Key_Backtab, Qt::ShiftModifier);
  }
  // Goes on until the focus is where it began. The controls on the way, the first one last.
  Texts WalkAround(bool forward = true) {
    const std::string start = Focused();
    constexpr int kMorePressesThanControls = 100;
    Texts way;
    while (way.size() < kMorePressesThanControls && (way.empty() || way.back() != start)) {
      const std::string next = Next(forward);
      PressTab(forward);
      way.push_back(Focused());
      EXPECT_EQ(way.back(), next);
      EXPECT_EQ(KeyboardFocus(), next);
      if (HasFailure()) break;
    }
    EXPECT_EQ(way.back(), start);
    EXPECT_EQ(Log(), Texts{});
    return way;
  }
  // Presses until the focus is on that control.
  void TabTo(const std::string& control, bool forward = true) {
    constexpr int kMorePressesThanControls = 100;
    for (int i = 0; i < kMorePressesThanControls && KeyboardFocus() != control; ++i)
      PressTab(forward);
    EXPECT_EQ(KeyboardFocus(), control);
  }
};

class PageTabKeyTest : public TabKeyTest, public ::testing::WithParamInterface<int> {
 protected:
  // By way of another page, since a press on the page that is shown does not run its handler.
  void SetUp() override {
    Tab(GetParam() == 0 ? 1 : 0);
    Tab(GetParam());
    if (Focused() != "tabVrn") Tab(GetParam());
    ASSERT_EQ(Focused(), "tabVrn");
  }
};

TEST_P(PageTabKeyTest, TabGoesRoundAlongTheTabOrder) {
  Texts way = WalkAround();
  // The order at the end is the one to expect from now on: the boxes have chained the buttons.
  way = WalkAround();
  std::rotate(way.begin(), way.end() - 1, way.end());
  Texts stops = Stops();
  std::rotate(stops.begin(), std::find(stops.begin(), stops.end(), "tabVrn"), stops.end());
  EXPECT_EQ(way, stops);
}

TEST_P(PageTabKeyTest, ShiftTabGoesBack) {
  WalkAround();
  Texts way = WalkAround();
  Texts back = WalkAround(false);
  std::reverse(way.begin(), way.end());
  std::rotate(way.begin(), way.begin() + 1, way.end());
  EXPECT_EQ(back, way);
}

INSTANTIATE_TEST_SUITE_P(Each, PageTabKeyTest, ::testing::Range(0, 7));

TEST_F(TabKeyTest, TheFirstPageBeginsWithItsListsAndEndsWithTheLastButtons) {
  Tab(0);
  EXPECT_EQ(Focused(), "tabVrn");
  const Texts way = WalkAround();
  ASSERT_GE(way.size(), 13U);
  EXPECT_EQ(Texts(way.begin(), way.begin() + 13),
            (Texts{"lsttables", "lstFunctions", "lstFields", "cmdMoveOne", "cmdMoveAll",
                   "cmdRemoveOne", "cmdRemoveAll", "lstSelectedFields", "lstGroupby",
                   "cmdAddSelect", "cmdClear", "cmdCancel", "cmdDone"}));
}

TEST_F(TabKeyTest, ControlsThatAreDisabledOrOnOtherPagesAreLeftOut) {
  Tab(6);
  const Texts way = WalkAround();
  EXPECT_EQ(std::count(way.begin(), way.end(), "cmdBuild"), ControlOf("cmdBuild").Enabled());
  EXPECT_FALSE(ControlOf("cmdBuild").Enabled());
  EXPECT_EQ(std::count(way.begin(), way.end(), "optIfThen"), 1);
  EXPECT_EQ(std::count(way.begin(), way.end(), "lsttables"), 0);
  EXPECT_EQ(std::count(way.begin(), way.end(), "txtCond"), 0);
}

TEST_F(TabKeyTest, CaseRowsFollowEachOther) {
  Tab(6);
  Click("optCase");
  Click("cmdNext");
  Click("cmdNext");
  EXPECT_EQ(Focused(), "TxtExpr(2)");
  Tab(6);
  const Texts way = WalkAround();
  const auto first = std::find(way.begin(), way.end(), "TxtExpr(0)");
  ASSERT_GE(way.end() - first, 7);
  EXPECT_EQ(Texts(first, first + 7), (Texts{"TxtExpr(0)", "txtStmt(0)", "TxtExpr(1)", "txtStmt(1)",
                                            "TxtExpr(2)", "txtStmt(2)", "cmdNext"}));
}

TEST_F(TabKeyTest, ARowThatComesInBetweenIsOnTheWayAtOnce) {
  Tab(6);
  Click("optCase");
  Focus("txtStmt(0)");
  PressTab();
  EXPECT_EQ(Focused(), "cmdNext");
  Press(Qt::Key_Space);
  EXPECT_EQ(Focused(), "TxtExpr(1)");
  PressTab(false);
  EXPECT_EQ(Focused(), "txtStmt(0)");
  PressTab();
  PressTab();
  EXPECT_EQ(Focused(), "txtStmt(1)");
}

// Both take the last three buttons behind them when they get the focus; the press after it goes by
// the places that they have then.
TEST_F(TabKeyTest, TheOrderIsReadAnewBehindTheResultAndBuildCondition) {
  Tab(6);
  Click("optIfThen");
  Type("txtCond", "a = 1");
  Type("txtStmt1", "b = 2");
  Click("cmdAdd");
  ASSERT_TRUE(ControlOf("cmdBuild").Enabled());
  for (const std::string box : {"TxtOutput", "cmdBuild", "TxtOutput"}) {
    Focus(box);
    EXPECT_EQ(Focused(), box);
    for (const char* button : {"cmdClear", "cmdCancel", "cmdDone"}) {
      PressTab();
      EXPECT_EQ(KeyboardFocus(), button) << "behind " << box;
    }
  }
  Tab(6);
  WalkAround();
  WalkAround(false);
}

TEST_F(TabKeyTest, WithoutAFocusItBeginsAtEitherEnd) {
  EXPECT_EQ(Focused(), "");
  PressTab();
  EXPECT_EQ(Focused(), Stops().front());
  MakeNew();
  const std::string last = Stops().back();
  PressTab(false);
  EXPECT_EQ(Focused(), last);
  EXPECT_EQ(KeyboardFocus(), last);
}

TEST_F(TabKeyTest, ALostFocusDoesNotLeaveTheWidget) {
  MakeEmbedded();
  Tab(6);
  Click("optIfThen");
  Type("txtCond", "a = 1");
  Type("txtStmt1", "b = 2");
  Click("cmdAdd");
  Click("cmdBuild");
  EXPECT_FALSE(ControlOf("cmdBuild").Enabled());
  EXPECT_EQ(Focused(), "");
  EXPECT_EQ(QApplication::focusWidget(), &widget());
  PressTab();
  EXPECT_EQ(Focused(), Stops().front());
}

TEST_F(TabKeyTest, AStateWithNewRowsComesWhereThePageWithTheFocusGoes) {
  Tab(6);
  Click("optCase");
  Click("cmdNext");
  Focus("txtStmt(0)");
  ControlSnapshot rows = widget().save();
  MakeNew();
  Tab(1);
  Focus("txtAsSet");
  widget().restore(std::move(rows));
  EXPECT_EQ(KeyboardFocus(), "txtStmt(0)");
  EXPECT_EQ(Difference(), "");
}

TEST_F(TabKeyTest, TabLeavesAtTheEndAndComesBackInAtTheBeginning) {
  MakeEmbedded();
  Focus("TxtOutput");  // takes the last buttons behind it
  TabTo("cmdDone");
  EXPECT_EQ(Stops().back(), "cmdDone");
  PressTab();
  EXPECT_EQ(QApplication::focusWidget(), below_);
  PressTab();
  EXPECT_EQ(QApplication::focusWidget(), above_);
  PressTab();
  EXPECT_EQ(KeyboardFocus(), "tabVrn");
  EXPECT_EQ(Focused(), "tabVrn");
}

TEST_F(TabKeyTest, ShiftTabLeavesAtTheBeginningAndComesBackInAtTheEnd) {
  MakeEmbedded();
  Focus("TxtOutput");  // takes the last buttons behind it
  Tab(0);
  EXPECT_EQ(Stops().front(), "tabVrn");
  PressTab(false);
  EXPECT_EQ(QApplication::focusWidget(), above_);
  PressTab(false);
  EXPECT_EQ(QApplication::focusWidget(), below_);
  PressTab(false);
  EXPECT_EQ(KeyboardFocus(), "cmdDone");
  EXPECT_EQ(Focused(), "cmdDone");
}

TEST_F(TabKeyTest, NeighboursThatTakeNoFocusArePassedBy) {
  MakeEmbedded();
  below_->setEnabled(false);
  Focus("TxtOutput");
  TabTo("cmdDone");
  PressTab();
  EXPECT_EQ(QApplication::focusWidget(), above_);
  PressTab();
  EXPECT_EQ(KeyboardFocus(), "tabVrn");
  above_->setFocusPolicy(Qt::ClickFocus);
  PressTab(false);
  EXPECT_EQ(KeyboardFocus(), "cmdDone");
}

TEST_F(TabKeyTest, TheArrowsOfTheTabStripTurnThePages) {
  Tab(0);
  Press(Qt::Key_Right);
  EXPECT_EQ(Be<QTabBar>("tabVrn").currentIndex(), 1);
  EXPECT_EQ(Focused(), "tabVrn");
  PressTab();
  EXPECT_EQ(Focused(), "lstorderbyasc");
}

TEST_F(TabKeyTest, TheArrowsGoFromOptionToOption) {
  Tab(6);
  PressTab();
  EXPECT_EQ(KeyboardFocus(), "optIfThen");
  EXPECT_FALSE(form().optIfThen.Value());
  Press(Qt::Key_Space);
  EXPECT_TRUE(form().optIfThen.Value());
  EXPECT_EQ(Focused(), "txtCond");  // its handler goes on to the first box
  PressTab(false);
  Press(Qt::Key_Down);
  EXPECT_TRUE(form().optwhile.Value());
  EXPECT_FALSE(form().optIfThen.Value());
  EXPECT_EQ(Focused(), "txtWhlCnd");
  EXPECT_EQ(Difference(), "");
}

// The click comes while the host answers an event, from a loop of its own.
TEST_F(TabKeyTest, AnOptionIsNotTurnedWithinAnEvent) {
  Tab(6);
  Click("optFor");
  Answer("eventCancel", [this] { Click("optCase"); });
  Click("cmdCancel");
  EXPECT_EQ(Log(), (Texts{"eventCancel"}));
  EXPECT_TRUE(form().optFor.Value());
  EXPECT_FALSE(form().optCase.Value());
  EXPECT_EQ(Difference(), "");
}

TEST_F(TabKeyTest, APressBesideTheControlsKeepsTheFocus) {
  Tab(6);
  Click("optIfThen");
  Focus("txtCond");
  ASSERT_FALSE(ControlOf("cmdBuild").Enabled());
  Click("cmdBuild");
  EXPECT_EQ(KeyboardFocus(), "txtCond");
  QTest::mouseClick(Window(), Qt::LeftButton, {}, {2, 2});
  EXPECT_EQ(KeyboardFocus(), "txtCond");
  EXPECT_EQ(Focused(), "txtCond");
}

TEST_F(TabKeyTest, AHostThatGivesTheWidgetTheFocusGivesItToItsControl) {
  MakeEmbedded();
  Type("TxtOutput", "a");
  QTest::mouseClick(Window(), Qt::LeftButton, {}, above_->geometry().center());
  EXPECT_EQ(QApplication::focusWidget(), above_);
  EXPECT_EQ(Focused(), "TxtOutput");
  widget().setFocus();
  EXPECT_EQ(KeyboardFocus(), "TxtOutput");
}

// What the control does with its focus meanwhile stays within it.
TEST_F(TabKeyTest, ASetterTakesNoFocusFromANeighbour) {
  MakeEmbedded();
  Tab(0);
  QTest::mouseClick(Window(), Qt::LeftButton, {}, below_->geometry().center());
  widget().setPrpTab(3);
  EXPECT_EQ(Focused(), "txtSelectEOS");
  EXPECT_EQ(QApplication::focusWidget(), below_);
  widget().setPrpTab(6);
  EXPECT_EQ(Focused(), "");
  EXPECT_EQ(QApplication::focusWidget(), below_);
}

TEST_F(TabKeyTest, AFilterLiesBesideTheTabOrder) {
  Catalogue();
  Tab(0);
  Press(Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(KeyboardFocus(), "lsttables.filter");
  EXPECT_EQ(Focused(), "tabVrn");
  PressTab();
  EXPECT_EQ(KeyboardFocus(), "lsttables");
  EXPECT_EQ(Focused(), "lsttables");
}

}  // namespace
}  // namespace zolt20::tests
