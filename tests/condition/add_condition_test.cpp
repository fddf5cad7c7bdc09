// The course of Add Condition: what it does before it looks at the kind, how its texts join the
// statements of the Result, how a pass ends and how it fails.
#include <ostream>
#include <tuple>
#include <utility>

#include "tests/support/control_test.h"
#include "tests/support/written_form.h"

namespace zolt20::tests {
namespace {

using Boxes = std::vector<std::pair<const char*, const char*>>;

constexpr int kGreatest = 32767;

constexpr const char* kBoxes[] = {"txtRepCnd", "txtRepStm",  "txtCond",    "txtStmt1",
                                  "txtStmt2",  "txtWhlCnd",  "txtWhlStm",  "txtVariable",
                                  "txtFinVal", "txtStep",    "txtForStmt", "txtinitval",
                                  "TxtDef",    "TxtExpr(0)", "txtStmt(0)", "txtcaseexp"};

class AddConditionTest : public ControlTest {
 protected:
  AddConditionTest() { Tab(6); }

  void MakeNewOnThePage() {
    MakeNew();
    Tab(6);
  }
  void Choose(std::string_view option, const Boxes& boxes = {}) {
    Click(option);
    for (const auto& [box, text] : boxes)
      Type(box, text);
  }
  void Add() { Click("cmdAdd"); }
  void Pass(std::string_view option, const Boxes& boxes = {}) {
    Choose(option, boxes);
    Add();
  }
  void WhilePass(const char* condition) { Pass("optwhile", {{"txtWhlCnd", condition}}); }
  void Build() { Click("cmdBuild"); }
  /// Expects that Add Condition finds no kind chosen.
  void Refuse() {
    Add();
    EXPECT_EQ(Log(), Texts{ErrorMessage("Select A Condition")});
  }
  void Fail(ErrorKind kind) {
    ExpectError(kind, [&] { Add(); });
  }
  void Insert(std::string_view text) { host().prpStroutput(Wide(text)); }
  void SetDepth(int depth) { host().prpintTabcount(depth); }
  int Depth() { return host().prpintTabcount().value(); }

  /// Adds a select statement and comes back to the page.
  void AddSelect() {
    Catalogue("CUSTOMER0", Field("NCUSTOMER.NO"));
    Tab(0);
    Mark("lsttables", 0);
    Mark("lstFields", 1);
    Click("cmdMoveOne");
    Click("cmdAddSelect");
    Tab(6);
  }
  void RewriteSelectWithDo(std::string_view statement) {
    Tab(2);
    Type("txtSelectDo", statement);
    Click("cmdAddSelectDoQuer");
    Tab(6);
  }

  Texts VisibleFrames() {
    Texts visible;
    for (const char* frame : {"fraSelect", "Frainitial", "fraif", "fraFor", "frawhile", "frarepeat",
                              "fraOnCase", "fracase"}) {
      if (Visible(frame)) visible.emplace_back(frame);
    }
    return visible;
  }
  Texts TrueOptions() {
    Texts options;
    for (const char* option : {"optIfThen", "optFor", "optwhile", "optRepeat", "optCase"}) {
      if (Option(option)) options.emplace_back(option);
    }
    return options;
  }
  Texts FilledBoxes() {
    Texts filled;
    for (const char* box : kBoxes) {
      if (!Text(box).empty()) filled.emplace_back(box);
    }
    return filled;
  }
  bool IsLoaded(std::string_view element) { return host().Form().Find(element) != nullptr; }
  const ScrollBar& CaseBar() { return dynamic_cast<const ScrollBar&>(On("VscrCase")); }

