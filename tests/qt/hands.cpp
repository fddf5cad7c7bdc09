#include "tests/qt/hands.h"

#include <QInputMethodEvent>
#include <QMessageBox>
#include <QWheelEvent>
#include <algorithm>
#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include "tests/qt/host_requests.h"

namespace zolt20::tests {
namespace {

using Json = nlohmann::ordered_json;

constexpr int kNone = -1;

std::vector<std::string> spoken;

// As a screen reader does. Public headers have no way to it.
void ActivateAccessibility(bool active) {
  QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(active);
}

void Hear(QAccessibleEvent* event) {
  if (event->object() == nullptr || event->child() < 0) return;
  std::string word;
  switch (event->type()) {
    case QAccessible::Focus:
      word = "at";
      break;
    case QAccessible::SelectionAdd:
      word = "marked";
      break;
    case QAccessible::SelectionRemove:
      word = "not marked";
      break;
    case QAccessible::StateChanged: {
      QAccessibleInterface* const row = event->accessibleInterface();
      word = row != nullptr && row->state().checked ? "checked" : "not checked";
      break;
    }
    default:
      return;
  }
  spoken.push_back(event->object()->objectName().toStdString() + " " + word + " " +
                   std::to_string(event->child()));
}

int QtKeyOf(const std::string& name) {
  static const std::map<std::string, int> kNamed{
      {"Enter", Qt::Key_Return},   {"Space", Qt::Key_Space},      {"Backspace", Qt::Key_Backspace},
      {"Delete", Qt::Key_Delete},  {"Home", Qt::Key_Home},        {"End", Qt::Key_End},
      {"ArrowLeft", Qt::Key_Left}, {"ArrowRight", Qt::Key_Right}, {"ArrowUp", Qt::Key_Up},
      {"ArrowDown", Qt::Key_Down}, {"PageUp", Qt::Key_PageUp},    {"PageDown", Qt::Key_PageDown},
      {"Tab", Qt::Key_Tab},        {"Escape", Qt::Key_Escape},
  };
  const auto found = kNamed.find(name);
  return found == kNamed.end() ? 0 : found->second;
}

// The line that a widget is or holds; nullptr when there is none.
const QLineEdit* LineIn(const QWidget& widget) {
  if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) return combo->lineEdit();
  return qobject_cast<const QLineEdit*>(&widget);
}

// The letters of a frame are those of its caption.
bool IsArial(const QWidget& widget) {
  const QStringList ofCaption = widget.property("captionFamilies").toStringList();
  const QStringList families = ofCaption.isEmpty() ? widget.font().families() : ofCaption;
  return families.value(0) == QStringLiteral("Arial");
}

// The colour behind the text, as it is drawn.
std::string BackOf(QWidget& widget) {
  QWidget* box = &widget;
  if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) box = combo->lineEdit();
  if (const auto* area = qobject_cast<const QAbstractScrollArea*>(&widget)) box = area->viewport();
  const QImage drawn = box->grab().toImage();
  constexpr int kFromEdge = 4;
  const QColor color = drawn.pixelColor(drawn.width() - kFromEdge, drawn.height() - kFromEdge);
  const QPalette palette;
  if (color == palette.color(QPalette::HighlightedText)) return "highlighted text";
  return color == palette.color(QPalette::Base) ? "window" : Std(color.name());
}

}  // namespace

Json LineOf(const ZOLT20Gesture& gesture) {
  Json line{{"user", Std(gesture.verb)}};
  if (!gesture.control.isEmpty()) line["control"] = Std(gesture.control);
  const std::string verb = line["user"];
  if (verb == "type") line["text"] = Std(gesture.text);
  for (const GestureDesign& design : kGestures) {
    if (gesture.number >= 0 && design.word == verb && !design.operand.empty())
      line[std::string(design.operand)] = gesture.number;
  }
  if (gesture.from >= 0) {
    line["from"] = gesture.from;
    line["to"] = gesture.to;
  }
  return line;
}

