#include "hosts/composer/settings.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace zolt20::composer {
namespace {

// An estimate of the window frame, whose size is unknown before the window is shown.
constexpr QSize kFrame{16, 48};

}  // namespace

Settings::Settings()
    : QSettings(IniFormat, UserScope, QStringLiteral("zolt20"), QStringLiteral("composer")) {}

QRect Fitted(QRect wanted, const QRect& available) {
  wanted.setSize(wanted.size().boundedTo(available.size()));
  wanted.moveLeft(std::clamp(wanted.left(), available.left(),
                             available.left() + available.width() - wanted.width()));
  wanted.moveTop(std::clamp(wanted.top(), available.top(),
                            available.top() + available.height() - wanted.height()));
  return wanted;
}

void ResizeWithinScreen(QWidget& window, QSize size) {
  const QScreen* screen = window.screen();
  window.resize(size.boundedTo(screen->availableSize() - kFrame));
}

void PlaceOnScreens(QWidget& window, const QRect& wanted) {
  const QScreen* screen = QGuiApplication::screenAt(wanted.center());
  if (screen == nullptr) screen = QGuiApplication::primaryScreen();
  // A window may span several adjacent screens.
  const QRect all = screen->availableVirtualGeometry();
  const bool isWithin = all.contains(wanted) && QGuiApplication::screenAt(wanted.topLeft()) &&
                        QGuiApplication::screenAt(wanted.bottomRight());
  if (isWithin) return window.setGeometry(wanted);
  QRect inner = screen->availableGeometry();
  inner.setTop(inner.top() + kFrame.height() / 2);
  window.setGeometry(Fitted(wanted, inner));
}

}  // namespace zolt20::composer
