#include "hosts/composer/uses_of_names.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <map>
#include <tuple>

#include "faces/qt/qt_text.h"
#include "hosts/composer/cut_label.h"
#include "hosts/composer/settings.h"
#include "hosts/composer/text_lines.h"
#include "hosts/kit/rules_changes.h"

namespace zolt20::composer {
namespace {

using language::Names;
using language::Use;
using language::UseKind;
using qt::ToQt;
using qt::View;

enum Column { kName, kLine };
enum Data { kRule = Qt::UserRole, kFirst, kLength };
enum Which { kAll, kMissing };

constexpr qsizetype kMostShown = 200;  // characters of a line

QString ShownLine(StringView text, std::size_t place) {
  return ToQt(LineAround(text, place)).simplified().left(kMostShown);
}

}  // namespace

std::vector<UsedName> UsesInRules(const std::vector<RuleText>& rules, const Names* names) {
  // Sorted by full name, so that fields follow their table.
  std::map<std::tuple<bool, String>, UsedName> found;
  for (const RuleText& rule : rules) {
    const StringView text = View(rule.text);
    for (const Use& use : language::UsesIn(text, names)) {
      const String name = rules::NameOf(use);
      UsedName& used = found[{use.kind == UseKind::kFunction, name}];
      if (used.places.empty()) {
        used.name = ToQt(name);
        used.kind = use.kind;
      }
      used.isMissing = used.isMissing || (names != nullptr && language::IsMissing(use, *names));
      used.places.push_back({rule.rule, use.first, use.length, static_cast<int>(use.line),
                             ShownLine(text, use.first)});
    }
  }
  std::vector<UsedName> all;
  all.reserve(found.size());
  for (auto& [key, used] : found)
    all.push_back(std::move(used));
  return all;
}

UsesWindow::UsesWindow(FindWindow::Source rules, FindWindow::NamesSource names, QWidget* parent)
    : QDialog(parent),
      rules_(std::move(rules)),
      names_(std::move(names)),
      words_(new QLineEdit),
      which_(new QComboBox),
      told_(new QLabel),
      tree_(new QTreeWidget) {
  setWindowTitle(tr("Uses of Names"));
  setObjectName(QStringLiteral("usesOfNames"));
  words_->setAccessibleName(tr("Name"));
  words_->setPlaceholderText(tr("Name"));
  words_->setClearButtonEnabled(true);
  which_->setAccessibleName(tr("Which names"));
  which_->addItems({tr("All names"), tr("Names that the catalogue has not")});
  told_->setObjectName(QStringLiteral("usesTold"));
  tree_->setObjectName(QStringLiteral("uses"));
  tree_->setAccessibleName(tr("Names and their places"));
  tree_->setUniformRowHeights(true);
  tree_->setHeaderLabels({tr("Name"), tr("Line")});
  tree_->header()->resizeSection(kName, 260);
  connect(words_, &QLineEdit::textChanged, this, &UsesWindow::Show);
  connect(which_, &QComboBox::currentIndexChanged, this, &UsesWindow::Show);
  connect(tree_, &QTreeWidget::itemClicked, this, &UsesWindow::Choose);
  connect(tree_, &QTreeWidget::itemActivated, this, &UsesWindow::Choose);
  auto* line = new QHBoxLayout;
  line->addWidget(words_, 1);
  line->addWidget(which_);
  // Enter opens the current place, so no button may be the default button.
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  buttons->button(QDialogButtonBox::Close)->setAutoDefault(false);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(line);
  layout->addWidget(told_);
  layout->addWidget(tree_, 1);
  layout->addWidget(buttons);
  ResizeWithinScreen(*this, {620, 460});
}

void UsesWindow::Begin() {
  Read();
  Show();
  show();
  raise();
  activateWindow();
  words_->setFocus(Qt::ShortcutFocusReason);
  words_->selectAll();
}

// Updates when the window is activated, because rules may have changed.
bool UsesWindow::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate) Read();
  return QDialog::event(event);
}

void UsesWindow::Read() {
  const Names* const names = names_();
  which_->setEnabled(names != nullptr);
  if (names == nullptr) which_->setCurrentIndex(kAll);
  std::vector<UsedName> used = UsesInRules(rules_(), names);
  if (used == used_) return;
  used_ = std::move(used);
  Show();
}

void UsesWindow::Show() {
  tree_->clear();
  std::size_t names = 0;
  std::size_t places = 0;
  for (const UsedName& used : used_) {
    if (which_->currentIndex() == kMissing && !used.isMissing) continue;
    if (!used.name.contains(words_->text(), Qt::CaseInsensitive)) continue;
    Add(used);
    ++names;
    places += used.places.size();
  }
  if (names == 1) tree_->expandAll();
  told_->setText(tr("Names: %1, places: %2").arg(names).arg(places));
}

void UsesWindow::Add(const UsedName& used) {
  auto* item = new QTreeWidgetItem(tree_);
  item->setText(kName, tr("%1 (%2)").arg(used.name).arg(used.places.size()));
  item->setToolTip(kName, TipOf(used.name));
  if (used.isMissing) item->setText(kLine, tr("not in the catalogue"));
  for (const FoundPlace& place : used.places) {
    auto* row = new QTreeWidgetItem(item);
    row->setText(kName, tr("%1, line %2").arg(ShortName(place.rule)).arg(place.line));
    row->setText(kLine, place.told);
    row->setToolTip(kLine, TipOf(place.told));
    row->setData(kName, kRule, place.rule);
    row->setData(kName, kFirst, static_cast<qulonglong>(place.first));
    row->setData(kName, kLength, static_cast<qulonglong>(place.length));
  }
}

// Opens the place of an item. An item of a name expands or collapses instead.
void UsesWindow::Choose(QTreeWidgetItem* item) {
  const QVariant first = item->data(kName, kFirst);
  if (!first.isValid()) return;
  emit Chosen(item->data(kName, kRule).toString(), first.toULongLong(),
              item->data(kName, kLength).toULongLong());
}

}  // namespace zolt20::composer
