// The part of MainWindow that stores or leaves a rule, with the questions before that.
#include <QAbstractButton>
#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QStatusBar>

#include "faces/qt/later.h"
#include "faces/qt/qt_text.h"
#include "hosts/composer/cut_label.h"
#include "hosts/composer/journal.h"
#include "hosts/composer/main_window.h"
#include "hosts/composer/marked_lines.h"
#include "hosts/composer/rules_list.h"
#include "hosts/composer/taking_back.h"
#include "hosts/composer/translations.h"
#include "language/check.h"
#include "surface/error.h"

namespace zolt20::composer {
namespace {

using qt::FromQt;
using qt::ToQt;
using qt::View;

std::vector<language::Finding> MissingIn(const QString& text,
                                         const catalogue::Catalogue& catalogue) {
  const language::Names names(TableList(catalogue), FieldList(catalogue));
  std::vector<language::Finding> missing = language::Check(View(text), &names, Sentences());
  std::erase_if(missing, [](const language::Finding& finding) {
    return finding.mistake != language::Mistake::unknownTable &&
           finding.mistake != language::Mistake::unknownField;
  });
  return missing;
}

QString Told(const language::Finding& finding) {
  return QCoreApplication::translate("composer", "Line %1, column %2: %3")
      .arg(finding.line)
      .arg(finding.column)
      .arg(ToQt(finding.sentence));
}

}  // namespace

QStringList MainWindow::MissingNames(const QString& text) const {
  QStringList told;
  for (const language::Finding& finding : MissingIn(text, catalogue_))
    told.append(Told(finding));
  return told;
}

// Deferred: a dialog within the event would block it, and the control refuses gestures within an
// event.
void MainWindow::OnDone() {
  const QString text = ToQt(map_->form().TxtOutput.Text());
  const bool needsNoQuestion = !map_->PendingOnPages().Any() && LostNames(text).isEmpty() &&
                               !FindUntakeable(text, catalogue_);
  if (isAsked_ || needsNoQuestion) {
    isStored_ = Store();
    return;
  }
  qt::DoLater(*this, [this] { StoreRule(); });
}

bool MainWindow::StoreRule() {
  if (map_->PendingOnPages().Any()) {
    const Choice choice = AskOfPending(false);
    if (choice == Choice::kStay) return false;
    if (choice == Choice::kAdd) map_->AddPages();
  }
  return StoreUnasked();
}

// Stores without questions, by the click on Done, which the control may refuse.
bool MainWindow::StoreUnasked() {
  if (!MayStoreText()) return false;
  const QScopedValueRollback<bool> asked(isAsked_, true);
  isStored_ = false;
  map_->findChild<QAbstractButton*>(QStringLiteral("cmdDone"))->click();
  return isStored_;
}

// Asks when the text has problems. Returns whether to store it.
bool MainWindow::MayStoreText() {
  const QString text = ToQt(map_->form().TxtOutput.Text());
  if (!MayLoseNames(text)) return false;
  const std::optional<Untakeable> place = FindUntakeable(text, catalogue_);
  if (!place) return true;
  QMessageBox message(QMessageBox::Warning, tr("Store"),
                      tr("The control can't take this text back: it holds %1 at line %2, "
                         "column %3.")
                          .arg(place->what)
                          .arg(place->line)
                          .arg(place->column),
                      QMessageBox::NoButton, this);
  message.setInformativeText(
      tr("Stored, the rule can be read, copied and renamed, but not opened "
         "in the pages."));
  const QPushButton* store = message.addButton(tr("Store All the Same"), QMessageBox::AcceptRole);
  message.setDefaultButton(message.addButton(tr("Go On"), QMessageBox::RejectRole));
  message.exec();
  return message.clickedButton() == store;
}

// Names that the stored text uses, that the catalogue does not have, and that the new text would
// lose.
QStringList MainWindow::LostNames(const QString& text) const {
  QStringList lost;
  const Rule* rule = rules_ && !rule_.isEmpty() ? rules_->Find(View(rule_)) : nullptr;
  if (rule == nullptr || text.isEmpty()) return lost;
  const QString stored = ToQt(rule->text);
  for (const language::Finding& finding : MissingIn(stored, catalogue_)) {
    const QString name =
        stored.mid(static_cast<qsizetype>(finding.first), static_cast<qsizetype>(finding.length));
    if (!text.contains(name)) lost.append(Told(finding));
  }
  return lost;
}

bool MainWindow::MayLoseNames(const QString& text) {
  const QStringList lost = LostNames(text);
  if (lost.isEmpty()) return true;
  QMessageBox message(QMessageBox::Warning, tr("Store"),
                      tr("The text has lost what the catalogue does not have."),
                      QMessageBox::NoButton, this);
  message.setInformativeText(lost.mid(0, kMostMarkedLines).join(u'\n'));
  const QPushButton* store = message.addButton(tr("Store Without It"), QMessageBox::AcceptRole);
  message.setDefaultButton(message.addButton(tr("Go On"), QMessageBox::RejectRole));
  message.exec();
  return message.clickedButton() == store;
}

// Describes what stands on the pages only.
QString MainWindow::WhatIsPending() const {
  const RecordedMap::Pending pending = map_->PendingOnPages();
  QStringList told;
  if (pending.statement || pending.condition) {
    const Addition addition = map_->WhatAddDoes();
    if (addition.buttons.empty()) {
      told.append(tr("What is typed on the Condition page can't be added yet."));
    } else {
      told.append(tr("Add To Result would write:"));
      told.append(MarkedLines(map_->form().TxtOutput.Text(), addition.result));
    }
  }
  if (pending.loose) told.append(tr("The pages hold parts that Add To Result does not take."));
  if (pending.unapplied) told.append(tr("A condition on the Where page is not applied."));
  return told.join(u'\n');
}

MainWindow::Choice MainWindow::AskOfPending(bool leaving) {
  const bool isEmpty = map_->form().TxtOutput.Text().empty();
  const bool isAddable = !map_->WhatAddDoes().buttons.empty();
  QMessageBox message(QMessageBox::Question, leaving ? tr("Rule") : tr("Store"),
                      leaving ? tr("What was composed for \"%1\" is not stored.")
                                    .arg(rule_.isEmpty() ? tr("New rule") : ShortName(rule_))
                              : tr("The pages hold what is not in the Result."),
                      QMessageBox::NoButton, this);
  message.setTextFormat(Qt::PlainText);
  message.setInformativeText(WhatIsPending());
  const QPushButton* add =
      isAddable ? message.addButton(tr("Add and Store"), QMessageBox::AcceptRole) : nullptr;
  if (!isEmpty) message.addButton(tr("Store Without"), QMessageBox::DestructiveRole);
  const QPushButton* discard =
      leaving ? message.addButton(tr("Discard"), QMessageBox::DestructiveRole) : nullptr;
  QPushButton* stay = message.addButton(tr("Go On"), QMessageBox::RejectRole);
  message.setEscapeButton(stay);
  message.setDefaultButton(stay);
  message.exec();
  const QAbstractButton* chosen = message.clickedButton();
  if (chosen == nullptr || chosen == stay) return Choice::kStay;
  if (chosen == add) return Choice::kAdd;
  return chosen == discard ? Choice::kDiscard : Choice::kStore;
}

bool MainWindow::NeedName(QString& name) {
  if (!name.isEmpty()) return true;
  name = tr("Rule %1").arg(rules_->rules().size() + 1);
  do {
    if (!AskName(tr("Store"), name)) return false;
    if (rules_->Find(View(name)) != nullptr)
      Complain(tr("Store"), tr("There is a rule of this name.").toStdString());
  } while (name.isEmpty() || rules_->Find(View(name)) != nullptr);
  return true;
}

// Stores the rule within the event Done. Returns false when the person cancels or storing fails.
bool MainWindow::Store() {
  // An empty Result: the text of an opened rule is still on the pages.
  if (map_->form().TxtOutput.Text().empty()) {
    if (!rule_.isEmpty() && map_->IsChanged() && !map_->PendingOnPages().Any()) return StoreNotes();
    if (!rule_.isEmpty() && !map_->IsChanged()) {
      statusBar()->showMessage(tr("\"%1\" is as it was stored").arg(ShortName(rule_)), 5000);
      return false;
    }
    Complain(tr("Store"), tr("The Result is empty. Add a statement to it first.").toStdString());
    return false;
  }
  QString name = rule_;
  if (!NeedRules() || !NeedName(name)) return false;
  QString text;
  try {
    text = map_->ReadResult();
    PutRule({FromQt(name), FromQt(text), FromQt(map_->prpstrSelectedFields())});
  } catch (const RuntimeError& error) {
    Complain(tr("Store"), error);
    return false;
  }
  rule_ = name;
  map_->Settle(text);
  map_->TakeNotes(rules_->Find(View(name))->notes);
  ShowStatements();
  ShowList();
  return Save();
}

// Stores the rule with the notes on its nodes. Notes of removed nodes are appended to the note of
// the rule.
void MainWindow::PutRule(Rule rule) {
  map_->CarryNotes();
  String ofRule;
  for (const language::NodeNote& note : map_->NodeNotes()) {
    if (!note.path.empty()) {
      rule.notes.push_back(note);
    } else {
      if (!ofRule.empty()) ofRule += u'\n';
      ofRule += Concat(note.head, u": ", note.note);
    }
  }
  rules_->Put(rule);
  if (!ofRule.empty()) {
    const String& before = rules_->NoteOf(rule.name);
    rules_->SetNote(rule.name, before.empty() ? ofRule : Concat(before, u"\n", ofRule));
  }
  journal_->KeepStored(rule);
}

// Stores the notes alone, when the text is unchanged.
bool MainWindow::StoreNotes() {
  const Rule* rule = OpenedRule();
  if (rule == nullptr) return false;
  PutRule({rule->name, rule->text, rule->fields});
  map_->Settle(map_->StoredText());
  map_->TakeNotes(OpenedRule()->notes);
  return Save();
}

bool MainWindow::SaveAll() {
  return map_->IsChanged() ? StoreRule() : Save();
}

void MainWindow::Leave() {
  if (MayLeaveRule()) OpenRule(rule_);
}

// Changes that the person discards stay marked as unsaved until they are gone, because a later
// question may cancel leaving.
bool MainWindow::MayLeaveRule() {
  if (!map_->IsChanged()) return true;
  Choice choice = Choice::kStay;
  if (map_->PendingOnPages().Any()) {
    choice = AskOfPending(true);
  } else {
    QMessageBox message(QMessageBox::Question, tr("Rule"),
                        tr("What was composed for \"%1\" is not stored.")
                            .arg(rule_.isEmpty() ? tr("New rule") : ShortName(rule_)),
                        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    message.setTextFormat(Qt::PlainText);
    const QString lines = MarkedLines(View(map_->StoredText()), View(map_->NotedText()));
    message.setInformativeText(lines.isEmpty() ? tr("Notes of statements are others now.") : lines);
    message.setDefaultButton(QMessageBox::Save);
    const int answer = message.exec();
    if (answer == QMessageBox::Save) choice = Choice::kStore;
    if (answer == QMessageBox::Discard) choice = Choice::kDiscard;
  }
  if (choice == Choice::kAdd) map_->AddPages();
  if (choice == Choice::kDiscard || choice == Choice::kStay) return choice == Choice::kDiscard;
  StoreUnasked();
  return !map_->IsChanged();  // what the file did not take stands among its changes
}

void MainWindow::ShowChanged() {
  const bool isChanged = map_->IsChanged();
  setWindowModified(isChanged || (rules_ && rules_->IsChanged()));
  list_->MarkChanged(isChanged);
  ShowRuleText();
}

}  // namespace zolt20::composer
