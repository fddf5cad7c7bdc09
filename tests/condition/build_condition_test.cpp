// Build Condition: the closing texts of all that is open, innermost first, what it resets, and the
// tab order behind its button.
#include <algorithm>
#include <ostream>
#include <set>
#include <string>

#include "tests/support/control_test.h"
#include "tests/support/silent.h"

namespace zolt20::tests {
namespace {

std::string Tabs(int count) {
  return std::string(static_cast<std::size_t>(count), '\t');
}

// The names of the controls that change in any way.
class TouchedLog final : public SilentObserver {
 public:
  void ControlChanged(const Control& control, Property /*property*/) noexcept override {
    names.insert(std::string(control.name()));
  }
  void RowsChanged(const Control& list, const RowChange& /*change*/) noexcept override {
    names.insert(std::string(list.name()));
  }
  void MarksChanged(const Control& list, int /*first*/, int /*count*/) noexcept override {
    names.insert(std::string(list.name()));
  }
  void TabOrderChanged(int /*first*/, int /*last*/) noexcept override {
    names.insert("the tab order");
  }
  void ElementLoaded(const Control& element) noexcept override {
    names.insert(std::string(element.name()));
  }
  void ElementUnloading(const Control& element) noexcept override {
    names.insert(std::string(element.name()));
  }
  void StateReplaced() noexcept override { names.insert("everything"); }

  std::set<std::string> names;
};

class BuildConditionTest : public ControlTest {
 protected:
  void SetUp() override { Tab(6); }

  // A pass each: the option, the boxes that are not "", Add Condition.
  void AddIf(std::string_view condition, std::string_view statement = "",
             std::string_view otherwise = "") {
    Click("optIfThen");
    Fill("txtCond", condition);
    Fill("txtStmt1", statement);
    Fill("txtStmt2", otherwise);
    Click("cmdAdd");
  }
  void AddFor(std::string_view variable, std::string_view first, std::string_view last) {
    Click("optFor");
    Fill("txtVariable", variable);
    Fill("txtinitval", first);
    Fill("txtFinVal", last);
    Click("cmdAdd");
  }
  void AddWhile(std::string_view condition, std::string_view statement = "") {
    Click("optwhile");
    Fill("txtWhlCnd", condition);
    Fill("txtWhlStm", statement);
    Click("cmdAdd");
  }
  void AddRepeat(std::string_view condition, std::string_view statement = "") {
    Click("optRepeat");
    Fill("txtRepCnd", condition);
    Fill("txtRepStm", statement);
    Click("cmdAdd");
  }
  /// An On...Case of one row; with no value it has none.
  void AddCase(std::string_view expression, std::string_view value, std::string_view statement,
               std::string_view otherwise = "") {
    ChooseCase(expression, value, statement, otherwise);
    Click("cmdAdd");
  }
  void ChooseCase(std::string_view expression, std::string_view value, std::string_view statement,
                  std::string_view otherwise = "") {
    Click("optCase");
    Fill("txtcaseexp", expression);
    Fill("TxtExpr(0)", value);
    Fill("txtStmt(0)", statement);
    Fill("TxtDef", otherwise);
  }

  void Build() { Click("cmdBuild"); }

  /// What a click on the button puts behind the Result.
  std::string Closers() {
    const std::string before = Result();
    Build();
    return Added(before);
  }
  /// The same for a click that fails.
  std::string ClosersUpTo(ErrorKind kind) {
    const std::string before = Result();
    ExpectError(kind, [this] { Build(); });
    return Added(before);
  }

  int Depth() { return host().prpintTabcount().value(); }

  /// Clicks on the options of If and For in turn, all boxes empty.
  void ClickOptions(int count) {
    for (int i = 0; i < count; ++i)
      Click(i % 2 == 0 ? "optIfThen" : "optFor");
  }

  /// Leaves the level of On...Case at -1, and the page as it was at the start.
  void LowerCaseLevel() {
    AddCase("e", "v", "s");
    Build();
    Click("optCase");  // a leftover
    AddIf("a");
    ASSERT_EQ(Closers(), "\r\nendif\r\nendcase");
    Click("cmdClear");
  }

