// The entries of a list in a select statement.
#pragma once

#include <cstddef>
#include <vector>

#include "surface/string.h"

namespace zolt20::language {

/// Where it stands in the text, without blank ends.
struct ListEntry {
  std::size_t first;
  std::size_t last;
};

/// The part of a text without blanks and line ends at both ends; an empty one stands at `first` or
/// behind it.
ListEntry WithoutBlankEnds(StringView text, std::size_t first, std::size_t last);

/// What stands between the commas there, at least one entry; commas in brackets and in strings
/// separate nothing.
std::vector<ListEntry> EntriesOf(StringView text, std::size_t first, std::size_t last);

}  // namespace zolt20::language
