// Stored statements opened on the form: which steps it takes, and what is told of what does not
// come back.
#include "language/opening.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "language/clauses.h"
#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

using reopen::Opening;
using reopen::Step;

/// The steps, each "property=value", "click control", "click list row", "type box=text" or "tab 6".
Texts StepsOf(const std::vector<Step>& steps) {
  Texts texts;
  for (const Step& step : steps) {
    if (step.property != nullptr) {
      texts.push_back(std::string(step.property->name) + "=" + Narrow(step.text));
    } else if (step.gesture == Gesture::kType) {
      texts.push_back("type " + step.control + "=" + Narrow(step.text));
    } else {
      const std::string number =
          step.number == UserGesture::kNone ? "" : " " + std::to_string(step.number);
      texts.push_back((step.gesture == Gesture::kTab ? "tab" : "click " + step.control) + number);
    }
  }
  return texts;
}

/// "line: -stored +comes" of each difference.
Texts DifferencesOf(const Opening& opening) {
  Texts texts;
  for (const reopen::Difference& difference : opening.differences) {
    std::string text = std::to_string(difference.line) + ":";
    for (const String& line : difference.stored)
      text += " -" + Narrow(line);
    for (const String& line : difference.comes)
      text += " +" + Narrow(line);
    texts.push_back(text);
  }
  return texts;
}

class OpeningTest : public ::testing::Test {
 protected:
  /// Two tables with an index each, one named like a function, and one whose name stands in a field
  /// of another.
  Opening Open(std::string_view statement) {
    const String fields =
        Wide(List({Field("NTABLE__A.F"), Field("NTABLE__A.G"), Field("NTABLE__A.a:b"),
                   Field("NTABLE__A.TABLE__B"), Field("NTABLE__A.F"), Field("NTABLE__B.F"),
                   Field("NTABLE__B.DESC_NO"), Field("Nsummarys.F")}));
    return reopen::Open(Wide(statement), {u"TABLE__A1,TABLE__B1,summarys0,EMPTY__C0", fields});
  }

  void ExpectEqual(std::string_view statement, const Texts& steps) {
    const Opening opening = Open(statement);
    EXPECT_EQ(DifferencesOf(opening), Texts{}) << statement;
    EXPECT_TRUE(opening.IsEqual()) << statement;
    EXPECT_EQ(StepsOf(opening.steps), steps) << statement;
    EXPECT_TRUE(opening.problems.empty()) << statement;
  }

  void ExpectDifferent(std::string_view statement, const Texts& differences) {
    const Opening opening = Open(statement);
    EXPECT_FALSE(opening.IsEqual()) << statement;
    EXPECT_EQ(DifferencesOf(opening), differences) << statement;
  }
};

/// A select statement of one field with this behind its from clause.
std::string Statement(const std::string& clauses) {
  return "select TABLE__A.F\r\nfrom  TABLE__A\r\n" + clauses + "\r\nendselect";
}
const Texts kStatementByParts{"prpSelectFromPart=TABLE__A", "prpSelectPart=TABLE__A.F"};

Texts ByParts(Texts more) {
  Texts steps = kStatementByParts;
  steps.insert(steps.end(), more.begin(), more.end());
  return steps;
}

/// By hand the steps begin with the table and end on the first page.
Texts ByHand(const Texts& before, const Texts& more) {
  Texts steps{"prpSelectFromPart=TABLE__A"};
  steps.insert(steps.end(), before.begin(), before.end());
  steps.insert(steps.end(), {"tab 0", "prpSelectPart=TABLE__A.F"});
  steps.insert(steps.end(), more.begin(), more.end());
  steps.emplace_back("tab 0");
  return steps;
}

// Select statements by their parts.

TEST_F(OpeningTest, AStatementComesBackByItsParts) {
  ExpectEqual("\r\n" + Statement("where A = \"x\"\r\nas set with 5 rows "),
              ByParts({"prpSelectAsSetPart=5", "prpSelectWherePart=A = `^`x`^`"}));
}

TEST_F(OpeningTest, AddToResultFinishesASelectStatement) {
  EXPECT_EQ(StepsOf(Open(Statement("where A = B")).finish), (Texts{"tab 0", "click cmdAddSelect"}));
}

