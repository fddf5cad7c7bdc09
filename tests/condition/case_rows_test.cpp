// The rows of an On...Case: how Next makes them, how the bar moves them, and what is left of them
// for the On...Case that follows.
#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/control_test.h"
#include "tests/support/silent.h"
#include "tests/support/written_form.h"

namespace zolt20::tests {
namespace {

using Figures = std::vector<int>;

// Keeps what comes to the rows and the bar, in order, and who takes the focus.
class RowLog final : public SilentObserver {
 public:
  void ControlChanged(const Control& control, Property property) noexcept override {
    const std::string name(control.name());
    if (property == Property::kPlace) steps.push_back(name + " placed");
    if (property == Property::kVisible) steps.push_back(name + " visible");
    if (property == Property::kMax) steps.push_back(name + " Max");
    if (property == Property::kValue) steps.push_back(name + " Value");
    if (property == Property::kText) steps.push_back(name + " written");
  }
  void FocusChanged(const Control* control) noexcept override {
    steps.push_back("focus " +
                    (control == nullptr ? std::string("lost") : std::string(control->name())));
  }
  void ElementLoaded(const Control& element) noexcept override {
    steps.push_back(std::string(element.name()) + " loaded");
  }

  Texts steps;
};

class CaseRowsTest : public ControlTest {
 protected:
  CaseRowsTest() { Open(); }

  /// Opens the page with an On...Case chosen.
  void Open() {
    Tab(6);
    Click("optCase");
  }

  void Next(int times = 1) {
    for (int time = 0; time < times; ++time)
      Click("cmdNext");
  }
  void NextFails(ErrorKind kind) {
    ExpectError(kind, [this] { host().UserClick(On("cmdNext")); });
  }

  /// Ends a first On...Case that had so many rows beside row 0, and chooses the next one.
  void StartASecondBehind(int rows) {
    Next(rows);
    Click("cmdAdd");
    Click("optCase");
  }

  static std::string Expr(int row) { return "TxtExpr(" + std::to_string(row) + ")"; }
  static std::string Stmt(int row) { return "txtStmt(" + std::to_string(row) + ")"; }

  bool IsLoaded(int row) {
    const bool isLoaded = host().Form().Find(Expr(row)) != nullptr;
    EXPECT_EQ(host().Form().Find(Stmt(row)) != nullptr, isLoaded) << row;
    return isLoaded;
  }

  /// Top of each loaded row, in twips; both boxes of a row have the same.
  Figures Tops() {
    Figures tops;
    for (int row = 0; IsLoaded(row); ++row) {
      tops.push_back(On(Expr(row)).Top());
      EXPECT_EQ(On(Stmt(row)).Top(), tops.back()) << row;
    }
    return tops;
  }

  /// So many rows from there, each 690 twips below the one before.
  static Figures From(int top, int count) {
    Figures tops;
    for (int row = 0; row < count; ++row)
      tops.push_back(top + 690 * row);
    return tops;
  }

  /// Left, Top, Width, Height.
  Figures Place(std::string_view name) {
    const Control& control = On(name);
    return {control.Left(), control.Top(), control.Width(), control.Height()};
  }

  /// Value and Max.
  Figures Bar() {
    const auto& bar = dynamic_cast<const ScrollBar&>(On("VscrCase"));
    return {bar.Value(), bar.Max()};
  }
  bool BarVisible() { return Visible("VscrCase"); }

  void Insert(std::string_view encoded) { host().prpStroutput(Wide(encoded)); }

  Texts WholeTabOrder() { return TabOrder(static_cast<int>(host().Form().TabOrder().size()) - 1); }

