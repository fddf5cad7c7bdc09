#include "hosts/automation/session.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <utility>

#include "hosts/automation/dump.h"
#include "hosts/kit/request.h"
#include "hosts/kit/text_coding.h"

namespace zolt20::automation {
namespace {

using Json = hosts::Json;
using hosts::BadRequest;
using hosts::FromJsonText;
using hosts::IsWhole;
using hosts::Needed;
using hosts::NeededText;
using hosts::Quoted;
using hosts::ToJsonText;
using hosts::WholeNumber;

// A gesture that the surface refuses.
class Refused : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Puts a member of a reply behind its text. A complaint may quote bytes of the line that are no
// UTF-8.
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

void NeedTrue(const Json& request, const char* key) {
  if (request.at(key) != true) throw BadRequest(std::string("\"") + key + "\" takes true");
}

bool IsInteger(int number) {
  return number >= Integer::kLeast && number <= Integer::kGreatest;
}

// Takes a JSON value as one of the contract's types.
void TakeValue(const Json& value, ValueType type, HostAction& action) {
  const char* expected = nullptr;
  if (type == ValueType::kString) {
    if (value.is_string()) {
      action.value = FromJsonText(value.get_ref<const std::string&>());
      return;
    }
    expected = "a string";
  } else if (type == ValueType::kBoolean) {
    if (value.is_boolean()) {
      action.value = value.get<bool>();
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

constexpr std::array<std::string_view, 8> kVerbs{"new",  "set",  "get",    "call",
                                                 "save", "user", "answer", "dump"};

// The one verb of a request.
std::string_view VerbOf(const Json& request) {
  if (!request.is_object()) throw BadRequest("a request is a JSON object");
  const auto& members = request.get_ref<const Json::object_t&>();
  const auto holds = [&members](std::string_view verb) {
    return std::any_of(members.begin(), members.end(),
                       [verb](const auto& member) { return member.first == verb; });
  };
  std::string_view verb;
  for (const std::string_view candidate : kVerbs) {
    if (!holds(candidate)) continue;
    if (!verb.empty()) {
      throw BadRequest("a request has one verb, not \"" + std::string(verb) + "\" and \"" +
                       std::string(candidate) + "\"");
    }
    verb = candidate;
  }
  if (verb.empty()) throw BadRequest("the request has no verb");
  return verb;
}

// A set, get or call request, checked for its shape.
HostAction ReadAction(const Json& request, std::string_view verb) {
  const std::string& name = NeededText(request, verb);
  const Member* member = FindMember(name);
  if (member == nullptr) throw BadRequest("the control has no member " + Quoted(name));
  HostAction action{HostAction::Verb::kGet, member, {}};
  if (verb == "set") {
    if (member->let == nullptr) throw BadRequest(name + " can't be written");
    action.verb = HostAction::Verb::kSet;
    TakeValue(Needed(request, "value"), member->type, action);
  } else if (verb == "get") {
    if (member->get == nullptr) throw BadRequest(name + " can't be read");
  } else {
    if (!member->IsMethod()) throw BadRequest(name + " is no method");
    action.verb = HostAction::Verb::kCall;
    const std::size_t expected = member->type == ValueType::kNone ? 0 : 1;
    const auto arguments = request.find("args");
    if (arguments != request.end() && !arguments->is_array()) {
      throw BadRequest("\"args\" is no array");
    }
    const std::size_t given = arguments == request.end() ? 0 : arguments->size();
    if (given != expected) {
      throw BadRequest(name + " takes " + std::to_string(expected) + " arguments");
    }
    if (expected == 1) TakeValue(arguments->at(0), member->type, action);
  }
  return action;
}

// Brackets within brackets of a line, strings aside. A JSON library walks them by recursion.
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

Json Parse(std::string_view line) {
  constexpr int kMostDepth = 256;
  if (line.size() > kMostDepth && DepthOf(line) > kMostDepth)
    throw BadRequest("the line is nested too deep");
  try {
    if (!hosts::NeedsStandIns(line)) return Json::parse(line);
    return Json::parse(hosts::PutStandIns(line));
  } catch (const Json::exception& error) {
    throw BadRequest(error.what());
  }
}

// The bag of a `new` request, checked for its types before anything is made.
class JsonBag final : public PropertyBag {
 public:
  explicit JsonBag(const Json& values) : values_(values) {
    for (const BagEntry& entry : BagEntries()) {
      const auto found = values_.find(entry.readKey);
      if (found == values_.end()) continue;
      const bool fits = entry.type == ValueType::kString ? found->is_string() : IsWhole(*found);
      if (!fits) throw BadRequest("the bag has a wrong type for " + std::string(entry.readKey));
    }
  }

  String ReadString(std::string_view key, StringView defaultValue) override {
    const auto found = values_.find(key);
    if (found == values_.end()) return String(defaultValue);
    return FromJsonText(found->get_ref<const std::string&>());
  }
  Integer ReadInteger(std::string_view key, Integer defaultValue) override {
    const auto found = values_.find(key);
    return found == values_.end() ? defaultValue : Integer(WholeNumber(*found));
  }
  void WriteString(std::string_view, StringView) override {}
  void WriteInteger(std::string_view, Integer) override {}

 private:
  const Json& values_;
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

Session::Session() : log_(Json::array()) {
  MakeNew(FormVisible::kYes);
  control_->UserControl_InitProperties();
}

bool Session::IsSkipped(std::string_view line) {
  return line.starts_with('#') || line.find_first_not_of(" \t\r") == std::string_view::npos;
}

std::string Session::Reply(std::string_view line) {
  log_.clear();
  constexpr std::size_t kMostOfThem = 256;
  std::string reply;
  reply.reserve(kMostOfThem);
  reply = "{";
  std::size_t outcome = reply.size();  // where what became of the request begins
  const auto fail = [&](const char* key, const Json& reason) {
    reply.resize(outcome);
    AppendMember(reply, "ok", false);
    AppendMember(reply, key, reason);
  };
  try {
    const Json request = Parse(line);
    if (request.is_object()) {
      const auto id = request.find(std::string_view("id"));
      if (id != request.end()) AppendMember(reply, "id", *id);
    }
    outcome = reply.size();
    const std::optional<Json> value = CarryOut(request);
    reply += outcome == 1 ? "\"ok\":true" : ",\"ok\":true";
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
  AppendMember(reply, "log", log_);
  reply += '}';
  return hosts::TakeStandIns(std::move(reply));
}

std::optional<Session::Json> Session::CarryOut(const Json& request) {
  const std::string_view verb = VerbOf(request);
  if (verb == "new") {
    MakeNew(request["new"]);
  } else if (verb == "save") {
    NeedTrue(request, "save");
    return WriteBag();
  } else if (verb == "dump") {
    NeedTrue(request, "dump");
    return Dump(control_->Form());
  } else if (verb == "answer") {
    KeepAnswer(request);
  } else if (verb == "user") {
    MakeGesture(request);
  } else {
    const HostAction action = ReadAction(request, verb);
    const Variant value = Run(action);
    if (action.verb != HostAction::Verb::kSet) return ToJson(value);
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

void Session::MakeNew(const Json& settings) {
  if (!settings.is_object()) throw BadRequest("\"new\" takes an object");
  FormVisible visible = FormVisible::kYes;
  if (const auto found = settings.find("visible"); found != settings.end()) {
    if (!found->is_boolean()) throw BadRequest("\"visible\" is true or false");
    if (!found->get<bool>()) visible = FormVisible::kNo;
  }
  const auto values = settings.find("bag");
  if (values == settings.end()) {
    MakeNew(visible);
    control_->UserControl_InitProperties();
    return;
  }
  if (!values->is_object()) throw BadRequest("\"bag\" takes an object");
  JsonBag bag(*values);
  MakeNew(visible);
  control_->UserControl_ReadProperties(bag);
}

Json Session::WriteBag() const {
  WrittenBag bag;
  control_->UserControl_WriteProperties(bag);
  return std::move(bag.values);
}

void Session::KeepAnswer(const Json& request) {
  const std::string& name = NeededText(request, "answer");
  const auto event = std::find_if(Events().begin(), Events().end(),
                                  [&](const Event& candidate) { return candidate.name == name; });
  if (event == Events().end()) throw BadRequest("the control has no event " + Quoted(name));
  const Json& with = Needed(request, "with");
  if (!with.is_array()) throw BadRequest("\"with\" is no array");
  std::vector<HostAction> actions;
  for (const Json& action : with) {
    const std::string_view verb = VerbOf(action);
    if (verb != "set" && verb != "get" && verb != "call") {
      throw BadRequest("an answer is made of set, get and call requests");
    }
    actions.push_back(ReadAction(action, verb));
  }
  answers_[static_cast<std::size_t>(event - Events().begin())] = std::move(actions);
}

void Session::RaiseEvent(std::size_t event) {
  log_.push_back({{"event", Events()[event].name}});
  for (const HostAction& action : answers_[event]) {
    Json entry = {{"answered", action.member->name}};
    try {
      const Variant value = Run(action);
      if (action.verb != HostAction::Verb::kSet) entry["value"] = ToJson(value);
    } catch (const RuntimeError& error) {
      entry["error"] = ToJson(error);
    }
    const bool failed = entry.contains("error");
    log_.push_back(std::move(entry));
    if (failed) return;
  }
}

void Session::PropertyChanged(std::string_view property) {
  log_.push_back({{"changed", property}});
}

void Session::ShowMessage(const Message& message) {
  log_.push_back({{"message", ToJsonText(message.text)},
                  {"title", ToJsonText(message.title)},
                  {"icon", "critical"},
                  {"buttons", "ok"}});
}

void Session::MakeGesture(const Json& request) {
  const UserGesture gesture = hosts::ReadGesture(request, control_->Form());
  const std::string name(gesture.control->name());
  switch (control_->User(gesture)) {
    case Outcome::kDone:
      return;
    case Outcome::kNotShown:
      throw Refused(name + " is not shown");
    case Outcome::kNotEnabled:
      throw Refused(name + " is disabled");
    case Outcome::kOutside:
      throw Refused(name + " does not go that far");
    case Outcome::kNoSuchRow:
      throw BadRequest(name + " has no row " + Quoted(request["row"]));
    case Outcome::kNoSuchMark:
    case Outcome::kNotOffered:
      throw std::logic_error("a gesture that was read is offered");
  }
}

}  // namespace zolt20::automation