  /// Makes the control hold so many statements of one letter, and empties the Result.
  void FillStatements(int count) {
    ZOLT20MapControl& control = host();
    const Control& result = On("TxtOutput");
    for (int statement = 0; statement < count; ++statement) {
      control.prpStroutput(u"x");
      ASSERT_EQ(control.UserType(result, u""), Outcome::kDone);
    }
  }
};

// No kind chosen.

TEST_F(AddConditionTest, WithNoKindChosenItShowsAMessageAndTouchesNothing) {
  Focus("cmdAdd");
  const TouchedControls touched(host());
  Refuse();
  EXPECT_EQ(touched.names, std::set<std::string>{});
  EXPECT_EQ(Depth(), 0);
  EXPECT_EQ(Focused(), "cmdAdd");
}

TEST_F(AddConditionTest, ARefusalTrimsTheResultOfBlanksAloneAndAddsALineBreak) {
  const std::vector<std::pair<const char*, const char*>> results{
      {"", ""},
      {"   ", "   "},
      {"a", "a\r\n"},
      {"  a  b  ", "a  b\r\n"},
      {" \ta\t ", "\ta\t\r\n"},
      {" \r\na\r\n ", "\r\na\r\n\r\n"},
      {" \t ", "\t\r\n"},
      {"\r\n", "\r\n\r\n"},
  };
  for (const auto& [typed, left] : results) {
    Type("TxtOutput", typed);
    Refuse();
    EXPECT_EQ(Result(), left);
  }
}

TEST_F(AddConditionTest, EveryRefusalAddsALineBreakMore) {
  Type("TxtOutput", "a");
  Refuse();
  Refuse();
  EXPECT_EQ(Result(), "a\r\n\r\n");
}

TEST_F(AddConditionTest, ARefusalBeforeTheFirstPassLeavesTheDepth) {
  SetDepth(2);
  Type("TxtOutput", "a");
  Refuse();
  EXPECT_EQ(Depth(), 2);
}

TEST_F(AddConditionTest, ARefusalOnALaterPassDeepensTheKindChosenNext) {
  WhilePass("c");
  Refuse();
  EXPECT_EQ(Depth(), 1);
  Refuse();
  EXPECT_EQ(Depth(), 2);
  WhilePass("d");
  EXPECT_EQ(Depth(), 3);
  EXPECT_EQ(Result(), "while  c\r\n\t\t\twhile  d");
}

TEST_F(AddConditionTest, ARefusalOnALaterPassWithAnEmptyResultChangesNothing) {
  WhilePass("c");
  Type("TxtOutput", "  ");
  Refuse();
  EXPECT_EQ(Result(), "  ");
  EXPECT_EQ(Depth(), 0);
}

TEST_F(AddConditionTest, ARefusalLeavesTheBoxesAndTheButtons) {
  WhilePass("c");
  Build();
  Written(host()).txtCond.Text(u"d");
  Refuse();
  EXPECT_EQ(FilledBoxes(), Texts{"txtCond"});
  EXPECT_FALSE(Enabled("cmdBuild"));
  EXPECT_FALSE(Enabled("cmdSubQuery(4)"));
  EXPECT_FALSE(Enabled("cmdFunction(4)"));
}

TEST_F(AddConditionTest, AfterARefusalTheHostsTextGoesToTheResult) {
  Written(host()).fraif.Visible(true);
  Focus("txtStmt1");
  Refuse();
  Insert("inserted");
  EXPECT_EQ(Text("txtStmt1"), "");
  EXPECT_EQ(Result(), "inserted");
}

TEST_F(AddConditionTest, APassIsOverWithItsEnd) {
  WhilePass("c");
  Refuse();
}

// The depth.

TEST_F(AddConditionTest, EveryPassAfterTheFirstStandsOneTabDeeper) {
  Pass("optIfThen", {{"txtCond", "a"}, {"txtStmt1", "x"}, {"txtStmt2", "y"}});
  EXPECT_EQ(Depth(), 0);
  Pass("optwhile", {{"txtWhlCnd", "c"}, {"txtWhlStm", "s"}});
  EXPECT_EQ(Depth(), 1);
  Pass("optFor", {{"txtVariable", "i"}, {"txtinitval", "1"}, {"txtFinVal", "3"}});
  EXPECT_EQ(Depth(), 2);
  const std::string heads =
      "if a then \r\n\tx\r\nelse\r\n\ty\r\n\twhile c\r\n\t\ts\r\n\t\tfor i = 1 to 3\r\n";
  EXPECT_EQ(Result(), heads);
  Build();
  EXPECT_EQ(Result(), heads + "\r\n\t\tendfor\r\n\tendwhile\r\nendif");
}

TEST_F(AddConditionTest, TheFirstPassStandsAtTheDepthOfTheHostThoughTheResultHoldsText) {
  SetDepth(2);
  Insert("x");
  WhilePass("c");
  EXPECT_EQ(Result(), "x\r\n\t\twhile  c");
  WhilePass("d");
  EXPECT_EQ(Result(), "x\r\n\t\twhile  c\r\n\t\t\twhile  d");
}

TEST_F(AddConditionTest, ALaterPassIntoAnEmptiedResultStandsNoDeeper) {
  WhilePass("c");
  Type("TxtOutput", " ");
  WhilePass("d");
  EXPECT_EQ(Result(), "while  c\r\nwhile  d");
  EXPECT_EQ(Depth(), 0);
}

TEST_F(AddConditionTest, TheFirstPassAfterBuildConditionStandsNoDeeper) {
  WhilePass("c");
  Build();
  WhilePass("d");
  EXPECT_EQ(Result(), "while  c\r\nendwhile\r\nwhile  d");
  EXPECT_EQ(Depth(), 0);
}

TEST_F(AddConditionTest, TheCountOfPassesOutlastsAClear) {
  WhilePass("c");
  Click("cmdClear");
  Type("TxtOutput", "a");
  WhilePass("d");
  EXPECT_EQ(Result(), "\twhile  d");
  EXPECT_EQ(Depth(), 1);
}

TEST_F(AddConditionTest, EveryKindCountsAPassThatProducedNothing) {
  for (const char* option : {"optFor", "optIfThen", "optRepeat", "optwhile", "optCase"}) {
    MakeNewOnThePage();
    Pass(option);
    Type("TxtOutput", "a");
    Refuse();
    EXPECT_EQ(Depth(), 1) << option;
  }
}

TEST_F(AddConditionTest, EveryKindCountsAPassThatProducedAText) {
  const std::vector<std::pair<const char*, Boxes>> passes{
      {"optFor", {{"txtVariable", "i"}, {"txtinitval", "1"}, {"txtFinVal", "3"}}},
      {"optIfThen", {{"txtCond", "c"}}},
      {"optRepeat", {{"txtRepCnd", "c"}}},
      {"optwhile", {{"txtWhlCnd", "c"}}},
      {"optCase", {{"txtcaseexp", "e"}, {"TxtExpr(0)", "v"}, {"txtStmt(0)", "s"}}}};
  for (const auto& [option, boxes] : passes) {
    MakeNewOnThePage();
    Pass(option, boxes);
    Refuse();
    EXPECT_EQ(Depth(), 1) << option;
  }
}

// The target of the host's text.

TEST_F(AddConditionTest, AfterAPassTheHostsTextGoesToTheResult) {
  Pass("optIfThen", {{"txtCond", "c"}, {"txtStmt1", "x"}});
  Insert("inserted");
  EXPECT_EQ(FilledBoxes(), Texts{});
  EXPECT_EQ(Result(), "if c then \r\n\tx\r\n\tinserted");
}

TEST_F(AddConditionTest, AfterAPassThatFailedTheHostsTextGoesToTheResult) {
  SetDepth(kGreatest);
  Choose("optwhile", {{"txtWhlCnd", "c"}, {"txtWhlStm", "s"}});
  Fail(ErrorKind::kOverflow);
  Insert("inserted");
  EXPECT_EQ(Text("txtWhlStm"), "s");
  EXPECT_EQ(Result(), "inserted");
}

// Storing.

TEST_F(AddConditionTest, WhatWasTypedIntoTheResultIsGone) {
  Type("TxtOutput", "by hand");
  WhilePass("c");
  EXPECT_EQ(Result(), "while  c");
  Type("TxtOutput", "by hand");
  WhilePass("d");
  EXPECT_EQ(Result(), "while  c\r\n\twhile  d");
}

TEST_F(AddConditionTest, AConditionFollowsASelectStatementOnANewLine) {
  AddSelect();
  WhilePass("c");
  EXPECT_EQ(Result(), "select CUSTOMER.NO\r\nfrom  CUSTOMER\r\nendselect\r\nwhile  c");
}

TEST_F(AddConditionTest, ASelectStatementFollowsAConditionOnANewLine) {
  WhilePass("c");
  AddSelect();
  WhilePass("d");
  EXPECT_EQ(Result(),
            "while  c\r\nselect CUSTOMER.NO\r\nfrom  CUSTOMER\r\nendselect\r\n\twhile  d");
}

TEST_F(AddConditionTest, ASelectStatementIsRewrittenInItsPlaceBeforeAndBehindConditions) {
  WhilePass("c");
  AddSelect();
  WhilePass("d");
  RewriteSelectWithDo("do it");
  EXPECT_EQ(Result(),
            "while  c\r\nselect CUSTOMER.NO\r\nfrom  CUSTOMER\r\nselectdo\r\n\tdo it\r\nendselect"
            "\r\n\twhile  d");
}

TEST_F(AddConditionTest, ASelectStatementBehindARepeatIsRewrittenInItsPlace) {
  Pass("optRepeat", {{"txtRepCnd", "c"}});
  AddSelect();
  WhilePass("d");
  RewriteSelectWithDo("do it");
  EXPECT_EQ(Result(),
            "repeat \r\nselect CUSTOMER.NO\r\nfrom  CUSTOMER\r\nselectdo\r\n\tdo it\r\nendselect"
            "\r\n\twhile  d");
}

TEST_F(AddConditionTest, AnEmptyEntryStandsBehindARepeatWithoutEffectOnTheResult) {
  Pass("optRepeat", {{"txtRepStm", "s"}});
  Pass("optRepeat");
  WhilePass("c");
  EXPECT_EQ(Result(), "repeat \r\n\ts\r\n\trepeat \r\n\t\twhile  c");
}

TEST_F(AddConditionTest, ARepeatTakesTwoPlacesAmongTheStatements) {
  FillStatements(kGreatest - 2);
  Pass("optRepeat");
  Type("TxtOutput", "");
  Choose("optwhile", {{"txtWhlCnd", "c"}});
  Fail(ErrorKind::kOverflow);
  EXPECT_EQ(Result(), "");
}

TEST_F(AddConditionTest, ARepeatThatFindsOnePlaceLeftStandsInTheResultHalfDone) {
  FillStatements(kGreatest - 1);
  Choose("optRepeat", {{"txtRepStm", "s"}});
  Fail(ErrorKind::kOverflow);
  EXPECT_EQ(Result(), std::string(kGreatest - 1, 'x') + "\r\nrepeat \r\n\ts");
  EXPECT_EQ(FilledBoxes(), Texts{"txtRepStm"});
  EXPECT_EQ(VisibleFrames(), (Texts{"fraSelect", "frarepeat"}));
  Fail(ErrorKind::kOverflow);
  EXPECT_EQ(Depth(), 0);
}

TEST_F(AddConditionTest, ATextWithNoPlaceLeftIsMarkedForClosingByForAndRepeatAlone) {
  const std::vector<std::tuple<const char*, Boxes, bool>> kinds{
      {"optFor", {{"txtVariable", "i"}, {"txtinitval", "1"}, {"txtFinVal", "3"}}, true},
      {"optIfThen", {{"txtCond", "c"}}, false},
      {"optRepeat", {{"txtRepCnd", "c"}}, true},
      {"optwhile", {{"txtWhlCnd", "c"}}, false}};
  for (const auto& [option, boxes, isMarked] : kinds) {
    MakeNewOnThePage();
    FillStatements(kGreatest);
    Pass("optCase");  // stores nothing and enables Build Condition
    Choose(option, boxes);
    Fail(ErrorKind::kOverflow);
    if (isMarked) {
      ExpectError(ErrorKind::kOverflow, [&] { Build(); });
    } else {
      Build();
    }
  }
}

TEST_F(AddConditionTest, AWhileFindsRoomInTheLastPlace) {
  FillStatements(kGreatest - 1);
  WhilePass("c");
  EXPECT_EQ(Result(), std::string(kGreatest - 1, 'x') + "\r\nwhile  c");
}

TEST_F(AddConditionTest, ARepeatWithNoPlaceLeftStandsBehindTheTextOfTheResult) {
  FillStatements(kGreatest);
  Type("TxtOutput", " by hand ");
  Choose("optRepeat", {{"txtRepCnd", "c"}});
  Fail(ErrorKind::kOverflow);
  EXPECT_EQ(Result(), "by hand\r\nrepeat ");
  Type("TxtOutput", "  ");
  Fail(ErrorKind::kOverflow);
  EXPECT_EQ(Result(), "repeat ");
}

TEST_F(AddConditionTest, ARepeatOfEmptyBoxesWithNoPlaceLeftIsNotSeen) {
  FillStatements(kGreatest);
  Type("TxtOutput", "by hand");
  Choose("optRepeat");
  Fail(ErrorKind::kOverflow);
  EXPECT_EQ(Result(), "by hand\r\n");
}

TEST_F(AddConditionTest, TheFieldsOfASelectStatementAreStillReadBehindConditions) {
  AddSelect();
  Pass("optRepeat", {{"txtRepCnd", "c"}});
  EXPECT_EQ(host().prpstrSelectedFields(), Wide(Field("NCUSTOMER.NO")));
  MakeNewOnThePage();
  Pass("optRepeat", {{"txtRepCnd", "c"}});
  AddSelect();
  EXPECT_EQ(host().prpstrSelectedFields(), u"");
}

// The end of a pass.

TEST_F(AddConditionTest, APassOfEachKindEndsWithTheInstructions) {
  for (const char* option : {"optFor", "optIfThen", "optRepeat", "optwhile", "optCase"}) {
    MakeNewOnThePage();
    Choose(option);
    ASSERT_EQ(TrueOptions(), Texts{option});
    ASSERT_FALSE(Visible("Frainitial"));
    Add();
    EXPECT_EQ(VisibleFrames(), (Texts{"fraSelect", "Frainitial"})) << option;
    EXPECT_EQ(TrueOptions(), Texts{}) << option;
    EXPECT_TRUE(Enabled("cmdBuild")) << option;
    EXPECT_EQ(Focused(), "cmdAdd") << option;
  }
}

TEST_F(AddConditionTest, TheEndWritesEveryFrameWhateverTheKind) {
  Choose("optIfThen");
  Surface& form = Written(host());
  form.fraSelect.Visible(false);
  for (Frame* frame :
       {&form.fraFor, &form.frawhile, &form.frarepeat, &form.fraOnCase, &form.fracase}) {
    frame->Visible(true);
  }
  Add();
  EXPECT_EQ(VisibleFrames(), (Texts{"fraSelect", "Frainitial"}));
}

TEST_F(AddConditionTest, TheEndEmptiesTheBoxesOfAllKinds) {
  Choose("optIfThen", {{"txtCond", "c"}, {"txtStmt1", "x"}, {"txtStmt2", "y"}});
  Choose("optFor", {{"txtVariable", "i"},
                    {"txtinitval", "1"},
                    {"txtFinVal", "3"},
                    {"txtStep", "2"},
                    {"txtForStmt", "s"}});
  Choose("optRepeat", {{"txtRepCnd", "c"}, {"txtRepStm", "s"}});
  Choose("optCase",
         {{"txtcaseexp", "e"}, {"TxtDef", "d"}, {"TxtExpr(0)", "v"}, {"txtStmt(0)", "s"}});
  Choose("optwhile", {{"txtWhlCnd", "c"}, {"txtWhlStm", "s"}});
  ASSERT_EQ(FilledBoxes().size(), std::size(kBoxes));
  Add();
  EXPECT_EQ(FilledBoxes(), Texts{});
  EXPECT_EQ(Result(), "while c\r\n\ts");
}

TEST_F(AddConditionTest, TheEndEnablesTheRequestButtonsAndBuildCondition) {
  Choose("optwhile");
  Click("cmdClear");
  ASSERT_FALSE(Enabled("cmdSubQuery(4)"));
  ASSERT_FALSE(Enabled("cmdFunction(4)"));
  Add();
  EXPECT_TRUE(Enabled("cmdSubQuery(4)"));
  EXPECT_TRUE(Enabled("cmdFunction(4)"));
  EXPECT_TRUE(Enabled("cmdBuild"));
}

TEST_F(AddConditionTest, TheEndUnloadsTheCaseRowsButTheFirst) {
  Choose("optCase", {{"txtcaseexp", "e"}, {"TxtExpr(0)", "v"}});
  for (int row = 1; row <= 3; ++row)
    Click("cmdNext");
  ASSERT_TRUE(IsLoaded("TxtExpr(3)"));
  Add();
  for (const char* element :
       {"TxtExpr(1)", "TxtExpr(2)", "TxtExpr(3)", "txtStmt(1)", "txtStmt(2)", "txtStmt(3)"}) {
    EXPECT_FALSE(IsLoaded(element)) << element;
  }
  EXPECT_TRUE(IsLoaded("TxtExpr(0)"));
  EXPECT_TRUE(IsLoaded("txtStmt(0)"));
}

TEST_F(AddConditionTest, APassOfAnotherKindUnloadsTheCaseRowsToo) {
  Choose("optCase", {{"txtcaseexp", "e"}});
  Click("cmdNext");
  WhilePass("c");
  EXPECT_FALSE(IsLoaded("TxtExpr(1)"));
  EXPECT_FALSE(IsLoaded("txtStmt(1)"));
}

TEST_F(AddConditionTest, TheNextCaseStartsWithItsFirstRowAgain) {
  Choose("optCase");
  Click("cmdNext");
  Click("cmdNext");
  Add();
  Choose("optCase");
  Click("cmdNext");
  EXPECT_TRUE(IsLoaded("TxtExpr(1)"));
  EXPECT_FALSE(IsLoaded("TxtExpr(2)"));
  EXPECT_EQ(Text("TxtExpr(1)"), "");
}

TEST_F(AddConditionTest, TheEndLeavesTheScrollBarAndThePlaceOfTheFirstRow) {
  Choose("optCase");
  for (int row = 1; row <= 4; ++row)
    Click("cmdNext");
  Add();
  EXPECT_EQ(CaseBar().Value(), 1);
  EXPECT_EQ(CaseBar().Max(), 1);
  EXPECT_TRUE(CaseBar().Visible());
  EXPECT_EQ(On("TxtExpr(0)").Top(), -570);
  EXPECT_EQ(On("txtStmt(0)").Top(), -570);
}

TEST_F(AddConditionTest, APassTouchesNothingElse) {
  Choose("optwhile", {{"txtWhlCnd", "c"}, {"txtWhlStm", "s"}});
  Focus("cmdAdd");
  const TouchedControls touched(host());
  Add();
  EXPECT_EQ(touched.names, (std::set<std::string>{"TxtOutput", "cmdBuild", "frawhile", "Frainitial",
                                                  "optwhile", "txtWhlCnd", "txtWhlStm"}));
}

TEST_F(AddConditionTest, APassKeepsItsPlaceOnTheStack) {
  WhilePass("c");
  Pass("optIfThen", {{"txtCond", "d"}});
  Build();
  EXPECT_EQ(Result(), "while  c\r\nif d then \r\n\tendif\r\nendwhile");
}

TEST_F(AddConditionTest, TheSameKindCanBeChosenAgain) {
  WhilePass("c");
  WhilePass("d");
  Build();
  EXPECT_EQ(Result(), "while  c\r\n\twhile  d\r\n\tendwhile\r\nendwhile");
}

// After a Clear while a kind was chosen.

struct ClearedKind {
  const char* option;
  Boxes boxes;
  const char* text;      // what empty boxes give
  const char* nextText;  // the Result when a While follows

