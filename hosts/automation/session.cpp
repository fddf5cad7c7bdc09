#include "hosts/automation/session.h"

#include <algorithm>
#include <bitset>
#include <optional>
#include <stdexcept>
#include <utility>

#include "hosts/automation/dump.h"
#include "hosts/kit/request.h"
#include "hosts/kit/text_coding.h"

namespace zolt20::automation {
namespace {

using hosts::BadRequest;
using hosts::FindValue;
using hosts::FromJsonText;
using hosts::IsWhole;
using hosts::Json;
using hosts::JsonValue;
using hosts::Needed;
using hosts::NeededText;
using hosts::Quoted;
using hosts::TextOf;
using hosts::ToJsonText;
using hosts::WholeNumber;

// A gesture that the surface refuses.
class Refused : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Appends a member to the text of a reply. Bytes that are not valid UTF-8, which an error message
// may quote from the request, become U+FFFD.
void AppendMember(std::string& reply, std::string_view key, const Json& value) {
  reply += reply.size() == 1 ? "\"" : ",\"";
  reply += key;
  reply += "\":";
  if (value.is_array() && value.empty()) {
    reply += "[]";
  } else {
    reply += value.dump(-1, ' ', false, Json::error_handler_t::replace);
  }
}

void NeedTrue(const JsonValue& request, const char* key) {
  if (!Needed(request, key).IsTrue()) throw BadRequest(std::string("\"") + key + "\" takes true");
}

bool IsInteger(int number) {
  return number >= Integer::kLeast && number <= Integer::kGreatest;
}

// Converts a JSON value to a type of the contract, into the action.
void TakeValue(const JsonValue& value, ValueType type, HostAction& action) {
  const char* expected = nullptr;
  if (type == ValueType::kString) {
    if (value.IsString()) {
      action.value = FromJsonText(TextOf(value));
      return;
    }
    expected = "a string";
  } else if (type == ValueType::kBoolean) {
    if (value.IsBool()) {
      action.value = value.GetBool();
      return;
    }
    expected = "true or false";
  } else {
    if (IsWhole(value)) {
      const int number = WholeNumber(value);
      action.overflows = !IsInteger(number);
      if (!action.overflows) action.value = Integer(number);
      return;
    }
    expected = "a whole number";
  }
  throw BadRequest(std::string(action.member->name) + " takes " + expected);
}

Json ToJson(const Variant& value) {
  if (const auto* text = std::get_if<String>(&value)) return ToJsonText(*text);
  if (const auto* number = std::get_if<Integer>(&value)) return number->value();
  if (const auto* flag = std::get_if<bool>(&value)) return *flag;
  return nullptr;
}

Json ToJson(const RuntimeError& error) {
  return {{"kind", error.kind_word()}, {"number", error.number()}, {"description", error.what()}};
}

Json Failure(const char* kind, const std::string& description) {
  return {{"kind", kind}, {"number", 0}, {"description", description}};
}

enum class Verb { kNew, kSet, kGet, kCall, kSave, kUser, kAnswer, kDump };
constexpr std::array<std::string_view, 8> kVerbs{"new",  "set",  "get",    "call",
                                                 "save", "user", "answer", "dump"};

std::string_view WordOf(Verb verb) {
  return kVerbs[static_cast<std::size_t>(verb)];
}

// The verb of a request; BadRequest unless the request has exactly one.
Verb VerbOf(const JsonValue& request) {
  if (!request.IsObject()) throw BadRequest("a request is a JSON object");
  std::bitset<kVerbs.size()> found;
  for (const auto& member : request.GetObject()) {
    const auto* const verb = std::find(kVerbs.begin(), kVerbs.end(), TextOf(member.name));
    if (verb != kVerbs.end()) found.set(static_cast<std::size_t>(verb - kVerbs.begin()));
  }
  std::optional<Verb> one;
  for (std::size_t i = 0; i < kVerbs.size(); ++i) {
    if (!found.test(i)) continue;
    if (one.has_value()) {
      throw BadRequest("a request has one verb, not \"" + std::string(WordOf(*one)) + "\" and \"" +
                       std::string(kVerbs[i]) + "\"");
    }
    one = static_cast<Verb>(i);
  }
  if (!one.has_value()) throw BadRequest("the request has no verb");
  return *one;
}

// Parses a set, get or call request, without carrying it out.
HostAction ReadAction(const JsonValue& request, Verb verb) {
  const std::string name(NeededText(request, WordOf(verb)));
  const Member* member = FindMember(name);
  if (member == nullptr) throw BadRequest("the control has no member " + Quoted(name));
  HostAction action{HostAction::Verb::kGet, member, {}};
  if (verb == Verb::kSet) {
    if (member->let == nullptr) throw BadRequest(name + " can't be written");
    action.verb = HostAction::Verb::kSet;
    TakeValue(Needed(request, "value"), member->type, action);
  } else if (verb == Verb::kGet) {
    if (member->get == nullptr) throw BadRequest(name + " can't be read");
  } else {
    if (!member->IsMethod()) throw BadRequest(name + " is no method");
    action.verb = HostAction::Verb::kCall;
    const std::size_t expected = member->type == ValueType::kNone ? 0 : 1;
    const JsonValue* arguments = FindValue(request, "args");
    if (arguments != nullptr && !arguments->IsArray()) throw BadRequest("\"args\" is no array");
    const std::size_t given = arguments == nullptr ? 0 : arguments->Size();
    if (given != expected) {
      throw BadRequest(name + " takes " + std::to_string(expected) + " arguments");
    }
    if (expected == 1) TakeValue((*arguments)[0], member->type, action);
  }
  return action;
}

// The depth of nested brackets in a line, outside strings. JSON libraries recurse for each level.
int DepthOf(std::string_view line) {
  int depth = 0;
  int deepest = 0;
  bool inString = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    if (inString) {
      if (c == '\\') ++i;
      inString = c != '"';
    } else if (c == '"') {
      inString = true;
    } else if (c == '[' || c == '{') {
      deepest = std::max(deepest, ++depth);
    } else if (c == ']' || c == '}') {
      --depth;
    }
  }
  return deepest;
}

const JsonValue& Parse(std::string_view line, hosts::JsonReader& reader) {
  constexpr int kMostDepth = 256;
  if (line.size() > kMostDepth && DepthOf(line) > kMostDepth)
    throw BadRequest("the line is nested too deep");
  try {
    if (!hosts::NeedsStandIns(line)) return reader.Read(line);
    return reader.Read(hosts::PutStandIns(line));
  } catch (const Json::exception& error) {
    throw BadRequest(error.what());
  }
}

// The bag of a `new` request, checked for its types before anything is made.
class JsonBag final : public PropertyBag {
 public:
  explicit JsonBag(const JsonValue& values) : values_(values) {
    for (const BagEntry& entry : BagEntries()) {
      const JsonValue* found = FindValue(values_, entry.readKey);
      if (found == nullptr) continue;
      const bool fits = entry.type == ValueType::kString ? found->IsString() : IsWhole(*found);
      if (!fits) throw BadRequest("the bag has a wrong type for " + std::string(entry.readKey));
    }
  }

