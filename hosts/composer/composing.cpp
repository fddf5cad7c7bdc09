// The part of MainWindow that loads a rule into the control.
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "faces/qt/qt_text.h"
#include "hosts/composer/cut_label.h"
#include "hosts/composer/main_window.h"
#include "hosts/composer/node_edits.h"
#include "hosts/composer/note_strip.h"
#include "hosts/composer/opened_statement.h"
#include "hosts/composer/requests.h"
#include "hosts/composer/statements.h"
#include "language/reopen.h"
#include "surface/error.h"

namespace zolt20::composer {

using qt::ToQt;
using qt::View;

namespace {

constexpr int kSoonMilliseconds = 50;
constexpr int kRestMilliseconds = 150;
constexpr int kCharactersAMillisecond = 4000;

}  // namespace

void MainWindow::MakeMap() {
  delete map_;
  map_ = new RecordedMap(catalogue_);
  map_->KeepIn(*journal_);
  map_->setMinimumSize(240, 120);  // it scrolls, and leaves room for what is above it
  composing_->addWidget(map_, 1);
  ShowMap();
  AnswerRequests(*map_, catalogue_);
  nodeEdits_->Follow(*map_);
  // Updates once after several gestures that follow each other closely.
  auto* soon = new QTimer(map_);
  soon->setSingleShot(true);
  connect(soon, &QTimer::timeout, this, &MainWindow::ShowChanged);
  const auto begin = [soon] { soon->start(kSoonMilliseconds); };
  // While typing goes on, the update waits for a pause, which is longer for a longer text.
  connect(map_, &ZOLT20MapWidget::gestureMade, soon, [soon](const ZOLT20Gesture& gesture) {
    const qsizetype more = gesture.text.size() / kCharactersAMillisecond;
    const bool isTyped = gesture.verb == u"type" && gesture.goesOn;
    soon->start(isTyped ? kRestMilliseconds + static_cast<int>(more) : kSoonMilliseconds);
  });
  connect(map_, &ZOLT20MapWidget::undone, soon, begin);
  connect(map_, &ZOLT20MapWidget::redone, soon, begin);
  connect(map_, &ZOLT20MapWidget::eventDone, this, &MainWindow::OnDone);
  // Queued: the slot deletes the control that emits the event.
  connect(map_, &ZOLT20MapWidget::eventCancel, this, &MainWindow::Leave, Qt::QueuedConnection);
}

void MainWindow::ShowNote(const QString& note) {
  note_->setText(note);
}

// A single select statement fills the pages; any other text goes into the Result unchanged.
void MainWindow::FillPages(const QString& text) {
  const reopen::Reopened reopened = reopen::Reopen(View(text));
  try {
    if (reopened.rest.empty() || OpeningOf(text, catalogue_).IsEqual()) {
      TakeStatement(text);
    } else {
      PutResult(text);
    }
  } catch (const RuntimeError& error) {
    rule_.clear();  // half of it must not be stored over it
    Complain(tr("Open"), error);
  }
}

void MainWindow::TakeStatement(const QString& text) {
  const reopen::Reopened reopened = reopen::Reopen(View(text));
  const reopen::Opening opening = OpeningOf(text, catalogue_);
  TakeSteps(*map_, opening.steps);
  QStringList notes = NotesOn(opening);
  notes.append(MissingNames(text));
  if (!reopened.rest.empty() && !opening.IsEqual()) {
    notes.append(tr("This does not go into the pages: %1").arg(ToQt(reopened.rest)));
  }
  ShowNote(notes.join(u'\n'));
}

// Writes a text into the Result. The control must be able to take it (reopen::Encode).
void MainWindow::PutResult(const QString& text) {
  map_->Write("prpStroutput", ToQt(reopen::Encode(View(text))));
  ShowNote(tr(
      "The rule is more than one select statement and stands in the Result. Add To Result on the "
      "Select List page adds behind it; on the pages after that it replaces what is there."));
}

// Fills the pages from one statement of the rule and puts the whole rule into the Result.
void MainWindow::TakeIntoPages(const QString& text) {
  if (!MayLeaveRule()) return;
  QString whole = ToQt(rules_->Find(View(rule_))->text);
  if (IsReadOnly()) {
    // A read-only rule must not be overwritten, so this begins a new rule.
    rule_.clear();
    whole.clear();
    ShowForReading({});
    ShowList();
  }
  MakeMap();
  try {
    TakeStatement(text);
    const QString problems = note_->text();
    if (whole != text && !whole.isEmpty()) PutResult(whole);
    if (!problems.isEmpty() && problems != note_->text())
      ShowNote(problems + u'\n' + note_->text());
  } catch (const RuntimeError& error) {
    rule_.clear();
    Complain(tr("Open"), error);
  }
  map_->Settle(whole);
  if (const Rule* rule = OpenedRule()) TakeNotes(*rule);
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
  auto* button = findChild<QPushButton*>(QStringLiteral("take"));
  button->setEnabled(!statements_->isEmpty());
}

}  // namespace zolt20::composer
