#include "hosts/composer/main_window.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QMessageBox>
#include <QSplitter>
#include <QStatusBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "faces/qt/qt_text.h"
#include "hosts/kit/database.h"
#include "surface/surface.h"

namespace zolt20::composer {
namespace {

using qt::ToQt;
using qt::View;

QString RulesFilter() {
  return QStringLiteral("Rules (*.json);;All files (*)");
}

}  // namespace

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent) {
  MakePanes();
  MakeActions();
  MakeMap();
  ShowList();
  ShowTitle();
  resize(1160, 740);
}

void MainWindow::MakePanes() {
  list_ = new QListWidget;
  list_->setAccessibleName(QStringLiteral("Rules"));
  list_->setObjectName(QStringLiteral("rules"));
  // Once the click is over, since the person may say no.
  connect(list_, &QListWidget::itemSelectionChanged, this, &MainWindow::OpenChosenRule,
          Qt::QueuedConnection);
  auto* rulesLabel = new QLabel(QStringLiteral("Rules"));
  rulesLabel->setBuddy(list_);
  auto* rules = new QWidget;
  auto* rulesLayout = new QVBoxLayout(rules);
  rulesLayout->setContentsMargins(8, 8, 0, 8);
  rulesLayout->addWidget(rulesLabel);
  rulesLayout->addWidget(list_);
  rulesLayout->addLayout(buttons_ = new QHBoxLayout);

  heading_ = new QLabel;
  heading_->setTextFormat(Qt::PlainText);
  heading_->setObjectName(QStringLiteral("heading"));
  QFont bold = heading_->font();
  bold.setBold(true);
  heading_->setFont(bold);
  note_ = new QLabel;
  note_->setObjectName(QStringLiteral("note"));
  note_->setTextFormat(Qt::PlainText);
  note_->setWordWrap(true);
  auto* take = new QToolButton;
  take->setText(QStringLiteral("Take a Statement"));
  take->setObjectName(QStringLiteral("take"));
  take->setToolTip(QStringLiteral("Puts one select statement of the rule into the pages"));
  take->setPopupMode(QToolButton::InstantPopup);
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
  note_->setContentsMargins(8, 0, 8, 0);
  composing_->addWidget(note_);

  auto* split = new QSplitter;
  split->setChildrenCollapsible(false);
  split->addWidget(rules);
  split->addWidget(right);
  split->setStretchFactor(1, 1);
  split->setSizes({220, 940});
  setCentralWidget(split);
  statusBar();
}

void MainWindow::MakeActions() {
  QMenu* menu = nullptr;
  const auto add = [&](const char* text, const QKeySequence& keys, auto act) {
    auto* action = new QAction(QString::fromLatin1(text), this);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, act);
    menu->addAction(action);
    return action;
  };
  menu = menuBar()->addMenu(QStringLiteral("&File"));
  add("Open &Catalogue...", {}, [this] {
    const QString path = QFileDialog::getOpenFileName(
        this, QStringLiteral("Open Catalogue"), {},
        QStringLiteral("Catalogues and SQLite databases (*.json *.db *.sqlite *.sqlite3);;"
                       "All files (*)"));
    if (!path.isEmpty() && MayLeaveRule()) OpenCatalogue(path);
  });
  menu->addSeparator();
  add("&New Rules File...", {}, &MainWindow::NewRules);
  add("&Open Rules File...", QKeySequence::Open, &MainWindow::AskAndOpenRules);
  add("&Save", QKeySequence::Save, [this] { Save(); });
  add("Save &As...", QKeySequence::SaveAs, [this] { SaveAs(); });
  menu->addSeparator();
  add("&Export Text...", {}, &MainWindow::ExportText);
  add("Save Session &Record...", {}, &MainWindow::SaveRecord);
  menu->addSeparator();
  add("&Quit", QKeySequence::Quit, &QWidget::close);

  menu = menuBar()->addMenu(QStringLiteral("&Rule"));
  QAction* const fresh = add("&New", QKeySequence::New, &MainWindow::NewRule);
  ofRule_ = {add("&Rename...", Qt::Key_F2, &MainWindow::RenameRule),
             add("&Duplicate", Qt::CTRL | Qt::Key_D, &MainWindow::DuplicateRule),
             add("De&lete", {}, &MainWindow::DeleteRule)};
  for (QAction* action : {fresh, ofRule_[1], ofRule_[2]}) {
    auto* button = new QToolButton;
    button->setDefaultAction(action);
    buttons_->addWidget(button);
  }
  buttons_->addStretch(1);
  menu->addSeparator();
  add("&Copy Text", Qt::CTRL | Qt::SHIFT | Qt::Key_C, &MainWindow::CopyText);
}

