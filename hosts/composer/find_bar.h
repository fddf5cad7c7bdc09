// The line below a window's contents that finds words in one of its texts.
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

  /// Shows the line, with the focus; what is marked in the text is looked for first.
  void FindIn(QPlainTextEdit& text);
  /// Marks the next or the previous place, from the end on at the start again.
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
