// A list box as people see it: rows of one height, the marks as Qt's selection or as check boxes.
//
// Gestures of the person are emitted as signals with rows of the control. The view changes no mark
// by itself: ShowMarks reads the marks from the control.
#pragma once

#include "faces/qt/even_rows.h"
#include "faces/qt/rows_model.h"
#include "faces/shared/list_keys.h"
#include "faces/shared/type_ahead.h"

namespace zolt20::qt {

class RowsView final : public EvenRows {
  Q_OBJECT

 public:
  explicit RowsView(const ListBox& list, QWidget* parent = nullptr);

  RowsModel& rows() { return *model_; }

  /// Resets the rows after a state was restored: anything may be different. Keeps the scroll place.
  void ReplaceRows();
  /// Sets display names of rows, keyed by text.
  void NameRows(const QHash<QString, QString>& names);
  /// Reads all marks and ListIndex again.
  void ShowMarks();

  void keyboardSearch(const QString& typed) override;

 signals:
  void RowClicked(int row);
  void RowDoubleClicked(int row);
  /// The marks were read again.
  void MarksShown();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  void dataChanged(const QModelIndex& first, const QModelIndex& last,
                   const QVector<int>& roles) override;
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                       const QEvent* event) const override;
  void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags flags) override;

 private:
  void DrawName(QPainter& painter, const QStyleOptionViewItem& option,
                const QModelIndex& index) const;
  void PressRow(const QMouseEvent& event, bool isCountedTwo);
  void Take(const faces::ListStep& step);

  const ListBox& list_;
  RowsModel* model_;
  faces::TypeAhead ahead_;
  faces::RowPresses presses_;
  bool isEntering_ = false;
};

}  // namespace zolt20::qt
