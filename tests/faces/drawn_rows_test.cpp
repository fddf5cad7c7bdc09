// Which rows of a list are drawn while a filter is on.
#include "faces/shared/drawn_rows.h"

#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

class DrawnRowsTest : public ControlTest {
 protected:
  DrawnRowsTest() {
    Catalogue(List({"CUSTOMER0", "ORDERS__0", "STOCK___0", "ORDERITM0"}), "");
    Refresh();
  }
  void Refresh() { rows_.Refresh(); }
  std::string Drawn() {
    std::string drawn;
    for (int row = 0; row < rows_.Count(); ++row) {
      if (row > 0) drawn += ' ';
      drawn += std::to_string(rows_.ControlRow(row));
      EXPECT_EQ(rows_.DrawnRow(rows_.ControlRow(row)), row);
    }
    return drawn;
  }
  const ListBox& list() { return host().Form().lsttables; }

  faces::DrawnRows rows_{host().Form().lsttables};
};

TEST_F(DrawnRowsTest, WithoutAFilterAllAreDrawn) {
  EXPECT_EQ(Drawn(), "0 1 2 3");
  EXPECT_FALSE(rows_.IsFiltered());
  EXPECT_EQ(rows_.ControlRow(4), -1);
  EXPECT_EQ(rows_.ControlRow(-1), -1);
}

TEST_F(DrawnRowsTest, AFilterLeavesTheRowsThatHoldItsTextInAnyCase) {
  EXPECT_TRUE(rows_.SetFilter(u"oRdEr"));
  EXPECT_EQ(Drawn(), "1 3");
  EXPECT_EQ(rows_.DrawnRow(0), -1);
  EXPECT_FALSE(rows_.SetFilter(u"order"));
  EXPECT_TRUE(rows_.SetFilter(u"nothing"));
  EXPECT_EQ(rows_.Count(), 0);
  EXPECT_TRUE(rows_.SetFilter(u""));
  EXPECT_EQ(Drawn(), "0 1 2 3");
}

TEST_F(DrawnRowsTest, AFilterFindsNamesToo) {
  rows_.NameRows({{u"STOCK___", u"What there is"}, {u"CUSTOMER", u"Who orders"}});
  EXPECT_EQ(rows_.NameOf(2), u"What there is");
  EXPECT_EQ(rows_.NameOf(1), u"");
  rows_.SetFilter(u"ORDER");
  EXPECT_EQ(Drawn(), "0 1 3");
  rows_.NameRows({});
  EXPECT_EQ(Drawn(), "1 3");
}

TEST_F(DrawnRowsTest, RowsThatComeAreFilteredToo) {
  rows_.SetFilter(u"ORDER");
  Catalogue(List({"ORDERMAX0", "CUSTNAME0"}), "");
  Refresh();
  EXPECT_EQ(Drawn(), "1 3 4");
}

TEST_F(DrawnRowsTest, ThePlatformSaysWhatLettersAreAlike) {
  faces::DrawnRows rows(list(), [](StringView text) {
    String folded(text);
    std::replace(folded.begin(), folded.end(), u'0', u'O');
    return folded;
  });
  rows.SetFilter(u"ST0CK");
  EXPECT_EQ(rows.Count(), 1);
  EXPECT_EQ(rows.ControlRow(0), 2);
}

TEST_F(DrawnRowsTest, MarksThatAreNotShownAreCounted) {
  Click("lsttables", 0);
  Click("lsttables", 1);
  Click("lsttables", 2);
  EXPECT_EQ(rows_.HiddenMarks(), u"");
  rows_.SetFilter(u"order");
  EXPECT_EQ(rows_.HiddenMarks(), u"3 marked, 1 shown");
  Click("lsttables", 3);
  EXPECT_EQ(rows_.HiddenMarks(), u"4 marked, 2 shown");
  Log();
  rows_.SetFilter(u"");
  EXPECT_EQ(rows_.HiddenMarks(), u"");
}

TEST_F(DrawnRowsTest, ACombosEntriesHaveNoMarks) {
  faces::DrawnRows entries(host().Form().cboOper);
  entries.SetFilter(u"=");
  EXPECT_EQ(entries.HiddenMarks(), u"");
}

}  // namespace
}  // namespace zolt20::tests
