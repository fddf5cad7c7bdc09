#include "faces/qt/text_boxes.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>
#include <limits>

#include "faces/qt/highlighter.h"
#include "faces/qt/qt_text.h"
#include "faces/shared/shown_text.h"

namespace zolt20::qt {
namespace {

constexpr int kTabWidthInBlanks = 4;

// A QTextDocument has this one character for each line end.
constexpr char16_t kLineEnd = QChar::ParagraphSeparator;

String TextBetween(const QTextDocument& document, int position, int count) {
  QTextCursor cursor(const_cast<QTextDocument*>(&document));
  cursor.setPosition(position);
  cursor.setPosition(position + count, QTextCursor::KeepAnchor);
  return FromQt(cursor.selectedText());
}

TextMark MarkOf(const QLineEdit& line) {
  const int from = line.hasSelectedText() ? line.selectionStart() : line.cursorPosition();
  return {from, from + static_cast<int>(line.selectedText().size())};
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
  const String before = faces::Shown(text_, kLineEnd);
  const String after = faces::Shown(text, kLineEnd);
  const faces::Edit edit = faces::EditBetween(before, after, after.size());
  QTextCursor cursor(document());
  cursor.setPosition(static_cast<int>(edit.position));
  cursor.setPosition(static_cast<int>(edit.position + edit.removed), QTextCursor::KeepAnchor);
  cursor.insertText(ToQt(StringView(after).substr(edit.position, edit.added)));
  document()->clearUndoRedoStacks();
  text_ = text;
  // Scrolls so that the new text is visible.
  if (edit.position > 0) {
    setTextCursor(cursor);
    ensureCursorVisible();
  }
}

void LinesBox::ShowCaret(int caret) {
  const String before =
      faces::Shown(StringView(text_).substr(0, static_cast<std::size_t>(caret)), kLineEnd);
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

void LinesBox::WrapAt(int pixels) {
  wrapsAt_ = pixels;
  setLineWrapMode(pixels == kNowhere ? QPlainTextEdit::NoWrap : QPlainTextEdit::WidgetWidth);
  FitMargin();
}

// QPlainTextEdit wraps only at the edge of its viewport, so the viewport ends at the wrap margin.
void LinesBox::FitMargin() {
  const int scrollBar = verticalScrollBar()->isVisible() ? verticalScrollBar()->width() : 0;
  const int room = width() - 2 * frameWidth() - scrollBar;
  setViewportMargins(0, 0, wrapsAt_ > 0 ? std::max(0, room - wrapsAt_) : 0, 0);
}

void LinesBox::resizeEvent(QResizeEvent* event) {
  if (wrapsAt_ > 0) FitMargin();
  QPlainTextEdit::resizeEvent(event);
}

int LinesBox::HeightOf(int lines) const {
  const int margin = qRound(document()->documentMargin()) + frameWidth();
  return lines * fontMetrics().lineSpacing() + 2 * margin;
}

// Applies the change of the document to text_ at its place alone, so that line ends of other kinds
// elsewhere in the text stay.
void LinesBox::TakeEdit(int position, int removed, int added) {
  if (isShowing_ || (removed == 0 && added == 0)) return;
  const int length = document()->characterCount() - 1;
  added = std::min(added, length - position);
  const auto place = static_cast<std::size_t>(position);
  const std::size_t first = faces::PlaceInText(text_, 0, place);
  const std::size_t behind = faces::PlaceInText(text_, first, static_cast<std::size_t>(removed));
  // Qt reports more than was edited: trims the common end, but not before the caret.
  const String before = faces::Shown(StringView(text_).substr(first, behind - first), kLineEnd);
  String now = TextBetween(*document(), position, added);
  std::size_t oldEnd = before.size();
  std::size_t newEnd = now.size();
  const auto caret = static_cast<std::size_t>(std::max(textCursor().position() - position, 0));
  while (oldEnd > 0 && newEnd > caret && before[oldEnd - 1] == now[newEnd - 1]) {
    --oldEnd;
    --newEnd;
  }
  now.resize(newEnd);
  std::replace(now.begin(), now.end(), char16_t{QChar::LineSeparator}, kLineEnd);
  String text = faces::AfterEdit(text_, place, oldEnd, now, kLineEnd);
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

// A paste is a gesture even when it leaves the text as it is: the control's caret goes to the end.
void LinesBox::insertFromMimeData(const QMimeData* source) {
  const String before = text_;
  QPlainTextEdit::insertFromMimeData(source);
  if (!isReadOnly() && text_ == before) emit Typed();
}

QMimeData* LinesBox::createMimeDataFromSelection() const {
  const QTextCursor cursor = textCursor();
  const auto start = static_cast<std::size_t>(cursor.selectionStart());
  const auto end = static_cast<std::size_t>(cursor.selectionEnd());
  const std::size_t first = faces::PlaceInText(text_, 0, start);
  const std::size_t behind = faces::PlaceInText(text_, first, end - start);
  auto* copied = new QMimeData;
  copied->setText(ToQt(StringView(text_).substr(first, behind - first)));
  return copied;
}

// QLineEdit signals its new text first, and only then the new caret and selection.
LineMark::LineMark(QLineEdit& line) : QObject(&line) {
  const auto take = [this, &line] { mark_ = MarkOf(line); };
  connect(&line, &QLineEdit::selectionChanged, this, take);
  connect(&line, &QLineEdit::cursorPositionChanged, this, take);
}

LineBox::LineBox(bool byKeys, QWidget* parent) : QLineEdit(parent), byKeys_(byKeys) {
  setFocusPolicy(Qt::ClickFocus);
  setMaxLength(std::numeric_limits<int>::max());  // else a truncated text would be written back
  connect(this, &QLineEdit::textEdited, this, &LineBox::Typed);
}

void LineBox::Show(const String& text) {
  if (View(this->text()) == StringView(text)) return;
  // The caret keeps its distance from the end.
  const auto behind = this->text().size() - cursorPosition();
  setText(ToQt(text));
  setCursorPosition(static_cast<int>(std::max<qsizetype>(0, this->text().size() - behind)));
}

void LineBox::ShowCaret(int caret) {
  setCursorPosition(caret);
}

void LineBox::keyPressEvent(QKeyEvent* event) {
  if (!byKeys_) return QLineEdit::keyPressEvent(event);
  constexpr char16_t kBackspaceCode = 8;
  constexpr char16_t kEnterCode = 13;
  const QString text = event->text();
  const bool isPlain = (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
  if (isPlain && event->key() == Qt::Key_Backspace) return HandOver(kBackspaceCode);
  if (isPlain && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter))
    return HandOver(kEnterCode);
  // AltGr, where Qt reports it as a modifier, also types characters.
  const bool isCommand = (event->modifiers() & (Qt::ControlModifier | Qt::MetaModifier)) != 0;
  const bool isCharacter = !isCommand && !text.isEmpty() && text[0].isPrint();
  if (!isCharacter) return QLineEdit::keyPressEvent(event);
  for (const QChar character : text)
    HandOver(character.unicode());
}

// Input methods (IME): each committed character is a key. The text being composed is not shown,
// since that would replace the selection.
void LineBox::inputMethodEvent(QInputMethodEvent* event) {
  if (!byKeys_) return QLineEdit::inputMethodEvent(event);
  for (const QChar character : event->commitString())
    HandOver(character.unicode());
  event->accept();
}

void LineBox::HandOver(char16_t code) {
  const TextMark mark = MarkOf(*this);
  emit KeyTyped(mark.from, mark.to, code);
}

}  // namespace zolt20::qt
