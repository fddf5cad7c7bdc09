// The whole state of a surface as JSON: what a face would show.
#pragma once

#include <nlohmann/json.hpp>

#include "surface/surface.h"

namespace zolt20::automation {

/// `{"controls":{NAME:{...},...},"focus":NAME or null}`, the controls in the order of the form's
/// list, loaded elements last.
nlohmann::ordered_json Dump(const Surface& form);

}  // namespace zolt20::automation
