#include "surface/arrays.h"

#include "surface/string.h"
#include "tests/surface/bare_form.h"

namespace zolt20::tests {
namespace {

TEST(FixedArrayTest, ItsEntriesAreEmptyAtTheStart) {
  const FixedArray<String, 21> texts;
  EXPECT_EQ(texts(0), u"");
  EXPECT_EQ(texts(20), u"");
}

TEST(FixedArrayTest, KeepsWhatIsWritten) {
  FixedArray<Integer, 11> numbers;
  numbers(10) = 7;
  EXPECT_EQ(numbers(10), 7);
  EXPECT_EQ(numbers(9), 0);
}

TEST(FixedArrayTest, AnIndexOutsideItsBoundsIsASubscriptError) {
  FixedArray<String, 21> texts;
  const FixedArray<String, 21>& read = texts;
  EXPECT_EQ(ErrorOf([&] { texts(21) = u"x"; }), "9 subscript");
  EXPECT_EQ(ErrorOf([&] { texts(-1) = u"x"; }), "9 subscript");
  EXPECT_EQ(ErrorOf([&] { (void)read(21); }), "9 subscript");
}

TEST(DynamicArrayTest, AnyUseOfOneNeverAssignedIsASubscriptError) {
  const DynamicArray<String> texts;
  EXPECT_EQ(ErrorOf([&] { (void)texts(0); }), "9 subscript");
  EXPECT_EQ(ErrorOf([&] { (void)texts.UpperBound(); }), "9 subscript");
  EXPECT_EQ(ErrorOf([&] { (void)texts.Entries(); }), "9 subscript");
}

TEST(DynamicArrayTest, AnEmptyOneIsAssigned) {
  const DynamicArray<String> texts{std::vector<String>{}};
  EXPECT_EQ(texts.UpperBound(), -1);
  EXPECT_TRUE(texts.Entries().empty());
  EXPECT_EQ(ErrorOf([&] { (void)texts(0); }), "9 subscript");
}

TEST(DynamicArrayTest, AnIndexOutsideItsBoundsIsASubscriptError) {
  DynamicArray<String> texts{{u"a", u"b"}};
  EXPECT_EQ(texts(1), u"b");
  EXPECT_EQ(ErrorOf([&] { (void)texts(2); }), "9 subscript");
  EXPECT_EQ(ErrorOf([&] { (void)texts(-1); }), "9 subscript");
}

TEST(DynamicArrayTest, GrowingAssignsItAndKeepsWhatItHolds) {
  DynamicArray<String> texts;
  texts.Resize(0);
  texts(0) = u"a";
  texts.Resize(2);
  EXPECT_EQ(texts.Entries(), (std::vector<String>{u"a", u"", u""}));
  EXPECT_EQ(texts.UpperBound(), 2);
}

TEST(DynamicArrayTest, ALowerUpperBoundDropsWhatIsBeyondIt) {
  DynamicArray<String> texts{{u"a", u"b", u"c"}};
  texts.Resize(0);
  EXPECT_EQ(texts.Entries(), std::vector<String>{u"a"});
}

}  // namespace
}  // namespace zolt20::tests
