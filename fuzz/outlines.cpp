// Fuzzes the statement language with bytes as a text. Properties: the tree loses nothing and takes
// linear memory at any depth; findings lie within the text, in its order; every node has a
// sentence.
#include <algorithm>
#include <cstdint>
#include <string>

#include "fuzz/texts.h"
#include "language/check.h"
#include "language/explain.h"
#include "language/outline.h"
#include "tests/support/outline_lines.h"

namespace zolt20::fuzz {
namespace {

// The limit of nodes that are explained: heads may be long, so explaining all would be slow.
constexpr std::size_t kMostTold = 200;

void CheckTree(StringView text) {
  const std::vector<language::Node> nodes = language::ReadOutline(text);
  if (const std::string wrong = tests::WrongInTree(text, nodes); !wrong.empty())
    Complain("This is no tree of the text: " + wrong, text);
  String leaves;
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    if (language::IsLeaf(nodes, i)) leaves += language::TextOf(text, nodes[i]);
  }
  if (leaves != text) Complain("The leaves are not the text", text);
  if (nodes.size() > 2 * text.size()) Complain("More nodes than characters have room for", text);
  for (const language::Node& node : nodes) {
    // Each node around it has a head before it, but for the innermost when this is that head.
    if (node.depth > node.first + 1) Complain("Deeper than the text before it allows", text);
  }
}

void CheckFindings(StringView text) {
  static const language::Names kNames(u"TABLE__A1", u"long*Q*V*R*N*NTABLE__A.F");
  const std::vector<language::Node> nodes = language::ReadOutline(text);
  std::size_t last = 0;
  for (const language::Finding& finding : language::Check(text, nodes, &kNames)) {
    const StringView found = text.substr(last).substr(finding.first - last);
    last = finding.first;
    if (found.size() < finding.length || finding.node >= nodes.size())
      Complain("A finding outside the text", text);
    if (found.substr(0, finding.length).find_first_of(u"\r\n") != StringView::npos)
      Complain("A finding beyond its line", text);
    if (finding.line == 0 || finding.column == 0 || finding.column > finding.first + 1)
      Complain("A finding at no line or column", text);
    if (finding.sentence.empty()) Complain("A finding without a sentence", text);
  }
  for (std::size_t i = 0; i < std::min(nodes.size(), kMostTold); ++i) {
    const bool isBlank = nodes[i].kind == language::NodeKind::kBlank;
    if (language::Explain(text, nodes, i).empty() != isBlank)
      Complain("A node without a sentence", text);
  }
}

}  // namespace
}  // namespace zolt20::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const zolt20::String text = zolt20::fuzz::TextOf(data, size);
  zolt20::fuzz::CheckTree(text);
  zolt20::fuzz::CheckFindings(text);
  return 0;
}
