// Collects the findings of one check: up to a limit for each kind, at the end sorted in the order
// of the text, with lines and columns for their places.
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

  /// Whether the limit still admits a finding of this kind.
  bool HasRoomFor(Mistake mistake) const { return counts_[PlaceOf(mistake)] < kMostFindings; }

  /// Adds a finding of `length` characters at `first`, clamped to the end of the line, with the
  /// sentence of the mistake.
  void Add(Mistake mistake, std::size_t node, std::size_t first, std::size_t length,
           Values values = {});
  /// The same with a sentence of its own.
  void Add(Mistake mistake, Word sentence, std::size_t node, std::size_t first, std::size_t length,
           Values values = {});
  /// The finding that was added last. There has to be one.
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