TEST_F(OpeningTest, FieldsOrderInTheOrderInWhichTheyAreSelected) {
  ExpectEqual(
      "select TABLE__A.F,TABLE__A.G\r\nfrom  TABLE__A\r\norder by TABLE__A.G,TABLE__A.F "
      "desc\r\nendselect",
      {"prpSelectFromPart=TABLE__A", "prpSelectPart=TABLE__A.G,TABLE__A.F",
       "prpSelectOrderbyPart=TABLE__A.G,TABLE__A.F desc"});
}

// Rows of the lists in another order, or several of a name.

TEST_F(OpeningTest, TablesAreMarkedInTheOrderOfGroupBy) {
  ExpectEqual(
      "select TABLE__A.F\r\nfrom  TABLE__B,TABLE__A\r\ngroup by  TABLE__A.F,TABLE__B.F\r\n"
      "endselect",
      {"prpSelectFromPart=TABLE__A", "prpSelectFromPart=TABLE__B", "click lstGroupby 0",
       "click lstGroupby 5", "tab 0", "prpSelectPart=TABLE__A.F", "tab 0"});
}

TEST_F(OpeningTest, TablesAreMarkedInTheOrderOfTheirIndexes) {
  ExpectEqual(
      "select TABLE__A.F\r\nfrom  TABLE__B,TABLE__A\r\n"
      "order by TABLE__A._index1,TABLE__B._index1 desc\r\nendselect",
      {"prpSelectFromPart=TABLE__A", "prpSelectFromPart=TABLE__B", "tab 1", "click lstorderbyasc 0",
       "click lstorderbydesc 1", "tab 0", "prpSelectPart=TABLE__A.F", "tab 0"});
}

TEST_F(OpeningTest, ANameTwiceInGroupByIsTwoRows) {
  ExpectEqual(Statement("group by  TABLE__A.F,TABLE__A.F"),
              ByHand({"click lstGroupby 0", "click lstGroupby 4"}, {}));
}

TEST_F(OpeningTest, AFieldOrdersBeforeItsTablesIndex) {
  ExpectEqual(Statement("order by TABLE__A.F,TABLE__A._index1"),
              {"prpSelectFromPart=TABLE__A", "prpSelectPart=TABLE__A.F",
               "prpSelectPart=TABLE__A._index1", "prpSelectPart=sum ( ) ",
               "click lstSelectedFields 0", "click cmdRemoveOne", "tab 1", "click lstorderbyasc 1",
               "click lstorderbyasc 2", "tab 0", "prpSelectPart=TABLE__A.F", "tab 0"});
}

TEST_F(OpeningTest, AFieldOrdersThatIsNotSelected) {
  ExpectEqual(Statement("order by TABLE__A.G"),
              {"prpSelectFromPart=TABLE__A", "prpSelectPart=TABLE__A.G", "prpSelectPart=sum ( ) ",
               "click lstSelectedFields 0", "click cmdRemoveOne", "tab 1", "click lstorderbyasc 1",
               "tab 0", "prpSelectPart=TABLE__A.F", "tab 0"});
}

TEST_F(OpeningTest, ANameTwiceInOrderByIsTwoRows) {
  const Opening opening = Open(Statement("order by TABLE__A.F,TABLE__A.F desc"));
  EXPECT_TRUE(opening.IsEqual());
}

TEST_F(OpeningTest, AFieldWithDescInItsNameIsMarkedByAClick) {
  ExpectEqual("select TABLE__B.DESC_NO\r\nfrom  TABLE__B\r\norder by TABLE__B.DESC_NO\r\nendselect",
              {"prpSelectFromPart=TABLE__B", "prpSelectPart=TABLE__B.DESC_NO", "tab 1",
               "click lstorderbyasc 1", "tab 0", "tab 0"});
}

TEST_F(OpeningTest, AFieldOfATableLikeAFunctionOrdersAfterAllAreMoved) {
  const Opening opening =
      Open("select TABLE__A.F\r\nfrom  summarys,TABLE__A\r\norder by summarys.F\r\nendselect");
  EXPECT_TRUE(opening.IsEqual());
  const Texts steps = StepsOf(opening.steps);
  EXPECT_EQ(std::count(steps.begin(), steps.end(), "click cmdMoveAll"), 1);
}

// The select list.

