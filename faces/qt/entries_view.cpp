#include "faces/qt/entries_view.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <algorithm>

#include "faces/qt/qt_text.h"
#include "faces/shared/list_keys.h"

namespace zolt20::qt {

EntriesView::EntriesView(const ComboBox& combo) : combo_(combo), drawn_(combo, &Folded) {
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTextElideMode(Qt::ElideMiddle);  // since long names differ at their ends
}

void EntriesView::MakeLine(const QComboBox& box) {
  auto* around = qobject_cast<QBoxLayout*>(parentWidget()->layout());
  line_ = new QLineEdit(parentWidget());
  line_->setObjectName(box.objectName() + QStringLiteral(".search"));
  line_->setAccessibleName(QStringLiteral("Search ") + box.accessibleName());
  line_->setPlaceholderText(QStringLiteral("Search"));
  line_->setStyle(box.style());
  line_->installEventFilter(this);
  around->insertWidget(0, line_);
  line_->show();  // at once, or it takes no focus
  setFocusProxy(line_);
  connect(line_, &QLineEdit::textEdited, this, &EntriesView::Search);
}

void EntriesView::ShowLine(const QComboBox& box) {
  if (line_ == nullptr) MakeLine(box);
  line_->setFocus(Qt::PopupFocusReason);
  QWidget* const list = window();
  QRect place = list->geometry();
  const QRect screen = box.screen()->availableGeometry();
  const int height = line_->sizeHint().height();
  if (place.top() < box.mapToGlobal(QPoint()).y()) {
    place.setTop(std::max(place.top() - height, screen.top()));
  } else {
    place.setBottom(std::min(place.bottom() + height, screen.bottom()));
  }
  list->setGeometry(place);
  list->layout()->activate();
  scrollTo(currentIndex());
}

void EntriesView::Search(const QString& text) {
  drawn_.SetFilter(FromQt(text));
  const int chosen = combo_.ListIndex() < 0 ? -1 : drawn_.DrawnRow(combo_.ListIndex());
  const int place = chosen < 0 && !text.isEmpty() ? 0 : chosen;
  updateGeometries();
  setCurrentIndex(IndexAt(place));
  scrollTo(currentIndex());
  viewport()->update();
  line_->setAccessibleDescription(Count() == 0 ? QStringLiteral("No entries") : QString());
}

// Called by Qt when rows were inserted or removed.
void EntriesView::doItemsLayout() {
  drawn_.Refresh();
  EvenRows::doItemsLayout();
}

QModelIndex EntriesView::IndexAt(int place) const {
  return model()->index(drawn_.ControlRow(place), 0);
}

// Clears the search. Does not change the current entry, since Qt may read the current entry after
// the list is hidden, to choose it in the combo.
void EntriesView::hideEvent(QHideEvent* event) {
  EvenRows::hideEvent(event);
  if (line_ == nullptr) return;
  line_->clear();
  line_->setAccessibleDescription(QString());
  drawn_.SetFilter({});
}

void EntriesView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  QStyleOptionViewItem option;
  initViewItemOption(&option);
  if (Count() == 0) {
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect(), Qt::AlignHCenter | Qt::AlignTop,
                     QStringLiteral("No entries"));
    return;
  }
  const int top = verticalScrollBar()->value();
  const int first = top + event->rect().top() / RowHeight();
  const int last = std::min(top + event->rect().bottom() / RowHeight(), Count() - 1);
  for (int row = first; row <= last; ++row) {
    const QModelIndex index = IndexAt(row);
    option.rect = visualRect(index);
    option.state.setFlag(QStyle::State_Selected, index == currentIndex());
    itemDelegate()->paint(&painter, option, index);
  }
}

// Events for screen readers.
void EntriesView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QAbstractItemView::currentChanged(current, previous);  // NOLINT(bugprone-parent-virtual-call)
  if (hasFocus()) Tell(QAccessible::Focus, current);
}

// Keys.

// Whether a key goes to the list and not to the search line. Home and End go to the list while the
// search line is empty.
bool EntriesView::IsForList(const QKeyEvent& key) const {
  switch (key.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
    case Qt::Key_F4:
      return true;
    case Qt::Key_Home:
    case Qt::Key_End:
      return line_->text().isEmpty();
    default:
      return false;
  }
}

bool EntriesView::eventFilter(QObject* watched, QEvent* event) {
  const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
  if (watched != line_ || !isKey || !IsForList(*static_cast<QKeyEvent*>(event)))
    return EvenRows::eventFilter(watched, event);
  if (event->type() == QEvent::ShortcutOverride) {
    event->accept();
  } else {
    QCoreApplication::sendEvent(this, event);
  }
  return true;
}

QModelIndex EntriesView::moveCursor(CursorAction action, Qt::KeyboardModifiers /*modifiers*/) {
  const auto step = [this](faces::ListKey key) {
    return IndexAt(
        faces::StepOf(key, {PlaceOf(currentIndex()), Count(), RowsInSight(), false}).row);
  };
  switch (action) {
    case MoveUp:
      return step(faces::ListKey::kUp);
    case MoveDown:
      return step(faces::ListKey::kDown);
    case MovePageUp:
      return step(faces::ListKey::kPageUp);
    case MovePageDown:
      return step(faces::ListKey::kPageDown);
    case MoveHome:
      return step(faces::ListKey::kHome);
    case MoveEnd:
      return step(faces::ListKey::kEnd);
    default:
      return currentIndex();
  }
}

}  // namespace zolt20::qt
