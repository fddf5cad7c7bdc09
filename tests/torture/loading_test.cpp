// A form without logic whose allocations fail.
#include <new>

#include "tests/surface/bare_form.h"
#include "tests/torture/allocations.h"

namespace zolt20::tests {
namespace {

/// Whether loading element 1 succeeds when its n-th allocation does not.
bool Loads(BareForm& form, int n) {
  const FailingAllocation failing(n);
  try {
    form.TxtExpr.Load(1);
    return true;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

TEST(Loading, AnElementThatFindsNoMemoryLeavesTheFormAsItWas) {
  BareForm form;
  const auto controls = form.Controls();
  const auto tabOrder = form.TabOrder();
  int failures = 0;
  while (!Loads(form, failures + 1)) {
    ++failures;
    ASSERT_EQ(form.Controls(), controls);
    ASSERT_EQ(form.TabOrder(), tabOrder);
    ASSERT_EQ(form.Find("TxtExpr(1)"), nullptr);
    ASSERT_EQ(form.TxtExpr.UpperBound(), 0);
    ASSERT_EQ(BrokenRule(form), "");
  }
  // The element itself, its place in the array, its place among the controls.
  EXPECT_GE(failures, 3);
  EXPECT_EQ(form.Find("TxtExpr(1)"), &form.TxtExpr(1));
  EXPECT_EQ(form.TabOrder().back(), &form.TxtExpr(1));
}

}  // namespace
}  // namespace zolt20::tests
