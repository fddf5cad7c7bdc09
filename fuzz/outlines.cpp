// Bytes as a text of the statement language: its tree loses nothing, and takes memory in proportion
// to the text, however deep it nests.
//
// Each byte is a character; a few that no text has otherwise stand for words and line breaks, so
// that statements come about soon.
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "hosts/kit/text_coding.h"
#include "language/outline.h"
#include "tests/support/outline_lines.h"

namespace zolt20::fuzz {
namespace {

constexpr std::array<StringView, 32> kWords{
    u"\r\n",
    u"select ",
    u"from  T",
    u"where ",
    u"group by  ",
    u"order by ",
    u"as set with 5 rows ",
    u"selectdo",
    u"selecteos",
    u"selectempty",
    u"selecterror",
    u"endselect",
    u"if ",
    u" then ",
    u"else",
    u"endif",
    u"for i = 1 to ",
    u"endfor",
    u"while ",
    u"endwhile",
    u"repeat ",
    u"Until  ( ",
    u"on case ",
    u"case ",
    u"default: ",
    u"break",
    u"endcase",
    u":var.x = ",
    u"EXISTS  (  \r\n",
    u")",
    u"\t",
    u"\"",
};
// Bytes from here on are words: none of them stands in a text of ASCII.
constexpr std::uint8_t kFirstWord = 0xC0;

String TextOf(const std::uint8_t* data, std::size_t size) {
  String text;
  for (std::size_t i = 0; i < size; ++i) {
    if (data[i] < kFirstWord) {
      text += static_cast<char16_t>(data[i]);
    } else {
      text += kWords[(data[i] - kFirstWord) % kWords.size()];
    }
  }
  return text;
}

[[noreturn]] void Complain(const std::string& complaint, StringView text) {
  std::fprintf(stderr, "%s\ntext:\n%s\n", complaint.c_str(), hosts::ToJsonText(text).c_str());
  std::abort();
}

void Check(StringView text) {
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

}  // namespace
}  // namespace zolt20::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const zolt20::String text = zolt20::fuzz::TextOf(data, size);
  zolt20::fuzz::Check(text);
  return 0;
}
