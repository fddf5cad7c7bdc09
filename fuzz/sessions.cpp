// Fuzzes the control with bytes as a session: the courses of SessionMaker with odd texts in them,
// and between them malformed catalogues, any gesture with any number, any member with any value,
// answers inside events that fail (re-entrancy), invisible forms, states saved and restored.
//
// Invariants after each step: the rules of the surface hold, and a mirror fed by notices alone
// equals the surface. A refused gesture sends no notice. A step is deterministic: made, undone by
// restoring the state, and made again, it has the same outcome. Run-time errors are expected
// outcomes. ZOLT20_FUZZ_LINES in the environment writes the session as lines for zolt20-host.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "fuzz/bounds.h"
#include "fuzz/odd_texts.h"
#include "hosts/kit/json_reader.h"
#include "hosts/kit/request.h"
#include "hosts/kit/text_coding.h"
#include "shell/contract.h"
#include "tests/support/choices.h"
#include "tests/support/mirror.h"
#include "tests/support/session_maker.h"

namespace zolt20::fuzz {
namespace {

using hosts::FromJsonText;
using hosts::Json;
using hosts::ToJsonText;
using tests::Mirror;

constexpr int kMostSteps = 160;
constexpr int kMostAtOnce = 24;

/// What a host does with the control.
struct HostCall {
  enum class Verb { kLet, kGet, kCall };

  Verb verb = Verb::kGet;
  const Member* member = nullptr;
  Variant value;
};

/// A gesture of the person. The control is given by name, since elements are loaded and unloaded.
struct Move {
  std::string control;
  UserGesture what;
};

using Step = std::variant<HostCall, Move>;

/// An exception that the host throws in an event, and that passes through the handlers.
struct HostFailure {};

/// What the host does inside an event.
struct Answer {
  std::size_t event = 0;  // in the order of Events()
  std::vector<HostCall> calls;
  bool catches = false;  // run-time errors of the calls stay within the event
  bool fails = false;    // the event ends by throwing HostFailure
};

Json ToJson(const Variant& value) {
  if (const auto* text = std::get_if<String>(&value)) return ToJsonText(*text);
  if (const auto* number = std::get_if<Integer>(&value)) return number->value();
  if (const auto* flag = std::get_if<bool>(&value)) return *flag;
  return nullptr;
}

Json ToJson(const HostCall& call) {
  const std::string name(call.member->name);
  switch (call.verb) {
    case HostCall::Verb::kLet:
      return {{"set", name}, {"value", ToJson(call.value)}};
    case HostCall::Verb::kGet:
      return {{"get", name}};
    case HostCall::Verb::kCall:
      break;
  }
  Json arguments = Json::array();
  if (call.member->type != ValueType::kNone) arguments.push_back(ToJson(call.value));
  return {{"call", name}, {"args", std::move(arguments)}};
}

Json ToJson(const Answer& answer) {
  Json calls = Json::array();
  for (const HostCall& call : answer.calls)
    calls.push_back(ToJson(call));
  return {{"answer", Events()[answer.event].name}, {"with", std::move(calls)}};
}

Json ToJson(const Move& move) {
  return hosts::WriteGesture(move.what, move.control);
}

/// A property bag in memory.
class Bag final : public PropertyBag {
 public:
  String ReadString(std::string_view key, StringView defaultValue) override {
    const auto found = texts.find(std::string(key));
    return found == texts.end() ? String(defaultValue) : found->second;
  }
  Integer ReadInteger(std::string_view key, Integer defaultValue) override {
    const auto found = numbers.find(std::string(key));
    return found == numbers.end() ? defaultValue : Integer(found->second);
  }
  void WriteString(std::string_view key, StringView value) override {
    texts[std::string(key)] = value;
  }
  void WriteInteger(std::string_view key, Integer value) override {
    numbers[std::string(key)] = value.value();
  }

  bool operator==(const Bag& other) const {
    return texts == other.texts && numbers == other.numbers;
  }

