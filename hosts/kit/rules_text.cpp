#include "hosts/kit/rules_text.h"

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <initializer_list>
#include <set>
#include <string>
#include <utility>

#include "hosts/kit/json_fault.h"
#include "hosts/kit/json_reader.h"
#include "hosts/kit/rules_writer.h"
#include "hosts/kit/text_coding.h"

namespace zolt20::rules {
namespace {

using hosts::FindValue;
using hosts::JsonValue;

constexpr const char* kFormat = "zolt20 rules";
constexpr unsigned kVersion = 2;

[[noreturn]] void Complain(const std::string& where, const std::string& complaint) {
  throw RulesError(where + " " + complaint);
}

// Duplicate keys: a reader would take one value and lose the others.
bool HasKeyTwice(const JsonValue& value) {
  if (value.IsArray()) {
    return std::any_of(value.Begin(), value.End(), HasKeyTwice);
  }
  if (!value.IsObject()) return false;
  std::set<std::string_view> many;
  const bool isLarge = value.MemberCount() > 16;
  for (auto member = value.MemberBegin(); member != value.MemberEnd(); ++member) {
    const std::string_view key = hosts::TextOf(member->name);
    const auto isSame = [key](const auto& other) { return hosts::TextOf(other.name) == key; };
    const bool isTwice =
        isLarge ? !many.insert(key).second : std::any_of(value.MemberBegin(), member, isSame);
    if (isTwice || HasKeyTwice(member->value)) return true;
  }
  return false;
}

// The document lives in the reader.
const JsonValue& Parse(hosts::JsonReader& reader, std::string_view bytes,
                       const std::string& where) {
  if (bytes.empty()) Complain(where, "is empty");
  const std::string text = hosts::PutStandIns(bytes);
  const auto complain = [&] { Complain(where, hosts::FaultIn(text)); };
  if (hosts::IsTooDeep(text)) complain();
  try {
    const JsonValue& document = reader.Read(text);
    if (HasKeyTwice(document)) complain();
    return document;
  } catch (const hosts::Json::exception&) {
    complain();
    throw;
  }
}

const JsonValue& Needed(const JsonValue& object, const std::string& key, const std::string& where) {
  const JsonValue* const value = FindValue(object, key);
  if (value == nullptr) Complain(where, "has no \"" + key + "\"");
  return *value;
}

// The string as the JSON has it, in UTF-8 with stand-ins.
std::string_view NeededString(const JsonValue& object, const std::string& key,
                              const std::string& where) {
  const JsonValue& value = Needed(object, key, where);
  if (!value.IsString()) Complain(where, "has a \"" + key + "\" that is no string");
  return hosts::TextOf(value);
}

String NeededText(const JsonValue& object, const std::string& key, const std::string& where) {
  return hosts::FromJsonText(NeededString(object, key, where));
}

// "" for a key that is not there.
String TextIfThere(const JsonValue& object, const std::string& key, const std::string& where) {
  return FindValue(object, key) == nullptr ? String() : NeededText(object, key, where);
}

// Null for a key that is not there.
const JsonValue* ArrayIfThere(const JsonValue& object, const std::string& key,
                              const std::string& where) {
  const JsonValue* const value = FindValue(object, key);
  if (value != nullptr && !value->IsArray())
    Complain(where, "has \"" + key + "\" that are no array");
  return value;
}

// One for each node that has a note.
std::vector<language::NodeNote> ReadNodeNotes(const JsonValue& record, const std::string& where) {
  std::vector<language::NodeNote> notes;
  const JsonValue* const records = ArrayIfThere(record, "nodeNotes", where);
  if (records == nullptr) return notes;
  for (const JsonValue& value : records->GetArray()) {
    if (!value.IsObject()) Complain(where, "has a note of a node that is no object");
    language::NodeNote& note = notes.emplace_back();
    const JsonValue& path = Needed(value, "at", where);
    if (!path.IsArray()) Complain(where, "has an \"at\" that is no array");
    for (const JsonValue& place : path.GetArray()) {
      if (!place.IsUint()) Complain(where, "has an \"at\" with what is no place");
      note.path.push_back(place.GetUint());
    }
    note.head = NeededText(value, "head", where);
    note.note = NeededText(value, "note", where);
  }
  return notes;
}

std::vector<UnknownMember> UnknownOf(const JsonValue& object, std::size_t depth,
                                     std::initializer_list<std::string_view> known) {
  std::vector<UnknownMember> unknown;
  for (auto member = object.MemberBegin(); member != object.MemberEnd(); ++member) {
    const std::string_view key = hosts::TextOf(member->name);
    if (std::find(known.begin(), known.end(), key) != known.end()) continue;
    UnknownMember& kept = unknown.emplace_back();
    AppendString(kept.key, key);
    AppendValue(kept.value, member->value, depth);
  }
  return unknown;
}

void CheckFormat(const JsonValue& document, const std::string& where) {
  const JsonValue* const format = document.IsObject() ? FindValue(document, "format") : nullptr;
  if (format == nullptr || !format->IsString() || hosts::TextOf(*format) != kFormat)
    Complain(where, "is no file of rules");
  const JsonValue& version = Needed(document, "version", where);
  if (!version.IsInt64() && !version.IsUint64())
    Complain(where, "has a \"version\" that is no whole number");
  std::string number;
  AppendValue(number, version, 0);
  if (version.IsUint64() && version.GetUint64() > kVersion) {
    Complain(where, "was written by a later version: its format is version " + number +
                        ", and this program knows version " + std::to_string(kVersion));
  }
  if (version.IsUint64() && version.GetUint64() >= 1) return;
  Complain(where, "has a \"version\" " + number + ", which there is not");
}

// `what` names the record, a rule or one of the bin. `where` is extended by it for later errors.
Rule ReadRule(const JsonValue& record, const char* what, std::size_t number, std::string& where) {
  where += std::string(": ") + what;
  const std::string numbered = where + " number " + std::to_string(number);
  if (!record.IsObject()) Complain(numbered, "is no object");
  Rule rule;
  const std::string_view name = NeededString(record, "name", numbered);
  if (name.empty()) Complain(numbered, "has an empty \"name\"");
  rule.name = hosts::FromJsonText(name);
  where += " \"" + hosts::ForPeople(name) + "\"";
  rule.text = NeededText(record, "text", where);
  rule.fields = NeededText(record, "fields", where);
  rule.notes = ReadNodeNotes(record, where);
  return rule;
}

KeptVersion ReadVersion(const JsonValue& record, const std::string& where) {
  if (!record.IsObject()) Complain(where, "has a version that is no object");
  WrittenVersion version;
  if (FindValue(record, "stored") != nullptr)
    version.stored = NeededString(record, "stored", where);
  version.text = NeededString(record, "text", where);
  version.fields = NeededString(record, "fields", where);
  version.notes = ReadNodeNotes(record, where);
  version.unknown = UnknownOf(record, kVersionMembers, {"stored", "text", "fields", "nodeNotes"});
  return KeptVersion(WriteVersion(version));
}

// Everything in the record except the rule itself.
RuleExtras ReadExtras(const JsonValue& record, bool isDeleted, const std::string& where) {
  RuleExtras extras;
  extras.stored = TextIfThere(record, "stored", where);
  extras.note = TextIfThere(record, "note", where);
  if (const JsonValue* const versions = ArrayIfThere(record, "versions", where)) {
    extras.versions.reserve(versions->Size());
    for (const JsonValue& version : versions->GetArray())
      extras.versions.push_back(ReadVersion(version, where));
  }
  extras.unknown = UnknownOf(record, kRuleMembers,
                             {"name", "text", "fields", "nodeNotes", "stored", "note", "versions",
                              isDeleted ? "deleted" : "versions"});
  return extras;
}

void ReadRules(const JsonValue& records, const std::string& where, RulesContent& content) {
  std::set<String> names;
  for (const JsonValue& record : records.GetArray()) {
    std::string named = where;
    Rule rule = ReadRule(record, "rule", content.rules.size() + 1, named);
    if (!names.insert(rule.name).second) {
      Complain(where, "has two rules of the name \"" +
                          hosts::ForPeople(hosts::ToJsonText(rule.name)) + "\"");
    }
    content.rules.push_back(std::move(rule));
    content.extras.push_back(ReadExtras(record, false, named));
  }
}

void ReadBin(const JsonValue& records, const std::string& where, RulesContent& content) {
  for (const JsonValue& record : records.GetArray()) {
    std::string named = where;
    KeptDeleted kept;
    kept.deleted.rule = ReadRule(record, "deleted rule", content.bin.size() + 1, named);
    kept.deleted.deleted = TextIfThere(record, "deleted", named);
    kept.extras = ReadExtras(record, true, named);
    content.bin.push_back(std::move(kept));
  }
}

KeptNames ReadNames(const JsonValue& names, const std::string& where) {
  if (!names.IsObject()) Complain(where, "has a \"catalogue\" that is no object");
  return {{NeededText(names, "tables", where), NeededText(names, "fields", where)},
          UnknownOf(names, kNameMembers, {"tables", "fields"})};
}

}  // namespace

RulesContent ReadContent(std::string_view bytes, const std::string& where) {
  hosts::JsonReader reader;
  const JsonValue& document = Parse(reader, bytes, where);
  CheckFormat(document, where);
  const JsonValue& records = Needed(document, "rules", where);
  if (!records.IsArray()) Complain(where, "has \"rules\" that are no array");
  RulesContent content;
  ReadRules(records, where, content);
  if (const JsonValue* const bin = ArrayIfThere(document, "bin", where))
    ReadBin(*bin, where, content);
  if (const JsonValue* const names = FindValue(document, "catalogue"))
    content.catalogue = ReadNames(*names, where);
  content.unknown = UnknownOf(document, 1, {"format", "version", "rules", "bin", "catalogue"});
  return content;
}

Version KeptVersion::Read() const {
  hosts::JsonReader reader;
  const JsonValue& record = reader.Read(hosts::PutStandIns(written_));
  Version version;
  version.stored = TextIfThere(record, "stored", {});
  version.text = NeededText(record, "text", {});
  version.fields = NeededText(record, "fields", {});
  version.notes = ReadNodeNotes(record, {});
  return version;
}

String TimeNow() {
  const std::time_t now = std::time(nullptr);
  std::string time(32, ' ');
  time.resize(std::strftime(time.data(), time.size(), "%Y-%m-%dT%H:%M:%SZ", std::gmtime(&now)));
  return {time.begin(), time.end()};
}

void PutInPlace(Rule& old, RuleExtras& extras, const Rule& rule, const String& now) {
  if (old.text != rule.text) {
    extras.versions.emplace_back(Version{std::move(old.text), std::move(old.fields),
                                         std::move(extras.stored), std::move(old.notes)});
    if (extras.versions.size() > kVersions) extras.versions.erase(extras.versions.begin());
    extras.stored = now;
  }
  old = rule;
}

}  // namespace zolt20::rules
