// A composer for one statement of a rule. Done gives the text of the statement without indentation.
// What the pages hold is added to that text first.
#pragma once

#include "hosts/composer/further_composer.h"
#include "language/opening.h"

namespace zolt20::composer {

class NodeComposer final : public FurtherComposer {
  Q_OBJECT

 public:
  /// `opening` is that of the statement, and gives back the same text. Shows the page with that
  /// number, or the page of the opening for -1. `title` names the statement.
  NodeComposer(const catalogue::Catalogue& catalogue, const QString& statement,
               const reopen::Opening& opening, int page, const QString& title, RecordedMap& asking);

  /// The new text, after the dialog was accepted.
  const QString& Text() const { return text_; }

 protected:
  void TakeText() override;

 private:
  void AddAndTakeText();
  bool AskWhatToAdd();

  QString text_;
  bool isDecided_ = false;  // the pages have been added
};

}  // namespace zolt20::composer
