// Where a database server is, and by which of Qt's SQL drivers it is reached. A password is no part
// of it: it goes to the driver as it was typed, and nowhere else.
#pragma once

#include <QString>
#include <array>

class QSqlDatabase;

namespace zolt20::composer {

enum class ServerKind { kPostgreSql, kMariaDb, kOdbc };

/// What a driver is called.
struct ServerDriver {
  ServerKind kind;
  const char* title;    ///< for people
  const char* driver;   ///< Qt's name of it
  const char* package;  ///< of Debian, which has it
  int port;             ///< the usual one, 0 where there is none
};
inline constexpr auto kServerDrivers = std::to_array<ServerDriver>({
    {ServerKind::kPostgreSql, "PostgreSQL", "QPSQL", "libqt6sql6-psql", 5432},
    {ServerKind::kMariaDb, "MariaDB, MySQL", "QMYSQL", "libqt6sql6-mysql", 3306},
    {ServerKind::kOdbc, "ODBC", "QODBC", "libqt6sql6-odbc", 0},
});
const ServerDriver& DriverOf(ServerKind kind);

struct ServerAddress {
  ServerKind kind = ServerKind::kPostgreSql;
  QString host;      ///< "" for this machine; not for ODBC
  int port = 0;      ///< 0 for the usual one; not for ODBC
  QString database;  ///< for ODBC the name of a data source, or "DRIVER=...;..."
  QString user;
};

/// How long a driver is told to wait for its server.
inline constexpr int kDriverTimeoutSeconds = 7;

/// Sets a connection up, all but user and password. Only reading is asked for where that is an
/// option of the driver.
void SetUp(QSqlDatabase& connection, const ServerAddress& address);

/// A short name of the database, and one that tells it from all others. Neither holds a password,
/// even where the text of a data source does.
QString NameOf(const ServerAddress& address);
QString FullNameOf(const ServerAddress& address);

}  // namespace zolt20::composer
