// A dialog in which a person edits the functions of a catalogue: a row for each, with its name, its
// arguments, its kind and what it gives.
#pragma once

#include <QDialog>
#include <vector>

#include "hosts/kit/catalogue.h"

class QLabel;
class QMenu;
class QPushButton;
class QTableWidget;

namespace zolt20::composer {

class FunctionEditor final : public QDialog {
  Q_OBJECT

 public:
  /// `place` is a sentence about where the functions are stored.
  FunctionEditor(const std::vector<catalogue::Function>& functions, const QString& place,
                 QWidget* parent = nullptr);

  /// The functions, row by row. Empty rows are left out.
  std::vector<catalogue::Function> Functions() const;

  /// Does nothing while a row has an error.
  void accept() override;

 private:
  QLayout* MakeButtons();
  void AddRow(const catalogue::Function& function);
  void AddKnown(const std::vector<catalogue::Function>& functions);
  void RemoveRow();
  void Move(int by);
  void ShowFault();

  QTableWidget* table_;
  QLabel* fault_;
  QPushButton* ok_ = nullptr;
};

}  // namespace zolt20::composer
