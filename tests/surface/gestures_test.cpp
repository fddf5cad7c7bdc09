#include <algorithm>
#include <cctype>
#include <limits>

#include "tests/surface/bare_form.h"

namespace zolt20::tests {
namespace {

class GesturesTest : public BareFormTest {
 protected:
  GesturesTest() {
    for (RowsControl* list :
         std::initializer_list<RowsControl*>{&form.lstFields, &form.lsttables, &form.lstorderbyasc,
                                             &form.cboOper, &form.cboWhereFields1}) {
      Fill(*list, {"a", "b", "c"});
    }
  }
  /// Activates a page from the code side.
  void Page(int page) {
    form.tabVrn.Tab(page);
    Events();
  }
};

// Which kind has which gesture.

TEST_F(GesturesTest, EveryKindHasItsGestures) {
  struct Row {
    const Control& control;
    std::vector<Gesture> gestures;
  };
  const std::vector<Row> rows{
      {form.tabVrn, {Gesture::kFocus, Gesture::kTab}},
      {form.TxtOutput, {Gesture::kFocus, Gesture::kType}},
      {form.txtAsSet, {Gesture::kFocus, Gesture::kType, Gesture::kKey}},
      {form.TxtExpr(0), {Gesture::kFocus, Gesture::kType, Gesture::kKey}},
      {form.lstFields, {Gesture::kFocus, Gesture::kClickRow, Gesture::kDoubleClickRow}},
      {form.lsttables, {Gesture::kFocus, Gesture::kClickRow, Gesture::kDoubleClickRow}},
      {form.lstorderbyasc, {Gesture::kFocus, Gesture::kClickRow, Gesture::kDoubleClickRow}},
      {form.cboOper, {Gesture::kFocus, Gesture::kPick}},
      {form.cboWhereFields1, {Gesture::kFocus, Gesture::kPick, Gesture::kType}},
      {form.cmdDone, {Gesture::kFocus, Gesture::kClick}},
      {form.optFor, {Gesture::kFocus, Gesture::kClick}},
      {form.VscrCase, {Gesture::kFocus, Gesture::kScroll}},
      {form.fraSelect, {}},
      {form.lblResult, {}},
      {form.Shape1, {}},
  };
  for (const Row& row : rows) {
    for (const Gesture gesture :
         {Gesture::kFocus, Gesture::kClick, Gesture::kClickRow, Gesture::kDoubleClickRow,
          Gesture::kPick, Gesture::kType, Gesture::kKey, Gesture::kTab, Gesture::kScroll}) {
      const bool wanted = std::count(row.gestures.begin(), row.gestures.end(), gesture) == 1;
      EXPECT_EQ(Surface::Offers(row.control, gesture), wanted)
          << row.control.name() << " " << static_cast<int>(gesture);
    }
  }
}

TEST_F(GesturesTest, AGestureAsAValueIsOfferedToTheKindThatHasIt) {
  for (const GestureDesign& design : kGestures) {
    const Control& control = design.gesture == Gesture::kTab
                                 ? static_cast<const Control&>(form.cmdDone)
                                 : form.lblResult;
    EXPECT_EQ(form.User({design.gesture, &control, 0, u"x"}), Outcome::kNotOffered) << design.name;
  }
  EXPECT_EQ(form.Focused(), nullptr);
  EXPECT_EQ(ErrorOf([this] { form.User({Gesture::kTab, &form.tabVrn, 40'000}); }), "6 overflow");
  Page(1);
  EXPECT_EQ(ErrorOf([this] { form.User({Gesture::kKey, &form.txtAsSet, 40'000}); }), "6 overflow");
  EXPECT_EQ(form.User({Gesture::kKey, &form.txtAsSet, 65, u"", TextMark{1, 1}}),
            Outcome::kNoSuchMark);
}

TEST_F(GesturesTest, EachGestureHasTheNumberOfItsPlace) {
  int number = 0;
  for (const GestureDesign& design : kGestures) {
    EXPECT_EQ(static_cast<int>(design.gesture), number++);
    EXPECT_EQ(&DesignOf(design.gesture), &design);
  }
}

TEST_F(GesturesTest, AGestureThatTheKindDoesNotHaveIsNotOfferedAndDoesNothing) {
  EXPECT_EQ(form.UserFocus(form.lblResult), Outcome::kNotOffered);
  EXPECT_EQ(form.UserFocus(form.Shape1), Outcome::kNotOffered);
  EXPECT_EQ(form.UserClick(form.lblResult), Outcome::kNotOffered);
  EXPECT_EQ(form.UserClick(form.lsttables), Outcome::kNotOffered);
  EXPECT_EQ(form.UserClick(form.cmdDone, 0), Outcome::kNotOffered);
  EXPECT_EQ(form.UserClick(form.cboOper, 0), Outcome::kNotOffered);
  EXPECT_EQ(form.UserDoubleClick(form.cmdDone, 0), Outcome::kNotOffered);
  EXPECT_EQ(form.UserPick(form.lsttables, 0), Outcome::kNotOffered);
  EXPECT_EQ(form.UserType(form.cboOper, u"x"), Outcome::kNotOffered);
  EXPECT_EQ(form.UserType(form.cmdDone, u"x"), Outcome::kNotOffered);
  EXPECT_EQ(form.UserKey(form.TxtOutput, 65), Outcome::kNotOffered);
  EXPECT_EQ(form.UserKey(form.cboWhereFields1, 65), Outcome::kNotOffered);
  EXPECT_EQ(form.UserScroll(form.txtAsSet, 0), Outcome::kNotOffered);
  EXPECT_EQ(form.Focused(), nullptr);
}

// Refusals, the order of the checks, and the focus that comes first.

struct Target {
  const char* name;
  int page;
  Control& (*control)(BareForm&);
  Outcome (*gesture)(BareForm&);
};

// One gesture of every kind, each of which would do something.
const Target kTargets[] = {
    {"focus", 0, [](BareForm& f) -> Control& { return f.cmdMoveOne; },
     [](BareForm& f) { return f.UserFocus(f.cmdMoveOne); }},
    {"click a button", 0, [](BareForm& f) -> Control& { return f.cmdMoveOne; },
     [](BareForm& f) { return f.UserClick(f.cmdMoveOne); }},
    {"click an option", 6, [](BareForm& f) -> Control& { return f.optFor; },
     [](BareForm& f) { return f.UserClick(f.optFor); }},
    {"click a row", 0, [](BareForm& f) -> Control& { return f.lsttables; },
     [](BareForm& f) { return f.UserClick(f.lsttables, 1); }},
    {"click a single row", 0, [](BareForm& f) -> Control& { return f.lstFields; },
     [](BareForm& f) { return f.UserClick(f.lstFields, 1); }},
    {"click a check box", 1, [](BareForm& f) -> Control& { return f.lstorderbyasc; },
     [](BareForm& f) { return f.UserClick(f.lstorderbyasc, 1); }},
    {"double-click", 0, [](BareForm& f) -> Control& { return f.lstFields; },
     [](BareForm& f) { return f.UserDoubleClick(f.lstFields, 1); }},
    {"pick", 1, [](BareForm& f) -> Control& { return f.cboOper; },
     [](BareForm& f) { return f.UserPick(f.cboOper, 1); }},
    {"type", 1, [](BareForm& f) -> Control& { return f.txtAsSet; },
     [](BareForm& f) { return f.UserType(f.txtAsSet, u"x"); }},
    {"type with colours", 2, [](BareForm& f) -> Control& { return f.txtSelectDo; },
     [](BareForm& f) { return f.UserType(f.txtSelectDo, u"x"); }},
    {"type into a combo", 1, [](BareForm& f) -> Control& { return f.cboWhereFields1; },
     [](BareForm& f) { return f.UserType(f.cboWhereFields1, u"x"); }},
    {"key", 1, [](BareForm& f) -> Control& { return f.txtAsSet; },
     [](BareForm& f) { return f.UserKey(f.txtAsSet, 65); }},
    {"tab", 0, [](BareForm& f) -> Control& { return f.tabVrn; },
     [](BareForm& f) { return f.UserTab(4); }},
    {"scroll", 6, [](BareForm& f) -> Control& { return f.VscrCase; },
     [](BareForm& f) { return f.UserScroll(f.VscrCase, 1); }},
    {"focus as a value", 0, [](BareForm& f) -> Control& { return f.cmdMoveOne; },
     [](BareForm& f) {
       return f.User({Gesture::kFocus, &f.cmdMoveOne});
     }},
    {"click as a value", 0, [](BareForm& f) -> Control& { return f.cmdMoveOne; },
     [](BareForm& f) {
       return f.User({Gesture::kClick, &f.cmdMoveOne});
     }},
    {"click a row as a value", 0, [](BareForm& f) -> Control& { return f.lsttables; },
     [](BareForm& f) {
       return f.User({Gesture::kClickRow, &f.lsttables, 1});
     }},
    {"double-click as a value", 0, [](BareForm& f) -> Control& { return f.lstFields; },
     [](BareForm& f) {
       return f.User({Gesture::kDoubleClickRow, &f.lstFields, 1});
     }},
    {"pick as a value", 1, [](BareForm& f) -> Control& { return f.cboOper; },
     [](BareForm& f) {
       return f.User({Gesture::kPick, &f.cboOper, 1});
     }},
    {"type as a value", 1, [](BareForm& f) -> Control& { return f.txtAsSet; },
     [](BareForm& f) {
       return f.User({Gesture::kType, &f.txtAsSet, -1, u"x"});
     }},
    {"key as a value", 1, [](BareForm& f) -> Control& { return f.txtAsSet; },
     [](BareForm& f) {
       return f.User({Gesture::kKey, &f.txtAsSet, 65});
     }},
    {"tab as a value", 0, [](BareForm& f) -> Control& { return f.tabVrn; },
     [](BareForm& f) {
       return f.User({Gesture::kTab, &f.tabVrn, 1});
     }},
    {"scroll as a value", 6, [](BareForm& f) -> Control& { return f.VscrCase; },
     [](BareForm& f) {
       return f.User({Gesture::kScroll, &f.VscrCase, 1});
     }},
};

class EveryGestureTest : public GesturesTest, public ::testing::WithParamInterface<Target> {
 protected:
  EveryGestureTest() {
    form.fraOnCase.Visible(true);
    form.VscrCase.Visible(true);
    form.VscrCase.Max(2);
    Page(GetParam().page);
  }
  Control& TheControl() { return GetParam().control(form); }
  Outcome Act() { return GetParam().gesture(form); }
  std::string GotFocus() { return "GotFocus " + std::string(TheControl().name()); }
  /// Nothing that any of the gestures does has happened.
  void ExpectNothingDone() {
    EXPECT_FALSE(form.optFor.Value());
    for (const ListBox* list : {&form.lsttables, &form.lstFields, &form.lstorderbyasc}) {
      EXPECT_EQ(list->ListIndex(), -1);
      EXPECT_EQ(list->SelCount(), 0);
    }
    EXPECT_EQ(form.cboOper.ListIndex(), -1);
    EXPECT_EQ(form.txtAsSet.Text(), u"");
    EXPECT_EQ(form.txtSelectDo.Text(), u"");
    EXPECT_EQ(form.cboWhereFields1.Text(), u"");
    EXPECT_EQ(form.tabVrn.Tab(), GetParam().page);
    EXPECT_EQ(form.VscrCase.Value(), 0);
  }
};

std::string NameOf(const ::testing::TestParamInfo<Target>& target) {
  std::string name;
  for (const char letter : std::string_view(target.param.name)) {
    if (std::isalpha(static_cast<unsigned char>(letter)) != 0) name += letter;
  }
  return name;
}

INSTANTIATE_TEST_SUITE_P(Gestures, EveryGestureTest, ::testing::ValuesIn(kTargets), NameOf);

TEST_P(EveryGestureTest, IsRefusedOnAControlThatIsNotShown) {
  TheControl().Visible(false);
  EXPECT_EQ(Act(), Outcome::kNotShown);
  ExpectNothingDone();
  EXPECT_EQ(form.Focused(), nullptr);
}

TEST_P(EveryGestureTest, IsRefusedOnAControlThatIsNotEnabled) {
  TheControl().Enabled(false);
  EXPECT_EQ(Act(), Outcome::kNotEnabled);
  ExpectNothingDone();
  EXPECT_EQ(form.Focused(), nullptr);
}

TEST_P(EveryGestureTest, MovesTheFocusFirst) {
  EXPECT_EQ(Act(), Outcome::kDone);
  EXPECT_EQ(form.Focused(), &TheControl());
  EXPECT_EQ(Events().front(), GotFocus());
}

TEST_P(EveryGestureTest, RunsNoGotFocusWhereTheFocusIs) {
  TheControl().SetFocus();
  Events();
  EXPECT_EQ(Act(), Outcome::kDone);
  for (const std::string& event : Events())
    EXPECT_NE(event, GotFocus());
}

TEST_P(EveryGestureTest, EndsThereWhenGotFocusHidesTheControl) {
  When(GotFocus(), [this] { TheControl().Visible(false); });
  EXPECT_EQ(Act(), Outcome::kDone);
  ExpectNothingDone();
  EXPECT_EQ(form.Focused(), nullptr);
  EXPECT_EQ(Events().front(), GotFocus());
}

TEST_P(EveryGestureTest, EndsThereWhenGotFocusDisablesTheControl) {
  When(GotFocus(), [this] { TheControl().Enabled(false); });
  EXPECT_EQ(Act(), Outcome::kDone);
  ExpectNothingDone();
  EXPECT_EQ(form.Focused(), nullptr);
  EXPECT_EQ(Events().front(), GotFocus());
}

TEST_P(EveryGestureTest, AnErrorOfGotFocusEndsItToo) {
  When(GotFocus(), [] { Raise(ErrorKind::kSubscript); });
  EXPECT_EQ(ErrorOf([this] { Act(); }), "9 subscript");
  ExpectNothingDone();
  EXPECT_EQ(form.Focused(), &TheControl());
  EXPECT_EQ(Events(), Texts{GotFocus()});
}

TEST_P(EveryGestureTest, IsRefusedInAFormThatIsNotVisible) {
  BareForm hidden(FormVisible::kNo);
  Fill(hidden.lsttables, {"a", "b"});
  Fill(hidden.lstFields, {"a", "b"});
  Fill(hidden.lstorderbyasc, {"a", "b"});
  Fill(hidden.cboOper, {"a", "b"});
  EXPECT_EQ(GetParam().gesture(hidden), Outcome::kNotShown);
  EXPECT_EQ(hidden.events, Texts{});
}

TEST_F(GesturesTest, AControlThatIsNeitherShownNorEnabledCountsAsNotShown) {
  form.cmdDone.Visible(false);
  form.cmdDone.Enabled(false);
  EXPECT_EQ(form.UserClick(form.cmdDone), Outcome::kNotShown);
}

TEST_F(GesturesTest, TheRowIsLookedAtBeforeShownAndEnabled) {
  form.lsttables.Visible(false);
  EXPECT_EQ(form.UserClick(form.lsttables, 3), Outcome::kNoSuchRow);
  form.cboOper.Enabled(false);
  EXPECT_EQ(form.UserPick(form.cboOper, 3), Outcome::kNoSuchRow);
}

TEST_F(GesturesTest, AControlOnAnotherPageIsNotShown) {
  EXPECT_EQ(form.UserType(form.txtAsSet, u"x"), Outcome::kNotShown);
  EXPECT_EQ(form.UserClick(form.optFor), Outcome::kNotShown);
}

TEST_F(GesturesTest, AFocusPassedOnByGotFocusDoesNotKeepTheGestureFromActing) {
  When("GotFocus cmdMoveOne", [this] { form.cmdDone.SetFocus(); });
  EXPECT_EQ(form.UserClick(form.cmdMoveOne), Outcome::kDone);
  EXPECT_EQ(Focused(), "cmdDone");
  EXPECT_EQ(Events(), (Texts{"GotFocus cmdMoveOne", "GotFocus cmdDone", "Click cmdMoveOne"}));
}

// What each gesture does.

TEST_F(GesturesTest, FocusOnlyMovesTheFocus) {
  EXPECT_EQ(form.UserFocus(form.cmdDone), Outcome::kDone);
  EXPECT_EQ(form.UserFocus(form.cmdDone), Outcome::kDone);
  EXPECT_EQ(Events(), Texts{"GotFocus cmdDone"});
}

TEST_F(GesturesTest, AClickOnAButtonClicksEveryTime) {
  form.UserClick(form.cmdDone);
  form.UserClick(form.cmdDone);
  EXPECT_EQ(Events(), (Texts{"GotFocus cmdDone", "Click cmdDone", "Click cmdDone"}));
}

TEST_F(GesturesTest, AClickOnAFalseOptionIsAsWritingTrue) {
  Page(6);
  form.optCase.Value(true);
  Events();
  form.UserClick(form.optFor);
  EXPECT_TRUE(form.optFor.Value());
  EXPECT_FALSE(form.optCase.Value());
  EXPECT_EQ(Events(), (Texts{"GotFocus optFor", "Click optFor"}));
}

TEST_F(GesturesTest, AClickOnATrueOptionDoesNothing) {
  Page(6);
  form.optFor.Value(true);
  Events();
  EXPECT_EQ(form.UserClick(form.optFor), Outcome::kDone);
  EXPECT_TRUE(form.optFor.Value());
  EXPECT_EQ(Events(), Texts{"GotFocus optFor"});
}

TEST_F(GesturesTest, AClickOnARowOfASingleSelectionMakesItTheOnlyMark) {
  form.UserClick(form.lstFields, 0);
  form.UserClick(form.lstFields, 2);
  EXPECT_EQ(Marks(form.lstFields), RowNumbers{2});
  EXPECT_EQ(form.lstFields.ListIndex(), 2);
  EXPECT_EQ(Events(), (Texts{"GotFocus lstFields", "Click lstFields", "Click lstFields"}));
}

TEST_F(GesturesTest, AClickOnTheMarkedRowOfASingleSelectionClicksAgainAndKeepsTheMark) {
  form.UserClick(form.lstFields, 1);
  Events();
  form.UserClick(form.lstFields, 1);
  EXPECT_EQ(Marks(form.lstFields), RowNumbers{1});
  EXPECT_EQ(Events(), Texts{"Click lstFields"});
}

TEST_F(GesturesTest, AClickOnARowOfAMultiSelectionTogglesIt) {
  form.UserClick(form.lsttables, 0);
  form.UserClick(form.lsttables, 2);
  EXPECT_EQ(Marks(form.lsttables), (RowNumbers{0, 2}));
  form.UserClick(form.lsttables, 0);
  EXPECT_EQ(Marks(form.lsttables), RowNumbers{2});
  EXPECT_EQ(form.lsttables.ListIndex(), 0);
  EXPECT_EQ(Events(),
            (Texts{"GotFocus lsttables", "Click lsttables", "Click lsttables", "Click lsttables"}));
}

TEST_F(GesturesTest, AClickOnACheckBoxTogglesItAndFiresItemCheckAlone) {
  Page(1);
  form.UserClick(form.lstorderbyasc, 1);
  EXPECT_EQ(Marks(form.lstorderbyasc), RowNumbers{1});
  EXPECT_EQ(form.lstorderbyasc.ListIndex(), 1);
  form.UserClick(form.lstorderbyasc, 1);
  EXPECT_EQ(form.lstorderbyasc.SelCount(), 0);
  EXPECT_EQ(Events(), (Texts{"GotFocus lstorderbyasc", "ItemCheck lstorderbyasc 1",
                             "ItemCheck lstorderbyasc 1"}));
}

TEST_F(GesturesTest, MarkAndListIndexStandBeforeTheClick) {
  bool markedInside = false;
  When("Click lsttables",
       [&] { markedInside = form.lsttables.Selected(1) && form.lsttables.ListIndex() == 1; });
  form.UserClick(form.lsttables, 1);
  EXPECT_TRUE(markedInside);
  Events();
}

TEST_F(GesturesTest, ARowThatIsNotThereIsRefused) {
  for (const ListBox* list : {&form.lstFields, &form.lsttables}) {
    for (const int row :
         {-1, 3, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
      EXPECT_EQ(form.UserClick(*list, row), Outcome::kNoSuchRow);
      EXPECT_EQ(form.UserDoubleClick(*list, row), Outcome::kNoSuchRow);
    }
  }
  Page(1);
  EXPECT_EQ(form.UserPick(form.cboOper, -1), Outcome::kNoSuchRow);
  EXPECT_EQ(form.UserPick(form.cboOper, 3), Outcome::kNoSuchRow);
  EXPECT_EQ(form.Focused(), nullptr);
}

TEST_F(GesturesTest, ADoubleClickInASingleSelectionClicksFirst) {
  form.UserDoubleClick(form.lstFields, 1);
  EXPECT_EQ(Marks(form.lstFields), RowNumbers{1});
  EXPECT_EQ(Events(), (Texts{"GotFocus lstFields", "Click lstFields", "DblClick lstFields"}));
}

TEST_F(GesturesTest, TheFirstAndTheLastRowCanBeDoubleClicked) {
  for (const int row : {0, 2}) {
    EXPECT_EQ(form.UserDoubleClick(form.lstFields, row), Outcome::kDone) << row;
    EXPECT_EQ(Marks(form.lstFields), RowNumbers{row});
  }
  EXPECT_EQ(Events(), (Texts{"GotFocus lstFields", "Click lstFields", "DblClick lstFields",
                             "Click lstFields", "DblClick lstFields"}));
}

TEST_F(GesturesTest, ADoubleClickElsewhereIsDblClickAlone) {
  form.UserDoubleClick(form.lsttables, 1);
  EXPECT_EQ(form.lsttables.SelCount(), 0);
  EXPECT_EQ(form.lsttables.ListIndex(), -1);
  EXPECT_EQ(Events(), (Texts{"GotFocus lsttables", "DblClick lsttables"}));
  Page(1);
  form.UserDoubleClick(form.lstorderbyasc, 1);
  EXPECT_EQ(form.lstorderbyasc.SelCount(), 0);
  EXPECT_EQ(Events(), (Texts{"GotFocus lstorderbyasc", "DblClick lstorderbyasc"}));
}

TEST_F(GesturesTest, APickSelectsTheEntryAndClicksAlsoWhenItWasSelected) {
  Page(1);
  form.UserPick(form.cboOper, 1);
  EXPECT_EQ(form.cboOper.ListIndex(), 1);
  EXPECT_EQ(form.cboOper.Text(), u"b");
  form.UserPick(form.cboOper, 1);
  EXPECT_EQ(Events(), (Texts{"GotFocus cboOper", "Click cboOper", "Click cboOper"}));
}

TEST_F(GesturesTest, APickInAnEditableComboReplacesWhatWasTyped) {
  Page(1);
  form.UserType(form.cboWhereFields1, u"42");
  form.UserPick(form.cboWhereFields1, 0);
  EXPECT_EQ(form.cboWhereFields1.Text(), u"a");
  EXPECT_EQ(Events(), (Texts{"GotFocus cboWhereFields1", "Click cboWhereFields1"}));
}

TEST_F(GesturesTest, TypingReplacesTheWholeTextLineEndsIncludedAndLeavesTheCaretAtTheEnd) {
  Page(1);
  form.txtAsSet.Text(u"old");
  Events();
  form.UserType(form.txtAsSet, u"a\r\n\tb\n");
  EXPECT_EQ(form.txtAsSet.Text(), u"a\r\n\tb\n");
  EXPECT_EQ(form.txtAsSet.SelStart(), 6);
  EXPECT_EQ(Events(), (Texts{"GotFocus txtAsSet", "Change txtAsSet"}));
}

TEST_F(GesturesTest, TypingTheSameTextMovesTheCaretToTheEndAndFiresNoChange) {
  Page(1);
  form.txtAsSet.Text(u"10");
  form.txtAsSet.SetFocus();
  Events();
  EXPECT_EQ(form.UserType(form.txtAsSet, u"10"), Outcome::kDone);
  EXPECT_EQ(form.txtAsSet.SelStart(), 2);
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(GesturesTest, TypingRunsNoKeyPress) {
  Page(1);
  form.UserType(form.txtAsSet, u"abc");
  EXPECT_EQ(Events(), (Texts{"GotFocus txtAsSet", "Change txtAsSet"}));
}

TEST_F(GesturesTest, TypingIntoABoxWithColorsFiresNoChange) {
  Page(2);
  form.UserType(form.txtSelectDo, u"a\r\nb");
  EXPECT_EQ(form.txtSelectDo.Text(), u"a\r\nb");
  EXPECT_EQ(Events(), (Texts{"GotFocus txtSelectDo", "TabChain txtSelectDo"}));
}

TEST_F(GesturesTest, TypingIntoAnEditableComboTakesTheSelectionAwayAndFiresNothing) {
  Page(1);
  form.cboWhereFields1.ListIndex(1);
  form.cboWhereFields1.SetFocus();
  Events();
  form.UserType(form.cboWhereFields1, u"b");
  EXPECT_EQ(form.cboWhereFields1.ListIndex(), -1);
  EXPECT_EQ(form.cboWhereFields1.Text(), u"b");
  EXPECT_EQ(Events(), Texts{});
}

class KeyTest : public GesturesTest {
 protected:
  KeyTest() {
    Page(1);
    form.txtAsSet.SetFocus();
    form.txtAsSet.Text(u"abc");
    form.txtAsSet.SelStart(1);
    Events();
  }
  TextBox& box = form.txtAsSet;
};

TEST_F(KeyTest, ACharacterGoesInAtTheCaretWhichMovesAlong) {
  form.UserKey(box, 'x');
  EXPECT_EQ(box.Text(), u"axbc");
  EXPECT_EQ(box.SelStart(), 2);
  EXPECT_EQ(Events(), (Texts{"KeyPress txtAsSet 120", "Change txtAsSet"}));
}

TEST_F(KeyTest, KeyPressComesBeforeTheKeyTakesEffect) {
  String textInside;
  When("KeyPress txtAsSet 120", [&] { textInside = box.Text(); });
  form.UserKey(box, 'x');
  EXPECT_EQ(textInside, u"abc");
  Events();
}

TEST_F(KeyTest, TheBackspaceTakesOutTheCharacterBeforeTheCaret) {
  form.UserKey(box, 8);
  EXPECT_EQ(box.Text(), u"bc");
  EXPECT_EQ(box.SelStart(), 0);
  EXPECT_EQ(Events(), (Texts{"KeyPress txtAsSet 8", "Change txtAsSet"}));
}

TEST_F(KeyTest, TheBackspaceAtTheStartDoesNothing) {
  box.SelStart(0);
  form.UserKey(box, 8);
  EXPECT_EQ(box.Text(), u"abc");
  EXPECT_EQ(box.SelStart(), 0);
  EXPECT_EQ(Events(), Texts{"KeyPress txtAsSet 8"});
}

TEST_F(KeyTest, AnyOtherCodeBelowThirtyTwoDoesNothing) {
  for (const int code : {0, 1, 7, 9, 10, 13, 27, 31, -1, -32768}) {
    form.UserKey(box, code);
    EXPECT_EQ(Events(), Texts{"KeyPress txtAsSet " + std::to_string(code)});
  }
  EXPECT_EQ(box.Text(), u"abc");
  EXPECT_EQ(box.SelStart(), 1);
}

TEST_F(KeyTest, TheBlankAndAnyGreaterCodeGoIn) {
  form.UserKey(box, 32);
  form.UserKey(box, 127);
  form.UserKey(box, 0x20AC);
  EXPECT_EQ(box.Text(), u"a \u007F\u20ACbc");
  EXPECT_EQ(box.SelStart(), 4);
  EXPECT_EQ(Events().size(), 6U);
}

TEST_F(KeyTest, TheHandlerMayReplaceTheCode) {
  form.replacedCodes = {{'x', 'y'}, {'z', 1}, {13, 8}};
  form.UserKey(box, 'x');
  EXPECT_EQ(box.Text(), u"aybc");
  form.UserKey(box, 'z');
  EXPECT_EQ(box.Text(), u"aybc");
  form.UserKey(box, 13);
  EXPECT_EQ(box.Text(), u"abc");
  EXPECT_EQ(Events(), (Texts{"KeyPress txtAsSet 120", "Change txtAsSet", "KeyPress txtAsSet 122",
                             "KeyPress txtAsSet 13", "Change txtAsSet"}));
}

TEST_F(KeyTest, AfterTypingTheKeyGoesInAtTheEnd) {
  form.UserType(box, u"10");
  form.UserKey(box, '0');
  EXPECT_EQ(box.Text(), u"100");
  EXPECT_EQ(box.SelStart(), 3);
  Events();
}

TEST_F(KeyTest, AfterAWriteFromCodeTheKeyGoesInAtTheStart) {
  box.Text(u"10");
  form.UserKey(box, '9');
  EXPECT_EQ(box.Text(), u"910");
  EXPECT_EQ(box.SelStart(), 1);
  Events();
}

TEST_F(KeyTest, ACharacterTakesThePlaceOfTheMark) {
  form.UserKey(box, 'x', TextMark{0, 2});
  EXPECT_EQ(box.Text(), u"xc");
  EXPECT_EQ(box.SelStart(), 1);
  EXPECT_EQ(Events(), (Texts{"KeyPress txtAsSet 120", "Change txtAsSet"}));
}

TEST_F(KeyTest, ACharacterGoesInWhereTheMarkIsEmptyWhereverTheCaretWas) {
  form.UserKey(box, 'x', TextMark{3, 3});
  EXPECT_EQ(box.Text(), u"abcx");
  EXPECT_EQ(box.SelStart(), 4);
  form.UserKey(box, 'y', TextMark{0, 0});
  EXPECT_EQ(box.Text(), u"yabcx");
  EXPECT_EQ(box.SelStart(), 1);
  Events();
}

TEST_F(KeyTest, TheBackspaceTakesOutTheMarkAndNoMore) {
  form.UserKey(box, 8, TextMark{1, 3});
  EXPECT_EQ(box.Text(), u"a");
  EXPECT_EQ(box.SelStart(), 1);
  EXPECT_EQ(Events(), (Texts{"KeyPress txtAsSet 8", "Change txtAsSet"}));
}

TEST_F(KeyTest, TheBackspaceBehindAnEmptyMarkTakesOutOneCharacter) {
  form.UserKey(box, 8, TextMark{3, 3});
  EXPECT_EQ(box.Text(), u"ab");
  EXPECT_EQ(box.SelStart(), 2);
  form.UserKey(box, 8, TextMark{0, 0});
  EXPECT_EQ(box.Text(), u"ab");
  EXPECT_EQ(box.SelStart(), 0);
  Events();
}

TEST_F(KeyTest, ADroppedKeyLeavesTheMarkedText) {
  form.replacedCodes = {{'x', 1}};
  form.UserKey(box, 'x', TextMark{0, 3});
  EXPECT_EQ(box.Text(), u"abc");
  EXPECT_EQ(box.SelStart(), 0);
  form.UserKey(box, 13, TextMark{2, 3});
  EXPECT_EQ(box.Text(), u"abc");
  EXPECT_EQ(box.SelStart(), 2);
  EXPECT_EQ(Events(), (Texts{"KeyPress txtAsSet 120", "KeyPress txtAsSet 13"}));
}

TEST_F(KeyTest, ACharacterInThePlaceOfItselfIsNoChange) {
  form.UserKey(box, 'b', TextMark{1, 2});
  EXPECT_EQ(box.Text(), u"abc");
  EXPECT_EQ(box.SelStart(), 2);
  EXPECT_EQ(Events(), Texts{"KeyPress txtAsSet 98"});
}

TEST_F(KeyTest, TheMarkedTextIsWholeWhileKeyPressRuns) {
  String textInside;
  When("KeyPress txtAsSet 8", [&] { textInside = box.Text(); });
  form.UserKey(box, 8, TextMark{0, 3});
  EXPECT_EQ(textInside, u"abc");
  EXPECT_EQ(box.Text(), u"");
  Events();
}

TEST_F(KeyTest, AMarkEndsWithATextThatTheHandlerMadeShorter) {
  When("KeyPress txtAsSet 120", [&] { box.Text(u"ab"); });
  form.UserKey(box, 'x', TextMark{1, 3});
  EXPECT_EQ(box.Text(), u"ax");
  When("KeyPress txtAsSet 121", [&] { box.Text(u""); });
  form.UserKey(box, 'y', TextMark{2, 2});
  EXPECT_EQ(box.Text(), u"y");
  Events();
}

TEST_F(KeyTest, AMarkThatDoesNotLieWithinTheTextDoesNothing) {
  for (const TextMark mark :
       {TextMark{-1, 0}, TextMark{-1, -1}, TextMark{2, 1}, TextMark{0, 4}, TextMark{4, 4}}) {
    EXPECT_EQ(form.UserKey(box, 'x', mark), Outcome::kNoSuchMark) << mark.from << " " << mark.to;
  }
  EXPECT_EQ(box.Text(), u"abc");
  EXPECT_EQ(box.SelStart(), 1);
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(KeyTest, TheMarkComesBeforeWhatIsShown) {
  box.Enabled(false);
  EXPECT_EQ(form.UserKey(box, 'x', TextMark{0, 4}), Outcome::kNoSuchMark);
  EXPECT_EQ(form.UserKey(box, 'x', TextMark{0, 3}), Outcome::kNotEnabled);
  EXPECT_EQ(form.UserKey(form.TxtOutput, 'x', TextMark{0, 9}), Outcome::kNotOffered);
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(GesturesTest, TabMovesTheFocusToTheStripAndThenChangesThePage) {
  form.UserTab(3);
  EXPECT_EQ(form.tabVrn.Tab(), 3);
  EXPECT_EQ(Events(), (Texts{"GotFocus tabVrn", "Click tabVrn 0"}));
}

TEST_F(GesturesTest, TabToTheActivePageOnlyMovesTheFocus) {
  EXPECT_EQ(form.UserTab(0), Outcome::kDone);
  EXPECT_EQ(Events(), Texts{"GotFocus tabVrn"});
}

TEST_F(GesturesTest, TabToAPageOutsideIsAValueErrorBehindTheFocus) {
  EXPECT_EQ(ErrorOf([this] { form.UserTab(7); }), "380 value");
  EXPECT_EQ(ErrorOf([this] { form.UserTab(-1); }), "380 value");
  EXPECT_EQ(Focused(), "tabVrn");
  EXPECT_EQ(form.tabVrn.Tab(), 0);
  EXPECT_EQ(Events(), Texts{"GotFocus tabVrn"});
}

class ScrollTest : public GesturesTest {
 protected:
  ScrollTest() {
    Page(6);
    form.fraOnCase.Visible(true);
    form.VscrCase.Visible(true);
    form.VscrCase.Max(2);
  }
};

TEST_F(ScrollTest, AValueWithinTheRangeIsAsWritingIt) {
  form.UserScroll(form.VscrCase, 2);
  EXPECT_EQ(form.VscrCase.Value(), 2);
  form.UserScroll(form.VscrCase, 2);
  EXPECT_EQ(Events(), (Texts{"GotFocus VscrCase", "Change VscrCase"}));
}

TEST_F(ScrollTest, AValueOutsideIsRefusedAndMovesNoFocus) {
  for (const int value :
       {-1, 3, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    EXPECT_EQ(form.UserScroll(form.VscrCase, value), Outcome::kOutside) << value;
  }
  EXPECT_EQ(form.Focused(), nullptr);
}

TEST_F(ScrollTest, ShownAndEnabledAreLookedAtBeforeTheValue) {
  form.VscrCase.Enabled(false);
  EXPECT_EQ(form.UserScroll(form.VscrCase, 9), Outcome::kNotEnabled);
  form.fraOnCase.Visible(false);
  EXPECT_EQ(form.UserScroll(form.VscrCase, 9), Outcome::kNotShown);
}

}  // namespace
}  // namespace zolt20::tests