  friend std::ostream& operator<<(std::ostream& out, const ClearedKind& kind) {
    return out << kind.option;
  }
};

class AddAfterClearTest : public AddConditionTest,
                          public ::testing::WithParamInterface<ClearedKind> {};

TEST_P(AddAfterClearTest, RunsTheOldKindOnEmptyBoxesAndCountsThePass) {
  Choose(GetParam().option, GetParam().boxes);
  Click("cmdClear");
  ASSERT_EQ(VisibleFrames().at(1), "Frainitial");
  Add();
  EXPECT_EQ(Result(), GetParam().text);
  EXPECT_TRUE(Enabled("cmdBuild"));
  Type("TxtOutput", "a");
  Refuse();
  EXPECT_EQ(Depth(), 1);
}

TEST_P(AddAfterClearTest, OffersTheRequestsOfThePageAgain) {
  Choose(GetParam().option, GetParam().boxes);
  Click("cmdClear");
  ASSERT_FALSE(Enabled("cmdFunction(4)") || Enabled("cmdSubQuery(4)"));
  Add();
  EXPECT_TRUE(Enabled("cmdFunction(4)") && Enabled("cmdSubQuery(4)"));
}

TEST_P(AddAfterClearTest, StoresWhatEmptyBoxesGive) {
  Choose(GetParam().option, GetParam().boxes);
  Click("cmdClear");
  Add();
  Type("TxtOutput", "");
  WhilePass("c");
  EXPECT_EQ(Result(), GetParam().nextText);
}

TEST_P(AddAfterClearTest, FindsTheStackEmpty) {
  Insert("x");
  Choose(GetParam().option, GetParam().boxes);
  Click("cmdClear");
  Insert("y");
  Add();
  const std::string result = Result();
  Build();
  EXPECT_EQ(Result(), result);
  EXPECT_EQ(Depth(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, AddAfterClearTest,
    ::testing::Values(
        ClearedKind{"optFor",
                    {{"txtVariable", "i"}, {"txtinitval", "1"}, {"txtFinVal", "3"}},
                    "",
                    "\r\nwhile  c"},
        ClearedKind{"optIfThen", {{"txtCond", "c"}}, "", "\r\nwhile  c"},
        ClearedKind{"optRepeat", {{"txtRepCnd", "c"}}, "repeat ", "repeat \r\nwhile  c"},
        ClearedKind{"optwhile", {{"txtWhlCnd", "c"}}, "", "\r\nwhile  c"},
        ClearedKind{"optCase", {{"txtcaseexp", "e"}, {"TxtExpr(0)", "v"}}, "", "while  c"}),
    [](const ::testing::TestParamInfo<ClearedKind>& kind) { return kind.param.option; });

// Failures.

TEST_F(AddConditionTest, TheEleventhOpenOnCaseIsRefused) {
  for (int level = 1; level <= 9; ++level)
    Pass("optCase");
  Pass("optCase", {{"txtcaseexp", "e"}, {"TxtExpr(0)", "v"}, {"txtStmt(0)", "s"}});
  const std::string tenth = "on case e\r\n\tcase v :\r\n\t\ts\r\n\t\tbreak";
  ASSERT_EQ(Result(), tenth);
  Choose("optCase", {{"txtcaseexp", "f"}, {"TxtExpr(0)", "w"}});
  Click("cmdNext");
  Fail(ErrorKind::kSubscript);
  EXPECT_EQ(Result(), tenth + "\r\n");
  EXPECT_EQ(Depth(), 1);
  EXPECT_EQ(FilledBoxes(), (Texts{"TxtExpr(0)", "txtcaseexp"}));
  EXPECT_EQ(VisibleFrames(), (Texts{"fraSelect", "fraOnCase", "fracase"}));
  EXPECT_EQ(TrueOptions(), Texts{"optCase"});
  EXPECT_TRUE(IsLoaded("TxtExpr(1)"));
}

TEST_F(AddConditionTest, ARefusedOnCaseStaysChosenAndItsLevelStaysRaised) {
  for (int level = 1; level <= 9; ++level)
    Pass("optCase");
  Pass("optCase", {{"txtcaseexp", "e"}, {"TxtExpr(0)", "v"}, {"txtStmt(0)", "s"}});
  Choose("optCase", {{"txtcaseexp", "f"}});
  Fail(ErrorKind::kSubscript);
  Fail(ErrorKind::kSubscript);
  EXPECT_EQ(Depth(), 2);
  ExpectError(ErrorKind::kSubscript, [&] { Build(); });
}

TEST_F(AddConditionTest, ARefusedOnCaseGivesWayToAnotherKind) {
  for (int level = 1; level <= 10; ++level)
    Pass("optCase");
  Choose("optCase");
  Fail(ErrorKind::kSubscript);
  WhilePass("c");
  EXPECT_EQ(Result(), "while  c");
}

TEST_F(AddConditionTest, TheTwelfthRepeatConditionIsRefused) {
  std::string heads;
  for (int pass = 0; pass < 11; ++pass) {
    Pass("optRepeat", {{"txtRepCnd", std::to_string(pass).c_str()}});
    heads +=
        (pass > 0 ? "\r\n" : "") + std::string(static_cast<std::size_t>(pass), '\t') + "repeat ";
  }
  ASSERT_EQ(Result(), heads);
  Choose("optRepeat", {{"txtRepCnd", "twelfth"}, {"txtRepStm", "s"}});
  Fail(ErrorKind::kSubscript);
  heads.pop_back();  // the blank at its end
  EXPECT_EQ(Result(), heads + "\r\n");
  EXPECT_EQ(Depth(), 11);
  EXPECT_EQ(FilledBoxes(), (Texts{"txtRepCnd", "txtRepStm"}));
  EXPECT_EQ(VisibleFrames(), (Texts{"fraSelect", "frarepeat"}));
  EXPECT_EQ(TrueOptions(), Texts{"optRepeat"});
}

TEST_F(AddConditionTest, ARefusedRepeatConditionLeavesTheElevenAndStaysChosen) {
  std::string closed;
  for (int pass = 0; pass < 11; ++pass) {
    Pass("optRepeat", {{"txtRepCnd", std::to_string(pass).c_str()}});
    closed +=
        (pass > 0 ? "\r\n" : "") + std::string(static_cast<std::size_t>(pass), '\t') + "repeat ";
  }
  Choose("optRepeat", {{"txtRepCnd", "twelfth"}});
  Fail(ErrorKind::kSubscript);
  for (int depth = 11; depth >= 0; --depth) {
    // The place on the stack that the refused pass took reads the first condition once more.
    const std::string condition = std::to_string(depth > 0 ? depth - 1 : 0);
    closed += "\r\n" + std::string(static_cast<std::size_t>(depth), '\t') + "Until  ( " +
              condition + " )";
  }
  Build();
  EXPECT_EQ(Result(), closed);
  Add();
  EXPECT_EQ(Result(), closed + "\r\nrepeat ");
}

TEST_F(AddConditionTest, ARepeatWithoutAConditionFollowsElevenConditions) {
  for (int pass = 0; pass < 11; ++pass) {
    Pass("optRepeat", {{"txtRepCnd", "c"}});
    Type("TxtOutput", "");
  }
  Pass("optRepeat", {{"txtRepStm", "s"}});
  EXPECT_EQ(TrueOptions(), Texts{});
}

// A level below the first one is what leaves room for eleven defaults.
class ElevenDefaultsTest : public AddConditionTest {
 protected:
  void OpenBelowTheFirstLevel() {
    Choose("optCase");
    Choose("optFor");
    CasePass("");
    Build();
    ASSERT_EQ(Result(), "on case e\r\n\tcase v :\r\n\t\ts\r\n\t\tbreak\r\nendcase\r\nendcase");
  }
  void CasePass(const std::string& defaultStatement) {
    Type("TxtOutput", "");  // keeps the depth
    Pass("optCase", {{"txtcaseexp", "e"},
                     {"TxtExpr(0)", "v"},
                     {"txtStmt(0)", "s"},
                     {"TxtDef", defaultStatement.c_str()}});
  }
};

TEST_F(ElevenDefaultsTest, ElevenFit) {
  OpenBelowTheFirstLevel();
  std::string expected = Result();
  for (int pass = 0; pass < 11; ++pass) {
    CasePass("d" + std::to_string(pass));
    expected += "\r\non case e\r\n\tcase v :\r\n\t\ts\r\n\t\tbreak";
  }
  for (int pass = 10; pass >= 0; --pass)
    expected += "\r\n\tdefault: \r\n\t\td" + std::to_string(pass) + "\r\nendcase";
  Build();
  EXPECT_EQ(Result(), expected);
}

TEST_F(ElevenDefaultsTest, TheTwelfthIsRefused) {
  OpenBelowTheFirstLevel();
  for (int pass = 0; pass < 11; ++pass)
    CasePass("d");
  Type("TxtOutput", "a");
  Choose("optCase", {{"txtcaseexp", "e"}, {"TxtExpr(0)", "v"}, {"TxtDef", "d"}});
  Fail(ErrorKind::kSubscript);
  EXPECT_EQ(Result(), "a\r\n");
  EXPECT_EQ(FilledBoxes(), (Texts{"TxtDef", "TxtExpr(0)", "txtcaseexp"}));
  EXPECT_EQ(VisibleFrames(), (Texts{"fraSelect", "fraOnCase", "fracase"}));
}

// The greatest depth.

struct TooDeep {
  const char* name;
  const char* option;
  Boxes boxes;
  Texts frames;
  const char* retried;  // the text at depth 0

  friend std::ostream& operator<<(std::ostream& out, const TooDeep& text) {
    return out << text.name;
  }
};

class TooDeepTest : public AddConditionTest, public ::testing::WithParamInterface<TooDeep> {};

TEST_P(TooDeepTest, AStatementOverflowsAtTheGreatestDepthAndNothingIsStored) {
  Insert("x");
  SetDepth(kGreatest);
  Choose(GetParam().option, GetParam().boxes);
  const Texts filled = FilledBoxes();
  Fail(ErrorKind::kOverflow);
  EXPECT_EQ(Result(), "x\r\n");
  EXPECT_EQ(Depth(), kGreatest);
  EXPECT_EQ(FilledBoxes(), filled);
  EXPECT_EQ(VisibleFrames(), GetParam().frames);
  EXPECT_EQ(TrueOptions(), Texts{GetParam().option});
  EXPECT_FALSE(Enabled("cmdBuild"));
}

TEST_P(TooDeepTest, ThePassCanBeDoneAgainAsTheFirstOne) {
  Insert("x");
  SetDepth(kGreatest);
  Choose(GetParam().option, GetParam().boxes);
  Fail(ErrorKind::kOverflow);
  SetDepth(0);
  Add();
  EXPECT_EQ(Result(), std::string("x\r\n") + GetParam().retried);
  EXPECT_EQ(VisibleFrames(), (Texts{"fraSelect", "Frainitial"}));
}

INSTANTIATE_TEST_SUITE_P(
    Statements, TooDeepTest,
    ::testing::Values(
        TooDeep{
            "For",
            "optFor",
            {{"txtVariable", "i"}, {"txtinitval", "1"}, {"txtFinVal", "3"}, {"txtForStmt", "s"}},
            {"fraSelect", "fraFor"},
            "for i = 1 to 3\r\n\ts"},
        TooDeep{"If",
                "optIfThen",
                {{"txtCond", "c"}, {"txtStmt1", "x"}},
                {"fraSelect", "fraif"},
                "if c then \r\n\tx"},
        TooDeep{"Else",
                "optIfThen",
                {{"txtCond", "c"}, {"txtStmt2", "y"}},
                {"fraSelect", "fraif"},
                "if c then \r\nelse\r\n\ty"},
        TooDeep{"Repeat",
                "optRepeat",
                {{"txtRepStm", "s"}},
                {"fraSelect", "frarepeat"},
                "repeat \r\n\ts"},
        TooDeep{"While",
                "optwhile",
                {{"txtWhlCnd", "c"}, {"txtWhlStm", "s"}},
                {"fraSelect", "frawhile"},
                "while c\r\n\ts"},
        TooDeep{"CaseRow",
                "optCase",
                {{"txtcaseexp", "e"}, {"TxtExpr(0)", "v"}, {"txtStmt(0)", "s"}},
                {"fraSelect", "fraOnCase", "fracase"},
                "on case e\r\n\tcase v :\r\n\t\ts\r\n\t\tbreak"},
        TooDeep{"CaseRowWithoutAStatement",
                "optCase",
                {{"txtcaseexp", "e"}, {"TxtExpr(0)", "v"}},
                {"fraSelect", "fraOnCase", "fracase"},
                "on case e\r\n\tcase v: "}),
    [](const ::testing::TestParamInfo<TooDeep>& text) { return text.param.name; });

TEST_F(AddConditionTest, TextsWithoutAStatementStandAtTheGreatestDepth) {
  SetDepth(kGreatest);
  WhilePass("c");
  EXPECT_EQ(Result(), std::string(kGreatest, '\t') + "while  c");
  EXPECT_EQ(Depth(), kGreatest);
}

TEST_F(AddConditionTest, AStatementFitsOneTabBelowTheGreatestDepth) {
  SetDepth(kGreatest - 1);
  Pass("optwhile", {{"txtWhlCnd", "c"}, {"txtWhlStm", "s"}});
  EXPECT_EQ(Result(),
            std::string(kGreatest - 1, '\t') + "while c\r\n" + std::string(kGreatest, '\t') + "s");
}

TEST_F(AddConditionTest, ARowThatOverflowsInItsStatementLeavesTheDepthRaised) {
  SetDepth(kGreatest - 1);
  Choose("optCase", {{"txtcaseexp", "e"}, {"TxtExpr(0)", "v"}, {"txtStmt(0)", "s"}});
  Fail(ErrorKind::kOverflow);
  EXPECT_EQ(Depth(), kGreatest);
  EXPECT_EQ(Result(), "");
}

TEST_F(AddConditionTest, ARepeatThatOverflowsKeepsNoCondition) {
  SetDepth(kGreatest);
  Choose("optRepeat", {{"txtRepCnd", "lost"}, {"txtRepStm", "s"}});
  Fail(ErrorKind::kOverflow);
  SetDepth(0);
  Type("txtRepCnd", "");
  Add();
  Build();
  EXPECT_EQ(Result(), "repeat \r\n\ts\r\nUntil  (  )");
}

TEST_F(AddConditionTest, AnOnCaseThatOverflowsKeepsItsLevelRaised) {
  SetDepth(kGreatest);
  Choose("optCase", {{"txtcaseexp", "e"}, {"TxtExpr(0)", "v"}});
  Fail(ErrorKind::kOverflow);
  Type("txtcaseexp", "");
  Add();
  for (int level = 3; level <= 10; ++level)
    Pass("optCase");
  Choose("optCase");
  Fail(ErrorKind::kSubscript);
}

TEST_F(AddConditionTest, AnOnCaseThatOverflowsKeepsNoDefault) {
  SetDepth(kGreatest);
  Choose("optCase", {{"txtcaseexp", "e"}, {"TxtExpr(0)", "v"}, {"TxtDef", "lost"}});
  Fail(ErrorKind::kOverflow);
  SetDepth(0);
  Type("TxtDef", "");
  Add();
  Build();
  EXPECT_EQ(Result(), "on case e\r\n\tcase v: \r\nendcase");
}

TEST_F(AddConditionTest, ALaterPassOverflowsAtTheGreatestDepthBehindItsLineBreak) {
  WhilePass("c");
  SetDepth(kGreatest);
  Choose("optwhile", {{"txtWhlCnd", "d"}});
  Fail(ErrorKind::kOverflow);
  EXPECT_EQ(Result(), "while  c\r\n");
  EXPECT_EQ(Depth(), kGreatest);
  EXPECT_EQ(FilledBoxes(), Texts{"txtWhlCnd"});
  EXPECT_EQ(VisibleFrames(), (Texts{"fraSelect", "frawhile"}));
  SetDepth(0);
  Add();
  EXPECT_EQ(Result(), "while  c\r\n\twhile  d");
}

TEST_F(AddConditionTest, ALaterClickWithNoKindChosenOverflowsWithoutAMessage) {
  WhilePass("c");
  SetDepth(kGreatest);
  Fail(ErrorKind::kOverflow);
  EXPECT_EQ(Result(), "while  c\r\n");
  EXPECT_EQ(Log(), Texts{});
}

}  // namespace
}  // namespace zolt20::tests