TEST_F(OpeningTest, AFieldWithAColonIsMovedByHand) {
  ExpectEqual("select TABLE__A.F,TABLE__A.a:b\r\nfrom  TABLE__A\r\nendselect",
              {"prpSelectFromPart=TABLE__A", "tab 0", "prpSelectPart=TABLE__A.F",
               "click lstFields 3", "click cmdMoveOne", "tab 0"});
}

TEST_F(OpeningTest, AFunctionOfAFieldWithAColonIsMovedByHand) {
  ExpectEqual(
      "select avg ( TABLE__A.F ) :var.avg.TABLE__A.F,sum ( TABLE__A.a:b ) "
      ":var.sum.TABLE__A.a:b\r\nfrom  TABLE__A\r\nendselect",
      {"prpSelectFromPart=TABLE__A", "tab 0", "click lstFunctions 2", "click lstFields 3",
       "click cmdMoveOne", "prpSelectPart=avg ( TABLE__A.F ) :", "tab 0"});
}

TEST_F(OpeningTest, TheCountOfAWholeTableStandsInItsPlace) {
  ExpectEqual(
      "select count ( * ) :var.count,count ( TABLE__A.F ) :var.count.TABLE__A.F,count ( * ) "
      ":var.count\r\nfrom  TABLE__B,TABLE__A\r\nendselect",
      {"prpSelectFromPart=TABLE__B", "prpSelectFromPart=TABLE__A", "tab 0",
       "prpSelectPart=count ( * ) :", "prpSelectPart=count ( TABLE__A.F ) :",
       "prpSelectPart=count ( TABLE__B.* ) :", "tab 0"});
}

TEST_F(OpeningTest, TheCountOfATableThatIsNotInTheFromClauseIsTold) {
  ExpectDifferent(
      "select count ( TABLE__A.F ) :var.count.TABLE__A.F,count ( * ) :var.count\r\n"
      "from  TABLE__A\r\nendselect",
      {"1: -select count ( TABLE__A.F ) :var.count.TABLE__A.F,count ( * ) :var.count "
       "+select count ( * ) :var.count,count ( TABLE__A.F ) :var.count.TABLE__A.F"});
}

TEST_F(OpeningTest, ATableInTheNameOfAFieldIsNotMarked) {
  ExpectEqual("select TABLE__A.F,TABLE__A.TABLE__B,TABLE__A.a\r\nfrom  TABLE__A\r\nendselect",
              {"prpSelectFromPart=TABLE__A", "tab 0", "prpSelectPart=TABLE__A.F",
               "prpSelectPart=TABLE__A.TABLE__B", "prpSelectPart=TABLE__A.a", "tab 0"});
}

TEST_F(OpeningTest, AWholeTableLikeAFunctionIsARowAsItStands) {
  ExpectEqual("select TABLE__A.F,summarys.*\r\nfrom  summarys,TABLE__A\r\nendselect",
              {"prpSelectFromPart=summarys", "prpSelectFromPart=TABLE__A", "tab 0",
               "prpSelectPart=summarys.*:", "tab 2", "click cmdClear", "tab 0",
               "click cmdRemoveOne", "prpSelectPart=TABLE__A.F", "tab 0"});
}

// Conditions and blocks.

TEST_F(OpeningTest, WhatNoPropertyCanSendIsTyped) {
  ExpectEqual(Statement("where A = ~\r\n\tor B\r\nselecteos\r\n\tx = ~\r\n\t\ty"),
              ByHand({}, {"tab 1", "type txtwhereCondition=A = ~\r\n\tor B", "tab 3",
                          "type txtSelectEOS=x = ~\r\n\ty"}));
}

TEST_F(OpeningTest, TextsOfOneCharacterAreTypedWithABlank) {
  ExpectEqual(Statement("where x\r\nselectdo\r\n\ty\r\nselectempty\r\n\tz\r\nselecterror\r\n\tu"),
              ByHand({}, {"tab 1", "type txtwhereCondition=x ", "tab 2", "type txtSelectDo=y ",
                          "tab 4", "type txtselectempty=z ", "tab 5", "type txtSelectError=u "}));
}

TEST_F(OpeningTest, ABlockWithoutATextIsOneThatIsLost) {
  ExpectEqual(Statement("selectdo\r\n\t"), ByHand({}, {"tab 2", "type txtSelectDo=\r\n.   "}));
}

