#include "faces/qt/form_face.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTabBar>
#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

#include "faces/qt/announcer.h"
#include "faces/qt/combo_box.h"
#include "faces/qt/face_style.h"
#include "faces/qt/form_layout.h"
#include "faces/qt/qt_text.h"
#include "faces/qt/rows_view.h"
#include "faces/qt/text_boxes.h"
#include "faces/shared/back_colours.h"
#include "faces/shared/case_places.h"
#include "faces/shared/form_words.h"
#include "faces/shared/neighbours.h"

namespace zolt20::qt {
namespace {

constexpr int kTwipsPerInch = 1440;

// The line that a widget is or, in a combo box, holds; nullptr when there is none.
const QLineEdit* LineOf(const QWidget& widget) {
  if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) return combo->lineEdit();
  return qobject_cast<const QLineEdit*>(&widget);
}

// The colour behind the text of a control, as long as the text can be read on it. Qt knows no
// colour of inactive title bars: it is that of the window around the box.
QPalette PaletteOf(const Control& control) {
  QPalette palette;
  const auto asked = faces::SystemColourOf(faces::BackColorOf(control).value_or(0));
  if (!asked) return palette;
  const bool isOfText = *asked == faces::SystemColour::kHighlightedText;
  const QColor colour = palette.color(isOfText ? QPalette::HighlightedText : QPalette::Window);
  const auto rgb = [](const QColor& of) { return faces::Rgb{of.red(), of.green(), of.blue()}; };
  if (faces::CanBeRead(rgb(palette.color(QPalette::Text)), rgb(colour)))
    palette.setColor(QPalette::Base, colour);
  return palette;
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
  // While the models of the widgets have their lists. What they tell on their way is nobody's act.
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
  widget->setObjectName(QString());  // an element of that name may come before this is deleted
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

// Showing.

void FormFace::ShowChanges() {
  if (isShowing_) return;
  const bool hadFocus = HasFocus();
  bool focusMoved = false;
  bool historyChanged = false;
  {
    const QScopedValueRollback showing(isShowing_, true);
    faces::Changes changes = person_.TakeChanges();
    while (true) {
      focusMoved |= changes.focusMoved;
      historyChanged |= changes.historyChanged;
      if (changes.changed.empty()) break;
      ShowControls(changes.changed);
      changes = person_.TakeChanges();
    }
    if (hadFocus) ShowFocus(focusMoved);
  }
  if (historyChanged) emit HistoryChanged();
}

void FormFace::ShowControls(const std::map<const Control*, faces::Change>& changed) {
  // All of them have widgets before any is shown: where one is hidden, Qt moves the focus on.
  for (const auto& [control, change] : changed) {
    if (WidgetOf(*control) == nullptr) MakeWidget(*control)->setParent(WidgetOf(*control->frame()));
  }
  for (const auto& [control, change] : changed) {
    QWidget& widget = *WidgetOf(*control);
    ShowKind(*control, widget, change);
    ShowPlace(*control, widget);
    widget.setEnabled(control->Enabled());
    widget.setVisible(control->Visible());
    if (QWidget* filter = filters_.value(control)) filter->setEnabled(control->Enabled());
  }
}

void FormFace::ShowKind(const Control& control, QWidget& widget, const faces::Change& change) {
  switch (control.kind()) {
    case Kind::TabStrip:
      static_cast<QTabBar&>(widget).setCurrentIndex(
          static_cast<const TabStrip&>(control).Tab().value());
      break;
    case Kind::SyntaxTextBox: {
      const auto& box = static_cast<const SyntaxTextBox&>(control);
      auto& lines = static_cast<LinesBox&>(widget);
      lines.Highlight(box.Highlight());
      lines.Show(box.Text());
      break;
    }
    case Kind::TextBox: {
      const auto& box = static_cast<const TextBox&>(control);
      const bool movesCaret = change.Has(Property::kSelStart);
      if (auto* lines = qobject_cast<LinesBox*>(&widget)) {
        lines->Show(box.Text());
        if (movesCaret) lines->ShowCaret(box.SelStart());
        lines->setBackgroundRole(QPalette::Base);
        if (faces::BackColorOf(control)) lines->setPalette(PaletteOf(control));
      } else {
        auto& line = static_cast<LineBox&>(widget);
        line.Show(box.Text());
        if (movesCaret) line.ShowCaret(box.SelStart());
      }
      break;
    }
    case Kind::ListBox:
      static_cast<RowsView&>(widget).ShowMarks();
      break;
    case Kind::ComboBox: {
      auto& box = static_cast<ComboWidget&>(widget);
      box.Show();
      box.setPalette(PaletteOf(control));
      break;
    }
    case Kind::Button:
      static_cast<QPushButton&>(widget).setText(ToQt(faces::CaptionWithMnemonic(control)));
      break;
    case Kind::OptionButton: {
      auto& radio = static_cast<QRadioButton&>(widget);
      radio.setText(ToQt(faces::CaptionWithMnemonic(control)));
      radio.setAutoExclusive(false);  // so that the one that is on can go off
      radio.setChecked(static_cast<const OptionButton&>(control).Value());
      radio.setAutoExclusive(true);
      break;
    }
    case Kind::Frame: {
      auto& group = static_cast<QGroupBox&>(widget);
      if (!group.isFlat()) group.setTitle(ToQt(static_cast<const Frame&>(control).Caption()));
      break;
    }
    case Kind::Label:
      static_cast<QLabel&>(widget).setText(ToQt(static_cast<const Label&>(control).Caption()));
      break;
    case Kind::Rectangle:
      break;
    case Kind::ScrollBar: {
      const auto& bar = static_cast<const ScrollBar&>(control);
      auto& scroll = static_cast<QScrollBar&>(widget);
      scroll.setRange(0, bar.Max());
      scroll.setValue(bar.Value());
      break;
    }
  }
  // Even the same name would be told as a new one.
  const QString name = ToQt(faces::AccessibleName(control));
  if (widget.accessibleName() != name) widget.setAccessibleName(name);
}

// Of the frame of the case rows its height, of what lies in it all. In a wider frame the boxes and
// what stands beside them are wider.
void FormFace::ShowPlace(const Control& control, QWidget& widget) {
  if (control.Height() == 0) return;
  const auto down = [this](int twips) { return Pixels(twips); };
  const auto length = [&](const faces::Stretch& stretch) {
    return stretch.In(down, rowGrowth_, nextGrowth_);
  };
  const faces::CaseSpan span = faces::CaseSpanOf(Form(), control);
  if (control.design().name == ControlName::fracase) {
    widget.setFixedHeight(length(span.height));
    return;
  }
  const int frame = std::max(widget.parentWidget()->width(), down(faces::kCaseFrameTwips));
  const auto across = [&](int twips) { return twips * frame / faces::kCaseFrameTwips; };
  widget.setGeometry(across(control.Left()), length(span.top), across(control.Width()),
                     length(span.height));
}

void FormFace::PlaceCaseRows() {
  for (const Control* control : Form().Controls()) {
    QWidget* widget = WidgetOf(*control);
    if (widget != nullptr && control->frame() == &Form().fracase) ShowPlace(*control, *widget);
  }
}

// What has its place from the form is no smaller than its letters need: case rows of two lines, the
// button below them, and the frame around them.
void FormFace::FitToLetters() {
  constexpr int kLines = 2;
  constexpr int kDefaultHeight = 48;
  constexpr int kButtonEdges = 12;
  const Surface& form = Form();
  const auto& statements = static_cast<const LinesBox&>(*WidgetOf(form.txtStmt(0)));
  const auto& next = static_cast<const QPushButton&>(*WidgetOf(form.cmdNext));
  const int row =
      std::max(WidgetOf(form.TxtExpr(0))->minimumSizeHint().height(), statements.HeightOf(kLines));
  rowGrowth_ = std::max(0, row - Pixels(form.TxtExpr(0).Height()));
  nextGrowth_ = std::max(0, next.minimumSizeHint().height() - Pixels(form.cmdNext.Height()));

  const int caption = next.fontMetrics().size(Qt::TextShowMnemonic, next.text()).width();
  QWidget& frame = *WidgetOf(form.fracase);
  frame.setMinimumWidth(
      std::max(Pixels(faces::kCaseFrameTwips),
               (caption + kButtonEdges) * faces::kCaseFrameTwips / form.cmdNext.Width() + 1));
  ShowPlace(form.fracase, frame);
  PlaceCaseRows();

  auto& otherwise = static_cast<LinesBox&>(*WidgetOf(form.TxtDef));
  otherwise.setMaximumHeight(std::max(kDefaultHeight, otherwise.HeightOf(kLines)));
}

int FormFace::Pixels(int twips) const {
  return twips * owner_.logicalDpiY() / kTwipsPerInch;
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
  if (!isShowing_) End(person_.Make(std::move(gesture)));
}

// What a line's own undo brings back, such as half a line end, stood there before and stays so.
void FormFace::TypedIn(const Control& box, const QLineEdit& line, TextMark marked) {
  if (isShowing_) return;
  const QString text = line.text();
  if (line.isRedoAvailable()) return Make({Gesture::kType, &box, UserGesture::kNone, FromQt(text)});
  const auto caret = static_cast<std::size_t>(line.cursorPosition());
  End(person_.TypeInLine(box, View(text), caret, marked));
}

// A gesture that was not taken is shown to be none when the call in progress is over.
void FormFace::End(faces::End end) {
  if (end == faces::End::kNotTaken) return;
  const faces::MadeGesture made = person_.made();
  const faces::Failure failure = person_.failure();
  ShowChanges();
  Announce();
  if (made.gesture.control != nullptr) emit Acted(made);
  if (end != faces::End::kDone) emit Failed(failure);
}

// Of the tab strip Qt tells that it has the focus, and not which page.
void FormFace::TellPage() {
  const auto tell = [this] {
    auto* strip = static_cast<QTabBar*>(WidgetOf(Form().tabVrn));
    if (!QAccessible::isActive() || !strip->hasFocus()) return;
    QAccessibleEvent event(strip, QAccessible::Focus);
    event.setChild(strip->currentIndex());
    QAccessible::updateAccessibility(&event);
  };
  QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

// What a box takes back by itself changes its text, and screen readers read no such change.
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
  // Of a check box in a list Qt tells only that it is another.
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
        // There already.
      } else if (static_cast<const QFocusEvent*>(event)->reason() == Qt::ActiveWindowFocusReason) {
        // The window comes back, from behind a message for instance, and the form moved the focus
        // meanwhile.
        ShowFocus();
      } else {
        Make({Gesture::kFocus, control});
      }
      // The two views of the where condition lie over each other, and at first both are visible.
      if (control->frame() == &Form().FrawhereCondition || control->frame() == &Form().FraCondition)
        WidgetOf(*control->frame())->raise();
      break;
    case QEvent::ShortcutOverride:
      // A box's own Undo comes first, as long as it has anything to take back.
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
      // It turns no pages.
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
