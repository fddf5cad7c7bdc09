// Looking through long texts four characters at a time, for places where something is to be done
// that are rare.
//
// A word holds four characters in its lanes of 16 bits, in the order of the machine. A question to
// a word is whether any lane answers it; which one is asked again of the characters.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>

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

/// The first character that `isOne(character)` is true of, or `end`. `anyIsOne(word)` is not 0 for
/// a word that holds one.
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

}  // namespace zolt20::scan
