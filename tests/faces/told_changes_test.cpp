// What a person who does not see is told of their gesture: what it made of other controls.
#include "faces/shared/person.h"
#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

using faces::Person;

class ToldChangesTest : public ControlTest {
 protected:
  ToldChangesTest() {
    Catalogue("CUSTOMER1,ORDERITM0", List({Field("NCUSTOMER.C_ID"), Field("NORDERITM.O_ID")}));
    person.TakeChanges();
  }
  // What the control tells its host is other tests' business.
  void TearDown() override {
    Log();
    ControlTest::TearDown();
  }
  const Surface& Form() { return host().Form(); }
  std::string Told(UserGesture gesture) {
    person.Make(std::move(gesture));
    return Narrow(person.TakeWords());
  }
  std::string ClickRow(const Control& list, int row) {
    return Told({Gesture::kClickRow, &list, row});
  }
  std::string Press(const Control& button) { return Told({Gesture::kClick, &button}); }

  Person person{host()};
};

TEST_F(ToldChangesTest, AMarkedTableTellsHowManyFieldsThereAreNow) {
  EXPECT_EQ(ClickRow(Form().lsttables, 0), "Fields 2 rows, Group By 1 row");
  EXPECT_EQ(ClickRow(Form().lsttables, 0), "Fields empty, Group By empty");
}

TEST_F(ToldChangesTest, AButtonTellsWhatItAdded) {
  ClickRow(Form().lsttables, 0);
  ClickRow(Form().lstFields, 1);
  EXPECT_EQ(Press(Form().cmdMoveOne), "Fields 0 marked, Selected fields 1 row");
  EXPECT_EQ(Press(Form().cmdAddSelect), "Result 3 lines");
}

TEST_F(ToldChangesTest, WhatIsTypedAndWhatIsOnOtherPagesIsNotTold) {
  EXPECT_EQ(Told({Gesture::kType, &Form().TxtOutput, UserGesture::kNone, u"select"}), "");
  person.Make({Gesture::kFocus, &Form().tabVrn});
  EXPECT_EQ(Told({Gesture::kTab, &Form().tabVrn, 1}), "");
}

TEST_F(ToldChangesTest, APageThatComesFromElsewhereIsTold) {
  EXPECT_EQ(Told({Gesture::kTab, &Form().tabVrn, 3}), "Pages SelectEOS");
}

TEST_F(ToldChangesTest, WordsAreTakenOnce) {
  ClickRow(Form().lsttables, 0);
  EXPECT_EQ(Narrow(person.TakeWords()), "");
}

TEST_F(ToldChangesTest, AMarkThatTheSpaceBarDidNotTakeIsTold) {
  ClickRow(Form().lstFunctions, 1);
  EXPECT_EQ(Told({Gesture::kDoubleClickRow, &Form().lstFunctions, 1}), "unselected");
  EXPECT_EQ(ClickRow(Form().lstFunctions, 1), "selected");
  EXPECT_EQ(ClickRow(Form().lstFunctions, 2), "");
}

TEST_F(ToldChangesTest, UndoAndRedoAreTold) {
  person.SwitchHistory(true);
  ClickRow(Form().lsttables, 0);
  person.Undo();
  EXPECT_EQ(Narrow(person.TakeWords()), "Undone");
  person.Redo();
  EXPECT_EQ(Narrow(person.TakeWords()), "Redone");
}

}  // namespace
}  // namespace zolt20::tests
