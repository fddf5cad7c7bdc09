#include "faces/qt/rows_view.h"

#include <QDateTime>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <optional>
#include <utility>

#include "faces/qt/later.h"

namespace zolt20::qt {
namespace {

std::optional<faces::ListKey> ListKeyOf(const QKeyEvent& event) {
  using faces::ListKey;
  switch (event.key()) {
    case Qt::Key_Up:
      return ListKey::kUp;
    case Qt::Key_Down:
      return ListKey::kDown;
    case Qt::Key_PageUp:
      return ListKey::kPageUp;
    case Qt::Key_PageDown:
      return ListKey::kPageDown;
    case Qt::Key_Home:
      return ListKey::kHome;
    case Qt::Key_End:
      return ListKey::kEnd;
    case Qt::Key_Space:
      if (event.modifiers() != Qt::NoModifier) return std::nullopt;
      return ListKey::kSpace;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return ListKey::kEnter;
    default:
      return std::nullopt;
  }
}

}  // namespace

RowsView::RowsView(const ListBox& list, QWidget* parent)
    : EvenRows(parent), list_(list), model_(new RowsModel(list, this)) {
  setModel(model_);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setSelectionMode(list.HasCheckBoxes() ? QAbstractItemView::NoSelection
                   : list.IsSingle()    ? QAbstractItemView::SingleSelection
                                        : QAbstractItemView::MultiSelection);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);  // a row shows its whole text as a tool tip
  setTextElideMode(Qt::ElideMiddle);                     // since long names differ at their ends
  setFocusPolicy(Qt::ClickFocus);
}

void RowsView::ReplaceRows() {
  const int place = verticalScrollBar()->value();
  model_->Replace();
  doItemsLayout();
  verticalScrollBar()->setValue(place);
}

void RowsView::NameRows(const QHash<QString, QString>& names) {
  model_->NameRows(names);
  ShowMarks();
}

void RowsView::ShowMarks() {
  if (!list_.HasCheckBoxes()) {
    QItemSelection marked;
    const int count = model_->rowCount();
    const auto isMarked = [&](int row) {
      return row < count && list_.Selected(model_->ControlRow(row));
    };
    int left = list_.SelCount();
    for (int row = 0; row < count && left > 0; ++row) {
      if (!isMarked(row)) continue;
      const int first = row;
      while (isMarked(row + 1))
        ++row;
      left -= row - first + 1;
      marked.append(QItemSelectionRange(model_->index(first), model_->index(row)));
    }
    selectionModel()->select(marked, QItemSelectionModel::ClearAndSelect);
  }
  const int current = list_.ListIndex() < 0 ? -1 : model_->ModelRow(list_.ListIndex());
  if (current >= 0 && current != currentIndex().row()) {
    selectionModel()->setCurrentIndex(model_->index(current), QItemSelectionModel::NoUpdate);
  }
  emit MarksShown();
}

void RowsView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  QStyleOptionViewItem option;
  initViewItemOption(&option);
  const QStyle::State state = option.state;
  const QModelIndex pointed =
      viewport()->underMouse() ? indexAt(viewport()->mapFromGlobal(QCursor::pos())) : QModelIndex();
  const int top = verticalScrollBar()->value();
  const int first = top + event->rect().top() / RowHeight();
  const int last = std::min(top + event->rect().bottom() / RowHeight(), model()->rowCount() - 1);
  for (int row = first; row <= last; ++row) {
    const QModelIndex index = model()->index(row, 0);
    option.rect = visualRect(index);
    option.state = state & ~QStyle::State_HasFocus;
    if (selectionModel()->isSelected(index)) option.state |= QStyle::State_Selected;
    if (index == currentIndex() && hasFocus()) option.state |= QStyle::State_HasFocus;
    if (index == pointed) option.state |= QStyle::State_MouseOver;
    itemDelegate()->paint(&painter, option, index);
    DrawName(painter, option, index);
  }
}

// Draws the display name of a row, right-aligned in the room that the text leaves.
void RowsView::DrawName(QPainter& painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
  const QString name = index.data(RowsModel::kNameRole).toString();
  if (name.isEmpty()) return;
  constexpr int kGap = 6;
  const int text = option.fontMetrics.horizontalAdvance(index.data().toString());
  const QRect place = option.rect.adjusted(text + 3 * kGap, 0, -kGap, 0);
  if (place.width() < option.fontMetrics.averageCharWidth() * 3) return;
  const bool isSelected = (option.state & QStyle::State_Selected) != 0;
  QColor color = option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
  constexpr float kSmallPrint = 0.7F;
  if (!isSelected) color.setAlphaF(kSmallPrint);
  painter.setPen(color);
  painter.drawText(place, Qt::AlignRight | Qt::AlignVCenter,
                   option.fontMetrics.elidedText(name, Qt::ElideMiddle, place.width()));
}

