#include "hosts/composer/changed_names.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "faces/qt/later.h"
#include "faces/qt/qt_text.h"
#include "hosts/composer/cut_label.h"
#include "hosts/composer/settings.h"
#include "hosts/composer/text_lines.h"

namespace zolt20::composer {
namespace {

using language::UsePlace;
using qt::FromQt;
using qt::ToQt;
using rules::NameChange;
using rules::ReviewedName;
using rules::ReviewedPlace;
using rules::TypeTrouble;

enum Column { kWhere, kWhat, kNew };
enum Data { kName = Qt::UserRole, kPlace };

constexpr unsigned kMostOpen = 200;    // places that are shown at once
constexpr qsizetype kMostShown = 200;  // characters of a line

QString TypeOf(StringView type, bool isFlagged) {
  QString word = ToQt(type);
  if (isFlagged) word = ChangedNamesWindow::tr("%1 with a flag").arg(word);
  return word;
}

QString WhatBecameOf(const NameChange& change) {
  if (!change.isGone) {
    return ChangedNamesWindow::tr("%1, was %2")
        .arg(TypeOf(change.typeNow, change.isFlagged),
             TypeOf(change.typeBefore, change.wasFlagged));
  }
  return change.wasThere ? ChangedNamesWindow::tr("gone")
                         : ChangedNamesWindow::tr("not in the catalogue");
}

QString Told(TypeTrouble trouble) {
  switch (trouble) {
    case TypeTrouble::kTextBesideNumber:
      return ChangedNamesWindow::tr("a text beside a number");
    case TypeTrouble::kNumberBesideText:
      return ChangedNamesWindow::tr("a number beside a text");
    case TypeTrouble::kPair:
      return ChangedNamesWindow::tr("a pair, and no flag any more");
    case TypeTrouble::kNoPair:
      return ChangedNamesWindow::tr("no pair, and a flag now");
    case TypeTrouble::kAggregate:
      return ChangedNamesWindow::tr("the sum of what is no number");
    default:
      return {};
  }
}

// The kind of a place where the name may mean something else; "" for a place that certainly uses
// the name.
QString KindOf(const rules::Change& change) {
  if (change.isInNote) return ChangedNamesWindow::tr("note");
  if (change.place == UsePlace::kString) return ChangedNamesWindow::tr("quoted text");
  if (change.place == UsePlace::kStatement && !change.isVariable)
    return ChangedNamesWindow::tr("plain statement");
  return {};
}

QString ShownLine(StringView text, std::size_t place) {
  return ToQt(LineAround(text, place)).simplified().left(kMostShown);
}

}  // namespace

ChangedNamesWindow::ChangedNamesWindow(rules::NamesReview& review,
                                       const rules::RulesContent& content, QWidget* parent)
    : QDialog(parent),
      review_(review),
      content_(content),
      told_(new QLabel),
      tree_(new QTreeWidget) {
  setWindowTitle(tr("Changed Names"));
  setObjectName(QStringLiteral("changedNames"));
  told_->setObjectName(QStringLiteral("changedNamesCounted"));
  told_->setWordWrap(true);
  tree_->setObjectName(QStringLiteral("names"));
  tree_->setAccessibleName(tr("Names and their places"));
  tree_->setHeaderLabels({tr("Place"), tr("What it is"), tr("New name")});
  tree_->header()->setStretchLastSection(false);
  tree_->header()->setSectionResizeMode(kWhat, QHeaderView::Stretch);
  tree_->header()->resizeSection(kWhere, 340);
  tree_->header()->resizeSection(kNew, 220);
  connect(tree_, &QTreeWidget::itemChanged, this, &ChangedNamesWindow::Take);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  change_ = buttons->button(QDialogButtonBox::Ok);
  leaveAll_ = buttons->addButton(tr("Leave All As It Is"), QDialogButtonBox::DestructiveRole);
  leaveAll_->setAutoDefault(false);
  connect(leaveAll_, &QPushButton::clicked, this, [this] { done(kLeaveAll); });
  connect(buttons, &QDialogButtonBox::accepted, this, &ChangedNamesWindow::ChangeNames);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(told_);
  layout->addWidget(tree_, 1);
  layout->addWidget(buttons);
  Fill();
  std::size_t places = 0;
  for (const ReviewedName& name : review_.names())
    places += name.places.size();
  if (places <= kMostOpen) tree_->expandAll();
  tree_->setCurrentItem(tree_->topLevelItem(0));
  ResizeWithinScreen(*this, {860, 520});
}

// Fills the tree anew; expanded items, the current item and the scroll position stay.
void ChangedNamesWindow::Fill() {
  const QSignalBlocker blocker(tree_);
  QSet<QString> open;
  for (int row = 0; row < tree_->topLevelItemCount(); ++row) {
    const QTreeWidgetItem& item = *tree_->topLevelItem(row);
    if (item.isExpanded()) open.insert(item.text(kWhere));
  }
  tree_->clear();
  for (std::size_t index = 0; index < review_.names().size(); ++index) {
    AddName(index);
    QTreeWidgetItem* item = tree_->topLevelItem(static_cast<int>(index));
    item->setExpanded(open.contains(item->text(kWhere)));
  }
  ShowCounts();
}

void ChangedNamesWindow::AddName(std::size_t index) {
  const ReviewedName& name = review_.names()[index];
  auto* item = new QTreeWidgetItem(tree_);
  item->setText(kWhere, ToQt(name.change.name));
  item->setText(kWhat, WhatBecameOf(name.change));
  item->setToolTip(kWhere, TipOf(ToQt(name.change.name)));
  item->setData(kWhere, kName, static_cast<qulonglong>(index));
  QFont bold = tree_->font();
  bold.setBold(true);
  item->setFont(kWhere, bold);
  if (name.change.isGone) tree_->setItemWidget(item, kNew, NewNamesOf(index));
  for (std::size_t place = 0; place < name.places.size(); ++place)
    AddPlace(*item, index, place);
}

void ChangedNamesWindow::AddPlace(QTreeWidgetItem& name, std::size_t index, std::size_t place) {
  const ReviewedPlace& reviewed = review_.names()[index].places[place];
  const rules::Change& change = reviewed.change;
  const rules::Rule& rule = content_.rules[change.rule];
  auto* item = new QTreeWidgetItem(&name);
  item->setText(kWhere, tr("%1, line %2, column %3")
                            .arg(ShortName(ToQt(rule.name)))
                            .arg(change.line)
                            .arg(change.column));
  const QString line =
      ShownLine(change.isInNote ? content_.extras[change.rule].note : rule.text, change.first);
  item->setText(kWhat, line);
  item->setToolTip(kWhat, TipOf(line));
  const QString trouble = Told(reviewed.trouble);
  item->setText(kNew, trouble.isEmpty() ? KindOf(change) : trouble);
  item->setData(kWhere, kName, static_cast<qulonglong>(index));
  item->setData(kWhere, kPlace, static_cast<qulonglong>(place));
  if (reviewed.CanChange())
    item->setCheckState(kWhere, change.isChosen ? Qt::Checked : Qt::Unchecked);
}

QComboBox* ChangedNamesWindow::NewNamesOf(std::size_t index) {
  const ReviewedName& name = review_.names()[index];
  auto* combo = new QComboBox;
  combo->setObjectName(QStringLiteral("newName"));
  combo->setAccessibleName(tr("New name of %1").arg(ToQt(name.change.name)));
  combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  combo->setMinimumContentsLength(12);
  combo->setFocusPolicy(Qt::StrongFocus);
  combo->installEventFilter(this);
  const std::size_t proposals = name.change.proposals.size();
  const std::vector<String> offered = review_.Offered(index);
  for (std::size_t i = 0; i <= offered.size(); ++i) {
    if (i == proposals) combo->addItem(tr("leave it"), QString());
    if (i < offered.size()) combo->addItem(ToQt(offered[i]), ToQt(offered[i]));
  }
  combo->setCurrentIndex(combo->findData(ToQt(name.chosen)));
  // Choosing fills the tree anew and deletes this combo, so it waits until the signal is over.
  connect(combo, &QComboBox::activated, this, [this, combo, index] {
    const QString after = combo->currentData().toString();
    qt::DoLater(*this, [this, index, after] { Choose(index, after); });
  });
  return combo;
}

// The wheel scrolls the tree; it must not change the combos that it passes.
bool ChangedNamesWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Wheel && qobject_cast<QComboBox*>(watched) != nullptr) {
    event->ignore();
    return true;
  }
  return QDialog::eventFilter(watched, event);
}

