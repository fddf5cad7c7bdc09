#include "faces/shared/type_ahead.h"

#include <algorithm>

namespace zolt20::faces {

std::optional<int> TypeAhead::Find(const RowsControl& rows, int current, char16_t letter,
                                   unsigned time) {
  return FindAmong(
      rows.ListCount(), [&](int row) { return rows.List(row); }, current, letter, time);
}

std::optional<int> TypeAhead::Find(const DrawnRows& rows, int current, char16_t letter,
                                   unsigned time) {
  return FindAmong(
      rows.Count(), [&](int row) { return rows.TextOf(row); }, current, letter, time);
}

template <typename Text>
std::optional<int> TypeAhead::FindAmong(int count, const Text& text, int current, char16_t letter,
                                        unsigned time) {
  if (time - last_ > kSoon) typed_.clear();
  last_ = time;
  typed_ += letter;
  const bool isOneLetter = std::all_of(typed_.begin(), typed_.end(), [&](char16_t each) {
    return EqualIgnoringCase(StringView(&each, 1), StringView(&typed_.front(), 1));
  });
  const StringView wanted = StringView(typed_).substr(0, isOneLetter ? 1 : typed_.size());
  const int from = isOneLetter ? current + 1 : std::max(current, 0);
  for (int step = 0; step < count; ++step) {
    const int row = (from + step) % count;
    if (EqualIgnoringCase(Left(text(row), static_cast<int>(wanted.size())), wanted)) return row;
  }
  return std::nullopt;
}

}  // namespace zolt20::faces
