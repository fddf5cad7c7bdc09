#include "surface/list_box.h"

#include <algorithm>
#include <cassert>
#include <iterator>
#include <utility>

#include "surface/surface.h"

namespace zolt20 {
namespace {

// The number of runs of neighbouring rows.
int RunsIn(std::span<const int> rows) {
  int runs = 0;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (i == 0 || rows[i - 1] != rows[i] - 1) ++runs;
  }
  return runs;
}

}  // namespace

StringView RowsControl::List(int row) const {
  if (row < 0 || row >= ListCount()) return {};
  return state_.rows[static_cast<std::size_t>(row)].text;
}

void RowsControl::AddItem(StringView text) {
  auto at = state_.rows.end();
  if (Sorted()) {
    at = std::upper_bound(state_.rows.begin(), state_.rows.end(), text,
                          [](StringView added, const Row& row) { return added < row.text; });
  }
  const int row = static_cast<int>(at - state_.rows.begin());
  Row added{String(text)};
  MakeRoom(1);
  const RowChange change{RowChange::What::kInserted, row, 1};
  surface().RowsAboutToChange(*this, change);
  state_.rows.insert(state_.rows.begin() + row, std::move(added));
  surface().RowsChanged(*this, change);
  if (row <= state_.listIndex) MoveListIndex(state_.listIndex + 1);
}

void RowsControl::AddItems(std::span<const StringView> texts) {
  if (Sorted()) {
    for (const StringView text : texts)
      AddItem(text);
    return;
  }
  if (texts.empty()) return;
  std::vector<Row> added;
  added.reserve(texts.size());
  for (const StringView text : texts)
    added.push_back(Row{String(text)});
  MakeRoom(added.size());
  const RowChange change{RowChange::What::kInserted, ListCount(), static_cast<int>(texts.size())};
  surface().RowsAboutToChange(*this, change);
  std::move(added.begin(), added.end(), std::back_inserter(state_.rows));
  surface().RowsChanged(*this, change);
}

void RowsControl::RemoveItem(int row) {
  RaiseUnlessRow(row, ErrorKind::kArgument);
  EraseRun(row, 1);
}

void RowsControl::RemoveItems(std::span<const int> rows) {
  if (rows.empty()) return;
  RaiseUnlessRow(rows.back(), ErrorKind::kArgument);

  // Rows of one table mostly stand together, which makes a few runs. Rows scattered widely go in
  // one pass over the list.
  constexpr int kFewRuns = 16;
  if (RunsIn(rows) > kFewRuns) {
    EraseScattered(rows);
    return;
  }
  for (std::size_t end = rows.size(); end > 0;) {
    std::size_t first = end - 1;
    while (first > 0 && rows[first - 1] == rows[first] - 1)
      --first;
    EraseRun(rows[first], static_cast<int>(end - first));
    end = first;
  }
}

void RowsControl::Clear() {
  if (ListCount() > 0) EraseRun(0, ListCount());
}

int RowsControl::LastRowOf(StringView text) const {
  if (Sorted()) {
    const auto behind =
        std::upper_bound(state_.rows.begin(), state_.rows.end(), text,
                         [](StringView wanted, const Row& row) { return wanted < row.text; });
    const int row = static_cast<int>(behind - state_.rows.begin()) - 1;
    return row >= 0 && List(row) == text ? row : -1;
  }
  int row = ListCount() - 1;
  while (row >= 0 && List(row) != text)
    --row;
  return row;
}

void RowsControl::RaiseUnlessRow(int row, ErrorKind kind) const {
  if (row < 0 || row >= ListCount()) Raise(kind);
}

void RowsControl::MoveListIndex(int row) {
  if (row == state_.listIndex) return;
  state_.listIndex = row;
  Changed(Property::kListIndex);
}

void RowsControl::RestoreKind(KindState&& state) noexcept {
  state_ = std::move(*std::get_if<RowsState>(&state));
}

void RowsControl::EraseRun(int first, int count) {
  const RowChange change{RowChange::What::kRemoved, first, count};
  surface().RowsAboutToChange(*this, change);
  const auto begin = state_.rows.begin() + first;
  state_.markCount -= static_cast<int>(
      std::count_if(begin, begin + count, [](const Row& row) { return row.marked; }));
  state_.rows.erase(begin, begin + count);
  surface().RowsChanged(*this, change);
  if (state_.listIndex >= first + count) {
    MoveListIndex(state_.listIndex - count);
  } else if (state_.listIndex >= first) {
    MoveListIndex(-1);
    SelectedRowWent();
  }
}

