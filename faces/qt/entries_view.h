// The open list of a combo with a search: a search line at its top, and below it the entries that
// hold its text.
//
// The model keeps all entries, so that the combo knows nothing of the search: only drawing and key
// navigation leave entries out. The search line has the keyboard focus while the list is open.
#pragma once

#include "faces/qt/even_rows.h"
#include "faces/shared/drawn_rows.h"

class QComboBox;
class QLineEdit;

namespace zolt20::qt {

class EntriesView final : public EvenRows {
 public:
  /// The control must outlive the view.
  explicit EntriesView(const ComboBox& combo);

  /// Adds an empty search line to the list of `box`, which Qt has just opened at its own height.
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
  QLineEdit* line_ = nullptr;  // made when the list first opens
};

}  // namespace zolt20::qt
