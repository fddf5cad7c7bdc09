#include "faces/qt/map_widget.h"

#include <QFocusEvent>
#include <QMessageBox>

#include "faces/qt/form_face.h"
#include "faces/qt/qt_text.h"
#include "shell/contract.h"
#include "shell/control.h"

using zolt20::Integer;
using zolt20::Message;
using zolt20::StringView;
using zolt20::ZOLT20MapControl;
using zolt20::qt::FormFace;
using zolt20::qt::FromQt;
using zolt20::qt::ToQt;

namespace {

QString Key(std::string_view key) {
  return QString::fromLatin1(key.data(), static_cast<qsizetype>(key.size()));
}

class VariantBag final : public zolt20::PropertyBag {
 public:
  explicit VariantBag(QVariantMap values = {}) : values_(std::move(values)) {}
  const QVariantMap& values() const { return values_; }

  zolt20::String ReadString(std::string_view key, StringView defaultValue) override {
    const QVariant value = values_.value(Key(key));
    return value.isValid() ? FromQt(value.toString()) : zolt20::String(defaultValue);
  }
  Integer ReadInteger(std::string_view key, Integer defaultValue) override {
    const QVariant value = values_.value(Key(key));
    if (!value.isValid()) return defaultValue;
    bool isNumber = false;
    const qlonglong number = value.toLongLong(&isNumber);
    if (!isNumber) zolt20::Raise(zolt20::ErrorKind::kOverflow);
    return number;
  }
  void WriteString(std::string_view key, StringView value) override {
    values_.insert(Key(key), ToQt(value));
  }
  void WriteInteger(std::string_view key, Integer value) override {
    values_.insert(Key(key), value.value());
  }

 private:
  QVariantMap values_;
};

ZOLT20Gesture GestureOf(const zolt20::faces::MadeGesture& made) {
  const zolt20::UserGesture& gesture = made.gesture;
  const bool isTab = gesture.gesture == zolt20::Gesture::kTab;
  const zolt20::TextMark mark = gesture.mark.value_or(zolt20::TextMark{-1, -1});
  return {Key(zolt20::DesignOf(gesture.gesture).word),
          isTab ? QString() : Key(gesture.control->name()),
          gesture.number,
          ToQt(gesture.text),
          made.goesOn,
          mark.from,
          mark.to};
}

}  // namespace

class ZOLT20MapWidget::Private final : public zolt20::ControlHost {
 public:
  explicit Private(ZOLT20MapWidget& owner) : widget(owner), control(*this), face(owner, control) {
    control.UserControl_InitProperties();
  }

  void eventCancel() override { Tell(&ZOLT20MapWidget::eventCancel); }
  void eventDone() override { Tell(&ZOLT20MapWidget::eventDone); }
  void eventSubQuery() override { Tell(&ZOLT20MapWidget::eventSubQuery); }
  void eventCondition() override { Tell(&ZOLT20MapWidget::eventCondition); }
  void eventFunction() override { Tell(&ZOLT20MapWidget::eventFunction); }

  void PropertyChanged(std::string_view property) override {
    face.ShowChanges();
    const QByteArray signal = Key(property).toLatin1() + "Changed";
    QMetaObject::invokeMethod(&widget, signal.constData(), Qt::DirectConnection);
  }

  void ShowMessage(const Message& message) override {
    face.ShowChanges();
    widget.showMessage(ToQt(message.text), ToQt(message.title));
  }

  void HistoryMayHaveChanged() {
    if (ShowButton("undo", couldUndo, face.person().CanUndo())) {
      emit widget.canUndoChanged(couldUndo);
    }
    if (ShowButton("redo", couldRedo, face.person().CanRedo())) {
      emit widget.canRedoChanged(couldRedo);
    }
  }

  ZOLT20MapWidget& widget;
  ZOLT20MapControl control;
  FormFace face;
  bool couldUndo = false;
  bool couldRedo = false;

 private:
  // Enables or disables a button by its name. Returns whether the state changed.
  bool ShowButton(const char* name, bool& known, bool now) {
    if (known == now) return false;
    known = now;
    if (auto* button = widget.findChild<QWidget*>(QString::fromLatin1(name))) {
      button->setEnabled(now);
    }
    return true;
  }

  void Tell(void (ZOLT20MapWidget::*event)()) {
    face.ShowChanges();
    emit(widget.*event)();
  }
};

