// Tables and views of a database server, read through an open connection of Qt's.
//
// Called in the thread that owns the connection. Whatever the server refuses is a ServerError.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <stdexcept>
#include <vector>

#include "hosts/kit/database.h"

class QSqlDatabase;

namespace zolt20::composer {

/// What a server or its driver says when it can't do something, in UTF-8.
class ServerError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// By which questions a server tells of its tables. kOther is any source of ODBC: it is asked
/// through Qt alone, which knows neither schemas nor more indexes than the primary key's.
enum class Dialect { kPostgreSql, kMariaDb, kSqlite, kOther };

struct Schema {
  QString name;  ///< "" where the server has none
  int tables = 0;
};

/// Told of each piece that was read; throws when nobody waits any more.
using Progress = std::function<void()>;

/// Opens the connection and finds out how to ask the server. From then on the session can only
/// read, and a question that takes long is broken off by the server, where it can do so.
Dialect OpenSession(QSqlDatabase& connection, const QString& user, const QString& password);

/// The schemas in which the user sees tables or views, by name, without the server's own.
std::vector<Schema> ReadSchemas(QSqlDatabase& connection, Dialect dialect);

/// The tables and views of these schemas, by schema and name, and the functions that go with them.
/// A table is told by its name, and by SCHEMA.NAME where several of the schemas have that name.
catalogue::DatabaseCatalogue ReadServerTables(QSqlDatabase& connection, Dialect dialect,
                                              const QStringList& schemas, const Progress& progress);

}  // namespace zolt20::composer