TEST_F(OpeningTest, AConditionMayHoldWhatReadsLikeALaterClause) {
  ExpectEqual(
      Statement("where A = B\r\norder by\r\norder by X\r\nand C\r\nselectdo\r\n\txy"),
      ByParts({"prpSelectWherePart=A = B~\1order by~\1order by X~\1and C", "prpSelectDoPart=xy"}));
  ExpectEqual(Statement("where A = \"x\r\nselectdo\r\n\txy"),
              ByParts({"prpSelectWherePart=A = `^`x", "prpSelectDoPart=xy"}));
  ExpectEqual(Statement("where A = B\r\nendselect"),
              ByParts({"prpSelectWherePart=A = B~\1endselect"}));
}

TEST_F(OpeningTest, OfManyPlacesWhereAConditionMayEndTheLastIsTriedToo) {
  std::string condition = "A = B";
  for (int i = 0; i < 20; ++i)
    condition += "\r\norder by ~\r\nand C";
  const Opening opening = Open(Statement("where " + condition));
  EXPECT_TRUE(opening.IsEqual());
}

TEST_F(OpeningTest, AConditionMayEndWhereALaterClauseOrTheStatementsEndFollows) {
  EXPECT_EQ(reopen::ConditionEnds(u"select A\r\nwhere b\r\nfrom  c\r\norder by d\r\nendselect"),
            (std::vector<std::size_t>{26, 38}));
  EXPECT_EQ(reopen::ConditionEnds(u"select A\r\nendselect"), std::vector<std::size_t>{});
  EXPECT_EQ(reopen::ConditionEnds(u"where b\r\nendselect"), std::vector<std::size_t>{});
}

// What does not come back is told.

TEST_F(OpeningTest, ATableThatIsNotInTheCatalogueIsTold) {
  ExpectDifferent("select TABLE__A.F\r\nfrom  OTHER__C,TABLE__A\r\nendselect",
                  {"2: -from  OTHER__C,TABLE__A +from  TABLE__A"});
}

TEST_F(OpeningTest, WhatNoReadingOfAConditionGivesIsTold) {
  ExpectDifferent(
      "select TABLE__A.F\r\nfrom  OTHER__C,TABLE__A\r\nwhere A = "
      "\"x\r\nselectdo\r\n\txy\r\nendselect",
      {"2: -from  OTHER__C,TABLE__A +from  TABLE__A"});
}

TEST_F(OpeningTest, ANameThatHasNoRowIsTold) {
  ExpectDifferent(Statement("group by  TABLE__B.F"), {"3: -group by  TABLE__B.F"});
  ExpectDifferent(Statement("order by summarys.F"), {"3: -order by summarys.F"});
}

TEST_F(OpeningTest, AClauseWithoutATextIsTold) {
  ExpectDifferent("select TABLE__A.F\r\nfrom  TABLE__A\r\nwhere \r\nendselect", {"3: -where "});
}

TEST_F(OpeningTest, TheProblemsOfTheTextGoWithWhatDiffers) {
  const Opening opening = Open("select TABLE__A.F\r\nfrom  TABLE__A\r\nas set with 5\r\nendselect");
  EXPECT_EQ(DifferencesOf(opening), Texts{"3: -as set with 5"});
  ASSERT_EQ(opening.problems.size(), 1U);
  EXPECT_EQ(opening.problems[0].message, "a row limit ends with ' rows '");
}

TEST_F(OpeningTest, SeveralStatementsAreNotOpened) {
  const std::string two = Statement("where A = B") + "\r\n" + Statement("where C = D");
  const Opening opening = Open(two);
  EXPECT_TRUE(opening.steps.empty());
  EXPECT_TRUE(opening.finish.empty());
  EXPECT_FALSE(opening.IsEqual());
  EXPECT_EQ(opening.problems[0].message, "text stands behind 'endselect'");
  ASSERT_EQ(opening.differences.size(), 1U);
  EXPECT_EQ(opening.differences[0].stored.size(), 8U);
  for (const char* other : {"if a then", "for a", "while a", "repeat ", "on case a"})
    EXPECT_TRUE(Open(Statement("where A = B\r\nendselect\r\n" + std::string(other))).steps.empty());
}

