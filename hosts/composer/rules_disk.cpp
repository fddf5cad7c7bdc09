#include "hosts/composer/rules_disk.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <cerrno>
#include <system_error>
#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

#include "hosts/composer/rules_file.h"

namespace zolt20::composer {
namespace {

constexpr int kMostLinks = 40;

}  // namespace

void Complain(const QString& where, const QString& complaint) {
  throw RulesError((where + u' ' + complaint).toStdString());
}

QString Shown(const QString& path) {
  return QDir::toNativeSeparators(path);
}

QString TargetOf(const QString& path) {
  QFileInfo file(path);
  for (int links = 0; file.isSymbolicLink() && links < kMostLinks; ++links) {
    file.setFile(file.symLinkTarget());
  }
  const QString folder = file.dir().canonicalPath();
  return folder.isEmpty() ? file.absoluteFilePath() : QDir(folder).filePath(file.fileName());
}

// --- The lock

namespace {

[[noreturn]] void ComplainOfHolder(const QLockFile& lock, const QString& where) {
  qint64 process = 0;
  QString host;
  QString program;
  if (lock.getLockInfo(&process, &host, &program)) {
    Complain(where, QCoreApplication::translate("composer",
                                                "is open in another composer (process %1 on %2)")
                        .arg(process)
                        .arg(host));
  }
  Complain(where, QCoreApplication::translate(
                      "composer",
                      "is open in another composer, or one left its lock %1; when none "
                      "has it open, remove the lock")
                      .arg(Shown(lock.fileName())));
}

}  // namespace

std::unique_ptr<QLockFile> Lock(const QString& target, const QString& where, QString& whyNot) {
  auto lock = std::make_unique<QLockFile>(target + QStringLiteral(".lock"));
  // 0: a lock never expires by its age, only with its process.
  lock->setStaleLockTime(0);
  if (lock->tryLock(0)) return lock;
  if (lock->error() == QLockFile::LockFailedError) ComplainOfHolder(*lock, where);
  whyNot = QCoreApplication::translate("composer", "can't be saved: %1")
               .arg(lock->error() == QLockFile::PermissionError
                        ? QCoreApplication::translate("composer",
                                                      "there are no rights to write in its folder")
                        : QCoreApplication::translate("composer", "its lock %1 can't be made")
                              .arg(Shown(lock->fileName())));
  return nullptr;
}

std::unique_ptr<QLockFile> NeededLock(const QString& target, const QString& where) {
  QString whyNot;
  std::unique_ptr<QLockFile> lock = Lock(target, where, whyNot);
  if (!lock) Complain(where, whyNot);
  return lock;
}

// --- From disk

namespace {

void CheckRead(const QFile& file, const QString& where) {
  if (file.error() == QFileDevice::NoError) return;
  Complain(where,
           QCoreApplication::translate("composer", "can't be read: %1").arg(file.errorString()));
}

void OpenToRead(QFile& file, const QString& where) {
  const QFileInfo info(file.fileName());
  if (info.isDir()) Complain(where, QCoreApplication::translate("composer", "is a folder"));
  if (info.exists() && !info.isFile())
    Complain(where, QCoreApplication::translate("composer", "is no ordinary file"));
  if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) CheckRead(file, where);
}

}  // namespace

QByteArray ReadBytes(const QString& target, const QString& where) {
  QFile file(target);
  OpenToRead(file, where);
  QByteArray bytes = file.readAll();
  CheckRead(file, where);
  return bytes;
}

bool HoldsBytes(const QString& target, std::string_view bytes, const QString& where) {
  constexpr qsizetype kPiece = qsizetype{256} * 1024;
  QFile file(target);
  OpenToRead(file, where);
  QByteArray piece(kPiece, Qt::Uninitialized);
  std::string_view rest = bytes;
  for (;;) {
    const qint64 read = file.read(piece.data(), kPiece);
    CheckRead(file, where);
    if (read <= 0) return rest.empty();
    const std::string_view here(piece.constData(), static_cast<std::size_t>(read));
    if (!rest.starts_with(here)) return false;
    rest.remove_prefix(here.size());
  }
}

// --- To disk

namespace {

// Flushes the file to the disk and returns whether that succeeded. Some file systems report a full
// disk only here; the old file must not be replaced then.
bool ReachesDisk([[maybe_unused]] const QFileDevice& file) {
#ifdef Q_OS_UNIX
  // EINVAL: the file system does not support fsync.
  return ::fsync(file.handle()) == 0 || errno == EINVAL;
#else
  return true;
#endif
}

}  // namespace

void WriteBytes(const QString& target, std::string_view bytes, const QString& where) {
  const QString complaint = QCoreApplication::translate("composer", "can't be saved: %1");
  QSaveFile file(target);
  bool sound = file.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
  // On a full disk a write can be partial; the next write reports the error.
  for (std::string_view rest = bytes; sound && !rest.empty();) {
    const qint64 written = file.write(rest.data(), static_cast<qint64>(rest.size()));
    sound = written > 0;
    if (sound) rest.remove_prefix(static_cast<std::size_t>(written));
  }
  if (!sound) Complain(where, complaint.arg(file.errorString()));
  if (!ReachesDisk(file)) {
    const std::error_code reason(errno, std::generic_category());
    Complain(where, complaint.arg(QString::fromLocal8Bit(reason.message().c_str())));
  }
  if (!file.commit()) Complain(where, complaint.arg(file.errorString()));
  SyncFolderOf(target);
}

void SyncFolderOf([[maybe_unused]] const QString& target) {
#ifdef Q_OS_UNIX
  const QByteArray folder = QFile::encodeName(QFileInfo(target).absolutePath());
  const int handle = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (handle < 0) return;
  ::fsync(handle);
  ::close(handle);
#endif
}

}  // namespace zolt20::composer
