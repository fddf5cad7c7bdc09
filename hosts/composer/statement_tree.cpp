#include "hosts/composer/statement_tree.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMetaMethod>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "faces/qt/later.h"
#include "faces/qt/qt_text.h"
#include "hosts/composer/problem_list.h"
#include "hosts/composer/translations.h"

namespace zolt20::composer {
namespace {

// The delay before a text is read grows with its length, so that typing stays fast.
constexpr int kCharactersAMillisecond = 1000;
constexpr int kRestMilliseconds = 400;

constexpr int kNoteWidth = 16;

int KeyOf(const QKeyEvent& event) {
  return event.keyCombination().toCombined() & ~static_cast<int>(Qt::KeypadModifier);
}

}  // namespace

// Draws the icon of the kind before the head. A collapsed row shows the worst mark of its children.
class StatementTree::Delegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void ForgetPictures() { pictures_.clear(); }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    const int kind = index.data(StatementModel::kKindRole).toInt();
    int mark = index.data(StatementModel::kMarkRole).toInt();
    const bool isFolded = (option->state & QStyle::State_Open) == 0;
    const bool isOpenMark = mark == 0 && isFolded;
    if (isOpenMark) mark = index.data(StatementModel::kMarkWithinRole).toInt();
    constexpr int kMarks = 3;
    QIcon& picture = pictures_[(kind * kMarks + mark) * 2 + (isOpenMark ? 1 : 0)];
    if (picture.isNull()) {
      picture = PictureOf(static_cast<language::NodeKind>(kind), static_cast<composer::Mark>(mark),
                          isOpenMark, option->palette);
    }
    option->icon = picture;
    option->features |= QStyleOptionViewItem::HasDecoration;
    option->decorationSize = {16, 16};
  }

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    const bool hasNote = !index.data(StatementModel::kNoteRole).toString().isEmpty();
    return hasNote ? size + QSize(kNoteWidth, 0) : size;
  }

  // The sign of a note is a sheet of paper with a folded corner, behind the head.
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    if (index.data(StatementModel::kNoteRole).toString().isEmpty()) return;
    const int right =
        option.rect.left() + QStyledItemDelegate::sizeHint(option, index).width() + kNoteWidth;
    const QRectF sheet(std::min(right, option.rect.right()) - kNoteWidth + 2.5,
                       option.rect.center().y() - 4.5, 9, 10);
    const QPolygonF outline({sheet.topLeft(), sheet.topRight(), sheet.bottomRight() - QPointF(0, 3),
                             sheet.bottomRight() - QPointF(3, 0), sheet.bottomLeft()});
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QColor(0x6B, 0x55, 0x00));
    painter->setBrush(QColor(0xFF, 0xE0, 0x66));
    painter->drawPolygon(outline);
    painter->restore();
  }

 private:
  mutable QHash<int, QIcon> pictures_;
};

StatementTree::StatementTree(QWidget* parent)
    : QWidget(parent),
      model_(new StatementModel(this)),
      view_(new QTreeView),
      delegate_(new Delegate(this)),
      problems_(new ProblemList),
      edit_(new QAction(tr("&Edit"), this)),
      soon_(new QTimer(this)),
      rested_(new QTimer(this)) {
  soon_->setSingleShot(true);
  connect(soon_, &QTimer::timeout, this, &StatementTree::Refresh);
  rested_->setSingleShot(true);
  rested_->setInterval(kRestMilliseconds);
  connect(rested_, &QTimer::timeout, this, &StatementTree::CheckNow);
  connect(problems_, &ProblemList::Chosen, this, &StatementTree::TellProblem);
  connect(edit_, &QAction::triggered, this, &StatementTree::RequestEdit);
  edit_->setShortcut(Qt::Key_F2);
  edit_->setShortcutContext(Qt::WidgetShortcut);
  MakeView();
  auto* label = new QLabel(tr("&Statements"));
  label->setBuddy(view_);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 8, 8, 8);
  layout->addWidget(label);
  layout->addWidget(view_, 3);
  layout->addWidget(problems_, 1);
  setFocusProxy(view_);
}

