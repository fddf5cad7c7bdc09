// New names in the rules of a file: first the places are looked for, then all or some of them are
// changed in one step. Hosts show the places between the two.
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

/// One place of a name that has another one now.
struct Change {
  std::size_t rule = 0;   ///< its place among the rules
  bool isInNote = false;  ///< and not in the text
  std::size_t first = 0;  ///< in the text or the note, from 0
  std::size_t length = 0;
  std::size_t line = 1;
  std::size_t column = 1;
  language::NodeKind node = language::NodeKind::kStatement;
  language::UsePlace place = language::UsePlace::kClause;
  bool isVariable =
      false;      ///< whether it is the name of a variable, which has to go with its field
  String before;  ///< what stands there
  String after;
  bool isChosen = false;  ///< whether it is to be made
};

/// With its table.
String NameOf(const language::Use& use);

/// What a node is, for people: a head or a closing line is told by its statement.
language::NodeKind KindOf(const std::vector<language::Node>& nodes, std::size_t node);

/// Every place of the names in the texts and the notes, rule by rule. Those in clauses and in heads
/// are chosen, and variables that the control names by fields; plain statements, quoted texts and
/// notes need not mean the catalogue. `names` are the catalogue's, so that names with blanks are
/// known, and must have all old names.
std::vector<Change> FindChanges(const RulesContent& content, const language::Renames& renames,
                                const language::Names& names);

/// Makes those that are chosen, which are in the order in which they were found, and gives the
/// places of the rules that are others now. The field records of a rule follow its text.
std::vector<std::size_t> MakeChanges(RulesContent& content, std::span<const Change> changes,
                                     const language::Names& names, const String& now);

/// Whether a name is one of a table, of 8 characters, or of a field of one; "" when it is, and
/// otherwise why not.
std::string WhyNoName(StringView name);
bool IsField(StringView name);

/// A name that the chosen changes give to two, or that another one has already at such places; ""
/// for none. The way back would not know them apart.
String FindMerged(const RulesContent& content, std::span<const Change> changes,
                  const language::Names& names);

}  // namespace zolt20::rules
