// Changes of nodes in the examples and in texts of forms that were filled at random.
#include <random>

#include "language/edits.h"
#include "tests/support/example_texts.h"
#include "tests/support/nestings.h"
#include "tests/support/outline_lines.h"
#include "tests/support/whole_forms.h"

namespace zolt20::tests {
namespace {

using language::Change;
using language::Node;
using language::NodeKind;
using language::Refusal;
using language::Where;

bool IsPart(NodeKind kind) {
  return kind == NodeKind::kBlank || kind == NodeKind::kHead || kind == NodeKind::kMore ||
         kind == NodeKind::kEnd;
}

// Every node put back as it was taken out leaves every byte where it was.
int ExpectOwnTextsChangeNothing(const String& text) {
  const std::vector<Node> nodes = language::ReadOutline(text);
  int tried = 0;
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    if (IsPart(nodes[i].kind)) continue;
    const String own = language::TakeNode(text, nodes, i);
    const Change change = language::ReplaceNode(text, nodes, i, own);
    EXPECT_TRUE(change.refusal == Refusal::kNone && change.text == text) << Narrow(own) << "\nin\n"
                                                                         << Narrow(text);
    ++tried;
  }
  return tried;
}

// The statements that stand within the same node, one behind the other.
std::vector<std::pair<std::size_t, std::size_t>> Neighbours(const std::vector<Node>& nodes) {
  std::vector<std::pair<std::size_t, std::size_t>> pairs;
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    const std::size_t next = nodes[i].behind;
    if (next >= nodes.size() || nodes[next].parent != nodes[i].parent) continue;
    if (language::StatementOf(nodes, i) == i && language::StatementOf(nodes, next) == next)
      pairs.emplace_back(i, next);
  }
  return pairs;
}

// A statement that moved up comes back by moving down.
int ExpectMovesComeBack(const String& text) {
  const std::vector<Node> nodes = language::ReadOutline(text);
  int moved = 0;
  for (const auto& [upper, lower] : Neighbours(nodes)) {
    const Change up = language::MoveNode(text, nodes, lower, {upper, Where::kBefore});
    if (up.refusal != Refusal::kNone) continue;
    const std::vector<Node> after = language::ReadOutline(up.text);
    const Change down =
        language::MoveNode(up.text, after, upper, {after[upper].behind, Where::kBehind});
    EXPECT_EQ(down.text, text) << Narrow(up.text);
    ++moved;
  }
  return moved;
}

String NestedText(unsigned seed) {
  Maker maker(seed);
  String text;
  for (std::size_t statements = 1 + maker.Below(3); statements > 0; --statements) {
    Nesting nesting;
    const bool hasDefaults = maker.Maybe();
    for (std::size_t depth = 1 + maker.Below(kDeepest); depth > 0; --depth)
      nesting.push_back(maker.Make(maker.AnyKind(), maker.Maybe(), hasDefaults));
    text += Concat(text.empty() ? StringView() : kLineBreak, Wide(Print(nesting)));
  }
  return text;
}

TEST(EditsTextsTest, ANodeOfAnExampleReplacedByItsOwnTextChangesNothing) {
  int tried = 0;
  for (const String& text : ExampleTexts())
    tried += ExpectOwnTextsChangeNothing(text);
  EXPECT_GT(tried, 100);
}

TEST(EditsTextsTest, ANodeOfANestingReplacedByItsOwnTextChangesNothing) {
  int tried = 0;
  for (unsigned seed = 1; seed <= 1500; ++seed)
    tried += ExpectOwnTextsChangeNothing(NestedText(seed));
  EXPECT_GT(tried, 20'000);
}

TEST(EditsTextsTest, ANodeOfAWholeFormReplacedByItsOwnTextChangesNothing) {
  int tried = 0;
  for (unsigned seed = 1; seed <= 300; ++seed)
    tried += ExpectOwnTextsChangeNothing(WholeForm(seed).Compose());
  EXPECT_GT(tried, 3'000);
}

TEST(EditsTextsTest, WhatMovedUpComesBackByMovingDown) {
  int moved = 0;
  for (const String& text : ExampleTexts())
    moved += ExpectMovesComeBack(text);
  for (unsigned seed = 1; seed <= 500; ++seed)
    moved += ExpectMovesComeBack(NestedText(seed));
  EXPECT_GT(moved, 1'000);
}

// A plain statement made other, wherever it is: one line differs, and it stands as deep as before.
TEST(EditsTextsTest, AChangedStatementIsOneChangedLine) {
  int changed = 0;
  for (unsigned seed = 1; seed <= 300; ++seed) {
    const String text = NestedText(seed);
    const std::vector<Node> nodes = language::ReadOutline(text);
    for (std::size_t i = 0; i < nodes.size(); ++i) {
      if (nodes[i].kind != NodeKind::kStatement) continue;
      const StringView head = language::HeadOf(text, nodes[i]);
      String expected = text;
      expected.replace(nodes[i].headFirst, head.size(), u":var.new = 1");
      EXPECT_EQ(language::ReplaceNode(text, nodes, i, u":var.new = 1").text, expected);
      ++changed;
    }
  }
  EXPECT_GT(changed, 2'000);
}

// Whatever is deleted or put in anywhere, the rest stays a tree with the same nodes.
TEST(EditsTextsTest, WhatIsDeletedAndPutBackIsTheSameTree) {
  int deleted = 0;
  for (unsigned seed = 1; seed <= 300; ++seed) {
    const String text = NestedText(seed);
    const std::vector<Node> nodes = language::ReadOutline(text);
    for (const auto& [upper, lower] : Neighbours(nodes)) {
      const String own = language::TakeNode(text, nodes, lower);
      const Change cut = language::DeleteNode(text, nodes, lower);
      ASSERT_EQ(cut.refusal, Refusal::kNone) << Narrow(own) << "\nin\n" << Narrow(text);
      const Change back = language::InsertNodes(cut.text, language::ReadOutline(cut.text),
                                                {upper, Where::kBehind}, own);
      ASSERT_EQ(back.refusal, Refusal::kNone) << Narrow(own) << "\nin\n" << Narrow(cut.text);
      EXPECT_EQ(language::ReadOutline(back.text).size(), nodes.size());
      ++deleted;
    }
  }
  EXPECT_GT(deleted, 1'000);
}

}  // namespace
}  // namespace zolt20::tests