  std::map<std::string, String> texts;
  std::map<std::string, int> numbers;
};

/// The values as a session maker takes them.
Json ValuesOf(const Bag& bag) {
  Json values;
  for (const auto& [key, text] : bag.texts)
    values[key] = ToJsonText(text);
  for (const auto& [key, number] : bag.numbers)
    values[key] = number;
  return values;
}

Bag BagOf(const Json& values) {
  Bag bag;
  for (const auto& [key, value] : values.items()) {
    if (value.is_string()) {
      bag.texts[key] = FromJsonText(value.get_ref<const std::string&>());
    } else {
      bag.numbers[key] = value.get<int>();
    }
  }
  return bag;
}

Json ToJson(const Bag& bag) {
  return {{"new", {{"bag", ValuesOf(bag)}}}};
}

Json ToJson(FormVisible visible) {
  return {{"new", {{"visible", visible == FormVisible::kYes}}}};
}

// The value of a member's type. Raises `overflow` for a number that is no Integer.
Variant ValueOf(const Member& member, const Json& value) {
  if (member.type == ValueType::kString) return FromJsonText(value.get_ref<const std::string&>());
  if (member.type == ValueType::kInteger) return Integer(value.get<int>());
  return value.get<bool>();
}

HostCall CallOf(const Json& request) {
  const Json& name = request.front();
  HostCall call{HostCall::Verb::kGet, FindMember(name.get_ref<const std::string&>()), {}};
  if (request.contains("set")) {
    call.verb = HostCall::Verb::kLet;
    call.value = ValueOf(*call.member, request["value"]);
  } else if (request.contains("call")) {
    call.verb = HostCall::Verb::kCall;
    if (request.contains("args")) call.value = ValueOf(*call.member, request["args"][0]);
  }
  return call;
}

// Writes a line of the session if ZOLT20_FUZZ_LINES is set. Steps that the protocol has no line for
// are written as comments.
void Tell(const std::string& line) {
  static const bool asked = std::getenv("ZOLT20_FUZZ_LINES") != nullptr;
  if (asked) std::fprintf(stderr, "%s\n", line.c_str());
}

template <typename What>
void TellLine(const What& what) {
  static const bool asked = std::getenv("ZOLT20_FUZZ_LINES") != nullptr;
  if (asked) Tell(hosts::TakeStandIns(ToJson(what).dump()));
}

void Expect(bool holds, const std::string& complaint) {
  if (holds) return;
  std::fprintf(stderr, "Complaint: %s\n", complaint.c_str());
  std::abort();
}

// Expects that a checker found nothing: "".
void Expect(const std::string& found, const std::string& where) {
  Expect(found.empty(), where + found);
}

/// Counts notices of all kinds.
class NoticeCounter final : public SurfaceObserver {
 public:
  void ControlChanged(const Control& /*control*/, Property /*property*/) noexcept override {
    ++count;
  }
  void RowsAboutToChange(const Control& /*list*/, const RowChange& /*change*/) noexcept override {
    ++count;
  }
  void RowsChanged(const Control& /*list*/, const RowChange& /*change*/) noexcept override {
    ++count;
  }
  void MarksChanged(const Control& /*list*/, int /*first*/, int /*rows*/) noexcept override {
    ++count;
  }
  void FocusChanged(const Control* /*control*/) noexcept override { ++count; }
  void TabOrderChanged(int /*first*/, int /*last*/) noexcept override { ++count; }
  void ElementLoaded(const Control& /*element*/) noexcept override { ++count; }
  void ElementUnloading(const Control& /*element*/) noexcept override { ++count; }
  void StateReplaced() noexcept override { ++count; }

  long count = 0;
};

class Session final : private ControlHost {
 public:
  Session(const std::uint8_t* data, std::size_t size) : choices_(data, size) {
    maker_.TakeTextsFrom([this] { return ToJsonText(TakeText(choices_, Form())); });
    MakeNew(FormVisible::kYes);
  }

  void Play() {
    while (choices_.AreLeft() && !IsOver())
      TakeStep();
  }

 private:
  // The host.
  void eventCancel() override { RaiseEvent(0); }
  void eventDone() override { RaiseEvent(1); }
  void eventSubQuery() override { RaiseEvent(2); }
  void eventCondition() override { RaiseEvent(3); }
  void eventFunction() override { RaiseEvent(4); }
  void PropertyChanged(std::string_view property) override;
  void ShowMessage(const Message& message) override;
  void RaiseEvent(std::size_t event);
  Variant Run(const HostCall& call);

  // Controls.
  const Surface& Form() const { return control_->Form(); }
  void MakeNew(FormVisible visible);
  void MakeStored(Bag bag);
  void Watch();
  Bag WriteBag() const;
  Bag Values() const;

  // Making steps, each with all checks behind it.
  bool IsOver() const;
  void Make(const Step& step);
  Variant Carry(const Step& step);
  Outcome Carry(const Move& move);
  void Rehearse(const Step& step);
  void Check();

