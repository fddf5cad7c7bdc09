#include "hosts/composer/kept_edits.h"

#include <algorithm>
#include <vector>

#include "hosts/composer/text_difference.h"

namespace zolt20::composer {
namespace {

using Lines = std::vector<StringView>;

constexpr std::size_t kNoLine = static_cast<std::size_t>(-1);

// The lines of a text, split as LineDifference splits them.
Lines LinesOf(StringView text) {
  Lines lines;
  if (text.empty()) return lines;
  for (std::size_t at = 0;;) {
    const std::size_t end = text.find(kLineBreak, at);
    lines.push_back(text.substr(at, end == StringView::npos ? end : end - at));
    if (end == StringView::npos) return lines;
    at = end + kLineBreak.size();
  }
}

void Append(String& text, bool& hasLine, StringView line) {
  if (hasLine) text += kLineBreak;
  hasLine = true;
  text += line;
}

// Whether the new Result is `text` with more text on further lines, which goes to `more`.
bool IsBehind(const RewrittenResult& result, StringView text, StringView& more) {
  if (!result.written.starts_with(text)) return false;
  more = result.written.substr(text.size());
  return more.empty() || more.starts_with(kLineBreak) || text.empty() || text.ends_with(kLineBreak);
}

// A half-open range of lines.
struct Range {
  std::size_t first = 0;
  std::size_t last = 0;
};

// The lines of the control's own text that were rewritten, and the text that replaced them.
struct Rewritten {
  Range own;
  Range written;
};

// The lines that differ between the Result as the control wrote it before and as it writes it now:
// those of the statement that was added last, if all else is the same; otherwise all lines.
Rewritten FindRewritten(const RewrittenResult& result) {
  const auto linesIn = [](StringView text) { return LinesOf(text).size(); };
  Rewritten all{{0, linesIn(result.own)}, {0, linesIn(result.written)}};
  const std::size_t place =
      result.added.empty() ? StringView::npos : result.own.rfind(result.added);
  if (place == StringView::npos) return all;
  const StringView head = result.own.substr(0, place);
  const StringView tail = result.own.substr(place + result.added.size());
  if (result.written.size() < head.size() + tail.size() || !result.written.starts_with(head) ||
      !result.written.ends_with(tail))
    return all;
  // The line end between the two parts is not a line of its own.
  const std::size_t before = head.empty() ? 0 : linesIn(head) - 1;
  const std::size_t behind = tail.empty() ? 0 : linesIn(tail) - 1;
  return {{before, all.own.last - behind}, {before, all.written.last - behind}};
}

// The index of each own line, which the control wrote, among the edited lines, which a person
// changed; kNoLine for a line that is not among them.
std::vector<std::size_t> PlacesOf(StringView own, StringView edited) {
  std::vector<std::size_t> places;
  std::size_t next = 0;
  for (const MarkedLine& line : LineDifference(own, edited)) {
    if (line.mark != LineMark::kAdded)
      places.push_back(line.mark == LineMark::kSame ? next : kNoLine);
    if (line.mark != LineMark::kRemoved) ++next;
  }
  return places;
}

// The range of edited lines that correspond to the range `own` of own lines, which is not empty.
// `places` is that of PlacesOf, `behindAll` the number of edited lines. `same` becomes whether the
// lines are unedited.
Range RangeOf(const std::vector<std::size_t>& places, Range own, std::size_t behindAll,
              bool& same) {
  const auto at = [&](std::size_t line) {
    return places.begin() + static_cast<std::ptrdiff_t>(line);
  };
  const auto isThere = [](std::size_t place) { return place != kNoLine; };
  const std::size_t first = places[own.first];
  const std::size_t last = places[own.last - 1];
  same =
      std::all_of(at(own.first), at(own.last), isThere) && last - first == own.last - 1 - own.first;
  Range range{0, behindAll};
  if (isThere(first)) {
    range.first = first;
  } else {
    for (std::size_t line = 0; line < own.first; ++line)
      if (isThere(places[line])) range.first = places[line] + 1;
  }
  if (isThere(last)) {
    range.last = last + 1;
  } else {
    const auto behind = std::find_if(at(own.last), places.end(), isThere);
    if (behind != places.end()) range.last = *behind;
  }
  return range;
}

}  // namespace

MergedResult MergeResult(const RewrittenResult& result) {
  if (result.own == result.edited) return {String(result.written), false};
  if (StringView more; IsBehind(result, result.own, more)) {
    const bool hasBreak = more.starts_with(kLineBreak);
    if (result.edited.empty())
      return {String(more.empty() ? result.written : more.substr(hasBreak ? kLineBreak.size() : 0)),
              false};
    const bool isOnNewLine = more.empty() || hasBreak || result.edited.ends_with(kLineBreak);
    return {Concat(result.edited, isOnNewLine ? StringView() : kLineBreak, more), false};
  }
  // The new text contains the edits already.
  const StringView trimmed = Trim(result.edited);
  if (StringView more; trimmed.empty() || IsBehind(result, trimmed, more))
    return {String(result.written), false};
  const Lines written = LinesOf(result.written);
  const Lines edited = LinesOf(result.edited);
  const Rewritten rewritten = FindRewritten(result);
  bool same = false;
  const Range there =
      RangeOf(PlacesOf(result.own, result.edited), rewritten.own, edited.size(), same);
  MergedResult merged;
  merged.loses = !same;
  bool hasLine = false;
  for (std::size_t line = 0; line < there.first; ++line)
    Append(merged.text, hasLine, edited[line]);
  for (std::size_t line = rewritten.written.first; line < rewritten.written.last; ++line)
    Append(merged.text, hasLine, written[line]);
  for (std::size_t line = there.last; line < edited.size(); ++line)
    Append(merged.text, hasLine, edited[line]);
  return merged;
}

}  // namespace zolt20::composer
