// Has words read out that stand nowhere on the form, such as what a button did to a list beside it.
//
// A notification without a place: screen readers read it when it is told to be shown. Nobody sees
// it.
#pragma once

#include <QWidget>

namespace zolt20::qt {

/// A widget that holds others and means nothing itself is passed over.
void PassOver(QWidget& holder);

/// A frame around others is a group of them. Qt calls it what screen readers take for a window, and
/// of what is in a window that is not active they tell nothing.
void TellAsGroup(QWidget& frame);

class Announcer final : public QWidget {
  Q_OBJECT

 public:
  explicit Announcer(QWidget& owner);

  /// Nothing happens where nobody listens.
  void Tell(const QString& words);
};

}  // namespace zolt20::qt
