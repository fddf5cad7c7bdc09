// What Undo and Redo would take back and bring back, in words, of one control after the other.
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

  /// From now on of this control.
  void Follow(RecordedMap& map);

  /// "" when there is no name for it.
  QString Undo() const;
  QString Redo() const;

 signals:
  void Changed();

 private:
  // A gesture, by the place of the record behind it.
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
