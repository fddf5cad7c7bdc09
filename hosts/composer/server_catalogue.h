// Reads the catalogue of a database server while the window goes on answering.
//
// Each reading has a thread that owns its connection from beginning to end, as Qt's SQL drivers
// want it. A driver may wait for its server for ever. So who waits here waits for a time only: when
// the server is silent for that long, and when the person cancels, the thread is left to itself,
// and whatever comes of it is dropped. It ends when its driver returns.
#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

#include "hosts/composer/server_address.h"
#include "hosts/composer/server_tables.h"
#include "hosts/kit/database.h"

namespace zolt20::composer {

class ServerReader;

/// A reading as its thread and the reader see it.
class ServerJob;

class ServerReader final : public QObject {
  Q_OBJECT

 public:
  static constexpr int kSilenceMilliseconds = 8000;

  explicit ServerReader(QObject* parent = nullptr);
  /// Cancels.
  ~ServerReader() override;

  /// One reading at a time: a new one cancels the one before. Each ends with one of the three
  /// signals at the end, unless it is cancelled.
  void ReadSchemas(const ServerAddress& address, const QString& password);
  void ReadCatalogue(const ServerAddress& address, const QString& password,
                     const QStringList& schemas);
  void Cancel();
  bool IsBusy() const { return job_ != nullptr; }

  /// How many threads there are, those that were left to themselves among them. A program that has
  /// any when it ends must not take down what their drivers use.
  static int Threads();

 signals:
  void SchemasRead(const std::vector<zolt20::composer::Schema>& schemas);
  void CatalogueRead(const zolt20::catalogue::DatabaseCatalogue& catalogue);
  void Failed(const QString& why);

 protected:
  /// What a job says, in the thread of the reader.
  void customEvent(QEvent* event) override;

 private:
  friend class ServerJob;
  using Ending = std::function<void(ServerReader&)>;
  using Work = std::function<Ending(QSqlDatabase&, Dialect, const Progress&)>;

  void Start(const ServerAddress& address, const QString& password, const Work& work);
  void End(const Ending& ending);

  std::shared_ptr<ServerJob> job_;
  QTimer silence_;
};

}  // namespace zolt20::composer
