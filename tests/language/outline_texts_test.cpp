// The tree of texts that the control composed: the recorded ones, whole, cut off anywhere and with
// words left out, and others from forms filled at random.
#include <map>
#include <random>

#include "language/outline.h"
#include "tests/support/direct_road.h"
#include "tests/support/example_texts.h"
#include "tests/support/nesting_test.h"
#include "tests/support/outline_lines.h"
#include "tests/support/session_maker.h"

namespace zolt20::tests {
namespace {

namespace fs = std::filesystem;
using language::Node;
using language::NodeKind;

std::map<NodeKind, int> KindsOf(StringView text) {
  std::map<NodeKind, int> kinds;
  for (const Node& node : language::ReadOutline(text))
    ++kinds[node.kind];
  return kinds;
}

void ExpectTree(StringView text) {
  ASSERT_EQ(WrongInTree(text, language::ReadOutline(text)), "") << Narrow(text);
}

TEST(ExampleTextsTest, AreReadWithoutAProblem) {
  for (const String& text : ExampleTexts()) {
    ExpectTree(text);
    EXPECT_EQ(ProblemLines(text), Texts{}) << Narrow(text);
  }
}

TEST(ExampleTextsTest, TheLoopOfTheMappingRule) {
  const String text = Wide(ReadFile(fs::path(Examples()) / "sessions" / "mapping-rule.result.txt"));
  Texts heads;
  for (const Node& node : language::ReadOutline(text)) {
    if (node.kind == NodeKind::kHead || node.kind == NodeKind::kStatement || node.depth > 3)
      continue;
    heads.push_back(std::string(2 * node.depth, ' ') + language::NameOf(node.kind) + ": " +
                    Narrow(language::HeadOf(text, node)));
  }
  const Texts expected{
      "select: select ORDERS__.O_CARRIER_ID,ORDERS__.O_ID",
      "  select list: select ORDERS__.O_CARRIER_ID,ORDERS__.O_ID",
      "  from: from  ORDERS__",
      "  end: endselect",
      "for: for :var.order = 1 to :var.orders  Step    1",
      "  select: select ORDRLINE.OL_AMOUNT",
      "    select list: select ORDRLINE.OL_AMOUNT",
      "    from: from  ORDRLINE",
      "    where: where ORDRLINE.OL_O_ID = :var.order",
      "    select do: selectdo",
      "    end: endselect",
      "  if: if :var.sum > 1000 then",
      "    else: else",
      "      on case: on case ORDERS__.O_CARRIER_ID",
      "    end: endif",
      "  end: endfor",
  };
  EXPECT_EQ(heads, expected);
}

TEST(ExampleTextsTest, CutOffAnywhereTheyAreTreesStill) {
  for (const String& text : ExampleTexts()) {
    for (std::size_t length = 0; length < text.size(); ++length)
      ExpectTree(StringView(text).substr(0, length));
  }
}

TEST(ExampleTextsTest, WithEachWordLeftOutTheyAreTreesStill) {
  int told = 0;
  for (const String& text : ExampleTexts()) {
    for (std::size_t at = 0; at < text.size();) {
      const std::size_t word = text.find_first_not_of(u" \t\r\n", at);
      if (word == String::npos) break;
      at = std::min(text.find_first_of(u" \t\r\n", word), text.size());
      const String cut = Concat(text.substr(0, word), text.substr(at));
      ExpectTree(cut);
      // A statement that begins or ends with the word can't be whole without it.
      const String left = LowerCase(StringView(text).substr(word, at - word));
      if (left.starts_with(u"end") || left == u"if" || left == u"then" || left == u"until") {
        ++told;
        EXPECT_NE(ProblemLines(cut), Texts{}) << Narrow(left) << " left out of\n" << Narrow(text);
      }
    }
  }
  EXPECT_GT(told, 50);
}

// Forms filled at random.

class ComposedTextsTest : public NestingTest {
 protected:
  // A select statement's clauses and blocks, on the form.
  void FillSelect(Maker& maker) {
    Catalogue("TABLE__A0,TABLE__B0",
              List({Field("NTABLE__A.F1"), Field("NTABLE__A.F2"), Field("NTABLE__B.G1")}));
    Tab(0);
    Mark("lsttables", 0);
    if (maker.Maybe()) Mark("lsttables", 1);
    Click("cmdMoveAll");
    static const Texts kConditions{"", "TABLE__A.F1 = 1",
                                   "TABLE__A.F1 = \")\"\r\nand TABLE__A.F2 >  2",
                                   "EXISTS  (  \r\nselect TABLE__B.G1\r\nfrom  TABLE__B\r\n"
                                   "where TABLE__B.G1 = 3\r\norder by TABLE__B.G1\r\nendselect\r\n)"
                                   "\r\nor NOT EXISTS  (  \r\nselect TABLE__B.*\r\n"
                                   "from  TABLE__B\r\nendselect\r\n)"};
    Tab(1);
    Type("txtwhereCondition", kConditions[maker.Below(kConditions.size())]);
    if (maker.Maybe()) Mark("lstorderbyasc", 0);
    if (maker.Maybe()) Mark("lstorderbydesc", 1);
    if (maker.Maybe()) Type("txtAsSet", "10");
    const Texts blocks{"txtSelectDo", "txtSelectEOS", "txtselectempty", "txtSelectError"};
    for (std::size_t block = 0; block < blocks.size(); ++block) {
      Tab(static_cast<int>(block) + 2);
      Type(blocks[block], Block(maker));
    }
  }

