#include "hosts/composer/function_picker.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include "faces/qt/qt_text.h"
#include "hosts/composer/settings.h"
#include "hosts/composer/translations.h"

namespace zolt20::composer {
namespace {

using qt::ToQt;

// A name in brackets is an optional argument.
bool IsOptional(const String& argument) {
  return argument.starts_with(u'[') && argument.ends_with(u']');
}

// A scroll area, for functions with many arguments.
QWidget* Scrolled(QLayout* content) {
  auto* inner = new QWidget;
  inner->setLayout(content);
  content->setContentsMargins(0, 0, 0, 0);
  auto* scroll = new QScrollArea;
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidgetResizable(true);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setWidget(inner);
  return scroll;
}

}  // namespace

FunctionPicker::FunctionPicker(const std::vector<catalogue::Function>& functions, QWidget* parent)
    : QDialog(parent),
      list_(new QListWidget),
      about_(new QLabel),
      form_(new QFormLayout),
      call_(new QLineEdit) {
  for (const catalogue::Function& function : functions)
    functions_.push_back(Translated(function));
  setWindowTitle(tr("Function"));
  auto* filter = new QLineEdit;
  MakeList(*filter);
  about_->setTextFormat(Qt::PlainText);
  about_->setWordWrap(true);
  about_->setObjectName(QStringLiteral("about"));
  call_->setAccessibleName(tr("Call"));
  call_->setPlaceholderText(tr("name(argument, argument)"));
  auto* callLabel = new QLabel(tr("&Call"));
  callLabel->setBuddy(call_);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  QPushButton* ok = buttons->button(QDialogButtonBox::Ok);
  ok->setEnabled(false);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(call_, &QLineEdit::textChanged, this, [this, ok] { ok->setEnabled(!Call().isEmpty()); });

  auto* left = new QVBoxLayout;
  left->addWidget(filter);
  left->addWidget(list_);
  auto* right = new QVBoxLayout;
  right->addWidget(about_);
  right->addWidget(Scrolled(form_), 1);
  auto* columns = new QHBoxLayout;
  columns->addLayout(left, 2);
  columns->addLayout(right, 3);
  auto* line = new QHBoxLayout;
  line->addWidget(callLabel);
  line->addWidget(call_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(columns);
  layout->addLayout(line);
  layout->addWidget(buttons);
  ResizeWithinScreen(*this, {560, 360});
  list_->setCurrentRow(functions.empty() ? -1 : 0);
  ShowArguments();
  if (functions.empty()) call_->setFocus();
}

void FunctionPicker::MakeList(QLineEdit& filter) {
  filter.setPlaceholderText(tr("Filter"));
  filter.setAccessibleName(tr("Filter functions"));
  filter.setClearButtonEnabled(true);
  filter.setEnabled(!functions_.empty());
  list_->setAccessibleName(tr("Functions"));
  for (const catalogue::Function& function : functions_)
    list_->addItem(ToQt(function.name));
  connect(list_, &QListWidget::currentRowChanged, this, [this] {
    ShowArguments();
    ShowCall();
  });
  connect(&filter, &QLineEdit::textChanged, this, [this](const QString& text) {
    for (int row = 0; row < list_->count(); ++row) {
      const catalogue::Function& function = functions_[static_cast<std::size_t>(row)];
      const bool isShown = ToQt(function.name).contains(text, Qt::CaseInsensitive) ||
                           ToQt(function.kind).startsWith(text, Qt::CaseInsensitive);
      list_->item(row)->setHidden(!isShown);
    }
    PickShown();
  });
}

QString FunctionPicker::Call() const {
  return call_->text().trimmed();
}

// The call with the typed arguments; trailing optional arguments that are empty are left out.
QString FunctionPicker::CallOfPicked() const {
  if (list_->currentRow() < 0) return {};
  const auto& names = functions_[static_cast<std::size_t>(list_->currentRow())].arguments;
  QStringList texts;
  for (const QLineEdit* argument : arguments_)
    texts.append(argument->text());
  while (!texts.isEmpty() && texts.back().isEmpty() &&
         IsOptional(names[static_cast<std::size_t>(texts.size()) - 1])) {
    texts.removeLast();
  }
  return list_->currentItem()->text() + QStringLiteral("(%1)").arg(texts.join(u", "));
}

void FunctionPicker::ShowCall() {
  call_->setText(CallOfPicked());
  call_->setCursorPosition(0);
}

// When the filter hides the current function, the first visible one becomes current.
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
  if (functions_.empty()) {
    about_->setText(
        tr("The catalogue has no functions to choose from. Type a call in the line below, or add "
           "functions to the catalogue by File / Edit Functions."));
  } else if (row < 0) {
    about_->setText(tr("No function matches the filter. Any call can be typed below."));
  } else {
    const catalogue::Function& function = functions_[static_cast<std::size_t>(row)];
    QStringList about{ToQt(function.kind), ToQt(function.text)};
    about.removeAll(QString());
    about_->setText(about.join(QStringLiteral(": ")));
    for (const String& argument : function.arguments) {
      auto* line = new QLineEdit;
      line->setAccessibleName(ToQt(argument));
      connect(line, &QLineEdit::textChanged, this, &FunctionPicker::ShowCall);
      form_->addRow(ToQt(argument), line);
      arguments_.push_back(line);
    }
  }
  about_->setVisible(!about_->text().isEmpty());
}

}  // namespace zolt20::composer
