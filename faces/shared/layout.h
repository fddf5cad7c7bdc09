// The layout of the form: the one description from which every face builds its pages.
//
// It is a tree. Rows, columns and other containers are parts with parts in them; a leaf is a
// control, or something of the faces' own such as the line of a filter. It holds no sizes. Room
// left over in a row's width, or a column's height, is shared by weight; a part of weight 0 takes
// what it needs and no more.
#pragma once

#include <string_view>
#include <vector>

#include "surface/form.h"

namespace zolt20::faces {

enum class PartKind {
  kControl,
  kFilter,  ///< the text box that filters the list `control`
  kMarks,   ///< the line that tells of marks hidden by the filter of the list `control`
  kTools,   ///< the buttons Undo and Redo
  kSpace,   ///< empty room
  kRow,     ///< its parts side by side
  kColumn,  ///< its parts one below the other
  kSplit,   ///< a splitter: a column with a border that a person can move
  kFields,  ///< a column of pairs, whose labels are as wide as the widest of them
  kPair,    ///< a label, and a box beside it
  kNotes,   ///< a column of labels in small letters
  kPages,   ///< one part at a time, by the page of the form
  kStack,   ///< all in one rectangle, in z order, the first at the back
  kFrame,   ///< a column within the frame or rectangle `control`
  kOwn,     ///< within the frame `control`, each at the place that the form gives it
};

/// The spacing between the parts of a container.
enum class Gap { kNone, kTight, kUsual, kWide };

struct Part {
  PartKind kind = PartKind::kSpace;
  std::string_view name = {};       ///< of a container: its name in style sheets
  int weight = 0;                   ///< from 0
  Gap gap = Gap::kUsual;            ///< of a container
  const Design* control = nullptr;  ///< of kControl, kFilter, kMarks, kFrame and kOwn
  std::vector<Part> parts = {};     ///< of a container
  bool hasSearch = false;           ///< of a combo: its open list has a search line at the top
};

/// The whole form.
const Part& Layout();

/// Whether a control is a label in small letters, which tells how a page is used.
bool IsNote(const Design& control);

/// Whether a list has a line above it that filters it.
bool HasFilter(const Design& control);

/// Whether the open list of a combo begins with a search line, which hides entries that do not hold
/// its text.
bool HasSearch(const Design& control);

/// The least number of lines or rows that a control shows: 1 unless it is a list or multi-line.
int LeastLines(const Design& control);

}  // namespace zolt20::faces
