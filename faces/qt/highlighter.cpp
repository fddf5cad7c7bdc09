#include "faces/qt/highlighter.h"

#include "faces/qt/qt_text.h"

namespace zolt20::qt {
namespace {

using faces::WordKind;

struct Look {
  QRgb onLight;
  QRgb onDark;
  QFont::Weight weight;
  bool italic;
};

Look LookOf(WordKind kind) {
  switch (kind) {
    case WordKind::kKeyword:
      return {0xFF0B4F9E, 0xFF7FB6FF, QFont::Bold, false};
    case WordKind::kBlock:
      return {0xFF6A1B9A, 0xFFD7A6FF, QFont::Black, false};
    case WordKind::kFunction:
      return {0xFF005F56, 0xFF6FE0C8, QFont::DemiBold, true};
    case WordKind::kBinding:
      return {0xFF7A4100, 0xFFF0B76B, QFont::DemiBold, false};
    case WordKind::kString:
      return {0xFF1B661F, 0xFF9BE29B, QFont::Normal, true};
    case WordKind::kNumber:
      return {0xFF9C1C1C, 0xFFFF9E9E, QFont::Medium, false};
  }
  return {};
}

}  // namespace

QTextCharFormat FormatOf(WordKind kind, const QPalette& palette) {
  const Look look = LookOf(kind);
  const bool isDark = palette.color(QPalette::Base).lightness() < 128;
  QTextCharFormat format;
  format.setForeground(QColor(isDark ? look.onDark : look.onLight));
  format.setFontWeight(look.weight);
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
  for (const faces::ColouredWord& word : faces::ColouredWordsOf(View(line))) {
    setFormat(static_cast<int>(word.first), static_cast<int>(word.count),
              formats_[static_cast<std::size_t>(word.kind)]);
  }
}

void Highlighter::MakeFormats(const QPalette& palette) {
  for (std::size_t kind = 0; kind < formats_.size(); ++kind)
    formats_[kind] = FormatOf(static_cast<WordKind>(kind), palette);
}

}  // namespace zolt20::qt
