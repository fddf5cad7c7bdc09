// Changes of single nodes of a tree: a node as it would stand at the margin, and texts that come to
// a place with the indentation of that place.
//
// Nothing else changes: not a byte of the text around the place, and no other node of the tree.
// Each change is read again before it counts, and refused when any other node would be another one,
// as when a closing line comes in alone or when what follows would slip into an unclosed statement.
// Lines that stand further left than their statement, as the control writes "endcase", stay there.
// Hosts call this; all of it takes time in proportion to the length.
#pragma once

#include "language/outline.h"

namespace zolt20::language {

/// Why a change is not made.
enum class Refusal : std::uint8_t {
  kNone,
  kPart,     ///< the node is a head, a closing line or the like: it goes with its statement
  kItself,   ///< the place is within the node that would move there
  kNoPlace,  ///< no statements stand within nodes of that kind
  kNoText,   ///< there is nothing to put in
  kOthers,   ///< another node would become another one
};

/// What became of the text.
struct Change {
  Refusal refusal = Refusal::kNone;
  String text;            ///< the whole of it; as it was when the change was refused
  std::size_t first = 0;  ///< where the text that came stands in it, with its indentation
  std::size_t last = 0;
};

enum class Where : std::uint8_t {
  kBefore,
  kBehind,
  kInto,  ///< behind the statements in it: before its closing line, "else" or "default"
};

/// Beside or within a node, by its index. Node::kNone stands for the end of the text.
struct Place {
  std::size_t node = Node::kNone;
  Where where = Where::kBehind;
};

// In all of these `nodes` is the tree of `text`.

/// The node that begins and ends there; Node::kNone when none does. Of several the outermost.
std::size_t FindNode(const std::vector<Node>& nodes, std::size_t first, std::size_t last);

/// The innermost statement that the node is, or belongs to; Node::kNone for blank lines.
std::size_t StatementOf(const std::vector<Node>& nodes, std::size_t index);

/// The text of a node as it would stand at depth 0, without blank lines behind it.
String TakeNode(StringView text, const std::vector<Node>& nodes, std::size_t index);

/// The node becomes the replacement, which stands at depth 0. Lines that it had already stay as
/// they are to the byte, so its own text changes nothing. An empty replacement deletes it.
Change ReplaceNode(StringView text, const std::vector<Node>& nodes, std::size_t index,
                   StringView replacement);

Change DeleteNode(StringView text, const std::vector<Node>& nodes, std::size_t index);

/// A text becomes nodes at the place, with its depth instead of that of its first line.
Change InsertNodes(StringView text, const std::vector<Node>& nodes, Place place,
                   StringView inserted);

/// A place where the node stands already changes nothing.
Change MoveNode(StringView text, const std::vector<Node>& nodes, std::size_t index, Place place);

}  // namespace zolt20::language
