// The tree of a text as lines for tests, one a node, and what holds of any such tree.
#pragma once

#include <string>
#include <vector>

#include "language/outline.h"

namespace zolt20::tests {

/// "if 0-57 if a then" behind two blanks for each node around it; in brackets behind it its
/// problem.
std::vector<std::string> OutlineLines(StringView text);

/// What is wrong with the nodes as a tree of the text; "" when all of this holds: leaves tile the
/// text, children tile their parent, depth and parent agree, a head lies in its node and has no
/// blank ends.
std::string WrongInTree(StringView text, const std::vector<language::Node>& nodes);

/// The nodes of the text that have a problem, as lines without indentation.
std::vector<std::string> ProblemLines(StringView text);

}  // namespace zolt20::tests
