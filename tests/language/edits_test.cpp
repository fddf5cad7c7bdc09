// Nodes taken out, put in, moved and deleted, where nothing else may change.
#include "language/edits.h"

#include <gtest/gtest.h>

#include "tests/support/host_texts.h"

namespace zolt20::tests {
namespace {

using language::Change;
using language::Node;
using language::Place;
using language::Refusal;
using language::Where;

// A text with the node of each head, to be named by it.
class Tree {
 public:
  explicit Tree(std::string_view text) : text_(Wide(text)), nodes_(language::ReadOutline(text_)) {}

  std::size_t Of(std::string_view head) const {
    for (std::size_t i = 0; i < nodes_.size(); ++i)
      if (Narrow(language::HeadOf(text_, nodes_[i])) == head) return i;
    ADD_FAILURE() << "no node " << head;
    return 0;
  }
  Place At(Where where, std::string_view head) const { return {Of(head), where}; }

  std::string Take(std::string_view head) const {
    return Narrow(language::TakeNode(text_, nodes_, Of(head)));
  }
  std::string Replace(std::string_view head, std::string_view replacement) const {
    return Told(language::ReplaceNode(text_, nodes_, Of(head), Wide(replacement)));
  }
  std::string Delete(std::string_view head) const {
    return Told(language::DeleteNode(text_, nodes_, Of(head)));
  }
  std::string Insert(Place place, std::string_view inserted) const {
    return Told(language::InsertNodes(text_, nodes_, place, Wide(inserted)));
  }
  std::string Insert(Where where, std::string_view head, std::string_view inserted) const {
    return Insert(At(where, head), inserted);
  }
  std::string Move(std::string_view head, Where where, std::string_view other) const {
    return Told(language::MoveNode(text_, nodes_, Of(head), At(where, other)));
  }
  const String& text() const { return text_; }
  const std::vector<Node>& nodes() const { return nodes_; }

 private:
  // The text with "[" and "]" around what came, or why not.
  std::string Told(const Change& change) const {
    if (change.refusal == Refusal::kNone) {
      const StringView text = change.text;
      return Narrow(Concat(text.substr(0, change.first), u"[",
                           text.substr(change.first, change.last - change.first), u"]",
                           text.substr(change.last)));
    }
    EXPECT_EQ(change.text, text_);
    switch (change.refusal) {
      case Refusal::kPart:
        return "a part";
      case Refusal::kItself:
        return "itself";
      case Refusal::kNoPlace:
        return "no place";
      case Refusal::kNoText:
        return "no text";
      default:
        return "others";
    }
  }

