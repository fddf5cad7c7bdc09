#include "language/edits.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "language/line_words.h"

namespace zolt20::language {
namespace {

using Nodes = std::vector<Node>;

// How many old lines that stand further left are compared with one line of a replacement.
constexpr std::size_t kMostTried = 64;

// A line without its end.
struct Line {
  StringView text;
  StringView end;  // CR LF, one of the two, or "" for the last line of all
};

// The lines in which a node stands.
struct Body {
  std::size_t first = 0;  // with the indentation of its first line
  std::size_t last = 0;   // before the line end of its last one
  bool beginsLine = true;
  StringView margin;
};

// A splice: a text that replaces a range of another text.
struct Splice {
  std::size_t first = 0;
  std::size_t last = 0;
  String text;
  std::size_t before = 0;  // how many characters of `text` are a line end before the new nodes
  std::size_t length = 0;  // how many characters the new nodes have
};

bool IsPart(NodeKind kind) {
  return kind == NodeKind::kBlank || kind == NodeKind::kHead || kind == NodeKind::kMore ||
         kind == NodeKind::kEnd;
}

bool IsStatement(NodeKind kind) {
  return kind == NodeKind::kStatement || kind == NodeKind::kSelect || kind == NodeKind::kIf ||
         kind == NodeKind::kFor || kind == NodeKind::kWhile || kind == NodeKind::kRepeat ||
         kind == NodeKind::kOnCase;
}

bool HasStatements(NodeKind kind) {
  return (kind >= NodeKind::kSelectDo && kind <= NodeKind::kSelectError) || kind >= NodeKind::kIf;
}

// Lines.

bool BeginsLine(StringView text, std::size_t place) {
  return place == 0 || IsLineEnd(text[place - 1]);
}

bool EndsWithLine(StringView text) {
  return !text.empty() && IsLineEnd(text.back());
}

std::vector<Line> LinesOf(StringView text) {
  std::vector<Line> lines;
  for (std::size_t at = 0;;) {
    const std::size_t end = EndOfLine(text, at);
    const std::size_t next = end < text.size() ? BehindLineEnd(text, end) : end;
    lines.push_back({text.substr(at, end - at), text.substr(end, next - end)});
    if (next == end) return lines;
    at = next;
  }
}

// The line end of the first line; CR LF when there is none.
StringView LineEndOf(StringView text) {
  const std::size_t end = EndOfLine(text, 0);
  return end < text.size() ? text.substr(end, BehindLineEnd(text, end) - end) : kLineBreak;
}

StringView IndentationAt(StringView text, std::size_t lineStart) {
  return text.substr(lineStart, PassBlanks(text, lineStart) - lineStart);
}

// A text without blank lines at its start and end.
StringView Core(StringView text) {
  text.remove_prefix(PassBlankLines(text, 0));
  std::size_t end = text.size();
  while (end > 0 && (IsBlank(text[end - 1]) || IsLineEnd(text[end - 1])))
    --end;
  return text.substr(0, end == 0 ? 0 : EndOfLine(text, end));
}

StringView WithoutMargin(StringView line, StringView margin) {
  const auto [end, other] = std::mismatch(line.begin(), line.end(), margin.begin(), margin.end());
  return line.substr(static_cast<std::size_t>(end - line.begin()));
}

String Indented(StringView line, StringView margin) {
  return line.empty() ? String() : Concat(margin, line);
}

// Nodes.

// The indentation of a node: that of its first line. ODD: the control writes an "if" with a
// condition but no statement at the left margin, and its "endif" at the right depth, so that an
// "if" takes the indentation of its "endif" when that is deeper.
StringView MarginOf(StringView text, const Nodes& nodes, std::size_t index, std::size_t lineStart) {
  const StringView margin = IndentationAt(text, lineStart);
  const Node& last = nodes[nodes[index].behind - 1];
  if (nodes[index].kind != NodeKind::kIf || last.kind != NodeKind::kEnd || last.parent != index ||
      !BeginsLine(text, last.first))
    return margin;
  const StringView closing = IndentationAt(text, last.first);
  return closing.starts_with(margin) ? closing : margin;
}

Body BodyOf(StringView text, const Nodes& nodes, std::size_t index) {
  const Node& node = nodes[index];
  std::size_t lineStart = node.first;
  while (!BeginsLine(text, lineStart))
    --lineStart;
  Body body;
  body.first = node.first;
  body.last = node.first + Core(TextOf(text, node)).size();
  body.beginsLine = lineStart == node.first;
  body.margin = MarginOf(text, nodes, index, lineStart);
  return body;
}

std::vector<Line> LinesOf(StringView text, const Body& body) {
  return LinesOf(text.substr(body.first, body.last - body.first));
}

// A line of a body as at depth 0; other text may stand before the body's first line. Blanks between
// a CR and an LF stay, since without them the two would be one line end.
StringView AtMargin(const Body& body, const std::vector<Line>& lines, std::size_t i) {
  if (i == 0 && !body.beginsLine) return lines[i].text;
  const StringView line = WithoutMargin(lines[i].text, body.margin);
  const bool joins = line.empty() && i > 0 && lines[i - 1].end == u"\r" && lines[i].end == u"\n";
  return joins ? lines[i].text : line;
}

bool IsOdd(const Body& body, const std::vector<Line>& lines, std::size_t i) {
  return (i > 0 || body.beginsLine) && !lines[i].text.starts_with(body.margin);
}

// The expected effect of an edit on the tree: which nodes go, and where others come.
struct Course {
  std::size_t removed = 0;
  std::size_t removedBehind = 0;
  std::size_t gap = 0;      // the index of the first new node in the new tree
  std::uint32_t depth = 0;  // the depth of the new nodes
  enum class Coming : std::uint8_t { kNothing, kNodes, kRemoved } coming = Coming::kNodes;
};

String WithoutBlanks(StringView head) {
  String text(head);
  std::erase_if(text, [](char16_t c) { return IsBlank(c) || IsLineEnd(c); });
  return text;
}

// Whether heads are the same, except for the indentation of lines in a head of several lines.
bool IsSameHead(StringView a, StringView b) {
  if (a == b) return true;
  const String left = WithoutBlanks(a);
  const String right = WithoutBlanks(b);
  return left == right;
}

// Whether the change has the effect that the course describes, and no other. Parses the new text.
bool IsCourse(StringView textBefore, const Nodes& before, const Change& change,
              const Course& course) {
  const Nodes after = ReadOutline(change.text);
  const std::size_t removed = course.removedBehind - course.removed;
  const std::size_t kept = before.size() - removed;
  if (after.size() < kept) return false;
  const std::size_t come = after.size() - kept;
  if ((come == 0) != (course.coming == Course::Coming::kNothing)) return false;
  const auto isSame = [&](const Node& a, const Node& b) {
    return std::tie(a.kind, a.problem) == std::tie(b.kind, b.problem) &&
           IsSameHead(HeadOf(textBefore, a), HeadOf(change.text, b));
  };
  for (std::size_t i = 0; i < kept; ++i) {
    const Node& old = before[i < course.removed ? i : i + removed];
    const Node& now = after[i < course.gap ? i : i + come];
    if (old.depth != now.depth || !isSame(old, now)) return false;
  }
  if (come == 0) return true;
  const auto first = after.begin() + static_cast<std::ptrdiff_t>(course.gap);
  const auto last = first + static_cast<std::ptrdiff_t>(come);
  if (course.coming == Course::Coming::kRemoved) {
    const auto old = before.begin() + static_cast<std::ptrdiff_t>(course.removed);
    const auto isMoved = [&](const Node& now, const Node& was) { return isSame(was, now); };
    if (!std::equal(first, last, old, old + static_cast<std::ptrdiff_t>(removed), isMoved))
      return false;
  }
  return first->depth == course.depth && std::all_of(first, last, [&](const Node& node) {
           return node.depth >= course.depth && node.headFirst >= change.first &&
                  node.headLast <= change.last;
         });
}

Change Refused(StringView text, Refusal refusal) {
  return {refusal, String(text), 0, 0};
}

// The old text with one or two splices, in order. A text without a line end at its end has none
// afterwards either.
String Spliced(StringView text, const Splice& a, const Splice* b = nullptr) {
  const std::size_t end = b == nullptr ? text.size() : b->first;
  String spliced = Concat(text.substr(0, a.first), a.text, text.substr(a.last, end - a.last));
  if (b != nullptr) spliced += Concat(b->text, text.substr(b->last));
  if (EndsWithLine(text) || !EndsWithLine(spliced)) return spliced;
  spliced.resize(spliced.size() - (spliced.ends_with(kLineBreak) ? 2 : 1));
  return spliced;
}

// The splice that removes a node: its whole lines, or its own part of a line that it shares.
Splice RemovalOf(StringView text, const Node& node) {
  const bool endsLine = node.last == text.size() || BeginsLine(text, node.last);
  if (BeginsLine(text, node.first))
    return {endsLine ? node.first : node.headFirst, node.last, {}, 0, 0};
  const bool keepsLineEnd = endsLine && node.last < text.size();
  const std::size_t length = Core(TextOf(text, node)).size();
  return {node.first, keepsLineEnd ? node.first + length : node.last, {}, 0, 0};
}

// A resolved place: its offset, the index of the node behind it, and its surroundings.
struct Target {
  std::size_t at = 0;
  std::size_t index = 0;
  std::uint32_t parent = Node::kNone;
  std::uint32_t depth = 0;
  String margin;
};

Target TargetBeside(StringView text, const Nodes& nodes, Place place) {
  const Node& node = nodes[place.node];
  Target target;
  target.parent = node.parent;
  target.depth = node.depth;
  target.at = place.where == Where::kBefore ? node.first : node.last;
  target.index = place.where == Where::kBefore ? place.node : node.behind;
  target.margin = BodyOf(text, nodes, place.node).margin;
  return target;
}

Target TargetWithin(StringView text, const Nodes& nodes, std::size_t index) {
  const Node& node = nodes[index];
  Target target;
  target.parent = static_cast<std::uint32_t>(index);
  target.depth = node.depth + 1;
  target.margin = Concat(BodyOf(text, nodes, index).margin, kTabCharacter);
  std::size_t child = index + 1;
  for (; child < node.behind; child = nodes[child].behind) {
    const NodeKind kind = nodes[child].kind;
    if (kind == NodeKind::kEnd || kind == NodeKind::kElse || kind == NodeKind::kDefault) break;
    if (kind != NodeKind::kHead) target.margin = BodyOf(text, nodes, child).margin;
  }
  target.index = child;
  target.at = child < node.behind ? nodes[child].first : node.last;
  return target;
}

Target TargetAt(StringView text, const Nodes& nodes, Place place) {
  if (place.node == Node::kNone) return {text.size(), nodes.size(), Node::kNone, 0, {}};
  return place.where == Where::kInto ? TargetWithin(text, nodes, place.node)
                                     : TargetBeside(text, nodes, place);
}

// The splice that inserts whole lines before the text at a place.
Splice InsertionAt(StringView text, std::size_t at, String lines) {
  const StringView lineEnd = LineEndOf(text);
  const bool beginsLine = BeginsLine(text, at);
  const bool isLast = at == text.size() && !EndsWithLine(text);
  Splice splice{at, at, {}, beginsLine ? 0 : lineEnd.size(), lines.size()};
  if (!beginsLine) splice.text = lineEnd;
  splice.text += lines;
  if (!isLast) splice.text += lineEnd;
  return splice;
}

// The lines of a replacement; lines that the node had already keep their indentation.
String ReplacingLines(StringView text, const Body& body, StringView replacement) {
  const std::vector<Line> old = LinesOf(text, body);
  const std::vector<Line> come = LinesOf(replacement);
  const std::size_t most = std::min(old.size(), come.size());
  const auto isSame = [&](std::size_t i, std::size_t j) {
    return AtMargin(body, old, i) == come[j].text;
  };
  std::size_t head = 0;
  while (head < most && isSame(head, head))
    ++head;
  std::size_t tail = 0;
  while (tail < most - head && isSame(old.size() - 1 - tail, come.size() - 1 - tail))
    ++tail;
  std::vector<std::size_t> odd;
  for (std::size_t i = head; i < old.size() - tail; ++i) {
    if (IsOdd(body, old, i)) odd.push_back(i);
  }

  const StringView lineEnd = LineEndOf(text);
  String lines;
  auto next = odd.begin();
  for (std::size_t j = 0;; ++j) {
    const Line* same = nullptr;
    if (j < head) {
      same = &old[j];
    } else if (j >= come.size() - tail) {
      same = &old[old.size() - (come.size() - j)];
    } else {
      const auto last = std::min<std::ptrdiff_t>(kMostTried, odd.end() - next);
      const auto found =
          std::find_if(next, next + last, [&](std::size_t i) { return isSame(i, j); });
      if (found != next + last) {
        same = &old[*found];
        next = found + 1;
      }
    }
    const bool isIndented = j > 0 || body.beginsLine;
    if (same != nullptr) {
      lines += same->text;
    } else {
      lines += Indented(come[j].text, isIndented ? body.margin : StringView());
    }
    if (j + 1 == come.size()) return lines;
    lines += same != nullptr && !same->end.empty() ? same->end : lineEnd;
  }
}

// The lines of a node, moved to another margin.
String MovedLines(StringView text, const Body& body, StringView margin) {
  const std::vector<Line> lines = LinesOf(text, body);
  String moved;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (IsOdd(body, lines, i)) {
      moved += lines[i].text;
    } else {
      moved += Indented(AtMargin(body, lines, i), margin);
    }
    moved += lines[i].end;
  }
  return moved;
}

}  // namespace

