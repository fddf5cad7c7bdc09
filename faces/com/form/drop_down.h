// The open list of a combo that may have very many entries: a line in which a person searches, and
// below it the entries that hold its text.
//
// It lies within the form, over everything else, and has the focus while it is open; it closes when
// the focus goes elsewhere. It makes no gesture: what was picked it tells whoever opened it, as the
// last thing that it does.
#pragma once

#include <windows.h>
// The system's other headers need it.
#include <commctrl.h>

#include <functional>

#include "faces/com/form/view.h"
#include "faces/shared/drawn_rows.h"

namespace zolt20::com {

class DropDown {
 public:
  /// The combo outlives it. There are no windows before it is opened. `picked` hears which row of
  /// the combo a person picked, when the list is closed.
  DropDown(ViewOwner& owner, const ComboBox& combo, std::function<void(int)> picked);

  /// Opens the list below the window of the combo, or above it, with an empty search. The focus
  /// goes back to `focus`. Throws std::runtime_error when the platform refuses.
  void Open(HWND combo, HWND focus);
  bool IsOpen() const { return outer_ != nullptr && IsWindowVisible(outer_) != FALSE; }
  /// Nothing is picked.
  void Close();
  /// The combo has other entries, or another one is chosen.
  void RowsChanged();

  /// Whether a window is part of such a list.
  static bool IsPart(HWND window);

 private:
  static LRESULT CALLBACK OuterMessage(HWND window, UINT message, WPARAM wide, LPARAM longer,
                                       UINT_PTR id, DWORD_PTR data);
  static LRESULT CALLBACK PartMessage(HWND window, UINT message, WPARAM wide, LPARAM longer,
                                      UINT_PTR id, DWORD_PTR data);
  void Create();
  void Place(HWND combo);
  void Search();
  void ShowRows();
  void GiveRow(LVITEMW& item) const;
  LRESULT DrawRow(NMLVCUSTOMDRAW& draw);
  LRESULT OnNotify(NMHDR& notice);
  bool OnPart(HWND window, UINT message, WPARAM wide, LPARAM longer);
  bool OnLineKey(WPARAM key);
  bool OnEntriesMessage(UINT message, WPARAM wide, LPARAM longer);
  void FocusWent(HWND window, HWND other);
  int Current() const;
  void GoTo(int row);
  int RowAt(LPARAM point) const;
  void Pick(int row);

  ViewOwner& owner_;
  const ComboBox& combo_;
  std::function<void(int)> picked_;
  faces::DrawnRows drawn_;
  HWND outer_ = nullptr;
  HWND line_ = nullptr;
  HWND entries_ = nullptr;
  HWND focus_ = nullptr;    // where it goes back to
  LPARAM mouse_ = 0;        // where the mouse was last
  bool isPressed_ = false;  // the button of the mouse, since it is over the entries
  bool isDrawing_ = false;
};

}  // namespace zolt20::com
