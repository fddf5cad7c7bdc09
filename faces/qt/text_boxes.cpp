#include "faces/qt/text_boxes.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QTextBlock>
#include <algorithm>
#include <limits>

#include "faces/qt/highlighter.h"
#include "faces/qt/qt_text.h"

namespace zolt20::qt {
namespace {

constexpr int kTabWidthInBlanks = 4;

bool IsLineBreak(StringView text, std::size_t at) {
  return text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n';
}

// The text as a document has it: one character for each line end.
QString Shown(StringView text) {
  QString shown;
  shown.reserve(static_cast<qsizetype>(text.size()));
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (IsLineBreak(text, at)) ++at;
    const char16_t character = text[at];
    shown += character == u'\n' || character == u'\r' ? QChar(QChar::ParagraphSeparator)
                                                      : QChar(character);
  }
  return shown;
}

// The place in the text of a place in the document.
std::size_t PlaceInText(StringView text, std::size_t from, int count) {
  std::size_t at = from;
  for (; count > 0 && at < text.size(); --count)
    at += IsLineBreak(text, at) ? 2 : 1;
  return at;
}

QString TextBetween(const QTextDocument& document, int position, int count) {
  QTextCursor cursor(const_cast<QTextDocument*>(&document));
  cursor.setPosition(position);
  cursor.setPosition(position + count, QTextCursor::KeepAnchor);
  return cursor.selectedText();
}

// What was typed or pasted, as the control keeps it.
String TypedText(QStringView shown) {
  String text;
  for (const QChar character : shown) {
    const char16_t unit = character.unicode();
    if (unit == QChar::ParagraphSeparator || unit == QChar::LineSeparator) {
      text += kLineBreak;
    } else {
      text += unit;
    }
  }
  return text;
}

}  // namespace

LinesBox::LinesBox(QWidget* parent) : QPlainTextEdit(parent) {
  setLineWrapMode(QPlainTextEdit::NoWrap);
  setTabChangesFocus(true);
  setFocusPolicy(Qt::ClickFocus);
  setTabStopDistance(kTabWidthInBlanks * fontMetrics().horizontalAdvance(u' '));
  connect(document(), &QTextDocument::contentsChange, this, &LinesBox::TakeEdit);
}

void LinesBox::Show(const String& text) {
  if (text == text_) return;
  const QScopedValueRollback showing(isShowing_, true);
  const QString before = Shown(text_);
  const QString after = Shown(text);
  const auto [oldFirst, newFirst] =
      std::mismatch(before.begin(), before.end(), after.begin(), after.end());
  const auto first = static_cast<int>(oldFirst - before.begin());
  int oldEnd = static_cast<int>(before.size());
  int newEnd = static_cast<int>(after.size());
  while (oldEnd > first && newEnd > first && before[oldEnd - 1] == after[newEnd - 1]) {
    --oldEnd;
    --newEnd;
  }
  QTextCursor cursor(document());
  cursor.setPosition(first);
  cursor.setPosition(oldEnd, QTextCursor::KeepAnchor);
  cursor.insertText(after.mid(first, newEnd - first));
  document()->clearUndoRedoStacks();
  text_ = text;
  // What is new is in sight.
  if (first > 0) {
    setTextCursor(cursor);
    ensureCursorVisible();
  }
}

void LinesBox::ShowCaret(int caret) {
  const QString before = Shown(StringView(text_).substr(0, static_cast<std::size_t>(caret)));
  QTextCursor cursor = textCursor();
  cursor.setPosition(static_cast<int>(before.size()));
  setTextCursor(cursor);
  ensureCursorVisible();
}

void LinesBox::Highlight(bool highlight) {
  if (highlight == (highlighter_ != nullptr)) return;
  const QScopedValueRollback showing(isShowing_, true);
  if (highlight) {
    highlighter_ = new Highlighter(document(), palette());
  } else {
    delete highlighter_;
    highlighter_ = nullptr;
  }
}

