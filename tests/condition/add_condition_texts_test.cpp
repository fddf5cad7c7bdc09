// What Add Condition writes for each kind, at any depth, and what of it Build Condition closes.
#include <algorithm>
#include <ostream>
#include <tuple>
#include <utility>

#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

using Boxes = std::vector<std::pair<const char*, const char*>>;

constexpr int kLeastDepth = -32768;

// The text with every "#" as so many tabs.
std::string AtDepth(int depth, std::string_view text) {
  std::string written;
  for (const char character : text) {
    if (character == '#') {
      written.append(static_cast<std::size_t>(std::max(depth, 0)), '\t');
    } else {
      written += character;
    }
  }
  return written;
}

class AddConditionTextsTest : public ControlTest {
 protected:
  AddConditionTextsTest() { Tab(6); }

  void Choose(std::string_view option, const Boxes& boxes = {}) {
    Click(option);
    Fill(boxes);
  }
  void Fill(const Boxes& boxes) {
    for (const auto& [box, text] : boxes)
      Type(box, text);
  }
  void Add() { Click("cmdAdd"); }
  void Build() { Click("cmdBuild"); }
  void Pass(std::string_view option, const Boxes& boxes = {}) {
    Choose(option, boxes);
    Add();
  }
  /// What a first pass writes.
  std::string Written(std::string_view option, const Boxes& boxes, int depth = 0) {
    MakeNew();
    Tab(6);
    SetDepth(depth);
    Pass(option, boxes);
    return Result();
  }
  /// A pass of On...Case with these rows of value and statement.
  void CasePass(std::string_view expression,
                const std::vector<std::pair<const char*, const char*>>& rows,
                std::string_view defaultStatement = "") {
    Click("optCase");
    Type("txtcaseexp", expression);
    Type("TxtDef", defaultStatement);
    for (std::size_t row = 0; row < rows.size(); ++row) {
      if (row > 0) Click("cmdNext");
      const std::string index = "(" + std::to_string(row) + ")";
      Type("TxtExpr" + index, rows[row].first);
      Type("txtStmt" + index, rows[row].second);
    }
    Add();
  }
  /// An entry of the Result that no pass wrote.
  void InsertStatement(std::string_view text) { host().prpStroutput(Wide(text)); }
  void SetDepth(int depth) { host().prpintTabcount(depth); }
  int Depth() { return host().prpintTabcount().value(); }
};

// The texts, box by box.

struct WrittenText {
  const char* name;
  const char* option;
  Boxes boxes;
  const char* text;  // "#" is the depth
  int deeper = 0;    // what the pass adds to the depth

  friend std::ostream& operator<<(std::ostream& out, const WrittenText& text) {
    return out << text.name;
  }
};

