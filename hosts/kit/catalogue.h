// A catalogue of tables, fields and functions, read from JSON and written as JSON, and the two
// lists that a control takes it in.
//
// The format is told in examples/README.md. What has been read is sound: every code has 8
// characters and stands once, every field stands once in its table, and no text that goes into a
// list holds what separates the entries there. So the two lists always give back the catalogue.
#pragma once

#include <filesystem>
#include <iosfwd>
#include <stdexcept>
#include <string>
#include <vector>

#include "surface/integer.h"
#include "surface/string.h"

namespace zolt20::catalogue {

/// Something is wrong with a catalogue; the message, in UTF-8, names the table or field.
class CatalogueError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Field {
  String name;  ///< without the table
  String type;  ///< the type word, such as "long"
  bool flagged = false;
  String text;  ///< the host's own, "" for none
};

struct Table {
  String code;  ///< the 8 characters by which the control knows it
  String name;  ///< for people to read
  Integer indexes;
  std::vector<Field> fields;
};

struct Function {
  String name;
  /// Their names; one that may be left out of a call stands in brackets: "[digits]".
  std::vector<String> arguments;
  String kind;  ///< for people, such as "aggregate"; "" for none
  String text;  ///< what the function gives, for people; "" for none
};

struct Catalogue {
  String name;
  std::vector<Table> tables;
  std::vector<Function> functions;
};

/// Reads to the end of the input. Throws CatalogueError when it can't be read or anything in it is
/// wrong. Keys that the format does not have are ignored.
Catalogue ReadCatalogue(std::istream& input);
/// The same from a file.
Catalogue ReadCatalogue(const std::filesystem::path& file);

/// The catalogue as JSON in UTF-8, which ReadCatalogue reads back the same.
std::string WriteCatalogue(const Catalogue& catalogue);
/// A catalogue in JSON with other functions; whatever else stands in it stays, keys that the format
/// does not have too. Throws CatalogueError when the text or one of the functions is no
/// catalogue's.
std::string WithFunctions(const std::string& json, const std::vector<Function>& functions);

/// Why a text can't go into one of the two lists below: "holds a comma", or that it holds the
/// separator of a record or makes one with what follows; "" when it can.
std::string WhyNotListed(StringView text);

/// The value for PrpStrTables: each table's code with its index count, in the catalogue's order.
String TableList(const Catalogue& catalogue);
/// The value for PrpStrFields: a record for each field, table by table, flagged "Y" or "N".
String FieldList(const Catalogue& catalogue);

}  // namespace zolt20::catalogue