void MainWindow::ShowTitle() {
  const QString file =
      rules_ ? QFileInfo(rules_->Path()).fileName() : QStringLiteral("no rules file");
  setWindowTitle(
      QStringLiteral("%1[*] - %2 - Composer")
          .arg(file, catalogueName_.isEmpty() ? QStringLiteral("no catalogue") : catalogueName_));
  setWindowModified(rules_ && rules_->IsChanged());
  heading_->setText(rule_.isEmpty() ? QStringLiteral("New rule") : rule_);
  for (QAction* action : ofRule_)
    action->setEnabled(!rule_.isEmpty());
}

// The catalogue.

bool MainWindow::OpenCatalogue(const QString& path) {
  const std::filesystem::path file = path.toStdU16String();
  QStringList leftOut;
  try {
    if (catalogue::IsDatabase(file)) {
      catalogue::DatabaseCatalogue read = catalogue::ReadDatabase(file);
      catalogue_ = std::move(read.catalogue);
      for (const std::string& line : read.leftOut)
        leftOut.append(QString::fromStdString(line));
    } else {
      catalogue_ = catalogue::ReadCatalogue(file);
    }
  } catch (const catalogue::CatalogueError& error) {
    Complain(QStringLiteral("Open Catalogue"), path.toStdString() + ": " + error.what());
    return false;
  }
  catalogueName_ = ToQt(catalogue_.name);
  OpenRule(rule_);
  if (!leftOut.isEmpty()) {
    QMessageBox message(QMessageBox::Information, QStringLiteral("Open Catalogue"),
                        QStringLiteral("Not all of %1 can be used.").arg(path), QMessageBox::Ok,
                        this);
    message.setInformativeText(QStringLiteral("Left out: %1").arg(leftOut.size()));
    message.setDetailedText(leftOut.join(u'\n'));
    message.exec();
  }
  return true;
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
    Complain(QStringLiteral("Open Rules"), error.what());
    return false;
  }
  if (!rules_->CanSave()) statusBar()->showMessage(QString::fromStdString(rules_->WhyNotSaved()));
  rule_ = rules_->rules().empty() ? QString() : ToQt(rules_->rules().front().name);
  ShowList();
  OpenRule(rule_);
  return true;
}

void MainWindow::NewRules() {
  const QString path =
      QFileDialog::getSaveFileName(this, QStringLiteral("New Rules File"), {}, RulesFilter(),
                                   nullptr, QFileDialog::DontConfirmOverwrite);
  if (path.isEmpty() || !MayLeaveRule() || !MayLeaveRules()) return;
  try {
    rules_.emplace(RulesFile::Create(path));
  } catch (const RulesError& error) {
    return Complain(QStringLiteral("New Rules File"), error.what());
  }
  rule_.clear();
  ShowList();
  OpenRule({});
}

void MainWindow::AskAndOpenRules() {
  const QString path =
      QFileDialog::getOpenFileName(this, QStringLiteral("Open Rules"), {}, RulesFilter());
  if (!path.isEmpty() && MayLeaveRule() && MayLeaveRules()) OpenRules(path);
}

bool MainWindow::Save() {
  if (!NeedRules()) return false;
  try {
    try {
      rules_->Save();
    } catch (const ChangedOnDisk& error) {
      QMessageBox message(QMessageBox::Warning, QStringLiteral("Save"),
                          QString::fromUtf8(error.what()), QMessageBox::Save | QMessageBox::Cancel,
                          this);
      message.button(QMessageBox::Save)->setText(QStringLiteral("Save Over It"));
      message.setDefaultButton(QMessageBox::Cancel);
      ShowTitle();
      if (message.exec() != QMessageBox::Save) return false;
      rules_->SaveOver();
    }
  } catch (const RulesError& error) {
    ShowTitle();
    Complain(QStringLiteral("Save"), error.what());
    return false;
  }
  ShowTitle();
  statusBar()->showMessage(QStringLiteral("Saved ") + rules_->Path(), 5000);
  return true;
}

bool MainWindow::SaveAs() {
  const QString path = QFileDialog::getSaveFileName(
      this, QStringLiteral("Save Rules As"), rules_ ? rules_->Path() : QString(), RulesFilter());
  if (path.isEmpty()) return false;
  try {
    if (rules_) {
      rules_->SaveAs(path);
    } else {
      const bool isNew = !QFileInfo::exists(path);
      rules_.emplace(isNew ? RulesFile::Create(path) : RulesFile::Open(path));
      ShowList();
      if (isNew) rules_->Save();
    }
  } catch (const RulesError& error) {
    Complain(QStringLiteral("Save Rules As"), error.what());
    return false;
  }
  ShowTitle();
  return true;
}

