#include "faces/qt/icons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace zolt20::qt {
namespace {

constexpr int kSide = 16;
constexpr qreal kScale = 4;  // sharp at 400 percent

QPixmap Drawn(bool forward, const QColor& color) {
  QPixmap pixmap(static_cast<int>(kSide * kScale), static_cast<int>(kSide * kScale));
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(kScale, kScale);
  if (forward) {
    painter.translate(kSide, 0);
    painter.scale(-1, 1);
  }
  painter.setPen(QPen(color, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  QPainterPath path(QPointF(6, 2.5));
  path.lineTo(2.5, 6);
  path.lineTo(6, 9.5);
  path.moveTo(2.5, 6);
  path.lineTo(9.5, 6);
  path.arcTo(QRectF(5.75, 6, 7.5, 7.5), 90, -180);
  path.lineTo(6, 13.5);
  painter.drawPath(path);
  return pixmap;
}

}  // namespace

QIcon TurnIcon(bool forward, const QPalette& palette) {
  QIcon icon;
  for (const auto& [mode, group] : {std::pair(QIcon::Normal, QPalette::Active),
                                    std::pair(QIcon::Disabled, QPalette::Disabled)}) {
    icon.addPixmap(Drawn(forward, palette.color(group, QPalette::ButtonText)), mode);
  }
  return icon;
}

}  // namespace zolt20::qt
