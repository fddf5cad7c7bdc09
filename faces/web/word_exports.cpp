// Exports for the words that the faces add to the control's own: their keys, their texts in an
// element, and what screen readers read out.
#include <utility>

#include "faces/shared/form_words.h"
#include "faces/shared/words.h"
#include "faces/web/element.h"
#include "faces/web/exchange.h"

using namespace zolt20;
using web::Give;
using web::MapElement;
using web::taken;

extern "C" {

ZOLT20_EXPORT(word_count) int word_count() {
  return static_cast<int>(faces::Word::kCount);
}
ZOLT20_EXPORT(word_key) void word_key(faces::Word word) {
  Give(faces::KeyOf(word));
}
/// The text of a word in an element; the English one without an element.
ZOLT20_EXPORT(word_text) void word_text(MapElement* element, faces::Word word) {
  Give((element == nullptr ? faces::Words::English() : element->person().words())[word]);
}
/// Replaces the text of a word in an element by `taken`.
ZOLT20_EXPORT(set_word) void set_word(MapElement* element, faces::Word word) {
  element->person().words().Set(word, std::exchange(taken, {}));
}
ZOLT20_EXPORT(clear_words) void clear_words(MapElement* element) {
  element->person().words().Clear();
}

/// The accessible name of a control.
ZOLT20_EXPORT(spoken_name) void spoken_name(MapElement* element, const Control* control) {
  Give(StringView(faces::AccessibleName(*control, element->person().words())));
}

/// Takes the sentence for screen readers on what the last gesture changed; "" for nothing.
ZOLT20_EXPORT(words) void words(MapElement* element) {
  Give(StringView(element->person().TakeWords()));
}

}  // extern "C"
