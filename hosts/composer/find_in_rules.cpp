#include "hosts/composer/find_in_rules.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSet>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "faces/qt/qt_text.h"
#include "hosts/composer/cut_label.h"
#include "hosts/composer/settings.h"
#include "hosts/composer/text_lines.h"
#include "language/check.h"
#include "language/uses.h"

namespace zolt20::composer {
namespace {

using qt::ToQt;
using qt::View;

constexpr int kSoonMilliseconds = 150;
constexpr qsizetype kMostShown = 200;

// Collects the places in one rule.
class Finder {
 public:
  Finder(const RuleText& rule, const QString& words, std::vector<FoundPlace>& found)
      : rule_(rule), words_(words), lines_(View(rule.text)), found_(found) {}

  void FindText() {
    if (words_.isEmpty()) return;
    for (qsizetype at = 0; (at = rule_.text.indexOf(words_, at, Qt::CaseInsensitive)) >= 0;
         at += words_.size())
      Add(static_cast<std::size_t>(at), static_cast<std::size_t>(words_.size()), {});
    FindNotes();
  }

  void FindNames(const language::Names* names) {
    for (const language::Use& use : language::UsesIn(View(rule_.text), names)) {
      if (Has(ToQt(View(rule_.text).substr(use.first, use.length)))) Add(use.first, use.length, {});
    }
  }

  void FindProblems(const language::Names* names) {
    for (const language::Finding& finding : language::Check(View(rule_.text), names)) {
      const QString sentence = ToQt(finding.sentence);
      if (Has(sentence)) Add(finding.first, finding.length, sentence);
    }
  }

 private:
  // The place of a note is the head of its node.
  void FindNotes() {
    if (rule_.notes.empty()) return;
    const std::vector<language::Node> nodes = language::ReadOutline(View(rule_.text));
    for (const language::NodeNote& note : rule_.notes) {
      const QString told = ToQt(note.note);
      const std::size_t index = language::NodeAt(nodes, note.path);
      if (!Has(told)) continue;
      const bool isThere = index != language::Node::kNone;
      const std::size_t first = isThere ? nodes[index].headFirst : 0;
      Add(first, isThere ? nodes[index].headLast - first : 0,
          QCoreApplication::translate("composer", "Note: %1").arg(told));
    }
  }

  bool Has(const QString& text) const { return text.contains(words_, Qt::CaseInsensitive); }

  void Add(std::size_t first, std::size_t length, const QString& told) {
    if (found_.size() == kMostFound) return;
    const int line = lines_.At(first).line;
    found_.push_back({rule_.rule, first, length, line + 1, told.isEmpty() ? LineAt(line) : told});
  }

  QString LineAt(int line) const {
    const std::size_t first = lines_.PlaceOf({line, 0});
    const std::size_t last = lines_.PlaceOf({line + 1, 0});
    return ToQt(View(rule_.text).substr(first, last - first)).simplified();
  }

  const RuleText& rule_;
  const QString& words_;
  TextLines lines_;
  std::vector<FoundPlace>& found_;
};

}  // namespace

std::vector<FoundPlace> FindInRules(const std::vector<RuleText>& rules, const QString& words,
                                    Searched searched, const language::Names* names) {
  std::vector<FoundPlace> found;
  for (const RuleText& rule : rules) {
    if (found.size() == kMostFound) break;
    Finder finder(rule, words, found);
    if (searched == Searched::kText) finder.FindText();
    if (searched == Searched::kNames) finder.FindNames(names);
    if (searched == Searched::kProblems) finder.FindProblems(names);
  }
  return found;
}

FindWindow::FindWindow(Source rules, NamesSource names, QWidget* parent)
    : QDialog(parent),
      rules_(std::move(rules)),
      names_(std::move(names)),
      words_(new QLineEdit),
      searched_(new QComboBox),
      told_(new QLabel),
      list_(new QListWidget),
      soon_(new QTimer(this)) {
  setWindowTitle(tr("Find in Rules"));
  setObjectName(QStringLiteral("findInRules"));
  words_->setAccessibleName(tr("Find"));
  words_->setPlaceholderText(tr("Find"));
  words_->setClearButtonEnabled(true);
  searched_->setAccessibleName(tr("Search in"));
  searched_->addItems({tr("Texts"), tr("Names of the catalogue"), tr("Problems")});
  told_->setObjectName(QStringLiteral("foundTold"));
  list_->setObjectName(QStringLiteral("found"));
  list_->setAccessibleName(tr("Places"));
  list_->setUniformItemSizes(true);
  soon_->setSingleShot(true);
  soon_->setInterval(kSoonMilliseconds);
  connect(soon_, &QTimer::timeout, this, &FindWindow::Search);
  connect(words_, &QLineEdit::textChanged, soon_, qOverload<>(&QTimer::start));
  connect(words_, &QLineEdit::returnPressed, this, [this] {
    Search();
    Choose(0);
  });
  connect(searched_, &QComboBox::currentIndexChanged, this, &FindWindow::Search);
  const auto choose = [this](const QListWidgetItem* item) { Choose(list_->row(item)); };
  connect(list_, &QListWidget::itemClicked, this, choose);
  connect(list_, &QListWidget::itemActivated, this, choose);
  auto* line = new QHBoxLayout;
  line->addWidget(words_, 1);
  line->addWidget(searched_);
  // Enter opens the current place, so no button may be the default button.
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  for (QAbstractButton* button : buttons->buttons())
    static_cast<QPushButton*>(button)->setAutoDefault(false);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(line);
  layout->addWidget(told_);
  layout->addWidget(list_, 1);
  layout->addWidget(buttons);
  ResizeWithinScreen(*this, {620, 420});
}

void FindWindow::Begin() {
  show();
  raise();
  activateWindow();
  words_->setFocus(Qt::ShortcutFocusReason);
  words_->selectAll();
  Search();
}

void FindWindow::Search() {
  soon_->stop();
  const auto searched = static_cast<Searched>(searched_->currentIndex());
  found_ = FindInRules(rules_(), words_->text(), searched, names_());
  list_->clear();
  QSet<QString> rules;
  for (const FoundPlace& place : found_) {
    rules.insert(place.rule);
    const QString told =
        tr("%1, line %2: %3")
            .arg(ShortName(place.rule), QString::number(place.line), place.told.left(kMostShown));
    auto* item = new QListWidgetItem(told, list_);
    item->setToolTip(TipOf(place.told));
  }
  const bool isCut = found_.size() == kMostFound;
  told_->setText((isCut ? tr("The first places: %1, in rules: %2") : tr("Places: %1, in rules: %2"))
                     .arg(found_.size())
                     .arg(rules.size()));
}

void FindWindow::Choose(int row) {
  if (row < 0 || row >= list_->count()) return;
  list_->setCurrentRow(row);
  const FoundPlace place = found_[static_cast<std::size_t>(row)];
  emit Chosen(place.rule, place.first, place.length);
}

}  // namespace zolt20::composer
