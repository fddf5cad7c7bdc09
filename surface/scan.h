// Scans long texts for rare characters, and compares them, four characters at a time (SIMD within a
// register, without special instructions).
//
// A 64-bit word holds four characters in lanes of 16 bits, in the machine's byte order. A test of a
// word only tells whether any lane passes; then the characters are tested one by one.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace zolt20::scan {

inline constexpr std::uint64_t kEveryLane = 0x0001'0001'0001'0001;
inline constexpr std::uint64_t kTopBits = 0x8000'8000'8000'8000;

/// Not 0 when a lane is below `bound`, which is at most 0x8000.
constexpr std::uint64_t AnyBelow(std::uint64_t word, char16_t bound) {
  return (word - bound * kEveryLane) & ~word & kTopBits;
}

/// Not 0 when a lane is the character.
constexpr std::uint64_t AnyIs(std::uint64_t word, char16_t character) {
  return AnyBelow(word ^ (character * kEveryLane), 1);
}

/// The first character for which `isOne(character)` is true, or `end`. `anyIsOne(word)` must not be
/// 0 for a word that holds such a character.
template <typename AnyIsOne, typename IsOne>
const char16_t* FindFirst(const char16_t* at, const char16_t* end, const AnyIsOne& anyIsOne,
                          const IsOne& isOne) {
  std::uint64_t word = 0;
  constexpr std::ptrdiff_t kLanes = sizeof(word) / sizeof(char16_t);
  for (; end - at >= kLanes; at += kLanes) {
    std::memcpy(&word, at, sizeof(word));
    if (anyIsOne(word) != 0) break;
  }
  return std::find_if(at, end, isOne);
}

/// How many characters the two have in common at their start.
inline std::size_t EqualAtStart(std::u16string_view a, std::u16string_view b) {
  constexpr std::size_t kLanes = sizeof(std::uint64_t) / sizeof(char16_t);
  const std::size_t most = std::min(a.size(), b.size());
  std::size_t count = 0;
  while (most - count >= kLanes &&
         std::memcmp(a.data() + count, b.data() + count, sizeof(std::uint64_t)) == 0)
    count += kLanes;
  while (count < most && a[count] == b[count])
    ++count;
  return count;
}

/// How many characters the two have in common at their end.
inline std::size_t EqualAtEnd(std::u16string_view a, std::u16string_view b) {
  constexpr std::size_t kLanes = sizeof(std::uint64_t) / sizeof(char16_t);
  const std::size_t most = std::min(a.size(), b.size());
  const char16_t* const aEnd = a.data() + a.size();
  const char16_t* const bEnd = b.data() + b.size();
  std::size_t count = 0;
  while (most - count >= kLanes &&
         std::memcmp(aEnd - count - kLanes, bEnd - count - kLanes, sizeof(std::uint64_t)) == 0)
    count += kLanes;
  while (count < most && *(aEnd - count - 1) == *(bEnd - count - 1))
    ++count;
  return count;
}

}  // namespace zolt20::scan
