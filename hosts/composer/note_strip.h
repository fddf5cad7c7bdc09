// What is to be said about the rule, above the control: a strip of at most four lines, which opens
// to all of them. However many lines there are, the window stays as it is.
#pragma once

#include <QWidget>

class QLabel;
class QScrollArea;
class QToolButton;

namespace zolt20::composer {

class NoteStrip final : public QWidget {
  Q_OBJECT

 public:
  /// The label of the strip has this object name.
  explicit NoteStrip(const QString& labelName, QWidget* parent = nullptr);

  const QString& text() const { return text_; }
  /// "" takes the strip away. Another text is shown closed.
  void setText(const QString& text);

  static constexpr int kLines = 4;

 protected:
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Fit();

  QString text_;
  QLabel* label_;
  QScrollArea* place_;
  QToolButton* more_;
};

}  // namespace zolt20::composer
