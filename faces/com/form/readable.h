// Text colours with enough contrast to their background, whichever colours the system has.
#pragma once

#include <windows.h>

namespace zolt20::com {

/// The wanted colour if it can be read on `behind`; otherwise mixed with `plain`, the colour of
/// plain texts, until it can.
COLORREF Readable(COLORREF wanted, COLORREF plain, COLORREF behind);

/// A weaker but readable colour for less important texts: a mix of plain text's and its background.
COLORREF Quiet(COLORREF plain, COLORREF behind);

/// Whether the contrast ratio is at least 4.5 to 1.
bool CanBeRead(COLORREF text, COLORREF behind);

}  // namespace zolt20::com
