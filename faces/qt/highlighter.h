// Syntax highlighting of the statement language in a document, by font weight as well as colour.
#pragma once

#include <QPalette>
#include <QSyntaxHighlighter>
#include <QTextCharFormat>
#include <array>

#include "faces/shared/statement_colors.h"

namespace zolt20::qt {

/// How a kind of word looks on the base colour of the palette, which may be a light or a dark one.
QTextCharFormat FormatOf(faces::WordKind kind, const QPalette& palette);

class Highlighter final : public QSyntaxHighlighter {
 public:
  Highlighter(QTextDocument* document, const QPalette& palette);

  /// Highlights the whole document again in the colours for `palette`.
  void SetPalette(const QPalette& palette);

 protected:
  void highlightBlock(const QString& line) override;

 private:
  void MakeFormats(const QPalette& palette);

  std::array<QTextCharFormat, 6> formats_;  // by WordKind
};

}  // namespace zolt20::qt
