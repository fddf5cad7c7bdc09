#include "hosts/composer/statements.h"

#include <algorithm>

namespace zolt20::composer {
namespace {

constexpr StringView kSelect = u"select ";
constexpr StringView kEnd = u"endselect";

struct Line {
  std::size_t tabs;
  StringView text;  // behind the tabs
};

std::vector<Line> LinesOf(StringView rule) {
  std::vector<Line> lines;
  for (std::size_t at = 0; at <= rule.size();) {
    const std::size_t end = std::min(rule.find(kLineBreak, at), rule.size());
    const StringView line = rule.substr(at, end - at);
    const std::size_t tabs = std::min(line.find_first_not_of(u'\t'), line.size());
    lines.push_back({tabs, line.substr(tabs)});
    at = end + kLineBreak.size();
  }
  return lines;
}

// The index of the line that closes the statement which begins on line `first`; the number of lines
// when none does.
std::size_t EndOf(const std::vector<Line>& lines, std::size_t first) {
  int open = 0;
  for (std::size_t i = first; i < lines.size(); ++i) {
    if (lines[i].tabs != lines[first].tabs) continue;
    if (lines[i].text.starts_with(kSelect)) ++open;
    if (lines[i].text == kEnd && --open == 0) return i;
  }
  return lines.size();
}

// The lines with the tabs of the first line's depth removed from each.
String TextOf(const std::vector<Line>& lines, std::size_t first, std::size_t last) {
  String text;
  for (std::size_t i = first; i <= last; ++i) {
    if (i > first) text += kLineBreak;
    text.append(lines[i].tabs - std::min(lines[i].tabs, lines[first].tabs), u'\t');
    text += lines[i].text;
  }
  return text;
}

}  // namespace

std::vector<SelectStatement> SelectStatementsOf(StringView rule) {
  const std::vector<Line> lines = LinesOf(rule);
  std::vector<SelectStatement> statements;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (!lines[i].text.starts_with(kSelect)) continue;
    const std::size_t end = EndOf(lines, i);
    if (end < lines.size()) statements.push_back({static_cast<int>(i) + 1, TextOf(lines, i, end)});
  }
  return statements;
}

}  // namespace zolt20::composer
