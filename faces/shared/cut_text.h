// Eliding texts that are too long for their place. Knows no platform.
#pragma once

#include <functional>

#include "surface/string.h"

namespace zolt20::faces {

/// The text if it fits, else elided in the middle: as much of its beginning and end as fits around
/// one ellipsis character. At least one character of the text stays, even if that does not fit.
/// `width` measures in the unit of `room`.
String CutInTheMiddle(const String& text, int room, const std::function<int(StringView)>& width);

}  // namespace zolt20::faces
