// The entries of a list in a select statement.
#pragma once

#include <cstddef>
#include <vector>

#include "surface/string.h"

namespace zolt20::language {

/// The range of an entry in the text, trimmed.
struct ListEntry {
  std::size_t first;
  std::size_t last;
};

/// Trims blanks and line ends at both ends of a range; an empty range is at `first` or behind it.
ListEntry WithoutBlankEnds(StringView text, std::size_t first, std::size_t last);

/// The entries of a range, separated by commas outside brackets and strings; at least one entry,
/// which may be empty.
std::vector<ListEntry> EntriesOf(StringView text, std::size_t first, std::size_t last);

}  // namespace zolt20::language
