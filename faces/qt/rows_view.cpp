#include "faces/qt/rows_view.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>

namespace zolt20::qt {
namespace {

// Rows with room for what hangs below the line, such as the underscores of table codes.
class RowDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    constexpr int kRoom = 5;
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    return {size.width(), option.fontMetrics.height() + kRoom};
  }
};

}  // namespace

RowsView::RowsView(const ListBox& list, QWidget* parent)
    : QListView(parent), list_(list), model_(new RowsModel(list, this)) {
  setModel(model_);
  setItemDelegate(new RowDelegate(this));
  setUniformItemSizes(true);
  setLayoutMode(QListView::SinglePass);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setSelectionMode(list.HasCheckBoxes() ? QAbstractItemView::NoSelection
                   : list.IsSingle()    ? QAbstractItemView::SingleSelection
                                        : QAbstractItemView::MultiSelection);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  setTextElideMode(Qt::ElideRight);
  setFocusPolicy(Qt::ClickFocus);
}

void RowsView::ReplaceRows() {
  const int place = verticalScrollBar()->value();
  model_->Replace();
  doItemsLayout();
  verticalScrollBar()->setValue(place);
}

void RowsView::ShowMarks() {
  if (!list_.HasCheckBoxes()) {
    QItemSelection marked;
    const int count = list_.SelCount() > 0 ? model_->rowCount() : 0;
    for (int row = 0; row < count; ++row) {
      const auto isMarked = [&](int place) {
        return place < count && list_.Selected(model_->ControlRow(place));
      };
      if (!isMarked(row)) continue;
      const int first = row;
      while (isMarked(row + 1))
        ++row;
      marked.append(QItemSelectionRange(model_->index(first), model_->index(row)));
    }
    selectionModel()->select(marked, QItemSelectionModel::ClearAndSelect);
  }
  const int current = list_.ListIndex() < 0 ? -1 : model_->ModelRow(list_.ListIndex());
  if (current >= 0 && current != currentIndex().row()) {
    selectionModel()->setCurrentIndex(model_->index(current), QItemSelectionModel::NoUpdate);
  }
}

void RowsView::mousePressEvent(QMouseEvent* event) {
  PressRow(*event, false);
}

void RowsView::mouseMoveEvent(QMouseEvent* /*event*/) {}

void RowsView::mouseReleaseEvent(QMouseEvent* /*event*/) {}

void RowsView::mouseDoubleClickEvent(QMouseEvent* event) {
  PressRow(*event, true);
}

void RowsView::PressRow(const QMouseEvent& event, bool isSecond) {
  if (event.button() != Qt::LeftButton) return;
  const QModelIndex index = indexAt(event.position().toPoint());
  if (!index.isValid()) return;
  selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
  const int row = model_->ControlRow(index.row());
  // A second press soon after the first marks or unmarks a row once more, but in a single
  // selection.
  if (isSecond && list_.IsSingle()) {
    emit RowDoubleClicked(row);
  } else {
    emit RowClicked(row);
  }
}

void RowsView::keyPressEvent(QKeyEvent* event) {
  const int before = currentIndex().row();
  const bool isSpace = event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier;
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if ((isSpace || (isEnter && list_.IsSingle())) && currentIndex().isValid()) {
    const int row = model_->ControlRow(before);
    if (isEnter) {
      emit RowDoubleClicked(row);
    } else {
      emit RowClicked(row);
    }
    return;
  }
  QListView::keyPressEvent(event);  // arrows, pages, and the first letters of a row
  // In a single selection the row that the keys come to is the marked one.
  const int now = currentIndex().row();
  if (list_.IsSingle() && now >= 0 && now != before) emit RowClicked(model_->ControlRow(now));
}

QItemSelectionModel::SelectionFlags RowsView::selectionCommand(const QModelIndex& /*index*/,
                                                               const QEvent* /*event*/) const {
  return QItemSelectionModel::NoUpdate;
}

}  // namespace zolt20::qt
