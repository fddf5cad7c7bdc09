#include "tests/servers/server_process.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QStandardPaths>
#include <QTcpServer>
#include <QTest>

namespace zolt20::tests {
namespace {

constexpr uid_t kNobody = 65534;
constexpr int kStartMilliseconds = 60000;
constexpr int kProgramMilliseconds = 120000;

// The newest folder that a pattern with one "*" stands for.
QString Newest(const QString& before, const QString& behind) {
  const QStringList names = QDir(before).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
  for (auto name = names.rbegin(); name != names.rend(); ++name) {
    if (QDir(before + *name + behind).exists()) return before + *name + behind;
  }
  return {};
}

QString ProgramOf(const QString& name) {
  return QStandardPaths::findExecutable(
      name, {QStringLiteral("/usr/sbin"), QStringLiteral("/usr/bin"), QStringLiteral("/sbin")});
}

// The processes that a process has started.
QList<pid_t> Children(pid_t parent) {
  QList<pid_t> children;
  QFile list(QStringLiteral("/proc/%1/task/%1/children").arg(parent));
  if (list.open(QIODevice::ReadOnly)) {
    for (const QByteArray& child : list.readAll().split(' ')) {
      if (!child.trimmed().isEmpty()) children.append(child.toInt());
    }
  }
  return children;
}

}  // namespace

int FreePort() {
  QTcpServer server;
  EXPECT_TRUE(server.listen(QHostAddress::LocalHost));
  return server.serverPort();
}

ServerProcess::ServerProcess(composer::ServerKind kind, QString database)
    : kind_(kind), database_(std::move(database)), port_(FreePort()) {
  process_.setProcessChannelMode(QProcess::MergedChannels);
}

ServerProcess::~ServerProcess() {
  Signal(SIGCONT);
  Signal(SIGKILL);
  process_.waitForFinished(5000);
}

bool ServerProcess::Start() {
  QFile::setPermissions(folder_.path(), QFile::permissions(folder_.path()) | QFile::ReadOther |
                                            QFile::ExeOther | QFile::ReadGroup | QFile::ExeGroup);
  if (geteuid() == 0) {
    EXPECT_EQ(chown(qPrintable(folder_.path()), kNobody, kNobody), 0);
  }
  return MakeFiles() && Launch();
}

bool ServerProcess::StartAgain() {
  process_.waitForFinished(5000);
  return Launch();
}

void ServerProcess::Signal(int signal) {
  const auto process = static_cast<pid_t>(process_.processId());
  if (process == 0) return;
  const QList<pid_t> children = Children(process);
  kill(process, signal);
  for (const pid_t child : children)
    kill(child, signal);
}

// No server of a database runs as root. The kernel ends it when the test program is no more.
QStringList ServerProcess::AsUser(const QStringList& command) const {
  QStringList whole{ProgramOf(QStringLiteral("setpriv")), QStringLiteral("--pdeathsig"),
                    QStringLiteral("KILL")};
  if (geteuid() == 0) {
    whole += {QStringLiteral("--reuid=%1").arg(kNobody), QStringLiteral("--regid=%1").arg(kNobody),
              QStringLiteral("--clear-groups")};
  }
  return whole + QStringList{QStringLiteral("--")} + command;
}

bool ServerProcess::RunProgram(const QStringList& command) {
  QProcess program;
  program.setProcessChannelMode(QProcess::MergedChannels);
  program.setWorkingDirectory(folder_.path());
  QStringList whole = AsUser(command);
  const QString first = whole.takeFirst();
  program.start(first, whole);
  const bool ends = program.waitForFinished(kProgramMilliseconds) && program.exitCode() == 0;
  if (!ends) {
    ADD_FAILURE() << command.join(u' ').toStdString() << ": " << program.errorString().toStdString()
                  << '\n'
                  << program.readAll().toStdString();
    program.kill();
    program.waitForFinished();
  }
  return ends;
}

void ServerProcess::WriteFile(const QString& path, const QString& text) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
  file.write(text.toUtf8());
  file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther | QFile::ReadGroup);
}

bool ServerProcess::Launch() {
  process_.setWorkingDirectory(folder_.path());
  QStringList whole = AsUser(Command());
  const QString first = whole.takeFirst();
  process_.start(first, whole);
  QElapsedTimer time;
  time.start();
  QString said;
  while (time.elapsed() < kStartMilliseconds && process_.state() != QProcess::NotRunning) {
    QTest::qWait(100);
    if (Answers(said)) return true;
  }
  ADD_FAILURE() << Command().join(u' ').toStdString() << " does not answer: " << said.toStdString()
                << '\n'
                << process_.readAll().toStdString();
  return false;
}

