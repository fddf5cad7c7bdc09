// What the controls are called: for screen readers, and the letters that work with Alt. Knows no
// platform.
#pragma once

#include "faces/shared/words.h"
#include "surface/control.h"

namespace zolt20::faces {

/// The name for screen readers. No two controls of a kind have the same.
String AccessibleName(const Control& control, const Words& words = Words::English());

/// What becomes of a row whose mark is made or taken, as screen readers word it.
inline StringView MarkWord(bool isMarked) {
  return Words::English()[isMarked ? Word::selected : Word::unselected];
}

/// The letter of a button or option that works with Alt, 0 for none; no two on a page are the same.
char16_t MnemonicOf(const Control& control);

/// The caption of a button or option, with "&" before that letter, and "&&" for an "&" of its own.
/// A caption of the contract, so nothing else is added.
String CaptionWithMnemonic(const Control& control);

}  // namespace zolt20::faces
