// A request of the automation host as a call of the plain walks, the way direct_road.h has it for
// the control.
#pragma once

#include <functional>
#include <nlohmann/json.hpp>

#include "shell/control.h"
#include "tests/support/literal_walks.h"

namespace zolt20::tests {

/// What a read gives.
using LiteralCall = std::function<Variant(LiteralForm&)>;

/// The call that a "set", "get", "call" or "user" request asks for.
LiteralCall LiteralCallOf(const nlohmann::ordered_json& request);

}  // namespace zolt20::tests