// Events for screen readers.

void RowsView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QAbstractItemView::currentChanged(current, previous);  // NOLINT(bugprone-parent-virtual-call)
  if (hasFocus() && !isEntering_) Tell(QAccessible::Focus, current);
}

void RowsView::focusInEvent(QFocusEvent* event) {
  isEntering_ = true;  // the first row becomes the current one
  QListView::focusInEvent(event);
  isEntering_ = false;
  // Later, so that it comes after what Qt reports of the list itself.
  DoLater(*this, [this] {
    if (hasFocus()) Tell(QAccessible::Focus, currentIndex());
  });
}

void RowsView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  // NOLINTNEXTLINE(bugprone-parent-virtual-call)
  QAbstractItemView::selectionChanged(selected, deselected);
  if (!QAccessible::isActive()) return;
  for (const QModelIndex& index : deselected.indexes())
    Tell(QAccessible::SelectionRemove, index);
  for (const QModelIndex& index : selected.indexes())
    Tell(QAccessible::SelectionAdd, index);
}

void RowsView::dataChanged(const QModelIndex& first, const QModelIndex& last,
                           const QVector<int>& roles) {
  QListView::dataChanged(first, last, roles);
  if (!QAccessible::isActive() || !roles.contains(Qt::CheckStateRole) || !hasFocus()) return;
  QAccessible::State changed;
  changed.checked = 1;
  QAccessibleStateChangeEvent event(this, changed);
  event.setChild(first.row());
  QAccessible::updateAccessibility(&event);
}

// What a person does.

void RowsView::mousePressEvent(QMouseEvent* event) {
  PressRow(*event, false);
}

void RowsView::mouseMoveEvent(QMouseEvent* /*event*/) {}

void RowsView::mouseReleaseEvent(QMouseEvent* /*event*/) {}

void RowsView::mouseDoubleClickEvent(QMouseEvent* event) {
  PressRow(*event, true);
}

void RowsView::PressRow(const QMouseEvent& event, bool isCountedTwo) {
  if (event.button() != Qt::LeftButton) return;
  const QModelIndex index = indexAt(event.position().toPoint());
  if (!index.isValid()) return;
  selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
  const int row = model_->ControlRow(index.row());
  // The second press of a double click is no second click.
  if (presses_.GestureOf(row, isCountedTwo) == Gesture::kDoubleClickRow) {
    emit RowDoubleClicked(row);
  } else {
    emit RowClicked(row);
  }
}

void RowsView::keyPressEvent(QKeyEvent* event) {
  const int before = currentIndex().row();
  const std::optional<faces::ListKey> key = ListKeyOf(*event);
  const faces::ListStep step =
      key ? faces::StepOf(*key, {before, model_->rowCount(), RowsInSight(), list_.IsSingle()})
          : faces::ListStep();
  if (step.row >= 0) {
    Take(step);
    return;
  }
  QListView::keyPressEvent(event);  // the first letters of a row
  const int now = currentIndex().row();
  if (now >= 0 && now != before) Take(faces::StepTo(now, list_.IsSingle()));
}

void RowsView::Take(const faces::ListStep& step) {
  if (step.moves)
    selectionModel()->setCurrentIndex(model_->index(step.row), QItemSelectionModel::NoUpdate);
  if (step.gesture == Gesture::kClickRow) emit RowClicked(model_->ControlRow(step.row));
  if (step.gesture == Gesture::kDoubleClickRow) emit RowDoubleClicked(model_->ControlRow(step.row));
}

// Type-ahead as in every other face. Qt's own stays on a row when the same letter is typed again.
void RowsView::keyboardSearch(const QString& typed) {
  const auto now = static_cast<unsigned>(QDateTime::currentMSecsSinceEpoch());
  for (const QChar letter : typed) {
    const std::optional<int> row = ahead_.Find(model_->drawn(), currentIndex().row(),
                                               static_cast<char16_t>(letter.unicode()), now);
    if (row) selectionModel()->setCurrentIndex(model_->index(*row), QItemSelectionModel::NoUpdate);
  }
}

// Bypasses QListView, whose time grows with all rows. keyPressEvent handles the keys that move.
QModelIndex RowsView::moveCursor(CursorAction /*action*/, Qt::KeyboardModifiers /*modifiers*/) {
  return currentIndex().isValid() ? currentIndex() : model_->index(0);
}

QItemSelectionModel::SelectionFlags RowsView::selectionCommand(const QModelIndex& /*index*/,
                                                               const QEvent* /*event*/) const {
  return QItemSelectionModel::NoUpdate;
}

void RowsView::setSelection(const QRect& /*rect*/, QItemSelectionModel::SelectionFlags /*flags*/) {
  // Does nothing: only the control changes marks.
}

}  // namespace zolt20::qt
