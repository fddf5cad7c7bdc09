#include "tests/surface/bare_form.h"

namespace zolt20::tests {
namespace {

using OptionButtonTest = BareFormTest;

TEST_F(OptionButtonTest, TrueOverFalseClicks) {
  form.optFor.Value(true);
  EXPECT_TRUE(form.optFor.Value());
  EXPECT_EQ(Events(), Texts{"Click optFor"});
}

TEST_F(OptionButtonTest, TheOtherOptionsAreFalseBeforeTheClickAndFireNothing) {
  form.optFor.Value(true);
  bool otherInside = true;
  When("Click optCase", [&] { otherInside = form.optFor.Value(); });
  form.optCase.Value(true);
  EXPECT_FALSE(otherInside);
  EXPECT_EQ(Events(), (Texts{"Click optFor", "Click optCase"}));
}

TEST_F(OptionButtonTest, TrueOverTrueFiresNothing) {
  form.optFor.Value(true);
  Events();
  form.optFor.Value(true);
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(OptionButtonTest, FalseFiresNothing) {
  form.optFor.Value(false);
  form.optFor.Value(true);
  Events();
  form.optFor.Value(false);
  EXPECT_FALSE(form.optFor.Value());
  EXPECT_EQ(Events(), Texts{});
}

using CaptionTest = BareFormTest;

TEST_F(CaptionTest, ButtonsLabelsAndFramesHaveOne) {
  form.cmdCancelWhere.Caption(u"Clear");
  form.lblResult.Caption(u"");
  form.FraCondition.Caption(u"NOT EXISTS");
  EXPECT_EQ(form.cmdCancelWhere.Caption(), u"Clear");
  EXPECT_EQ(form.lblResult.Caption(), u"");
  EXPECT_EQ(form.FraCondition.Caption(), u"NOT EXISTS");
}

TEST_F(CaptionTest, AFrameGivenNoneStartsEmpty) {
  EXPECT_EQ(form.FraCondition.Caption(), u"");
  EXPECT_EQ(form.FrawhereCondition.Caption(), u"");
  EXPECT_EQ(form.Frainitial.Caption(), u"");
}

TEST_F(CaptionTest, TheFramesHoldTheirBoxes) {
  EXPECT_EQ(form.txtwhereCondition.frame(), &form.FrawhereCondition);
  EXPECT_EQ(form.txtCondition.frame(), &form.FraCondition);
  form.tabVrn.Tab(1);
  Events();
  form.FraCondition.Visible(false);
  EXPECT_FALSE(form.txtCondition.Shown());
  EXPECT_TRUE(form.txtwhereCondition.Shown());
}

class ScrollBarTest : public BareFormTest {
 protected:
  ScrollBar& bar = form.VscrCase;
};

TEST_F(ScrollBarTest, AValueThatDiffersFiresChangeAtOnce) {
  bar.Max(3);
  int valueInside = -1;
  When("Change VscrCase", [&] { valueInside = bar.Value(); });
  bar.Value(2);
  EXPECT_EQ(valueInside, 2);
  EXPECT_EQ(Events(), Texts{"Change VscrCase"});
}

TEST_F(ScrollBarTest, AValueThatDoesNotDifferFiresNothing) {
  bar.Value(0);
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(ScrollBarTest, AValueOutsideZeroToMaxIsAValueError) {
  bar.Max(3);
  bar.Value(3);
  EXPECT_EQ(ErrorOf([this] { bar.Value(4); }), "380 value");
  EXPECT_EQ(ErrorOf([this] { bar.Value(-1); }), "380 value");
  EXPECT_EQ(bar.Value(), 3);
  EXPECT_EQ(Events(), Texts{"Change VscrCase"});
}

TEST_F(ScrollBarTest, AMaxBelowValueIsSetFirstAndThenLowersValue) {
  bar.Max(5);
  bar.Value(5);
  int maxInside = -1;
  int valueInside = -1;
  When("Change VscrCase", [&] {
    maxInside = bar.Max();
    valueInside = bar.Value();
  });
  bar.Max(2);
  EXPECT_EQ(maxInside, 2);
  EXPECT_EQ(valueInside, 2);
  EXPECT_EQ(Events(), (Texts{"Change VscrCase", "Change VscrCase"}));
}

TEST_F(ScrollBarTest, AMaxNotBelowValueFiresNothing) {
  bar.Max(5);
  bar.Value(2);
  Events();
  bar.Max(2);
  bar.Max(9);
  EXPECT_EQ(bar.Value(), 2);
  EXPECT_EQ(Events(), Texts{});
}

using TabStripTest = BareFormTest;

TEST_F(TabStripTest, APageThatDiffersIsActiveBeforeTheClickWithThePageLeft) {
  Integer pageInside = -1;
  bool shownInside = false;
  When("Click tabVrn 0", [&] {
    pageInside = form.tabVrn.Tab();
    shownInside = form.txtSelectEOS.Shown();
  });
  form.tabVrn.Tab(3);
  EXPECT_EQ(pageInside, 3);
  EXPECT_TRUE(shownInside);
  form.tabVrn.Tab(5);
  EXPECT_EQ(Events(), (Texts{"Click tabVrn 0", "Click tabVrn 3"}));
}

TEST_F(TabStripTest, ThePageThatIsActiveFiresNothing) {
  form.tabVrn.Tab(0);
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(TabStripTest, APageOutsideIsAValueErrorThatChangesNothing) {
  form.tabVrn.Tab(6);
  EXPECT_EQ(ErrorOf([this] { form.tabVrn.Tab(7); }), "380 value");
  EXPECT_EQ(ErrorOf([this] { form.tabVrn.Tab(-1); }), "380 value");
  EXPECT_EQ(form.tabVrn.Tab(), 6);
  EXPECT_EQ(Events(), Texts{"Click tabVrn 0"});
}

}  // namespace
}  // namespace zolt20::tests