const std::vector<WrittenText> kTexts{
    {"ForWithoutAStep",
     "optFor",
     {{"txtVariable", "i"}, {"txtinitval", "1"}, {"txtFinVal", "3"}},
     "#for i = 1 to 3\r\n"},
    {"ForWithAStep",
     "optFor",
     {{"txtVariable", "i"}, {"txtinitval", "1"}, {"txtFinVal", "3"}, {"txtStep", "2"}},
     "#for i = 1 to 3  Step    2\r\n"},
    {"ForWithAStatement",
     "optFor",
     {{"txtVariable", "i"}, {"txtinitval", "1"}, {"txtFinVal", "3"}, {"txtForStmt", "s"}},
     "#for i = 1 to 3\r\n#\ts"},
    {"ForWithAStepAndAStatement",
     "optFor",
     {{"txtVariable", "i"},
      {"txtinitval", "1"},
      {"txtFinVal", "3"},
      {"txtStep", "2"},
      {"txtForStmt", "s"}},
     "#for i = 1 to 3  Step    2\r\n#\ts"},
    {"ForWithoutAVariable",
     "optFor",
     {{"txtinitval", "1"}, {"txtFinVal", "3"}, {"txtStep", "2"}, {"txtForStmt", "s"}},
     ""},
    {"ForWithoutAnInitialValue",
     "optFor",
     {{"txtVariable", "i"}, {"txtFinVal", "3"}, {"txtStep", "2"}, {"txtForStmt", "s"}},
     ""},
    {"ForWithoutAFinalValue",
     "optFor",
     {{"txtVariable", "i"}, {"txtinitval", "1"}, {"txtStep", "2"}, {"txtForStmt", "s"}},
     ""},
    {"ForOfEmptyBoxes", "optFor", {}, ""},
    {"IfWithAStatement", "optIfThen", {{"txtCond", "c"}, {"txtStmt1", "x"}}, "#if c then \r\n#\tx"},
    {"IfWithBothStatements",
     "optIfThen",
     {{"txtCond", "c"}, {"txtStmt1", "x"}, {"txtStmt2", "y"}},
     "#if c then \r\n#\tx\r\n#else\r\n#\ty"},
    {"IfWithoutACondition", "optIfThen", {{"txtStmt1", "x"}, {"txtStmt2", "y"}}, ""},
    {"IfOfEmptyBoxes", "optIfThen", {}, ""},
    {"RepeatOfEmptyBoxes", "optRepeat", {}, "#repeat "},
    {"RepeatWithACondition", "optRepeat", {{"txtRepCnd", "c"}}, "#repeat "},
    {"RepeatWithAStatement", "optRepeat", {{"txtRepStm", "s"}}, "#repeat \r\n#\ts"},
    {"RepeatWithBoth", "optRepeat", {{"txtRepCnd", "c"}, {"txtRepStm", "s"}}, "#repeat \r\n#\ts"},
    {"WhileWithoutACondition", "optwhile", {{"txtWhlStm", "s"}}, ""},
    {"WhileOfEmptyBoxes", "optwhile", {}, ""},
    {"CaseWithAStatement",
     "optCase",
     {{"txtcaseexp", "e"}, {"TxtExpr(0)", "v"}, {"txtStmt(0)", "s"}},
     "#on case e\r\n#\tcase v :\r\n#\t\ts\r\n#\t\tbreak"},
    {"CaseWithADefault",
     "optCase",
     {{"txtcaseexp", "e"}, {"TxtDef", "d"}, {"TxtExpr(0)", "v"}, {"txtStmt(0)", "s"}},
     "#on case e\r\n#\tcase v :\r\n#\t\ts\r\n#\t\tbreak"},
    {"CaseWithoutAStatement",
     "optCase",
     {{"txtcaseexp", "e"}, {"TxtExpr(0)", "v"}},
     "#on case e\r\n#\tcase v: ",
     1},
};

const WrittenText kIfAlone{"IfAlone", "optIfThen", {{"txtCond", "c"}}, "if c then "};
const WrittenText kIfWithElse{"IfWithTheSecondStatementAlone",
                              "optIfThen",
                              {{"txtCond", "c"}, {"txtStmt2", "y"}},
                              "if c then \r\n#else\r\n#\ty"};
const WrittenText kWhileAlone{"WhileAlone", "optwhile", {{"txtWhlCnd", "c"}}, "#while  c"};
const WrittenText kWhile{"WhileWithAStatement",
                         "optwhile",
                         {{"txtWhlCnd", "c"}, {"txtWhlStm", "s"}},
                         "#while c\r\n#\ts"};

class EveryTextTest : public AddConditionTextsTest,
                      public ::testing::WithParamInterface<WrittenText> {};

TEST_P(EveryTextTest, StandsAtTheDepthInAnEmptyResult) {
  for (const int depth : {0, 1, 3}) {
    EXPECT_EQ(Written(GetParam().option, GetParam().boxes, depth), AtDepth(depth, GetParam().text));
    EXPECT_EQ(Depth(), depth + GetParam().deeper);
  }
}

TEST_P(EveryTextTest, StandsOnANewLineBehindEarlierEntries) {
  for (const int depth : {0, 1, 3}) {
    MakeNew();
    Tab(6);
    InsertStatement("x");
    SetDepth(depth);
    Pass(GetParam().option, GetParam().boxes);
    EXPECT_EQ(Result(), "x\r\n" + AtDepth(depth, GetParam().text));
    EXPECT_EQ(Depth(), depth + GetParam().deeper);
  }
}

std::string NameOf(const ::testing::TestParamInfo<WrittenText>& info) {
  return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Texts, EveryTextTest, ::testing::ValuesIn(kTexts), NameOf);
