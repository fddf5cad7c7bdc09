// Draws wavy lines under the problems in a text box.
#pragma once

#include <QList>
#include <QTextEdit>

#include "language/check.h"

class QPlainTextEdit;

namespace zolt20::composer {

class Waves {
 public:
  /// The box must not have other extra selections.
  explicit Waves(QPlainTextEdit& box) : box_(box) {}

  /// Adds a wave for a problem at this row and column of the box, from 0.
  void Add(const language::Finding& finding, int row, int column);
  /// Draws the waves that were added, and removes those drawn before.
  void Draw();

 private:
  QPlainTextEdit& box_;
  QList<QTextEdit::ExtraSelection> selections_;
};

}  // namespace zolt20::composer
