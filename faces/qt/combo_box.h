// A combo box as people see it.
//
// QComboBox clears the text when no entry is chosen any more, and with it the caret and its undo
// stack. Here the typed text stays, and the wheel chooses nothing. A list with a search line opens
// below its box or above it, and never over it.
#pragma once

#include <QComboBox>

#include "surface/list_box.h"

namespace zolt20::qt {

class EntriesView;

class ComboWidget final : public QComboBox {
  Q_OBJECT

 public:
  explicit ComboWidget(const ComboBox& combo, QWidget* parent = nullptr);

  /// Shows the chosen entry and the text of the control.
  void Show();
  void showPopup() override;

  bool HasSearch() const { return entries_ != nullptr; }

 signals:
  /// The person edited the text, which is now `text`.
  void Typed(const QString& text);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void ForgetEntry();

  const ComboBox& combo_;
  EntriesView* entries_ = nullptr;  // the open list with a search line, or nullptr
};

}  // namespace zolt20::qt
