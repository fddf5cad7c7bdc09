// A catalogue of tables, fields and functions, read from JSON and written as JSON, and the two
// lists that a control takes it in.
//
// examples/README.md describes the format. Invariants of a catalogue that was read: every code has
// 8 characters and is unique, every field is unique in its table, and no text that goes into a list
// holds a separator of that list. So the catalogue can always be read back from the two lists.
#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

#include "hosts/kit/message.h"
#include "surface/integer.h"
#include "surface/string.h"

namespace zolt20::catalogue {

/// Something is wrong with a catalogue; the message names the table or field.
class CatalogueError : public hosts::MessageError {
 public:
  using MessageError::MessageError;
};

struct Field {
  String name;  ///< without the table
  String type;  ///< the type word, such as "long"
  bool flagged = false;
  String text;  ///< the host's own text for the record of the field, "" for none
};

struct Table {
  String code;  ///< the 8 characters by which the control knows it
  String name;  ///< for people to read
  Integer indexes;
  std::vector<Field> fields;
};

struct Function {
  String name;
  /// The names of the arguments; an optional one stands in brackets: "[digits]".
  std::vector<String> arguments;
  String kind;  ///< for people, such as "aggregate"; "" for none
  String text;  ///< what the function gives, for people; "" for none

  bool operator==(const Function&) const = default;
};

struct Catalogue {
  String name;
  std::vector<Table> tables;
  std::vector<Function> functions;
};

/// Reads a catalogue from JSON, to the end of the input. Throws CatalogueError when the input can't
/// be read or breaks an invariant. Unknown keys are ignored.
Catalogue ReadCatalogue(std::istream& input);
/// The same from a file.
Catalogue ReadCatalogue(const std::filesystem::path& file);

/// The catalogue as JSON in UTF-8, which ReadCatalogue reads back the same.
std::string WriteCatalogue(const Catalogue& catalogue);
/// A catalogue in JSON with its functions replaced; everything else stays, unknown keys included.
/// Throws CatalogueError when the text is no catalogue or one of the functions is not valid in
/// one.
std::string WithFunctions(const std::string& json, const std::vector<Function>& functions);

/// Why a text can't go into one of the two lists below: "holds a comma", or that it holds the
/// separator of a record or makes one with what follows; empty when it can.
hosts::Message WhyNotListed(StringView text);

/// The value for PrpStrTables: each table's code with its index count, in the catalogue's order.
String TableList(const Catalogue& catalogue);
/// The value for PrpStrFields: a record for each field, table by table, flagged "Y" or "N".
String FieldList(const Catalogue& catalogue);

}  // namespace zolt20::catalogue
