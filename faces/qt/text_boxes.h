// Text boxes as people see them.
//
// A box shows the text of its control and passes on what a person edits. Line ends of any kind
// survive outside the place that is edited; typed line ends become CR LF.
#pragma once

#include <QLineEdit>
#include <QPlainTextEdit>

#include "surface/surface.h"

namespace zolt20::qt {

class Highlighter;

/// A box of several lines.
class LinesBox final : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit LinesBox(QWidget* parent = nullptr);

  /// Shows the text, redrawing only what differs. A different text clears the box's own undo stack.
  void Show(const String& text);
  /// The text that the control has, or will have once it takes the person's last edit.
  const String& Text() const { return text_; }
  /// Sets the caret behind the first `caret` characters of the control's text.
  void ShowCaret(int caret);
  /// Whether Undo and Redo concern what was typed here since the control last changed the text.
  bool HasOwnUndo() const { return document()->isUndoAvailable(); }
  bool HasOwnRedo() const { return document()->isRedoAvailable(); }

  void Highlight(bool highlight);

  static constexpr int kNowhere = -1;
  /// Wraps lines at so many pixels, at the edge with 0, or not at all with kNowhere, the default.
  void WrapAt(int pixels);

  /// The height of the box for so many lines, without a scroll bar.
  int HeightOf(int lines) const;

 signals:
  /// The person changed the text; Text() has it.
  void Typed();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void insertFromMimeData(const QMimeData* source) override;
  QMimeData* createMimeDataFromSelection() const override;

 private:
  void TakeEdit(int position, int removed, int added);

  void FitMargin();

  String text_;
  int wrapsAt_ = kNowhere;
  bool isShowing_ = false;
  Highlighter* highlighter_ = nullptr;
};

/// The selection of a QLineEdit; while it signals an edit, the selection from before the edit.
class LineMark final : public QObject {
  Q_OBJECT

 public:
  explicit LineMark(QLineEdit& line);
  TextMark mark() const { return mark_; }

 private:
  TextMark mark_{0, 0};
};

/// A box of one line.
class LineBox final : public QLineEdit {
  Q_OBJECT

 public:
  /// With `byKeys` the keys are passed on one by one, so that the control can refuse one; else the
  /// text is passed on after each edit.
  explicit LineBox(bool byKeys, QWidget* parent = nullptr);

  void Show(const String& text);
  void ShowCaret(int caret);

 signals:
  /// The person edited the text, which is now `text`.
  void Typed(const QString& text);
  /// The person pressed a key where these characters of the text are selected. The code is a
  /// character, 8 for Backspace or 13 for Enter.
  void KeyTyped(int from, int to, char16_t code);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;

 private:
  void HandOver(char16_t code);

  bool byKeys_;
};

}  // namespace zolt20::qt
