// Remarks on the rule, in a strip above the control. It shows at most four lines and can be
// expanded to all of them. The size of the window does not depend on it.
#pragma once

#include <QWidget>

class QLabel;
class QScrollArea;
class QToolButton;

namespace zolt20::composer {

class NoteStrip final : public QWidget {
  Q_OBJECT

 public:
  /// `labelName` is the object name of the label.
  explicit NoteStrip(const QString& labelName, QWidget* parent = nullptr);

  const QString& text() const { return text_; }
  /// An empty text hides the strip. A new text is shown collapsed.
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
