// What the composer's window shows of a rule beside the control: its text, its versions, its note,
// and the rules that were deleted.
#include <QAction>
#include <QInputDialog>
#include <QSplitter>
#include <QStatusBar>
#include <QVBoxLayout>
#include <algorithm>

#include "faces/qt/qt_text.h"
#include "hosts/composer/find_in_rules.h"
#include "hosts/composer/journal.h"
#include "hosts/composer/main_window.h"
#include "hosts/composer/node_edits.h"
#include "hosts/composer/rule_pane.h"
#include "hosts/composer/rules_list.h"
#include "hosts/composer/statement_places.h"
#include "hosts/composer/taking_back.h"
#include "hosts/composer/uses_of_names.h"
#include "hosts/composer/versions_window.h"

namespace zolt20::composer {

using qt::FromQt;
using qt::ToQt;
using qt::View;

QWidget* MainWindow::MakeRulePane() {
  pane_ = new RulePane(tr("Rule"));
  reading_ = new RulePane(tr("Rule"));
  reading_->layout()->setContentsMargins(8, 4, 8, 8);  // nothing stands beside it
  reading_->hide();
  for (RulePane* pane : {pane_, reading_})
    pane->FindBy(*find_);
  composing_->addWidget(reading_, 1);
  auto* left = new QSplitter(Qt::Vertical);
  left->addWidget(list_);
  left->addWidget(pane_);
  left->setChildrenCollapsible(false);
  left->setSizes({440, 260});
  return left;
}

QWidget* MainWindow::MakeTree() {
  tree_ = new StatementTree;
  tree_->ReadFrom([this] {
    const Rule* rule = OpenedRule();
    return StatementTree::Source{rule_,
                                 IsReadOnly() && rule != nullptr ? ToQt(rule->text) : ShownText()};
  });
  nodeEdits_ = new NodeEdits(*tree_, catalogue_, [this] { return !IsReadOnly(); });
  connect(nodeEdits_, &NodeEdits::Told, this,
          [this](const QString& reason) { statusBar()->showMessage(reason, 10000); });
  places_ = new StatementPlaces(*tree_, {pane_, reading_});
  return tree_;
}

void MainWindow::ShowTreeOf(RecordedMap& map) {
  auto* result = map.findChild<QPlainTextEdit*>(QStringLiteral("TxtOutput"));
  if (result == nullptr) return;
  places_->Follow(*result, [&map] { return !map.form().TxtOutput.Text().empty(); });
}

void MainWindow::UseNames() {
  using language::Names;
  tree_->UseNames(catalogue_.tables.empty()
                      ? nullptr
                      : std::make_unique<Names>(TableList(catalogue_), FieldList(catalogue_)));
}

// The texts of all rules; for the open rule the text as it is shown, not as it is stored.
std::vector<RuleText> MainWindow::AllTexts() const {
  map_->CarryNotes();
  std::vector<RuleText> rules;
  if (!rules_ || rule_.isEmpty()) rules.push_back({QString(), ShownText(), map_->NodeNotes()});
  if (!rules_) return rules;
  for (const Rule& rule : rules_->rules()) {
    const QString name = ToQt(rule.name);
    if (name == rule_ && !IsReadOnly()) {
      rules.push_back({name, ShownText(), map_->NodeNotes()});
    } else {
      rules.push_back({name, ToQt(rule.text), rule.notes});
    }
  }
  return rules;
}

template <typename Window>
void MainWindow::BeginIn(Window*& window) {
  if (window == nullptr) {
    window = new Window([this] { return AllTexts(); }, [this] { return tree_->Names(); }, this);
    connect(window, &Window::Chosen, this, &MainWindow::ShowPlace);
  }
  window->Begin();
}

void MainWindow::FindInAllRules() {
  BeginIn(findInRules_);
}

void MainWindow::ShowUses() {
  BeginIn(uses_);
}

void MainWindow::ShowPlace(const QString& rule, std::size_t first, std::size_t length) {
  if (rule != rule_) OpenRule(rule);
  if (rule != rule_) return;
  tree_->Refresh();
  const auto end = static_cast<std::size_t>(tree_->Text().size());
  first = std::min(first, end);
  // With an empty Result the place is shown in the Rule pane.
  if (map_->form().TxtOutput.Text().empty()) showList_.action()->setChecked(true);
  places_->Show(first, std::min(first + length, end));
  tree_->MarkAt(first);
}

const Rule* MainWindow::OpenedRule() const {
  return rules_ && !rule_.isEmpty() ? rules_->Find(View(rule_)) : nullptr;
}

// Shows the stored text and its difference to what storing would write.
void MainWindow::ShowRuleText() {
  const Rule* rule = OpenedRule();
  const QString stored = rule == nullptr ? QString() : ToQt(rule->text);
  const QString coming = ToQt(map_->WhatAddDoes().result);
  const bool isReadOnly = IsReadOnly();
  for (RulePane* pane : {pane_, reading_})
    pane->Name(PrintedName());
  pane_->Tell(RuleNote());
  pane_->Show(stored, coming.isEmpty() || isReadOnly ? stored : coming);
  tree_->TextChanged();
}

bool MainWindow::IsReadOnly() const {
  return reading_->isVisibleTo(reading_->parentWidget());
}

// Shows a rule that the control can't take back read-only, in the place of the control.
void MainWindow::ShowForReading(const QString& text) {
  const std::optional<Untakeable> place = FindUntakeable(text, catalogue_);
  reading_->setVisible(place.has_value());
  map_->setVisible(!place);
  if (!place) return;
  reading_->Tell(tr("The control can't take this rule back: it holds %1 at line %2, column %3. The "
                    "rule can be read, copied, renamed, duplicated and deleted.")
                     .arg(place->what)
                     .arg(place->line)
                     .arg(place->column));
  reading_->Show(text, text);
  reading_->Point(place->line, place->column, 1);
}

void MainWindow::ShowVersions() {
  if (OpenedRule() == nullptr) return;
  VersionsWindow versions(*rules_, View(rule_), this);
  if (versions.exec() != QDialog::Accepted || !MayLeaveRule()) return;
  const Version& chosen = versions.Chosen();
  const Rule rule{FromQt(rule_), chosen.text, chosen.fields, chosen.notes};
  rules_->Put(rule);
  journal_->KeepStored(rule);
  map_->Settle(ToQt(map_->form().TxtOutput.Text()));  // what was given up
  Save();
  OpenRule(rule_);
}

void MainWindow::EditNote() {
  if (OpenedRule() == nullptr) return;
  bool isGiven = false;
  const QString note = QInputDialog::getMultiLineText(this, tr("Note"), tr("Note of the rule"),
                                                      ToQt(rules_->NoteOf(View(rule_))), &isGiven);
  if (!isGiven) return;
  rules_->SetNote(View(rule_), View(note));
  if (rules_->IsChanged()) Save();
  ShowRuleText();
}

void MainWindow::TakeNotes(const Rule& rule) {
  map_->TakeNotes(language::FindNotes(rule.notes, rule.text));
  nodeEdits_->ShowNotes();
}

QString MainWindow::RuleNote() const {
  const Rule* rule = OpenedRule();
  QStringList lines;
  if (rule != nullptr && !rules_->NoteOf(rule->name).empty())
    lines.append(ToQt(rules_->NoteOf(rule->name)));
  for (const language::NodeNote& note : map_->NodeNotes()) {
    if (note.path.empty()) lines.append(ToQt(Concat(note.head, u": ", note.note)));
  }
  return lines.join(u'\n');
}

void MainWindow::ShowDeleted() {
  if (!rules_) return;
  DeletedWindow deleted(*rules_, this);
  deleted.exec();
  if (!deleted.IsChanged()) return;
  Save();
  ShowList();
  if (!deleted.BroughtBack().isEmpty()) OpenRule(deleted.BroughtBack());
}

}  // namespace zolt20::composer
