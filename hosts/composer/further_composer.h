// A composer in a dialog that another composer opens. Its text is inserted into a statement or a
// rule of that one. The dialog is placed a little below and to the right of the window that opened
// it, and its first line tells where in the rule its text belongs.
#pragma once

#include <QDialog>

#include "hosts/composer/recorded_map.h"

namespace zolt20::composer {

/// The path of the composer that a widget is in, such as "Orders > SelectDo > Condition"; "" for a
/// widget that is in none.
QString PathOf(const QWidget* asking);

class FurtherComposer : public QDialog {
  Q_OBJECT

 public:
  RecordedMap& map() { return *map_; }
  /// The path: the rule, and the pages from which each nested composer was opened.
  const QString& Path() const { return path_; }

  /// Asks before it closes if something was composed.
  void reject() override;

 protected:
  FurtherComposer(const catalogue::Catalogue& catalogue, const QString& title, QWidget* parent);

  /// To be called when the pages have their first contents. From here on gestures are the person's,
  /// and are written to the journal of the composer that opened this one.
  void Begin(const catalogue::Catalogue& catalogue, const QString& path);

  /// Called within the event Done.
  virtual void TakeText() = 0;

 private:
  QString path_;
  RecordedMap* map_;
};

}  // namespace zolt20::composer
