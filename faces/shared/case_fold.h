// Case-insensitive comparison by the platform's rules of case folding, which the platform hands in.
//
// A platform's own rules cost a call and a copy for each text, and most rows are plain ASCII. ASCII
// texts take a fast path: they are compared in place, provided the platform folds ASCII the common
// way.
#pragma once

#include <functional>
#include <optional>

#include "surface/string.h"

namespace zolt20::faces {

class CaseFold {
 public:
  /// Returns a text folded to one letter case.
  using Rules = std::function<String(StringView)>;

  /// The default rules ignore the case of Latin-1 letters.
  explicit CaseFold(Rules rules = {});

  String operator()(StringView text) const { return rules_(text); }
  /// Whether the folded text holds or begins with `part`, which must be folded already.
  bool Holds(StringView text, StringView part) const;
  bool Begins(StringView text, StringView part) const;

 private:
  bool KeepsToAscii() const;

  Rules rules_;
  mutable std::optional<bool> keepsToAscii_;
};

}  // namespace zolt20::faces
