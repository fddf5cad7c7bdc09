// The findings of one check while they are made: no more than can be read, in the order of the
// text at the end, with the lines and columns of their places.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <utility>
#include <vector>

#include "language/check.h"

namespace zolt20::language {

class Findings {
 public:
  using Values = std::initializer_list<std::pair<StringView, StringView>>;

  Findings(StringView text, const Words& words) : text_(text), words_(words) {}

  /// Whether one more of this kind will be told.
  bool HasRoomFor(Mistake mistake) const { return counts_[PlaceOf(mistake)] < kMostFindings; }

  /// `length` characters at `first`, or as many of them as stand on its line; in the words of the
  /// mistake.
  void Add(Mistake mistake, std::size_t node, std::size_t first, std::size_t length,
           Values values = {});
  /// The same in words of its own.
  void Add(Mistake mistake, Word sentence, std::size_t node, std::size_t first, std::size_t length,
           Values values = {});
  /// The last one that was added, which there is.
  Finding& Last() { return found_.back(); }

  const Words& words() const { return words_; }

  std::vector<Finding> Take();

 private:
  static std::size_t PlaceOf(Mistake mistake) { return static_cast<std::size_t>(mistake); }

  StringView text_;
  const Words& words_;
  std::vector<Finding> found_;
  std::array<std::size_t, static_cast<std::size_t>(Mistake::kCount)> counts_{};
};

}  // namespace zolt20::language
