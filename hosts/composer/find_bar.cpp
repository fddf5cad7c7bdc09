#include "hosts/composer/find_bar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

namespace zolt20::composer {

FindBar::FindBar(QWidget* parent) : QWidget(parent), words_(new QLineEdit), told_(new QLabel) {
  setObjectName(QStringLiteral("findBar"));
  words_->setObjectName(QStringLiteral("find"));
  words_->setPlaceholderText(tr("Find"));
  words_->setAccessibleName(tr("Find"));
  words_->setClearButtonEnabled(true);
  words_->setMinimumWidth(80);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(8, 0, 8, 4);
  layout->addWidget(words_, 1);
  const auto add = [&](const QString& text, auto act) {
    auto* button = new QToolButton;
    button->setText(text);
    connect(button, &QToolButton::clicked, this, act);
    layout->addWidget(button);
  };
  add(tr("Previous"), [this] { FindNext(false); });
  add(tr("Next"), [this] { FindNext(); });
  layout->addWidget(told_);
  add(tr("Close"), &FindBar::Close);
  // Searches from the beginning of the current match: a further letter extends that match.
  connect(words_, &QLineEdit::textEdited, this, [this] {
    if (!text_) return;
    QTextCursor from = text_->textCursor();
    from.setPosition(from.selectionStart());
    Mark(from, true);
  });
  hide();
}

void FindBar::FindIn(QPlainTextEdit& text) {
  text_ = &text;
  const QString marked = text.textCursor().selectedText();
  if (!marked.isEmpty() && !marked.contains(QChar::ParagraphSeparator)) words_->setText(marked);
  told_->clear();
  show();
  words_->setFocus(Qt::ShortcutFocusReason);
  words_->selectAll();
}

void FindBar::FindNext(bool forward) {
  if (text_) Mark(text_->textCursor(), forward);
}

bool FindBar::Mark(const QTextCursor& from, bool forward) {
  const QTextDocument::FindFlags how =
      forward ? QTextDocument::FindFlags() : QTextDocument::FindBackward;
  QTextCursor found = text_->document()->find(words_->text(), from, how);
  if (found.isNull()) {
    QTextCursor end(text_->document());
    if (!forward) end.movePosition(QTextCursor::End);
    found = text_->document()->find(words_->text(), end, how);
  }
  const bool isThere = !found.isNull();
  told_->setText(isThere || words_->text().isEmpty() ? QString() : tr("Not found"));
  if (isThere) text_->setTextCursor(found);
  return isThere;
}

void FindBar::Close() {
  hide();
  if (text_) text_->setFocus(Qt::OtherFocusReason);
}

void FindBar::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (event->key() == Qt::Key_Escape) return Close();
  if (isEnter) return FindNext((event->modifiers() & Qt::ShiftModifier) == 0);
  QWidget::keyPressEvent(event);
}

}  // namespace zolt20::composer
