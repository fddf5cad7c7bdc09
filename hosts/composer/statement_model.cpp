#include "hosts/composer/statement_model.h"

#include <QCoreApplication>
#include <algorithm>
#include <map>

#include "faces/qt/qt_text.h"
#include "hosts/composer/translations.h"
#include "language/explain.h"

namespace zolt20::composer {
namespace {

using language::Node;
using language::NodeKind;
using qt::ToQt;
using qt::View;

// Deeper statements get no rows, because tree views recurse into rows.
constexpr int kDeepest = 100;
// A longer head is cut; the tip shows all of it.
constexpr qsizetype kMostOfHead = 100;

bool IsRow(NodeKind kind) {
  switch (kind) {
    case NodeKind::kBlank:
    case NodeKind::kHead:
    case NodeKind::kMore:
    case NodeKind::kEnd:
    case NodeKind::kSelectList:  // the head of its select statement
      return false;
    default:
      return true;
  }
}

Mark MarkOf(language::Severity severity) {
  return severity == language::Severity::kError ? Mark::kError : Mark::kWarning;
}

}  // namespace

struct StatementModel::Item {
  Item* parent = nullptr;
  int row = 0;
  int level = 0;  // 0 for the root, which is no row
  std::uint32_t node = 0;
  std::uint32_t next = 0;  // its node in the text that comes
  Items children;
  std::vector<std::uint32_t> findings;
  QString note;
  Mark mark = Mark::kNone;
  Mark within = Mark::kNone;
};

StatementModel::StatementModel(QObject* parent)
    : QAbstractItemModel(parent), root_(std::make_unique<Item>()) {
  root_->node = root_->next = Node::kNone;
}

StatementModel::~StatementModel() = default;

// Removes rows while the old text is still set and inserts rows after the new one is, so that the
// model is consistent at each signal.
void StatementModel::SetText(const QString& text, bool anew) {
  std::vector<Node> nodes = language::ReadOutline(View(text));
  changed_.clear();
  items_.clear();
  if (anew) {
    beginResetModel();
    root_->children.clear();
    findings_.clear();
  } else {
    Drop(*root_, text, nodes);
  }
  text_ = text;
  nodes_ = std::move(nodes);
  lines_ = TextLines(View(text_));
  Renumber(*root_);
  if (anew) {
    Fill(*root_);
    endResetModel();
  } else {
    Insert(*root_);
  }
  items_.assign(nodes_.size(), nullptr);
  KeepPlaces(*root_);
  for (std::size_t node = 0; node < nodes_.size(); ++node) {
    if (items_[node] == nullptr && nodes_[node].parent != Node::kNone)
      items_[node] = items_[nodes_[node].parent];
  }
  if (!anew) TellChanged();
}

// The nodes that become child rows of a node, in order.
StatementModel::Numbers StatementModel::ShownWithin(const std::vector<Node>& nodes,
                                                    const Item& item, std::uint32_t node) const {
  Numbers shown;
  if (item.level >= kDeepest) return shown;
  const bool isRoot = node == Node::kNone;
  const auto end = isRoot ? static_cast<std::uint32_t>(nodes.size()) : nodes[node].behind;
  for (std::uint32_t at = isRoot ? 0 : node + 1; at < end; at = nodes[at].behind) {
    if (IsRow(nodes[at].kind)) shown.push_back(at);
  }
  return shown;
}

// Matches the child rows with the new nodes of the same kind, from the front and from the back:
// first while their heads are equal too, then with any heads. Removes the rows between, which have
// no match. Then does the same for the children of the rows that stay.
void StatementModel::Drop(Item& item, const QString& text, const std::vector<Node>& nodes) {
  const Numbers coming = ShownWithin(nodes, item, item.next);
  Items& rows = item.children;
  std::size_t front = 0;
  std::size_t rowsEnd = rows.size();
  std::size_t comingEnd = coming.size();
  const auto fits = [&](std::size_t row, std::size_t other, bool byHead) {
    const Node& was = nodes_[rows[row]->node];
    const Node& is = nodes[coming[other]];
    return was.kind == is.kind &&
           (!byHead || language::HeadOf(View(text_), was) == language::HeadOf(View(text), is));
  };
  const auto pair = [&](std::size_t row, std::size_t other, bool byHead) {
    rows[row]->next = coming[other];
    if (!byHead) changed_.push_back(rows[row].get());
  };
  for (const bool byHead : {true, false}) {
    for (; front < rowsEnd && front < comingEnd && fits(front, front, byHead); ++front)
      pair(front, front, byHead);
    for (; front < rowsEnd && front < comingEnd && fits(rowsEnd - 1, comingEnd - 1, byHead);)
      pair(--rowsEnd, --comingEnd, byHead);
  }
  if (front < rowsEnd) {
    beginRemoveRows(IndexOf(item), static_cast<int>(front), static_cast<int>(rowsEnd) - 1);
    rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(front),
               rows.begin() + static_cast<std::ptrdiff_t>(rowsEnd));
    for (std::size_t row = front; row < rows.size(); ++row)
      rows[row]->row = static_cast<int>(row);
    endRemoveRows();
  }
  for (const auto& child : rows)
    Drop(*child, text, nodes);
}