QtHands::QtHands() {
  widget_ = new ZOLT20MapWidget;
  widget_->resize(900, 650);
  const auto answer = [this](void (ZOLT20MapWidget::*event)(), const char* name) {
    QObject::connect(widget_, event, widget_, [this, name] {
      raised_ = name;
      try {
        for (const Json& request : answers_[name])
          RunRequest(widget(), request);
      } catch (const RuntimeError&) {
        // The answer ends there.
      }
    });
  };
  answer(&ZOLT20MapWidget::eventCancel, "eventCancel");
  answer(&ZOLT20MapWidget::eventDone, "eventDone");
  answer(&ZOLT20MapWidget::eventSubQuery, "eventSubQuery");
  answer(&ZOLT20MapWidget::eventCondition, "eventCondition");
  answer(&ZOLT20MapWidget::eventFunction, "eventFunction");
  QObject::connect(widget_, &ZOLT20MapWidget::gestureMade, widget_,
                   [this](const ZOLT20Gesture& gesture) {
                     gestures_.push_back(LineOf(gesture));
                     KeepAnswer();
                     Keep(gestures_.back());
                   });
  QObject::connect(&answering_, &QTimer::timeout, [this] { AnswerMessages(); });
  answering_.start(0);
  ShowWindow(*widget_);
}

QtHands::~QtHands() {
  if (isListening_) {
    QAccessible::installUpdateHandler(before_);
    ActivateAccessibility(false);
  }
  delete widget_;
}

void QtHands::CarryOut(const Json& request) {
  if (request.contains("answer")) {
    answers_[request["answer"]] = request["with"];
    return;
  }
  Keep(request);
  try {
    RunRequest(widget(), request);
  } catch (const RuntimeError&) {
    // Some requests fail.
  }
}

bool QtHands::CanReach(const std::string& control) {
  // A list that is open would take the press.
  if (QWidget* const popup = QApplication::activePopupWidget()) popup->close();
  const auto* target = widget_->findChild<QWidget*>(Qs(control));
  return target != nullptr && target->isEnabled() && IsInSight(control);
}

int QtHands::RowCount(const std::string& list) {
  if (const auto* combo = qobject_cast<const QComboBox*>(&On(list))) return combo->count();
  return Be<QAbstractItemView>(list).model()->rowCount();
}

void QtHands::TurnWheel(const std::string& over) {
  QWidget& target = On(over);
  const QPointF place = target.rect().center();
  QWheelEvent wheel(place, target.mapToGlobal(place), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(&target, &wheel);
}

void QtHands::Press(const KeyStroke& key) {
  Qt::KeyboardModifiers held;
  if (key.shift) held |= Qt::ShiftModifier;
  if (key.control) held |= Qt::ControlModifier;
  const QWidget* const popup = QApplication::activePopupWidget();
  QWindow* const window = popup == nullptr ? Window() : popup->windowHandle();
  if (const int named = QtKeyOf(key.name); named != 0) {
    QTest::keyClick(window, static_cast<Qt::Key>(named), held);
  } else {
    QTest::keyClick(window, key.name.at(0), held);
  }
}

void QtHands::Paste(const std::string& text) {
  QApplication::clipboard()->setText(Qs(text));
  QTest::keySequence(Window(), QKeySequence(QKeySequence::Paste));
}

void QtHands::Compose(const std::string& text) {
  QObject* const box = QApplication::focusObject();
  QInputMethodEvent composing(Qs(text), {});
  QApplication::sendEvent(box, &composing);
  QInputMethodEvent composed;
  composed.setCommitString(Qs(text));
  QApplication::sendEvent(box, &composed);
}

Json QtHands::Shown(const std::string& control, const std::string& what) {
  QWidget& widget = On(control);
  if (what == "enabled") return widget.isEnabled();
  if (what == "isArial") return IsArial(widget);
  if (what == "back") return BackOf(widget);
  if (what == "isOn") return Be<QAbstractButton>(control).isChecked();
  if (const auto* strip = qobject_cast<const QTabBar*>(&widget)) {
    if (what == "page") return strip->currentIndex();
    Json captions = Json::array();
    for (int page = 0; page < strip->count(); ++page)
      captions.push_back(Std(strip->tabText(page)));
    return captions;
  }
  if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget))
    return ShownOfList(*view, what);
  return ShownOfBox(widget, what);
}

