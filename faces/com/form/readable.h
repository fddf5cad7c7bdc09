// Colours of texts that can be read on what is behind them, whichever colours the system has.
#pragma once

#include <windows.h>

namespace zolt20::com {

/// The colour that is wanted, as far as it can be read there; otherwise so much nearer to that of
/// plain texts.
COLORREF Readable(COLORREF wanted, COLORREF plain, COLORREF behind);

/// For a text that stays in the background: some way from plain texts to what is behind them.
COLORREF Quiet(COLORREF plain, COLORREF behind);

/// Whether a contrast of 4.5 to 1 is there.
bool CanBeRead(COLORREF text, COLORREF behind);

}  // namespace zolt20::com
