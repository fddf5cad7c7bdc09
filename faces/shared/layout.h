// Where the controls of the form stand: the one description, of which every face builds its pages.
//
// It is a tree. Rows, columns and what else surrounds are parts with parts in them; a leaf is a
// control, or something of the faces' own such as the line of a filter. Sizes are not in it. What
// is left of a row's width, or a column's height, is shared by weight; a part of weight 0 takes
// what it needs and no more.
#pragma once

#include <string_view>
#include <vector>

#include "surface/form.h"

namespace zolt20::faces {

enum class PartKind {
  kControl,
  kFilter,  ///< the line with which a person filters the list `control`
  kMarks,   ///< the line that tells of marks in the list `control` which its filter hides
  kTools,   ///< the buttons Undo and Redo
  kSpace,   ///< nothing
  kRow,     ///< one beside the other
  kColumn,  ///< one below the other
  kSplit,   ///< a column between whose parts a person may move the border
  kFields,  ///< a column of pairs, whose labels are as wide as the widest of them
  kPair,    ///< a label, and a box beside it
  kNotes,   ///< a column of labels in small letters
  kPages,   ///< one after the other, by the page of the form
  kStack,   ///< all in one rectangle, the first at the back
  kFrame,   ///< a column within the frame or rectangle `control`
  kOwn,     ///< within the frame `control`, each where the form has it
};

/// What is between the parts of a part.
enum class Gap { kNone, kTight, kUsual, kWide };

struct Part {
  PartKind kind = PartKind::kSpace;
  std::string_view name = {};       ///< of what surrounds: in what style sheets call it
  int weight = 0;                   ///< from 0
  Gap gap = Gap::kUsual;            ///< of what surrounds
  const Design* control = nullptr;  ///< of kControl, kFilter, kMarks, kFrame and kOwn
  std::vector<Part> parts = {};     ///< of what surrounds
  bool hasSearch = false;           ///< of a combo: its open list begins with a line to search it
};

/// The whole form.
const Part& Layout();

/// Whether a control is a label in small letters, which tells how a page is used.
bool IsNote(const Design& control);

/// Whether a list has a line above it that filters it.
bool HasFilter(const Design& control);

/// Whether the open list of a combo begins with a line that leaves only entries which hold its
/// text.
bool HasSearch(const Design& control);

/// How many lines or rows a control shows at least: 1 for what is no list and has but one line.
int LeastLines(const Design& control);

}  // namespace zolt20::faces
