// What tells tables apart.
#include "shell/table_key.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace zolt20::tests {
namespace {

TEST(TableKeyTest, ItIsTheFirstEightCharacters) {
  EXPECT_EQ(TableKey(u"CUSTOMER.C_LAST"), TableKey(u"CUSTOMER"));
  EXPECT_FALSE(TableKey(u"CUSTOMER") == TableKey(u"CUSTOMEr"));
}

TEST(TableKeyTest, AShortNameIsNoPartOfALongerOne) {
  EXPECT_FALSE(TableKey(u"CUST") == TableKey(u"CUSTO"));
  EXPECT_FALSE(TableKey(u"") == TableKey(StringView(u"\0", 1)));
  EXPECT_EQ(TableKey(u"CUST"), TableKey(u"CUST"));
}

TEST(TableKeyTest, TablesThatAreToldByTheirLastDigitsAreSpread) {
  constexpr int kTables = 10'000;
  constexpr std::size_t kPlaces = 32'768;
  std::vector<bool> taken(kPlaces);
  for (int table = 0; table < kTables; ++table) {
    const String digits = ToText(kTables + table);
    taken[TableKeyHash()(TableKey(u"T00" + digits)) % kPlaces] = true;
  }
  // At random 8,600 of the places would be taken.
  EXPECT_GT(std::count(taken.begin(), taken.end(), true), 8400);
}

TEST(TableKeyTest, AFilterHoldsWhatWasAddedAndLittleElse) {
  constexpr int kTables = 1000;
  TableFilter filter(kTables);
  for (int table = 0; table < kTables; ++table)
    filter.Add(TableKey(u"T" + ToText(table)));
  int others = 0;
  for (int table = 0; table < kTables; ++table) {
    EXPECT_TRUE(filter.MayHold(TableKey(u"T" + ToText(table))));
    if (filter.MayHold(TableKey(u"U" + ToText(table)))) ++others;
  }
  EXPECT_LT(others, kTables / 4);
}

TEST(TableKeyTest, AFilterForNoTableHoldsNone) {
  EXPECT_FALSE(TableFilter(0).MayHold(TableKey(u"CUSTOMER")));
}

}  // namespace
}  // namespace zolt20::tests
