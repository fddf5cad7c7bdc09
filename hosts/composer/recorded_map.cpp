#include "hosts/composer/recorded_map.h"

#include <QAbstractButton>
#include <QByteArrayList>
#include <QMessageBox>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTabBar>
#include <array>
#include <string>
#include <string_view>

#include "faces/qt/qt_text.h"
#include "hosts/composer/journal_lines.h"
#include "hosts/composer/marked_lines.h"
#include "hosts/kit/request.h"
#include "hosts/kit/text_coding.h"
#include "surface/surface.h"

namespace zolt20::composer {
namespace {

using qt::FromQt;
using qt::ToQt;
using qt::View;

struct TextProperty {
  std::string_view name;
  void (ZOLT20MapWidget::*write)(const QString&);
};
struct NumberProperty {
  std::string_view name;
  void (ZOLT20MapWidget::*write)(int);
};
constexpr std::array<TextProperty, 14> kTextProperties{{
    {"PrpStrTables", &ZOLT20MapWidget::setPrpStrTables},
    {"PrpStrFields", &ZOLT20MapWidget::setPrpStrFields},
    {"prpSelectPart", &ZOLT20MapWidget::setPrpSelectPart},
    {"prpParentorChild", &ZOLT20MapWidget::setPrpParentorChild},
    {"prpStroutput", &ZOLT20MapWidget::setPrpStroutput},
    {"prpSelectFromPart", &ZOLT20MapWidget::setPrpSelectFromPart},
    {"prpSelectWherePart", &ZOLT20MapWidget::setPrpSelectWherePart},
    {"prpSelectGroupbyPart", &ZOLT20MapWidget::setPrpSelectGroupbyPart},
    {"prpSelectOrderbyPart", &ZOLT20MapWidget::setPrpSelectOrderbyPart},
    {"prpSelectAsSetPart", &ZOLT20MapWidget::setPrpSelectAsSetPart},
    {"prpSelectDoPart", &ZOLT20MapWidget::setPrpSelectDoPart},
    {"prpSelectEOSPart", &ZOLT20MapWidget::setPrpSelectEOSPart},
    {"prpSelectEmptyPart", &ZOLT20MapWidget::setPrpSelectEmptyPart},
    {"prpSelectErrorPart", &ZOLT20MapWidget::setPrpSelectErrorPart},
}};
constexpr std::array<NumberProperty, 2> kNumberProperties{{
    {"prpTab", &ZOLT20MapWidget::setPrpTab},
    {"prpintTabcount", &ZOLT20MapWidget::setPrpintTabcount},
}};

// The member that writes a property; the names are those above.
template <typename Properties>
auto WriterOf(const Properties& properties, std::string_view name) {
  for (const auto& property : properties) {
    if (property.name == name) return property.write;
  }
  throw std::invalid_argument("no property " + std::string(name));
}

std::string Utf8(const QString& text) {
  return hosts::ToJsonText(View(text));
}

// Whether the button adds to the Result, which rewrites the text of the Result.
bool Adds(const QString& button) {
  return IsAddButton(View(button)) || button == u"cmdAdd" || button == u"cmdBuild";
}

bool AskToWriteAnew(RecordedMap& map, const QString& text) {
  QMessageBox message(QMessageBox::Warning, RecordedMap::tr("Add To Result"),
                      RecordedMap::tr("The statement would be written anew as it stands on the "
                                      "pages. What was edited in it in the Result would be lost."),
                      QMessageBox::NoButton, &map);
  message.setTextFormat(Qt::PlainText);
  message.setInformativeText(MarkedLines(map.form().TxtOutput.Text(), View(text)));
  const QPushButton* write =
      message.addButton(RecordedMap::tr("Write Anew"), QMessageBox::DestructiveRole);
  QPushButton* stay = message.addButton(RecordedMap::tr("Go On"), QMessageBox::RejectRole);
  message.setEscapeButton(stay);
  message.setDefaultButton(stay);
  message.exec();
  return message.clickedButton() == write;
}

}  // namespace

RecordedMap::RecordedMap(const catalogue::Catalogue& catalogue, QWidget* parent)
    : ZOLT20MapWidget(parent), reader_(std::make_unique<PagesReader>()) {
  const auto note = [this](const char* event) { return [this, event] { Note(event); }; };
  // Connected first, so that it runs before the slots of the host.
  connect(this, &ZOLT20MapWidget::eventCancel, this, note("eventCancel"));
  connect(this, &ZOLT20MapWidget::eventDone, this, note("eventDone"));
  connect(this, &ZOLT20MapWidget::eventSubQuery, this, note("eventSubQuery"));
  connect(this, &ZOLT20MapWidget::eventCondition, this, note("eventCondition"));
  connect(this, &ZOLT20MapWidget::eventFunction, this, note("eventFunction"));
  connect(this, &ZOLT20MapWidget::gestureMade, this, &RecordedMap::KeepGesture);
  connect(this, &ZOLT20MapWidget::undone, this, [this] {
    typedIn_.clear();
    ToJournal({{"undo", true}}, true);
  });
  connect(this, &ZOLT20MapWidget::redone, this, [this] {
    typedIn_.clear();
    ToJournal({{"redo", true}}, true);
  });

  Write("PrpStrTables", ToQt(TableList(catalogue)));
  Write("PrpStrFields", ToQt(FieldList(catalogue)));
  Keep({{"set", "Syntax_Highlight"}, {"value", true}});
  setSyntax_Highlight(true);
  QHash<QString, QString> names;
  for (const catalogue::Table& table : catalogue.tables) {
    if (table.code != table.name) names.insert(ToQt(table.code), ToQt(table.name));
  }
  setTableNames(names);
}

void RecordedMap::Write(const char* property, const QString& value) {
  const auto write = WriterOf(kTextProperties, property);
  Keep({{"set", property}, {"value", Utf8(value)}});
  (this->*write)(value);
  if (event_ == nullptr && property == std::string_view("prpStroutput")) TakeOwn();
}

void RecordedMap::Write(const char* property, int value) {
  const auto write = WriterOf(kNumberProperties, property);
  Keep({{"set", property}, {"value", value}});
  (this->*write)(value);
}

QString RecordedMap::ReadResult() {
  Keep({{"get", "prpStroutput"}});
  return prpStroutput();
}

RecordedMap::Pending RecordedMap::PendingOnPages() const {
  const PagesText pages = Pages();
  const StringView result = form().TxtOutput.Text();
  Pending pending;
  pending.statement = !pages.statement.empty() && pages.statement != settled_.statement &&
                      pages.statement != View(Now().added) &&
                      !HoldsStatement(result.empty() ? View(stored_) : result, pages.statement);
  pending.unapplied = !pages.unapplied.empty() && pages.unapplied != settled_.unapplied;
  pending.loose = !pages.loose.empty() && pages.loose != settled_.loose;
  pending.condition = !pages.condition.empty() && pages.condition != settled_.condition;
  return pending;
}

bool RecordedMap::IsChanged() const {
  const StringView result = form().TxtOutput.Text();
  return (!result.empty() && result != View(stored_)) || NodeNotes() != settledNotes_ ||
         PendingOnPages().Any();
}

void RecordedMap::Settle(const QString& stored) {
  stored_ = stored;
  settled_ = Pages();
  settledNotes_ = NodeNotes();
  ToJournal({{"settle", Utf8(stored)}}, false);
}

Addition RecordedMap::WhatAddDoes() const {
  const Pending pending = PendingOnPages();
  Addition addition = reader_->Add(save(), pending.statement, pending.condition, View(Now().added));
  if (!addition.buttons.empty()) addition.result = MergedWith(addition.result).text;
  return addition;
}

void RecordedMap::AddPages() {
  const QScopedValueRollback agreed(isAgreed_, true);
  auto& strip = *findChild<QTabBar*>(QStringLiteral("tabVrn"));
  const int page = strip.currentIndex();
  for (const PageButton& button : WhatAddDoes().buttons) {
    strip.setCurrentIndex(button.page);
    findChild<QAbstractButton*>(QLatin1String(button.name))->click();
  }
  strip.setCurrentIndex(page);
}

// Writes the Result as one step with that name. The focus gestures before and after keep the step
// apart from runs of typing in the Result.
void RecordedMap::WriteResult(const QString& text, const QString& name) {
  const Json focus = {{"user", "focus"}, {"control", "TxtOutput"}};
  MakeGesture(focus);
  stepName_ = name;
  MakeGesture({{"user", "type"}, {"control", "TxtOutput"}, {"text", Utf8(text)}});
  stepName_.clear();
  MakeGesture(focus);
}

MergedResult RecordedMap::MergedWith(StringView written) const {
  const Place place = Now();
  return MergeResult({View(place.own), form().TxtOutput.Text(), written, View(place.added)});
}

// The control rewrites the Result from its own statements, so edits of the Result would be lost.
// Edits that can't be merged into the new Result are shown, and the person decides, before the
// button is pressed.
bool RecordedMap::mayPress(const QString& button) {
  const QString before = ToQt(form().TxtOutput.Text());
  if (Adds(button) && !isAgreed_ && !isPlaying_ && before != Now().own) {
    const std::optional<String> written = reader_->Press(save(), button.toStdString());
    const MergedResult merged = written ? MergedWith(*written) : MergedResult();
    if (merged.loses && !AskToWriteAnew(*this, ToQt(merged.text))) return false;
  }
  pressed_ = Pressed{button, before, Now()};
  return true;
}

// After an add: puts the merged edits back into the Result, as a step of its own.
void RecordedMap::FollowEdits(const ZOLT20Gesture& gesture) {
  const std::optional<Pressed> pressed = std::exchange(pressed_, std::nullopt);
  if (!pressed || gesture.verb != u"click" || gesture.control != pressed->button) return;
  const QString result = ToQt(form().TxtOutput.Text());
  if (result == pressed->result) return;
  TakeOwn();
  const Place& place = pressed->place;
  if (!Adds(gesture.control) || place.own == pressed->result) return;
  const QString text = ToQt(
      MergeResult({View(place.own), View(pressed->result), View(result), View(place.added)}).text);
  owed_ = text == result ? std::nullopt : std::optional(text);
  if (!isPlaying_) PayOwed();
}

void RecordedMap::PayOwed() {
  if (const auto owed = std::exchange(owed_, std::nullopt))
    WriteResult(*owed, tr("Keep What Was Edited"));
}

// Takes the Result as unedited: the control or the host wrote it.
void RecordedMap::TakeOwn() {
  Place place = Now();
  place.own = ToQt(form().TxtOutput.Text());
  MoveTo(place);
}

QByteArray RecordedMap::Record() const {
  QByteArrayList texts;
  for (int line = Now().last; line != kNone; line = At(line).before)
    texts.prepend(TextOf(At(line)));
  QByteArray record;
  for (const QByteArray& text : texts)
    record += text + '\n';
  return record;
}

// Focus, pages, Done and Cancel change nothing of what is composed.
bool RecordedMap::IsChange(const ZOLT20Gesture& gesture) {
  return gesture.verb != u"focus" && gesture.verb != u"tab" && gesture.control != u"cmdDone" &&
         gesture.control != u"cmdCancel";
}

// The protocol request for a gesture.
hosts::Json RecordedMap::RequestOf(const ZOLT20Gesture& gesture) {
  const std::string word = Utf8(gesture.verb);
  const bool hasOperand = gesture.number >= 0;
  UserGesture made{Gesture::kFocus, nullptr, gesture.number, FromQt(gesture.text)};
  // "click" is two gestures: one with a row and one without.
  for (const GestureDesign& design : kGestures) {
    if (design.word == word && (design.operand.empty() || hasOperand || word != "click"))
      made.gesture = design.gesture;
  }
  if (gesture.from >= 0) made.mark = TextMark{gesture.from, gesture.to};
  return hosts::WriteGesture(made, Utf8(gesture.control));
}

// A request within an event belongs to the answer of that event, whose line comes before the
// gesture's.
void RecordedMap::Keep(const Json& request) {
  if (event_ != nullptr) {
    answers_.push_back(request);
    return;
  }
  ToJournal(request, false);
  AddLine(request);
}

void RecordedMap::AddLine(const Json& request) {
  Place place = Now();
  lines_.push_back({JsonLine(request), place.last});
  place.last = static_cast<int>(lines_.size()) - 1;
  MoveTo(place);
  typedIn_.clear();
}

void RecordedMap::AddTyped(const ZOLT20Gesture& gesture) {
  Place place = Now();
  lines_.push_back({QByteArray(), place.last, gesture});
  place.last = static_cast<int>(lines_.size()) - 1;
  MoveTo(place);
}

QByteArray RecordedMap::TextOf(const Line& line) const {
  return line.typed ? JsonLine(RequestOf(*line.typed)) : line.text;
}

void RecordedMap::KeepGesture(const ZOLT20Gesture& gesture) {
  const char* event = std::exchange(event_, nullptr);
  const Json answers = std::exchange(answers_, Json::array());
  const bool goesOn = GoesOnTyping(gesture);
  if (goesOn) {
    // The line of the same run of typing is replaced; no undo step refers to it.
    Place place = Now();
    place.last = At(place.last).before;
    MoveTo(place);
    lines_.pop_back();
  }
  if (!answers.empty()) AddLine({{"answer", event}, {"with", answers}});
  if (goesOn) {
    AddTyped(gesture);
  } else {
    AddLine(RequestOf(gesture));
  }
  if (!answers.empty()) AddLine({{"answer", event}, {"with", Json::array()}});
  if (gesture.verb == u"type") typedIn_ = gesture.control;
  if (gesture.verb == u"click" && IsAddButton(View(gesture.control))) {
    const PagesText pages = Pages();
    if (HoldsStatement(form().TxtOutput.Text(), pages.statement)) {
      Place place = Now();
      place.added = ToQt(pages.statement);
      MoveTo(place);
    }
  }
  Json step;
  if (goesOn) {
    step = {{"user", "type"}, {"control", Utf8(gesture.control)}};
  } else {
    step = RequestOf(gesture);
  }
  if (!answers.empty()) {
    step["event"] = event;
    step["with"] = answers;
  }
  KeepStep(gesture, std::move(step));
  FollowEdits(gesture);
}

// Whether the gesture continues a run of typing. Only in a syntax text box, where no handler runs,
// is the last text of the run enough.
bool RecordedMap::GoesOnTyping(const ZOLT20Gesture& gesture) const {
  if (!gesture.goesOn || gesture.control != typedIn_) return false;
  const Control* box = form().Find(Utf8(gesture.control));
  return box != nullptr && box->kind() == Kind::SyntaxTextBox;
}

const RecordedMap::Line& RecordedMap::At(int line) const {
  return lines_[static_cast<std::size_t>(line)];
}

RecordedMap::Place RecordedMap::Now() const {
  const QVariantList place = hostData().toList();
  if (place.isEmpty()) return {};
  return {place[0].toInt(), place[1].toString(), place[2].toString(),
          place[3].value<std::shared_ptr<const NotedNodes>>()};
}

QVariant RecordedMap::ValueOf(const Place& place) {
  return QVariantList{place.last, place.added, place.own, QVariant::fromValue(place.notes)};
}

void RecordedMap::MoveTo(const Place& place) {
  setHostData(ValueOf(place));
}

}  // namespace zolt20::composer
