// Turns a request of the automation host into a call of the plain walks, as direct_road.h does for
// the control.
#pragma once

#include <functional>
#include <nlohmann/json.hpp>

#include "shell/control.h"
#include "tests/support/literal_walks.h"

namespace zolt20::tests {

/// A call on the form; gives the value of a read.
using LiteralCall = std::function<Variant(LiteralForm&)>;

/// The call that a "set", "get", "call" or "user" request asks for.
LiteralCall LiteralCallOf(const nlohmann::ordered_json& request);

}  // namespace zolt20::tests
