#include "hosts/kit/catalogue_changes.h"

#include <algorithm>
#include <array>
#include <set>
#include <unordered_map>
#include <utility>

#include "language/line_words.h"
#include "shell/field_records.h"
#include "shell/table_key.h"

namespace zolt20::rules {
namespace {

using language::EditDistance;
using language::Names;
using language::Use;
using language::UseKind;
using language::UsePlace;

constexpr std::size_t kFarAway = 60;

struct FieldType {
  StringView type;
  bool isFlagged = false;
};

// The names of a catalogue with the types of its fields. The types are views: the lists outlive it.
class TypedNames {
 public:
  explicit TypedNames(const NameLists& lists) : names(lists.tables, lists.fields) {
    for (const StringView record : Split(lists.fields, u",")) {
      const std::vector<StringView> pieces = Split(record, kSeparator);
      if (pieces.size() < 2 || pieces[1].empty()) continue;
      types_.emplace(Trim(pieces[1].substr(1)), FieldType{pieces[0], pieces[1][0] == u'Y'});
    }
  }

  Names names;

  const FieldType* TypeOf(const String& name) const {
    const auto found = types_.find(name);
    return found == types_.end() ? nullptr : &found->second;
  }
  bool Has(StringView table, StringView name) const {
    const Names::Table* const known = names.Find(table);
    return known != nullptr && (name.empty() || Names::Has(*known, name));
  }

 private:
  std::unordered_map<StringView, FieldType> types_;
};

struct Candidate {
  String name;
  int score = 0;  // the lower, the likelier
  bool isLikely = false;
};

void Offer(NameChange& change, std::vector<Candidate> candidates) {
  std::stable_sort(candidates.begin(), candidates.end(),
                   [](const Candidate& a, const Candidate& b) { return a.score < b.score; });
  change.isLikely = !candidates.empty() && candidates[0].isLikely;
  for (Candidate& candidate : candidates)
    change.proposals.push_back(std::move(candidate.name));
}

std::size_t PlaceIn(const std::vector<StringView>& fields, StringView name) {
  return static_cast<std::size_t>(std::find(fields.begin(), fields.end(), name) - fields.begin());
}

class Comparison {
 public:
  Comparison(const NameLists& before, const NameLists& now, const language::Renames& chosen)
      : before_(before),
        now_(now),
        chosen_(chosen),
        all_(Concat(before.tables, u",", now.tables), Concat(before.fields, u",", now.fields)) {}

  std::vector<NameChange> Compare(const RulesContent& content) {
    for (const Rule& rule : content.rules) {
      for (const Use& use : language::UsesIn(rule.text, &all_))
        TakeUse(use);
    }
    std::vector<NameChange> changes;
    for (const String& table : tables_) {
      const String successor = CompareTable(table, changes);
      if (successor.empty()) continue;
      for (const String& field : fields_[table])
        CompareField(table, field, successor, changes);
    }
    return changes;
  }

 private:
  void TakeUse(const Use& use) {
    if (use.kind == UseKind::kFunction || use.place == UsePlace::kString) return;
    const String table(use.table);
    // In a plain statement, any word with a point looks like a field, so only known tables count.
    const bool isKnown = before_.Has(table, {}) || now_.Has(table, {});
    if (use.place == UsePlace::kStatement && !isKnown) return;
    if (fields_.find(table) == fields_.end()) tables_.push_back(table);
    std::vector<String>& fields = fields_[table];
    if (!use.name.empty() && seen_.insert(NameOf(use)).second) fields.emplace_back(use.name);
  }

  // Compares a table; gives the table in which its fields are looked up, "" for none.
  String CompareTable(const String& table, std::vector<NameChange>& changes) const {
    if (now_.names.Find(table) != nullptr) return table;
    NameChange change;
    change.name = table;
    change.isGone = true;
    change.wasThere = before_.names.Find(table) != nullptr;
    std::vector<Candidate> candidates;
    for (const Names::Table& other : now_.names.Tables()) {
      if (before_.names.Find(other.name) == nullptr)
        candidates.push_back(TableCandidate(table, other));
    }
    Offer(change, std::move(candidates));
    changes.push_back(change);
    const auto chosen = chosen_.find(table);
    const bool isLikely = chosen == chosen_.end() && change.isLikely;
    const String successor = isLikely                  ? change.proposals[0]
                             : chosen != chosen_.end() ? chosen->second
                                                       : String();
    return now_.names.Find(successor) == nullptr ? String() : successor;
  }

