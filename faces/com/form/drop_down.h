// The open list of a combo that may have very many entries: a search line, and below it a virtual
// list of the entries that hold its text.
//
// It lies within the form, over everything else, and has the focus while it is open; it closes when
// the focus goes elsewhere. It makes no gesture: it passes the picked row to the callback `picked`,
// as the last thing that it does.
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
  /// The combo must outlive it. Its windows are made when it first opens. `picked` is called with
  /// the row of the combo that a person picked, after the list is closed.
  DropDown(ViewOwner& owner, const ComboBox& combo, std::function<void(int)> picked);

  /// Opens the list below the window of the combo, or above it, with an empty search. The focus
  /// goes back to `focus`. Throws std::runtime_error when the platform refuses.
  void Open(HWND combo, HWND focus);
  bool IsOpen() const { return outer_ != nullptr && IsWindowVisible(outer_) != FALSE; }
  /// Closes the list without a pick.
  void Close();
  /// Called when the combo's rows, or its chosen row, changed.
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
  HWND focus_ = nullptr;    // the window that gets the focus back
  LPARAM mouse_ = 0;        // the last place of the mouse
  bool isPressed_ = false;  // the mouse button went down over the entries
  bool isDrawing_ = false;
};

}  // namespace zolt20::com
