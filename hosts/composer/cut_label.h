// A label of one line that fits any width: a text that is too long is shown with "…" in its middle,
// and whole as the tool tip. So a long name never makes a window wider.
#pragma once

#include <QLabel>

namespace zolt20::composer {

class CutLabel final : public QLabel {
  Q_OBJECT

 public:
  explicit CutLabel(QWidget* parent = nullptr);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QString Shown() const;
};

/// A name for a message: the middle of a very long one is replaced by "…".
QString ShortName(const QString& name);

/// A text as a tool tip that shows exactly these characters: marks of rich text in it are escaped.
QString TipOf(const QString& text);

}  // namespace zolt20::composer
