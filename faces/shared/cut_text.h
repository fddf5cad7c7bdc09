// Texts that are too long for their place. Knows no platform.
#pragma once

#include <functional>

#include "surface/string.h"

namespace zolt20::faces {

/// The text, or as much of its beginning and its end as has room with "..." as one character in the
/// middle, at least one character. `width` tells how wide a text is, in the measure of `room`.
String CutInTheMiddle(const String& text, int room, const std::function<int(StringView)>& width);

}  // namespace zolt20::faces