  Candidate TableCandidate(const String& table, const Names::Table& other) const {
    const std::size_t distance = EditDistance(table, other.name, kFarAway);
    const Names::Table* const old = before_.names.Find(table);
    std::size_t shared = 0;
    if (old != nullptr) {
      for (const StringView field : old->fields)
        shared += other.known.count(field);
    }
    const bool isAlike = shared > 0 && 2 * shared >= old->fields.size();
    Candidate candidate{String(other.name), static_cast<int>(distance), isAlike};
    candidate.score -= static_cast<int>(8 * shared);
    if (2 * distance <= kTableLength && (old == nullptr || old->fields.empty()))
      candidate.isLikely = true;
    return candidate;
  }

  void CompareField(const String& table, const String& field, const String& successor,
                    std::vector<NameChange>& changes) const {
    NameChange change;
    change.name = Concat(table, u".", field);
    const FieldType* const old = before_.TypeOf(change.name);
    if (old != nullptr) {
      change.typeBefore = old->type;
      change.wasFlagged = old->isFlagged;
    }
    if (now_.Has(successor, field)) {
      const FieldType* const type = now_.TypeOf(Concat(successor, u".", field));
      if (old == nullptr || type == nullptr ||
          (old->type == type->type && old->isFlagged == type->isFlagged))
        return;
      change.typeNow = type->type;
      change.isFlagged = type->isFlagged;
    } else {
      change.isGone = true;
      change.wasThere = before_.Has(table, field);
      OfferFields(table, field, successor, change);
    }
    changes.push_back(std::move(change));
  }

  void OfferFields(const String& table, const String& field, const String& successor,
                   NameChange& change) const {
    const Names::Table* const old = before_.names.Find(table);
    const Names::Table& now = *now_.names.Find(successor);
    std::vector<Candidate> candidates;
    for (std::size_t place = 0; place < now.fields.size(); ++place) {
      const StringView other = now.fields[place];
      if (old != nullptr && old->known.count(other) != 0) continue;
      const std::size_t distance = EditDistance(field, other, kFarAway);
      const FieldType* const type = now_.TypeOf(Concat(successor, u".", Trim(other)));
      const bool isSameType =
          change.typeBefore.empty() || (type != nullptr && type->type == change.typeBefore);
      const bool isInPlace = old != nullptr && PlaceIn(old->fields, field) == place;
      const bool isAlike = 2 * distance <= std::max(field.size(), other.size());
      Candidate candidate{Concat(successor, u".", other), static_cast<int>(distance),
                          isSameType && (isAlike || isInPlace)};
      candidate.score -= (isSameType ? 8 : 0) + (isInPlace ? 4 : 0);
      candidates.push_back(std::move(candidate));
    }
    Offer(change, std::move(candidates));
  }

