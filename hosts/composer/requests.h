// What a person's requests are answered by: further composers for sub queries and conditions, and
// the functions of the catalogue.
#pragma once

#include "hosts/composer/further_composer.h"

namespace zolt20::composer {

/// Answers the three requests of the control, each by a modal dialog within the event, and shows
/// what fails. The catalogue outlives the control.
void AnswerRequests(RecordedMap& map, const catalogue::Catalogue& catalogue);

/// Composes a text for a page of another composer.
class NestedComposer final : public FurtherComposer {
  Q_OBJECT

 public:
  /// For a page code of prpStrSQLPart; begins on the Select List page, or on the Condition page.
  NestedComposer(const catalogue::Catalogue& catalogue, const QString& pageCode, bool onCondition,
                 QWidget* parent = nullptr);

  /// What was composed, encoded for the property of the page; "" for nothing.
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
