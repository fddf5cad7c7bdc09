#include "faces/qt/combo_box.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>
#include <algorithm>
#include <limits>

#include "faces/qt/entries_view.h"
#include "faces/qt/qt_text.h"
#include "faces/shared/layout.h"

namespace zolt20::qt {

ComboWidget::ComboWidget(const ComboBox& combo, QWidget* parent)
    : QComboBox(parent), combo_(combo) {
  setEditable(combo.IsEditable());
  setInsertPolicy(QComboBox::NoInsert);
  setPlaceholderText(QStringLiteral(" "));  // so that no row becomes current by itself
  setMaxVisibleItems(16);
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(12);
  setFocusPolicy(Qt::ClickFocus);
  if (faces::HasSearch(combo.design())) {
    entries_ = new EntriesView(combo);
    setView(entries_);
  }
  if (!combo.IsEditable()) return;
  setCompleter(nullptr);
  // Else QComboBox picks an entry when the focus leaves and the typed text equals it.
  QObject::disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
  lineEdit()->setMaxLength(std::numeric_limits<int>::max());
  lineEdit()->setFocusPolicy(Qt::ClickFocus);
  connect(lineEdit(), &QLineEdit::textEdited, this, &ComboWidget::Typed);
}

// While the text is right, currentIndex is not reset here but later, by ForgetEntry. When the text
// is replaced, the caret keeps its distance from the end.
void ComboWidget::Show() {
  const auto behind = isEditable() ? currentText().size() - lineEdit()->cursorPosition() : 0;
  const bool isRight = combo_.IsEditable() && View(currentText()) == StringView(combo_.Text());
  if (currentIndex() != combo_.ListIndex() && !(isRight && combo_.ListIndex() < 0))
    setCurrentIndex(combo_.ListIndex());
  if (!combo_.IsEditable() || View(currentText()) == StringView(combo_.Text())) return;
  setEditText(ToQt(combo_.Text()));
  const auto caret = std::max<qsizetype>(0, currentText().size() - behind);
  lineEdit()->setCursorPosition(static_cast<int>(caret));
}

void ComboWidget::showPopup() {
  ForgetEntry();
  QComboBox::showPopup();
  if (HasSearch() && entries_->isVisible()) entries_->ShowLine(*this);
}

void ComboWidget::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      ForgetEntry();
      break;
    default:
      break;
  }
  QComboBox::keyPressEvent(event);
}

// The wheel chooses no entry; the event goes on to the form, which scrolls.
void ComboWidget::wheelEvent(QWheelEvent* event) {
  event->ignore();
}

// Resets currentIndex if the control has no selection any more. Called before the list opens and
// before an arrow key changes the selection.
void ComboWidget::ForgetEntry() {
  if (combo_.ListIndex() >= 0 || currentIndex() < 0) return;
  const QString text = currentText();
  const int caret = isEditable() ? lineEdit()->cursorPosition() : 0;
  setCurrentIndex(-1);
  if (!isEditable()) return;
  setEditText(text);
  lineEdit()->setCursorPosition(caret);
}

}  // namespace zolt20::qt
