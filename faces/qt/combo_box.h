// A combo box as people see it.
//
// Qt's own takes the text away when no entry is chosen any more, and with it the caret and what
// could be taken back. Here what is typed stays as it is, and the wheel chooses nothing.
#pragma once

#include <QComboBox>

#include "surface/list_box.h"

namespace zolt20::qt {

class ComboWidget final : public QComboBox {
  Q_OBJECT

 public:
  explicit ComboWidget(const ComboBox& combo, QWidget* parent = nullptr);

  /// Shows the chosen entry and the text of the control.
  void Show();
  void showPopup() override;

 signals:
  /// The person made this of the text.
  void Typed(const QString& text);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void ForgetEntry();

  const ComboBox& combo_;
};

}  // namespace zolt20::qt
