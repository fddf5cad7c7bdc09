// What became of names in another catalogue than the rules were composed with, with all places in
// the rules: which new names are right, and which places get them, is the person's to decide.
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
  /// The dialog was ended by a button that leaves all names as they are, for good.
  static constexpr int kLeaveAll = 2;

  /// Both belong together, and stay as long as the dialog is there. Accepted, the review has what
  /// is to be changed.
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
