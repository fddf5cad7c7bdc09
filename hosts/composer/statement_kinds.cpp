#include "hosts/composer/statement_kinds.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QPixmapCache>
#include <array>
#include <sstream>
#include <utility>

namespace zolt20::composer {
namespace {

using language::NodeKind;

constexpr int kSide = 16;
constexpr int kScale = 4;  // sharp at 400 percent

// Lines, and surfaces in a second colour, on a square of 16. "M x y" goes there, "L x y" draws a
// line, "O x y r" a circle, "A x y rx ry from span" an arc in degrees.
struct Drawing {
  const char* lines;
  const char* surfaces;
};

constexpr Drawing kDot{"", "O 8 8 2.5"};
constexpr Drawing kStatement{"M 3 6 L 13 6 M 3 10 L 13 10", ""};
constexpr Drawing kSelect{"M 2 3 L 14 3 L 14 13 L 2 13 L 2 3 M 2 9.5 L 14 9.5 M 8 6 L 8 13",
                          "M 2 3 L 14 3 L 14 6.5 L 2 6.5"};
constexpr Drawing kFrom{"A 8 4 5 2 0 360 M 3 4 L 3 12 M 13 4 L 13 12 A 8 12 5 2 180 180",
                        "A 8 4 5 2 0 360 M 3 7.5 L 13 7.5 L 13 9.5 L 3 9.5"};
constexpr Drawing kWhere{"M 2 3 L 14 3 L 9.5 8.5 L 9.5 13.5 L 6.5 12 L 6.5 8.5 L 2 3",
                         "M 4.5 5 L 11.5 5 L 9 8 L 7 8"};
constexpr Drawing kGroupBy{"M 7 4 L 9 4 L 9 12 L 7 12 M 9 8 L 11 8",
                           "M 2 3 L 6 3 L 6 5.5 L 2 5.5 M 2 7 L 6 7 L 6 9.5 L 2 9.5 "
                           "M 2 11 L 6 11 L 6 13.5 L 2 13.5 M 11 6 L 15 6 L 15 10 L 11 10"};
constexpr Drawing kOrderBy{"M 2 4 L 8 4 M 2 8 L 6.5 8 M 2 12 L 5 12 M 12 3 L 12 11",
                           "M 9 10 L 15 10 L 12 14"};
constexpr Drawing kRowLimit{"M 2 3.5 L 14 3.5 M 2 7.5 L 14 7.5",
                            "M 2 10.5 L 14 10.5 L 14 13 L 2 13"};
constexpr Drawing kSelectDo{"M 2 3 L 14 3 L 14 13 L 2 13 L 2 3", "M 6 5 L 11.5 8 L 6 11"};
constexpr Drawing kSelectEos{"M 3 8 L 9 8 M 13 3 L 13 13", "M 8 5 L 12 8 L 8 11"};
constexpr Drawing kSelectEmpty{"O 8 8 5 M 3.5 12.5 L 12.5 3.5", ""};
constexpr Drawing kSelectError{"M 2 3 L 14 3 L 14 13 L 2 13 L 2 3 M 6 6 L 10 10 M 10 6 L 6 10", ""};
constexpr Drawing kIf{"M 8 2 L 14 8 L 8 14 L 2 8 L 8 2", "M 8 5 L 11 8 L 8 11 L 5 8"};
constexpr Drawing kElse{"M 8 2 L 14 8 L 8 14 L 2 8 L 8 2", "M 2.5 8 L 13.5 8 L 8 13.5"};
constexpr Drawing kFor{"A 8 8 5 5 60 270", "M 8 3.5 L 13.5 3 L 11.5 7.5 O 8 8.5 1.7"};
constexpr Drawing kWhile{"A 8 8 5 5 60 270",
                         "M 8 3.5 L 13.5 3 L 11.5 7.5 M 8 6 L 10.3 8.5 L 8 11 L 5.7 8.5"};
constexpr Drawing kRepeat{"A 8 8 5 5 120 -270", "M 8 3.5 L 2.5 3 L 4.5 7.5"};
constexpr Drawing kOnCase{"M 2 8 L 6 8 M 12 3 L 6 3 L 6 13 L 12 13 M 6 8 L 12 8",
                          "O 13 3 1.6 O 13 8 1.6 O 13 13 1.6"};
constexpr Drawing kCaseRow{"M 4 3 L 4 8 L 10 8", "O 12 8 2.2"};
constexpr Drawing kDefault{"M 4 2 L 4 4 M 4 6 L 4 8 L 6 8 M 8 8 L 10 8", "O 12 8 2.2"};

constexpr std::array<Drawing, 24> kDrawings{
    kDot,   kStatement, kDot,     kDot,      kDot,      kSelect,    kSelect,      kFrom,
    kWhere, kGroupBy,   kOrderBy, kRowLimit, kSelectDo, kSelectEos, kSelectEmpty, kSelectError,
    kIf,    kElse,      kFor,     kWhile,    kRepeat,   kOnCase,    kCaseRow,     kDefault,
};
static_assert(kDrawings.size() == static_cast<std::size_t>(NodeKind::kDefault) + 1);

QPainterPath PathOf(const char* drawing) {
  QPainterPath path;
  std::istringstream parts(drawing);
  for (char what = 0; parts >> what;) {
    double x = 0;
    double y = 0;
    double radius = 0;
    parts >> x >> y;
    if (what == 'M') path.moveTo(x, y);
    if (what == 'L') path.lineTo(x, y);
    if (what == 'M' || what == 'L') continue;
    parts >> radius;
    if (what == 'O') {
      path.addEllipse(QPointF(x, y), radius, radius);
      continue;
    }
    double height = 0;
    double from = 0;
    double span = 0;
    parts >> height >> from >> span;
    const QRectF around(x - radius, y - height, 2 * radius, 2 * height);
    path.arcMoveTo(around, from);
    path.arcTo(around, from, span);
  }
  return path;
}

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Base).lightness() < 128;
}

