// The names that a catalogue has, for checks of statements.
//
// They come from the two lists that the control takes. A name is written as the control writes it:
// "ORDERS__.O_ID", "ORDERS__.*", "ORDERS__._index1". Letter case counts. Malformed records of a
// list are skipped.
#pragma once

#include <cstddef>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "surface/string.h"

namespace zolt20::language {

class Names {
 public:
  /// The values of PrpStrTables and PrpStrFields.
  Names(StringView tables, StringView fields);
  Names(const Names&) = delete;
  Names& operator=(const Names&) = delete;

  struct Table {
    StringView name;
    std::size_t indexes = 0;
    std::vector<StringView> fields;  ///< in the order of the list, without the table
    std::unordered_set<StringView> known;
    /// The fields that have a character which is none of a plain word, such as a blank.
    std::vector<StringView> oddFields;
  };

  /// The tables in the order of the list.
  const std::vector<Table>& Tables() const { return tables_; }
  /// nullptr for a table that the catalogue has not.
  const Table* Find(StringView table) const;
  /// Whether the table has this field, "*" and its indexes among them.
  static bool Has(const Table& table, StringView field);

 private:
  String tableList_;
  String fieldList_;
  std::vector<Table> tables_;
  std::unordered_map<StringView, std::size_t> places_;
};

/// The edit distance of two names (Damerau-Levenshtein, optimal string alignment), ignoring letter
/// case; `limit` when it is not less than that, or when a name is too long to compare.
std::size_t EditDistance(StringView a, StringView b, std::size_t limit);

/// Finds the name that was probably meant. It gives up after a number of comparisons, so that a
/// text full of wrong names costs no more than reading it a few times.
class NearestFinder {
 public:
  /// The nearest name of the list, the first of several; "" when more than half of the name would
  /// have to change.
  StringView Nearest(StringView name, const std::vector<StringView>& list);

 private:
  std::size_t comparisonsLeft_ = 100'000;
};

}  // namespace zolt20::language
