#include "hosts/kit/names_review.h"

#include <algorithm>
#include <set>
#include <utility>

#include "shell/table_key.h"

namespace zolt20::rules {
namespace {

String TableOf(const String& name) {
  return name.substr(0, kTableLength);
}

TypeTrouble TroubleAt(const RulesContent& content, const Change& place, const NameChange& change) {
  if (place.isInNote || place.place == language::UsePlace::kString) return TypeTrouble::kNone;
  language::Use use;
  use.first = place.first;
  use.length = place.length;
  return TroubleOf(content.rules[place.rule].text, use, change);
}

}  // namespace

NamesReview::NamesReview(const RulesContent& content, NameLists before, NameLists now)
    : content_(content),
      before_(std::move(before)),
      now_(std::move(now)),
      namesNow_(now_.tables, now_.fields),
      both_(Concat(before_.tables, u",", now_.tables), Concat(before_.fields, u",", now_.fields)) {
  Look();
}

// A likely name counts for one name alone: the others that it may be are left to the person.
void NamesReview::LookAtNames() {
  all_.clear();
  placeOf_.clear();
  std::set<String> taken;
  for (const auto& [before, after] : chosen_)
    taken.insert(after);
  for (NameChange& change : CompareNames(content_, before_, now_, chosen_)) {
    ReviewedName name;
    const auto chosen = chosen_.find(change.name);
    if (chosen != chosen_.end()) {
      name.chosen = chosen->second;
    } else if (change.isGone && change.isLikely) {
      if (taken.insert(change.proposals[0]).second) {
        name.chosen = change.proposals[0];
      } else if (!IsField(change.name)) {
        // Its fields are not looked for there either.
        chosen_[change.name] = {};
        return LookAtNames();
      }
    }
    name.change = std::move(change);
    placeOf_.emplace(name.change.name, all_.size());
    all_.push_back(std::move(name));
  }
}

void NamesReview::Look() {
  LookAtNames();
  for (Change& change : FindChanges(content_, Wanted(), both_)) {
    ReviewedName* const name = NameAt(change);
    if (name == nullptr) continue;
    ReviewedPlace place{std::move(change), TypeTrouble::kNone};
    place.trouble = TroubleAt(content_, place.change, name->change);
    place.change.isChosen = place.change.isChosen && place.CanChange();
    const auto taken = taken_.find(KeyOf(place.change));
    if (taken != taken_.end() && place.CanChange()) place.change.isChosen = taken->second;
    if (name->change.isGone || place.CanChange() || place.trouble != TypeTrouble::kNone)
      name->places.push_back(std::move(place));
  }
}

// New names for all reviewed names: a name without a choice keeps its own, in its table's new name.
language::Renames NamesReview::Wanted() const {
  language::Renames wanted;
  for (const ReviewedName& name : all_) {
    const String& before = name.change.name;
    String after = name.chosen;
    if (after.empty())
      after = IsField(before) ? TableNow(TableOf(before)) + before.substr(kTableLength) : before;
    wanted.emplace(before, after);
  }
  return wanted;
}

String NamesReview::TableNow(const String& table) const {
  const auto found = placeOf_.find(table);
  return found == placeOf_.end() || all_[found->second].chosen.empty() ? table
                                                                       : all_[found->second].chosen;
}

ReviewedName* NamesReview::NameAt(const Change& change) {
  auto found = placeOf_.find(change.before);
  if (found == placeOf_.end()) found = placeOf_.find(TableOf(change.before));
  return found == placeOf_.end() ? nullptr : &all_[found->second];
}

std::vector<String> NamesReview::Offered(std::size_t name) const {
  const NameChange& change = all_[name].change;
  std::vector<String> offered = change.proposals;
  if (!change.isGone) return {};
  std::set<String> listed(offered.begin(), offered.end());
  const auto add = [&](String other) {
    if (listed.insert(other).second) offered.push_back(std::move(other));
  };
  if (!IsField(change.name)) {
    for (const language::Names::Table& table : namesNow_.Tables())
      add(String(table.name));
    return offered;
  }
  const String table = TableNow(TableOf(change.name));
  if (const language::Names::Table* const known = namesNow_.Find(table)) {
    for (const StringView field : known->fields)
      add(Concat(table, u".", field));
  }
  return offered;
}

void NamesReview::Choose(std::size_t name, const String& after) {
  const String before = all_[name].change.name;
  chosen_[before] = after;
  // Choices for fields of the table's former successor no longer apply.
  if (!IsField(before)) {
    std::erase_if(chosen_, [&](const auto& each) {
      return IsField(each.first) && TableOf(each.first) == before;
    });
  }
  Look();
}

void NamesReview::Take(std::size_t name, std::size_t place, bool isTaken) {
  Change& change = all_[name].places[place].change;
  change.isChosen = isTaken && all_[name].places[place].CanChange();
  taken_[KeyOf(change)] = isTaken;
}

std::vector<Change> NamesReview::Changes() const {
  std::vector<Change> changes;
  for (const ReviewedName& name : all_) {
    for (const ReviewedPlace& place : name.places) {
      if (place.CanChange()) changes.push_back(place.change);
    }
  }
  std::sort(changes.begin(), changes.end(),
            [](const Change& a, const Change& b) { return KeyOf(a) < KeyOf(b); });
  return changes;
}

std::size_t NamesReview::CountChosen() const {
  std::size_t count = 0;
  for (const ReviewedName& name : all_) {
    for (const ReviewedPlace& place : name.places)
      count += place.change.isChosen ? 1 : 0;
  }
  return count;
}

std::size_t NamesReview::CountRules() const {
  std::set<std::size_t> rules;
  for (const ReviewedName& name : all_) {
    for (const ReviewedPlace& place : name.places)
      rules.insert(place.change.rule);
  }
  return rules.size();
}

bool IsOfCatalogue(const NameChange& change) {
  return !change.isGone || change.wasThere;
}

}  // namespace zolt20::rules
