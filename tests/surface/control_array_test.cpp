#include "tests/surface/bare_form.h"

namespace zolt20::tests {
namespace {

using ControlArrayTest = BareFormTest;

TEST_F(ControlArrayTest, ALoadedElementIsLikeElementZeroButHiddenAndEmpty) {
  form.txtStmt(0).Text(u"x");
  form.txtStmt(0).Top(-570);
  form.txtStmt(0).Left(7);
  Events();
  form.txtStmt.Load(1);
  const TextBox& element = form.txtStmt(1);
  EXPECT_EQ((Geometry{element.Left(), element.Top(), element.Width(), element.Height()}),
            (Geometry{7, -570, 3975, 680}));
  EXPECT_FALSE(element.Visible());
  EXPECT_TRUE(element.Enabled());
  EXPECT_EQ(element.Text(), u"");
  EXPECT_EQ(element.design().style & kMultiLine, unsigned{kMultiLine});
  EXPECT_EQ(element.frame(), &form.fracase);
  EXPECT_EQ(element.design().page, 6);
}

TEST_F(ControlArrayTest, ALoadedElementHasItsNameAndIndex) {
  form.TxtExpr.Load(12);
  EXPECT_EQ(form.TxtExpr(12).name(), "TxtExpr(12)");
  EXPECT_EQ(form.TxtExpr(12).Index(), 12);
  EXPECT_EQ(form.Find("TxtExpr(12)"), &form.TxtExpr(12));
  EXPECT_EQ(form.Controls().back(), &form.TxtExpr(12));
  EXPECT_EQ(form.Find("txtStmt(12)"), nullptr);
}

TEST_F(ControlArrayTest, TheUpperBoundIsTheHighestLoadedIndex) {
  form.TxtExpr.Load(5);
  form.TxtExpr.Load(2);
  EXPECT_EQ(form.TxtExpr.UpperBound(), 5);
  form.TxtExpr.Unload(5);
  EXPECT_EQ(form.TxtExpr.UpperBound(), 2);
}

TEST_F(ControlArrayTest, LoadingWhatIsLoadedIsAnError) {
  EXPECT_EQ(ErrorOf([this] { form.TxtExpr.Load(0); }), "360 loaded");
  form.TxtExpr.Load(1);
  EXPECT_EQ(ErrorOf([this] { form.TxtExpr.Load(1); }), "360 loaded");
  EXPECT_EQ(form.TxtExpr.UpperBound(), 1);
}

TEST_F(ControlArrayTest, AnElementThatIsNotLoadedIsAnError) {
  EXPECT_EQ(ErrorOf([this] { (void)form.TxtExpr(1); }), "340 element");
  EXPECT_EQ(ErrorOf([this] { (void)form.TxtExpr(-1); }), "340 element");
  EXPECT_EQ(ErrorOf([this] { form.TxtExpr.Unload(1); }), "340 element");
}

TEST_F(ControlArrayTest, ElementsThatExistByDesignCannotBeUnloaded) {
  EXPECT_EQ(ErrorOf([this] { form.TxtExpr.Unload(0); }), "362 unload");
  EXPECT_EQ(ErrorOf([this] { form.txtStmt.Unload(0); }), "362 unload");
  for (int index = 0; index <= 4; ++index) {
    EXPECT_EQ(ErrorOf([&] { form.cmdFunction.Unload(index); }), "362 unload");
    EXPECT_EQ(ErrorOf([&] { form.cmdSubQuery.Unload(index); }), "362 unload");
  }
  for (int index = 0; index <= 3; ++index) {
    EXPECT_EQ(ErrorOf([&] { form.cmdCondition.Unload(index); }), "362 unload");
  }
}

TEST_F(ControlArrayTest, AnUnloadedElementIsGoneAndCanBeLoadedAfresh) {
  form.TxtExpr.Load(1);
  form.TxtExpr(1).Text(u"x");
  form.TxtExpr.Unload(1);
  EXPECT_EQ(form.Find("TxtExpr(1)"), nullptr);
  EXPECT_EQ(ErrorOf([this] { (void)form.TxtExpr(1); }), "340 element");
  form.TxtExpr.Load(1);
  EXPECT_EQ(form.TxtExpr(1).Text(), u"");
  EXPECT_EQ(Events(), Texts{"Change TxtExpr(1)"});
}

TEST_F(ControlArrayTest, LoadingAndUnloadingFireNothing) {
  form.TxtExpr.Load(1);
  form.TxtExpr.Unload(1);
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(ControlArrayTest, UnloadingTheElementWithTheFocusLosesIt) {
  form.tabVrn.Tab(6);
  form.TxtExpr.Load(1);
  form.TxtExpr(1).Visible(true);
  form.fraOnCase.Visible(true);
  form.TxtExpr(1).SetFocus();
  form.TxtExpr.Unload(1);
  EXPECT_EQ(form.Focused(), nullptr);
  EXPECT_EQ(Events(), (Texts{"Click tabVrn 0", "GotFocus TxtExpr(1)"}));
}

TEST_F(ControlArrayTest, ALoadedElementIsHiddenWithItsFrame) {
  form.tabVrn.Tab(6);
  Events();
  form.TxtExpr.Load(1);
  form.TxtExpr(1).Visible(true);
  EXPECT_FALSE(form.TxtExpr(1).Shown());
  form.fraOnCase.Visible(true);
  EXPECT_TRUE(form.TxtExpr(1).Shown());
}

TEST_F(ControlArrayTest, EventsOfAnElementNameIt) {
  form.txtStmt.Load(3);
  form.txtStmt(3).Text(u"x");
  EXPECT_EQ(Events(), Texts{"Change txtStmt(3)"});
}

TEST_F(ControlArrayTest, WhoMayOnlyReadGetsTheSameElements) {
  const BareForm& read = form;
  EXPECT_EQ(&read.TxtExpr(0), &form.TxtExpr(0));
  EXPECT_EQ(&read.cmdSubQuery(4), &form.cmdSubQuery(4));
  EXPECT_EQ(ErrorOf([&] { (void)read.TxtExpr(1); }), "340 element");
}

}  // namespace
}  // namespace zolt20::tests
