// Where the caret stands, and of the text it stands in the number of statements and how deep they
// go; at the right of the status bar.
#pragma once

#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>

class QTimer;

namespace zolt20::composer {

class StatusLine final : public QLabel {
  Q_OBJECT

 public:
  /// Tells of the text that has the focus in this window, else of the one before.
  explicit StatusLine(QWidget& window);

  /// Tells of this text until another one gets the focus.
  void Follow(QPlainTextEdit& text);

 private:
  void Show();

  QPointer<QPlainTextEdit> text_;
  QTimer* later_;
};

}  // namespace zolt20::composer
