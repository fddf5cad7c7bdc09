#include "hosts/composer/recorded_map.h"

#include <QByteArrayList>
#include <array>
#include <string>
#include <string_view>

#include "faces/qt/qt_text.h"
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

// Moving about composes nothing, nor do the buttons that only tell the host.
bool IsChange(const ZOLT20Gesture& gesture) {
  return gesture.verb != u"focus" && gesture.verb != u"tab" && gesture.control != u"cmdDone" &&
         gesture.control != u"cmdCancel";
}

// The request that makes the gesture.
hosts::Json RequestOf(const ZOLT20Gesture& gesture) {
  const std::string word = Utf8(gesture.verb);
  const bool hasOperand = gesture.number >= 0;
  UserGesture made{Gesture::kFocus, nullptr, gesture.number, FromQt(gesture.text)};
  // Words of two gestures are told apart by what they have beside their control.
  for (const GestureDesign& design : kGestures) {
    if (design.word == word && (design.operand.empty() || hasOperand || word != "click"))
      made.gesture = design.gesture;
  }
  if (gesture.from >= 0) made.mark = TextMark{gesture.from, gesture.to};
  return hosts::WriteGesture(made, Utf8(gesture.control));
}

}  // namespace

RecordedMap::RecordedMap(const catalogue::Catalogue& catalogue, QWidget* parent)
    : ZOLT20MapWidget(parent) {
  const auto note = [this](const char* event) { return [this, event] { event_ = event; }; };
  // Before the slots of anybody else.
  connect(this, &ZOLT20MapWidget::eventCancel, this, note("eventCancel"));
  connect(this, &ZOLT20MapWidget::eventDone, this, note("eventDone"));
  connect(this, &ZOLT20MapWidget::eventSubQuery, this, note("eventSubQuery"));
  connect(this, &ZOLT20MapWidget::eventCondition, this, note("eventCondition"));
  connect(this, &ZOLT20MapWidget::eventFunction, this, note("eventFunction"));
  connect(this, &ZOLT20MapWidget::gestureMade, this, &RecordedMap::KeepGesture);
  connect(this, &ZOLT20MapWidget::undone, this, [this] { typedIn_.clear(); });
  connect(this, &ZOLT20MapWidget::redone, this, [this] { typedIn_.clear(); });

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

bool RecordedMap::IsChanged() const {
  return Now().change != settledAt_;
}

void RecordedMap::Settle() {
  settledAt_ = Now().change;
}

QByteArray RecordedMap::Record() const {
  QByteArrayList texts;
  for (int line = Now().last; line != kNone; line = At(line).before)
    texts.prepend(At(line).text);
  QByteArray record;
  for (const QByteArray& text : texts)
    record += text + '\n';
  return record;
}

// Within an event it is part of the answer, which stands before the gesture.
void RecordedMap::Keep(const Json& request) {
  if (event_ != nullptr) {
    answers_.push_back(request);
    return;
  }
  const Place place = Now();
  lines_.push_back({QByteArray::fromStdString(hosts::TakeStandIns(request.dump())), place.last});
  MoveTo({static_cast<int>(lines_.size()) - 1, place.change});
  typedIn_.clear();
}

void RecordedMap::KeepGesture(const ZOLT20Gesture& gesture) {
  const char* event = std::exchange(event_, nullptr);
  const Json answers = std::exchange(answers_, Json::array());
  const Json request = RequestOf(gesture);
  if (GoesOnTyping(gesture)) {
    // No step knows the line before, which has most of the same text.
    const Place place = Now();
    MoveTo({At(place.last).before, place.change});
    lines_.pop_back();
  }
  if (!answers.empty()) Keep({{"answer", event}, {"with", answers}});
  Keep(request);
  if (!answers.empty()) Keep({{"answer", event}, {"with", Json::array()}});
  if (gesture.verb == u"type") typedIn_ = gesture.control;
  if (IsChange(gesture)) MoveTo({Now().last, ++changes_});
}

// Nothing runs when a syntax text box is typed into, so the last text of a run is all of it.
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
  return {place[0].toInt(), place[1].toInt()};
}

void RecordedMap::MoveTo(Place place) {
  setHostData(QVariantList{place.last, place.change});
}

}  // namespace zolt20::composer
