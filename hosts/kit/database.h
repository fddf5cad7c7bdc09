// The catalogue of a SQLite database: its tables and views, with their columns, types and indexes.
//
// The database is read-only here: nothing in it changes, and no file is left beside it. The
// catalogue has the invariants of ReadCatalogue. Tables and columns that can't be in a catalogue
// are left out, and each is reported by name.
//
// Each table has a code, which GiveCodes of hosts/kit/table_codes.h makes of its name.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "hosts/kit/catalogue.h"

namespace zolt20::catalogue {

struct DatabaseCatalogue {
  /// The catalogue has the file's name without its extension. Tables and views are in the order of
  /// their creation, with their full names. A type word is "date" when the declared type says
  /// DATE or TIME, otherwise "long", "char", "blob", "double" or "decimal" by its affinity; only
  /// dates are flagged. A field's text is the declared type, with "." for each comma. The functions
  /// are SqliteFunctions.
  Catalogue catalogue;
  /// A line in UTF-8 for each thing that was left out or changed, with the reason, in the
  /// database's order.
  std::vector<hosts::Message> leftOut;
};

/// Whether the file begins with SQLite's magic bytes; false for a file that can't be read.
bool IsDatabase(const std::filesystem::path& file);

/// Reads the tables and views of a database, without internal ones. Throws CatalogueError when the
/// file can't be read, is no database, is damaged or encrypted; when another program keeps it
/// locked for a second; when an interrupted program left a journal or log, whose recovery has to
/// write; and when it has neither tables nor views. If all tables are left out, the catalogue has
/// none and `leftOut` has the reasons.
DatabaseCatalogue ReadDatabase(const std::filesystem::path& file);

}  // namespace zolt20::catalogue
