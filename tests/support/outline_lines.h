// The tree of a text as lines for tests, one for each node, and a check of the tree's invariants.
#pragma once

#include <string>
#include <vector>

#include "language/outline.h"

namespace zolt20::tests {

/// "if 0-57 if a then", indented by two blanks for each level, with the node's problem in brackets
/// at the end.
std::vector<std::string> OutlineLines(StringView text);

/// The first invariant of a tree that the nodes break, or "": leaves tile the text, children tile
/// their parent, depth and parent agree, and a head is within its node and trimmed.
std::string WrongInTree(StringView text, const std::vector<language::Node>& nodes);

/// The nodes of the text that have a problem, as lines without indentation.
std::vector<std::string> ProblemLines(StringView text);

}  // namespace zolt20::tests
