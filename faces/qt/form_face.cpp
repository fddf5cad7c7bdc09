#include "faces/qt/form_face.h"

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QStackedWidget>
#include <QTabBar>
#include <utility>

#include "faces/qt/announcer.h"
#include "faces/qt/face_style.h"
#include "faces/qt/form_layout.h"
#include "faces/qt/later.h"
#include "faces/qt/qt_text.h"
#include "faces/qt/rows_view.h"
#include "faces/qt/text_boxes.h"
#include "faces/shared/form_words.h"
#include "faces/shared/neighbours.h"

namespace zolt20::qt {
namespace {

// The QLineEdit that a widget is or, as a combo box, contains; nullptr when there is none.
const QLineEdit* LineOf(const QWidget& widget) {
  if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) return combo->lineEdit();
  return qobject_cast<const QLineEdit*>(&widget);
}

}  // namespace

FormFace::FormFace(QWidget& owner, ZOLT20MapControl& control)
    : owner_(owner), control_(control), style_(std::make_unique<FaceStyle>()), person_(control) {
  for (const Control* each : Form().Controls())
    MakeWidget(*each);
  FormLayout(*this, owner_).Build();
  announcer_ = new Announcer(owner_);
  for (QStackedWidget* stack : owner_.findChildren<QStackedWidget*>())
    PassOver(*stack);
  control_.AddObserver(*this);
  StateReplaced();
  person_.NoteAll();
  ShowChanges();
  FitToLetters();
}

