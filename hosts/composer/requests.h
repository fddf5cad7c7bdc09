// What a person's requests are answered by: further composers for sub queries and conditions, and
// the functions of the catalogue.
#pragma once

#include <QDialog>

#include "hosts/composer/recorded_map.h"

namespace zolt20::composer {

/// Answers the three requests of the control, each by a modal dialog within the event, and shows
/// what fails. The catalogue outlives the control.
void AnswerRequests(RecordedMap& map, const catalogue::Catalogue& catalogue);

/// A composer whose text goes into a statement of another one.
class NestedComposer final : public QDialog {
  Q_OBJECT

 public:
  /// For a page code of prpStrSQLPart; begins on the Select List page, or on the Condition page.
  NestedComposer(const catalogue::Catalogue& catalogue, const QString& pageCode, bool onCondition,
                 QWidget* parent = nullptr);

  /// What was composed, encoded for the property of the page; "" for nothing.
  QString Encoded() const { return encoded_; }
  RecordedMap& map() { return *map_; }

  /// Asks first when something was composed.
  void reject() override;

 private:
  void TakeText();

  QString pageCode_;
  RecordedMap* map_;
  QString encoded_;
};

}  // namespace zolt20::composer
