// The changed lines between two texts, for the text of a question.
#pragma once

#include <QString>

#include "surface/string.h"

namespace zolt20::composer {

/// The largest number of lines that a question shows.
inline constexpr int kMostMarkedLines = 12;

/// Removed lines begin with "- ", added ones with "+ "; a last line "..." stands for the rest.
QString MarkedLines(StringView before, StringView after);

}  // namespace zolt20::composer
