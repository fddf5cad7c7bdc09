#include "hosts/composer/server_catalogue.h"

#include <QCoreApplication>
#include <QEvent>
#include <QSqlDatabase>
#include <atomic>
#include <mutex>
#include <string>
#include <thread>
#include <utility>

namespace zolt20::composer {
namespace {

std::atomic<int> threads = 0;
std::atomic<int> connections = 0;  // all that there were, for their names

// Thrown in the reading thread when its result is no longer wanted.
class Abandoned : public std::exception {};

// A call that a job posts to the thread of its reader.
class Message final : public QEvent {
 public:
  Message(std::shared_ptr<ServerJob> job, std::function<void(ServerReader&)> action)
      : QEvent(QEvent::User), job_(std::move(job)), action_(std::move(action)) {}

  const std::shared_ptr<ServerJob>& Job() const { return job_; }
  void Do(ServerReader& reader) const { action_(reader); }

 private:
  std::shared_ptr<ServerJob> job_;
  std::function<void(ServerReader&)> action_;
};

}  // namespace

class ServerJob : public std::enable_shared_from_this<ServerJob> {
 public:
  explicit ServerJob(ServerReader& reader) : reader_(&reader) {}

  void Abandon() {
    const std::lock_guard lock(mutex_);
    reader_ = nullptr;
  }

  /// Queues a call, which then runs in the thread of the reader. Throws Abandoned after Abandon();
  /// a queued call does not run after it.
  void Post(const ServerReader::Ending& action) {
    const std::lock_guard lock(mutex_);
    if (reader_ == nullptr) throw Abandoned();
    QCoreApplication::postEvent(reader_, new Message(shared_from_this(), action));
  }

  /// The main function of the job's thread: reads, posts the outcome, and closes the connection.
  void Run(const ServerAddress& address, const QString& password, const ServerReader::Work& work) {
    const QString name = QStringLiteral("zolt20 server %1").arg(++connections);
    try {
      const ServerReader::Ending ending = Read(name, address, password, work);
      Post([ending](ServerReader& reader) { reader.End(ending); });
    } catch (const Abandoned&) {
    } catch (const std::exception& error) {
      Fail(QString::fromUtf8(error.what()));
    }
    QSqlDatabase::removeDatabase(name);
  }

 private:
  ServerReader::Ending Read(const QString& name, const ServerAddress& address,
                            const QString& password, const ServerReader::Work& work) {
    QSqlDatabase connection =
        QSqlDatabase::addDatabase(QString::fromLatin1(DriverOf(address.kind).driver), name);
    if (!connection.isValid())
      throw ServerError(
          QCoreApplication::translate("composer", "Its driver is missing.").toStdString());
    SetUp(connection, address);
    const Progress progress = [this] {
      Post([](ServerReader& reader) { reader.silence_.start(); });
    };
    const Dialect dialect = OpenSession(connection, address.user, password);
    progress();
    return work(connection, dialect, progress);
  }

  void Fail(const QString& why) {
    try {
      Post([why](ServerReader& reader) {
        reader.End([why](ServerReader& ended) { emit ended.Failed(why); });
      });
    } catch (const Abandoned&) {
    }
  }

  std::mutex mutex_;
  ServerReader* reader_;  // null once nobody waits
};

ServerReader::ServerReader(QObject* parent) : QObject(parent) {
  silence_.setSingleShot(true);
  silence_.setInterval(kSilenceMilliseconds);
  connect(&silence_, &QTimer::timeout, this, [this] {
    Cancel();
    emit Failed(tr("The server did not answer for %1 seconds.").arg(kSilenceMilliseconds / 1000));
  });
}

ServerReader::~ServerReader() {
  Cancel();
}

void ServerReader::ReadSchemas(const ServerAddress& address, const QString& password) {
  Start(address, password, [](QSqlDatabase& connection, Dialect dialect, const Progress&) {
    return [schemas = composer::ReadSchemas(connection, dialect)](ServerReader& reader) {
      emit reader.SchemasRead(schemas);
    };
  });
}

void ServerReader::ReadCatalogue(const ServerAddress& address, const QString& password,
                                 const QStringList& schemas) {
  Start(address, password,
        [schemas](QSqlDatabase& connection, Dialect dialect, const Progress& progress) {
          return [read = ReadServerTables(connection, dialect, schemas, progress)](
                     ServerReader& reader) { emit reader.CatalogueRead(read); };
        });
}

// Events of a job that was given up are dropped.
void ServerReader::customEvent(QEvent* event) {
  const auto* message = static_cast<const Message*>(event);
  if (message->Job() == job_) message->Do(*this);
}

void ServerReader::Cancel() {
  silence_.stop();
  if (job_ != nullptr) std::exchange(job_, nullptr)->Abandon();
}

int ServerReader::Threads() {
  return threads;
}

void ServerReader::Start(const ServerAddress& address, const QString& password, const Work& work) {
  Cancel();
  job_ = std::make_shared<ServerJob>(*this);
  silence_.start();
  ++threads;
  std::thread([job = job_, address, password, work] {
    job->Run(address, password, work);
    --threads;
  }).detach();
}

void ServerReader::End(const Ending& ending) {
  Cancel();
  ending(*this);
}

}  // namespace zolt20::composer
