// Where the names of a catalogue stand in all rules of a file, name by name, and which of them the
// catalogue has not. Leads to the places.
#pragma once

#include <QDialog>
#include <functional>
#include <vector>

#include "hosts/composer/find_in_rules.h"
#include "language/names.h"
#include "language/uses.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace zolt20::composer {

/// A name with all its places.
struct UsedName {
  QString name;
  language::UseKind kind = language::UseKind::kField;
  bool isMissing = false;  ///< the catalogue has it not, and it is meant as a name somewhere
  std::vector<FoundPlace> places;

  bool operator==(const UsedName&) const = default;
};

/// All names that rules use: tables in alphabetical order, each followed by its fields, then
/// functions. A field that is only found in quoted texts is listed, but never counts as missing.
/// With `names` null nothing counts as missing.
std::vector<UsedName> UsesInRules(const std::vector<RuleText>& rules, const language::Names* names);

/// The window for it. It stays open beside the composer's own.
class UsesWindow final : public QDialog {
  Q_OBJECT

 public:
  UsesWindow(FindWindow::Source rules, FindWindow::NamesSource names, QWidget* parent);

  /// With the focus on the line, and the uses as they are now.
  void Begin();

 signals:
  /// The person wants to see a place of the text of a rule.
  void Chosen(const QString& rule, std::size_t first, std::size_t length);

 protected:
  bool event(QEvent* event) override;

 private:
  void Read();
  void Show();
  void Add(const UsedName& used);
  void Choose(QTreeWidgetItem* item);

  FindWindow::Source rules_;
  FindWindow::NamesSource names_;
  QLineEdit* words_;
  QComboBox* which_;
  QLabel* told_;
  QTreeWidget* tree_;
  std::vector<UsedName> used_;
};

}  // namespace zolt20::composer
