// Shows what can be recovered from a journal, before anything is recovered.
#pragma once

#include <QDialog>

#include "hosts/composer/journal.h"

namespace zolt20::composer {

/// What can be recovered from a journal.
struct Recovery {
  QStringList windows;       ///< the open composers, from that of the rule to the innermost one
  QStringList texts;         ///< the Result of each
  bool isPlayable = false;   ///< whether the control can be restored; if not, only the texts can
  bool isOfOther = false;    ///< whether the catalogue has changed
  bool isRuleOther = false;  ///< whether the stored rule has another text now, or is gone
};

/// Plays the journal on hidden controls. `now` is the head of a journal that would be created for
/// the same rule now, empty if there is no such rule.
Recovery Foresee(const KeptSession& session, const JournalHead& now);

class RecoveryOffer final : public QDialog {
  Q_OBJECT

 public:
  enum class Answer { kLater, kGoOn, kDiscard };

  RecoveryOffer(const KeptSession& session, const Recovery& recovery, QWidget* parent = nullptr);

  Answer answer() const { return answer_; }

 private:
  QString Told(const KeptSession& session, const Recovery& recovery) const;
  QString Texts(const KeptSession& session, const Recovery& recovery) const;

  Answer answer_ = Answer::kLater;
};

}  // namespace zolt20::composer
