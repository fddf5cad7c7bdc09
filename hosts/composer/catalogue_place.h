// Catalogues with where they came from, which is also where their functions are kept: in the JSON
// file that a catalogue stands in, and for one of a database in the settings of the user, since
// databases are only read. The settings have a file for each database, a catalogue without tables
// that bears the name by which the database is known, in zolt20-composer/functions.
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "hosts/kit/catalogue.h"

namespace zolt20::composer {

struct CataloguePlace {
  QString file;      ///< the JSON file, "" for a database
  QString database;  ///< the name by which the settings know the database, "" for a file
};

struct OpenedCatalogue {
  catalogue::Catalogue catalogue;
  CataloguePlace place;
  QStringList leftOut;  ///< a line for the person for each thing that was left out
};

/// Reads a JSON file or a SQLite database. Throws CatalogueError.
OpenedCatalogue ReadCatalogueAt(const QString& path);

/// Gives the catalogue of a database the functions that were kept for it, if any were. What is
/// wrong with them is told as left out.
void TakeKeptFunctions(OpenedCatalogue& opened);

/// Keeps the functions. Throws CatalogueError when the file has become no catalogue, RulesError
/// when it can't be written.
void KeepFunctions(const CataloguePlace& place, const std::vector<catalogue::Function>& functions);

/// Where that would be, for the person.
QString PlaceOfFunctions(const CataloguePlace& place);

}  // namespace zolt20::composer
