// Stored statements split into the values of the part properties, what of them is reported, and
// what the boxes hold when the parts are written.
#include "language/reopen.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <random>
#include <string>
#include <vector>

#include "tests/support/control_test.h"
#include "tests/support/places.h"

namespace zolt20::tests {
namespace {

using reopen::Parts;
using reopen::Problem;
using reopen::Reopened;

Reopened Reopen(std::string_view statement) {
  return reopen::Reopen(Wide(statement));
}

/// The parts that are there, each "property=value".
Texts PartsOf(const Reopened& reopened) {
  const Parts& parts = reopened.parts;
  const std::vector<std::pair<std::string, const String*>> all{
      {"Select", &parts.prpSelectPart},         {"From", &parts.prpSelectFromPart},
      {"Where", &parts.prpSelectWherePart},     {"Groupby", &parts.prpSelectGroupbyPart},
      {"Orderby", &parts.prpSelectOrderbyPart}, {"AsSet", &parts.prpSelectAsSetPart},
      {"Do", &parts.prpSelectDoPart},           {"EOS", &parts.prpSelectEOSPart},
      {"Empty", &parts.prpSelectEmptyPart},     {"Error", &parts.prpSelectErrorPart},
  };
  Texts texts;
  for (const auto& [name, value] : all) {
    if (!value->empty()) texts.push_back(name + "=" + Narrow(*value));
  }
  return texts;
}

/// "line:column message" of each problem.
Texts ProblemsOf(const Reopened& reopened) {
  Texts texts;
  for (const Problem& problem : reopened.problems) {
    texts.push_back(std::to_string(problem.line) + ":" + std::to_string(problem.column) + " " +
                    problem.message);
  }
  return texts;
}

void ExpectWhole(std::string_view statement, const Texts& parts) {
  const Reopened reopened = Reopen(statement);
  EXPECT_EQ(PartsOf(reopened), parts) << statement;
  EXPECT_EQ(ProblemsOf(reopened), Texts{}) << statement;
  EXPECT_EQ(Narrow(reopened.rest), "") << statement;
}

void ExpectRefused(std::string_view statement, const std::string& problem) {
  const Reopened reopened = Reopen(statement);
  EXPECT_EQ(PartsOf(reopened), Texts{}) << statement;
  EXPECT_EQ(ProblemsOf(reopened), Texts{problem}) << statement;
  EXPECT_EQ(reopened.rest, Wide(statement));
}

/// A select statement of one field with this behind its from clause.
std::string Statement(std::string_view clauses) {
  std::string text = "select TABLE__A.F\r\nfrom  TABLE__A";
  if (!clauses.empty()) text.append("\r\n").append(clauses);
  return text + "\r\nendselect";
}

/// Expects one part beside Select and From.
void ExpectPart(std::string_view clause, const std::string& part) {
  ExpectWhole(Statement(clause), {"Select=TABLE__A.F", "From=TABLE__A", part});
}

// What is split.

TEST(ReopenTest, ThreeLinesAreTheSmallestStatement) {
  ExpectWhole(Statement(""), {"Select=TABLE__A.F", "From=TABLE__A"});
}

TEST(ReopenTest, ASecondStatementBeginsWithALineBreak) {
  ExpectWhole("\r\n" + Statement(""), {"Select=TABLE__A.F", "From=TABLE__A"});
  ExpectWhole("\r\n\r\n" + Statement(""), {"Select=TABLE__A.F", "From=TABLE__A"});
}

TEST(ReopenTest, EachClauseAloneGivesItsPart) {
  ExpectPart("where TABLE__A.F = 1", "Where=TABLE__A.F = 1");
  ExpectPart("group by  TABLE__A.F,TABLE__A.G", "Groupby=TABLE__A.F,TABLE__A.G");
  ExpectPart("order by TABLE__A.F desc,TABLE__A.G", "Orderby=TABLE__A.F desc,TABLE__A.G");
  ExpectPart("as set with 10 rows ", "AsSet=10");
  ExpectPart("selectdo\r\n\txy", "Do=xy");
  ExpectPart("selecteos\r\n\txy", "EOS=xy");
  ExpectPart("selectempty\r\n\txy", "Empty=xy");
  ExpectPart("selecterror\r\n\txy", "Error=xy");
}

TEST(ReopenTest, AnyClausesCanBeThereTogether) {
  const std::vector<std::pair<std::string, std::string>> clauses{
      {"from  B,A", "From=B,A"},
      {"where w1\r\nor w2", "Where=w1~\u0001or w2"},
      {"group by  g1,g2", "Groupby=g1,g2"},
      {"order by o1", "Orderby=o1"},
      {"as set with 5 rows ", "AsSet=5"},
      {"selectdo\r\n\td1\r\n\td2", "Do=d1~\u0001d2"},
      {"selecteos\r\n\te1", "EOS=e1"},
      {"selectempty\r\n\tm1", "Empty=m1"},
      {"selecterror\r\n\tr1", "Error=r1"},
  };
  for (unsigned chosen = 0; chosen < 1U << clauses.size(); ++chosen) {
    std::string text = "select s1,s2";
    Texts parts{"Select=s1,s2"};
    for (std::size_t i = 0; i < clauses.size(); ++i) {
      if ((chosen >> i & 1U) == 0) continue;
      text += "\r\n" + clauses[i].first;
      parts.push_back(clauses[i].second);
    }
    ExpectWhole(text + "\r\nendselect", parts);
  }
}

TEST(ReopenTest, BoundExpressionsKeepTheirVariables) {
  ExpectWhole("select count ( * ) :var.count,sum ( A.B ) :var.sum.A.B\r\nendselect",
              {"Select=count ( * ) :var.count,sum ( A.B ) :var.sum.A.B"});
}

TEST(ReopenTest, FieldsThatOrderOtherwiseThanTheyStandComeFirst) {
  ExpectWhole("select A,B,C,D\r\norder by D desc,NONE,B\r\nendselect",
              {"Select=D,B,A,C", "Orderby=D desc,NONE,B"});
  ExpectWhole("select A,B,C,D\r\norder by B,D desc,A._index1\r\nendselect",
              {"Select=A,B,C,D", "Orderby=B,D desc,A._index1"});
  ExpectWhole("select A:var.A,B:var.B\r\norder by B,A\r\nendselect",
              {"Select=A:var.A,B:var.B", "Orderby=B,A"});
}

TEST(ReopenTest, ListsAreNotEncoded) {
  ExpectWhole("select A.~\r\nfrom  \"T\r\nendselect", {"Select=A.~", "From=\"T"});
}

TEST(ReopenTest, TheRowLimitKeepsItsBlanks) {
  ExpectPart("as set with   5  rows ", "AsSet=  5 ");
  ExpectPart("as set with 5 rows  rows ", "AsSet=5 rows ");
}

// Encodings.

TEST(ReopenTest, LineBreaksTabsAndQuotesAreEncoded) {
  ExpectPart("where a\t= \"x\"", "Where=a\u0001= `^`x`^`");
  ExpectPart("selecteos\r\n\ta\t= \"x\"", "EOS=a\u0001= `^`x`^`");
}

TEST(ReopenTest, EveryLineOfAConditionGetsTheTabThatThePropertyTakesOff) {
  ExpectPart("where a\r\nand b\r\n\tc\r\n\r\nd",
             "Where=a~\u0001and b~\u0001\u0001c~\u0001~\u0001d");
}

TEST(ReopenTest, BlockLinesKeepTheTabThatThePropertyTakesOff) {
  ExpectPart("selecteos\r\n\ta\r\n\t\tb\r\n\t\r\n\tc", "EOS=a~\u0001\u0001b~\u0001~\u0001c");
}

TEST(ReopenTest, SelectDoDoublesTheTabsOfTheText) {
  ExpectPart("selectdo\r\n\ta\r\n\t\tb\r\n\t\t\tc\td",
             "Do=a~\u0001\u0001\u0001b~\u0001\u0001\u0001\u0001\u0001c\u0001\u0001d");
}

TEST(ReopenTest, ATextWithTheMarkerGetsAnother) {
  ExpectPart("selectdo\r\n\ta *zlt* b", "Do=*zlt*a *zlt* b");
  ExpectPart("selecterror\r\n\t*zlt*", "Error=*zlt**zlt*");
  ExpectPart("where a *zlt* b", "Where=a *zlt* b");
}

TEST(ReopenTest, ALoneCarriageReturnOrLineFeedGoesAsItIs) {
  ExpectPart("where a\nendselect\rb", "Where=a\nendselect\rb");
  ExpectPart("selecteos\r\n\ta\nendselect\rb", "EOS=a\nendselect\rb");
}

// Strings, brackets, nested statements.

TEST(ReopenTest, AKeywordInAStringIsNoClause) {
  ExpectPart("where a = \"\r\nendselect\r\norder by x\"\r\nand b",
             "Where=a = `^`~\u0001endselect~\u0001order by x`^`~\u0001and b");
}

TEST(ReopenTest, ABracketInAStringOpensNothing) {
  ExpectPart("where a = \"(\"\r\nor b = \")\"", "Where=a = `^`(`^`~\u0001or b = `^`)`^`");
}

TEST(ReopenTest, AStatementInBracketsIsPartOfTheCondition) {
  ExpectPart(
      "where EXISTS  (  \r\nselect B\r\nfrom  T\r\norder by B\r\nendselect\r\n)\r\nand c",
      "Where=EXISTS  (  ~\u0001select B~\u0001from  T~\u0001order by B~\u0001endselect~\u0001)"
      "~\u0001and c");
}

TEST(ReopenTest, ALineThatBeginsLikeAnEarlierClauseIsPartOfTheCondition) {
  ExpectPart("where a\r\nselect b\r\nfrom  c\r\nwhere d",
             "Where=a~\u0001select b~\u0001from  c~\u0001where d");
}

TEST(ReopenTest, AClosingBracketTooManyIsText) {
  ExpectPart("where a)\r\nand (b)", "Where=a)~\u0001and (b)");
}

TEST(ReopenTest, ABlockHoldsAWholeStatementWithItsBlocks) {
  ExpectWhole(
      Statement("selectdo\r\n\tselect B\r\n\tfrom  T\r\n\tselectdo\r\n\t\tx = \"(\r\n\tselecteos"
                "\r\n\t\ty\r\n\tendselect\r\nselecteos\r\n\tz = 1"),
      {"Select=TABLE__A.F", "From=TABLE__A",
       "Do=select B~\u0001from  T~\u0001selectdo~\u0001\u0001\u0001x = `^`(~\u0001selecteos"
       "~\u0001\u0001\u0001y~\u0001endselect",
       "EOS=z = 1"});
}

// What can't be split: the whole text comes back.

TEST(ReopenTest, ATextThatIsNoStatementComesBackWhole) {
  const std::string begin = "1:1 a statement begins with 'select '";
  ExpectRefused("", begin);
  ExpectRefused("select", begin);
  ExpectRefused("Select A\r\nendselect", begin);
  ExpectRefused(" select A\r\nendselect", begin);
  ExpectRefused("if a then\r\nendif", begin);
  ExpectRefused(std::string(3, '\0'), begin);
  ExpectRefused("\r\n", "2:1 a statement begins with 'select '");
  ExpectRefused("\r\n\r\nfrom  T\r\nendselect", "3:1 a statement begins with 'select '");
}

TEST(ReopenTest, AStatementWithoutItsEndIsRefusedAtItsEnd) {
  ExpectRefused("select ", "1:8 the statement ends without 'endselect'");
  ExpectRefused("select A\r\nfrom  TT", "2:9 the statement ends without 'endselect'");
  ExpectRefused("select A\r\nwhere a", "2:8 the statement ends without 'endselect'");
  ExpectRefused("select A\r\nselectdo\r\n\txy", "3:4 the statement ends without 'endselect'");
}

TEST(ReopenTest, ALineThatIsNoClauseIsRefused) {
  const auto refused = [](std::string_view line) {
    ExpectRefused("select A\r\n" + std::string(line) + "\r\nendselect",
                  "2:1 neither a clause nor 'endselect' begins here");
  };
  refused("");
  refused("from T");
  refused("group by T");
  refused("WHERE a");
  refused("\tfrom  T");
  refused("selectdo ");
  refused("endselect ");
  ExpectRefused("select A\nendselect\r\n", "2:1 neither a clause nor 'endselect' begins here");
}

TEST(ReopenTest, AClauseOutOfItsPlaceIsRefused) {
  const std::string late = "this clause has its place before the one above it";
  ExpectRefused("select A\r\nselect B\r\nendselect", "2:1 " + late);
  ExpectRefused("select A\r\norder by A\r\ngroup by  A\r\nendselect", "3:1 " + late);
  ExpectRefused("select A\r\nselecteos\r\n\txy\r\nselectdo\r\n\txy\r\nendselect", "4:1 " + late);
  ExpectRefused("select A\r\ngroup by  A\r\nwhere a\r\nendselect", "3:1 " + late);
}

TEST(ReopenTest, TextBehindTheStatementIsRefused) {
  ExpectRefused("select A\r\nendselect\r\n", "2:10 text stands behind 'endselect'");
  ExpectRefused("select A\r\nendselect\r\nselect B\r\nendselect",
                "2:10 text stands behind 'endselect'");
}

TEST(ReopenTest, ABlockWithoutItsTabIsRefused) {
  ExpectRefused("select A\r\nselectdo\r\nxy\r\nendselect",
                "3:1 the lines of a block stand one tab in");
  ExpectRefused("select A\r\nselecterror\r\n", "3:1 the lines of a block stand one tab in");
  ExpectRefused("select A\r\nselectdo\r\n\tx\r\ny\r\nendselect",
                "4:1 neither a clause nor 'endselect' begins here");
}

TEST(ReopenTest, AStringOrBracketThatDoesNotEndIsRefusedWhereItBegins) {
  ExpectRefused("select A\r\nwhere a = \"\"\r\nand b = \"x\r\nendselect",
                "3:9 the string that begins here has no end");
  ExpectRefused("select A\r\nwhere a (b ()\r\nendselect",
                "2:9 the bracket that opens here is not closed");
}

// What can't cross: the clause is left over, the others come.

void ExpectLeftOver(std::string_view clause, const std::string& problem) {
  const Reopened reopened = Reopen(Statement(clause));
  EXPECT_EQ(PartsOf(reopened), (Texts{"Select=TABLE__A.F", "From=TABLE__A"})) << clause;
  EXPECT_EQ(ProblemsOf(reopened), Texts{problem}) << clause;
  EXPECT_EQ(Narrow(reopened.rest), clause);
}

TEST(ReopenTest, ATextWithWhatTheEncodingUsesIsLeftOver) {
  const std::string unsendable = " no encoding can send what stands here";
  ExpectLeftOver("where a ~ b ~", "3:9" + unsendable);
  ExpectLeftOver("where a\r\nand \u0001", "4:5" + unsendable);
  ExpectLeftOver("selectdo\r\n\tab\r\n\t`^`", "5:2" + unsendable);
  ExpectLeftOver("selecteos\r\n\tab `^\"x\"", "4:5" + unsendable);
  ExpectLeftOver("selectempty\r\n\t~", "4:2" + unsendable);
  ExpectLeftOver("selecterror\r\n\tab~", "4:4" + unsendable);
}

TEST(ReopenTest, PiecesOfTheQuotesCodeAloneCanBeSent) {
  ExpectPart("where `\"^\"`^ `", "Where=``^`^`^``^ `");
}

TEST(ReopenTest, AListWithAnEmptyEntryIsLeftOver) {
  const std::string empty = " an entry of the list is empty";
  ExpectLeftOver("group by  A,,B", "3:13" + empty);
  ExpectLeftOver("group by  ", "3:11" + empty);
  ExpectLeftOver("group by  A,", "3:13" + empty);
  ExpectLeftOver("order by ,A", "3:10" + empty);
  const Reopened reopened = Reopen("select \r\nfrom  ,T\r\nwhere ab\r\nendselect");
  EXPECT_EQ(PartsOf(reopened), Texts{"Where=ab"});
  EXPECT_EQ(ProblemsOf(reopened), (Texts{"1:8" + empty, "2:7" + empty}));
  EXPECT_EQ(Narrow(reopened.rest), "select \r\nfrom  ,T");
}

TEST(ReopenTest, ARowLimitThatIsNoneIsLeftOver) {
  ExpectLeftOver("as set with 5 rows", "3:19 a row limit ends with ' rows '");
  ExpectLeftOver("as set with rows ", "3:18 a row limit ends with ' rows '");
  ExpectLeftOver("as set with   rows ", "3:13 the row limit is blank");
}

// What crosses and does not come back.

void ExpectReported(std::string_view clause, const std::string& part, const std::string& problem) {
  const Reopened reopened = Reopen(Statement(clause));
  Texts parts{"Select=TABLE__A.F", "From=TABLE__A"};
  if (!part.empty()) parts.push_back(part);
  EXPECT_EQ(PartsOf(reopened), parts) << clause;
  EXPECT_EQ(ProblemsOf(reopened), Texts{problem}) << clause;
  EXPECT_EQ(Narrow(reopened.rest), "") << clause;
}

TEST(ReopenTest, ATextTheControlWouldTrimOrLeaveOutIsReported) {
  const std::string ends = "ends blank, and blank ends do not come back";
  ExpectReported("where x", "Where=x", "3:7 a text of one character does not come back");
  ExpectReported("selectdo\r\n\tx", "Do=x", "4:2 a text of one character does not come back");
  ExpectReported("selectdo\r\n\t", "", "4:2 a clause without a text does not come back");
  ExpectReported("where ab \t", "Where=ab \u0001", "3:9 the text " + ends);
  ExpectReported("selecteos\r\n\t\tab", "EOS=\u0001ab",
                 "4:2 the text begins blank, and blank ends do not come back");
}

TEST(ReopenTest, ATextBeyondSixteenBitsIsReported) {
  const std::string fits(32767, 'x');
  ExpectPart("where " + fits, "Where=" + fits);
  ExpectReported("where " + fits + "y", "Where=" + fits + "y",
                 "3:32774 a text of more than 32,767 characters is too long");
}

TEST(ReopenTest, AnOrderFieldWithDescInItsNameIsReported) {
  const std::string problem = " a name with 'desc' in it does not come back in its order";
  ExpectReported("order by A,B.description,C.desc", "Orderby=A,B.description,C.desc",
                 "3:12" + problem);
  ExpectReported("order by A desc,B.DESC", "Orderby=A desc,B.DESC", "3:17" + problem);
  ExpectReported("order by A.desc desc", "Orderby=A.desc desc", "3:10" + problem);
  ExpectPart("order by A.DESC desc", "Orderby=A.DESC desc");
}

// Hostile input.

TEST(ReopenTest, NulsAreTextLikeAnyOther) {
  const std::string nuls = "a" + std::string(2, '\0') + "b";
  ExpectPart("where " + nuls, "Where=" + nuls);
  ExpectPart("selectdo\r\n\t" + nuls, "Do=" + nuls);
  ExpectWhole("select " + nuls + "\r\nendselect", {"Select=" + nuls});
}

std::string Repeated(std::string_view piece, std::size_t length) {
  std::string text;
  while (text.size() < length)
    text += piece;
  return text;
}

// A quadratic way would take minutes here. What is not reported is all in the parts.
TEST(ReopenTest, AnyLongTextIsTakenOrReported) {
  for (const std::string_view piece :
       {"x", "~", "\r", "\r\n", "(", "\"", "`^", "`^`", "\t", "*zlt*", ",", "desc,", "select ",
        "\r\nselectdo", "\r\norder by ", "\r\nendselect", "\r\n\tselectdo"}) {
    const std::string text = Repeated(piece, 60'000);
    for (const std::string_view head :
         {"", "select ", "select A\r\nwhere a", "select A\r\norder by ",
          "select A\r\nselectdo\r\n\t", "select A\r\nas set with "}) {
      const Reopened reopened = Reopen(std::string(head) + text + "\r\nendselect");
      const Parts& parts = reopened.parts;
      EXPECT_LE(reopened.problems.size(), 3U) << head << piece;
      if (reopened.problems.empty()) {
        EXPECT_GE(parts.prpSelectPart.size() + parts.prpSelectOrderbyPart.size() + 7, text.size())
            << head << piece;
      }
    }
  }
}

TEST(ReopenTest, AMillionCharactersInAConditionAndAMillionInABlockAreSplit) {
  const std::string condition = Repeated("a = \"(\"\r\nand ", 1'000'000) + "b";
  const std::string block = Repeated("if a then\r\n\t\tb\r\n\tendif\r\n\t", 1'000'000) + "c";
  const Reopened reopened = Reopen(Statement("where " + condition + "\r\nselecteos\r\n\t" + block));
  const std::string tooLong = " a text of more than 32,767 characters is too long";
  ASSERT_EQ(reopened.problems.size(), 2U);
  EXPECT_EQ(ProblemsOf(reopened)[0], "2523:12" + tooLong);
  EXPECT_EQ(Narrow(reopened.rest), "");
  // Each line break of the block is one character less when it is encoded.
  EXPECT_EQ(reopened.parts.prpSelectEOSPart.size(), block.size() - 3 * (block.size() / 25));
}

TEST(ReopenTest, ThousandsOfNestedLinesStayOneBlock) {
  std::string block;
  String encoded;
  for (int depth = 1; depth <= 1000; ++depth) {
    block += "\r\n" + std::string(static_cast<std::size_t>(depth), '\t') + "selecteos";
    if (depth > 1) encoded += u"~\u0001" + String(static_cast<std::size_t>(depth) - 1, u'\u0001');
    encoded += u"selecteos";
  }
  const Reopened reopened = Reopen("select A\r\nselecteos" + block + "\r\nendselect");
  EXPECT_EQ(reopened.parts.prpSelectEOSPart, encoded);
  EXPECT_EQ(ProblemsOf(reopened),
            Texts{"247:195 a text of more than 32,767 characters is too long"});
}

// Nothing is lost: the clauses of a text are its parts and its rest.
TEST(ReopenTest, EveryCutOfAStatementComesBackWhole) {
  const std::string statement = Statement(
      "where a = \"x\r\n\"\r\ngroup by  A\r\norder by A desc\r\nas set with 5 rows \r\n"
      "selectdo\r\n\tab\r\n\t\tcd\r\nselecteos\r\n\tab\r\nselectempty\r\n\tab\r\nselecterror"
      "\r\n\tab");
  EXPECT_EQ(ProblemsOf(Reopen(statement)), Texts{});
  for (std::size_t size = 0; size < statement.size(); ++size) {
    const std::string cut = statement.substr(0, size);
    const Reopened reopened = Reopen(cut);
    EXPECT_EQ(Narrow(reopened.rest), cut);
    EXPECT_EQ(PartsOf(reopened), Texts{}) << cut;
    EXPECT_EQ(reopened.problems.size(), 1U) << cut;
  }
}

// Writing the parts.

class WritePartsTest : public ControlTest {
 protected:
  WritePartsTest() {
    Catalogue("TABLE__A2,TABLE__B1,TABLE__C0", List({Field("NTABLE__A.F"), Field("NTABLE__A.G"),
                                                     Field("NTABLE__B.F"), Field("NTABLE__C.F")}));
  }

  void Write(std::string_view statement) {
    reopen::WriteParts(host(), Reopen(statement).parts);
    reports_ = Log();
  }

  Texts reports_;
};

TEST_F(WritePartsTest, ThePartsGoInTheCallingOrder) {
  Write(
      "select TABLE__A.F\r\nfrom  TABLE__A\r\nwhere ab\r\ngroup by  TABLE__A.G\r\norder by "
      "TABLE__A.F\r\nas set with 5 rows \r\nselectdo\r\n\tab\r\nselecteos\r\n\tab\r\nselectempty"
      "\r\n\tab\r\nselecterror\r\n\tab\r\nendselect");
  EXPECT_EQ(reports_, (Texts{"changed prpSelectFromPart", "changed prpSelectPart",
                             "changed prpSelectGroupbyPart", "changed prpSelectOrderbyPart",
                             "changed prpSelectAsSetPart", "changed prpSelectWherePart",
                             "changed prpSelectDoPart", "changed prpSelectEOSPart",
                             "changed prpSelectEmptyPart", "changed prpSelectErrorPart"}));
}

TEST_F(WritePartsTest, PartsThatAreNotThereAreNotWritten) {
  Write("select TABLE__A.F\r\nendselect");
  EXPECT_EQ(reports_, Texts{"changed prpSelectPart"});
  Write("");
  EXPECT_EQ(reports_, Texts{});
}

TEST_F(WritePartsTest, AllIndexRowsStandBeforeTheFields) {
  Write("select TABLE__A.F,TABLE__B.F\r\nfrom  TABLE__B,TABLE__A\r\nendselect");
  EXPECT_EQ(Rows("lstorderbyasc"), (Texts{"TABLE__B._index1", "TABLE__A._index1",
                                          "TABLE__A._index2", "TABLE__A.F", "TABLE__B.F"}));
}

TEST_F(WritePartsTest, TablesThatNoFieldNamesAreMarkedToo) {
  Write("select TABLE__A.F\r\nfrom  TABLE__C,TABLE__A\r\nendselect");
  EXPECT_EQ(MarkedRows("lsttables"), (RowNumbers{0, 2}));
}

// The box of each text property holds just the text that the clause had.
TEST_F(WritePartsTest, BoxesHoldTheTextsOfTheirClauses) {
  for (const std::string text :
       {"ab", "a\r\nb", "a\r\n\tb", "a\r\n\t\tb\r\n\t\t\tc", "a\tb\t\tc\t\t\td", "a\r\n\r\n\r\nb",
        "a\r\n\t\r\n\t\t\r\nb", "a *zlt* b", "*zlt*ab", "ab\r\n\t*zlt*\t\tcd", "a = \"x\"",
        "\"\"\"\"", "`\"^\"`", "a\rb\nc", "a\r\r\nb", "a  b"}) {
    MakeNew();
    std::string block = text;
    for (std::size_t at = 0; (at = block.find("\r\n", at)) != std::string::npos; at += 3)
      block.insert(at + 2, "\t");
    Write("select TABLE__A.F\r\nwhere " + text + "\r\nselectdo\r\n\t" + block +
          "\r\nselecteos\r\n\t" + block + "\r\nselectempty\r\n\t" + block +
          "\r\nselecterror\r\n\t" + block + "\r\nendselect");
    EXPECT_EQ(Text("txtwhereCondition"), text);
    EXPECT_EQ(Text("txtSelectDo"), text);
    EXPECT_EQ(Text("txtSelectEOS"), text);
    EXPECT_EQ(Text("txtselectempty"), text);
    EXPECT_EQ(Text("txtSelectError"), text);
  }
}

// Texts that a host sends.

TEST(ReopenTest, TheFirstPlaceThatCannotBeSentIsFound) {
  const auto place = [](std::string_view text) { return reopen::FindUnsendable(Wide(text)); };
  EXPECT_EQ(place(""), String::npos);
  EXPECT_EQ(place("a \"b\" `^ ^` \t\r\n"), String::npos);
  EXPECT_EQ(place("ab~"), 2U);
  EXPECT_EQ(place("abc\u0001~"), 3U);
  EXPECT_EQ(place("`^`"), 0U);
  EXPECT_EQ(place("a`^\"b"), 1U);  // would read as a quote and a part of one
}

class SentTextTest : public ControlTest {
 protected:
  struct Block {
    void (ZOLT20MapControl::*write)(String);
    const char* box;
    bool isSelectDo;
  };
  static constexpr std::array<Block, 4> kBlocks{{
      {&ZOLT20MapControl::prpSelectDoPart, "txtSelectDo", true},
      {&ZOLT20MapControl::prpSelectEOSPart, "txtSelectEOS", false},
      {&ZOLT20MapControl::prpSelectEmptyPart, "txtselectempty", false},
      {&ZOLT20MapControl::prpSelectErrorPart, "txtSelectError", false},
  }};

  /// Sends the text to an empty Result.
  void ExpectResult(const std::string& text) {
    MakeNew();
    host().prpStroutput(reopen::Encode(Wide(text)));
    EXPECT_EQ(Result(), text);
  }
  /// Sends a block to each of the four boxes, which are empty.
  void ExpectBlocks(const std::string& block, const std::string& text) {
    MakeNew();
    for (const auto& [write, box, isSelectDo] : kBlocks) {
      (host().*write)(reopen::EncodeBlock(Wide(block), isSelectDo));
      EXPECT_EQ(Text(box), text) << box << ": " << block;
    }
    Log();
  }
};

TEST_F(SentTextTest, ATextForTheResultComesAsItStands) {
  for (const char* text :
       {"ab", "a\r\nb", "a\r\n\tb\r\n\t\tc", "\ta", "a\tb", "say \"x\"", "*zlt*", "*zlt*ab",
        "ab*zlt*", "ab\r\n*zlt*cd\r\n\tef", "*zlt**zlt*a", "a\rb\nc", " a ", "a\r\n\r\nb"})
    ExpectResult(text);
}

TEST_F(SentTextTest, LinesOfABlockThatStandOneTabInComeToTheMargin) {
  ExpectBlocks("a", "a");
  ExpectBlocks("a\r\n\tb\r\n\tc", "a\r\nb\r\nc");
  ExpectBlocks("a\r\nb", "a\r\nb");  // at the margin already
  ExpectBlocks("a\r\n\t\tb\r\n\t\t\tc", "a\r\n\tb\r\n\t\tc");
  ExpectBlocks("a\tb\t\tc", "a\tb\t\tc");
  ExpectBlocks("*zlt*a\r\n\tb *zlt*", "*zlt*a\r\nb *zlt*");
  ExpectBlocks("x = \"y\"\r\n\t\r\n\tz", "x = \"y\"\r\n\r\nz");
}

// Of all that can be sent, but blanks at the ends.
TEST_F(SentTextTest, RandomTextsAndBlocksComeAsTheyStand) {
  std::mt19937 random(1);
  const std::vector<std::string> pieces{"a",  "b ",   "\"", "`",    "^",      "*zlt*",   "*zlt",
                                        "\t", "\t\t", "(",  "\r\n", "\r\n\t", "\r\n\t\t"};
  int sent = 0;
  for (int round = 0; round < 400; ++round) {
    std::string text = "x";
    for (auto left = random() % 12; left > 0; --left)
      text += pieces[random() % pieces.size()];
    text += "y";
    if (reopen::FindUnsendable(Wide(text)) != String::npos) continue;
    ++sent;
    ExpectResult(text);
    ExpectBlocks(text, Narrow(Replace(Wide(text), u"\r\n\t", u"\r\n")));
  }
  EXPECT_GT(sent, 300);
}

// The session of a reopened statement writes just what comes of the text that it reads first.
TEST(ReopenTest, TheRecordedSessionWritesThePartsOfItsStatement) {
  using Json = nlohmann::json;
  const std::filesystem::path sessions = std::filesystem::path(Examples()) / "sessions";
  std::map<std::string, std::string> written;
  std::ifstream requests(sessions / "reopened-statement.jsonl");
  for (std::string line; std::getline(requests, line);) {
    if (!line.starts_with("{\"set\":\"prpSelect")) continue;
    const Json request = Json::parse(line);
    written[request.at("set")] = request.at("value");
  }
  std::string stored;
  std::ifstream replies(sessions / "reopened-statement.replies.jsonl");
  for (std::string line; stored.empty() && std::getline(replies, line);)
    stored = Json::parse(line).value("value", "");

  const Reopened reopened = Reopen(stored);
  EXPECT_EQ(ProblemsOf(reopened), Texts{});
  EXPECT_EQ(
      PartsOf(reopened),
      (Texts{"Select=" + written["prpSelectPart"], "From=" + written["prpSelectFromPart"],
             "Where=" + written["prpSelectWherePart"], "Groupby=" + written["prpSelectGroupbyPart"],
             "Orderby=" + written["prpSelectOrderbyPart"], "AsSet=" + written["prpSelectAsSetPart"],
             "Do=" + written["prpSelectDoPart"], "Empty=" + written["prpSelectEmptyPart"]}));
}

}  // namespace
}  // namespace zolt20::tests
