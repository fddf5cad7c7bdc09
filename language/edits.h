// Edits of single nodes of a tree: takes a node's text without its indentation, and puts texts at a
// place with the indentation of that place.
//
// Invariant: no byte of the text around the place changes, and no other node of the tree. The new
// text is parsed before an edit is made, and the edit is refused if any other node would change, as
// when a closing line comes in alone or when an unclosed statement would swallow what follows.
// Lines that stand further left than their statement, as the control writes "endcase", stay there.
// Hosts call this; all functions take linear time.
#pragma once

#include "language/outline.h"

namespace zolt20::language {

/// Why an edit is refused.
enum class Refusal : std::uint8_t {
  kNone,
  kPart,     ///< the node is a head, a closing line or the like, which goes with its statement
  kItself,   ///< the place is within the node that is to be moved there
  kNoPlace,  ///< nodes of that kind can't contain statements
  kNoText,   ///< the text to be inserted is blank
  kOthers,   ///< another node would change
};

/// The text after an edit.
struct Change {
  Refusal refusal = Refusal::kNone;
  String text;            ///< the whole text; unchanged if the edit was refused
  std::size_t first = 0;  ///< where the new text begins in it, with its indentation
  std::size_t last = 0;   ///< behind the new text
};

enum class Where : std::uint8_t {
  kBefore,
  kBehind,
  kInto,  ///< behind the last statement in the node: before its closing line, "else" or "default"
};

/// A place beside or within the node of that index. Node::kNone stands for the end of the text.
struct Place {
  std::size_t node = Node::kNone;
  Where where = Where::kBehind;
};

// In all functions below `nodes` has to be the tree of `text`.

/// The node with these ends, the outermost of several; Node::kNone when there is none.
std::size_t FindNode(const std::vector<Node>& nodes, std::size_t first, std::size_t last);

/// The innermost statement that the node is or belongs to; Node::kNone for blank lines.
std::size_t StatementOf(const std::vector<Node>& nodes, std::size_t index);

/// The text of a node, indented as at depth 0, without blank lines behind it.
String TakeNode(StringView text, const std::vector<Node>& nodes, std::size_t index);

/// Replaces a node by a text that is indented as at depth 0. Lines that the node had already stay
/// byte for byte, so its own text changes nothing. An empty replacement deletes the node.
Change ReplaceNode(StringView text, const std::vector<Node>& nodes, std::size_t index,
                   StringView replacement);

Change DeleteNode(StringView text, const std::vector<Node>& nodes, std::size_t index);

/// Inserts a text as nodes at the place; its first line's indentation becomes that of the place.
Change InsertNodes(StringView text, const std::vector<Node>& nodes, Place place,
                   StringView inserted);

/// Moves a node. Nothing changes if the node is at that place already.
Change MoveNode(StringView text, const std::vector<Node>& nodes, std::size_t index, Place place);

}  // namespace zolt20::language
