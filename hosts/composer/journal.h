// The journal of a composer: each step is on the disk within a second, so that a kill of the
// program or of the machine takes no more than that.
//
// It is begun by the first step that composes anything, with all steps since the rule was opened,
// and goes when all is stored. It stands beside the file of rules, as FILE.journal; while there is
// no such file, and where none can be made beside it, in the folder of the program's data. One that
// another composer writes, or one that is left for later, has its name, and the next is
// FILE.2.journal.
#pragma once

#include <QLockFile>
#include <QObject>
#include <functional>
#include <memory>
#include <vector>

#include "hosts/composer/journal_lines.h"
#include "hosts/composer/journal_writer.h"

namespace zolt20::composer {

/// A journal that a composer left behind, locked as long as this is there.
struct LeftJournal {
  QString path;
  std::shared_ptr<QLockFile> lock;
  KeptSession session;
};

class Journal final : public QObject {
  Q_OBJECT

 public:
  using Json = nlohmann::ordered_json;

  /// Asks what it is of when a file is begun.
  explicit Journal(std::function<JournalHead()> head, QObject* parent = nullptr);
  /// What is not stored stays on the disk.
  ~Journal() override;

  /// Starts over for a rule that was opened; the steps of the rule before are discarded.
  void Begin();
  /// A step in the composer of that depth.
  void Keep(int depth, const Json& step, bool isChange);
  /// The rule is stored in memory, and not on the disk.
  void KeepStored(const Rule& rule);
  /// The rules are on the disk, all or all but what is composed now.
  void TakeSaved(bool isAllStored);
  /// Nothing is to be brought back.
  void Forget();
  /// To the disk now.
  void Hurry() { writer_.Hurry(); }
  bool WaitUntilKept(std::chrono::milliseconds time) { return writer_.WaitUntilKept(time); }
  /// The file; "" when there is none.
  const QString& path() const { return path_; }

  /// What other composers left for this file of rules, or without one for "". Those of no use are
  /// removed. `complaints` gets what can't be read.
  static std::vector<LeftJournal> Left(const QString& rules, QStringList& complaints);
  /// Goes on in a journal that was left: the composers that come get the steps of theirs.
  void GoOnIn(const LeftJournal& left);
  /// The steps that a composer has to make again first; none when it begins anew.
  std::vector<QByteArray> TakeWaiting(int depth);

 signals:
  /// Why steps are not kept at the moment; "" when they are again.
  void Troubled(const QString& trouble);
  /// The same, as the writer has it: on its thread.
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
