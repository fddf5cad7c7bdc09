// The servers that the tests of this program share, with what stands in them, and sources of ODBC
// for each kind.
#pragma once

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTest>
#include <optional>
#include <string>
#include <vector>

#include "hosts/composer/server_catalogue.h"
#include "tests/qt/widget_test.h"
#include "tests/servers/server_process.h"

namespace zolt20::tests {

/// Started by the first test that needs one; they end with the program.
ServerProcess& PostgreSql();
ServerProcess& MariaDb();

/// "shop" has 300 tables and more, "branch" a few with the names of some in "shop".
inline constexpr int kPlainTables = 300;

/// The names of sources of ODBC. The settings of ODBC are those of the tests from the start.
void PrepareOdbc();
composer::ServerAddress OdbcAddress(const char* source);
QString SqliteFile();

/// What came of a reading, and how long it took. The loop of events ran meanwhile.
struct Outcome {
  std::vector<composer::Schema> schemas;
  std::optional<catalogue::DatabaseCatalogue> read;
  std::string failure;
  qint64 milliseconds = 0;
  qint64 longestPause = 0;  // between two rounds of the loop, in milliseconds
};
Outcome ReadSchemas(const composer::ServerAddress& address, const QString& password = kPassword);
Outcome ReadCatalogue(const composer::ServerAddress& address, const QStringList& schemas,
                      const QString& password = kPassword);

/// Waits until no thread of a reading is left.
bool NoThreadIsLeft();

const catalogue::Table* FindTable(const catalogue::Catalogue& catalogue, const char* name);
/// Each field as "name type flag text".
Texts FieldsOf(const catalogue::Catalogue& catalogue, const char* table);

}  // namespace zolt20::tests
