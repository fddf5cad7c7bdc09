// Writes a journal's file in a thread of its own, so that a slow disk never blocks the window.
//
// Orders are carried out in sequence. Bytes are passed to the system at once, so that they survive
// a crash of the program, and synced to the disk a moment later, so that they survive a crash of
// the machine. The folder is synced with the first bytes of a new file. A failing order is reported
// and tried again each second, until it succeeds or its file is to be removed. The file always ends
// behind its last complete order.
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
  /// Called in the thread of the writer with the reason why writing fails, with "" when it succeeds
  /// again.
  using Tell = std::function<void(const QString&)>;

  explicit JournalWriter(Tell tell);
  /// Carries out the pending orders, as far as they succeed.
  ~JournalWriter();

  /// Creates a file with these bytes. The lock is held until the file is removed.
  void Create(const QString& path, const QByteArray& bytes, Lock lock);
  /// Continues an existing file, which is cut to that size.
  void Continue(const QString& path, qint64 size, Lock lock);
  /// Appends to the file that was created or continued last.
  void Append(const QByteArray& bytes);
  /// Removes a file after all orders before have been synced, or at once when they fail.
  void Remove(const QString& path, Lock lock);
  /// Syncs now instead of in a moment.
  void Hurry();
  /// Waits until all orders are on the disk. False when that takes longer than `time`.
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

  // Called in the thread of the writer. They give "" for success, otherwise the reason.
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
