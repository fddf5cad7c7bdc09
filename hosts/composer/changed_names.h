// A dialog about names of the rules that the catalogue does not have any more. It proposes new
// names and lists every place in the rules. The person decides which new names are right and which
// places are changed.
#pragma once

#include <QDialog>
#include <QSet>

#include "hosts/kit/names_review.h"

class QComboBox;
class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace zolt20::composer {

class ChangedNamesWindow final : public QDialog {
  Q_OBJECT

 public:
  /// The result of the dialog when the person chose to leave all names as they are from now on.
  static constexpr int kLeaveAll = 2;

  /// `review` was made of `content`, and both outlive the dialog. When the dialog is accepted,
  /// `review` has the chosen changes.
  ChangedNamesWindow(rules::NamesReview& review, const rules::RulesContent& content,
                     QWidget* parent = nullptr);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Fill();
  void AddName(std::size_t index);
  void AddPlace(QTreeWidgetItem& name, std::size_t index, std::size_t place);
  QComboBox* NewNamesOf(std::size_t index);
  void Choose(std::size_t index, const QString& after);
  void Take(QTreeWidgetItem* item, int column);
  void ShowCounts();
  void ChangeNames();
  bool MayMerge();

  rules::NamesReview& review_;
  const rules::RulesContent& content_;
  QLabel* told_;
  QTreeWidget* tree_;
  QPushButton* change_;
  QPushButton* leaveAll_;
};

}  // namespace zolt20::composer
