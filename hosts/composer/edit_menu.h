// The menu Edit of the composer's window: what it acts on is what has the focus, wherever that is
// in the window, and for the history the control.
#pragma once

#include <QObject>
#include <QPointer>

#include "hosts/composer/recorded_map.h"

class QAction;
class QMenu;

namespace zolt20::composer {

class FindBar;
class UndoNames;

class EditMenu final : public QObject {
  Q_OBJECT

 public:
  /// Fills the menu of the window.
  EditMenu(QWidget& window, QMenu& menu, FindBar& find);

  /// From now on the history is that of this control, whose own keys for it are the menu's.
  void Follow(RecordedMap& map);

 signals:
  /// Copy, where the focus is in no text.
  void CopyRule();

 private:
  void Find();
  void ShowHistory();
  void ToFocus(const char* slot);

  QWidget& window_;
  FindBar& find_;
  UndoNames* names_;
  QAction* undo_;
  QAction* redo_;
  QPointer<RecordedMap> map_;
};

}  // namespace zolt20::composer
