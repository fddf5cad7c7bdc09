#include "hosts/composer/catalogue_place.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <filesystem>

#include "faces/qt/qt_text.h"
#include "hosts/composer/rules_file.h"
#include "hosts/composer/translations.h"
#include "hosts/kit/database.h"

namespace zolt20::composer {
namespace {

using catalogue::Catalogue;
using catalogue::CatalogueError;
using catalogue::Function;
using qt::FromQt;
using qt::ToQt;

std::filesystem::path Native(const QString& path) {
  return path.toStdU16String();
}

QString SettingsFile(const QString& database) {
  const QByteArray name =
      QCryptographicHash::hash(database.toUtf8(), QCryptographicHash::Sha1).toHex();
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
         QStringLiteral("/zolt20-composer/functions/") + QString::fromLatin1(name) +
         QStringLiteral(".json");
}

QByteArray BytesOf(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    throw CatalogueError(QCoreApplication::translate("composer", "%1 can't be read: %2")
                             .arg(path, file.errorString())
                             .toStdString());
  }
  return file.readAll();
}

}  // namespace

OpenedCatalogue ReadCatalogueAt(const QString& path) {
  OpenedCatalogue opened;
  if (!catalogue::IsDatabase(Native(path))) {
    opened.catalogue = catalogue::ReadCatalogue(Native(path));
    opened.place.file = QFileInfo(path).absoluteFilePath();
    return opened;
  }
  catalogue::DatabaseCatalogue read = catalogue::ReadDatabase(Native(path));
  opened.catalogue = std::move(read.catalogue);
  for (const hosts::Message& line : read.leftOut)
    opened.leftOut.append(Translated(line));
  opened.place.database = QStringLiteral("SQLite ") + QFileInfo(path).canonicalFilePath();
  TakeKeptFunctions(opened);
  return opened;
}

void TakeKeptFunctions(OpenedCatalogue& opened) {
  const QString file = SettingsFile(opened.place.database);
  if (!QFileInfo::exists(file)) return;
  try {
    Catalogue kept = catalogue::ReadCatalogue(Native(file));
    if (ToQt(kept.name) == opened.place.database)
      opened.catalogue.functions = std::move(kept.functions);
  } catch (const CatalogueError& error) {
    opened.leftOut.append(
        QCoreApplication::translate("composer", "the functions kept in %1 are left out: %2")
            .arg(file, Translated(error)));
  }
}

void KeepFunctions(const CataloguePlace& place, const std::vector<Function>& functions) {
  if (!place.file.isEmpty()) {
    const std::string before = BytesOf(place.file).toStdString();
    return WriteWholeFile(place.file,
                          QByteArray::fromStdString(catalogue::WithFunctions(before, functions)));
  }
  const QString file = SettingsFile(place.database);
  QDir().mkpath(QFileInfo(file).path());  // where this fails, so does writing
  WriteWholeFile(file, QByteArray::fromStdString(
                           catalogue::WriteCatalogue({FromQt(place.database), {}, functions})));
}

QString PlaceOfFunctions(const CataloguePlace& place) {
  return place.file.isEmpty() ? SettingsFile(place.database) : place.file;
}

}  // namespace zolt20::composer
