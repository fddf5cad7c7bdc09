// Catalogues of real servers: what becomes of their schemas, tables and types.
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

#include "hosts/composer/server_tables.h"
#include "tests/servers/servers.h"

namespace zolt20::tests {
namespace {

using catalogue::DatabaseCatalogue;
using composer::ServerAddress;

const QStringList kShop{QStringLiteral("shop")};

std::vector<std::string> Told(const std::vector<composer::Schema>& schemas) {
  Texts told;
  for (const composer::Schema& schema : schemas)
    told.push_back(Std(schema.name) + " " + std::to_string(schema.tables));
  return told;
}

Texts LeftOut(const DatabaseCatalogue& read) {
  Texts lines;
  for (const hosts::Message& line : read.leftOut)
    lines.push_back(line.English());
  return lines;
}

int PlainOnes(const DatabaseCatalogue& read) {
  int count = 0;
  for (const catalogue::Table& table : read.catalogue.tables)
    count += table.name.starts_with(u"t_") ? 1 : 0;
  return count;
}

DatabaseCatalogue Read(const ServerAddress& address, const QStringList& schemas = kShop) {
  const Outcome outcome = ReadCatalogue(address, schemas);
  EXPECT_EQ(outcome.failure, "");
  EXPECT_LT(outcome.longestPause, 1000);
  EXPECT_TRUE(NoThreadIsLeft());
  return outcome.read.value_or(DatabaseCatalogue());
}

TEST(PostgreSqlTest, TellsItsSchemasWithoutItsOwn) {
  EXPECT_EQ(Told(ReadSchemas(PostgreSql().Address()).schemas),
            (Texts{"branch 2", "it's a \\ %1 1", "shop 306"}));
}

TEST(PostgreSqlTest, TellsTablesWithFieldsTypesLengthsAndIndexes) {
  const DatabaseCatalogue read = Read(PostgreSql().Address());
  EXPECT_EQ(PlainOnes(read), kPlainTables);
  EXPECT_EQ(read.catalogue.tables.size(), 305U);
  EXPECT_EQ(FieldsOf(read.catalogue, "t_007"),
            (Texts{"id long N integer", "name char N character varying(20)",
                   "price decimal N numeric(10.2)", "made date Y timestamp without time zone"}));
  EXPECT_EQ(FieldsOf(read.catalogue, "kinds"), (Texts{"a long N smallint",
                                                      "b long N bigint",
                                                      "c double N real",
                                                      "d double N double precision",
                                                      "e decimal N numeric(5.1)",
                                                      "f char N character(3)",
                                                      "g char N character varying(9)",
                                                      "h char N text",
                                                      "i date Y date",
                                                      "j date Y time without time zone",
                                                      "k date Y timestamp(3) with time zone",
                                                      "l char N interval",
                                                      "m blob N bytea",
                                                      "n long N boolean",
                                                      "o char N uuid",
                                                      "p char N jsonb",
                                                      "q char N integer[]",
                                                      "r decimal N shop.sum_of_money",
                                                      "s char N shop.mood",
                                                      "t decimal N money",
                                                      "u char N bit(4)"}));
  EXPECT_EQ(FindTable(read.catalogue, "t_007")->indexes, 1);
  EXPECT_EQ(FindTable(read.catalogue, "kinds")->indexes, 2);
  EXPECT_EQ(FieldsOf(read.catalogue, "good_kinds"), (Texts{"a long N smallint", "i date Y date"}));
  EXPECT_EQ(FieldsOf(read.catalogue, "kept_kinds"), (Texts{"b long N bigint"}));
  EXPECT_EQ(FieldsOf(read.catalogue, "parts"), (Texts{"id long N integer"}));
  EXPECT_EQ(Narrow(FindTable(read.catalogue, "t_007")->code), "t_007___");
  EXPECT_GT(read.catalogue.functions.size(), 20U);
}

TEST(PostgreSqlTest, WhatIsLeftOutIsToldByName) {
  const DatabaseCatalogue read = Read(PostgreSql().Address());
  EXPECT_EQ(LeftOut(read), (Texts{"column odd.a,b is left out: its name holds a comma",
                                  "column odder.a,b is left out: its name holds a comma",
                                  "table odder is left out: no column of it is left"}));
  EXPECT_EQ(FieldsOf(read.catalogue, "odd"), (Texts{"Größe long N integer"}));
}

TEST(PostgreSqlTest, ANameInSeveralSchemasIsToldWithItsSchema) {
  const DatabaseCatalogue read =
      Read(PostgreSql().Address(), {QStringLiteral("shop"), QStringLiteral("branch")});
  EXPECT_EQ(FieldsOf(read.catalogue, "branch.t_001"), (Texts{"id long N integer"}));
  EXPECT_EQ(FieldsOf(read.catalogue, "shop.t_001").size(), 4U);
  EXPECT_EQ(FieldsOf(read.catalogue, "own").size(), 1U);
  EXPECT_EQ(FieldsOf(read.catalogue, "t_002").size(), 4U);
}

TEST(MariaDbTest, TellsItsDatabasesWithoutItsOwn) {
  EXPECT_EQ(Told(ReadSchemas(MariaDb().Address()).schemas),
            (Texts{"branch 2", "it's a \\ %1 1", "shop 305"}));
}

TEST(MariaDbTest, TellsTablesWithFieldsTypesLengthsAndIndexes) {
  const DatabaseCatalogue read = Read(MariaDb().Address());
  EXPECT_EQ(PlainOnes(read), kPlainTables);
  EXPECT_EQ(read.catalogue.tables.size(), 303U);
  EXPECT_EQ(FieldsOf(read.catalogue, "t_007"),
            (Texts{"id long N int(11)", "name char N varchar(20)", "price decimal N decimal(10.2)",
                   "made date Y timestamp"}));
  EXPECT_EQ(FieldsOf(read.catalogue, "kinds"), (Texts{"a long N smallint(6)",
                                                      "b long N bigint(20) unsigned",
                                                      "c double N float",
                                                      "d double N double",
                                                      "e decimal N decimal(5.1)",
                                                      "f char N char(3)",
                                                      "g char N varchar(9)",
                                                      "h char N text",
                                                      "i date Y date",
                                                      "j date Y time",
                                                      "k date Y datetime(3)",
                                                      "l long N year(4)",
                                                      "m blob N blob",
                                                      "n long N tinyint(1)",
                                                      "o blob N varbinary(7)",
                                                      "p char N longtext",
                                                      "q char N enum('x'.'y')",
                                                      "r date Y timestamp",
                                                      "s char N mediumtext",
                                                      "t char N bit(4)"}));
  EXPECT_EQ(FindTable(read.catalogue, "t_007")->indexes, 1);
  EXPECT_EQ(FindTable(read.catalogue, "kinds")->indexes, 2);
  EXPECT_EQ(FieldsOf(read.catalogue, "good_kinds"),
            (Texts{"a long N smallint(6)", "i date Y date"}));
}

TEST(MariaDbTest, WhatIsLeftOutIsToldByName) {
  const DatabaseCatalogue read = Read(MariaDb().Address());
  EXPECT_EQ(LeftOut(read), (Texts{"view lost_view is left out: no column of it is left",
                                  "column odd.a,b is left out: its name holds a comma",
                                  "column odder.a,b is left out: its name holds a comma",
                                  "table odder is left out: no column of it is left"}));
  EXPECT_EQ(FieldsOf(read.catalogue, "odd"), (Texts{"Größe long N int(11)"}));
}

TEST(MariaDbTest, ANameInSeveralDatabasesIsToldWithItsDatabase) {
  const DatabaseCatalogue read =
      Read(MariaDb().Address(), {QStringLiteral("shop"), QStringLiteral("branch")});
  EXPECT_EQ(FieldsOf(read.catalogue, "branch.t_001"), (Texts{"id long N int(11)"}));
  EXPECT_EQ(FieldsOf(read.catalogue, "shop.t_001").size(), 4U);
}

// ---- by way of ODBC

void ExpectSame(const DatabaseCatalogue& read, const DatabaseCatalogue& expected) {
  EXPECT_EQ(WriteCatalogue(read.catalogue), WriteCatalogue(expected.catalogue));
  EXPECT_EQ(LeftOut(read), LeftOut(expected));
}

TEST(OdbcTest, APostgreSqlTellsTheSameAsByItsOwnDriver) {
  const ServerAddress source = OdbcAddress("postgres");
  EXPECT_EQ(Told(ReadSchemas(source).schemas), (Texts{"branch 2", "it's a \\ %1 1", "shop 306"}));
  ExpectSame(Read(source), Read(PostgreSql().Address()));
}

TEST(OdbcTest, AMariaDbTellsTheSameAsByItsOwnDriver) {
  const ServerAddress source = OdbcAddress("maria");
  EXPECT_EQ(Told(ReadSchemas(source).schemas), (Texts{"branch 2", "it's a \\ %1 1", "shop 305"}));
  ExpectSame(Read(source), Read(MariaDb().Address()));
}

TEST(OdbcTest, ASqliteTellsTheTypesOfItsOwnRules) {
  const ServerAddress source = OdbcAddress("lite");
  EXPECT_EQ(Told(ReadSchemas(source).schemas), (Texts{"main 301"}));
  const DatabaseCatalogue read = Read(source, {QStringLiteral("main")});
  EXPECT_EQ(PlainOnes(read), kPlainTables);
  EXPECT_EQ(FieldsOf(read.catalogue, "t_001"),
            (Texts{"id long N INTEGER", "name char N varchar(20)", "price decimal N decimal(10.2)",
                   "made date Y timestamp"}));
  EXPECT_EQ(FindTable(read.catalogue, "t_001")->indexes, 1);
  EXPECT_EQ(FindTable(read.catalogue, "t_002")->indexes, 0);
  EXPECT_EQ(FieldsOf(read.catalogue, "some"),
            (Texts{"id long N INTEGER", "made date Y timestamp"}));
  EXPECT_GT(read.catalogue.functions.size(), 80U);
}

TEST(OdbcTest, ASourceMayBeWrittenOutInPlaceOfAName) {
  PrepareOdbc();
  const ServerAddress source{composer::ServerKind::kOdbc,
                             {},
                             0,
                             QStringLiteral("DRIVER=Lite;DATABASE=%1").arg(SqliteFile()),
                             {}};
  EXPECT_EQ(Told(ReadSchemas(source, {}).schemas), (Texts{"main 301"}));
}

TEST(OdbcTest, ASourceThatIsNotThereIsTold) {
  EXPECT_NE(ReadSchemas(OdbcAddress("nowhere")).failure, "");
}

TEST(OddNameTest, ASchemaMayBeNamedAsItLikes) {
  const QStringList odd{QStringLiteral("it's a \\ %1")};
  for (const ServerAddress& address : {PostgreSql().Address(), MariaDb().Address(),
                                       OdbcAddress("postgres"), OdbcAddress("maria")}) {
    EXPECT_EQ(Read(address, odd).catalogue.tables.size(), 1U);
  }
}

// ---- only reading

// Opens a session as a reading does, and tries statements in it.
void ExpectOnlyReading(const ServerAddress& address, const QStringList& statements) {
  const QString name = QStringLiteral("only reading");
  {
    QSqlDatabase connection = QSqlDatabase::addDatabase(
        QString::fromLatin1(composer::DriverOf(address.kind).driver), name);
    composer::SetUp(connection, address);
    composer::OpenSession(connection, kUser, kPassword);
    for (const QString& statement : statements) {
      QSqlQuery query(connection);
      EXPECT_FALSE(query.exec(statement)) << Std(statement);
      EXPECT_TRUE(query.lastError().databaseText().contains(u"read", Qt::CaseInsensitive))
          << Std(query.lastError().databaseText());
    }
  }
  QSqlDatabase::removeDatabase(name);
}

TEST(OnlyReadingTest, ASessionCanChangeNothing) {
  const QStringList statements{QStringLiteral("create table shop.made (a integer)"),
                               QStringLiteral("insert into shop.t_001 (id) values (1)")};
  ExpectOnlyReading(PostgreSql().Address(), statements);
  ExpectOnlyReading(MariaDb().Address(), statements);
  ExpectOnlyReading(OdbcAddress("postgres"), statements);
  ExpectOnlyReading(OdbcAddress("maria"), statements);
}

// The one answer to a question in a session.
std::string AnswerOf(const ServerAddress& address, const char* question) {
  const QString name = QStringLiteral("one answer");
  std::string answer;
  {
    QSqlDatabase connection = QSqlDatabase::addDatabase(
        QString::fromLatin1(composer::DriverOf(address.kind).driver), name);
    SetUp(connection, address);
    composer::OpenSession(connection, kUser, kPassword);
    QSqlQuery query(connection);
    EXPECT_TRUE(query.exec(QString::fromLatin1(question)) && query.next());
    answer = Std(query.value(0).toString());
  }
  QSqlDatabase::removeDatabase(name);
  return answer;
}

TEST(OnlyReadingTest, TheServerBreaksOffWhatTakesLong) {
  EXPECT_EQ(AnswerOf(PostgreSql().Address(), "show statement_timeout"), "7s");
  EXPECT_EQ(AnswerOf(OdbcAddress("postgres"), "show statement_timeout"), "7s");
  EXPECT_EQ(std::stod(AnswerOf(MariaDb().Address(), "select @@max_statement_time")), 7);
  EXPECT_EQ(std::stod(AnswerOf(OdbcAddress("maria"), "select @@max_statement_time")), 7);
}

// ---- by Qt alone

TEST(OtherSourceTest, IsAskedThroughQtAlone) {
  const ServerAddress address = OdbcAddress("lite");
  const QString name = QStringLiteral("other");
  {
    QSqlDatabase connection = QSqlDatabase::addDatabase(QStringLiteral("QODBC"), name);
    composer::SetUp(connection, address);
    ASSERT_TRUE(connection.open());
    EXPECT_EQ(Told(composer::ReadSchemas(connection, composer::Dialect::kOther)), (Texts{" 301"}));
    int pieces = 0;
    const DatabaseCatalogue read = composer::ReadServerTables(connection, composer::Dialect::kOther,
                                                              {QString()}, [&] { ++pieces; });
    EXPECT_EQ(pieces, 301);
    EXPECT_EQ(PlainOnes(read), kPlainTables);
    // The driver tells a decimal as a text.
    EXPECT_EQ(FieldsOf(read.catalogue, "t_001"),
              (Texts{"id long N integer", "name char N varchar(20)", "price char N varchar(2)",
                     "made date Y timestamp"}));
    EXPECT_EQ(FindTable(read.catalogue, "t_001")->indexes, 1);
    EXPECT_EQ(FieldsOf(read.catalogue, "some").size(), 2U);
  }
  QSqlDatabase::removeDatabase(name);
}

}  // namespace
}  // namespace zolt20::tests
