#include "hosts/composer/versions_window.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QDateTime>
#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>
#include <algorithm>

#include "faces/qt/qt_text.h"
#include "hosts/composer/cut_label.h"
#include "hosts/composer/rule_pane.h"
#include "hosts/composer/settings.h"

namespace zolt20::composer {

using qt::ToQt;

QString ShownTime(StringView stored) {
  const QDateTime time = QDateTime::fromString(ToQt(stored), Qt::ISODate);
  return time.isValid() ? time.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))
                        : QCoreApplication::translate("composer", "time unknown");
}

VersionsWindow::VersionsWindow(const RulesFile& rules, StringView name, QWidget* parent)
    : QDialog(parent),
      versions_(rules.VersionsOf(name)),
      list_(new QListWidget),
      other_(new QComboBox),
      pane_(new RulePane(tr("What changed"))) {
  const Rule& rule = *rules.Find(name);
  versions_.push_back({rule.text, rule.fields, rules.StoredAt(name)});
  std::reverse(versions_.begin(), versions_.end());
  setWindowTitle(tr("Versions of %1").arg(ShortName(ToQt(name))));
  list_->setAccessibleName(tr("Versions"));
  list_->setObjectName(QStringLiteral("versions"));
  other_->setAccessibleName(tr("Compared with"));
  other_->setObjectName(QStringLiteral("comparedWith"));
  for (const Version& version : versions_) {
    const QString time = ShownTime(version.stored);
    const QString text = list_->count() == 0 ? tr("%1 (now)").arg(time) : time;
    list_->addItem(text);
    other_->addItem(text);
  }
  auto* left = new QWidget;
  auto* column = new QVBoxLayout(left);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(list_, 1);
  column->addWidget(new QLabel(tr("Compared with")));
  column->addWidget(other_);
  auto* split = new QSplitter;
  split->addWidget(left);
  split->addWidget(pane_);
  split->setStretchFactor(1, 1);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  bringBack_ = buttons->addButton(tr("Bring Back"), QDialogButtonBox::AcceptRole);
  bringBack_->setAutoDefault(false);
  bringBack_->setObjectName(QStringLiteral("bringBack"));
  buttons->button(QDialogButtonBox::Close)->setDefault(true);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(split, 1);
  layout->addWidget(buttons);
  pane_->AddFindBar();
  pane_->Name(ToQt(name));
  // Selecting a version compares it with the one before it.
  connect(list_, &QListWidget::currentRowChanged, this, [this](int row) {
    other_->setCurrentIndex(std::min(row + 1, other_->count() - 1));
    ShowDifference();
  });
  connect(other_, &QComboBox::currentIndexChanged, this, &VersionsWindow::ShowDifference);
  list_->setCurrentRow(0);
  ResizeWithinScreen(*this, {720, 440});
}

const Version& VersionsWindow::Chosen() const {
  return versions_[static_cast<std::size_t>(list_->currentRow())];
}

// Shows the difference from the older to the newer of the two versions.
void VersionsWindow::ShowDifference() {
  const int chosen = list_->currentRow();
  const int other = other_->currentIndex();
  if (chosen < 0 || other < 0) return;
  const auto textOf = [this](int row) {
    return ToQt(versions_[static_cast<std::size_t>(row)].text);
  };
  pane_->Show(textOf(std::max(chosen, other)), textOf(std::min(chosen, other)));
  bringBack_->setEnabled(chosen > 0);
}

// The bin.

DeletedWindow::DeletedWindow(RulesFile& rules, QWidget* parent)
    : QDialog(parent), rules_(rules), list_(new QListWidget), pane_(new RulePane(tr("Text"))) {
  setWindowTitle(tr("Deleted Rules"));
  list_->setAccessibleName(tr("Deleted rules"));
  list_->setObjectName(QStringLiteral("deleted"));
  auto* split = new QSplitter;
  split->addWidget(list_);
  split->addWidget(pane_);
  split->setStretchFactor(1, 1);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  bringBack_ = buttons->addButton(tr("Bring Back"), QDialogButtonBox::ActionRole);
  forget_ = buttons->addButton(tr("Delete for Good"), QDialogButtonBox::DestructiveRole);
  for (QPushButton* button : {bringBack_, forget_})
    button->setAutoDefault(false);
  buttons->button(QDialogButtonBox::Close)->setDefault(true);
  connect(bringBack_, &QPushButton::clicked, this, &DeletedWindow::BringBack);
  connect(forget_, &QPushButton::clicked, this, &DeletedWindow::Forget);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(list_, &QListWidget::currentRowChanged, this, &DeletedWindow::ShowChosen);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(split, 1);
  layout->addWidget(buttons);
  pane_->AddFindBar();
  Fill();
  ResizeWithinScreen(*this, {640, 400});
}

// Lists the rules in the bin, the last deleted one first.
void DeletedWindow::Fill() {
  bin_ = rules_.Bin();
  list_->clear();
  for (const DeletedRule& deleted : bin_)
    list_->insertItem(0, ToQt(deleted.rule.name) + u'\n' + ShownTime(deleted.deleted));
  list_->setCurrentRow(bin_.empty() ? -1 : 0);
  ShowChosen();
}

int DeletedWindow::Chosen() const {
  const int row = list_->currentRow();
  return row < 0 ? -1 : static_cast<int>(bin_.size()) - 1 - row;
}

void DeletedWindow::ShowChosen() {
  const int chosen = Chosen();
  const QString text =
      chosen < 0 ? QString() : ToQt(bin_[static_cast<std::size_t>(chosen)].rule.text);
  pane_->Show(text, text);
  pane_->Name(chosen < 0 ? QString() : ToQt(bin_[static_cast<std::size_t>(chosen)].rule.name));
  bringBack_->setEnabled(chosen >= 0);
  forget_->setEnabled(chosen >= 0);
}

void DeletedWindow::BringBack() {
  broughtBack_ = ToQt(rules_.BringBack(static_cast<std::size_t>(Chosen())));
  isChanged_ = true;
  Fill();
}

void DeletedWindow::Forget() {
  const auto chosen = static_cast<std::size_t>(Chosen());
  const auto answer = QMessageBox::question(
      this, windowTitle(),
      tr("Delete \"%1\" for good?").arg(ShortName(ToQt(bin_[chosen].rule.name))),
      QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
  if (answer != QMessageBox::Yes) return;
  rules_.Forget(chosen);
  isChanged_ = true;
  Fill();
}

}  // namespace zolt20::composer
