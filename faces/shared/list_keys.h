// Which row of a list a key goes to, and what it does there. Knows no platform.
//
// As in a list of Windows: in a single selection a key that moves marks the row that it comes to,
// at an end of the list the same row again. In other lists it moves alone, and Space marks.
#pragma once

#include <optional>

#include "surface/gesture.h"

namespace zolt20::faces {

enum class ListKey { kUp, kDown, kPageUp, kPageDown, kHome, kEnd, kSpace, kEnter };

/// A list when a key comes.
struct ListPlace {
  int current = -1;  ///< the row that the keys stand on, -1 for none
  int count = 0;     ///< of rows
  int page = 1;      ///< the rows that are seen at once
  bool isSingle = false;
};

struct ListStep {
  int row = -1;                         ///< the row of the step, -1 for no step at all
  bool moves = false;                   ///< the keys stand on the row from now on, and it is seen
  std::optional<Gesture> gesture = {};  ///< what the person makes of the row
};

ListStep StepOf(ListKey key, const ListPlace& place);

/// The step to a row that was found otherwise, such as by its letters.
ListStep StepTo(int row, bool isSingle);

/// Tells the second press of a double click from a click. Platforms count presses by place and
/// time, and know nothing of rows: a list may have been scrolled under the mouse between two
/// presses.
class RowPresses {
 public:
  /// What a press on a row is. isCountedTwo: the platform has it for the second of a double click.
  Gesture GestureOf(int row, bool isCountedTwo);

 private:
  int first_ = -1;  // the row of a press that a second one may make a double click
};

}  // namespace zolt20::faces
