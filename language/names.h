// The names that a catalogue has, for checks of statements.
//
// They come from the two lists that the control takes. A name is written as the control writes it:
// "ORDERS__.O_ID", "ORDERS__.*", "ORDERS__._index1". Letter case counts. What is unsound in a list
// is passed over.
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
    /// Those that hold a character that no plain word has, such as a blank.
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

/// The number of characters that have to be added, dropped, changed or swapped with their neighbour
/// to make one name of the other, letter case aside; `limit` when it is not less than that.
std::size_t EditDistance(StringView a, StringView b, std::size_t limit);

/// Looks for the name that was meant, and gives up after so many comparisons that a text full of
/// wrong names costs no more than reading it a few times.
class NearestFinder {
 public:
  /// The name of the list that is nearest, the first of several; "" when more than half of the name
  /// would have to change.
  StringView Nearest(StringView name, const std::vector<StringView>& list);

 private:
  std::size_t comparisonsLeft_ = 100'000;
};

}  // namespace zolt20::language
