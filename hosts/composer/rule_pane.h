// The text of a rule to be read: coloured, and with the lines marked that would come and go. A line
// that would come begins with "+ ", one that would go with "- ", the others with two blanks; where
// no line would, the text stands as it is.
#pragma once

#include <QWidget>
#include <optional>
#include <vector>

#include "hosts/composer/text_difference.h"
#include "hosts/composer/text_lines.h"
#include "language/check.h"

class QLabel;
class QPlainTextEdit;

namespace zolt20::composer {

class RulePane final : public QWidget {
  Q_OBJECT

 public:
  explicit RulePane(const QString& title, QWidget* parent = nullptr);

  /// The text as it is, and what it would become.
  void Show(const QString& text, const QString& coming);
  /// A line above the text, "" for none.
  void Tell(const QString& told);
  /// Marks characters of the text and brings them into sight. Lines and columns count from 1.
  void Point(qsizetype line, qsizetype column, qsizetype length);

  // Of another text, such as the Result, those lines are meant that the pane has too.

  /// Draws waves under what is wrong in a text.
  void Underline(const QString& text, const std::vector<language::Finding>& findings);
  /// Marks what stands in a text from one place up to another, and brings it into sight.
  void PointAt(const QString& text, TextLines::Place from, TextLines::Place to);
  /// Where the caret is, in a text.
  std::optional<TextLines::Place> CaretIn(const QString& text) const;

 signals:
  /// The person put the caret somewhere.
  void CaretMoved();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  class Colours;

  const std::vector<int>& RowsOf(const QString& text) const;
  void ShowRows(const QString& shown, bool isMarked);
  void DrawWaves();
  void DrawAnew();

  QLabel* told_;
  QPlainTextEdit* view_;
  Colours* colours_;
  QString text_;
  QString coming_;
  QString shown_;                // the text of the view
  std::vector<LineMark> marks_;  // of the rows
  QString wavedText_;
  std::vector<language::Finding> waved_;
  mutable QString placedText_;     // of RowsOf
  mutable std::vector<int> rows_;  // for each of its lines, kNoRow where the pane has it not
};

}  // namespace zolt20::composer
