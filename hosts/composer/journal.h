// The journal of a composer: a log file from which unsaved work is recovered. Each step is on the
// disk within a second, so that a crash of the program or of the machine loses no more than that.
//
// The file is created by the first step that changes anything, with all steps since the rule was
// opened, and removed when everything is saved. It stands beside the file of rules, as
// FILE.journal. Without a file of rules, or where its folder can't be written, it stands in the
// program's data folder. If another composer uses that name, or a journal there still waits to be
// recovered, the name is FILE.2.journal, and so on.
#pragma once

#include <QLockFile>
#include <QObject>
#include <functional>
#include <memory>
#include <vector>

#include "hosts/composer/journal_lines.h"
#include "hosts/composer/journal_writer.h"

namespace zolt20::composer {

/// A journal that a composer left behind. It stays locked as long as this object lives.
struct LeftJournal {
  QString path;
  std::shared_ptr<QLockFile> lock;
  KeptSession session;
};

class Journal final : public QObject {
  Q_OBJECT

 public:
  using Json = nlohmann::ordered_json;

  /// `head` is called when a file is created, for what the first line says.
  explicit Journal(std::function<JournalHead()> head, QObject* parent = nullptr);
  /// Unsaved steps stay on the disk.
  ~Journal() override;

  /// Begins anew for a rule that was opened. The steps of the rule before are discarded.
  void Begin();
  /// Writes a step of the composer at this depth of nesting.
  void Keep(int depth, const Json& step, bool isChange);
  /// To be called when the rule is stored in memory, but not yet on the disk.
  void KeepStored(const Rule& rule);
  /// To be called when the rules are on the disk. `isAllStored` tells whether the rule that is
  /// being composed has no other changes.
  void TakeSaved(bool isAllStored);
  /// Removes the file: there is nothing to recover.
  void Forget();
  /// Writes what is pending to the disk at once.
  void Hurry() { writer_.Hurry(); }
  bool WaitUntilKept(std::chrono::milliseconds time) { return writer_.WaitUntilKept(time); }
  /// The path of the file; "" when there is none.
  const QString& path() const { return path_; }

  /// The journals that other composers left for this file of rules; for "" those of work without a
  /// file. Journals without anything to recover are removed. `complaints` gets a message for each
  /// that can't be read.
  static std::vector<LeftJournal> Left(const QString& rules, QStringList& complaints);
  /// Continues a journal that was left. Each composer that opens then gets its steps from
  /// TakeWaiting.
  void GoOnIn(const LeftJournal& left);
  /// The steps that the composer at this depth has to make again; empty when it begins anew.
  std::vector<QByteArray> TakeWaiting(int depth);

 signals:
  /// Writing fails for this reason; "" when it succeeds again.
  void Troubled(const QString& trouble);
  /// The same, emitted in the thread of the writer.
  void TroubledWhileWriting(const QString& trouble);

 private:
  void Append(int depth, const QByteArray& json);
  void BeginFile();
  void RemoveFile();
  bool TakeName(const QString& folder, const QString& name);

  std::function<JournalHead()> head_;
  JournalLines lines_;
  JournalSteps steps_;
  std::vector<Rule> stored_;
  std::vector<JournalStep> waiting_;
  QString path_;
  std::shared_ptr<QLockFile> lock_;
  JournalWriter writer_;  // last: its thread tells of trouble
};

}  // namespace zolt20::composer
