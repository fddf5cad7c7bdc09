#include "tests/servers/servers.h"

#include <sqlite3.h>

#include <QDir>
#include <QFile>
#include <algorithm>

namespace zolt20::tests {
namespace {

using composer::ServerAddress;
using composer::ServerReader;

QTemporaryDir& Folder() {
  static QTemporaryDir folder;
  return folder;
}

QString In(const char* name) {
  return Folder().filePath(QString::fromLatin1(name));
}

QStringList PlainTables() {
  QStringList statements;
  for (int number = 1; number <= kPlainTables; ++number) {
    statements.append(QStringLiteral("create table shop.t_%1 (id integer primary key, "
                                     "name varchar(20), price decimal(10,2), made timestamp)")
                          .arg(number, 3, 10, QLatin1Char('0')));
  }
  return statements;
}

QStringList FillPostgreSql() {
  return QStringList{QStringLiteral("create schema shop"), QStringLiteral("create schema branch"),
                     QStringLiteral("create schema bare")} +
         PlainTables() +
         QStringList{
             QStringLiteral("create domain shop.sum_of_money as numeric(12,2)"),
             QStringLiteral("create type shop.mood as enum ('good', 'bad')"),
             QStringLiteral("create table shop.kinds (a smallint, b bigint, c real, d double "
                            "precision, e numeric(5,1), f character(3), g character varying(9), h "
                            "text, i date, j time, k timestamp(3) with time zone, l interval, m "
                            "bytea, n boolean, o uuid, p jsonb, q integer[], r shop.sum_of_money, "
                            "s shop.mood, t money, u bit(4))"),
             QStringLiteral("create index on shop.kinds (a)"),
             QStringLiteral("create unique index on shop.kinds (b, c)"),
             QStringLiteral("create view shop.good_kinds as select a, i from shop.kinds"),
             QStringLiteral("create materialized view shop.kept_kinds as select b from shop.kinds"),
             QStringLiteral("create table shop.odd (\"a,b\" integer, \"Größe\" integer)"),
             QStringLiteral("create table shop.odder (\"a,b\" integer)"),
             QStringLiteral("create table shop.parts (id integer) partition by range (id)"),
             QStringLiteral("create table shop.parts_1 partition of shop.parts for values from "
                            "(1) to (9)"),
             QStringLiteral("create table branch.t_001 (id integer)"),
             QStringLiteral("create table branch.own (id integer)"),
             QStringLiteral("create schema \"it's a \\ %1\""),
             QStringLiteral("create table \"it's a \\ %1\".own (id integer)"),
         };
}

QStringList FillMariaDb() {
  return QStringList{QStringLiteral("create database shop character set utf8mb4"),
                     QStringLiteral("create database branch"),
                     QStringLiteral("create database bare")} +
         PlainTables() +
         QStringList{
             QStringLiteral("create table shop.kinds (a smallint, b bigint unsigned, c float, d "
                            "double, e decimal(5,1), f char(3), g varchar(9), h text, i date, j "
                            "time, k datetime(3), l year, m blob, n boolean, o varbinary(7), p "
                            "json, q enum('x','y'), r timestamp null, s mediumtext, t bit(4))"),
             QStringLiteral("create index kinds_a on shop.kinds (a)"),
             QStringLiteral("create unique index kinds_b on shop.kinds (b, c)"),
             QStringLiteral("create view shop.good_kinds as select a, i from shop.kinds"),
             QStringLiteral("create table shop.lost (a int)"),
             QStringLiteral("create view shop.lost_view as select a from shop.lost"),
             QStringLiteral("drop table shop.lost"),
             QStringLiteral("create table shop.odd (`a,b` integer, `Größe` integer)"),
             QStringLiteral("create table shop.odder (`a,b` integer)"),
             QStringLiteral("create table branch.t_001 (id integer)"),
             QStringLiteral("create table branch.own (id integer)"),
             QStringLiteral("create database `it's a \\ %1`"),
             QStringLiteral("create table `it's a \\ %1`.own (id integer)"),
         };
}

ServerProcess& Started(std::unique_ptr<ServerProcess> server, const QStringList& statements) {
  if (server->Start()) server->Run(statements);
  return *server.release();  // NOLINT: it is kept and ended by whoever asked
}

// They end before the application does.
std::vector<ServerProcess*>& All() {
  static std::vector<ServerProcess*> all;
  return all;
}
class EndServers final : public ::testing::Environment {
 public:
  void TearDown() override {
    for (const ServerProcess* server : All())
      delete server;
  }
};
[[maybe_unused]] ::testing::Environment* const ends =
    ::testing::AddGlobalTestEnvironment(new EndServers);

void WriteText(const QString& path, const QString& text) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(text.toUtf8());
}

QString OdbcDriver(const char* file) {
  for (const QString& folder :
       QDir(QStringLiteral("/usr/lib")).entryList({QStringLiteral("*-linux-*")}, QDir::Dirs)) {
    const QString path =
        QStringLiteral("/usr/lib/%1/odbc/%2").arg(folder, QString::fromLatin1(file));
    if (QFile::exists(path)) return path;
  }
  ADD_FAILURE() << "there is no driver " << file;
  return {};
}

void MakeSqliteFile() {
  sqlite3* database = nullptr;
  ASSERT_EQ(sqlite3_open(SqliteFile().toUtf8().constData(), &database), SQLITE_OK);
  std::string sql;
  for (int number = 1; number <= kPlainTables; ++number) {
    const std::string digits = std::to_string(1000 + number).substr(1);
    sql += "create table t_" + digits +
           " (id integer primary key, name varchar(20), price decimal(10,2), made timestamp);";
  }
  sql += "create index t_001_name on t_001 (name);";
  sql += "create view some as select id, made from t_001;";
  EXPECT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(database);
}

Outcome Wait(ServerReader& reader, const std::function<void()>& start) {
  Outcome outcome;
  QEventLoop loop;
  QObject::connect(&reader, &ServerReader::SchemasRead, &loop, [&](const auto& schemas) {
    outcome.schemas = schemas;
    loop.quit();
  });
  QObject::connect(&reader, &ServerReader::CatalogueRead, &loop, [&](const auto& read) {
    outcome.read = read;
    loop.quit();
  });
  QObject::connect(&reader, &ServerReader::Failed, &loop, [&](const QString& why) {
    outcome.failure = why.toStdString();
    loop.quit();
  });
  QElapsedTimer time;
  QElapsedTimer sinceRound;
  QTimer rounds;
  QObject::connect(&rounds, &QTimer::timeout, &loop, [&] {
    outcome.longestPause = std::max(outcome.longestPause, sinceRound.restart());
  });
  rounds.start(10);
  time.start();
  sinceRound.start();
  start();
  loop.exec();
  outcome.milliseconds = time.elapsed();
  return outcome;
}

}  // namespace

