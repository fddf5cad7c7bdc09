// Servers that refuse, do not answer, are stopped or go away: each is told within ten seconds, and
// the window answers meanwhile.
#include <QTcpServer>
#include <list>

#include "tests/servers/proxy.h"
#include "tests/servers/servers.h"

namespace zolt20::tests {
namespace {

using composer::ServerAddress;
using composer::ServerKind;
using composer::ServerReader;

const QStringList kShop{QStringLiteral("shop")};

// A failure in time, with the loop running, that does not tell the password.
void ExpectTold(const Outcome& outcome, const std::string& part) {
  EXPECT_FALSE(outcome.read.has_value());
  EXPECT_TRUE(outcome.schemas.empty());
  EXPECT_NE(outcome.failure, "");
  EXPECT_NE(outcome.failure.find(part), std::string::npos) << outcome.failure;
  EXPECT_EQ(outcome.failure.find("s3cret"), std::string::npos) << outcome.failure;
  EXPECT_LT(outcome.milliseconds, 10000);
  EXPECT_LT(outcome.longestPause, 1000);
}

ServerAddress At(ServerAddress address, int port) {
  address.port = port;
  return address;
}
ServerAddress OdbcAt(const char* driver, int port) {
  PrepareOdbc();
  return {ServerKind::kOdbc,
          {},
          0,
          QStringLiteral("DRIVER=%1;SERVER=127.0.0.1;SERVERNAME=127.0.0.1;PORT=%2;DATABASE=shop")
              .arg(QString::fromLatin1(driver))
              .arg(port),
          kUser};
}

TEST(FaultTest, AWrongPasswordIsTold) {
  const QString wrong = QStringLiteral("s3cret but wrong");
  ExpectTold(ReadSchemas(PostgreSql().Address(), wrong), "password authentication failed");
  ExpectTold(ReadSchemas(MariaDb().Address(), wrong), "Access denied");
  ExpectTold(ReadSchemas(OdbcAddress("postgres"), wrong), "password authentication failed");
  ExpectTold(ReadSchemas(OdbcAddress("maria"), wrong), "Access denied");
  EXPECT_TRUE(NoThreadIsLeft());
}

TEST(FaultTest, APortThatRefusesIsTold) {
  const int port = FreePort();
  ExpectTold(ReadSchemas(At(PostgreSql().Address(), port)), "Connection refused");
  ExpectTold(ReadSchemas(At(MariaDb().Address(), port)), "127.0.0.1");
  ExpectTold(ReadSchemas(OdbcAt("Postgres", port)), "refused");
  ExpectTold(ReadSchemas(OdbcAt("Maria", port)), "127.0.0.1");
  EXPECT_TRUE(NoThreadIsLeft());
}

TEST(FaultTest, AHostThatIsNowhereIsTold) {
  ServerAddress address = PostgreSql().Address();
  address.host = QStringLiteral("nowhere.invalid");
  ExpectTold(ReadSchemas(address), "nowhere.invalid");
}

TEST(FaultTest, AServerThatNeverAnswersIsToldInTime) {
  QTcpServer silent;
  ASSERT_TRUE(silent.listen(QHostAddress::LocalHost));
  const int port = silent.serverPort();
  struct Waiting {
    ServerReader reader;
    std::string failure;
    qint64 milliseconds = 0;
  };
  std::list<Waiting> all;
  QElapsedTimer time;
  time.start();
  for (const ServerAddress& address :
       {At(PostgreSql().Address(), port), At(MariaDb().Address(), port), OdbcAt("Postgres", port),
        OdbcAt("Maria", port)}) {
    Waiting& waiting = all.emplace_back();
    QObject::connect(&waiting.reader, &ServerReader::Failed, &waiting.reader,
                     [&](const QString& why) {
                       waiting.failure = why.toStdString();
                       waiting.milliseconds = time.elapsed();
                     });
    waiting.reader.ReadSchemas(address, kPassword);
  }
  for (Waiting& waiting : all) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return !waiting.reader.IsBusy(); }, 12000));
    EXPECT_NE(waiting.failure, "");
    EXPECT_GT(waiting.milliseconds, 3000);
    EXPECT_LT(waiting.milliseconds, 10000);
  }
  silent.close();
  while (QTcpSocket* client = silent.nextPendingConnection())
    client->abort();
  EXPECT_TRUE(NoThreadIsLeft());
}