INSTANTIATE_TEST_SUITE_P(OddTexts, EveryTextTest,
                         ::testing::Values(kIfAlone, kIfWithElse, kWhileAlone, kWhile), NameOf);

// Blanks at the ends.

TEST_F(AddConditionTextsTest, TheTextsOfAForKeepTheirBlanks) {
  EXPECT_EQ(Written("optFor", {{"txtVariable", " i "},
                               {"txtinitval", "  1"},
                               {"txtFinVal", "3 "},
                               {"txtStep", " 2 "},
                               {"txtForStmt", "  s "}}),
            "for  i  =   1 to 3   Step     2 \r\n\t  s ");
}

TEST_F(AddConditionTextsTest, ABoxOfBlanksIsMissingFromAForAllTheSame) {
  for (const char* box : {"txtVariable", "txtinitval", "txtFinVal"}) {
    EXPECT_EQ(Written("optFor", {{"txtVariable", "i"},
                                 {"txtinitval", "1"},
                                 {"txtFinVal", "3"},
                                 {box, "  "},
                                 {"txtForStmt", "s"}}),
              "")
        << box;
  }
}

TEST_F(AddConditionTextsTest, AForStatementOfBlanksIsNone) {
  EXPECT_EQ(
      Written(
          "optFor",
          {{"txtVariable", "i"}, {"txtinitval", "1"}, {"txtFinVal", "3"}, {"txtForStmt", "   "}}),
      "for i = 1 to 3\r\n");
}

TEST_F(AddConditionTextsTest, ABoxOfATabIsFilledForAFor) {
  EXPECT_EQ(Written("optFor", {{"txtVariable", "\t"},
                               {"txtinitval", "\r\n"},
                               {"txtFinVal", "\n"},
                               {"txtStep", "\t"},
                               {"txtForStmt", "\t"}}),
            "for \t = \r\n to \n  Step    \t\r\n\t\t");
}

TEST_F(AddConditionTextsTest, AStepOfNothingOrZeroIsNone) {
  const std::vector<std::pair<const char*, const char*>> steps{
      {"", ""},
      {"  ", ""},
      {"0", ""},
      {" 0 ", ""},
      {"00", "  Step    00"},
      {" 00", "  Step     00"},
      {"0.0", "  Step    0.0"},
      {"-0", "  Step    -0"},
      {"0\t", "  Step    0\t"},
      {"1", "  Step    1"},
  };
  for (const auto& [step, written] : steps) {
    EXPECT_EQ(
        Written("optFor",
                {{"txtVariable", "i"}, {"txtinitval", "1"}, {"txtFinVal", "3"}, {"txtStep", step}}),
        std::string("for i = 1 to 3") + written + "\r\n")
        << "step \"" << step << "\"";
  }
}

TEST_F(AddConditionTextsTest, TheTextsOfTheOtherKindsLoseTheirBlanks) {
  EXPECT_EQ(Written("optIfThen", {{"txtCond", " c d "}, {"txtStmt1", "  x "}, {"txtStmt2", " y "}}),
            "if c d then \r\n\tx\r\nelse\r\n\ty");
  EXPECT_EQ(Written("optIfThen", {{"txtCond", "  c  "}}), "if c then ");
  EXPECT_EQ(Written("optRepeat", {{"txtRepCnd", " c "}, {"txtRepStm", "  s  "}}), "repeat \r\n\ts");
  EXPECT_EQ(Written("optwhile", {{"txtWhlCnd", "  c "}, {"txtWhlStm", " s "}}), "while c\r\n\ts");
  EXPECT_EQ(Written("optwhile", {{"txtWhlCnd", "  c "}}), "while  c");
  EXPECT_EQ(
      Written("optCase", {{"txtcaseexp", " e "}, {"TxtExpr(0)", "  v "}, {"txtStmt(0)", " s  "}}),
      "on case e\r\n\tcase v :\r\n\t\ts\r\n\t\tbreak");
  EXPECT_EQ(Written("optCase", {{"txtcaseexp", " e "}, {"TxtExpr(0)", "  v "}}),
            "on case e\r\n\tcase v: ");
}

