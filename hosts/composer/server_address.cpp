#include "hosts/composer/server_address.h"

#include <QSqlDatabase>
#include <QStringList>
#include <algorithm>
#include <iterator>

namespace zolt20::composer {
namespace {

// The parts of a text such as "DRIVER={...};DATABASE=shop;PWD=...", without passwords.
QStringList PartsOf(const QString& source) {
  QStringList parts;
  for (const QString& part : source.split(u';', Qt::SkipEmptyParts)) {
    const QString key = part.section(u'=', 0, 0).trimmed().toUpper();
    if (key != u"PWD" && key != u"PASSWORD") parts.append(part.trimmed());
  }
  return parts;
}

}  // namespace

const ServerDriver& DriverOf(ServerKind kind) {
  return *std::find_if(std::begin(kServerDrivers), std::end(kServerDrivers),
                       [kind](const ServerDriver& driver) { return driver.kind == kind; });
}

void SetUp(QSqlDatabase& connection, const ServerAddress& address) {
  connection.setDatabaseName(address.database);
  if (address.kind != ServerKind::kOdbc) {
    connection.setHostName(address.host);
    if (address.port > 0) connection.setPort(address.port);
  }
  switch (address.kind) {
    case ServerKind::kPostgreSql:
      connection.setConnectOptions(QStringLiteral("connect_timeout=%1").arg(kDriverTimeoutSeconds));
      break;
    case ServerKind::kMariaDb:
      connection.setConnectOptions(QStringLiteral("MYSQL_OPT_CONNECT_TIMEOUT=%1;"
                                                  "MYSQL_OPT_READ_TIMEOUT=%1;"
                                                  "MYSQL_OPT_WRITE_TIMEOUT=%1")
                                       .arg(kDriverTimeoutSeconds));
      break;
    case ServerKind::kOdbc:
      connection.setConnectOptions(QStringLiteral("SQL_ATTR_LOGIN_TIMEOUT=%1;"
                                                  "SQL_ATTR_ACCESS_MODE=SQL_MODE_READ_ONLY")
                                       .arg(kDriverTimeoutSeconds));
      break;
  }
}

QString NameOf(const ServerAddress& address) {
  if (address.kind != ServerKind::kOdbc || !address.database.contains(u'='))
    return address.database.isEmpty() ? address.host : address.database;
  const QStringList parts = PartsOf(address.database);
  for (const QString& part : parts) {
    if (part.section(u'=', 0, 0).trimmed().compare(u"DATABASE", Qt::CaseInsensitive) == 0)
      return part.section(u'=', 1).trimmed();
  }
  return parts.join(u';');
}

QString FullNameOf(const ServerAddress& address) {
  const ServerDriver& driver = DriverOf(address.kind);
  const QString title = QString::fromLatin1(driver.title);
  if (address.kind == ServerKind::kOdbc) return title + u' ' + PartsOf(address.database).join(u';');
  return QStringLiteral("%1 %2:%3/%4")
      .arg(title, address.host, QString::number(address.port > 0 ? address.port : driver.port),
           address.database);
}

}  // namespace zolt20::composer