ZOLT20MapWidget::ZOLT20MapWidget(QWidget* parent)
    : QWidget(parent), d_(std::make_unique<Private>(*this)) {
  connect(&d_->face, &FormFace::Failed, this, [this](const zolt20::faces::Failure& failure) {
    emit Failed(Key(failure.kind), failure.number, QString::fromStdString(failure.text));
  });
  connect(&d_->face, &FormFace::Acted, this,
          [this](const zolt20::faces::MadeGesture& made) { emit gestureMade(GestureOf(made)); });
  connect(&d_->face, &FormFace::HistoryChanged, this, [this] { d_->HistoryMayHaveChanged(); });
  d_->face.AskBeforePresses(
      [this](const zolt20::Control& button) { return mayPress(Key(button.name())); });
  connect(&d_->face, &FormFace::Undone, this, &ZOLT20MapWidget::undone);
  connect(&d_->face, &FormFace::Redone, this, &ZOLT20MapWidget::redone);
}

ZOLT20MapWidget::~ZOLT20MapWidget() = default;

// Each member of the contract. A read that writes nothing has nothing to show.
#define ZOLT20_CALL(call) d_->face.Call([&] { return d_->control.call; })

QString ZOLT20MapWidget::prpStroutput() const {
  return ToQt(d_->face.Call([&] { return d_->control.prpStroutput(); }, false));
}
QString ZOLT20MapWidget::prpStrSQLPart() const {
  return ToQt(d_->control.prpStrSQLPart());
}
QString ZOLT20MapWidget::prpstrSelectedFields() const {
  return ToQt(d_->face.Call([&] { return d_->control.prpstrSelectedFields(); }, false));
}
int ZOLT20MapWidget::prpintTabcount() const {
  return d_->control.prpintTabcount().value();
}
bool ZOLT20MapWidget::Syntax_Highlight() const {
  return d_->control.Syntax_Highlight();
}

QVariant ZOLT20MapWidget::BuildGroupBy() {
  ZOLT20_CALL(BuildGroupBy());
  return {};
}
QVariant ZOLT20MapWidget::ClearAll(int i_intTabNo) {
  ZOLT20_CALL(ClearAll(i_intTabNo));
  return {};
}

void ZOLT20MapWidget::UserControl_InitProperties() {
  ZOLT20_CALL(UserControl_InitProperties());
}
void ZOLT20MapWidget::UserControl_ReadProperties(const QVariantMap& bag) {
  VariantBag values(bag);
  ZOLT20_CALL(UserControl_ReadProperties(values));
}
QVariantMap ZOLT20MapWidget::UserControl_WriteProperties() const {
  VariantBag values;
  d_->control.UserControl_WriteProperties(values);
  return values.values();
}

void ZOLT20MapWidget::setPrpStrTables(const QString& tables) {
  ZOLT20_CALL(PrpStrTables(FromQt(tables)));
}
void ZOLT20MapWidget::setPrpStrFields(const QString& fields) {
  ZOLT20_CALL(PrpStrFields(FromQt(fields)));
}
void ZOLT20MapWidget::setPrpSelectPart(const QString& selectList) {
  ZOLT20_CALL(prpSelectPart(FromQt(selectList)));
}
void ZOLT20MapWidget::setPrpTab(int page) {
  ZOLT20_CALL(prpTab(page));
}
void ZOLT20MapWidget::setPrpParentorChild(const QString& value) {
  ZOLT20_CALL(prpParentorChild(FromQt(value)));
}
void ZOLT20MapWidget::setPrpStroutput(const QString& encoded) {
  ZOLT20_CALL(prpStroutput(FromQt(encoded)));
}
void ZOLT20MapWidget::setPrpSelectFromPart(const QString& tables) {
  ZOLT20_CALL(prpSelectFromPart(FromQt(tables)));
}
void ZOLT20MapWidget::setPrpSelectWherePart(const QString& encoded) {
  ZOLT20_CALL(prpSelectWherePart(FromQt(encoded)));
}
void ZOLT20MapWidget::setPrpSelectGroupbyPart(const QString& fields) {
  ZOLT20_CALL(prpSelectGroupbyPart(FromQt(fields)));
}
void ZOLT20MapWidget::setPrpSelectOrderbyPart(const QString& fields) {
  ZOLT20_CALL(prpSelectOrderbyPart(FromQt(fields)));
}
void ZOLT20MapWidget::setPrpSelectAsSetPart(const QString& rows) {
  ZOLT20_CALL(prpSelectAsSetPart(FromQt(rows)));
}
void ZOLT20MapWidget::setPrpSelectDoPart(const QString& encoded) {
  ZOLT20_CALL(prpSelectDoPart(FromQt(encoded)));
}
void ZOLT20MapWidget::setPrpSelectEOSPart(const QString& encoded) {
  ZOLT20_CALL(prpSelectEOSPart(FromQt(encoded)));
}
void ZOLT20MapWidget::setPrpSelectEmptyPart(const QString& encoded) {
  ZOLT20_CALL(prpSelectEmptyPart(FromQt(encoded)));
}
void ZOLT20MapWidget::setPrpSelectErrorPart(const QString& encoded) {
  ZOLT20_CALL(prpSelectErrorPart(FromQt(encoded)));
}
void ZOLT20MapWidget::setPrpintTabcount(int depth) {
  ZOLT20_CALL(prpintTabcount(depth));
}
void ZOLT20MapWidget::setSyntax_Highlight(bool highlight) {
  ZOLT20_CALL(Syntax_Highlight(highlight));
}

