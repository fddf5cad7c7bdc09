// A catalogue together with the place where its functions are stored. For a catalogue in a JSON
// file that is the file itself. Databases are only read, so the functions of a database are stored
// in the settings of the user: in zolt20-composer/functions there is a file for each database, a
// catalogue without tables, named after the database.
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "hosts/kit/catalogue.h"

namespace zolt20::composer {

struct CataloguePlace {
  QString file;      ///< the JSON file, "" for a database
  QString database;  ///< the name of the database in the settings, "" for a file
};

struct OpenedCatalogue {
  catalogue::Catalogue catalogue;
  CataloguePlace place;
  QStringList leftOut;  ///< what the catalogue does not contain and why, a message each
};

/// Reads a JSON file or a SQLite database. Throws CatalogueError.
OpenedCatalogue ReadCatalogueAt(const QString& path);

/// Adds the stored functions to the catalogue of a database, if there are any. Invalid ones are
/// added to `leftOut` instead.
void TakeKeptFunctions(OpenedCatalogue& opened);

/// Replaces the stored functions by these. Reads the file again and keeps all else in it. Throws
/// CatalogueError when the file no longer is a catalogue, RulesError when it can't be written.
void KeepFunctions(const CataloguePlace& place, const std::vector<catalogue::Function>& functions);

/// The place where KeepFunctions stores, to be shown to the person.
QString PlaceOfFunctions(const CataloguePlace& place);

}  // namespace zolt20::composer
