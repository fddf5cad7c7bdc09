// Puts the tables of databases into a catalogue. Tables and columns that can't be in a catalogue
// are left out, and each is reported by name.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "hosts/kit/database.h"

namespace zolt20::catalogue {

/// A text of a database in 16-bit characters.
struct StoredText {
  String text;
  bool isExact = true;  ///< false when bytes of the database were no valid text and are lost
};

struct FoundColumn {
  StoredText name;
  StoredText declared;  ///< the type, as the database words it
  StringView word;      ///< the type word
};

struct FoundTable {
  std::string kind;  ///< "table" or "view"
  StoredText name;
  std::int64_t indexes = 0;
  std::vector<FoundColumn> columns;
  std::string unreadable;  ///< why the columns can't be read, "" when they can
};

/// Adds a table to the catalogue, without a code, or adds to `leftOut` why it is left out. Lines
/// for columns that are left out come first.
void AddTable(DatabaseCatalogue& result, const FoundTable& found);

}  // namespace zolt20::catalogue
