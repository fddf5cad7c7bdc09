#include "hosts/composer/rules_file.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSaveFile>
#include <QStringView>
#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <string_view>
#include <system_error>
#include <utility>
#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

#include "hosts/kit/text_coding.h"

namespace zolt20::composer {
namespace {

// Keeps the order of keys, so that what this edition does not know stays as it was written.
using Json = nlohmann::ordered_json;

constexpr const char* kFormat = "zolt20 rules";
constexpr unsigned kVersion = 1;
// Unknown keys may hold anything; writing deeper ones back could run out of stack.
constexpr std::size_t kDeepest = 100;
constexpr int kMostLinks = 40;

QString ToQt(StringView text) {
  return QStringView(text.data(), static_cast<qsizetype>(text.size())).toString();
}

// `where` is the file, or the file and a rule in it.
[[noreturn]] void Complain(const QString& where, const QString& complaint) {
  throw RulesError((where + u' ' + complaint).toStdString());
}

QString Shown(const QString& path) {
  return QDir::toNativeSeparators(path);
}

// The file behind all links, in a folder without links, so that two names of one file are equal.
QString TargetOf(const QString& path) {
  QFileInfo file(path);
  for (int links = 0; file.isSymbolicLink() && links < kMostLinks; ++links) {
    file.setFile(file.symLinkTarget());
  }
  const QString folder = file.dir().canonicalPath();
  return folder.isEmpty() ? file.absoluteFilePath() : QDir(folder).filePath(file.fileName());
}

// --- The lock

[[noreturn]] void ComplainOfHolder(const QLockFile& lock, const QString& where) {
  qint64 process = 0;
  QString host;
  QString program;
  if (lock.getLockInfo(&process, &host, &program)) {
    Complain(
        where,
        QStringLiteral("is open in another composer (process %1 on %2)").arg(process).arg(host));
  }
  Complain(where, QStringLiteral("is open in another composer, or one left its lock %1; when none "
                                 "has it open, remove the lock")
                      .arg(Shown(lock.fileName())));
}

// Null, and why, where none can be made. Throws when another composer has it.
std::unique_ptr<QLockFile> Lock(const QString& target, const QString& where, QString& whyNot) {
  auto lock = std::make_unique<QLockFile>(target + QStringLiteral(".lock"));
  // A lock does not grow old, however long its composer has the file; it ends with the process.
  lock->setStaleLockTime(0);
  if (lock->tryLock(0)) return lock;
  if (lock->error() == QLockFile::LockFailedError) ComplainOfHolder(*lock, where);
  whyNot = QStringLiteral("can't be saved: ") +
           (lock->error() == QLockFile::PermissionError
                ? QStringLiteral("there are no rights to write in its folder")
                : QStringLiteral("its lock %1 can't be made").arg(Shown(lock->fileName())));
  return nullptr;
}

std::unique_ptr<QLockFile> NeededLock(const QString& target, const QString& where) {
  QString whyNot;
  std::unique_ptr<QLockFile> lock = Lock(target, where, whyNot);
  if (!lock) Complain(where, whyNot);
  return lock;
}

// --- From disk

QByteArray ReadBytes(const QString& target, const QString& where) {
  const QFileInfo info(target);
  if (info.isDir()) Complain(where, QStringLiteral("is a folder"));
  if (info.exists() && !info.isFile()) Complain(where, QStringLiteral("is no ordinary file"));
  QFile file(target);
  const bool opened = file.open(QIODevice::ReadOnly);
  QByteArray bytes = opened ? file.readAll() : QByteArray();
  if (file.error() != QFileDevice::NoError) {
    Complain(where, QStringLiteral("can't be read: ") + file.errorString());
  }
  return bytes;
}

bool BeginsCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

// Follows the text once before it is read in earnest, for what the reader would not tell or would
// tell at a length that is not for people: where it is no JSON, keys that stand twice, of which one
// would be lost, and things too deep to be written back.
class JsonCheck final : public nlohmann::json_sax<Json> {
 public:
  JsonCheck(std::string_view text, QString where) : text_(text), where_(std::move(where)) {}

  bool null() override { return true; }
  bool boolean(bool) override { return true; }
  bool number_integer(number_integer_t) override { return true; }
  bool number_unsigned(number_unsigned_t) override { return true; }
  bool number_float(number_float_t, const string_t&) override { return true; }
  bool string(string_t&) override { return true; }
  bool binary(binary_t&) override { return true; }
  bool start_object(std::size_t) override { return Enter(); }
  bool end_object() override { return Leave(); }
  bool start_array(std::size_t) override { return Enter(); }
  bool end_array() override { return Leave(); }

