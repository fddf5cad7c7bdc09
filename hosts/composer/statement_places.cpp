#include "hosts/composer/statement_places.h"

#include <QTextBlock>
#include <QTreeView>

#include "hosts/composer/waves.h"

namespace zolt20::composer {

StatementPlaces::StatementPlaces(StatementTree& tree, QList<RulePane*> panes)
    : QObject(&tree), tree_(tree), panes_(std::move(panes)), caretMoved_(new QTimer(this)) {
  caretMoved_->setSingleShot(true);
  connect(caretMoved_, &QTimer::timeout, this, &StatementPlaces::TakeCaret);
  connect(&tree, &StatementTree::PlaceChosen, this, &StatementPlaces::Show);
  connect(&tree, &StatementTree::Checked, this, &StatementPlaces::DrawWaves);
  connect(&tree, &StatementTree::Read, this, [this] {
    if (!tree_.View().hasFocus()) caretMoved_->start();
  });
  for (RulePane* pane : panes_)
    connect(pane, &RulePane::CaretMoved, this, [this, pane] { TakeCaretOf(*pane); });
}

void StatementPlaces::Follow(QPlainTextEdit& result, std::function<bool()> isShown) {
  result_ = &result;
  isShown_ = std::move(isShown);
  connect(&result, &QPlainTextEdit::textChanged, &tree_, &StatementTree::TextChanged);
  connect(&result, &QPlainTextEdit::cursorPositionChanged, this, [this] {
    if (!tree_.View().hasFocus()) caretMoved_->start();
  });
  tree_.TextChanged();
}

// Whether the text of the Result equals the text of the tree, except for line ends.
bool StatementPlaces::HasResult() const {
  return result_ && isShown_() && !tree_.IsStale() &&
         result_->document()->blockCount() == tree_.Lines().Count();
}

void StatementPlaces::Show(std::size_t first, std::size_t last) {
  const TextLines::Place from = tree_.Lines().At(first);
  const TextLines::Place to = tree_.Lines().At(last);
  for (RulePane* pane : panes_)
    pane->PointAt(tree_.Text(), from, to);
  if (!HasResult()) return;
  const auto positionOf = [this](const TextLines::Place& place) {
    return result_->document()->findBlockByNumber(place.line).position() + place.column;
  };
  // Selects backwards, so that the caret and thus the visible part is at the start.
  QTextCursor cursor(result_->document());
  cursor.setPosition(positionOf(to));
  cursor.setPosition(positionOf(from), QTextCursor::KeepAnchor);
  result_->setTextCursor(cursor);
  result_->ensureCursorVisible();
}

void StatementPlaces::DrawWaves() {
  for (RulePane* pane : panes_)
    pane->Underline(tree_.Text(), tree_.Findings());
  if (!result_) return;
  Waves waves(*result_);
  if (HasResult()) {
    for (const language::Finding& finding : tree_.Findings())
      waves.Add(finding, static_cast<int>(finding.line) - 1, static_cast<int>(finding.column) - 1);
  }
  waves.Draw();
}

void StatementPlaces::TakeCaret() {
  if (!HasResult()) return;
  const QTextCursor caret = result_->textCursor();
  tree_.MarkAt(tree_.Lines().PlaceOf({caret.blockNumber(), caret.positionInBlock()}));
}

void StatementPlaces::TakeCaretOf(const RulePane& pane) {
  tree_.Refresh();
  const auto caret = pane.CaretIn(tree_.Text());
  if (caret) tree_.MarkAt(tree_.Lines().PlaceOf(*caret));
}

}  // namespace zolt20::composer
