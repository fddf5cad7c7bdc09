// The find bar at the bottom of a window: a line for the words, which are searched in one of the
// window's texts.
#pragma once

#include <QPlainTextEdit>
#include <QPointer>
#include <QWidget>

class QLabel;
class QLineEdit;

namespace zolt20::composer {

class FindBar final : public QWidget {
  Q_OBJECT

 public:
  explicit FindBar(QWidget* parent = nullptr);

  /// Shows the bar and gives it the focus. The selected text becomes the words to find.
  void FindIn(QPlainTextEdit& text);
  /// Selects the next or the previous match. Behind the last match the search goes on at the first
  /// one, and the other way round.
  void FindNext(bool forward = true);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Close();
  bool Mark(const QTextCursor& from, bool forward);

  QPointer<QPlainTextEdit> text_;
  QLineEdit* words_;
  QLabel* told_;
};

}  // namespace zolt20::composer
