// Pretty-prints catalogues as JSON: an object or array that fits a line is written in one line.
#include <nlohmann/json.hpp>
#include <sstream>

#include "hosts/kit/catalogue.h"
#include "hosts/kit/text_coding.h"

namespace zolt20::catalogue {
namespace {

using Json = nlohmann::ordered_json;
using hosts::ToJsonText;

constexpr std::size_t kWidth = 100;
constexpr std::size_t kIndent = 2;

std::string InOneLine(const Json& json);

// Appends the elements of an array or object, each by `write` behind its key, if it has one.
template <typename Write>
void AppendElements(std::string& text, const Json& json, const std::string& between, Write write) {
  bool first = true;
  for (auto element = json.begin(); element != json.end(); ++element) {
    if (!first) text += between;
    first = false;
    if (json.is_object()) text += Json(element.key()).dump() + ": ";
    text += write(*element);
  }
}

std::string InOneLine(const Json& json) {
  if (!json.is_structured()) return json.dump();
  std::string text(1, json.is_object() ? '{' : '[');
  AppendElements(text, json, ", ", InOneLine);
  return text + (json.is_object() ? '}' : ']');
}

std::string InLines(const Json& json, std::size_t depth) {
  std::string text = InOneLine(json);
  if (!json.is_structured() || json.empty()) return text;
  if (depth > 0 && depth * kIndent + text.size() <= kWidth) return text;
  const std::string inner = "\n" + std::string((depth + 1) * kIndent, ' ');
  text = (json.is_object() ? "{" : "[") + inner;
  AppendElements(text, json, "," + inner,
                 [depth](const Json& element) { return InLines(element, depth + 1); });
  text += "\n" + std::string(depth * kIndent, ' ');
  return text + (json.is_object() ? '}' : ']');
}

std::string Written(const Json& json) {
  return hosts::TakeStandIns(InLines(json, 0)) + "\n";
}

Json JsonOf(const Field& field) {
  return {{"name", ToJsonText(field.name)},
          {"type", ToJsonText(field.type)},
          {"flagged", field.flagged},
          {"text", ToJsonText(field.text)}};
}

Json JsonOf(const Table& table) {
  Json fields = Json::array();
  for (const Field& field : table.fields)
    fields.push_back(JsonOf(field));
  return {{"code", ToJsonText(table.code)},
          {"name", ToJsonText(table.name)},
          {"indexes", table.indexes.value()},
          {"fields", std::move(fields)}};
}

Json JsonOf(const std::vector<Function>& functions) {
  Json result = Json::array();
  for (const Function& function : functions) {
    Json arguments = Json::array();
    for (const String& argument : function.arguments)
      arguments.push_back(ToJsonText(argument));
    Json json{{"name", ToJsonText(function.name)}, {"arguments", std::move(arguments)}};
    if (!function.kind.empty()) json["kind"] = ToJsonText(function.kind);
    if (!function.text.empty()) json["text"] = ToJsonText(function.text);
    result.push_back(std::move(json));
  }
  return result;
}

}  // namespace

std::string WriteCatalogue(const Catalogue& catalogue) {
  Json tables = Json::array();
  for (const Table& table : catalogue.tables)
    tables.push_back(JsonOf(table));
  return Written({{"name", ToJsonText(catalogue.name)},
                  {"tables", std::move(tables)},
                  {"functions", JsonOf(catalogue.functions)}});
}

std::string WithFunctions(const std::string& json, const std::vector<Function>& functions) {
  std::istringstream before(json);
  ReadCatalogue(before);
  Json catalogue = Json::parse(hosts::PutStandIns(json));
  catalogue["functions"] = JsonOf(functions);
  std::string text = Written(catalogue);
  std::istringstream after(text);
  ReadCatalogue(after);
  return text;
}

}  // namespace zolt20::catalogue
