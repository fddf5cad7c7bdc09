// What became of the lines of a text. Lines end with CR LF.
#pragma once

#include <vector>

#include "surface/string.h"

namespace zolt20::composer {

enum class LineMark { kSame, kRemoved, kAdded };

struct MarkedLine {
  LineMark mark;
  StringView text;  ///< without its line end; points into one of the two texts

  bool operator==(const MarkedLine&) const = default;
};

/// The lines of the second text in their order, with those that were removed before those that took
/// their place. A text has one line more than it has line ends; an empty one has none.
///
/// Lines that stand once in both texts are matched first, as people see them (patience
/// difference), and what is left by the fewest changes (Myers), up to a number of them that keeps
/// the time in proportion to the length.
std::vector<MarkedLine> LineDifference(StringView before, StringView after);

/// Whether any line is marked.
bool HasMarks(const std::vector<MarkedLine>& lines);

}  // namespace zolt20::composer