  String ReadString(std::string_view key, StringView defaultValue) override {
    const JsonValue* found = FindValue(values_, key);
    return found == nullptr ? String(defaultValue) : FromJsonText(TextOf(*found));
  }
  Integer ReadInteger(std::string_view key, Integer defaultValue) override {
    const JsonValue* found = FindValue(values_, key);
    return found == nullptr ? defaultValue : Integer(WholeNumber(*found));
  }
  void WriteString(std::string_view, StringView) override {}
  void WriteInteger(std::string_view, Integer) override {}

 private:
  const JsonValue& values_;
};

// The bag of a `save` request.
class WrittenBag final : public PropertyBag {
 public:
  String ReadString(std::string_view, StringView defaultValue) override {
    return String(defaultValue);
  }
  Integer ReadInteger(std::string_view, Integer defaultValue) override { return defaultValue; }
  void WriteString(std::string_view key, StringView value) override {
    values[std::string(key)] = ToJsonText(value);
  }
  void WriteInteger(std::string_view key, Integer value) override {
    values[std::string(key)] = value.value();
  }

  Json values = Json::object();
};

}  // namespace

Session::Session() {
  MakeNew(FormVisible::kYes);
  control_->UserControl_InitProperties();
}

bool Session::IsSkipped(std::string_view line) {
  return line.starts_with('#') || line.find_first_not_of(" \t\r") == std::string_view::npos;
}

