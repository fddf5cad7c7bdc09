#include <set>
#include <vector>

#include "tests/surface/bare_form.h"

namespace zolt20::tests {
namespace {

using TextBoxTest = BareFormTest;

TEST_F(TextBoxTest, AWriteThatDiffersSetsTheTextAndFiresChangeAtOnce) {
  String textInside;
  When("Change txtAsSet", [&] { textInside = form.txtAsSet.Text(); });
  form.txtAsSet.Text(u"10");
  EXPECT_EQ(textInside, u"10");
  EXPECT_EQ(Events(), Texts{"Change txtAsSet"});
}

TEST_F(TextBoxTest, AWriteThatDoesNotDifferDoesNothing) {
  form.txtAsSet.Text(u"10");
  form.txtAsSet.SelStart(1);
  Events();
  form.txtAsSet.Text(u"10");
  EXPECT_EQ(form.txtAsSet.SelStart(), 1);
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(TextBoxTest, AWriteThatDiffersPutsTheCaretAtTheStartBeforeChange) {
  form.txtAsSet.Text(u"10");
  form.txtAsSet.SelStart(2);
  int caretInside = -1;
  When("Change txtAsSet", [&] { caretInside = form.txtAsSet.SelStart(); });
  form.txtAsSet.Text(u"100");
  EXPECT_EQ(caretInside, 0);
  EXPECT_EQ(form.txtAsSet.SelStart(), 0);
  EXPECT_EQ(Events(), (Texts{"Change txtAsSet", "Change txtAsSet"}));
}

TEST_F(TextBoxTest, TextsDifferByTheirUnits) {
  form.txtCond.Text(u"a");
  form.txtCond.Text(u"A");
  form.txtCond.Text(u"\u00E4");
  form.txtCond.Text(u"a\u0308");
  EXPECT_EQ(Events().size(), 4U);
}

TEST_F(TextBoxTest, EmptyingAnEmptyBoxFiresNothing) {
  form.txtAsSet.Text(u"");
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(TextBoxTest, TheCaretIsClampedToTheLengthOfTheText) {
  form.txtCond.Text(u"abc");
  form.txtCond.SelStart(4);
  EXPECT_EQ(form.txtCond.SelStart(), 3);
  form.txtCond.SelStart(-1);
  EXPECT_EQ(form.txtCond.SelStart(), 0);
  form.txtCond.SelStart(2);
  EXPECT_EQ(form.txtCond.SelStart(), 2);
  EXPECT_EQ(Events(), Texts{"Change txtCond"});
}

TEST_F(TextBoxTest, LineEndsAndTabsStayAsTheyAreWritten) {
  form.txtStmt1.Text(u"a\r\n\tb\nc\r");
  EXPECT_EQ(form.txtStmt1.Text(), u"a\r\n\tb\nc\r");
  EXPECT_EQ(Events(), Texts{"Change txtStmt1"});
}

using SyntaxTextBoxTest = BareFormTest;

TEST_F(SyntaxTextBoxTest, HasNoChange) {
  form.TxtOutput.Text(u"select A\r\n\tfrom B");
  EXPECT_EQ(form.TxtOutput.Text(), u"select A\r\n\tfrom B");
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(SyntaxTextBoxTest, DoesNotHighlightAtFirst) {
  for (const SyntaxTextBox* box : {&form.TxtOutput, &form.txtSelectDo, &form.txtSelectEOS,
                                   &form.txtselectempty, &form.txtSelectError}) {
    EXPECT_FALSE(box->Highlight()) << box->name();
  }
}

TEST_F(SyntaxTextBoxTest, HighlightHasNoEffectOnTheText) {
  form.TxtOutput.Text(u"select");
  form.TxtOutput.Highlight(true);
  EXPECT_TRUE(form.TxtOutput.Highlight());
  EXPECT_EQ(form.TxtOutput.Text(), u"select");
  form.TxtOutput.Highlight(false);
  EXPECT_FALSE(form.TxtOutput.Highlight());
}

// Writing the end of a text.

TEST_F(TextBoxTest, AnEndIsWrittenInPlaceOfWhatStandsThere) {
  form.txtCond.Text(u"abc");
  form.txtCond.ReplaceFrom(1, u"xyz");
  EXPECT_EQ(form.txtCond.Text(), u"axyz");
  form.txtCond.ReplaceFrom(4, u"!");
  EXPECT_EQ(form.txtCond.Text(), u"axyz!");
  form.txtCond.ReplaceFrom(0, u"");
  EXPECT_EQ(form.txtCond.Text(), u"");
  EXPECT_EQ(Events(), Texts(4, "Change txtCond"));
}

TEST_F(TextBoxTest, AnEndThatDiffersPutsTheCaretAtTheStartBeforeChange) {
  form.txtCond.Text(u"abc");
  form.txtCond.SelStart(2);
  int caretInside = -1;
  When("Change txtCond", [&] { caretInside = form.txtCond.SelStart(); });
  form.txtCond.ReplaceFrom(3, u"d");
  EXPECT_EQ(caretInside, 0);
  EXPECT_EQ(Events(), Texts(2, "Change txtCond"));
}

TEST_F(TextBoxTest, AnEndThatDoesNotDifferDoesNothing) {
  form.txtCond.Text(u"abc");
  form.txtCond.SelStart(2);
  Events();
  form.txtCond.ReplaceFrom(1, u"bc");
  form.txtCond.ReplaceFrom(3, u"");
  EXPECT_EQ(form.txtCond.SelStart(), 2);
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(TextBoxTest, ASnapshotKeepsItsTextWhenAnEndIsWritten) {
  form.txtCond.Text(u"abc");
  form.TxtOutput.Text(u"abc");
  const SurfaceState before = form.Save();
  form.txtCond.ReplaceFrom(3, u"d");
  form.TxtOutput.ReplaceFrom(3, u"d");
  EXPECT_EQ(form.TxtOutput.Text(), u"abcd");
  form.Restore(before);
  EXPECT_EQ(form.txtCond.Text(), u"abc");
  EXPECT_EQ(form.TxtOutput.Text(), u"abc");
  EXPECT_EQ(Events(), Texts(2, "Change txtCond"));
}

TEST_F(TextBoxTest, ARevisionIsAnotherAfterEachChange) {
  std::vector<std::size_t> revisions{form.TxtOutput.Revision()};
  const auto note = [&] { revisions.push_back(form.TxtOutput.Revision()); };
  form.TxtOutput.Text(u"abc");
  note();
  form.TxtOutput.ReplaceFrom(3, u"d");
  note();
  form.UserType(form.TxtOutput, u"e");
  note();
  form.Restore(form.Save());
  note();
  EXPECT_EQ(std::set<std::size_t>(revisions.begin(), revisions.end()).size(), revisions.size());
  form.TxtOutput.Text(u"e");
  form.TxtOutput.ReplaceFrom(0, u"e");
  EXPECT_EQ(form.TxtOutput.Revision(), revisions.back());
  Events();
}

}  // namespace
}  // namespace zolt20::tests
