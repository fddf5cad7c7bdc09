// The person at a control: which gestures are taken, what they come to in the history, and what has
// to be shown again.
#include "faces/shared/person.h"

#include <algorithm>
#include <any>
#include <stdexcept>
#include <vector>

#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

using faces::Change;
using faces::Changes;
using faces::End;
using faces::Person;

class PersonTest : public ControlTest {
 protected:
  PersonTest() {
    Catalogue("CUSTOMER1,ORDERITM0", List({Field("NCUSTOMER.C_ID"), Field("NORDERITM.O_ID")}));
    Tab(1);
    person.TakeChanges();
    person.ForgetHistory();
  }
  // What the control tells its host is other tests' business.
  void TearDown() override {
    Log();
    ControlTest::TearDown();
  }
  const TextBox& Limit() { return host().Form().txtAsSet; }
  String Result() { return host().Form().TxtOutput.Text(); }
  End Press(char16_t code, int from, int to) { return person.Key(Limit(), code, {from, to}); }
  End TypeIn(const Control& box, StringView text) {
    return person.Make({Gesture::kType, &box, UserGesture::kNone, String(text)});
  }
  End Choose(const Control& control) { return person.Make({Gesture::kClick, &control}); }
  /// What changed of a control since it was looked at; -1 for nothing at all.
  int ChangeOf(const Control& control) {
    const Changes changes = person.TakeChanges();
    const auto found = changes.changed.find(&control);
    return found == changes.changed.end() ? -1 : found->second.what;
  }
  static constexpr int kText = Change::BitOf(Property::kText);
  static constexpr int kSelStart = Change::BitOf(Property::kSelStart);

  Person person{host()};
};

// Keys.

TEST_F(PersonTest, AKeyTakesThePlaceOfTheMarkAndMovesTheCaret) {
  TypeIn(Limit(), u"50");
  person.TakeChanges();
  EXPECT_EQ(Press(u'7', 0, 2), End::kDone);
  EXPECT_EQ(Limit().Text(), u"7");
  EXPECT_EQ(ChangeOf(Limit()) & (kText | kSelStart), kText | kSelStart);
}

TEST_F(PersonTest, AKeyThatIsDroppedLeavesTextCaretAndMarkAsTheyAreShown) {
  TypeIn(Limit(), u"50");
  person.TakeChanges();
  for (const char16_t code : {u'x', u' ', u'\r', u'\u8000'}) {
    EXPECT_EQ(Press(code, 0, 2), End::kDone);
    EXPECT_EQ(Limit().Text(), u"50");
    EXPECT_EQ(ChangeOf(Limit()) & (kText | kSelStart), 0);
  }
}

TEST_F(PersonTest, ACharacterInThePlaceOfItselfMovesTheCaret) {
  TypeIn(Limit(), u"50");
  EXPECT_EQ(Press(u'0', 1, 2), End::kDone);
  EXPECT_EQ(ChangeOf(Limit()) & kSelStart, kSelStart);
}

TEST_F(PersonTest, TheRuleOfTheButtonReadsTheTextBeforeTheKey) {
  TypeIn(Limit(), u"50");
  EXPECT_FALSE(Enabled("cmdAddWhereQuery"));
  Press(u'7', 0, 2);
  EXPECT_TRUE(Enabled("cmdAddWhereQuery"));
  TypeIn(Limit(), u"");
  Press(u'x', 0, 0);
  EXPECT_FALSE(Enabled("cmdAddWhereQuery"));
  TypeIn(Limit(), u"50");
  Press(u'1', 0, 0);
  EXPECT_TRUE(Enabled("cmdAddWhereQuery"));
  TypeIn(Limit(), u"");
  Press(u'x', 0, 0);
  TypeIn(Limit(), u"5");
  Press(8, 0, 1);
  EXPECT_TRUE(Enabled("cmdAddWhereQuery"));
}

TEST_F(PersonTest, AKeyIsToldWithItsMarkWhereTheCaretOfTheControlIsElsewhere) {
  TypeIn(Limit(), u"50");
  Press(u'1', 2, 2);
  EXPECT_FALSE(person.made().gesture.mark.has_value());
  Press(u'2', 1, 3);
  EXPECT_EQ(person.made().gesture.mark, (TextMark{1, 3}));
  EXPECT_EQ(person.made().gesture.number, '2');
}

// Typing.

TEST_F(PersonTest, WhatIsTypedIsShownAlreadyAndTheCaretStays) {
  EXPECT_EQ(TypeIn(host().Form().TxtOutput, u"abc"), End::kDone);
  EXPECT_EQ(ChangeOf(host().Form().TxtOutput) & (kText | kSelStart), 0);
  const ComboBox& value = host().Form().cboWhereFields1;
  EXPECT_EQ(TypeIn(value, u"42"), End::kDone);
  EXPECT_EQ(ChangeOf(value) & kText, 0);
}

