// Rows by how they begin: the answer of the runs is that of a walk over all rows, whatever happened
// to the list before.
#include <random>

#include "tests/surface/bare_form.h"

namespace zolt20::tests {
namespace {

class StartRunsTest : public BareFormTest {
 protected:
  static std::vector<int> ByAWalk(const ListBox& list, StringView start) {
    return list.RowsWhere([start](StringView text) { return Left(text, 8) == start; });
  }
  static std::vector<int> ByRuns(ListBox& list, StringView start) {
    return list.RowsWhereStart([start](StringView text) { return text == start; });
  }

  ListBox& list = form.lsttables;
};

TEST_F(StartRunsTest, RowsAreFoundByTheirFirstEightCharacters) {
  Fill(list, {"CUSTOMER.A", "CUSTOMER.B", "CUST", "CUSTOMER", "CUSTOMERS.A", "ORDERITM.A", ""});
  EXPECT_EQ(ByRuns(list, u"CUSTOMER"), (RowNumbers{0, 1, 3, 4}));
  EXPECT_EQ(ByRuns(list, u"CUST"), RowNumbers{2});
  EXPECT_EQ(ByRuns(list, u""), RowNumbers{6});
  EXPECT_EQ(ByRuns(list, u"customer"), RowNumbers{});
}

TEST_F(StartRunsTest, NeighboursThatBeginAlikeAreAskedOnce) {
  Fill(list, {"CUSTOMER.A", "CUSTOMER.B", "ORDERITM.A", "CUSTOMER.C"});
  Texts asked;
  list.RowsWhereStart([&asked](StringView start) {
    asked.push_back(Narrow(start));
    return false;
  });
  EXPECT_EQ(asked, (Texts{"CUSTOMER", "ORDERITM", "CUSTOMER"}));
}

TEST_F(StartRunsTest, AtRandomTheyAreThoseOfAWalk) {
  std::mt19937 random(20);
  const auto below = [&random](int bound) {
    return static_cast<int>(random() % static_cast<unsigned>(bound));
  };
  const std::vector<String> kNames{u"",           u"A",          u"CUSTOMER",
                                   u"CUSTOMER.A", u"ORDERITM.A", u"ORDERITM.B"};
  SurfaceState kept = form.Save();
  int found = 0;
  for (int step = 0; step < 20'000; ++step) {
    const int count = list.ListCount();
    switch (below(8)) {
      case 0:
        list.AddItem(kNames[static_cast<std::size_t>(below(6))]);
        break;
      case 1:
      case 2: {
        const RowText same(kNames[static_cast<std::size_t>(below(6))]);
        list.AddTexts(std::vector<RowText>(static_cast<std::size_t>(below(9)), same));
        break;
      }
      case 3:
        if (count > 0) list.RemoveItem(below(count));
        break;
      case 4: {
        std::vector<int> rows;
        for (int row = below(30); row < count; row += 1 + below(4))
          rows.push_back(row);
        list.RemoveItems(rows);
        break;
      }
      case 5:
        if (below(50) == 0) list.Clear();
        break;
      case 6:
        if (below(20) == 0) kept = form.Save();
        if (below(40) == 0) form.Restore(kept);
        break;
      default:
        for (const String& name : kNames) {
          const std::vector<int> rows = ByRuns(list, Left(name, 8));
          ASSERT_EQ(rows, ByAWalk(list, Left(name, 8))) << "step " << step;
          found += static_cast<int>(rows.size());
        }
    }
  }
  EXPECT_GT(found, 10'000);
}

TEST_F(StartRunsTest, InASortedListRowsComeInBetween) {
  ListBox& sorted = form.lstSelectedFields;
  Fill(sorted, {"CUSTOMER.A", "ORDERITM.A"});
  EXPECT_EQ(ByRuns(sorted, u"ORDERITM"), RowNumbers{1});
  Fill(sorted, {"CUSTOMER.B", "DISTRICT.A"});
  EXPECT_EQ(ByRuns(sorted, u"ORDERITM"), RowNumbers{3});
  EXPECT_EQ(ByRuns(sorted, u"CUSTOMER"), (RowNumbers{0, 1}));
}

}  // namespace
}  // namespace zolt20::tests
