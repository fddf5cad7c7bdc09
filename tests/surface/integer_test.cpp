#include "surface/integer.h"

#include "tests/surface/bare_form.h"

namespace zolt20::tests {
namespace {

TEST(IntegerTest, IsZeroAtTheStart) {
  EXPECT_EQ(Integer().value(), 0);
}

TEST(IntegerTest, HoldsSixteenBitsWithASign) {
  EXPECT_EQ(Integer(-32768).value(), -32768);
  EXPECT_EQ(Integer(32767).value(), 32767);
}

TEST(IntegerTest, AnyOtherNumberIsAnOverflow) {
  EXPECT_EQ(ErrorOf([] { Integer(32768); }), "6 overflow");
  EXPECT_EQ(ErrorOf([] { Integer(-32769); }), "6 overflow");
  EXPECT_EQ(ErrorOf([] { Integer(std::int64_t{1} << 32); }), "6 overflow");
}

TEST(IntegerTest, AddsAndSubtracts) {
  EXPECT_EQ(Integer(30000) + 2767, 32767);
  EXPECT_EQ(Integer(-30000) - 2768, -32768);
  Integer number = 5;
  number += 3;
  number -= 10;
  EXPECT_EQ(number, -2);
}

TEST(IntegerTest, AResultOutsideTheRangeIsAnOverflow) {
  EXPECT_EQ(ErrorOf([] { (void)(Integer(32767) + 1); }), "6 overflow");
  EXPECT_EQ(ErrorOf([] { (void)(Integer(-32768) - 1); }), "6 overflow");
  EXPECT_EQ(ErrorOf([] { (void)(Integer(-32768) + Integer(-32768)); }), "6 overflow");
  EXPECT_EQ(ErrorOf([] { (void)(Integer(0) - Integer(-32768)); }), "6 overflow");
}

TEST(IntegerTest, AFailedStepLeavesTheValueAsItWas) {
  Integer greatest = 32767;
  EXPECT_EQ(ErrorOf([&] { ++greatest; }), "6 overflow");
  EXPECT_EQ(ErrorOf([&] { greatest += 1; }), "6 overflow");
  EXPECT_EQ(greatest, 32767);
  Integer least = -32768;
  EXPECT_EQ(ErrorOf([&] { --least; }), "6 overflow");
  EXPECT_EQ(ErrorOf([&] { least -= 1; }), "6 overflow");
  EXPECT_EQ(least, -32768);
}

TEST(IntegerTest, StepsUpAndDown) {
  Integer number = 32766;
  EXPECT_EQ(++number, 32767);
  EXPECT_EQ(--number, 32766);
}

TEST(IntegerTest, ComparesByValue) {
  EXPECT_LT(Integer(-1), Integer(0));
  EXPECT_GT(Integer(2), 1);
  EXPECT_NE(Integer(2), 3);
}

}  // namespace
}  // namespace zolt20::tests