TEST_F(PersonTest, AnEditOfWhatIsShownKeepsTheLineEndsElsewhere) {
  const SyntaxTextBox& box = host().Form().TxtOutput;
  TypeIn(box, u"a\nb\r\nc");
  EXPECT_EQ(person.Type(box, u"a|b|x|c", 5, u'|'), End::kDone);
  EXPECT_EQ(box.Text(), u"a\nb\r\nx\r\nc");
}

TEST_F(PersonTest, LineEndsThatAreTypedIntoALineBecomeCrLfAndTheOthersStay) {
  const TextBox& box = Limit();
  TypeIn(box, u"a\nb");
  person.TakeChanges();
  EXPECT_EQ(person.TypeInLine(box, u"a\nb\nc\rd\r\ne", 9, {3, 3}), End::kDone);
  EXPECT_EQ(box.Text(), u"a\nb\r\nc\r\nd\r\ne");
  EXPECT_EQ(ChangeOf(box) & kText, kText);
  EXPECT_EQ(person.TypeInLine(box, u"xa\nb\r\nc\r\nd\r\ne", 1, {0, 0}), End::kDone);
  EXPECT_EQ(box.Text(), u"xa\nb\r\nc\r\nd\r\ne");
  EXPECT_EQ(ChangeOf(box) & kText, 0);
}

TEST_F(PersonTest, ATextThatIsPastedOverItselfInALineHasCrLfAgain) {
  const TextBox& box = Limit();
  TypeIn(box, u"a\r\nb");
  EXPECT_EQ(person.TypeInLine(box, u"a\nb", 3, {0, 4}), End::kDone);
  EXPECT_EQ(box.Text(), u"a\r\nb");
}

TEST_F(PersonTest, WhatIsTakenAwayInALineIsTheLeastThatIsMissing) {
  const TextBox& box = Limit();
  TypeIn(box, u"abc\n");
  EXPECT_EQ(person.TypeInLine(box, u"ab\n", 2, {3, 3}), End::kDone);
  EXPECT_EQ(box.Text(), u"ab\n");
}

TEST_F(PersonTest, ATextThatTheControlRefusesIsShownAgain) {
  const TextBox& hidden = host().Form().txtCond;
  EXPECT_EQ(TypeIn(hidden, u"a"), End::kDone);
  EXPECT_EQ(ChangeOf(hidden) & kText, kText);
  EXPECT_EQ(hidden.Text(), u"");
}

// Calls within calls.

TEST_F(PersonTest, NoGestureIsTakenWithinAnEvent) {
  std::vector<End> ends;
  Answer("eventCancel", [&] {
    ends.push_back(Choose(host().Form().cmdClear));
    ends.push_back(TypeIn(host().Form().TxtOutput, u"x"));
    ends.push_back(person.Undo());
    EXPECT_FALSE(person.BeginStep());
    EXPECT_TRUE(person.IsBusy());
  });
  EXPECT_EQ(Choose(host().Form().cmdCancel), End::kDone);
  EXPECT_EQ(ends, (std::vector<End>{End::kNotTaken, End::kNotTaken, End::kNotTaken}));
  EXPECT_EQ(Result(), u"");
  EXPECT_FALSE(person.IsBusy());
  // What the platform shows of it is put right.
  EXPECT_EQ(ChangeOf(host().Form().TxtOutput), Change::kByPlatform);
}

TEST_F(PersonTest, NoGestureIsTakenWithinACallOfTheHost) {
  person.Call([&] { EXPECT_EQ(Choose(host().Form().cmdCancel), End::kNotTaken); });
  EXPECT_EQ(Log(), Texts{});
}

TEST_F(PersonTest, AFocusThatIsNotTakenIsPutBack) {
  person.Call([&] {
    EXPECT_EQ(person.Make({Gesture::kFocus, &host().Form().cmdDone}), End::kNotTaken);
  });
  EXPECT_TRUE(person.TakeChanges().focusMoved);
}

// Failures.

TEST_F(PersonTest, ARunTimeErrorIsAFailureWithItsKindAndNumber) {
  Answer("eventDone", [this] { host().prpTab(9); });
  EXPECT_EQ(Choose(host().Form().cmdDone), End::kRuntimeError);
  EXPECT_EQ(person.failure().kind, "value");
  EXPECT_EQ(person.failure().number, 380);
  EXPECT_NE(person.failure().text, "");
  EXPECT_EQ(Choose(host().Form().cmdCancel), End::kDone);
}

TEST_F(PersonTest, WhatTheHostThrowsIsAFailureOfTheHost) {
  Answer("eventDone", [] { throw std::logic_error("no place for it"); });
  EXPECT_EQ(Choose(host().Form().cmdDone), End::kFailed);
  EXPECT_EQ(person.failure().kind, "host");
  EXPECT_EQ(person.failure().text, "no place for it");
  Answer("eventDone", [] { throw 5; });
  EXPECT_EQ(Choose(host().Form().cmdDone), End::kFailed);
  EXPECT_EQ(person.failure().text, "");
  EXPECT_EQ(person.Try([] { Raise(ErrorKind::kIndex); }), End::kRuntimeError);
  EXPECT_EQ(person.failure().number, 381);
}

