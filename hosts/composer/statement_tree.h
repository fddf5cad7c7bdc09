// The pane with the tree of statements of a text, and a list of the problems in the text below it.
//
// The text is read a moment after it changed, once for many changes, and checked after it has not
// changed for a while. The pane edits nothing: it emits EditRequested, and its menu has the actions
// that others add.
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

  /// A text, and the name of its rule.
  struct Source {
    QString rule;
    QString text;
  };

  explicit StatementTree(QWidget* parent = nullptr);
  ~StatementTree() override;

  /// Sets the function that gives the text.
  void ReadFrom(std::function<Source()> source) { source_ = std::move(source); }
  /// To be called when the text may have changed.
  void TextChanged();
  /// Reads the text at once if it may have changed.
  void Refresh();
  /// Checks the text at once if that is still to be done.
  void CheckNow();
  /// Shows these notes of the text.
  void ShowNotes(const std::vector<language::NodeNote>& notes);
  /// Sets the names that statements may use; null allows any name.
  void UseNames(std::unique_ptr<language::Names> names);
  const language::Names* Names() const { return names_.get(); }

  /// The text that the tree shows, its nodes and its problems.
  const QString& Text() const { return model_->Text(); }
  const std::vector<language::Node>& Nodes() const { return model_->Nodes(); }
  const std::vector<language::Finding>& Findings() const { return model_->Findings(); }
  const TextLines& Lines() const { return model_->Lines(); }
  /// Whether the text may differ from the one that is shown.
  bool IsStale() const { return soon_->isActive(); }
  /// Whether Findings() are those of the present text.
  bool IsChecked() const { return isChecked_ && !IsStale(); }

  /// The index of the selected node; kNoNode for none.
  std::size_t CurrentNode() const;
  /// MarkNode selects the row of a node; MarkAt that of the innermost node at an index of the text.
  /// Within a collapsed row, the collapsed row is selected. Neither function emits a signal.
  void MarkNode(std::size_t node);
  void MarkAt(std::size_t place);

  /// Adds an action to the context menu of a statement. Its shortcut acts while the tree has the
  /// focus, and takes precedence over the window's.
  void AddAction(QAction& action);
  QTreeView& View() { return *view_; }

 signals:
  /// The tree has read another text.
  void Read();
  /// The text has been checked.
  void Checked();
  /// The person chose a node: the characters from `first` up to `last`.
  void PlaceChosen(std::size_t first, std::size_t last);
  /// The person asked to edit the node with this index.
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