TEST_F(OpeningTest, ATextThatIsNoStatementIsNotOpened) {
  for (const char* text :
       {"", ":var.x = 1", "if a then \r\n\tb\r\nendif\r\nif c then", "select "}) {
    const Opening opening = Open(text);
    EXPECT_TRUE(opening.steps.empty()) << text;
    EXPECT_FALSE(opening.problems.empty()) << text;
  }
}

TEST_F(OpeningTest, AFieldThatIsNotInTheCatalogueCantBeMovedByHand) {
  EXPECT_FALSE(Open("select TABLE__A.x:y\r\nfrom  TABLE__A\r\nendselect").IsEqual());
  EXPECT_FALSE(Open("select x:y:var.x..y\r\nfrom  TABLE__A\r\nendselect").IsEqual());
}

// Playing.

TEST_F(OpeningTest, AStepThatIsRefusedEndsThePlay) {
  RecordingHost host;
  ZOLT20MapControl control(host);
  control.UserControl_InitProperties();
  std::vector<Step> steps = Open("if a then \r\n\tb\r\nendif").steps;
  EXPECT_TRUE(reopen::Play(control, steps));
  EXPECT_EQ(Narrow(control.Form().txtCond.Text()), "a");
  steps[0].control = "nobody";
  EXPECT_FALSE(reopen::Play(control, steps));
  steps[0].control = "tabVrn";
  steps[0].number = 0;
  EXPECT_FALSE(reopen::Play(control, steps));
}

TEST_F(OpeningTest, AnErrorOfTheFormIsAWayThatDoesNotGo) {
  // A catalogue whose second record is broken.
  const Opening opening = reopen::Open(u"select TABLE__A.F\r\nfrom  TABLE__A\r\nendselect",
                                       {u"TABLE__A0", u"TABLE__A"});
  EXPECT_TRUE(opening.steps.empty());
  EXPECT_EQ(DifferencesOf(opening), Texts{"1: -select TABLE__A.F -from  TABLE__A -endselect"});
}

// Texts compared.

TEST_F(OpeningTest, ComparingTellsTheLinesThatDiffer) {
  const auto compare = [](std::string_view stored, std::string_view comes) {
    Opening opening;
    opening.differences = reopen::Compare(Wide(stored), Wide(comes));
    return DifferencesOf(opening);
  };
  EXPECT_EQ(compare("a\r\nb", "a\r\nb"), Texts{});
  EXPECT_EQ(compare("a\r\nb\r\nc", "a\r\nc"), Texts{"2: -b"});
  EXPECT_EQ(compare("a\r\nc", "a\r\nb\r\nc"), Texts{"2: +b"});
  EXPECT_EQ(compare("a\r\nb\r\nc\r\nd\r\ne", "a\r\nB\r\nc\r\nd\r\nD\r\nf\r\ne"),
            (Texts{"2: -b +B", "5: +D +f"}));
  EXPECT_EQ(compare("a\r\nb\r\nc", "x\r\nc\r\ny\r\nb"), (Texts{"1: -a -b +x", "4: +y +b"}));
}

TEST_F(OpeningTest, ManyLinesThatDifferAreOneBlock) {
  String stored;
  String comes;
  for (int i = 0; i < 1100; ++i) {
    stored += i == 500 ? u"same\r\n" : u"a\r\n";
    comes += i == 500 ? u"same\r\n" : u"b\r\n";
  }
  const std::vector<reopen::Difference> differences = reopen::Compare(stored, comes);
  ASSERT_EQ(differences.size(), 1U);
  EXPECT_EQ(differences[0].stored.size(), 1100U);
}

// Control-flow statements.

TEST_F(OpeningTest, AnIfWithItsElse) {
  ExpectEqual("if a = 1 then \r\n\tb\r\n\t\tc\r\nelse\r\n\td\r\nendif",
              {"tab 6", "click optIfThen", "type txtCond=a = 1", "type txtStmt1=b\r\n\tc",
               "type txtStmt2=d"});
}

TEST_F(OpeningTest, AddAndBuildConditionFinishAControlFlowStatement) {
  EXPECT_EQ(StepsOf(Open("if a then \r\n\tb\r\nendif").finish),
            (Texts{"click cmdAdd", "click cmdBuild"}));
}

