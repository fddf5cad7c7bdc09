// What databases tell of their tables, on its way into a catalogue: what can't stand in one is left
// out, and each piece left out is told by name.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "hosts/kit/database.h"

namespace zolt20::catalogue {

/// A text of a database in 16-bit characters.
struct StoredText {
  String text;
  bool isExact = true;  ///< whether it is that text to the letter; bytes that are no text are lost
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
  std::string unreadable;  ///< why its columns can't be read, "" when they can
};

/// Puts a table into the catalogue, without a code, or tells why it is left out. Columns that are
/// left out are told before it.
void AddTable(DatabaseCatalogue& result, const FoundTable& found);

}  // namespace zolt20::catalogue
