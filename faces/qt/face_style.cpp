#include "faces/qt/face_style.h"

#include <QApplication>
#include <QPainter>
#include <QStyleFactory>
#include <algorithm>

#include "faces/qt/combo_box.h"

namespace zolt20::qt {
namespace {

constexpr int kMidLightness = 128;

bool IsDark(const QStyleOption& option) {
  return option.palette.color(QPalette::Window).lightness() < kMidLightness;
}

bool IsFlat(const QStyleOptionComplex& option) {
  const auto* group = qstyleoption_cast<const QStyleOptionGroupBox*>(&option);
  return group != nullptr && (group->features & QStyleOptionFrame::Flat) != 0;
}

void DrawOutline(const QStyleOption& option, QPainter& painter, const QRectF& rect, qreal radius) {
  QColor color = option.palette.color(QPalette::WindowText);
  const bool hasFocus = (option.state & (QStyle::State_HasFocus | QStyle::State_On)) != 0;
  if (!hasFocus) color.setAlphaF((option.state & QStyle::State_Enabled) != 0 ? 0.45F : 0.2F);
  if (hasFocus) color = option.palette.color(QPalette::Highlight).lighter(120);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(color, 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
  painter.restore();
}

}  // namespace

FaceStyle::FaceStyle() : QProxyStyle(QStyleFactory::create(QApplication::style()->name())) {}

void FaceStyle::drawItemText(QPainter* painter, const QRect& rect, int flags,
                             const QPalette& palette, bool enabled, const QString& text,
                             QPalette::ColorRole role) const {
  if (role != QPalette::PlaceholderText) {
    return QProxyStyle::drawItemText(painter, rect, flags, palette, enabled, text, role);
  }
  constexpr float kSmallPrint = 0.68F;
  QPalette readable = palette;
  QColor color = palette.color(QPalette::WindowText);
  color.setAlphaF(kSmallPrint);
  readable.setColor(role, color);
  QProxyStyle::drawItemText(painter, rect, flags, readable, enabled, text, role);
}

void FaceStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  if (!IsDark(*option)) return;
  constexpr qreal kBoxRadius = 2;
  switch (element) {
    case PE_FrameLineEdit:
    case PE_Frame:
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
      DrawOutline(*option, *painter, option->rect, kBoxRadius);
      break;
    case PE_IndicatorRadioButton: {
      const qreal side = std::min(option->rect.width(), option->rect.height());
      QRectF circle(0, 0, side, side);
      circle.moveCenter(QRectF(option->rect).center());
      DrawOutline(*option, *painter, circle, side / 2);
      break;
    }
    default:
      break;
  }
}

int FaceStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* more) const {
  const auto* combo = qobject_cast<const ComboWidget*>(widget);
  if (hint == SH_ComboBox_Popup && combo != nullptr && combo->HasSearch()) return 0;
  return QProxyStyle::styleHint(hint, option, widget, more);
}

QRect FaceStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                SubControl part, const QWidget* widget) const {
  if (control == CC_GroupBox && part == SC_GroupBoxContents && IsFlat(*option)) return option->rect;
  return QProxyStyle::subControlRect(control, option, part, widget);
}

void FaceStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
  if (control == CC_GroupBox && IsFlat(*option)) return;
  const auto* group = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
  const QStringList families =
      widget == nullptr ? QStringList() : widget->property(kCaptionFamilies).toStringList();
  if (group != nullptr && !families.isEmpty())
    return DrawFrame(*group, families, *painter, *widget);
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  constexpr qreal kBoxRadius = 2;
  if (control == CC_ComboBox && IsDark(*option))
    DrawOutline(*option, *painter, option->rect, kBoxRadius);
}

// Draws the caption of a frame in its own font family; the contents keep the font of the form.
void FaceStyle::DrawFrame(const QStyleOptionGroupBox& option, const QStringList& families,
                          QPainter& painter, const QWidget& widget) const {
  QFont letters = widget.font();
  letters.setFamilies(families);
  QStyleOptionGroupBox frame = option;
  frame.fontMetrics = QFontMetrics(letters);
  painter.save();
  painter.setFont(letters);
  QProxyStyle::drawComplexControl(CC_GroupBox, &frame, &painter, &widget);
  painter.restore();
}

}  // namespace zolt20::qt
