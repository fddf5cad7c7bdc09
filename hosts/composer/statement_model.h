// The tree of a text of the statement language, as a model of Qt.
//
// The rows are the nodes of the outline that are statements or clauses; the opening and the closing
// line of a statement belong to its own row. Rows keep their identity while their text changes, so
// that collapsed rows stay collapsed.
#pragma once

#include <QAbstractItemModel>
#include <memory>
#include <vector>

#include "hosts/composer/statement_kinds.h"
#include "hosts/composer/text_lines.h"
#include "language/check.h"
#include "language/node_notes.h"
#include "language/outline.h"

namespace zolt20::composer {

class StatementModel final : public QAbstractItemModel {
  Q_OBJECT

 public:
  /// Stands for no node and for no row.
  static constexpr std::size_t kNoNode = language::Node::kNone;

  enum Role {
    kKindRole = Qt::UserRole,
    kMarkRole,        ///< the Mark of the row itself
    kMarkWithinRole,  ///< the worst Mark of the rows below it
    kNoteRole         ///< the note of the row, "" for none
  };

  explicit StatementModel(QObject* parent = nullptr);
  ~StatementModel() override;

  /// Shows another text. With `anew` all rows are new ones.
  void SetText(const QString& text, bool anew);
  /// Sets the problems of the text.
  void SetFindings(std::vector<language::Finding> findings);
  /// Sets the notes of the text.
  void SetNotes(const std::vector<language::NodeNote>& notes);

  const QString& Text() const { return text_; }
  const std::vector<language::Node>& Nodes() const { return nodes_; }
  const std::vector<language::Finding>& Findings() const { return findings_; }
  const TextLines& Lines() const { return lines_; }

  std::size_t NodeOf(const QModelIndex& index) const;
  /// The row of a node, or the row that contains the node.
  QModelIndex IndexOf(std::size_t node) const;
  /// The innermost row that contains this index of the text.
  QModelIndex IndexAt(std::size_t place) const;
  /// The end of a node without trailing blanks and line ends: the index behind its last character.
  std::size_t EndOf(std::size_t node) const;

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& index) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  struct Item;
  using Items = std::vector<std::unique_ptr<Item>>;
  using Numbers = std::vector<std::uint32_t>;

  static Item* ItemOf(const QModelIndex& index);
  const Item& At(const QModelIndex& index) const;
  QModelIndex IndexOf(const Item& item) const;

  Numbers ShownWithin(const std::vector<language::Node>& nodes, const Item& item,
                      std::uint32_t node) const;
  void Drop(Item& item, const QString& text, const std::vector<language::Node>& nodes);
  void Renumber(Item& item);
  void Insert(Item& item);
  void Fill(Item& item);
  void TellChanged();
  void KeepPlaces(Item& item);
  void SumMarks(Item& item);

  QString HeadOf(const Item& item) const;
  QString TipOf(const Item& item) const;
  QString SpokenOf(const Item& item) const;
  QString ProblemsOf(const Item& item) const;

  QString text_;
  TextLines lines_;
  std::vector<language::Node> nodes_;
  std::vector<language::Finding> findings_;
  std::unique_ptr<Item> root_;
  std::vector<Item*> items_;    // by node: its row, or the row that it is part of
  std::vector<Item*> changed_;  // whose heads are others now
};

}  // namespace zolt20::composer
