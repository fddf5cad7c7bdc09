// What stands in a file of rules, and its text, which is JSON in UTF-8: see
// hosts/composer/rules_file.h for its form. Hosts read and write it here and nowhere else.
//
// What is read and written again is the same value, unknown keys included, each behind the known
// keys of its place. Versions are kept as the file has them and read when somebody asks, since they
// are nearly all of a file and hardly ever looked at.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "surface/string.h"

namespace zolt20::rules {

/// What goes wrong with a file of rules or with a name; the message, in UTF-8, is for the person
/// and names the file.
class RulesError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Rule {
  String name;    ///< not ""; no two rules of a file have the same
  String text;    ///< the statement
  String fields;  ///< the field records that came with it

  bool operator==(const Rule&) const = default;
};

/// A text that a rule had before.
struct Version {
  String text;
  String fields;
  String stored;  ///< when it was put: "2026-01-31T23:59:59Z", "" when nobody knows

  bool operator==(const Version&) const = default;
};

/// A rule in the bin.
struct DeletedRule {
  Rule rule;
  String deleted;  ///< when, as above

  bool operator==(const DeletedRule&) const = default;
};

/// A version as the file has it.
class KeptVersion {
 public:
  explicit KeptVersion(const Version& version);
  /// As it is written, which is taken to be sound.
  explicit KeptVersion(std::string written) : written_(std::move(written)) {}

  Version Read() const;
  const std::string& Written() const { return written_; }

 private:
  std::string written_;
};

/// A key that this edition does not know, and its value, both as they are written.
struct UnknownMember {
  std::string key;
  std::string value;
};

/// What belongs to a rule beside the rule itself.
struct RuleExtras {
  String stored;
  String note;
  std::vector<KeptVersion> versions;
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

  /// A further name, "CUSTOMER" or "CUSTOMER.C_ID".
  void Add(StringView name);

  bool operator==(const NameLists&) const = default;
};

/// The names that the rules were composed with last.
struct KeptNames {
  NameLists lists;
  std::vector<UnknownMember> unknown;
};

struct RulesContent {
  std::vector<Rule> rules;
  std::vector<RuleExtras> extras;  ///< of each rule
  std::vector<KeptDeleted> bin;
  std::optional<KeptNames> catalogue;
  std::vector<UnknownMember> unknown;
};

/// How many texts before are kept of each rule.
inline constexpr std::size_t kVersions = 20;

/// Throws RulesError when anything is missing or wrong; `where` is the file.
RulesContent ReadContent(std::string_view bytes, const std::string& where);
std::string WriteContent(const RulesContent& content);

/// The time of what is done now, as the file has it.
String TimeNow();
/// Puts another text and other fields in place of those of a rule, whose versions get the old text
/// when that becomes another one. `now` is when.
void PutInPlace(Rule& old, RuleExtras& extras, const Rule& rule, const String& now);

}  // namespace zolt20::rules
