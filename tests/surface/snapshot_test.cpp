#include "tests/surface/bare_form.h"

namespace zolt20::tests {
namespace {

using SurfaceSnapshotTest = BareFormTest;

TEST_F(SurfaceSnapshotTest, TextsCaretsAndColorsComeBack) {
  form.txtCond.Text(u"abc");
  form.txtCond.SelStart(2);
  form.TxtOutput.Text(u"x");
  form.TxtOutput.Highlight(true);
  form.cboWhereFields1.BackColor(0x80000003);
  const SurfaceState kept = form.Save();
  form.txtCond.Text(u"");
  form.TxtOutput.Text(u"y");
  form.TxtOutput.Highlight(false);
  form.cboWhereFields1.BackColor(0xFFFFFF);
  Events();
  form.Restore(kept);
  EXPECT_EQ(form.txtCond.Text(), u"abc");
  EXPECT_EQ(form.txtCond.SelStart(), 2);
  EXPECT_EQ(form.TxtOutput.Text(), u"x");
  EXPECT_TRUE(form.TxtOutput.Highlight());
  EXPECT_EQ(form.cboWhereFields1.BackColor(), 0x80000003U);
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(SurfaceSnapshotTest, RowsMarksAndSelectionsComeBack) {
  Fill(form.lsttables, {"a", "b"});
  Fill(form.cboOper, {"=", "<>"});
  form.lsttables.Selected(1, true);
  form.cboOper.ListIndex(1);
  form.cboWhereFields1.Text(u"42");
  const SurfaceState kept = form.Save();
  form.lsttables.Clear();
  form.cboOper.Clear();
  form.cboWhereFields1.Text(u"");
  Events();
  form.Restore(kept);
  EXPECT_EQ(Rows(form.lsttables), (Texts{"a", "b"}));
  EXPECT_EQ(Marks(form.lsttables), RowNumbers{1});
  EXPECT_EQ(form.lsttables.ListIndex(), 1);
  EXPECT_EQ(form.cboOper.Text(), u"=");
  EXPECT_EQ(form.cboWhereFields1.Text(), u"42");
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(SurfaceSnapshotTest, PageFlagsOptionsAndScrollBarComeBack) {
  form.tabVrn.Tab(6);
  form.fraif.Visible(false);
  form.cmdBuild.Enabled(false);
  form.cmdCancelWhere.Caption(u"Clear");
  form.optFor.Value(true);
  form.VscrCase.Max(4);
  form.VscrCase.Value(3);
  const SurfaceState kept = form.Save();
  form.tabVrn.Tab(0);
  form.fraif.Visible(true);
  form.cmdBuild.Enabled(true);
  form.cmdCancelWhere.Caption(u"Cancel");
  form.optCase.Value(true);
  form.VscrCase.Max(0);
  Events();
  form.Restore(kept);
  EXPECT_EQ(form.tabVrn.Tab(), 6);
  EXPECT_FALSE(form.fraif.Visible());
  EXPECT_FALSE(form.cmdBuild.Enabled());
  EXPECT_EQ(form.cmdCancelWhere.Caption(), u"Clear");
  EXPECT_TRUE(form.optFor.Value());
  EXPECT_FALSE(form.optCase.Value());
  EXPECT_EQ(form.VscrCase.Value(), 3);
  EXPECT_EQ(form.VscrCase.Max(), 4);
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(SurfaceSnapshotTest, FocusAndTabOrderComeBackWithoutGotFocus) {
  form.cmdDone.SetFocus();
  form.cmdDone.TabIndex(1);
  const SurfaceState kept = form.Save();
  form.lsttables.SetFocus();
  form.lsttables.TabIndex(0);
  Events();
  form.Restore(kept);
  EXPECT_EQ(Focused(), "cmdDone");
  EXPECT_EQ(form.cmdDone.TabIndex(), 1);
  EXPECT_EQ(form.tabVrn.TabIndex(), 0);
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(SurfaceSnapshotTest, NoFocusComesBackToo) {
  const SurfaceState kept = form.Save();
  form.cmdDone.SetFocus();
  Events();
  form.Restore(kept);
  EXPECT_EQ(form.Focused(), nullptr);
}

TEST_F(SurfaceSnapshotTest, ElementsThatWereLoadedComeBackWithAllTheyHeld) {
  form.tabVrn.Tab(6);
  form.fraOnCase.Visible(true);
  form.TxtExpr.Load(2);
  form.TxtExpr(2).Visible(true);
  form.TxtExpr(2).Text(u"x");
  form.TxtExpr(2).Top(810);
  form.TxtExpr(2).TabIndex(4);
  form.TxtExpr(2).SetFocus();
  const SurfaceState kept = form.Save();
  form.TxtExpr.Unload(2);
  Events();
  form.Restore(kept);
  EXPECT_TRUE(form.TxtExpr(2).Visible());
  EXPECT_EQ(form.TxtExpr(2).Text(), u"x");
  EXPECT_EQ(form.TxtExpr(2).Top(), 810);
  EXPECT_EQ(form.TxtExpr(2).TabIndex(), 4);
  EXPECT_EQ(Focused(), "TxtExpr(2)");
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(SurfaceSnapshotTest, ElementsLoadedSinceAreGone) {
  const SurfaceState kept = form.Save();
  const std::size_t places = form.TabOrder().size();
  form.TxtExpr.Load(1);
  form.txtStmt.Load(1);
  form.TxtExpr(1).TabIndex(0);
  form.Restore(kept);
  EXPECT_EQ(form.TxtExpr.UpperBound(), 0);
  EXPECT_EQ(form.Find("txtStmt(1)"), nullptr);
  EXPECT_EQ(form.TabOrder().size(), places);
  EXPECT_EQ(form.tabVrn.TabIndex(), 0);
}

TEST_F(SurfaceSnapshotTest, OtherElementsGiveWayToThoseOfTheState) {
  form.TxtExpr.Load(1);
  form.TxtExpr(1).Text(u"one");
  const SurfaceState kept = form.Save();
  form.TxtExpr.Unload(1);
  form.TxtExpr.Load(3);
  Events();
  form.Restore(kept);
  EXPECT_EQ(form.TxtExpr(1).Text(), u"one");
  EXPECT_EQ(ErrorOf([this] { (void)form.TxtExpr(3); }), "340 element");
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(SurfaceSnapshotTest, AnElementThatIsStillLoadedStaysAndTakesItsState) {
  form.TxtExpr.Load(1);
  form.TxtExpr(1).Top(810);
  const SurfaceState kept = form.Save();
  const TextBox* const element = &form.TxtExpr(1);
  form.TxtExpr(1).Top(0);
  form.Restore(kept);
  EXPECT_EQ(&form.TxtExpr(1), element);
  EXPECT_EQ(form.TxtExpr(1).Top(), 810);
}

TEST_F(SurfaceSnapshotTest, AnElementOfAnotherArrayGivesWayToThatOfTheState) {
  form.TxtExpr.Load(1);
  const SurfaceState kept = form.Save();
  form.TxtExpr.Unload(1);
  form.txtStmt.Load(1);
  form.Restore(kept);
  EXPECT_EQ(form.TxtExpr.UpperBound(), 1);
  EXPECT_EQ(form.txtStmt.UpperBound(), 0);
  EXPECT_EQ(form.TabOrder().back(), &form.TxtExpr(1));
}

TEST_F(SurfaceSnapshotTest, LoadedButtonsComeBackAndGo) {
  const SurfaceState without = form.Save();
  for (ControlArray<Button>* buttons : {&form.cmdFunction, &form.cmdCondition, &form.cmdSubQuery}) {
    buttons->Load(7);
    (*buttons)(7).Caption(u"x");
  }
  const SurfaceState with = form.Save();
  form.Restore(without);
  EXPECT_EQ(form.Find("cmdFunction(7)"), nullptr);
  EXPECT_EQ(form.Find("cmdCondition(7)"), nullptr);
  EXPECT_EQ(form.Find("cmdSubQuery(7)"), nullptr);
  form.Restore(with);
  for (ControlArray<Button>* buttons : {&form.cmdFunction, &form.cmdCondition, &form.cmdSubQuery})
    EXPECT_EQ((*buttons)(7).Caption(), u"x");
}

TEST_F(SurfaceSnapshotTest, AStateIsAValueThatCanBePutBackManyTimes) {
  form.txtAsSet.Text(u"1");
  const SurfaceState one = form.Save();
  form.txtAsSet.Text(u"2");
  const SurfaceState two = form.Save();
  Events();
  for (int i = 0; i < 2; ++i) {
    form.Restore(one);
    EXPECT_EQ(form.txtAsSet.Text(), u"1");
    form.Restore(two);
    EXPECT_EQ(form.txtAsSet.Text(), u"2");
  }
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(SurfaceSnapshotTest, AStateFitsAnotherSurfaceOfTheForm) {
  form.tabVrn.Tab(6);
  form.TxtExpr.Load(1);
  form.TxtExpr(1).Text(u"x");
  Events();
  BareForm other;
  other.Restore(form.Save());
  EXPECT_EQ(other.tabVrn.Tab(), 6);
  EXPECT_EQ(other.TxtExpr(1).Text(), u"x");
  EXPECT_EQ(other.events, Texts{});
  EXPECT_EQ(BrokenRule(other), "");
}

TEST_F(SurfaceSnapshotTest, TheSurfaceWorksOnFromTheStateThatWasPutBack) {
  Fill(form.lstFields, {"a", "b"});
  form.lstFields.ListIndex(0);
  const SurfaceState kept = form.Save();
  form.lstFields.ListIndex(1);
  form.Restore(kept);
  Events();
  form.lstFields.ListIndex(1);
  EXPECT_EQ(Marks(form.lstFields), RowNumbers{1});
  EXPECT_EQ(Events(), Texts{"Click lstFields"});
}

}  // namespace
}  // namespace zolt20::tests