void ChangedNamesWindow::Choose(std::size_t index, const QString& after) {
  if (ToQt(review_.names()[index].chosen) == after) return;
  review_.Choose(index, FromQt(after));
  Fill();
  QTreeWidgetItem* item = tree_->topLevelItem(static_cast<int>(index));
  tree_->setCurrentItem(item);
  item->setExpanded(true);
  if (QWidget* combo = tree_->itemWidget(item, kNew)) combo->setFocus();
}

void ChangedNamesWindow::Take(QTreeWidgetItem* item, int column) {
  const QVariant place = item->data(kWhere, kPlace);
  if (column != kWhere || !place.isValid()) return;
  review_.Take(item->data(kWhere, kName).toULongLong(), place.toULongLong(),
               item->checkState(kWhere) == Qt::Checked);
  ShowCounts();
}

void ChangedNamesWindow::ShowCounts() {
  const std::size_t chosen = review_.CountChosen();
  told_->setText(review_.names().empty()
                     ? tr("All names of the rules are in the catalogue.")
                     : tr("Names: %1, in rules: %2. Places that get a new name: %3.")
                           .arg(review_.names().size())
                           .arg(review_.CountRules())
                           .arg(chosen));
  change_->setEnabled(chosen > 0);
  leaveAll_->setEnabled(!review_.names().empty());
}

void ChangedNamesWindow::ChangeNames() {
  if (MayMerge()) accept();
}

bool ChangedNamesWindow::MayMerge() {
  const String merged = rules::FindMerged(content_, review_.Changes(), review_.Names());
  if (merged.empty()) return true;
  QMessageBox message(
      QMessageBox::Warning, windowTitle(),
      tr("Two names would become %1, and could not be told apart again.").arg(ToQt(merged)),
      QMessageBox::NoButton, this);
  const QPushButton* change = message.addButton(tr("Change All the Same"), QMessageBox::AcceptRole);
  message.setDefaultButton(message.addButton(tr("Go On"), QMessageBox::RejectRole));
  message.exec();
  return message.clickedButton() == change;
}

}  // namespace zolt20::composer
