#include "faces/shared/drawn_rows.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace zolt20::faces {

DrawnRows::DrawnRows(const RowsControl& rows, Fold fold)
    : rows_(rows), fold_(std::move(fold)), count_(rows.ListCount()) {}

bool DrawnRows::SetFilter(StringView text) {
  String filter = fold_(text);
  if (filter == filter_) return false;
  filter_ = std::move(filter);
  Refresh();
  return true;
}

void DrawnRows::NameRows(std::map<String, String> names) {
  names_ = {std::make_move_iterator(names.begin()), std::make_move_iterator(names.end())};
  Refresh();
}

StringView DrawnRows::NameOf(int row) const {
  if (names_.empty()) return {};
  const auto found = names_.find(rows_.List(row));
  return found == names_.end() ? StringView() : StringView(found->second);
}

void DrawnRows::Refresh() {
  drawn_.clear();
  count_ = rows_.ListCount();
  if (!IsFiltered()) return;
  for (int row = 0; row < rows_.ListCount(); ++row) {
    if (fold_.Holds(rows_.List(row), filter_) || (HasNames() && fold_.Holds(NameOf(row), filter_)))
      drawn_.push_back(row);
  }
  count_ = static_cast<int>(drawn_.size());
}

int DrawnRows::ControlRow(int drawn) const {
  if (drawn < 0 || drawn >= count_) return -1;
  return IsFiltered() ? drawn_[static_cast<std::size_t>(drawn)] : drawn;
}

int DrawnRows::DrawnRow(int row) const {
  if (!IsFiltered()) return row;
  const auto found = std::lower_bound(drawn_.begin(), drawn_.end(), row);
  const bool isDrawn = found != drawn_.end() && *found == row;
  return isDrawn ? static_cast<int>(found - drawn_.begin()) : -1;
}

String DrawnRows::HiddenMarks(const Words& words) const {
  if (!IsFiltered() || rows_.kind() != Kind::ListBox) return {};
  const auto& list = static_cast<const ListBox&>(rows_);
  const auto shown =
      std::count_if(drawn_.begin(), drawn_.end(), [&](int row) { return list.Selected(row); });
  const auto all = list.SelCount();
  if (shown == all) return {};
  return Filled(words[Word::hiddenMarks], {{u"marked", FromAscii(std::to_string(all))},
                                           {u"shown", FromAscii(std::to_string(shown))}});
}

}  // namespace zolt20::faces
