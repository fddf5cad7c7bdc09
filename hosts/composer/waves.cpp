#include "hosts/composer/waves.h"

#include <QPlainTextEdit>
#include <QTextBlock>
#include <algorithm>

#include "hosts/composer/statement_kinds.h"

namespace zolt20::composer {
namespace {

// Each wave costs time for every line that is drawn; the list of problems has all findings.
constexpr qsizetype kMostWaves = 300;

}  // namespace

void Waves::Add(const language::Finding& finding, int row, int column) {
  if (selections_.size() == kMostWaves) return;
  const QTextBlock block = box_.document()->findBlockByNumber(row);
  if (!block.isValid()) return;
  // A finding at the end of a line is drawn below its last character.
  const int end = block.length() - 1;
  int length = static_cast<int>(finding.length);
  if (length == 0) {
    length = 1;
    column = std::min(column, end) - 1;
  }
  column = std::clamp(column, 0, end);
  QTextEdit::ExtraSelection wave;
  wave.cursor = QTextCursor(block);
  wave.cursor.setPosition(block.position() + column);
  wave.cursor.setPosition(block.position() + std::min(column + length, end),
                          QTextCursor::KeepAnchor);
  const bool isError = finding.severity == language::Severity::kError;
  wave.format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
  wave.format.setUnderlineColor(ColorOf(isError ? Mark::kError : Mark::kWarning, box_.palette()));
  selections_.append(wave);
}

void Waves::Draw() {
  box_.setExtraSelections(selections_);
}

}  // namespace zolt20::composer
