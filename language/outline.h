// Parses a text in the statement language into a tree: a Result, a stored rule or a statement box,
// as the control composes it and as people edit it.
//
// Invariant: the leaves of the tree, one behind the other, are the text. Every character belongs to
// one leaf, line breaks and indentation to the line that they end or begin, blank lines to the line
// before them. A closing word ends a statement, never the indentation, which the control itself
// writes in odd ways. Parsing never fails: a line that is no statement becomes a node with
// a problem. Hosts call this for outlines, folding and checks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "surface/string.h"

namespace zolt20::language {

enum class NodeKind : std::uint8_t {
  // Leaves.
  kBlank,      ///< blank lines at the start of the text
  kStatement,  ///< a line that is no other kind of statement
  kHead,       ///< the first line of a node that has others in it: "if a then", "else", "selectdo"
  kMore,       ///< what follows a nested select statement in a where clause
  kEnd,        ///< the closing line: "endif", "Until  ( a )", "break" of a row

  // The select statement, and its clauses in their order. The first six clauses are leaves, but for
  // a where clause with select statements in it; the other four have a head and statements.
  kSelect,
  kSelectList,
  kFrom,
  kWhere,
  kGroupBy,
  kOrderBy,
  kRowLimit,
  kSelectDo,
  kSelectEos,
  kSelectEmpty,
  kSelectError,

  // Control-flow statements: a head, statements, and the closing line.
  kIf,    ///< behind its statements an kElse, when there is one
  kElse,  ///< goes on to the closing line of its kIf
  kFor,
  kWhile,
  kRepeat,
  kOnCase,   ///< its rows and its default; also statements, behind the "break" of a row
  kCaseRow,  ///< ends with "break", or where the next row, the default or "endcase" begins
  kDefault,
};

enum class Problem : std::uint8_t {
  kNone,
  kNotClosed,       ///< the closing line of the statement is missing
  kNothingToClose,  ///< a closing line without its statement
  kOutOfPlace,      ///< a clause, "else", "case" or "default" where none can stand, or a second one
  kIncomplete,      ///< an if without "then", a for without "=" or "to", a missing condition
};

/// One node. Places are offsets in the text in 16-bit characters, from 0.
struct Node {
  /// Stands for no node.
  static constexpr std::uint32_t kNone = 0xFFFF'FFFF;

  std::size_t first = 0;  ///< the node's first character
  std::size_t last = 0;   ///< behind the node's last character
  /// The head: the words of the node's first line, trimmed. The node's problem is shown there. "if
  /// a then" can take several lines.
  std::size_t headFirst = 0;
  std::size_t headLast = 0;
  std::uint32_t depth = 0;       ///< how many nodes are around this one
  std::uint32_t parent = kNone;  ///< the index of the innermost node around this one
  std::uint32_t behind = 0;      ///< the index behind the last node within this one
  NodeKind kind = NodeKind::kStatement;
  Problem problem = Problem::kNone;
};

/// The nodes in pre-order, which is the order of the text. So the first child of the node at `i` is
/// at `i + 1`, unless the node's `behind` is that; the next sibling of a node is at its `behind`.
/// Takes linear time and memory, and does not recurse for nesting.
std::vector<Node> ReadOutline(StringView text);

/// The text of a node, and its head; `text` has to be the text that ReadOutline read.
inline StringView TextOf(StringView text, const Node& node) {
  return text.substr(node.first, node.last - node.first);
}
inline StringView HeadOf(StringView text, const Node& node) {
  return text.substr(node.headFirst, node.headLast - node.headFirst);
}

/// Whether a node has no nodes within it.
inline bool IsLeaf(const std::vector<Node>& nodes, std::size_t index) {
  return nodes[index].behind == index + 1;
}

/// The name in lower-case words: "select list", "case row"; "not closed", "" for no problem.
const char* NameOf(NodeKind kind);
const char* NameOf(Problem problem);

}  // namespace zolt20::language
