// The tree of a rule: its outline, and what is wrong with it.
#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

#include "language/outline.h"

namespace {

using zolt20::StringView;
using zolt20::language::Node;
using zolt20::language::NodeKind;

std::string Plain(StringView text) {
  return std::string(text.begin(), text.end());
}

// From 1, as editors count.
auto LineOf(StringView text, std::size_t place) {
  return 1 + std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(place), u'\n');
}

}  // namespace

int main() {
  const StringView rule =
      u"for i = 1 to 3\r\n"
      u"\tif :var.total > 100 then \r\n"
      u"\t\t:var.size = \"large\"\r\n"
      u"\telse\r\n"
      u"\t\tselect ITEM____.I_NAME\r\n"
      u"\t\tfrom  ITEM____\r\n"
      u"\t\tendselect\r\n"
      u"endfor";
  const std::vector<Node> nodes = zolt20::language::ReadOutline(rule);

  for (const Node& node : nodes) {
    if (node.kind == NodeKind::kHead || node.kind == NodeKind::kEnd) continue;
    std::cout << std::string(2 * node.depth, ' ') << NameOf(node.kind) << ": "
              << Plain(HeadOf(rule, node)) << "\n";
  }
  for (const Node& node : nodes) {
    if (node.problem == zolt20::language::Problem::kNone) continue;
    std::cout << "line " << LineOf(rule, node.headFirst) << ", " << NameOf(node.problem) << ": "
              << Plain(HeadOf(rule, node)) << "\n";
  }
}
