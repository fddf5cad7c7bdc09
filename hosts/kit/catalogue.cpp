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
#include "shell/table_key.h"

namespace zolt20::catalogue {
namespace {

using Json = nlohmann::json;
using hosts::FromJsonText;
using hosts::Message;

Message TheCatalogue() {
  return Message("the catalogue");
}

Message TableNamed(const std::string& code) {
  return Message("table %1", code);
}

Message FieldNamed(const std::string& code, const std::string& name) {
  return Message("field %1.%2", code, name);
}

[[noreturn]] void Complain(const Message& where, const Message& complaint) {
  throw CatalogueError(Message("%1 %2", where, complaint));
}

const Json& Needed(const Json& object, const char* key, const Message& where) {
  if (!object.is_object()) Complain(where, Message("is no object"));
  const auto found = object.find(key);
  if (found == object.end()) Complain(where, Message("has no \"%1\"", std::string(key)));
  return *found;
}

const std::string& NeededText(const Json& object, const char* key, const Message& where) {
  const Json& value = Needed(object, key, where);
  if (!value.is_string())
    Complain(where, Message("has a \"%1\" that is no string", std::string(key)));
  return value.get_ref<const std::string&>();
}

const Json& NeededArray(const Json& object, const char* key, const Message& where) {
  const Json& value = Needed(object, key, where);
  if (!value.is_array()) Complain(where, Message("has \"%1\" that are no array", std::string(key)));
  return value;
}

// A name that must say something.
const std::string& NeededName(const Json& object, const char* key, const Message& where) {
  const std::string& name = NeededText(object, key, where);
  if (name.empty()) Complain(where, Message("has an empty \"%1\"", std::string(key)));
  return name;
}

void CheckListed(StringView text, const char* key, const Message& where) {
  const Message reason = WhyNotListed(text);
  if (!reason.IsEmpty()) Complain(where, Message("has a \"%1\" that %2", std::string(key), reason));
}

Integer ReadIndexCount(const Json& table, const Message& where) {
  const Json& value = Needed(table, "indexes", where);
  if (!value.is_number_integer())
    Complain(where, Message("has \"indexes\" that are no whole number"));
  const bool fits = value.is_number_unsigned() &&
                    value.get<std::uint64_t>() <= static_cast<std::uint64_t>(Integer::kGreatest);
  if (!fits) {
    Complain(where, Message("has %1 indexes, and 0 to %2 are possible", value.dump(),
                            std::to_string(Integer::kGreatest)));
  }
  return value.get<std::int64_t>();
}

Field ReadField(const Json& json, const Message& where, const std::string& code) {
  const std::string& name = NeededName(json, "name", where);
  const Message field = FieldNamed(code, name);
  Field result;
  result.name = FromJsonText(name);
  result.type = FromJsonText(NeededName(json, "type", field));
  result.text = FromJsonText(NeededText(json, "text", field));
  const Json& flagged = Needed(json, "flagged", field);
  if (!flagged.is_boolean())
    Complain(field, Message("has a \"flagged\" that is neither true nor false"));
  result.flagged = flagged.get<bool>();
  CheckListed(result.name, "name", field);
  CheckListed(result.type, "type", field);
  CheckListed(result.text, "text", field);
  return result;
}

Table ReadTable(const Json& json, const Message& where) {
  const std::string& code = NeededName(json, "code", where);
  const Message table = TableNamed(code);
  Table result;
  result.code = FromJsonText(code);
  if (result.code.size() != kTableLength) {
    Complain(table, Message("has a \"code\" of %1 characters, and it must have %2",
                            result.code.size(), kTableLength));
  }
  CheckListed(result.code, "code", table);
  result.name = FromJsonText(NeededName(json, "name", table));
  result.indexes = ReadIndexCount(json, table);
  std::set<String> names;
  std::size_t number = 0;
  for (const Json& field : NeededArray(json, "fields", table)) {
    result.fields.push_back(
        ReadField(field, Message("table %1, field number %2,", code, ++number), code));
    if (!names.insert(result.fields.back().name).second)
      Complain(FieldNamed(code, field.at("name").get<std::string>()), Message("stands twice"));
  }
  return result;
}

// A text that need not be there.
String OptionalText(const Json& object, const char* key, const Message& where) {
  return object.contains(key) ? FromJsonText(NeededText(object, key, where)) : String();
}

Function ReadFunction(const Json& json, const Message& where) {
  const std::string& name = NeededName(json, "name", where);
  const Message function("function %1", name);
  Function result;
  result.name = FromJsonText(name);
  for (const Json& argument : NeededArray(json, "arguments", function)) {
    if (!argument.is_string()) Complain(function, Message("has an argument that is no string"));
    result.arguments.push_back(FromJsonText(argument.get_ref<const std::string&>()));
  }
  result.kind = OptionalText(json, "kind", function);
  result.text = OptionalText(json, "text", function);
  return result;
}

Catalogue ReadJson(const Json& json) {
  const Message where = TheCatalogue();
  Catalogue result;
  result.name = FromJsonText(NeededText(json, "name", where));
  std::set<String> codes;
  std::size_t number = 0;
  for (const Json& table : NeededArray(json, "tables", where)) {
    result.tables.push_back(ReadTable(table, Message("table number %1", ++number)));
    if (!codes.insert(result.tables.back().code).second)
      Complain(TableNamed(table.at("code").get<std::string>()), Message("stands twice"));
  }
  std::set<String> names;
  number = 0;
  for (const Json& function : NeededArray(json, "functions", where)) {
    result.functions.push_back(ReadFunction(function, Message("function number %1", ++number)));
    if (!names.insert(result.functions.back().name).second) {
      Complain(Message("function %1", function.at("name").get<std::string>()),
               Message("stands twice"));
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
    Complain(TheCatalogue(), Message("is no JSON: %1", std::string(error.what())));
  } catch (const std::ios_base::failure& error) {
    Complain(TheCatalogue(), Message("can't be read: %1", std::string(error.what())));
  }
  return ReadJson(json);
}

Catalogue ReadCatalogue(const std::filesystem::path& file) {
  std::ifstream input(file, std::ios::binary);
  if (!input) {
    std::error_code failure;
    const bool isThere = std::filesystem::exists(file, failure);
    const std::string name = file.string();
    Complain(TheCatalogue(), isThere ? Message("can't be read: there is no right to read %1", name)
                                     : Message("can't be read: there is no %1", name));
  }
  return ReadCatalogue(input);
}

// A text that goes into one of the lists must not hold what separates the entries there, nor end
// so that it makes a separator together with the first character of the one that follows.
Message WhyNotListed(StringView text) {
  if (Holds(text, u",")) return Message("holds a comma");
  if (Holds(Concat(text, kSeparator.substr(0, 1)), kSeparator))
    return Message("holds the separator *Q*V*R*N* or runs into it");
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
