// Keyboard navigation in a list: the row a key goes to, and what it does there. Knows no platform.
//
// As in a list of Windows: in a single selection a key that moves marks the row that it comes to,
// at an end of the list the same row again. In other lists keys only move, and Space marks.
#pragma once

#include <optional>

#include "surface/gesture.h"

namespace zolt20::faces {

enum class ListKey { kUp, kDown, kPageUp, kPageDown, kHome, kEnd, kSpace, kEnter };

/// The state of a list when a key is pressed.
struct ListPlace {
  int current = -1;  ///< the current row, which has the focus rectangle, -1 for none
  int count = 0;     ///< of rows
  int page = 1;      ///< how many rows are visible at once
  bool isSingle = false;
};

struct ListStep {
  int row = -1;        ///< the row of the step, -1 for no step at all
  bool moves = false;  ///< the row becomes the current one and is scrolled into view
  std::optional<Gesture> gesture = {};  ///< the gesture that the key makes on the row
};

ListStep StepOf(ListKey key, const ListPlace& place);

/// The step to a row that was found in another way, such as by type-ahead.
ListStep StepTo(int row, bool isSingle);

/// Tells the second press of a double click from a click. Platforms count presses by place and
/// time, and know nothing of rows: a list may have been scrolled under the mouse between two
/// presses.
class RowPresses {
 public:
  /// The gesture of a press on a row. isCountedTwo: the platform counts it as a double click.
  Gesture GestureOf(int row, bool isCountedTwo);

 private:
  int first_ = -1;  // the row of a press that a second one may make a double click
};

}  // namespace zolt20::faces
