// Shows the text of a rule, coloured and read-only, and compares it with the text that Store would
// give. Added lines begin with "+ ", removed ones with "- ", the others with two blanks; equal
// texts are shown without these marks. The menu copies, prints and saves the text without marks:
// the new one if there are two.
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

  /// Shows a text, and the lines that would change if it became `coming`.
  void Show(const QString& text, const QString& coming);
  /// The name of the text in print.
  void Name(const QString& name) { name_ = name; }
  /// Shows a line above the text, none for "".
  void Tell(const QString& told);
  /// Selects characters and scrolls to them. Lines and columns count from 1.
  void Point(qsizetype line, qsizetype column, qsizetype length);

  /// Uses the find bar of the window, which has the keys for it.
  void FindBy(FindBar& find) { find_ = &find; }
  /// Adds a find bar below the text, with the keys for it in the whole window of the pane.
  void AddFindBar();

  // These take places of another text, such as the Result; a place is used if the pane shows the
  // same line.

  /// Draws waves under the problems of a text.
  void Underline(const QString& text, const std::vector<language::Finding>& findings);
  /// Selects a part of a text and scrolls to it.
  void PointAt(const QString& text, TextLines::Place from, TextLines::Place to);
  /// The place of the caret in a text; none if its line is not in that text.
  std::optional<TextLines::Place> CaretIn(const QString& text) const;

 signals:
  /// The person moved the caret.
  void CaretMoved();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  class Colors;

  const std::vector<int>& RowsOf(const QString& text) const;
  void ShowRows(const QString& shown, bool isMarked);
  void DrawWaves();
  void DrawAnew();
  void ShowMenu(const QPoint& at);

  QLabel* told_;
  QPlainTextEdit* view_;
  Colors* colors_;
  FindBar* find_ = nullptr;
  QString name_;
  QString text_;
  QString coming_;
  QString shown_;                // the text of the view
  std::vector<LineMark> marks_;  // of the rows
  QString wavedText_;
  std::vector<language::Finding> waved_;
  mutable QString placedText_;     // of RowsOf
  mutable std::vector<int> rows_;  // for each of its lines, kNoRow for one that is not shown
};

}  // namespace zolt20::composer
