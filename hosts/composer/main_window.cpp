#include "hosts/composer/main_window.h"

#include <QAction>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QSplitter>
#include <QStatusBar>
#include <QVBoxLayout>

#include "faces/qt/qt_text.h"
#include "hosts/composer/cut_label.h"
#include "hosts/composer/find_bar.h"
#include "hosts/composer/menu_key.h"
#include "hosts/composer/names_strip.h"
#include "hosts/composer/note_strip.h"
#include "hosts/composer/rules_list.h"
#include "hosts/composer/settings.h"
#include "hosts/composer/status_line.h"
#include "hosts/composer/translations.h"

namespace zolt20::composer {
namespace {

using qt::ToQt;
using qt::View;

QString RulesFilter() {
  return MainWindow::tr("Rules (*.json);;All files (*)");
}

}  // namespace

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent) {
  new MenuKey(this);
  journal_ = new Journal([this] { return HeadOfJournal(rule_); }, this);
  connect(journal_, &Journal::Troubled, this, &MainWindow::ShowJournalTrouble);
  MakePanes();
  MakeActions();
  MakeMap();
  ShowList();
  ShowTitle();
  ResizeWithinScreen(*this, {1160, 740});
}

void MainWindow::MakePanes() {
  list_ = new RulesList;
  connect(list_, &RulesList::Chosen, this, &MainWindow::OpenChosenRule);
  connect(list_, &RulesList::Moved, this, &MainWindow::MoveRule);

  heading_ = new CutLabel;
  heading_->setObjectName(QStringLiteral("heading"));
  QFont bold = heading_->font();
  bold.setBold(true);
  heading_->setFont(bold);
  note_ = new NoteStrip(QStringLiteral("note"));
  auto* take = new QPushButton;
  take->setText(tr("Take a Statement"));
  take->setObjectName(QStringLiteral("take"));
  take->setToolTip(tr("Puts one select statement of the rule into the pages"));
  take->setMenu(statements_ = new QMenu(take));
  auto* head = new QHBoxLayout;
  head->setContentsMargins(8, 8, 8, 0);
  head->addWidget(heading_, 1);
  head->addWidget(take);

  auto* right = new QWidget;
  composing_ = new QVBoxLayout(right);
  composing_->setContentsMargins(0, 0, 0, 0);
  composing_->setSpacing(4);
  composing_->addLayout(head);
  composing_->addWidget(note_);
  composing_->addWidget(names_ = new NamesStrip);
  connect(names_, &NamesStrip::Asked, this, &MainWindow::ShowChangedNames);
  composing_->addWidget(find_ = new FindBar);

  split_ = new QSplitter;
  split_->addWidget(MakeRulePane());
  split_->addWidget(right);
  split_->addWidget(MakeTree());
  split_->setCollapsible(1, false);
  split_->setCollapsible(2, false);
  split_->setStretchFactor(1, 1);
  split_->setSizes({220, 700, 240});
  setCentralWidget(split_);
  list_->setFocus();
  statusBar()->addPermanentWidget(status_ = new StatusLine(*this));
}

void MainWindow::ShowTitle() {
  const QString file = rules_ ? QFileInfo(rules_->Path()).fileName() : tr("no rules file");
  setWindowTitle(tr("%1[*] - %2 - Composer")
                     .arg(file, catalogueName_.isEmpty() ? tr("no catalogue") : catalogueName_));
  ShowChanged();
  heading_->setText(rule_.isEmpty() ? tr("New rule") : rule_);
  for (QAction* action : ofRule_)
    action->setEnabled(!rule_.isEmpty());
}

// The rules file.

bool MainWindow::OpenRules(const QString& path) {
  try {
    if (rules_ && QFileInfo(path) == QFileInfo(rules_->Path())) {
      rules_->Reload();  // its lock is ours
    } else {
      rules_.emplace(RulesFile::Open(path));
    }
  } catch (const RulesError& error) {
    Complain(tr("Open Rules"), error);
    return false;
  }
  journal_->Forget();
  if (!rules_->CanSave()) statusBar()->showMessage(QString::fromStdString(rules_->WhyNotSaved()));
  AddRecent(QStringLiteral("recent/rules"), path);
  rule_ = rules_->rules().empty() ? QString() : ToQt(rules_->rules().front().name);
  ShowList();
  OfferNames();
  OpenRule(rule_);
  OfferJournals();
  return true;
}

void MainWindow::NewRules() {
  const QString path = QFileDialog::getSaveFileName(this, tr("New Rules File"), {}, RulesFilter(),
                                                    nullptr, QFileDialog::DontConfirmOverwrite);
  if (path.isEmpty() || !MayLeaveRule() || !MayLeaveRules()) return;
  try {
    rules_.emplace(RulesFile::Create(path));
  } catch (const RulesError& error) {
    return Complain(tr("New Rules File"), error);
  }
  journal_->Forget();
  rule_.clear();
  ShowList();
  OfferNames();
  OpenRule({});
}

void MainWindow::AskAndOpenRules() {
  const QString path = QFileDialog::getOpenFileName(this, tr("Open Rules"), {}, RulesFilter());
  if (!path.isEmpty() && MayLeaveRule() && MayLeaveRules()) OpenRules(path);
}

