// Leads between the tree of statements and the texts that show them: the Result, the text of the
// rule beside it, and the one that is read in place of the control. What is chosen in the tree is
// marked in the texts, where the caret is in a text is marked in the tree, and what is wrong has
// waves under it.
#pragma once

#include <QObject>
#include <QPlainTextEdit>
#include <QPointer>
#include <functional>

#include "hosts/composer/rule_pane.h"
#include "hosts/composer/statement_tree.h"

namespace zolt20::composer {

class StatementPlaces final : public QObject {
  Q_OBJECT

 public:
  StatementPlaces(StatementTree& tree, QList<RulePane*> panes);

  /// The Result of the control that is composed with; `isShown` tells whether the tree is that of
  /// its text.
  void Follow(QPlainTextEdit& result, std::function<bool()> isShown);
  /// Marks what stands from a place of the tree's text up to another in the texts.
  void Show(std::size_t first, std::size_t last);

 private:
  bool HasResult() const;
  void DrawWaves();
  void TakeCaret();
  void TakeCaretOf(const RulePane& pane);

  StatementTree& tree_;
  QList<RulePane*> panes_;
  QPointer<QPlainTextEdit> result_;
  std::function<bool()> isShown_;
  QTimer* caretMoved_;
};

}  // namespace zolt20::composer
