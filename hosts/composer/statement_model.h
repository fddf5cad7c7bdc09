// The tree of a text of the statement language, as a model of Qt.
//
// The rows are the nodes of the outline that a person takes for statements and clauses; the first
// and the last line of a statement belong to its row. A row stays the same one while its text
// changes, so that what is folded stays folded.
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
  /// For no node and for no row.
  static constexpr std::size_t kNoNode = language::Node::kNone;

  enum Role {
    kKindRole = Qt::UserRole,
    kMarkRole,        ///< a Mark: of the row itself
    kMarkWithinRole,  ///< the same of the rows within it
    kNoteRole         ///< the note of the row, "" for none
  };

  explicit StatementModel(QObject* parent = nullptr);
  ~StatementModel() override;

  /// The tree of another text. With `anew` no row is one of those before.
  void SetText(const QString& text, bool anew);
  /// What is wrong in the text.
  void SetFindings(std::vector<language::Finding> findings);
  /// The notes of the text, which go with it.
  void SetNotes(const std::vector<language::NodeNote>& notes);

  const QString& Text() const { return text_; }
  const std::vector<language::Node>& Nodes() const { return nodes_; }
  const std::vector<language::Finding>& Findings() const { return findings_; }
  const TextLines& Lines() const { return lines_; }

  std::size_t NodeOf(const QModelIndex& index) const;
  /// The row of a node, or the row that it is part of.
  QModelIndex IndexOf(std::size_t node) const;
  /// The innermost row that has this place of the text.
  QModelIndex IndexAt(std::size_t place) const;
  /// The text of a node without the blanks and line ends around it: behind its last character.
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
