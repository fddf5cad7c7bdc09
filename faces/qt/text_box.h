// ZOLT21SyntTextBox as a Qt widget: a box of statements for any form, as the five large boxes of
// the map control are.
//
// It needs no map control. Texts hold any 16-bit characters and are read back exactly as they were
// written; lines that a person makes end in CR LF. Nothing throws.
#pragma once

#include <QString>
#include <QWidget>

namespace zolt20::qt {
class LinesBox;
}  // namespace zolt20::qt

class ZOLT21SyntTextBox : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged USER true)
  Q_PROPERTY(bool highlight READ highlight WRITE setHighlight NOTIFY highlightChanged)
  Q_PROPERTY(int rightMargin READ rightMargin WRITE setRightMargin NOTIFY rightMarginChanged)

 public:
  explicit ZOLT21SyntTextBox(QWidget* parent = nullptr);
  ~ZOLT21SyntTextBox() override;

  /// The whole text.
  QString text() const;
  /// Whether the words of statements have colours. Has no effect on the text.
  bool highlight() const { return highlight_; }
  /// The width, in twips, at which lines wrap; they wrap at the edge of the box when that comes
  /// first, and only there with 0. From 32,000 on lines do not wrap.
  int rightMargin() const { return rightMargin_; }

  QSize sizeHint() const override;

 public slots:
  /// The same text changes nothing. A different text clears the undo stack of the box.
  void setText(const QString& text);
  void setHighlight(bool highlight);
  /// A margin below 0 is ignored.
  void setRightMargin(int twips);

 signals:
  /// The box took the focus.
  void tabChain();
  /// The text changed, by the host or by the person.
  void textChanged();
  void highlightChanged(bool highlight);
  void rightMarginChanged(int twips);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  zolt20::qt::LinesBox* box_;
  bool highlight_ = false;
  int rightMargin_ = 0;
};