std::string Session::Reply(std::string_view line) {
  constexpr std::string_view kDone = R"("ok":true)";
  constexpr std::string_view kDoneBehindId = R"(,"ok":true)";
  constexpr std::string_view kLog = R"(,"log":[)";
  constexpr std::string_view kEnd = "]}";
  log_.clear();
  constexpr std::size_t kMostOfThem = 256;
  std::string reply;
  reply.reserve(kMostOfThem);
  reply = "{";
  std::size_t outcome = reply.size();  // where the members on the request's outcome begin
  const auto fail = [&](const char* key, const Json& reason) {
    reply.resize(outcome);
    AppendMember(reply, "ok", false);
    AppendMember(reply, key, reason);
  };
  try {
    const JsonValue& request = Parse(line, reader_);
    if (request.IsObject()) {
      const JsonValue* id = FindValue(request, "id");
      if (id != nullptr) AppendMember(reply, "id", hosts::ToJson(*id));
    }
    outcome = reply.size();
    const std::optional<Json> value = CarryOut(request);
    reply += outcome == 1 ? kDone : kDoneBehindId;
    if (value.has_value()) AppendMember(reply, "value", *value);
  } catch (const BadRequest& error) {
    fail("error", Failure("request", error.what()));
  } catch (const Refused& refusal) {
    fail("refused", refusal.what());
  } catch (const RuntimeError& error) {
    fail("error", ToJson(error));
  } catch (const std::exception& error) {
    fail("error", Failure("failure", error.what()));
  }
  reply += kLog;
  reply += log_;
  reply += kEnd;
  return hosts::TakeStandIns(std::move(reply));
}

std::optional<Json> Session::CarryOut(const JsonValue& request) {
  const Verb verb = VerbOf(request);
  switch (verb) {
    case Verb::kNew:
      MakeNew(Needed(request, WordOf(verb)));
      break;
    case Verb::kSave:
      NeedTrue(request, "save");
      return WriteBag();
    case Verb::kDump:
      NeedTrue(request, "dump");
      return Dump(control_->Form());
    case Verb::kAnswer:
      KeepAnswer(request);
      break;
    case Verb::kUser:
      MakeGesture(request);
      break;
    case Verb::kSet:
    case Verb::kGet:
    case Verb::kCall: {
      const Variant value = Run(ReadAction(request, verb));
      if (verb != Verb::kSet) return ToJson(value);
    }
  }
  return std::nullopt;
}

Variant Session::Run(const HostAction& action) {
  if (action.overflows) Raise(ErrorKind::kOverflow);
  switch (action.verb) {
    case HostAction::Verb::kSet:
      action.member->let(*control_, action.value);
      return {};
    case HostAction::Verb::kGet:
      return action.member->get(*control_);
    case HostAction::Verb::kCall:
      return action.member->call(*control_, action.value);
  }
  return {};
}

void Session::MakeNew(FormVisible visible) {
  ControlHost& host = *this;
  control_ = std::make_unique<ZOLT20MapControl>(host, visible);
}