// What a fault does to a server at the moment when it is asked for its columns.
Outcome ReadWith(ServerProcess& server, const char* word, const std::function<void()>& fault) {
  Proxy proxy(server.port(), word, fault);
  const Outcome outcome = ReadCatalogue(At(server.Address(), proxy.Port()), kShop);
  EXPECT_TRUE(proxy.HasCome());
  return outcome;
}

TEST(FaultTest, TheProxyOfTheseTestsPassesOnWhatIsSaid) {
  const Outcome outcome = ReadWith(PostgreSql(), "pg_attribute", [] {});
  EXPECT_EQ(outcome.failure, "");
  EXPECT_TRUE(outcome.read && outcome.read->catalogue.tables.size() > kPlainTables);
  EXPECT_EQ(ReadWith(MariaDb(), "column_type", [] {}).failure, "");
}

TEST(FaultTest, AServerThatIsStoppedWhileItIsReadIsToldInTime) {
  ExpectTold(ReadWith(PostgreSql(), "pg_attribute", [] { PostgreSql().Signal(SIGSTOP); }),
             "did not answer for 8 seconds");
  PostgreSql().Signal(SIGCONT);
  ExpectTold(ReadWith(MariaDb(), "column_type", [] { MariaDb().Signal(SIGSTOP); }), "");
  MariaDb().Signal(SIGCONT);
  EXPECT_TRUE(NoThreadIsLeft());
  // Both go on as if nothing had been.
  EXPECT_EQ(ReadCatalogue(PostgreSql().Address(), kShop).failure, "");
  EXPECT_EQ(ReadCatalogue(MariaDb().Address(), kShop).failure, "");
}

TEST(FaultTest, AServerThatIsKilledWhileItIsReadIsToldAtOnce) {
  for (ServerProcess* server : {&PostgreSql(), &MariaDb()}) {
    const char* word = server == &PostgreSql() ? "pg_attribute" : "column_type";
    const Outcome outcome = ReadWith(*server, word, [server] { server->Signal(SIGKILL); });
    ExpectTold(outcome, "");  // in words of the driver, or in the last ones of the server
    EXPECT_LT(outcome.milliseconds, 5000);
    EXPECT_TRUE(NoThreadIsLeft());
    ASSERT_TRUE(server->StartAgain());
    EXPECT_EQ(ReadCatalogue(server->Address(), kShop).failure, "");
  }
}

TEST(CancelTest, WhatComesAfterwardsIsDropped) {
  ServerReader reader;
  int told = 0;
  QObject::connect(&reader, &ServerReader::SchemasRead, &reader, [&] { ++told; });
  QObject::connect(&reader, &ServerReader::CatalogueRead, &reader, [&] { ++told; });
  QObject::connect(&reader, &ServerReader::Failed, &reader, [&] { ++told; });
  reader.ReadCatalogue(PostgreSql().Address(), kPassword, kShop);
  EXPECT_TRUE(reader.IsBusy());
  reader.Cancel();
  EXPECT_FALSE(reader.IsBusy());
  EXPECT_TRUE(NoThreadIsLeft());
  QTest::qWait(50);
  EXPECT_EQ(told, 0);
}

TEST(CancelTest, OfTwoReadingsOnlyTheSecondIsTold) {
  ServerReader reader;
  std::vector<std::size_t> told;
  QObject::connect(&reader, &ServerReader::SchemasRead, &reader,
                   [&](const auto& schemas) { told.push_back(schemas.size()); });
  QObject::connect(&reader, &ServerReader::CatalogueRead, &reader, [&] { told.push_back(0); });
  reader.ReadCatalogue(PostgreSql().Address(), kPassword, kShop);
  reader.ReadSchemas(PostgreSql().Address(), kPassword);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !reader.IsBusy(); }, 10000));
  EXPECT_TRUE(NoThreadIsLeft());
  QTest::qWait(50);
  EXPECT_EQ(told, (std::vector<std::size_t>{3}));
}

TEST(CancelTest, AReaderMayGoWhileItsThreadWaits) {
  QTcpServer silent;
  ASSERT_TRUE(silent.listen(QHostAddress::LocalHost));
  QElapsedTimer time;
  time.start();
  {
    ServerReader reader;
    reader.ReadSchemas(At(PostgreSql().Address(), silent.serverPort()), kPassword);
    EXPECT_EQ(ServerReader::Threads(), 1);
  }
  EXPECT_LT(time.elapsed(), 1000);
  EXPECT_EQ(ServerReader::Threads(), 1);
  silent.close();
  EXPECT_TRUE(NoThreadIsLeft());
}

}  // namespace
}  // namespace zolt20::tests
