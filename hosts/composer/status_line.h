// The part of the status bar that shows the line and column of the caret, the number of statements
// of that text, and how deep they are nested.
#pragma once

#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>

class QTimer;

namespace zolt20::composer {

class StatusLine final : public QLabel {
  Q_OBJECT

 public:
  /// Shows the text that has the focus in this window, or had it last.
  explicit StatusLine(QWidget& window);

  /// Shows this text until another one gets the focus.
  void Follow(QPlainTextEdit& text);

 private:
  void Show();

  QPointer<QPlainTextEdit> text_;
  QTimer* later_;
};

}  // namespace zolt20::composer
