// The window of a combo: the platform's own, with its list and what its many notices mean.
#pragma once

#include <windows.h>
// The system's other headers need it.
#include <commctrl.h>

#include "faces/com/form/views.h"

namespace zolt20::com {

class ComboWindow : public ViewOf<ComboBox> {
 public:
  ComboWindow(ViewOwner& owner, const ComboBox& combo);

  HWND FocusWindow() const override { return edit_ != nullptr ? edit_ : window(); }
  void Show(const faces::Change& change) override;
  void Place(const RECT& place) override;
  HBRUSH Brush(HDC canvas) override;
  void OnCommand(int code) override;
  bool OnMessage(UINT message, WPARAM wide, LPARAM longer) override;
  bool OnKey(WPARAM key) override;
  bool HasOwn(bool undo) const override;

 protected:
  /// The rows of the control are others.
  virtual void ShowRows();
  /// Shows the text, and which row is chosen.
  virtual void ShowChosen(const String& text);
  /// Inserts all rows.
  void Fill();
  bool IsDropped() const { return Send(CB_GETDROPPEDSTATE) != 0; }
  /// The line within an editable one, or null.
  HWND Edit() const { return edit_; }

 private:
  void PickEntry();
  void ForgetEntry();

  HWND edit_ = nullptr;
  bool isPicking_ = false;  // the list was open, and an entry was chosen
  bool wasPicked_ = false;  // what the last key or press chose is done
};

}  // namespace zolt20::com
