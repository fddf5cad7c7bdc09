#include "tests/support/literal_calls.h"

#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

#include "hosts/kit/text_coding.h"

namespace zolt20::tests {
namespace {

using Json = nlohmann::ordered_json;
using hosts::FromJsonText;

LiteralCall SetCall(const std::string& name, const Json& value) {
  static const std::map<std::string, void (LiteralForm::*)(const String&)> kTexts{
      {"PrpStrTables", &LiteralForm::PrpStrTables},
      {"PrpStrFields", &LiteralForm::PrpStrFields},
      {"prpSelectPart", &LiteralForm::prpSelectPart},
      {"prpParentorChild", &LiteralForm::prpParentorChild},
      {"prpStroutput", &LiteralForm::prpStroutput},
      {"prpSelectFromPart", &LiteralForm::prpSelectFromPart},
      {"prpSelectWherePart", &LiteralForm::prpSelectWherePart},
      {"prpSelectGroupbyPart", &LiteralForm::prpSelectGroupbyPart},
      {"prpSelectOrderbyPart", &LiteralForm::prpSelectOrderbyPart},
      {"prpSelectAsSetPart", &LiteralForm::prpSelectAsSetPart},
      {"prpSelectDoPart", &LiteralForm::prpSelectDoPart},
      {"prpSelectEOSPart", &LiteralForm::prpSelectEOSPart},
      {"prpSelectEmptyPart", &LiteralForm::prpSelectEmptyPart},
      {"prpSelectErrorPart", &LiteralForm::prpSelectErrorPart},
  };
  const auto numeric = [&](void (LiteralForm::*let)(int)) -> LiteralCall {
    return [let, number = value.get<int>()](LiteralForm& form) -> Variant {
      (form.*let)(number);
      return {};
    };
  };
  if (name == "prpTab") return numeric(&LiteralForm::prpTab);
  if (name == "prpintTabcount") return numeric(&LiteralForm::prpintTabcount);
  if (name == "Syntax_Highlight") {
    return [flag = value.get<bool>()](LiteralForm& form) -> Variant {
      form.Syntax_Highlight(flag);
      return {};
    };
  }
  return [let = kTexts.at(name),
          text = FromJsonText(value.get<std::string>())](LiteralForm& form) -> Variant {
    (form.*let)(text);
    return {};
  };
}

LiteralCall GetCall(const std::string& name) {
  static const std::map<std::string, Variant (*)(LiteralForm&)> kGets{
      {"prpStroutput", [](LiteralForm& form) -> Variant { return form.prpStroutput(); }},
      {"prpStrSQLPart", [](LiteralForm& form) -> Variant { return form.prpStrSQLPart(); }},
      {"prpstrSelectedFields",
       [](LiteralForm& form) -> Variant { return form.prpstrSelectedFields(); }},
      {"prpintTabcount",
       [](LiteralForm& form) -> Variant { return Integer(form.prpintTabcount()); }},
      {"Syntax_Highlight", [](LiteralForm& form) -> Variant { return form.Syntax_Highlight(); }},
  };
  return kGets.at(name);
}

LiteralCall MethodCall(const Json& request) {
  if (request["call"] == "BuildGroupBy") {
    return [](LiteralForm& form) -> Variant {
      form.BuildGroupBy();
      return {};
    };
  }
  return [page = request["args"].at(0).get<int>()](LiteralForm& form) -> Variant {
    form.ClearAll(page);
    return {};
  };
}

LiteralCall GestureCall(const Json& request) {
  const std::string verb = request["user"];
  const std::string name = request.value("control", "");
  const auto number = [&](const char* key) { return request.value(key, 0); };
  const auto doing = [](auto act) -> LiteralCall {
    return [act](LiteralForm& form) -> Variant {
      act(form);
      return {};
    };
  };
  if (verb == "tab") return doing([page = number("page")](auto& form) { form.Tab(page); });
  if (verb == "scroll") return doing([to = number("value")](auto& form) { form.Scroll(to); });
  if (verb == "focus") return doing([name](auto& form) { form.Focus(name); });
  if (verb == "click" && !request.contains("row"))
    return doing([name](auto& form) { form.Click(name); });
  if (verb == "type") {
    return doing([name, text = FromJsonText(request["text"].get<std::string>())](auto& form) {
      form.Type(name, text);
    });
  }
  if (verb == "key") {
    std::optional<TextMark> mark;
    if (request.contains("from")) mark = {number("from"), request.value("to", number("from"))};
    return doing([name, code = number("code"), mark](auto& form) { form.Key(name, code, mark); });
  }
  const int row = number("row");
  if (verb == "click") return doing([name, row](auto& form) { form.ClickRow(name, row); });
  if (verb == "dblclick") return doing([name, row](auto& form) { form.DoubleClickRow(name, row); });
  if (verb == "pick") return doing([name, row](auto& form) { form.Pick(name, row); });
  throw std::invalid_argument(request.dump());
}

}  // namespace

LiteralCall LiteralCallOf(const Json& request) {
  if (request.contains("set")) return SetCall(request["set"], request["value"]);
  if (request.contains("get")) return GetCall(request["get"]);
  if (request.contains("call")) return MethodCall(request);
  return GestureCall(request);
}

}  // namespace zolt20::tests