 private:
  void Fill(std::string_view box, std::string_view text) {
    if (!text.empty()) Type(box, text);
  }
  std::string Added(const std::string& before) {
    const std::string after = Result();
    EXPECT_EQ(after.substr(0, before.size()), before);
    return after.substr(std::min(before.size(), after.size()));
  }
};

// The whole of it.

TEST_F(BuildConditionTest, ThreeKindsOneInTheOtherAreClosedFromTheInnermost) {
  AddIf("a", "x", "y");
  AddWhile("c", "s");
  AddFor("i", "1", "3");
  Build();
  EXPECT_EQ(Result(),
            "if a then \r\n"
            "\tx\r\n"
            "else\r\n"
            "\ty\r\n"
            "\twhile c\r\n"
            "\t\ts\r\n"
            "\t\tfor i = 1 to 3\r\n"
            "\r\n"
            "\t\tendfor\r\n"
            "\tendwhile\r\n"
            "endif");
}

TEST_F(BuildConditionTest, AllFiveKindsOneInTheOtherAreClosedFromTheInnermost) {
  AddRepeat("p", "r");
  AddCase("e", "v", "s", "d");
  AddFor("i", "1", "3");
  AddWhile("c", "w");
  AddIf("a", "x");
  EXPECT_EQ(Closers(),
            "\r\n\t\t\t\tendif"
            "\r\n\t\t\tendwhile"
            "\r\n\t\tendfor"
            "\r\n\t\tdefault: \r\n\t\t\td\r\nendcase"
            "\r\nUntil  ( p )");
}

TEST_F(BuildConditionTest, ASecondConstructFollowsTheFirstAtTheMargin) {
  AddIf("a", "x");
  AddWhile("c", "s");
  Build();
  AddWhile("d", "t");
  AddIf("b", "y");
  Build();
  EXPECT_EQ(Result(),
            "if a then \r\n\tx"
            "\r\n\twhile c\r\n\t\ts"
            "\r\n\tendwhile"
            "\r\nendif"
            "\r\nwhile d\r\n\tt"
            "\r\n\tif b then \r\n\t\ty"
            "\r\n\tendif"
            "\r\nendwhile");
}

// The closing texts.

struct ClosingText {
  const char* kind;
  int depth;
  const char* text;
};

std::ostream& operator<<(std::ostream& out, const ClosingText& closing) {
  return out << closing.kind << " at " << closing.depth;
}

class BuildClosingTextTest : public BuildConditionTest,
                             public ::testing::WithParamInterface<ClosingText> {};

TEST_P(BuildClosingTextTest, StandsAtTheDepthOfItsHead) {
  const auto [kind, depth, text] = GetParam();
  const std::string_view added(kind);
  host().prpintTabcount(depth);
  if (added == "if") AddIf("a", "x");
  if (added == "for") AddFor("i", "1", "3");
  if (added == "while") AddWhile("c", "s");
  if (added == "repeat") AddRepeat("c", "s");
  if (added == "repeat without condition") AddRepeat("", "s");
  if (added == "repeat without statement") AddRepeat("c");
  if (added == "case") AddCase("e", "v", "s");
  if (added == "case with default") AddCase("e", "v", "s", "d");
  EXPECT_EQ(Closers(), text);
}

INSTANTIATE_TEST_SUITE_P(
    Depths, BuildClosingTextTest,
    ::testing::Values(
        ClosingText{"if", -2, "\r\nendif"}, ClosingText{"if", 0, "\r\nendif"},
        ClosingText{"if", 1, "\r\n\tendif"}, ClosingText{"if", 3, "\r\n\t\t\tendif"},
        ClosingText{"for", -2, "\r\nendfor"}, ClosingText{"for", 0, "\r\nendfor"},
        ClosingText{"for", 1, "\r\n\tendfor"}, ClosingText{"for", 3, "\r\n\t\t\tendfor"},
        ClosingText{"while", -2, "\r\nendwhile"}, ClosingText{"while", 0, "\r\nendwhile"},
        ClosingText{"while", 1, "\r\n\tendwhile"}, ClosingText{"while", 3, "\r\n\t\t\tendwhile"},
        ClosingText{"repeat", -2, "\r\nUntil  ( c )"}, ClosingText{"repeat", 0, "\r\nUntil  ( c )"},
        ClosingText{"repeat", 1, "\r\n\tUntil  ( c )"},
        ClosingText{"repeat", 3, "\r\n\t\t\tUntil  ( c )"},
        ClosingText{"repeat without condition", 0, "\r\nUntil  (  )"},
        ClosingText{"repeat without condition", 2, "\r\n\t\tUntil  (  )"},
        ClosingText{"repeat without statement", 0, "\r\nUntil  ( c )"},
        ClosingText{"repeat without statement", 2, "\r\n\t\tUntil  ( c )"},
        ClosingText{"case", -2, "\r\nendcase"}, ClosingText{"case", 0, "\r\nendcase"},
        ClosingText{"case", 1, "\r\n\tendcase"}, ClosingText{"case", 3, "\r\n\t\t\tendcase"},
        ClosingText{"case with default", -3, "\r\ndefault: \r\nd\r\nendcase"},
        ClosingText{"case with default", -2, "\r\ndefault: \r\nd\r\nendcase"},
        ClosingText{"case with default", -1, "\r\ndefault: \r\n\td\r\nendcase"},
        ClosingText{"case with default", 0, "\r\n\tdefault: \r\n\t\td\r\nendcase"},
        ClosingText{"case with default", 1, "\r\n\t\tdefault: \r\n\t\t\td\r\nendcase"},
        ClosingText{"case with default", 3, "\r\n\t\t\t\tdefault: \r\n\t\t\t\t\td\r\nendcase"}));

TEST_F(BuildConditionTest, AConditionStandsInParenthesesOfItsOwnWithoutItsOuterBlanks) {
  AddRepeat("  a ( b )  = \"c\" ");
  EXPECT_EQ(Closers(), "\r\nUntil  ( a ( b )  = \"c\" )");
}

TEST_F(BuildConditionTest, ADefaultOfSeveralLinesKeepsItsOwnLineStarts) {
  host().prpintTabcount(1);
  AddCase("e", "v", "s", "x\r\ny\r\n\tz\nend");
  EXPECT_EQ(Closers(), "\r\n\t\tdefault: \r\n\t\t\tx\r\ny\r\n\tz\nend\r\nendcase");
}

TEST_F(BuildConditionTest, TwoRepeatsTakeTheirConditionsFromTheInnermost) {
  AddRepeat("p");
  AddRepeat("q", "s");
  Build();
  EXPECT_EQ(Result(),
            "repeat "
            "\r\n\trepeat \r\n\t\ts"
            "\r\n\tUntil  ( q )"
            "\r\nUntil  ( p )");
}

TEST_F(BuildConditionTest, TwoCasesTakeTheirDefaultsFromTheInnermost) {
  AddCase("e", "v", "s", "d");
  AddCase("f", "w", "t", "g");
  EXPECT_EQ(Closers(),
            "\r\n\t\tdefault: \r\n\t\t\tg\r\nendcase"
            "\r\n\tdefault: \r\n\t\td\r\nendcase");
}

TEST_F(BuildConditionTest, RowsWithoutStatementLeaveTheEndOfTheCaseAndMoveTheCloserAround) {
  AddIf("a", "x");
  AddCase("e", "v", "");
  EXPECT_EQ(Depth(), 2);
  EXPECT_EQ(Closers(), "\r\n\tendcase\r\n\tendif");
}

TEST_F(BuildConditionTest, RowsWithoutStatementMoveTheClosersInsideTheCaseToo) {
  AddCase("e", "v", "", "d");
  AddWhile("c", "s");
  EXPECT_EQ(Depth(), 2);
  EXPECT_EQ(Closers(), "\r\n\t\tendwhile\r\n\tdefault: \r\n\t\td\r\nendcase");
}

TEST_F(BuildConditionTest, AClosingTextThatComesFirstInTheResultBeginsWithALineBreakToo) {
  AddIf("a", "x");
  Build();
  Click("cmdClear");
  Click("optIfThen");     // closed by the marker of the If that is gone
  AddCase("", "v", "s");  // stores nothing, and turns the button on
  ASSERT_EQ(Result(), "");
  Build();
  EXPECT_EQ(Result(), "\r\nendif");
}

// Markers, one a kind.

TEST_F(BuildConditionTest, AnEntryThatWritesNothingTakesATabAllTheSame) {
  host().prpintTabcount(3);
  AddIf("a", "x");
  Click("optFor");  // a leftover
  AddWhile("c", "s");
  EXPECT_EQ(Closers(), "\r\n\t\t\t\tendwhile\r\n\t\tendif");
}

TEST_F(BuildConditionTest, EachKindsLeftoverWritesNothingAndTakesATab) {
  for (const char* option : {"optFor", "optwhile", "optRepeat", "optCase"}) {
    MakeNew();
    Tab(6);
    host().prpintTabcount(3);
    Click("optIfThen");
    Click(option);
    AddIf("a", "x");
    EXPECT_EQ(Closers(), "\r\n\t\t\tendif\r\n\tendif") << option;
  }
}

TEST_F(BuildConditionTest, ALeftoverIfWritesNothingAndTakesATab) {
  host().prpintTabcount(3);
  Click("optwhile");
  Click("optIfThen");
  AddWhile("c", "s");
  EXPECT_EQ(Closers(), "\r\n\t\t\tendwhile\r\n\tendwhile");
}

TEST_F(BuildConditionTest, ALeftoverWhileIsClosedByTheMarkerOfAWhileFromBefore) {
  AddWhile("c", "s");
  Build();
  Click("optwhile");
  AddIf("a", "x");
  EXPECT_EQ(Closers(), "\r\nendif\r\nendwhile");
}

TEST_F(BuildConditionTest, ALeftoverIfIsClosedByTheMarkerOfAnIfFromBefore) {
  AddIf("a");
  Build();
  Click("optIfThen");
  AddWhile("c");
  EXPECT_EQ(Closers(), "\r\nendwhile\r\nendif");
}

TEST_F(BuildConditionTest, ALeftoverForIsClosedByTheMarkerOfAForFromBefore) {
  AddFor("i", "1", "3");
  Build();
  Click("optFor");
  AddWhile("c");
  EXPECT_EQ(Closers(), "\r\nendwhile\r\nendfor");
}

TEST_F(BuildConditionTest, ALeftoverRepeatIsClosedWithTheConditionOfARepeatFromBefore) {
  AddRepeat("p");
  Build();
  Click("optRepeat");
  AddWhile("c");
  EXPECT_EQ(Closers(), "\r\nendwhile\r\nUntil  ( p )");
}

TEST_F(BuildConditionTest, ALeftoverCaseIsClosedWithTheDefaultOfACaseFromBefore) {
  AddCase("e", "v", "s", "d");
  Build();
  Click("optCase");
  AddWhile("c");
  EXPECT_EQ(Closers(), "\r\nendwhile\r\n\tdefault: \r\n\t\td\r\nendcase");
}

TEST_F(BuildConditionTest, TheMarkersOutliveClear) {
  AddIf("a");
  AddFor("i", "1", "3");
  AddWhile("c");
  AddRepeat("p");
  Click("cmdClear");
  for (const char* option : {"optIfThen", "optFor", "optwhile", "optRepeat"})
    Click(option);
  AddCase("", "", "");  // stores nothing, and turns the button on
  EXPECT_EQ(Closers(), "\r\nUntil  ( p )\r\nendwhile\r\nendfor\r\nendif");
}

TEST_F(BuildConditionTest, AnInnerIfOfNoConditionClosesBothIfs) {
  AddIf("a", "x");
  AddIf("");
  Build();
  EXPECT_EQ(Result(), "if a then \r\n\tx\r\n\r\n\tendif\r\nendif");
}

TEST_F(BuildConditionTest, AFirstIfOfNoConditionIsNotClosed) {
  AddIf("", "x", "y");
  Build();
  EXPECT_EQ(Result(), "");
}

TEST_F(BuildConditionTest, AnInnerWhileOfNoConditionClosesBothWhiles) {
  AddWhile("c", "s");
  AddWhile("");
  Build();
  EXPECT_EQ(Result(), "while c\r\n\ts\r\n\r\n\tendwhile\r\nendwhile");
}

TEST_F(BuildConditionTest, AFirstWhileOfNoConditionIsNotClosed) {
  AddWhile("", "s");
  Build();
  EXPECT_EQ(Result(), "");
}

TEST_F(BuildConditionTest, AnInnerForWithABoxMissingClosesNeitherFor) {
  AddFor("i", "1", "3");
  AddFor("j", "", "5");
  Build();
  EXPECT_EQ(Result(), "for i = 1 to 3\r\n\r\n");
}

TEST_F(BuildConditionTest, AnInnerRepeatOfEmptyBoxesClosesNeitherRepeat) {
  AddRepeat("p", "s");
  AddRepeat("");
  Build();
  EXPECT_EQ(Result(), "repeat \r\n\ts\r\n\trepeat ");
}

TEST_F(BuildConditionTest, AnInnerCaseWithNothingToStoreClosesNeitherCase) {
  AddCase("e", "v", "s");
  AddCase("", "w", "t", "d");
  EXPECT_EQ(Closers(), "");
}

// The conditions of Repeats.

TEST_F(BuildConditionTest, AnOuterRepeatOfNoConditionTakesTheOneOfTheInnerAgain) {
  AddRepeat("", "s");
  AddRepeat("p", "t");
  EXPECT_EQ(Closers(), "\r\n\tUntil  ( p )\r\nUntil  ( p )");
}

TEST_F(BuildConditionTest, AnInnerRepeatOfNoConditionTakesTheOneOfTheOuterBeforeIt) {
  AddRepeat("p", "s");
  AddRepeat("", "t");
  EXPECT_EQ(Closers(), "\r\n\tUntil  ( p )\r\nUntil  ( p )");
}

TEST_F(BuildConditionTest, ARepeatOfNoConditionTakesTheOneOfARepeatThatWasBuilt) {
  AddRepeat("p");
  AddRepeat("q");
  Build();
  AddRepeat("", "s");
  EXPECT_EQ(Closers(), "\r\nUntil  ( p )");
}

TEST_F(BuildConditionTest, AConditionIsTakenOffAlsoWhereNoUntilIsWritten) {
  AddRepeat("p");
  AddRepeat("");
  ASSERT_EQ(Closers(), "");
  AddRepeat("q");
  ASSERT_EQ(Closers(), "\r\nUntil  ( q )");
  AddRepeat("", "s");
  EXPECT_EQ(Closers(), "\r\nUntil  ( q )");  // where p stood
}

TEST_F(BuildConditionTest, ConditionsOutliveClear) {
  AddRepeat("p");
  Click("cmdClear");
  AddRepeat("q");
  AddRepeat("r");
  EXPECT_EQ(Closers(), "\r\n\tUntil  ( r )\r\nUntil  ( q )");
  AddRepeat("", "s");
  EXPECT_EQ(Closers(), "\r\nUntil  ( p )");
}

TEST_F(BuildConditionTest, AConditionThatWasNotTakenOffWaitsForALaterBuild) {
  AddRepeat("p");
  Click("cmdClear");
  AddIf("a", "x");
  Build();
  AddRepeat("q");
  ASSERT_EQ(Closers(), "\r\nUntil  ( q )");
  AddRepeat("", "s");
  EXPECT_EQ(Closers(), "\r\nUntil  ( p )");
}

TEST_F(BuildConditionTest, ElevenConditionsAreReadBackToTheFirst) {
  std::string expected;
  for (int i = 0; i < 11; ++i) {
    AddRepeat("c" + std::to_string(i));
    expected.insert(0, "\r\n" + Tabs(i) + "Until  ( c" + std::to_string(i) + " )");
  }
  EXPECT_EQ(Closers(), expected);
}

// The defaults and levels of On...Cases.

TEST_F(BuildConditionTest, ADefaultOfTheInnerCaseAloneIsWrittenForBoth) {
  AddCase("e", "v", "s");
  AddCase("f", "w", "t", "d");
  Build();
  EXPECT_EQ(Result(),
            "on case e\r\n\tcase v :\r\n\t\ts\r\n\t\tbreak"
            "\r\n\ton case f\r\n\t\tcase w :\r\n\t\t\tt\r\n\t\t\tbreak"
            "\r\n\t\tdefault: \r\n\t\t\td\r\nendcase"
            "\r\n\tdefault: \r\n\t\td\r\nendcase");
}

TEST_F(BuildConditionTest, ADefaultOfTheOuterCaseAloneIsWrittenForBoth) {
  AddCase("e", "v", "s", "d");
  AddCase("f", "w", "t");
  EXPECT_EQ(Closers(),
            "\r\n\t\tdefault: \r\n\t\t\td\r\nendcase"
            "\r\n\tdefault: \r\n\t\td\r\nendcase");
}

TEST_F(BuildConditionTest, ACaseOfNoDefaultTakesTheOneOfACaseThatWasBuilt) {
  AddCase("e", "v", "s", "d");
  AddCase("f", "w", "t", "g");
  Build();
  AddCase("h", "u", "r");
  EXPECT_EQ(Closers(), "\r\n\tdefault: \r\n\t\td\r\nendcase");
}

TEST_F(BuildConditionTest, ADefaultIsTakenOffAlsoWhereTheCaseIsNotClosed) {
  AddCase("", "", "", "p");
  ASSERT_EQ(Closers(), "");
  AddCase("e", "v", "s", "q");
  ASSERT_EQ(Closers(), "\r\n\tdefault: \r\n\t\tq\r\nendcase");
  AddCase("e", "v", "s");
  EXPECT_EQ(Closers(), "\r\n\tdefault: \r\n\t\tq\r\nendcase");  // where p stood
}

TEST_F(BuildConditionTest, DefaultsOutliveClear) {
  AddCase("e", "v", "s", "p");
  Click("cmdClear");
  AddCase("f", "w", "t");
  EXPECT_EQ(Closers(), "\r\n\tdefault: \r\n\t\tp\r\nendcase");
}

TEST_F(BuildConditionTest, ADefaultThatWasNotTakenOffWaitsForALaterBuild) {
  AddCase("e", "v", "s", "p");
  Click("cmdClear");
  AddIf("a", "x");
  Build();
  AddCase("f", "w", "t", "q");
  ASSERT_EQ(Closers(), "\r\n\tdefault: \r\n\t\tq\r\nendcase");
  AddCase("f", "w", "t");
  EXPECT_EQ(Closers(), "\r\n\tdefault: \r\n\t\tp\r\nendcase");
}

TEST_F(BuildConditionTest, ACaseThatIsNotClosedKeepsItsLevelForGood) {
  host().prpintTabcount(5);
  AddCase("", "v", "s");
  ASSERT_EQ(Closers(), "");
  AddCase("e", "v", "s");
  ASSERT_EQ(Closers(), "\r\nendcase");
  Click("optCase");  // finds the level that the first one left
  AddIf("a", "x");
  EXPECT_EQ(Closers(), "\r\nendif\r\n\t\t\t\t\tendcase");
}

TEST_F(BuildConditionTest, TenCasesThatAreNotClosedLeaveNoLevelForTheEleventh) {
  for (int i = 0; i < 10; ++i) {
    AddCase("", "", "");
    Build();
  }
  ChooseCase("e", "v", "s");
  ExpectError(ErrorKind::kSubscript, [this] { Click("cmdAdd"); });
}

TEST_F(BuildConditionTest, AClosedCaseGivesItsLevelBack) {
  for (int i = 0; i < 12; ++i) {
    AddCase("e", "v", "s");
    ASSERT_EQ(Closers(), "\r\nendcase") << i;
  }
}

TEST_F(BuildConditionTest, ALeftoverCaseAtLevelZeroIsClosedAndTheNextOnesArePassedOver) {
  AddCase("e", "v", "s");
  Build();
  Click("optCase");
  AddIf("a", "x");
  ASSERT_EQ(Closers(), "\r\nendif\r\nendcase");
  host().prpintTabcount(4);
  Click("optCase");
  Click("optwhile");
  Click("optCase");
  AddIf("a", "x");
  EXPECT_EQ(Closers(), "\r\n\t\t\t\tendif");
}

TEST_F(BuildConditionTest, ACasePassedOverTakesATabAllTheSame) {
  LowerCaseLevel();
  host().prpintTabcount(4);
  AddIf("a", "x");
  Click("optCase");
  AddIf("b", "y");
  EXPECT_EQ(Closers(), "\r\n\t\t\t\t\tendif\r\n\t\t\tendif");
}

TEST_F(BuildConditionTest, TheNextCaseRaisesTheLevelFromBelowZero) {
  LowerCaseLevel();
  host().prpintTabcount(3);
  AddCase("e", "v", "s");
  EXPECT_EQ(Closers(), "\r\n\t\t\tendcase");
  Click("optCase");
  AddIf("a", "x");
  EXPECT_EQ(Closers(), "\r\nendif");
}

TEST_F(BuildConditionTest, ALeftoverCaseAtLevelZeroStandsAtTheDepthKeptThere) {
  LowerCaseLevel();
  host().prpintTabcount(3);
  AddCase("e", "v", "s");
  Click("cmdClear");  // the level stays
  Click("optCase");
  AddIf("a", "x");
  EXPECT_EQ(Closers(), "\r\nendif\r\n\t\t\tendcase");
}

TEST_F(BuildConditionTest, ElevenCasesAreReadBackToLevelZero) {
  LowerCaseLevel();
  std::string expected;
  for (int i = 0; i < 11; ++i) {
    AddCase("e", "v", "s", "d" + std::to_string(i));
    expected.insert(0, "\r\n" + Tabs(i + 1) + "default: \r\n" + Tabs(i + 2) + "d" +
                           std::to_string(i) + "\r\nendcase");
  }
  EXPECT_EQ(Closers(), expected);
}

TEST_F(BuildConditionTest, ALevelBeyondTheLastFailsAtTheFirstCaseEntry) {
  for (int i = 0; i < 10; ++i)
    AddCase("e", "v", "s");
  ChooseCase("e", "v", "s");
  ExpectError(ErrorKind::kSubscript, [this] { Click("cmdAdd"); });
  ASSERT_EQ(Depth(), 10);
  EXPECT_EQ(ClosersUpTo(ErrorKind::kSubscript), "");
  EXPECT_EQ(Depth(), 10);
  EXPECT_FALSE(Enabled("cmdBuild"));
  EXPECT_FALSE(Enabled("cmdFunction(4)"));
  EXPECT_FALSE(Enabled("cmdSubQuery(4)"));
}

TEST_F(BuildConditionTest, ALevelBeyondTheLastLeavesWhatWasClosedBefore) {
  for (int i = 0; i < 10; ++i)
    AddCase("e", "v", "s");
  ChooseCase("e", "v", "s");
  ExpectError(ErrorKind::kSubscript, [this] { Click("cmdAdd"); });
  AddIf("a", "x");  // takes the place of the case that failed
  ASSERT_EQ(Depth(), 11);
  EXPECT_EQ(ClosersUpTo(ErrorKind::kSubscript), "\r\n" + Tabs(11) + "endif");
  EXPECT_EQ(Depth(), 10);
}

TEST_F(BuildConditionTest, ALevelBeyondTheLastDoesNotMatterToACaseThatIsNotClosed) {
  for (int i = 0; i < 10; ++i)
    AddCase("", "", "");
  ChooseCase("e", "v", "s");
  ExpectError(ErrorKind::kSubscript, [this] { Click("cmdAdd"); });
  EXPECT_EQ(Closers(), "");
  EXPECT_EQ(Depth(), 0);
}

// Depths at the ends of the range.

TEST_F(BuildConditionTest, TheDepthMayFallToTheLeastNumber) {
  host().prpintTabcount(-32767);
  AddIf("a", "x");
  EXPECT_EQ(Closers(), "\r\nendif");
  EXPECT_EQ(Depth(), 0);
}

TEST_F(BuildConditionTest, ADepthBelowTheLeastNumberFailsBehindTheClosingText) {
  host().prpintTabcount(-32768);
  AddIf("a", "x");
  EXPECT_EQ(ClosersUpTo(ErrorKind::kOverflow), "\r\nendif");
  EXPECT_EQ(Depth(), -32768);
  EXPECT_FALSE(Enabled("cmdBuild"));
}

TEST_F(BuildConditionTest, ADepthBelowTheLeastNumberLeavesTheEntriesOnTheStack) {
  host().prpintTabcount(-32768);
  AddIf("a", "x");
  ExpectError(ErrorKind::kOverflow, [this] { Build(); });
  host().prpintTabcount(4);
  AddWhile("c", "s");
  EXPECT_EQ(Closers(), "\r\n\t\t\t\tendwhile\r\n\t\t\tendif");
}

TEST_F(BuildConditionTest, ADefaultDeeperThanTheGreatestNumberFailsAndWritesNothing) {
  host().prpintTabcount(32766);
  AddCase("", "", "", "d");  // its depth is kept, and its default is what both take
  host().prpintTabcount(0);
  AddCase("e", "v", "s");
  EXPECT_EQ(ClosersUpTo(ErrorKind::kOverflow), "\r\n\tdefault: \r\n\t\td\r\nendcase");
  EXPECT_EQ(Depth(), -1);
}

// What it resets, and what it leaves.

TEST_F(BuildConditionTest, TheNextPassDoesNotDeepen) {
  AddIf("a", "x");
  AddIf("b", "y");
  Build();
  EXPECT_EQ(Depth(), 0);
  AddWhile("c", "s");
  EXPECT_EQ(Depth(), 0);
  AddWhile("d", "t");
  EXPECT_EQ(Depth(), 1);
}

TEST_F(BuildConditionTest, ABaseDepthOfTheHostIsGone) {
  host().prpintTabcount(2);
  AddIf("a", "x");
  Build();
  EXPECT_EQ(Result(), "\t\tif a then \r\n\t\t\tx\r\n\t\tendif");
  EXPECT_EQ(Depth(), 0);
  EXPECT_EQ(Narrow(host().prpStroutput()), "\t\tif a then \r\n\t\t\tx\r\n\t\tendif");
}

TEST_F(BuildConditionTest, TheDepthIsPutToZeroFromBelowToo) {
  host().prpintTabcount(-7);
  AddIf("a", "x");
  Build();
  EXPECT_EQ(Depth(), 0);
}

TEST_F(BuildConditionTest, TheStackIsEmptyAfterwards) {
  AddIf("a");
  AddWhile("c");
  Build();
  AddFor("i", "1", "3");
  EXPECT_EQ(Closers(), "\r\nendfor");
}

TEST_F(BuildConditionTest, TheButtonsOfThePageAreDisabled) {
  EXPECT_FALSE(Enabled("cmdBuild"));
  AddIf("a", "x");
  EXPECT_TRUE(Enabled("cmdBuild"));
  EXPECT_TRUE(Enabled("cmdFunction(4)"));
  EXPECT_TRUE(Enabled("cmdSubQuery(4)"));
  Build();
  EXPECT_FALSE(Enabled("cmdBuild"));
  EXPECT_FALSE(Enabled("cmdFunction(4)"));
  EXPECT_FALSE(Enabled("cmdSubQuery(4)"));
  EXPECT_TRUE(Enabled("cmdAdd"));
  EXPECT_TRUE(Enabled("cmdFunction(3)"));
  EXPECT_TRUE(Enabled("cmdSubQuery(3)"));
}

TEST_F(BuildConditionTest, TheButtonLosesTheFocusAndASecondClickIsRefused) {
  AddIf("a", "x");
  Build();
  EXPECT_EQ(Focused(), "nothing");
  EXPECT_EQ(host().UserClick(On("cmdBuild")), Outcome::kNotEnabled);
  EXPECT_EQ(Result(), "if a then \r\n\tx\r\nendif");
}

TEST_F(BuildConditionTest, OnlyTheThreeButtonsAndTheResultChange) {
  AddCase("e", "v", "s", "d");
  Click("optFor");
  Type("txtForStmt", "y");
  Focus("cmdBuild");
  TouchedLog log;
  host().AddObserver(log);
  Build();
  host().RemoveObserver(log);
  EXPECT_EQ(log.names,
            (std::set<std::string>{"cmdBuild", "cmdFunction(4)", "cmdSubQuery(4)", "TxtOutput"}));
}

TEST_F(BuildConditionTest, TheInstructionsStayInSight) {
  AddIf("a", "x");
  Build();
  EXPECT_TRUE(Shown("Frainitial"));
  EXPECT_TRUE(Shown("fraSelect"));
  EXPECT_FALSE(Visible("fraif"));
}

TEST_F(BuildConditionTest, DoneIsRefusedBeforeAndRaisedAfter) {
  AddIf("a", "x");
  Click("cmdDone");
  EXPECT_EQ(Log(), Texts{ErrorMessage("Build Condition")});
  Build();
  Click("cmdDone");
  EXPECT_EQ(Log(), Texts{"eventDone"});
}

TEST_F(BuildConditionTest, TheButtonIsOutOfReachOnAnotherPageAndWaits) {
  AddIf("a", "x");
  Tab(0);
  EXPECT_EQ(host().UserClick(On("cmdBuild")), Outcome::kNotShown);
  Tab(6);
  EXPECT_EQ(Closers(), "\r\nendif");
}

TEST_F(BuildConditionTest, TheRowsOfACaseStayAndTheNextRowFails) {
  AddIf("a", "x");
  Click("optCase");
  Click("cmdNext");
  Type("TxtExpr(1)", "v");
  Build();
  EXPECT_EQ(Text("TxtExpr(1)"), "v");
  ExpectError(ErrorKind::kLoaded, [this] { Click("cmdNext"); });
}

TEST_F(BuildConditionTest, AKindChosenAndNotAddedUsesItsEntryUpAndKeepsItsFrame) {
  host().prpintTabcount(2);
  AddIf("a", "x");
  Click("optwhile");
  Type("txtWhlCnd", "c");
  EXPECT_EQ(Closers(), "\r\n\tendif");
  EXPECT_TRUE(Shown("frawhile"));
  EXPECT_FALSE(Shown("Frainitial"));
  EXPECT_TRUE(Option("optwhile"));
  EXPECT_EQ(Text("txtWhlCnd"), "c");
}

TEST_F(BuildConditionTest, AKindChosenAndNotAddedCanBeAddedAndIsNeverClosed) {
  AddIf("a", "x");
  Click("optwhile");
  Type("txtWhlCnd", "c");
  Build();
  Click("cmdAdd");
  EXPECT_EQ(Closers(), "");
  EXPECT_EQ(Result(), "if a then \r\n\tx\r\nendif\r\nwhile  c");
}

TEST_F(BuildConditionTest, AKindChosenAndNotAddedIsClosedByAnOldMarkerBeforeItsHeadComes) {
  AddWhile("c");
  Click("optwhile");
  Type("txtWhlCnd", "d");
  Build();
  Click("cmdAdd");
  Build();
  EXPECT_EQ(Result(), "while  c\r\nendwhile\r\nendwhile\r\nwhile  d");
}

TEST_F(BuildConditionTest, WithNoEntryOnTheStackItOnlyResets) {
  Click("optIfThen");
  Click("cmdClear");
  host().prpintTabcount(5);
  Click("cmdAdd");  // a pass for the old kind, on empty boxes
  Type("TxtOutput", "by hand");
  EXPECT_EQ(Closers(), "");
  EXPECT_EQ(Result(), "by hand");
  EXPECT_EQ(Depth(), 0);
  EXPECT_FALSE(Enabled("cmdBuild"));
  EXPECT_FALSE(Enabled("cmdFunction(4)"));
  EXPECT_FALSE(Enabled("cmdSubQuery(4)"));
}

TEST_F(BuildConditionTest, WithNoEntryOnTheStackAMarkerClosesNothing) {
  Click("optIfThen");
  Click("cmdClear");
  host().prpStroutput(u"x");
  Click("cmdAdd");  // leaves a line break as the marker of If
  EXPECT_EQ(Closers(), "");
  EXPECT_EQ(Result(), "x\r\n");
}

TEST_F(BuildConditionTest, WithNoEntryOnTheStackTheNextPassDoesNotDeepen) {
  Click("optRepeat");
  Click("cmdClear");
  Click("cmdAdd");
  Build();
  AddIf("a", "x");
  EXPECT_EQ(Depth(), 0);
}

// The full stack.

TEST_F(BuildConditionTest, TwentyEntriesAreClosedAndReset) {
  ClickOptions(19);
  AddWhile("c", "s");
  EXPECT_EQ(Closers(), "\r\nendwhile");
  EXPECT_EQ(Depth(), 0);
  AddIf("a", "x");
  EXPECT_EQ(Closers(), "\r\nendif");
}

TEST_F(BuildConditionTest, TwentyOneEntriesFailBehindAllClosingTexts) {
  host().prpintTabcount(12);
  ClickOptions(21);  // the last is an If
  Type("txtCond", "a");
  Click("cmdAdd");
  std::string expected;
  for (int depth = 12; depth >= -8; depth -= 2)
    expected += "\r\n" + Tabs(std::max(depth, 0)) + "endif";
  EXPECT_EQ(ClosersUpTo(ErrorKind::kSubscript), expected);
}

TEST_F(BuildConditionTest, TwentyOneEntriesLeaveTheDepthAndTheStack) {
  host().prpintTabcount(12);
  ClickOptions(21);
  Type("txtCond", "a");
  Click("cmdAdd");
  ExpectError(ErrorKind::kSubscript, [this] { Build(); });
  EXPECT_EQ(Depth(), -9);
  ExpectError(ErrorKind::kSubscript, [this] { Click("optwhile"); });  // still full
}

TEST_F(BuildConditionTest, TwentyOneEntriesLeaveTheButtonOffAndASecondClickRefused) {
  ClickOptions(21);
  Type("txtCond", "a");
  Click("cmdAdd");
  ExpectError(ErrorKind::kSubscript, [this] { Build(); });
  const std::string result = Result();
  EXPECT_EQ(host().UserClick(On("cmdBuild")), Outcome::kNotEnabled);
  EXPECT_FALSE(Enabled("cmdFunction(4)"));
  EXPECT_FALSE(Enabled("cmdSubQuery(4)"));
  Click("cmdAdd");
  EXPECT_EQ(Log(), Texts{ErrorMessage("Select A Condition")});
  EXPECT_FALSE(Enabled("cmdBuild"));
  EXPECT_EQ(Result(), result + "\r\n");
  EXPECT_EQ(Depth(), -21);  // passes count from 0 again
}

TEST_F(BuildConditionTest, TwentyOneEntriesAreClosedAgainAfterOneMorePass) {
  AddIf("a");
  ClickOptions(19);
  Click("optwhile");
  Type("txtWhlCnd", "c");
  std::string endifs;
  for (int i = 0; i < 11; ++i)
    endifs += "\r\nendif";
  EXPECT_EQ(ClosersUpTo(ErrorKind::kSubscript), endifs);
  Click("cmdAdd");  // the While, chosen before
  EXPECT_EQ(Depth(), -21);
  EXPECT_TRUE(Enabled("cmdBuild"));
  EXPECT_EQ(ClosersUpTo(ErrorKind::kSubscript), "\r\nendwhile" + endifs);
  EXPECT_EQ(Depth(), -42);
}

TEST_F(BuildConditionTest, TwentyOneEntriesLeaveTheRowsOfACaseCounted) {
  AddIf("a");
  ClickOptions(19);
  Click("optCase");
  Click("cmdNext");
  ExpectError(ErrorKind::kSubscript, [this] { Build(); });
  Click("cmdNext");
  EXPECT_EQ(Focused(), "TxtExpr(2)");
}

TEST_F(BuildConditionTest, TheTwentyFirstEntryGivenUpForAnotherKindStillFails) {
  AddIf("a");
  ClickOptions(19);
  Click("optwhile");
  Type("txtWhlCnd", "c");
  ExpectError(ErrorKind::kSubscript, [this] { Build(); });
  AddRepeat("p");  // in the place of the While, whose text was left
  std::string endifs;
  for (int i = 0; i < 11; ++i)
    endifs += "\r\nendif";
  EXPECT_EQ(ClosersUpTo(ErrorKind::kSubscript), "\r\nUntil  ( p )" + endifs);
}

// The tab order behind the button.

// An If after a For was looked at, which gives all places here.
const Texts kOrderOfIf{"tabVrn",         "optIfThen",      "txtCond", "txtStmt1",    "txtStmt2",
                       "cmdFunction(4)", "cmdSubQuery(4)", "cmdAdd",  "cmdBuild",    "cmdClear",
                       "cmdCancel",      "cmdDone",        "optFor",  "txtVariable", "txtinitval"};

class BuildTabOrderTest : public BuildConditionTest {
 protected:
  void Open() {
    Click("optFor");
    AddIf("a", "x");
    ASSERT_EQ(TabOrder(14), kOrderOfIf);
  }