  bool key(string_t& key) override {
    if (!keys_.back().insert(key).second) {
      Complain(where_, QStringLiteral("has the key \"%1\" twice in one place")
                           .arg(ToQt(hosts::FromJsonText(key))));
    }
    return true;
  }

  bool parse_error(std::size_t position, const std::string&, const Json::exception&) override {
    const std::string_view before = text_.substr(0, position - 1);
    const auto line = 1 + std::count(before.begin(), before.end(), '\n');
    if (position > text_.size()) {
      Complain(where_,
               QStringLiteral("is no JSON, or cut short: it ends within line %1").arg(line));
    }
    const std::string_view inLine = before.substr(before.rfind('\n') + 1);
    const auto column = 1 + std::count_if(inLine.begin(), inLine.end(), BeginsCharacter);
    Complain(
        where_,
        QStringLiteral("is no JSON: reading stops at line %1, column %2").arg(line).arg(column));
  }

 private:
  bool Enter() {
    if (keys_.size() == kDeepest) {
      Complain(where_, QStringLiteral("is nested more than %1 levels deep").arg(kDeepest));
    }
    keys_.emplace_back();
    return true;
  }
  bool Leave() {
    keys_.pop_back();
    return true;
  }

  std::string_view text_;
  QString where_;
  std::vector<std::set<std::string>> keys_;  // of each object that is open, and an array's none
};

Json Parse(const QByteArray& bytes, const QString& where) {
  if (bytes.isEmpty()) Complain(where, QStringLiteral("is empty"));
  const std::string text = hosts::PutStandIns(
      std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
  JsonCheck check(text, where);
  Json::sax_parse(text, &check);
  return Json::parse(text);
}

// Takes the value of a key out of the object, so that in the end the unknown ones are left.
Json Take(Json& object, const char* key, const QString& where) {
  const auto found = object.find(key);
  if (found == object.end()) {
    Complain(where, QStringLiteral("has no \"%1\"").arg(QLatin1String(key)));
  }
  Json value = std::move(*found);
  object.erase(key);
  return value;
}

String TakeText(Json& object, const char* key, const QString& where) {
  const Json value = Take(object, key, where);
  if (!value.is_string()) {
    Complain(where, QStringLiteral("has a \"%1\" that is no string").arg(QLatin1String(key)));
  }
  return hosts::FromJsonText(value.get_ref<const std::string&>());
}

void TakeFormat(Json& document, const QString& where) {
  const bool hasFormat = document.is_object() && document.contains("format");
  if (!hasFormat || Take(document, "format", where) != kFormat) {
    Complain(where, QStringLiteral("is no file of rules"));
  }
  const Json version = Take(document, "version", where);
  if (!version.is_number_integer()) {
    Complain(where, QStringLiteral("has a \"version\" that is no whole number"));
  }
  if (version.is_number_unsigned() && version.get<std::uint64_t>() > kVersion) {
    Complain(where, QStringLiteral("was written by a later version: its format is version %1, and "
                                   "this composer knows version %2")
                        .arg(QString::fromStdString(version.dump()))
                        .arg(kVersion));
  }
  if (version != kVersion) {
    Complain(where, QStringLiteral("has a \"version\" %1, which there is not")
                        .arg(QString::fromStdString(version.dump())));
  }
}

Rule TakeRule(Json& record, const QString& file, std::size_t number) {
  const QString numbered = QStringLiteral("%1: rule number %2").arg(file, QString::number(number));
  if (!record.is_object()) Complain(numbered, QStringLiteral("is no object"));
  Rule rule;
  rule.name = TakeText(record, "name", numbered);
  if (rule.name.empty()) Complain(numbered, QStringLiteral("has an empty \"name\""));
  const QString named = QStringLiteral("%1: rule \"%2\"").arg(file, ToQt(rule.name));
  rule.text = TakeText(record, "text", named);
  rule.fields = TakeText(record, "fields", named);
  return rule;
}

// --- To disk

// Whether the bytes are on the disk itself. Some systems tell only here that it is full, and then
// the old file must not be replaced.
bool ReachesDisk([[maybe_unused]] const QFileDevice& file) {
#ifdef Q_OS_UNIX
  // A kind of disk that can't do this says EINVAL.
  return ::fsync(file.handle()) == 0 || errno == EINVAL;
#else
  return true;
#endif
}

void WriteBytes(const QString& target, const QByteArray& bytes, const QString& where) {
  const QString complaint = QStringLiteral("can't be saved: ");
  QSaveFile file(target);
  bool sound = file.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
  // When there is room for a part only, it is the next write that tells why.
  for (qint64 done = 0; sound && done < bytes.size();) {
    const qint64 written = file.write(bytes.constData() + done, bytes.size() - done);
    sound = written > 0;
    done += written;
  }
  if (!sound) Complain(where, complaint + file.errorString());
  if (!ReachesDisk(file)) {
    const std::error_code reason(errno, std::generic_category());
    Complain(where, complaint + QString::fromLocal8Bit(reason.message().c_str()));
  }
  if (!file.commit()) Complain(where, complaint + file.errorString());
}

}  // namespace

void WriteWholeFile(const QString& path, const QByteArray& content) {
  WriteBytes(TargetOf(path), content, Shown(path));
}

struct RulesFile::State {
  explicit State(const QString& name) : path(name), shown(Shown(name)), target(TargetOf(name)) {}

