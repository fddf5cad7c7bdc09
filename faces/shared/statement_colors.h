// Syntax highlighting: the kinds of the words of a statement, and their looks. Knows no platform.
//
// Lines are independent: no word goes on beyond a line end, so a face colours only the lines that
// change.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "surface/string.h"

namespace zolt20::faces {

enum class WordKind {
  kKeyword,   ///< of a clause, a condition or a control-flow statement
  kBlock,     ///< begins or ends a block: selectdo, endselect, endif
  kFunction,  ///< a name with "(" behind it
  kBinding,   ///< ":var.name"
  kString,    ///< in double quotes; one that is not closed goes to the end of the line
  kNumber,
};

/// A word (token) of a kind: its first character, counted from 0 in the line, and its length.
struct ColoredWord {
  std::size_t first;
  std::size_t count;
  WordKind kind;

  friend bool operator==(const ColoredWord&, const ColoredWord&) = default;
};

/// How a word of a kind looks. The colours are 0xRRGGBB and have enough contrast on white and on
/// nearly black; weight and slope tell the kinds apart without colours.
struct Look {
  std::uint32_t onLight;
  std::uint32_t onDark;
  int weight;  ///< 100 to 900, 400 is normal
  bool italic;
};
Look LookOf(WordKind kind);

/// The words of a line that have a colour, from left to right, without overlaps. Keywords are found
/// in any letter case, and not within other words.
std::vector<ColoredWord> ColoredWordsOf(StringView line);

}  // namespace zolt20::faces
