// What the lists of a page ask: their rows, where keys go, what typed letters find.
#include <cstdint>
#include <utility>

#include "faces/shared/list_keys.h"
#include "faces/shared/type_ahead.h"
#include "faces/web/exchange.h"
#include "surface/list_box.h"

using namespace zolt20;
using web::given;
using web::numbers;

namespace {

// What was typed in a list last.
faces::TypeAhead typed;
const RowsControl* typedIn = nullptr;

}  // namespace

extern "C" {

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
int type_ahead(const RowsControl* list, int current, char16_t letter, unsigned time) {
  if (std::exchange(typedIn, list) != list) typed = {};
  return typed.Find(*list, current, letter, time).value_or(-1);
}
// The next row that they go to, from there on.
ZOLT20_EXPORT(type_ahead_from) int type_ahead_from(const RowsControl* list, int from) {
  return typed.FindFrom(*list, from).value_or(-1);
}
/// The texts of these rows, one behind the other; their lengths, each followed by its mark.
ZOLT20_EXPORT(rows) void rows(const RowsControl* list, int first, int count) {
  given.clear();
  numbers.clear();
  const auto* marked = list->kind() == Kind::ListBox ? static_cast<const ListBox*>(list) : nullptr;
  for (int row = first; row < first + count; ++row) {
    const StringView text = list->List(row);
    given += text;
    numbers.push_back(static_cast<std::int32_t>(text.size()));
    numbers.push_back(marked != nullptr && marked->Selected(row) ? 1 : 0);
  }
}

}  // extern "C"
