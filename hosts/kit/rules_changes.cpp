#include "hosts/kit/rules_changes.h"

#include <algorithm>
#include <set>
#include <utility>

#include "shell/field_records.h"
#include "shell/table_key.h"

namespace zolt20::rules {
namespace {

using language::Node;
using language::NodeKind;
using language::Renames;
using language::Use;
using language::UsePlace;

// Whether the place can mean nothing but the name, so that it is chosen by default.
bool IsSure(const Change& change) {
  if (change.isVariable) return change.place != UsePlace::kString;
  return change.place == UsePlace::kClause || change.place == UsePlace::kHead;
}

class Search {
 public:
  Search(const Renames& renames, const language::Names& names) : renames_(renames), names_(names) {}

  std::vector<Change> found;

  void Look(std::size_t rule, StringView text, bool isNote) {
    if (text.empty()) return;
    const std::vector<Node> nodes = language::ReadOutline(text);
    for (const Use& use : language::UsesAndVariablesIn(text, nodes, &names_)) {
      String after = language::RenamedUse(use, renames_);
      if (after.empty()) continue;
      Change& change = found.emplace_back();
      change.rule = rule;
      change.isInNote = isNote;
      change.first = use.first;
      change.length = use.length;
      change.line = use.line;
      change.column = use.column;
      change.node = KindOf(nodes, use.node);
      change.place = use.place;
      change.before = text.substr(use.first, use.length);
      change.after = std::move(after);
      change.isVariable = use.kind == language::UseKind::kVariable;
      change.isChosen = !isNote && IsSure(change);
    }
  }

