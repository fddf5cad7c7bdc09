// Normalizing line ends: what a multi-line box shows of a text, and how a person's edit in the box
// maps back to the text. Knows no platform.
//
// A platform's box has one character for each line end. The text has line ends of any kind: CR LF,
// or one of the two alone. Those outside the place that is edited stay as they are; what is typed
// gets CR LF.
#pragma once

#include <cstddef>
#include <optional>

#include "surface/surface.h"

namespace zolt20::faces {

/// The text with the one character `lineEnd` for each of its line ends.
String Shown(StringView text, char16_t lineEnd);

/// The place in the text that is `shownCharacters` behind the place `from`, clamped to the end of
/// the text.
std::size_t PlaceInText(StringView text, std::size_t from, std::size_t shownCharacters);

/// The text after an edit: `removed` shown characters from the shown place `position` on are
/// replaced by `typed`, in which `lineEnd` is a line end.
String AfterEdit(StringView text, std::size_t position, std::size_t removed, StringView typed,
                 char16_t lineEnd);

/// The text with each line end, of any kind, replaced by CR LF, as pasted text is stored.
String WithLineEnds(StringView text);

/// An edit, as the difference (diff) of what was shown before and after it.
struct Edit {
  std::size_t position;
  std::size_t removed;
  std::size_t added;
};

/// The least edit that turns `before` into `after`. Where several do, as in a run of one letter, it
/// is the one that ends at `caret`, a place in `after`.
Edit EditBetween(StringView before, StringView after, std::size_t caret);

/// The edit that replaced the selection, the characters from `from` on and before `behind`, by what
/// stands before the caret, as typing and pasting do; the least edit if that does not give `after`.
Edit EditOfMark(StringView before, StringView after, std::size_t from, std::size_t behind,
                std::size_t caret);

/// The text of a box that a person types into: a text box, a syntax text box or an editable combo.
const String& TypedText(const Control& box);
/// The text of a text box or a syntax text box; none of any other control.
std::optional<String> TextOf(const Control& control);

}  // namespace zolt20::faces