std::size_t FindNode(const Nodes& nodes, std::size_t first, std::size_t last) {
  const auto found = std::find_if(nodes.begin(), nodes.end(), [&](const Node& node) {
    return node.first == first && node.last == last;
  });
  return found == nodes.end() ? Node::kNone : static_cast<std::size_t>(found - nodes.begin());
}

std::size_t StatementOf(const Nodes& nodes, std::size_t index) {
  while (index != Node::kNone && !IsStatement(nodes[index].kind))
    index = nodes[index].parent;
  return index;
}

String TakeNode(StringView text, const Nodes& nodes, std::size_t index) {
  const Body body = BodyOf(text, nodes, index);
  const std::vector<Line> lines = LinesOf(text, body);
  String taken;
  for (std::size_t i = 0; i < lines.size(); ++i)
    taken += Concat(AtMargin(body, lines, i), lines[i].end);
  return taken;
}

Change ReplaceNode(StringView text, const Nodes& nodes, std::size_t index, StringView replacement) {
  if (IsPart(nodes[index].kind)) return Refused(text, Refusal::kPart);
  replacement = Core(replacement);
  if (replacement.empty()) return DeleteNode(text, nodes, index);
  const Body body = BodyOf(text, nodes, index);
  String lines = ReplacingLines(text, body, replacement);
  Change change;
  change.first = body.first;
  change.last = body.first + lines.size();
  change.text = Concat(text.substr(0, body.first), lines, text.substr(body.last));
  const Node& node = nodes[index];
  if (!IsCourse(text, nodes, change, {index, node.behind, index, node.depth}))
    return Refused(text, Refusal::kOthers);
  return change;
}

