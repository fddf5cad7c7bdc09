// Texts compared in any letter case.
#include "faces/shared/case_fold.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace zolt20::tests {
namespace {

using faces::CaseFold;

TEST(CaseFoldTest, LettersOfLatinOneAreAlikeByDefault) {
  const CaseFold fold;
  EXPECT_EQ(fold(u"\u00c4B"), u"\u00e4b");
  EXPECT_TRUE(fold.Holds(u"CUSTOMER", u"tom"));
  EXPECT_FALSE(fold.Holds(u"CUSTOMER", u"tim"));
  EXPECT_TRUE(fold.Holds(u"M\u00c4RKTE", u"\u00e4rk"));
  EXPECT_FALSE(fold.Holds(u"MARKT", u"\u00e4"));
  EXPECT_TRUE(fold.Begins(u"CUSTOMER", u"cust"));
  EXPECT_FALSE(fold.Begins(u"CUSTOMER", u"ust"));
  EXPECT_TRUE(fold.Begins(u"\u00c4RGER", u"\u00e4r"));
}

TEST(CaseFoldTest, TheEmptyTextIsInEveryText) {
  const CaseFold fold;
  EXPECT_TRUE(fold.Holds(u"", u"") && fold.Holds(u"a", u"") && fold.Begins(u"", u""));
  EXPECT_FALSE(fold.Holds(u"", u"a") || fold.Begins(u"", u"a"));
}

TEST(CaseFoldTest, ThePlatformIsAskedForTextsThatAreNotPlain) {
  // Of this platform the sign of Kelvin is a k.
  int asked = 0;
  const CaseFold fold([&asked](StringView text) {
    ++asked;
    String lower = LowerCase(text);
    std::replace(lower.begin(), lower.end(), u'\u212a', u'k');
    return lower;
  });
  EXPECT_TRUE(fold.Holds(u"5 \u212a", u"k"));
  const int before = asked;
  EXPECT_TRUE(fold.Holds(u"5 K", u"k") && fold.Begins(u"K5", u"k"));
  EXPECT_EQ(asked, before);
}

TEST(CaseFoldTest, APlatformWithOtherRulesForPlainLettersIsAskedForAll) {
  const CaseFold fold([](StringView text) {
    String folded(text);
    std::replace(folded.begin(), folded.end(), u'0', u'O');
    return folded;
  });
  EXPECT_TRUE(fold.Holds(u"ST0CK", u"STO"));
  EXPECT_FALSE(fold.Holds(u"STOCK", u"sto"));
  EXPECT_TRUE(fold.Begins(u"ST0CK", u"STO"));
}

TEST(CaseFoldTest, AtRandomItIsTheSearchInTheFoldedTexts) {
  std::mt19937 random(23);
  const CaseFold fold;
  const auto text = [&random](unsigned most) {
    const String letters = u"aAbB.\u00e4\u00c4";
    String made;
    const auto kinds = random() % 4 == 0 ? letters.size() : 5;
    for (auto length = random() % most; length > 0; --length)
      made += letters[random() % kinds];
    return made;
  };
  int held = 0;
  for (int i = 0; i < 20'000; ++i) {
    const String whole = text(10);
    const String part = LowerCase(text(4));
    const String lower = LowerCase(whole);
    ASSERT_EQ(fold.Holds(whole, part), lower.find(part) != String::npos);
    ASSERT_EQ(fold.Begins(whole, part), lower.starts_with(part));
    if (fold.Holds(whole, part)) ++held;
  }
  EXPECT_GT(held, 2000);
}

}  // namespace
}  // namespace zolt20::tests
