// A statement of a rule on the pages of a further composer. Done gives its text as it is then, at
// the margin; what was not added to the Result yet is added first.
#pragma once

#include "hosts/composer/further_composer.h"
#include "language/opening.h"

namespace zolt20::composer {

class NodeComposer final : public FurtherComposer {
  Q_OBJECT

 public:
  /// The opening is that of the statement, and writes it again as it is. Begins on the page, or on
  /// that of the opening for -1. `title` names the statement.
  NodeComposer(const catalogue::Catalogue& catalogue, const QString& statement,
               const reopen::Opening& opening, int page, const QString& title, RecordedMap& asking);

  /// Once it was accepted.
  const QString& Text() const { return text_; }

 protected:
  void TakeText() override;

 private:
  void AddAndTakeText();
  bool AskWhatToAdd();

  QString text_;
  bool isDecided_ = false;  // what is to be added was added
};

}  // namespace zolt20::composer
