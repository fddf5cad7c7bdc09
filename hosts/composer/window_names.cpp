// What the composer's window does when the rules meet another catalogue than the one that they were
// composed with.
#include <QAction>
#include <QScopedValueRollback>
#include <QStatusBar>
#include <algorithm>

#include "faces/qt/qt_text.h"
#include "hosts/composer/changed_names.h"
#include "hosts/composer/main_window.h"
#include "hosts/composer/names_strip.h"

namespace zolt20::composer {

using rules::NameLists;
using rules::NamesReview;
using rules::ReviewedName;

NameLists MainWindow::NamesNow() const {
  return {TableList(catalogue_), FieldList(catalogue_)};
}

NameLists MainWindow::NamesBefore() const {
  const auto& kept = rules_->Content().catalogue;
  return kept ? kept->lists : NameLists();
}

// Compares the catalogue with the names that the file of rules keeps. Names are open when rules use
// them and the catalogue has them no more, or with another type. The strip tells the person of open
// names. Without open names the next Save keeps the names of the catalogue. In a file without kept
// names no name is open; the check of a rule tells what the catalogue does not have.
void MainWindow::LookAtNames() {
  namesAreOpen_ = false;
  takeBackNames_->setEnabled(rules_ && rules_->CanTakeBackNames());
  if (!rules_ || catalogue_.tables.empty()) return names_->Tell(0, 0);
  const NamesReview review(rules_->Content(), NamesBefore(), NamesNow());
  const bool isKnown = rules_->Content().catalogue.has_value();
  const auto count =
      std::count_if(review.names().begin(), review.names().end(),
                    [](const ReviewedName& name) { return rules::IsOfCatalogue(name.change); });
  namesAreOpen_ = isKnown && count > 0;
  names_->Tell(namesAreOpen_ ? static_cast<std::size_t>(count) : 0, review.CountRules());
  if (!namesAreOpen_ && (isKnown || review.names().empty())) rules_->KeepNames(NamesNow());
}

void MainWindow::OfferNames() {
  names_->OfferAgain();
  LookAtNames();
}

void MainWindow::KeepNames() {
  if (!keepsNames_ || !rules_ || catalogue_.tables.empty()) return;
  if (namesAreOpen_) LookAtNames();  // the person may have put them right one by one
  if (!namesAreOpen_) rules_->KeepNames(NamesNow());
}

void MainWindow::ShowChangedNames() {
  const QString title = tr("Changed Names");
  if (!NeedCatalogue(title)) return;
  if (!rules_) return Complain(title, tr("There are no rules. Open some first.").toStdString());
  if (!MayLeaveRule()) return;
  NamesReview review(rules_->Content(), NamesBefore(), NamesNow());
  ChangedNamesWindow window(review, rules_->Content(), this);
  const int answer = window.exec();
  if (answer == QDialog::Accepted) ChangeNames(review);
  if (answer != ChangedNamesWindow::kLeaveAll) return;
  rules_->KeepNames(NamesNow());
  Save();
  LookAtNames();
}

// Makes all changes or none: when the file can't be saved, the rules in memory stay as well.
void MainWindow::ChangeNames(const NamesReview& review) {
  const std::size_t count = rules_->ChangeNames(review.Changes(), review.Names(), NamesNow());
  const QScopedValueRollback<bool> kept(keepsNames_, false);
  if (!Save()) {
    rules_->TakeBackNames();
    return ShowTitle();
  }
  LookAtNames();
  OpenRule(rule_);
  statusBar()->showMessage(
      tr("Rules with new names: %1. File / Take Back New Names undoes it.").arg(count), 10000);
}

void MainWindow::TakeBackNames() {
  if (!rules_ || !rules_->CanTakeBackNames() || !MayLeaveRule()) return;
  const std::size_t left = rules_->TakeBackNames();
  {
    // Saves the same bytes as before the change.
    const QScopedValueRollback<bool> kept(keepsNames_, false);
    Save();
  }
  OfferNames();
  OpenRule(rule_);
  statusBar()->showMessage(
      left == 0
          ? tr("The new names are taken back")
          : tr("The new names are taken back, but for rules that are others since: %1").arg(left),
      10000);
}

}  // namespace zolt20::composer
