// Finds the uses of a catalogue's names in a text of the statement language: tables, fields,
// indexes, and the functions that are called. Hosts call this to find every use of a name, and to
// rename names in stored rules.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <vector>

#include "language/names.h"
#include "language/outline.h"
#include "surface/string.h"

namespace zolt20::language {

enum class UseKind : std::uint8_t {
  kTable,     ///< in a from list, or before ".*"
  kField,     ///< "ORDERS__.O_ID"
  kIndex,     ///< "ORDERS__._index1"
  kFunction,  ///< "round", right before a bracket
  kVariable,  ///< the field in the name that the control gives a variable: ":var.sum.ORDERS__.O_ID"
};

/// The kind of text around a use. Only in the first two a word is sure to be a name.
enum class UsePlace : std::uint8_t {
  kClause,     ///< of a select statement
  kHead,       ///< of a control-flow statement: a condition, a bound, a case
  kStatement,  ///< a plain statement
  kString,     ///< a text in double quotes, anywhere
};

/// One use. Lines and columns count from 1, columns and lengths in characters of 16 bits.
struct Use {
  std::size_t first = 0;   ///< the offset in the text, from 0
  std::size_t length = 0;  ///< that of the whole name, without the star of "ORDERS__.*"
  std::size_t line = 1;
  std::size_t column = 1;
  std::uint32_t node = 0;  ///< the index of the node around the use
  UseKind kind = UseKind::kField;
  UsePlace place = UsePlace::kClause;
  StringView table;  ///< a view of the text that was read; "" for a function
  StringView name;   ///< the field, the index or the function; "" for a table
};

/// The uses in the order of the text. With a catalogue its tables are known by their names; without
/// one a table's name has 8 characters. Takes time in proportion to the text. Names of variables
/// are no uses.
std::vector<Use> UsesIn(StringView text, const Names* names = nullptr);
/// The same with the nodes that ReadOutline made of the text.
std::vector<Use> UsesIn(StringView text, const std::vector<Node>& nodes,
                        const Names* names = nullptr);
/// The same with variables that take the values of functions, since the control gives them the
/// names of fields and tables: they change with these.
std::vector<Use> UsesAndVariablesIn(StringView text, const std::vector<Node>& nodes,
                                    const Names* names = nullptr);

/// Whether the use means a name that is missing in the catalogue. False for functions, which no
/// catalogue lists, and for quoted texts, which need not mean a name.
bool IsMissing(const Use& use, const Names& names);

/// New names by old names: "CUSTOMER" for a table, "CUSTOMER.C_ID" for a field. Renaming a table
/// renames its fields as well, except those that have an entry of their own.
using Renames = std::map<String, String, std::less<>>;

/// The new name of a use, with its table; "" when nothing changes.
String RenamedUse(const Use& use, const Renames& renames);
/// The text with these uses of it renamed; `uses` has to be in the order of the text.
String Renamed(StringView text, std::span<const Use> uses, const Renames& renames);

/// "table", "field", "index", "function", "variable"; "clause", "head", "statement", "string".
const char* NameOf(UseKind kind);
const char* NameOf(UsePlace place);

}  // namespace zolt20::language
