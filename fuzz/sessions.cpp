// Fuzzes the control with bytes as a session: catalogues, gestures, properties, methods, answers
// inside events (re-entrancy), controls stored and made anew, states saved and restored.
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
#include "fuzz/choices.h"
#include "hosts/kit/request.h"
#include "hosts/kit/text_coding.h"
#include "shell/contract.h"
#include "tests/support/mirror.h"

namespace zolt20::fuzz {
namespace {

using Json = nlohmann::ordered_json;
using hosts::ToJsonText;
using tests::Mirror;

constexpr int kMostSteps = 160;
constexpr int kPages = 7;

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

Json ToJson(const Bag& bag) {
  Json values;
  for (const auto& [key, text] : bag.texts)
    values[key] = ToJsonText(text);
  for (const auto& [key, number] : bag.numbers)
    values[key] = number;
  return {{"new", {{"bag", std::move(values)}}}};
}

Json ToJson(FormVisible visible) {
  return {{"new", {{"visible", visible == FormVisible::kYes}}}};
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
  void MakeStored();
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
  void User(Gesture gesture, std::string_view control, int number = 0, String text = {});
  void Click(std::string_view button) { User(Gesture::kClick, button); }
  void ClickSomeRow(const ListBox& list);
  void PickSome(const ComboBox& combo);
  void TypeSome(std::string_view box);
  void KeyIn(const TextBox& box, int code);
  void Tab(int page) { User(Gesture::kTab, "tabVrn", page); }

  // Choosing steps.
  void TakeStep();
  HostCall TakeCall();
  void TakeAnswer(std::size_t event);
  void Keep(Answer answer);
  void TakeCatalogue();
  void TakeLikelyGesture();
  void TakeAnyGesture();
  void SelectFields();
  void ApplyCondition();
  void OrderRows();
  void MakeRequest();
  void AddToResult();
  void AddCondition();
  void FillCaseRows();
  void ReopenStatement();

  Choices choices_;
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
void Session::MakeStored() {
  Bag bag = WriteBag();
  TellLine(bag);
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

void Session::User(Gesture gesture, std::string_view control, int number, String text) {
  Make(Move{std::string(control), {gesture, nullptr, number, std::move(text)}});
}

void Session::ClickSomeRow(const ListBox& list) {
  User(Gesture::kClickRow, list.name(), choices_.Below(list.ListCount()));
}

void Session::PickSome(const ComboBox& combo) {
  User(Gesture::kPick, combo.name(), choices_.Below(combo.ListCount()));
}

void Session::TypeSome(std::string_view box) {
  User(Gesture::kType, box, 0, TakeText(choices_, Form()));
}

// Types a key, at the caret or over a mark, which is now and then beyond the text.
void Session::KeyIn(const TextBox& box, int code) {
  UserGesture key{Gesture::kKey, nullptr, code};
  if (choices_.Once(2)) {
    const int length = static_cast<int>(box.Text().size());
    const int from = choices_.Below(length + 1);
    key.mark = {from, from + choices_.Below(length - from + 2)};
  }
  Make(Move{std::string(box.name()), std::move(key)});
}

void Session::TakeStep() {
  switch (choices_.Below(24)) {
    case 0:
      return TakeAnyGesture();
    case 1:
    case 2:
    case 3:
    case 4:
      return TakeLikelyGesture();
    case 5:
    case 6:
      return Make(TakeCall());
    case 7:
      return TakeAnswer(static_cast<std::size_t>(choices_.Below(5)));
    case 8:
      return TakeCatalogue();
    case 9:
      return Tab(choices_.Below(kPages));
    case 10:
    case 11:
      return SelectFields();
    case 12:
      return ApplyCondition();
    case 13:
      return OrderRows();
    case 14:
      return MakeRequest();
    case 15:
    case 16:
      return AddToResult();
    case 17:
    case 18:
      return AddCondition();
    case 19:
      return ReopenStatement();
    case 20:
      rehearses_ = true;
      return;
    case 21:
      Tell("# The state of this moment is saved.");
      snapshot_ = control_->Save();
      return;
    case 22:
      if (!snapshot_.has_value()) return;
      Tell("# The state of the moment above is put back.");
      control_->Restore(*snapshot_);
      return Check();
    case 23:
      if (choices_.Once(4)) return MakeNew(choices_.Once(4) ? FormVisible::kNo : FormVisible::kYes);
      if (visible_ == FormVisible::kYes) return MakeStored();
      return;
    default:
      return;
  }
}

HostCall Session::TakeCall() {
  const Member& member =
      Members()[static_cast<std::size_t>(choices_.Below(static_cast<int>(Members().size())))];
  HostCall call{HostCall::Verb::kGet, &member, {}};
  if (member.IsMethod()) {
    call.verb = HostCall::Verb::kCall;
  } else if (member.get == nullptr || (member.let != nullptr && !choices_.Once(2))) {
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
    call.value = choices_.Once(2);
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

// A likely gesture on a visible, enabled control.
void Session::TakeLikelyGesture() {
  std::vector<const Control*> within;
  for (const Control* control : Form().Controls()) {
    if (control->TakesFocus() && control->Shown() && control->Enabled()) within.push_back(control);
  }
  if (within.empty()) return;
  const Control& control = *choices_.From(within);
  switch (control.kind()) {
    case Kind::Button:
    case Kind::OptionButton:
      return Click(control.name());
    case Kind::ListBox: {
      const auto& list = static_cast<const ListBox&>(control);
      const Gesture gesture = choices_.Once(6) ? Gesture::kDoubleClickRow : Gesture::kClickRow;
      return User(gesture, list.name(), choices_.Below(list.ListCount()));
    }
    case Kind::ComboBox: {
      const auto& combo = static_cast<const ComboBox&>(control);
      if (combo.IsEditable() && choices_.Once(2)) return TypeSome(combo.name());
      return PickSome(combo);
    }
    case Kind::TextBox:
      if (choices_.Once(4)) return KeyIn(static_cast<const TextBox&>(control), choices_.Byte());
      if (choices_.Once(4)) return User(Gesture::kFocus, control.name());
      return TypeSome(control.name());
    case Kind::SyntaxTextBox:
      return TypeSome(control.name());
    case Kind::TabStrip:
      return Tab(choices_.Below(kPages));
    case Kind::ScrollBar:
      return User(Gesture::kScroll, control.name(),
                  choices_.Below(static_cast<const ScrollBar&>(control).Max() + 1));
    case Kind::Label:
    case Kind::Frame:
    case Kind::Rectangle:
      return;
  }
}

// Any gesture on any control, with any number.
void Session::TakeAnyGesture() {
  const Control& control = *choices_.From(Form().Controls());
  const auto gesture = static_cast<Gesture>(choices_.Below(9));
  const int number = TakeInteger(choices_).value();
  if (gesture == Gesture::kType) return TypeSome(control.name());
  User(gesture, control.name(), number);
}

// Page 0: a table if none is marked, up to three fields or expressions, and maybe a grouping.
void Session::SelectFields() {
  const int shape = choices_.Byte();
  if (Form().lsttables.ListCount() == 0) TakeCatalogue();
  Tab(0);
  if (Form().lsttables.SelCount() == 0 || shape % 8 == 7) ClickSomeRow(Form().lsttables);
  for (int i = 0; i < shape / 8 % 4; ++i) {
    if (shape / 32 % 2 == 1) ClickSomeRow(Form().lstFunctions);
    ClickSomeRow(Form().lstFields);
    Click("cmdMoveOne");
  }
  if (shape / 64 == 1) ClickSomeRow(Form().lstGroupby);
  if (shape / 64 == 2) Click("cmdMoveAll");
  if (shape / 64 == 3) {
    ClickSomeRow(Form().lstSelectedFields);
    Click("cmdRemoveOne");
  }
}

// Page 1, upper part.
void Session::ApplyCondition() {
  const int shape = choices_.Byte();
  Tab(1);
  if (shape % 8 != 7) PickSome(Form().cboWhereFields);
  if (shape / 8 % 8 != 7) PickSome(Form().cboOper);
  if (Form().FraCondition.Visible()) {
    if (shape / 64 % 2 == 1) TypeSome("txtCondition");
  } else if (shape / 64 % 2 == 1) {
    TypeSome("cboWhereFields1");
  } else {
    PickSome(Form().cboWhereFields1);
  }
  if (shape < 240) {
    Click(shape / 128 == 0 ? "cmdAnd" : "CmdOr");
  } else {
    Click("cmdCancelWhere");
  }
}

// Page 1, lower part.
void Session::OrderRows() {
  const int shape = choices_.Byte();
  Tab(1);
  if (shape % 2 == 1) ClickSomeRow(Form().lstorderbyasc);
  if (shape / 2 % 2 == 1) ClickSomeRow(Form().lstorderbydesc);
  for (int i = 0; i < shape / 4 % 4; ++i)
    KeyIn(Form().txtAsSet, choices_.Once(3) ? choices_.Byte() : u'0' + i);
}

// A request from pages 2 to 6, most often with an answer for the page.
void Session::MakeRequest() {
  constexpr std::array kArrays{"cmdFunction", "cmdCondition", "cmdSubQuery"};
  constexpr std::array<std::size_t, 3> kRaised{4, 3, 2};
  constexpr std::array kTakes{"prpSelectDoPart", "prpSelectEOSPart", "prpSelectEmptyPart",
                              "prpSelectErrorPart", "prpStroutput"};
  const int shape = choices_.Byte();
  const int page = shape % 5;
  const auto array = static_cast<std::size_t>(shape / 8 % 3);
  Tab(page + 2);
  if (shape < 192) {
    const HostCall let{HostCall::Verb::kLet, FindMember(kTakes[static_cast<std::size_t>(page)]),
                       TakeText(choices_, Form())};
    Keep({kRaised[array], {let}, true, false});
  }
  Click(std::string(kArrays[array]) + "(" + std::to_string(page) + ")");
}

void Session::AddToResult() {
  constexpr std::array kButtons{"cmdAddSelect",      "cmdAddWhereQuery", "cmdAddSelectDoQuer",
                                "cmdAddSEOStoquery", "cmdSelectmpty",    "cmdAddtoSERROR"};
  const int page = choices_.Below(static_cast<int>(kButtons.size()));
  Tab(page);
  Click(kButtons[static_cast<std::size_t>(page)]);
}

// Page 6: a pass, and at times the closing lines of all.
void Session::AddCondition() {
  struct Pass {
    const char* option;
    std::vector<const char*> boxes;
  };
  static const std::array<Pass, 5> kPasses{{
      {"optIfThen", {"txtCond", "txtStmt1", "txtStmt2"}},
      {"optFor", {"txtVariable", "txtinitval", "txtFinVal", "txtStep", "txtForStmt"}},
      {"optwhile", {"txtWhlCnd", "txtWhlStm"}},
      {"optRepeat", {"txtRepCnd", "txtRepStm"}},
      {"optCase", {"txtcaseexp", "TxtDef"}},
  }};
  const int shape = choices_.Byte();
  const Pass& pass = kPasses[static_cast<std::size_t>(shape % 5)];
  Tab(6);
  Click(pass.option);
  const bool typesAll = shape / 8 % 4 != 3;
  for (const char* box : pass.boxes) {
    if (typesAll || choices_.Once(2)) TypeSome(box);
  }
  if (shape % 5 == 4) FillCaseRows();
  if (shape / 32 % 4 == 1) User(Gesture::kFocus, choices_.From(pass.boxes));
  if (shape / 32 % 4 != 2) Click("cmdAdd");
  if (shape / 128 == 1) Click("cmdBuild");
}

void Session::FillCaseRows() {
  const int rows = choices_.Below(7);
  for (int row = 0; row <= rows; ++row) {
    const std::string element = "(" + std::to_string(row) + ")";
    if (row > 0) Click("cmdNext");
    TypeSome("TxtExpr" + element);
    if (!choices_.Once(3)) TypeSome("txtStmt" + element);
  }
  const int most = Form().VscrCase.Max();
  if (most > 0) User(Gesture::kScroll, "VscrCase", choices_.Below(most + 1));
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
