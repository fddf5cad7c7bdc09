// Exports for the lists of a page, which are virtual lists: drawn rows and their texts, keys,
// type-ahead. A row number counts drawn rows, unless a comment says "of the control".
#include <cstdint>
#include <map>
#include <utility>

#include "faces/shared/list_keys.h"
#include "faces/shared/type_ahead.h"
#include "faces/web/element.h"
#include "faces/web/exchange.h"

using namespace zolt20;
using web::given;
using web::MapElement;
using web::numbers;
using web::taken;

namespace {

// The type-ahead, and the list that its letters were typed in.
faces::TypeAhead typed;
const RowsControl* typedIn = nullptr;

// Display names of rows, keyed by text: those of add_name, until a list takes them.
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

/// Filters a list: from now on it draws only rows that contain the text in
/// `taken`.
ZOLT20_EXPORT(set_filter) void set_filter(MapElement* element, const RowsControl* list) {
  element->Drawn(*list).SetFilter(std::exchange(taken, {}));
}
/// Adds a display name: the first `length` characters of `taken` are a row's text, the rest its
/// name.
ZOLT20_EXPORT(add_name) void add_name(int length) {
  const String both = std::exchange(taken, {});
  const auto behind = static_cast<std::size_t>(length);
  names.insert_or_assign(both.substr(0, behind), both.substr(behind));
}
/// Gives the list's rows the names that add_name took since the last call.
ZOLT20_EXPORT(name_rows) void name_rows(MapElement* element, const RowsControl* list) {
  element->Drawn(*list).NameRows(std::exchange(names, {}));
}
ZOLT20_EXPORT(drawn_count) int drawn_count(MapElement* element, const RowsControl* list) {
  return element->Drawn(*list).Count();
}
/// Maps a drawn row to the row of the control, and back; -1 for none.
ZOLT20_EXPORT(control_row)
int control_row(MapElement* element, const RowsControl* list, int drawn) {
  return element->Drawn(*list).ControlRow(drawn);
}
ZOLT20_EXPORT(drawn_row) int drawn_row(MapElement* element, const RowsControl* list, int row) {
  return element->Drawn(*list).DrawnRow(row);
}
/// The sentence about marked rows that the filter hides, "" when it hides none.
ZOLT20_EXPORT(hidden_marks) void hidden_marks(MapElement* element, const RowsControl* list) {
  given = element->Drawn(*list).HiddenMarks(element->person().words());
}
/// The texts of these rows, each with its name behind it. Four numbers a row: the row of the
/// control, both lengths, and 1 when it is marked.
ZOLT20_EXPORT(drawn_rows)
void drawn_rows(MapElement* element, const RowsControl* list, int first, int count) {
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
/// The texts of these rows of the control, one behind the other. Two numbers a row: its length, and
/// 1 when it is marked.
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

// Three numbers: the row that a key leads to, -1 for none; whether it becomes the current row; the
// gesture that the person makes of it, -1 for none.
ZOLT20_EXPORT(list_key)
void list_key(faces::ListKey key, int current, int count, int page, int isSingle) {
  const faces::ListStep step = faces::StepOf(key, {current, count, page, isSingle != 0});
  numbers = {step.row, step.moves ? 1 : 0, step.gesture ? static_cast<int>(*step.gesture) : -1};
}
// Type-ahead: the row that the typed letters lead to, -1 for none; `time` in milliseconds. Letters
// typed in another list before are forgotten.
ZOLT20_EXPORT(type_ahead)
int type_ahead(MapElement* element, const RowsControl* list, int current, char16_t letter,
               unsigned time) {
  if (std::exchange(typedIn, list) != list) typed = {};
  return typed.Find(element->Drawn(*list), current, letter, time).value_or(-1);
}

}  // extern "C"
