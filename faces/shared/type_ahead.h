// Letters typed in a list look for the row that begins with them. Knows no platform.
#pragma once

#include <optional>

#include "faces/shared/drawn_rows.h"
#include "surface/surface.h"

namespace zolt20::faces {

class TypeAhead {
 public:
  /// Letters that follow each other within this time belong together, in milliseconds.
  static constexpr unsigned kSoon = 1'000;

  /// The row, as it is drawn, that the letters typed so far go to, from the row `current`, -1 for
  /// none, at a time in milliseconds that may begin anew; none when no row begins with them. The
  /// same letter again goes to the next row of that letter, other letters stay as long as they fit.
  /// Which letters are the same is for the rows to say.
  std::optional<int> Find(const DrawnRows& rows, int current, char16_t letter, unsigned time);

 private:
  bool IsOneLetter(const DrawnRows& rows) const;

  String typed_;
  unsigned last_ = 0;
};

}  // namespace zolt20::faces
