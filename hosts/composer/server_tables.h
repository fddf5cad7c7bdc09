// Tables and views of a database server, read through an open connection of Qt's.
//
// Called in the thread that owns the connection. Errors of the server are thrown as ServerError.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <stdexcept>
#include <vector>

#include "hosts/kit/database.h"

class QSqlDatabase;

namespace zolt20::composer {

/// The message of a server or its driver, in UTF-8.
class ServerError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The kind of server, which decides the queries. kOther is any other ODBC source: it is queried
/// through Qt only, which knows no schemas and of the indexes only the primary key.
enum class Dialect { kPostgreSql, kMariaDb, kSqlite, kOther };

struct Schema {
  QString name;  ///< "" for a server without schemas
  int tables = 0;
};

/// Called after each part that was read. Throws to abandon the reading.
using Progress = std::function<void()>;

/// Opens the connection and finds out the kind of server. The session is made read-only, with a
/// time limit for queries, where the server supports it.
Dialect OpenSession(QSqlDatabase& connection, const QString& user, const QString& password);

/// The schemas with tables or views that the user can see, by name, without system schemas.
std::vector<Schema> ReadSchemas(QSqlDatabase& connection, Dialect dialect);

/// The tables and views of these schemas, by schema and name, with the functions of that kind of
/// server. The name of a table is SCHEMA.NAME if several of the schemas have a table of that name.
catalogue::DatabaseCatalogue ReadServerTables(QSqlDatabase& connection, Dialect dialect,
                                              const QStringList& schemas, const Progress& progress);

}  // namespace zolt20::composer
