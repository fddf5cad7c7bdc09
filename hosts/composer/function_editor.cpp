#include "hosts/composer/function_editor.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QSet>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "faces/qt/qt_text.h"
#include "hosts/composer/settings.h"
#include "hosts/composer/translations.h"
#include "hosts/kit/functions.h"

namespace zolt20::composer {
namespace {

using catalogue::Function;
using qt::FromQt;
using qt::ToQt;

enum Column { kName, kArguments, kKind, kText, kColumns };

// For a cell with a translated text: the English text of the file, and the translation that was
// shown.
enum { kEnglish = Qt::UserRole, kShown };

QString CellText(const QTableWidget& table, int row, int column) {
  const QTableWidgetItem* item = table.item(row, column);
  return item == nullptr ? QString() : item->text().trimmed();
}

// The text for the file: the original English text unless the cell was edited.
QString KeptText(const QTableWidget& table, int row, int column) {
  const QTableWidgetItem* item = table.item(row, column);
  const bool isKept = item != nullptr && item->data(kEnglish).isValid() &&
                      item->text() == item->data(kShown).toString();
  return isKept ? item->data(kEnglish).toString() : CellText(table, row, column);
}

QString ArgumentsText(const Function& function) {
  QStringList texts;
  for (const String& argument : function.arguments)
    texts.append(ToQt(argument));
  return texts.join(u", ");
}

Function FunctionOf(const QTableWidget& table, int row) {
  Function function{FromQt(CellText(table, row, kName)),
                    {},
                    FromQt(KeptText(table, row, kKind)),
                    FromQt(KeptText(table, row, kText))};
  for (const QString& argument : KeptText(table, row, kArguments).split(u',', Qt::SkipEmptyParts)) {
    if (!argument.trimmed().isEmpty()) function.arguments.push_back(FromQt(argument.trimmed()));
  }
  return function;
}

bool IsEmpty(const QTableWidget& table, int row) {
  for (int column = 0; column < kColumns; ++column) {
    if (!CellText(table, row, column).isEmpty()) return false;
  }
  return true;
}

}  // namespace

FunctionEditor::FunctionEditor(const std::vector<Function>& functions, const QString& place,
                               QWidget* parent)
    : QDialog(parent), table_(new QTableWidget(0, kColumns)), fault_(new QLabel) {
  setWindowTitle(tr("Edit Functions"));
  table_->setAccessibleName(tr("Functions"));
  table_->setHorizontalHeaderLabels({tr("Name"), tr("Arguments"), tr("Kind"), tr("Text")});
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setTabKeyNavigation(false);
  table_->horizontalHeader()->setStretchLastSection(true);
  for (const auto& [column, width] : {std::pair(kName, 110), {kArguments, 130}, {kKind, 80}})
    table_->setColumnWidth(column,
                           std::max(width, table_->horizontalHeader()->sectionSizeHint(column)));
  for (const Function& function : functions)
    AddRow(function);

  auto* hint = new QLabel(
      tr("Arguments are separated by commas; one that a call may leave out stands in brackets.") +
      u'\n' + place);
  hint->setTextFormat(Qt::PlainText);
  hint->setWordWrap(true);
  hint->setObjectName(QStringLiteral("hint"));
  fault_->setTextFormat(Qt::PlainText);
  fault_->setWordWrap(true);
  fault_->setObjectName(QStringLiteral("fault"));
  auto* ends = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  ok_ = ends->button(QDialogButtonBox::Ok);
  connect(ends, &QDialogButtonBox::accepted, this, &FunctionEditor::accept);
  connect(ends, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* columns = new QHBoxLayout;
  columns->addWidget(table_, 1);
  columns->addLayout(MakeButtons());
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(columns, 1);
  layout->addWidget(fault_);
  layout->addWidget(hint);
  layout->addWidget(ends);
  ResizeWithinScreen(*this, {620, 380});
  connect(table_, &QTableWidget::itemChanged, this, &FunctionEditor::ShowFault);
  if (table_->rowCount() > 0) table_->setCurrentCell(0, kName);
  ShowFault();
}

QLayout* FunctionEditor::MakeButtons() {
  auto* buttons = new QVBoxLayout;
  const auto add = [&](const QString& text) {
    auto* button = new QPushButton(text);
    button->setAutoDefault(false);
    buttons->addWidget(button);
    return button;
  };
  connect(add(tr("&Add")), &QPushButton::clicked, this, [this] {
    AddRow({});
    table_->setCurrentCell(table_->rowCount() - 1, kName);
    table_->editItem(table_->currentItem());
  });
  connect(add(tr("&Remove")), &QPushButton::clicked, this, &FunctionEditor::RemoveRow);
  connect(add(tr("Move &Up")), &QPushButton::clicked, this, [this] { Move(-1); });
  connect(add(tr("Move &Down")), &QPushButton::clicked, this, [this] { Move(1); });
  auto* menu = new QMenu(this);
  menu->addAction(tr("Functions of SQLite"), this,
                  [this] { AddKnown(catalogue::SqliteFunctions()); });
  menu->addAction(tr("Functions that servers share"), this,
                  [this] { AddKnown(catalogue::StandardFunctions()); });
  add(tr("Add &Known"))->setMenu(menu);
  buttons->addStretch(1);
  return buttons;
}

void FunctionEditor::AddRow(const Function& function) {
  const int row = table_->rowCount();
  table_->insertRow(row);
  const Function words = Translated(function);
  const auto put = [&](Column column, const QString& text, const QString& shown) {
    auto* item = new QTableWidgetItem(shown);
    item->setData(kEnglish, text);
    item->setData(kShown, shown);
    table_->setItem(row, column, item);
  };
  table_->setItem(row, kName, new QTableWidgetItem(ToQt(function.name)));
  put(kArguments, ArgumentsText(function), ArgumentsText(words));
  put(kKind, ToQt(function.kind), ToQt(words.kind));
  put(kText, ToQt(function.text), ToQt(words.text));
}

// Appends the functions that the table does not have yet.
void FunctionEditor::AddKnown(const std::vector<Function>& functions) {
  QSet<QString> names;
  for (int row = 0; row < table_->rowCount(); ++row)
    names.insert(CellText(*table_, row, kName));
  for (const Function& function : functions) {
    if (!names.contains(ToQt(function.name))) AddRow(function);
  }
}

void FunctionEditor::RemoveRow() {
  table_->removeRow(table_->currentRow());
  ShowFault();
}

void FunctionEditor::Move(int by) {
  const int row = table_->currentRow();
  const int other = row + by;
  if (row < 0 || other < 0 || other >= table_->rowCount()) return;
  for (int column = 0; column < kColumns; ++column) {
    QTableWidgetItem* item = table_->takeItem(row, column);
    table_->setItem(row, column, table_->takeItem(other, column));
    table_->setItem(other, column, item);
  }
  table_->setCurrentCell(other, kName);
}

std::vector<Function> FunctionEditor::Functions() const {
  std::vector<Function> functions;
  for (int row = 0; row < table_->rowCount(); ++row) {
    if (!IsEmpty(*table_, row)) functions.push_back(FunctionOf(*table_, row));
  }
  return functions;
}

void FunctionEditor::ShowFault() {
  QString fault;
  QSet<QString> names;
  for (int row = 0; row < table_->rowCount() && fault.isEmpty(); ++row) {
    const QString name = CellText(*table_, row, kName);
    if (name.isEmpty() && !IsEmpty(*table_, row))
      fault = tr("The function in row %1 has no name.").arg(row + 1);
    if (!name.isEmpty() && names.contains(name))
      fault = tr("The function %1 stands twice.").arg(name);
    names.insert(name);
  }
  fault_->setText(fault);
  fault_->setVisible(!fault.isEmpty());
  ok_->setEnabled(fault.isEmpty());
}

void FunctionEditor::accept() {
  table_->setCurrentCell(-1, -1);  // ends what is being typed in a cell
  ShowFault();
  if (ok_->isEnabled()) QDialog::accept();
}

}  // namespace zolt20::composer
