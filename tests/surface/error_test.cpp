#include "surface/error.h"

#include <string>

#include "tests/surface/bare_form.h"

namespace zolt20::tests {
namespace {

struct KindRow {
  ErrorKind kind;
  std::string_view word;
  int number;
  std::string_view description;
};

constexpr KindRow kKinds[] = {
    {ErrorKind::kArgument, "argument", 5, "invalid procedure call or argument"},
    {ErrorKind::kOverflow, "overflow", 6, "overflow"},
    {ErrorKind::kSubscript, "subscript", 9, "subscript out of range"},
    {ErrorKind::kElement, "element", 340, "control array element does not exist"},
    {ErrorKind::kLoaded, "loaded", 360, "object already loaded"},
    {ErrorKind::kUnload, "unload", 362, "cannot unload a control created at design time"},
    {ErrorKind::kValue, "value", 380, "invalid property value"},
    {ErrorKind::kIndex, "index", 381, "invalid property array index"},
};

TEST(ErrorTest, EveryKindHasItsWordNumberAndDescription) {
  for (const KindRow& row : kKinds) {
    const RuntimeError error(row.kind);
    EXPECT_EQ(error.kind(), row.kind);
    EXPECT_EQ(error.kind_word(), row.word);
    EXPECT_EQ(error.number(), row.number);
    EXPECT_EQ(std::string_view(error.what()), row.description);
  }
}

TEST(ErrorTest, RaisingThrowsTheOneTypeOfError) {
  for (const KindRow& row : kKinds) {
    EXPECT_EQ(ErrorOf([&row] { Raise(row.kind); }),
              std::to_string(row.number) + " " + std::string(row.word));
  }
}

using ErrorOnTheFormTest = BareFormTest;

TEST_F(ErrorOnTheFormTest, AnErrorLeavesTheHandlerAndReachesTheGesture) {
  When("Click cmdAdd", [this] {
    form.txtAsSet.Text(u"before");
    form.lblResult.SetFocus();
    form.txtAsSet.Text(u"behind");
  });
  form.tabVrn.Tab(6);
  EXPECT_EQ(ErrorOf([this] { form.UserClick(form.cmdAdd); }), "5 argument");
  EXPECT_EQ(form.txtAsSet.Text(), u"before");
  EXPECT_EQ(Focused(), "cmdAdd");
  EXPECT_EQ(Events(),
            (Texts{"Click tabVrn 0", "GotFocus cmdAdd", "Click cmdAdd", "Change txtAsSet"}));
}

TEST_F(ErrorOnTheFormTest, AnErrorOfAnInnerHandlerLeavesTheOuterOneToo) {
  When("Change txtAsSet", [] { Raise(ErrorKind::kSubscript); });
  When("Click lsttables", [this] {
    form.txtAsSet.Text(u"x");
    form.txtCond.Text(u"never");
  });
  EXPECT_EQ(ErrorOf([this] { form.lsttables.ListIndex(-1); }), "9 subscript");
  EXPECT_EQ(form.txtAsSet.Text(), u"x");
  EXPECT_EQ(form.txtCond.Text(), u"");
  EXPECT_EQ(Events(), (Texts{"Click lsttables", "Change txtAsSet"}));
}

TEST_F(ErrorOnTheFormTest, TheFormIsUsableAfterAnError) {
  EXPECT_EQ(ErrorOf([this] { form.tabVrn.Tab(7); }), "380 value");
  EXPECT_EQ(form.UserTab(1), Outcome::kDone);
  EXPECT_EQ(form.tabVrn.Tab(), 1);
  EXPECT_EQ(Events(), (Texts{"GotFocus tabVrn", "Click tabVrn 0"}));
}

}  // namespace
}  // namespace zolt20::tests
