// The open list of a combo that is searched: a line at its top, and below it those entries that
// hold its text.
//
// The model keeps all entries, so that the combo knows nothing of the search: only what is drawn
// and where the keys go is less. The line has the keyboard as long as the list is open.
#pragma once

#include "faces/qt/even_rows.h"
#include "faces/shared/drawn_rows.h"

class QComboBox;
class QLineEdit;

namespace zolt20::qt {

class EntriesView final : public EvenRows {
 public:
  /// The control outlives it.
  explicit EntriesView(const ComboBox& combo);

  /// The list of the box is open, as high as Qt wants it to be: now with a line that is empty.
  void ShowLine(const QComboBox& box);

  void doItemsLayout() override;

 protected:
  int Count() const override { return drawn_.Count(); }
  QModelIndex IndexAt(int place) const override;
  int PlaceOf(const QModelIndex& index) const override { return drawn_.DrawnRow(index.row()); }

  bool eventFilter(QObject* watched, QEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

 private:
  void MakeLine(const QComboBox& box);
  void Search(const QString& text);
  bool IsForList(const QKeyEvent& key) const;

  const ComboBox& combo_;
  faces::DrawnRows drawn_;
  QLineEdit* line_ = nullptr;  // from when the list opens first
};

}  // namespace zolt20::qt
