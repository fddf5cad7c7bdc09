// Exports of the WebAssembly module for the custom element with a box of statements. A box has a
// text with line ends of any kind, and a shown text, in which each line end is one character. Texts
// of a script come in `taken`, texts for it are left in `given`.
#include <algorithm>
#include <cstddef>
#include <utility>

#include "faces/shared/shown_text.h"
#include "faces/shared/statement_colors.h"
#include "faces/web/exchange.h"

using namespace zolt20;
using web::given;
using web::taken;

extern "C" {

// Boxes.

ZOLT20_EXPORT(make) String* make() {
  return new String();
}
ZOLT20_EXPORT(destroy) void destroy(String* box) {
  delete box;
}

ZOLT20_EXPORT(box_text) void box_text(const String* box) {
  given = *box;
}
/// Replaces the text of the box by `taken`.
ZOLT20_EXPORT(set_box_text) void set_box_text(String* box) {
  *box = std::exchange(taken, {});
}
/// A person's edit: `taken` is the shown text after it, with `lineEnd` for each line end, `caret`
/// the place of the caret in it. Line ends outside of the edit stay as they are.
ZOLT20_EXPORT(type) void type(String* box, int caret, int lineEnd) {
  const String shown = std::exchange(taken, {});
  const auto end = static_cast<char16_t>(lineEnd);
  const auto place = std::min(static_cast<std::size_t>(caret), shown.size());
  const faces::Edit edit = faces::EditBetween(faces::Shown(*box, end), shown, place);
  *box = faces::AfterEdit(*box, edit.position, edit.removed,
                          StringView(shown).substr(edit.position, edit.added), end);
}

/// The text of a box with one character for each line end.
ZOLT20_EXPORT(shown_text) void shown_text(const String* box, int lineEnd) {
  given = faces::Shown(*box, static_cast<char16_t>(lineEnd));
}
/// The part of a box's text for the shown characters from `first` on and before `behind`.
ZOLT20_EXPORT(text_between) void text_between(const String* box, int first, int behind) {
  const std::size_t start = faces::PlaceInText(*box, 0, static_cast<std::size_t>(first));
  const std::size_t end = faces::PlaceInText(*box, start, static_cast<std::size_t>(behind - first));
  given = box->substr(start, end - start);
}
/// Maps a place in a box's text to the place in its shown text.
ZOLT20_EXPORT(shown_place) int shown_place(const String* box, int place) {
  const StringView before = StringView(*box).substr(0, static_cast<std::size_t>(place));
  return static_cast<int>(faces::Shown(before, u'\n').size());
}

}  // extern "C"
