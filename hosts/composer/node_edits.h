// Edits the statements of the tree: by keys, by the menu and by the mouse they are opened in
// further composers, moved, copied, cut, pasted and deleted. The rest of the text stays as it is.
// An edit that would change more is refused with the reason. Each edit is one step of the control's
// history, so Undo takes it back.
#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <functional>

#include "hosts/composer/recorded_map.h"
#include "language/edits.h"

class QAction;
class QFrame;
class QKeySequence;
class QModelIndex;

namespace zolt20::composer {

class StatementTree;

class NodeEdits final : public QObject {
  Q_OBJECT

 public:
  /// `tree` and `catalogue` outlive the object. `mayEdit` tells whether the text of the tree can be
  /// edited at all.
  NodeEdits(StatementTree& tree, const catalogue::Catalogue& catalogue,
            std::function<bool()> mayEdit);

  /// From now on the tree shows and edits the text of this control.
  void Follow(RecordedMap& map);
  /// To be called when the notes have changed, but not the text.
  void ShowNotes();

 signals:
  /// An edit was refused for this reason.
  void Told(const QString& reason);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void AddAction(const QString& text, const QKeySequence& keys, void (NodeEdits::*act)());
  bool CanEdit() const;
  bool Make(const language::Change& change, const QString& name,
            std::size_t changed = language::Node::kNone);

  void EditNode(std::size_t node);
  void EditAt(qsizetype first, qsizetype last);
  bool EditOnPages(std::size_t statement, std::size_t node);
  void EditAsText(std::size_t statement);
  bool IsPutBack(std::size_t statement, const QString& text, QWidget& dialog);
  QString HeadOf(std::size_t node) const;

  void MoveUp() { MoveBy(true); }
  void MoveDown() { MoveBy(false); }
  void MoveBy(bool up);
  void MoveTo(std::size_t node, language::Place place);
  void Cut();
  void Copy();
  void Paste();
  void Delete();
  void EditNote();
  void KeepNotes();
  void TellLost(const RecordedMap::Notes& notes, const RecordedMap::Notes& before);
  void Insert(const QString& text, language::Place place);

  std::size_t NodeAt(const QModelIndex& index) const;
  bool Drag(QEvent& event);
  void DragOver(const QPoint& at);
  void Drop(bool copies);
  void EndDrag();
  language::Place PlaceAt(const QPoint& at, QRect& shown) const;

  StatementTree& tree_;
  const catalogue::Catalogue& catalogue_;
  std::function<bool()> mayEdit_;
  QPointer<RecordedMap> map_;
  bool isMaking_ = false;    // during an edit, which moves the notes itself
  language::Change change_;  // found by IsPutBack

  // The viewport of the tree. Its last events come while its parent, the tree, is being destroyed.
  QWidget* rows_;
  QFrame* dropMark_;
  QPoint pressedAt_;
  std::size_t dragged_ = language::Node::kNone;
  bool isDragging_ = false;
  language::Place place_;
};

}  // namespace zolt20::composer
