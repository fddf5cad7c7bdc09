// The rows of a list or combo box as an item model: no copy of them, only which are drawn while a
// filter is on.
#pragma once

#include <QAbstractListModel>
#include <QHash>
#include <QString>
#include <vector>

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
  /// The row of the control that a row of the model shows, and back; -1 for one that is not drawn.
  int ControlRow(int modelRow) const;
  int ModelRow(int controlRow) const;

  /// Only rows that hold the text in any letter case are drawn from now on; all with "".
  void SetFilter(const QString& text);
  const QString& Filter() const { return filter_; }

  /// What rows are called beside their texts, by text. The filter finds it as well.
  void NameRows(QHash<QString, QString> names);
  static constexpr int kNameRole = Qt::UserRole;

  // The notices of the surface for this control.
  void RowsAboutToChange(const RowChange& change);
  void RowsChanged(const RowChange& change);
  void MarksChanged(int first, int count);
  /// Anything may be different, when a state was put back.
  void Replace();

 private:
  bool IsFiltered() const { return !filter_.isEmpty(); }
  void ApplyFilter();

  const RowsControl& rows_;
  const ListBox* list_;  // nullptr for a combo box
  QHash<QString, QString> names_;
  QString filter_;
  std::vector<int> drawn_;  // the control's rows, while a filter is on
  int count_;               // what rowCount told, while rows come and go
};

}  // namespace zolt20::qt
