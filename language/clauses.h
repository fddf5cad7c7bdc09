// Divides a select statement into its clauses. Called by the files of this folder that bring
// statements back onto the form.
//
// Clauses are views of the text. A line break counts only where it divides clauses: not in a string
// in double quotes, not within the brackets of a condition, not in a block.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "language/reopen.h"

namespace zolt20::reopen {

enum class Form {
  kList,       // entries separated by commas, on one line
  kOrder,      // a list like kList, with " desc" behind some entries
  kCondition,  // any text, on several lines
  kRowLimit,   // a text on one line, with " rows " at its end
  kBlock,      // the keyword alone on its line, then lines one tab in
};

struct ClauseKind {
  StringView keyword;
  Form form;
  String Parts::*part;
};

/// In the order of a statement.
extern const std::array<ClauseKind, 10> kClauses;

/// A clause that was found: views of the text.
struct Clause {
  const ClauseKind* kind;
  StringView whole;    ///< the clause with its keyword
  StringView content;  ///< the text behind the keyword; in a block, behind the first line's tab
};

/// Why the text can't be split.
struct Refusal {
  std::size_t at = 0;  ///< the offset of the fault, from 0
  std::string message;
};

/// The clauses of a text.
struct Division {
  std::vector<Clause> clauses;
  std::optional<Refusal> refusal;  ///< if set, `clauses` has only those before the fault
};

/// Divides a statement; leading line breaks are skipped. A condition goes on up to the first line
/// that may follow it, or up to `conditionEnd` if that is given.
Division Divide(StringView statement, std::optional<std::size_t> conditionEnd = {});

/// The parts of a division, ready to be written; Reopen is MakeParts of Divide(statement).
Reopened MakeParts(StringView statement, const Division& division);

/// An entry of an order by without the " desc" at its end.
StringView NameInOrder(StringView entry);

/// The places, ascending, where the condition of a statement may end: all line breaks with a later
/// clause or "endselect" behind them. Empty for a statement without a condition.
std::vector<std::size_t> ConditionEnds(StringView statement);

}  // namespace zolt20::reopen
