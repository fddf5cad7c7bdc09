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

/// The keyword that a line begins with, and its length in characters, with the colon of "default:".
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

/// The offset behind the blanks at `from`.
std::size_t PassBlanks(StringView text, std::size_t from);

/// The offset at which the first line break (CR LF, CR or LF) from `from` on begins; the length of
/// the text if there is none.
std::size_t EndOfLine(StringView text, std::size_t from);
/// The offset behind the line end at `end`.
std::size_t BehindLineEnd(StringView text, std::size_t end);
/// The first line from `from` on that is not blank; `from` has to be the start of a line.
std::size_t PassBlankLines(StringView text, std::size_t from);

/// The keyword at the start of a line or of its rest, which has no leading blanks. The next
/// statement may follow a closing word without a blank: "endselectselect A".
LineStart StartOf(StringView line);

/// The offset behind the first occurrence of a word, given in lower case, as a whole word and
/// outside strings in double quotes; npos for none.
std::size_t BehindWord(StringView line, StringView word, std::size_t from = 0);

/// The offset of the bracket that closes the one at `open`, outside strings; npos for none.
std::size_t ClosingBracket(StringView line, std::size_t open);

/// The offset of a case row's colon, in the text behind "case": the colon at the line's end, or
/// else the first colon with a blank behind it, since values have colons too. npos for none.
std::size_t ColonOfRow(StringView line);

}  // namespace zolt20::language
