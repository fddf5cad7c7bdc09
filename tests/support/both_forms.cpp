#include "tests/support/both_forms.h"

#include <utility>

#include "hosts/kit/text_coding.h"

namespace zolt20::tests {
namespace {

using Json = nlohmann::ordered_json;

std::string TextOf(const Variant& value) {
  if (const auto* text = std::get_if<String>(&value)) return hosts::ToJsonText(*text);
  if (const auto* number = std::get_if<Integer>(&value)) return std::to_string(number->value());
  if (const auto* flag = std::get_if<bool>(&value)) return *flag ? "true" : "false";
  return "";
}

std::string ErrorLine(ErrorKind kind) {
  return "error " + std::string(RuntimeError(kind).kind_word());
}

// Runs an action. If the control or the walks raise an error, logs it and gives false.
template <typename Action>
bool Completes(std::vector<std::string>& log, const Action& action) {
  try {
    action();
    return true;
  } catch (const RuntimeError& error) {
    log.push_back("error " + std::string(error.kind_word()));
  } catch (const LiteralError& error) {
    log.push_back(ErrorLine(error.kind));
  }
  return false;
}

std::string Joined(const std::vector<std::string>& log) {
  std::string text;
  for (const std::string& line : log)
    text += "\n  " + line;
  return text.empty() ? " nothing" : text;
}

}  // namespace

Step StepOf(const Json& request) {
  Step step;
  step.line = request.dump();
  if (request.contains("answer")) {
    step.event = request["answer"];
    for (const Json& action : request["with"])
      step.answer.push_back(StepOf(action));
    return step;
  }
  step.onControl = CallOf(request);
  step.onLiteral = LiteralCallOf(request);
  return step;
}

BothForms::BothForms() {
  ControlHost& host = *this;
  control_ = std::make_unique<ZOLT20MapControl>(host);
  control_->UserControl_InitProperties();
}

void BothForms::Restore(const State& state) {
  control_->Restore(state.control);
  literal_ = state.literal;
}

bool BothForms::Do(const Step& step) {
  if (!step.event.empty()) {
    answers_[step.event] = step.answer;
    return true;
  }
  bool isRefused = false;
  Completes(log_, [&] {
    const CallResult result = step.onControl(*control_);
    isRefused = result.outcome != Outcome::kDone;
    if (const std::string value = TextOf(result.value); !value.empty()) log_.push_back(value);
  });
  if (isRefused) return false;
  literal_.tell = [this](const std::string& what) { LiteralTold(literal_, what); };
  Completes(literalLog_, [&] {
    if (const std::string value = TextOf(step.onLiteral(literal_)); !value.empty())
      literalLog_.push_back(value);
  });
  return true;
}

std::string BothForms::Difference() {
  const std::string form = tests::Difference(ImageOf(control_->Form()), literal_.Image());
  std::string told;
  if (log_ != literalLog_)
    told = "the control told" + Joined(log_) + "\nthe walk told" + Joined(literalLog_);
  log_.clear();
  literalLog_.clear();
  if (!form.empty()) return form;
  if (!told.empty()) return told;
  if (control_->prpintTabcount() != literal_.prpintTabcount()) return "the depths differ";
  if (control_->prpStrSQLPart() != literal_.prpStrSQLPart()) return "the page codes differ";
  return "";
}

void BothForms::PropertyChanged(std::string_view property) {
  Told("changed " + std::string(property));
}

void BothForms::ShowMessage(const Message& message) {
  Told("message " + hosts::ToJsonText(message.text));
}

void BothForms::Told(const std::string& what) {
  log_.push_back(what + " at " + StampOf(ImageOf(control_->Form())));
}

void BothForms::Raised(const std::string& event) {
  Told(event);
  for (const Step& step : answers_[event]) {
    const bool goesOn = Completes(log_, [&] {
      if (const std::string value = TextOf(step.onControl(*control_).value); !value.empty())
        log_.push_back(value);
    });
    if (!goesOn) return;
  }
}

void BothForms::LiteralTold(LiteralForm& form, const std::string& what) {
  literalLog_.push_back(what);
  for (const Step& step : answers_[what.substr(0, what.find(' '))]) {
    const bool goesOn = Completes(literalLog_, [&] {
      if (const std::string value = TextOf(step.onLiteral(form)); !value.empty())
        literalLog_.push_back(value);
    });
    if (!goesOn) return;
  }
}

}  // namespace zolt20::tests
