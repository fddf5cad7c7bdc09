// The window of a combo: the platform's own with its list, whose many notices become gestures.
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
  /// Called when the rows of the control changed.
  virtual void ShowRows();
  /// Shows the text and the chosen row.
  virtual void ShowChosen(const String& text);
  /// Inserts all rows.
  void Fill();
  bool IsDropped() const { return Send(CB_GETDROPPEDSTATE) != 0; }
  /// The edit window within an editable combo, or null.
  HWND Edit() const { return edit_; }

 private:
  void PickEntry();
  void ForgetEntry();

  HWND edit_ = nullptr;
  bool isPicking_ = false;  // the list was open, and an entry was chosen
  bool wasPicked_ = false;  // the choice of the last key or press was made
};

}  // namespace zolt20::com
