// What the lists of a page ask: which rows are drawn, their texts, where keys go, what typed
// letters find. Rows are counted as they are drawn, where nothing else is said.
#include <cstdint>
#include <map>
#include <utility>

#include "faces/shared/list_keys.h"
#include "faces/shared/type_ahead.h"
#include "faces/web/element.h"
#include "faces/web/exchange.h"

using namespace zolt20;
using web::Element;
using web::given;
using web::numbers;
using web::taken;

namespace {

// What was typed in a list last.
faces::TypeAhead typed;
const RowsControl* typedIn = nullptr;

// Names of rows that came in, by text, until a list takes them.
std::map<String, String> names;

std::int32_t Length(StringView text) {
  return static_cast<std::int32_t>(text.size());
}

bool IsMarked(const RowsControl& list, int row) {
  return list.kind() == Kind::ListBox && static_cast<const ListBox&>(list).Selected(row);
}

}  // namespace

extern "C" {

// Which rows are drawn.

/// Only rows that hold the text that came in are drawn from now on.
ZOLT20_EXPORT(set_filter) void set_filter(Element* element, const RowsControl* list) {
  element->Drawn(*list).SetFilter(std::exchange(taken, {}));
}
/// Of the text that came in so much is the text of rows, what follows their name.
ZOLT20_EXPORT(add_name) void add_name(int length) {
  const String both = std::exchange(taken, {});
  const auto behind = static_cast<std::size_t>(length);
  names.insert_or_assign(both.substr(0, behind), both.substr(behind));
}
/// The rows have the names that came in since the last call.
ZOLT20_EXPORT(name_rows) void name_rows(Element* element, const RowsControl* list) {
  element->Drawn(*list).NameRows(std::exchange(names, {}));
}
ZOLT20_EXPORT(drawn_count) int drawn_count(Element* element, const RowsControl* list) {
  return element->Drawn(*list).Count();
}
/// The row of the control that is drawn there, and back; -1 for none.
ZOLT20_EXPORT(control_row) int control_row(Element* element, const RowsControl* list, int drawn) {
  return element->Drawn(*list).ControlRow(drawn);
}
ZOLT20_EXPORT(drawn_row) int drawn_row(Element* element, const RowsControl* list, int row) {
  return element->Drawn(*list).DrawnRow(row);
}
/// What to say of marks that a filter hides.
ZOLT20_EXPORT(hidden_marks) void hidden_marks(Element* element, const RowsControl* list) {
  given = element->Drawn(*list).HiddenMarks(element->person().words());
}
/// The texts of these rows, each with its name behind it; for each row that of the control, the two
/// lengths and its mark.
ZOLT20_EXPORT(drawn_rows)
void drawn_rows(Element* element, const RowsControl* list, int first, int count) {
  const faces::DrawnRows& drawn = element->Drawn(*list);
  given.clear();
  numbers.clear();
  for (int at = first; at < first + count; ++at) {
    const int row = drawn.ControlRow(at);
    const StringView text = list->List(row);
    const StringView name = drawn.NameOf(row);
    given += text;
    given += name;
    numbers.insert(numbers.end(), {row, Length(text), Length(name), IsMarked(*list, row) ? 1 : 0});
  }
}
/// The texts of these rows of the control, one behind the other; their lengths, each followed by
/// its mark.
ZOLT20_EXPORT(rows) void rows(const RowsControl* list, int first, int count) {
  given.clear();
  numbers.clear();
  for (int row = first; row < first + count; ++row) {
    const StringView text = list->List(row);
    given += text;
    numbers.insert(numbers.end(), {Length(text), IsMarked(*list, row) ? 1 : 0});
  }
}

// Keys.

// The row that the key of a list goes to, -1 for no step; whether the keys stand there from now on;
// the gesture that is made of it, -1 for none.
ZOLT20_EXPORT(list_key)
void list_key(faces::ListKey key, int current, int count, int page, int isSingle) {
  const faces::ListStep step = faces::StepOf(key, {current, count, page, isSingle != 0});
  numbers = {step.row, step.moves ? 1 : 0, step.gesture ? static_cast<int>(*step.gesture) : -1};
}
// The row that letters typed in a list go to, -1 for none. What was typed in another list before is
// forgotten.
ZOLT20_EXPORT(type_ahead)
int type_ahead(Element* element, const RowsControl* list, int current, char16_t letter,
               unsigned time) {
  if (std::exchange(typedIn, list) != list) typed = {};
  return typed.Find(element->Drawn(*list), current, letter, time).value_or(-1);
}

}  // extern "C"
