#include "hosts/composer/server_dialog.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QSqlDatabase>
#include <QVBoxLayout>
#include <utility>

#include "faces/qt/qt_text.h"
#include "hosts/composer/settings.h"
#include "hosts/composer/translations.h"

namespace zolt20::composer {
namespace {

constexpr int kGreatestPort = 65535;
constexpr int kSchemaRole = Qt::UserRole;

}  // namespace

ServerDialog::ServerDialog(QWidget* parent, HasDriver hasDriver)
    : QDialog(parent),
      hasDriver_(hasDriver ? std::move(hasDriver) : HasDriver(&QSqlDatabase::isDriverAvailable)),
      driver_(new QComboBox),
      host_(new QLineEdit),
      port_(new QSpinBox),
      database_(new QLineEdit),
      user_(new QLineEdit),
      password_(new QLineEdit),
      schemas_(new QListWidget),
      told_(new QLabel),
      waiting_(new QProgressBar),
      connect_(new QPushButton(tr("C&onnect"))),
      open_(new QPushButton(tr("O&pen"))) {
  setWindowTitle(tr("Open Database"));
  told_->setTextFormat(Qt::PlainText);
  told_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  told_->setWordWrap(true);
  told_->setObjectName(QStringLiteral("told"));
  waiting_->setRange(0, 0);  // goes on as long as the window answers
  waiting_->setTextVisible(false);
  waiting_->setAccessibleName(tr("Waiting for the server"));

  auto* columns = new QHBoxLayout;
  columns->addLayout(form_ = MakeForm(), 3);
  columns->addLayout(MakeSchemas(), 2);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(columns, 1);
  layout->addWidget(told_);
  layout->addWidget(waiting_);
  layout->addLayout(MakeButtons());
  ResizeWithinScreen(*this, {600, 340});

  connect(&reader_, &ServerReader::SchemasRead, this, &ServerDialog::TakeSchemas);
  connect(&reader_, &ServerReader::CatalogueRead, this, &ServerDialog::TakeCatalogue);
  connect(&reader_, &ServerReader::Failed, this, &ServerDialog::ShowState);
  ShowDriver();
}

QFormLayout* ServerDialog::MakeForm() {
  auto* form = new QFormLayout;
  form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
  for (const ServerDriver& driver : kServerDrivers)
    driver_->addItem(QString::fromLatin1(driver.title));
  host_->setText(QStringLiteral("localhost"));
  port_->setRange(1, kGreatestPort);
  port_->setButtonSymbols(QAbstractSpinBox::NoButtons);
  password_->setEchoMode(QLineEdit::Password);
  form->addRow(tr("&Driver"), driver_);
  form->addRow(tr("&Host"), host_);
  form->addRow(tr("Po&rt"), port_);
  form->addRow(tr("Data&base"), database_);
  form->addRow(tr("&User"), user_);
  form->addRow(tr("Pass&word"), password_);
  host_->setAccessibleName(tr("Host"));
  user_->setAccessibleName(tr("User"));
  password_->setAccessibleName(tr("Password"));
  connect(driver_, &QComboBox::currentIndexChanged, this, &ServerDialog::ShowDriver);
  for (const QLineEdit* line : {host_, database_, user_, password_})
    connect(line, &QLineEdit::textChanged, this, &ServerDialog::ForgetSchemas);
  connect(port_, &QSpinBox::valueChanged, this, &ServerDialog::ForgetSchemas);
  return form;
}

QLayout* ServerDialog::MakeSchemas() {
  auto* label = new QLabel(tr("&Schemas"));
  label->setBuddy(schemas_);
  schemas_->setAccessibleName(tr("Schemas"));
  connect(schemas_, &QListWidget::itemChanged, this, [this] { ShowState(told_->text()); });
  auto* column = new QVBoxLayout;
  column->addWidget(label);
  column->addWidget(schemas_);
  return column;
}

QLayout* ServerDialog::MakeButtons() {
  auto* cancel = new QPushButton(tr("Cancel"));
  connect(connect_, &QPushButton::clicked, this, &ServerDialog::Connect);
  connect(open_, &QPushButton::clicked, this, &ServerDialog::ReadTables);
  connect(cancel, &QPushButton::clicked, this, &ServerDialog::reject);
  auto* row = new QHBoxLayout;
  row->addStretch(1);
  for (QPushButton* button : {connect_, open_, cancel})
    row->addWidget(button);
  return row;
}

const ServerDriver& ServerDialog::ChosenDriver() const {
  return kServerDrivers.at(static_cast<std::size_t>(driver_->currentIndex()));
}

ServerAddress ServerDialog::Address() const {
  const ServerDriver& driver = ChosenDriver();
  if (driver.kind == ServerKind::kOdbc)
    return {driver.kind, {}, 0, database_->text().trimmed(), user_->text()};
  return {driver.kind, host_->text().trimmed(), port_->value(), database_->text().trimmed(),
          user_->text()};
}

void ServerDialog::ShowDriver() {
  const ServerDriver& driver = ChosenDriver();
  const bool isOdbc = driver.kind == ServerKind::kOdbc;
  for (QWidget* field : {static_cast<QWidget*>(host_), static_cast<QWidget*>(port_)}) {
    field->setVisible(!isOdbc);
    form_->labelForField(field)->setVisible(!isOdbc);
  }
  if (!isOdbc) port_->setValue(driver.port);
  auto* label = qobject_cast<QLabel*>(form_->labelForField(database_));
  label->setText(isOdbc ? tr("Data &source") : tr("Data&base"));
  database_->setAccessibleName(isOdbc ? tr("Data source") : tr("Database"));
  database_->setPlaceholderText(isOdbc ? tr("its name, or DRIVER=...;...") : QString());
  ForgetSchemas();
}

// Clears the schemas, which belong to the former address.
void ServerDialog::ForgetSchemas() {
  reader_.Cancel();
  schemas_->clear();
  ShowState({});
}

void ServerDialog::ShowState(const QString& told) {
  const ServerDriver& driver = ChosenDriver();
  const bool hasDriver = hasDriver_(QString::fromLatin1(driver.driver));
  const bool isBusy = reader_.IsBusy();
  told_->setText(
      hasDriver ? told
                : tr("The driver for %1 is missing. On Debian it comes with the "
                     "package %2.")
                      .arg(QString::fromLatin1(driver.title), QString::fromLatin1(driver.package)));
  told_->setVisible(!told_->text().isEmpty());
  waiting_->setVisible(isBusy);
  connect_->setEnabled(hasDriver && !isBusy);
  open_->setEnabled(hasDriver && !isBusy && !ChosenSchemas().isEmpty());
  (open_->isEnabled() ? open_ : connect_)->setDefault(true);
}

QStringList ServerDialog::ChosenSchemas() const {
  QStringList chosen;
  for (int row = 0; row < schemas_->count(); ++row) {
    const QListWidgetItem* item = schemas_->item(row);
    if (item->checkState() == Qt::Checked) chosen.append(item->data(kSchemaRole).toString());
  }
  return chosen;
}

void ServerDialog::Connect() {
  schemas_->clear();
  reader_.ReadSchemas(Address(), password_->text());
  ShowState(tr("Connecting..."));
}

// Preselects a schema: the only one, the one with the name of the database, or the default schema.
void ServerDialog::TakeSchemas(const std::vector<Schema>& schemas) {
  {
    const QSignalBlocker whole(schemas_);
    for (const Schema& schema : schemas) {
      const QString name = schema.name.isEmpty() ? tr("all tables") : schema.name;
      auto* item =
          new QListWidgetItem(tr("%1 (%2)").arg(name, QString::number(schema.tables)), schemas_);
      item->setData(kSchemaRole, schema.name);
      const bool isWanted =
          schemas.size() == 1 || schema.name == Address().database || schema.name == u"public";
      item->setCheckState(isWanted ? Qt::Checked : Qt::Unchecked);
    }
  }
  ShowState(schemas.empty() ? tr("The user %1 sees no tables there.").arg(user_->text())
                            : tr("Connected. Tick the schemas and press Open."));
  schemas_->setFocus();
}

void ServerDialog::ReadTables() {
  reader_.ReadCatalogue(Address(), password_->text(), ChosenSchemas());
  ShowState(tr("Reading the tables..."));
}

void ServerDialog::TakeCatalogue(const catalogue::DatabaseCatalogue& read) {
  opened_ = {read.catalogue, {{}, FullNameOf(Address())}, {}};
  opened_.catalogue.name = qt::FromQt(NameOf(Address()));
  for (const hosts::Message& line : read.leftOut)
    opened_.leftOut.append(Translated(line));
  TakeKeptFunctions(opened_);
  accept();
}

void ServerDialog::reject() {
  if (!reader_.IsBusy()) return QDialog::reject();
  reader_.Cancel();
  ShowState(tr("Cancelled."));
}

}  // namespace zolt20::composer
