#include "hosts/composer/edit_menu.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QShortcut>

#include "hosts/composer/cut_label.h"
#include "hosts/composer/find_bar.h"
#include "hosts/composer/map_keys.h"
#include "hosts/composer/undo_names.h"

namespace zolt20::composer {
namespace {

// The name as the text of a menu item, where & begins a mnemonic.
QString Quoted(const QString& name) {
  return ShortName(name).replace(u'&', QLatin1String("&&"));
}

}  // namespace

EditMenu::EditMenu(QWidget& window, QMenu& menu, FindBar& find)
    : QObject(&window), window_(window), find_(find), names_(new UndoNames(this)) {
  const auto add = [&](const QString& text, const QKeySequence& keys, auto act) {
    QAction* action = menu.addAction(text);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, act);
    return action;
  };
  undo_ = add(tr("&Undo"), QKeySequence::Undo, [this] { map_->undo(); });
  redo_ = add(tr("&Redo"), QKeySequence::Redo, [this] { map_->redo(); });
  QList<QKeySequence> again = QKeySequence::keyBindings(QKeySequence::Redo);
  if (!again.contains(QKeySequence(Qt::CTRL | Qt::Key_Y))) again.append(Qt::CTRL | Qt::Key_Y);
  redo_->setShortcuts(again);
  // The window with the keys shows the plain command, without the name of the step.
  undo_->setProperty("command", undo_->text());
  redo_->setProperty("command", redo_->text());
  undo_->setObjectName(QStringLiteral("undoAction"));
  redo_->setObjectName(QStringLiteral("redoAction"));
  menu.addSeparator();
  add(tr("Cu&t"), QKeySequence::Cut, [this] { ToFocus("cut"); });
  add(tr("&Copy"), QKeySequence::Copy, [this] { ToFocus("copy"); });
  add(tr("&Paste"), QKeySequence::Paste, [this] { ToFocus("paste"); });
  menu.addSeparator();
  add(tr("&Find..."), QKeySequence::Find, &EditMenu::Find);
  add(tr("Find &Next"), Qt::Key_F3, [this] { find_.FindNext(); });
  add(tr("Find &Previous"), Qt::SHIFT | Qt::Key_F3, [this] { find_.FindNext(false); });
  connect(names_, &UndoNames::Changed, this, &EditMenu::ShowHistory);
}

void EditMenu::Follow(RecordedMap& map) {
  map_ = &map;
  // The control has its own shortcuts for these keys of the menu. Two shortcuts with the same keys
  // are ambiguous, and Qt would activate neither, so those of the control are disabled.
  for (const auto key : {QKeySequence::Undo, QKeySequence::Redo, QKeySequence::Find}) {
    if (QShortcut* shortcut = ShortcutOf(map, key)) shortcut->setEnabled(false);
  }
  names_->Follow(map);
}

void EditMenu::ShowHistory() {
  undo_->setEnabled(map_ && map_->canUndo());
  redo_->setEnabled(map_ && map_->canRedo());
  const QString undo = undo_->isEnabled() ? names_->Undo() : QString();
  const QString redo = redo_->isEnabled() ? names_->Redo() : QString();
  undo_->setText(undo.isEmpty() ? tr("&Undo") : tr("&Undo \"%1\"").arg(Quoted(undo)));
  redo_->setText(redo.isEmpty() ? tr("&Redo") : tr("&Redo \"%1\"").arg(Quoted(redo)));
}

// With the focus in a text, finds in that text; elsewhere in the control, goes to the filter of the
// page's list; outside of the control, finds in the Result.
void EditMenu::Find() {
  QWidget* focus = QApplication::focusWidget();
  if (auto* text = qobject_cast<QPlainTextEdit*>(focus)) return find_.FindIn(*text);
  if (focus != nullptr && map_->isAncestorOf(focus)) {
    QMetaObject::invokeMethod(ShortcutOf(*map_, QKeySequence::Find), "activated");
    return;
  }
  if (auto* result = map_->findChild<QPlainTextEdit*>(QStringLiteral("TxtOutput")))
    find_.FindIn(*result);
}

void EditMenu::ToFocus(const char* slot) {
  QWidget* focus = QApplication::focusWidget();
  const bool isText =
      qobject_cast<QPlainTextEdit*>(focus) != nullptr || qobject_cast<QLineEdit*>(focus) != nullptr;
  if (isText) {
    QMetaObject::invokeMethod(focus, slot);
  } else if (QLatin1String(slot) == QLatin1String("copy")) {
    emit CopyRule();
  }
}

}  // namespace zolt20::composer
