// Reads the catalogue of a database server without blocking the window.
//
// Each reading has a thread of its own, which opens, uses and closes its connection, as Qt's SQL
// drivers demand. A driver may block for ever. So the reader waits for a limited time only: after
// that time without an answer, or when the person cancels, it abandons the thread and ignores its
// outcome. The thread ends when its driver returns.
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

/// The state of a reading that its thread and the reader share.
class ServerJob;

class ServerReader final : public QObject {
  Q_OBJECT

 public:
  static constexpr int kSilenceMilliseconds = 8000;

  explicit ServerReader(QObject* parent = nullptr);
  /// Cancels a reading that is under way.
  ~ServerReader() override;

  /// Starts a reading, and cancels the one before. Each reading ends with one of the last three
  /// signals, unless it is cancelled.
  void ReadSchemas(const ServerAddress& address, const QString& password);
  void ReadCatalogue(const ServerAddress& address, const QString& password,
                     const QStringList& schemas);
  void Cancel();
  bool IsBusy() const { return job_ != nullptr; }

  /// The number of running threads, including abandoned ones. While there are any, a program that
  /// ends must not unload what their drivers use.
  static int Threads();

 signals:
  void SchemasRead(const std::vector<zolt20::composer::Schema>& schemas);
  void CatalogueRead(const zolt20::catalogue::DatabaseCatalogue& catalogue);
  void Failed(const QString& why);

 protected:
  /// Handles a message of a reading, in the thread of the reader.
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
