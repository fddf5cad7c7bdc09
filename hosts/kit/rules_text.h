// The content of a file of rules, and its text, which is JSON in UTF-8: see
// hosts/composer/rules_file.h for the format. Hosts read and write it here and nowhere else.
//
// Reading and writing is a round trip: the same value comes out, unknown keys included, which move
// behind the known keys of their object. Only the objects in "nodeNotes" lose their unknown keys.
// Versions are parsed lazily: they are nearly all of a file and seldom used.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/kit/kept_versions.h"
#include "hosts/kit/message.h"
#include "language/node_notes.h"
#include "surface/string.h"

namespace zolt20::rules {

/// What goes wrong with a file of rules or with a name; the message is for the person and names the
/// file.
class RulesError : public hosts::MessageError {
 public:
  using MessageError::MessageError;
};

struct Rule {
  String name;    ///< not ""; no two rules of a file have the same
  String text;    ///< the statement
  String fields;  ///< the field records that the statement was composed with
  /// Of nodes of the text; each has a place in it, or had one when it was stored.
  std::vector<language::NodeNote> notes = {};

  bool operator==(const Rule&) const = default;
};

/// A rule in the bin.
struct DeletedRule {
  Rule rule;
  String deleted;  ///< when the rule was deleted, in the format of `stored`

  bool operator==(const DeletedRule&) const = default;
};

/// A key that this edition does not know, and its value, both as JSON text.
struct UnknownMember {
  std::string key;
  std::string value;
};

/// What a file has of a rule beside the rule itself.
struct RuleExtras {
  String stored;
  String note;
  KeptVersions versions;
  std::vector<UnknownMember> unknown;
};

struct KeptDeleted {
  DeletedRule deleted;
  RuleExtras extras;
};

/// The lists of tables and fields of a catalogue, as the control takes them.
struct NameLists {
  String tables;
  String fields;

  /// Adds a name, "CUSTOMER" or "CUSTOMER.C_ID".
  void Add(StringView name);

  bool operator==(const NameLists&) const = default;
};

/// The names of the catalogue that the rules were composed with last.
struct KeptNames {
  NameLists lists;
  std::vector<UnknownMember> unknown;
};

struct RulesContent {
  std::vector<Rule> rules;
  std::vector<RuleExtras> extras;  ///< for each rule, in the order of `rules`
  std::vector<KeptDeleted> bin;
  std::optional<KeptNames> catalogue;
  std::vector<UnknownMember> unknown;
};

/// How many former texts are kept of each rule.
inline constexpr std::size_t kVersions = 20;

/// Parses the bytes of a file. Throws RulesError when anything is missing or wrong; `where` names
/// the file in the message. The content shares `owner`, which keeps the bytes alive and unchanged.
RulesContent ReadContent(std::string_view bytes, const std::string& where,
                         const std::shared_ptr<const void>& owner);
/// The same with a copy of the bytes.
RulesContent ReadContent(std::string_view bytes, const std::string& where);
std::string WriteContent(const RulesContent& content);

/// The time now, in the format of the file.
String TimeNow();
/// Replaces a rule. If the text differs, the old text with its field records becomes the newest
/// version of the rule, and the oldest version is dropped when there are too many. `now` is the
/// time when the new text was stored.
void PutInPlace(Rule& old, RuleExtras& extras, const Rule& rule, const String& now);

}  // namespace zolt20::rules
