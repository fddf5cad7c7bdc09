// Values that copies share until one is written.
#include "surface/shared.h"

#include <gtest/gtest.h>

#include <string>

#include "surface/arrays.h"

namespace zolt20::tests {
namespace {

TEST(SharedTest, ACopyIsTheSameValueUntilOneIsWritten) {
  Shared<std::string> first(std::string("a"));
  const Shared<std::string> second = first;
  EXPECT_TRUE(first.IsSameAs(second));
  first.Write() += "b";
  EXPECT_FALSE(first.IsSameAs(second));
  EXPECT_EQ(*first, "ab");
  EXPECT_EQ(*second, "a");
}

TEST(SharedTest, AValueThatNobodySharesIsWrittenInPlace) {
  Shared<std::string> value(std::string("a"));
  const std::string* before = &*value;
  value.Write() = "b";
  EXPECT_EQ(&*value, before);
  EXPECT_EQ(value->size(), 1U);
}

TEST(SharedTest, AWriteToACopyOfAnArrayLeavesTheOther) {
  DynamicArray<std::string> first(std::vector<std::string>{"a", "b"});
  DynamicArray<std::string> second = first;
  second(1) = "c";
  second.Resize(2);
  EXPECT_EQ(first.Entries(), (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(second.Entries(), (std::vector<std::string>{"a", "c", ""}));
}

}  // namespace
}  // namespace zolt20::tests
