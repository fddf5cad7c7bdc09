// Two dialogs: the versions of a rule with the differences between two of them, and the deleted
// rules of a file. The caller restores what the person chose.
#pragma once

#include <QDialog>
#include <vector>

#include "hosts/composer/rules_file.h"

class QComboBox;
class QListWidget;
class QPushButton;

namespace zolt20::composer {

class RulePane;

/// A time of a file of rules in local time, for the person.
QString ShownTime(StringView stored);

class VersionsWindow final : public QDialog {
  Q_OBJECT

 public:
  /// `name` is that of a rule of the file.
  VersionsWindow(const RulesFile& rules, StringView name, QWidget* parent = nullptr);

  /// The version to restore, after the dialog was accepted.
  const Version& Chosen() const;

 private:
  void ShowDifference();

  std::vector<Version> versions_;  // the newest first, with the text of now
  QListWidget* list_;
  QComboBox* other_;
  RulePane* pane_;
  QPushButton* bringBack_;
};

class DeletedWindow final : public QDialog {
  Q_OBJECT

 public:
  explicit DeletedWindow(RulesFile& rules, QWidget* parent = nullptr);

  /// The name of the rule that was restored last, "" for none.
  const QString& BroughtBack() const { return broughtBack_; }
  /// Whether the bin has changed.
  bool IsChanged() const { return isChanged_; }

 private:
  void Fill();
  void ShowChosen();
  void BringBack();
  void Forget();
  /// The index of the chosen rule in the bin; -1 for none.
  int Chosen() const;

  RulesFile& rules_;
  std::vector<DeletedRule> bin_;
  QListWidget* list_;
  RulePane* pane_;
  QPushButton* bringBack_;
  QPushButton* forget_;
  QString broughtBack_;
  bool isChanged_ = false;
};

}  // namespace zolt20::composer
