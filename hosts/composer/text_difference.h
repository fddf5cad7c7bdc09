// Compares two texts line by line. Lines end with CR LF.
#pragma once

#include <vector>

#include "surface/string.h"

namespace zolt20::composer {

enum class LineMark { kSame, kRemoved, kAdded };

struct MarkedLine {
  LineMark mark;
  StringView text;  ///< without its line end; a view of one of the two texts

  bool operator==(const MarkedLine&) const = default;
};

/// The lines of the second text in order. Removed lines stand before the added lines that replace
/// them. A text has one line more than line ends; an empty text has no lines.
///
/// Lines that occur once in both texts are matched first (patience difference), the rest with the
/// fewest changes (Myers), up to a limit that keeps the time in proportion to the length.
std::vector<MarkedLine> LineDifference(StringView before, StringView after);

/// Whether any line was added or removed.
bool HasMarks(const std::vector<MarkedLine>& lines);

}  // namespace zolt20::composer