bool MainWindow::Save() {
  if (!NeedRules()) return false;
  KeepNames();
  try {
    try {
      rules_->Save();
    } catch (const ChangedOnDisk& error) {
      QMessageBox message(QMessageBox::Warning, tr("Save"), Translated(error),
                          QMessageBox::Save | QMessageBox::Cancel, this);
      message.button(QMessageBox::Save)->setText(tr("Save Over It"));
      message.setDefaultButton(QMessageBox::Cancel);
      ShowTitle();
      if (message.exec() != QMessageBox::Save) return false;
      rules_->SaveOver();
    }
  } catch (const RulesError& error) {
    ShowTitle();
    Complain(tr("Save"), error);
    return false;
  }
  journal_->TakeSaved(!map_->IsChanged());
  ShowTitle();
  statusBar()->showMessage(tr("Saved %1").arg(rules_->Path()), 5000);
  return true;
}

bool MainWindow::SaveAs() {
  const QString path = QFileDialog::getSaveFileName(
      this, tr("Save Rules As"), rules_ ? rules_->Path() : QString(), RulesFilter());
  if (path.isEmpty()) return false;
  try {
    if (rules_) {
      KeepNames();
      rules_->SaveAs(path);
    } else {
      const bool isNew = !QFileInfo::exists(path);
      rules_.emplace(isNew ? RulesFile::Create(path) : RulesFile::Open(path));
      ShowList();
      OfferNames();
      if (isNew) rules_->Save();
    }
  } catch (const RulesError& error) {
    Complain(tr("Save Rules As"), error);
    return false;
  }
  journal_->TakeSaved(!map_->IsChanged());
  ShowTitle();
  return true;
}

// Ensures that a file of rules is open; asks for one if necessary. Returns false when the person
// cancels.
bool MainWindow::NeedRules() {
  return rules_ || SaveAs();
}

bool MainWindow::MayLeaveRules() {
  if (!rules_ || !rules_->IsChanged()) return true;
  const auto answer = QMessageBox::question(
      this, tr("Rules"), tr("%1 has changes that are not saved.").arg(rules_->Path()),
      QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
  if (answer == QMessageBox::Save) return Save();
  return answer == QMessageBox::Discard;
}

// Rules.

void MainWindow::ShowList() {
  QStringList names;
  if (rules_) {
    for (const Rule& rule : rules_->rules())
      names.append(ToQt(rule.name));
  }
  list_->Show(names, rule_);
}

void MainWindow::OpenChosenRule(const QString& name) {
  if (name != rule_) OpenRule(name);
}

// Opens the rule of that name, or begins a new rule when there is none.
void MainWindow::OpenRule(const QString& name) {
  if (name != rule_ && !MayLeaveRule()) return ShowList();
  const Rule* rule = rules_ ? rules_->Find(View(name)) : nullptr;
  rule_ = rule == nullptr ? QString() : name;
  MakeMap();
  ShowNote({});
  ShowForReading(rule == nullptr ? QString() : ToQt(rule->text));
  if (rule != nullptr && !IsReadOnly()) FillPages(ToQt(rule->text));
  map_->Settle(rule == nullptr ? QString() : ToQt(rule->text));
  if (rule != nullptr) TakeNotes(*rule);
  ShowStatements();
  ShowList();
  ShowTitle();
}

void MainWindow::NewRule() {
  if (!MayLeaveRule()) return;
  rule_.clear();
  OpenRule({});
}

bool MainWindow::AskName(const QString& title, QString& name) {
  bool isGiven = false;
  const QString typed =
      QInputDialog::getText(this, title, tr("Name of the rule"), QLineEdit::Normal, name, &isGiven);
  name = typed.trimmed();
  return isGiven;
}

void MainWindow::RenameRule() {
  QString name = rule_;
  if (rule_.isEmpty() || !AskName(tr("Rename"), name) || name == rule_) return;
  try {
    rules_->Rename(View(rule_), View(name));
  } catch (const RulesError& error) {
    return Complain(tr("Rename"), error);
  }
  rule_ = name;
  ShowList();
  Save();
}

void MainWindow::DuplicateRule() {
  if (rule_.isEmpty() || !MayLeaveRule()) return;
  rule_ = ToQt(rules_->Duplicate(View(rule_)));
  Save();
  OpenRule(rule_);
}

// Asks nothing, because the rule can be restored from the bin.
void MainWindow::DeleteRule() {
  if (rule_.isEmpty() || !MayLeaveRule()) return;
  const QString name = rule_;
  rules_->Remove(View(name));
  rule_.clear();
  const bool isSaved = Save();
  OpenRule({});
  if (isSaved)
    statusBar()->showMessage(tr("\"%1\" is in Rule / Deleted Rules now").arg(name), 10000);
}

// Asks nothing, because only the order changes. When saving fails, the old order stays.
void MainWindow::MoveRule(const QString& name, int place) {
  try {
    rules_->Move(View(name), static_cast<std::size_t>(place));
  } catch (const RulesError& error) {
    Complain(tr("Move"), error);
  }
  ShowList();
  Save();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->setAccepted(MayLeaveRule() && MayLeaveRules());
  if (event->isAccepted()) journal_->Forget();
  if (event->isAccepted()) KeepSettings();
}

void MainWindow::Complain(const QString& title, const std::string& text) {
  QMessageBox::warning(this, title, QString::fromStdString(text));
}

void MainWindow::Complain(const QString& title, const std::exception& error) {
  QMessageBox::warning(this, title, Translated(error));
}

}  // namespace zolt20::composer
