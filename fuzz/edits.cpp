// Bytes as a text of the statement language and as edits of its nodes: what is refused changes
// nothing, a node put in its own place is the text as it was, and a note stays with what moved. The
// first four bytes choose the nodes and the place.
#include <algorithm>
#include <cstdint>

#include "fuzz/texts.h"
#include "language/edits.h"
#include "language/node_notes.h"

namespace zolt20::fuzz {
namespace {

using language::Change;
using language::Node;
using language::NodeNote;
using language::Refusal;

constexpr std::size_t kChoices = 4;

void CheckChange(StringView text, const Change& change) {
  if (change.refusal != Refusal::kNone && change.text != text)
    Complain("A refused change changes the text", text);
  if (change.first > change.last || change.last > change.text.size())
    Complain("What came is not in the text", text);
}

// Notes on the node and on the one before, carried along.
void CheckNotes(StringView text, const std::vector<Node>& nodes, std::size_t node,
                const Change& change, bool isMove) {
  std::vector<NodeNote> notes;
  language::PutNote(notes, text, nodes, node, u"this");
  if (node > 0) language::PutNote(notes, text, nodes, node - 1, u"that");
  const std::vector<Node> after = language::ReadOutline(change.text);
  std::optional<language::NodePair> known;
  for (std::size_t i = 0; isMove && i < after.size(); ++i) {
    if (after[i].headFirst < change.first) continue;
    known = {node, i};
    break;
  }
  const auto carried = language::CarryNotes(notes, text, change.text, known);
  if (carried.size() != notes.size()) Complain("A note is lost", text);
  for (const NodeNote& note : carried) {
    const std::size_t place = language::NodeAt(after, note.path);
    if (place == Node::kNone && !note.path.empty()) Complain("A note at no node", text);
    if (place != Node::kNone && note.head != language::HeadOf(change.text, after[place]))
      Complain("A note with the head of another node", text);
    if (known && note.note == u"this" && change.text != text && place != known->second)
      Complain("A note does not go with its node", text);
  }
  if (language::FindNotes(carried, change.text) != carried)
    Complain("Notes are not found at their places", change.text);
}

void CheckEdits(const std::uint8_t* choices, StringView text) {
  const std::vector<Node> nodes = language::ReadOutline(text);
  if (nodes.empty()) return;
  const auto nodeOf = [&](std::uint8_t choice) { return choice % nodes.size(); };
  const std::size_t node = nodeOf(choices[0]);
  const language::Place place{choices[1] == 0xFF ? Node::kNone : nodeOf(choices[1]),
                              static_cast<language::Where>(choices[2] % 3)};
  const String taken = language::TakeNode(text, nodes, node);
  const Change same = language::ReplaceNode(text, nodes, node, taken);
  if (same.refusal == Refusal::kNone && same.text != text && !taken.empty())
    Complain("A node in its own place is another text", text);
  const Change deleted = language::DeleteNode(text, nodes, node);
  const Change moved = language::MoveNode(text, nodes, node, place);
  const Change inserted = language::InsertNodes(text, nodes, place, taken);
  const String other = language::TakeNode(text, nodes, nodeOf(choices[3]));
  const Change replaced = language::ReplaceNode(text, nodes, node, other);
  for (const Change& change : {same, deleted, moved, inserted, replaced})
    CheckChange(text, change);
  if (moved.refusal == Refusal::kNone) CheckNotes(text, nodes, node, moved, true);
  if (deleted.refusal == Refusal::kNone) CheckNotes(text, nodes, node, deleted, false);
  if (inserted.refusal == Refusal::kNone) CheckNotes(text, nodes, node, inserted, false);
}

}  // namespace
}  // namespace zolt20::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using zolt20::fuzz::kChoices;
  if (size < kChoices) return 0;
  zolt20::fuzz::CheckEdits(data, zolt20::fuzz::TextOf(data + kChoices, size - kChoices));
  return 0;
}