Change DeleteNode(StringView text, const Nodes& nodes, std::size_t index) {
  const Node& node = nodes[index];
  if (IsPart(node.kind)) return Refused(text, Refusal::kPart);
  const Splice removal = RemovalOf(text, node);
  Change change;
  change.text = Spliced(text, removal);
  change.first = change.last = std::min(removal.first, change.text.size());
  if (!IsCourse(text, nodes, change, {index, node.behind, index, 0, Course::Coming::kNothing}))
    return Refused(text, Refusal::kOthers);
  return change;
}

Change InsertNodes(StringView text, const Nodes& nodes, Place place, StringView inserted) {
  if (place.where == Where::kInto && place.node != Node::kNone &&
      !HasStatements(nodes[place.node].kind))
    return Refused(text, Refusal::kNoPlace);
  inserted = Core(inserted);
  if (inserted.empty()) return Refused(text, Refusal::kNoText);
  const Target target = TargetAt(text, nodes, place);
  const StringView lineEnd = LineEndOf(text);
  String lines;
  const StringView margin = IndentationAt(inserted, 0);
  for (const Line& line : LinesOf(inserted)) {
    lines += Indented(WithoutMargin(line.text, margin), target.margin);
    if (!line.end.empty()) lines += lineEnd;
  }
  const Splice splice = InsertionAt(text, target.at, std::move(lines));
  Change change;
  change.text = Spliced(text, splice);
  change.first = splice.first + splice.before;
  change.last = change.first + splice.length;
  if (!IsCourse(text, nodes, change, {0, 0, target.index, target.depth}))
    return Refused(text, Refusal::kOthers);
  return change;
}

