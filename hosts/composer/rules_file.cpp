#include "hosts/composer/rules_file.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QFileInfo>
#include <QLockFile>
#include <algorithm>
#include <map>
#include <optional>
#include <string_view>
#include <utility>

#include "faces/qt/qt_text.h"
#include "hosts/composer/rules_disk.h"
#include "hosts/kit/catalogue_changes.h"

namespace zolt20::composer {

using qt::ToQt;
using rules::KeptDeleted;
using rules::RuleExtras;
using rules::RulesContent;
using rules::TimeNow;

namespace {

std::string_view View(const QByteArray& bytes) {
  return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

// Bytes and their owner.
struct OwnedBytes {
  std::shared_ptr<const void> owner;  // null for none
  std::string_view bytes;
};

}  // namespace

void WriteWholeFile(const QString& path, const QByteArray& content) {
  WriteBytes(TargetOf(path), View(content), Shown(path));
}

// What undoing a change of names needs: each changed rule before and after it.
struct RulesFile::NamesStep {
  struct OfRule {
    Rule before;
    RuleExtras extrasBefore;
    Rule after;
    String noteAfter;
  };
  std::vector<OfRule> rules;
  std::optional<rules::KeptNames> namesBefore;
  bool isUnchangedBefore = false;  // taken back at once, nothing is left to be saved
};

struct RulesFile::State {
  explicit State(const QString& name) : path(name), shown(Shown(name)), target(TargetOf(name)) {}

  void Read();
  void CheckOnDisk() const;
  void Write();

  QString path;
  QString shown;   // the path in messages
  QString target;  // what is read and written: the file behind all links

  std::unique_ptr<QLockFile> lock;  // null when none could be made
  QString whyNotSaved;              // behind the path; "" when it can be saved
  OwnedBytes onDisk;                // as read or written last; none for a file not made yet

