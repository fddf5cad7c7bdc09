// What a check finds, and where.
#include "language/check.h"

#include <gtest/gtest.h>

#include "language/reopen.h"
#include "tests/support/finding_lines.h"

namespace zolt20::tests {
namespace {

using language::Finding;

void Expect(std::string_view text, const Texts& lines) {
  EXPECT_EQ(FindingLines(Wide(text)), lines) << text;
}

/// A select statement with these lines behind its from clause.
std::string Select(std::string_view lines) {
  return "select TABLE__A.F1\r\nfrom  TABLE__A\r\n" + std::string(lines) + "endselect";
}

TEST(CheckTest, FindsNothingInWholeStatements) {
  Expect("", {});
  Expect(Select(""), {});
  Expect("for i = 1 to 3\r\n\tif ( a ) then \r\n\t\tx = \")\"\r\n\tendif\r\nendfor", {});
  Expect("select count ( * ) :var.count,sum ( TABLE__A.F1 ) :var.sum.TABLE__A.F1\r\nendselect", {});
}

// Structure.

TEST(CheckTest, ABlockThatIsNotClosed) {
  Expect("x\r\n\twhile a\r\n\t\ty",
         {"2:2+7 error not-closed: 'endwhile' is missing: this statement is not closed."});
  Expect("select A",
         {"1:1+8 error not-closed: 'endselect' is missing: this statement is not closed."});
  Expect("if a then",
         {"1:1+9 error not-closed: 'endif' is missing: this statement is not closed."});
  Expect("for i = 1 to 2",
         {"1:1+14 error not-closed: 'endfor' is missing: this statement is not closed."});
  Expect("repeat", {"1:1+6 error not-closed: 'until' is missing: this statement is not closed."});
  Expect("on case a",
         {"1:1+9 error not-closed: 'endcase' is missing: this statement is not closed."});
}

TEST(CheckTest, ABlockThatIsClosedTwice) {
  Expect("if a then\r\n\tx\r\nendif\r\n  ENDIF",
         {"4:3+5 error nothing-to-close: Nothing is open here that 'ENDIF' could close."});
  Expect("until ( a )",
         {"1:1+11 error nothing-to-close: Nothing is open here that 'until' could close."});
}

TEST(CheckTest, AClauseAtTheWrongPlace) {
  const std::string clause =
      " error out-of-place: This clause can't stand here: clauses have a fixed order, and each "
      "stands once.";
  Expect(Select("group by  TABLE__A.F1\r\nwhere a = 1\r\n"), {"4:1+11" + clause});
  Expect(Select("where a = 1\r\nwhere a = 1\r\n"), {"4:1+11" + clause});
  Expect("from  TABLE__A", {"1:1+14" + clause});
  Expect(Select("order by A\r\nfrom  \r\n"), {"4:1+4" + clause});
  Expect(Select("x = 1\r\n"),
         {"3:1+5 error out-of-place: This line is no clause, and stands among clauses."});
  Expect("else", {"1:1+4 error out-of-place: An else needs an if without one."});
  const std::string row =
      " error out-of-place: This needs an on case around it, which has at most one default.";
  Expect("case 1 :\r\ndefault:", {"1:1+8" + row, "2:1+8" + row});
}

TEST(CheckTest, WhatIsMissing) {
  Expect("if\r\nendif", {"1:1+2 error incomplete: An if needs a condition and 'then' behind it."});
  Expect(
      "for i to 2\r\nendfor",
      {"1:1+10 error incomplete: A for needs a variable, '=', its first value, 'to' and its last "
       "value."});
  Expect("while\r\nendwhile", {"1:1+5 error incomplete: A condition is missing here."});
  Expect("repeat\r\nuntil (  )", {"2:1+10 error incomplete: A condition is missing here."});
  Expect("on case\r\ncase\r\nendcase",
         {"1:1+7 error incomplete: An on case needs an expression.",
          "2:1+4 error incomplete: A case needs a value and a colon behind it."});
  const std::string clause = " error incomplete: This clause is empty.";
  Expect("select\r\nfrom\r\nwhere  \r\ngroup by\r\norder by\r\nas set with\r\nendselect",
         {"1:1+6" + clause, "2:1+4" + clause, "3:1+5" + clause, "4:1+8" + clause, "5:1+8" + clause,
          "6:1+11" + clause});
  Expect("select A\r\nwhere\r\n\ta = 1\r\nendselect", {});
}

TEST(CheckTest, ARowLimitNeedsItsRows) {
  Expect(Select("as set with  10  ROWS \r\n"), {});
  Expect(Select("as set with 10000 row\r\n"),
         {"3:1+21 error incomplete: A row limit is a number with 'rows' behind it."});
  const Texts missing{"3:1+14 error incomplete: A row limit is a number with 'rows' behind it."};
  Expect(Select("as set with 10\r\n"), missing);
  Expect("a\r\n\r\n" + Select("").substr(0, 0) + "select A\r\nas set with rows\r\nendselect",
         {"4:1+16 error incomplete: A row limit is a number with 'rows' behind it."});
}

TEST(CheckTest, AStatementGluedToAnEnd) {
  Expect(Select("").append(":var.big = 0"),
         {"3:10+12 error glued: A statement begins right behind 'endselect' and not on a line of "
          "its own."});
  Expect(
      "if a then\r\n\tx\r\nendif  y = 1\r\nz",
      {"3:8+5 error glued: A statement begins right behind 'endif' and not on a line of its own."});
  Expect(
      "on case a\r\ncase 1 :\r\nx\r\nbreak y\r\nendcase",
      {"4:7+1 error glued: A statement begins right behind 'break' and not on a line of its own."});
  // A line of its own, no statement, or one that the control writes there.
  Expect(Select("").append("\r\n:var.big = 0"), {});
  Expect(Select("").append("  \r\n"), {});
  Expect(Select("").append(Select("")), {});
  Expect("if a then\r\nif b then\r\nendif endif", {});
  Expect("if a then\r\nendif endif",
         {"2:7+5 error nothing-to-close: Nothing is open here that 'endif' could close."});
}

// Characters.

TEST(CheckTest, AStringThatDoesNotEndOnItsLine) {
  const std::string open =
      " error open-string: The string that begins here does not end on its line.";
  Expect("x = \"a\r\ny = \"b\"", {"1:5+2" + open});
  Expect("x = \"a\" + \"", {"1:11+1" + open});
  Expect(Select("where a = \"b\nand c = \"d\"\r\n"), {"3:11+2" + open});
}

TEST(CheckTest, BracketsThatDoNotFitTogether) {
  Expect("x = f ( a", {"1:7+1 error open-bracket: This '(' is not closed."});
  Expect("x = f a )", {"1:9+1 error stray-bracket: This ')' closes nothing."});
  Expect("x = { ( a }", {"1:7+1 error open-bracket: This '(' is not closed."});
  Expect("x = ( a }", {"1:5+1 error open-bracket: This '(' is not closed.",
                       "1:9+1 error stray-bracket: This '}' closes nothing."});
  Expect("x = \"(\" + f ( \")\" )", {});
}

TEST(CheckTest, AStatementCanStandOnSeveralLines) {
  Expect("x = f (\r\n\ta,\r\n\tb )\r\ny", {});
  Expect("x = f (\r\nif a then\r\n\tb )\r\nendif",
         {"1:7+1 error open-bracket: This '(' is not closed.",
          "3:4+1 error stray-bracket: This ')' closes nothing."});
  Expect("if a then\r\n\tx = f (\r\nendif\r\ny )",
         {"2:8+1 error open-bracket: This '(' is not closed.",
          "4:3+1 error stray-bracket: This ')' closes nothing."});
  Expect("if f ( then\r\n\t)\r\nendif", {"1:6+1 error open-bracket: This '(' is not closed.",
                                         "2:2+1 error stray-bracket: This ')' closes nothing."});
}

TEST(CheckTest, ABracketOfAConditionGoesAroundItsSelectStatements) {
  const std::string within = "select TABLE__A.F1\r\nwhere { a }\r\nendselect\r\n";
  Expect(Select("where EXISTS ( \r\n" + within + ")\r\nor NOT EXISTS (\r\n" + within + ")\r\n"),
         {});
  Expect(Select("where EXISTS ( \r\n" + within + ")\r\nor b )\r\n"),
         {"8:6+1 error stray-bracket: This ')' closes nothing."});
  Expect(Select("where EXISTS ( \r\n" + within + "or b\r\n") + "\r\nx = { c",
         {"3:14+1 error open-bracket: This '(' is not closed.",
          "9:5+1 error open-bracket: This '{' is not closed."});
}

TEST(CheckTest, WhatTheControlCannotTakeBack) {
  const std::string begin =
      " warning not-sendable: The control can't take this back: it reads it as ";
  Expect("a ~ b\r\nx \"\x01\" `^` y `^\" z ` ^ `^",
         {"1:3+1" + begin + "a line break.", "2:4+1" + begin + "a tab.",
          "2:7+3" + begin + "a quote.", "2:13+3" + begin + "a quote.",
          "2:15+10 error open-string: The string that "
          "begins here does not end on its line."});
}

TEST(CheckTest, IsOneWithReopeningOnWhatCannotBeTakenBack) {
  const std::vector<StringView> pieces{u"~", u"\u0001", u"`", u"^", u"`^`", u"\"", u"a", u"\r\n"};
  std::mt19937 random(1);
  for (int i = 0; i < 2000; ++i) {
    String text;
    for (int count = 0; count < 6; ++count)
      text += pieces[random() % pieces.size()];
    std::size_t first = String::npos;
    for (const Finding& finding : language::Check(text)) {
      if (finding.mistake != language::Mistake::notSendable) continue;
      first = finding.first;
      break;
    }
    ASSERT_EQ(first, reopen::FindUnsendable(text)) << Narrow(text);
  }
}

TEST(CheckTest, ALineThatIsNoConditionDoesNotHideABracket) {
  Expect(Select("where ( a\r\nendif (\r\n)\r\n"),
         {"3:7+1 error open-bracket: This '(' is not closed.",
          "4:1+5 error nothing-to-close: Nothing is open here that 'endif' could close."});
}

// Lists.

TEST(CheckTest, AnEntryThatIsEmpty) {
  const std::string empty = " error empty-entry: An entry of this list is empty.";
  Expect("select A,,B\r\nfrom  ,A\r\ngroup by  A, \r\nendselect",
         {"1:10+1" + empty, "2:7+1" + empty, "3:12+1" + empty});
  Expect("select A,f(b,,c),\",,\"\r\nendselect", {});
}

TEST(CheckTest, AnAggregateBesideAPlainField) {
  const std::string mixed =
      " error mixed-aggregate: A plain field beside an aggregate needs a group by.";
  Expect("select SUM (A.F),A.G\r\nfrom  A\r\nendselect", {"1:18+3" + mixed});
  Expect("select A.G,count(*)\r\nendselect", {"1:8+3" + mixed});
  Expect("select 5.5,count(*),2ND.G\r\nendselect", {"1:21+5" + mixed});
  Expect("select count(*),,5\r\nendselect",
         {"1:17+1 error empty-entry: An entry of this list is empty."});
  Expect("select SUM (A.F),A.G\r\nfrom  A\r\ngroup by  A.G\r\nendselect", {});
  Expect("select sum ( A.F ),upper ( A.G ),5,5.5,\"a.b\",:var.c,D\r\nendselect", {});
  Expect("select upper ( A.F ),A.G,count\r\nendselect", {});
  // The group by is another statement's.
  Expect(
      "select max ( A.F ),A.G\r\nselectdo\r\n\tselect A.F\r\n\tgroup by  A.F\r\n\tendselect\r\n"
      "endselect",
      {"1:20+3" + mixed});
}

// Lengths.

TEST(CheckTest, ATextThatABoxCannotHold) {
  const std::string line = "\t" + std::string(996, 'x') + "\r\n";
  // The tab is no part of the text of the box, and the last line break is none either.
  std::string fits;
  for (int lines = 0; lines < 32; ++lines)
    fits += line;
  const auto told = [](const std::string& text) { return FindingLines(Wide(text)); };
  EXPECT_EQ(told(Select("selectdo\r\n" + fits + "\t" + std::string(831, 'y') + "\r\n")), Texts{});
  EXPECT_EQ(told(Select("selectdo\r\n" + fits + "\t" + std::string(832, 'y') + "\r\n")),
            Texts{"3:1+8 warning too-long: A box holds at most 32,767 characters, and here are "
                  "32768."});
  EXPECT_EQ(told(Select("where " + std::string(32'767, 'y') + "\r\n")), Texts{});
  EXPECT_EQ(told(Select("where " + std::string(32'768, 'y') + "\r\n")),
            Texts{"3:1+32774 warning too-long: A box holds at most 32,767 characters, and here are "
                  "32768."});
  // Both the block and the one in it.
  EXPECT_EQ(told(Select("selecteos\r\n\t" +
                        Select("selecteos\r\n\t\t" + std::string(40'000, 'y') + "\r\n") + "\r\n"))
                .size(),
            2U);
}

TEST(CheckTest, BlocksThatEndAtTheSamePlaceHaveLengthsOfTheirOwn) {
  const std::string text(32'768, 'y');
  const std::string most =
      " warning too-long: A box holds at most 32,767 characters, and here are ";
  Expect("select A\r\nselectdo\r\n\tselect B\r\n\tselectdo\r\n\t\t" + text + "\r\n\r\n",
         {"1:1+8 error not-closed: 'endselect' is missing: this statement is not closed.",
          "2:1+8" + most + "32789.",
          "3:2+8 error not-closed: 'endselect' is missing: this statement is not closed.",
          "4:2+8" + most + "32768."});
}

// Places.

TEST(CheckTest, LinesEndWithAnyLineEnd) {
  Expect("a\rb\nc\r\n\r\n  endif",
         {"5:3+5 error nothing-to-close: Nothing is open here that 'endif' could close."});
}

TEST(CheckTest, ColumnsCountCharactersOf16Bits) {
  Expect("\U0001F600 = f ( a", {"1:8+1 error open-bracket: This '(' is not closed."});
}

TEST(CheckTest, AFindingEndsWithItsLineAndKnowsItsNode) {
  const String text = u"x\r\nif a\r\nor b then\r\n";
  const std::vector<language::Node> nodes = language::ReadOutline(text);
  const std::vector<Finding> findings = language::Check(text, nodes);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].first, 3U);
  EXPECT_EQ(findings[0].length, 4U);
  EXPECT_EQ(nodes[findings[0].node].kind, language::NodeKind::kIf);
}

TEST(CheckTest, FindingsComeInTheOrderOfTheText) {
  Expect("if a then\r\nx = (\r\ny = }\r\nendfor",
         {"1:1+9 error not-closed: 'endif' is missing: this statement is not closed.",
          "2:5+1 error open-bracket: This '(' is not closed.",
          "3:5+1 error stray-bracket: This '}' closes nothing.",
          "4:1+6 error nothing-to-close: Nothing is open here that 'endfor' could close."});
}

TEST(CheckTest, OfEachKindAThousandAreTold) {
  String text;
  for (int i = 0; i < 1500; ++i)
    text += u"endif ~\r\n";
  const std::vector<Finding> findings = language::Check(text);
  EXPECT_EQ(findings.size(), 2 * language::kMostFindings);
  EXPECT_EQ(findings.back().line, 1000U);
}

TEST(CheckTest, AHostGivesOtherSentences) {
  language::Words words;
  words.Set(language::Word::notClosed, u"Es fehlt {end}.");
  const std::vector<Finding> findings = language::Check(u"while a", nullptr, words);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(Narrow(findings[0].sentence), "Es fehlt endwhile.");
  EXPECT_STREQ(language::CodeOf(findings[0].mistake), "not-closed");
}

}  // namespace
}  // namespace zolt20::tests