TEST_F(AddConditionTextsTest, ABoxOfBlanksIsEmptyForTheOtherKinds) {
  EXPECT_EQ(Written("optIfThen", {{"txtCond", " "}, {"txtStmt1", "x"}}), "");
  EXPECT_EQ(Written("optIfThen", {{"txtCond", "c"}, {"txtStmt1", " "}, {"txtStmt2", "  "}}),
            "if c then ");
  EXPECT_EQ(Written("optRepeat", {{"txtRepStm", "  "}}), "repeat ");
  EXPECT_EQ(Written("optwhile", {{"txtWhlCnd", "  "}, {"txtWhlStm", "s"}}), "");
  EXPECT_EQ(Written("optwhile", {{"txtWhlCnd", "c"}, {"txtWhlStm", " "}}), "while  c");
  EXPECT_EQ(Written("optCase", {{"txtcaseexp", " "}, {"TxtExpr(0)", "v"}}), "");
  EXPECT_EQ(Written("optCase", {{"txtcaseexp", "e"}, {"TxtExpr(0)", " "}, {"txtStmt(0)", "s"}}),
            "");
  EXPECT_EQ(Written("optCase", {{"txtcaseexp", "e"}, {"TxtExpr(0)", "v"}, {"txtStmt(0)", "  "}}),
            "on case e\r\n\tcase v: ");
}

TEST_F(AddConditionTextsTest, TabsAndLineBreaksAtTheEndsStay) {
  EXPECT_EQ(Written("optIfThen",
                    {{"txtCond", " \tc\r\n "}, {"txtStmt1", "\r\nx\t"}, {"txtStmt2", "\ty\r\n"}}),
            "if \tc\r\n then \r\n\t\r\n\tx\t\r\nelse\r\n\t\ty\r\n\t");
  EXPECT_EQ(Written("optRepeat", {{"txtRepStm", "\ts\r\n"}}), "repeat \r\n\t\ts\r\n\t");
  EXPECT_EQ(Written("optwhile", {{"txtWhlCnd", "\tc\n"}, {"txtWhlStm", "\r\ns"}}),
            "while \tc\n\r\n\t\r\n\ts");
  EXPECT_EQ(
      Written("optCase", {{"txtcaseexp", "\te"}, {"TxtExpr(0)", "v\t"}, {"txtStmt(0)", "\ts\r\n"}}),
      "on case \te\r\n\tcase v\t :\r\n\t\t\ts\r\n\t\t\r\n\t\tbreak");
}

TEST_F(AddConditionTextsTest, ABoxOfATabOrALineBreakIsFilled) {
  EXPECT_EQ(Written("optIfThen", {{"txtCond", "\t"}}), "if \t then ");
  EXPECT_EQ(Written("optIfThen", {{"txtCond", "c"}, {"txtStmt1", "\t"}, {"txtStmt2", "\r\n"}}),
            "if c then \r\n\t\t\r\nelse\r\n\t\r\n\t");
  EXPECT_EQ(Written("optRepeat", {{"txtRepStm", "\t"}}), "repeat \r\n\t\t");
  EXPECT_EQ(Written("optwhile", {{"txtWhlCnd", "\t"}}), "while  \t");
  EXPECT_EQ(Written("optwhile", {{"txtWhlCnd", "c"}, {"txtWhlStm", "\n"}}), "while c\r\n\t\n");
  EXPECT_EQ(Written("optCase", {{"txtcaseexp", "\t"}, {"TxtExpr(0)", "\t"}, {"txtStmt(0)", "\t"}}),
            "on case \t\r\n\tcase \t :\r\n\t\t\t\r\n\t\tbreak");
}

// The statement block.

struct StatementBox {
  const char* option;
  Boxes boxes;
  const char* statement;
  const char* head;  // up to the line break before the statement

  friend std::ostream& operator<<(std::ostream& out, const StatementBox& box) {
    return out << box.statement;
  }
};

std::string StatementOf(const ::testing::TestParamInfo<StatementBox>& info) {
  return info.param.statement;
}

