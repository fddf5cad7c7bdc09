#include "surface/string.h"

#include "tests/surface/bare_form.h"

namespace zolt20::tests {
namespace {

std::vector<std::string> Pieces(StringView text, StringView separator) {
  std::vector<std::string> pieces;
  for (const StringView piece : Split(text, separator))
    pieces.push_back(Narrow(piece));
  return pieces;
}

TEST(StringTest, TrimTakesTheBlanksAtBothEnds) {
  EXPECT_EQ(Trim(u"  a  b "), u"a  b");
  EXPECT_EQ(Trim(u"a"), u"a");
}

TEST(StringTest, TrimOfBlanksAloneIsEmpty) {
  EXPECT_EQ(Trim(u"   "), u"");
  EXPECT_EQ(Trim(u""), u"");
}

TEST(StringTest, TrimLeavesTabsLineEndsAndHardBlanks) {
  EXPECT_EQ(Trim(u" \ta\r\n "), u"\ta\r\n");
  EXPECT_EQ(Trim(u"\u00A0a\u3000"), u"\u00A0a\u3000");
}

TEST(StringTest, LeftGivesTheFirstCharactersOrAllOfThem) {
  EXPECT_EQ(Left(u"abc", 2), u"ab");
  EXPECT_EQ(Left(u"abc", 0), u"");
  EXPECT_EQ(Left(u"abc", 4), u"abc");
}

TEST(StringTest, MidCountsFromOneAndGivesNothingBehindTheEnd) {
  EXPECT_EQ(Mid(u"abc", 1), u"abc");
  EXPECT_EQ(Mid(u"abc", 3), u"c");
  EXPECT_EQ(Mid(u"abc", 4), u"");
  EXPECT_EQ(Mid(u"abc", 40), u"");
}

TEST(StringTest, MidWithACountGivesAtMostThatMany) {
  EXPECT_EQ(Mid(u"abcd", 2, 2), u"bc");
  EXPECT_EQ(Mid(u"abcd", 2, 0), u"");
  EXPECT_EQ(Mid(u"abcd", 4, 9), u"d");
}

TEST(StringTest, ANegativeLengthOrAStartBelowOneIsAnArgumentError) {
  EXPECT_EQ(ErrorOf([] { Left(u"abc", -1); }), "5 argument");
  EXPECT_EQ(ErrorOf([] { Mid(u"abc", 1, -1); }), "5 argument");
  EXPECT_EQ(ErrorOf([] { Mid(u"abc", 0); }), "5 argument");
  EXPECT_EQ(ErrorOf([] { Mid(u"abc", -3, 1); }), "5 argument");
  EXPECT_EQ(ErrorOf([] { Mid(u"", 9, -1); }), "5 argument");
}

TEST(StringTest, HoldsComparesExactly) {
  EXPECT_TRUE(Holds(u"reindex", u"index"));
  EXPECT_TRUE(Holds(u"reindex", u""));
  EXPECT_FALSE(Holds(u"reINDEX", u"index"));
  EXPECT_FALSE(Holds(u"in", u"index"));
}

TEST(StringTest, ReplaceGoesOnceFromLeftToRight) {
  EXPECT_EQ(Replace(u"\t\t\t", u"\t\t", u"\t"), u"\t\t");
  EXPECT_EQ(Replace(u"a~b~", u"~", u"\r\n"), u"a\r\nb\r\n");
}

TEST(StringTest, ReplaceDoesNotLookAtAReplacedPieceAgain) {
  EXPECT_EQ(Replace(u"aab", u"ab", u"b"), u"ab");
  EXPECT_EQ(Replace(u"\r\n", u"\r\n", u"\r\n\t"), u"\r\n\t");
}

TEST(StringTest, ReplaceMindsLetterCase) {
  EXPECT_EQ(Replace(u"aA", u"a", u""), u"A");
}

TEST(StringTest, TheEncodedDoubleQuoteIsBacktickCaretBacktick) {
  EXPECT_EQ(Replace(u"`^`x`^`", u"`^`", u"\""), u"\"x\"");
  EXPECT_EQ(Replace(u"`^^`^`", u"`^`", u"\""), u"`^^\"");
}

TEST(StringTest, SplitGivesThePiecesBetweenTheSeparators) {
  EXPECT_EQ(Pieces(u"a,b", u","), (Texts{"a", "b"}));
  EXPECT_EQ(Pieces(u",a,,", u","), (Texts{"", "a", "", ""}));
  EXPECT_EQ(Pieces(u"a", u","), Texts{"a"});
  EXPECT_EQ(Pieces(u"long*Q*V*R*N*NA.B*Q*V*R*N*", u"*Q*V*R*N*"), (Texts{"long", "NA.B", ""}));
}

TEST(StringTest, SplitOfAnEmptyTextGivesNoPieceAtAll) {
  EXPECT_TRUE(Split(u"", u",").empty());
}

TEST(StringTest, LowerCaseMapsTheLettersOfAsciiAndLatin1) {
  EXPECT_EQ(LowerCase(u"AZaz09_"), u"azaz09_");
  EXPECT_EQ(LowerCase(u"\u00C0\u00D6\u00D8\u00DE"), u"\u00E0\u00F6\u00F8\u00FE");
}

TEST(StringTest, LowerCaseLeavesAllOtherCharacters) {
  // The multiplication sign stands among the capitals, the division sign and sharp s among the
  // others.
  EXPECT_EQ(LowerCase(u"\u00D7\u00F7\u00DF\u00FF"), u"\u00D7\u00F7\u00DF\u00FF");
  EXPECT_EQ(LowerCase(u"@[`{"), u"@[`{");
  EXPECT_EQ(LowerCase(u"\u0100\u0130\u0178\u0391\u0410\u212A"),
            u"\u0100\u0130\u0178\u0391\u0410\u212A");
}

TEST(StringTest, ComparingWithoutLetterCaseIsOneToOne) {
  EXPECT_TRUE(EqualIgnoringCase(u"Customer\u00C4", u"cUSTOMER\u00E4"));
  EXPECT_FALSE(EqualIgnoringCase(u"\u00DF", u"ss"));
  EXPECT_FALSE(EqualIgnoringCase(u"\u0410", u"\u0430"));
  EXPECT_FALSE(EqualIgnoringCase(u"a", u"ab"));
}

TEST(StringTest, FindingWithoutLetterCaseGivesTheFirstPlaceFromZero) {
  EXPECT_EQ(FindIgnoringCase(u"xSELECT select ", u"select "), 1U);
  EXPECT_EQ(FindIgnoringCase(u"Select a", u"select "), 0U);
  EXPECT_EQ(FindIgnoringCase(u"selec", u"select "), StringView::npos);
  EXPECT_EQ(FindIgnoringCase(u"", u""), 0U);
}

TEST(StringTest, ComparingExactlyIsByTheUnits) {
  EXPECT_NE(String(u"\u00E4"), String(u"a\u0308"));
  EXPECT_NE(String(u"a"), String(u"A"));
}

TEST(StringTest, ANumericTextIsOptionalSignDigitsAndPoint) {
  for (const StringView text :
       {u"0", u"12", u"+1", u"-1", u"1.5", u".5", u"5.", u"-.5", u"007", u"99999999999999999999"}) {
    EXPECT_TRUE(IsNumeric(text)) << Narrow(text);
  }
}

TEST(StringTest, ANumericTextMayHaveAnExponent) {
  for (const StringView text :
       {u"1e2", u"1E2", u"1e+2", u"1e-2", u".5e0", u"5.E1", u"1e999999999999999999999"}) {
    EXPECT_TRUE(IsNumeric(text)) << Narrow(text);
  }
}

TEST(StringTest, BlanksAtBothEndsOfANumericTextDoNotCount) {
  EXPECT_TRUE(IsNumeric(u"  12  "));
  EXPECT_FALSE(IsNumeric(u"\t12"));
  EXPECT_FALSE(IsNumeric(u"12\r\n"));
  EXPECT_FALSE(IsNumeric(u"\u00A012"));
}

TEST(StringTest, AnyOtherTextIsNotNumeric) {
  for (const StringView text :
       {u"",     u" ",  u".",   u"+",  u"-.",     u"1.2.3",  u"1,000", u"- 1",   u"1 2", u"--1",
        u"1-",   u"e5", u".e5", u"1e", u"1e+",    u"1e 2",   u"1e2.0", u"1e2e3", u"1d2", u"&H10",
        u"0x10", u"$1", u"1x",  u"x",  u"\uFF11", u"\u0661", u"inf",   u"nan",   u"(1)"}) {
    EXPECT_FALSE(IsNumeric(text)) << Narrow(text);
  }
}

struct Rounded {
  StringView text;
  int integer;
};

TEST(StringTest, ANumberIsRoundedToTheNearestAndHalvesToTheEvenOne) {
  for (const Rounded& row : std::initializer_list<Rounded>{{u"0", 0},
                                                           {u"2", 2},
                                                           {u" 7 ", 7},
                                                           {u"-3", -3},
                                                           {u"+4", 4},
                                                           {u"0.4", 0},
                                                           {u"0.5", 0},
                                                           {u".6", 1},
                                                           {u"1.5", 2},
                                                           {u"2.5", 2},
                                                           {u"3.5", 4},
                                                           {u"9.5", 10},
                                                           {u"99.5", 100},
                                                           {u"-0.5", 0},
                                                           {u"-1.5", -2},
                                                           {u"-2.5", -2},
                                                           {u"-2.51", -3},
                                                           {u"2.50", 2},
                                                           {u"2.5000001", 3},
                                                           {u"2.4999999", 2},
                                                           {u"000012", 12},
                                                           {u"0000000.5", 0},
                                                           {u"0.0000009", 0},
                                                           {u"5.", 5},
                                                           {u"9.99999999999999999999", 10}}) {
    EXPECT_EQ(ToInteger(row.text), row.integer) << Narrow(row.text);
  }
}

TEST(StringTest, AnExponentMovesThePointBeforeTheRounding) {
  for (const Rounded& row : std::initializer_list<Rounded>{{u"1e2", 100},
                                                           {u"1E+2", 100},
                                                           {u"25e-1", 2},
                                                           {u"35e-1", 4},
                                                           {u"0.25E1", 2},
                                                           {u"0.015e2", 2},
                                                           {u"12345678e-4", 1235},
                                                           {u"5e-1", 0},
                                                           {u"51e-2", 1},
                                                           {u"5e-2", 0},
                                                           {u"-15e-1", -2},
                                                           {u"3.2767e4", 32767},
                                                           {u"0.000001e6", 1},
                                                           {u"1e-999999999999999999999", 0},
                                                           {u"0e999999999999999999999", 0},
                                                           {u"1000000e-6", 1},
                                                           {u"00.00e5", 0}}) {
    EXPECT_EQ(ToInteger(row.text), row.integer) << Narrow(row.text);
  }
}

TEST(StringTest, TheEndsOfTheRangeAreReachedByRoundingToo) {
  EXPECT_EQ(ToInteger(u"32767"), 32767);
  EXPECT_EQ(ToInteger(u"32767.49"), 32767);
  EXPECT_EQ(ToInteger(u"-32768"), -32768);
  EXPECT_EQ(ToInteger(u"-32768.5"), -32768);
}

TEST(StringTest, ANumberOutsideTheRangeIsAnOverflow) {
  for (const StringView text :
       {u"32768", u"32767.5", u"-32769", u"-32768.51", u"-32768.500001", u"100000", u"1e5",
        u"1e999999999999999999999", u"-1e999999999999999999999", u"99999999999999999999999"}) {
    EXPECT_EQ(ErrorOf([text] { ToInteger(text); }), "6 overflow") << Narrow(text);
  }
}

TEST(StringTest, AnIntegerIsWrittenInDecimalDigits) {
  EXPECT_EQ(ToText(0), u"0");
  EXPECT_EQ(ToText(-32768), u"-32768");
  EXPECT_EQ(ToText(32767), u"32767");
}

TEST(StringTest, PiecesAreJoinedAndAsciiIsWidened) {
  EXPECT_EQ(Concat(u"a", String(u"b"), StringView(u"")), u"ab");
  EXPECT_EQ(FromAscii("a~1"), u"a~1");
}

TEST(StringTest, EqualTextsAreEqualUnitByUnit) {
  const String text = u"a\xD800";
  EXPECT_TRUE(Equal(text, text));
  EXPECT_TRUE(Equal(text, u"a\xD800"));
  EXPECT_TRUE(Equal({}, u""));
  EXPECT_FALSE(Equal(text, StringView(text).substr(0, 1)));
  EXPECT_FALSE(Equal(u"ab", u"aB"));
}

TEST(StringTest, APartIsFoundFromAPlaceOn) {
  const StringView text = u"aab aab aab";
  EXPECT_EQ(Find(text, u"ab"), 1U);
  EXPECT_EQ(Find(text, u"ab", 1), 1U);
  EXPECT_EQ(Find(text, u"ab", 2), 5U);
  EXPECT_EQ(Find(text, u"ab", 9), 9U);
  EXPECT_EQ(Find(text, u"ab", 10), StringView::npos);
  EXPECT_EQ(Find(text, u"ab", 100), StringView::npos);
  EXPECT_EQ(Find(text, u"b a"), 2U);
  EXPECT_EQ(Find(text, u"c"), StringView::npos);
  EXPECT_EQ(Find(u"", u"a"), StringView::npos);
  EXPECT_EQ(Find(u"ab", u"abc"), StringView::npos);
}

}  // namespace
}  // namespace zolt20::tests
