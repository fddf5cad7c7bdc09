// The words by which a line of the statement language is known.
#include "language/line_words.h"

#include <gtest/gtest.h>

namespace zolt20::tests {
namespace {

using namespace language;

LineWord WordOf(StringView line) {
  return StartOf(line).word;
}

TEST(LineWordsTest, AWordIsKnownInAnyLetterCase) {
  EXPECT_EQ(WordOf(u"if a then"), LineWord::kIf);
  EXPECT_EQ(WordOf(u"IF(a) then"), LineWord::kIf);
  EXPECT_EQ(WordOf(u"EndSelect"), LineWord::kEndSelect);
  EXPECT_EQ(WordOf(u"x = 1"), LineWord::kNone);
  EXPECT_EQ(WordOf(u":var.x"), LineWord::kNone);
  EXPECT_EQ(WordOf(u""), LineWord::kNone);
}

TEST(LineWordsTest, NoWordIsKnownWithinALongerOne) {
  EXPECT_EQ(WordOf(u"ifs"), LineWord::kNone);
  EXPECT_EQ(WordOf(u"for.x"), LineWord::kNone);
  EXPECT_EQ(WordOf(u"while_1"), LineWord::kNone);
  EXPECT_EQ(WordOf(u"else\u00E9"), LineWord::kNone);
  EXPECT_EQ(WordOf(u"selectdoing"), LineWord::kNone);
}

TEST(LineWordsTest, WordsAreOfLettersDigitsPointsAndLinesBelow) {
  String characters;
  for (char16_t c = 0; c < 0x80; ++c) {
    if (IsWordCharacter(c)) characters += c;
  }
  EXPECT_EQ(characters, u".0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ_abcdefghijklmnopqrstuvwxyz");
}

TEST(LineWordsTest, ANullCharacterIsABlank) {
  EXPECT_EQ(PassBlanks(StringView(u" \0\tx", 4), 0), 3U);
}

TEST(LineWordsTest, AClauseNeedsABlankBehindItsWord) {
  EXPECT_EQ(WordOf(u"select A"), LineWord::kSelect);
  EXPECT_EQ(WordOf(u"from"), LineWord::kFrom);
  EXPECT_EQ(WordOf(u"where\ta"), LineWord::kWhere);
  EXPECT_EQ(WordOf(u"where(a)"), LineWord::kNone);
}

TEST(LineWordsTest, SeveralWordsMayStandApart) {
  EXPECT_EQ(StartOf(u"on \t case e").length, 9U);
  EXPECT_EQ(WordOf(u"group by A"), LineWord::kGroupBy);
  EXPECT_EQ(WordOf(u"order by A"), LineWord::kOrderBy);
  EXPECT_EQ(WordOf(u"as  set with 5"), LineWord::kAsSetWith);
  EXPECT_EQ(WordOf(u"oncase e"), LineWord::kNone);
  EXPECT_EQ(WordOf(u"on"), LineWord::kNone);
}

TEST(LineWordsTest, ADefaultHasItsColon) {
  EXPECT_EQ(StartOf(u"default : x").length, 9U);
  EXPECT_EQ(WordOf(u"default"), LineWord::kNone);
  EXPECT_EQ(WordOf(u"default x:"), LineWord::kNone);
}

TEST(LineWordsTest, AClosingWordMayHaveTheNextStatementRightBehindIt) {
  EXPECT_EQ(StartOf(u"endselectselect A").length, 9U);
  EXPECT_EQ(StartOf(u"endforfor i = 1").length, 6U);
  EXPECT_EQ(StartOf(u"endcaseon case e").length, 7U);
  EXPECT_EQ(WordOf(u"endform"), LineWord::kNone);
  EXPECT_EQ(WordOf(u"endififs"), LineWord::kNone);
}

TEST(LineWordsTest, AMillionClosingWordsInARowAreNoCallEach) {
  String line;
  for (int word = 0; word < 1'000'000; ++word)
    line += u"endif";
  EXPECT_EQ(WordOf(line), LineWord::kNone);
}

TEST(LineWordsTest, AWordIsFoundOutsideStringsAlone) {
  EXPECT_EQ(BehindWord(u"a = \"then\" then", u"then"), 15U);
  EXPECT_EQ(BehindWord(u"athen thens THEN", u"then"), 16U);
  EXPECT_EQ(BehindWord(u"= 1 to", u"to", 2), 6U);
  EXPECT_EQ(BehindWord(u"\"then", u"then"), StringView::npos);
  EXPECT_EQ(BehindWord(u"the", u"then"), StringView::npos);
}

TEST(LineWordsTest, TheClosingBracketIsFoundPastOthersAndStrings) {
  EXPECT_EQ(ClosingBracket(u"( a ( b ) \")\" ) )", 0), 14U);
  EXPECT_EQ(ClosingBracket(u"( ( )", 0), StringView::npos);
}

TEST(LineWordsTest, TheColonOfARowIsThatAtTheEndOrOneBeforeABlank) {
  EXPECT_EQ(ColonOfRow(u" :a : "), 4U);
  EXPECT_EQ(ColonOfRow(u" 1: x = :a"), 2U);
  EXPECT_EQ(ColonOfRow(u" :a"), StringView::npos);
  EXPECT_EQ(ColonOfRow(u" "), StringView::npos);
}

}  // namespace
}  // namespace zolt20::tests
