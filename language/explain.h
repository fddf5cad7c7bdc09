// Explains a node of the tree in a sentence for people: as a tooltip in the tree, for screen
// readers, beside a rule that somebody else wrote.
#pragma once

#include <cstddef>
#include <vector>

#include "language/outline.h"
#include "language/words.h"
#include "surface/string.h"

namespace zolt20::language {

/// The sentence for the node at `index`, where `nodes` are ReadOutline's for the text: "For each
/// :var.i from 1 to 3:". The sentence of a select statement includes its clauses, but no blocks. A
/// head has the sentence of its statement, blank lines have "". Long texts are cut short.
String Explain(StringView text, const std::vector<Node>& nodes, std::size_t index,
               const Words& words = Words::English());

/// Whether another node's sentence covers this node: true of clauses, heads, ends, blank lines.
bool IsToldByAnother(const Node& node);

}  // namespace zolt20::language
