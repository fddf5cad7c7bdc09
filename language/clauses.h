// A select statement divided into its clauses: for the files of this folder that bring statements
// back.
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
  kOrder,      // the same, with " desc" behind some
  kCondition,  // any text, on several lines
  kRowLimit,   // a text on one line, " rows " behind it
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
  StringView whole;    ///< from the keyword on
  StringView content;  ///< behind the keyword; in a block behind the tab of its first line
};

/// Why the text can't be split.
struct Refusal {
  std::size_t at = 0;  ///< from 0
  std::string message;
};

/// What a text is divided into.
struct Division {
  std::vector<Clause> clauses;
  std::optional<Refusal> refusal;  ///< then there are the clauses before it alone
};

/// Divides a statement; line breaks before it are passed over. A condition goes on up to the first
/// line that may follow it, or, where `conditionEnd` is given, up to that place.
Division Divide(StringView statement, std::optional<std::size_t> conditionEnd = {});

/// What a division gives to be written; Reopen is this of Divide(statement).
Reopened MakeParts(StringView statement, const Division& division);

/// An entry of an order by without the " desc" at its end.
StringView NameInOrder(StringView entry);

/// The places, in their order, where the condition of a statement may end: line breaks with a later
/// clause or "endselect" behind them, wherever they stand. Empty for a statement without one.
std::vector<std::size_t> ConditionEnds(StringView statement);

}  // namespace zolt20::reopen
