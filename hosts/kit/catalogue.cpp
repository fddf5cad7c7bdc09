#include "hosts/kit/catalogue.h"

#include <cstdint>
#include <fstream>
#include <ios>
#include <iterator>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <system_error>
#include <utility>

#include "hosts/kit/text_coding.h"
#include "shell/field_records.h"

namespace zolt20::catalogue {
namespace {

using Json = nlohmann::json;
using hosts::FromJsonText;

constexpr std::size_t kCodeLength = 8;

[[noreturn]] void Complain(const std::string& where, const std::string& complaint) {
  throw CatalogueError(where + " " + complaint);
}

const Json& Needed(const Json& object, const char* key, const std::string& where) {
  if (!object.is_object()) Complain(where, "is no object");
  const auto found = object.find(key);
  if (found == object.end()) Complain(where, std::string("has no \"") + key + "\"");
  return *found;
}

const std::string& NeededText(const Json& object, const char* key, const std::string& where) {
  const Json& value = Needed(object, key, where);
  if (!value.is_string()) Complain(where, std::string("has a \"") + key + "\" that is no string");
  return value.get_ref<const std::string&>();
}

const Json& NeededArray(const Json& object, const char* key, const std::string& where) {
  const Json& value = Needed(object, key, where);
  if (!value.is_array()) Complain(where, std::string("has \"") + key + "\" that are no array");
  return value;
}

// A required name, which must not be empty.
const std::string& NeededName(const Json& object, const char* key, const std::string& where) {
  const std::string& name = NeededText(object, key, where);
  if (name.empty()) Complain(where, std::string("has an empty \"") + key + "\"");
  return name;
}

void CheckListed(StringView text, const char* key, const std::string& where) {
  const std::string reason = WhyNotListed(text);
  if (!reason.empty()) Complain(where, std::string("has a \"") + key + "\" that " + reason);
}

Integer ReadIndexCount(const Json& table, const std::string& where) {
  const Json& value = Needed(table, "indexes", where);
  if (!value.is_number_integer()) Complain(where, "has \"indexes\" that are no whole number");
  const bool fits = value.is_number_unsigned() &&
                    value.get<std::uint64_t>() <= static_cast<std::uint64_t>(Integer::kGreatest);
  if (!fits) {
    Complain(where, "has " + value.dump() + " indexes, and 0 to " +
                        std::to_string(Integer::kGreatest) + " are possible");
  }
  return value.get<std::int64_t>();
}

Field ReadField(const Json& json, const std::string& where, const std::string& code) {
  const std::string& name = NeededName(json, "name", where);
  const std::string field = "field " + code + "." + name;
  Field result;
  result.name = FromJsonText(name);
  result.type = FromJsonText(NeededName(json, "type", field));
  result.text = FromJsonText(NeededText(json, "text", field));
  const Json& flagged = Needed(json, "flagged", field);
  if (!flagged.is_boolean()) Complain(field, "has a \"flagged\" that is neither true nor false");
  result.flagged = flagged.get<bool>();
  CheckListed(result.name, "name", field);
  CheckListed(result.type, "type", field);
  CheckListed(result.text, "text", field);
  return result;
}

Table ReadTable(const Json& json, const std::string& where) {
  const std::string& code = NeededName(json, "code", where);
  const std::string table = "table " + code;
  Table result;
  result.code = FromJsonText(code);
  if (result.code.size() != kCodeLength) {
    Complain(table, "has a \"code\" of " + std::to_string(result.code.size()) +
                        " characters, and it must have " + std::to_string(kCodeLength));
  }
  CheckListed(result.code, "code", table);
  result.name = FromJsonText(NeededName(json, "name", table));
  result.indexes = ReadIndexCount(json, table);
  std::set<String> names;
  int number = 0;
  for (const Json& field : NeededArray(json, "fields", table)) {
    result.fields.push_back(
        ReadField(field, table + ", field number " + std::to_string(++number) + ",", code));
    if (!names.insert(result.fields.back().name).second) {
      Complain("field " + code + "." + field.at("name").get<std::string>(), "stands twice");
    }
  }
  return result;
}

// An optional text, "" when the key is missing.
String OptionalText(const Json& object, const char* key, const std::string& where) {
  return object.contains(key) ? FromJsonText(NeededText(object, key, where)) : String();
}

Function ReadFunction(const Json& json, const std::string& where) {
  const std::string& name = NeededName(json, "name", where);
  const std::string function = "function " + name;
  Function result;
  result.name = FromJsonText(name);
  for (const Json& argument : NeededArray(json, "arguments", function)) {
    if (!argument.is_string()) Complain(function, "has an argument that is no string");
    result.arguments.push_back(FromJsonText(argument.get_ref<const std::string&>()));
  }
  result.kind = OptionalText(json, "kind", function);
  result.text = OptionalText(json, "text", function);
  return result;
}

Catalogue ReadJson(const Json& json) {
  const std::string where = "the catalogue";
  Catalogue result;
  result.name = FromJsonText(NeededText(json, "name", where));
  std::set<String> codes;
  int number = 0;
  for (const Json& table : NeededArray(json, "tables", where)) {
    result.tables.push_back(ReadTable(table, "table number " + std::to_string(++number)));
    if (!codes.insert(result.tables.back().code).second) {
      Complain("table " + table.at("code").get<std::string>(), "stands twice");
    }
  }
  std::set<String> names;
  number = 0;
  for (const Json& function : NeededArray(json, "functions", where)) {
    result.functions.push_back(
        ReadFunction(function, "function number " + std::to_string(++number)));
    if (!names.insert(result.functions.back().name).second) {
      Complain("function " + function.at("name").get<std::string>(), "stands twice");
    }
  }
  return result;
}

void AppendEntry(String& list, StringView entry) {
  if (!list.empty()) list += u',';
  list += entry;
}

}  // namespace

Catalogue ReadCatalogue(std::istream& input) {
  Json json;
  try {
    const std::string text{std::istreambuf_iterator<char>(input), {}};
    json = Json::parse(hosts::PutStandIns(text));
  } catch (const Json::exception& error) {
    Complain("the catalogue", std::string("is no JSON: ") + error.what());
  } catch (const std::ios_base::failure& error) {
    Complain("the catalogue", std::string("can't be read: ") + error.what());
  }
  return ReadJson(json);
}

Catalogue ReadCatalogue(const std::filesystem::path& file) {
  std::ifstream input(file, std::ios::binary);
  if (!input) {
    std::error_code failure;
    const bool isThere = std::filesystem::exists(file, failure);
    Complain("the catalogue", std::string("can't be read: ") +
                                  (isThere ? "there is no right to read " : "there is no ") +
                                  file.string());
  }
  return ReadCatalogue(input);
}

// An entry of the lists must not hold a separator, nor end with the beginning of one, which would
// form a separator with the first character of the separator behind it.
std::string WhyNotListed(StringView text) {
  if (Holds(text, u",")) return "holds a comma";
  if (Holds(Concat(text, kSeparator.substr(0, 1)), kSeparator)) {
    return "holds the separator *Q*V*R*N* or runs into it";
  }
  return {};
}

String TableList(const Catalogue& catalogue) {
  String list;
  for (const Table& table : catalogue.tables) {
    AppendEntry(list, Concat(table.code, ToText(table.indexes)));
  }
  return list;
}

String FieldList(const Catalogue& catalogue) {
  String list;
  for (const Table& table : catalogue.tables) {
    for (const Field& field : table.fields) {
      AppendEntry(list, Concat(field.type, kSeparator, field.flagged ? u"Y" : u"N", table.code,
                               u".", field.name, kSeparator, field.text));
    }
  }
  return list;
}

}  // namespace zolt20::catalogue