  String text_;
  std::vector<Node> nodes_;
};

constexpr const char* kLoop =
    "a = 1\r\n"
    "for i = 1 to 3\r\n"
    "\tif b then \r\n"
    "\t\tc = 1\r\n"
    "\telse\r\n"
    "\t\td = 1\r\n"
    "\tendif\r\n"
    "\te = 1\r\n"
    "endfor";

// Taking out.

TEST(EditsTest, ANodeIsTakenOutAsItWouldStandAtTheMargin) {
  const Tree tree(kLoop);
  EXPECT_EQ(tree.Take("if b then"), "if b then \r\n\tc = 1\r\nelse\r\n\td = 1\r\nendif");
  EXPECT_EQ(tree.Take("c = 1"), "c = 1");
  EXPECT_EQ(tree.Take("a = 1"), "a = 1");
  EXPECT_EQ(tree.Take("else"), "else\r\n\td = 1");
}

TEST(EditsTest, BlankLinesBehindANodeStay) {
  const Tree tree("\ta = 1 \r\n\r\n  \r\n\tb = 1");
  EXPECT_EQ(tree.Take("a = 1"), "a = 1 ");
  EXPECT_EQ(tree.Replace("a = 1", "\r\n\r\nx\r\n\r\n"), "[\tx]\r\n\r\n  \r\n\tb = 1");
}

TEST(EditsTest, LinesFurtherLeftThanTheirStatementStayThere) {
  const Tree tree("for i = 1 to 2\r\n\ton case e\r\n\t\tcase 1 :\r\n\t\t\tx\r\nendcase\r\nendfor");
  EXPECT_EQ(tree.Take("on case e"), "on case e\r\n\tcase 1 :\r\n\t\tx\r\nendcase");
  EXPECT_EQ(tree.Replace("on case e", "on case f\r\n\tcase 2 :\r\n\t\ty\r\nendcase"),
            "for i = 1 to 2\r\n[\ton case f\r\n\t\tcase 2 :\r\n\t\t\ty\r\nendcase]\r\nendfor");
  EXPECT_EQ(tree.Replace("on case e", "on case f\r\nendcase\r\nz"),
            "for i = 1 to 2\r\n[\ton case f\r\nendcase\r\n\tz]\r\nendfor")
      << "found among other lines";
  EXPECT_EQ(tree.Move("on case e", Where::kBefore, "for i = 1 to 2"),
            "[on case e\r\n\tcase 1 :\r\n\t\tx\r\nendcase]\r\nfor i = 1 to 2\r\nendfor");
}

TEST(EditsTest, TheDepthOfAnIfOfAConditionAloneIsThatOfItsEnd) {
  const Tree tree("while  a\r\nif b then \r\n\t\tc\r\n\tendif\r\nendwhile");
  EXPECT_EQ(tree.Take("if b then"), "if b then \r\n\tc\r\nendif");
  EXPECT_EQ(tree.Replace("if b then", "if b then \r\n\td\r\nendif"),
            "while  a\r\n[if b then \r\n\t\td\r\n\tendif]\r\nendwhile");
  EXPECT_EQ(Tree("\tif b then \r\nendif").Take("if b then"), "if b then \r\nendif");
  EXPECT_EQ(Tree("\tif b then endif").Take("if b then"), "if b then endif");
  EXPECT_EQ(Tree("\tif b then \r\n\t\tc").Take("if b then"), "if b then \r\n\tc");
  EXPECT_EQ(Tree("\tif b then \r\n\t\tif c then \r\n\t\tendif").Take("if b then"),
            "if b then \r\n\tif c then \r\n\tendif");
}

TEST(EditsTest, ANodeMayBeginBehindAnotherOnItsLine) {
  const Tree tree("while a\r\nx\r\nendwhilefor i = 1 to 2\r\n\ty\r\nendfor");
  EXPECT_EQ(tree.Take("for i = 1 to 2"), "for i = 1 to 2\r\n\ty\r\nendfor");
  EXPECT_EQ(tree.Replace("for i = 1 to 2", "for i = 1 to 3\r\n\tz\r\nendfor"),
            "while a\r\nx\r\nendwhile[for i = 1 to 3\r\n\tz\r\nendfor]");
  EXPECT_EQ(tree.Move("for i = 1 to 2", Where::kBefore, "while a"),
            "[for i = 1 to 2\r\n\ty\r\nendfor]\r\nwhile a\r\nx\r\nendwhile");
}

TEST(EditsTest, AHeadOfSeveralLinesComesToItsPlaceWhole) {
  const Tree tree("if a\r\n and b then \r\nx\r\nendif\r\nfor i = 1 to 2\r\n\ty\r\nendfor");
  EXPECT_EQ(tree.Move("if a\r\n and b then", Where::kBefore, "y"),
            "for i = 1 to 2\r\n[\tif a\r\n\t and b then \r\n\tx\r\n\tendif]\r\n\ty\r\nendfor");
}

TEST(EditsTest, NoOtherHeadChanges) {
  EXPECT_EQ(Tree("if a then endif b = 1\r\nc").Replace("if a then", "q\r\n then"), "others");
}

TEST(EditsTest, TheEndOfTheTextIsNotWithinANode) {
  const Tree tree(kLoop);
  const Change change =
      language::MoveNode(tree.text(), tree.nodes(), tree.Of("a = 1"), {Node::kNone, Where::kInto});
  EXPECT_EQ(Narrow(change.text),
            "for i = 1 to 3\r\n\tif b then \r\n\t\tc = 1\r\n\telse\r\n\t\td = 1\r\n\tendif\r\n"
            "\te = 1\r\nendfor\r\na = 1");
}

// Replacing.

TEST(EditsTest, AReplacementGetsTheDepthOfItsPlace) {
  const Tree tree(kLoop);
  EXPECT_EQ(tree.Replace("c = 1", "while x\r\n\ty\r\nendwhile\r\nz"),
            "a = 1\r\nfor i = 1 to 3\r\n\tif b then \r\n"
            "[\t\twhile x\r\n\t\t\ty\r\n\t\tendwhile\r\n\t\tz]\r\n"
            "\telse\r\n\t\td = 1\r\n\tendif\r\n\te = 1\r\nendfor");
}

TEST(EditsTest, AReplacementHasTheLineEndsOfTheText) {
  const Tree tree("for i = 1 to 2\n\tx\n\r\n\tfor j = 1 to 2\r\n\tendfor\nendfor");
  EXPECT_EQ(tree.Replace("x", "y\r\nz"),
            "for i = 1 to 2\n[\ty\n\tz]\n\r\n\tfor j = 1 to 2\r\n\tendfor\nendfor");
  EXPECT_EQ(tree.Replace("for j = 1 to 2", "for j = 1 to 2\nendfor\nw"),
            "for i = 1 to 2\n\tx\n\r\n[\tfor j = 1 to 2\r\n\tendfor\n\tw]\nendfor");
}

TEST(EditsTest, NothingInPlaceOfANodeDeletesIt) {
  EXPECT_EQ(Tree("a\r\nb\r\nc").Replace("b", " \r\n"), "a\r\n[]c");
}

TEST(EditsTest, AReplacementThatWouldChangeOtherNodesIsRefused) {
  const Tree tree(kLoop);
  EXPECT_EQ(tree.Replace("c = 1", "endif"), "others");
  EXPECT_EQ(tree.Replace("c = 1", "if x then"), "others") << "it would have what follows in it";
  EXPECT_EQ(tree.Replace("c = 1", "endif\r\nif x then"), "others");
  EXPECT_EQ(tree.Replace("e = 1", "endfor\r\nx"), "others");
  EXPECT_EQ(Tree("select A.B\r\nfrom  A\r\nendselect").Replace("from  A", ",C"), "others")
      << "the list before would go on";
}

TEST(EditsTest, AnUnclosedReplacementThatTakesNothingInIsTaken) {
  EXPECT_EQ(Tree("a\r\nb").Replace("b", "if x then"), "a\r\n[if x then]");
}

TEST(EditsTest, PartsOfANodeGoWithIt) {
  const Tree tree("\r\nif b then \r\nendif");
  for (std::size_t i : {std::size_t{0}, tree.Of("if b then") + 1, tree.Of("endif")}) {
    EXPECT_EQ(language::ReplaceNode(tree.text(), tree.nodes(), i, u"x").refusal, Refusal::kPart);
    EXPECT_EQ(language::DeleteNode(tree.text(), tree.nodes(), i).refusal, Refusal::kPart);
    EXPECT_EQ(language::MoveNode(tree.text(), tree.nodes(), i, {}).refusal, Refusal::kPart);
  }
  const Tree where("select A\r\nwhere B IN ( select C\r\nendselect )\r\nendselect");
  EXPECT_EQ(where.Delete(")"), "a part");
}

// Deleting.

TEST(EditsTest, ANodeIsDeletedWithItsLines) {
  const Tree tree(kLoop);
  EXPECT_EQ(
      tree.Delete("else"),
      "a = 1\r\nfor i = 1 to 3\r\n\tif b then \r\n\t\tc = 1\r\n[]\tendif\r\n\te = 1\r\nendfor");
  EXPECT_EQ(tree.Delete("for i = 1 to 3"), "a = 1[]");
  EXPECT_EQ(Tree("a\nb").Delete("b"), "a[]");
  EXPECT_EQ(Tree("a\r\nb\r\n").Delete("b"), "a\r\n[]");
  EXPECT_EQ(Tree("a").Delete("a"), "[]");
}

TEST(EditsTest, OfALineThatIsSharedWhatIsItsOwnGoes) {
  const Tree tree("\tselect A\r\n\tendselectselect B\r\nendselect\r\nx");
  EXPECT_EQ(tree.Delete("select A"), "\t[]select B\r\nendselect\r\nx");
  EXPECT_EQ(tree.Delete("select B"), "\tselect A\r\n\tendselect[]\r\nx");
  EXPECT_EQ(Tree("endif if a then\r\nendif").Delete("if a then"), "endif []");
  EXPECT_EQ(Tree("select A\r\nendselectif b then endif if c then \r\nendif").Delete("if b then"),
            "select A\r\nendselect[]if c then \r\nendif");
}

TEST(EditsTest, ADeletionThatWouldChangeOtherNodesIsRefused) {
  EXPECT_EQ(Tree("select A\r\nfrom  T\r\nendselect").Delete("select A"), "[]");
  const Tree where("select A\r\nwhere B IN ( select C\r\nendselect )\r\nendselect");
  EXPECT_EQ(where.Delete("select C"), "others") << "the brackets would have nothing in them";
  EXPECT_EQ(Tree("on case e\r\ncase 1 :\r\nx\r\nendif\r\nendcase").Delete("case 1 :"),
            "on case e\r\n[]endcase");
  EXPECT_EQ(Tree("repeat x\r\nuntil (a)").Delete("x"), "repeat []\r\nuntil (a)");
}

// Putting in.

TEST(EditsTest, ATextComesBeforeBehindAndIntoANode) {
  const Tree tree("if a then \r\n\tx\r\nelse\r\nendif");
  EXPECT_EQ(tree.Insert(Where::kBefore, "x", "y\r\n\r\nz"),
            "if a then \r\n[\ty\r\n\r\n\tz]\r\n\tx\r\nelse\r\nendif");
  EXPECT_EQ(tree.Insert(Where::kBehind, "x", "y"), "if a then \r\n\tx\r\n[\ty]\r\nelse\r\nendif");
  EXPECT_EQ(tree.Insert(Where::kInto, "if a then", "y"),
            "if a then \r\n\tx\r\n[\ty]\r\nelse\r\nendif");
  EXPECT_EQ(tree.Insert(Where::kInto, "else", "y"), "if a then \r\n\tx\r\nelse\r\n[\ty]\r\nendif");
  EXPECT_EQ(tree.Insert(Where::kBehind, "if a then", "y"),
            "if a then \r\n\tx\r\nelse\r\nendif\r\n[y]");
}

TEST(EditsTest, ATextComesIntoARowABlockAndBeforeADefault) {
  const Tree rows("\ton case e\r\n\t\tcase 1 :\r\n\t\t\tbreak\r\n\t\tdefault: \r\n\tendcase");
  EXPECT_EQ(
      rows.Insert(Where::kInto, "case 1 :", "y"),
      "\ton case e\r\n\t\tcase 1 :\r\n[\t\t\ty]\r\n\t\t\tbreak\r\n\t\tdefault: \r\n\tendcase");
  EXPECT_EQ(rows.Insert(Where::kInto, "on case e", "case 2 :"),
            "\ton case e\r\n\t\tcase 1 :\r\n\t\t\tbreak\r\n[\t\tcase 2 :]\r\n\t\tdefault: \r\n"
            "\tendcase");
  const Tree select("select A\r\nselectdo\r\nendselect");
  EXPECT_EQ(select.Insert(Where::kInto, "selectdo", "y"),
            "select A\r\nselectdo\r\n[\ty]\r\nendselect");
  EXPECT_EQ(select.Insert(Where::kInto, "select A", "y"), "no place");
}

TEST(EditsTest, ATextComesToTheEnd) {
  EXPECT_EQ(Tree("").Insert(Place{}, "y\nz"), "[y\r\nz]");
  EXPECT_EQ(Tree("a").Insert(Place{}, "y"), "a\r\n[y]");
  EXPECT_EQ(Tree("a\n").Insert(Place{}, "y"), "a\n[y]\n");
  EXPECT_EQ(Tree("a").Insert(Place{Node::kNone, Where::kInto}, "y"), "a\r\n[y]");
  EXPECT_EQ(Tree("a").Insert(Place{}, "\t\ty\r\n\t\t\tz\r\n\tw"), "a\r\n[y\r\n\tz\r\nw]");
  EXPECT_EQ(Tree("a").Insert(Place{}, " \r\n\t"), "no text");
}

TEST(EditsTest, ATextThatComesIntoALineDividesIt) {
  EXPECT_EQ(Tree("if a then x\r\nendif").Insert(Where::kBefore, "x", "y"),
            "if a then \r\n[y]\r\nx\r\nendif");
}

TEST(EditsTest, ATextThatWouldChangeOtherNodesIsRefused) {
  const Tree tree(kLoop);
  EXPECT_EQ(tree.Insert(Where::kBefore, "c = 1", "else"), "others");
  EXPECT_EQ(tree.Insert(Where::kBefore, "a = 1", "if x then"), "others");
  EXPECT_EQ(tree.Insert(Where::kBehind, "a = 1", "endfor"),
            "a = 1\r\n[endfor]\r\nfor i = 1 to 3\r\n\tif b then \r\n\t\tc = 1\r\n\telse\r\n"
            "\t\td = 1\r\n\tendif\r\n\te = 1\r\nendfor")
      << "a closing line of nothing is a node with a problem";
  const Tree row("on case e\r\ncase 1 :\r\ncase 2 :\r\nendcase");
  EXPECT_EQ(row.Insert(Where::kBehind, "case 1 :", "y"), "others") << "the row would have it";
}

// Moving.

TEST(EditsTest, ANodeMovesWithItsDepth) {
  const Tree tree(kLoop);
  EXPECT_EQ(tree.Move("c = 1", Where::kBefore, "a = 1"),
            "[c = 1]\r\na = 1\r\nfor i = 1 to 3\r\n\tif b then \r\n\telse\r\n\t\td = 1\r\n"
            "\tendif\r\n\te = 1\r\nendfor");
  EXPECT_EQ(tree.Move("a = 1", Where::kInto, "else"),
            "for i = 1 to 3\r\n\tif b then \r\n\t\tc = 1\r\n\telse\r\n\t\td = 1\r\n[\t\ta = 1]\r\n"
            "\tendif\r\n\te = 1\r\nendfor");
  EXPECT_EQ(tree.Move("e = 1", Where::kBefore, "if b then"),
            "a = 1\r\nfor i = 1 to 3\r\n[\te = 1]\r\n\tif b then \r\n\t\tc = 1\r\n\telse\r\n"
            "\t\td = 1\r\n\tendif\r\nendfor");
  EXPECT_EQ(tree.Move("a = 1", Where::kBehind, "for i = 1 to 3"),
            "for i = 1 to 3\r\n\tif b then \r\n\t\tc = 1\r\n\telse\r\n\t\td = 1\r\n\tendif\r\n"
            "\te = 1\r\nendfor\r\n[a = 1]");
  EXPECT_EQ(Tree("a\nb").Move("b", Where::kBefore, "a"), "[b]\na");
}

TEST(EditsTest, ANodeMovesToTheEnd) {
  const Tree tree("a\r\nb");
  const Change change = language::MoveNode(tree.text(), tree.nodes(), 0, {});
  EXPECT_EQ(Narrow(change.text), "b\r\na");
  EXPECT_EQ(change.first, 3U);
}

TEST(EditsTest, ANodeThatIsThereAlreadyStays) {
  const Tree tree("\ta\r\n\tb");
  for (const char* head : {"a", "b"}) {
    for (const Where where : {Where::kBefore, Where::kBehind})
      EXPECT_EQ(tree.Move("a", head[0] == 'a' ? where : Where::kBefore, head), "[\ta]\r\n\tb");
  }
}

TEST(EditsTest, ANodeDoesNotMoveIntoItself) {
  const Tree tree(kLoop);
  EXPECT_EQ(tree.Move("if b then", Where::kBefore, "d = 1"), "itself");
  EXPECT_EQ(tree.Move("if b then", Where::kInto, "if b then"), "itself");
  EXPECT_EQ(tree.Move("if b then", Where::kInto, "else"), "itself");
  EXPECT_EQ(tree.Move("if b then", Where::kInto, "a = 1"), "no place");
}

TEST(EditsTest, AMoveThatWouldChangeOtherNodesIsRefused) {
  const Tree tree(kLoop);
  EXPECT_EQ(tree.Move("else", Where::kBefore, "a = 1"), "others");
  const Tree open("if a then\r\n\tb\r\n");
  EXPECT_EQ(open.Move("b", Where::kBehind, "if a then"), "others") << "nothing closes the if";
}

// Finding.

TEST(EditsTest, ANodeIsFoundByItsPlaces) {
  const Tree tree(kLoop);
  const std::size_t loop = tree.Of("for i = 1 to 3");
  EXPECT_EQ(language::FindNode(tree.nodes(), tree.nodes()[loop].first, tree.nodes()[loop].last),
            loop);
  EXPECT_EQ(language::FindNode(tree.nodes(), 1, 2), Node::kNone);
  EXPECT_EQ(language::FindNode(tree.nodes(), 0, 2), Node::kNone);
}

TEST(EditsTest, PartsBelongToTheirStatement) {
  const Tree tree(
      "\r\nselect A\r\nfrom  T\r\nselectdo\r\n\tfor i = 1 to 2\r\n\tendfor\r\nendselect");
  const std::size_t select = tree.Of("select A");
  EXPECT_EQ(language::StatementOf(tree.nodes(), tree.Of("from  T")), select);
  EXPECT_EQ(language::StatementOf(tree.nodes(), tree.Of("selectdo") + 1), select);
  EXPECT_EQ(language::StatementOf(tree.nodes(), tree.Of("endfor")), tree.Of("for i = 1 to 2"));
  EXPECT_EQ(language::StatementOf(tree.nodes(), 0), Node::kNone);
  for (const char* head : {"x", "if a then", "while a", "repeat", "on case e"}) {
    const Tree one(head);
    EXPECT_EQ(language::StatementOf(one.nodes(), 0), 0U) << head;
  }
}

TEST(EditsTest, BlanksBetweenACrAndAnLfStaySoThatTheyAreTwoLineEnds) {
  const Tree tree("on case a\r\n\tcase 2 :\r\t\n\tb = 1\r\n\tbreak\r\nendcase");
  const std::string row = "case 2 :\r\t\nb = 1\r\nbreak";
  EXPECT_EQ(tree.Take("case 2 :"), row);
  EXPECT_EQ(tree.Replace("case 2 :", row),
            "on case a\r\n[\tcase 2 :\r\t\n\tb = 1\r\n\tbreak]\r\nendcase");
}

TEST(EditsTest, BlanksBetweenTwoCrsGo) {
  const Tree tree("on case a\r\n\tcase 2 :\r\t\r\tb = 1\r\n\tbreak\r\nendcase");
  EXPECT_EQ(tree.Take("case 2 :"), "case 2 :\r\rb = 1\r\nbreak");
}

}  // namespace
}  // namespace zolt20::tests
