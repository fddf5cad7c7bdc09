// The catalogue of a SQLite database: its tables and views, with their columns, types and indexes.
//
// The database is only looked at: nothing in it changes, and no file is left beside it. What comes
// back is as sound as what ReadCatalogue gives. What of the database can't stand in such a
// catalogue is left out, and each piece left out is told by name.
//
// Each table has a code, which GiveCodes of hosts/kit/table_codes.h makes of its name.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "hosts/kit/catalogue.h"

namespace zolt20::catalogue {

struct DatabaseCatalogue {
  /// Named by the file, without its ending. Tables and views stand in the order of their making,
  /// each with the whole of its name. A field's type word is "date" when its declared type says
  /// DATE or TIME, otherwise "long", "char", "blob", "double" or "decimal" by its affinity; dates
  /// alone are flagged. Its text is the declared type, with "." for each comma. The functions are
  /// SqliteFunctions.
  Catalogue catalogue;
  /// A line in UTF-8 for each thing that was left out or changed, with the reason, in the
  /// database's order.
  std::vector<std::string> leftOut;
};

/// Whether the file begins as a SQLite database does; one that is empty or can't be read does not.
bool IsDatabase(const std::filesystem::path& file);

/// Reads the tables and views of a database, without the internal ones. Throws CatalogueError when
/// the file is none that can be read, is no database, is damaged or encrypted, when another program
/// keeps it locked for a second, when changes in it wait for a program that may write, and when it
/// has neither tables nor views. All that a database has may be left out; then the catalogue has no
/// tables and `leftOut` says why.
DatabaseCatalogue ReadDatabase(const std::filesystem::path& file);

}  // namespace zolt20::catalogue
