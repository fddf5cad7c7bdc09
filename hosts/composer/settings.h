// What the composer stores between its runs, and the places of windows.
#pragma once

#include <QRect>
#include <QSettings>

class QWidget;

namespace zolt20::composer {

/// The settings of the user: sizes, panes, zoom, recent files.
class Settings final : public QSettings {
  Q_OBJECT

 public:
  Settings();
};

/// The rectangle nearest to the wanted one within the available one, made smaller if it must be.
QRect Fitted(QRect wanted, const QRect& available);

/// Sets the size of a window that is not shown yet, at most that of its screen.
void ResizeWithinScreen(QWidget& window, QSize size);

/// Moves a window to a place; if no screen has that place any more, to the nearest place on a
/// screen.
void PlaceOnScreens(QWidget& window, const QRect& wanted);

}  // namespace zolt20::composer