  // Choosing steps.
  void TakeStep();
  void CarryOut(const Json& request);
  std::optional<Step> StepOf(const Json& request);
  void KeepFrom(const Json& request);
  HostCall TakeCall();
  void TakeAnswer(std::size_t event);
  void Keep(Answer answer);
  void TakeCatalogue();
  void TakeAnyGesture();
  std::optional<TextMark> TakeMark(const Control& control);
  void ReopenStatement();

  Choices choices_;
  tests::SessionMaker maker_{choices_};
  hosts::JsonReader reader_;
  std::unique_ptr<NoticeCounter> notices_;
  std::unique_ptr<Mirror> mirror_;
  std::unique_ptr<ZOLT20MapControl> control_;
  FormVisible visible_ = FormVisible::kYes;
  std::array<Answer, 5> answers_;  // by event
  std::optional<ControlSnapshot> snapshot_;
  std::vector<Variant> log_;  // the events, messages and reports of the step
  int steps_ = 0;
  bool rehearses_ = false;
  bool mayBeLarge_ = true;
};

void Session::PropertyChanged(std::string_view property) {
  const Member* member = FindMember(property);
  Expect(member != nullptr && member->reports, "a property reported that does not");
  log_.emplace_back(FromAscii(property));
}

void Session::ShowMessage(const Message& message) {
  Expect(message.title == u"Maintain Mapping Objects" && !message.text.empty(),
         "a message has the wrong title or no text");
  log_.emplace_back(String(message.text));
}

void Session::RaiseEvent(std::size_t event) {
  log_.emplace_back(FromAscii(Events()[event].name));
  const Answer& answer = answers_[event];
  try {
    for (const HostCall& call : answer.calls)
      log_.push_back(Run(call));
  } catch (const RuntimeError& error) {
    log_.emplace_back(FromAscii(error.kind_word()));
    if (!answer.catches) throw;
  }
  if (answer.fails) throw HostFailure();
}

Variant Session::Run(const HostCall& call) {
  switch (call.verb) {
    case HostCall::Verb::kLet:
      call.member->let(*control_, call.value);
      break;
    case HostCall::Verb::kGet:
      return call.member->get(*control_);
    case HostCall::Verb::kCall:
      return call.member->call(*control_, call.value);
  }
  return {};
}

void Session::MakeNew(FormVisible visible) {
  if (visible != visible_) snapshot_.reset();
  visible_ = visible;
  TellLine(visible);
  ControlHost& host = *this;
  control_ = std::make_unique<ZOLT20MapControl>(host, visible);
  control_->UserControl_InitProperties();
  Watch();
}

// Stored values come back, except the two lists: they are read under other keys than they are
// written under.
void Session::MakeStored(Bag bag) {
  TellLine(bag);
  if (visible_ == FormVisible::kNo) snapshot_.reset();
  visible_ = FormVisible::kYes;
  ControlHost& host = *this;
  control_ = std::make_unique<ZOLT20MapControl>(host, visible_);
  Watch();
  control_->UserControl_ReadProperties(bag);
  bag.texts["PrpStrTables"] = u"0";
  bag.texts["PrpStrFields"] = u"0";
  Expect(WriteBag() == bag, "a stored control stores something else");
  Check();
}

void Session::Watch() {
  mirror_ = std::make_unique<Mirror>(Form());
  notices_ = std::make_unique<NoticeCounter>();
  control_->AddObserver(*mirror_);
  control_->AddObserver(*notices_);
}

Bag Session::WriteBag() const {
  Bag bag;
  control_->UserControl_WriteProperties(bag);
  return bag;
}

// All values that a host can read without side effects.
Bag Session::Values() const {
  Bag values = WriteBag();
  values.numbers["prpintTabcount"] = control_->prpintTabcount().value();
  values.numbers["Syntax_Highlight"] = control_->Syntax_Highlight() ? 1 : 0;
  return values;
}

bool Session::IsOver() const {
  return steps_ >= kMostSteps || IsLarge(Form());
}

void Session::Check() {
  Expect(tests::BrokenRule(Form()), "on the form, ");
  Expect(mirror_->Difference(), "in the mirror, ");
}

void Session::Make(const Step& step) {
  if (IsOver()) return;
  ++steps_;
  std::visit([](const auto& what) { TellLine(what); }, step);
  if (std::exchange(rehearses_, false)) {
    Rehearse(step);
  } else {
    Carry(step);
  }
  Check();
}

// Makes the step and gives its outcome; log_ has what the control told its host.
Variant Session::Carry(const Step& step) {
  log_.clear();
  try {
    if (const auto* call = std::get_if<HostCall>(&step)) return Run(*call);
    const long before = notices_->count;
    const Outcome outcome = Carry(std::get<Move>(step));
    if (outcome == Outcome::kDone) return String(u"done");
    Expect(notices_->count == before && log_.empty(), "a refused gesture did something");
    return String(u"refused");
  } catch (const RuntimeError& error) {
    return FromAscii(error.kind_word());
  } catch (const HostFailure&) {
    return String(u"failure of the host");
  }
}

Outcome Session::Carry(const Move& move) {
  UserGesture gesture = move.what;
  gesture.control = Form().Find(move.control);
  return gesture.control == nullptr ? Outcome::kNotShown : control_->User(gesture);
}

// Makes the step, restores the state, and makes the step again. A mirror without notices is
// a picture of the form before the step.
void Session::Rehearse(const Step& step) {
  const ControlSnapshot start = control_->Save();
  const Mirror formBefore(Form());
  const Bag valuesBefore = Values();
  const Variant outcome = Carry(step);
  const std::vector<Variant> log = log_;
  const Mirror formAfter(Form());
  const Bag valuesAfter = Values();

  control_->Restore(start);
  Check();
  Expect(formBefore.Difference(), "in a state that was put back, ");
  Expect(Values() == valuesBefore, "a state was put back without a variable");

  Expect(Carry(step) == outcome && log_ == log, "a repeated step is told in another way");
  Expect(formAfter.Difference(), "after a repeated step, ");
  Expect(Values() == valuesAfter, "after a repeated step a variable differs");
}

void Session::TakeStep() {
  switch (choices_.Below(16)) {
    case 0:
    case 1:
      return TakeAnyGesture();
    case 2:
      return Make(TakeCall());
    case 3:
      return TakeAnswer(static_cast<std::size_t>(choices_.Below(5)));
    case 4:
      return TakeCatalogue();
    case 5:
      return ReopenStatement();
    case 6:
      rehearses_ = true;
      return;
    case 7:
      Tell("# The state of this moment is saved.");
      snapshot_ = control_->Save();
      return;
    case 8:
      if (!snapshot_.has_value()) return;
      Tell("# The state of the moment above is put back.");
      control_->Restore(*snapshot_);
      return Check();
    case 9:
      if (choices_.OneIn(4)) {
        return MakeNew(choices_.OneIn(4) ? FormVisible::kNo : FormVisible::kYes);
      }
      if (visible_ == FormVisible::kYes) return MakeStored(WriteBag());
      return;
    case 10:
    case 11: {
      const Json gesture = maker_.LikelyGesture(Form());
      if (!gesture.is_null()) CarryOut(gesture);
      return;
    }
    default:
      // What is left of a course goes on behind other steps.
      for (int left = choices_.Below(kMostAtOnce); left >= 0 && !IsOver(); --left)
        CarryOut(maker_.Next(Form()));
  }
}

void Session::CarryOut(const Json& request) {
  if (request.contains("save")) return maker_.Hear(request, {{"value", ValuesOf(WriteBag())}});
  if (request.contains("new")) return MakeStored(BagOf(request["new"]["bag"]));
  if (request.contains("dump")) return;
  if (request.contains("answer")) return KeepFrom(request);
  if (const std::optional<Step> step = StepOf(request); step.has_value()) Make(*step);
}

// Nothing for a number that is no Integer, and for a gesture that its control does not have.
std::optional<Step> Session::StepOf(const Json& request) {
  try {
    if (!request.contains("user")) return CallOf(request);
    UserGesture gesture = hosts::ReadGesture(reader_.Read(request.dump()), Form());
    std::string name(gesture.control->name());
    return Move{std::move(name), std::move(gesture)};
  } catch (const hosts::BadRequest& fault) {
    Tell(std::string("# Left out: ") + fault.what());
  } catch (const RuntimeError& error) {
    Tell(std::string("# Left out: ") + error.what());
  }
  return std::nullopt;
}

// Now and then an error of its calls leaves the event, or the host fails in it.
void Session::KeepFrom(const Json& request) {
  const int shape = choices_.Byte();
  Answer answer{0, {}, shape < 224, shape >= 240};
  while (Events()[answer.event].name != request["answer"])
    ++answer.event;
  for (const Json& call : request["with"])
    answer.calls.push_back(CallOf(call));
  Keep(std::move(answer));
}

HostCall Session::TakeCall() {
  const Member& member =
      Members()[static_cast<std::size_t>(choices_.Below(static_cast<int>(Members().size())))];
  HostCall call{HostCall::Verb::kGet, &member, {}};
  if (member.IsMethod()) {
    call.verb = HostCall::Verb::kCall;
  } else if (member.get == nullptr || (member.let != nullptr && !choices_.OneIn(2))) {
    call.verb = HostCall::Verb::kLet;
  }
  if (call.verb == HostCall::Verb::kGet) return call;
  if (member.name == "PrpStrTables") {
    call.value = TakeTables(choices_, std::exchange(mayBeLarge_, false));
  } else if (member.name == "PrpStrFields") {
    call.value = TakeFields(choices_);
  } else if (member.type == ValueType::kString) {
    call.value = TakeText(choices_, Form());
  } else if (member.type == ValueType::kInteger) {
    call.value = TakeInteger(choices_);
  } else if (member.type == ValueType::kBoolean) {
    call.value = choices_.OneIn(2);
  }
  return call;
}

void Session::TakeAnswer(std::size_t event) {
  Answer answer{event, {}, false, false};
  const int shape = choices_.Byte();
  for (int i = 0; i < shape % 4; ++i)
    answer.calls.push_back(TakeCall());
  answer.catches = shape % 8 < 4;
  answer.fails = shape >= 248;
  Keep(std::move(answer));
}

void Session::Keep(Answer answer) {
  TellLine(answer);
  if (!answer.catches) Tell("# A run-time error of this answer leaves the event.");
  if (answer.fails) Tell("# This answer ends in a failure of the host.");
  const std::size_t event = answer.event;
  answers_[event] = std::move(answer);
}

void Session::TakeCatalogue() {
  Make(HostCall{HostCall::Verb::kLet, FindMember("PrpStrTables"),
                TakeTables(choices_, std::exchange(mayBeLarge_, false))});
  Make(HostCall{HostCall::Verb::kLet, FindMember("PrpStrFields"), TakeFields(choices_)});
}

// Any gesture on any control, with any number.
void Session::TakeAnyGesture() {
  const Control& control = *choices_.From(Form().Controls());
  UserGesture gesture{static_cast<Gesture>(choices_.Below(9)), nullptr,
                      TakeInteger(choices_).value()};
  if (gesture.gesture == Gesture::kType) gesture.text = TakeText(choices_, Form());
  if (gesture.gesture == Gesture::kKey) gesture.mark = TakeMark(control);
  Make(Move{std::string(control.name()), std::move(gesture)});
}

// None, or one that is now and then beyond the text.
std::optional<TextMark> Session::TakeMark(const Control& control) {
  const auto* box = dynamic_cast<const TextBox*>(&control);
  if (box == nullptr || !choices_.OneIn(2)) return std::nullopt;
  const int length = static_cast<int>(box->Text().size());
  const int from = choices_.Below(length + 1);
  return TextMark{from, from + choices_.Below(length - from + 2)};
}

// The parts of the statement that the form shows, given back to this control or to a new one.
void Session::ReopenStatement() {
  const Surface& form = Form();
  const auto let = [](const char* name, String value) {
    return HostCall{HostCall::Verb::kLet, FindMember(name), std::move(value)};
  };
  const std::array parts{
      let("prpSelectPart", JoinedRows(form.lstSelectedFields, u",", false)),
      let("prpSelectFromPart", JoinedRows(form.lsttables, u",", true)),
      let("prpSelectWherePart", Replace(form.txtwhereCondition.Text(), kLineBreak, u"~")),
      let("prpSelectGroupbyPart", JoinedRows(form.lstGroupby, u",", true)),
      let("prpSelectOrderbyPart", Concat(JoinedRows(form.lstorderbydesc, u" desc,", true), u",",
                                         JoinedRows(form.lstorderbyasc, u",", true))),
      let("prpSelectAsSetPart", form.txtAsSet.Text()),
  };
  const int shape = choices_.Byte();
  if (shape % 2 == 1) {
    MakeNew(visible_);
    TakeCatalogue();
  }
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if ((shape / 4 >> i) % 2 == 0) Make(parts[i]);
  }
}

}  // namespace
}  // namespace zolt20::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  zolt20::fuzz::Session(data, size).Play();
  return 0;
}
