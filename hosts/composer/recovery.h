// What the composer shows of a journal that was left behind, before anything of it comes back.
#pragma once

#include <QDialog>

#include "hosts/composer/journal.h"

namespace zolt20::composer {

/// What can be brought back of a journal.
struct Recovery {
  QStringList windows;       ///< from the rule's composer to the innermost one
  QStringList texts;         ///< the Result of each
  bool isPlayable = false;   ///< the control comes where it was; false: the texts are all there is
  bool isOfOther = false;    ///< the catalogue is another one
  bool isRuleOther = false;  ///< the rule is stored with another text now, or gone
};

/// Plays the journal on controls that nobody sees. `now` is what a journal would be of that is
/// begun now for the same rule, "" where there is none of its name.
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