  /// Places 18 to 24 of the tab order.
  Texts AroundTheButton() {
    const Texts order = TabOrder(24);
    return {order.begin() + 18, order.end()};
  }

  /// Brings the three last buttons to places 2 to 4, in front of the button at place 21.
  void BringButtonsToTheFront() {
    Open();
    Tab(0);
    Tab(6);
    ASSERT_EQ(TabOrder(4), (Texts{"tabVrn", "optIfThen", "cmdClear", "cmdCancel", "cmdDone"}));
    ASSERT_EQ(AroundTheButton(), (Texts{"cmdFunction(4)", "cmdSubQuery(4)", "cmdAdd", "cmdBuild",
                                        "optFor", "txtVariable", "txtinitval"}));
  }
};

TEST_F(BuildTabOrderTest, FocusLeavesAnOrderThatIsRight) {
  Open();
  Focus("cmdBuild");
  EXPECT_EQ(TabOrder(14), kOrderOfIf);
}

TEST_F(BuildTabOrderTest, FocusBringsTheThreeButtonsBehindItFromFurtherDown) {
  Open();
  Focus("TxtOutput");
  ASSERT_GT(TabIndex("cmdClear"), 14);
  ASSERT_GT(TabIndex("cmdCancel"), 14);
  ASSERT_GT(TabIndex("cmdDone"), 14);
  Focus("cmdBuild");
  EXPECT_EQ(TabOrder(14), kOrderOfIf);
}

TEST_F(BuildTabOrderTest, AClickBringsTheThreeButtonsBehindItFromFurtherDown) {
  Open();
  Focus("TxtOutput");
  Build();
  EXPECT_EQ(TabOrder(14), kOrderOfIf);
}

// Each place is reckoned before the button that goes there leaves a gap further up.
const Texts kInterleaved{"cmdBuild",  "optFor",     "cmdClear", "txtVariable",
                         "cmdCancel", "txtinitval", "cmdDone"};

TEST_F(BuildTabOrderTest, FocusLeavesOneControlBeforeEachOfTheThreeButtonsFromFurtherUp) {
  BringButtonsToTheFront();
  Focus("cmdBuild");
  EXPECT_EQ(AroundTheButton(), kInterleaved);
}

TEST_F(BuildTabOrderTest, AClickLeavesOneControlBeforeEachOfTheThreeButtonsFromFurtherUp) {
  BringButtonsToTheFront();
  Build();
  EXPECT_EQ(AroundTheButton(), kInterleaved);
}

TEST_F(BuildTabOrderTest, AClickOnTheButtonWithTheFocusLeavesTheOrder) {
  BringButtonsToTheFront();
  Focus("cmdBuild");
  Build();
  EXPECT_EQ(AroundTheButton(), kInterleaved);
}

TEST_F(BuildTabOrderTest, ASecondFocusClosesTheGaps) {
  BringButtonsToTheFront();
  Focus("cmdBuild");
  Focus("cmdAdd");
  Focus("cmdBuild");
  EXPECT_EQ(AroundTheButton(), (Texts{"cmdBuild", "cmdClear", "cmdCancel", "cmdDone", "optFor",
                                      "txtVariable", "txtinitval"}));
}

TEST_F(BuildTabOrderTest, ADisabledButtonTakesNoFocusAndLeavesTheOrder) {
  BringButtonsToTheFront();
  Build();
  Tab(0);
  Tab(6);
  EXPECT_EQ(host().UserFocus(On("cmdBuild")), Outcome::kNotEnabled);
  EXPECT_EQ(TabOrder(4), (Texts{"tabVrn", "optIfThen", "cmdClear", "cmdCancel", "cmdDone"}));
}

}  // namespace
}  // namespace zolt20::tests