void StatementModel::Renumber(Item& item) {
  item.node = item.next;
  for (const auto& child : item.children)
    Renumber(*child);
}

// Inserts the missing child rows, which Drop left as one contiguous run.
void StatementModel::Insert(Item& item) {
  const Numbers shown = ShownWithin(nodes_, item, item.node);
  Items& rows = item.children;
  std::size_t front = 0;
  while (front < rows.size() && rows[front]->node == shown[front])
    ++front;
  const std::size_t count = shown.size() - rows.size();
  for (const auto& child : rows)
    Insert(*child);
  if (count == 0) return;
  Items fresh;
  for (std::size_t at = front; at < front + count; ++at) {
    auto& made = fresh.emplace_back(std::make_unique<Item>());
    made->parent = &item;
    made->level = item.level + 1;
    made->node = made->next = shown[at];
    Fill(*made);
  }
  beginInsertRows(IndexOf(item), static_cast<int>(front), static_cast<int>(front + count) - 1);
  rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(front),
              std::make_move_iterator(fresh.begin()), std::make_move_iterator(fresh.end()));
  for (std::size_t row = front; row < rows.size(); ++row)
    rows[row]->row = static_cast<int>(row);
  endInsertRows();
}

// Makes the items within an item. Sends no signals: either the item is not in the model yet, or the
// model is being reset.
void StatementModel::Fill(Item& item) {
  for (const std::uint32_t node : ShownWithin(nodes_, item, item.node)) {
    auto& made = item.children.emplace_back(std::make_unique<Item>());
    made->parent = &item;
    made->level = item.level + 1;
    made->row = static_cast<int>(item.children.size()) - 1;
    made->node = made->next = node;
    Fill(*made);
  }
}

void StatementModel::KeepPlaces(Item& item) {
  for (const auto& child : item.children) {
    items_[child->node] = child.get();
    KeepPlaces(*child);
  }
}

void StatementModel::TellChanged() {
  for (const Item* item : changed_) {
    const QModelIndex index = IndexOf(*item);
    emit dataChanged(index, index);
  }
  changed_.clear();
}

void StatementModel::SetFindings(std::vector<language::Finding> findings) {
  findings_ = std::move(findings);
  for (Item* item : items_) {
    if (item != nullptr) item->findings.clear();
  }
  for (std::size_t at = 0; at < findings_.size(); ++at) {
    Item* item = findings_[at].node < items_.size() ? items_[findings_[at].node] : nullptr;
    if (item != nullptr) item->findings.push_back(static_cast<std::uint32_t>(at));
  }
  SumMarks(*root_);
}

void StatementModel::SetNotes(const std::vector<language::NodeNote>& notes) {
  std::map<Item*, QString> noted;
  for (const language::NodeNote& note : notes) {
    const std::size_t node = language::NodeAt(nodes_, note.path);
    if (node >= items_.size() || items_[node] == nullptr) continue;
    QString& told = noted[items_[node]];
    if (!told.isEmpty()) told += u'\n';
    told += ToQt(note.note);
  }
  for (Item* item : items_) {
    if (item == nullptr || (item->note.isEmpty() && noted.empty())) continue;
    const auto found = noted.find(item);
    const QString note = found == noted.end() ? QString() : found->second;
    if (item->note == note) continue;
    item->note = note;
    const QModelIndex index = IndexOf(*item);
    emit dataChanged(index, index);
  }
}

void StatementModel::SumMarks(Item& item) {
  Mark mark = Mark::kNone;
  for (const std::uint32_t at : item.findings)
    mark = std::max(mark, MarkOf(findings_[at].severity));
  Mark within = Mark::kNone;
  for (const auto& child : item.children) {
    SumMarks(*child);
    within = std::max({within, child->mark, child->within});
  }
  const bool isSame = mark == item.mark && within == item.within;
  item.mark = mark;
  item.within = within;
  if (isSame || item.level == 0) return;
  const QModelIndex index = IndexOf(item);
  emit dataChanged(index, index);
}

// Places.

std::size_t StatementModel::NodeOf(const QModelIndex& index) const {
  return index.isValid() ? At(index).node : kNoNode;
}

QModelIndex StatementModel::IndexOf(std::size_t node) const {
  const Item* item = node < items_.size() ? items_[node] : nullptr;
  return item == nullptr ? QModelIndex() : IndexOf(*item);
}

