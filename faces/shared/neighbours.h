// Where the keys go from a control. Knows no platform.
#pragma once

#include "surface/surface.h"

namespace zolt20::faces {

/// The control to which the Tab key goes, or with Shift the other way, as the tab order stands now:
/// the next one that is shown, enabled and takes the focus. From none it is the first. None at the
/// end.
const Control* NextInTabOrder(const Surface& form, const Control* from, bool forward);

/// The option to which an arrow key goes, of those in the same frame; none at the end.
const Control* NextOption(const Surface& form, const Control& option, bool forward);

}  // namespace zolt20::faces