StatementTree::~StatementTree() = default;

void StatementTree::MakeView() {
  view_->setObjectName(QStringLiteral("statements"));
  view_->setAccessibleName(tr("Statements"));
  view_->setModel(model_);
  view_->setItemDelegate(delegate_);
  view_->setHeaderHidden(true);
  view_->setUniformRowHeights(true);
  view_->setExpandsOnDoubleClick(false);
  view_->setTabKeyNavigation(false);
  view_->setIndentation(14);
  view_->setMinimumSize(120, 40);
  view_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  view_->header()->setStretchLastSection(false);
  view_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  view_->setContextMenuPolicy(Qt::CustomContextMenu);
  view_->installEventFilter(this);
  view_->viewport()->installEventFilter(this);
  connect(view_, &QWidget::customContextMenuRequested, this, &StatementTree::ShowMenu);
  connect(view_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& now) {
            if (!isByProgram_) Tell(now);
          });
  connect(view_, &QAbstractItemView::clicked, this, &StatementTree::Tell);
  connect(view_, &QAbstractItemView::doubleClicked, this, &StatementTree::RequestEdit);
  connect(model_, &QAbstractItemModel::rowsInserted, this,
          [this](const QModelIndex& parent, int first, int last) {
            for (int row = first; row <= last; ++row)
              fresh_.append(model_->index(row, 0, parent));
          });
  connect(model_, &QAbstractItemModel::modelReset, view_, &QTreeView::expandAll);
}

// The text.

void StatementTree::TextChanged() {
  // Each change restarts the timer, so reading waits for a pause in typing.
  soon_->start(static_cast<int>(Text().size() / kCharactersAMillisecond));
}

void StatementTree::Refresh() {
  soon_->stop();
  if (!source_) return;
  Source source = source_();
  const bool isOther = source.rule != rule_;
  rule_ = source.rule;
  if (source.text == Text()) return;
  const QScopedValueRollback byProgram(isByProgram_, true);
  model_->SetText(source.text, isOther);
  Unfold();
  isChecked_ = false;
  rested_->start();
  emit Read();
}

void StatementTree::UseNames(std::unique_ptr<language::Names> names) {
  names_ = std::move(names);
  isChecked_ = false;
  rested_->start();
}

void StatementTree::CheckNow() {
  Refresh();
  rested_->stop();
  if (std::exchange(isChecked_, true)) return;
  model_->SetFindings(language::Check(qt::View(Text()), Nodes(), names_.get(), Sentences()));
  problems_->Show(Findings());
  view_->viewport()->update();
  emit Checked();
}

// Expands new rows; old rows stay expanded or collapsed.
void StatementTree::Unfold() {
  // expandAll is faster than expanding many rows one by one.
  constexpr qsizetype kMany = 50;
  const QList<QPersistentModelIndex> rows = std::exchange(fresh_, {});
  if (rows.size() > kMany) {
    QSet<QModelIndex> fresh;
    for (const QPersistentModelIndex& row : rows)
      fresh.insert(row);
    return UnfoldAllBut(fresh);
  }
  for (const QPersistentModelIndex& row : rows) {
    const QModelIndex around = row.parent();
    const bool isAlone = around.isValid() && model_->rowCount(around) == 1;
    if (isAlone) view_->expand(around);
    view_->expandRecursively(row);
  }
}

void StatementTree::UnfoldAllBut(const QSet<QModelIndex>& fresh) {
  QList<QModelIndex> folded;
  QList<QModelIndex> open{QModelIndex()};
  while (!open.isEmpty()) {
    const QModelIndex within = open.takeLast();
    for (int row = 0; row < model_->rowCount(within); ++row) {
      const QModelIndex index = model_->index(row, 0, within);
      if (model_->rowCount(index) == 0 || fresh.contains(index)) continue;
      if (!view_->isExpanded(index)) folded.append(index);
      open.append(index);
    }
  }
  view_->expandAll();
  for (const QModelIndex& index : folded)
    view_->collapse(index);
}

