// The tree of each kind of statement, as the control writes it and as people edit it.
#include "language/outline.h"

#include <gtest/gtest.h>

#include "tests/support/host_texts.h"
#include "tests/support/outline_lines.h"

namespace zolt20::tests {
namespace {

void Expect(std::string_view text, const Texts& lines) {
  const String wide = Wide(text);
  EXPECT_EQ(OutlineLines(wide), lines) << text;
  EXPECT_EQ(WrongInTree(wide, language::ReadOutline(wide)), "") << text;
}

TEST(OutlineTest, OfNoTextIsEmpty) {
  Expect("", {});
}

TEST(OutlineTest, OfBlankLinesIsOneNodeWithoutAHead) {
  Expect(" \t\r\n\r\n", {"blank 0-6"});
}

TEST(OutlineTest, APlainLineIsAStatementWithItsLineBreak) {
  Expect("x = 1\r\n\ty = 2  ", {"statement 0-7 x = 1", "statement 7-15 y = 2"});
}

TEST(OutlineTest, BlankLinesBelongToTheLineBeforeThem) {
  Expect("\r\na\r\n \r\n\r\n\tb\r\n\t", {"blank 0-2", "statement 2-10 a", "statement 10-15 b"});
}

TEST(OutlineTest, ALineEndsWithOneOfTheTwoCharactersToo) {
  Expect("a\nb\rc\r\n\rd",
         {"statement 0-2 a", "statement 2-4 b", "statement 4-8 c", "statement 8-9 d"});
}

// The select statement.

TEST(OutlineTest, ASelectStatementWithAllItsClauses) {
  Expect(
      "select A.B,C.D\r\nfrom  C,A\r\nwhere A.B = 1\r\nand C.D = 2\r\ngroup by  A.B\r\n"
      "order by A.B,C.D desc\r\nas set with 10 rows \r\nselectdo\r\n\tx\r\n\ty\r\nselecteos\r\n"
      "\tz\r\nselectempty\r\n\tu\r\nselecterror\r\n\tv\r\nendselect",
      {"select 0-191 select A.B,C.D",
       "  select list 0-16 select A.B,C.D",
       "  from 16-27 from  C,A",
       "  where 27-55 where A.B = 1",
       "  group by 55-70 group by  A.B",
       "  order by 70-93 order by A.B,C.D desc",
       "  row limit 93-115 as set with 10 rows",
       "  select do 115-133 selectdo",
       "    head 115-125 selectdo",
       "    statement 125-129 x",
       "    statement 129-133 y",
       "  select eos 133-148 selecteos",
       "    head 133-144 selecteos",
       "    statement 144-148 z",
       "  select empty 148-165 selectempty",
       "    head 148-161 selectempty",
       "    statement 161-165 u",
       "  select error 165-182 selecterror",
       "    head 165-178 selecterror",
       "    statement 178-182 v",
       "  end 182-191 endselect"});
}

TEST(OutlineTest, TwoSelectStatementsStandBesideEachOther) {
  Expect("select A\r\nfrom  T\r\nendselect\r\nselect B\r\nfrom  T\r\nendselect",
         {"select 0-30 select A", "  select list 0-10 select A", "  from 10-19 from  T",
          "  end 19-30 endselect", "select 30-58 select B", "  select list 30-40 select B",
          "  from 40-49 from  T", "  end 49-58 endselect"});
}

TEST(OutlineTest, AStatementRightBehindAnEndBeginsThere) {
  Expect("select A\r\nfrom  T\r\nendselectselect B\r\nfrom  T\r\nendselect  ",
         {"select 0-28 select A", "  select list 0-10 select A", "  from 10-19 from  T",
          "  end 19-28 endselect", "select 28-58 select B", "  select list 28-38 select B",
          "  from 38-47 from  T", "  end 47-58 endselect"});
  Expect("if a then \r\nendifif b then \r\nendiffor i = 1 to 2\r\nendfor :x",
         {"if 0-17 if a then", "  head 0-12 if a then", "  end 12-17 endif", "if 17-34 if b then",
          "  head 17-29 if b then", "  end 29-34 endif", "for 34-57 for i = 1 to 2",
          "  head 34-50 for i = 1 to 2", "  end 50-57 endfor", "statement 57-59 :x"});
}

TEST(OutlineTest, AWordThatBeginsLikeAnEndIsNone) {
  Expect("endform = 1\r\nendif_x = 2\r\nselection\r\niff",
         {"statement 0-13 endform = 1", "statement 13-26 endif_x = 2", "statement 26-37 selection",
          "statement 37-40 iff"});
}

TEST(OutlineTest, ASelectStatementInBracketsStandsInItsWhereClause) {
  Expect(
      "select A\r\nfrom  T\r\nwhere EXISTS  (  \r\nselect B\r\nfrom  U\r\nwhere B = \")\"\r\n"
      "endselect\r\n)\r\nand C = 1\r\norder by A\r\nendselect",
      {"select 0-118 select A", "  select list 0-10 select A", "  from 10-19 from  T",
       "  where 19-97 where EXISTS  (", "    head 19-38 where EXISTS  (",
       "    select 38-83 select B", "      select list 38-48 select B", "      from 48-57 from  U",
       "      where 57-72 where B = \")\"", "      end 72-83 endselect", "    more 83-97 )",
       "  order by 97-109 order by A", "  end 109-118 endselect"});
}

TEST(OutlineTest, ASelectStatementBehindABracketOnTheLineStandsInItToo) {
  Expect(
      "select A\r\nfrom  T\r\nwhere B IN ( select C\r\nfrom  U\r\nendselect ) and D\r\nendselect",
      {"select 0-79 select A", "  select list 0-10 select A", "  from 10-19 from  T",
       "  where 19-70 where B IN (", "    head 19-32 where B IN (", "    select 32-61 select C",
       "      select list 32-42 select C", "      from 42-51 from  U", "      end 51-61 endselect",
       "    more 61-70 ) and D", "  end 70-79 endselect"});
}

TEST(OutlineTest, TheFirstOfTwoSelectStatementsOnALineHasTheOther) {
  Expect("select A\r\nwhere B IN ( select C ( select D\r\nendselect (\r\n)\r\nendselect",
         {"select 0-69 select A", "  select list 0-10 select A", "  where 10-60 where B IN (",
          "    head 10-23 where B IN (", "    select 23-54 select C ( select D",
          "      select list 23-44 select C ( select D", "      end 44-54 endselect",
          "    more 54-60 (", "  end 60-69 endselect"});
}

TEST(OutlineTest, ASelectStatementInBracketsThatCloseOnTheLineIsPartOfTheCondition) {
  Expect("select A\r\nwhere B = (( select C )) and ( \"( select\" )\r\nendselect",
         {"select 0-64 select A", "  select list 0-10 select A",
          "  where 10-55 where B = (( select C )) and ( \"( select\" )", "  end 55-64 endselect"});
}

TEST(OutlineTest, AListGoesOnBelowACommaOrBehindOne) {
  Expect("select A,\r\n B\r\n ,C\r\nfrom\r\n T\r\nendselect",
         {"select 0-39 select A,", "  select list 0-20 select A,", "  from 20-30 from",
          "  end 30-39 endselect"});
}

// If.

TEST(OutlineTest, AnIfAsTheControlWritesIt) {
  Expect("if a then \r\n\tx\r\nelse\r\n\ty\r\nendif",
         {"if 0-31 if a then", "  head 0-12 if a then", "  statement 12-16 x", "  else 16-26 else",
          "    head 16-22 else", "    statement 22-26 y", "  end 26-31 endif"});
}

TEST(OutlineTest, AnIfOfAConditionAloneStandsAtTheMarginWithinOthers) {
  Expect("while  a\r\nif b then \r\n\tendif\r\nendwhile",
         {"while 0-38 while  a", "  head 0-10 while  a", "  if 10-30 if b then",
          "    head 10-22 if b then", "    end 22-30 endif", "  end 30-38 endwhile"});
}

TEST(OutlineTest, AnElseWithoutAStatementBeforeItBelongsToItsIf) {
  Expect("if a then \r\nelse\r\n\ty\r\nendif",
         {"if 0-27 if a then", "  head 0-12 if a then", "  else 12-22 else", "    head 12-18 else",
          "    statement 18-22 y", "  end 22-27 endif"});
}

TEST(OutlineTest, WhatStandsBehindThenOrElseOnTheLineIsAStatement) {
  Expect(
      "if a then x = 1\r\nelse if b then y = 2\r\nendif\r\nendif",
      {"if 0-51 if a then", "  head 0-10 if a then", "  statement 10-17 x = 1", "  else 17-46 else",
       "    head 17-22 else", "    if 22-46 if b then", "      head 22-32 if b then",
       "      statement 32-39 y = 2", "      end 39-46 endif", "  end 46-51 endif"});
}

TEST(OutlineTest, TheHeadOfAnIfGoesOnToItsThen) {
  Expect("if a = \"then\"\r\n and b then\r\n x\r\nendif",
         {"if 0-37 if a = \"then\"\r\n and b then", "  head 0-28 if a = \"then\"\r\n and b then",
          "  statement 28-32 x", "  end 32-37 endif"});
}

// For, While, Repeat.

TEST(OutlineTest, AForAsTheControlWritesIt) {
  Expect("for i = 1 to 3  Step    2\r\n\tx\r\nendfor",
         {"for 0-37 for i = 1 to 3  Step    2", "  head 0-27 for i = 1 to 3  Step    2",
          "  statement 27-31 x", "  end 31-37 endfor"});
}

TEST(OutlineTest, TheEmptyLineOfAForWithoutAStatementBelongsToItsHead) {
  Expect("for i = 1 to 3\r\n\r\nendfor",
         {"for 0-24 for i = 1 to 3", "  head 0-18 for i = 1 to 3", "  end 18-24 endfor"});
}

TEST(OutlineTest, AWhileWithAStatementAndOneWithout) {
  Expect(
      "while a\r\n\tx\r\n\twhile  b\r\n\tendwhile\r\nendwhile",
      {"while 0-43 while a", "  head 0-9 while a", "  statement 9-13 x", "  while 13-35 while  b",
       "    head 13-24 while  b", "    end 24-35 endwhile", "  end 35-43 endwhile"});
}

TEST(OutlineTest, ARepeatEndsWithItsUntil) {
  Expect("repeat \r\n\tx\r\nUntil  ( a = ( \")\" ) )",
         {"repeat 0-35 repeat", "  head 0-9 repeat", "  statement 9-13 x",
          "  end 13-35 Until  ( a = ( \")\" ) )"});
  Expect("repeat \r\nUntil  ( a )if b then \r\nendif",
         {"repeat 0-21 repeat", "  head 0-9 repeat", "  end 9-21 Until  ( a )",
          "if 21-38 if b then", "  head 21-33 if b then", "  end 33-38 endif"});
}

// On...Case.

TEST(OutlineTest, AnOnCaseWithRowsAndADefault) {
  Expect(
      "\ton case e\r\n\t\tcase 1 :\r\n\t\t\tx\r\n\t\t\tbreak\r\n\t\tcase 2: \r\n"
      "\t\t\tcase :v :\r\n\t\t\t\ty\r\n\t\t\t\tbreak\r\n\t\tdefault: \r\n\t\t\tz\r\nu\r\nendcase",
      {"on case 0-113 on case e", "  head 0-12 on case e", "  case row 12-40 case 1 :",
       "    head 12-24 case 1 :", "    statement 24-30 x", "    end 30-40 break",
       "  case row 40-52 case 2:", "    head 40-52 case 2:", "  case row 52-84 case :v :",
       "    head 52-66 case :v :", "    statement 66-73 y", "    end 73-84 break",
       "  default 84-106 default:", "    head 84-97 default:", "    statement 97-103 z",
       "    statement 103-106 u", "  end 106-113 endcase"});
}

TEST(OutlineTest, WhatComesBehindTheRowsStandsInTheOnCase) {
  Expect(
      "on case e\r\n\tcase 1 :\r\n\t\tx\r\n\t\tbreak\r\n\trepeat \r\n\tUntil  ( a )\r\n"
      "\tdefault: \r\n\t\td\r\nendcase",
      {"on case 0-85 on case e", "  head 0-11 on case e", "  case row 11-36 case 1 :",
       "    head 11-22 case 1 :", "    statement 22-27 x", "    end 27-36 break",
       "  repeat 36-61 repeat", "    head 36-46 repeat", "    end 46-61 Until  ( a )",
       "  default 61-78 default:", "    head 61-73 default:", "    statement 73-78 d",
       "  end 78-85 endcase"});
}

TEST(OutlineTest, ABreakEndsARowAndNothingElse) {
  Expect(
      "on case e\r\ncase 1 :\r\nwhile a\r\nbreak\r\nendwhile\r\nbreak\r\nbreak\r\ndefault:\r\n"
      "break\r\nendcase\r\nbreak",
      {"on case 0-87 on case e", "  head 0-11 on case e",
       "  case row 11-54 case 1 :", "    head 11-21 case 1 :", "    while 21-47 while a",
       "      head 21-30 while a", "      statement 30-37 break", "      end 37-47 endwhile",
       "    end 47-54 break", "  statement 54-61 break",
       "  default 61-78 default:", "    head 61-71 default:", "    end 71-78 break",
       "  end 78-87 endcase", "statement 87-92 break"});
}

TEST(OutlineTest, AStatementOnTheLineOfARowOrADefaultStandsInIt) {
  Expect("on case e\r\ncase :a : x = 1\r\ndefault : y = 2\r\nendcase",
         {"on case 0-52 on case e", "  head 0-11 on case e",
          "  case row 11-28 case :a :", "    head 11-21 case :a :", "    statement 21-28 x = 1",
          "  default 28-45 default :", "    head 28-38 default :", "    statement 38-45 y = 2",
          "  end 45-52 endcase"});
}

TEST(OutlineTest, ADefaultWithoutAColonIsAStatement) {
  Expect("default = 1", {"statement 0-11 default = 1"});
}

TEST(OutlineTest, LetterCaseAndBlanksBetweenWordsDoNotCount) {
  Expect("SELECT A\r\nFrom T\r\nGROUP \t BY A\r\nSelectDo\r\nON  CASE e\r\nENDCASE\r\nEndSelect",
         {"select 0-72 SELECT A", "  select list 0-10 SELECT A", "  from 10-18 From T",
          "  group by 18-32 GROUP \t BY A", "  select do 32-63 SelectDo", "    head 32-42 SelectDo",
          "    on case 42-63 ON  CASE e", "      head 42-54 ON  CASE e", "      end 54-63 ENDCASE",
          "  end 63-72 EndSelect"});
}

}  // namespace
}  // namespace zolt20::tests