  void Read();
  QByteArray Written() const;
  void CheckOnDisk() const;
  void Write();

  QString path;
  QString shown;   // the path in messages
  QString target;  // what is read and written: the file behind all links

  std::unique_ptr<QLockFile> lock;   // null when none could be made
  QString whyNotSaved;               // behind the path; "" when it can be saved
  std::optional<QByteArray> onDisk;  // as read or written last; none for a file not made yet

  std::vector<Rule> rules;
  std::vector<Json> unknownOfRules;  // the unknown keys of each rule, an object
  Json unknown = Json::object();     // the unknown keys at the top
  bool changed = false;
};

void RulesFile::State::Read() {
  onDisk = ReadBytes(target, shown);
  unknown = Parse(*onDisk, shown);
  TakeFormat(unknown, shown);
  Json records = Take(unknown, "rules", shown);
  if (!records.is_array()) Complain(shown, QStringLiteral("has \"rules\" that are no array"));
  std::set<String> names;
  for (Json& record : records) {
    rules.push_back(TakeRule(record, shown, rules.size() + 1));
    if (!names.insert(rules.back().name).second) {
      Complain(shown,
               QStringLiteral("has two rules of the name \"%1\"").arg(ToQt(rules.back().name)));
    }
    unknownOfRules.push_back(std::move(record));
  }
}

QByteArray RulesFile::State::Written() const {
  Json records = Json::array();
  for (std::size_t i = 0; i < rules.size(); ++i) {
    Json record;
    record["name"] = hosts::ToJsonText(rules[i].name);
    record["text"] = hosts::ToJsonText(rules[i].text);
    record["fields"] = hosts::ToJsonText(rules[i].fields);
    record.update(unknownOfRules[i]);
    records.push_back(std::move(record));
  }
  Json document;
  document["format"] = kFormat;
  document["version"] = kVersion;
  document["rules"] = std::move(records);
  document.update(unknown);
  return QByteArray::fromStdString(hosts::TakeStandIns(document.dump(2)) + "\n");
}

// By the bytes: dates of files are too coarse, and a date alone is no change.
void RulesFile::State::CheckOnDisk() const {
  const bool exists = QFileInfo::exists(target);
  if (!exists && !onDisk.has_value()) return;
  QString done;
  if (!exists) {
    done = QStringLiteral("was removed");
  } else if (!onDisk.has_value()) {
    done = QStringLiteral("was made");
  } else if (ReadBytes(target, shown) != *onDisk) {
    done = QStringLiteral("was changed");
  } else {
    return;
  }
  throw ChangedOnDisk(
      QStringLiteral("%1 %2 by somebody else in the meantime").arg(shown, done).toStdString());
}

void RulesFile::State::Write() {
  QByteArray bytes = Written();
  WriteBytes(target, bytes, shown);
  onDisk = std::move(bytes);
  whyNotSaved.clear();
  changed = false;
}

RulesFile RulesFile::Create(const QString& path) {
  auto state = std::make_unique<State>(path);
  state->lock = NeededLock(state->target, state->shown);
  if (QFileInfo::exists(state->target)) {
    Complain(state->shown, QStringLiteral("is there already"));
  }
  return RulesFile(std::move(state));
}

RulesFile RulesFile::Open(const QString& path) {
  auto state = std::make_unique<State>(path);
  state->lock = Lock(state->target, state->shown, state->whyNotSaved);
  state->Read();
  if (state->lock && !QFileInfo(state->target).isWritable()) {
    state->whyNotSaved = QStringLiteral("can't be saved: there are no rights to write it");
  }
  return RulesFile(std::move(state));
}

void RulesFile::Reload() {
  State read(state_->path);
  read.Read();
  read.lock = std::move(state_->lock);
  read.whyNotSaved = state_->whyNotSaved;
  *state_ = std::move(read);
}

RulesFile::RulesFile(std::unique_ptr<State> state) : state_(std::move(state)) {}
RulesFile::RulesFile(RulesFile&& other) noexcept = default;
RulesFile& RulesFile::operator=(RulesFile&& other) noexcept = default;
RulesFile::~RulesFile() = default;

const QString& RulesFile::Path() const {
  return state_->path;
}

const std::vector<Rule>& RulesFile::rules() const {
  return state_->rules;
}

const Rule* RulesFile::Find(StringView name) const {
  const auto found = std::find_if(state_->rules.begin(), state_->rules.end(),
                                  [name](const Rule& rule) { return rule.name == name; });
  return found == state_->rules.end() ? nullptr : &*found;
}

bool RulesFile::IsChanged() const {
  return state_->changed;
}

bool RulesFile::CanSave() const {
  return state_->whyNotSaved.isEmpty();
}

std::string RulesFile::WhyNotSaved() const {
  if (CanSave()) return {};
  return (state_->shown + u' ' + state_->whyNotSaved).toStdString();
}

std::size_t RulesFile::NeededIndex(StringView name) const {
  const Rule* rule = Find(name);
  if (!rule) Complain(state_->shown, QStringLiteral("has no rule \"%1\"").arg(ToQt(name)));
  return static_cast<std::size_t>(rule - state_->rules.data());
}

void RulesFile::CheckFree(StringView name) const {
  if (name.empty()) Complain(state_->shown, QStringLiteral("takes no rule without a name"));
  if (Find(name)) {
    Complain(state_->shown, QStringLiteral("has a rule \"%1\" already").arg(ToQt(name)));
  }
}

void RulesFile::Put(const Rule& rule) {
  if (const Rule* old = Find(rule.name)) {
    if (*old == rule) return;
    state_->rules[NeededIndex(rule.name)] = rule;
  } else {
    CheckFree(rule.name);
    state_->rules.push_back(rule);
    state_->unknownOfRules.push_back(Json::object());
  }
  state_->changed = true;
}

void RulesFile::Rename(StringView name, StringView newName) {
  const std::size_t index = NeededIndex(name);
  if (name == newName) return;
  CheckFree(newName);
  state_->rules[index].name = newName;
  state_->changed = true;
}

String RulesFile::Duplicate(StringView name) {
  const std::size_t index = NeededIndex(name);
  Rule copy = state_->rules[index];
  const String stem = copy.name;
  for (int number = 2; Find(copy.name); ++number) {
    copy.name = Concat(stem, u" (", FromAscii(std::to_string(number)), u")");
  }
  String copyName = copy.name;
  Json unknown = state_->unknownOfRules[index];
  const auto behind = static_cast<std::ptrdiff_t>(index) + 1;
  state_->rules.insert(state_->rules.begin() + behind, std::move(copy));
  state_->unknownOfRules.insert(state_->unknownOfRules.begin() + behind, std::move(unknown));
  state_->changed = true;
  return copyName;
}

void RulesFile::Remove(StringView name) {
  const auto index = static_cast<std::ptrdiff_t>(NeededIndex(name));
  state_->rules.erase(state_->rules.begin() + index);
  state_->unknownOfRules.erase(state_->unknownOfRules.begin() + index);
  state_->changed = true;
}

void RulesFile::Save() {
  if (!state_->lock) state_->lock = NeededLock(state_->target, state_->shown);
  state_->CheckOnDisk();
  state_->Write();
}

void RulesFile::SaveOver() {
  if (!state_->lock) state_->lock = NeededLock(state_->target, state_->shown);
  state_->Write();
}

void RulesFile::SaveAs(const QString& path) {
  State other(path);
  if (other.target == state_->target) {
    SaveOver();
    state_->path = path;
    state_->shown = other.shown;
    return;
  }
  other.lock = NeededLock(other.target, other.shown);
  other.rules = state_->rules;
  other.unknownOfRules = state_->unknownOfRules;
  other.unknown = state_->unknown;
  other.Write();
  *state_ = std::move(other);
}

}  // namespace zolt20::composer
