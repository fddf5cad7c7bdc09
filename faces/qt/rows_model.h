// The rows of a list or combo box as an item model. It holds no copy of the rows, only which rows
// are drawn while a filter is on.
#pragma once

#include <QAbstractListModel>
#include <QHash>
#include <QString>

#include "faces/shared/drawn_rows.h"
#include "surface/list_box.h"
#include "surface/observer.h"

namespace zolt20::qt {

class RowsModel final : public QAbstractListModel {
  Q_OBJECT

 public:
  /// The control must outlive the model.
  explicit RowsModel(const RowsControl& rows, QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

  const RowsControl& rows() const { return rows_; }
  const faces::DrawnRows& drawn() const { return drawn_; }
  /// Maps a row of the model to the control's row, and back; ModelRow is -1 for a row that the
  /// filter hides.
  int ControlRow(int modelRow) const { return drawn_.ControlRow(modelRow); }
  int ModelRow(int controlRow) const { return drawn_.DrawnRow(controlRow); }

  /// From now on draws only rows that contain the text, ignoring case; all with "".
  void SetFilter(const QString& text);
  const QString& Filter() const { return filter_; }
  /// Tells of marks that the filter hides, such as "3 marked, 1 shown"; "" while it hides none.
  QString HiddenMarks() const;

  /// Sets display names of rows, keyed by text. The filter finds them as well.
  void NameRows(const QHash<QString, QString>& names);
  static constexpr int kNameRole = Qt::UserRole;

  // The notices of the surface for this control.
  void RowsAboutToChange(const RowChange& change);
  void RowsChanged(const RowChange& change);
  void MarksChanged(int first, int count);
  /// Resets the model after a state of the control was restored: all rows and marks may differ. The
  /// filter stays.
  void Replace();

 private:
  void Show();
  QString Spoken(int row) const;

  const RowsControl& rows_;
  const ListBox* list_;  // nullptr for a combo box
  QString filter_;
  faces::DrawnRows drawn_;
  int count_;  // what rowCount returns, while rows are inserted and removed
};

}  // namespace zolt20::qt