Change MoveNode(StringView text, const Nodes& nodes, std::size_t index, Place place) {
  const Node& node = nodes[index];
  if (IsPart(node.kind)) return Refused(text, Refusal::kPart);
  if (place.where == Where::kInto && place.node != Node::kNone) {
    if (place.node >= index && place.node < node.behind) return Refused(text, Refusal::kItself);
    if (!HasStatements(nodes[place.node].kind)) return Refused(text, Refusal::kNoPlace);
  }
  if (place.node > index && place.node < node.behind) return Refused(text, Refusal::kItself);
  Target target = TargetAt(text, nodes, place);
  const Body body = BodyOf(text, nodes, index);
  // A node that stays among its siblings keeps its indentation, however deep that is.
  if (target.parent == node.parent) target.margin = body.margin;
  const bool isThere = target.index == index || target.index == node.behind;
  if (isThere && target.parent == node.parent)
    return {Refusal::kNone, String(text), body.first, body.last};

  const Splice removal = RemovalOf(text, node);
  const Splice splice = InsertionAt(text, target.at, MovedLines(text, body, target.margin));
  const bool isUp = target.at <= removal.first;
  Change change;
  change.text = isUp ? Spliced(text, splice, &removal) : Spliced(text, removal, &splice);
  change.first = splice.first + splice.before - (isUp ? 0 : removal.last - removal.first);
  change.last = change.first + splice.length;
  const std::size_t gap = isUp ? target.index : target.index - (node.behind - index);
  if (!IsCourse(text, nodes, change,
                {index, node.behind, gap, target.depth, Course::Coming::kRemoved}))
    return Refused(text, Refusal::kOthers);
  return change;
}

}  // namespace zolt20::language
