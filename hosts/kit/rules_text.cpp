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
#include "hosts/kit/rules_cut.h"
#include "hosts/kit/rules_writer.h"
#include "hosts/kit/text_coding.h"

namespace zolt20::rules {
namespace {

using hosts::FindValue;
using hosts::JsonValue;
using hosts::Message;

constexpr const char* kFormat = "zolt20 rules";
constexpr unsigned kVersion = 2;

// What is complained of, put into words when it is.
struct Place {
  const std::string& file;
  enum { kFile, kRule, kDeleted } what = kFile;
  std::size_t number = 0;      // of the rule
  std::string_view name = {};  // of the rule, "" while it is not read

  Message Told() const {
    if (what == kFile) return Message::Of(file);
    if (!name.empty()) {
      const std::string shown = hosts::ForPeople(name);
      return what == kRule ? Message("%1: rule \"%2\"", file, shown)
                           : Message("%1: deleted rule \"%2\"", file, shown);
    }
    return what == kRule ? Message("%1: rule number %2", file, number)
                         : Message("%1: deleted rule number %2", file, number);
  }
};

[[noreturn]] void Complain(const Place& where, const Message& complaint) {
  throw RulesError(Message("%1 %2", where.Told(), complaint));
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

// The document stands in the reader.
const JsonValue& Parse(hosts::JsonReader& reader, std::string_view bytes, const Place& where) {
  if (bytes.empty()) Complain(where, Message("is empty"));
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

const JsonValue& Needed(const JsonValue& object, const std::string& key, const Place& where) {
  const JsonValue* const value = FindValue(object, key);
  if (value == nullptr) Complain(where, Message("has no \"%1\"", key));
  return *value;
}

// As it stands in the JSON.
std::string_view NeededString(const JsonValue& object, const std::string& key, const Place& where) {
  const JsonValue& value = Needed(object, key, where);
  if (!value.IsString()) Complain(where, Message("has a \"%1\" that is no string", key));
  return hosts::TextOf(value);
}

String NeededText(const JsonValue& object, const std::string& key, const Place& where) {
  return hosts::FromJsonText(NeededString(object, key, where));
}

// "" for a key that is not there.
String TextIfThere(const JsonValue& object, const std::string& key, const Place& where) {
  return FindValue(object, key) == nullptr ? String() : NeededText(object, key, where);
}

// Null for a key that is not there.
const JsonValue* ArrayIfThere(const JsonValue& object, const std::string& key, const Place& where) {
  const JsonValue* const value = FindValue(object, key);
  if (value != nullptr && !value->IsArray())
    Complain(where, Message("has \"%1\" that are no array", key));
  return value;
}

// One for each node that has a note.
std::vector<language::NodeNote> ReadNodeNotes(const JsonValue& record, const Place& where) {
  std::vector<language::NodeNote> notes;
  const JsonValue* const records = ArrayIfThere(record, "nodeNotes", where);
  if (records == nullptr) return notes;
  for (const JsonValue& value : records->GetArray()) {
    if (!value.IsObject()) Complain(where, Message("has a note of a node that is no object"));
    language::NodeNote& note = notes.emplace_back();
    const JsonValue& path = Needed(value, "at", where);
    if (!path.IsArray()) Complain(where, Message("has an \"at\" that is no array"));
    for (const JsonValue& place : path.GetArray()) {
      if (!place.IsUint()) Complain(where, Message("has an \"at\" with what is no place"));
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

void CheckFormat(const JsonValue& document, const Place& where) {
  const JsonValue* const format = document.IsObject() ? FindValue(document, "format") : nullptr;
  if (format == nullptr || !format->IsString() || hosts::TextOf(*format) != kFormat)
    Complain(where, Message("is no file of rules"));
  const JsonValue& version = Needed(document, "version", where);
  if (!version.IsInt64() && !version.IsUint64())
    Complain(where, Message("has a \"version\" that is no whole number"));
  std::string number;
  AppendValue(number, version, 0);
  if (version.IsUint64() && version.GetUint64() > kVersion) {
    Complain(where, Message("was written by a later version: its format is version %1, and this "
                            "program knows version %2",
                            number, kVersion));
  }
  if (version.IsUint64() && version.GetUint64() >= 1) return;
  Complain(where, Message("has a \"version\" %1, which there is not", number));
}

// From then on `where` has the name.
Rule ReadRule(const JsonValue& record, Place& where) {
  if (!record.IsObject()) Complain(where, Message("is no object"));
  Rule rule;
  const std::string_view name = NeededString(record, "name", where);
  if (name.empty()) Complain(where, Message("has an empty \"%1\"", std::string("name")));
  rule.name = hosts::FromJsonText(name);
  where.name = name;
  rule.text = NeededText(record, "text", where);
  rule.fields = NeededText(record, "fields", where);
  rule.notes = ReadNodeNotes(record, where);
  return rule;
}

KeptVersion ReadVersion(const JsonValue& record, const Place& where) {
  if (!record.IsObject()) Complain(where, Message("has a version that is no object"));
  WrittenVersion version;
  if (FindValue(record, "stored") != nullptr)
    version.stored = NeededString(record, "stored", where);
  version.text = NeededString(record, "text", where);
  version.fields = NeededString(record, "fields", where);
  version.notes = ReadNodeNotes(record, where);
  version.unknown = UnknownOf(record, kVersionMembers, {"stored", "text", "fields", "nodeNotes"});
  return KeptVersion(WriteVersion(version));
}

// The versions that were cut out of the file; counts how many of them were claimed by a rule.
class CutOut {
 public:
  CutOut(const CutText& cut, const std::shared_ptr<const void>& owner) : cut_(cut), owner_(owner) {}

  std::optional<KeptVersions> Take(const JsonValue& record) {
    const JsonValue* const value = FindValue(record, "versions");
    if (value == nullptr || !value->IsString()) return std::nullopt;
    const std::optional<std::size_t> span = cut_.SpanOf(hosts::TextOf(*value));
    if (!span) return std::nullopt;
    ++taken_;
    return KeptVersions(cut_.spans[*span], owner_);
  }
  bool HasAll() const { return taken_ == cut_.spans.size(); }

 private:
  const CutText& cut_;
  const std::shared_ptr<const void>& owner_;
  std::size_t taken_ = 0;
};

// All of the record but the rule itself.
RuleExtras ReadExtras(const JsonValue& record, bool isDeleted, const Place& where, CutOut& cutOut) {
  RuleExtras extras;
  extras.stored = TextIfThere(record, "stored", where);
  extras.note = TextIfThere(record, "note", where);
  if (std::optional<KeptVersions> versions = cutOut.Take(record)) {
    extras.versions = *std::move(versions);
  } else if (const JsonValue* const array = ArrayIfThere(record, "versions", where)) {
    for (const JsonValue& version : array->GetArray())
      extras.versions.Add(ReadVersion(version, where));
  }
  extras.unknown = UnknownOf(record, kRuleMembers,
                             {"name", "text", "fields", "nodeNotes", "stored", "note", "versions",
                              isDeleted ? "deleted" : "versions"});
  return extras;
}

void ReadRules(const JsonValue& records, const Place& file, CutOut& cutOut, RulesContent& content) {
  std::set<String> names;
  for (const JsonValue& record : records.GetArray()) {
    Place where{file.file, Place::kRule, content.rules.size() + 1};
    Rule rule = ReadRule(record, where);
    if (!names.insert(rule.name).second) {
      Complain(file, Message("has two rules of the name \"%1\"", hosts::ForPeople(where.name)));
    }
    content.rules.push_back(std::move(rule));
    content.extras.push_back(ReadExtras(record, false, where, cutOut));
  }
}

void ReadBin(const JsonValue& records, const Place& file, CutOut& cutOut, RulesContent& content) {
  for (const JsonValue& record : records.GetArray()) {
    Place where{file.file, Place::kDeleted, content.bin.size() + 1};
    KeptDeleted kept;
    kept.deleted.rule = ReadRule(record, where);
    kept.deleted.deleted = TextIfThere(record, "deleted", where);
    kept.extras = ReadExtras(record, true, where, cutOut);
    content.bin.push_back(std::move(kept));
  }
}

KeptNames ReadNames(const JsonValue& names, const Place& where) {
  if (!names.IsObject()) Complain(where, Message("has a \"catalogue\" that is no object"));
  return {{NeededText(names, "tables", where), NeededText(names, "fields", where)},
          UnknownOf(names, kNameMembers, {"tables", "fields"})};
}

RulesContent Read(std::string_view bytes, const Place& file, CutOut& cutOut) {
  hosts::JsonReader reader;
  const JsonValue& document = Parse(reader, bytes, file);
  CheckFormat(document, file);
  const JsonValue& records = Needed(document, "rules", file);
  if (!records.IsArray())
    Complain(file, Message("has \"%1\" that are no array", std::string("rules")));
  RulesContent content;
  ReadRules(records, file, cutOut, content);
  if (const JsonValue* const bin = ArrayIfThere(document, "bin", file))
    ReadBin(*bin, file, cutOut, content);
  if (const JsonValue* const names = FindValue(document, "catalogue"))
    content.catalogue = ReadNames(*names, file);
  content.unknown = UnknownOf(document, 1, {"format", "version", "rules", "bin", "catalogue"});
  return content;
}

// Parses the file without its versions. None when anything is wrong, or when versions stand where
// this edition expects none; the caller parses the whole file then.
std::optional<RulesContent> ReadWithoutVersions(std::string_view bytes, const Place& file,
                                                const std::shared_ptr<const void>& owner) {
  const std::optional<CutText> cut = CutVersions(bytes);
  if (!cut || cut->spans.empty()) return std::nullopt;
  CutOut cutOut(*cut, owner);
  try {
    RulesContent content = Read(cut->text, file, cutOut);
    if (cutOut.HasAll()) return content;
  } catch (const RulesError&) {
    // The caller throws it again, with the line in the whole file.
  }
  return std::nullopt;
}

}  // namespace

RulesContent ReadContent(std::string_view bytes, const std::string& where,
                         const std::shared_ptr<const void>& owner) {
  const Place file{where};
  std::optional<RulesContent> content = ReadWithoutVersions(bytes, file, owner);
  if (content) return *std::move(content);
  const CutText nothing;
  CutOut cutOut(nothing, owner);
  return Read(bytes, file, cutOut);
}

RulesContent ReadContent(std::string_view bytes, const std::string& where) {
  const auto kept = std::make_shared<const std::string>(bytes);
  return ReadContent(*kept, where, kept);
}

Version KeptVersion::Read() const {
  hosts::JsonReader reader;
  const JsonValue& record = reader.Read(hosts::PutStandIns(written_));
  Version version;
  const Place nowhere{written_};
  version.stored = TextIfThere(record, "stored", nowhere);
  version.text = NeededText(record, "text", nowhere);
  version.fields = NeededText(record, "fields", nowhere);
  version.notes = ReadNodeNotes(record, nowhere);
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
    extras.versions.Add(KeptVersion(Version{std::move(old.text), std::move(old.fields),
                                            std::move(extras.stored), std::move(old.notes)}));
    if (extras.versions.Count() > kVersions) extras.versions.DropOldest();
    extras.stored = now;
  }
  old = rule;
}

}  // namespace zolt20::rules
