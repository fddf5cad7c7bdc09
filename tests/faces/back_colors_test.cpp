// What the BackColor of a control asks of a platform.
#include "faces/shared/back_colors.h"

#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

using faces::CanBeRead;
using faces::SystemColor;

class BackColorsTest : public ControlTest {};

TEST_F(BackColorsTest, CombosAndTheConditionHaveOne) {
  const Surface& form = host().Form();
  EXPECT_EQ(faces::BackColorOf(form.cboOper), 0xFFFFFFU);
  EXPECT_EQ(faces::BackColorOf(form.txtCondition), 0x8000000EU);
  EXPECT_EQ(faces::BackColorOf(form.txtAsSet), std::nullopt);
  EXPECT_EQ(faces::BackColorOf(form.cmdDone), std::nullopt);
}

TEST_F(BackColorsTest, ThoseOfTheFormAreSystemColors) {
  EXPECT_EQ(faces::SystemColorOf(0x8000000E), SystemColor::kHighlightedText);
  EXPECT_EQ(faces::SystemColorOf(0x80000003), SystemColor::kInactiveTitleBar);
  EXPECT_EQ(faces::SystemColorOf(0xFFFFFF), std::nullopt);
}

TEST_F(BackColorsTest, ATextNeedsAContrastToBeRead) {
  constexpr faces::Rgb kBlack{0, 0, 0};
  constexpr faces::Rgb kWhite{255, 255, 255};
  EXPECT_TRUE(CanBeRead(kBlack, kWhite));
  EXPECT_TRUE(CanBeRead(kWhite, kBlack));
  EXPECT_FALSE(CanBeRead(kWhite, kWhite));
  EXPECT_TRUE(CanBeRead({118, 118, 118}, kWhite));   // 4.54
  EXPECT_FALSE(CanBeRead({119, 119, 119}, kWhite));  // 4.48
}

}  // namespace
}  // namespace zolt20::tests
