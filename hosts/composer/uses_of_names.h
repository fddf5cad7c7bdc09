// Uses of Names: all places in the rules of a file where a name of the catalogue is used, and the
// names that the catalogue does not have. Shows the place that the person chooses.
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

/// A name with all its uses.
struct UsedName {
  QString name;
  language::UseKind kind = language::UseKind::kField;
  bool isMissing = false;  ///< the catalogue does not have it, and a use is certainly a name
  std::vector<FoundPlace> places;

  bool operator==(const UsedName&) const = default;
};

/// All names that rules use: tables in alphabetical order, each followed by its fields, then
/// functions. A field that is found in quoted texts only is listed, but is never missing. With
/// `names` null no name is missing.
std::vector<UsedName> UsesInRules(const std::vector<RuleText>& rules, const language::Names* names);

/// The window of Uses of Names. It is not modal: it stays open beside the composer's window.
class UsesWindow final : public QDialog {
  Q_OBJECT

 public:
  UsesWindow(FindWindow::Source rules, FindWindow::NamesSource names, QWidget* parent);

  /// Reads the uses anew and gives the line for the filter the focus.
  void Begin();

 signals:
  /// The person chose a use: this part of the text of a rule.
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
