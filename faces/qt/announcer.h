// A live region: has screen readers read out words that stand nowhere on the form, such as what a
// button did to a list beside it.
//
// An invisible notification, which screen readers read when they are told that it is shown.
#pragma once

#include <QWidget>

namespace zolt20::qt {

/// Makes screen readers pass over a widget that only holds others.
void PassOver(QWidget& holder);

/// Gives a frame the role of a group. By Qt's default role screen readers take it for a window, and
/// they do not read what is in a window that is not active.
void TellAsGroup(QWidget& frame);

class Announcer final : public QWidget {
  Q_OBJECT

 public:
  explicit Announcer(QWidget& owner);

  /// Has the words read out. Does nothing while no screen reader is active.
  void Tell(const QString& words);
};

}  // namespace zolt20::qt
