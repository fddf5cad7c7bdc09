// An index of the lines of a text, which converts an index of the text into line and column and
// back quickly. A line ends with CR LF, CR or LF, as in a text box.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "surface/string.h"

namespace zolt20::composer {

class TextLines {
 public:
  explicit TextLines(StringView text = {}) : length_(text.size()) {
    for (std::size_t at = 0; at < text.size(); ++at) {
      const bool isPair = text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n';
      if (isPair) ++at;
      if (text[at] == u'\n' || text[at] == u'\r') starts_.push_back(at + 1);
    }
  }

  /// Counts from 0; columns in 16-bit characters.
  struct Place {
    int line;
    int column;
  };
  Place At(std::size_t place) const {
    const auto behind = std::upper_bound(starts_.begin(), starts_.end(), place);
    const auto line = static_cast<std::size_t>(behind - starts_.begin()) - 1;
    return {static_cast<int>(line), static_cast<int>(place - starts_[line])};
  }
  /// For a place that does not exist: the end of the text, or the start of the next line.
  std::size_t PlaceOf(Place at) const {
    const auto line = static_cast<std::size_t>(at.line);
    if (line >= starts_.size()) return length_;
    const std::size_t end = line + 1 < starts_.size() ? starts_[line + 1] : length_;
    return std::min(starts_[line] + static_cast<std::size_t>(at.column), end);
  }
  int Count() const { return static_cast<int>(starts_.size()); }

 private:
  std::size_t length_;
  std::vector<std::size_t> starts_{0};
};

/// The line that contains this index of the text, without its line end.
inline StringView LineAround(StringView text, std::size_t place) {
  const std::size_t before = text.substr(0, place).find_last_of(u"\r\n");
  const std::size_t first = before == StringView::npos ? 0 : before + 1;
  return text.substr(first, text.find_first_of(u"\r\n", place) - first);
}

}  // namespace zolt20::composer