TEST_F(OpeningTest, AForWithAndWithoutAStep) {
  ExpectEqual("for i = 1 to 3  Step    2\r\n\tb\r\nendfor",
              {"tab 6", "click optFor", "type txtVariable=i", "type txtinitval=1",
               "type txtFinVal=3", "type txtStep=2", "type txtForStmt=b"});
  ExpectEqual("for  i  = 1 to 3 \r\n\r\nendfor", {"tab 6", "click optFor", "type txtVariable= i ",
                                                  "type txtinitval=1", "type txtFinVal=3 "});
}

TEST_F(OpeningTest, AWhileAndARepeat) {
  ExpectEqual("while a\r\n\tb\r\nendwhile",
              {"tab 6", "click optwhile", "type txtWhlCnd=a", "type txtWhlStm=b"});
  ExpectEqual("repeat \r\n\tb\r\nUntil  ( a )",
              {"tab 6", "click optRepeat", "type txtRepCnd=a", "type txtRepStm=b"});
  ExpectEqual("repeat \r\n\tb\r\nUntil  (  )", {"tab 6", "click optRepeat", "type txtRepStm=b"});
}

TEST_F(OpeningTest, AnOnCaseWithItsRowsAndItsDefault) {
  ExpectEqual(
      "on case a\r\n\tcase 1 :\r\n\t\tb\r\n\t\tbreak\r\n\tcase 2: \r\n\t\tcase 3 :\r\n"
      "\t\t\tc\r\n\t\t\tbreak\r\n\tdefault: \r\n\t\td\r\ne\r\nendcase",
      {"tab 6", "click optCase", "type txtcaseexp=a", "type TxtExpr(0)=1", "type txtStmt(0)=b",
       "click cmdNext", "type TxtExpr(1)=2", "click cmdNext", "type TxtExpr(2)=3",
       "type txtStmt(2)=c", "type TxtDef=d\r\ne"});
}

TEST_F(OpeningTest, WhatStandsWithinIsTextOfTheStatementWhereThatGivesTheSame) {
  ExpectEqual(
      "if a then \r\n\twhile b\r\n\t\tc\r\n\tendwhile\r\nendif",
      {"tab 6", "click optIfThen", "type txtCond=a", "type txtStmt1=while b\r\n\tc\r\nendwhile"});
}

TEST_F(OpeningTest, WhatStandsAtTheMarginIsAPassOfItsOwn) {
  ExpectEqual(
      "if a then \r\n\tx\r\nelse\r\n\ty\r\n\ton case b\r\n\t\tcase 1 :\r\n\t\t\tc\r\n"
      "\t\t\tbreak\r\n\t\tdefault: \r\n\t\t\td\r\nendcase\r\nendif",
      {"tab 6", "click optIfThen", "type txtCond=a", "type txtStmt1=x", "type txtStmt2=y",
       "click cmdAdd", "click optCase", "type txtcaseexp=b", "type TxtExpr(0)=1",
       "type txtStmt(0)=c", "type TxtDef=d"});
}

TEST_F(OpeningTest, AConstructWithinTheRowsOfAnOnCaseIsFoundWithOrWithoutABreak) {
  ExpectEqual("on case a\r\n\tcase 1 :\r\n\t\tb\r\n\t\tbreak\r\nif c then \r\n\tendif\r\nendcase",
              {"tab 6", "click optCase", "type txtcaseexp=a", "type TxtExpr(0)=1",
               "type txtStmt(0)=b", "click cmdAdd", "click optIfThen", "type txtCond=c"});
  ExpectEqual("on case a\r\n\tcase 1: \r\nif c then \r\n\t\tendif\r\nendcase",
              {"tab 6", "click optCase", "type txtcaseexp=a", "type TxtExpr(0)=1", "click cmdAdd",
               "click optIfThen", "type txtCond=c"});
}

TEST_F(OpeningTest, AStatementThatIsNotWrittenLikeTheFormDoesIsTold) {
  ExpectDifferent("if a then \r\nb\r\nendif", {"2: -b +\tb"});
  ExpectDifferent("IF a then \r\n\tb\r\nendif", {"1: -IF a then  +if a then "});
  ExpectDifferent("repeat \r\n\tb", {"3: +Until  (  )"});
  ExpectDifferent("while a\r\n\tb", {"3: +endwhile"});
}

}  // namespace
}  // namespace zolt20::tests
