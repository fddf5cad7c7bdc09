#include "hosts/composer/journal_writer.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>
#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

#include "hosts/composer/rules_disk.h"

namespace zolt20::composer {
namespace {

using namespace std::chrono_literals;

constexpr auto kBetweenSyncs = 200ms;
constexpr auto kBeforeNextTry = 1s;

QString SystemReason() {
  const std::error_code reason(errno, std::generic_category());
  return QString::fromLocal8Bit(reason.message().c_str());
}

}  // namespace

JournalWriter::JournalWriter(Tell tell) : tell_(std::move(tell)), thread_([this] { Run(); }) {}

JournalWriter::~JournalWriter() {
  {
    const std::lock_guard lock(mutex_);
    ends_ = true;
  }
  changed_.notify_all();
  thread_.join();
}

// Orders.

void JournalWriter::Create(const QString& path, const QByteArray& bytes, Lock lock) {
  Add({Order::What::kCreate, path, bytes, 0, std::move(lock)});
}

void JournalWriter::Continue(const QString& path, qint64 size, Lock lock) {
  Add({Order::What::kContinue, path, {}, size, std::move(lock)});
}

void JournalWriter::Append(const QByteArray& bytes) {
  Add({Order::What::kAppend, {}, bytes, 0, {}});
}

void JournalWriter::Remove(const QString& path, Lock lock) {
  Add({Order::What::kRemove, path, {}, 0, std::move(lock)});
}

void JournalWriter::Add(Order order) {
  {
    const std::lock_guard lock(mutex_);
    orders_.push_back(std::move(order));
  }
  changed_.notify_all();
}

void JournalWriter::Hurry() {
  {
    const std::lock_guard lock(mutex_);
    hurries_ = true;
  }
  changed_.notify_all();
}

bool JournalWriter::WaitUntilKept(std::chrono::milliseconds time) {
  Hurry();
  std::unique_lock lock(mutex_);
  return changed_.wait_for(lock, time,
                           [this] { return orders_.empty() && !isBusy_ && !isUnsynced_; });
}

// The thread.

bool JournalWriter::IsSyncDue() const {
  if (!isUnsynced_) return false;
  return Clock::now() >= syncAt_ || (orders_.empty() && (hurries_ || ends_));
}

void JournalWriter::Run() {
  std::unique_lock lock(mutex_);
  while (true) {
    if (IsSyncDue()) {
      Sync(lock);
    } else if (!orders_.empty()) {
      CarryOutNext(lock);
    } else if (ends_) {
      return;
    } else if (isUnsynced_) {
      changed_.wait_until(lock, syncAt_);
    } else {
      hurries_ = false;
      changed_.wait(lock);
    }
  }
}

void JournalWriter::CarryOutNext(std::unique_lock<std::mutex>& lock) {
  Order order = std::move(orders_.front());
  orders_.pop_front();
  isBusy_ = true;
  lock.unlock();
  const QString trouble = CarryOut(order);
  TellOf(trouble);
  lock.lock();
  isBusy_ = false;
  if (trouble.isEmpty()) {
    if (order.what == Order::What::kAppend && !std::exchange(isUnsynced_, true))
      syncAt_ = Clock::now() + kBetweenSyncs;
    changed_.notify_all();
    return;
  }
  orders_.push_front(std::move(order));
  changed_.wait_for(lock, kBeforeNextTry, [this] { return ends_ || IsGivenUp(); });
  if (ends_) orders_.clear();
  if (!IsGivenUp()) return;
  while (orders_.front().what != Order::What::kRemove)
    orders_.pop_front();
}

// Whether a later order removes the current file, so that a failed write to it does not matter.
bool JournalWriter::IsGivenUp() const {
  return std::any_of(orders_.begin(), orders_.end(), [this](const Order& order) {
    return order.what == Order::What::kRemove && order.path == file_.fileName();
  });
}

void JournalWriter::Sync(std::unique_lock<std::mutex>& lock) {
  lock.unlock();
  const QString trouble = ToDisk();
  if (!trouble.isEmpty()) TellOf(trouble);
  lock.lock();
  isUnsynced_ = !trouble.isEmpty() && !ends_;
  syncAt_ = Clock::now() + kBeforeNextTry;
  changed_.notify_all();
}

QString JournalWriter::CarryOut(const Order& order) {
  switch (order.what) {
    case Order::What::kCreate:
    case Order::What::kContinue:
      return OpenFile(order);
    case Order::What::kAppend:
      return AppendBytes(order.bytes);
    case Order::What::kRemove:
      if (order.path == file_.fileName()) {
        ToDisk();
        file_.close();
        file_.setFileName({});
        fileLock_.reset();
      }
      QFile::remove(order.path);
      return {};
  }
  return {};
}

QString JournalWriter::OpenFile(const Order& order) {
  file_.close();
  file_.setFileName(order.path);
  fileLock_ = order.lock;
  if (!file_.open(QIODevice::ReadWrite | QIODevice::Unbuffered)) return file_.errorString();
  size_ = order.size;
  if (!file_.resize(size_)) return file_.errorString();
  QString trouble = AppendBytes(order.bytes);
  if (trouble.isEmpty()) trouble = ToDisk();
  if (!trouble.isEmpty()) return trouble;
  SyncFolderOf(order.path);
  return {};
}

// Appends all bytes, or none: a partial write is truncated.
QString JournalWriter::AppendBytes(const QByteArray& bytes) {
  if (!file_.isOpen())
    return QCoreApplication::translate("composer", "the file could not be opened");
  bool sound = file_.seek(size_);
  // On a full disk a write can be partial; the next write reports the error.
  for (qint64 done = 0; sound && done < bytes.size();) {
    const qint64 written = file_.write(bytes.constData() + done, bytes.size() - done);
    sound = written > 0;
    done += written;
  }
  if (sound) {
    size_ += bytes.size();
    return {};
  }
  QString trouble = file_.errorString();
  file_.resize(size_);
  return trouble;
}

QString JournalWriter::ToDisk() {
#ifdef Q_OS_UNIX
  // EINVAL: the file system does not support fsync.
  if (file_.isOpen() && ::fsync(file_.handle()) != 0 && errno != EINVAL) return SystemReason();
#endif
  return {};
}

void JournalWriter::TellOf(const QString& trouble) {
  if (std::exchange(told_, trouble) != trouble) tell_(trouble);
}

}  // namespace zolt20::composer