ServerProcess& PostgreSql() {
  static ServerProcess& server = [&]() -> ServerProcess& {
    All().push_back(&Started(MakePostgreSql(), FillPostgreSql()));
    return *All().back();
  }();
  return server;
}

ServerProcess& MariaDb() {
  static ServerProcess& server = [&]() -> ServerProcess& {
    All().push_back(&Started(MakeMariaDb(), FillMariaDb()));
    return *All().back();
  }();
  return server;
}

QString SqliteFile() {
  return In("shop.sqlite");
}

void PrepareOdbc() {
  static bool isPrepared = false;
  if (std::exchange(isPrepared, true)) return;
  MakeSqliteFile();
  qputenv("ODBCSYSINI", Folder().path().toUtf8());
  qputenv("ODBCINI", In("odbc.ini").toUtf8());
  WriteText(In("odbcinst.ini"), QStringLiteral("[Lite]\nDriver=%1\n[Maria]\nDriver=%2\n"
                                               "[Postgres]\nDriver=%3\n")
                                    .arg(OdbcDriver("libsqlite3odbc.so"),
                                         OdbcDriver("libmaodbc.so"), OdbcDriver("psqlodbcw.so")));
  WriteText(In("odbc.ini"),
            QStringLiteral("[lite]\nDriver=Lite\nDatabase=%1\n"
                           "[maria]\nDriver=Maria\nServer=127.0.0.1\nPort=%2\n"
                           "[postgres]\nDriver=Postgres\nServername=127.0.0.1\nPort=%3\n"
                           "Database=postgres\n")
                .arg(SqliteFile())
                .arg(MariaDb().port())
                .arg(PostgreSql().port()));
}

ServerAddress OdbcAddress(const char* source) {
  PrepareOdbc();
  return {composer::ServerKind::kOdbc, {}, 0, QString::fromLatin1(source), kUser};
}

Outcome ReadSchemas(const ServerAddress& address, const QString& password) {
  ServerReader reader;
  return Wait(reader, [&] { reader.ReadSchemas(address, password); });
}

Outcome ReadCatalogue(const ServerAddress& address, const QStringList& schemas,
                      const QString& password) {
  ServerReader reader;
  return Wait(reader, [&] { reader.ReadCatalogue(address, password, schemas); });
}

bool NoThreadIsLeft() {
  return QTest::qWaitFor([] { return ServerReader::Threads() == 0; }, 20000);
}

const catalogue::Table* FindTable(const catalogue::Catalogue& catalogue, const char* name) {
  for (const catalogue::Table& table : catalogue.tables) {
    if (Narrow(table.name) == name) return &table;
  }
  ADD_FAILURE() << "there is no table " << name;
  return nullptr;
}

Texts FieldsOf(const catalogue::Catalogue& catalogue, const char* table) {
  Texts fields;
  if (const catalogue::Table* found = FindTable(catalogue, table)) {
    for (const catalogue::Field& field : found->fields) {
      fields.push_back(Narrow(field.name) + " " + Narrow(field.type) +
                       (field.flagged ? " Y " : " N ") + Narrow(field.text));
    }
  }
  return fields;
}

}  // namespace zolt20::tests