bool ServerProcess::Answers(QString& said) const {
  const QString name = QStringLiteral("first");
  bool answers = false;
  {
    QSqlDatabase connection =
        QSqlDatabase::addDatabase(QString::fromLatin1(composer::DriverOf(kind_).driver), name);
    SetUp(connection, Address());
    answers = connection.open(kUser, kPassword);
    said = connection.lastError().text();
  }
  QSqlDatabase::removeDatabase(name);
  return answers;
}

composer::ServerAddress ServerProcess::Address() const {
  return {kind_, QStringLiteral("127.0.0.1"), port_, database_, kUser};
}

void ServerProcess::Run(const QStringList& statements) {
  const QString name = QStringLiteral("tests");
  {
    QSqlDatabase connection =
        QSqlDatabase::addDatabase(QString::fromLatin1(composer::DriverOf(kind_).driver), name);
    SetUp(connection, Address());
    EXPECT_TRUE(connection.open(kUser, kPassword)) << connection.lastError().text().toStdString();
    for (const QString& statement : statements) {
      QSqlQuery query(connection);
      EXPECT_TRUE(query.exec(statement))
          << statement.toStdString() << ": " << query.lastError().text().toStdString();
    }
  }
  QSqlDatabase::removeDatabase(name);
}

namespace {

class PostgreSql final : public ServerProcess {
 public:
  PostgreSql()
      : ServerProcess(composer::ServerKind::kPostgreSql, QStringLiteral("postgres")),
        programs_(Newest(QStringLiteral("/usr/lib/postgresql/"), QStringLiteral("/bin"))) {}

 protected:
  bool MakeFiles() override {
    WriteFile(In("password"), kPassword);
    return RunProgram({programs_ + QStringLiteral("/initdb"), QStringLiteral("--no-sync"),
                       QStringLiteral("--auth=scram-sha-256"), QStringLiteral("--encoding=UTF8"),
                       QStringLiteral("--locale=C.UTF-8"), QStringLiteral("--username=") + kUser,
                       QStringLiteral("--pwfile=") + In("password"), In("data")});
  }
  QStringList Command() const override {
    return {programs_ + QStringLiteral("/postgres"),
            QStringLiteral("-D"),
            In("data"),
            QStringLiteral("-p"),
            QString::number(port()),
            QStringLiteral("-c"),
            QStringLiteral("listen_addresses=127.0.0.1"),
            QStringLiteral("-c"),
            QStringLiteral("unix_socket_directories="),
            QStringLiteral("-c"),
            QStringLiteral("fsync=off")};
  }

 private:
  QString programs_;
};

class MariaDb final : public ServerProcess {
 public:
  MariaDb() : ServerProcess(composer::ServerKind::kMariaDb, QString()) {}

 protected:
  bool MakeFiles() override {
    QString password = kPassword;
    password.replace(u'\\', QStringLiteral("\\\\")).replace(u'\'', QStringLiteral("\\'"));
    WriteFile(In("first.sql"),
              QStringLiteral("create user if not exists '%1'@'%' identified by '%2';\n"
                             "grant all on *.* to '%1'@'%';\n")
                  .arg(kUser, password));
    return RunProgram({ProgramOf(QStringLiteral("mariadb-install-db")),
                       QStringLiteral("--no-defaults"), QStringLiteral("--skip-test-db"),
                       QStringLiteral("--auth-root-authentication-method=normal"),
                       QStringLiteral("--datadir=") + In("data")});
  }
  QStringList Command() const override {
    return {ProgramOf(QStringLiteral("mariadbd")),
            QStringLiteral("--no-defaults"),
            QStringLiteral("--datadir=") + In("data"),
            QStringLiteral("--port=%1").arg(port()),
            QStringLiteral("--bind-address=127.0.0.1"),
            QStringLiteral("--socket=") + In("socket"),
            QStringLiteral("--pid-file=") + In("pid"),
            QStringLiteral("--init-file=") + In("first.sql"),
            QStringLiteral("--skip-name-resolve"),
            QStringLiteral("--innodb-flush-log-at-trx-commit=0")};
  }
};

}  // namespace

std::unique_ptr<ServerProcess> MakePostgreSql() {
  return std::make_unique<PostgreSql>();
}

std::unique_ptr<ServerProcess> MakeMariaDb() {
  return std::make_unique<MariaDb>();
}

}  // namespace zolt20::tests
