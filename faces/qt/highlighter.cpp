#include "faces/qt/highlighter.h"

#include "faces/qt/qt_text.h"

namespace zolt20::qt {

using faces::WordKind;

QTextCharFormat FormatOf(WordKind kind, const QPalette& palette) {
  const faces::Look look = faces::LookOf(kind);
  const bool isDark = palette.color(QPalette::Base).lightness() < 128;
  QTextCharFormat format;
  format.setForeground(QColor(QRgb(0xFF000000U | (isDark ? look.onDark : look.onLight))));
  format.setFontWeight(static_cast<QFont::Weight>(look.weight));
  format.setFontItalic(look.italic);
  return format;
}

Highlighter::Highlighter(QTextDocument* document, const QPalette& palette)
    : QSyntaxHighlighter(document) {
  MakeFormats(palette);
}

void Highlighter::SetPalette(const QPalette& palette) {
  MakeFormats(palette);
  rehighlight();
}

void Highlighter::highlightBlock(const QString& line) {
  for (const faces::ColoredWord& word : faces::ColoredWordsOf(View(line))) {
    setFormat(static_cast<int>(word.first), static_cast<int>(word.count),
              formats_[static_cast<std::size_t>(word.kind)]);
  }
}

void Highlighter::MakeFormats(const QPalette& palette) {
  for (std::size_t kind = 0; kind < formats_.size(); ++kind)
    formats_[kind] = FormatOf(static_cast<WordKind>(kind), palette);
}

}  // namespace zolt20::qt
