// What a box of several lines shows of a text, and what a person's edit makes of the text. Knows no
// platform.
//
// A platform's box has one character for each line end. The text has line ends of any kind: CR LF,
// or one of the two alone. Those outside the place that is edited stay as they are; what is typed
// gets CR LF.
#pragma once

#include <cstddef>
#include <optional>

#include "surface/surface.h"

namespace zolt20::faces {

/// The text with the one character for each of its line ends.
String Shown(StringView text, char16_t lineEnd);

/// The place in the text that lies so many shown characters behind the place `from`; the end of the
/// text beyond it.
std::size_t PlaceInText(StringView text, std::size_t from, std::size_t shownCharacters);

/// The text after an edit: `removed` shown characters from the shown place `position` on are gone,
/// and `typed`, in which `lineEnd` is a line end, stands there.
String AfterEdit(StringView text, std::size_t position, std::size_t removed, StringView typed,
                 char16_t lineEnd);

/// The text with CR LF for each of its line ends of any kind, as what comes by paste is taken.
String WithLineEnds(StringView text);

/// An edit, as the difference of what was shown before and after it.
struct Edit {
  std::size_t position;
  std::size_t removed;
  std::size_t added;
};

/// The least edit that makes `after` of `before`. Where several do, as in a run of one letter, it
/// is the one that ends at the caret, a place in `after`.
Edit EditBetween(StringView before, StringView after, std::size_t caret);

/// The edit that put what stands before the caret in the place of the characters from `from` on and
/// before `behind`, as typing and pasting do; the least one when another edit made `after`.
Edit EditOfMark(StringView before, StringView after, std::size_t from, std::size_t behind,
                std::size_t caret);

/// The text of a box that a person types into: a text box, a syntax text box or an editable combo.
const String& TypedText(const Control& box);
/// The text of a text box or a syntax text box; none of any other control.
std::optional<String> TextOf(const Control& control);

}  // namespace zolt20::faces