void RowsControl::EraseScattered(std::span<const int> rows) {
  const RowChange change{RowChange::What::kReplaced, 0, ListCount()};
  surface().RowsAboutToChange(*this, change);
  auto gone = rows.begin();
  auto kept = state_.rows.begin() + *gone;
  for (int row = *gone; row < ListCount(); ++row) {
    Row& entry = state_.rows[static_cast<std::size_t>(row)];
    if (gone != rows.end() && *gone == row) {
      ++gone;
      if (entry.marked) --state_.markCount;
    } else {
      *kept++ = std::move(entry);
    }
  }
  state_.rows.erase(kept, state_.rows.end());
  surface().RowsChanged(*this, change);
  const auto selected = std::lower_bound(rows.begin(), rows.end(), state_.listIndex);
  if (selected != rows.end() && *selected == state_.listIndex) {
    MoveListIndex(-1);
    SelectedRowWent();
  } else {
    MoveListIndex(state_.listIndex - static_cast<int>(selected - rows.begin()));
  }
}

void RowsControl::MakeRoom(std::size_t count) {
  const std::size_t needed = state_.rows.size() + count;
  if (needed > state_.rows.capacity())
    state_.rows.reserve(std::max(needed, 2 * state_.rows.size()));
}

void ListBox::ListIndex(int row) {
  if (row != -1) RaiseUnlessRow(row, ErrorKind::kValue);
  if (IsSingle()) MarkOnly(row);
  MoveListIndex(row);
  surface().OnClick(*this);
}

bool ListBox::Selected(int row) const {
  RaiseUnlessRow(row, ErrorKind::kIndex);
  return state_.rows[static_cast<std::size_t>(row)].marked;
}

void ListBox::Selected(int row, bool marked) {
  const bool before = Selected(row);
  if (HasCheckBoxes()) {
    if (marked == before) return;
    Mark(row, marked);
    MoveListIndex(row);
    surface().OnItemCheck(*this, row);
  } else if (IsMultiSelect()) {
    Mark(row, marked);
    MoveListIndex(row);
    surface().OnClick(*this);
  } else if (marked) {
    ListIndex(row);
  } else if (before) {
    ListIndex(-1);
  } else {
    surface().OnClick(*this);
  }
}

void ListBox::Mark(int row, bool marked) {
  Row& entry = state_.rows[static_cast<std::size_t>(row)];
  if (entry.marked == marked) return;
  entry.marked = marked;
  state_.markCount += marked ? 1 : -1;
  surface().MarksChanged(*this, row, 1);
}

void ListBox::MarkOnly(int row) {
  // In a single selection the mark is the row of ListIndex.
  if (state_.listIndex != -1 && state_.listIndex != row) Mark(state_.listIndex, false);
  if (row != -1) Mark(row, true);
}

void ListBox::ClickRow(int row) {
  if (IsSingle()) {
    MarkOnly(row);
  } else {
    Mark(row, !Selected(row));
  }
  MoveListIndex(row);
  if (HasCheckBoxes()) {
    surface().OnItemCheck(*this, row);
  } else {
    surface().OnClick(*this);
  }
}

ComboBox::ComboBox(Surface& surface, const Design& design) : RowsControl(surface, design) {
  state_.backColor = 0xFFFFFF;
}

void ComboBox::ListIndex(int row) {
  if (row != -1) RaiseUnlessRow(row, ErrorKind::kValue);
  if (row == ListIndex()) {
    if (row == -1) SetText({});
    return;
  }
  Pick(row);
}

void ComboBox::Text(StringView text) {
  assert(IsEditable());
  MoveListIndex(-1);
  SetText(text);
}

void ComboBox::BackColor(unsigned color) {
  if (color == state_.backColor) return;
  state_.backColor = color;
  Changed(Property::kBackColor);
}

void ComboBox::SelectedRowWent() {
  SetText({});
}

void ComboBox::SetText(StringView text) {
  if (text == state_.text) return;
  state_.text = text;
  Changed(Property::kText);
}

void ComboBox::Pick(int row) {
  MoveListIndex(row);
  SetText(List(row));
  surface().OnClick(*this);
}

}  // namespace zolt20