  RulesContent content;
  bool changed = false;
  std::optional<NamesStep> namesStep;
};

void RulesFile::State::Read() {
  const auto read = std::make_shared<const QByteArray>(ReadBytes(target, shown));
  onDisk = {read, View(*read)};
  content = rules::ReadContent(onDisk.bytes, shown.toStdString(), onDisk.owner);
}

// Compares bytes, because file times are too coarse and change without the content.
void RulesFile::State::CheckOnDisk() const {
  const bool exists = QFileInfo::exists(target);
  if (!exists && !onDisk.owner) return;
  QString done;
  if (!exists) {
    done =
        QCoreApplication::translate("composer", "%1 was removed by somebody else in the meantime");
  } else if (!onDisk.owner) {
    done = QCoreApplication::translate("composer", "%1 was made by somebody else in the meantime");
  } else if (!HoldsBytes(target, onDisk.bytes, shown)) {
    done =
        QCoreApplication::translate("composer", "%1 was changed by somebody else in the meantime");
  } else {
    return;
  }
  throw ChangedOnDisk(done.arg(shown).toStdString());
}

void RulesFile::State::Write() {
  const auto written = std::make_shared<const std::string>(rules::WriteContent(content));
  WriteBytes(target, *written, shown);
  onDisk = {written, *written};
  whyNotSaved.clear();
  changed = false;
  if (namesStep) namesStep->isUnchangedBefore = false;
}

RulesFile RulesFile::Create(const QString& path) {
  auto state = std::make_unique<State>(path);
  state->lock = NeededLock(state->target, state->shown);
  if (QFileInfo::exists(state->target)) {
    Complain(state->shown, QCoreApplication::translate("composer", "is there already"));
  }
  return RulesFile(std::move(state));
}

RulesFile RulesFile::Open(const QString& path) {
  auto state = std::make_unique<State>(path);
  state->lock = Lock(state->target, state->shown, state->whyNotSaved);
  state->Read();
  if (state->lock && !QFileInfo(state->target).isWritable()) {
    state->whyNotSaved =
        QCoreApplication::translate("composer", "can't be saved: there are no rights to write it");
  }
  return RulesFile(std::move(state));
}

std::vector<Rule> RulesFile::RulesAt(const QString& path) {
  State state(path);
  state.Read();
  return std::move(state.content.rules);
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
  return state_->content.rules;
}

const Rule* RulesFile::Find(StringView name) const {
  const auto found = std::find_if(state_->content.rules.begin(), state_->content.rules.end(),
                                  [name](const Rule& rule) { return rule.name == name; });
  return found == state_->content.rules.end() ? nullptr : &*found;
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
  if (!rule)
    Complain(state_->shown,
             QCoreApplication::translate("composer", "has no rule \"%1\"").arg(ToQt(name)));
  return static_cast<std::size_t>(rule - state_->content.rules.data());
}

void RulesFile::CheckFree(StringView name) const {
  if (name.empty())
    Complain(state_->shown,
             QCoreApplication::translate("composer", "takes no rule without a name"));
  if (Find(name)) {
    Complain(state_->shown,
             QCoreApplication::translate("composer", "has a rule \"%1\" already").arg(ToQt(name)));
  }
}

// The name itself when it is free, else with the first free number: "NAME (2)".
String RulesFile::FreeName(StringView name) const {
  String free(name);
  for (int number = 2; Find(free); ++number)
    free = Concat(name, u" (", FromAscii(std::to_string(number)), u")");
  return free;
}

void RulesFile::Put(const Rule& rule) {
  if (const Rule* found = Find(rule.name)) {
    if (*found == rule) return;
    const std::size_t index = NeededIndex(rule.name);
    RulesContent& content = state_->content;
    rules::PutInPlace(content.rules[index], content.extras[index], rule, TimeNow());
  } else {
    CheckFree(rule.name);
    state_->content.rules.push_back(rule);
    state_->content.extras.emplace_back();
    state_->content.extras.back().stored = TimeNow();
  }
  state_->changed = true;
}

void RulesFile::Rename(StringView name, StringView newName) {
  const std::size_t index = NeededIndex(name);
  if (name == newName) return;
  CheckFree(newName);
  state_->content.rules[index].name = newName;
  state_->changed = true;
}

String RulesFile::Duplicate(StringView name) {
  const std::size_t index = NeededIndex(name);
  Rule copy = state_->content.rules[index];
  copy.name = FreeName(copy.name);
  String copyName = copy.name;
  RuleExtras extras = state_->content.extras[index];
  extras.versions.Clear();
  const auto behind = static_cast<std::ptrdiff_t>(index) + 1;
  state_->content.rules.insert(state_->content.rules.begin() + behind, std::move(copy));
  state_->content.extras.insert(state_->content.extras.begin() + behind, std::move(extras));
  state_->changed = true;
  return copyName;
}

void RulesFile::Remove(StringView name) {
  const std::size_t index = NeededIndex(name);
  RulesContent& content = state_->content;
  content.bin.push_back(
      {{std::move(content.rules[index]), TimeNow()}, std::move(content.extras[index])});
  content.rules.erase(content.rules.begin() + static_cast<std::ptrdiff_t>(index));
  content.extras.erase(content.extras.begin() + static_cast<std::ptrdiff_t>(index));
  state_->changed = true;
}

std::vector<Version> RulesFile::VersionsOf(StringView name) const {
  return state_->content.extras[NeededIndex(name)].versions.Read();
}

String RulesFile::StoredAt(StringView name) const {
  return state_->content.extras[NeededIndex(name)].stored;
}

const String& RulesFile::NoteOf(StringView name) const {
  return state_->content.extras[NeededIndex(name)].note;
}

void RulesFile::SetNote(StringView name, StringView note) {
  String& old = state_->content.extras[NeededIndex(name)].note;
  if (old == note) return;
  old = note;
  state_->changed = true;
}

std::vector<DeletedRule> RulesFile::Bin() const {
  std::vector<DeletedRule> rules;
  for (const KeptDeleted& kept : state_->content.bin)
    rules.push_back(kept.deleted);
  return rules;
}

void RulesFile::CheckBin(std::size_t index) const {
  if (index >= state_->content.bin.size())
    Complain(
        state_->shown,
        QCoreApplication::translate("composer", "has no deleted rule number %1").arg(index + 1));
}

String RulesFile::BringBack(std::size_t index) {
  CheckBin(index);
  RulesContent& content = state_->content;
  KeptDeleted kept = std::move(content.bin[index]);
  content.bin.erase(content.bin.begin() + static_cast<std::ptrdiff_t>(index));
  kept.deleted.rule.name = FreeName(kept.deleted.rule.name);
  String name = kept.deleted.rule.name;
  content.rules.push_back(std::move(kept.deleted.rule));
  content.extras.push_back(std::move(kept.extras));
  state_->changed = true;
  return name;
}

void RulesFile::Forget(std::size_t index) {
  CheckBin(index);
  RulesContent& content = state_->content;
  content.bin.erase(content.bin.begin() + static_cast<std::ptrdiff_t>(index));
  state_->changed = true;
}

// Names of the catalogue.

const RulesContent& RulesFile::Content() const {
  return state_->content;
}

void RulesFile::KeepNames(const rules::NameLists& catalogue) {
  RulesContent& content = state_->content;
  rules::NameLists names = rules::NamesUsed(content, catalogue);
  if (!content.catalogue) content.catalogue.emplace();
  content.catalogue->lists = std::move(names);
}

std::size_t RulesFile::ChangeNames(std::span<const rules::Change> changes,
                                   const language::Names& names,
                                   const rules::NameLists& catalogue) {
  RulesContent& content = state_->content;
  NamesStep step;
  step.namesBefore = content.catalogue;
  step.isUnchangedBefore = !state_->changed;
  std::map<std::size_t, NamesStep::OfRule> before;
  for (const rules::Change& change : changes) {
    if (!change.isChosen || before.count(change.rule) != 0) continue;
    before.insert({change.rule, {content.rules[change.rule], content.extras[change.rule], {}, {}}});
  }
  const std::vector<std::size_t> changed = rules::MakeChanges(content, changes, names, TimeNow());
  for (const std::size_t index : changed) {
    NamesStep::OfRule& rule = before.at(index);
    rule.after = content.rules[index];
    rule.noteAfter = content.extras[index].note;
    step.rules.push_back(std::move(rule));
  }
  KeepNames(catalogue);
  state_->changed = true;
  state_->namesStep = std::move(step);
  return changed.size();
}

bool RulesFile::CanTakeBackNames() const {
  return state_->namesStep.has_value();
}

std::size_t RulesFile::TakeBackNames() {
  if (!state_->namesStep) return 0;
  NamesStep step = *std::exchange(state_->namesStep, std::nullopt);
  RulesContent& content = state_->content;
  std::size_t left = 0;
  for (NamesStep::OfRule& rule : step.rules) {
    const Rule* const now = Find(rule.after.name);
    if (now == nullptr || *now != rule.after || NoteOf(rule.after.name) != rule.noteAfter) {
      ++left;
      continue;
    }
    const std::size_t index = NeededIndex(rule.after.name);
    content.rules[index] = std::move(rule.before);
    content.extras[index] = std::move(rule.extrasBefore);
  }
  content.catalogue = std::move(step.namesBefore);
  state_->changed = !step.isUnchangedBefore;
  return left;
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
  other.content = state_->content;
  other.namesStep = state_->namesStep;
  other.Write();
  *state_ = std::move(other);
}

void RulesFile::Move(StringView name, std::size_t place) {
  const std::size_t from = NeededIndex(name);
  if (place >= state_->content.rules.size())
    throw RulesError(
        QCoreApplication::translate("composer", "There is no such place.").toStdString());
  if (place == from) return;
  const auto move = [&](auto& values) {
    const auto at = [&](std::size_t index) {
      return values.begin() + static_cast<std::ptrdiff_t>(index);
    };
    if (from < place) {
      std::rotate(at(from), at(from + 1), at(place + 1));
    } else {
      std::rotate(at(place), at(from), at(from + 1));
    }
  };
  move(state_->content.rules);
  move(state_->content.extras);
  state_->changed = true;
}

}  // namespace zolt20::composer
