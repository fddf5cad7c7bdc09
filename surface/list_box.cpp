#include "surface/list_box.h"

#include <algorithm>
#include <cassert>
#include <iterator>
#include <utility>

#include "surface/surface.h"

namespace zolt20 {
namespace {

// The number of runs of consecutive rows.
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

void RowsControl::AddItem(RowText text) {
  const int row = Sorted() ? RowBehind(text.View()) : ListCount();
  RowTexts& rows = WriteRows(1);
  const RowChange change{RowChange::What::kInserted, row, 1};
  surface().RowsAboutToChange(*this, change);
  rows.Insert(static_cast<std::size_t>(row), std::move(text));
  std::vector<unsigned char>& marks = state_.marks.Write();
  marks.insert(marks.begin() + row, 0);
  runs_.Inserted(row);
  surface().RowsChanged(*this, change);
  if (row <= state_.listIndex) MoveListIndex(state_.listIndex + 1);
}

void RowsControl::AddTexts(std::span<const RowText> texts) {
  if (Sorted()) {
    for (const RowText& text : texts)
      AddItem(text);
    return;
  }
  if (texts.empty()) return;
  RowTexts& rows = WriteRows(texts.size());
  const RowChange change{RowChange::What::kInserted, ListCount(), static_cast<int>(texts.size())};
  surface().RowsAboutToChange(*this, change);
  rows.Append(texts);
  state_.marks.Write().resize(rows.size());
  surface().RowsChanged(*this, change);
}

void RowsControl::AddItems(std::span<const StringView> texts) {
  AddTexts(std::vector<RowText>(texts.begin(), texts.end()));
}

void RowsControl::AddTextsToBoth(RowsControl& a, RowsControl& b, std::span<const RowText> texts) {
  assert(!a.Sorted() && !b.Sorted());
  a.WriteRows(texts.size());
  b.WriteRows(texts.size());
  a.AddTexts(texts);  // room is reserved: cannot fail from here on
  b.AddTexts(texts);
}

void RowsControl::RemoveItemsFromBoth(RowsControl& a, RowsControl& b, std::span<const int> rows) {
  if (rows.empty()) return;
  a.WriteRows();
  b.WriteRows();
  a.RemoveItems(rows);
  b.RemoveItems(rows);
}

void RowsControl::RemoveItem(int row) {
  RaiseUnlessRow(row, ErrorKind::kArgument);
  EraseRun(row, 1);
}

void RowsControl::RemoveItems(std::span<const int> rows) {
  if (rows.empty()) return;
  RaiseUnlessRow(rows.back(), ErrorKind::kArgument);

  // Rows of one table mostly stand together, so there are few runs to erase one by one. Many
  // scattered rows are erased in one pass over the list.
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

std::vector<int> RowsControl::RowsStarting(StringView start, int length) const {
  assert(Sorted());
  const auto startOf = [length](StringView row) {
    return row.substr(0, static_cast<std::size_t>(length));
  };
  int row = FirstRow([&](StringView text) { return start < startOf(text); });
  std::vector<int> found;
  while (row > 0 && startOf(List(row - 1)) == start)
    found.push_back(--row);
  std::reverse(found.begin(), found.end());
  return found;
}

int RowsControl::RowBehind(StringView text) const {
  return FirstRow([text](StringView row) { return text < row; });
}

// A binary search. Rows added in ascending order find their place at the end at once; otherwise the
// search begins near the last answer, since many queries are for the same text or a neighbour.
template <typename Test>
int RowsControl::FirstRow(const Test& holds) const {
  const RowTexts& rows = *state_.rows;
  const auto isBehind = [&](int row) { return holds(rows[static_cast<std::size_t>(row)]); };
  const int count = ListCount();
  if (count == 0 || !isBehind(count - 1)) return count;
  int below = -1;         // `holds` is false up to this row
  int above = count - 1;  // and true from this row on
  int row = std::min(lastFound_, above);
  constexpr int kNear = 16;
  for (int step = 1; step <= kNear && below < row && row < above; step *= 4) {
    if (isBehind(row)) {
      above = row;
      row -= step;
    } else {
      below = row;
      row += step;
    }
  }
  while (above - below > 1) {
    const int middle = below + (above - below) / 2;
    (isBehind(middle) ? above : below) = middle;
  }
  lastFound_ = above;
  return above;
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
  runs_.Forget();
}

void RowsControl::EraseRun(int first, int count) {
  const RowChange change{RowChange::What::kRemoved, first, count};
  RowTexts& rows = WriteRows();
  surface().RowsAboutToChange(*this, change);
  rows.Erase(static_cast<std::size_t>(first), static_cast<std::size_t>(count));
  std::vector<unsigned char>& marks = state_.marks.Write();
  const auto firstMark = marks.begin() + first;
  state_.markCount -= static_cast<int>(std::count(firstMark, firstMark + count, 1));
  marks.erase(firstMark, firstMark + count);
  runs_.Erased(first, count);
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
  RowTexts& texts = WriteRows();
  std::vector<unsigned char>& marks = state_.marks.Write();
  surface().RowsAboutToChange(*this, change);
  texts.EraseAll(rows);
  auto gone = rows.begin();
  std::size_t kept = 0;
  for (std::size_t row = 0; row < marks.size(); ++row) {
    if (gone != rows.end() && static_cast<std::size_t>(*gone) == row) {
      ++gone;
      state_.markCount -= marks[row];
    } else {
      marks[kept++] = marks[row];
    }
  }
  marks.resize(kept);
  runs_.Forget();
  surface().RowsChanged(*this, change);
  const auto selected = std::lower_bound(rows.begin(), rows.end(), state_.listIndex);
  if (selected != rows.end() && *selected == state_.listIndex) {
    MoveListIndex(-1);
    SelectedRowWent();
  } else {
    MoveListIndex(state_.listIndex - static_cast<int>(selected - rows.begin()));
  }
}

RowTexts& RowsControl::WriteRows(std::size_t more) {
  RowTexts& rows = state_.rows.Write();
  const std::size_t needed = rows.size() + more;
  if (needed > rows.capacity()) rows.reserve(std::max(needed, 2 * rows.size()));
  state_.marks.Write().reserve(rows.capacity());
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
  return (*state_.marks)[static_cast<std::size_t>(row)] != 0;
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
  state_.marks.Write()[static_cast<std::size_t>(row)] = marked ? 1 : 0;
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
  state_.text.reserve(text.size());  // so that no allocation fails between the two writes
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
  state_.text.reserve(List(row).size());  // so that no allocation fails between the two writes
  MoveListIndex(row);
  SetText(List(row));
  surface().OnClick(*this);
}

}  // namespace zolt20
