// What the tree of a text makes of what is no statement.
#include <gtest/gtest.h>

#include "language/outline.h"
#include "tests/support/host_texts.h"
#include "tests/support/outline_lines.h"

namespace zolt20::tests {
namespace {

void Expect(std::string_view text, const Texts& lines) {
  const String wide = Wide(text);
  EXPECT_EQ(OutlineLines(wide), lines) << text;
  EXPECT_EQ(WrongInTree(wide, language::ReadOutline(wide)), "") << text;
}

void ExpectProblems(std::string_view text, const Texts& lines) {
  const String wide = Wide(text);
  EXPECT_EQ(ProblemLines(wide), lines) << text;
  EXPECT_EQ(WrongInTree(wide, language::ReadOutline(wide)), "") << text;
}

TEST(OutlineProblemTest, AStatementThatIsNotClosedGoesOnToTheEndOfTheText) {
  ExpectProblems("if a then\r\nx", {"if 0-12 if a then [not closed]"});
  ExpectProblems("for i = 1 to 2\r\nx", {"for 0-17 for i = 1 to 2 [not closed]"});
  ExpectProblems("while a\r\nx", {"while 0-10 while a [not closed]"});
  ExpectProblems("repeat\r\nx", {"repeat 0-9 repeat [not closed]"});
  ExpectProblems("on case a\r\nx", {"on case 0-12 on case a [not closed]"});
  ExpectProblems("select A\r\nfrom  T\r\nselectdo\r\nx", {"select 0-30 select A [not closed]"});
}

TEST(OutlineProblemTest, AnEndClosesWhatIsOpenWithinItsStatement) {
  Expect("if a then \r\n\twhile b\r\n\t\tx\r\nendif\r\ny",
         {"if 0-34 if a then", "  head 0-12 if a then", "  while 12-27 while b [not closed]",
          "    head 12-22 while b", "    statement 22-27 x", "  end 27-34 endif",
          "statement 34-35 y"});
  Expect("select A\r\nselectdo\r\nif a then \r\nselecteos\r\nx\r\nendselect",
         {"select 0-55 select A", "  select list 0-10 select A", "  select do 10-32 selectdo",
          "    head 10-20 selectdo", "    if 20-32 if a then [not closed]",
          "      head 20-32 if a then", "  select eos 32-46 selecteos", "    head 32-43 selecteos",
          "    statement 43-46 x", "  end 46-55 endselect"});
}

TEST(OutlineProblemTest, AnEndOfNothingIsAStatement) {
  ExpectProblems(
      "endif\r\nendfor\r\nendwhile\r\nuntil ( a "
      ")\r\nendcase\r\nendselect\r\nendif x = 1",
      {"statement 0-7 endif [nothing to close]", "statement 7-15 endfor [nothing to close]",
       "statement 15-25 endwhile [nothing to close]",
       "statement 25-38 until ( a ) [nothing to close]",
       "statement 38-47 endcase [nothing to close]", "statement 47-58 endselect [nothing to close]",
       "statement 58-64 endif [nothing to close]"});
}

TEST(OutlineProblemTest, AnElseNeedsAnIfWithoutOne) {
  ExpectProblems("else\r\nx", {"statement 0-6 else [out of place]"});
  ExpectProblems("if a then\r\nelse\r\nelse\r\nendif", {"statement 17-23 else [out of place]"});
  // The one around it has none: the innermost is not closed.
  Expect("if a then\r\nif b then\r\nelse\r\nx\r\nelse\r\ny\r\nendif",
         {"if 0-45 if a then", "  head 0-11 if a then", "  if 11-31 if b then [not closed]",
          "    head 11-22 if b then", "    else 22-31 else", "      head 22-28 else",
          "      statement 28-31 x", "  else 31-40 else", "    head 31-37 else",
          "    statement 37-40 y", "  end 40-45 endif"});
  ExpectProblems("if a then\r\nelse\r\nif b then\r\nelse\r\nelse\r\nendif\r\nendif",
                 {"statement 34-40 else [out of place]"});
  ExpectProblems("if a then\r\nif b then\r\nelse\r\nelse\r\nelse\r\nendif",
                 {"if 11-28 if b then [not closed]", "statement 34-40 else [out of place]"});
}

TEST(OutlineProblemTest, RowsAndADefaultNeedAnOnCase) {
  ExpectProblems("case 1 :\r\nx\r\ndefault:\r\ny", {"statement 0-10 case 1 : [out of place]",
                                                    "statement 13-23 default: [out of place]"});
  ExpectProblems("on case e\r\ndefault:\r\ndefault:\r\nendcase",
                 {"statement 21-31 default: [out of place]"});
}

TEST(OutlineProblemTest, AClauseNeedsItsPlace) {
  ExpectProblems("from  T\r\nselectdo\r\nx", {"statement 0-9 from  T [out of place]",
                                              "statement 9-19 selectdo [out of place]"});
  Expect(
      "select A\r\nwhere b\r\nfrom  "
      "T\r\nselecteos\r\nx\r\nselectdo\r\ny\r\nendselect",
      {"select 0-64 select A", "  select list 0-10 select A", "  where 10-19 where b",
       "  from 19-28 from  T [out of place]", "  select eos 28-42 selecteos",
       "    head 28-39 selecteos", "    statement 39-42 x",
       "  select do 42-55 selectdo [out of place]", "    head 42-52 selectdo",
       "    statement 52-55 y", "  end 55-64 endselect"});
  Expect(
      "select A\r\nselectdo\r\nwhere b\r\nif a then\r\nfrom  "
      "T\r\nendif\r\nendselect",
      {"select 0-65 select A", "  select list 0-10 select A", "  select do 10-56 selectdo",
       "    head 10-20 selectdo", "    statement 20-29 where b [out of place]",
       "    if 29-56 if a then", "      head 29-40 if a then",
       "      statement 40-49 from  T [out of place]", "      end 49-56 endif",
       "  end 56-65 endselect"});
}

TEST(OutlineProblemTest, AClauseOfTheStatementAroundClosesTheOneWithin) {
  Expect(
      "select A\r\nselectdo\r\nselect "
      "B\r\nselecteos\r\nx\r\nselectdo\r\ny\r\nselecteos\r\n"
      "endselect",
      {"select 0-77 select A", "  select list 0-10 select A", "  select do 10-57 selectdo",
       "    head 10-20 selectdo", "    select 20-57 select B [not closed]",
       "      select list 20-30 select B", "      select eos 30-44 selecteos",
       "        head 30-41 selecteos", "        statement 41-44 x",
       "      select do 44-57 selectdo [out of place]", "        head 44-54 selectdo",
       "        statement 54-57 y", "  select eos 57-68 selecteos", "    head 57-68 selecteos",
       "  end 68-77 endselect"});
  Expect(
      "select A\r\nwhere EXISTS (\r\nselect B\r\norder by B\r\ngroup by "
      "A\r\nendselect",
      {"select 0-69 select A", "  select list 0-10 select A", "  where 10-48 where EXISTS (",
       "    head 10-26 where EXISTS (", "    select 26-48 select B [not closed]",
       "      select list 26-36 select B", "      order by 36-48 order by B",
       "  group by 48-60 group by A", "  end 60-69 endselect"});
  Expect(
      "select A\r\nselectdo\r\nselect B\r\nfrom  T\r\nfrom  "
      "T\r\nendselect\r\nendselect",
      {"select 0-68 select A", "  select list 0-10 select A", "  select do 10-59 selectdo",
       "    head 10-20 selectdo", "    select 20-59 select B", "      select list 20-30 select B",
       "      from 30-39 from  T", "      from 39-48 from  T [out of place]",
       "      end 48-59 endselect", "  end 59-68 endselect"});
}

TEST(OutlineProblemTest, AStatementAmongClausesClosesTheSelectStatement) {
  Expect("select A\r\nfrom  T\r\nselect B\r\nfrom  T\r\nendselect",
         {"select 0-19 select A [not closed]", "  select list 0-10 select A",
          "  from 10-19 from  T", "select 19-47 select B", "  select list 19-29 select B",
          "  from 29-38 from  T", "  end 38-47 endselect"});
  Expect(
      "select A\r\nwhere b\r\nselect B\r\nwhere c (\r\nfor i = 1 to "
      "2\r\nendfor",
      {"select 0-19 select A [not closed]", "  select list 0-10 select A", "  where 10-19 where b",
       "select 19-40 select B [not closed]", "  select list 19-29 select B",
       "  where 29-40 where c (", "for 40-62 for i = 1 to 2", "  head 40-56 for i = 1 to 2",
       "  end 56-62 endfor"});
}

TEST(OutlineProblemTest, ALineAmongClausesIsOutOfPlace) {
  Expect(
      "select A\r\nx = 1\r\nfrom  T\r\nendselect",
      {"select 0-35 select A", "  select list 0-10 select A",
       "  statement 10-17 x = 1 [out of place]", "  from 17-26 from  T", "  end 26-35 endselect"});
}

TEST(OutlineProblemTest, ABracketThatClosesEndsTheSelectStatementWithinIt) {
  Expect(
      "select A\r\nwhere EXISTS (\r\nselect B\r\nfrom  T\r\n)\r\nor "
      "c\r\nendselect",
      {"select 0-63 select A", "  select list 0-10 select A", "  where 10-54 where EXISTS (",
       "    head 10-26 where EXISTS (", "    select 26-45 select B [not closed]",
       "      select list 26-36 select B", "      from 36-45 from  T", "    more 45-54 )",
       "  end 54-63 endselect"});
  Expect(
      "select A\r\nwhere EXISTS (\r\nselect B\r\nwhere ( "
      "b\r\n)\r\n)\r\nendselect",
      {"select 0-62 select A", "  select list 0-10 select A", "  where 10-53 where EXISTS (",
       "    head 10-26 where EXISTS (", "    select 26-50 select B [not closed]",
       "      select list 26-36 select B", "      where 36-50 where ( b", "    more 50-53 )",
       "  end 53-62 endselect"});
  // The condition goes on in the outermost statement, behind one of the statement within.
  Expect(
      "select A\r\nwhere (\r\nselect B\r\nwhere (\r\nselect C\r\nendselect\r\n)\r\n)\r\nendselect",
      {"select 0-74 select A", "  select list 0-10 select A", "  where 10-65 where (",
       "    head 10-19 where (", "    select 19-62 select B [not closed]",
       "      select list 19-29 select B", "      where 29-62 where (",
       "        head 29-38 where (", "        select 38-59 select C",
       "          select list 38-48 select C", "          end 48-59 endselect",
       "        more 59-62 )", "    more 62-65 )", "  end 65-74 endselect"});
  ExpectProblems("select A\r\nselectdo\r\nselect B\r\n)\r\nendselect\r\nendselect",
                 {"statement 30-33 ) [out of place]"});
  ExpectProblems(")", {});
  ExpectProblems("select A\r\n)\r\nendselect", {"statement 10-13 ) [out of place]"});
}

TEST(OutlineProblemTest, AnEndOrABranchInAWhereClauseIsAStatementThere) {
  Expect("select A\r\nwhere b\r\nendif\r\ncase\r\n)\r\nendselect",
         {"select 0-44 select A", "  select list 0-10 select A", "  where 10-35 where b",
          "    head 10-19 where b", "    statement 19-26 endif [nothing to close]",
          "    statement 26-32 case [out of place]", "    more 32-35 )", "  end 35-44 endselect"});
}

TEST(OutlineProblemTest, WhatLacksAPartIsIncomplete) {
  ExpectProblems("if a\r\nendif", {"head 0-6 if a [incomplete]"});
  ExpectProblems("if\r\n\r\nthen\r\nendif", {"head 0-6 if [incomplete]"});
  ExpectProblems("if  then \r\nendif", {"head 0-11 if  then [incomplete]"});
  ExpectProblems("if a\r\nx\r\nif b then\r\nendif\r\nendif", {"head 0-6 if a [incomplete]"});
  ExpectProblems("if " + std::string(20, '\n') + "then\nendif", {"head 0-23 if [incomplete]"});
  ExpectProblems("for i = 1\r\nendfor", {"head 0-11 for i = 1 [incomplete]"});
  ExpectProblems("for i to 2\r\nendfor", {"head 0-12 for i to 2 [incomplete]"});
  ExpectProblems("while\r\nendwhile", {"head 0-7 while [incomplete]"});
  ExpectProblems("repeat\r\nUntil  (  )", {"end 8-19 Until  (  ) [incomplete]"});
  ExpectProblems("repeat\r\nuntil", {"end 8-13 until [incomplete]"});
  ExpectProblems("repeat\r\nuntil a", {});
  ExpectProblems("until", {"statement 0-5 until [nothing to close]"});
  ExpectProblems("repeat\r\nuntil ( a", {});
  ExpectProblems("on case\r\ncase\r\ncase :\r\ncase 1\r\nendcase",
                 {"head 0-9 on case [incomplete]", "head 9-15 case [incomplete]",
                  "head 15-23 case : [incomplete]", "head 23-31 case 1 [incomplete]"});
  ExpectProblems(
      "select\r\nfrom\r\nwhere\r\ngroup by\r\norder by\r\nas set "
      "with\r\nendselect",
      {"select list 0-8 select [incomplete]", "from 8-14 from [incomplete]",
       "group by 21-31 group by [incomplete]", "order by 31-41 order by [incomplete]",
       "row limit 41-54 as set with [incomplete]"});
}

TEST(OutlineProblemTest, AnIfIsLookedThroughForItsThenSoManyLines) {
  const std::string condition = "if a";
  const std::string line = "\r\nand b";
  std::string text = condition;
  for (int lines = 1; lines < 16; ++lines)
    text += line;
  ExpectProblems(text + " then\r\nendif", {});
  ExpectProblems(text + line + " then\r\nendif", {"head 0-6 if a [incomplete]"});
}

TEST(OutlineProblemTest, AMillionNestedStatementsTakeNoStack) {
  constexpr std::size_t kDepth = 1'000'000;
  String text;
  for (std::size_t depth = 0; depth < kDepth; ++depth)
    text += u"if a then\n";
  std::vector<language::Node> nodes = language::ReadOutline(text);
  ASSERT_EQ(nodes.size(), 2 * kDepth);
  EXPECT_EQ(nodes.back().depth, kDepth);
  EXPECT_EQ(nodes[0].problem, language::Problem::kNotClosed);
  EXPECT_EQ(WrongInTree(text, nodes), "");
  for (std::size_t depth = 0; depth < kDepth; ++depth)
    text += u"endif\n";
  nodes = language::ReadOutline(text);
  ASSERT_EQ(nodes.size(), 3 * kDepth);
  EXPECT_EQ(nodes[0].problem, language::Problem::kNone);
  EXPECT_EQ(WrongInTree(text, nodes), "");
}

TEST(OutlineProblemTest, NamesOfKindsAndProblems) {
  EXPECT_STREQ(language::NameOf(language::NodeKind::kBlank), "blank");
  EXPECT_STREQ(language::NameOf(language::NodeKind::kDefault), "default");
  EXPECT_STREQ(language::NameOf(language::Problem::kNone), "");
  EXPECT_STREQ(language::NameOf(language::Problem::kIncomplete), "incomplete");
}

}  // namespace
}  // namespace zolt20::tests
