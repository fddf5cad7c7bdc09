// Texts of 16-bit characters, and the few operations on them that the logic is written in.
//
// Positions count from 1, as a user of the form counts characters. Comparisons are exact, by 16-bit
// units, unless a name says otherwise. "Blank" means the space character alone. Nothing here
// depends on a locale.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "surface/integer.h"

namespace zolt20 {

using String = std::u16string;
using StringView = std::u16string_view;

inline constexpr StringView kLineBreak = u"\r\n";
inline constexpr StringView kTabCharacter = u"\t";

/// The pieces one behind the other, in one allocation.
template <typename... Pieces>
String Concat(const Pieces&... pieces) {
  String text;
  text.reserve((StringView(pieces).size() + ... + 0));
  (text.append(StringView(pieces)), ...);
  return text;
}

/// The text without the blanks at both ends. A view of `text`.
StringView Trim(StringView text);

/// The first `count` characters, or all when there are fewer. Raises `argument` for a negative
/// count.
StringView Left(StringView text, std::int64_t count);

/// What stands from the position on, "" behind the end. Raises `argument` for a position below 1.
StringView Mid(StringView text, std::int64_t position);
/// The same, at most `count` characters. Raises `argument` for a negative count.
StringView Mid(StringView text, std::int64_t position, std::int64_t count);

/// Whether the two are equal. Views of the same memory are equal without comparing characters.
bool Equal(StringView a, StringView b);

/// The place, from 0, of `part` in `text` at or behind `from`; npos when it is nowhere. `part` is
/// not "". Fast in long texts in which the first character of `part` is rare.
std::size_t Find(StringView text, StringView part, std::size_t from = 0);

/// Whether `part` stands anywhere in `text`; "" stands in every text.
bool Holds(StringView text, StringView part);

/// `text` with every `from` replaced by `to`, once from left to right; a replaced piece is not
/// looked at again. `from` is not "".
String Replace(StringView text, StringView from, StringView to);

/// The pieces between the separators, views of `text`. An empty text gives no piece at all.
std::vector<StringView> Split(StringView text, StringView separator);

/// Maps the letters of ASCII and Latin-1 one to one and leaves all other characters.
char16_t LowerCase(char16_t character);
String LowerCase(StringView text);
bool EqualIgnoringCase(StringView a, StringView b);
/// The place, from 0, of `part` in `text`, whatever the case of `text`; npos when it is nowhere.
/// `part` must be in lower case.
std::size_t FindIgnoringCase(StringView text, StringView part);

/// Blanks at both ends aside: an optional sign, digits with at most one decimal point and at least
/// one digit, and optionally "e" or "E", an optional sign, digits.
bool IsNumeric(StringView text);

/// A numeric text rounded to the nearest Integer, halves to the even one. Raises `overflow` outside
/// 16 bits.
Integer ToInteger(StringView numericText);

/// The number in decimal digits.
String ToText(Integer number);

/// An ASCII text (characters below 128) in 16-bit characters.
String FromAscii(std::string_view text);

}  // namespace zolt20
