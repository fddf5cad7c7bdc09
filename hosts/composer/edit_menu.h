// The Edit menu of the composer's window. Its commands act on the widget that has the focus, except
// Undo and Redo, which act on the control.
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

  /// From now on Undo and Redo act on this control. The menu's keys for them replace the control's
  /// own.
  void Follow(RecordedMap& map);

 signals:
  /// Copy was chosen while no text has the focus.
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
