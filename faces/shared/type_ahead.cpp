#include "faces/shared/type_ahead.h"

#include <algorithm>

namespace zolt20::faces {

std::optional<int> TypeAhead::Find(const DrawnRows& rows, int current, char16_t letter,
                                   unsigned time) {
  if (time - last_ > kSoon) typed_.clear();
  last_ = time;
  typed_ += letter;
  const bool isOne = IsOneLetter(rows);
  const StringView typed = StringView(typed_).substr(0, isOne ? 1 : typed_.size());
  const CaseFold& fold = rows.Folding();
  const String wanted = fold(typed);
  const int from = isOne ? current + 1 : std::max(current, 0);
  for (int step = 0; step < rows.Count(); ++step) {
    const int row = (from + step) % rows.Count();
    if (fold.Begins(Left(rows.TextOf(row), static_cast<int>(typed.size())), wanted)) return row;
  }
  return std::nullopt;
}

bool TypeAhead::IsOneLetter(const DrawnRows& rows) const {
  const CaseFold& fold = rows.Folding();
  const String first = fold(Left(typed_, 1));
  return std::all_of(typed_.begin(), typed_.end(),
                     [&](char16_t each) { return fold(StringView(&each, 1)) == first; });
}

}  // namespace zolt20::faces
