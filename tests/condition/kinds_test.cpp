// The five option buttons of the Condition page, the stack of kinds that are open, and the boxes
// that make themselves the target of the host's text.
#include <algorithm>
#include <array>
#include <map>
#include <ostream>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/control_test.h"
#include "tests/support/silent.h"
#include "tests/support/written_form.h"

namespace zolt20::tests {
namespace {

struct Filled {
  const char* box;
  const char* text;
};

/// A kind as a person meets it.
struct KindOfCondition {
  const char* option;
  const char* word;
  Texts panels;              ///< shown beside fraSelect
  const char* firstBox;      ///< has the focus after the click
  std::vector<Filled> pass;  ///< enough boxes for a head and a closing line
  const char* head;          ///< what that pass stores in an empty Result
  Texts places;              ///< of the tab order, behind tabVrn and the option
  int lastPlace;
};

const std::vector<KindOfCondition> kKinds{
    {"optIfThen",
     "if",
     {"fraif"},
     "txtCond",
     {{"txtCond", "c"}},
     "if c then ",
     {"txtCond", "txtStmt1", "txtStmt2", "cmdFunction(4)", "cmdSubQuery(4)", "cmdAdd", "cmdBuild",
      "cmdClear", "cmdCancel", "cmdDone"},
     11},
    {"optFor",
     "For",
     {"fraFor"},
     "txtVariable",
     {{"txtVariable", "i"}, {"txtinitval", "1"}, {"txtFinVal", "3"}},
     "for i = 1 to 3\r\n",
     {"txtVariable", "txtinitval", "txtFinVal", "txtStep", "txtForStmt", "cmdFunction(4)",
      "cmdSubQuery(4)", "cmdAdd", "cmdBuild", "cmdClear", "cmdCancel", "cmdDone"},
     13},
    {"optwhile",
     "While",
     {"frawhile"},
     "txtWhlCnd",
     {{"txtWhlCnd", "w"}},
     "while  w",
     {"txtWhlCnd", "txtWhlStm", "cmdFunction(4)", "cmdSubQuery(4)", "cmdAdd", "cmdBuild",
      "cmdClear", "cmdCancel", "cmdDone"},
     10},
    {"optRepeat",
     "Repeat",
     {"frarepeat"},
     "txtRepCnd",
     {{"txtRepCnd", "r"}},
     "repeat ",
     {"txtRepCnd", "txtRepStm", "cmdFunction(4)", "cmdSubQuery(4)", "cmdAdd", "cmdBuild",
      "cmdClear", "cmdCancel", "cmdDone"},
     10},
    {"optCase",
     "Case",
     {"fraOnCase", "fracase"},
     "txtcaseexp",
     {{"txtcaseexp", "e"}, {"TxtExpr(0)", "v"}},
     "on case e\r\n\tcase v: ",
     {"txtcaseexp", "TxtDef", "TxtExpr(0)", "txtStmt(0)", "cmdNext", "cmdFunction(4)",
      "cmdSubQuery(4)", "cmdAdd", "cmdBuild", "cmdClear", "cmdCancel", "cmdDone"},
     13},
};

constexpr std::array<const char*, 17> kAllBoxes{
    "txtCond",    "txtStmt1",   "txtStmt2",   "txtWhlCnd",   "txtWhlStm",        "txtRepCnd",
    "txtRepStm",  "txtinitval", "TxtDef",     "txtVariable", "txtFinVal",        "txtStep",
    "txtcaseexp", "txtForStmt", "TxtExpr(0)", "txtStmt(0)",  "txtwhereCondition"};

/// A box, and the option whose panel holds it.
struct BoxOfKind {
  const char* option;
  const char* box;
};

void PrintTo(const KindOfCondition& kind, std::ostream* out) {
  *out << kind.word;
}

void PrintTo(const BoxOfKind& box, std::ostream* out) {
  *out << box.box;
}

/// An option whose panel holds none of these boxes.
const char* AnotherThan(std::string_view option) {
  return option == "optFor" ? "optwhile" : "optFor";
}

// Keeps what a click does to the form, in order; a run of notices of one sort counts once.
class StepLog final : public SilentObserver {
 public:
  void ControlChanged(const Control& control, Property property) noexcept override {
    if (property == Property::kEnabled) Step(std::string(control.name()) + " enabled");
    if (property == Property::kText) Step(std::string(control.name()) + " written");
    if (property == Property::kVisible) Step("panels");
    if (property == Property::kValue) Step(std::string(control.name()) + " chosen");
  }
  void FocusChanged(const Control* control) noexcept override {
    Step("focus " + (control == nullptr ? std::string("lost") : std::string(control->name())));
  }
  void TabOrderChanged(int /*first*/, int /*last*/) noexcept override { Step("tab order"); }

  Texts steps;

 private:
  void Step(std::string step) {
    if (steps.empty() || steps.back() != step) steps.push_back(std::move(step));
  }
};

class KindsTest : public ControlTest {
 protected:
  KindsTest() { Open(); }

  void Open() { Tab(6); }
  void OpenAfresh() {
    MakeNew();
    Open();
  }

  void Insert(std::string_view encoded) { host().prpStroutput(Wide(encoded)); }

  /// The kind of an option.
  static const KindOfCondition& KindOf(std::string_view option) {
    return *std::find_if(kKinds.begin(), kKinds.end(),
                         [&](const KindOfCondition& kind) { return kind.option == option; });
  }

  /// Adds what is chosen, with boxes enough for a head and a closing line.
  void FillAndAdd(const KindOfCondition& kind) {
    for (const Filled& filled : kind.pass)
      Type(filled.box, filled.text);
    Click("cmdAdd");
  }

