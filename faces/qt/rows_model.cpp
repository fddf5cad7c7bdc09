#include "faces/qt/rows_model.h"

#include <utility>

#include "faces/qt/qt_text.h"

namespace zolt20::qt {

RowsModel::RowsModel(const RowsControl& rows, QObject* parent)
    : QAbstractListModel(parent),
      rows_(rows),
      list_(rows.kind() == Kind::ListBox ? static_cast<const ListBox*>(&rows) : nullptr),
      drawn_(rows, &Folded),
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
      const QString name = ToQt(drawn_.NameOf(row));
      return name.isEmpty() ? text : text + QStringLiteral(": ") + name;
    }
    case Qt::AccessibleDescriptionRole:
      return Spoken(row);
    case kNameRole:
      return ToQt(drawn_.NameOf(row));
    case Qt::CheckStateRole:
      if (list_ == nullptr || !list_->HasCheckBoxes()) return {};
      return list_->Selected(row) ? Qt::Checked : Qt::Unchecked;
    default:
      return {};
  }
}

// The words that screen readers read behind the text of a row. On Linux they tell the mark of a row
// in a Qt list when it changes, but not when the keys move to the row; so it is part of the words.
QString RowsModel::Spoken(int row) const {
  QStringList words;
  if (const QString name = ToQt(drawn_.NameOf(row)); !name.isEmpty()) words << name;
#ifdef Q_OS_LINUX
  if (list_ != nullptr && !list_->Selected(row)) words << QStringLiteral("not selected");
#endif
  return words.join(u' ');
}

Qt::ItemFlags RowsModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return {};
  Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
  if (list_ != nullptr && list_->HasCheckBoxes()) flags |= Qt::ItemIsUserCheckable;
  return flags;
}

QString RowsModel::HiddenMarks() const {
  return ToQt(drawn_.HiddenMarks());
}

void RowsModel::SetFilter(const QString& text) {
  beginResetModel();
  filter_ = text;
  drawn_.SetFilter(FromQt(text));
  Show();
  endResetModel();
}

void RowsModel::NameRows(const QHash<QString, QString>& names) {
  std::map<String, String> byText;
  for (auto name = names.begin(); name != names.end(); ++name)
    byText.emplace(FromQt(name.key()), FromQt(name.value()));
  beginResetModel();
  drawn_.NameRows(std::move(byText));
  Show();
  endResetModel();
}

void RowsModel::RowsAboutToChange(const RowChange& change) {
  if (drawn_.IsFiltered() || change.what == RowChange::What::kReplaced) return beginResetModel();
  const int last = change.first + change.count - 1;
  if (change.what == RowChange::What::kInserted) {
    beginInsertRows({}, change.first, last);
  } else {
    beginRemoveRows({}, change.first, last);
  }
}

void RowsModel::RowsChanged(const RowChange& change) {
  drawn_.Refresh();
  Show();
  if (drawn_.IsFiltered() || change.what == RowChange::What::kReplaced) return endResetModel();
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
  drawn_.Refresh();
  Show();
  endResetModel();
}

void RowsModel::Show() {
  count_ = drawn_.Count();
}

}  // namespace zolt20::qt
