// What a page asks of the words that the faces add to the control's own: which there are, how an
// element says them, and what screen readers read out.
#include <utility>

#include "faces/shared/form_words.h"
#include "faces/shared/words.h"
#include "faces/web/element.h"
#include "faces/web/exchange.h"

using namespace zolt20;
using web::Element;
using web::Give;
using web::taken;

extern "C" {

ZOLT20_EXPORT(word_count) int word_count() {
  return static_cast<int>(faces::Word::kCount);
}
ZOLT20_EXPORT(word_key) void word_key(faces::Word word) {
  Give(faces::KeyOf(word));
}
/// As an element says it; without one in English.
ZOLT20_EXPORT(word_text) void word_text(Element* element, faces::Word word) {
  Give((element == nullptr ? faces::Words::English() : element->person().words())[word]);
}
/// An element says the text that came in instead.
ZOLT20_EXPORT(set_word) void set_word(Element* element, faces::Word word) {
  element->person().words().Set(word, std::exchange(taken, {}));
}
ZOLT20_EXPORT(clear_words) void clear_words(Element* element) {
  element->person().words().Clear();
}

/// The name of a control for screen readers.
ZOLT20_EXPORT(spoken_name) void spoken_name(Element* element, const Control* control) {
  Give(StringView(faces::AccessibleName(*control, element->person().words())));
}

/// What the last gesture changed, in words for those who do not see it; "" for nothing.
ZOLT20_EXPORT(words) void words(Element* element) {
  Give(StringView(element->person().TakeWords()));
}

}  // extern "C"
