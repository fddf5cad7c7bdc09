// A line above the control that tells that the catalogue has other names than the rules were
// composed with. It is no dialog, so it interrupts nobody.
#pragma once

#include <QWidget>

class QLabel;

namespace zolt20::composer {

class NamesStrip final : public QWidget {
  Q_OBJECT

 public:
  explicit NamesStrip(QWidget* parent = nullptr);

  /// Shows how many names have changed, and in how many rules they are used; hides the line for no
  /// names. After the person closed the line, it stays hidden until OfferAgain.
  void Tell(std::size_t names, std::size_t rules);
  void OfferAgain() { isPutOff_ = false; }

 signals:
  /// The person asked to see the changed names.
  void Asked();

 private:
  QLabel* label_;
  bool isPutOff_ = false;
};

}  // namespace zolt20::composer
