#include "tests/support/direct_road.h"

#include <optional>
#include <stdexcept>
#include <utility>

#include "hosts/automation/dump.h"
#include "hosts/kit/text_coding.h"

namespace zolt20::tests {
namespace {

using Json = nlohmann::ordered_json;
using Map = ZOLT20MapControl;
using hosts::FromJsonText;
using hosts::ToJsonText;

String Text(const Json& value) {
  return FromJsonText(value.get<std::string>());
}

DirectCall SetCall(const std::string& name, const Json& value) {
  static const std::map<std::string, void (Map::*)(String)> kTexts{
      {"PrpStrTables", &Map::PrpStrTables},
      {"PrpStrFields", &Map::PrpStrFields},
      {"prpSelectPart", &Map::prpSelectPart},
      {"prpParentorChild", &Map::prpParentorChild},
      {"prpStroutput", &Map::prpStroutput},
      {"prpSelectFromPart", &Map::prpSelectFromPart},
      {"prpSelectWherePart", &Map::prpSelectWherePart},
      {"prpSelectGroupbyPart", &Map::prpSelectGroupbyPart},
      {"prpSelectOrderbyPart", &Map::prpSelectOrderbyPart},
      {"prpSelectAsSetPart", &Map::prpSelectAsSetPart},
      {"prpSelectDoPart", &Map::prpSelectDoPart},
      {"prpSelectEOSPart", &Map::prpSelectEOSPart},
      {"prpSelectEmptyPart", &Map::prpSelectEmptyPart},
      {"prpSelectErrorPart", &Map::prpSelectErrorPart},
  };
  if (name == "Syntax_Highlight") {
    return [flag = value.get<bool>()](Map& control) -> CallResult {
      control.Syntax_Highlight(flag);
      return {};
    };
  }
  if (name == "prpTab" || name == "prpintTabcount") {
    return [isTab = name == "prpTab", number = value.get<int>()](Map& control) -> CallResult {
      isTab ? control.prpTab(number) : control.prpintTabcount(number);
      return {};
    };
  }
  return [let = kTexts.at(name), text = Text(value)](Map& control) -> CallResult {
    (control.*let)(text);
    return {};
  };
}

DirectCall GetCall(const std::string& name) {
  static const std::map<std::string, Variant (*)(Map&)> kGets{
      {"prpStroutput", [](Map& control) -> Variant { return control.prpStroutput(); }},
      {"prpStrSQLPart", [](Map& control) -> Variant { return control.prpStrSQLPart(); }},
      {"prpstrSelectedFields",
       [](Map& control) -> Variant { return control.prpstrSelectedFields(); }},
      {"prpintTabcount", [](Map& control) -> Variant { return control.prpintTabcount(); }},
      {"Syntax_Highlight", [](Map& control) -> Variant { return control.Syntax_Highlight(); }},
  };
  return [get = kGets.at(name)](Map& control) -> CallResult {
    return {Outcome::kDone, get(control)};
  };
}

DirectCall MethodCall(const Json& request) {
  if (request["call"] == "BuildGroupBy") {
    return [](Map& control) -> CallResult { return {Outcome::kDone, control.BuildGroupBy()}; };
  }
  if (request["call"] != "ClearAll") throw std::invalid_argument(request.dump());
  return [page = request["args"][0].get<int>()](Map& control) -> CallResult {
    return {Outcome::kDone, control.ClearAll(page)};
  };
}

// A gesture on the control of that name; `act` makes it.
template <typename Act>
DirectCall OnControl(const Json& request, Act act) {
  return [name = request["control"].get<std::string>(), act](Map& control) -> CallResult {
    const Control* target = control.Form().Find(name);
    if (target == nullptr) return {Outcome::kNotOffered, {}};
    return {act(control, *target), {}};
  };
}

DirectCall GestureCall(const Json& request) {
  const std::string verb = request["user"];
  if (verb == "tab") {
    return [page = request["page"].get<int>()](Map& control) -> CallResult {
      return {control.UserTab(page), {}};
    };
  }
  const auto number = [&](const char* key) { return request.value(key, 0); };
  if (verb == "click" && request.contains("row")) {
    return OnControl(request, [row = number("row")](Map& control, const Control& list) {
      return control.UserClick(list, row);
    });
  }
  if (verb == "click") {
    return OnControl(request,
                     [](Map& control, const Control& target) { return control.UserClick(target); });
  }
  if (verb == "dblclick") {
    return OnControl(request, [row = number("row")](Map& control, const Control& list) {
      return control.UserDoubleClick(list, row);
    });
  }
  if (verb == "pick") {
    return OnControl(request, [row = number("row")](Map& control, const Control& combo) {
      return control.UserPick(combo, row);
    });
  }
  if (verb == "type") {
    return OnControl(request, [text = Text(request["text"])](Map& control, const Control& box) {
      return control.UserType(box, text);
    });
  }
  if (verb == "key") {
    std::optional<TextMark> mark;
    if (request.contains("from")) mark = {number("from"), request.value("to", number("from"))};
    return OnControl(request, [code = number("code"), mark](Map& control, const Control& box) {
      return control.UserKey(box, code, mark);
    });
  }
  if (verb == "focus") {
    return OnControl(request,
                     [](Map& control, const Control& target) { return control.UserFocus(target); });
  }
  if (verb != "scroll") throw std::invalid_argument(request.dump());
  return OnControl(request, [value = number("value")](Map& control, const Control& bar) {
    return control.UserScroll(bar, value);
  });
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

// The protocol's error for a gesture that was not done.
void TellOutcome(const Json& request, Outcome outcome, Json& reply) {
  const std::string name = request.value("control", "tabVrn");
  const auto refused = [&](const char* why) {
    reply["ok"] = false;
    reply["refused"] = name + why;
  };
  const auto wrong = [&](const std::string& what) {
    reply["ok"] = false;
    reply["error"] = {{"kind", "request"}, {"number", 0}, {"description", name + what}};
  };
  switch (outcome) {
    case Outcome::kDone:
      return;
    case Outcome::kNotShown:
      return refused(" is not shown");
    case Outcome::kNotEnabled:
      return refused(" is disabled");
    case Outcome::kOutside:
      return refused(" does not go that far");
    case Outcome::kNoSuchRow:
      return wrong(" has no row " + request["row"].dump());
    case Outcome::kNoSuchMark:
      return wrong(" has no such mark");
    case Outcome::kNotOffered:
      return wrong(" can't be made to " + request["user"].get<std::string>());
  }
}

class JsonBag final : public PropertyBag {
 public:
  explicit JsonBag(Json kept) : values(std::move(kept)) {}

  String ReadString(std::string_view key, StringView defaultValue) override {
    const auto found = values.find(key);
    return found == values.end() ? String(defaultValue) : Text(*found);
  }
  Integer ReadInteger(std::string_view key, Integer defaultValue) override {
    const auto found = values.find(key);
    return found == values.end() ? defaultValue : Integer(found->get<int>());
  }
  void WriteString(std::string_view key, StringView value) override {
    values[std::string(key)] = ToJsonText(value);
  }
  void WriteInteger(std::string_view key, Integer value) override {
    values[std::string(key)] = value.value();
  }

  Json values;
};

}  // namespace

DirectCall CallOf(const Json& request) {
  if (request.contains("set")) return SetCall(request["set"], request["value"]);
  if (request.contains("get")) return GetCall(request["get"]);
  if (request.contains("call")) return MethodCall(request);
  return GestureCall(request);
}

DirectRoad::DirectRoad() {
  MakeNew(Json::object());
}

DirectRoad::Json DirectRoad::Reply(const Json& request) {
  Json reply = {{"ok", true}};
  log_ = Json::array();
  try {
    CarryOut(request, reply);
  } catch (const RuntimeError& error) {
    reply["ok"] = false;
    reply["error"] = ToJson(error);
  }
  reply["log"] = std::move(log_);
  return reply;
}

void DirectRoad::CarryOut(const Json& request, Json& reply) {
  if (request.contains("new")) {
    MakeNew(request["new"]);
  } else if (request.contains("save")) {
    JsonBag bag(Json::object());
    control_->UserControl_WriteProperties(bag);
    reply["value"] = std::move(bag.values);
  } else if (request.contains("dump")) {
    reply["value"] = automation::Dump(control_->Form());
  } else if (request.contains("answer")) {
    KeepAnswer(request);
  } else {
    const CallResult result = CallOf(request)(*control_);
    if (request.contains("user")) return TellOutcome(request, result.outcome, reply);
    if (!request.contains("set")) reply["value"] = ToJson(result.value);
  }
}

void DirectRoad::MakeNew(const Json& settings) {
  ControlHost& host = *this;
  control_ = std::make_unique<ZOLT20MapControl>(host);
  if (!settings.contains("bag")) return control_->UserControl_InitProperties();
  JsonBag bag(settings["bag"]);
  control_->UserControl_ReadProperties(bag);
}

void DirectRoad::KeepAnswer(const Json& request) {
  std::vector<Answer>& answers = answers_[request["answer"]];
  answers.clear();
  for (const Json& action : request["with"]) {
    const bool isSet = action.contains("set");
    const char* verb = isSet ? "set" : action.contains("get") ? "get" : "call";
    answers.push_back({action[verb], isSet, CallOf(action)});
  }
}

void DirectRoad::PropertyChanged(std::string_view property) {
  log_.push_back({{"changed", property}});
}

void DirectRoad::ShowMessage(const Message& message) {
  log_.push_back({{"message", ToJsonText(message.text)},
                  {"title", ToJsonText(message.title)},
                  {"icon", "critical"},
                  {"buttons", "ok"}});
}

void DirectRoad::Raised(const std::string& event) {
  log_.push_back({{"event", event}});
  for (const Answer& answer : answers_[event]) {
    Json entry = {{"answered", answer.member}};
    try {
      const CallResult result = answer.call(*control_);
      if (!answer.isSet) entry["value"] = ToJson(result.value);
    } catch (const RuntimeError& error) {
      entry["error"] = ToJson(error);
    }
    log_.push_back(entry);
    if (entry.contains("error")) return;
  }
}

}  // namespace zolt20::tests
