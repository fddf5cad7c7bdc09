// The names of a catalogue, and which one was meant.
#include "language/names.h"

#include <gtest/gtest.h>

#include "tests/support/host_texts.h"

namespace zolt20::tests {
namespace {

using language::EditDistance;
using language::Names;

const Names& Catalogue() {
  static const Names kNames(
      Wide("CUSTOMER1,ORDERS__2,short,NEWORDER,ODD TAB_0,CUSTOMER9"),
      Wide(List({Field("NCUSTOMER.C_LAST"), Field("NCUSTOMER.C_ID"), Field("NORDERS__.O_ID"),
                 Field("NORDERS__.LINE NO"), Field("NORDERS__.a:b"), Field("NNOTHING_.X"), "broken",
                 Field("NORDERS__."), Field("NORDERS__.O_ID"), Field("NODD TAB_.F")})));
  return kNames;
}

TEST(NamesTest, AreThoseOfTheTwoLists) {
  ASSERT_EQ(Catalogue().Tables().size(), 4U);
  EXPECT_EQ(Narrow(Catalogue().Tables()[3].name), "ODD TAB_");
  const Names::Table* const orders = Catalogue().Find(u"ORDERS__");
  ASSERT_NE(orders, nullptr);
  EXPECT_EQ(orders->fields, (std::vector<StringView>{u"O_ID", u"LINE NO", u"a:b"}));
  EXPECT_EQ(orders->oddFields, (std::vector<StringView>{u"LINE NO", u"a:b"}));
  EXPECT_EQ(Catalogue().Find(u"CUSTOMER")->indexes, 1U);
  EXPECT_EQ(Catalogue().Find(u"customer"), nullptr);
}

TEST(NamesTest, ATableHasItsFieldsAStarAndItsIndexes) {
  const Names::Table& orders = *Catalogue().Find(u"ORDERS__");
  for (const StringView field : {u"O_ID", u"LINE NO", u"*", u"_index1", u"_index2"})
    EXPECT_TRUE(Names::Has(orders, field)) << Narrow(field);
  for (const StringView field : {u"o_id", u"", u"_index", u"_index0", u"_index3", u"_indexx"})
    EXPECT_FALSE(Names::Has(orders, field)) << Narrow(field);
}

TEST(NamesTest, TheEditDistanceCountsWhatATyperDoes) {
  EXPECT_EQ(EditDistance(u"C_LAST", u"C_LAST", 9), 0U);
  EXPECT_EQ(EditDistance(u"c_last", u"C_LAST", 9), 0U);
  EXPECT_EQ(EditDistance(u"C_LAT", u"C_LAST", 9), 1U);
  EXPECT_EQ(EditDistance(u"C_LASST", u"C_LAST", 9), 1U);
  EXPECT_EQ(EditDistance(u"C_LAXT", u"C_LAST", 9), 1U);
  EXPECT_EQ(EditDistance(u"C_LSAT", u"C_LAST", 9), 1U);
  EXPECT_EQ(EditDistance(u"abc", u"xyz", 9), 3U);
  EXPECT_EQ(EditDistance(u"abcd", u"", 9), 4U);
  EXPECT_EQ(EditDistance(u"", u"abcd", 9), 4U);
  EXPECT_EQ(EditDistance(u"abcd", u"wxyz", 2), 2U);
  EXPECT_EQ(EditDistance(u"abcdef", u"a", 2), 2U);
  EXPECT_EQ(EditDistance(String(65, u'a'), String(64, u'a'), 9), 9U);
  EXPECT_EQ(EditDistance(String(64, u'a'), String(63, u'a'), 9), 1U);
}

TEST(NamesTest, TheNearestIsTheFirstOfThoseThatAreNearest) {
  language::NearestFinder finder;
  EXPECT_EQ(finder.Nearest(u"abcd", {u"abxx", u"abcx", u"xbcd"}), u"abcx");
  EXPECT_EQ(finder.Nearest(u"abcd", {u"axxx", u"xxxx"}), u"");
  EXPECT_EQ(finder.Nearest(u"a", {u"b"}), u"b");
  EXPECT_EQ(finder.Nearest(u"a", {}), u"");
}

TEST(NamesTest, TheLookForTheNearestEnds) {
  language::NearestFinder finder;
  const std::vector<StringView> list(60'000, u"abcd");
  EXPECT_EQ(finder.Nearest(u"abcx", list), u"abcd");
  EXPECT_EQ(finder.Nearest(u"abcx", list), u"abcd");
  EXPECT_EQ(finder.Nearest(u"abcx", list), u"");
}

}  // namespace
}  // namespace zolt20::tests
