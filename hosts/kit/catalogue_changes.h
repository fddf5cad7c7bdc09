// What became of the names of a catalogue that rules use: gone, perhaps renamed, or of another
// type. Hosts tell it when rules meet another catalogue than the one they were composed with.
#pragma once

#include <cstdint>
#include <vector>

#include "hosts/kit/rules_changes.h"
#include "hosts/kit/rules_text.h"

namespace zolt20::rules {

/// A table or a field that rules use and that is not what it was.
struct NameChange {
  String name;           ///< "CUSTOMER" or "CUSTOMER.C_ID"
  bool isGone = false;   ///< otherwise it has another type, or another flag
  bool wasThere = true;  ///< false for one that the catalogue before had not either
  String typeBefore;     ///< of a field, "" when nobody knows
  String typeNow;        ///< "" when it is gone
  bool wasFlagged = false;
  bool isFlagged = false;
  /// What it may be called now, the likeliest first: of a table those that are new, of a field
  /// those that are new in its table, or in the likeliest successor of that.
  std::vector<String> proposals;
  bool isLikely = false;  ///< whether the first of them can be offered as the answer
};

/// The changes that touch the rules, each table before its fields, in the order of their first
/// uses. Both lists are as the control takes them. Quoted texts count for nothing. The fields of a
/// table that is gone are looked for in the one that is chosen for it, in none where that is "",
/// and in the likely one where nothing is chosen.
std::vector<NameChange> CompareNames(const RulesContent& content, const NameLists& before,
                                     const NameLists& now, const language::Renames& chosen = {});

/// Of a catalogue what the rules need of it to be compared with another: all tables, and the fields
/// of those that they use, without what else is told of these.
NameLists NamesUsed(const RulesContent& content, const NameLists& catalogue);

/// What another type means at one place.
enum class TypeTrouble : std::uint8_t {
  kNone,
  kTextBesideNumber,  ///< the field is a text now, and a number stands beside it
  kNumberBesideText,  ///< the other way round
  kPair,              ///< the field is no flagged one any more, and a pair stands beside it
  kNoPair,            ///< it is one now, and no pair stands beside it
  kAggregate,         ///< a sum or an average of what is no number any more
};

TypeTrouble TroubleOf(StringView text, const language::Use& use, const NameChange& change);

}  // namespace zolt20::rules
