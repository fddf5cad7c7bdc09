// A form without handlers: the controls do what they do, and nothing else comes of it.
#include <gtest/gtest.h>

#include "surface/surface.h"
#include "tests/support/mirror.h"

namespace zolt20::tests {
namespace {

class UnheardForm final : public Surface {
 public:
  UnheardForm() : Surface(FormVisible::kYes) {}
  ~UnheardForm() override = default;
};

TEST(UnheardEvents, AClickOnAButtonMovesTheFocusAlone) {
  UnheardForm form;
  EXPECT_EQ(form.UserClick(form.cmdDone), Outcome::kDone);
  EXPECT_EQ(form.Focused(), &form.cmdDone);
  EXPECT_EQ(BrokenRule(form), "");
}

TEST(UnheardEvents, ADoubleClickMarksTheRowOfASingleSelection) {
  UnheardForm form;
  form.lstFields.AddItem(u"a");
  EXPECT_EQ(form.UserDoubleClick(form.lstFields, 0), Outcome::kDone);
  EXPECT_TRUE(form.lstFields.Selected(0));
  EXPECT_EQ(form.lstFields.ListIndex(), 0);
}

TEST(UnheardEvents, ACheckMarksItsRow) {
  UnheardForm form;
  form.tabVrn.Tab(1);
  form.lstorderbyasc.AddItem(u"a");
  EXPECT_EQ(form.UserClick(form.lstorderbyasc, 0), Outcome::kDone);
  EXPECT_TRUE(form.lstorderbyasc.Selected(0));
}

TEST(UnheardEvents, AKeyGoesIntoTheBoxAsItIs) {
  UnheardForm form;
  form.tabVrn.Tab(1);
  EXPECT_EQ(form.UserKey(form.txtAsSet, u'x'), Outcome::kDone);
  EXPECT_EQ(form.txtAsSet.Text(), u"x");
  EXPECT_EQ(form.txtAsSet.SelStart(), 1);
}

TEST(UnheardEvents, ATextGoesIntoASyntaxBox) {
  UnheardForm form;
  EXPECT_EQ(form.UserType(form.TxtOutput, u"x"), Outcome::kDone);
  EXPECT_EQ(form.TxtOutput.Text(), u"x");
  EXPECT_EQ(form.Focused(), &form.TxtOutput);
}

TEST(UnheardEvents, APageIsLeftForAnother) {
  UnheardForm form;
  EXPECT_EQ(form.UserTab(4), Outcome::kDone);
  EXPECT_EQ(form.tabVrn.Tab(), 4);
  EXPECT_EQ(form.Focused(), &form.tabVrn);
}

}  // namespace
}  // namespace zolt20::tests
