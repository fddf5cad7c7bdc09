#include "tests/support/outline_lines.h"

#include "language/line_words.h"
#include "tests/support/host_texts.h"

namespace zolt20::tests {
namespace {

using language::Node;
using language::Problem;

std::string LineOf(StringView text, const Node& node) {
  std::string line = std::string(language::NameOf(node.kind)) + " " + std::to_string(node.first) +
                     "-" + std::to_string(node.last);
  const StringView head = language::HeadOf(text, node);
  if (!head.empty()) line += " " + Narrow(head);
  if (node.problem != Problem::kNone)
    line += " [" + std::string(language::NameOf(node.problem)) + "]";
  return line;
}

std::string Wrong(const char* what, std::size_t index) {
  return std::string(what) + " at node " + std::to_string(index);
}

// What is wrong with a node beside its parent and what it says of itself.
std::string WrongInNode(StringView text, const std::vector<Node>& nodes, std::size_t index) {
  const Node& node = nodes[index];
  if (node.first >= node.last || node.last > text.size()) return Wrong("no characters", index);
  if (node.behind <= index || node.behind > nodes.size()) return Wrong("no index behind", index);
  if (node.headFirst < node.first || node.headLast > node.last || node.headFirst > node.headLast)
    return Wrong("a head outside", index);
  const StringView head = language::HeadOf(text, node);
  if (head.empty() != (node.kind == language::NodeKind::kBlank)) return Wrong("no head", index);
  if (!head.empty() && (language::IsBlank(head.front()) || language::IsBlank(head.back())))
    return Wrong("a head with blank ends", index);
  if (node.parent == Node::kNone) return node.depth == 0 ? "" : Wrong("a depth", index);
  const Node& parent = nodes[node.parent];
  if (node.parent >= index || node.behind > parent.behind) return Wrong("no parent", index);
  if (node.depth != parent.depth + 1) return Wrong("a depth", index);
  if (node.first < parent.first || node.last > parent.last) return Wrong("outside", index);
  return "";
}

}  // namespace

std::vector<std::string> OutlineLines(StringView text) {
  std::vector<std::string> lines;
  for (const Node& node : language::ReadOutline(text))
    lines.push_back(std::string(2 * node.depth, ' ') + LineOf(text, node));
  return lines;
}

std::vector<std::string> ProblemLines(StringView text) {
  std::vector<std::string> lines;
  for (const Node& node : language::ReadOutline(text)) {
    if (node.problem != Problem::kNone) lines.push_back(LineOf(text, node));
  }
  return lines;
}

std::string WrongInTree(StringView text, const std::vector<Node>& nodes) {
  // What is read of each node, and of the text at the place behind all: up to which character, and
  // which index comes next.
  std::vector<std::size_t> ends(nodes.size() + 1);
  std::vector<std::size_t> nexts(nodes.size() + 1);
  std::size_t leafEnd = 0;
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    const Node& node = nodes[i];
    if (std::string wrong = WrongInNode(text, nodes, i); !wrong.empty()) return wrong;
    ends[i] = node.first;
    nexts[i] = i + 1;
    const std::size_t parent = node.parent == Node::kNone ? nodes.size() : node.parent;
    if (node.first != ends[parent]) return Wrong("a gap or an overlap before", i);
    if (i != nexts[parent]) return Wrong("another index expected", i);
    ends[parent] = node.last;
    nexts[parent] = node.behind;
    if (!language::IsLeaf(nodes, i)) continue;
    if (node.first != leafEnd) return Wrong("a gap before the leaf", i);
    leafEnd = node.last;
  }
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    if (nexts[i] != nodes[i].behind) return Wrong("too few nodes within", i);
    if (!language::IsLeaf(nodes, i) && ends[i] != nodes[i].last)
      return Wrong("children that end early", i);
  }
  const bool isWhole = ends[nodes.size()] == text.size() && leafEnd == text.size() &&
                       nexts[nodes.size()] == nodes.size();
  return isWhole ? "" : "the text goes on behind the last node";
}

}  // namespace zolt20::tests
