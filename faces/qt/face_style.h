// A proxy style over that of the application, with outlines that can be seen in a dark palette: the
// common styles draw boxes, check boxes and options with outlines darker than their background. A
// flat group box is drawn as its contents alone, and small print darker than a placeholder.
#pragma once

#include <QProxyStyle>
#include <QStyleOption>

namespace zolt20::qt {

/// The property of a frame that names the font families of its caption, where these differ from
/// the frame's font.
inline constexpr char kCaptionFamilies[] = "captionFamilies";

class FaceStyle final : public QProxyStyle {
  Q_OBJECT

 public:
  /// A proxy of a new style with the name of the application's style.
  FaceStyle();

  void drawItemText(QPainter* painter, const QRect& rect, int flags, const QPalette& palette,
                    bool enabled, const QString& text,
                    QPalette::ColorRole role = QPalette::NoRole) const override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* more) const override;
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget = nullptr) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget = nullptr) const override;

 private:
  void DrawFrame(const QStyleOptionGroupBox& option, const QStringList& families, QPainter& painter,
                 const QWidget& widget) const;
};

}  // namespace zolt20::qt
