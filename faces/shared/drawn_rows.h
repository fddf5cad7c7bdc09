// Filtering: which rows of a list or combo a face draws, all or while a filter is on those that
// hold its text, and the mapping between drawn rows and the control's rows. Knows no platform.
#pragma once

#include <functional>
#include <map>
#include <vector>

#include "faces/shared/case_fold.h"
#include "faces/shared/words.h"
#include "surface/list_box.h"

namespace zolt20::faces {

class DrawnRows {
 public:
  /// The platform's case folding. The default ignores the case of Latin-1 letters.
  using Fold = CaseFold::Rules;

  /// The control must outlive this object.
  explicit DrawnRows(const RowsControl& rows, Fold fold = {});

  /// From now on draws only rows whose text or name holds `text`, ignoring case; all with "".
  /// Returns whether the filter differs from the one before.
  bool SetFilter(StringView text);
  bool IsFiltered() const { return !filter_.empty(); }
  /// Display names that rows have beside their texts, keyed by text.
  void NameRows(std::map<String, String> names);
  bool HasNames() const { return !names_.empty(); }
  /// The name of a row of the control, "" where it has none.
  StringView NameOf(int row) const;
  /// To be called after rows were inserted, removed or replaced.
  void Refresh();
  /// The rules of case folding.
  const CaseFold& Folding() const { return fold_; }

  int Count() const { return count_; }
  /// Maps a drawn row to the control's row, and back. -1 for none.
  int ControlRow(int drawn) const;
  int DrawnRow(int row) const;
  /// The text of a drawn row.
  StringView TextOf(int drawn) const { return rows_.List(ControlRow(drawn)); }

  /// Tells of marks on rows that the filter hides, such as "3 marked, 1 shown". "" while the filter
  /// hides no marked row.
  String HiddenMarks(const Words& words = Words::English()) const;

 private:
  const RowsControl& rows_;
  CaseFold fold_;
  std::map<String, String, std::less<>> names_;
  String filter_;           // case-folded
  std::vector<int> drawn_;  // the control's rows, while a filter is on
  int count_;
};

}  // namespace zolt20::faces
