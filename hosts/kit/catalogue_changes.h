// Compares two catalogues for the names that rules use: names that are gone, perhaps renamed, and
// fields with another type. Hosts show the changes when rules meet another catalogue than before.
#pragma once

#include <cstdint>
#include <vector>

#include "hosts/kit/rules_changes.h"
#include "hosts/kit/rules_text.h"

namespace zolt20::rules {

/// A change of a table or a field that rules use.
struct NameChange {
  String name;           ///< "CUSTOMER" or "CUSTOMER.C_ID"
  bool isGone = false;   ///< not in the catalogue now; otherwise its type or its flag changed
  bool wasThere = true;  ///< false if the catalogue before did not have the name either
  String typeBefore;     ///< the type word of a field, "" when unknown
  String typeNow;        ///< "" when the field is gone
  bool wasFlagged = false;
  bool isFlagged = false;
  /// Names that it may have now, the likeliest first: for a table, tables that are new; for a
  /// field, fields that are new in its table or in the likeliest successor of that table.
  std::vector<String> proposals;
  bool isLikely = false;  ///< whether the first proposal can be the default answer
};

/// The changes of names that the rules use, in the order of their first uses, each table before its
/// fields. `before` and `now` have the lists of the two catalogues as the control takes them. Names
/// in quoted texts do not count as used. For a table that is gone, its fields are looked up in its
/// successor: the table that `chosen` maps it to, or the likely successor if `chosen` does not have
/// it; "" in `chosen` means that it has no successor.
std::vector<NameChange> CompareNames(const RulesContent& content, const NameLists& before,
                                     const NameLists& now, const language::Renames& chosen = {});

/// The part of a catalogue that a later comparison needs: all tables, and the fields of the tables
/// that the rules use, with their types and flags alone.
NameLists NamesUsed(const RulesContent& content, const NameLists& catalogue);

/// The trouble that a changed type makes at one place of a rule.
enum class TypeTrouble : std::uint8_t {
  kNone,
  kTextBesideNumber,  ///< the field is a text now, and is compared with a number
  kNumberBesideText,  ///< the field is a number now, and is compared with a text
  kPair,              ///< the field is no longer flagged, and is compared with a pair in braces
  kNoPair,            ///< the field is flagged now, and is compared with no pair in braces
  kAggregate,         ///< a sum or an average of a field that is no longer a number
};

TypeTrouble TroubleOf(StringView text, const language::Use& use, const NameChange& change);

}  // namespace zolt20::rules
