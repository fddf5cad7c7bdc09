// What the composer's window does with the control: a rule comes into it and is stored from it.
#include <QAbstractButton>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "faces/qt/qt_text.h"
#include "hosts/composer/main_window.h"
#include "hosts/composer/requests.h"
#include "hosts/composer/statements.h"
#include "language/reopen.h"
#include "surface/error.h"

namespace zolt20::composer {

using qt::FromQt;
using qt::ToQt;
using qt::View;

void MainWindow::MakeMap() {
  delete map_;
  map_ = new RecordedMap(catalogue_);
  composing_->addWidget(map_, 1);
  AnswerRequests(*map_, catalogue_);
  connect(map_, &ZOLT20MapWidget::eventDone, this, &MainWindow::Store);
  // Behind the event, since the control goes away.
  connect(map_, &ZOLT20MapWidget::eventCancel, this, &MainWindow::Leave, Qt::QueuedConnection);
}

void MainWindow::ShowNote(const QString& note) {
  note_->setText(note);
  note_->setVisible(!note.isEmpty());
}

// One select statement goes into the pages, anything else into the Result.
void MainWindow::FillPages(const QString& text) {
  const reopen::Reopened reopened = reopen::Reopen(View(text));
  try {
    if (reopened.rest.empty()) {
      TakeStatement(text);
    } else {
      PutResult(text);
    }
  } catch (const RuntimeError& error) {
    rule_.clear();  // half of it must not be stored over it
    Complain(QStringLiteral("Open"), error.what());
  }
}

void MainWindow::TakeStatement(const QString& text) {
  const reopen::Reopened reopened = reopen::Reopen(View(text));
  for (const reopen::PartProperty& property : reopen::PartsInOrder()) {
    const String& value = reopened.parts.*property.part;
    if (!value.empty()) map_->Write(property.name, ToQt(value));
  }
  QStringList notes;
  for (const reopen::Problem& problem : reopened.problems) {
    notes.append(QStringLiteral("Line %1, column %2: %3")
                     .arg(problem.line)
                     .arg(problem.column)
                     .arg(QString::fromStdString(problem.message)));
  }
  for (const QString& code :
       ToQt(reopened.parts.prpSelectFromPart).split(u',', Qt::SkipEmptyParts)) {
    const bool isThere =
        std::any_of(catalogue_.tables.begin(), catalogue_.tables.end(),
                    [&](const catalogue::Table& table) { return ToQt(table.code) == code; });
    if (!isThere) notes.append(QStringLiteral("The catalogue has no table %1").arg(code));
  }
  if (!reopened.rest.empty()) {
    notes.append(QStringLiteral("This does not go into the pages: ") + ToQt(reopened.rest));
  }
  ShowNote(notes.join(u'\n'));
}

void MainWindow::PutResult(const QString& text) {
  if (reopen::FindUnsendable(View(text)) == StringView::npos) {
    map_->Write("prpStroutput", ToQt(reopen::Encode(View(text))));
    ShowNote(QStringLiteral(
        "The rule is more than one select statement and stands in the Result. Add To Result on the "
        "Select List page adds behind it; on the pages after that it replaces what is there."));
    return;
  }
  // What is composed now is another rule, so that nothing is written over this one.
  ShowNote(QStringLiteral("\"%1\" holds a text that the control can't take back. It stays as "
                          "it is; what is composed here is a new rule.")
               .arg(rule_));
  rule_.clear();
}

// The pages get the statement, the Result keeps the whole rule.
void MainWindow::TakeIntoPages(const QString& text) {
  if (!MayLeaveRule()) return;
  const QString whole = ToQt(rules_->Find(View(rule_))->text);
  MakeMap();
  try {
    TakeStatement(text);
    const QString problems = note_->text();
    if (whole != text) PutResult(whole);
    if (!problems.isEmpty()) ShowNote(problems + u'\n' + note_->text());
  } catch (const RuntimeError& error) {
    rule_.clear();
    Complain(QStringLiteral("Open"), error.what());
  }
  map_->Settle();
  ShowTitle();
}

void MainWindow::ShowStatements() {
  statements_->clear();
  const Rule* rule = rules_ && !rule_.isEmpty() ? rules_->Find(View(rule_)) : nullptr;
  if (rule != nullptr) {
    for (const SelectStatement& statement : SelectStatementsOf(rule->text)) {
      const QString text = ToQt(statement.text);
      const QString first = text.section(QStringLiteral("\r\n"), 0, 0).left(60);
      statements_->addAction(QStringLiteral("%1: %2")
                                 .arg(statement.line)
                                 .arg(QString(first).replace(u'&', QStringLiteral("&&"))),
                             this, [this, text] { TakeIntoPages(text); });
    }
  }
  auto* button = findChild<QToolButton*>(QStringLiteral("take"));
  button->setEnabled(!statements_->isEmpty());
}

// Within Done. False when the person thought better of it or it failed.
bool MainWindow::Store() {
  // Of a rule that was opened the pages hold the text until it is added.
  if (map_->form().TxtOutput.Text().empty()) {
    Complain(QStringLiteral("Store"), "The Result is empty. Add a statement to it first.");
    return false;
  }
  if (!NeedRules()) return false;
  QString name = rule_;
  if (name.isEmpty()) {
    name = QStringLiteral("Rule %1").arg(rules_->rules().size() + 1);
    do {
      if (!AskName(QStringLiteral("Store"), name)) return false;
      if (rules_->Find(View(name)) != nullptr) {
        Complain(QStringLiteral("Store"), "There is a rule of this name.");
      }
    } while (name.isEmpty() || rules_->Find(View(name)) != nullptr);
  }
  try {
    const QString text = map_->ReadResult();
    rules_->Put({FromQt(name), FromQt(text), FromQt(map_->prpstrSelectedFields())});
  } catch (const RuntimeError& error) {
    Complain(QStringLiteral("Store"), error.what());
    return false;
  }
  rule_ = name;
  map_->Settle();
  ShowStatements();
  ShowList();
  return Save();
}

void MainWindow::Leave() {
  if (MayLeaveRule()) OpenRule(rule_);
}

// Asks when something was composed that is not stored. What the person gives up counts as not
// stored until it is gone, since a further question may keep it.
bool MainWindow::MayLeaveRule() {
  if (!map_->IsChanged()) return true;
  const auto answer = QMessageBox::question(
      this, QStringLiteral("Rule"),
      QStringLiteral("What was composed for \"%1\" is not stored.").arg(heading_->text()),
      QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
  if (answer != QMessageBox::Save) return answer == QMessageBox::Discard;
  // By Done, which the control may refuse.
  map_->findChild<QAbstractButton*>(QStringLiteral("cmdDone"))->click();
  return !map_->IsChanged();
}

}  // namespace zolt20::composer