Json QtHands::ShownOfBox(QWidget& widget, const std::string& what) {
  if (const auto* lines = qobject_cast<const QPlainTextEdit*>(&widget)) {
    if (what == "text") return Std(lines->toPlainText());
    if (what == "wraps") return lines->lineWrapMode() != QPlainTextEdit::NoWrap;
    if (what == "scrolls") {
      Json ways = Json::array();
      if (lines->horizontalScrollBar()->isVisible()) ways.push_back("across");
      if (lines->verticalScrollBar()->isVisible()) ways.push_back("down");
      return ways;
    }
    const QTextCursor cursor = lines->textCursor();
    return {cursor.selectionStart(), cursor.selectionEnd()};
  }
  const QLineEdit* const line = LineIn(widget);
  if (line == nullptr) return Std(qobject_cast<const QComboBox*>(&widget)->currentText());
  if (what == "text") return Std(line->text());
  const int from = line->hasSelectedText() ? line->selectionStart() : line->cursorPosition();
  return {from, from + static_cast<int>(line->selectedText().size())};
}

Json QtHands::ShownOfList(const QAbstractItemView& view, const std::string& what) {
  if (what == "at") return view.currentIndex().row();
  Json found = Json::array();
  for (int row = 0; row < view.model()->rowCount(); ++row) {
    const QModelIndex index = view.model()->index(row, 0);
    const bool isMarked = view.selectionMode() == QAbstractItemView::NoSelection
                              ? index.data(Qt::CheckStateRole).toInt() == Qt::Checked
                              : view.selectionModel()->isSelected(index);
    if (what == "rows") found.push_back(Std(index.data().toString()));
    if (what == "marked" && isMarked) found.push_back(row);
    const int width = view.fontMetrics().horizontalAdvance(index.data().toString());
    if (what == "cut" && width > view.viewport()->width()) {
      found = {row, view.textElideMode() == Qt::ElideMiddle ? "middle" : "elsewhere"};
    }
  }
  return found;
}

std::string QtHands::TextOnSurface(const std::string& control) {
  return State()["controls"][control]["Text"];
}

std::vector<std::string> QtHands::TakeSpoken() {
  return std::exchange(spoken, {});
}

void QtHands::ListenToWhatIsSpoken() {
  ActivateAccessibility(true);
  before_ = QAccessible::installUpdateHandler(&Hear);
  isListening_ = true;
  spoken.clear();
}

void QtHands::AnswerMessages() {
  auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
  if (box == nullptr) return;
  message_ = {{"text", Std(box->text())},
              {"title", Std(box->windowTitle())},
              {"sign", box->icon() == QMessageBox::Critical ? "error" : "another"}};
  box->button(QMessageBox::Ok)->click();
}

// The record.

void QtHands::Keep(const Json& line) {
  const QVariant place = widget_->hostData();
  lines_.push_back({line, place.isValid() ? place.toInt() : kNone});
  widget_->setHostData(static_cast<int>(lines_.size()) - 1);
}

// An answer stands before the gesture that asked for it: undone with it, it still is the host's.
void QtHands::KeepAnswer() {
  const auto answer = answers_.find(std::exchange(raised_, {}));
  if (answer != answers_.end()) Keep({{"answer", answer->first}, {"with", answer->second}});
}

std::vector<Json> QtHands::Record() {
  std::vector<Json> record;
  const QVariant place = widget_->hostData();
  for (int line = place.isValid() ? place.toInt() : kNone; line != kNone;
       line = lines_[static_cast<std::size_t>(line)].before)
    record.insert(record.begin(), lines_[static_cast<std::size_t>(line)].text);
  return record;
}

}  // namespace zolt20::tests