// The history.

TEST_F(PersonTest, ARunOfTypingIsOneStepAndTheHostsValueGoesWithIt) {
  const SyntaxTextBox& box = host().Form().TxtOutput;
  person.hostData() = 1;
  TypeIn(box, u"a");
  EXPECT_FALSE(person.made().goesOn);
  person.hostData() = 2;
  TypeIn(box, u"ab");
  EXPECT_TRUE(person.made().goesOn);
  EXPECT_TRUE(person.TakeChanges().historyChanged);
  EXPECT_EQ(person.Undo(), End::kDone);
  EXPECT_EQ(Result(), u"");
  EXPECT_EQ(std::any_cast<int>(person.hostData()), 1);
  EXPECT_EQ(person.Redo(), End::kDone);
  EXPECT_EQ(Result(), u"ab");
  EXPECT_EQ(std::any_cast<int>(person.hostData()), 2);
  EXPECT_EQ(person.Redo(), End::kNotTaken);
}

TEST_F(PersonTest, KeysAfterAPasteAreAStepOfTheirOwn) {
  TypeIn(Limit(), u"12");
  Press(u'5', 2, 2);
  Press(u'6', 3, 3);
  EXPECT_TRUE(person.made().goesOn);
  EXPECT_EQ(person.Undo(), End::kDone);
  EXPECT_EQ(Limit().Text(), u"12");
  EXPECT_EQ(person.Undo(), End::kDone);
  EXPECT_EQ(Limit().Text(), u"");
}

TEST_F(PersonTest, AWriteOfTheHostForgetsTheHistoryAndAReadDoesNot) {
  TypeIn(host().Form().TxtOutput, u"a");
  person.Call([&] { return host().prpStroutput(); }, false);
  EXPECT_TRUE(person.CanUndo());
  person.TakeChanges();
  person.Call([&] { host().prpTab(2); });
  EXPECT_FALSE(person.CanUndo());
  EXPECT_TRUE(person.TakeChanges().historyChanged);
}

TEST_F(PersonTest, AWriteWithinAGestureIsPartOfItsStep) {
  Answer("eventDone", [this] { person.Call([&] { host().prpSelectWherePart(u"a = 1"); }); });
  EXPECT_EQ(Choose(host().Form().cmdDone), End::kDone);
  EXPECT_EQ(Text("txtwhereCondition"), "a = 1");
  EXPECT_TRUE(person.CanUndo());
  EXPECT_EQ(person.Undo(), End::kDone);
  EXPECT_EQ(Text("txtwhereCondition"), "");
}

TEST_F(PersonTest, AnAnswerThatComesLaterIsAStep) {
  ASSERT_TRUE(person.BeginStep());
  EXPECT_EQ(Choose(host().Form().cmdCancel), End::kNotTaken);
  person.Call([&] { host().prpSelectWherePart(u"a = 1"); });
  person.EndStep();
  EXPECT_TRUE(person.CanUndo());
  EXPECT_EQ(person.Undo(), End::kDone);
  EXPECT_EQ(Text("txtwhereCondition"), "");
}

TEST_F(PersonTest, SwitchedOffTheHistoryKeepsNothing) {
  TypeIn(host().Form().TxtOutput, u"a");
  person.SwitchHistory(false);
  EXPECT_TRUE(person.TakeChanges().historyChanged);
  EXPECT_FALSE(person.CanUndo());
  TypeIn(host().Form().TxtOutput, u"ab");
  EXPECT_EQ(person.Undo(), End::kNotTaken);
}

// What has to be shown.

TEST_F(PersonTest, WhatCameAndWentIsTold) {
  Tab(6);
  Click("optCase");
  person.TakeChanges();
  EXPECT_EQ(Choose(host().Form().cmdNext), End::kDone);
  const Control& row = On("TxtExpr(1)");
  EXPECT_EQ(ChangeOf(row), Change::kEverything);
  EXPECT_EQ(person.Undo(), End::kDone);
  const Changes changes = person.TakeChanges();
  EXPECT_TRUE(changes.focusMoved);
  EXPECT_EQ(std::count(changes.gone.begin(), changes.gone.end(), &row), 1);
  EXPECT_EQ(changes.changed.count(&row), 0U);
}

TEST_F(PersonTest, AGestureThatChangesNothingIsNoStep) {
  person.Make({Gesture::kFocus, &Limit()});
  EXPECT_EQ(Choose(host().Form().cmdCancel), End::kDone);
  EXPECT_FALSE(person.CanUndo());
}

}  // namespace
}  // namespace zolt20::tests
