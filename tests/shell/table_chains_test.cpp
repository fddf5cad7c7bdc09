// The records of each table as a chain.
#include "shell/table_chains.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

namespace zolt20::tests {
namespace {

using Places = std::vector<std::uint32_t>;

Places ChainOf(const TableChains& chains, StringView table) {
  Places places;
  for (std::uint32_t place = chains.First(TableKey(table)); place != TableChains::kNone;
       place = chains.Next(place))
    places.push_back(place);
  return places;
}

TEST(TableChainsTest, WithoutRecordsThereIsNoTable) {
  const TableChains chains;
  EXPECT_EQ(chains.First(TableKey(u"CUSTOMER")), TableChains::kNone);
  EXPECT_FALSE(chains.HasKeyOfLength(8));
}

TEST(TableChainsTest, RecordsOfATableComeInTheirOrder) {
  TableChains chains;
  for (const StringView table : {u"CUSTOMER", u"CUSTOMER", u"CUST", u"CUSTOMER", u"", u"CUST"})
    chains.Add(TableKey(table));
  EXPECT_EQ(ChainOf(chains, u"CUSTOMER"), (Places{0, 1, 3}));
  EXPECT_EQ(ChainOf(chains, u"CUST"), (Places{2, 5}));
  EXPECT_EQ(ChainOf(chains, u""), Places{4});
  EXPECT_EQ(ChainOf(chains, u"CUSTO"), Places{});
  EXPECT_TRUE(chains.HasKeyOfLength(0) && chains.HasKeyOfLength(4) && chains.HasKeyOfLength(8));
  EXPECT_FALSE(chains.HasKeyOfLength(5));
}

TEST(TableChainsTest, AtRandomTheyAreThoseOfAMap) {
  std::mt19937 random(22);
  TableChains chains;
  std::map<String, Places> expected;
  for (std::uint32_t place = 0; place < 20'000; ++place) {
    const String table = u"T" + ToText(static_cast<int>(random() % (place / 4 + 1)));
    chains.Add(TableKey(table));
    expected[table].push_back(place);
  }
  for (const auto& [table, places] : expected)
    ASSERT_EQ(ChainOf(chains, table), places);
  EXPECT_GT(expected.size(), 1000U);
}

}  // namespace
}  // namespace zolt20::tests
