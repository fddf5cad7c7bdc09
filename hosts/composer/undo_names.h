// Names for the next Undo and Redo of a control, such as "Undo Move CUSTOMER.C_ID".
#pragma once

#include <QObject>
#include <QPointer>
#include <vector>

#include "hosts/composer/recorded_map.h"

namespace zolt20::composer {

class UndoNames final : public QObject {
  Q_OBJECT

 public:
  explicit UndoNames(QObject* parent = nullptr) : QObject(parent) {}

  /// From now on the names are those of this control.
  void Follow(RecordedMap& map);

  /// The name of the step; "" if it has none.
  QString Undo() const;
  QString Redo() const;

 signals:
  void Changed();

 private:
  // The name of a gesture, by its place in the history.
  struct Named {
    int place;
    QString name;
  };

  int Place() const;
  void Add(const ZOLT20Gesture& gesture);
  void MoveBack();
  void MoveOn();

  QPointer<RecordedMap> map_;
  int selected_ = 0;  // fields, as of now
  std::vector<Named> done_;
  std::vector<std::vector<Named>> undone_;  // a step each
};

}  // namespace zolt20::composer