// Draws a mark into the lower right corner of the icon, with an outline in the base colour.
void DrawMark(QPainter& painter, Mark mark, bool isOpen, const QColor& color, const QColor& base) {
  const QPainterPath shape =
      PathOf(mark == Mark::kError ? "O 11.5 11.5 3.6" : "M 11.5 7.5 L 15.5 15 L 7.5 15 L 11.5 7.5");
  painter.setPen(QPen(base, 2.5));
  painter.setBrush(base);
  painter.drawPath(shape);
  painter.setPen(QPen(color, isOpen ? 1.5 : 0.5));
  painter.setBrush(isOpen ? base : color);
  painter.drawPath(shape);
}

struct Colors {
  QColor lines;
  QColor surfaces;
  QColor mark;
  QColor base;
};

QPixmap Drawn(const Drawing& drawing, Mark mark, bool isOpen, const Colors& colors) {
  QPixmap pixmap(kSide * kScale, kSide * kScale);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(kScale, kScale);
  painter.fillPath(PathOf(drawing.surfaces), colors.surfaces);
  painter.setPen(QPen(colors.lines, 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPath(PathOf(drawing.lines));
  if (mark != Mark::kNone) DrawMark(painter, mark, isOpen, colors.mark, colors.base);
  return pixmap;
}

}  // namespace

QColor ColorOf(Mark mark, const QPalette& palette) {
  if (mark == Mark::kError) return IsDark(palette) ? QColor(255, 105, 97) : QColor(200, 20, 20);
  return IsDark(palette) ? QColor(240, 180, 60) : QColor(190, 115, 0);
}

QString NameOfKind(NodeKind kind) {
  constexpr std::array<const char*, 24> kNames{
      QT_TRANSLATE_NOOP("composer", "Blank lines"),
      QT_TRANSLATE_NOOP("composer", "Statement"),
      QT_TRANSLATE_NOOP("composer", "Head"),
      QT_TRANSLATE_NOOP("composer", "Rest of a condition"),
      QT_TRANSLATE_NOOP("composer", "End"),
      QT_TRANSLATE_NOOP("composer", "Select"),
      QT_TRANSLATE_NOOP("composer", "Select list"),
      QT_TRANSLATE_NOOP("composer", "From"),
      QT_TRANSLATE_NOOP("composer", "Where"),
      QT_TRANSLATE_NOOP("composer", "Group by"),
      QT_TRANSLATE_NOOP("composer", "Order by"),
      QT_TRANSLATE_NOOP("composer", "Row limit"),
      QT_TRANSLATE_NOOP("composer", "SelectDo"),
      QT_TRANSLATE_NOOP("composer", "SelectEOS"),
      QT_TRANSLATE_NOOP("composer", "SelectEmpty"),
      QT_TRANSLATE_NOOP("composer", "SelectError"),
      QT_TRANSLATE_NOOP("composer", "If"),
      QT_TRANSLATE_NOOP("composer", "Else"),
      QT_TRANSLATE_NOOP("composer", "For"),
      QT_TRANSLATE_NOOP("composer", "While"),
      QT_TRANSLATE_NOOP("composer", "Repeat"),
      QT_TRANSLATE_NOOP("composer", "On case"),
      QT_TRANSLATE_NOOP("composer", "Case row"),
      QT_TRANSLATE_NOOP("composer", "Default"),
  };
  return QCoreApplication::translate("composer", kNames[static_cast<std::size_t>(kind)]);
}

QIcon PictureOf(NodeKind kind, Mark mark, bool isOpenMark, const QPalette& palette) {
  const Colors plain{palette.color(QPalette::Text),
                     IsDark(palette) ? QColor(110, 170, 255) : QColor(50, 110, 190),
                     ColorOf(mark, palette), palette.color(QPalette::Base)};
  const QColor onMarked = palette.color(QPalette::HighlightedText);
  const Colors marked{onMarked, onMarked, ColorOf(mark, palette), palette.color(QPalette::Base)};
  const Drawing& drawing = kDrawings[static_cast<std::size_t>(kind)];
  QIcon icon;
  icon.addPixmap(Drawn(drawing, mark, isOpenMark, plain), QIcon::Normal);
  icon.addPixmap(Drawn(drawing, mark, isOpenMark, marked), QIcon::Selected);
  return icon;
}

QIcon PictureOf(Mark mark, const QPalette& palette) {
  const char* shape = mark == Mark::kError ? "O 8 8 5" : "M 8 2.5 L 14 13.5 L 2 13.5 L 8 2.5";
  const QColor color = ColorOf(mark, palette);
  return {Drawn({"", shape}, Mark::kNone, false, {color, color, color, color})};
}

}  // namespace zolt20::composer