void StatementTree::ShowNotes(const std::vector<language::NodeNote>& notes) {
  model_->SetNotes(notes);
  view_->viewport()->update();
}

// Nodes.

std::size_t StatementTree::CurrentNode() const {
  return model_->NodeOf(view_->currentIndex());
}

void StatementTree::MarkNode(std::size_t node) {
  Mark(model_->IndexOf(node));
}

void StatementTree::MarkAt(std::size_t place) {
  Mark(model_->IndexAt(place));
}

// Selects a row, or its nearest visible parent when it is in a collapsed row.
void StatementTree::Mark(const QModelIndex& index) {
  QModelIndex seen = index;
  for (QModelIndex around = index.parent(); around.isValid(); around = around.parent()) {
    if (!view_->isExpanded(around)) seen = around;
  }
  if (seen == view_->currentIndex()) return;
  const QScopedValueRollback byProgram(isByProgram_, true);
  view_->setCurrentIndex(seen);
  if (seen.isValid()) view_->scrollTo(seen);
}

void StatementTree::Tell(const QModelIndex& index) {
  const QPersistentModelIndex kept(index);
  Refresh();
  if (!kept.isValid()) return;
  const std::size_t node = model_->NodeOf(kept);
  emit PlaceChosen(Nodes()[node].headFirst, model_->EndOf(node));
}

void StatementTree::TellProblem(std::size_t finding) {
  CheckNow();
  if (finding >= Findings().size()) return;
  const language::Finding& found = Findings()[finding];
  MarkNode(found.node);
  emit PlaceChosen(found.first, found.first + found.length);
}

void StatementTree::RequestEdit() {
  Refresh();
  const std::size_t node = CurrentNode();
  if (node != kNoNode) emit EditRequested(node);
}

// Keys and the menu.

void StatementTree::AddAction(QAction& action) {
  action.setShortcutContext(Qt::WidgetShortcut);
  view_->addAction(&action);
}

void StatementTree::ShowMenu(const QPoint& at) {
  if (!view_->currentIndex().isValid()) return;
  QMenu menu(this);
  if (isSignalConnected(QMetaMethod::fromSignal(&StatementTree::EditRequested)))
    menu.addAction(edit_);
  menu.addActions(view_->actions());
  menu.addSeparator();
  menu.addAction(tr("&Unfold All"), view_, &QTreeView::expandAll);
  menu.addAction(tr("&Fold All"), view_, &QTreeView::collapseAll);
  menu.exec(view_->viewport()->mapToGlobal(at));
}

// Some keys are shortcuts of the window's menus, too; while the tree has the focus they are its
// own.
bool StatementTree::TakeKey(QEvent& event) {
  const bool isAsked = event.type() == QEvent::ShortcutOverride;
  if (!isAsked && event.type() != QEvent::KeyPress) return false;
  const auto& key = static_cast<const QKeyEvent&>(event);
  const int pressed = KeyOf(key);
  QAction* meant = pressed == Qt::Key_Return || pressed == Qt::Key_Enter || pressed == Qt::Key_F2
                       ? edit_
                       : nullptr;
  for (QAction* action : view_->actions()) {
    if (action->isEnabled() && action->shortcuts().contains(QKeySequence(pressed))) meant = action;
  }
  if (meant == nullptr) return false;
  event.accept();
  if (!isAsked) meant->trigger();
  return true;
}

bool StatementTree::eventFilter(QObject* watched, QEvent* event) {
  if (watched == view_ && TakeKey(*event)) return true;
  // The column is at least as wide as the view, so that a selection spans the whole width.
  if (watched == view_->viewport() && event->type() == QEvent::Resize)
    view_->header()->setMinimumSectionSize(view_->viewport()->width());
  return QWidget::eventFilter(watched, event);
}

void StatementTree::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) {
    delegate_->ForgetPictures();
    if (isChecked_) {
      qt::DoLater(*this, [this] { Checked(); });
    }
  }
  QWidget::changeEvent(event);
}

}  // namespace zolt20::composer
