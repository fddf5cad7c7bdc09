// Wavy lines under what is wrong in a text, drawn over the text that a box shows.
#pragma once

#include <QList>
#include <QTextEdit>

#include "language/check.h"

class QPlainTextEdit;

namespace zolt20::composer {

class Waves {
 public:
  /// The box has no other marks of this kind.
  explicit Waves(QPlainTextEdit& box) : box_(box) {}

  /// One for the finding, at this row and column of the box, from 0.
  void Add(const language::Finding& finding, int row, int column);
  /// All that were added, in place of those that were there.
  void Draw();

 private:
  QPlainTextEdit& box_;
  QList<QTextEdit::ExtraSelection> selections_;
};

}  // namespace zolt20::composer