const std::vector<StatementBox> kStatementBoxes{
    {"optFor",
     {{"txtVariable", "i"}, {"txtinitval", "1"}, {"txtFinVal", "3"}},
     "txtForStmt",
     "#for i = 1 to 3"},
    {"optIfThen", {{"txtCond", "c"}}, "txtStmt1", "#if c then "},
    {"optIfThen", {{"txtCond", "c"}}, "txtStmt2", "if c then \r\n#else"},
    {"optRepeat", {}, "txtRepStm", "#repeat "},
    {"optwhile", {{"txtWhlCnd", "c"}}, "txtWhlStm", "#while c"},
};

class StatementBlockTest : public AddConditionTextsTest,
                           public ::testing::WithParamInterface<StatementBox> {
 protected:
  /// What the pass writes behind the head and its line break.
  std::string Block(int depth, const char* statement) {
    Boxes boxes = GetParam().boxes;
    boxes.emplace_back(GetParam().statement, statement);
    const std::string text = Written(GetParam().option, boxes, depth);
    const std::string head = AtDepth(depth, GetParam().head) + "\r\n";
    EXPECT_EQ(text.substr(0, head.size()), head);
    EXPECT_EQ(Depth(), depth);
    return text.substr(std::min(head.size(), text.size()));
  }
};

TEST_P(StatementBlockTest, IndentsEveryLineOneTabDeeperThanTheHead) {
  EXPECT_EQ(Block(0, "a\r\nb"), "\ta\r\n\tb");
  EXPECT_EQ(Block(1, "a\r\nb"), "\t\ta\r\n\t\tb");
  EXPECT_EQ(Block(3, "a\r\n\tb\r\n\r\nc"), "\t\t\t\ta\r\n\t\t\t\t\tb\r\n\t\t\t\t\r\n\t\t\t\tc");
}

TEST_P(StatementBlockTest, LeavesALoneLineEndAsItIs) {
  EXPECT_EQ(Block(2, "a\nb\rc\n\rd"), "\t\t\ta\nb\rc\n\rd");
  EXPECT_EQ(Block(2, "a\r\r\n\nb"), "\t\t\ta\r\r\n\t\t\t\nb");
}

TEST_P(StatementBlockTest, KeepsATabInItsLaterLinesAtADepthBelowZero) {
  EXPECT_EQ(Block(-1, "a\r\nb"), "a\r\n\tb");
  EXPECT_EQ(Block(-5, "a\r\nb"), "a\r\n\tb");
  EXPECT_EQ(Block(kLeastDepth, "a\r\nb"), "a\r\n\tb");
}

INSTANTIATE_TEST_SUITE_P(Boxes, StatementBlockTest, ::testing::ValuesIn(kStatementBoxes),
                         StatementOf);

TEST_F(AddConditionTextsTest, BlanksAtTheStartOfALineWithinAStatementStay) {
  EXPECT_EQ(Written("optwhile", {{"txtWhlCnd", "c"}, {"txtWhlStm", " a \r\n b "}}),
            "while c\r\n\ta \r\n\t b");
}

// The rows of an On...Case.

TEST_F(AddConditionTextsTest, ThreeRowsWithTheSecondWithoutAStatement) {
  CasePass("e", {{"a", "s"}, {"b", ""}, {"c", "u"}});
  EXPECT_EQ(Result(),
            "on case e"
            "\r\n\tcase a :"
            "\r\n\t\ts"
            "\r\n\t\tbreak"
            "\r\n\tcase b: "
            "\r\n\t\tcase c :"
            "\r\n\t\t\tu"
            "\r\n\t\t\tbreak");
  EXPECT_EQ(Depth(), 1);
}

TEST_F(AddConditionTextsTest, TheHeadStandsAtTheDepthBeforeItsRows) {
  SetDepth(2);
  CasePass("e", {{"a", ""}, {"b", ""}});
  EXPECT_EQ(Result(), "\t\ton case e\r\n\t\t\tcase a: \r\n\t\t\t\tcase b: ");
  EXPECT_EQ(Depth(), 4);
}

TEST_F(AddConditionTextsTest, EveryRowWithoutAStatementDeepensWhatFollows) {
  CasePass("e", {{"a", ""}, {"b", ""}});
  Pass("optwhile", {{"txtWhlCnd", "c"}});
  EXPECT_EQ(Result(), "on case e\r\n\tcase a: \r\n\t\tcase b: \r\n\t\t\twhile  c");
  EXPECT_EQ(Depth(), 3);
}

