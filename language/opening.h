// A stored statement back on the form, proven: the steps that fill the pages of a control, so that
// what the person does next, Add To Result or Add and Build Condition, writes the same text again.
//
// The steps are made, played and finished on a control of its own with the same catalogue before
// anything is shown. So it is known whether each byte comes back, and if not, which lines differ.
// What properties can carry is written to them; the rest is done by gestures, as a person would.
// Hosts call this; it uses the public members of the control alone.
#pragma once

#include <string>
#include <vector>

#include "language/reopen.h"
#include "shell/control.h"

namespace zolt20::reopen {

/// What the host hands over before anything else: the values of PrpStrTables and PrpStrFields.
struct Catalogue {
  String tables;
  String fields;
};

/// A property that the host writes, or a gesture on a control of the form.
struct Step {
  const PartProperty* property = nullptr;  ///< null for a gesture
  Gesture gesture = Gesture::kClick;
  std::string control;              ///< by its name, such as "TxtExpr(1)"; of a gesture
  int number = UserGesture::kNone;  ///< the row or the page of the gesture
  String text;                      ///< of the property, or what is typed
};

/// Lines of the stored text and what comes in their place; either can be none.
struct Difference {
  int line = 1;  ///< of the stored text, from 1: the first of `stored`, or the one behind it
  std::vector<String> stored;
  std::vector<String> comes;
};

struct Opening {
  /// Fill the pages of a control that has its catalogue and on which nothing was done yet. Empty
  /// when the text is no single statement, or none that the form can show.
  std::vector<Step> steps;
  /// What the person does then for the text to come into the Result.
  std::vector<Step> finish;
  /// What comes: the Result of the control of its own.
  String result;
  /// None when the text comes back as it is, but for line breaks at its start.
  std::vector<Difference> differences;
  /// Why the text, or a clause of it, can't be shown on the pages, where that is known.
  std::vector<Problem> problems;

  bool IsEqual() const { return !steps.empty() && differences.empty(); }
};

/// One select statement, or one control-flow statement, as the control wrote it at depth 0. Never
/// raises. Makes controls: one for most statements, up to a few dozen for odd ones.
Opening Open(StringView statement, const Catalogue& catalogue);

/// Plays steps. False when a gesture was refused, which ends it; then the control or its catalogue
/// is not like the one that the steps were made for. Runs and raises what the steps run.
bool Play(ZOLT20MapControl& control, const std::vector<Step>& steps);

/// The lines of the two texts that differ.
std::vector<Difference> Compare(StringView stored, StringView comes);

}  // namespace zolt20::reopen
