// A list box as people see it: rows of one height, the marks as Qt's selection or as check boxes.
//
// What a person does comes out as signals that name rows of the control. The view changes no mark
// by itself: ShowMarks reads them from the control.
#pragma once

#include <QListView>

#include "faces/qt/rows_model.h"

namespace zolt20::qt {

class RowsView final : public QListView {
  Q_OBJECT

 public:
  explicit RowsView(const ListBox& list, QWidget* parent = nullptr);

  RowsModel& rows() { return *model_; }

  /// Anything may be different, when a state was put back. Keeps the place that is in sight.
  void ReplaceRows();
  /// Reads all marks and ListIndex again.
  void ShowMarks();

 signals:
  void RowClicked(int row);
  void RowDoubleClicked(int row);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                       const QEvent* event) const override;

 private:
  void PressRow(const QMouseEvent& event, bool isSecond);

  const ListBox& list_;
  RowsModel* model_;
};

}  // namespace zolt20::qt
