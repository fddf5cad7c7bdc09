// The tree of a text in the statement language: of a Result, a stored rule or a statement box, as
// the control composes it and as people edit it.
//
// The leaves of the tree, put one behind the other, are the text: every character belongs to one of
// them, line breaks and indentation to the line that they end or begin, blank lines to the line
// before them. Where a statement ends is told by its closing word and never by indentation, which
// the control itself writes in odd ways. Reading never fails; what is no statement is a node with a
// problem. Hosts call this for outlines, folding and checks.
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

/// One node. Places are numbers of 16-bit characters from the start of the text, from 0.
struct Node {
  /// Stands for no node.
  static constexpr std::uint32_t kNone = 0xFFFF'FFFF;

  std::size_t first = 0;  ///< its first character
  std::size_t last = 0;   ///< behind its last character
  /// The words of its first line, without blanks around them; where its problem is shown, too. "if
  /// a then" can go over several lines.
  std::size_t headFirst = 0;
  std::size_t headLast = 0;
  std::uint32_t depth = 0;       ///< how many nodes it stands within
  std::uint32_t parent = kNone;  ///< the index of the innermost of these
  std::uint32_t behind = 0;      ///< the index behind the last of the nodes that stand within it
  NodeKind kind = NodeKind::kStatement;
  Problem problem = Problem::kNone;
};

/// The nodes in the order of the text, each before those within it. So the first child of the node
/// at `i` is at `i + 1`, unless its `behind` is that; the next sibling of a node is at its
/// `behind`. Takes time and memory in proportion to the length, and no stack for nesting.
std::vector<Node> ReadOutline(StringView text);

/// The text of a node, and its head; `text` is what was read.
inline StringView TextOf(StringView text, const Node& node) {
  return text.substr(node.first, node.last - node.first);
}
inline StringView HeadOf(StringView text, const Node& node) {
  return text.substr(node.headFirst, node.headLast - node.headFirst);
}

/// Whether nothing stands within nodes of this one.
inline bool IsLeaf(const std::vector<Node>& nodes, std::size_t index) {
  return nodes[index].behind == index + 1;
}

/// In lower-case words: "select list", "case row"; "not closed", "" for no problem.
const char* NameOf(NodeKind kind);
const char* NameOf(Problem problem);

}  // namespace zolt20::language
