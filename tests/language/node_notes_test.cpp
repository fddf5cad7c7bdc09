// Notes on nodes stay with them while the text becomes another one.
#include "language/node_notes.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "hosts/kit/text_coding.h"
#include "language/edits.h"

namespace zolt20::tests {
namespace {

using language::CarryNotes;
using language::FindNotes;
using language::NodeNote;
using Notes = std::vector<NodeNote>;

String Wide(const std::string& text) {
  return hosts::FromJsonText(text);
}

// "0.2 head: note" for each, "- head: note" for one without a place.
std::string Told(const Notes& notes) {
  std::string told;
  for (const NodeNote& note : notes) {
    std::string path;
    for (const std::uint32_t place : note.path)
      path += (path.empty() ? "" : ".") + std::to_string(place);
    told += (path.empty() ? "-" : path) + " " + hosts::ToJsonText(note.head) + ": " +
            hosts::ToJsonText(note.note) + "\n";
  }
  return told;
}

std::size_t NodeOf(StringView text, const std::string& head) {
  const auto nodes = language::ReadOutline(text);
  for (std::size_t i = 0; i < nodes.size(); ++i)
    if (language::HeadOf(text, nodes[i]) == Wide(head)) return i;
  ADD_FAILURE() << "no node " << head;
  return 0;
}

Notes NoteOn(StringView text, const std::string& head) {
  Notes notes;
  language::PutNote(notes, text, language::ReadOutline(text), NodeOf(text, head), u"n");
  return notes;
}

constexpr const char* kText =
    "a = 1\r\nfor i = 1 to 2\r\n\tb = 1\r\n\tc = 1\r\nendfor\r\nif d then \r\n\tb = 1\r\nendif";

struct CarryCase {
  const char* what;
  std::string head;
  std::string after;
  std::string told;
};

class CarryNotesTest : public ::testing::TestWithParam<CarryCase> {};

TEST_P(CarryNotesTest, ANoteStaysWithItsNode) {
  const CarryCase& each = GetParam();
  const String before = Wide(kText);
  EXPECT_EQ(Told(CarryNotes(NoteOn(before, each.head), before, Wide(each.after))), each.told)
      << each.what;
}

INSTANTIATE_TEST_SUITE_P(
    Each, CarryNotesTest,
    ::testing::Values(
        CarryCase{"a line comes before", "c = 1",
                  "z = 1\r\na = 1\r\nfor i = 1 to 2\r\n\tb = 1\r\n\tc = 1\r\nendfor\r\n",
                  "2.2 c = 1: n\n"},
        CarryCase{"it stands further in", "c = 1", "while x\r\n\t\tc  =  1\r\nendwhile",
                  "0.1 c  =  1: n\n"},
        CarryCase{"the head around it is another", "c = 1",
                  "a = 1\r\nfor j = 1 to 9\r\n\tb = 1\r\n\tc = 1\r\nendfor\r\nif d then \r\n\tb = "
                  "1\r\nendif",
                  "1.2 c = 1: n\n"},
        CarryCase{"it moves out of the block", "for i = 1 to 2",
                  "a = 1\r\nif d then \r\n\tb = 1\r\n\tfor i = 1 to 2\r\n\t\tb = 1\r\n\t\tc = "
                  "1\r\n\tendfor\r\nendif",
                  "1.2 for i = 1 to 2: n\n"},
        CarryCase{"what is in it is another", "for i = 1 to 2",
                  "a = 1\r\nfor i = 1 to 2\r\n\tx = 9\r\nendfor\r\nif d then \r\n\tb = 1\r\nendif",
                  "1 for i = 1 to 2: n\n"},
        CarryCase{"it becomes another between its neighbours", "a = 1",
                  "a = 2\r\nfor i = 1 to 2\r\n\tb = 1\r\n\tc = 1\r\nendfor\r\nif d then \r\n\tb = "
                  "1\r\nendif",
                  "0 a = 2: n\n"},
        CarryCase{"its words and its place are others", "c = 1",
                  "for i = 1 to 2\r\n\tb = 1\r\n\tc = 2\r\nendfor\r\na = 1", "0.2 c = 2: n\n"},
        CarryCase{"another one alike goes", "b = 1",
                  "a = 1\r\nfor i = 1 to 2\r\n\tb = 1\r\n\tc = 1\r\nendfor", "1.1 b = 1: n\n"},
        CarryCase{"it is gone", "c = 1",
                  "a = 1\r\nfor i = 1 to 2\r\n\tb = 1\r\nendfor\r\nif d then \r\n\tb = 1\r\nendif",
                  "- c = 1: n\n"},
        CarryCase{"all is gone", "c = 1", "", "- c = 1: n\n"}));

TEST(NodeNotesTest, ANoteWithoutAPlaceGoesToWhatComesWithItsHead) {
  const String before = Wide("a = 1\r\nb = 1\r\na = 1");
  const Notes lost = CarryNotes(NoteOn(before, "b = 1"), before, Wide("a = 1\r\na = 1"));
  ASSERT_EQ(Told(lost), "- b = 1: n\n");
  EXPECT_EQ(Told(CarryNotes(lost, Wide("a = 1\r\na = 1"), Wide("b = 1\r\na = 1\r\na = 1"))),
            "0 b = 1: n\n");
  const Notes first = CarryNotes(NoteOn(before, "a = 1"), before, Wide("b = 1"));
  EXPECT_EQ(Told(first), "- a = 1: n\n");
}

TEST(NodeNotesTest, OneThatIsLostDoesNotGoToOneThatWasThereAlready) {
  const String before = Wide("x = 1\r\nfor i = 1 to 2\r\n\ta = 1\r\n\ta = 1\r\nendfor");
  Notes notes;
  const auto nodes = language::ReadOutline(before);
  language::PutNote(notes, before, nodes, 3, u"first");
  language::PutNote(notes, before, nodes, 4, u"second");
  ASSERT_EQ(Told(notes), "1.1 a = 1: first\n1.2 a = 1: second\n");
  const Notes left =
      CarryNotes(notes, before, Wide("x = 1\r\nfor i = 1 to 2\r\n\ta = 1\r\nendfor"));
  ASSERT_EQ(left.size(), 2U);
  EXPECT_EQ(Told({left[0]}).substr(0, 12), "1.1 a = 1: f");
  EXPECT_TRUE(left[1].path.empty());
}

TEST(NodeNotesTest, AnEditTellsWhichOfTwoAlikeItWas) {
  const String before = Wide("a = 1\r\na = 1\r\nb = 1");
  const auto nodes = language::ReadOutline(before);
  const auto change = language::MoveNode(before, nodes, 0, {2, language::Where::kBehind});
  const String after = change.text;
  ASSERT_EQ(after, Wide("a = 1\r\nb = 1\r\na = 1"));
  EXPECT_EQ(Told(CarryNotes(NoteOn(before, "a = 1"), before, after, language::NodePair{0, 2})),
            "2 a = 1: n\n");
  EXPECT_EQ(Told(CarryNotes(NoteOn(before, "a = 1"), before, after)), "0 a = 1: n\n");
}

TEST(NodeNotesTest, AnEditMayMakeAnotherKindOfIt) {
  const String before = Wide("a = 1\r\nb = 1\r\nc = 1");
  const String after = Wide("a = 1\r\nwhile x\r\n\tb = 2\r\nendwhile\r\nc = 1");
  EXPECT_EQ(Told(CarryNotes(NoteOn(before, "b = 1"), before, after, language::NodePair{1, 1})),
            "1 while x: n\n");
}

TEST(NodeNotesTest, NotesAreFoundAgainInATextThatAnotherProgramChanged) {
  const String before = Wide(kText);
  EXPECT_EQ(Told(FindNotes(NoteOn(before, "c = 1"), before)), "1.2 c = 1: n\n");
  EXPECT_EQ(Told(FindNotes(NoteOn(before, "c = 1"), Wide("c = 1"))), "0 c = 1: n\n");
  EXPECT_EQ(Told(FindNotes(NoteOn(before, "c = 1"), Wide("c = 1\r\nc = 1"))), "- c = 1: n\n")
      << "two of the same";
  EXPECT_EQ(Told(FindNotes({{{0}, u"c = 1", u"n"}, {{}, u"c = 1", u"lost"}}, Wide("c = 1"))),
            "0 c = 1: n\n- c = 1: lost\n")
      << "one that was lost stays so";
  EXPECT_EQ(Told(FindNotes({{{0}, u"c = 1", u"n"}, {{7}, u"c = 1", u"m"}}, Wide("c = 1"))),
            "0 c = 1: n\n- c = 1: m\n")
      << "there is a note already";
  EXPECT_EQ(Told(FindNotes(NoteOn(before, "c = 1"), Wide("x = 1"))), "- c = 1: n\n");
}

TEST(NodeNotesTest, APlaceIsThatOfItsNodeAndNoOther) {
  const String text = Wide(kText);
  const auto nodes = language::ReadOutline(text);
  for (std::size_t i = 0; i < nodes.size(); ++i)
    EXPECT_EQ(language::NodeAt(nodes, language::PathOf(nodes, i)), i);
  EXPECT_EQ(language::NodeAt(nodes, {}), language::Node::kNone);
  EXPECT_EQ(language::NodeAt(nodes, {3}), language::Node::kNone);
  EXPECT_EQ(language::NodeAt(nodes, {0, 0}), language::Node::kNone);
  Notes notes = NoteOn(text, "c = 1");
  EXPECT_NE(language::NoteOf(notes, nodes, NodeOf(text, "c = 1")), nullptr);
  EXPECT_EQ(language::NoteOf(notes, nodes, NodeOf(text, "a = 1")), nullptr);
  language::PutNote(notes, text, nodes, NodeOf(text, "c = 1"), u"");
  EXPECT_TRUE(notes.empty());
}

TEST(NodeNotesTest, WithoutNotesOrAChangeThereIsNothingToCarry) {
  const String text = Wide(kText);
  const Notes notes = NoteOn(text, "c = 1");
  EXPECT_EQ(Told(CarryNotes(notes, text, text)), Told(notes));
  EXPECT_TRUE(CarryNotes({}, text, Wide("c = 1")).empty());
  EXPECT_TRUE(FindNotes({}, text).empty());
}

TEST(NodeNotesTest, ALostNoteIsThatOfNoNode) {
  const String text = Wide(kText);
  const Notes notes{{{}, u"gone = 1", u"n"}};
  EXPECT_EQ(language::NoteOf(notes, language::ReadOutline(text), language::Node::kNone), nullptr);
}

TEST(NodeNotesTest, OfTwoAlikeOneMayBeGone) {
  const String before = Wide("p = 1\r\nx = 1\r\nq = 1\r\nx = 1\r\nr = 1");
  Notes notes;
  const auto nodes = language::ReadOutline(before);
  language::PutNote(notes, before, nodes, 1, u"first");
  language::PutNote(notes, before, nodes, 3, u"second");
  EXPECT_EQ(Told(CarryNotes(notes, before, Wide("s = 1\r\nx = 1\r\nt = 1"))),
            "1 x = 1: first\n- x = 1: second\n");
}

TEST(NodeNotesTest, TwoLostNotesGoToTwoNewNodesOfTheirHead) {
  const Notes lost{{{}, u"x = 1", u"first"}, {{}, u"x = 1", u"second"}};
  EXPECT_EQ(Told(CarryNotes(lost, Wide("y = 1"), Wide("y = 1\r\nx = 1\r\nx = 1"))),
            "1 x = 1: first\n2 x = 1: second\n");
}

TEST(NodeNotesTest, ABlockThatMovedTakesWhatIsWithinItAlong) {
  const String before = Wide(
      "while a\r\n\tif c then \r\n\t\tx = 1\r\n\tendif\r\nendwhile\r\n"
      "while b\r\n\tx = 1\r\nendwhile");
  const String after = Wide(
      "while b\r\n\tif c then \r\n\t\tx = 1\r\n\tendif\r\nendwhile\r\n"
      "while a\r\n\ty = 1\r\nendwhile");
  Notes notes;
  const auto nodes = language::ReadOutline(before);
  const std::size_t within = NodeOf(before, "x = 1");
  std::size_t alone = nodes.size() - 1;
  while (language::HeadOf(before, nodes[alone]) != u"x = 1")
    --alone;
  ASSERT_LT(within, alone);
  language::PutNote(notes, before, nodes, within, u"within");
  language::PutNote(notes, before, nodes, alone, u"alone");
  EXPECT_EQ(Told(CarryNotes(notes, before, after)), "0.1.1 x = 1: within\n- x = 1: alone\n");
}

TEST(NodeNotesTest, ANodeThatIsKnownStaysSoWithinABlockThatIsAlike) {
  const String before = Wide("if c then \r\n\tx = 1\r\nendif");
  const String after = Wide("y = 1\r\nif c then \r\n\tx = 1\r\nendif");
  const language::NodePair known{NodeOf(before, "x = 1"), NodeOf(after, "x = 1")};
  EXPECT_EQ(Told(CarryNotes(NoteOn(before, "x = 1"), before, after, known)), "1.1 x = 1: n\n");
}

TEST(NodeNotesTest, ALongTextTakesNoMoreThanItsLength) {
  std::string lines;
  for (int i = 0; i < 60000; ++i)
    lines += "x" + std::to_string(i) + " = 1\r\n";
  const String before = Wide(lines + "noted = 1");
  String after = before;
  for (char16_t& c : after)
    if (c == u'1') c = u'2';
  const Notes carried = CarryNotes(NoteOn(before, "noted = 1"), before, after);
  EXPECT_EQ(Told(carried), "60000 noted = 2: n\n");
}

}  // namespace
}  // namespace zolt20::tests
