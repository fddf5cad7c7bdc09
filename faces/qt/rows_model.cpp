#include "faces/qt/rows_model.h"

#include <QStringMatcher>
#include <algorithm>
#include <utility>

#include "faces/qt/qt_text.h"

namespace zolt20::qt {

RowsModel::RowsModel(const RowsControl& rows, QObject* parent)
    : QAbstractListModel(parent),
      rows_(rows),
      list_(rows.kind() == Kind::ListBox ? static_cast<const ListBox*>(&rows) : nullptr),
      count_(rows.ListCount()) {}

int RowsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : count_;
}

QVariant RowsModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= count_) return {};
  const int row = ControlRow(index.row());
  switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
      return ToQt(rows_.List(row));
    case Qt::ToolTipRole: {
      const QString text = ToQt(rows_.List(row));
      const QString name = names_.value(text);
      return name.isEmpty() ? text : text + QStringLiteral(": ") + name;
    }
    case kNameRole:
    case Qt::AccessibleDescriptionRole:
      return names_.isEmpty() ? QString() : names_.value(ToQt(rows_.List(row)));
    case Qt::CheckStateRole:
      if (list_ == nullptr || !list_->HasCheckBoxes()) return {};
      return list_->Selected(row) ? Qt::Checked : Qt::Unchecked;
    default:
      return {};
  }
}

Qt::ItemFlags RowsModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return {};
  Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
  if (list_ != nullptr && list_->HasCheckBoxes()) flags |= Qt::ItemIsUserCheckable;
  return flags;
}

int RowsModel::ControlRow(int modelRow) const {
  return IsFiltered() ? drawn_[static_cast<std::size_t>(modelRow)] : modelRow;
}

int RowsModel::ModelRow(int controlRow) const {
  if (!IsFiltered()) return controlRow;
  const auto found = std::lower_bound(drawn_.begin(), drawn_.end(), controlRow);
  return found == drawn_.end() || *found != controlRow ? -1
                                                       : static_cast<int>(found - drawn_.begin());
}

void RowsModel::SetFilter(const QString& text) {
  if (text == filter_) return;
  beginResetModel();
  filter_ = text;
  ApplyFilter();
  endResetModel();
}

void RowsModel::NameRows(QHash<QString, QString> names) {
  beginResetModel();
  names_ = std::move(names);
  ApplyFilter();
  endResetModel();
}

void RowsModel::RowsAboutToChange(const RowChange& change) {
  if (IsFiltered() || change.what == RowChange::What::kReplaced) return beginResetModel();
  const int last = change.first + change.count - 1;
  if (change.what == RowChange::What::kInserted) {
    beginInsertRows({}, change.first, last);
  } else {
    beginRemoveRows({}, change.first, last);
  }
}

void RowsModel::RowsChanged(const RowChange& change) {
  ApplyFilter();
  if (IsFiltered() || change.what == RowChange::What::kReplaced) return endResetModel();
  if (change.what == RowChange::What::kInserted) {
    endInsertRows();
  } else {
    endRemoveRows();
  }
}

void RowsModel::MarksChanged(int first, int count) {
  if (list_ == nullptr || !list_->HasCheckBoxes()) return;
  for (int row = first; row < first + count; ++row) {
    const int drawn = ModelRow(row);
    if (drawn >= 0) emit dataChanged(index(drawn), index(drawn), {Qt::CheckStateRole});
  }
}

void RowsModel::Replace() {
  beginResetModel();
  ApplyFilter();
  endResetModel();
}

void RowsModel::ApplyFilter() {
  drawn_.clear();
  count_ = rows_.ListCount();
  if (!IsFiltered()) return;
  const QStringMatcher matcher(filter_, Qt::CaseInsensitive);
  for (int row = 0; row < rows_.ListCount(); ++row) {
    const StringView text = rows_.List(row);
    const QStringView view(text.data(), static_cast<qsizetype>(text.size()));
    const bool isNamed = !names_.isEmpty() && matcher.indexIn(names_.value(ToQt(text))) >= 0;
    if (isNamed || matcher.indexIn(view) >= 0) drawn_.push_back(row);
  }
  count_ = static_cast<int>(drawn_.size());
}

}  // namespace zolt20::qt
