// A virtual list with rows of one height: a QListView for Qt and for screen readers, which computes
// the place of a row without laying out the others.
#pragma once

#include <QAccessible>
#include <QListView>

namespace zolt20::qt {

class EvenRows : public QListView {
 public:
  using QListView::QListView;

  void doItemsLayout() override;
  QRect visualRect(const QModelIndex& index) const override;
  QModelIndex indexAt(const QPoint& point) const override;
  void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

 protected:
  /// How many rows are drawn, the index drawn at a place from 0, and back; -1 if it is not drawn.
  virtual int Count() const { return model()->rowCount(); }
  virtual QModelIndex IndexAt(int place) const { return model()->index(place, 0); }
  virtual int PlaceOf(const QModelIndex& index) const { return index.row(); }

  int RowHeight() const;
  /// How many rows are wholly visible, at least 1.
  int RowsInSight() const;
  void Tell(QAccessible::Event what, const QModelIndex& index);

  QRegion visualRegionForSelection(const QItemSelection& selection) const override;
  int horizontalOffset() const override;
  int verticalOffset() const override;
  void scrollContentsBy(int dx, int dy) override;
  void updateGeometries() override;
};

}  // namespace zolt20::qt
