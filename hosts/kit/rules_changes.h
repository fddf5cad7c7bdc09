// Renaming in the rules of a file: FindChanges finds the places, the host shows them, and
// MakeChanges changes all or some of them in one step.
#pragma once

#include <cstddef>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "hosts/kit/rules_text.h"
#include "language/names.h"
#include "language/outline.h"
#include "language/uses.h"

namespace zolt20::rules {

/// One place where a name is to be replaced by a new one.
struct Change {
  std::size_t rule = 0;   ///< the index of the rule
  bool isInNote = false;  ///< in the note of the rule, not in its text
  std::size_t first = 0;  ///< in the text or the note, from 0
  std::size_t length = 0;
  std::size_t line = 1;
  std::size_t column = 1;
  language::NodeKind node = language::NodeKind::kStatement;
  language::UsePlace place = language::UsePlace::kClause;
  bool isVariable =
      false;      ///< whether it is the name of a variable, which has to go with its field
  String before;  ///< the text of the place now
  String after;
  bool isChosen = false;  ///< whether MakeChanges changes the place
};

/// The name of a use, with its table.
String NameOf(const language::Use& use);

/// The kind of a node as people know it: for a head or a closing line that of its statement.
language::NodeKind KindOf(const std::vector<language::Node>& nodes, std::size_t node);

/// Every place of the old names in texts and notes, rule by rule. Places in clauses and heads are
/// chosen, and variables that the control names after fields; in plain statements, quoted texts and
/// notes a word need not mean the catalogue. `names` are those of the catalogue, by which names
/// with blanks are found, and must have all old names.
std::vector<Change> FindChanges(const RulesContent& content, const language::Renames& renames,
                                const language::Names& names);

/// Makes the chosen changes, which have to be in the order of FindChanges, and gives the indexes of
/// the changed rules. The field records of a rule are renamed with its text.
std::vector<std::size_t> MakeChanges(RulesContent& content, std::span<const Change> changes,
                                     const language::Names& names, const String& now);

/// Why a name is neither that of a table, of 8 characters, nor of a field in one; "" when it is
/// valid.
std::string WhyNoName(StringView name);
bool IsField(StringView name);

/// A new name that the chosen changes would give to two old names, or that is in use already at
/// such places; "" for none. Renaming back could not tell the two apart.
String FindMerged(const RulesContent& content, std::span<const Change> changes,
                  const language::Names& names);

}  // namespace zolt20::rules
