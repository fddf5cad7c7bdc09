#include "hosts/composer/function_picker.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "faces/qt/qt_text.h"

namespace zolt20::composer {

using qt::ToQt;

FunctionPicker::FunctionPicker(const std::vector<catalogue::Function>& functions, QWidget* parent)
    : QDialog(parent),
      functions_(functions),
      list_(new QListWidget),
      form_(new QFormLayout),
      preview_(new QLabel) {
  setWindowTitle(QStringLiteral("Function"));
  auto* filter = new QLineEdit;
  filter->setPlaceholderText(QStringLiteral("Filter"));
  filter->setAccessibleName(QStringLiteral("Filter functions"));
  filter->setClearButtonEnabled(true);
  list_->setAccessibleName(QStringLiteral("Functions"));
  for (const catalogue::Function& function : functions)
    list_->addItem(ToQt(function.name));
  connect(filter, &QLineEdit::textChanged, this, [this](const QString& text) {
    for (int row = 0; row < list_->count(); ++row)
      list_->item(row)->setHidden(!list_->item(row)->text().contains(text, Qt::CaseInsensitive));
    PickShown();
  });

  preview_->setTextFormat(Qt::PlainText);
  preview_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  buttons->button(QDialogButtonBox::Ok)->setEnabled(false);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(list_, &QListWidget::currentRowChanged, this, [this, buttons] {
    ShowArguments();
    buttons->button(QDialogButtonBox::Ok)->setEnabled(!Call().isEmpty());
  });

  auto* left = new QVBoxLayout;
  left->addWidget(filter);
  left->addWidget(list_);
  auto* right = new QVBoxLayout;
  right->addLayout(form_);
  right->addStretch(1);
  right->addWidget(preview_);
  auto* columns = new QHBoxLayout;
  columns->addLayout(left, 2);
  columns->addLayout(right, 3);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(columns);
  layout->addWidget(buttons);
  resize(520, 320);
  list_->setCurrentRow(functions.empty() ? -1 : 0);
}

QString FunctionPicker::Call() const {
  if (list_->currentRow() < 0) return {};
  QStringList arguments;
  for (const QLineEdit* argument : arguments_)
    arguments.append(argument->text());
  return list_->currentItem()->text() + QStringLiteral("(%1)").arg(arguments.join(u", "));
}

// One that the filter hides is not picked any more, but the first that it shows.
void FunctionPicker::PickShown() {
  if (list_->currentRow() >= 0 && !list_->currentItem()->isHidden()) return;
  int row = 0;
  while (row < list_->count() && list_->item(row)->isHidden())
    ++row;
  list_->setCurrentRow(row < list_->count() ? row : -1);
}

void FunctionPicker::ShowArguments() {
  while (form_->rowCount() > 0)
    form_->removeRow(0);
  arguments_.clear();
  const int row = list_->currentRow();
  if (row >= 0) {
    for (const String& argument : functions_[static_cast<std::size_t>(row)].arguments) {
      auto* line = new QLineEdit;
      line->setAccessibleName(ToQt(argument));
      connect(line, &QLineEdit::textChanged, this, [this] { preview_->setText(Call()); });
      form_->addRow(ToQt(argument), line);
      arguments_.push_back(line);
    }
  }
  preview_->setText(Call());
}

}  // namespace zolt20::composer