TEST_F(AddConditionTextsTest, RowsWithStatementsLeaveTheDepth) {
  CasePass("e", {{"a", "s"}, {"b", "t"}});
  EXPECT_EQ(Result(),
            "on case e\r\n\tcase a :\r\n\t\ts\r\n\t\tbreak\r\n\tcase b :\r\n\t\tt\r\n\t\tbreak");
  EXPECT_EQ(Depth(), 0);
}

TEST_F(AddConditionTextsTest, ARowWithoutAValueIsSkippedWhateverItsStatement) {
  CasePass("e", {{"", "lost"}, {"a", "s"}, {"  ", ""}, {"b", "t"}, {"", "lost"}});
  EXPECT_EQ(Result(),
            "on case e\r\n\tcase a :\r\n\t\ts\r\n\t\tbreak\r\n\tcase b :\r\n\t\tt\r\n\t\tbreak");
  EXPECT_EQ(Depth(), 0);
}

TEST_F(AddConditionTextsTest, TheLinesOfARowsStatementStandAsDeepAsItsBreak) {
  SetDepth(1);
  CasePass("e", {{"a", "s\r\nt\nu"}});
  EXPECT_EQ(Result(), "\ton case e\r\n\t\tcase a :\r\n\t\t\ts\r\n\t\t\tt\nu\r\n\t\t\tbreak");
}

TEST_F(AddConditionTextsTest, RowsBelowTheLeftMargin) {
  SetDepth(-1);
  CasePass("e", {{"a", "s\r\nt"}});
  EXPECT_EQ(Result(), "on case e\r\ncase a :\r\n\ts\r\n\tt\r\n\tbreak");
  EXPECT_EQ(Depth(), -1);
  MakeNew();
  Tab(6);
  SetDepth(-3);
  CasePass("e", {{"a", "s\r\nt"}, {"b", ""}});
  EXPECT_EQ(Result(), "on case e\r\ncase a :\r\ns\r\n\tt\r\nbreak\r\ncase b: ");
  EXPECT_EQ(Depth(), -2);
}

TEST_F(AddConditionTextsTest, RowsThatOutlastedAClearAreWritten) {
  Choose("optCase");
  Click("cmdNext");
  Fill({{"TxtExpr(1)", "b"}, {"txtStmt(1)", "t"}});
  Click("cmdClear");
  Pass("optCase", {{"txtcaseexp", "e"}, {"TxtExpr(0)", "a"}, {"txtStmt(0)", "s"}});
  EXPECT_EQ(Result(),
            "on case e\r\n\tcase a :\r\n\t\ts\r\n\t\tbreak\r\n\tcase b :\r\n\t\tt\r\n\t\tbreak");
}

// An On...Case with nothing to write.

TEST_F(AddConditionTextsTest, AnOnCaseWithoutAnExpressionLeavesItsLineBreakAndNoEntry) {
  Type("TxtOutput", " by hand ");
  Pass("optCase", {{"TxtExpr(0)", "v"}, {"txtStmt(0)", "s"}});
  EXPECT_EQ(Result(), "by hand\r\n");
  Type("TxtOutput", "");
  Pass("optwhile", {{"txtWhlCnd", "c"}});
  EXPECT_EQ(Result(), "while  c");
}

TEST_F(AddConditionTextsTest, AnOnCaseWithoutAValueLeavesItsLineBreakAndNoEntry) {
  Type("TxtOutput", "by hand");
  Pass("optCase", {{"txtcaseexp", "e"}, {"txtStmt(0)", "s"}, {"TxtDef", "d"}});
  EXPECT_EQ(Result(), "by hand\r\n");
  Type("TxtOutput", "");
  Pass("optwhile", {{"txtWhlCnd", "c"}});
  EXPECT_EQ(Result(), "while  c");
}

TEST_F(AddConditionTextsTest, AForAnIfAndAWhileStoreEvenAnEmptyText) {
  for (const char* option : {"optFor", "optIfThen", "optwhile"}) {
    MakeNew();
    Tab(6);
    Pass(option);
    ASSERT_EQ(Result(), "") << option;
    Pass("optwhile", {{"txtWhlCnd", "c"}});
    EXPECT_EQ(Result(), "\r\nwhile  c") << option;
  }
}

