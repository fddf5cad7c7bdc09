#include "faces/shared/statement_colors.h"

#include <algorithm>
#include <array>

namespace zolt20::faces {
namespace {

// In alphabetical order.
constexpr std::array<StringView, 34> kKeywords{
    u"and",    u"as",   u"asc",   u"between", u"break",  u"by",     u"case",    u"desc",   u"else",
    u"exists", u"for",  u"from",  u"group",   u"if",     u"in",     u"inrange", u"like",   u"not",
    u"on",     u"or",   u"order", u"range",   u"refers", u"repeat", u"rows",    u"select", u"set",
    u"step",   u"then", u"to",    u"until",   u"where",  u"while",  u"with",
};
constexpr std::array<StringView, 10> kBlockWords{
    u"default",  u"endcase",  u"endfor",      u"endif",     u"endselect",
    u"endwhile", u"selectdo", u"selectempty", u"selecteos", u"selecterror",
};

template <typename Words>
bool IsOneOf(const Words& words, StringView word) {
  return std::binary_search(words.begin(), words.end(), word);
}

bool IsDigit(char16_t character) {
  return character >= u'0' && character <= u'9';
}

bool IsWordCharacter(char16_t character) {
  return IsDigit(character) || (character >= u'a' && character <= u'z') ||
         (character >= u'A' && character <= u'Z') || character == u'_' || character > 0x7F;
}

// The place behind the run of characters for which `belongs` is true.
template <typename Test>
std::size_t RunEnd(StringView line, std::size_t from, const Test& belongs) {
  while (from < line.size() && belongs(line[from]))
    ++from;
  return from;
}

bool CallFollows(StringView line, std::size_t from) {
  from = RunEnd(line, from, [](char16_t character) { return character == u' '; });
  return from < line.size() && line[from] == u'(';
}

}  // namespace

Look LookOf(WordKind kind) {
  switch (kind) {
    case WordKind::kKeyword:
      return {0x0B4F9E, 0x7FB6FF, 700, false};
    case WordKind::kBlock:
      return {0x6A1B9A, 0xD7A6FF, 900, false};
    case WordKind::kFunction:
      return {0x005F56, 0x6FE0C8, 600, true};
    case WordKind::kBinding:
      return {0x7A4100, 0xF0B76B, 600, false};
    case WordKind::kString:
      return {0x1B661F, 0x9BE29B, 400, true};
    case WordKind::kNumber:
      return {0x9C1C1C, 0xFF9E9E, 500, false};
  }
  return {};
}

std::vector<ColoredWord> ColoredWordsOf(StringView line) {
  std::vector<ColoredWord> words;
  const auto isInName = [](char16_t character) {
    return IsWordCharacter(character) || character == u'.';
  };
  const auto isInNumber = [](char16_t character) {
    return IsDigit(character) || character == u'.';
  };
  for (std::size_t at = 0; at < line.size();) {
    const std::size_t first = at;
    const char16_t character = line[at];
    if (character == u'"') {
      const std::size_t quote = line.find(u'"', at + 1);
      at = quote == StringView::npos ? line.size() : quote + 1;
      words.push_back({first, at - first, WordKind::kString});
    } else if (character == u':' && at + 1 < line.size() && IsWordCharacter(line[at + 1])) {
      at = RunEnd(line, at + 1, isInName);
      words.push_back({first, at - first, WordKind::kBinding});
    } else if (IsDigit(character)) {
      at = RunEnd(line, at, isInNumber);
      // "1st" is a name.
      const std::size_t end = RunEnd(line, at, isInName);
      if (end == at) words.push_back({first, at - first, WordKind::kNumber});
      at = end;
    } else if (IsWordCharacter(character)) {
      at = RunEnd(line, at, isInName);
      const String word = LowerCase(line.substr(first, at - first));
      if (IsOneOf(kBlockWords, word)) {
        words.push_back({first, at - first, WordKind::kBlock});
      } else if (IsOneOf(kKeywords, word)) {
        words.push_back({first, at - first, WordKind::kKeyword});
      } else if (CallFollows(line, at)) {
        words.push_back({first, at - first, WordKind::kFunction});
      }
    } else {
      ++at;
    }
  }
  return words;
}

}  // namespace zolt20::faces
