// Type-ahead: letters typed in a list find the row that begins with them. Knows no platform.
#pragma once

#include <optional>

#include "faces/shared/drawn_rows.h"
#include "surface/surface.h"

namespace zolt20::faces {

class TypeAhead {
 public:
  /// Letters typed within this time of each other, in milliseconds, form one text.
  static constexpr unsigned kSoon = 1'000;

  /// The drawn row that the letters typed so far lead to, searched from the drawn row `current`, -1
  /// for none; nullopt when no row begins with them. `time` is in milliseconds and may wrap around.
  /// The same letter repeated goes to the next row of that letter; other letters stay on the row as
  /// long as it fits. Letters are compared by the case folding of `rows`.
  std::optional<int> Find(const DrawnRows& rows, int current, char16_t letter, unsigned time);

 private:
  bool IsOneLetter(const DrawnRows& rows) const;

  String typed_;
  unsigned last_ = 0;
};

}  // namespace zolt20::faces
