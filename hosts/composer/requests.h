// Answers the requests of the control for sub queries, conditions and functions.
#pragma once

#include "hosts/composer/further_composer.h"

namespace zolt20::composer {

/// Answers the three request events, each by a modal dialog within the event, and shows errors. The
/// catalogue outlives the control.
void AnswerRequests(RecordedMap& map, const catalogue::Catalogue& catalogue);

/// A composer for a text that a page of another composer asked for.
class NestedComposer final : public FurtherComposer {
  Q_OBJECT

 public:
  /// `pageCode` is that of prpStrSQLPart. Begins on the Select List page, or on the Condition page.
  NestedComposer(const catalogue::Catalogue& catalogue, const QString& pageCode, bool onCondition,
                 QWidget* parent = nullptr);

  /// The composed text, encoded for the property of the page; "" for none.
  QString Encoded() const { return encoded_; }

 protected:
  void TakeText() override;

 private:
  void TellWhatIsMissing();
  void AddAndTakeText();

  QString pageCode_;
  QString encoded_;
};

}  // namespace zolt20::composer
