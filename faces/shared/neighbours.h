// Where the Tab and arrow keys move the focus. Knows no platform.
#pragma once

#include "surface/surface.h"

namespace zolt20::faces {

/// The next control of the current tab order, or backwards the one before, that is shown, enabled
/// and takes the focus. Counts from `from`, or with nullptr from the start of the order (backwards
/// from its end). nullptr when there is none left.
const Control* NextInTabOrder(const Surface& form, const Control* from, bool forward);

/// The option button to which an arrow key goes, within the same frame; nullptr at the end.
const Control* NextOption(const Surface& form, const Control& option, bool forward);

}  // namespace zolt20::faces
