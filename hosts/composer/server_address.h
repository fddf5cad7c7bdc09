// The address of a database server, and which of Qt's SQL drivers connects to it. A password is not
// part of it: it is passed on to the driver and stored nowhere.
#pragma once

#include <QString>
#include <array>

class QSqlDatabase;

namespace zolt20::composer {

enum class ServerKind { kPostgreSql, kMariaDb, kOdbc };

/// How a driver is presented and found.
struct ServerDriver {
  ServerKind kind;
  const char* title;    ///< shown to the person
  const char* driver;   ///< Qt's name of the driver
  const char* package;  ///< the Debian package with the driver
  int port;             ///< the default port, 0 for none
};
inline constexpr auto kServerDrivers = std::to_array<ServerDriver>({
    {ServerKind::kPostgreSql, "PostgreSQL", "QPSQL", "libqt6sql6-psql", 5432},
    {ServerKind::kMariaDb, "MariaDB, MySQL", "QMYSQL", "libqt6sql6-mysql", 3306},
    {ServerKind::kOdbc, "ODBC", "QODBC", "libqt6sql6-odbc", 0},
});
const ServerDriver& DriverOf(ServerKind kind);

struct ServerAddress {
  ServerKind kind = ServerKind::kPostgreSql;
  QString host;      ///< "" for this machine; not used by ODBC
  int port = 0;      ///< 0 for the default port; not used by ODBC
  QString database;  ///< for ODBC the name of a data source, or "DRIVER=...;..."
  QString user;
};

/// The time-out of a connection, given to the driver.
inline constexpr int kDriverTimeoutSeconds = 7;

/// Sets all options of a connection except user and password. Asks for a read-only connection if
/// the driver has an option for that.
void SetUp(QSqlDatabase& connection, const ServerAddress& address);

/// A short name of the database, and one that is unique among all databases. Neither contains a
/// password, even if the text of a data source does.
QString NameOf(const ServerAddress& address);
QString FullNameOf(const ServerAddress& address);

}  // namespace zolt20::composer
