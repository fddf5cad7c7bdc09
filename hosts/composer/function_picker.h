// A dialog in which a person picks a function of the catalogue and fills in its arguments, or types
// a call of any other one.
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

  /// The call to be inserted into a statement: "substr(NAME, 1, 3)". "" until there is one.
  QString Call() const;

 private:
  void MakeList(QLineEdit& filter);
  void PickShown();
  void ShowArguments();
  void ShowCall();
  QString CallOfPicked() const;

  std::vector<catalogue::Function> functions_;  // as the person reads them
  QListWidget* list_;
  QLabel* about_;
  QFormLayout* form_;
  QLineEdit* call_;
  std::vector<QLineEdit*> arguments_;
};

}  // namespace zolt20::composer