// What changes reaches the control as the text around it and what stands there now, so that line
// ends of other kinds elsewhere stay.
void LinesBox::TakeEdit(int position, int removed, int added) {
  if (isShowing_ || (removed == 0 && added == 0)) return;
  const int length = document()->characterCount() - 1;
  added = std::min(added, length - position);
  const std::size_t first = PlaceInText(text_, 0, position);
  std::size_t behind = PlaceInText(text_, first, removed);
  // A document names more than was edited: what is the same behind the caret was not.
  const QString before = Shown(StringView(text_).substr(first, behind - first));
  const QString now = TextBetween(*document(), position, added);
  qsizetype oldEnd = before.size();
  qsizetype newEnd = now.size();
  const qsizetype caret = std::max(textCursor().position() - position, 0);
  while (oldEnd > 0 && newEnd > caret && before[oldEnd - 1] == now[newEnd - 1]) {
    --oldEnd;
    --newEnd;
  }
  behind = PlaceInText(text_, first, static_cast<int>(oldEnd));
  String typed = TypedText(QStringView(now).first(newEnd));
  // Two line ends that come together stay two: "\r" and "\n" would be one from now on.
  if (typed.empty() && first > 0 && behind < text_.size() && text_[first - 1] == u'\r' &&
      text_[behind] == u'\n') {
    typed = u"\n";
  }
  String text = Concat(StringView(text_).substr(0, first), typed, StringView(text_).substr(behind));
  if (text == text_) return;
  text_ = std::move(text);
  emit Typed();
}

void LinesBox::keyPressEvent(QKeyEvent* event) {
  if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) &&
      (event->modifiers() & Qt::ShiftModifier) != 0) {
    QKeyEvent plain(event->type(), event->key(), event->modifiers() & ~Qt::ShiftModifier,
                    event->text());
    return QPlainTextEdit::keyPressEvent(&plain);
  }
  if (event->key() == Qt::Key_Tab && event->modifiers() == Qt::ControlModifier) {
    insertPlainText(QStringLiteral("\t"));
    return;
  }
  QPlainTextEdit::keyPressEvent(event);
}

void LinesBox::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange && highlighter_ != nullptr) {
    const QScopedValueRollback showing(isShowing_, true);
    highlighter_->SetPalette(palette());
  }
  if (event->type() == QEvent::FontChange) {
    setTabStopDistance(kTabWidthInBlanks * fontMetrics().horizontalAdvance(u' '));
  }
  QPlainTextEdit::changeEvent(event);
}

// A paste is one even when it makes no difference: the control's caret goes to the end.
void LinesBox::insertFromMimeData(const QMimeData* source) {
  const String before = text_;
  QPlainTextEdit::insertFromMimeData(source);
  if (!isReadOnly() && text_ == before) emit Typed();
}

QMimeData* LinesBox::createMimeDataFromSelection() const {
  const QTextCursor cursor = textCursor();
  const std::size_t first = PlaceInText(text_, 0, cursor.selectionStart());
  const std::size_t behind =
      PlaceInText(text_, first, cursor.selectionEnd() - cursor.selectionStart());
  auto* copied = new QMimeData;
  copied->setText(ToQt(StringView(text_).substr(first, behind - first)));
  return copied;
}

LineBox::LineBox(bool byKeys, QWidget* parent) : QLineEdit(parent), byKeys_(byKeys) {
  setFocusPolicy(Qt::ClickFocus);
  setMaxLength(std::numeric_limits<int>::max());  // a text that is cut off would be handed back so
  connect(this, &QLineEdit::textEdited, this, &LineBox::Typed);
}

void LineBox::Show(const String& text) {
  if (View(this->text()) != StringView(text)) setText(ToQt(text));
}

void LineBox::ShowCaret(int caret) {
  setCursorPosition(caret);
}

void LineBox::keyPressEvent(QKeyEvent* event) {
  constexpr int kBackspace = 8;
  const QString text = event->text();
  const bool isPlain = (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
  const bool isBackspace = event->key() == Qt::Key_Backspace && isPlain;
  const bool isCharacter = isPlain && text.size() == 1 && text[0].unicode() >= u' ' &&
                           text[0].unicode() != 0x7F && text[0].unicode() <= 0x7FFF;
  if (!byKeys_ || (!isBackspace && !isCharacter)) return QLineEdit::keyPressEvent(event);
  const int first = hasSelectedText() ? selectionStart() : cursorPosition();
  emit KeyTyped(first, static_cast<int>(selectedText().size()),
                isBackspace ? kBackspace : static_cast<int>(text[0].unicode()));
}

}  // namespace zolt20::qt
