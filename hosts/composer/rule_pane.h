// The text of a rule to be read: coloured, and with the lines marked that would come and go. A line
// that would come begins with "+ ", one that would go with "- ", the others with two blanks; where
// no line would, the text stands as it is. Its menu copies, prints and saves the text without
// marks, of two the one that would come.
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

class FindBar;

class RulePane final : public QWidget {
  Q_OBJECT

 public:
  explicit RulePane(const QString& title, QWidget* parent = nullptr);

  /// The text as it is, and what it would become.
  void Show(const QString& text, const QString& coming);
  /// What the text is called on paper.
  void Name(const QString& name) { name_ = name; }
  /// A line above the text, "" for none.
  void Tell(const QString& told);
  /// Marks characters of the text and brings them into sight. Lines and columns count from 1.
  void Point(qsizetype line, qsizetype column, qsizetype length);

  /// Finds by a line of the window, which has the keys for it.
  void FindBy(FindBar& find) { find_ = &find; }
  /// Finds by a line of its own below the text, and takes the keys for it in its whole window.
  void AddFindBar();

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
  void ShowMenu(const QPoint& at);

  QLabel* told_;
  QPlainTextEdit* view_;
  Colours* colours_;
  FindBar* find_ = nullptr;
  QString name_;
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