FormFace::~FormFace() {
  control_.RemoveObserver(*this);
  // While the lists of the models exist. Signals of widgets being destroyed are not gestures.
  isShowing_ = true;
  qDeleteAll(owner_.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
}

QWidget* FormFace::WidgetOf(const Control& control) const {
  const auto found = widgets_.find(&control);
  return found == widgets_.end() ? nullptr : found->second;
}

void FormFace::NameTables(const QHash<QString, QString>& names) {
  const QScopedValueRollback showing(isShowing_, true);
  static_cast<RowsView*>(WidgetOf(Form().lsttables))->NameRows(names);
}

RowsModel* FormFace::ModelOf(const Control& control) const {
  return models_.value(&control);
}

// Notices.

void FormFace::RowsAboutToChange(const Control& list, const RowChange& change) noexcept {
  const QScopedValueRollback showing(isShowing_, true);
  ModelOf(list)->RowsAboutToChange(change);
}

void FormFace::RowsChanged(const Control& list, const RowChange& change) noexcept {
  const QScopedValueRollback showing(isShowing_, true);
  ModelOf(list)->RowsChanged(change);
}

void FormFace::MarksChanged(const Control& list, int first, int count) noexcept {
  ModelOf(list)->MarksChanged(first, count);
}

void FormFace::ElementUnloading(const Control& element) noexcept {
  const auto found = widgets_.find(&element);
  if (found == widgets_.end()) return;
  QWidget* const widget = found->second;
  widgets_.erase(found);
  controls_.remove(widget);
  const QScopedValueRollback showing(isShowing_, true);
  widget->removeEventFilter(this);
  widget->disconnect(this);
  if (HasFocus()) owner_.setFocus();
  widget->hide();
  widget->setObjectName(QString());  // an element of that name may be loaded before deletion
  widget->deleteLater();
}

void FormFace::StateReplaced() noexcept {
  const QScopedValueRollback showing(isShowing_, true);
  for (const Control* control : Form().Controls()) {
    if (auto* view = qobject_cast<RowsView*>(WidgetOf(*control))) {
      view->ReplaceRows();
    } else if (RowsModel* model = ModelOf(*control)) {
      model->Replace();
    }
  }
}

bool FormFace::HasFocus() const {
  const QWidget* focus = QApplication::focusWidget();
  return focus != nullptr && (focus == &owner_ || owner_.isAncestorOf(focus));
}

void FormFace::ShowFocus(bool moved) {
  QWidget* const now = QApplication::focusWidget();
  // A filter keeps the focus: it is no control of the form.
  if (now != nullptr && !moved && now != &owner_ && owner_.isAncestorOf(now) &&
      !controls_.contains(now)) {
    return;
  }
  const Control* focused = Form().Focused();
  QWidget* const wanted = focused == nullptr ? &owner_ : WidgetOf(*focused);
  if (now != wanted) wanted->setFocus();
}

// Gestures.

void FormFace::Make(UserGesture gesture) {
  if (isShowing_) return;
  const bool isPress =
      gesture.gesture == Gesture::kClick && gesture.control->kind() == Kind::Button;
  if (isPress && mayPress_ && !person_.IsBusy() && !mayPress_(*gesture.control)) return;
  End(person_.Make(std::move(gesture)));
}

// A text that a QLineEdit's own undo restores, such as half a line end, is taken unchanged.
void FormFace::TypedIn(const Control& box, const QLineEdit& line, TextMark marked) {
  if (isShowing_) return;
  const QString text = line.text();
  if (line.isRedoAvailable()) return Make({Gesture::kType, &box, UserGesture::kNone, FromQt(text)});
  const auto caret = static_cast<std::size_t>(line.cursorPosition());
  End(person_.TypeInLine(box, View(text), caret, marked));
}

// Shows the changes of a gesture and reports its result. A gesture that was not taken (kNotTaken)
// changes nothing here; the call in progress resets its widget when it shows its own changes.
void FormFace::End(faces::End end) {
  if (end == faces::End::kNotTaken) return;
  const faces::MadeGesture made = person_.made();
  const faces::Failure failure = person_.failure();
  ShowChanges();
  Announce();
  if (made.gesture.control != nullptr) emit Acted(made);
  if (end != faces::End::kDone) emit Failed(failure);
}

// Has screen readers read the page: Qt reports only that the tab strip has the focus.
void FormFace::TellPage() {
  DoLater(*this, [this] {
    auto* strip = static_cast<QTabBar*>(WidgetOf(Form().tabVrn));
    if (!QAccessible::isActive() || !strip->hasFocus()) return;
    QAccessibleEvent event(strip, QAccessible::Focus);
    event.setChild(strip->currentIndex());
    QAccessible::updateAccessibility(&event);
  });
}

// Announces the undo of a text box itself, since screen readers do not read that change of text.
void FormFace::TellOwnUndo(const QWidget& widget, const QKeyEvent& event) {
  const bool isUndo = event.matches(QKeySequence::Undo);
  if (!isUndo && !event.matches(QKeySequence::Redo)) return;
  const auto* lines = qobject_cast<const LinesBox*>(&widget);
  const QLineEdit* line = LineOf(widget);
  const bool isOwn = lines != nullptr ? (isUndo ? lines->HasOwnUndo() : lines->HasOwnRedo())
                                      : line != nullptr && (isUndo ? line->isUndoAvailable()
                                                                   : line->isRedoAvailable());
  if (isOwn) announcer_->Tell(isUndo ? QStringLiteral("Undone") : QStringLiteral("Redone"));
}

void FormFace::Announce() {
  String words = person_.TakeWords();
  // Screen readers hear from Qt that a check box in a list changed, but not that it is now marked.
  const UserGesture& made = person_.made().gesture;
  if (made.gesture == Gesture::kClickRow) {
    const auto& list = static_cast<const ListBox&>(*made.control);
    if (list.HasCheckBoxes() && made.number < list.ListCount())
      words =
          Concat(faces::MarkWord(list.Selected(made.number)), words.empty() ? u"" : u" ", words);
  }
  if (!words.empty()) announcer_->Tell(ToQt(words));
}

void FormFace::SwitchHistory(bool on) {
  person_.SwitchHistory(on);
  ShowChanges();
}

QVariant FormFace::hostData() const {
  const auto* data = std::any_cast<QVariant>(&person_.hostData());
  return data == nullptr ? QVariant() : *data;
}

void FormFace::SetHostData(const QVariant& value) {
  person_.hostData() = value;
}

bool FormFace::StepHostData(const QVariant& value) {
  if (!person_.BeginStep()) return false;
  SetHostData(value);
  person_.EndStep(true);
  ShowChanges();
  return true;
}

void FormFace::Undo() {
  if (person_.Undo() != faces::End::kDone) return;
  ShowChanges();
  Announce();
  emit Undone();
}

void FormFace::Redo() {
  if (person_.Redo() != faces::End::kDone) return;
  ShowChanges();
  Announce();
  emit Redone();
}

// Focus and keys.

bool FormFace::MoveFocus(bool forward) {
  const Control* from = Form().Focused();
  QWidget* const now = QApplication::focusWidget();
  for (auto filter = filters_.cbegin(); filter != filters_.cend(); ++filter) {
    if (filter.value() != now) continue;
    if (forward) {  // from a filter to its list
      WidgetOf(*filter.key())->setFocus(Qt::TabFocusReason);
      return true;
    }
    from = filter.key();
  }
  const Control* next = faces::NextInTabOrder(Form(), from, forward);
  if (next == nullptr) return false;
  WidgetOf(*next)->setFocus(forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
  return true;
}

bool FormFace::EnterByTab(bool forward) {
  const Control* first = faces::NextInTabOrder(Form(), nullptr, forward);
  if (first == nullptr) return false;
  WidgetOf(*first)->setFocus(forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
  return true;
}

void FormFace::FocusFilter() {
  const Control* focused = Form().Focused();
  QWidget* filter = focused == nullptr ? nullptr : filters_.value(focused);
  if (filter == nullptr || !filter->isVisible()) {
    filter = nullptr;
    for (const Control* control : Form().Controls()) {
      QWidget* candidate = filters_.value(control);
      if (filter == nullptr && candidate != nullptr && candidate->isVisible()) filter = candidate;
    }
  }
  if (filter == nullptr) return;
  filter->setFocus(Qt::ShortcutFocusReason);
  if (auto* line = qobject_cast<QLineEdit*>(filter)) line->selectAll();
}

void FormFace::AddFilter(const RowsView& list, QWidget& filter) {
  filters_.insert(controls_.value(const_cast<RowsView*>(&list)), &filter);
}

bool FormFace::eventFilter(QObject* watched, QEvent* event) {
  const Control* control = controls_.value(watched);
  if (control == nullptr) return QObject::eventFilter(watched, event);
  if (control == &Form().fracase) {
    if (event->type() == QEvent::Resize) PlaceCaseRows();
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) FitToLetters();
    return QObject::eventFilter(watched, event);
  }
  auto& widget = *static_cast<QWidget*>(watched);
  switch (event->type()) {
    case QEvent::FocusIn:
      if (control->kind() == Kind::TabStrip) TellPage();
      if (Form().Focused() == control) {
        // Nothing to do: the form has the focus there already.
      } else if (static_cast<const QFocusEvent*>(event)->reason() == Qt::ActiveWindowFocusReason) {
        // The window becomes active again, after a message box for instance, and the form moved the
        // focus meanwhile.
        ShowFocus();
      } else {
        Make({Gesture::kFocus, control});
      }
      // The two views of the where condition lie over each other, and at first both are visible.
      if (control->frame() == &Form().FrawhereCondition || control->frame() == &Form().FraCondition)
        WidgetOf(*control->frame())->raise();
      break;
    case QEvent::ShortcutOverride:
      // A text box's own undo comes first while its undo stack is not empty; then the form's.
      if (auto* lines = qobject_cast<LinesBox*>(&widget)) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if ((key.matches(QKeySequence::Undo) && !lines->HasOwnUndo()) ||
            (key.matches(QKeySequence::Redo) && !lines->HasOwnRedo())) {
          event->ignore();
          return true;
        }
      } else if (const QLineEdit* line = LineOf(widget)) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if ((key.matches(QKeySequence::Undo) && !line->isUndoAvailable()) ||
            (key.matches(QKeySequence::Redo) && !line->isRedoAvailable())) {
          event->ignore();
          return true;
        }
      }
      break;
    case QEvent::Wheel:
      // The wheel turns no pages.
      if (control->kind() != Kind::TabStrip) break;
      event->ignore();
      return true;
    case QEvent::KeyPress:
      TellOwnUndo(widget, *static_cast<QKeyEvent*>(event));
      if (HandleKey(*control, widget, *static_cast<QKeyEvent*>(event))) return true;
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

bool FormFace::HandleKey(const Control& control, QWidget& widget, const QKeyEvent& event) {
  const bool isEnter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
  switch (control.kind()) {
    case Kind::Button:
      if (!isEnter) return false;
      static_cast<QPushButton&>(widget).click();
      return true;
    case Kind::OptionButton:
      if (event.key() == Qt::Key_Down || event.key() == Qt::Key_Right)
        return MoveOption(control, true);
      if (event.key() == Qt::Key_Up || event.key() == Qt::Key_Left)
        return MoveOption(control, false);
      return false;
    case Kind::ComboBox:
      return isEnter && static_cast<const ComboBox&>(control).IsEditable();
    default:
      return false;
  }
}

bool FormFace::MoveOption(const Control& option, bool forward) {
  const Control* next = faces::NextOption(Form(), option, forward);
  if (next != nullptr) static_cast<QRadioButton*>(WidgetOf(*next))->click();
  return true;
}

}  // namespace zolt20::qt
