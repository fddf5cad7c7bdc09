// The control of an opening's dry run. It does each step at once and records it.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "language/opening.h"

namespace zolt20::reopen {

class OwnControl final : private ControlHost {
 public:
  explicit OwnControl(const Catalogue& catalogue);

  const Surface& Form() const { return control_.Form(); }
  /// The indentation, in tabs, of the statement that was added last.
  int Depth() const { return control_.prpintTabcount().value(); }

  // Each raises the errors of its step. After a refused gesture further steps do nothing.

  void Write(String Parts::*part, StringView value);
  void Click(const Control& button);
  void Click(const Control& list, int row);
  void Type(const Control& box, StringView text);
  void Tab(int page);

  bool WasRefused() const { return wasRefused_; }
  /// The steps that were done since the last call.
  std::vector<Step> TakeSteps() { return std::exchange(steps_, {}); }

 private:
  void Do(Step step);

  void eventCancel() override {}
  void eventDone() override {}
  void eventSubQuery() override {}
  void eventCondition() override {}
  void eventFunction() override {}
  void PropertyChanged(std::string_view /*property*/) override {}
  void ShowMessage(const Message& /*message*/) override {}

  ZOLT20MapControl control_{*this};
  std::vector<Step> steps_;
  bool wasRefused_ = false;
};

/// Makes an opening by a dry run: `fill` does the steps, `finish` those that make the Result. The
/// opening has no steps if one of the two fails.
using Doing = std::function<void(OwnControl& control)>;
Opening Try(StringView statement, const Catalogue& catalogue, const Doing& fill,
            const Doing& finish);

/// Opening a select statement, and a control-flow statement; see Open. The text has no line breaks
/// at its start.
Opening OpenSelect(StringView statement, const Catalogue& catalogue);
Opening OpenCondition(StringView statement, const Catalogue& catalogue);

/// Replaces `best` by the better of the two. An opening without steps never replaces another; one
/// with steps replaces one without, or one whose differences to the stored text have more lines.
void KeepBetter(Opening& best, Opening opening);

}  // namespace zolt20::reopen