void Session::MakeNew(const JsonValue& settings) {
  if (!settings.IsObject()) throw BadRequest("\"new\" takes an object");
  FormVisible visible = FormVisible::kYes;
  if (const JsonValue* found = FindValue(settings, "visible"); found != nullptr) {
    if (!found->IsBool()) throw BadRequest("\"visible\" is true or false");
    if (!found->GetBool()) visible = FormVisible::kNo;
  }
  const JsonValue* values = FindValue(settings, "bag");
  if (values == nullptr) {
    MakeNew(visible);
    control_->UserControl_InitProperties();
    return;
  }
  if (!values->IsObject()) throw BadRequest("\"bag\" takes an object");
  JsonBag bag(*values);
  MakeNew(visible);
  control_->UserControl_ReadProperties(bag);
}

Json Session::WriteBag() const {
  WrittenBag bag;
  control_->UserControl_WriteProperties(bag);
  return std::move(bag.values);
}

void Session::KeepAnswer(const JsonValue& request) {
  const std::string_view name = NeededText(request, "answer");
  const auto event = std::find_if(Events().begin(), Events().end(),
                                  [&](const Event& candidate) { return candidate.name == name; });
  if (event == Events().end()) throw BadRequest("the control has no event " + Quoted(name));
  const JsonValue& with = Needed(request, "with");
  if (!with.IsArray()) throw BadRequest("\"with\" is no array");
  std::vector<HostAction> actions;
  for (const JsonValue& action : with.GetArray()) {
    const Verb verb = VerbOf(action);
    if (verb != Verb::kSet && verb != Verb::kGet && verb != Verb::kCall) {
      throw BadRequest("an answer is made of set, get and call requests");
    }
    actions.push_back(ReadAction(action, verb));
  }
  answers_[static_cast<std::size_t>(event - Events().begin())] = std::move(actions);
}

void Session::RaiseEvent(std::size_t event) {
  LogName("event", Events()[event].name);
  for (const HostAction& action : answers_[event]) {
    Json entry = {{"answered", action.member->name}};
    try {
      const Variant value = Run(action);
      if (action.verb != HostAction::Verb::kSet) entry["value"] = ToJson(value);
    } catch (const RuntimeError& error) {
      entry["error"] = ToJson(error);
    }
    Log(entry);
    if (entry.contains("error")) return;
  }
}

void Session::PropertyChanged(std::string_view property) {
  LogName("changed", property);
}

void Session::ShowMessage(const Message& message) {
  Log({{"message", ToJsonText(message.text)},
       {"title", ToJsonText(message.title)},
       {"icon", "critical"},
       {"buttons", "ok"}});
}

void Session::Log(const Json& entry) {
  if (!log_.empty()) log_ += ',';
  log_ += entry.dump();
}

// Names of the contract have no character that JSON escapes.
void Session::LogName(std::string_view key, std::string_view name) {
  log_ += log_.empty() ? "{\"" : ",{\"";
  log_ += key;
  log_ += "\":\"";
  log_ += name;
  log_ += "\"}";
}

void Session::MakeGesture(const JsonValue& request) {
  const UserGesture gesture = hosts::ReadGesture(request, control_->Form());
  const auto named = [&gesture] { return std::string(gesture.control->name()); };
  switch (control_->User(gesture)) {
    case Outcome::kDone:
      return;
    case Outcome::kNotShown:
      throw Refused(named() + " is not shown");
    case Outcome::kNotEnabled:
      throw Refused(named() + " is disabled");
    case Outcome::kOutside:
      throw Refused(named() + " does not go that far");
    case Outcome::kNoSuchRow:
      throw BadRequest(named() + " has no row " + hosts::ToJson(Needed(request, "row")).dump());
    case Outcome::kNoSuchMark:
    case Outcome::kNotOffered:
      throw std::logic_error("a gesture that was read is offered");
  }
}

}  // namespace zolt20::automation
