// Real database servers of Debian, each in a temporary folder of its own, on a free port of the
// loopback address. They end with the test program, however that ends.
#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <csignal>
#include <memory>

#include "hosts/composer/server_address.h"

namespace zolt20::tests {

inline const QString kUser = QStringLiteral("tester");
// With signs that mean something to some drivers.
inline const QString kPassword = QStringLiteral("s3cret;{pass}'w=rd\\ %");

/// A port on which nobody listens.
int FreePort();

class ServerProcess {
 public:
  virtual ~ServerProcess();

  /// Makes its files and starts it. False, and a failure of the test, when it does not answer.
  bool Start();
  /// Starts it on the same files again.
  bool StartAgain();
  /// Sends a signal to all of its processes.
  void Signal(int signal);

  composer::ServerAddress Address() const;
  int port() const { return port_; }
  /// Runs statements. Those that fail are failures of the test.
  void Run(const QStringList& statements);

 protected:
  ServerProcess(composer::ServerKind kind, QString database);
  virtual bool MakeFiles() = 0;
  virtual QStringList Command() const = 0;

  QString In(const char* name) const { return folder_.filePath(QString::fromLatin1(name)); }
  /// Runs a program to its end, as the user of the server. False, and a failure, when it fails.
  bool RunProgram(const QStringList& command);
  void WriteFile(const QString& path, const QString& text);

 private:
  QStringList AsUser(const QStringList& command) const;
  bool Launch();
  bool Answers(QString& said) const;

  composer::ServerKind kind_;
  QString database_;
  int port_;
  QTemporaryDir folder_;
  QProcess process_;
};

std::unique_ptr<ServerProcess> MakePostgreSql();
std::unique_ptr<ServerProcess> MakeMariaDb();

}  // namespace zolt20::tests
