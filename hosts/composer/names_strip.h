// One line above the control: the catalogue is another one than the rules were composed with. It
// asks nothing of a person who wants to work.
#pragma once

#include <QWidget>

class QLabel;

namespace zolt20::composer {

class NamesStrip final : public QWidget {
  Q_OBJECT

 public:
  explicit NamesStrip(QWidget* parent = nullptr);

  /// How many names are others, and in how many rules; no names take the strip away. Put off by the
  /// person it stays away until it is offered again.
  void Tell(std::size_t names, std::size_t rules);
  void OfferAgain() { isPutOff_ = false; }

 signals:
  /// The person wants to see them.
  void Asked();

 private:
  QLabel* label_;
  bool isPutOff_ = false;
};

}  // namespace zolt20::composer
