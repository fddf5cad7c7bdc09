// A dialog in which a person picks a function of the catalogue and types its arguments.
#pragma once

#include <QDialog>
#include <vector>

#include "hosts/kit/catalogue.h"

class QFormLayout;
class QLabel;
class QLineEdit;
class QListWidget;

namespace zolt20::composer {

class FunctionPicker final : public QDialog {
  Q_OBJECT

 public:
  explicit FunctionPicker(const std::vector<catalogue::Function>& functions,
                          QWidget* parent = nullptr);

  /// The call as it goes into a statement: "substr(NAME, 1, 3)". "" while no function is picked.
  QString Call() const;

 private:
  void PickShown();
  void ShowArguments();

  const std::vector<catalogue::Function>& functions_;
  QListWidget* list_;
  QFormLayout* form_;
  QLabel* preview_;
  std::vector<QLineEdit*> arguments_;
};

}  // namespace zolt20::composer
