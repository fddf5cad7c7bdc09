// The steps that are tortured: requests of the automation host, as the recorded sessions of
// examples/ have them, and a session made by hand that reaches every handler of the control and
// every member of its contract.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "surface/surface.h"

namespace zolt20::tests {

/// Requests that reach a handler, and where that shows.
struct HandlerStep {
  std::string handler;  ///< "" for steps on the way
  std::vector<nlohmann::ordered_json> requests;
  /// What the handler changes on the form and the gesture alone does not: "CONTROL.PROPERTY" of a
  /// dump. "log" where the handler tells the host.
  std::string changed;
};

const std::vector<HandlerStep>& HandlerSession();

/// The request as the automation host takes it: an "entry" becomes the "row" of that text.
nlohmann::ordered_json WithRow(nlohmann::ordered_json request, const Surface& form);

}  // namespace zolt20::tests