  /// The order after Next with so many rows: from place 4 on, one control after the other moves to
  /// its place.
  static Texts Placed(Texts order, int rows) {
    Texts names;
    for (int row = 0; row < rows; ++row) {
      names.push_back(Expr(row));
      names.push_back(Stmt(row));
    }
    for (const char* name : {"cmdNext", "cmdFunction(4)", "cmdSubQuery(4)", "cmdAdd", "cmdBuild",
                             "cmdClear", "cmdCancel", "cmdDone"}) {
      names.emplace_back(name);
    }
    std::ptrdiff_t place = 4;
    for (const std::string& name : names) {
      order.erase(std::find(order.begin(), order.end(), name));
      order.insert(order.begin() + place, name);
      ++place;
    }
    return order;
  }
};

// At the start.

TEST_F(CaseRowsTest, RowZeroTheBarAndTheButtonStandWhereTheFormHasThem) {
  EXPECT_EQ(Place("TxtExpr(0)"), (Figures{120, 120, 1935, 680}));
  EXPECT_EQ(Place("txtStmt(0)"), (Figures{2640, 120, 3975, 680}));
  EXPECT_EQ(Place("VscrCase"), (Figures{6720, 120, 375, 2295}));
  EXPECT_EQ(Place("cmdNext"), (Figures{6720, 2520, 825, 350}));
  EXPECT_EQ(On("fracase").Height(), 2880);
  EXPECT_EQ(Bar(), (Figures{0, 0}));
  EXPECT_FALSE(BarVisible());
  EXPECT_FALSE(IsLoaded(1));
}

// Next.

TEST_F(CaseRowsTest, ANewRowIsVisibleEmptyAndOfTheSizeOfRowZero) {
  Type("TxtExpr(0)", "a");
  Type("txtStmt(0)", "s");
  Next();
  EXPECT_EQ(Place("TxtExpr(1)"), (Figures{120, 810, 1935, 680}));
  EXPECT_EQ(Place("txtStmt(1)"), (Figures{2640, 810, 3975, 680}));
  EXPECT_TRUE(Shown("TxtExpr(1)"));
  EXPECT_TRUE(Shown("txtStmt(1)"));
  EXPECT_EQ(Text("TxtExpr(1)"), "");
  EXPECT_EQ(Text("txtStmt(1)"), "");
  EXPECT_EQ(Text("TxtExpr(0)"), "a");
  EXPECT_EQ(Text("txtStmt(0)"), "s");
  EXPECT_FALSE(IsLoaded(2));
}

TEST_F(CaseRowsTest, EachBoxOfANewRowStandsBelowTheSameBoxOfTheRowBefore) {
  Next();
  Surface& form = Written(host());
  form.TxtExpr(1).Left(130);
  form.TxtExpr(1).Top(1000);
  form.txtStmt(1).Left(2700);
  form.txtStmt(1).Top(2000);
  Next();
  EXPECT_EQ(Place("TxtExpr(2)"), (Figures{130, 1690, 1935, 680}));
  EXPECT_EQ(Place("txtStmt(2)"), (Figures{2700, 2690, 3975, 680}));
}

TEST_F(CaseRowsTest, ThreeRowsMoreFitAndTheBarComesWithTheThirdAndHasNothingToScroll) {
  Next();
  EXPECT_EQ(Tops(), (Figures{120, 810}));
  EXPECT_FALSE(BarVisible());
  Next();
  EXPECT_EQ(Tops(), (Figures{120, 810, 1500}));
  EXPECT_FALSE(BarVisible());
  Next();
  EXPECT_EQ(Tops(), (Figures{120, 810, 1500, 2190}));
  EXPECT_TRUE(Shown("VscrCase"));
  EXPECT_EQ(Bar(), (Figures{0, 0}));
  EXPECT_EQ(host().UserScroll(On("VscrCase"), 1), Outcome::kOutside);
  EXPECT_EQ(Tops(), (Figures{120, 810, 1500, 2190}));
}

TEST_F(CaseRowsTest, TheFourthRowMoreLiftsAllByOneStep) {
  Next(4);
  EXPECT_EQ(Tops(), (Figures{-570, 120, 810, 1500, 2190}));
  EXPECT_EQ(Bar(), (Figures{1, 1}));
  EXPECT_TRUE(BarVisible());
}

TEST_F(CaseRowsTest, EachRowFromThereOnComesInAtThePlaceOfTheLast) {
  for (int row = 4; row <= 40; ++row) {
    Next(row == 4 ? 4 : 1);
    EXPECT_EQ(On(Expr(row)).Top(), 2190);
    EXPECT_EQ(Bar(), (Figures{row - 3, row - 3}));
    EXPECT_TRUE(BarVisible());
  }
  EXPECT_EQ(Tops(), From(120 - 37 * 690, 41));
}

TEST_F(CaseRowsTest, TheStepsOfNextRunInTheirOrder) {
  Next(3);
  RowLog log;
  host().AddObserver(log);
  Next();
  host().RemoveObserver(log);
  EXPECT_EQ(log.steps, (Texts{"focus cmdNext",     "TxtExpr(4) loaded", "TxtExpr(4) visible",
                              "TxtExpr(4) placed", "txtStmt(4) loaded", "txtStmt(4) visible",
                              "txtStmt(4) placed", "focus TxtExpr(4)",  "VscrCase Max",
                              "VscrCase Value",    "TxtExpr(0) placed", "txtStmt(0) placed",
                              "TxtExpr(1) placed", "txtStmt(1) placed", "TxtExpr(2) placed",
                              "txtStmt(2) placed", "TxtExpr(3) placed", "txtStmt(3) placed",
                              "TxtExpr(4) placed", "txtStmt(4) placed"}));
}

TEST_F(CaseRowsTest, TheNewRowsValueTakesTheFocusAndIsNoTarget) {
  Focus("txtStmt(0)");
  Next();
  EXPECT_EQ(Focused(), "TxtExpr(1)");
  Insert("a");
  EXPECT_EQ(Text("txtStmt(0)"), "a");
  Focus("txtStmt(1)");
  Insert("b");
  EXPECT_EQ(Text("txtStmt(1)"), "b");
  EXPECT_EQ(Text("TxtExpr(1)"), "");
}

TEST_F(CaseRowsTest, BeforeAnyStatementBoxTheResultTakesTheText) {
  Next(5);
  EXPECT_EQ(Focused(), "TxtExpr(5)");
  Insert("a");
  EXPECT_EQ(Result(), "a");
}

// The tab order.

TEST_F(CaseRowsTest, AfterNextTheRowsStandInTheTabOrderBehindTheDefault) {
  Next();
  EXPECT_EQ(TabOrder(15),
            (Texts{"tabVrn", "optCase", "txtcaseexp", "TxtDef", "TxtExpr(0)", "txtStmt(0)",
                   "TxtExpr(1)", "txtStmt(1)", "cmdNext", "cmdFunction(4)", "cmdSubQuery(4)",
                   "cmdAdd", "cmdBuild", "cmdClear", "cmdCancel", "cmdDone"}));
  EXPECT_EQ(TabIndex("cmdDone"), 15);
}

TEST_F(CaseRowsTest, EachNextRenewsTheTabOrderAndKeepsTheOthersAsTheyStand) {
  for (int row = 1; row <= 6; ++row) {
    Texts order = WholeTabOrder();
    order.push_back(Expr(row));
    order.push_back(Stmt(row));
    Next();
    EXPECT_EQ(WholeTabOrder(), Placed(order, row + 1)) << row;
    EXPECT_EQ(TabIndex("cmdDone"), 13 + 2 * row);
  }
}

TEST_F(CaseRowsTest, BehindAPageChangeNextPlacesTheRowsAndNotTheOption) {
  Tab(0);
  Tab(6);
  Texts order = WholeTabOrder();
  ASSERT_EQ(order.at(1), "optIfThen");
  order.push_back(Expr(1));
  order.push_back(Stmt(1));
  Next();
  EXPECT_EQ(WholeTabOrder(), Placed(order, 2));
  EXPECT_EQ(TabIndex("optIfThen"), 1);
}

// The bar.

TEST_F(CaseRowsTest, TheBarMovedUpBringsTheRowsDownAndStaysVisibleWithFiveRows) {
  Next(4);
  Scroll("VscrCase", 0);
  EXPECT_EQ(Tops(), (Figures{120, 810, 1500, 2190, 2880}));
  EXPECT_EQ(Bar(), (Figures{0, 1}));
  EXPECT_TRUE(BarVisible());
  EXPECT_EQ(Focused(), "VscrCase");
}

TEST_F(CaseRowsTest, TheBarMovedDownLiftsTheRows) {
  Next(4);
  Scroll("VscrCase", 0);
  Scroll("VscrCase", 1);
  EXPECT_EQ(Tops(), (Figures{-570, 120, 810, 1500, 2190}));
  EXPECT_EQ(Bar(), (Figures{1, 1}));
  EXPECT_TRUE(BarVisible());
}

TEST_F(CaseRowsTest, TheBarLeftWhereItIsMovesNothing) {
  Next(6);
  const Figures tops = Tops();
  Scroll("VscrCase", 3);
  EXPECT_EQ(Tops(), tops);
  EXPECT_EQ(host().UserScroll(On("VscrCase"), 4), Outcome::kOutside);
  EXPECT_EQ(host().UserScroll(On("VscrCase"), -1), Outcome::kOutside);
  EXPECT_EQ(Tops(), tops);
  EXPECT_EQ(Bar(), (Figures{3, 3}));
}

TEST_F(CaseRowsTest, TheRowsMoveFromTheFirstToTheLastTheValueBeforeItsStatements) {
  Next(4);
  Focus("VscrCase");
  RowLog log;
  host().AddObserver(log);
  Scroll("VscrCase", 0);
  host().RemoveObserver(log);
  EXPECT_EQ(log.steps, (Texts{"VscrCase Value", "TxtExpr(0) placed", "txtStmt(0) placed",
                              "TxtExpr(1) placed", "txtStmt(1) placed", "TxtExpr(2) placed",
                              "txtStmt(2) placed", "TxtExpr(3) placed", "txtStmt(3) placed",
                              "TxtExpr(4) placed", "txtStmt(4) placed"}));
}

TEST_F(CaseRowsTest, ADragOverSeveralPositionsMovesTheRowsByOne) {
  Next(6);
  ASSERT_EQ(Tops(), From(-1950, 7));
  Scroll("VscrCase", 0);
  EXPECT_EQ(Tops(), From(-1260, 7));
  EXPECT_EQ(Bar(), (Figures{0, 3}));
  Scroll("VscrCase", 2);
  EXPECT_EQ(Tops(), From(-1950, 7));
  Scroll("VscrCase", 3);
  EXPECT_EQ(Tops(), From(-2640, 7));
  for (const int value : {2, 1, 0})
    Scroll("VscrCase", value);
  EXPECT_EQ(Tops(), From(-570, 7));
  EXPECT_EQ(Bar(), (Figures{0, 3}));
}

TEST_F(CaseRowsTest, RowsThatPartedFromTheValueStayPartedWithTheNextRow) {
  Next(5);
  ASSERT_EQ(Tops(), From(-1260, 6));
  Scroll("VscrCase", 0);
  ASSERT_EQ(Tops(), From(-570, 6));
  Next();  // below the last row, then one step up
  EXPECT_EQ(Tops(), From(-1260, 7));
  EXPECT_EQ(Bar(), (Figures{1, 3}));
}

TEST_F(CaseRowsTest, TheTextsStayInTheirRowsWhereverTheyStand) {
  Next(5);
  for (int row = 0; row <= 5; ++row) {
    Type(Expr(row), "v" + std::to_string(row));
    Type(Stmt(row), "s" + std::to_string(row) + "\r\n\tt");
  }
  for (const int value : {0, 2, 1, 2})
    Scroll("VscrCase", value);
  Next();
  for (int row = 0; row <= 5; ++row) {
    EXPECT_EQ(Text(Expr(row)), "v" + std::to_string(row));
    EXPECT_EQ(Text(Stmt(row)), "s" + std::to_string(row) + "\r\n\tt");
  }
  EXPECT_EQ(Text(Expr(6)), "");
}

TEST_F(CaseRowsTest, ARowThatIsLeftEmptyDoesNotHinderTheNext) {
  Next(5);
  Type("txtcaseexp", "e");
  Type("TxtExpr(0)", "a");
  Type("txtStmt(0)", "s");
  Type("txtStmt(2)", "left out");
  Type("TxtExpr(5)", "b");
  Type("txtStmt(5)", "t");
  Click("cmdAdd");
  EXPECT_EQ(Result(),
            "on case e\r\n"
            "\tcase a :\r\n"
            "\t\ts\r\n"
            "\t\tbreak\r\n"
            "\tcase b :\r\n"
            "\t\tt\r\n"
            "\t\tbreak");
}

TEST_F(CaseRowsTest, AnotherKindInBetweenLeavesTheRowsAndTheirNumber) {
  Next(4);
  Type("TxtExpr(2)", "a");
  Click("optwhile");
  Click("optCase");
  EXPECT_EQ(Tops(), From(-570, 5));
  EXPECT_EQ(Text("TxtExpr(2)"), "a");
  EXPECT_TRUE(Shown("VscrCase"));
  Next();
  EXPECT_EQ(Tops(), From(-1260, 6));
  EXPECT_EQ(Bar(), (Figures{2, 2}));
}

// Whether the bar stays.

TEST_F(CaseRowsTest, WithFourRowsTheBarGoesWhenTheLastStandsLow) {
  StartASecondBehind(4);
  Next(3);
  ASSERT_TRUE(BarVisible());
  Scroll("VscrCase", 0);
  EXPECT_EQ(Tops(), From(120, 4));
  EXPECT_FALSE(BarVisible());
}

TEST_F(CaseRowsTest, ABarThatGoesWhileItHasTheFocusLosesIt) {
  StartASecondBehind(4);
  Next(3);
  Focus("VscrCase");
  Scroll("VscrCase", 0);
  EXPECT_EQ(Focused(), "nothing");
  EXPECT_EQ(host().UserScroll(On("VscrCase"), 1), Outcome::kNotShown);
  EXPECT_EQ(Tops(), From(120, 4));
}

TEST_F(CaseRowsTest, WithFourRowsTheBarStaysWhileTheLastStandsHigh) {
  StartASecondBehind(7);
  Next(3);
  ASSERT_EQ(Tops(), From(-2640, 4));
  Scroll("VscrCase", 3);
  EXPECT_EQ(On("TxtExpr(3)").Top(), 120);
  EXPECT_TRUE(BarVisible());
  Scroll("VscrCase", 2);
  EXPECT_EQ(On("TxtExpr(3)").Top(), 810);
  EXPECT_FALSE(BarVisible());
}

TEST_F(CaseRowsTest, TheLastValueBoxHigherThanThreeHundredKeepsTheBar) {
  for (const auto& [top, stays] : {std::pair(299, true), std::pair(300, false)}) {
    MakeNew();
    Open();
    StartASecondBehind(4);
    Next(3);
    Surface& form = Written(host());
    form.TxtExpr(3).Top(top - 690);
    form.txtStmt(3).Top(stays ? 5000 : -5000);  // plays no part, nor do the rows above
    form.TxtExpr(0).Top(stays ? 5000 : -5000);
    Scroll("VscrCase", 0);
    ASSERT_EQ(On("TxtExpr(3)").Top(), top);
    EXPECT_EQ(BarVisible(), stays) << top;
  }
}

TEST_F(CaseRowsTest, TheSameHoldsWhenTheRowsAreLifted) {
  for (const auto& [top, stays] : {std::pair(299, true), std::pair(300, false)}) {
    MakeNew();
    Open();
    StartASecondBehind(4);
    Surface& form = Written(host());
    Scroll("VscrCase", 0);
    Next(3);
    form.TxtExpr(3).Top(top + 690);
    Scroll("VscrCase", 1);
    ASSERT_EQ(On("TxtExpr(3)").Top(), top);
    EXPECT_EQ(BarVisible(), stays) << top;
  }
}

TEST_F(CaseRowsTest, WithFiveRowsTheBarStaysHoweverLowTheLastStands) {
  Next(4);
  Surface& form = Written(host());
  form.TxtExpr(4).Top(5000);
  Scroll("VscrCase", 0);
  EXPECT_TRUE(BarVisible());
  Scroll("VscrCase", 1);
  EXPECT_TRUE(BarVisible());
}

TEST_F(CaseRowsTest, WithRowZeroAloneTheBarOfTheCaseBeforeGoesWhenThatRowStandsLow) {
  StartASecondBehind(6);
  ASSERT_EQ(Tops(), Figures{-1950});
  ASSERT_TRUE(Shown("VscrCase"));
  for (const int value : {2, 1, 0})
    Scroll("VscrCase", value);
  ASSERT_EQ(Tops(), Figures{120});
  EXPECT_TRUE(BarVisible());
  Scroll("VscrCase", 3);  // one row up, however far
  ASSERT_EQ(Tops(), Figures{-570});
  Scroll("VscrCase", 2);
  Scroll("VscrCase", 1);
  EXPECT_EQ(Tops(), Figures{810});
  EXPECT_FALSE(BarVisible());
}

// A row that is gone stops a move halfway, so that the handler's memory and the bar may agree again
// without it. No person comes to that.

TEST_F(CaseRowsTest, ABarBackAtTheValueRememberedMovesNothingAndHasNoRowToLookAt) {
  StartASecondBehind(4);
  Next(3);
  Written(host()).TxtExpr.Unload(1);
  ExpectError(ErrorKind::kElement, [this] { host().UserScroll(On("VscrCase"), 0); });
  EXPECT_EQ(On("TxtExpr(0)").Top(), 120);
  EXPECT_EQ(On("TxtExpr(3)").Top(), 1500);
  ExpectError(ErrorKind::kElement, [this] { host().UserScroll(On("VscrCase"), 1); });
  EXPECT_EQ(On("TxtExpr(0)").Top(), 120);
  EXPECT_EQ(On("TxtExpr(3)").Top(), 1500);
  EXPECT_TRUE(BarVisible());
}

TEST_F(CaseRowsTest, WithFiveRowsSuchABarStaysAndNoRowIsLookedAt) {
  Next(4);
  Written(host()).TxtExpr.Unload(1);
  ExpectError(ErrorKind::kElement, [this] { host().UserScroll(On("VscrCase"), 0); });
  Scroll("VscrCase", 1);
  EXPECT_EQ(On("TxtExpr(0)").Top(), 120);
  EXPECT_EQ(On("TxtExpr(4)").Top(), 2190);
  EXPECT_TRUE(BarVisible());
}

// What is left behind a pass.

TEST_F(CaseRowsTest, AfterAPassTheRowsAreGoneAndRowZeroAndTheBarStayAsTheyWere) {
  Next(6);
  Click("cmdAdd");
  EXPECT_EQ(Tops(), Figures{-1950});
  EXPECT_EQ(Bar(), (Figures{3, 3}));
  EXPECT_TRUE(BarVisible());
  EXPECT_FALSE(Shown("VscrCase"));
  Click("optCase");
  EXPECT_TRUE(Shown("VscrCase"));
}

TEST_F(CaseRowsTest, TheRowsOfTheNextPassFollowFromRowZeroWhereItStands) {
  StartASecondBehind(6);
  Next();
  EXPECT_EQ(Tops(), (Figures{-1950, -1260}));
  EXPECT_FALSE(BarVisible());
  Next();
  EXPECT_FALSE(BarVisible());
  Next();
  EXPECT_EQ(Tops(), From(-1950, 4));
  EXPECT_TRUE(BarVisible());
  EXPECT_EQ(Bar(), (Figures{3, 3}));
}

TEST_F(CaseRowsTest, AFourthRowBehindAScrolledPassGoesBeyondTheBarAndIsThereAllTheSame) {
  StartASecondBehind(4);
  Next(3);
  Texts order = WholeTabOrder();
  NextFails(ErrorKind::kValue);
  EXPECT_EQ(Tops(), From(-570, 5));
  EXPECT_TRUE(Shown("TxtExpr(4)"));
  EXPECT_TRUE(Shown("txtStmt(4)"));
  EXPECT_EQ(Focused(), "TxtExpr(4)");
  EXPECT_EQ(Bar(), (Figures{1, 1}));
  EXPECT_TRUE(BarVisible());
  order.insert(order.end(), {"TxtExpr(4)", "txtStmt(4)"});
  EXPECT_EQ(WholeTabOrder(), order);
}

TEST_F(CaseRowsTest, TheRowAfterThatErrorCatchesUp) {
  StartASecondBehind(4);
  Next(3);
  NextFails(ErrorKind::kValue);
  Texts order = WholeTabOrder();
  order.insert(order.end(), {"TxtExpr(5)", "txtStmt(5)"});
  Next();
  EXPECT_EQ(Tops(), From(-1260, 6));
  EXPECT_EQ(Bar(), (Figures{2, 2}));
  EXPECT_EQ(WholeTabOrder(), Placed(order, 6));
}

TEST_F(CaseRowsTest, ALowerMaxTakesTheValueAlongAndMovesTheRowsBeforeTheError) {
  StartASecondBehind(6);
  Next(3);
  ASSERT_EQ(Tops(), From(-1950, 4));
  NextFails(ErrorKind::kValue);
  EXPECT_EQ(Tops(), From(-1260, 5));  // the new row too
  EXPECT_EQ(Bar(), (Figures{1, 1}));
  EXPECT_EQ(Focused(), "TxtExpr(4)");
}

TEST_F(CaseRowsTest, AtThatErrorTheBarIsAsItsOwnHandlerDecided) {
  StartASecondBehind(6);
  Next(3);
  Scroll("VscrCase", 2);
  ASSERT_FALSE(BarVisible());
  NextFails(ErrorKind::kValue);
  EXPECT_TRUE(BarVisible());
  EXPECT_EQ(Tops(), From(-570, 5));
  EXPECT_EQ(Bar(), (Figures{1, 1}));
}

TEST_F(CaseRowsTest, AHiddenBarStaysHiddenAtTheErrorWhenTheMaxTakesNothingAlong) {
  StartASecondBehind(4);
  Next(3);
  Written(host()).VscrCase.Visible(false);
  NextFails(ErrorKind::kValue);
  EXPECT_FALSE(BarVisible());
}

TEST_F(CaseRowsTest, ABarBroughtBackBeforeTheFourthRowLeavesRoomForIt) {
  StartASecondBehind(4);
  Next(3);
  Scroll("VscrCase", 0);
  Next();
  EXPECT_EQ(Tops(), From(-570, 5));
  EXPECT_EQ(Bar(), (Figures{1, 1}));
  EXPECT_TRUE(BarVisible());
}

TEST_F(CaseRowsTest, TheHandlersOwnMemoryOfTheValueLastsOverPassesAndClears) {
  StartASecondBehind(6);  // Value 3
  Click("cmdClear");
  Click("optCase");
  Written(host()).VscrCase.Visible(true);
  Scroll("VscrCase", 1);
  EXPECT_EQ(Tops(), Figures{-1260});
  Scroll("VscrCase", 2);
  EXPECT_EQ(Tops(), Figures{-1950});
}

// Rows that Build Condition and Clear forget.

TEST_F(CaseRowsTest, AfterAClearTheNumbersStartAgainAndNextFailsUntilItIsBeyondTheRows) {
  Next(2);
  Click("cmdClear");
  Click("optCase");
  NextFails(ErrorKind::kLoaded);
  NextFails(ErrorKind::kLoaded);
  EXPECT_FALSE(IsLoaded(3));
  Next();
  EXPECT_EQ(Tops(), From(120, 4));
  EXPECT_EQ(Focused(), "TxtExpr(3)");
  EXPECT_TRUE(BarVisible());
}

TEST_F(CaseRowsTest, AfterBuildConditionItIsTheSame) {
  Click("cmdAdd");
  Click("optCase");
  Next(2);
  Click("cmdBuild");
  NextFails(ErrorKind::kLoaded);
  NextFails(ErrorKind::kLoaded);
  Next();
  EXPECT_EQ(Tops(), From(120, 4));
}

TEST_F(CaseRowsTest, ALoadThatFailsLeavesTheFormAsItWas) {
  Next(5);
  Type("TxtExpr(1)", "a");
  Type("txtStmt(1)", "s");
  Click("cmdClear");
  Click("optCase");
  const Texts order = WholeTabOrder();
  const TouchedControls touched(host());
  NextFails(ErrorKind::kLoaded);
  EXPECT_EQ(touched.names, std::set<std::string>{"focus"});
  EXPECT_EQ(Focused(), "cmdNext");
  EXPECT_EQ(WholeTabOrder(), order);
  EXPECT_EQ(Tops(), From(-1260, 6));
  EXPECT_EQ(Bar(), (Figures{2, 2}));
  EXPECT_EQ(Text("TxtExpr(1)") + Text("txtStmt(1)"), "as");
}

TEST_F(CaseRowsTest, ClearHidesTheBarAndLeavesTheRows) {
  Next(4);
  Click("cmdClear");
  EXPECT_FALSE(BarVisible());
  EXPECT_EQ(Tops(), From(-570, 5));
  EXPECT_EQ(Bar(), (Figures{1, 1}));
}

TEST_F(CaseRowsTest, RowsThatAClearLeftGoIntoTheNextOnCase) {
  Next(2);
  Type("TxtExpr(2)", "b");
  Type("txtStmt(2)", "t");
  Click("cmdClear");
  Click("optCase");
  Type("txtcaseexp", "e");
  Click("cmdAdd");
  EXPECT_EQ(Result(), "on case e\r\n\tcase b :\r\n\t\tt\r\n\t\tbreak");
  EXPECT_FALSE(IsLoaded(1));
  Click("optCase");
  Next();
  EXPECT_EQ(Tops(), From(120, 2));
  EXPECT_EQ(Text("TxtExpr(1)"), "");
}

TEST_F(CaseRowsTest, BuildConditionLeavesTheBarAndItMovesTheRowsOfTheNumberOnly) {
  Click("cmdAdd");
  Click("optCase");
  Next(4);
  Click("cmdBuild");
  ASSERT_TRUE(Shown("VscrCase"));
  Scroll("VscrCase", 0);
  EXPECT_EQ(Tops(), (Figures{120, 120, 810, 1500, 2190}));
  EXPECT_TRUE(BarVisible());
  NextFails(ErrorKind::kLoaded);  // the number is 1 from here on
  Scroll("VscrCase", 1);
  EXPECT_EQ(Tops(), (Figures{-570, -570, 810, 1500, 2190}));
}

TEST_F(CaseRowsTest, TheRowBeyondTheForgottenOnesFollowsThemAndMovesWithThem) {
  Next(4);
  Click("cmdClear");
  Click("optCase");
  for (int row = 1; row <= 4; ++row)
    NextFails(ErrorKind::kLoaded);
  Next();
  EXPECT_EQ(Tops(), From(-1260, 6));
  EXPECT_EQ(Bar(), (Figures{2, 2}));
  EXPECT_TRUE(BarVisible());
}

TEST_F(CaseRowsTest, AfterAPassTheNumberStartsAgainWithNoError) {
  Next(3);
  Click("cmdAdd");
  Click("cmdBuild");
  Click("optCase");
  Next();
  EXPECT_EQ(Tops(), From(120, 2));
  EXPECT_EQ(Focused(), "TxtExpr(1)");
}

}  // namespace
}  // namespace zolt20::tests
