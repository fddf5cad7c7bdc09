// What became of the lines of a text, as a question shows it.
#pragma once

#include <QString>

#include "surface/string.h"

namespace zolt20::composer {

/// Questions show no more lines of a text.
inline constexpr int kMostMarkedLines = 12;

/// The lines that go, behind "- ", and those that come, behind "+ "; "..." for more of them.
QString MarkedLines(StringView before, StringView after);

}  // namespace zolt20::composer
