#include "language/line_words.h"

#include <algorithm>
#include <array>

namespace zolt20::language {
namespace {

// What has to follow a keyword.
enum class Follows : std::uint8_t {
  kBlank,     // a blank or the end of the line
  kNoWord,    // anything but a character of a word
  kNextHead,  // as kNoWord, or the first word of the next statement
  kColon,     // a colon, which is part of the keyword; blanks may stand before the colon
};

struct Spelling {
  StringView word;  // a blank in it stands for one or more blanks
  LineWord means;
  Follows follows;
};

// Sorted by their first letters.
constexpr std::array<Spelling, 25> kSpellings{{
    {u"as set with", LineWord::kAsSetWith, Follows::kBlank},
    {u"break", LineWord::kBreak, Follows::kNoWord},
    {u"case", LineWord::kCase, Follows::kNoWord},
    {u"default", LineWord::kDefault, Follows::kColon},
    {u"else", LineWord::kElse, Follows::kNoWord},
    {u"endselect", LineWord::kEndSelect, Follows::kNextHead},
    {u"endif", LineWord::kEndIf, Follows::kNextHead},
    {u"endfor", LineWord::kEndFor, Follows::kNextHead},
    {u"endwhile", LineWord::kEndWhile, Follows::kNextHead},
    {u"endcase", LineWord::kEndCase, Follows::kNextHead},
    {u"for", LineWord::kFor, Follows::kNoWord},
    {u"from", LineWord::kFrom, Follows::kBlank},
    {u"group by", LineWord::kGroupBy, Follows::kBlank},
    {u"if", LineWord::kIf, Follows::kNoWord},
    {u"on case", LineWord::kOnCase, Follows::kNoWord},
    {u"order by", LineWord::kOrderBy, Follows::kBlank},
    {u"repeat", LineWord::kRepeat, Follows::kNoWord},
    {u"select", LineWord::kSelect, Follows::kBlank},
    {u"selectdo", LineWord::kSelectDo, Follows::kNoWord},
    {u"selecteos", LineWord::kSelectEos, Follows::kNoWord},
    {u"selectempty", LineWord::kSelectEmpty, Follows::kNoWord},
    {u"selecterror", LineWord::kSelectError, Follows::kNoWord},
    {u"until", LineWord::kUntil, Follows::kNoWord},
    {u"where", LineWord::kWhere, Follows::kBlank},
    {u"while", LineWord::kWhile, Follows::kNoWord},
}};

bool IsOpening(LineWord word) {
  return word == LineWord::kSelect || word == LineWord::kIf || word == LineWord::kFor ||
         word == LineWord::kWhile || word == LineWord::kRepeat || word == LineWord::kOnCase;
}

// The length of a word at the start of the line; 0 when the line does not begin with it.
std::size_t Spelled(StringView line, StringView word) {
  std::size_t at = 0;
  for (const char16_t letter : word) {
    if (letter == u' ') {
      const std::size_t behind = PassBlanks(line, at);
      if (behind == at) return 0;
      at = behind;
    } else {
      if (at == line.size() || LowerCase(line[at]) != letter) return 0;
      ++at;
    }
  }
  return at;
}

bool EndsWord(StringView line, std::size_t at) {
  return at == line.size() || !IsWordCharacter(line[at]);
}

bool BeginsStatement(StringView line);

// The length of a keyword at the start of the line; 0 when it or what has to follow is missing.
std::size_t Taken(StringView line, const Spelling& spelling) {
  const std::size_t length = Spelled(line, spelling.word);
  if (length == 0) return 0;
  switch (spelling.follows) {
    case Follows::kBlank:
      return length == line.size() || IsBlank(line[length]) ? length : 0;
    case Follows::kNoWord:
      return EndsWord(line, length) ? length : 0;
    case Follows::kNextHead:
      if (EndsWord(line, length)) return length;
      return BeginsStatement(line.substr(length)) ? length : 0;
    case Follows::kColon:
      break;
  }
  const std::size_t colon = PassBlanks(line, length);
  return colon < line.size() && line[colon] == u':' ? colon + 1 : 0;
}

// Whether the line begins with the first word of a statement. It does not look behind that word, so
// a line of nothing but closing words does not recurse.
bool BeginsStatement(StringView line) {
  return std::any_of(kSpellings.begin(), kSpellings.end(), [line](const Spelling& spelling) {
    return IsOpening(spelling.means) && Taken(line, spelling) > 0;
  });
}

}  // namespace

std::size_t PassBlanks(StringView text, std::size_t from) {
  while (from < text.size() && IsBlank(text[from]))
    ++from;
  return from;
}

std::size_t EndOfLine(StringView text, std::size_t from) {
  while (from < text.size() && !IsLineEnd(text[from]))
    ++from;
  return from;
}

std::size_t BehindLineEnd(StringView text, std::size_t end) {
  if (text.substr(end).starts_with(kLineBreak)) return end + kLineBreak.size();
  return std::min(end + 1, text.size());
}

std::size_t PassBlankLines(StringView text, std::size_t from) {
  for (;;) {
    const std::size_t end = PassBlanks(text, from);
    if (end == text.size()) return end;
    if (!IsLineEnd(text[end])) return from;
    from = BehindLineEnd(text, end);
  }
}

LineStart StartOf(StringView line) {
  if (line.empty()) return {};
  const char16_t letter = LowerCase(line[0]);
  for (const Spelling& spelling : kSpellings) {
    if (spelling.word[0] != letter) continue;
    if (const std::size_t length = Taken(line, spelling); length > 0)
      return {spelling.means, length};
  }
  return {};
}

std::size_t BehindWord(StringView line, StringView word, std::size_t from) {
  bool isInString = false;
  for (std::size_t at = from; at < line.size(); ++at) {
    if (line[at] == u'"') {
      isInString = !isInString;
    } else if (!isInString && LowerCase(line[at]) == word[0] &&
               (at == 0 || !IsWordCharacter(line[at - 1]))) {
      const std::size_t length = Spelled(line.substr(at), word);
      if (length > 0 && EndsWord(line, at + length)) return at + length;
    }
  }
  return StringView::npos;
}

std::size_t ClosingBracket(StringView line, std::size_t open) {
  bool isInString = false;
  std::size_t brackets = 0;
  for (std::size_t at = open; at < line.size(); ++at) {
    if (line[at] == u'"') isInString = !isInString;
    if (isInString) continue;
    if (line[at] == u'(') ++brackets;
    if (line[at] == u')' && --brackets == 0) return at;
  }
  return StringView::npos;
}

std::size_t ColonOfRow(StringView line) {
  std::size_t end = line.size();
  while (end > 0 && IsBlank(line[end - 1]))
    --end;
  if (end > 0 && line[end - 1] == u':') return end - 1;
  for (std::size_t at = 0; at + 1 < end; ++at) {
    if (line[at] == u':' && IsBlank(line[at + 1])) return at;
  }
  return StringView::npos;
}

}  // namespace zolt20::language
