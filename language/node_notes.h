// Notes that people write on nodes of a tree, and how they find their nodes again in another text.
//
// A note knows the place of its node in the tree and the head of the node. Where a text becomes
// another one, its notes are carried along: nodes that are alike to the last blank are matched
// first, wherever they stand, then those of one head within the same node, then those of one kind
// between the same neighbours. A note whose node is gone stays without a place, and goes to a node
// that comes later with the same head. Hosts call this; all of it takes time in proportion to the
// length, blanks aside.
#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "language/outline.h"

namespace zolt20::language {

struct NodeNote {
  /// Which child, from 0, on the way to the node: first at depth 0, then within that one. Empty
  /// where the node is gone.
  std::vector<std::uint32_t> path;
  String head;  ///< of the node, or of the node that is gone
  String note;

  bool operator==(const NodeNote&) const = default;
};

/// The place of a node, and the node at a place; Node::kNone when there is none.
std::vector<std::uint32_t> PathOf(const std::vector<Node>& nodes, std::size_t index);
std::size_t NodeAt(const std::vector<Node>& nodes, const std::vector<std::uint32_t>& path);

/// The note of a node; null for none.
const NodeNote* NoteOf(const std::vector<NodeNote>& notes, const std::vector<Node>& nodes,
                       std::size_t index);
/// Puts a note on a node in place of the one that it has; "" takes it away.
void PutNote(std::vector<NodeNote>& notes, StringView text, const std::vector<Node>& nodes,
             std::size_t index, StringView note);

/// A node before and the same one after.
using NodePair = std::pair<std::size_t, std::size_t>;

/// The notes of one text as those of another one. `known` is a node that became another one by an
/// edit. Those that have lost their place come last.
std::vector<NodeNote> CarryNotes(const std::vector<NodeNote>& notes, StringView before,
                                 StringView after, std::optional<NodePair> known = {});

/// Notes that were kept beside a text, which may have become another one since: what is found at
/// its place, or else the only node of that head that has none yet, has the note.
std::vector<NodeNote> FindNotes(std::vector<NodeNote> notes, StringView text);

}  // namespace zolt20::language