 private:
  const Renames& renames_;
  const language::Names& names_;
};

String Changed(StringView text, std::span<const Change> changes, bool inNote) {
  String result;
  std::size_t copied = 0;
  for (const Change& change : changes) {
    if (!change.isChosen || change.isInNote != inNote) continue;
    result += text.substr(copied, change.first - copied);
    result += change.after;
    copied = change.first + change.length;
  }
  result += text.substr(copied);
  return result;
}

// The new name of a field record: the one that the changed text has. A name that is not in the text
// is renamed with its table. "" for no change.
String RecordName(StringView name, std::span<const Change> changes) {
  bool stands = false;
  for (const Change& change : changes) {
    if (change.isInNote || change.before != name) continue;
    if (change.isChosen) return change.after;
    stands = true;
  }
  if (stands || !IsField(name)) return {};
  for (const Change& change : changes) {
    if (change.isChosen && !change.isInNote && change.before == name.substr(0, kTableLength))
      return Concat(change.after, name.substr(kTableLength));
  }
  return {};
}

// What stands in a field record in place of `name`, which is a field or a call of a function on a
// field: the same with the changes made in it. `names` has the names from before the changes.
String ChangedName(StringView name, std::span<const Change> changes, const language::Names& names) {
  String after = RecordName(name, changes);
  if (!after.empty()) return after;
  std::size_t copied = 0;
  for (const Use& use : language::UsesAndVariablesIn(name, language::ReadOutline(name), &names)) {
    const String changed = RecordName(NameOf(use), changes);
    if (changed.empty()) continue;
    after += name.substr(copied, use.first - copied);
    after += changed;
    copied = use.first + use.length;
  }
  return after += name.substr(copied);
}

String ChangedFields(StringView fields, std::span<const Change> changes,
                     const language::Names& names) {
  String result;
  bool isFirst = true;
  for (const StringView record : Split(fields, u",")) {
    if (!std::exchange(isFirst, false)) result += u',';
    const std::vector<StringView> pieces = Split(record, kSeparator);
    if (pieces.size() < 2) {
      result += record;
      continue;
    }
    // Skips the flag, which the record of a function does not have.
    const std::size_t flag = pieces[1].starts_with(u'Y') || pieces[1].starts_with(u'N') ? 1 : 0;
    const std::size_t at = pieces[0].size() + kSeparator.size();
    result += record.substr(0, at + flag);
    result += ChangedName(pieces[1].substr(flag), changes, names);
    result += record.substr(at + pieces[1].size());
  }
  return result;
}

}  // namespace

String NameOf(const Use& use) {
  String name(use.table);
  if (!use.table.empty() && !use.name.empty()) name += u'.';
  name += use.name;
  return name;
}

NodeKind KindOf(const std::vector<Node>& nodes, std::size_t node) {
  const NodeKind kind = nodes[node].kind;
  const bool isPart = kind == NodeKind::kHead || kind == NodeKind::kMore || kind == NodeKind::kEnd;
  return isPart ? nodes[nodes[node].parent].kind : kind;
}

std::vector<Change> FindChanges(const RulesContent& content, const Renames& renames,
                                const language::Names& names) {
  Search search(renames, names);
  for (std::size_t rule = 0; rule < content.rules.size(); ++rule) {
    search.Look(rule, content.rules[rule].text, false);
    search.Look(rule, content.extras[rule].note, true);
  }
  return std::move(search.found);
}

std::vector<std::size_t> MakeChanges(RulesContent& content, std::span<const Change> changes,
                                     const language::Names& names, const String& now) {
  std::vector<std::size_t> changed;
  for (std::size_t begin = 0; begin < changes.size();) {
    const std::size_t index = changes[begin].rule;
    std::size_t end = begin;
    while (end < changes.size() && changes[end].rule == index)
      ++end;
    const auto ofRule = changes.subspan(begin, end - begin);
    begin = end;
    if (std::none_of(ofRule.begin(), ofRule.end(),
                     [](const Change& change) { return change.isChosen; }))
      continue;
    Rule& rule = content.rules[index];
    RuleExtras& extras = content.extras[index];
    extras.note = Changed(extras.note, ofRule, true);
    Rule renamed{rule.name, Changed(rule.text, ofRule, false),
                 ChangedFields(rule.fields, ofRule, names)};
    // The tree stays as it is; the heads have the new names.
    renamed.notes = language::FindNotes(rule.notes, rule.text);
    renamed.notes = language::CarryNotes(renamed.notes, rule.text, renamed.text);
    PutInPlace(rule, extras, renamed, now);
    changed.push_back(index);
  }
  return changed;
}

void NameLists::Add(StringView name) {
  const auto append = [](String& list) -> String& { return list.empty() ? list : list += u','; };
  append(tables) += name.substr(0, kTableLength);
  if (IsField(name)) append(fields) += Concat(u"?", kSeparator, u"N", name);
}

bool IsField(StringView name) {
  return name.size() > kTableLength + 1 && name[kTableLength] == u'.';
}

std::string WhyNoName(StringView name) {
  if (name.size() != kTableLength && !IsField(name))
    return "is neither a table of 8 characters nor a field such as CUSTOMER.C_ID";
  if (Holds(name, u",")) return "holds a comma";
  if (Holds(Concat(name, kSeparator.substr(0, 1)), kSeparator))
    return "holds the separator *Q*V*R*N* or runs into it";
  if (name.find_first_of(u"\r\n\"~") != StringView::npos)
    return "holds a character that no statement can have in a name";
  return {};
}

String FindMerged(const RulesContent& content, std::span<const Change> changes,
                  const language::Names& names) {
  std::map<StringView, StringView> beforeOf;  // by the new name
  std::set<StringView> renamed;
  std::set<UsePlace> places;
  for (const Change& change : changes) {
    if (!change.isChosen || change.isInNote) continue;
    const auto known = beforeOf.emplace(change.after, change.before).first;
    if (known->second != change.before) return change.after;
    renamed.insert(change.before);
    places.insert(change.place);
  }
  for (const Rule& rule : content.rules) {
    for (const Use& use : language::UsesIn(rule.text, &names)) {
      if (use.kind == language::UseKind::kFunction || places.count(use.place) == 0) continue;
      String name = NameOf(use);
      if (beforeOf.count(name) != 0 && renamed.count(name) == 0) return name;
    }
  }
  return {};
}

}  // namespace zolt20::rules
