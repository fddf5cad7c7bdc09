// Which rows of a list or combo a face draws, and in which order its platform counts them: all, or
// while a filter is on those that hold its text. Knows no platform.
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
  /// Gives a text in one letter case, as the platform has it. By default letters of Latin-1.
  using Fold = CaseFold::Rules;

  /// The control outlives it.
  explicit DrawnRows(const RowsControl& rows, Fold fold = {});

  /// Only rows that hold the text in any letter case, themselves or in their name, are drawn from
  /// now on; all with "". Gives whether that is another filter than before.
  bool SetFilter(StringView text);
  bool IsFiltered() const { return !filter_.empty(); }
  /// What rows are called beside their texts, by text.
  void NameRows(std::map<String, String> names);
  bool HasNames() const { return !names_.empty(); }
  /// The name of a row of the control, "" where it has none.
  StringView NameOf(int row) const;
  /// Rows came, went or became others.
  void Refresh();
  /// What letters are alike.
  const CaseFold& Folding() const { return fold_; }

  int Count() const { return count_; }
  /// The row of the control that is drawn there, and back. -1 for none.
  int ControlRow(int drawn) const;
  int DrawnRow(int row) const;
  /// The text of the row that is drawn there.
  StringView TextOf(int drawn) const { return rows_.List(ControlRow(drawn)); }

  /// What a person has to know of marks that can't be seen, such as "3 marked, 1 shown". "" while
  /// all are shown.
  String HiddenMarks(const Words& words = Words::English()) const;

 private:
  const RowsControl& rows_;
  CaseFold fold_;
  std::map<String, String, std::less<>> names_;
  String filter_;           // in one letter case
  std::vector<int> drawn_;  // the control's rows, while a filter is on
  int count_;
};

}  // namespace zolt20::faces