// A file for the rules, asked for when there is none yet.
bool MainWindow::NeedRules() {
  return rules_ || SaveAs();
}

bool MainWindow::MayLeaveRules() {
  if (!rules_ || !rules_->IsChanged()) return true;
  const auto answer = QMessageBox::question(
      this, QStringLiteral("Rules"),
      QStringLiteral("%1 has changes that are not saved.").arg(rules_->Path()),
      QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
  if (answer == QMessageBox::Save) return Save();
  return answer == QMessageBox::Discard;
}

// Rules.

void MainWindow::ShowList() {
  list_->clear();
  if (rules_) {
    for (const Rule& rule : rules_->rules()) {
      list_->addItem(ToQt(rule.name));
      if (ToQt(rule.name) == rule_) list_->setCurrentRow(list_->count() - 1);
    }
  }
  if (rule_.isEmpty()) list_->setCurrentRow(-1);
}

// A press beside the rows chooses nothing: then the rule that is open stays the chosen one.
void MainWindow::OpenChosenRule() {
  const QList<QListWidgetItem*> chosen = list_->selectedItems();
  if (chosen.isEmpty() && !rule_.isEmpty()) ShowList();
  if (!chosen.isEmpty() && chosen.front()->text() != rule_) OpenRule(chosen.front()->text());
}

// A name that is no rule's begins a new rule.
void MainWindow::OpenRule(const QString& name) {
  if (name != rule_ && !MayLeaveRule()) return ShowList();
  const Rule* rule = rules_ ? rules_->Find(View(name)) : nullptr;
  rule_ = rule == nullptr ? QString() : name;
  MakeMap();
  ShowNote({});
  if (rule != nullptr) FillPages(ToQt(rule->text));
  map_->Settle();
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
  const QString typed = QInputDialog::getText(this, title, QStringLiteral("Name of the rule"),
                                              QLineEdit::Normal, name, &isGiven);
  name = typed.trimmed();
  return isGiven;
}

void MainWindow::RenameRule() {
  QString name = rule_;
  if (rule_.isEmpty() || !AskName(QStringLiteral("Rename"), name) || name == rule_) return;
  try {
    rules_->Rename(View(rule_), View(name));
  } catch (const RulesError& error) {
    return Complain(QStringLiteral("Rename"), error.what());
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

void MainWindow::DeleteRule() {
  if (rule_.isEmpty()) return;
  if (QMessageBox::question(this, QStringLiteral("Delete"),
                            QStringLiteral("Delete the rule \"%1\"?").arg(rule_)) !=
      QMessageBox::Yes) {
    return;
  }
  rules_->Remove(View(rule_));
  rule_.clear();
  Save();
  OpenRule({});
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->setAccepted(MayLeaveRule() && MayLeaveRules());
}

// Texts that leave.

QString MainWindow::ShownText() const {
  const QString result = ToQt(map_->form().TxtOutput.Text());
  const Rule* rule = rules_ && !rule_.isEmpty() ? rules_->Find(View(rule_)) : nullptr;
  return result.isEmpty() && rule != nullptr ? ToQt(rule->text) : result;
}

void MainWindow::CopyText() {
  QApplication::clipboard()->setText(ShownText());
}

void MainWindow::ExportText() {
  const QString text = ShownText();
  const QByteArray utf8 = text.toUtf8();
  if (QString::fromUtf8(utf8) != text) {
    return Complain(QStringLiteral("Export"),
                    "The text holds half of a character and can't be written as UTF-8.");
  }
  const QString path = QFileDialog::getSaveFileName(this, QStringLiteral("Export Text"));
  if (!path.isEmpty()) WriteFile(path, utf8);
}

void MainWindow::SaveRecord() {
  const QString path =
      QFileDialog::getSaveFileName(this, QStringLiteral("Save Session Record"), {},
                                   QStringLiteral("Sessions (*.jsonl);;All files (*)"));
  if (!path.isEmpty()) WriteFile(path, map_->Record());
}

void MainWindow::WriteFile(const QString& path, const QByteArray& content) {
  try {
    WriteWholeFile(path, content);
  } catch (const RulesError& error) {
    Complain(QStringLiteral("Save"), error.what());
  }
}

void MainWindow::Complain(const QString& title, const std::string& text) {
  QMessageBox::warning(this, title, QString::fromStdString(text));
}

}  // namespace zolt20::composer
