// A line of text that takes the room there is: a long text is cut in the middle, and the whole of
// it is the tool tip. So no name, however long, makes a window wider.
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

/// A name for a sentence in a message: one that is very long is cut in the middle.
QString ShortName(const QString& name);

/// A text as a tool tip, word by word as it stands, whatever marks of rich text are in it.
QString TipOf(const QString& text);

}  // namespace zolt20::composer
