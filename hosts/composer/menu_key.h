// Shift+F10 opens the context menu of the focused widget, as the menu key does. Qt has this key on
// some platforms only.
#pragma once

#include <QObject>

namespace zolt20::composer {

/// Filters the key events of all windows as long as it lives.
class MenuKey final : public QObject {
  Q_OBJECT

 public:
  explicit MenuKey(QObject* parent);

  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace zolt20::composer
