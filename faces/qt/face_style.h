// The style of the application, with outlines that can be seen in a dark palette: there the common
// styles draw boxes, check boxes and options with outlines darker than their ground. A flat group
// box is nothing but what lies in it.
#pragma once

#include <QProxyStyle>

namespace zolt20::qt {

class FaceStyle final : public QProxyStyle {
  Q_OBJECT

 public:
  /// Over a style of the same name as the application's.
  FaceStyle();

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget = nullptr) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget = nullptr) const override;
};

}  // namespace zolt20::qt
