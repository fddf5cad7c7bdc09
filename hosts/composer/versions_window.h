// The texts that a rule had, with what changed between two of them, and the deleted rules of a
// file. Both are dialogs; what the person chose is done by the window.
#pragma once

#include <QDialog>
#include <vector>

#include "hosts/composer/rules_file.h"

class QComboBox;
class QListWidget;
class QPushButton;

namespace zolt20::composer {

class RulePane;

/// A time of a file of rules as a person reads it, in their own time.
QString ShownTime(StringView stored);

class VersionsWindow final : public QDialog {
  Q_OBJECT

 public:
  /// The rule is there.
  VersionsWindow(const RulesFile& rules, StringView name, QWidget* parent = nullptr);

  /// What is to be brought back, once the dialog was accepted.
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

  /// The name of the last rule that was brought back, "" for none.
  const QString& BroughtBack() const { return broughtBack_; }
  /// Whether the bin is another one now.
  bool IsChanged() const { return isChanged_; }

 private:
  void Fill();
  void ShowChosen();
  void BringBack();
  void Forget();
  /// The place of the chosen rule in the bin; -1 for none.
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
