// A composer in a dialog, whose text goes into a statement or a rule of another one. It stands a
// little below and to the right of the window that asked, and its first line tells where in the
// rule it is.
#pragma once

#include <QDialog>

#include "hosts/composer/recorded_map.h"

namespace zolt20::composer {

/// Where the control of a widget is, "Orders > SelectDo > Condition"; "" for none.
QString PathOf(const QWidget* asking);

class FurtherComposer : public QDialog {
  Q_OBJECT

 public:
  RecordedMap& map() { return *map_; }
  /// "Orders > SelectDo > Condition": the rule, and what was asked for from where.
  const QString& Path() const { return path_; }

  /// Asks first when something was composed.
  void reject() override;

 protected:
  FurtherComposer(const catalogue::Catalogue& catalogue, const QString& title, QWidget* parent);

  /// The pages hold what they begin with. Now the person comes, and the journal of the composer
  /// that asked keeps what is done.
  void Begin(const catalogue::Catalogue& catalogue, const QString& path);

  /// Within Done.
  virtual void TakeText() = 0;

 private:
  QString path_;
  RecordedMap* map_;
};

}  // namespace zolt20::composer
