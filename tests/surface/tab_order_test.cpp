#include <cstdint>
#include <random>

#include "tests/surface/bare_form.h"

namespace zolt20::tests {
namespace {

class TabOrderTest : public BareFormTest {
 protected:
  Texts Places(std::size_t first, std::size_t last) const {
    const auto order = form.TabOrder();
    Texts names;
    for (std::size_t place = first; place <= last; ++place)
      names.emplace_back(order.at(place)->name());
    return names;
  }
  int LastPlace() const { return static_cast<int>(form.TabOrder().size()) - 1; }
};

// The first order begins tabVrn, lblResult, TxtOutput, cmdClear, cmdCancel, cmdDone.

TEST_F(TabOrderTest, MovingAControlUpMovesThoseBetweenDown) {
  form.cmdDone.TabIndex(1);
  EXPECT_EQ(Places(0, 6), (Texts{"tabVrn", "cmdDone", "lblResult", "TxtOutput", "cmdClear",
                                 "cmdCancel", "lsttables"}));
}

TEST_F(TabOrderTest, MovingAControlDownMovesThoseBetweenUp) {
  form.lblResult.TabIndex(4);
  EXPECT_EQ(Places(0, 5),
            (Texts{"tabVrn", "TxtOutput", "cmdClear", "cmdCancel", "lblResult", "cmdDone"}));
}

TEST_F(TabOrderTest, TheSamePlaceChangesNothing) {
  form.cmdClear.TabIndex(3);
  EXPECT_EQ(Places(2, 4), (Texts{"TxtOutput", "cmdClear", "cmdCancel"}));
}

TEST_F(TabOrderTest, APlaceBeyondTheLastIsTheLast) {
  form.tabVrn.TabIndex(32767);
  EXPECT_EQ(form.tabVrn.TabIndex(), LastPlace());
  EXPECT_EQ(form.lblResult.TabIndex(), 0);
}

TEST_F(TabOrderTest, ANegativePlaceIsAValueErrorAndChangesNothing) {
  EXPECT_EQ(ErrorOf([this] { form.cmdDone.TabIndex(-1); }), "380 value");
  EXPECT_EQ(form.cmdDone.TabIndex(), 5);
}

TEST_F(TabOrderTest, LabelsAndFramesStandInItTheRectangleDoesNot) {
  EXPECT_EQ(form.lblResult.TabIndex(), 1);
  EXPECT_GE(form.fraSelect.TabIndex(), 0);
  for (const Control* control : form.TabOrder())
    EXPECT_NE(control->name(), "Shape1");
  EXPECT_EQ(form.Find("Shape1")->TabIndex(), -1);
  EXPECT_EQ(LastPlace() + 1, static_cast<int>(form.Controls().size()) - 1);
}

TEST_F(TabOrderTest, HiddenAndDisabledControlsKeepTheirPlaces) {
  form.lblResult.Visible(false);
  form.TxtOutput.Enabled(false);
  EXPECT_EQ(Places(0, 3), (Texts{"tabVrn", "lblResult", "TxtOutput", "cmdClear"}));
}

TEST_F(TabOrderTest, ASumIsTakenBeforeTheMoveSoAControlFromFurtherUpMissesThePlaceBehindTheOther) {
  // cmdClear stands before cmdDone: place 6 is the one behind cmdDone only until cmdClear has left
  // its own.
  form.cmdClear.TabIndex(form.cmdDone.TabIndex() + 1);
  EXPECT_EQ(form.cmdClear.TabIndex(), 6);
  EXPECT_EQ(Places(3, 6), (Texts{"cmdCancel", "cmdDone", "lsttables", "cmdClear"}));
}

TEST_F(TabOrderTest, AControlFromFurtherDownEndsRightBehindTheOther) {
  form.cmdDone.TabIndex(form.lblResult.TabIndex() + 1);
  EXPECT_EQ(Places(1, 3), (Texts{"lblResult", "cmdDone", "TxtOutput"}));
}

TEST_F(TabOrderTest, ALoadedElementJoinsAtTheEnd) {
  const int last = LastPlace();
  form.TxtExpr.Load(1);
  form.txtStmt.Load(1);
  EXPECT_EQ(form.TxtExpr(1).TabIndex(), last + 1);
  EXPECT_EQ(form.txtStmt(1).TabIndex(), last + 2);
}

TEST_F(TabOrderTest, UnloadingClosesTheGap) {
  const int last = LastPlace();
  form.TxtExpr.Load(1);
  form.TxtExpr(1).TabIndex(2);
  EXPECT_EQ(Places(1, 3), (Texts{"lblResult", "TxtExpr(1)", "TxtOutput"}));
  form.TxtExpr.Unload(1);
  EXPECT_EQ(Places(1, 3), (Texts{"lblResult", "TxtOutput", "cmdClear"}));
  EXPECT_EQ(LastPlace(), last);
}

TEST_F(TabOrderTest, WritingItFiresNothingAndLeavesTheFocus) {
  form.cmdDone.SetFocus();
  Events();
  form.cmdDone.TabIndex(0);
  EXPECT_EQ(Focused(), "cmdDone");
}

TEST_F(TabOrderTest, PlacesAreRightAfterAnyNumberOfMoves) {
  std::mt19937 random(1);
  const auto below = [&random](std::size_t count) { return random() % count; };
  for (int step = 0; step < 3000; ++step) {
    const auto order = form.TabOrder();
    // Often to the head, as the handlers of pages do.
    const int to = below(2) == 0 ? 0 : static_cast<int>(below(order.size() + 5));
    const_cast<Control*>(order[below(order.size())])->TabIndex(to);
    if (step % 100 == 30) form.TxtExpr.Load(1);
    if (step % 100 == 80) form.TxtExpr.Unload(1);
    if (below(40) != 0) continue;
    const auto now = form.TabOrder();
    const std::size_t first = below(now.size());
    for (std::size_t place = first; place < now.size(); ++place)
      ASSERT_EQ(now[place]->TabIndex(), static_cast<std::int64_t>(place)) << step;
  }
}

}  // namespace
}  // namespace zolt20::tests
