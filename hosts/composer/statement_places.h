// Synchronizes the tree of statements with the texts that show them: the Result, the text of the
// rule beside it, and the read-only text. Choosing a row selects its text; moving the caret selects
// its row; problems are underlined with waves.
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

  /// Sets the box of the Result. `isShown` tells whether the tree shows the text of that box.
  void Follow(QPlainTextEdit& result, std::function<bool()> isShown);
  /// Selects a part of the tree's text in all texts.
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