  TypedNames before_;
  TypedNames now_;
  const language::Renames& chosen_;
  Names all_;                   // the names of both catalogues, to find names with blanks
  std::vector<String> tables_;  // in the order of their first uses
  std::unordered_map<String, std::vector<String>> fields_;
  std::set<String> seen_;
};

bool IsNumber(StringView type) {
  constexpr std::array<StringView, 5> kTypes{u"long", u"decimal", u"double", u"int", u"float"};
  return std::find(kTypes.begin(), kTypes.end(), type) != kTypes.end();
}

bool IsText(StringView type) {
  return type == u"char";
}

StringView WithoutBlanks(StringView text) {
  return text.substr(std::min(text.find_first_not_of(u" \t"), text.size()));
}

// Whether the text before a field ends in "sum (" or "avg (", in any case.
bool IsInSum(StringView before) {
  before = before.substr(0, before.find_last_not_of(u" \t") + 1);
  if (!before.ends_with(u'(')) return false;
  before.remove_suffix(1);
  before = before.substr(0, before.find_last_not_of(u" \t") + 1);
  const std::size_t begin =
      before.find_last_not_of(u"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_0123456789");
  const StringView word = before.substr(begin == StringView::npos ? 0 : begin + 1);
  return EqualIgnoringCase(word, u"sum") || EqualIgnoringCase(word, u"avg");
}

// What a field is compared with: whether an operator follows it, and the value behind that.
struct Compared {
  bool isCompared = false;
  bool hasPair = false;
  char16_t first = 0;  // of the value
};

Compared ComparedWith(StringView behind) {
  Compared compared;
  StringView rest = WithoutBlanks(behind);
  constexpr StringView kSigns = u"=<>!#";
  const std::size_t signs = std::min(rest.find_first_not_of(kSigns), rest.size());
  if (signs == 0) {
    for (const StringView word : {StringView(u"IN"), StringView(u"LIKE"), StringView(u"BETWEEN")}) {
      const bool isIt = EqualIgnoringCase(rest.substr(0, word.size()), word) &&
                        rest.size() > word.size() && rest[word.size()] == u' ';
      if (!isIt) continue;
      compared.isCompared = true;
      rest = rest.substr(word.size());
      break;
    }
    if (!compared.isCompared) return compared;
  } else {
    compared.isCompared = true;
    compared.hasPair = rest[0] == u'#';
    rest = rest.substr(signs);
  }
  rest = WithoutBlanks(rest);
  if (!rest.empty() && (rest[0] == u'{' || rest[0] == u'(')) {
    compared.hasPair = compared.hasPair || rest[0] == u'{';
    rest = WithoutBlanks(rest.substr(1));
  }
  if (!rest.empty()) compared.first = rest[0];
  return compared;
}

}  // namespace

std::vector<NameChange> CompareNames(const RulesContent& content, const NameLists& before,
                                     const NameLists& now, const language::Renames& chosen) {
  return Comparison(before, now, chosen).Compare(content);
}

NameLists NamesUsed(const RulesContent& content, const NameLists& catalogue) {
  const Names names(catalogue.tables, catalogue.fields);
  std::set<StringView> used;
  for (const Rule& rule : content.rules) {
    for (const Use& use : language::UsesIn(rule.text, &names)) {
      if (const Names::Table* const table = names.Find(use.table)) used.insert(table->name);
    }
  }
  NameLists kept{catalogue.tables, {}};
  for (const StringView record : Split(catalogue.fields, u",")) {
    const std::vector<StringView> pieces = Split(record, kSeparator);
    if (pieces.size() < 2 || pieces[1].size() <= kTableLength) continue;
    if (used.count(pieces[1].substr(1, kTableLength)) == 0) continue;
    if (!kept.fields.empty()) kept.fields += u',';
    kept.fields += Concat(pieces[0], kSeparator, pieces[1], kSeparator);
  }
  return kept;
}

TypeTrouble TroubleOf(StringView text, const Use& use, const NameChange& change) {
  if (change.isGone) return TypeTrouble::kNone;
  if (!IsNumber(change.typeNow) && IsInSum(text.substr(0, use.first)))
    return TypeTrouble::kAggregate;
  const Compared compared = ComparedWith(text.substr(use.first + use.length));
  if (!compared.isCompared) return TypeTrouble::kNone;
  if (compared.hasPair && !change.isFlagged) return TypeTrouble::kPair;
  if (!compared.hasPair && change.isFlagged && !change.wasFlagged) return TypeTrouble::kNoPair;
  const bool isDigit = compared.first >= u'0' && compared.first <= u'9';
  if (IsText(change.typeNow) && isDigit) return TypeTrouble::kTextBesideNumber;
  if (IsNumber(change.typeNow) && compared.first == u'"') return TypeTrouble::kNumberBesideText;
  return TypeTrouble::kNone;
}

}  // namespace zolt20::rules