#undef ZOLT20_CALL

bool ZOLT20MapWidget::isUndoEnabled() const {
  return d_->face.person().HistoryIsOn();
}
bool ZOLT20MapWidget::canUndo() const {
  return d_->face.person().CanUndo();
}
bool ZOLT20MapWidget::canRedo() const {
  return d_->face.person().CanRedo();
}
void ZOLT20MapWidget::setUndoEnabled(bool enabled) {
  d_->face.SwitchHistory(enabled);
}
void ZOLT20MapWidget::undo() {
  d_->face.Undo();
}
void ZOLT20MapWidget::redo() {
  d_->face.Redo();
}

QVariant ZOLT20MapWidget::hostData() const {
  return d_->face.hostData();
}
void ZOLT20MapWidget::setHostData(const QVariant& value) {
  d_->face.SetHostData(value);
}
bool ZOLT20MapWidget::stepHostData(const QVariant& value) {
  return d_->face.StepHostData(value);
}
void ZOLT20MapWidget::setTableNames(const QHash<QString, QString>& names) {
  d_->face.NameTables(names);
}

zolt20::ControlSnapshot ZOLT20MapWidget::save() const {
  return d_->control.Save();
}
void ZOLT20MapWidget::restore(zolt20::ControlSnapshot snapshot) {
  d_->face.Call([&] { d_->control.Restore(std::move(snapshot)); });
}

const zolt20::Surface& ZOLT20MapWidget::form() const {
  return d_->control.Form();
}

bool ZOLT20MapWidget::mayPress(const QString& /*button*/) {
  return true;
}

void ZOLT20MapWidget::makeGesture(const zolt20::UserGesture& gesture) {
  d_->face.Make(gesture);
}
ZOLT20Gesture ZOLT20MapWidget::gestureInProgress() const {
  return GestureOf(d_->face.person().made());
}

QSize ZOLT20MapWidget::sizeHint() const {
  return {880, 620};
}

QSize ZOLT20MapWidget::minimumSizeHint() const {
  return {320, 240};  // in a smaller window than it needs the form scrolls
}

void ZOLT20MapWidget::showMessage(const QString& text, const QString& title) {
  QMessageBox::critical(this, title, text, QMessageBox::Ok);
}

// The focus goes along the tab order of the form, and leaves the widget at its ends.
bool ZOLT20MapWidget::focusNextPrevChild(bool next) {
  if (d_->face.MoveFocus(next)) return true;
  QWidget* other = this;
  do {
    other = next ? other->nextInFocusChain() : other->previousInFocusChain();
  } while (other != this &&
           (isAncestorOf(other) || !other->isEnabled() || !other->isVisibleTo(window()) ||
            (other->focusPolicy() & Qt::TabFocus) == 0));
  // With nothing else to focus in the window the tab order wraps around.
  if (other == this) return d_->face.EnterByTab(next);
  other->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
  return true;
}

void ZOLT20MapWidget::focusInEvent(QFocusEvent* event) {
  if (event->reason() == Qt::TabFocusReason && d_->face.EnterByTab(true)) return;
  if (event->reason() == Qt::BacktabFocusReason && d_->face.EnterByTab(false)) return;
  // The window became active: the control that has the focus in the form has it on the screen.
  d_->face.ShowFocus();
  QWidget::focusInEvent(event);
}
