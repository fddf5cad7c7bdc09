// Opens a stored statement on the form, with a proof: the steps that fill the pages of a control so
// that the person's next click, on Add To Result or Add and Build Condition, writes the same text.
//
// A dry run makes the steps and finishes them on a control of its own with the same catalogue,
// before anything is shown. So it is known whether each byte comes back, and if not, which lines
// differ. Parts that properties take are written to them; the rest is done by gestures, as a person
// would. Hosts call this; it uses the public members of the control alone.
#pragma once

#include <string>
#include <vector>

#include "language/reopen.h"
#include "shell/control.h"

namespace zolt20::reopen {

/// The values of PrpStrTables and PrpStrFields, which a host writes before anything else.
struct Catalogue {
  String tables;
  String fields;
};

/// A property that the host writes, or a gesture on a control of the form.
struct Step {
  const PartProperty* property = nullptr;  ///< null for a gesture
  Gesture gesture = Gesture::kClick;
  std::string control;              ///< the name of the gesture's control, such as "TxtExpr(1)"
  int number = UserGesture::kNone;  ///< the row or the page of the gesture
  String text;                      ///< the value of the property, or the text to type
};

/// Lines of the stored text and the lines that replace them; either can be empty.
struct Difference {
  int line = 1;  ///< in the stored text, from 1: the first of `stored`, or where `comes` come in
  std::vector<String> stored;
  std::vector<String> comes;
};

struct Opening {
  /// The steps that fill the pages of a new control which only has its catalogue. Empty when the
  /// text is no single statement, or none that the form can show.
  std::vector<Step> steps;
  /// The steps that then bring the text into the Result, as gestures of the person.
  std::vector<Step> finish;
  /// The Result of the dry run.
  String result;
  /// Empty when the text comes back unchanged, except for line breaks at its start.
  std::vector<Difference> differences;
  /// Why the text, or a clause of it, can't be shown on the pages, where that is known.
  std::vector<Problem> problems;

  bool IsEqual() const { return !steps.empty() && differences.empty(); }
};

/// Opens one select statement or control-flow statement, as the control wrote it at depth 0. Never
/// raises. Dry runs need a control each: one for most statements, up to a few dozen for odd ones.
Opening Open(StringView statement, const Catalogue& catalogue);

/// Plays steps. False when the form refused a gesture, which ends the play: the control or its
/// catalogue is not like those of the dry run. Runs the steps' handlers and raises their errors.
bool Play(ZOLT20MapControl& control, const std::vector<Step>& steps);

/// The lines of the two texts that differ.
std::vector<Difference> Compare(StringView stored, StringView comes);

}  // namespace zolt20::reopen
