// Texts of rows, which their copies share.
#include "surface/row_text.h"

#include <gtest/gtest.h>

#include <vector>

namespace zolt20::tests {
namespace {

TEST(RowTextTest, ATextIsKeptAsItIsGiven) {
  const String text{u"a\0\xD800", 3};
  EXPECT_EQ(RowText(text).View(), text);
  EXPECT_EQ(RowText(u"").View(), u"");
  EXPECT_EQ(RowText(String(100'000, u'x')).View(), String(100'000, u'x'));
}

TEST(RowTextTest, CopiesAreTheSameCharactersAndOutliveEachOther) {
  RowText copy(u"");
  {
    const RowText text(u"CUSTOMER.C_LAST");
    copy = text;
    EXPECT_EQ(copy.View().data(), text.View().data());
  }
  EXPECT_EQ(copy.View(), u"CUSTOMER.C_LAST");
}

TEST(RowTextTest, AMovedTextIsElsewhereAndMayBeWrittenAgain) {
  RowText text(u"a");
  const RowText moved(std::move(text));
  text = RowText(u"b");
  EXPECT_EQ(moved.View(), u"a");
  EXPECT_EQ(text.View(), u"b");
}

TEST(RowTextTest, RowsComeInBetween) {
  std::vector<RowText> rows{RowText(u"a"), RowText(u"c")};
  rows.insert(rows.begin() + 1, RowText(u"b"));
  rows.erase(rows.begin());
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].View(), u"b");
  EXPECT_EQ(rows[1].View(), u"c");
}

using List = std::vector<String>;

List TextsOf(const RowTexts& rows) {
  List texts;
  for (std::size_t row = 0; row < rows.size(); ++row)
    texts.emplace_back(rows[row]);
  return texts;
}

TEST(RowTextsTest, RowsComeInBetweenAndGo) {
  RowTexts rows;
  rows.Append(std::vector<RowText>{RowText(u"a"), RowText(u"c"), RowText(u"d")});
  rows.Insert(1, RowText(u"b"));
  EXPECT_EQ(TextsOf(rows), (List{u"a", u"b", u"c", u"d"}));
  rows.Erase(1, 2);
  EXPECT_EQ(TextsOf(rows), (List{u"a", u"d"}));
  rows.Insert(2, RowText(u"e"));
  rows.EraseAll(std::vector<int>{0, 2});
  EXPECT_EQ(TextsOf(rows), List{u"d"});
}

TEST(RowTextsTest, CopiesShareTheTextsAndOutliveEachOther) {
  const RowText text(u"CUSTOMER.C_LAST");
  RowTexts copy;
  {
    RowTexts rows;
    rows.Append({&text, 1});
    rows.Append({&text, 1});
    copy = rows;
    rows.Erase(0, 1);
    EXPECT_EQ(rows.size(), 1U);
  }
  ASSERT_EQ(copy.size(), 2U);
  EXPECT_EQ(copy[1].data(), text.View().data());
  const RowTexts moved(std::move(copy));
  EXPECT_EQ(TextsOf(moved), List(2, u"CUSTOMER.C_LAST"));
}

}  // namespace
}  // namespace zolt20::tests
