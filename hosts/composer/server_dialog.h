// The dialog that opens a database on a server. The person enters the address, user and password,
// and chooses schemas. The password is passed to the driver and not kept.
#pragma once

#include <QDialog>
#include <functional>

#include "hosts/composer/catalogue_place.h"
#include "hosts/composer/server_catalogue.h"

class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;
class QSpinBox;

namespace zolt20::composer {

class ServerDialog final : public QDialog {
  Q_OBJECT

 public:
  /// Whether Qt has a driver of this name.
  using HasDriver = std::function<bool(const QString& driver)>;

  explicit ServerDialog(QWidget* parent = nullptr, HasDriver hasDriver = {});

  /// The catalogue, after the dialog was accepted.
  const OpenedCatalogue& Opened() const { return opened_; }
  ServerAddress Address() const;

  /// During a reading this cancels the reading, and the dialog stays open.
  void reject() override;

 private:
  QFormLayout* MakeForm();
  QLayout* MakeSchemas();
  QLayout* MakeButtons();
  const ServerDriver& ChosenDriver() const;
  void ShowDriver();
  void ForgetSchemas();
  void ShowState(const QString& told);
  QStringList ChosenSchemas() const;

  void Connect();
  void ReadTables();
  void TakeSchemas(const std::vector<Schema>& schemas);
  void TakeCatalogue(const catalogue::DatabaseCatalogue& read);

  HasDriver hasDriver_;
  ServerReader reader_;
  OpenedCatalogue opened_;

  QFormLayout* form_;
  QComboBox* driver_;
  QLineEdit* host_;
  QSpinBox* port_;
  QLineEdit* database_;
  QLineEdit* user_;
  QLineEdit* password_;
  QListWidget* schemas_;
  QLabel* told_;
  QProgressBar* waiting_;
  QPushButton* connect_;
  QPushButton* open_;
};

}  // namespace zolt20::composer
