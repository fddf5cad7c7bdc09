#include "hosts/composer/rules_list.h"

#include <QAction>
#include <QApplication>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMouseEvent>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>

#include "hosts/composer/cut_label.h"

namespace zolt20::composer {
namespace {

constexpr int kWidestPixels = 360;  // that are asked for

}  // namespace

RulesList::RulesList(QWidget* parent)
    : QWidget(parent), filter_(new QLineEdit), list_(new QListWidget), buttons_(new QToolBar) {
  filter_->setObjectName(QStringLiteral("rulesFilter"));
  filter_->setPlaceholderText(tr("Filter"));
  filter_->setAccessibleName(tr("Filter rules"));
  filter_->setClearButtonEnabled(true);
  filter_->installEventFilter(this);
  connect(filter_, &QLineEdit::textChanged, this, &RulesList::Filter);

  list_->setAccessibleName(tr("Rules"));
  list_->setObjectName(QStringLiteral("rules"));
  list_->setTextElideMode(Qt::ElideMiddle);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list_->setUniformItemSizes(true);
  list_->setContextMenuPolicy(Qt::CustomContextMenu);
  list_->installEventFilter(this);
  // Queued until the click is over, because the slot may ask and select the old rule again.
  connect(list_, &QListWidget::itemSelectionChanged, this, &RulesList::Tell, Qt::QueuedConnection);
  connect(list_, &QListWidget::customContextMenuRequested, this, &RulesList::ShowMenu);
  list_->viewport()->installEventFilter(this);
  dropLine_ = new QFrame(list_->viewport());
  dropLine_->setObjectName(QStringLiteral("dropLine"));
  dropLine_->setFrameShape(QFrame::HLine);
  dropLine_->setForegroundRole(QPalette::Text);
  dropLine_->hide();

  setFocusProxy(list_);
  auto* label = new QLabel(tr("Rules"));
  label->setBuddy(list_);
  buttons_->setToolButtonStyle(Qt::ToolButtonTextOnly);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(8, 8, 0, 8);
  layout->addWidget(label);
  layout->addWidget(filter_);
  layout->addWidget(list_);
  layout->addWidget(buttons_);
}

void RulesList::Show(const QStringList& names, const QString& current) {
  current_ = current;
  QStringList shown;
  for (int row = 0; row < list_->count(); ++row)
    shown.append(list_->item(row)->text());
  if (shown != names) {
    list_->clear();
    for (const QString& name : names) {
      auto* item = new QListWidgetItem(name, list_);
      item->setToolTip(TipOf(name));
    }
    Filter(filter_->text());
  }
  QListWidgetItem* item = ItemOf(current);
  list_->setCurrentItem(item);
  if (item == nullptr) list_->clearSelection();
}

void RulesList::MarkChanged(bool isChanged) {
  for (int row = 0; row < list_->count(); ++row) {
    QListWidgetItem* item = list_->item(row);
    const bool isMarked = isChanged && item->text() == current_;
    QFont font = list_->font();
    font.setBold(isMarked);
    if (item->font() == font) continue;
    item->setFont(font);
    item->setData(Qt::AccessibleDescriptionRole, isMarked ? tr("changed") : QString());
  }
}

// The minimum width of the list grows with the buttons, so that they do not overlap in any
// language.
void RulesList::AddButton(QAction& action) {
  buttons_->addAction(&action);
  const QMargins around = layout()->contentsMargins();
  const int needed = buttons_->sizeHint().width() + around.left() + around.right();
  setMinimumWidth(std::min(kWidestPixels, needed));
}

void RulesList::SetMenu(const QList<QAction*>& actions) {
  menu_ = actions;
}

void RulesList::FocusFilter() {
  filter_->setFocus(Qt::ShortcutFocusReason);
  filter_->selectAll();
}

QListWidgetItem* RulesList::ItemOf(const QString& name) const {
  for (int row = 0; row < list_->count(); ++row) {
    if (list_->item(row)->text() == name) return list_->item(row);
  }
  return nullptr;
}

// A click on the empty part of the list clears the selection; the open rule is selected again.
void RulesList::Tell() {
  const QList<QListWidgetItem*> chosen = list_->selectedItems();
  if (chosen.isEmpty()) {
    list_->setCurrentItem(ItemOf(current_));
  } else if (chosen.front()->text() != current_) {
    emit Chosen(chosen.front()->text());
  }
}

void RulesList::Filter(const QString& text) {
  for (int row = 0; row < list_->count(); ++row) {
    QListWidgetItem* item = list_->item(row);
    item->setHidden(!item->text().contains(text, Qt::CaseInsensitive));
  }
}

// Rules can't be moved in a filtered list, where the hidden neighbours are unknown to the person.
void RulesList::MoveBy(int places) {
  const int from = list_->currentRow();
  const int to = from + places;
  if (from < 0 || to < 0 || to >= list_->count() || !filter_->text().isEmpty()) return;
  emit Moved(list_->item(from)->text(), to);
}

void RulesList::ShowMenu(const QPoint& at) {
  if (list_->itemAt(at) != nullptr) {
    Tell();
    if (list_->itemAt(at) == nullptr || list_->itemAt(at)->text() != current_) return;
  }
  QMenu menu(this);
  menu.addActions(menu_);
  menu.exec(list_->viewport()->mapToGlobal(at));
}

// Moves rows by mouse events of its own: Qt's drag and drop would also accept drops outside of the
// rows.
bool RulesList::Drag(const QEvent& event) {
  const auto& mouse = static_cast<const QMouseEvent&>(event);
  if (event.type() == QEvent::MouseButtonPress) {
    const bool begins = mouse.button() == Qt::LeftButton && filter_->text().isEmpty();
    dragged_ = begins ? list_->indexAt(mouse.pos()).row() : -1;
    pressedAt_ = mouse.pos();
  } else if (event.type() == QEvent::MouseMove && dragged_ >= 0) {
    return DragOver(mouse.pos());
  } else if (event.type() == QEvent::MouseButtonRelease && before_ >= 0) {
    const int to = before_ > dragged_ ? before_ - 1 : before_;
    const QListWidgetItem* item = list_->item(dragged_);
    if (item != nullptr && to != dragged_) emit Moved(item->text(), to);
    EndDrag();
  }
  return false;
}

// The event is consumed; QListWidget would select the rows under the mouse.
bool RulesList::DragOver(const QPoint& at) {
  if (before_ < 0 && (at - pressedAt_).manhattanLength() < QApplication::startDragDistance())
    return true;
  const QModelIndex over = list_->indexAt({1, at.y()});
  const QRect row = list_->visualRect(over);
  before_ = over.isValid() ? over.row() + (at.y() > row.center().y() ? 1 : 0)
                           : (at.y() < 0 ? 0 : list_->count());
  if (over.isValid()) list_->scrollTo(over);
  const bool isLast = before_ >= list_->count();
  const QRect next = list_->visualItemRect(list_->item(isLast ? list_->count() - 1 : before_));
  dropLine_->setGeometry(0, (isLast ? next.bottom() : next.top()) - 1, next.width(), 3);
  dropLine_->show();
  return true;
}

void RulesList::EndDrag() {
  dragged_ = before_ = -1;
  dropLine_->hide();
}

bool RulesList::HandleKey(const QObject* watched, const QKeyEvent& key) {
  const bool isUp = key.key() == Qt::Key_Up;
  const bool isDown = key.key() == Qt::Key_Down;
  if (watched == list_ && key.modifiers() == Qt::AltModifier && (isUp || isDown)) {
    MoveBy(isUp ? -1 : 1);
  } else if (watched == list_ && key.key() == Qt::Key_Escape && before_ >= 0) {
    EndDrag();
  } else if (watched == filter_ && (isDown || key.key() == Qt::Key_Return)) {
    list_->setFocus(Qt::ShortcutFocusReason);
  } else if (watched == filter_ && key.key() == Qt::Key_Escape && !filter_->text().isEmpty()) {
    filter_->clear();
  } else {
    return false;
  }
  return true;
}

bool RulesList::eventFilter(QObject* watched, QEvent* event) {
  const bool isKey = event->type() == QEvent::KeyPress;
  if (isKey && HandleKey(watched, static_cast<const QKeyEvent&>(*event))) return true;
  if (watched == list_->viewport() && Drag(*event)) return true;
  return QWidget::eventFilter(watched, event);
}

}  // namespace zolt20::composer
