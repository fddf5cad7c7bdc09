// Accessibility: the accessible names of controls for screen readers, and their mnemonics (the
// letters that work with Alt). Knows no platform.
#pragma once

#include "faces/shared/words.h"
#include "surface/control.h"

namespace zolt20::faces {

/// The accessible name, for screen readers. No two controls of a kind have the same.
String AccessibleName(const Control& control, const Words& words = Words::English());

/// The word by which screen readers tell that a row was marked or unmarked.
inline StringView MarkWord(bool isMarked) {
  return Words::English()[isMarked ? Word::selected : Word::unselected];
}

/// The mnemonic of a button or option: its letter for Alt, 0 for none. Unique on each page.
char16_t MnemonicOf(const Control& control);

/// The caption of a button or option, with "&" before the mnemonic and each "&" of the caption
/// escaped as "&&". Nothing else is added, since the captions belong to the contract.
String CaptionWithMnemonic(const Control& control);

}  // namespace zolt20::faces
