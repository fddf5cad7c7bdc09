#include "faces/shared/list_keys.h"

#include <algorithm>

namespace zolt20::faces {

ListStep StepOf(ListKey key, const ListPlace& place) {
  const auto to = [&place](int row) {
    return StepTo(std::clamp(row, 0, place.count - 1), place.isSingle);
  };
  if (place.count == 0) return {};
  switch (key) {
    case ListKey::kUp:
      return to(place.current - 1);
    case ListKey::kDown:
      return to(place.current + 1);
    case ListKey::kPageUp:
      return to(place.current - place.page);
    case ListKey::kPageDown:
      return to(place.current + place.page);
    case ListKey::kHome:
      return to(0);
    case ListKey::kEnd:
      return to(place.count - 1);
    case ListKey::kSpace:
      return {place.current, false, Gesture::kClickRow};
    case ListKey::kEnter:
      return {place.current, false, Gesture::kDoubleClickRow};
  }
  return {};
}

ListStep StepTo(int row, bool isSingle) {
  return {row, true, isSingle ? std::optional(Gesture::kClickRow) : std::nullopt};
}

Gesture RowPresses::GestureOf(int row, bool isCountedTwo) {
  const bool isSecond = isCountedTwo && row == first_;
  first_ = isSecond ? -1 : row;
  return isSecond ? Gesture::kDoubleClickRow : Gesture::kClickRow;
}

}  // namespace zolt20::faces
