#include "tests/surface/bare_form.h"

namespace zolt20::tests {
namespace {

using FocusTest = BareFormTest;

TEST_F(FocusTest, AtTheStartNoControlHasIt) {
  EXPECT_EQ(form.Focused(), nullptr);
}

TEST_F(FocusTest, SetFocusMovesItAndRunsGotFocusAtOnce) {
  std::string focusedInside;
  When("GotFocus cmdAddSelect", [&] { focusedInside = Focused(); });
  form.cmdAddSelect.SetFocus();
  EXPECT_EQ(Events(), Texts{"GotFocus cmdAddSelect"});
  EXPECT_EQ(focusedInside, "cmdAddSelect");
}

TEST_F(FocusTest, SetFocusOnTheControlThatHasItDoesNothing) {
  form.lsttables.SetFocus();
  Events();
  form.lsttables.SetFocus();
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(FocusTest, AtMostOneControlHasIt) {
  form.lsttables.SetFocus();
  form.cmdDone.SetFocus();
  EXPECT_EQ(Focused(), "cmdDone");
  EXPECT_EQ(Events(), (Texts{"GotFocus lsttables", "GotFocus cmdDone"}));
}

TEST_F(FocusTest, AControlThatIsNotEnabledRefusesIt) {
  form.cmdDone.Enabled(false);
  EXPECT_EQ(ErrorOf([this] { form.cmdDone.SetFocus(); }), "5 argument");
  EXPECT_EQ(form.Focused(), nullptr);
}

TEST_F(FocusTest, AControlThatIsNotShownRefusesIt) {
  EXPECT_EQ(ErrorOf([this] { form.txtSelectDo.SetFocus(); }), "5 argument");
  form.cmdDone.Visible(false);
  EXPECT_EQ(ErrorOf([this] { form.cmdDone.SetFocus(); }), "5 argument");
}

TEST_F(FocusTest, AControlWithinAHiddenFrameRefusesIt) {
  form.tabVrn.Tab(6);
  form.fraOnCase.Visible(false);
  EXPECT_EQ(ErrorOf([this] { form.TxtExpr(0).SetFocus(); }), "5 argument");
  form.fraOnCase.Visible(true);
  form.TxtExpr(0).SetFocus();
  EXPECT_EQ(Events(), (Texts{"Click tabVrn 0", "GotFocus TxtExpr(0)"}));
}

TEST_F(FocusTest, LabelsFramesAndTheRectangleNeverTakeIt) {
  form.tabVrn.Tab(1);
  Events();
  EXPECT_EQ(ErrorOf([this] { form.Label13.SetFocus(); }), "5 argument");
  EXPECT_EQ(ErrorOf([this] { form.FraCondition.SetFocus(); }), "5 argument");
  EXPECT_EQ(ErrorOf([this] { form.Shape1.SetFocus(); }), "5 argument");
}

TEST_F(FocusTest, ARefusalLeavesItWhereItWas) {
  form.lsttables.SetFocus();
  Events();
  EXPECT_EQ(ErrorOf([this] { form.lblResult.SetFocus(); }), "5 argument");
  EXPECT_EQ(Focused(), "lsttables");
}

TEST_F(FocusTest, EveryOtherKindTakesIt) {
  const auto takesIt = [this](Control& control) {
    control.SetFocus();
    EXPECT_EQ(form.Focused(), &control) << control.name();
  };
  takesIt(form.tabVrn);
  takesIt(form.TxtOutput);
  takesIt(form.lsttables);
  takesIt(form.cmdDone);
  form.tabVrn.Tab(1);
  takesIt(form.cboOper);
  takesIt(form.txtAsSet);
  form.tabVrn.Tab(6);
  takesIt(form.optCase);
  form.fraOnCase.Visible(true);
  form.VscrCase.Visible(true);
  takesIt(form.VscrCase);
  EXPECT_EQ(Events().size(),
            11U);  // eight times GotFocus, TabChain of the Result, two page changes
}

TEST_F(FocusTest, DisablingTheControlThatHasItLosesItAndFiresNothing) {
  form.lsttables.SetFocus();
  Events();
  form.lsttables.Enabled(false);
  EXPECT_EQ(form.Focused(), nullptr);
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(FocusTest, HidingTheControlThatHasItLosesItAndFiresNothing) {
  form.lsttables.SetFocus();
  Events();
  form.lsttables.Visible(false);
  EXPECT_EQ(form.Focused(), nullptr);
}

TEST_F(FocusTest, HidingAnyFrameAroundItLosesIt) {
  form.tabVrn.Tab(6);
  form.fraOnCase.Visible(true);
  form.TxtExpr(0).SetFocus();
  Events();
  form.fraOnCase.Visible(false);  // the frame around the frame of the row
  EXPECT_EQ(form.Focused(), nullptr);
}

TEST_F(FocusTest, APageChangeLosesItBeforeTheClick) {
  form.lsttables.SetFocus();
  std::string focusedInside;
  When("Click tabVrn 0", [&] { focusedInside = Focused(); });
  form.tabVrn.Tab(1);
  EXPECT_EQ(focusedInside, "nothing");
  EXPECT_EQ(Events(), (Texts{"GotFocus lsttables", "Click tabVrn 0"}));
}

TEST_F(FocusTest, APageChangeLeavesItOnAControlOfEveryPage) {
  form.cmdDone.SetFocus();
  form.tabVrn.Tab(1);
  EXPECT_EQ(Focused(), "cmdDone");
  EXPECT_EQ(Events(), (Texts{"GotFocus cmdDone", "Click tabVrn 0"}));
}

TEST_F(FocusTest, ALostFocusDoesNotComeBackByItself) {
  form.lsttables.SetFocus();
  form.lsttables.Enabled(false);
  form.lsttables.Enabled(true);
  EXPECT_EQ(form.Focused(), nullptr);
  form.lsttables.SetFocus();
  EXPECT_EQ(Events(), (Texts{"GotFocus lsttables", "GotFocus lsttables"}));
}

TEST_F(FocusTest, ADisabledFrameDoesNotKeepItFromWhatItHolds) {
  form.tabVrn.Tab(6);
  form.fraSelect.Enabled(false);
  form.optFor.SetFocus();
  EXPECT_EQ(Events(), (Texts{"Click tabVrn 0", "GotFocus optFor"}));
}

TEST_F(FocusTest, ABoxWithColorsRaisesTabChainWhenItTakesIt) {
  form.TxtOutput.SetFocus();
  EXPECT_EQ(Events(), (Texts{"GotFocus TxtOutput", "TabChain TxtOutput"}));
  form.TxtOutput.SetFocus();
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(FocusTest, InAFormThatIsNotVisibleNoControlIsShownOrTakesIt) {
  BareForm hidden(FormVisible::kNo);
  EXPECT_FALSE(hidden.IsVisible());
  for (const Control* control : hidden.Controls())
    EXPECT_FALSE(control->Shown()) << control->name();
  EXPECT_TRUE(hidden.cmdDone.Visible());
  EXPECT_EQ(ErrorOf([&] { hidden.cmdDone.SetFocus(); }), "5 argument");
}

TEST_F(FocusTest, VisibleReadsTheOwnFlagOnly) {
  form.fraSelect.Visible(false);
  EXPECT_TRUE(form.optFor.Visible());
  EXPECT_FALSE(form.optFor.Shown());
  EXPECT_TRUE(form.cboOper.Visible());  // on another page
  EXPECT_FALSE(form.cboOper.Shown());
}

TEST_F(FocusTest, AHiddenTabStripTakesNoPageWithIt) {
  form.tabVrn.Visible(false);
  EXPECT_TRUE(form.lsttables.Shown());
}

TEST_F(FocusTest, WritingEnabledOrVisibleFiresNothing) {
  for (Control* control :
       {static_cast<Control*>(&form.cmdDone), static_cast<Control*>(&form.Label1),
        static_cast<Control*>(&form.lsttables), static_cast<Control*>(&form.Shape1)}) {
    control->Enabled(false);
    control->Visible(false);
    control->Enabled(true);
    control->Visible(true);
  }
  EXPECT_EQ(Events(), Texts{});
}

}  // namespace
}  // namespace zolt20::tests
