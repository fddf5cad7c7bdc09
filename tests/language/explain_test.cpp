// What nodes of a tree do, in words.
#include "language/explain.h"

#include <gtest/gtest.h>

#include "tests/support/host_texts.h"
#include "tests/support/whole_forms.h"

namespace zolt20::tests {
namespace {

using language::Node;
using language::NodeKind;
using language::Words;

/// The sentences of the nodes that no other sentence tells, or of all.
Texts Sentences(std::string_view text, bool ofAll = false) {
  const String wide = Wide(text);
  const std::vector<Node> nodes = language::ReadOutline(wide);
  Texts sentences;
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    if (ofAll || !language::IsToldByAnother(nodes[i]))
      sentences.push_back(Narrow(language::Explain(wide, nodes, i)));
  }
  return sentences;
}

void Expect(std::string_view text, const Texts& sentences) {
  EXPECT_EQ(Sentences(text), sentences) << text;
}

TEST(ExplainTest, AForTellsItsValues) {
  Expect("for :var.order = 1 to :var.orders  Step    1\r\nendfor",
         {"For each :var.order from 1 to :var.orders in steps of 1:"});
  Expect("for i = f ( \"to\" ) to 3\r\nendfor", {"For each i from f ( \"to\" ) to 3:"});
  Expect("for i=(0)to(9)step(2)\r\nendfor", {"For each i from (0) to (9) in steps of (2):"});
}

TEST(ExplainTest, AnIfTellsItsCondition) {
  Expect("if a =\r\n\t1 then \r\n\tx = 1\r\nelse\r\n\tcall ( y )\r\nendif",
         {"If a = 1:", "Sets x to 1.", "Otherwise:", "Runs call ( y )."});
}

TEST(ExplainTest, LoopsTellTheirConditions) {
  Expect("while  a > 1\r\nendwhile", {"As long as a > 1:"});
  Expect("repeat \r\nx\r\nUntil  ( a )", {"Once, and again until a:", "Runs x."});
  Expect("repeat \r\nUntil  ( a ) or ( b )", {"Once, and again until ( a ) or ( b ):"});
  Expect("repeat \r\nuntil a", {"Once, and again until a:"});
  Expect("repeat \r\nx", {"Again and again:", "Runs x."});
  Expect("repeat \r\nif a then\r\nendif", {"Again and again:", "If a:"});
}

TEST(ExplainTest, AnOnCaseTellsItsRows) {
  Expect(
      "on case e\r\n\tcase \"a : b\" :\r\n\t\tx\r\n\t\tbreak\r\n\tdefault: \r\n\t\ty\r\nendcase",
      {"By the value of e:", "When it is \"a : b\":", "Runs x.", "In all other cases:", "Runs y."});
}

TEST(ExplainTest, ASelectStatementTellsItsClauses) {
  Expect(
      "select A.F,A.*,count ( * ) :var.count,sum ( A.G ) :var.sum,max ( A.G )\r\nfrom  B,A\r\n"
      "where a = 1\r\nand  b = 2\r\ngroup by  A.F\r\norder by A.F desc,A.G\r\n"
      "as set with 50 rows \r\nselectdo\r\n\tx\r\nselecteos\r\n\ty\r\nselectempty\r\n\tz\r\n"
      "selecterror\r\n\tw\r\nendselect",
      {"Reads A.F, all fields of A, the number of rows into :var.count, sum ( A.G ) into "
       ":var.sum, max ( A.G ) from B, A where a = 1 and b = 2, one row for each A.F, in the "
       "order of A.F descending, A.G, at most 50 rows.",
       "For each row that was read:", "Runs x.", "After the last row:", "Runs y.",
       "When there was no row:", "Runs z.", "When reading failed:", "Runs w."});
  Expect("select A\r\nfrom\r\nfrom  B\r\nselectdo\r\nendselect",
         {"Reads A.", "For each row that was read:"});
}

TEST(ExplainTest, AConditionLeavesItsSelectStatementsOut) {
  Expect("select A\r\nwhere EXISTS  (  \r\nselect B\r\nendselect\r\n)\r\nor c\r\nendselect",
         {"Reads A where EXISTS ( ... ) or c.", "Reads B."});
}

TEST(ExplainTest, EachNodeHasASentence) {
  const Texts expected{"",
                       "Reads A where ( ... ), at most 5 rows.",
                       "Reads A.",
                       "Only rows where ( ... ).",
                       "Only rows where ( ... ).",
                       "Reads B from C, one row for each D, in the order of E.",
                       "Reads B.",
                       "From C.",
                       "One row for each D.",
                       "In the order of E.",
                       "Ends what begins with 'select B'.",
                       "Only rows where ( ... ).",
                       "At most 5 rows.",
                       "Ends what begins with 'select A'."};
  EXPECT_EQ(
      Sentences("\r\nselect A\r\nwhere (\r\nselect B\r\nfrom  C\r\ngroup by  D\r\norder by E\r\n"
                "endselect\r\n)\r\nas set with 5\r\nendselect",
                true),
      expected);
}

TEST(ExplainTest, WhatIsNotCompleteIsTold) {
  Expect("if a\r\nfor i\r\non case\r\ncase 1\r\n",
         {"Not complete: if a", "Not complete: for i", "Not complete: on case",
          "Not complete: case 1"});
}

TEST(ExplainTest, OnlyANameIsSet) {
  Expect("x = y = 1", {"Sets x to y = 1."});
  Expect("= 1\r\nx <= 1\r\nx y = 1\r\nf(a=1)\r\nx<=1",
         {"Runs = 1.", "Runs x <= 1.", "Runs x y = 1.", "Runs f(a=1).", "Runs x<=1."});
}

TEST(ExplainTest, LongTextsAreCutShort) {
  Expect("x " + std::string(300, 'y'), {"Runs x " + std::string(198, 'y') + "...."});
  Expect("x" + std::string(300, ' ') + "y", {"Runs x y."});
}

TEST(ExplainTest, AHostGivesOtherSentences) {
  Words words;
  words.Set(language::Word::whileTrue, u"Solange {condition}:");
  const String text = u"while a\r\nendwhile";
  EXPECT_EQ(Narrow(language::Explain(text, language::ReadOutline(text), 0, words)), "Solange a:");
}

TEST(ExplainTest, NothingIsLeftToFillInInWholeForms) {
  for (unsigned seed = 1; seed <= 100; ++seed) {
    const String text = WholeForm(seed).Compose();
    const std::vector<Node> nodes = language::ReadOutline(text);
    for (std::size_t i = 0; i < nodes.size(); ++i) {
      const std::string sentence = Narrow(language::Explain(text, nodes, i));
      ASSERT_EQ(sentence.empty(), nodes[i].kind == NodeKind::kBlank) << sentence;
      for (const char* const key : {"{list}", "{condition}", "{fields}", "{value}", "{first}"})
        ASSERT_EQ(sentence.find(key), std::string::npos) << sentence;
    }
  }
}

}  // namespace
}  // namespace zolt20::tests