TEST_F(AddConditionTextsTest, WithoutAnExpressionNoRowDeepens) {
  CasePass("", {{"a", ""}, {"b", ""}});
  EXPECT_EQ(Depth(), 0);
}

TEST_F(AddConditionTextsTest, ADefaultWaitsThoughNothingWasStored) {
  CasePass("", {{"a", "s"}}, " d ");
  CasePass("e", {{"v", "s"}});
  Build();
  EXPECT_EQ(Result(),
            "on case e\r\n\tcase v :\r\n\t\ts\r\n\t\tbreak"
            "\r\n\tdefault: \r\n\t\td\r\nendcase"
            "\r\n\tdefault: \r\n\t\td\r\nendcase");
}

TEST_F(AddConditionTextsTest, TheLevelIsRaisedThoughNothingWasStored) {
  SetDepth(3);
  CasePass("", {{"a", "s"}});
  SetDepth(1);
  CasePass("e", {{"v", "s"}});
  Build();
  EXPECT_EQ(Result(),
            "\ton case e\r\n\t\tcase v :\r\n\t\t\ts\r\n\t\t\tbreak"
            "\r\n\tendcase"
            "\r\n\t\t\tendcase");
}

TEST_F(AddConditionTextsTest, ADefaultLosesItsBlanksAndOneOfBlanksIsNone) {
  CasePass("e", {{"v", "s"}}, "  \td\r\nf  ");
  Build();
  const std::string head = "on case e\r\n\tcase v :\r\n\t\ts\r\n\t\tbreak";
  EXPECT_EQ(Result(), head + "\r\n\tdefault: \r\n\t\t\td\r\nf\r\nendcase");
  MakeNew();
  Tab(6);
  CasePass("e", {{"v", "s"}}, "   ");
  Build();
  EXPECT_EQ(Result(), head + "\r\nendcase");
}

TEST_F(AddConditionTextsTest, DefaultsWaitInTheOrderOfThePasses) {
  CasePass("e", {{"v", "s"}}, "outer");
  CasePass("f", {{"w", "t"}}, "inner");
  Build();
  EXPECT_EQ(Result(),
            "on case e\r\n\tcase v :\r\n\t\ts\r\n\t\tbreak"
            "\r\n\ton case f\r\n\t\tcase w :\r\n\t\t\tt\r\n\t\t\tbreak"
            "\r\n\t\tdefault: \r\n\t\t\tinner\r\nendcase"
            "\r\n\tdefault: \r\n\t\touter\r\nendcase");
}

// What is left for Build Condition.

TEST_F(AddConditionTextsTest, EveryTextIsClosed) {
  const std::vector<std::tuple<const char*, Boxes, const char*>> closed{
      {"optFor",
       {{"txtVariable", "i"}, {"txtinitval", "1"}, {"txtFinVal", "3"}},
       "\tfor i = 1 to 3\r\n\r\n\tendfor"},
      {"optIfThen", {{"txtCond", "c"}}, "if c then \r\n\tendif"},
      {"optIfThen", {{"txtCond", "c"}, {"txtStmt1", "x"}}, "\tif c then \r\n\t\tx\r\n\tendif"},
      {"optRepeat", {{"txtRepCnd", " p "}}, "\trepeat \r\n\tUntil  ( p )"},
      {"optwhile", {{"txtWhlCnd", "c"}}, "\twhile  c\r\n\tendwhile"},
      {"optCase",
       {{"txtcaseexp", "e"}, {"TxtExpr(0)", "v"}},
       "\ton case e\r\n\t\tcase v: \r\n\tendcase"},
  };
  for (const auto& [option, boxes, text] : closed) {
    Written(option, boxes, 1);
    Build();
    EXPECT_EQ(Result(), text) << option;
  }
}

TEST_F(AddConditionTextsTest, NoEmptyTextIsClosedInAnEmptyResult) {
  for (const char* option : {"optFor", "optIfThen", "optwhile", "optCase"}) {
    Written(option, {});
    Build();
    EXPECT_EQ(Result(), "") << option;
  }
}