  /// Adds and closes one of the kind. From then on, each entry of it on the stack gets a closing
  /// line.
  void AddOnce(std::string_view option) {
    Click(option);
    FillAndAdd(KindOf(option));
    Click("cmdBuild");
  }
  void AddEachKindOnce() {
    for (const KindOfCondition& kind : kKinds)
      AddOnce(kind.option);
  }

  /// Adds the kind that was chosen last, closes all, and tells which kinds were open, outermost
  /// first.
  Texts ClosedAfterAdding(std::string_view option) {
    FillAndAdd(KindOf(option));
    const std::size_t heads = Result().size();
    Click("cmdBuild");
    return KindsIn(Result().substr(heads));
  }

  /// The kinds that closing lines are of, last line first.
  static Texts KindsIn(const std::string& closingLines) {
    static const std::map<std::string, std::string> kWords{{"endif", "if"},
                                                           {"endfor", "For"},
                                                           {"Until", "Repeat"},
                                                           {"endwhile", "While"},
                                                           {"endcase", "Case"}};
    Texts kinds;
    std::istringstream words(closingLines);
    for (std::string word; words >> word;) {
      if (const auto kind = kWords.find(word); kind != kWords.end()) kinds.push_back(kind->second);
    }
    std::reverse(kinds.begin(), kinds.end());
    return kinds;
  }

  /// Twenty-one kinds with no text in a box; the last is an If, or what is told.
  void FillTheStack(std::string_view last = "optIfThen", std::string_view other = "optFor") {
    for (int entry = 0; entry <= 20; ++entry)
      Click(entry % 2 == 0 ? last : other);
  }

  void WriteAllBoxes(StringView text) {
    for (const char* box : kAllBoxes)
      const_cast<TextBox&>(dynamic_cast<const TextBox&>(On(box))).Text(text);
  }

  /// Those of the panels that stand visible.
  Texts Panels() {
    Texts panels;
    for (const char* panel :
         {"Frainitial", "fraif", "fraFor", "frawhile", "frarepeat", "fraOnCase", "fracase"}) {
      if (Visible(panel)) panels.emplace_back(panel);
    }
    return panels;
  }

  Texts WholeTabOrder() { return TabOrder(static_cast<int>(host().Form().TabOrder().size()) - 1); }

