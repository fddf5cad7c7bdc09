#include "faces/qt/even_rows.h"

#include <QScrollBar>
#include <algorithm>

namespace zolt20::qt {

// The places of the rows.

int EvenRows::RowHeight() const {
  constexpr int kRoom = 5;  // also for parts below the base line, such as underscores
  return fontMetrics().height() + kRoom;
}

int EvenRows::RowsInSight() const {
  return std::max(viewport()->height() / RowHeight(), 1);
}

// Bypasses the layout of QListView, whose time grows with the number of all rows.
void EvenRows::doItemsLayout() {
  QAbstractItemView::doItemsLayout();  // NOLINT(bugprone-parent-virtual-call)
}

QRect EvenRows::visualRect(const QModelIndex& index) const {
  if (!index.isValid()) return {};
  const int top = (PlaceOf(index) - verticalScrollBar()->value()) * RowHeight();
  return {0, top, viewport()->width(), RowHeight()};
}

QModelIndex EvenRows::indexAt(const QPoint& point) const {
  if (!viewport()->rect().contains(point)) return {};
  return IndexAt(verticalScrollBar()->value() + point.y() / RowHeight());
}

void EvenRows::scrollTo(const QModelIndex& index, ScrollHint hint) {
  if (!index.isValid()) return;
  executeDelayedItemsLayout();
  const int row = PlaceOf(index);
  const int last = row - RowsInSight() + 1;
  int first = std::clamp(verticalScrollBar()->value(), last, row);
  if (hint == PositionAtTop) first = row;
  if (hint == PositionAtBottom) first = last;
  if (hint == PositionAtCenter) first = (last + row) / 2;
  verticalScrollBar()->setValue(first);
}

int EvenRows::horizontalOffset() const {
  return 0;
}

int EvenRows::verticalOffset() const {
  return verticalScrollBar()->value() * RowHeight();
}

void EvenRows::scrollContentsBy(int /*dx*/, int /*dy*/) {
  viewport()->update();
}

void EvenRows::updateGeometries() {
  verticalScrollBar()->setRange(0, std::max(Count() - RowsInSight(), 0));
  verticalScrollBar()->setPageStep(RowsInSight());
  verticalScrollBar()->setSingleStep(1);
  QAbstractItemView::updateGeometries();  // NOLINT(bugprone-parent-virtual-call)
}

QRegion EvenRows::visualRegionForSelection(const QItemSelection& /*selection*/) const {
  return viewport()->rect();
}

// Events for screen readers. QListView would send them by the places of rows in its own layout,
// which is bypassed here.

void EvenRows::Tell(QAccessible::Event what, const QModelIndex& index) {
  if (!QAccessible::isActive() || !index.isValid()) return;
  QAccessibleEvent event(this, what);
  event.setChild(index.row());
  QAccessible::updateAccessibility(&event);
}

}  // namespace zolt20::qt
