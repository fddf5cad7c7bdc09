#include "hosts/composer/node_edits.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFrame>
#include <QInputDialog>
#include <QKeyEvent>
#include <QMessageBox>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QTreeView>
#include <algorithm>
#include <optional>
#include <utility>

#include "faces/qt/qt_text.h"
#include "hosts/composer/cut_label.h"
#include "hosts/composer/node_composer.h"
#include "hosts/composer/node_text.h"
#include "hosts/composer/opened_statement.h"
#include "hosts/composer/statement_tree.h"

namespace zolt20::composer {
namespace {

using language::Change;
using language::Node;
using language::NodeKind;
using language::Place;
using language::Refusal;
using language::Where;
using qt::ToQt;
using qt::View;

// The page on which a clause is composed; -1 for a node that is no clause.
int PageOf(NodeKind kind) {
  switch (kind) {
    case NodeKind::kSelectList:
    case NodeKind::kFrom:
    case NodeKind::kGroupBy:
      return 0;
    case NodeKind::kWhere:
    case NodeKind::kOrderBy:
    case NodeKind::kRowLimit:
      return 1;
    case NodeKind::kSelectDo:
    case NodeKind::kSelectEos:
    case NodeKind::kSelectEmpty:
    case NodeKind::kSelectError:
      return 2 + static_cast<int>(kind) - static_cast<int>(NodeKind::kSelectDo);
    default:
      return -1;
  }
}

// Whether a node is a part of a statement that itself has statements, such as an else or a row of a
// case. What is dropped on it goes into it.
bool IsBlock(NodeKind kind) {
  return (kind >= NodeKind::kSelectDo && kind <= NodeKind::kSelectError) ||
         kind == NodeKind::kElse || kind == NodeKind::kCaseRow || kind == NodeKind::kDefault;
}

bool HasStatements(NodeKind kind) {
  return IsBlock(kind) || kind >= NodeKind::kIf;
}

bool CanStandBeside(const Node& node) {
  return node.kind != NodeKind::kBlank && node.kind != NodeKind::kHead &&
         node.kind != NodeKind::kEnd && node.kind != NodeKind::kMore;
}

QString ReasonOf(Refusal refusal) {
  switch (refusal) {
    case Refusal::kPart:
      return NodeEdits::tr("This line belongs to its statement.");
    case Refusal::kItself:
      return NodeEdits::tr("A statement does not go into itself.");
    case Refusal::kNoPlace:
      return NodeEdits::tr("No statements stand in this one.");
    case Refusal::kNoText:
      return NodeEdits::tr("There is no statement in the text.");
    default:
      return NodeEdits::tr("That would change other statements too.");
  }
}

}  // namespace

NodeEdits::NodeEdits(StatementTree& tree, const catalogue::Catalogue& catalogue,
                     std::function<bool()> mayEdit)
    : QObject(&tree),
      tree_(tree),
      catalogue_(catalogue),
      mayEdit_(std::move(mayEdit)),
      rows_(tree.View().viewport()),
      dropMark_(new QFrame(rows_)) {
  AddAction(tr("Move &Up"), Qt::ALT | Qt::Key_Up, &NodeEdits::MoveUp);
  AddAction(tr("Move &Down"), Qt::ALT | Qt::Key_Down, &NodeEdits::MoveDown);
  AddAction(tr("Cu&t"), QKeySequence::Cut, &NodeEdits::Cut);
  AddAction(tr("&Copy"), QKeySequence::Copy, &NodeEdits::Copy);
  AddAction(tr("&Paste"), QKeySequence::Paste, &NodeEdits::Paste);
  AddAction(tr("De&lete"), QKeySequence::Delete, &NodeEdits::Delete);
  AddAction(tr("&Note..."), Qt::SHIFT | Qt::Key_F2, &NodeEdits::EditNote);
  connect(&tree, &StatementTree::Read, this, &NodeEdits::KeepNotes);
  connect(&tree, &StatementTree::EditRequested, this, &NodeEdits::EditNode);
  dropMark_->setObjectName(QStringLiteral("nodeDropMark"));
  dropMark_->setForegroundRole(QPalette::Text);
  dropMark_->setAttribute(Qt::WA_TransparentForMouseEvents);
  dropMark_->hide();
  rows_->installEventFilter(this);
  tree.View().installEventFilter(this);
}

void NodeEdits::AddAction(const QString& text, const QKeySequence& keys, void (NodeEdits::*act)()) {
  auto* action = new QAction(text, this);
  action->setShortcut(keys);
  connect(action, &QAction::triggered, this, [this, act] {
    tree_.Refresh();
    (this->*act)();
  });
  tree_.AddAction(*action);
}

void NodeEdits::Follow(RecordedMap& map) {
  map_ = &map;
  connect(&map, &RecordedMap::EditAskedAgain, this, &NodeEdits::EditAt);
  connect(&map, &RecordedMap::NotesWritten, this, &NodeEdits::ShowNotes);
  connect(&map, &ZOLT20MapWidget::undone, this, &NodeEdits::ShowNotes);
  connect(&map, &ZOLT20MapWidget::redone, this, &NodeEdits::ShowNotes);
}

bool NodeEdits::CanEdit() const {
  return map_ != nullptr && mayEdit_();
}

// Writes the changed text and selects its first new node in the tree. `changed` is the node whose
// text was edited, if it was one, so that its note goes to the new node. Returns false for a
// refusal and for a change of nothing.
bool NodeEdits::Make(const Change& change, const QString& name, std::size_t changed) {
  if (change.refusal != Refusal::kNone) {
    emit Told(ReasonOf(change.refusal));
    return false;
  }
  const QString before = tree_.Text();
  const QString text = ToQt(change.text);
  if (text == before) return false;
  map_->CarryNotes();
  const RecordedMap::Notes notes = map_->NodeNotes();
  map_->WriteResult(text, name);
  tree_.TextChanged();
  {
    const QScopedValueRollback making(isMaking_, true);
    tree_.Refresh();
  }
  const auto begins = [&](const Node& node) { return node.headFirst >= change.first; };
  const auto& nodes = tree_.Nodes();
  const auto found = std::find_if(nodes.begin(), nodes.end(), begins);
  const auto index = static_cast<std::size_t>(found - nodes.begin());
  if (!notes.empty()) {
    std::optional<language::NodePair> known;
    if (changed != Node::kNone && found != nodes.end()) known = {changed, index};
    map_->FollowNotes(language::CarryNotes(notes, View(before), View(text), known));
    TellLost(map_->NodeNotes(), notes);
    ShowNotes();
  }
  if (found != nodes.end()) tree_.MarkNode(index);
  tree_.View().setFocus();
  return true;
}

// Notes.

void NodeEdits::ShowNotes() {
  if (map_ == nullptr) return;
  tree_.Refresh();
  tree_.ShowNotes(map_->NodeNotes());
}

// Carries the notes over to the text, which was changed elsewhere.
void NodeEdits::KeepNotes() {
  if (map_ == nullptr || isMaking_) return;
  const RecordedMap::Notes before = map_->NodeNotes();
  map_->CarryNotes();
  TellLost(map_->NodeNotes(), before);
  tree_.ShowNotes(map_->NodeNotes());
}

void NodeEdits::TellLost(const RecordedMap::Notes& notes, const RecordedMap::Notes& before) {
  for (const language::NodeNote& note : notes) {
    const bool isNew =
        note.path.empty() && std::find(before.begin(), before.end(), note) == before.end();
    if (isNew)
      emit Told(
          tr("The note of \"%1\" is a note of the rule now.").arg(ShortName(ToQt(note.head))));
  }
}

void NodeEdits::EditNote() {
  const std::size_t node = tree_.CurrentNode();
  if (node == Node::kNone || !CanEdit()) return;
  map_->CarryNotes();
  RecordedMap::Notes notes = map_->NodeNotes();
  const language::NodeNote* old = language::NoteOf(notes, tree_.Nodes(), node);
  const QString before = old == nullptr ? QString() : ToQt(old->note);
  bool isGiven = false;
  const QString note = QInputDialog::getMultiLineText(
      &tree_, tr("Note"), tr("Note of \"%1\"").arg(HeadOf(node)), before, &isGiven);
  if (!isGiven || note == before) return;
  language::PutNote(notes, View(tree_.Text()), tree_.Nodes(), node, View(note));
  map_->WriteNotes(notes, tr("Note"));
}

// Editing.

void NodeEdits::EditAt(qsizetype first, qsizetype last) {
  tree_.TextChanged();
  tree_.Refresh();
  const std::size_t node = language::FindNode(tree_.Nodes(), static_cast<std::size_t>(first),
                                              static_cast<std::size_t>(last));
  if (node != Node::kNone) EditNode(node);
}

// Edits a statement on the pages of the form, if Add To Result gives the same bytes when nothing is
// edited there; otherwise as text.
void NodeEdits::EditNode(std::size_t node) {
  if (!CanEdit()) return;
  const std::size_t statement = language::StatementOf(tree_.Nodes(), node);
  if (statement == Node::kNone) return;
  const Node& edited = tree_.Nodes()[statement];
  map_->BeginEdit(static_cast<qsizetype>(edited.first), static_cast<qsizetype>(edited.last));
  if (!EditOnPages(statement, node)) EditAsText(statement);
}

QString NodeEdits::HeadOf(std::size_t node) const {
  return ShortName(
      ToQt(String(language::HeadOf(View(tree_.Text()), tree_.Nodes()[node]))).simplified());
}

// Returns false when the pages can't reproduce the statement. The dialog opens again until its text
// is valid or the person cancels.
bool NodeEdits::EditOnPages(std::size_t statement, std::size_t node) {
  const QString text = ToQt(language::TakeNode(View(tree_.Text()), tree_.Nodes(), statement));
  const reopen::Opening opening = OpeningOf(text, catalogue_);
  if (!opening.IsEqual()) return false;
  const int page = node == statement ? -1 : PageOf(tree_.Nodes()[node].kind);
  NodeComposer composer(catalogue_, text, opening, page, HeadOf(statement), *map_);
  bool isDone = false;
  do {
    isDone = composer.exec() == QDialog::Accepted;
  } while (isDone && !IsPutBack(statement, composer.Text(), composer));
  if (!isDone || !Make(change_, tr("Edit Statement"), statement)) map_->EndEdit();
  return true;
}

void NodeEdits::EditAsText(std::size_t statement) {
  const QString text = ToQt(language::TakeNode(View(tree_.Text()), tree_.Nodes(), statement));
  auto names = catalogue_.tables.empty() ? nullptr
                                         : std::make_unique<language::Names>(TableList(catalogue_),
                                                                             FieldList(catalogue_));
  const QString path = PathOf(map_);
  NodeText dialog(text, std::move(names), path + QStringLiteral(" > ") + HeadOf(statement), &tree_);
  bool isDone = false;
  do {
    isDone = dialog.exec() == QDialog::Accepted;
  } while (isDone && !IsPutBack(statement, dialog.Text(), dialog));
  if (!isDone || !Make(change_, tr("Edit Statement"), statement)) map_->EndEdit();
}

bool NodeEdits::IsPutBack(std::size_t statement, const QString& text, QWidget& dialog) {
  change_ = language::ReplaceNode(View(tree_.Text()), tree_.Nodes(), statement, View(text));
  if (change_.refusal == Refusal::kNone) return true;
  QMessageBox::warning(&dialog, dialog.windowTitle(), ReasonOf(change_.refusal));
  return false;
}

// Moving, copying, deleting.

void NodeEdits::MoveTo(std::size_t node, Place place) {
  if (!CanEdit()) return;
  Make(language::MoveNode(View(tree_.Text()), tree_.Nodes(), node, place), tr("Move Statement"),
       node);
}

// Moves the statement past its neighbour in that direction; without a neighbour there, out of its
// block. Where there is no block either, nothing happens.
void NodeEdits::MoveBy(bool up) {
  const std::size_t node = tree_.CurrentNode();
  if (node == Node::kNone) return;
  const std::vector<Node>& nodes = tree_.Nodes();
  Place place{Node::kNone, up ? Where::kBefore : Where::kBehind};
  const std::uint32_t parent = nodes[node].parent;
  if (up) {
    std::size_t other = parent == Node::kNone ? 0 : parent + 1;
    for (; other < node; other = nodes[other].behind)
      if (CanStandBeside(nodes[other])) place.node = other;
  } else {
    const std::size_t other = nodes[node].behind;
    if (other < nodes.size() && nodes[other].parent == parent && CanStandBeside(nodes[other]))
      place.node = other;
  }
  if (place.node == Node::kNone && parent != Node::kNone)
    place.node = language::StatementOf(nodes, parent);
  if (place.node != Node::kNone) MoveTo(node, place);
}

void NodeEdits::Copy() {
  const std::size_t node = tree_.CurrentNode();
  if (node == Node::kNone) return;
  QApplication::clipboard()->setText(
      ToQt(language::TakeNode(View(tree_.Text()), tree_.Nodes(), node)));
}

void NodeEdits::Cut() {
  const std::size_t node = tree_.CurrentNode();
  if (node == Node::kNone || !CanEdit()) return;
  const Change change = language::DeleteNode(View(tree_.Text()), tree_.Nodes(), node);
  if (change.refusal == Refusal::kNone) Copy();
  Make(change, tr("Cut Statement"));
}

void NodeEdits::Delete() {
  const std::size_t node = tree_.CurrentNode();
  if (node == Node::kNone || !CanEdit()) return;
  Make(language::DeleteNode(View(tree_.Text()), tree_.Nodes(), node), tr("Delete Statement"));
}

// Pastes behind the selected statement, or into the selected block.
void NodeEdits::Paste() {
  const std::size_t node = tree_.CurrentNode();
  Place place;
  if (node != Node::kNone) {
    const bool isBlock = IsBlock(tree_.Nodes()[node].kind);
    place.node = isBlock ? node : language::StatementOf(tree_.Nodes(), node);
    place.where = isBlock ? Where::kInto : Where::kBehind;
  }
  Insert(QApplication::clipboard()->text(), place);
}

void NodeEdits::Insert(const QString& text, Place place) {
  if (!CanEdit()) return;
  Make(language::InsertNodes(View(tree_.Text()), tree_.Nodes(), place, View(text)),
       tr("Paste Statement"));
}

std::size_t NodeEdits::NodeAt(const QModelIndex& index) const {
  return static_cast<const StatementModel&>(*tree_.View().model()).NodeOf(index);
}

// Dragging by the mouse. It is not Qt's drag and drop, because only the tree knows where a
// statement may stand.

bool NodeEdits::Drag(QEvent& event) {
  const QEvent::Type type = event.type();
  if (type != QEvent::MouseButtonPress && type != QEvent::MouseMove &&
      type != QEvent::MouseButtonRelease)
    return false;
  const auto& mouse = static_cast<const QMouseEvent&>(event);
  if (type == QEvent::MouseButtonPress) {
    EndDrag();
    const QModelIndex index = tree_.View().indexAt(mouse.pos());
    const bool begins = mouse.button() == Qt::LeftButton && index.isValid() && CanEdit() &&
                        tree_.View().visualRect(index).contains(mouse.pos());
    if (begins) dragged_ = NodeAt(index);
    pressedAt_ = mouse.pos();
  } else if (type == QEvent::MouseMove && dragged_ != Node::kNone) {
    const int way = (mouse.pos() - pressedAt_).manhattanLength();
    if (isDragging_ || way >= QApplication::startDragDistance()) DragOver(mouse.pos());
    return true;  // the rows on the way are not marked
  } else if (type == QEvent::MouseButtonRelease) {
    if (isDragging_) Drop((mouse.modifiers() & Qt::ControlModifier) != 0);
    EndDrag();
  }
  return false;
}

// Where a dropped statement goes: above or below the row under the mouse, or into its block.
Place NodeEdits::PlaceAt(const QPoint& at, QRect& shown) const {
  constexpr int kLine = 2;
  const QModelIndex index = tree_.View().indexAt({1, at.y()});
  const QRect row = tree_.View().visualRect(index);
  if (!index.isValid()) {
    shown = QRect(0, std::max(0, at.y()), tree_.View().viewport()->width(), kLine);
    return {};
  }
  const std::size_t node = NodeAt(index);
  const int below = at.y() - row.top();
  const bool isInto = HasStatements(tree_.Nodes()[node].kind) && 3 * below > row.height();
  if (isInto) {
    shown = row;
    return {node, Where::kInto};
  }
  const bool isAbove = 2 * below < row.height();
  shown = QRect(row.left(), isAbove ? row.top() : row.bottom(), row.width(), kLine);
  return {node, isAbove ? Where::kBefore : Where::kBehind};
}

void NodeEdits::DragOver(const QPoint& at) {
  isDragging_ = true;
  QRect shown;
  place_ = PlaceAt(at, shown);
  const bool isInto = place_.node != Node::kNone && place_.where == Where::kInto;
  dropMark_->setFrameShape(isInto ? QFrame::Box : QFrame::HLine);
  dropMark_->setGeometry(shown);
  dropMark_->show();
}

void NodeEdits::Drop(bool copies) {
  const std::size_t node = std::exchange(dragged_, Node::kNone);
  const Place place = place_;
  EndDrag();
  if (node >= tree_.Nodes().size()) return;
  if (copies) {
    Insert(ToQt(language::TakeNode(View(tree_.Text()), tree_.Nodes(), node)), place);
  } else {
    MoveTo(node, place);
  }
}

void NodeEdits::EndDrag() {
  dragged_ = Node::kNone;
  isDragging_ = false;
  dropMark_->hide();
}

bool NodeEdits::eventFilter(QObject* watched, QEvent* event) {
  if (watched == rows_) return Drag(*event);
  const bool isEscape = event->type() == QEvent::KeyPress &&
                        static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Escape;
  if (!isEscape || !isDragging_) return false;
  EndDrag();
  return true;
}

}  // namespace zolt20::composer
