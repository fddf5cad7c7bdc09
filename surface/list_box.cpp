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
  return (*state_.rows)[static_cast<std::size_t>(row)];
}

void RowsControl::AddItem(StringView text) {
  const int row = Sorted() ? RowBehind(text) : ListCount();
  String added(text);
  std::vector<String>& rows = WriteRows(1);
  const RowChange change{RowChange::What::kInserted, row, 1};
  surface().RowsAboutToChange(*this, change);
  rows.insert(rows.begin() + row, std::move(added));
  state_.marks.insert(state_.marks.begin() + row, false);
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
  std::vector<String> added(texts.begin(), texts.end());
  std::vector<String>& rows = WriteRows(added.size());
  const RowChange change{RowChange::What::kInserted, ListCount(), static_cast<int>(texts.size())};
  surface().RowsAboutToChange(*this, change);
  std::move(added.begin(), added.end(), std::back_inserter(rows));
  state_.marks.resize(rows.size());
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
    const int row = RowBehind(text) - 1;
    return row >= 0 && List(row) == text ? row : -1;
  }
  int row = ListCount() - 1;
  while (row >= 0 && List(row) != text)
    --row;
  return row;
}

int RowsControl::RowBehind(StringView text) const {
  return static_cast<int>(std::upper_bound(state_.rows->begin(), state_.rows->end(), text) -
                          state_.rows->begin());
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
  std::vector<String>& rows = WriteRows();
  surface().RowsAboutToChange(*this, change);
  rows.erase(rows.begin() + first, rows.begin() + first + count);
  const auto firstMark = state_.marks.begin() + first;
  state_.markCount -= static_cast<int>(std::count(firstMark, firstMark + count, true));
  state_.marks.erase(firstMark, firstMark + count);
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
  std::vector<String>& texts = WriteRows();
  std::vector<bool>& marks = state_.marks;
  surface().RowsAboutToChange(*this, change);
  auto gone = rows.begin();
  auto kept = static_cast<std::size_t>(*gone);
  for (std::size_t row = kept; row < texts.size(); ++row) {
    if (gone != rows.end() && static_cast<std::size_t>(*gone) == row) {
      ++gone;
      if (marks[row]) --state_.markCount;
    } else {
      texts[kept] = std::move(texts[row]);
      marks[kept] = marks[row];
      ++kept;
    }
  }
  texts.resize(kept);
  marks.resize(kept);
  surface().RowsChanged(*this, change);
  const auto selected = std::lower_bound(rows.begin(), rows.end(), state_.listIndex);
  if (selected != rows.end() && *selected == state_.listIndex) {
    MoveListIndex(-1);
    SelectedRowWent();
  } else {
    MoveListIndex(state_.listIndex - static_cast<int>(selected - rows.begin()));
  }
}

std::vector<String>& RowsControl::WriteRows(std::size_t more) {
  std::vector<String>& rows = state_.rows.Write();
  const std::size_t needed = rows.size() + more;
  if (needed > rows.capacity()) rows.reserve(std::max(needed, 2 * rows.size()));
  state_.marks.reserve(rows.capacity());
  return rows;
}

void ListBox::ListIndex(int row) {
  if (row != -1) RaiseUnlessRow(row, ErrorKind::kValue);
  if (IsSingle()) MarkOnly(row);
  MoveListIndex(row);
  surface().OnClick(*this);
}

bool ListBox::Selected(int row) const {
  RaiseUnlessRow(row, ErrorKind::kIndex);
  return state_.marks[static_cast<std::size_t>(row)];
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
  if (Selected(row) == marked) return;
  state_.marks[static_cast<std::size_t>(row)] = marked;
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
