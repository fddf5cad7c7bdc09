// Which row of a list a key goes to, and what it does there.
#include "faces/shared/list_keys.h"

#include <gtest/gtest.h>

namespace zolt20::tests {
namespace {

using faces::ListKey;
using faces::ListPlace;
using faces::ListStep;
using faces::StepOf;

/// A list of ten rows, three of which are seen at once.
ListPlace At(int current) {
  return {current, 10, 3, false};
}

/// The row that a key moves to from another; -1 when it does not move.
int Goes(ListKey key, int from) {
  const ListStep step = StepOf(key, At(from));
  EXPECT_EQ(step.gesture, std::nullopt);
  return step.moves ? step.row : -1;
}

TEST(ListKeysTest, ArrowsGoByOneRowAndPageKeysByThoseInSight) {
  EXPECT_EQ(Goes(ListKey::kUp, 5), 4);
  EXPECT_EQ(Goes(ListKey::kDown, 5), 6);
  EXPECT_EQ(Goes(ListKey::kPageUp, 5), 2);
  EXPECT_EQ(Goes(ListKey::kPageDown, 5), 8);
}

TEST(ListKeysTest, NoKeyGoesBeyondTheEnds) {
  EXPECT_EQ(Goes(ListKey::kUp, 0), 0);
  EXPECT_EQ(Goes(ListKey::kPageUp, 1), 0);
  EXPECT_EQ(Goes(ListKey::kHome, 5), 0);
  EXPECT_EQ(Goes(ListKey::kDown, 9), 9);
  EXPECT_EQ(Goes(ListKey::kPageDown, 8), 9);
  EXPECT_EQ(Goes(ListKey::kEnd, 5), 9);
}

TEST(ListKeysTest, FromNoRowTheyBeginAtTheFirst) {
  EXPECT_EQ(Goes(ListKey::kUp, -1), 0);
  EXPECT_EQ(Goes(ListKey::kDown, -1), 0);
  EXPECT_EQ(Goes(ListKey::kPageUp, -1), 0);
  EXPECT_EQ(Goes(ListKey::kPageDown, -1), 2);
  EXPECT_EQ(Goes(ListKey::kHome, -1), 0);
  EXPECT_EQ(Goes(ListKey::kEnd, -1), 9);
}

TEST(ListKeysTest, InASingleSelectionTheRowIsMarkedAtAnEndToo) {
  for (const int row : {0, 5}) {
    ListPlace list = At(row);
    list.isSingle = true;
    const ListStep step = StepOf(ListKey::kUp, list);
    EXPECT_EQ(step.row, row == 0 ? 0 : 4);
    EXPECT_TRUE(step.moves);
    EXPECT_EQ(step.gesture, Gesture::kClickRow);
  }
}

TEST(ListKeysTest, SpaceClicksTheRowAndEnterDoubleClicksIt) {
  const ListStep space = StepOf(ListKey::kSpace, At(5));
  EXPECT_EQ(space.row, 5);
  EXPECT_FALSE(space.moves);
  EXPECT_EQ(space.gesture, Gesture::kClickRow);
  const ListStep enter = StepOf(ListKey::kEnter, At(5));
  EXPECT_EQ(enter.row, 5);
  EXPECT_FALSE(enter.moves);
  EXPECT_EQ(enter.gesture, Gesture::kDoubleClickRow);
  EXPECT_EQ(StepOf(ListKey::kSpace, At(-1)).row, -1);
  EXPECT_EQ(StepOf(ListKey::kEnter, At(-1)).row, -1);
}

TEST(ListKeysTest, AListWithoutRowsTakesNoStep) {
  for (const ListKey key : {ListKey::kUp, ListKey::kEnd, ListKey::kSpace}) {
    const ListStep step = StepOf(key, {});
    EXPECT_EQ(step.row, -1);
    EXPECT_FALSE(step.moves);
  }
}

TEST(RowPressesTest, TwoPressesOnARowAreItsDoubleClick) {
  faces::RowPresses presses;
  EXPECT_EQ(presses.GestureOf(3, false), Gesture::kClickRow);
  EXPECT_EQ(presses.GestureOf(3, true), Gesture::kDoubleClickRow);
  EXPECT_EQ(presses.GestureOf(3, true), Gesture::kClickRow);
  EXPECT_EQ(presses.GestureOf(3, true), Gesture::kDoubleClickRow);
  EXPECT_EQ(presses.GestureOf(3, false), Gesture::kClickRow);
  EXPECT_EQ(presses.GestureOf(3, false), Gesture::kClickRow);
}

TEST(RowPressesTest, APressOnAnotherRowIsAClick) {
  faces::RowPresses presses;
  EXPECT_EQ(presses.GestureOf(3, true), Gesture::kClickRow);
  EXPECT_EQ(presses.GestureOf(4, true), Gesture::kClickRow);
  EXPECT_EQ(presses.GestureOf(4, true), Gesture::kDoubleClickRow);
}

}  // namespace
}  // namespace zolt20::tests
