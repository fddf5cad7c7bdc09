#include "faces/shared/type_ahead.h"

#include <algorithm>

namespace zolt20::faces {

std::optional<int> TypeAhead::Find(const RowsControl& rows, int current, char16_t letter,
                                   unsigned time) {
  return FindFrom(rows, Take(letter, time, current));
}

std::optional<int> TypeAhead::Find(const DrawnRows& rows, int current, char16_t letter,
                                   unsigned time) {
  const int from = Take(letter, time, current);
  return Search(
      rows.Count(), [&](int row) { return rows.TextOf(row); }, from);
}

std::optional<int> TypeAhead::FindFrom(const RowsControl& rows, int from) const {
  return Search(
      rows.ListCount(), [&](int row) { return rows.List(row); }, from);
}

template <typename Text>
std::optional<int> TypeAhead::Search(int count, const Text& text, int from) const {
  const StringView wanted = StringView(typed_).substr(0, IsOneLetter() ? 1 : typed_.size());
  for (int step = 0; step < count; ++step) {
    const int row = (from + step) % count;
    if (EqualIgnoringCase(Left(text(row), static_cast<int>(wanted.size())), wanted)) return row;
  }
  return std::nullopt;
}

int TypeAhead::Take(char16_t letter, unsigned time, int current) {
  if (time - last_ > kSoon) typed_.clear();
  last_ = time;
  typed_ += letter;
  return IsOneLetter() ? current + 1 : std::max(current, 0);
}

bool TypeAhead::IsOneLetter() const {
  return std::all_of(typed_.begin(), typed_.end(), [this](char16_t each) {
    return EqualIgnoringCase(StringView(&each, 1), StringView(&typed_.front(), 1));
  });
}

}  // namespace zolt20::faces
