// Where the controls of the form stand at a size of it, in twips: a plain computation that knows no
// window, so that the window and the picture of a control that has none share it.
#pragma once

#include <array>
#include <map>

#include "faces/shared/case_places.h"
#include "surface/surface.h"

namespace zolt20::com {

inline constexpr int kTwipsPerInch = 1440;
/// The height of the letters: 8 1/4 points.
inline constexpr int kFontTwips = 165;

/// How high the lines of a form's letters are, in twips. 0 where that is not known.
struct LineHeights {
  int usual = 0;
  int small = 0;      // of the labels that tell how a page is used
  int scrollBar = 0;  // of a scroll bar below a box
};

/// Whether a control has its text in Arial: one frame. The others have Verdana.
bool IsInArial(const Surface& form, const Control& control);

class FormPlaces {
 public:
  /// The size that a new control has, and the least that shows everything.
  static constexpr int kWidth = 12'600;
  static constexpr int kHeight = 8'700;
  static constexpr int kLeastWidth = 10'500;
  static constexpr int kLeastHeight = 6'900;

  /// Of a form of that size; below the least it is that of the least. What holds a line of text is
  /// no lower than the line needs.
  FormPlaces(const Surface& form, int width, int height, LineHeights lines);

  /// Within the control's frame, or the form. Of an element that was loaded since, its own place.
  Geometry Of(const Control& control) const;
  /// Of the buttons that take back and do again what the person did.
  Geometry Undo() const { return undo_; }
  Geometry Redo() const { return redo_; }

 private:
  struct Box;

  void Put(const Control& control, const Box& place);
  void PutAround(Box whole);
  void PutSelectList(Box page);
  void PutWhere(Box page);
  void PutStatements(Box page, int index);
  void PutConditions(Box page);
  void PutCase(Box frame);
  void PutRows(Box frame, std::initializer_list<std::pair<const Control*, const Control*>> rows);
  Box PutInstructions(Box page, std::initializer_list<const Control*> labels,
                      const Control& button);

  int CaseLength(const faces::Stretch& length) const;

  const Surface& form_;
  std::map<const Control*, Geometry> places_;
  Geometry undo_{};
  Geometry redo_{};
  int caseWidth_ = 0;
  // Heights.
  int tabs_;
  int line_;
  int smallLine_;
  int field_;  // a box of one line
  int button_;
  int frameHead_;   // a frame's caption
  int rowGrowth_;   // by which a case row is taller than in the form
  int default_;     // of the box of the other cases, where there is room
  int nextGrowth_;  // and the button below them
};

}  // namespace zolt20::com
