// Differential testing: a control and its reference, the plain walks, carry out the same requests
// of the automation host and are compared: results, events, errors, and all rows, marks and texts.
//
// Both have states that can be saved and restored, so that many sessions branch off one state.
#pragma once

#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/support/direct_road.h"
#include "tests/support/literal_calls.h"

namespace zolt20::tests {

/// A request, parsed once and carried out often.
struct Step {
  std::string line;       ///< the request as a line of a session
  DirectCall onControl;   ///< empty for an answer
  LiteralCall onLiteral;  ///< empty for an answer
  std::string event;      ///< the event that an answer is for
  std::vector<Step> answer{};
};

/// Parses a request. Throws for one that only a host program carries out, such as "new".
Step StepOf(const nlohmann::ordered_json& request);

class BothForms final : private ControlHost {
 public:
  struct State {
    ControlSnapshot control;
    LiteralForm literal;
  };

  /// A new control and a new form.
  BothForms();

  /// Carries out the step on both. False, and nothing done, for a gesture that the control refuses.
  bool Do(const Step& step);
  /// The first difference of the two after the steps since the last call, or "".
  std::string Difference();

  /// Saves the state, of which answers are no part.
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

/// A hash of the whole state of a control, without the parts on which no later result, event, error
/// or text depends: the tab order, and which control has the focus among those without a focus
/// handler.
std::size_t DigestOf(const ZOLT20MapControl& control);

}  // namespace zolt20::tests
