// Writes a journal's file in a thread of its own, so that a slow disk holds nobody up.
//
// Orders are carried out one behind the other. Bytes are written at once, which a kill of the
// program does not take back, and are on the disk itself a moment later; a file's name is on the
// disk with its first bytes. What fails is told and tried again, each second, until it succeeds or
// its file is to be removed; the file ends where its last whole order ended.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QLockFile>
#include <QString>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

namespace zolt20::composer {

class JournalWriter {
 public:
  using Lock = std::shared_ptr<QLockFile>;
  /// Hears why writing fails, "" when it goes again; called in the thread.
  using Tell = std::function<void(const QString&)>;

  explicit JournalWriter(Tell tell);
  /// Carries out what waits, as far as it goes.
  ~JournalWriter();

  /// A new file with these bytes, whose lock is held until it is removed.
  void Create(const QString& path, const QByteArray& bytes, Lock lock);
  /// A file that is there, cut to that size.
  void Continue(const QString& path, qint64 size, Lock lock);
  /// Behind the file that was created or continued last.
  void Append(const QByteArray& bytes);
  /// Removes a file when all orders before are on the disk, or at once when they fail.
  void Remove(const QString& path, Lock lock);
  /// To the disk now.
  void Hurry();
  /// Waits until all is on the disk. False when the time is over before.
  bool WaitUntilKept(std::chrono::milliseconds time);

 private:
  struct Order {
    enum class What { kCreate, kContinue, kAppend, kRemove };
    What what;
    QString path;
    QByteArray bytes;
    qint64 size = 0;
    Lock lock;
  };
  using Clock = std::chrono::steady_clock;

  void Add(Order order);
  void Run();
  bool IsSyncDue() const;
  void CarryOutNext(std::unique_lock<std::mutex>& lock);
  void Sync(std::unique_lock<std::mutex>& lock);
  bool IsGivenUp() const;

  // In the thread. "" for success, or what went wrong.
  QString CarryOut(const Order& order);
  QString OpenFile(const Order& order);
  QString AppendBytes(const QByteArray& bytes);
  QString ToDisk();
  void TellOf(const QString& trouble);

  Tell tell_;
  QString told_;
  QFile file_;
  Lock fileLock_;
  qint64 size_ = 0;  // of the whole orders in it

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Order> orders_;
  bool isBusy_ = false;
  bool isUnsynced_ = false;
  bool hurries_ = false;
  bool ends_ = false;
  Clock::time_point syncAt_;

  std::thread thread_;  // last, since it uses all the others
};

}  // namespace zolt20::composer