// A binary search: nodes are in the order of the text, each before its children.
QModelIndex StatementModel::IndexAt(std::size_t place) const {
  const auto behind =
      std::upper_bound(nodes_.begin(), nodes_.end(), place,
                       [](std::size_t at, const Node& node) { return at < node.first; });
  if (behind == nodes_.begin()) return {};
  return IndexOf(static_cast<std::size_t>(behind - nodes_.begin()) - 1);
}

std::size_t StatementModel::EndOf(std::size_t node) const {
  std::size_t end = nodes_[node].last;
  while (end > nodes_[node].headFirst && text_[static_cast<qsizetype>(end) - 1].isSpace())
    --end;
  return end;
}

// The model.

StatementModel::Item* StatementModel::ItemOf(const QModelIndex& index) {
  return static_cast<Item*>(index.internalPointer());
}

const StatementModel::Item& StatementModel::At(const QModelIndex& index) const {
  return index.isValid() ? *ItemOf(index) : *root_;
}

QModelIndex StatementModel::IndexOf(const Item& item) const {
  if (item.level == 0) return {};
  return createIndex(item.row, 0, &item);
}

QModelIndex StatementModel::index(int row, int column, const QModelIndex& parent) const {
  if (!hasIndex(row, column, parent)) return {};
  return createIndex(row, column, At(parent).children[static_cast<std::size_t>(row)].get());
}

QModelIndex StatementModel::parent(const QModelIndex& index) const {
  return index.isValid() ? IndexOf(*At(index).parent) : QModelIndex();
}

int StatementModel::rowCount(const QModelIndex& parent) const {
  return static_cast<int>(At(parent).children.size());
}

int StatementModel::columnCount(const QModelIndex& /*parent*/) const {
  return 1;
}

QVariant StatementModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const Item& item = At(index);
  switch (role) {
    case Qt::DisplayRole:
      return HeadOf(item);
    case Qt::ToolTipRole:
      return TipOf(item);
    case Qt::AccessibleTextRole:
      return NameOfKind(nodes_[item.node].kind) + QStringLiteral(": ") + HeadOf(item);
    case Qt::AccessibleDescriptionRole:
      return SpokenOf(item);
    case kKindRole:
      return static_cast<int>(nodes_[item.node].kind);
    case kMarkRole:
      return static_cast<int>(item.mark);
    case kMarkWithinRole:
      return static_cast<int>(item.within);
    case kNoteRole:
      return item.note;
    default:
      return {};
  }
}

QString StatementModel::HeadOf(const Item& item) const {
  const StringView head = language::HeadOf(View(text_), nodes_[item.node]);
  QString words = ToQt(head.substr(0, 4 * kMostOfHead)).simplified();
  if (words.size() <= kMostOfHead) return words;
  return words.left(kMostOfHead) + QChar(0x2026);
}

// Escaped as HTML, because a tip that looks like HTML would be shown as such.
QString StatementModel::TipOf(const Item& item) const {
  QStringList lines{ToQt(language::Explain(View(text_), nodes_, item.node, Sentences()))};
  if (!item.findings.empty()) lines.append(ProblemsOf(item));
  if (!item.note.isEmpty()) lines.append(tr("Note: %1").arg(item.note));
  const QString tip = lines.join(u'\n').toHtmlEscaped().replace(u'\n', QStringLiteral("<br>"));
  return QStringLiteral("<qt>%1</qt>").arg(tip);
}

QString StatementModel::ProblemsOf(const Item& item) const {
  QStringList lines;
  for (const std::uint32_t at : item.findings)
    lines.append(ToQt(findings_[at].sentence));
  return lines.join(u'\n');
}

QString StatementModel::SpokenOf(const Item& item) const {
  const auto lineOf = [this](std::size_t place) { return lines_.At(place).line + 1; };
  const int first = lineOf(nodes_[item.node].headFirst);
  const std::size_t end = EndOf(item.node);
  const int last = lineOf(end > nodes_[item.node].headFirst ? end - 1 : end);
  QStringList told;
  told.append(first == last ? tr("Depth %1, line %2.").arg(item.level).arg(first)
                            : tr("Depth %1, begins in line %2, ends in line %3.")
                                  .arg(item.level)
                                  .arg(first)
                                  .arg(last));
  told.append(ToQt(language::Explain(View(text_), nodes_, item.node, Sentences())));
  if (!item.findings.empty()) told.append(tr("Problems: %1").arg(ProblemsOf(item)));
  if (!item.note.isEmpty()) told.append(tr("Note: %1").arg(item.note));
  if (item.within != Mark::kNone) told.append(tr("There are problems within it."));
  told.removeAll(QString());
  return told.join(u' ');
}

}  // namespace zolt20::composer
