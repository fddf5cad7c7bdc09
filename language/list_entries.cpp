#include "language/list_entries.h"

#include "language/line_words.h"

namespace zolt20::language {

ListEntry WithoutBlankEnds(StringView text, std::size_t first, std::size_t last) {
  const auto isBlank = [text](std::size_t at) { return IsBlank(text[at]) || IsLineEnd(text[at]); };
  while (first < last && isBlank(first))
    ++first;
  while (last > first && isBlank(last - 1))
    --last;
  return {first, last};
}

std::vector<ListEntry> EntriesOf(StringView text, std::size_t first, std::size_t last) {
  std::vector<ListEntry> entries;
  bool isInString = false;
  std::size_t brackets = 0;
  std::size_t begin = first;
  for (std::size_t at = first; at < last; ++at) {
    const char16_t c = text[at];
    if (c == u'"') isInString = !isInString;
    if (isInString) continue;
    if (c == u'(') ++brackets;
    if (c == u')' && brackets > 0) --brackets;
    if (c != u',' || brackets > 0) continue;
    entries.push_back(WithoutBlankEnds(text, begin, at));
    begin = at + 1;
  }
  entries.push_back(WithoutBlankEnds(text, begin, last));
  return entries;
}

}  // namespace zolt20::language
