// What the composer keeps between its starts, and places of windows.
#pragma once

#include <QRect>
#include <QSettings>

class QWidget;

namespace zolt20::composer {

/// The person's own settings: sizes, panes, zoom, recent files.
class Settings final : public QSettings {
  Q_OBJECT

 public:
  Settings();
};

/// The place nearest to the wanted one that is within the available one, smaller where it must be.
QRect Fitted(QRect wanted, const QRect& available);

/// Gives a window that is not shown yet this size, or that of its screen when it is smaller.
void ResizeWithinScreen(QWidget& window, QSize size);

/// Gives a window the place; when no screen has it any more, one on the nearest screen.
void PlaceOnScreens(QWidget& window, const QRect& wanted);

}  // namespace zolt20::composer
