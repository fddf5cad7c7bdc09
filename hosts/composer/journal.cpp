#include "hosts/composer/journal.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QStandardPaths>
#include <algorithm>

#include "hosts/composer/rules_disk.h"

namespace zolt20::composer {
namespace {

constexpr int kMostNames = 1000;

QString OwnFolder() {
  return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

// The base name of a journal in the folder of the program's data. A hash of the path keeps files of
// the same name apart.
QString OwnName(const QString& rules) {
  if (rules.isEmpty()) return QStringLiteral("new rule");
  const QByteArray sum =
      QCryptographicHash::hash(TargetOf(rules).toUtf8(), QCryptographicHash::Sha256);
  return QFileInfo(rules).fileName() + u'.' + QString::fromLatin1(sum.toHex().left(16));
}

// The lock of a journal; null when another composer holds it, or when no lock can be made there, in
// which case `canLock` is false.
std::shared_ptr<QLockFile> LockOf(const QString& path, bool& canLock) {
  auto lock = std::make_shared<QLockFile>(path + QStringLiteral(".lock"));
  lock->setStaleLockTime(0);
  const bool isLocked = lock->tryLock(0);
  canLock = isLocked || lock->error() == QLockFile::LockFailedError;
  return isLocked ? lock : nullptr;
}

// Whether the file is an incomplete new journal: a crash came before its first line was on the
// disk.
bool IsRest(const QByteArray& bytes) {
  constexpr qsizetype kShort = 64;
  const qsizetype end = bytes.indexOf('\n');
  return bytes.size() < kShort || bytes.left(end).contains('\0') ||
         (end < 0 && bytes.contains("zolt20 journal"));
}

// Copies a damaged journal, because going on truncates it behind its last readable line.
void KeepCopy(const QString& path) {
  QString copy = path + QStringLiteral(".damaged");
  for (int number = 2; QFile::exists(copy) && number <= kMostNames; ++number)
    copy = path + QStringLiteral(".%1.damaged").arg(number);
  QFile::copy(path, copy);
}

QStringList JournalsIn(const QString& folder, const QString& name) {
  const QRegularExpression pattern(
      QStringLiteral("^%1(\\.[0-9]+)?\\.journal$").arg(QRegularExpression::escape(name)));
  QStringList paths;
  for (const QString& file : QDir(folder).entryList(QDir::Files | QDir::Hidden))
    if (pattern.match(file).hasMatch()) paths.append(QDir(folder).filePath(file));
  return paths;
}

qint64 Seconds() {
  return QDateTime::currentSecsSinceEpoch();
}

}  // namespace

Journal::Journal(std::function<JournalHead()> head, QObject* parent)
    : QObject(parent),
      head_(std::move(head)),
      writer_([this](const QString& trouble) { emit TroubledWhileWriting(trouble); }) {
  connect(this, &Journal::TroubledWhileWriting, this, &Journal::Troubled, Qt::QueuedConnection);
  connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, &Journal::Hurry);
}

Journal::~Journal() = default;

// Steps.

void Journal::Begin() {
  waiting_.clear();
  steps_.Clear();
  if (path_.isEmpty()) return;
  if (stored_.empty()) {
    RemoveFile();
  } else {
    BeginFile();
  }
}

void Journal::Keep(int depth, const Json& step, bool isChange) {
  const QByteArray json = JsonLine(step);
  steps_.Add(depth, json);
  if (!path_.isEmpty()) {
    Append(depth, json);
  } else if (isChange) {
    BeginFile();
  }
}

void Journal::KeepStored(const Rule& rule) {
  stored_.push_back(rule);
  if (path_.isEmpty()) {
    BeginFile();
  } else {
    Append(0, StoredLine(rule));
  }
  Hurry();
}

void Journal::TakeSaved(bool isAllStored) {
  stored_.clear();
  if (path_.isEmpty()) return;
  if (isAllStored) {
    RemoveFile();
  } else {
    BeginFile();
  }
}

void Journal::Forget() {
  stored_.clear();
  waiting_.clear();
  if (!path_.isEmpty()) RemoveFile();
}

void Journal::Append(int depth, const QByteArray& json) {
  writer_.Append(lines_.Line(Seconds(), depth, json));
}

// The file.

// Begins a new file with all current steps, and removes the old one.
void Journal::BeginFile() {
  const QString before = std::exchange(path_, {});
  const auto lockBefore = std::exchange(lock_, nullptr);
  const JournalHead head = head_();
  const QString target = head.rules.isEmpty() ? QString() : TargetOf(head.rules);
  const QFileInfo beside(target);
  const bool isBeside = !target.isEmpty() && TakeName(beside.absolutePath(), beside.fileName());
  if (!isBeside && !(QDir().mkpath(OwnFolder()) && TakeName(OwnFolder(), OwnName(head.rules)))) {
    path_ = before;
    lock_ = lockBefore;
    emit Troubled(tr("no journal can be made in %1").arg(Shown(OwnFolder())));
    return;
  }
  lines_ = {};
  QByteArray bytes = lines_.Line(Seconds(), 0, HeadLine(head));
  for (const Rule& rule : stored_)
    bytes += lines_.Line(Seconds(), 0, StoredLine(rule));
  for (const JournalStep& step : steps_.all())
    bytes += lines_.Line(Seconds(), step.depth, step.json);
  writer_.Create(path_, bytes, lock_);
  if (!before.isEmpty()) writer_.Remove(before, lockBefore);
}

// Takes the first name that no other journal has, with its lock. Returns false when none can be
// taken.
bool Journal::TakeName(const QString& folder, const QString& name) {
  for (int number = 1; number <= kMostNames; ++number) {
    const QString path =
        QDir(folder).filePath(name + (number == 1 ? QString() : QStringLiteral(".%1").arg(number)) +
                              QStringLiteral(".journal"));
    if (QFileInfo::exists(path)) continue;
    bool canLock = true;
    lock_ = LockOf(path, canLock);
    if (lock_ != nullptr) path_ = path;
    if (lock_ != nullptr || !canLock) return canLock;
  }
  return false;
}

// First appends a line that says all is stored: a removed file may reappear after a crash, and must
// not be offered then.
void Journal::RemoveFile() {
  writer_.Append(lines_.Line(Seconds(), 0, AllStoredLine()));
  writer_.Remove(path_, std::exchange(lock_, nullptr));
  path_.clear();
}

// Left journals.

std::vector<LeftJournal> Journal::Left(const QString& rules, QStringList& complaints) {
  QStringList paths = JournalsIn(OwnFolder(), OwnName(rules));
  if (!rules.isEmpty()) {
    const QFileInfo target(TargetOf(rules));
    paths = JournalsIn(target.absolutePath(), target.fileName()) + paths;
  }
  std::vector<LeftJournal> found;
  for (const QString& path : paths) {
    bool canLock = true;
    auto lock = LockOf(path, canLock);
    if (lock == nullptr) {
      if (!canLock)
        complaints.append(tr("%1 can't be taken: its folder can't be written").arg(Shown(path)));
      continue;
    }
    QFile file(path);
    const bool isOpen = file.open(QIODevice::ReadOnly);
    const QByteArray bytes = isOpen ? file.readAll() : QByteArray();
    std::optional<KeptSession> session = ReadJournal(bytes);
    if (!isOpen || IsLaterJournal(bytes)) {
      complaints.append(isOpen ? tr("%1 was written by a later version").arg(Shown(path))
                               : tr("%1 can't be read: %2").arg(Shown(path), file.errorString()));
    } else if (!session || session->IsEmpty()) {
      if (session || IsRest(bytes)) {
        QFile::remove(path);
      } else {
        complaints.append(
            tr("%1 is damaged, or no journal; it stays where it is").arg(Shown(path)));
      }
    } else {
      found.push_back({path, std::move(lock), std::move(*session)});
    }
  }
  std::stable_sort(found.begin(), found.end(), [](const LeftJournal& a, const LeftJournal& b) {
    return a.session.time > b.session.time;
  });
  return found;
}

void Journal::GoOnIn(const LeftJournal& left) {
  Forget();
  if (left.session.unreadLines > 0) KeepCopy(left.path);
  path_ = left.path;
  lock_ = left.lock;
  lines_ = left.session.lines;
  steps_ = left.session.steps;
  stored_ = left.session.stored;
  waiting_ = steps_.all();
  writer_.Continue(path_, left.session.size, lock_);
}

std::vector<QByteArray> Journal::TakeWaiting(int depth) {
  std::vector<QByteArray> steps;
  for (const JournalStep& step : waiting_) {
    if (step.depth == depth) steps.push_back(step.json);
  }
  waiting_.erase(waiting_.begin(),
                 std::find_if(waiting_.begin(), waiting_.end(),
                              [depth](const JournalStep& step) { return step.depth > depth; }));
  return steps;
}

}  // namespace zolt20::composer
