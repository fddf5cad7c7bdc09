#include "hosts/composer/menu_key.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QWidget>
#include <QWindow>

namespace zolt20::composer {

MenuKey::MenuKey(QObject* parent) : QObject(parent) {
  qApp->installEventFilter(this);
}

bool MenuKey::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const auto& key = static_cast<const QKeyEvent&>(*event);
  const bool isMeant = key.key() == Qt::Key_F10 && key.modifiers() == Qt::ShiftModifier;
  const QWidget* const focus = QApplication::focusWidget();
  if (!isMeant || focus == nullptr || watched != focus) return false;
  // The receiver chooses the position itself, as for the menu key.
  QContextMenuEvent asked(QContextMenuEvent::Keyboard, {}, {}, Qt::NoModifier);
  QCoreApplication::sendEvent(focus->window()->windowHandle(), &asked);
  return true;
}

}  // namespace zolt20::composer
