// What a person decides when rules meet another catalogue: a new name for each one that is gone,
// and each place of it. Hosts show it between finding the changes and making them.
//
// A likely proposal counts as decided until the person says otherwise, and a place that can mean
// nothing but the name as taken. Other places have to be taken one by one.
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
  Change change;  ///< its `after` is its `before` where there is no other name
  TypeTrouble trouble = TypeTrouble::kNone;

  bool CanChange() const { return change.after != change.before; }
};

struct ReviewedName {
  NameChange change;
  String chosen;                      ///< the new name, "" to leave it
  std::vector<ReviewedPlace> places;  ///< of a name with another type those with trouble alone
};

class NamesReview {
 public:
  /// The content must not change as long as this is there. Both lists are as the control takes
  /// them, `before` those that the rules were composed with, empty when nobody knows.
  NamesReview(const RulesContent& content, NameLists before, NameLists now);

  /// Each table before its fields. The places of fields that go along with their table stand at it.
  const std::vector<ReviewedName>& names() const { return all_; }
  /// What a name that is gone may be called: the proposals, then all other tables of the catalogue,
  /// or fields of the table that has its place. Empty for one that is not gone.
  std::vector<String> Offered(std::size_t name) const;
  /// Gives a name that is gone this new one, "" for none. Both lists of this are other ones then,
  /// since the fields of a table are looked for in what takes its place.
  void Choose(std::size_t name, const String& after);
  /// Takes a place, or leaves it out.
  void Take(std::size_t name, std::size_t place, bool isTaken);

  /// All places that can change, in the order of the rules, chosen or not.
  std::vector<Change> Changes() const;
  /// How many of them are chosen.
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
  language::Renames Wanted() const;
  String TableNow(const String& table) const;
  ReviewedName* NameAt(const Change& change);

  const RulesContent& content_;
  NameLists before_;
  NameLists now_;
  language::Names namesNow_;
  language::Names both_;
  language::Renames chosen_;  // by the person; "" to leave one
  std::map<PlaceKey, bool> taken_;
  std::vector<ReviewedName> all_;
  std::map<String, std::size_t> placeOf_;  // of each name among all
};

/// Whether a change tells something about the catalogue: a name that neither catalogue has is the
/// rule's own affair.
bool IsOfCatalogue(const NameChange& change);

}  // namespace zolt20::rules
