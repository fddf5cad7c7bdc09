// Texts compared in any letter case, as the platform has it. Knows no platform.
//
// A platform's own rules cost a call and a copy for each text, and most rows are plain ASCII. Such
// a text is compared where it stands, as long as the platform's rules for ASCII are the common
// ones.
#pragma once

#include <functional>
#include <optional>

#include "surface/string.h"

namespace zolt20::faces {

class CaseFold {
 public:
  /// Gives a text in one letter case.
  using Rules = std::function<String(StringView)>;

  /// By default letters of Latin-1 are alike.
  explicit CaseFold(Rules rules = {});

  String operator()(StringView text) const { return rules_(text); }
  /// Whether a text in one letter case holds or begins with `part`, which is in one letter case.
  bool Holds(StringView text, StringView part) const;
  bool Begins(StringView text, StringView part) const;

 private:
  bool KeepsToAscii() const;

  Rules rules_;
  mutable std::optional<bool> keepsToAscii_;
};

}  // namespace zolt20::faces