TEST_F(AddConditionTextsTest, AnIfWithoutAConditionIsClosedBehindEarlierEntries) {
  InsertStatement("x");
  Pass("optIfThen", {{"txtStmt2", "lost"}});
  Build();
  EXPECT_EQ(Result(), "x\r\n\r\nendif");
}

TEST_F(AddConditionTextsTest, AWhileWithoutAConditionIsClosedBehindEarlierEntries) {
  InsertStatement("x");
  Pass("optwhile", {{"txtWhlStm", "lost"}});
  Build();
  EXPECT_EQ(Result(), "x\r\n\r\nendwhile");
}

TEST_F(AddConditionTextsTest, AForWithABoxMissingIsNotClosedBehindEarlierEntriesEither) {
  InsertStatement("x");
  Pass("optFor", {{"txtVariable", "i"}, {"txtinitval", "1"}});
  Build();
  EXPECT_EQ(Result(), "x\r\n");
}

TEST_F(AddConditionTextsTest, AnOnCaseWithNothingToWriteIsNotClosedBehindEarlierEntriesEither) {
  InsertStatement("x");
  Pass("optCase", {{"txtcaseexp", "e"}});
  Build();
  EXPECT_EQ(Result(), "x\r\n");
}

TEST_F(AddConditionTextsTest, AnInnerForWithABoxMissingTakesTheClosingOfTheOuterOne) {
  Pass("optFor", {{"txtVariable", "i"}, {"txtinitval", "1"}, {"txtFinVal", "3"}});
  Pass("optFor");
  Build();
  EXPECT_EQ(Result(), "for i = 1 to 3\r\n\r\n");
}

TEST_F(AddConditionTextsTest, AnInnerIfOrWhileWithoutAConditionIsClosedWithTheOuterOne) {
  Pass("optIfThen", {{"txtCond", "c"}});
  Pass("optIfThen");
  Build();
  EXPECT_EQ(Result(), "if c then \r\n\r\n\tendif\r\nendif");
  MakeNew();
  Tab(6);
  Pass("optwhile", {{"txtWhlCnd", "c"}});
  Pass("optwhile");
  Build();
  EXPECT_EQ(Result(), "while  c\r\n\r\n\tendwhile\r\nendwhile");
}

TEST_F(AddConditionTextsTest, AnInnerOnCaseWithNothingToWriteTakesTheClosingOfTheOuterOne) {
  CasePass("e", {{"v", "s"}});
  CasePass("", {{"w", "t"}});
  Build();
  EXPECT_EQ(Result(), "on case e\r\n\tcase v :\r\n\t\ts\r\n\t\tbreak\r\n");
}

TEST_F(AddConditionTextsTest, ARepeatOfEmptyBoxesGetsNoUntil) {
  Pass("optRepeat", {{"txtRepCnd", "  "}, {"txtRepStm", " "}});
  Build();
  EXPECT_EQ(Result(), "repeat ");
}

TEST_F(AddConditionTextsTest, ARepeatWithAStatementAloneGetsAnUntilOfNothing) {
  Pass("optRepeat", {{"txtRepStm", "s"}});
  Build();
  EXPECT_EQ(Result(), "repeat \r\n\ts\r\nUntil  (  )");
}

TEST_F(AddConditionTextsTest, AnInnerRepeatOfEmptyBoxesTakesTheUntilOfTheOuterOne) {
  Pass("optRepeat", {{"txtRepCnd", "p"}});
  Pass("optRepeat");
  Build();
  EXPECT_EQ(Result(), "repeat \r\n\trepeat ");
}

TEST_F(AddConditionTextsTest, RepeatConditionsWaitInTheOrderOfThePassesWithTheirTabs) {
  Pass("optRepeat", {{"txtRepCnd", " p\t "}});
  Pass("optRepeat", {{"txtRepCnd", "q"}});
  Build();
  EXPECT_EQ(Result(), "repeat \r\n\trepeat \r\n\tUntil  ( q )\r\nUntil  ( p\t )");
}

TEST_F(AddConditionTextsTest, ATabIsARepeatCondition) {
  Pass("optRepeat", {{"txtRepCnd", "\t"}});
  Build();
  EXPECT_EQ(Result(), "repeat \r\nUntil  ( \t )");
}

}  // namespace
}  // namespace zolt20::tests
