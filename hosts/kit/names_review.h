// The decisions of a person when rules meet another catalogue: a new name for each name that is
// gone, and for each place whether it changes. Hosts show them before they make the changes.
//
// Defaults: a likely proposal is chosen, and a place that can mean nothing but the name is taken.
// The person has to take other places one by one.
#pragma once

#include <cstddef>
#include <map>
#include <tuple>
#include <vector>

#include "hosts/kit/catalogue_changes.h"
#include "hosts/kit/rules_changes.h"
#include "hosts/kit/rules_text.h"
#include "language/names.h"

namespace zolt20::rules {

struct ReviewedPlace {
  Change change;  ///< `after` equals `before` when no new name is chosen
  TypeTrouble trouble = TypeTrouble::kNone;

  bool CanChange() const { return change.after != change.before; }
};

struct ReviewedName {
  NameChange change;
  String chosen;                      ///< the new name, "" to keep the old one
  std::vector<ReviewedPlace> places;  ///< for a field with another type only those with trouble
};

class NamesReview {
 public:
  /// The content has to outlive the review unchanged. Both lists are as the control takes them;
  /// `before` is the catalogue that the rules were composed with, empty when unknown.
  NamesReview(const RulesContent& content, NameLists before, NameLists now);

  /// Each table before its fields. Places of fields that only change with their table belong to it.
  const std::vector<ReviewedName>& names() const { return all_; }
  /// The new names to choose from for a name that is gone, the proposals first. For a table all
  /// other tables of the catalogue follow; for a field, all other fields of its table, or of the
  /// table chosen in the place of that table. Empty for a name that is not gone.
  std::vector<String> Offered(std::size_t name) const;
  /// Chooses a new name for a name that is gone, "" for none. It rebuilds names(), since the fields
  /// of a table are looked up in its successor; indexes and references into it become invalid.
  void Choose(std::size_t name, const String& after);
  /// Sets whether a place is taken, so that it changes.
  void Take(std::size_t name, std::size_t place, bool isTaken);

  /// All places that can change, in the order of the rules, taken or not.
  std::vector<Change> Changes() const;
  /// How many places are taken.
  std::size_t CountChosen() const;
  /// How many rules have any of the places.
  std::size_t CountRules() const;
  /// The names of both catalogues, for MakeChanges and FindMerged.
  const language::Names& Names() const { return both_; }

 private:
  using PlaceKey = std::tuple<std::size_t, bool, std::size_t>;
  static PlaceKey KeyOf(const Change& change) {
    return {change.rule, change.isInNote, change.first};
  }

  void Look();
  void LookAtNames();
  language::Renames Wanted() const;
  String TableNow(const String& table) const;
  ReviewedName* NameAt(const Change& change);

  const RulesContent& content_;
  NameLists before_;
  NameLists now_;
  language::Names namesNow_;
  language::Names both_;
  language::Renames chosen_;  // the person's choices; "" to keep a name
  std::map<PlaceKey, bool> taken_;
  std::vector<ReviewedName> all_;
  std::map<String, std::size_t> placeOf_;  // the index of each name in all_
};

/// Whether a change comes from the catalogue. False for a name that neither catalogue has: that is
/// a mistake of the rule.
bool IsOfCatalogue(const NameChange& change);

}  // namespace zolt20::rules
