// A control and the plain walks, led through the same requests of the automation host and held
// against each other: results, events, errors, and all rows, marks and texts of the form.
//
// Both are values here: a state is taken and put back, so that many sessions go on from one.
#pragma once

#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/support/direct_road.h"
#include "tests/support/literal_calls.h"

namespace zolt20::tests {

/// A request, read once and carried out often.
struct Step {
  std::string line;       ///< as it stands in a session
  DirectCall onControl;   ///< empty for an answer
  LiteralCall onLiteral;  ///< empty for an answer
  std::string event;      ///< of an answer
  std::vector<Step> answer{};
};

/// Throws for a request that only a host program has, such as "new".
Step StepOf(const nlohmann::ordered_json& request);

class BothForms final : private ControlHost {
 public:
  struct State {
    ControlSnapshot control;
    LiteralForm literal;
  };

  /// A new control and a new form.
  BothForms();

  /// Carries the step out on both. A gesture that the control refuses, false, is none.
  bool Do(const Step& step);
  /// In what the two differ after the steps since the last call, or "".
  std::string Difference();

  /// The answers are no part of a state.
  State Save() const { return {control_->Save(), literal_}; }
  void Restore(const State& state);

  const ZOLT20MapControl& Control() const { return *control_; }
  const LiteralForm& Literal() const { return literal_; }

 private:
  void eventCancel() override { Raised("eventCancel"); }
  void eventDone() override { Raised("eventDone"); }
  void eventSubQuery() override { Raised("eventSubQuery"); }
  void eventCondition() override { Raised("eventCondition"); }
  void eventFunction() override { Raised("eventFunction"); }
  void PropertyChanged(std::string_view property) override;
  void ShowMessage(const Message& message) override;

  void Raised(const std::string& event);
  void Told(const std::string& what);
  void LiteralTold(LiteralForm& form, const std::string& what);

  std::unique_ptr<ZOLT20MapControl> control_;
  LiteralForm literal_;
  std::map<std::string, std::vector<Step>> answers_;
  std::vector<std::string> log_;
  std::vector<std::string> literalLog_;
};

/// A number that stands for the whole state of a control but for what no later result, event, error
/// or text depends on: the tab order, and which of the controls has the focus that do nothing when
/// they get it.
std::size_t DigestOf(const ZOLT20MapControl& control);

}  // namespace zolt20::tests
