// The pane of the statements: the tree of a text, and below it what is wrong in the text.
//
// The text is read a moment after it changed, once for many changes, and checked when it has rested
// a while. What happens to a statement is the business of whoever hears EditRequested, or adds
// actions.
#pragma once

#include <QPersistentModelIndex>
#include <QSet>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>

#include "hosts/composer/statement_model.h"
#include "language/names.h"

class QTreeView;

namespace zolt20::composer {

class ProblemList;

class StatementTree final : public QWidget {
  Q_OBJECT

 public:
  static constexpr std::size_t kNoNode = StatementModel::kNoNode;

  /// A text, and the name of the rule that it is of.
  struct Source {
    QString rule;
    QString text;
  };

  explicit StatementTree(QWidget* parent = nullptr);
  ~StatementTree() override;

  /// Where the text comes from.
  void ReadFrom(std::function<Source()> source) { source_ = std::move(source); }
  /// The text may be another now.
  void TextChanged();
  /// Reads the text now, when it may be another.
  void Refresh();
  /// Looks for what is wrong now, when it was not looked for yet.
  void CheckNow();
  /// The notes of the text that is shown.
  void ShowNotes(const std::vector<language::NodeNote>& notes);
  /// The names that statements may have; null for any.
  void UseNames(std::unique_ptr<language::Names> names);
  const language::Names* Names() const { return names_.get(); }

  /// What the tree shows: the text of the last Refresh, its nodes and what is wrong in it.
  const QString& Text() const { return model_->Text(); }
  const std::vector<language::Node>& Nodes() const { return model_->Nodes(); }
  const std::vector<language::Finding>& Findings() const { return model_->Findings(); }
  const TextLines& Lines() const { return model_->Lines(); }
  /// The text is another than the one that is shown.
  bool IsStale() const { return soon_->isActive(); }
  /// Findings() are those of the text as it is now.
  bool IsChecked() const { return isChecked_ && !IsStale(); }

  /// The node that is marked, by its index; kNoNode for none.
  std::size_t CurrentNode() const;
  /// Marks a node, or the innermost one at a place of the text. Nothing is told.
  void MarkNode(std::size_t node);
  void MarkAt(std::size_t place);

  /// Adds an action to the menu of a statement. Its keys work where the tree has the focus, and
  /// come before those of the window.
  void AddAction(QAction& action);
  QTreeView& View() { return *view_; }

 signals:
  /// The tree is that of another text.
  void Read();
  /// It is known what is wrong in the text.
  void Checked();
  /// The person wants to see the characters from the first to behind the last one.
  void PlaceChosen(std::size_t first, std::size_t last);
  /// The person wants to edit the node at this index.
  void EditRequested(std::size_t node);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  class Delegate;

  void MakeView();
  void Tell(const QModelIndex& index);
  void TellProblem(std::size_t finding);
  void RequestEdit();
  void Mark(const QModelIndex& index);
  void Unfold();
  void UnfoldAllBut(const QSet<QModelIndex>& fresh);
  bool TakeKey(QEvent& event);
  void ShowMenu(const QPoint& at);

  std::function<Source()> source_;
  std::unique_ptr<language::Names> names_;
  StatementModel* model_;
  QTreeView* view_;
  Delegate* delegate_;
  ProblemList* problems_;
  QAction* edit_;
  QTimer* soon_;
  QTimer* rested_;
  QString rule_;
  QList<QPersistentModelIndex> fresh_;  // rows that came by the last change of the text
  bool isChecked_ = true;
  bool isByProgram_ = false;  // what becomes current was not chosen by the person
};

}  // namespace zolt20::composer
