// List boxes and combo boxes: controls with rows.
//
// Rows count from 0. Adding and removing rows keeps the marks of the other rows, moves ListIndex
// along with its row, and fires nothing.
#pragma once

#include <span>
#include <vector>

#include "surface/control.h"
#include "surface/start_runs.h"

namespace zolt20 {

/// What lists and combos share.
class RowsControl : public Control {
 public:
  int ListCount() const { return static_cast<int>(state_.rows->size()); }
  /// The text of the row; "" for any row that is not there.
  StringView List(int row) const;
  /// The row that was clicked or written last, -1 for none.
  int ListIndex() const { return state_.listIndex; }

  /// Appends, or with kSorted inserts behind the last row that is not greater.
  void AddItem(RowText text);
  void AddItem(StringView text) { AddItem(RowText(text)); }
  /// The same for each text in turn.
  void AddTexts(std::span<const RowText> texts);
  void AddItems(std::span<const StringView> texts);
  /// AddTexts to two unsorted lists, and RemoveItems from two lists. All or nothing: when memory
  /// runs out, neither list has changed.
  static void AddTextsToBoth(RowsControl& a, RowsControl& b, std::span<const RowText> texts);
  static void RemoveItemsFromBoth(RowsControl& a, RowsControl& b, std::span<const int> rows);
  /// Raises `argument` for a row that is not there.
  void RemoveItem(int row);
  /// Removes all these rows, which are given in ascending order, each once. Raises `argument`,
  /// before anything is removed, when the last of them is not there.
  void RemoveItems(std::span<const int> rows);
  void Clear();

  /// The rows, in ascending order, whose text `holds(text)` is true of.
  template <typename Test>
  std::vector<int> RowsWhere(const Test& holds) const {
    std::vector<int> found;
    for (int row = 0; row < ListCount(); ++row) {
      if (holds(List(row))) found.push_back(row);
    }
    return found;
  }
  /// The same by a row's prefix: its first 8 characters, or all of a shorter row. `holds(prefix)`
  /// is called once for each run of neighbouring rows with the same prefix.
  template <typename Test>
  std::vector<int> RowsWhereStart(const Test& holds) {
    return runs_.RowsWhere(*state_.rows, holds);
  }
  /// Removes the rows whose text `holds(text)` is true of.
  template <typename Test>
  void RemoveWhere(const Test& holds) {
    RemoveItems(RowsWhere(holds));
  }
  /// The last row with exactly this text, -1 for none.
  int LastRowOf(StringView text) const;
  /// Of a sorted list: the rows, in ascending order, whose first `length` characters, or all of a
  /// shorter row, equal `start`. `start` has at most `length` characters; `length` is not negative.
  std::vector<int> RowsStarting(StringView start, int length) const;

 protected:
  using Control::Control;

  bool Sorted() const { return (design().style & kSorted) != 0; }
  void RaiseUnlessRow(int row, ErrorKind kind) const;
  void MoveListIndex(int row);

  RowsState state_;

 private:
  StartRuns runs_;
  mutable int lastFound_ = 0;  // FirstRow's last answer; rows may have changed since

  KindState SaveKind() const override { return state_; }
  void RestoreKind(KindState&& state) noexcept override;
  // Called when the row of ListIndex was removed.
  virtual void SelectedRowWent() {}
  // Of a sorted list: the first row greater than `text`, and the first row for which `holds(text)`
  // is true; `holds` must be true for all rows behind that one, too (binary search).
  int RowBehind(StringView text) const;
  template <typename Test>
  int FirstRow(const Test& holds) const;
  void EraseRun(int first, int count);
  void EraseScattered(std::span<const int> rows);
  // The rows for writing. Makes rows and marks unshared and reserves room for `more` of each, since
  // no allocation may fail between RowsAboutToChange and RowsChanged.
  RowTexts& WriteRows(std::size_t more = 0);
};

/// A list box. Its kind is told by the style: kMultiSelect, kCheckBoxes, or single selection with
/// neither.
class ListBox final : public RowsControl {
 public:
  using RowsControl::ListIndex;
  using RowsControl::RowsControl;

  bool IsMultiSelect() const { return (design().style & kMultiSelect) != 0; }
  bool HasCheckBoxes() const { return (design().style & kCheckBoxes) != 0; }
  bool IsSingle() const { return (design().style & (kMultiSelect | kCheckBoxes)) == 0; }

  /// In a single selection the row becomes the only mark, and -1 takes the mark away; elsewhere no
  /// mark changes. Runs Click inside the call, whether or not the value differs. Raises `value`
  /// below -1 or past the last row.
  void ListIndex(int row);

  /// The mark of the row. Raises `index` for a row that is not there.
  bool Selected(int row) const;
  /// Single selection: True is as ListIndex(row), False on the marked row as ListIndex(-1), False
  /// elsewhere only runs Click. kMultiSelect: sets mark and ListIndex and runs Click. kCheckBoxes:
  /// a mark that differs is set with ListIndex and runs ItemCheck; setting the same mark does
  /// nothing at all. Raises `index` for a row that is not there.
  void Selected(int row, bool marked);

  /// The number of marks.
  int SelCount() const { return state_.markCount; }

 private:
  friend class Surface;

  void Mark(int row, bool marked);
  void MarkOnly(int row);
  // A person's click on an existing row.
  void ClickRow(int row);
};

/// A combo box of style kPickOnly or kEditable.
class ComboBox final : public RowsControl {
 public:
  using RowsControl::ListIndex;
  ComboBox(Surface& surface, const Design& design);

  bool IsEditable() const { return (design().style & kEditable) != 0; }

  /// A different index selects that row, sets Text to the row's ("" for -1), and runs Click inside
  /// the call. The same index runs no handler; -1 clears a typed text all the same. Raises the
  /// error `value` below -1 or past the last row.
  void ListIndex(int row);

  const String& Text() const { return state_.text; }
  /// kEditable only: sets ListIndex to -1 and fires nothing.
  void Text(StringView text);

  unsigned BackColor() const { return state_.backColor; }
  void BackColor(unsigned color);

 private:
  friend class Surface;

  void SelectedRowWent() override;
  void SetText(StringView text);
  // A person's pick of an existing entry.
  void Pick(int row);
};

}  // namespace zolt20
