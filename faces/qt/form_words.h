// What the controls are called: for screen readers, and the letters that work with Alt.
#pragma once

#include <QString>

#include "surface/control.h"

namespace zolt20::qt {

/// The name for screen readers. No two controls of a kind have the same.
QString AccessibleName(const Control& control);

/// The caption of a button or option, with "&" before the letter that works with Alt. A caption of
/// the contract, so nothing else is added.
QString CaptionWithMnemonic(const Control& control);

}  // namespace zolt20::qt