  /// The order with these in front and all others behind, as they stood to each other.
  static Texts InFront(Texts names, const Texts& order) {
    const std::size_t count = names.size();
    for (const std::string& name : order) {
      const auto end = names.begin() + static_cast<std::ptrdiff_t>(count);
      if (std::find(names.begin(), end, name) == end) names.push_back(name);
    }
    return names;
  }
};

// One kind at a time.

class EachKindTest : public KindsTest, public ::testing::WithParamInterface<KindOfCondition> {
 protected:
  const KindOfCondition& kind() const { return GetParam(); }
};

INSTANTIATE_TEST_SUITE_P(Kinds, EachKindTest, ::testing::ValuesIn(kKinds),
                         [](const auto& kind) { return std::string(kind.param.word); });

TEST_P(EachKindTest, TheRequestButtonsWorkOnceItIsChosenAndGiveTheCodeOfThePage) {
  for (const auto& [button, event] : {std::pair("cmdFunction(4)", "eventFunction"),
                                      std::pair("cmdSubQuery(4)", "eventSubQuery")}) {
    OpenAfresh();
    EXPECT_EQ(host().UserClick(On(button)), Outcome::kNotEnabled);
    EXPECT_EQ(host().prpStrSQLPart(), u"0");
    Click(kind().option);
    Click(button);
    EXPECT_EQ(host().prpStrSQLPart(), u"C");
    EXPECT_EQ(Log(), Texts{event});
  }
}

TEST_P(EachKindTest, OfAllBoxesIfEmptiesThreeAndTheOthersNone) {
  Click(AnotherThan(kind().option));
  WriteAllBoxes(u" x");
  Click(kind().option);
  const std::set<std::string_view> emptied{"txtCond", "txtStmt1", "txtStmt2"};
  for (const std::string_view box : kAllBoxes) {
    const bool isEmptied = kind().word == std::string_view("if") && emptied.contains(box);
    EXPECT_EQ(Text(box), isEmptied ? "" : " x") << box;
  }
}

TEST_P(EachKindTest, ItsPanelTakesThePlaceOfTheInstructionsAndOfAnyOther) {
  Click(kind().option);
  EXPECT_EQ(Panels(), kind().panels);
  for (const KindOfCondition& other : kKinds) {
    if (other.option == kind().option) continue;
    Click(other.option);
    EXPECT_EQ(Panels(), other.panels);
    Click(kind().option);
    EXPECT_EQ(Panels(), kind().panels) << "after " << other.word;
    EXPECT_TRUE(Visible("fraSelect"));
  }
}

TEST_P(EachKindTest, TheFrameOfTheOptionsStaysAsItIs) {
  for (const bool visible : {true, false}) {
    Written(host()).fraSelect.Visible(visible);
    auto& option = const_cast<OptionButton&>(dynamic_cast<const OptionButton&>(On(kind().option)));
    option.Value(false);
    option.Value(true);  // runs the handler
    EXPECT_EQ(Visible("fraSelect"), visible);
    EXPECT_EQ(Panels(), kind().panels);
  }
}

TEST_P(EachKindTest, TheNextButtonIsSetByAllButWhile) {
  for (const bool visible : {true, false}) {
    Click(AnotherThan(kind().option));
    Written(host()).cmdNext.Visible(visible);
    Click(kind().option);
    const std::string_view word = kind().word;
    EXPECT_EQ(Visible("cmdNext"), word == "While" ? visible : word == "Case");
    EXPECT_EQ(Shown("cmdNext"), word == "Case");
  }
}

TEST_P(EachKindTest, ItsFirstBoxTakesTheFocus) {
  Click(kind().option);
  EXPECT_EQ(Focused(), kind().firstBox);
  Click(AnotherThan(kind().option));
  Click(kind().option);
  EXPECT_EQ(Focused(), kind().firstBox);
}

TEST_P(EachKindTest, ItsControlsStandInFrontOfTheTabOrder) {
  const Texts before = WholeTabOrder();
  Texts expected{"tabVrn", kind().option};
  expected.insert(expected.end(), kind().places.begin(), kind().places.end());
  Click(kind().option);
  EXPECT_EQ(WholeTabOrder(), InFront(expected, before));
  EXPECT_EQ(TabIndex(kind().option), 1);
  EXPECT_EQ(TabIndex(kind().firstBox), 2);
  EXPECT_EQ(TabIndex("cmdDone"), kind().lastPlace);
}

TEST_P(EachKindTest, TheTabStripComesFirstAgain) {
  Written(host()).tabVrn.TabIndex(60);
  Click(kind().option);
  EXPECT_EQ(TabIndex("tabVrn"), 0);
  EXPECT_EQ(TabIndex(kind().option), 1);
  EXPECT_EQ(TabIndex("cmdDone"), kind().lastPlace);
}

TEST_P(EachKindTest, ItsTabOrderIsTheSameBehindAnyOtherKind) {
  for (const KindOfCondition& other : kKinds) {
    if (other.option == kind().option) continue;
    Click(other.option);
    const Texts before = WholeTabOrder();
    Texts expected{"tabVrn", kind().option};
    expected.insert(expected.end(), kind().places.begin(), kind().places.end());
    Click(kind().option);
    EXPECT_EQ(WholeTabOrder(), InFront(expected, before)) << "behind " << other.word;
  }
}

TEST_P(EachKindTest, AddConditionRunsItsPass) {
  Click(kind().option);
  FillAndAdd(kind());
  EXPECT_EQ(Result(), kind().head);
}

TEST_P(EachKindTest, ItIsPushedInTheWordThatBuildConditionKnows) {
  AddEachKindOnce();
  const char* other = AnotherThan(kind().option);
  Click(kind().option);
  Click(other);
  EXPECT_EQ(ClosedAfterAdding(other), (Texts{kind().word, KindOf(other).word}));
}

TEST_P(EachKindTest, AClickOnTheChosenOptionMovesTheFocusThereAndDoesNothingElse) {
  AddEachKindOnce();
  Click(kind().option);
  Type(kind().firstBox, "x");
  const TouchedControls touched(host());
  Click(kind().option);
  EXPECT_EQ(touched.names, std::set<std::string>{"focus"});
  EXPECT_EQ(Focused(), kind().option);
  EXPECT_EQ(Text(kind().firstBox), "x");
  EXPECT_EQ(ClosedAfterAdding(kind().option), Texts{kind().word});
}

TEST_P(EachKindTest, WithNoTextASecondClickOnItPushesNothing) {
  AddEachKindOnce();
  Click(kind().option);
  Click(kind().option);
  EXPECT_EQ(ClosedAfterAdding(kind().option), Texts{kind().word});
}

TEST_P(EachKindTest, AfterItsPassTheSameOptionCanBeClickedAgain) {
  Click(kind().option);
  Click("cmdAdd");
  EXPECT_EQ(Panels(), Texts{"Frainitial"});
  EXPECT_FALSE(Option(kind().option));
  Click(kind().option);
  EXPECT_EQ(Panels(), kind().panels);
}

TEST_P(EachKindTest, ABoxThatIsNotShownLeavesAllBehindTheFocusUndone) {
  Tab(0);
  Written(host()).tabVrn.TabIndex(60);
  const Texts before = WholeTabOrder();
  auto& option = const_cast<OptionButton&>(dynamic_cast<const OptionButton&>(On(kind().option)));
  ExpectError(ErrorKind::kArgument, [&] { option.Value(true); });
  EXPECT_EQ(Panels(), kind().panels);
  EXPECT_EQ(WholeTabOrder(), before);
  Tab(6);
  Click("cmdAdd");  // a kind counts as chosen, so no message comes
  EXPECT_TRUE(Enabled("cmdBuild"));
}

TEST_P(EachKindTest, AClearPutsTheInstructionsBackAndTheKindStaysChosen) {
  Click(kind().option);
  FillAndAdd(kind());
  Click(kind().option);
  host().prpintTabcount(4);
  WriteAllBoxes(u"x");
  Click("cmdClear");
  for (const std::string_view box : kAllBoxes)
    EXPECT_EQ(Text(box), box == "txtwhereCondition" ? "x" : "") << box;
  EXPECT_TRUE(Visible("Frainitial"));
  EXPECT_TRUE(Visible("fraSelect"));
  for (const char* panel : {"fraif", "fraFor", "frawhile", "frarepeat", "fraOnCase"})
    EXPECT_FALSE(Visible(panel)) << panel;
  for (const char* button : {"cmdFunction(4)", "cmdSubQuery(4)", "cmdBuild"})
    EXPECT_FALSE(Enabled(button)) << button;
  EXPECT_FALSE(Option(kind().option));
  EXPECT_EQ(host().prpintTabcount(), 0);
  EXPECT_EQ(Result(), "");
  Click("cmdAdd");
  EXPECT_EQ(Log(), Texts{});  // no message: the old kind runs on empty boxes
  EXPECT_EQ(Result(), kind().word == std::string_view("Repeat") ? "repeat " : "");
  EXPECT_TRUE(Enabled("cmdBuild"));
}

TEST_P(EachKindTest, AfterAClearOnlyTheNextKindsAreClosed) {
  AddEachKindOnce();
  Click("optRepeat");
  Click("optFor");
  Click(kind().option);
  Click("cmdClear");
  Click(kind().option);
  EXPECT_EQ(ClosedAfterAdding(kind().option), Texts{kind().word});
}

TEST_P(EachKindTest, APassAfterAClearLeavesNothingToClose) {
  AddEachKindOnce();
  Click(kind().option);
  Click("cmdClear");
  Click("cmdAdd");
  const std::string heads = Result();
  Click("cmdBuild");
  EXPECT_EQ(Result(), heads);
}

// What the steps are, and their order.

TEST_F(KindsTest, TheStepsOfAnIfRunInTheirOrder) {
  WriteAllBoxes(u"x");
  StepLog log;
  host().AddObserver(log);
  Click("optIfThen");
  host().RemoveObserver(log);
  EXPECT_EQ(log.steps, (Texts{"focus optIfThen", "optIfThen chosen", "cmdFunction(4) enabled",
                              "cmdSubQuery(4) enabled", "txtCond written", "txtStmt1 written",
                              "txtStmt2 written", "panels", "focus txtCond", "tab order"}));
}

TEST_F(KindsTest, ChoosingAKindTellsTheHostNothingAndLeavesTheResult) {
  Type("TxtOutput", "x");
  for (const KindOfCondition& kind : kKinds)
    Click(kind.option);
  EXPECT_EQ(Result(), "x");
  EXPECT_EQ(Log(), Texts{});
}

TEST_F(KindsTest, IfStartsEmptyAndTheOthersKeepTheirTexts) {
  Click("optwhile");
  Type("txtWhlCnd", "w");
  Click("optIfThen");
  Type("txtCond", "c");
  Type("txtStmt1", "s");
  Type("txtStmt2", "t");
  Click("optwhile");
  EXPECT_EQ(Text("txtWhlCnd"), "w");
  EXPECT_EQ(Text("txtCond"), "c");
  Click("optIfThen");
  EXPECT_EQ(Text("txtCond") + Text("txtStmt1") + Text("txtStmt2"), "");
}

TEST_F(KindsTest, WhileLeavesTheNextButtonAsTheKindBeforeItSetIt) {
  Click("optCase");
  Click("optwhile");
  EXPECT_TRUE(Visible("cmdNext"));
  EXPECT_FALSE(Shown("cmdNext"));
  Click("optRepeat");
  Click("optwhile");
  EXPECT_FALSE(Visible("cmdNext"));
}

TEST_F(KindsTest, TheRowsOfAnOnCaseThatAreLoadedStandInItsTabOrder) {
  Click("optCase");
  Click("cmdNext");
  Click("cmdNext");
  Click("optRepeat");
  const Texts before = WholeTabOrder();
  Click("optCase");
  EXPECT_EQ(WholeTabOrder(), InFront({"tabVrn", "optCase", "txtcaseexp", "TxtDef", "TxtExpr(0)",
                                      "txtStmt(0)", "TxtExpr(1)", "txtStmt(1)", "TxtExpr(2)",
                                      "txtStmt(2)", "cmdNext", "cmdFunction(4)", "cmdSubQuery(4)",
                                      "cmdAdd", "cmdBuild", "cmdClear", "cmdCancel", "cmdDone"},
                                     before));
  EXPECT_EQ(TabIndex("cmdDone"), 17);
}

TEST_F(KindsTest, AHeadStandsAsManyTabsDeepAsTheHostSays) {
  for (const auto& [depth, head] :
       {std::pair(-3, "for i = 1 to 3\r\n"), std::pair(0, "for i = 1 to 3\r\n"),
        std::pair(1, "\tfor i = 1 to 3\r\n"), std::pair(4, "\t\t\t\tfor i = 1 to 3\r\n")}) {
    OpenAfresh();
    host().prpintTabcount(depth);
    Click("optFor");
    FillAndAdd(KindOf("optFor"));
    EXPECT_EQ(Result(), head) << depth;
  }
}

// The two states of the page.

TEST_F(KindsTest, AtTheStartTheInstructionsStandAndNothingCanBeAdded) {
  EXPECT_TRUE(Shown("Frainitial"));
  EXPECT_TRUE(Shown("fraSelect"));
  Click("cmdAdd");
  EXPECT_EQ(Log(), Texts{ErrorMessage("Select A Condition")});
}

TEST_F(KindsTest, AnotherOptionStaysInTheFillingInAndAPassEndsIt) {
  Click("optFor");
  Click("optRepeat");
  EXPECT_FALSE(Visible("Frainitial"));
  Click("cmdAdd");
  EXPECT_TRUE(Shown("Frainitial"));
  EXPECT_EQ(Result(), "repeat ");
  Click("cmdAdd");
  EXPECT_EQ(Log(), Texts{ErrorMessage("Select A Condition")});
}

TEST_F(KindsTest, AfterARefusedAddTheNextKindIsChosenAsEver) {
  Click("cmdAdd");
  Log();
  Click("optIfThen");
  FillAndAdd(KindOf("optIfThen"));
  EXPECT_EQ(Result(), "if c then ");
}

TEST_F(KindsTest, BuildConditionLeavesTheChosenKindAndItsBoxes) {
  Click("optwhile");
  FillAndAdd(KindOf("optwhile"));
  Click("optFor");
  Type("txtVariable", "i");
  Click("cmdBuild");
  EXPECT_EQ(Panels(), Texts{"fraFor"});
  EXPECT_EQ(Text("txtVariable"), "i");
  EXPECT_TRUE(Option("optFor"));
  EXPECT_FALSE(Enabled("cmdFunction(4)"));
  Click("optFor");  // still chosen: nothing runs
  EXPECT_FALSE(Enabled("cmdFunction(4)"));
  Click("optwhile");
  EXPECT_TRUE(Enabled("cmdFunction(4)"));
  EXPECT_TRUE(Enabled("cmdSubQuery(4)"));
}

// What is popped.

class BoxThatCountsTest : public KindsTest, public ::testing::WithParamInterface<BoxOfKind> {};

INSTANTIATE_TEST_SUITE_P(
    Boxes, BoxThatCountsTest,
    ::testing::Values(BoxOfKind{"optIfThen", "txtCond"}, BoxOfKind{"optIfThen", "txtStmt1"},
                      BoxOfKind{"optIfThen", "txtStmt2"}, BoxOfKind{"optwhile", "txtWhlCnd"},
                      BoxOfKind{"optwhile", "txtWhlStm"}, BoxOfKind{"optRepeat", "txtRepCnd"},
                      BoxOfKind{"optRepeat", "txtRepStm"}, BoxOfKind{"optFor", "txtinitval"},
                      BoxOfKind{"optCase", "TxtDef"}, BoxOfKind{"optFor", "txtVariable"},
                      BoxOfKind{"optFor", "txtFinVal"}, BoxOfKind{"optFor", "txtStep"},
                      BoxOfKind{"optCase", "txtcaseexp"}),
    [](const auto& box) { return std::string(box.param.box); });

TEST_P(BoxThatCountsTest, TextInItGivesThePlaceOfItsKindToTheNext) {
  const char* next = AnotherThan(GetParam().option);
  AddOnce(GetParam().option);
  AddOnce(next);
  Click(GetParam().option);
  Type(GetParam().box, "x");
  Click(next);
  EXPECT_EQ(ClosedAfterAdding(next), Texts{KindOf(next).word});
}

TEST_P(BoxThatCountsTest, ABlankIsTextEnough) {
  const char* next = AnotherThan(GetParam().option);
  AddOnce(GetParam().option);
  AddOnce(next);
  Click(GetParam().option);
  Type(GetParam().box, " ");
  Click(next);
  EXPECT_EQ(ClosedAfterAdding(next), Texts{KindOf(next).word});
}

TEST_P(BoxThatCountsTest, TextThatWasTakenOutAgainDoesNotCount) {
  const char* next = AnotherThan(GetParam().option);
  AddOnce(GetParam().option);
  AddOnce(next);
  Click(GetParam().option);
  Type(GetParam().box, "x");
  Type(GetParam().box, "");
  Click(next);
  EXPECT_EQ(ClosedAfterAdding(next), (Texts{KindOf(GetParam().option).word, KindOf(next).word}));
}

TEST_P(BoxThatCountsTest, ItCountsForEveryOptionAndAlsoWhenItsOwnKindIsNotTheOneChosen) {
  for (const KindOfCondition& next : kKinds) {
    const char* first = AnotherThan(next.option);
    OpenAfresh();
    AddOnce(first);
    AddOnce(next.option);
    Click(first);
    const_cast<TextBox&>(dynamic_cast<const TextBox&>(On(GetParam().box))).Text(u"x");
    Click(next.option);
    EXPECT_EQ(ClosedAfterAdding(next.option), Texts{next.word}) << next.word;
  }
}

class BoxThatDoesNotCountTest : public KindsTest,
                                public ::testing::WithParamInterface<BoxOfKind> {};

INSTANTIATE_TEST_SUITE_P(
    Boxes, BoxThatDoesNotCountTest,
    ::testing::Values(BoxOfKind{"optFor", "txtForStmt"}, BoxOfKind{"optCase", "TxtExpr(0)"},
                      BoxOfKind{"optCase", "txtStmt(0)"}, BoxOfKind{"optCase", "TxtExpr(1)"},
                      BoxOfKind{"optCase", "txtStmt(1)"}, BoxOfKind{"optRepeat", "TxtOutput"}),
    [](const auto& box) {
      std::string name = box.param.box;
      std::replace_if(
          name.begin(), name.end(), [](char c) { return c == '(' || c == ')'; }, '_');
      return name;
    });

TEST_P(BoxThatDoesNotCountTest, TextInItAloneIsNothingTyped) {
  AddEachKindOnce();
  const char* next = AnotherThan(GetParam().option);
  Click(GetParam().option);
  if (GetParam().box == std::string_view("TxtExpr(1)") ||
      GetParam().box == std::string_view("txtStmt(1)")) {
    Click("cmdNext");
  }
  Type(GetParam().box, "x");
  Click(next);
  EXPECT_EQ(ClosedAfterAdding(next), (Texts{KindOf(GetParam().option).word, KindOf(next).word}));
}

TEST_F(KindsTest, TwoKindsWithEmptyBoxesLeaveTwoEntries) {
  AddEachKindOnce();
  Click("optIfThen");
  Click("optFor");
  EXPECT_EQ(ClosedAfterAdding("optFor"), (Texts{"if", "For"}));
}

TEST_F(KindsTest, AnEntryWithNoTextClosesNothingAndCostsATab) {
  host().prpintTabcount(3);
  Click("optwhile");
  FillAndAdd(KindOf("optwhile"));
  Click("optIfThen");
  Click("optFor");
  FillAndAdd(KindOf("optFor"));
  Click("cmdBuild");
  EXPECT_EQ(Result(),
            "\t\t\twhile  w\r\n"
            "\t\t\t\tfor i = 1 to 3\r\n"
            "\r\n"
            "\t\t\t\tendfor\r\n"
            "\t\tendwhile");
}

TEST_F(KindsTest, ATextThatIsKeptPopsAtEveryLaterOption) {
  AddEachKindOnce();
  Click("optIfThen");
  Type("txtCond", "c");
  for (const char* option : {"optFor", "optwhile", "optCase", "optRepeat"}) {
    Click(option);
    EXPECT_EQ(Text("txtCond"), "c");
  }
  EXPECT_EQ(ClosedAfterAdding("optRepeat"), Texts{"Repeat"});
}

TEST_F(KindsTest, IfLooksAtItsTextsBeforeItEmptiesThem) {
  AddEachKindOnce();
  Click("optIfThen");
  Type("txtCond", "c");
  Click("optFor");     // takes the place of the If
  Click("optIfThen");  // takes the place of the For
  EXPECT_EQ(Text("txtCond"), "");
  Click("optRepeat");
  EXPECT_EQ(ClosedAfterAdding("optRepeat"), (Texts{"if", "Repeat"}));
}

TEST_F(KindsTest, OneEntryIsPoppedHoweverManyBoxesHaveText) {
  AddEachKindOnce();
  Click("optIfThen");
  Click("optCase");
  Click("optwhile");
  WriteAllBoxes(u"x");
  Click("optRepeat");
  EXPECT_EQ(ClosedAfterAdding("optRepeat"), (Texts{"if", "Case", "Repeat"}));
}

TEST_F(KindsTest, TextWithNothingOpenPopsNothing) {
  AddEachKindOnce();
  Click("optwhile");
  Focus("txtWhlStm");
  Click("cmdClear");
  Insert("x");
  ASSERT_EQ(Text("txtWhlStm"), "x");
  Click("optFor");
  EXPECT_EQ(ClosedAfterAdding("optFor"), Texts{"For"});
}

TEST_F(KindsTest, TextOfAKindThatBuildConditionTookOffPopsNothing) {
  AddEachKindOnce();
  Click("optwhile");
  FillAndAdd(KindOf("optwhile"));
  Click("optFor");
  Type("txtVariable", "i");
  Click("cmdBuild");
  Click("optIfThen");
  EXPECT_EQ(ClosedAfterAdding("optIfThen"), Texts{"if"});
}

TEST_F(KindsTest, APassThatWasAddedKeepsItsEntryWhenTheNextKindIsChosen) {
  AddEachKindOnce();
  Click("optwhile");
  FillAndAdd(KindOf("optwhile"));
  Click("optwhile");
  FillAndAdd(KindOf("optwhile"));
  Click("optIfThen");
  EXPECT_EQ(ClosedAfterAdding("optIfThen"), (Texts{"While", "While", "if"}));
}

TEST_F(KindsTest, AnUnfinishedKindBesideAPassThatWasAddedPopsItself) {
  AddEachKindOnce();
  Click("optRepeat");
  FillAndAdd(KindOf("optRepeat"));
  Click("optwhile");
  Type("txtWhlCnd", "w");
  Click("optIfThen");
  EXPECT_EQ(ClosedAfterAdding("optIfThen"), (Texts{"Repeat", "if"}));
}

// The stack is full.

TEST_F(KindsTest, TheTwentySecondKindIsAnErrorAndTheFormStaysAsItWas) {
  FillTheStack();
  const Texts before = WholeTabOrder();
  ExpectError(ErrorKind::kSubscript, [this] { host().UserClick(On("optwhile")); });
  EXPECT_EQ(Panels(), Texts{"fraif"});
  EXPECT_EQ(Focused(), "optwhile");
  EXPECT_EQ(WholeTabOrder(), before);
  EXPECT_TRUE(Option("optwhile"));
  EXPECT_FALSE(Option("optIfThen"));
}

TEST_P(EachKindTest, AtTheErrorItsPanelTheNextButtonAndTheFocusStayAsTheyWere) {
  for (const bool visible : {true, false}) {
    OpenAfresh();
    const KindOfCondition& last = KindOf(AnotherThan(kind().option));
    FillTheStack(last.option,
                 "optRepeat" == std::string_view(kind().option) ? "optCase" : "optRepeat");
    Written(host()).cmdNext.Visible(visible);
    const Texts before = WholeTabOrder();
    ExpectError(ErrorKind::kSubscript, [this] { host().UserClick(On(kind().option)); });
    EXPECT_EQ(Panels(), last.panels);
    EXPECT_EQ(Visible("cmdNext"), visible);
    EXPECT_EQ(Focused(), kind().option);
    EXPECT_EQ(WholeTabOrder(), before);
  }
}

TEST_F(KindsTest, AnErrorLeavesTheStackAtTwentyOne) {
  FillTheStack();
  ExpectError(ErrorKind::kSubscript, [this] { host().UserClick(On("optwhile")); });
  Type("txtCond", "c");
  Click("optFor");  // takes the place of the twenty-first
  EXPECT_EQ(Panels(), Texts{"fraFor"});
}

TEST_F(KindsTest, AtTheErrorTheKindWordIsTheNewOne) {
  FillTheStack();
  ExpectError(ErrorKind::kSubscript, [this] { host().UserClick(On("optRepeat")); });
  Type("txtCond", "c");
  Click("cmdAdd");
  EXPECT_EQ(Result(), "repeat ");
}

TEST_F(KindsTest, AFullStackStillSwapsTheKindThatHasText) {
  FillTheStack();
  Type("txtCond", "c");
  Click("optwhile");
  EXPECT_EQ(Panels(), Texts{"frawhile"});
  Click("optRepeat");  // the text is still there
  EXPECT_EQ(Panels(), Texts{"frarepeat"});
  Type("txtRepCnd", "");
  Click("optIfThen");  // and pops once more before it goes
  ExpectError(ErrorKind::kSubscript, [this] { host().UserClick(On("optFor")); });
}

TEST_F(KindsTest, AFullStackIsClosedEntryForEntryAndThenBuildConditionFails) {
  AddEachKindOnce();
  FillTheStack();
  FillAndAdd(KindOf("optIfThen"));
  const std::size_t heads = Result().size();
  ExpectError(ErrorKind::kSubscript, [this] { host().UserClick(On("cmdBuild")); });
  Texts expected;
  for (int entry = 0; entry <= 20; ++entry)
    expected.emplace_back(entry % 2 == 0 ? "if" : "For");
  EXPECT_EQ(KindsIn(Result().substr(heads)), expected);
}

TEST_F(KindsTest, TheErrorComesBehindTheRequestButtonsAndBeforeTheKindCounts) {
  FillTheStack();
  FillAndAdd(KindOf("optIfThen"));
  ExpectError(ErrorKind::kSubscript, [this] { host().UserClick(On("cmdBuild")); });
  ASSERT_FALSE(Enabled("cmdFunction(4)"));
  ASSERT_FALSE(Enabled("cmdSubQuery(4)"));
  ExpectError(ErrorKind::kSubscript, [this] { host().UserClick(On("optFor")); });
  EXPECT_TRUE(Enabled("cmdFunction(4)"));
  EXPECT_TRUE(Enabled("cmdSubQuery(4)"));
  EXPECT_EQ(Panels(), Texts{"Frainitial"});
  Click("cmdAdd");
  EXPECT_EQ(Log(), Texts{ErrorMessage("Select A Condition")});
}

TEST_F(KindsTest, TwentyEntriesAreClearedAndBuiltWithNoError) {
  for (int entry = 0; entry < 20; ++entry)
    Click(entry % 2 == 0 ? "optIfThen" : "optFor");
  Click("cmdClear");
  for (int entry = 0; entry < 20; ++entry)
    Click(entry % 2 == 0 ? "optIfThen" : "optFor");
  FillAndAdd(KindOf("optFor"));
  Click("cmdBuild");
  EXPECT_EQ(host().prpintTabcount(), 0);
  FillTheStack();
  EXPECT_EQ(Panels(), Texts{"fraif"});
}

TEST_F(KindsTest, AClearWithAFullStackForgetsTheStatementsAndFails) {
  Click("optRepeat");
  Focus("txtRepStm");
  FillAndAdd(KindOf("optRepeat"));
  for (int entry = 1; entry <= 20; ++entry)
    Click(entry % 2 == 0 ? "optIfThen" : "optFor");
  host().prpintTabcount(2);
  Written(host()).VscrCase.Visible(true);
  Type("txtStmt1", "s");
  ASSERT_EQ(Result(), "repeat ");
  ExpectError(ErrorKind::kSubscript, [this] { host().UserClick(On("cmdClear")); });
  EXPECT_EQ(Result(), "");
  EXPECT_EQ(host().prpintTabcount(), 2);
  EXPECT_EQ(Panels(), Texts{"fraif"});
  EXPECT_EQ(Text("txtStmt1"), "s");
  EXPECT_TRUE(Option("optIfThen"));
  EXPECT_TRUE(Visible("VscrCase"));
  for (const char* button : {"cmdFunction(4)", "cmdSubQuery(4)", "cmdBuild"})
    EXPECT_TRUE(Enabled(button)) << button;
  Type("txtCond", "c");
  Click("cmdAdd");
  EXPECT_EQ(Result(), "\t\tif c then \r\n\t\t\ts");  // no line break in front: the first statement
}

TEST_F(KindsTest, AfterSuchAClearTheStackIsStillFull) {
  FillTheStack();
  ExpectError(ErrorKind::kSubscript, [this] { host().UserClick(On("cmdClear")); });
  ExpectError(ErrorKind::kSubscript, [this] { host().UserClick(On("optFor")); });
  ExpectError(ErrorKind::kSubscript, [this] { host().UserClick(On("cmdClear")); });
}

TEST_F(KindsTest, SuchAClearOnThePageOfTheTablesEndsBehindThatPage) {
  FillTheStack();
  Tab(0);
  Catalogue("CUSTOMER0", Field("NCUSTOMER.A"));
  Mark("lsttables", 0);
  Mark("lstFields", 1);
  Click("cmdMoveOne");
  ExpectError(ErrorKind::kSubscript, [this] { host().UserClick(On("cmdClear")); });
  EXPECT_EQ(MarkedRows("lsttables"), RowNumbers{});
  EXPECT_EQ(Rows("lstSelectedFields"), Texts{});
  EXPECT_EQ(Panels(), Texts{"fraif"});
}

// The target of the host's text.

class TrackedBoxTest : public KindsTest, public ::testing::WithParamInterface<BoxOfKind> {};

INSTANTIATE_TEST_SUITE_P(
    Boxes, TrackedBoxTest,
    ::testing::Values(BoxOfKind{"optFor", "txtForStmt"}, BoxOfKind{"optwhile", "txtWhlStm"},
                      BoxOfKind{"optIfThen", "txtStmt1"}, BoxOfKind{"optIfThen", "txtStmt2"},
                      BoxOfKind{"optCase", "TxtDef"}, BoxOfKind{"optRepeat", "txtRepStm"},
                      BoxOfKind{"optCase", "txtStmt(0)"}));

TEST_P(TrackedBoxTest, OnceVisitedItTakesTheText) {
  Click(GetParam().option);
  Focus(GetParam().box);
  Insert("*zlt*x");
  EXPECT_EQ(Text(GetParam().box), "x");
  EXPECT_EQ(Result(), "");
}

TEST_P(TrackedBoxTest, ChoosingItsKindIsNotAVisit) {
  Click(GetParam().option);
  Insert("*zlt*x");
  EXPECT_EQ(Text(GetParam().box), "");
  EXPECT_EQ(Result(), "x");
}

TEST_P(TrackedBoxTest, TypingIntoItIsAVisit) {
  Click(GetParam().option);
  Type(GetParam().box, "a");
  Insert("*zlt*x");
  EXPECT_EQ(Text(GetParam().box), "a\r\nx");
}

TEST_P(TrackedBoxTest, ItStaysTheTargetWhenAnotherKindIsChosen) {
  Click(GetParam().option);
  Focus(GetParam().box);
  for (const KindOfCondition& kind : kKinds)
    Click(kind.option);
  Click("cmdFunction(4)");
  EXPECT_EQ(Log(), Texts{"eventFunction"});
  Insert("*zlt*x");
  EXPECT_EQ(Text(GetParam().box), "x");
  EXPECT_EQ(Result(), "");
}

TEST_P(TrackedBoxTest, TheBoxVisitedLastTakesTheText) {
  const char* other = AnotherThan(GetParam().option);
  const char* before = other == std::string_view("optFor") ? "txtForStmt" : "txtWhlStm";
  Click(other);
  Focus(before);
  Click(GetParam().option);
  Focus(GetParam().box);
  Insert("*zlt*x");
  EXPECT_EQ(Text(before), "");
  EXPECT_EQ(Text(GetParam().box), "x");
}

class UntrackedBoxTest : public KindsTest, public ::testing::WithParamInterface<BoxOfKind> {};

INSTANTIATE_TEST_SUITE_P(
    Boxes, UntrackedBoxTest,
    ::testing::Values(BoxOfKind{"optIfThen", "txtCond"}, BoxOfKind{"optwhile", "txtWhlCnd"},
                      BoxOfKind{"optRepeat", "txtRepCnd"}, BoxOfKind{"optFor", "txtVariable"},
                      BoxOfKind{"optFor", "txtinitval"}, BoxOfKind{"optFor", "txtFinVal"},
                      BoxOfKind{"optFor", "txtStep"}, BoxOfKind{"optCase", "txtcaseexp"},
                      BoxOfKind{"optCase", "TxtExpr(0)"}));

TEST_P(UntrackedBoxTest, ItLeavesTheTextToTheBoxBefore) {
  const char* other = AnotherThan(GetParam().option);
  const char* before = other == std::string_view("optFor") ? "txtForStmt" : "txtWhlStm";
  Click(other);
  Focus(before);
  Click(GetParam().option);
  Focus("tabVrn");
  Focus(GetParam().box);
  Insert("*zlt*x");
  EXPECT_EQ(Text(before), "x");
  EXPECT_EQ(Text(GetParam().box), "");
  EXPECT_EQ(Result(), "");
}

TEST_P(UntrackedBoxTest, WithNoBoxBeforeItTheResultTakesTheText) {
  Click(GetParam().option);
  Type(GetParam().box, "a");
  Insert("*zlt*x");
  EXPECT_EQ(Text(GetParam().box), "a");
  EXPECT_EQ(Result(), "x");
}

TEST_F(KindsTest, ARowTakesTheTextByAllTheDigitsOfItsNumber) {
  Click("optCase");
  for (int row = 1; row <= 12; ++row)
    Click("cmdNext");
  Focus("txtStmt(12)");
  Insert("a");
  Focus("txtStmt(1)");
  Insert("b");
  Focus("txtStmt(2)");
  Insert("c");
  EXPECT_EQ(Text("txtStmt(12)"), "a");
  EXPECT_EQ(Text("txtStmt(1)"), "b");
  EXPECT_EQ(Text("txtStmt(2)"), "c");
  EXPECT_EQ(Result(), "");
}

TEST_F(KindsTest, ARowAnswersARequestFromWithinTheEvent) {
  Click("optCase");
  for (int row = 1; row <= 12; ++row)
    Click("cmdNext");
  Focus("txtStmt(12)");
  Answer("eventSubQuery", [this] { Insert("a~b"); });
  Click("cmdSubQuery(4)");
  EXPECT_EQ(Text("txtStmt(12)"), "a\r\nb");
  EXPECT_EQ(Log(), Texts{"eventSubQuery"});
}

// Done.

TEST_F(KindsTest, AChosenKindDoesNotKeepDoneBack) {
  Click("optIfThen");
  Type("txtCond", "c");
  Click("cmdDone");
  EXPECT_EQ(Log(), Texts{"eventDone"});
}

TEST_F(KindsTest, AnAddedConditionKeepsDoneBackOnItsPageUntilItIsBuilt) {
  Click("optIfThen");
  FillAndAdd(KindOf("optIfThen"));
  Click("cmdDone");
  EXPECT_EQ(Log(), Texts{ErrorMessage("Build Condition")});
  for (const int page : {0, 1, 2, 3, 4, 5}) {
    Tab(page);
    Click("cmdDone");
    EXPECT_EQ(Log(), Texts{"eventDone"}) << "page " << page;
  }
  Tab(6);
  Click("cmdDone");
  EXPECT_EQ(Log(), Texts{ErrorMessage("Build Condition")});
  Click("cmdBuild");
  Click("cmdDone");
  EXPECT_EQ(Log(), Texts{"eventDone"});
}

TEST_F(KindsTest, AClearLetsDoneGoOn) {
  Click("optIfThen");
  FillAndAdd(KindOf("optIfThen"));
  Click("cmdClear");
  Click("cmdDone");
  EXPECT_EQ(Log(), Texts{"eventDone"});
}

}  // namespace
}  // namespace zolt20::tests
