#include "faces/com/form/drop_down.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

#include "faces/com/com_text.h"
#include "faces/com/form/common_controls.h"
#include "faces/com/form/plain_boxes.h"
#include "faces/com/server/server.h"
#include "faces/shared/cut_text.h"
#include "faces/shared/form_words.h"

namespace zolt20::com {
namespace {

constexpr UINT_PTR kSubclass = 1;
constexpr const wchar_t* kProperty = L"ZOLT20.DropDown";  // of the window around line and entries

HWND MakePart(HWND parent, const wchar_t* kind, DWORD style) {
  const HWND window = CreateWindowExW(0, kind, L"", WS_CHILD | WS_CLIPSIBLINGS | style, 0, 0, 0, 0,
                                      parent, nullptr, ServerInstance(), nullptr);
  if (window == nullptr) throw std::runtime_error("no window");
  return window;
}

bool IsWithin(HWND outer, HWND window) {
  return window != nullptr && (window == outer || IsChild(outer, window));
}

}  // namespace

DropDown::DropDown(ViewOwner& owner, const ComboBox& combo, std::function<void(int)> picked)
    : owner_(owner), combo_(combo), picked_(std::move(picked)), drawn_(combo, &InLowerCase) {}

bool DropDown::IsPart(HWND window) {
  return GetPropW(GetParent(window), kProperty) != nullptr;
}

// Opening and closing.

void DropDown::Create() {
  const CommonControls commonControls;
  outer_ = MakePart(owner_.Root(), kPanelClass, WS_BORDER | WS_CLIPCHILDREN);
  line_ = MakePart(outer_, WC_EDITW, WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL);
  entries_ = MakePart(outer_, WC_LISTVIEWW,
                      WS_VISIBLE | LVS_REPORT | LVS_NOCOLUMNHEADER | LVS_OWNERDATA |
                          LVS_SHOWSELALWAYS | LVS_SINGLESEL);
  SendMessageW(line_, EM_SETCUEBANNER, TRUE, reinterpret_cast<LPARAM>(L"Search"));
  constexpr LPARAM kWanted = LVS_EX_DOUBLEBUFFER | LVS_EX_FULLROWSELECT;
  SendMessageW(entries_, LVM_SETEXTENDEDLISTVIEWSTYLE, kWanted, kWanted);
  LVCOLUMNW column{};
  column.mask = LVCF_WIDTH;
  SendMessageW(entries_, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
  const std::string name(combo_.name());
  const String spoken = faces::AccessibleName(combo_);
  owner_.GiveNames(line_, name + ".search", u"Search " + spoken);
  owner_.GiveNames(entries_, name + ".entries", spoken);
  SetPropW(outer_, kProperty, outer_);
  SetWindowSubclass(outer_, &OuterMessage, kSubclass, reinterpret_cast<DWORD_PTR>(this));
  for (const HWND part : {line_, entries_})
    SetWindowSubclass(part, &PartMessage, kSubclass, reinterpret_cast<DWORD_PTR>(this));
}

void DropDown::Open(HWND combo, HWND focus) {
  if (IsOpen()) return;
  if (outer_ == nullptr) Create();
  focus_ = focus;
  isPressed_ = false;
  for (const HWND part : {line_, entries_})
    SendMessageW(part, WM_SETFONT, reinterpret_cast<WPARAM>(owner_.FontOf(combo_)), FALSE);
  UseBoxColors(entries_);
  SetWindowTextW(line_, L"");
  drawn_.SetFilter({});
  drawn_.Refresh();
  SendMessageW(entries_, LVM_SETITEMCOUNT, static_cast<WPARAM>(drawn_.Count()), 0);
  Place(combo);
  ShowRows();
  ShowWindow(outer_, SW_SHOWNA);
  SetFocus(line_);
}

// Places the list on the side with more room, as high as the entries need, clamped to the form.
void DropDown::Place(HWND combo) {
  RECT inside{};
  GetClientRect(owner_.Root(), &inside);
  RECT box{};
  GetWindowRect(combo, &box);
  MapWindowPoints(nullptr, owner_.Root(), reinterpret_cast<POINT*>(&box), 2);
  constexpr int kMostRows = 16;
  constexpr int kLeastRows = 3;
  constexpr int kBorders = 2;
  const int pad = MulDiv(8, owner_.Dpi(), 96);
  const HDC canvas = GetDC(line_);
  const int lineHeight = LineHeightOf(canvas, owner_.FontOf(combo_)) + pad;
  ReleaseDC(line_, canvas);
  const auto spacing =
      static_cast<DWORD>(SendMessageW(entries_, LVM_APPROXIMATEVIEWRECT, 1, MAKELPARAM(-1, -1)));
  const auto two =
      static_cast<DWORD>(SendMessageW(entries_, LVM_APPROXIMATEVIEWRECT, 2, MAKELPARAM(-1, -1)));
  const int rowHeight = std::max(1, HIWORD(two) - HIWORD(spacing));
  const int rows = std::clamp(drawn_.Count(), kLeastRows, kMostRows);
  const int wanted = lineHeight + rows * rowHeight + kBorders;
  const bool isBelow =
      wanted <= inside.bottom - box.bottom || inside.bottom - box.bottom >= box.top;
  const int room = isBelow ? inside.bottom - box.bottom : box.top;
  const int height = std::min(wanted, room);
  const int width = box.right - box.left;
  SetWindowPos(outer_, HWND_TOP, box.left, isBelow ? box.bottom : box.top - height, width, height,
               SWP_NOACTIVATE);
  MoveWindow(line_, 0, 0, width - kBorders, lineHeight, FALSE);
  MoveWindow(entries_, 0, lineHeight, width - kBorders, height - kBorders - lineHeight, FALSE);
}

void DropDown::Close() {
  if (!IsOpen()) return;
  if (IsWithin(outer_, GetFocus())) SetFocus(focus_);
  ShowWindow(outer_, SW_HIDE);
}

void DropDown::Pick(int row) {
  const int picked = drawn_.ControlRow(row);
  if (picked < 0) return;
  Close();
  picked_(picked);
}

// What is shown.

void DropDown::RowsChanged() {
  if (!IsOpen()) return;
  drawn_.Refresh();
  ShowRows();
}

void DropDown::Search() {
  if (drawn_.SetFilter(WindowText(line_))) ShowRows();
}

void DropDown::ShowRows() {
  SendMessageW(entries_, LVM_SETITEMCOUNT, static_cast<WPARAM>(drawn_.Count()), 0);
  RECT inside{};
  GetClientRect(entries_, &inside);
  SendMessageW(entries_, LVM_SETCOLUMNWIDTH, 0, inside.right);
  GoTo(drawn_.IsFiltered() ? 0 : combo_.ListIndex());
  InvalidateRect(entries_, nullptr, FALSE);
}

// The chosen row is always the focused one, too. The platform scans all entries to find a selected
// one, but finds the focused one at once.
int DropDown::Current() const {
  const LRESULT row =
      SendMessageW(entries_, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED);
  const bool isChosen = row >= 0 && SendMessageW(entries_, LVM_GETITEMSTATE,
                                                 static_cast<WPARAM>(row), LVIS_SELECTED) != 0;
  return isChosen ? static_cast<int>(row) : -1;
}

void DropDown::GoTo(int row) {
  LVITEMW item{};
  item.stateMask = LVIS_FOCUSED | LVIS_SELECTED;
  if (const int current = Current(); current >= 0) {
    SendMessageW(entries_, LVM_SETITEMSTATE, static_cast<WPARAM>(current),
                 reinterpret_cast<LPARAM>(&item));
  }
  if (row < 0 || row >= drawn_.Count()) return;
  item.state = item.stateMask;
  SendMessageW(entries_, LVM_SETITEMSTATE, static_cast<WPARAM>(row),
               reinterpret_cast<LPARAM>(&item));
  SendMessageW(entries_, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

LRESULT DropDown::OnNotify(NMHDR& notice) {
  switch (notice.code) {
    case static_cast<UINT>(LVN_GETDISPINFOW):
      GiveRow(reinterpret_cast<NMLVDISPINFOW&>(notice).item);
      return 0;
    case static_cast<UINT>(NM_CUSTOMDRAW):
      return DrawRow(reinterpret_cast<NMLVCUSTOMDRAW&>(notice));
    default:
      return 0;
  }
}

// Supplies a row of the virtual list. Entries differ at their ends, so a text that is too long is
// elided in the middle when it is drawn.
void DropDown::GiveRow(LVITEMW& item) const {
  const int row = drawn_.ControlRow(item.iItem);
  if (row < 0 || (item.mask & LVIF_TEXT) == 0 || item.cchTextMax <= 0) return;
  String text = WithoutNuls(combo_.List(row));
  if (isDrawing_) {
    constexpr int kAround = 12;
    const auto width = static_cast<int>(SendMessageW(entries_, LVM_GETCOLUMNWIDTH, 0, 0));
    const HFONT font = owner_.FontOf(combo_);
    text = faces::CutInTheMiddle(text, width - MulDiv(kAround, owner_.Dpi(), 96),
                                 [font](StringView part) { return TextWidthOf(font, part); });
  }
  const std::size_t count = std::min(text.size(), static_cast<std::size_t>(item.cchTextMax - 1));
  std::copy_n(text.begin(), count, item.pszText);
  item.pszText[count] = L'\0';
}

// Custom draw: the entry that Enter picks looks selected also while the search line has the focus.
LRESULT DropDown::DrawRow(NMLVCUSTOMDRAW& draw) {
  if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  isDrawing_ = draw.nmcd.dwDrawStage == CDDS_ITEMPREPAINT;
  if (!isDrawing_) return CDRF_DODEFAULT;
  if (static_cast<int>(draw.nmcd.dwItemSpec) == Current()) {
    draw.nmcd.uItemState &= ~static_cast<UINT>(CDIS_SELECTED);
    draw.clrText = GetSysColor(COLOR_HIGHLIGHTTEXT);
    draw.clrTextBk = GetSysColor(COLOR_HIGHLIGHT);
  }
  return CDRF_NOTIFYPOSTPAINT;
}

// What comes from the windows.

LRESULT CALLBACK DropDown::OuterMessage(HWND window, UINT message, WPARAM wide, LPARAM longer,
                                        UINT_PTR /*id*/, DWORD_PTR data) {
  auto* const list = reinterpret_cast<DropDown*>(data);
  if (message == WM_DESTROY) {
    for (const HWND part : {list->line_, list->entries_})
      list->owner_.TakeNames(part);
    RemovePropW(window, kProperty);
  }
  if (list->owner_.IsGivenUp()) return DefSubclassProc(window, message, wide, longer);
  try {
    switch (message) {
      case WM_COMMAND:
        if (HIWORD(wide) == EN_CHANGE) list->Search();
        return 0;
      case WM_NOTIFY:
        return list->OnNotify(*reinterpret_cast<NMHDR*>(longer));
      case WM_MOUSEWHEEL:
        return 0;  // so that the form does not scroll
      default:
        break;
    }
  } catch (...) {
    return 0;  // memory ran out; the platform takes no exceptions
  }
  return DefSubclassProc(window, message, wide, longer);
}

LRESULT CALLBACK DropDown::PartMessage(HWND window, UINT message, WPARAM wide, LPARAM longer,
                                       UINT_PTR /*id*/, DWORD_PTR data) {
  auto* const list = reinterpret_cast<DropDown*>(data);
  if (list->owner_.IsGivenUp()) return DefSubclassProc(window, message, wide, longer);
  try {
    if (message == WM_GETDLGCODE)
      return DefSubclassProc(window, message, wide, 0) | DLGC_WANTALLKEYS;
    if (message == WM_KILLFOCUS) {
      const LRESULT result = DefSubclassProc(window, message, wide, longer);
      list->FocusWent(window, reinterpret_cast<HWND>(wide));
      return result;
    }
    if (list->OnPart(window, message, wide, longer)) return 0;
  } catch (...) {
    return 0;  // memory ran out; the platform takes no exceptions
  }
  return DefSubclassProc(window, message, wide, longer);
}

void DropDown::FocusWent(HWND window, HWND other) {
  if (IsWithin(outer_, other)) return;
  ShowWindow(outer_, SW_HIDE);
  owner_.FocusWent(window, other);
}

// Keys that mean the same in the line and in the entries.
bool DropDown::OnPart(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  const bool isAlt = message == WM_SYSKEYDOWN;
  if (message == WM_KEYDOWN || isAlt) {
    const bool isArrow = wide == VK_UP || wide == VK_DOWN;
    if (wide == VK_F4 || (!isAlt && wide == VK_ESCAPE) || (isAlt && isArrow)) {
      Close();
      return true;
    }
    if (!isAlt && wide == VK_RETURN) {
      Pick(Current());
      return true;
    }
    if (!isAlt && wide == VK_TAB) {
      Close();
      SendMessageW(focus_, WM_KEYDOWN, VK_TAB, longer);
      return true;
    }
  }
  // These keys are commands and type no text.
  if (message == WM_CHAR && (wide == L'\t' || wide == L'\r' || wide == VK_ESCAPE)) return true;
  if (window == entries_) return OnEntriesMessage(message, wide, longer);
  if (message == WM_MOUSEWHEEL) {
    SendMessageW(entries_, message, wide, longer);
    return true;
  }
  return message == WM_KEYDOWN && OnLineKey(wide);
}

// Arrow keys in the search line move the focus to the entries, so that screen readers read them.
bool DropDown::OnLineKey(WPARAM key) {
  switch (key) {
    case VK_UP:
    case VK_DOWN:
    case VK_PRIOR:
    case VK_NEXT:
      SetFocus(entries_);
      if (Current() < 0) {
        GoTo(0);
      } else {
        SendMessageW(entries_, WM_KEYDOWN, key, 0);
      }
      return true;
    case L'A':
      if (GetKeyState(VK_CONTROL) >= 0) return false;
      SendMessageW(line_, EM_SETSEL, 0, -1);
      return true;
    default:
      return false;
  }
}

// Characters typed in the entries go to the search line.
bool DropDown::OnEntriesMessage(UINT message, WPARAM wide, LPARAM longer) {
  switch (message) {
    case WM_KEYDOWN:
      return wide == VK_SPACE;
    case WM_CHAR:
      SetFocus(line_);
      SendMessageW(line_, WM_CHAR, wide, longer);
      return true;
    case WM_MOUSEMOVE:
      // Ignored if the mouse did not move: the entries moved below it.
      if (longer == std::exchange(mouse_, longer)) return true;
      if (const int row = RowAt(longer); row >= 0 && row != Current()) GoTo(row);
      return true;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      isPressed_ = true;
      if (const int row = RowAt(longer); row >= 0) GoTo(row);
      return true;
    case WM_LBUTTONUP:
      if (std::exchange(isPressed_, false)) Pick(RowAt(longer));
      return true;
    case WM_RBUTTONDOWN:
      return true;
    default:
      return false;
  }
}

int DropDown::RowAt(LPARAM point) const {
  LVHITTESTINFO hit{};
  hit.pt = {GET_X_LPARAM(point), GET_Y_LPARAM(point)};
  return static_cast<int>(
      SendMessageW(entries_, LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
}

}  // namespace zolt20::com
