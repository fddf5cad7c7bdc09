#include "faces/com/form/text_menu.h"

#include <richedit.h>
#include <windowsx.h>

#include <algorithm>

namespace zolt20::com {
namespace {

constexpr LPARAM kAtCaret = -1;  // WM_CONTEXTMENU from the keyboard

enum Command : UINT { kUndo = 1, kCut, kCopy, kPaste, kDelete, kSelectAll };

class Menu {
 public:
  explicit Menu(HWND box) : handle_(CreatePopupMenu()) {
    CHARRANGE marked{};
    SendMessageW(box, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&marked));
    GETTEXTLENGTHEX asked{GTL_NUMCHARS | GTL_PRECISE, 1200};
    const auto length = SendMessageW(box, EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&asked), 0);
    const bool isMarked = marked.cpMax > marked.cpMin;
    const bool isAllMarked = marked.cpMin == 0 && marked.cpMax >= length;
    Add(kUndo, L"&Undo", SendMessageW(box, EM_CANUNDO, 0, 0) != 0);
    AppendMenuW(handle_, MF_SEPARATOR, 0, nullptr);
    Add(kCut, L"Cu&t", isMarked);
    Add(kCopy, L"&Copy", isMarked);
    Add(kPaste, L"&Paste", IsClipboardFormatAvailable(CF_UNICODETEXT) != FALSE);
    Add(kDelete, L"&Delete", isMarked);
    AppendMenuW(handle_, MF_SEPARATOR, 0, nullptr);
    Add(kSelectAll, L"Select &All", length > 0 && !isAllMarked);
  }
  ~Menu() { DestroyMenu(handle_); }
  Menu(const Menu&) = delete;
  Menu& operator=(const Menu&) = delete;

  /// Shows the menu. Returns the command that the person chose, 0 for none.
  UINT Choose(HWND box, POINT corner) const {
    return static_cast<UINT>(TrackPopupMenu(
        handle_, TPM_LEFTALIGN | TPM_TOPALIGN | TPM_RIGHTBUTTON | TPM_RETURNCMD | TPM_NONOTIFY,
        corner.x, corner.y, 0, box, nullptr));
  }

 private:
  void Add(Command command, const wchar_t* caption, bool isEnabled) const {
    AppendMenuW(handle_, MF_STRING | (isEnabled ? MF_ENABLED : MF_GRAYED), command, caption);
  }

  HMENU handle_;
};

// The corner of the menu: the mouse's place, or for a key the caret, clamped to the box.
POINT CornerOf(HWND box, LPARAM place) {
  if (place != kAtCaret) return {GET_X_LPARAM(place), GET_Y_LPARAM(place)};
  POINT corner{};
  GetCaretPos(&corner);
  RECT inside{};
  GetClientRect(box, &inside);
  corner.x = std::clamp<LONG>(corner.x, 0, inside.right);
  corner.y = std::clamp<LONG>(corner.y, 0, inside.bottom);
  ClientToScreen(box, &corner);
  return corner;
}

void Do(HWND box, UINT command) {
  switch (command) {
    case kUndo:
      SendMessageW(box, EM_UNDO, 0, 0);
      return;
    case kCut:
      SendMessageW(box, WM_CUT, 0, 0);
      return;
    case kCopy:
      SendMessageW(box, WM_COPY, 0, 0);
      return;
    case kPaste:
      SendMessageW(box, WM_PASTE, 0, 0);
      return;
    case kDelete:
      SendMessageW(box, WM_CLEAR, 0, 0);
      return;
    case kSelectAll:
      SendMessageW(box, EM_SETSEL, 0, -1);
      return;
    default:
      return;
  }
}

}  // namespace

// Versions of the rich edit differ in which of these messages they turn into WM_CONTEXTMENU.
bool AsksForMenu(HWND box, UINT message, WPARAM wide, LPARAM longer, LPARAM& place) {
  switch (message) {
    case WM_CONTEXTMENU:
      place = longer;
      return true;
    case WM_RBUTTONUP: {
      POINT point{GET_X_LPARAM(longer), GET_Y_LPARAM(longer)};
      ClientToScreen(box, &point);
      place = MAKELPARAM(point.x, point.y);
      return true;
    }
    case WM_KEYUP:
      place = kAtCaret;
      return wide == VK_APPS;
    case WM_SYSKEYDOWN:
      place = kAtCaret;
      return wide == VK_F10 && GetKeyState(VK_SHIFT) < 0;
    default:
      return false;
  }
}

void ShowTextMenu(HWND box, LPARAM place) {
  if (GetFocus() != box) SetFocus(box);
  // Handlers of the focus may move it on, or destroy the box.
  if (GetFocus() != box) return;
  const Menu menu(box);
  const UINT command = menu.Choose(box, CornerOf(box, place));
  if (IsWindow(box)) Do(box, command);
}

}  // namespace zolt20::com
