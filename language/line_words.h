// The words by which a line of the statement language is known. Letter case does not count.
#pragma once

#include <cstddef>
#include <cstdint>

#include "surface/string.h"

namespace zolt20::language {

enum class LineWord : std::uint8_t {
  kNone,
  // Clauses, in their order.
  kSelect,
  kFrom,
  kWhere,
  kGroupBy,
  kOrderBy,
  kAsSetWith,
  kSelectDo,
  kSelectEos,
  kSelectEmpty,
  kSelectError,
  // Other lines that begin something.
  kIf,
  kElse,
  kFor,
  kWhile,
  kRepeat,
  kOnCase,
  kCase,
  kDefault,
  // Lines that end something.
  kBreak,
  kEndSelect,
  kEndIf,
  kEndFor,
  kEndWhile,
  kUntil,
  kEndCase,
};

/// What a line begins with, and how many characters that is, the colon of "default:" among them.
struct LineStart {
  LineWord word = LineWord::kNone;
  std::size_t length = 0;
};

inline bool IsBlank(char16_t c) {
  return c == u' ' || c == u'\t' || c == u'\0';
}
inline bool IsLineEnd(char16_t c) {
  return c == u'\r' || c == u'\n';
}
inline bool IsWordCharacter(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') ||
         c == u'_' || c == u'.' || c > 0x7F;
}

/// The place behind the blanks at `from`.
std::size_t PassBlanks(StringView text, std::size_t from);

/// A line ends with CR LF, or with one of the two alone. The place of its end, or the text's end.
std::size_t EndOfLine(StringView text, std::size_t from);
/// The place behind the line end at `end`.
std::size_t BehindLineEnd(StringView text, std::size_t end);
/// The first line at or behind `from`, where a line begins, that is not blank.
std::size_t PassBlankLines(StringView text, std::size_t from);

/// What a line, or the rest of one, begins with; it has no blanks in front. A closing word may have
/// the next statement right behind it: "endselectselect A".
LineStart StartOf(StringView line);

/// The place behind the word, which is in lower case, where it first stands by itself in the line
/// and in no string in double quotes; npos when it is nowhere.
std::size_t BehindWord(StringView line, StringView word, std::size_t from = 0);

/// The place of the bracket that closes the one at `open`, strings aside; npos when none does.
std::size_t ClosingBracket(StringView line, std::size_t open);

/// The place of the colon of a case row, behind the word "case": the one at the line's end, or else
/// the first that a blank follows, since values have colons too. npos for none.
std::size_t ColonOfRow(StringView line);

}  // namespace zolt20::language
