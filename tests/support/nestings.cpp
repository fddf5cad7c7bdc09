#include "tests/support/nestings.h"

#include <sstream>

namespace zolt20::tests {
namespace {

std::string Tabs(std::size_t count) {
  return std::string(count, '\t');
}

/// The statement with every line indented by `tabs` tabs, without a line end behind the last.
std::string Lines(const std::string& statement, std::size_t tabs) {
  std::string text;
  std::istringstream lines(statement);
  for (std::string line; std::getline(lines, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (!text.empty()) text += "\r\n";
    text += Tabs(tabs) + line;
  }
  return text;
}

/// The same with a line break before it; "" for no statement.
std::string Below(const std::string& statement, std::size_t tabs) {
  return statement.empty() ? "" : "\r\n" + Lines(statement, tabs);
}

std::string Opening(const Construct& construct, std::size_t depth) {
  const std::string& head = construct.head;
  const std::string& statement = construct.statement;
  std::string text;
  switch (construct.kind) {
    case Kind::kIf:
      text = (statement.empty() ? "" : Tabs(depth)) + "if " + head + " then ";
      text += Below(statement, depth + 1);
      if (!construct.elseStatement.empty()) {
        text += "\r\n" + Tabs(depth) + "else" + Below(construct.elseStatement, depth + 1);
      }
      return text;
    case Kind::kFor:
      text = Tabs(depth) + "for " + head + " = " + construct.first + " to " + construct.last;
      if (!construct.step.empty()) text += "  Step    " + construct.step;
      return text + "\r\n" + Lines(statement, depth + 1);
    case Kind::kWhile:
      text = Tabs(depth) + (statement.empty() ? "while  " : "while ") + head;
      return text + Below(statement, depth + 1);
    case Kind::kRepeat:
      return Tabs(depth) + "repeat " + Below(statement, depth + 1);
    case Kind::kCase:
      text = Tabs(depth) + "on case " + head;
      for (const Row& row : construct.rows) {
        text += "\r\n" + Tabs(depth + 1) + "case " + row.value + " :";
        text += Below(row.statement, depth + 2) + Below("break", depth + 2);
      }
      return text;
  }
  return text;
}

std::string Closing(const Construct& construct, std::size_t depth) {
  const std::string start = "\r\n" + Tabs(depth);
  switch (construct.kind) {
    case Kind::kIf:
      return start + "endif";
    case Kind::kFor:
      return start + "endfor";
    case Kind::kWhile:
      return start + "endwhile";
    case Kind::kRepeat:
      return start + "Until  ( " + construct.head + " )";
    case Kind::kCase:
      if (construct.defaultStatement.empty()) return start + "endcase";
      return start + "\tdefault: " + start + "\t\t" + construct.defaultStatement + "\r\nendcase";
  }
  return start;
}

}  // namespace

std::string Print(const Nesting& nesting, std::size_t depth) {
  const Construct& construct = nesting[depth];
  std::string text = Opening(construct, depth);
  if (depth + 1 < nesting.size()) text += "\r\n" + Print(nesting, depth + 1);
  return text + Closing(construct, depth);
}

}  // namespace zolt20::tests
