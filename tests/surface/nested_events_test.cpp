#include "tests/surface/bare_form.h"

namespace zolt20::tests {
namespace {

// An event runs at once, inside the write that fires it, before the next step of whoever wrote.
class NestedEventsTest : public BareFormTest {
 protected:
  void Step(const std::string& step) { form.events.push_back(step); }
};

TEST_F(NestedEventsTest, AHandlerRunsBeforeTheNextStepOfTheWriter) {
  When("Click lsttables", [this] { Step("inside"); });
  form.lsttables.ListIndex(-1);
  Step("behind");
  EXPECT_EQ(Events(), (Texts{"Click lsttables", "inside", "behind"}));
}

TEST_F(NestedEventsTest, WritesInAHandlerNest) {
  When("Change txtAsSet", [this] {
    form.txtCond.Text(u"inner");
    Step("outer ends");
  });
  When("Change txtCond", [this] { Step("inner"); });
  form.txtAsSet.Text(u"1");
  EXPECT_EQ(Events(), (Texts{"Change txtAsSet", "Change txtCond", "inner", "outer ends"}));
}

TEST_F(NestedEventsTest, AHandlerMayWriteTheTextThatFiredIt) {
  When("Change txtAsSet", [this] { form.txtAsSet.Text(u"2"); });
  form.txtAsSet.Text(u"1");
  EXPECT_EQ(form.txtAsSet.Text(), u"2");
  EXPECT_EQ(Events(), (Texts{"Change txtAsSet", "Change txtAsSet"}));
}

TEST_F(NestedEventsTest, ACheckBoxTakenBackInsideItsItemCheckRunsItAgain) {
  Fill(form.lstorderbyasc, {"a"});
  When("ItemCheck lstorderbyasc 0", [this] { form.lstorderbyasc.Selected(0, false); });
  EXPECT_EQ(form.UserClick(form.lstorderbyasc, 0), Outcome::kNotShown);
  form.lstorderbyasc.Selected(0, true);
  EXPECT_EQ(form.lstorderbyasc.SelCount(), 0);
  EXPECT_EQ(Events(), (Texts{"ItemCheck lstorderbyasc 0", "ItemCheck lstorderbyasc 0"}));
}

TEST_F(NestedEventsTest, AComboPickMayBeUndoneInsideItsClick) {
  Fill(form.cboOper, {"="});
  When("Click cboOper", [this] { form.cboOper.ListIndex(-1); });
  form.cboOper.ListIndex(0);
  EXPECT_EQ(form.cboOper.Text(), u"");
  EXPECT_EQ(Events(), (Texts{"Click cboOper", "Click cboOper"}));
}

TEST_F(NestedEventsTest, TheListMayBeRebuiltInsideItsClick) {
  Fill(form.lsttables, {"a", "b"});
  When("Click lsttables", [this] { form.lsttables.Clear(); });
  EXPECT_EQ(form.UserClick(form.lsttables, 1), Outcome::kDone);
  EXPECT_EQ(form.lsttables.ListCount(), 0);
  EXPECT_EQ(form.lsttables.ListIndex(), -1);
  EXPECT_EQ(Events(), (Texts{"GotFocus lsttables", "Click lsttables"}));
}

TEST_F(NestedEventsTest, GotFocusMayPassTheFocusOn) {
  When("GotFocus lsttables", [this] { form.cmdDone.SetFocus(); });
  form.lsttables.SetFocus();
  EXPECT_EQ(Focused(), "cmdDone");
  EXPECT_EQ(Events(), (Texts{"GotFocus lsttables", "GotFocus cmdDone"}));
}

TEST_F(NestedEventsTest, APageChangeInsideAPageChangeEndsOnTheInnerPage) {
  When("Click tabVrn 0", [this] {
    form.tabVrn.Tab(3);
    Step("outer ends");
  });
  form.tabVrn.Tab(2);
  EXPECT_EQ(form.tabVrn.Tab(), 3);
  EXPECT_EQ(Events(), (Texts{"Click tabVrn 0", "Click tabVrn 2", "outer ends"}));
}

TEST_F(NestedEventsTest, AScrollInsideAMaxWriteSeesBothNewValues) {
  form.VscrCase.Max(4);
  form.VscrCase.Value(4);
  Events();
  When("Change VscrCase", [this] {
    Step(std::to_string(form.VscrCase.Value()) + " of " + std::to_string(form.VscrCase.Max()));
  });
  form.VscrCase.Max(1);
  EXPECT_EQ(Events(), (Texts{"Change VscrCase", "1 of 1"}));
}

TEST_F(NestedEventsTest, AnOptionChosenInsideAClickEndsAsTheOnlyTrueOne) {
  When("Click optFor", [this] { form.optCase.Value(true); });
  form.optFor.Value(true);
  EXPECT_FALSE(form.optFor.Value());
  EXPECT_TRUE(form.optCase.Value());
  EXPECT_EQ(Events(), (Texts{"Click optFor", "Click optCase"}));
}

TEST_F(NestedEventsTest, AnElementMayBeLoadedAndGetTheFocusInsideAClick) {
  form.tabVrn.Tab(6);
  form.fraOnCase.Visible(true);
  When("Click cmdNext", [this] {
    form.TxtExpr.Load(1);
    form.TxtExpr(1).Visible(true);
    form.TxtExpr(1).SetFocus();
  });
  EXPECT_EQ(form.UserClick(form.cmdNext), Outcome::kDone);
  EXPECT_EQ(Focused(), "TxtExpr(1)");
  EXPECT_EQ(Events(),
            (Texts{"Click tabVrn 0", "GotFocus cmdNext", "Click cmdNext", "GotFocus TxtExpr(1)"}));
}

}  // namespace
}  // namespace zolt20::tests
