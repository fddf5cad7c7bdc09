#include "surface/string.h"

#include <algorithm>
#include <cassert>

#include "surface/scan.h"

namespace zolt20 {
namespace {

bool IsDigit(char16_t character) {
  return character >= u'0' && character <= u'9';
}

bool IsSign(char16_t character) {
  return character == u'+' || character == u'-';
}

// The parts of a numeric text, as views of that text.
struct NumberPieces {
  bool negative = false;
  StringView whole;
  StringView fraction;
  bool negativeExponent = false;
  StringView exponent;
};

StringView TakeDigits(StringView& rest) {
  const auto end = std::find_if_not(rest.begin(), rest.end(), IsDigit);
  const StringView digits = rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
  rest.remove_prefix(digits.size());
  return digits;
}

bool TakeSign(StringView& rest) {
  if (rest.empty() || !IsSign(rest.front())) return false;
  const bool negative = rest.front() == u'-';
  rest.remove_prefix(1);
  return negative;
}

bool TakeApart(StringView text, NumberPieces& pieces) {
  StringView rest = Trim(text);
  pieces.negative = TakeSign(rest);
  pieces.whole = TakeDigits(rest);
  if (!rest.empty() && rest.front() == u'.') {
    rest.remove_prefix(1);
    pieces.fraction = TakeDigits(rest);
  }
  if (pieces.whole.empty() && pieces.fraction.empty()) return false;
  if (!rest.empty() && (rest.front() == u'e' || rest.front() == u'E')) {
    rest.remove_prefix(1);
    pieces.negativeExponent = TakeSign(rest);
    pieces.exponent = TakeDigits(rest);
    if (pieces.exponent.empty()) return false;
  }
  return rest.empty();
}

// The exponent as a number, clamped: beyond the length of any text its size no longer matters.
std::int64_t ExponentOf(const NumberPieces& pieces) {
  constexpr std::int64_t kBeyondAnyText = std::int64_t{1} << 56;
  std::int64_t exponent = 0;
  for (const char16_t digit : pieces.exponent) {
    exponent = std::min(exponent * 10 + (digit - u'0'), kBeyondAnyText);
  }
  return pieces.negativeExponent ? -exponent : exponent;
}

}  // namespace

StringView Trim(StringView text) {
  const std::size_t first = text.find_first_not_of(u' ');
  if (first == StringView::npos) return {};
  return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

StringView Left(StringView text, std::int64_t count) {
  return Mid(text, 1, count);
}

StringView Mid(StringView text, std::int64_t position) {
  return Mid(text, position, static_cast<std::int64_t>(text.size()));
}

StringView Mid(StringView text, std::int64_t position, std::int64_t count) {
  if (position < 1 || count < 0) Raise(ErrorKind::kArgument);
  const auto start = static_cast<std::size_t>(position - 1);
  if (start >= text.size()) return {};
  return text.substr(start, static_cast<std::size_t>(count));
}

bool Equal(StringView a, StringView b) {
  return a.size() == b.size() &&
         (a.data() == b.data() || std::equal(a.begin(), a.end(), b.begin()));
}

std::size_t Find(StringView text, StringView part, std::size_t from) {
  assert(!part.empty());
  const char16_t first = part.front();
  const char16_t* const end = text.data() + text.size();
  const char16_t* at = text.data() + std::min(from, text.size());
  for (;;) {
    at = scan::FindFirst(
        at, end, [first](std::uint64_t word) { return scan::AnyIs(word, first); },
        [first](char16_t character) { return character == first; });
    if (at == end) return StringView::npos;
    const auto place = static_cast<std::size_t>(at - text.data());
    if (text.substr(place).starts_with(part)) return place;
    ++at;
  }
}

bool Holds(StringView text, StringView part) {
  return text.find(part) != StringView::npos;
}

String Replace(StringView text, StringView from, StringView to) {
  assert(!from.empty());
  String result;
  result.reserve(text.size());
  std::size_t start = 0;
  for (std::size_t found = Find(text, from); found != StringView::npos;
       found = Find(text, from, start)) {
    result.append(text, start, found - start);
    result.append(to);
    start = found + from.size();
  }
  result.append(text, start);
  return result;
}

std::vector<StringView> Split(StringView text, StringView separator) {
  std::vector<StringView> pieces;
  if (text.empty()) return pieces;
  std::size_t start = 0;
  for (std::size_t found = text.find(separator); found != StringView::npos;
       found = text.find(separator, start)) {
    pieces.push_back(text.substr(start, found - start));
    start = found + separator.size();
  }
  pieces.push_back(text.substr(start));
  return pieces;
}

char16_t LowerCase(char16_t character) {
  constexpr char16_t kDistance = u'a' - u'A';
  constexpr char16_t kMultiplicationSign = 0xD7;
  if (character >= u'A' && character <= u'Z') return character + kDistance;
  if (character >= 0xC0 && character <= 0xDE && character != kMultiplicationSign) {
    return character + kDistance;
  }
  return character;
}

String LowerCase(StringView text) {
  String lower(text);
  for (char16_t& character : lower)
    character = LowerCase(character);
  return lower;
}

bool EqualIgnoringCase(StringView a, StringView b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char16_t x, char16_t y) { return LowerCase(x) == LowerCase(y); });
}

std::size_t FindIgnoringCase(StringView text, StringView part) {
  const auto found = std::search(text.begin(), text.end(), part.begin(), part.end(),
                                 [](char16_t x, char16_t lower) { return LowerCase(x) == lower; });
  if (found == text.end() && !part.empty()) return StringView::npos;
  return static_cast<std::size_t>(found - text.begin());
}

bool IsNumeric(StringView text) {
  NumberPieces pieces;
  return TakeApart(text, pieces);
}

Integer ToInteger(StringView numericText) {
  NumberPieces pieces;
  [[maybe_unused]] const bool numeric = TakeApart(numericText, pieces);
  assert(numeric);

  // The value is 0.DDD... times ten to the power of `point`, the first D not being 0.
  const auto digitCount = static_cast<std::int64_t>(pieces.whole.size() + pieces.fraction.size());
  const auto digitAt = [&pieces](std::int64_t place) {
    const auto at = static_cast<std::size_t>(place);
    const char16_t digit =
        at < pieces.whole.size() ? pieces.whole[at] : pieces.fraction[at - pieces.whole.size()];
    return digit - u'0';
  };
  std::int64_t first = 0;
  while (first < digitCount && digitAt(first) == 0)
    ++first;
  if (first == digitCount) return 0;
  const std::int64_t point =
      static_cast<std::int64_t>(pieces.whole.size()) - first + ExponentOf(pieces);

  constexpr std::int64_t kMostDigits = 5;
  if (point > kMostDigits) Raise(ErrorKind::kOverflow);
  if (point < 0) return 0;
  std::int64_t value = 0;
  for (std::int64_t place = first; place < first + point; ++place) {
    value = value * 10 + (place < digitCount ? digitAt(place) : 0);
  }
  const std::int64_t next = first + point;
  if (next < digitCount && digitAt(next) >= 5) {
    bool aboveHalf = digitAt(next) > 5;
    for (std::int64_t place = next + 1; place < digitCount && !aboveHalf; ++place) {
      aboveHalf = digitAt(place) > 0;
    }
    if (aboveHalf || value % 2 != 0) ++value;
  }
  return pieces.negative ? -value : value;
}

String ToText(Integer number) {
  return FromAscii(std::to_string(number.value()));
}

String FromAscii(std::string_view text) {
  return {text.begin(), text.end()};
}

}  // namespace zolt20
