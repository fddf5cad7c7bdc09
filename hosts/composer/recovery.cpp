#include "hosts/composer/recovery.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QVBoxLayout>
#include <algorithm>

#include "faces/qt/qt_text.h"
#include "hosts/composer/main_window.h"
#include "hosts/composer/node_edits.h"
#include "hosts/composer/settings.h"
#include "hosts/kit/text_coding.h"
#include "surface/surface.h"

namespace zolt20::composer {
namespace {

using qt::ToQt;
using qt::View;
using Json = nlohmann::ordered_json;

// Replays one composer of the journal at its depth, without the gesture that was in progress.
bool PlayOne(const JournalHead& head, const KeptSession& session, int depth, Recovery& recovery) {
  std::vector<QByteArray> steps = session.steps.At(depth);
  if (!steps.empty() && steps.back().startsWith(R"({"ask":)")) steps.pop_back();
  QString window = head.rule.isEmpty() ? MainWindow::tr("New rule") : head.rule;
  std::vector<QByteArray> opening;
  if (depth > 0) {
    const Json first = FromJsonLine(steps.at(0));
    window = ToQt(hosts::FromJsonText(first.at("window").get_ref<const std::string&>()));
    for (const Json& write : first.at("opening"))
      opening.push_back(JsonLine(write));
  }
  RecordedMap map({});
  map.Write("PrpStrTables", head.tables);
  map.Write("PrpStrFields", head.fields);
  const bool isPlayed = map.Play(opening) && map.Play(steps);
  recovery.windows.append(window);
  recovery.texts.append(ToQt(map.form().TxtOutput.Text()));
  return isPlayed;
}

bool IsSaved(const KeptSession& session, const std::optional<RulesFile>& rules) {
  if (session.isChanged || session.stored.empty() || !rules) return false;
  return std::all_of(session.stored.begin(), session.stored.end(), [&rules](const Rule& rule) {
    const Rule* saved = rules->Find(rule.name);
    return saved != nullptr && *saved == rule;
  });
}

}  // namespace

Recovery Foresee(const KeptSession& session, const JournalHead& now) {
  Recovery recovery;
  const JournalHead& head = session.head;
  recovery.isOfOther = head.tables != now.tables || head.fields != now.fields;
  recovery.isRuleOther = head.rule != now.rule || head.text != now.text;
  recovery.isPlayable = !recovery.isOfOther;
  try {
    for (int depth = 0; depth < session.Depth(); ++depth) {
      const bool isPlayed = PlayOne(head, session, depth, recovery);
      recovery.isPlayable = recovery.isPlayable && isPlayed;
    }
  } catch (const std::exception&) {
    recovery.isPlayable = false;
  }
  return recovery;
}

// The dialog.

RecoveryOffer::RecoveryOffer(const KeptSession& session, const Recovery& recovery, QWidget* parent)
    : QDialog(parent) {
  setWindowTitle(tr("Go On"));
  auto* told = new QLabel(Told(session, recovery));
  told->setTextFormat(Qt::PlainText);
  told->setWordWrap(true);
  auto* texts = new QPlainTextEdit(Texts(session, recovery));
  texts->setReadOnly(true);
  texts->setTabChangesFocus(true);
  texts->setLineWrapMode(QPlainTextEdit::NoWrap);
  texts->setAccessibleName(tr("What was composed"));
  auto* buttons = new QDialogButtonBox;
  const auto add = [&](const QString& text, QDialogButtonBox::ButtonRole role, auto act) {
    QPushButton* button = buttons->addButton(text, role);
    connect(button, &QPushButton::clicked, this, act);
    return button;
  };
  const auto choose = [this](Answer answer) {
    return [this, answer] {
      answer_ = answer;
      answer == Answer::kLater ? reject() : accept();
    };
  };
  if (recovery.isPlayable) {
    add(tr("&Go On"), QDialogButtonBox::AcceptRole, choose(Answer::kGoOn))->setDefault(true);
  } else {
    add(tr("&Copy Text"), QDialogButtonBox::ActionRole,
        [texts] { QApplication::clipboard()->setText(texts->toPlainText()); });
  }
  QPushButton* later = add(tr("&Later"), QDialogButtonBox::RejectRole, choose(Answer::kLater));
  add(tr("&Discard"), QDialogButtonBox::DestructiveRole, choose(Answer::kDiscard));

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(told);
  layout->addWidget(texts, 1);
  layout->addWidget(buttons);
  // Set after the buttons are in the dialog, which resets the default button.
  if (!recovery.isPlayable) later->setDefault(true);
  ResizeWithinScreen(*this, {560, 420});
}

QString RecoveryOffer::Told(const KeptSession& session, const Recovery& recovery) const {
  QStringList lines;
  lines.append(tr("The composer ended before this was stored. Last step: %1.")
                   .arg(QLocale().toString(session.time, QLocale::ShortFormat)));
  if (!recovery.windows.isEmpty())
    lines.append(tr("Open: %1").arg(recovery.windows.join(QStringLiteral(" > "))));
  for (const Rule& rule : session.stored)
    lines.append(tr("Stored, and not in the file yet: %1").arg(ToQt(rule.name)));
  if (session.unreadLines > 0)
    lines.append(tr("Behind that step the journal is damaged. Lines that can't be read: %1.")
                     .arg(session.unreadLines));
  if (recovery.isOfOther) {
    lines.append(tr("It was composed on another catalogue, %1. Only the text can be brought back; "
                    "open that catalogue to go on.")
                     .arg(session.head.catalogue));
  } else if (!recovery.isPlayable) {
    lines.append(tr("Not all of it can be made again. Only the text can be brought back."));
  } else if (recovery.isRuleOther) {
    lines.append(tr("The rule \"%1\" is another one now. What comes back is a new rule.")
                     .arg(session.head.rule));
  }
  return lines.join(u'\n');
}

QString RecoveryOffer::Texts(const KeptSession& session, const Recovery& recovery) const {
  QStringList parts;
  for (const Rule& rule : session.stored)
    parts.append(ToQt(rule.name) + QStringLiteral(":\n") + ToQt(rule.text));
  for (qsizetype i = 0; i < recovery.texts.size(); ++i) {
    if (!recovery.texts[i].isEmpty())
      parts.append(recovery.windows[i] + QStringLiteral(":\n") + recovery.texts[i]);
  }
  if (parts.isEmpty()) return tr("The Result is empty: what was composed stands in the pages.");
  return parts.join(QStringLiteral("\n\n")).remove(u'\r');
}

// The window.

JournalHead MainWindow::HeadOfJournal(const QString& ruleName) const {
  const Rule* rule = rules_ && !ruleName.isEmpty() ? rules_->Find(View(ruleName)) : nullptr;
  return {rules_ ? rules_->Path() : QString(),
          rule == nullptr ? QString() : ruleName,
          rule == nullptr ? QString() : ToQt(rule->text),
          catalogueName_,
          ToQt(TableList(catalogue_)),
          ToQt(FieldList(catalogue_))};
}

void MainWindow::OfferJournals() {
  QStringList complaints;
  std::vector<LeftJournal> left = Journal::Left(rules_ ? rules_->Path() : QString(), complaints);
  if (!complaints.isEmpty()) Complain(tr("Go On"), complaints.join(u'\n').toStdString());
  for (const LeftJournal& journal : left) {
    // The composer was killed after saving and before it removed the journal.
    if (IsSaved(journal.session, rules_)) {
      QFile::remove(journal.path);
      continue;
    }
    // Rules that were stored but not saved come first, because the open rule may be one of them.
    JournalHead now = HeadOfJournal(journal.session.head.rule);
    for (const Rule& rule : journal.session.stored) {
      if (ToQt(rule.name) != journal.session.head.rule) continue;
      now.rule = journal.session.head.rule;
      now.text = journal.session.head.text;
    }
    const Recovery recovery = Foresee(journal.session, now);
    RecoveryOffer offer(journal.session, recovery, this);
    offer.exec();
    if (offer.answer() == RecoveryOffer::Answer::kDiscard) QFile::remove(journal.path);
    // Only one journal is restored; others are offered at the next start.
    if (offer.answer() == RecoveryOffer::Answer::kGoOn) return BringBack(journal, recovery);
  }
}

void MainWindow::BringBack(const LeftJournal& left, const Recovery& recovery) {
  if (rules_) {
    for (const Rule& rule : left.session.stored)
      rules_->Put(rule);
  }
  rule_ = recovery.isRuleOther ? QString() : left.session.head.rule;
  OpenRule(rule_);
  journal_->GoOnIn(left);
  MakeMap();
  nodeEdits_->ShowNotes();
  ShowTitle();
}

// Shows what is wrong with the journal, "" for nothing. In a permanent label, since the next
// temporary message of the status bar would replace a message.
void MainWindow::ShowJournalTrouble(const QString& trouble) {
  auto* told = statusBar()->findChild<QLabel*>(QStringLiteral("journalTrouble"));
  if (told == nullptr) {
    told = new QLabel;
    told->setObjectName(QStringLiteral("journalTrouble"));
    told->setTextFormat(Qt::PlainText);
    statusBar()->addPermanentWidget(told);
  }
  told->setText(trouble.isEmpty() ? QString()
                                  : tr("A crash would lose what you compose now: %1").arg(trouble));
  told->setToolTip(told->text());
  told->setVisible(!trouble.isEmpty());
}

}  // namespace zolt20::composer