  // Some statements, nested ones among them.
  std::string Block(Maker& maker) {
    static const std::string kSelect =
        "select TABLE__B.G1\r\nfrom  TABLE__B\r\nselectdo\r\n\t:var.x = 1\r\nendselect";
    std::string text;
    for (std::size_t statements = maker.Below(4); statements > 0; --statements) {
      if (!text.empty()) text += "\r\n";
      text += maker.Maybe() ? "call ( :var.x )" : maker.Maybe() ? kSelect : Print(Nested(maker));
    }
    return text;
  }

  Nesting Nested(Maker& maker) {
    Nesting nesting;
    const bool hasDefaults = maker.Maybe();
    for (std::size_t depth = 1 + maker.Below(4); depth > 0; --depth)
      nesting.push_back(maker.Make(maker.AnyKind(), maker.Maybe(), hasDefaults));
    return nesting;
  }

  String ResultText() { return host().Form().TxtOutput.Text(); }
};

TEST_F(ComposedTextsTest, OfNestingsHaveANodeForEachConstruct) {
  for (unsigned seed = 1; seed <= 60; ++seed) {
    SCOPED_TRACE(seed);
    MakeNew();
    Tab(6);
    Maker maker(seed);
    std::map<NodeKind, int> expected;
    const bool hasDefaults = maker.Maybe();
    for (int count = 0; count < 2; ++count) {
      Nesting nesting;
      for (std::size_t depth = 1 + maker.Below(kDeepest); depth > 0; --depth)
        nesting.push_back(maker.Make(maker.AnyKind(), maker.Maybe(), hasDefaults));
      AddAndBuild(nesting);
      for (const Construct& construct : nesting) {
        const std::map<Kind, NodeKind> kinds{{Kind::kIf, NodeKind::kIf},
                                             {Kind::kFor, NodeKind::kFor},
                                             {Kind::kWhile, NodeKind::kWhile},
                                             {Kind::kRepeat, NodeKind::kRepeat},
                                             {Kind::kCase, NodeKind::kOnCase}};
        ++expected[kinds.at(construct.kind)];
        if (!construct.elseStatement.empty()) ++expected[NodeKind::kElse];
        if (!construct.defaultStatement.empty()) ++expected[NodeKind::kDefault];
        for (std::size_t row = 0; row < construct.rows.size(); ++row)
          ++expected[NodeKind::kCaseRow];
      }
    }
    const String text = ResultText();
    ExpectTree(text);
    ASSERT_EQ(ProblemLines(text), Texts{}) << Narrow(text);
    std::map<NodeKind, int> kinds = KindsOf(text);
    for (const NodeKind leaf : {NodeKind::kStatement, NodeKind::kHead, NodeKind::kEnd})
      kinds.erase(leaf);
    ASSERT_EQ(kinds, expected) << Narrow(text);
  }
}

TEST_F(ComposedTextsTest, OfWholeFormsAreReadWithoutAProblem) {
  int statements = 0;
  for (unsigned seed = 1; seed <= 150; ++seed) {
    SCOPED_TRACE(seed);
    MakeNew();
    Maker maker(seed);
    FillSelect(maker);
    for (std::size_t additions = 1 + maker.Below(3); additions > 0; --additions) {
      Tab(0);
      if (maker.Maybe()) {
        Click("cmdAddSelect");
      } else {
        Tab(6);
        AddAndBuild(Nested(maker));
      }
    }
    const String text = ResultText();
    ExpectTree(text);
    ASSERT_EQ(ProblemLines(text), Texts{}) << Narrow(text);
    statements += KindsOf(text)[NodeKind::kSelect];
  }
  EXPECT_GT(statements, 150);
}

// What the host puts into the Result becomes an entry with all that was there, right behind the
// entries before it, so the next addition writes a statement directly behind an end.
TEST_F(ComposedTextsTest, WithStatementsOfTheHostHaveAnEndBeforeTheNextOnTheLine) {
  MakeNew();
  Maker maker(1);
  FillSelect(maker);
  Tab(0);
  Click("cmdAddSelect");
  host().prpStroutput(u"select TABLE__B.G1~from  TABLE__B~endselect");
  Tab(6);
  AddAndBuild({maker.Make(Kind::kIf, true, false)});
  const String text = ResultText();
  EXPECT_NE(text.find(u"endselectselect "), String::npos) << Narrow(text);
  ExpectTree(text);
  EXPECT_EQ(ProblemLines(text), Texts{}) << Narrow(text);
}

TEST(SessionTextsTest, OfAnySessionAreTrees) {
  int results = 0;
  int whole = 0;
  for (unsigned seed = 1; seed <= 300; ++seed) {
    SCOPED_TRACE(seed);
    DirectRoad direct;
    SeededChoices choices(seed);
    SessionMaker maker(choices);
    for (int step = 0; step < 40; ++step) {
      const auto request = maker.Next(direct.Control().Form());
      maker.Hear(request, direct.Reply(request));
    }
    const String& text = direct.Control().Form().TxtOutput.Text();
    ExpectTree(text);
    if (text.empty()) continue;
    ++results;
    if (ProblemLines(text).empty()) ++whole;
  }
  std::printf("%d Results, %d of them without a problem\n", results, whole);
  EXPECT_GT(results, 100);
  EXPECT_GT(whole, 20);
}

}  // namespace
}  // namespace zolt20::tests
