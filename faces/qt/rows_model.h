// The rows of a list or combo box as an item model: no copy of them, only which are drawn while a
// filter is on.
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
  /// The control outlives the model.
  explicit RowsModel(const RowsControl& rows, QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

  const RowsControl& rows() const { return rows_; }
  const faces::DrawnRows& drawn() const { return drawn_; }
  /// The row of the control that a row of the model shows, and back; -1 for one that is not drawn.
  int ControlRow(int modelRow) const { return drawn_.ControlRow(modelRow); }
  int ModelRow(int controlRow) const { return drawn_.DrawnRow(controlRow); }

  /// Only rows that hold the text in any letter case are drawn from now on; all with "".
  void SetFilter(const QString& text);
  const QString& Filter() const { return filter_; }
  /// What to say of marks that are not drawn, such as "3 marked, 1 shown"; "" while all are.
  QString HiddenMarks() const;

  /// What rows are called beside their texts, by text. The filter finds it as well.
  void NameRows(const QHash<QString, QString>& names);
  static constexpr int kNameRole = Qt::UserRole;

  // The notices of the surface for this control.
  void RowsAboutToChange(const RowChange& change);
  void RowsChanged(const RowChange& change);
  void MarksChanged(int first, int count);
  /// Anything may be different, when a state was put back.
  void Replace();

 private:
  void Show();
  QString Spoken(int row) const;

  const RowsControl& rows_;
  const ListBox* list_;  // nullptr for a combo box
  QString filter_;
  faces::DrawnRows drawn_;
  int count_;  // what rowCount told, while rows come and go
};

}  // namespace zolt20::qt
