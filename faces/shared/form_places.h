// The layout engine for faces whose platform has none: computes from the layout (layout.h) where
// everything on a form of a given size stands, in twips. A pure computation that knows no window.
#pragma once

#include <functional>
#include <map>

#include "faces/shared/case_places.h"
#include "faces/shared/layout.h"
#include "surface/surface.h"

namespace zolt20::faces {

/// Font metrics of a form, in twips. A height of 0, or no `width`, means those of a small font: the
/// least that the layout allows.
struct Letters {
  int line = 0;       ///< the height of a line
  int smallLine = 0;  ///< of the notes
  int scrollBar = 0;  ///< the height of a scroll bar below a box
  std::function<int(StringView text, bool isSmall)> width = {};
};

class FormPlaces {
 public:
  /// The size that a new control has.
  static constexpr int kWidth = 12'600;
  static constexpr int kHeight = 8'700;

  /// Lays out a form of that size, clamped to the least size at which every text fits. Room that is
  /// left over is shared by the weights of the layout.
  FormPlaces(const Surface& form, int width, int height, const Letters& letters);

  /// A control's place within its frame, or the form. For an element loaded since, its own place.
  Geometry Of(const Control& control) const;
  /// The place of the line edit with the filter of a list or combo. Empty where it has none.
  Geometry FilterOf(const Control& control) const;
  /// The place of the line that tells of marks hidden by a filter. Empty where there is none.
  Geometry MarksOf(const Control& control) const;
  /// The places of the Undo and Redo buttons.
  Geometry Undo() const;
  Geometry Redo() const;
  /// The place that all pages share.
  Geometry Pages() const { return pages_; }
  /// The size of the whole form, at least the least size.
  int Width() const { return width_; }
  int Height() const { return height_; }

 private:
  struct Extent {
    int width = 0;
    int height = 0;
  };
  struct Box;

  // Sizes.
  Extent Measure(const Part& part);
  Extent LeastOf(const Part& part) const { return least_.at(&part); }
  Extent OfControl(const Design& control) const;
  Extent AroundOf(const Part& part) const;
  int WidthOf(StringView text, bool isSmall) const;
  int LabelWidth(const Part& fields) const;

  // Places.
  void Put(const Part& part, Box box);
  void PutAlong(const Part& part, Box box, bool isAcross);
  void PutPair(const Part& pair, Box box, int labelWidth);
  void PutCases(const Part& part, Box box);
  Box Aligned(const Part& part, Box box) const;
  int CaseLength(const Stretch& length) const;

  const Surface& form_;
  Letters letters_;
  std::map<const Part*, Extent> least_;
  std::map<const Design*, Geometry> places_;  // within the form
  std::map<const Design*, Geometry> filters_;
  std::map<const Design*, Geometry> marks_;
  Geometry tools_{};
  Geometry pages_{};
  int width_ = 0;
  int height_ = 0;
  int caseWidth_ = kCaseFrameTwips;
  // Heights, in twips.
  int line_;
  int smallLine_;
  int field_;  // a box of one line
  int button_;
  int lines_;       // a box of several lines, at least
  int frameHead_;   // a frame's caption
  int rowGrowth_;   // by which a case row is taller than in the form
  int nextGrowth_;  // and the button below them
};

}  // namespace zolt20::faces
