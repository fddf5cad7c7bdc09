// Shift+F10 opens the menu of what has the focus, as the menu key does: the toolkit has it from the
// system on some platforms alone.
#pragma once

#include <QObject>

namespace zolt20::composer {

/// Hears the keys of all windows as long as it lives.
class MenuKey final : public QObject {
  Q_OBJECT

 public:
  explicit MenuKey(QObject* parent);

  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace zolt20::composer
