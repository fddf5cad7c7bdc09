// Handling of window messages, focus and keys.
#include "faces/com/form/form_window.h"

#include <commctrl.h>

#include <utility>

#include "faces/com/form/drop_down.h"
#include "faces/shared/form_words.h"
#include "faces/shared/neighbours.h"

namespace zolt20::com {
namespace {

constexpr UINT kResolutionChanged = 0x02E3;  // WM_DPICHANGED_AFTERPARENT
constexpr UINT kThemeChanged = 0x031A;       // WM_THEMECHANGED

// Whether a key edits a text or marks, or moves the caret or the current row.
bool IsEditingKey(const MSG& message) {
  if (message.message != WM_KEYDOWN || GetKeyState(VK_MENU) < 0) return false;
  switch (message.wParam) {
    case VK_LEFT:
    case VK_RIGHT:
    case VK_UP:
    case VK_DOWN:
    case VK_HOME:
    case VK_END:
    case VK_PRIOR:
    case VK_NEXT:
    case VK_RETURN:
    case VK_BACK:
    case VK_DELETE:
    case VK_INSERT:
      return true;
    case L'A':
    case L'C':
    case L'V':
    case L'X':
    case L'Y':
    case L'Z':
      return GetKeyState(VK_CONTROL) < 0;
    default:
      return false;
  }
}

void Erase(HWND window, HDC canvas, const FormLook& look) {
  RECT inside{};
  GetClientRect(window, &inside);
  FillRect(canvas, &inside, look.Brush(canvas));
}

}  // namespace

LRESULT CALLBACK FormWindow::RootMessage(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_NCCREATE) {
    SetWindowLongPtrW(
        window, GWLP_USERDATA,
        reinterpret_cast<LONG_PTR>(reinterpret_cast<const CREATESTRUCTW*>(longer)->lpCreateParams));
  }
  auto* const form = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (form == nullptr) return DefWindowProcW(window, message, wide, longer);
  const Busy busy(*form);
  try {
    return form->OnRoot(window, message, wide, longer);
  } catch (...) {
    return 0;  // memory ran out; the platform takes no exceptions
  }
}

LRESULT FormWindow::OnRoot(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  // Once the form is retired, the control may be destroyed.
  if (isRetired_ && message != kGoAway && message != WM_DESTROY && message != WM_NCDESTROY)
    return DefWindowProcW(window, message, wide, longer);
  switch (message) {
    case kGoAway:
      GoAway();
      return 0;
    case WM_COMMAND:
      OnCommand(reinterpret_cast<HWND>(longer), HIWORD(wide));
      return 0;
    case WM_NOTIFY:
      if (auto& notice = *reinterpret_cast<NMHDR*>(longer);
          ControlView* view = ViewOf(notice.hwndFrom))
        return view->OnNotify(notice);
      return 0;
    case WM_VSCROLL:
    case WM_HSCROLL:
    case WM_MOUSEWHEEL:
      if (OnScrollBar(message, wide, longer)) return 0;
      break;
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORLISTBOX:
      if (const HBRUSH brush =
              OnColor(reinterpret_cast<HDC>(wide), reinterpret_cast<HWND>(longer))) {
        return reinterpret_cast<LRESULT>(brush);
      }
      break;
    case WM_ERASEBKGND:
      Erase(window, reinterpret_cast<HDC>(wide), look_);
      return 1;
    case WM_PAINT:
      DrawPanel(window);
      return 0;
    case WM_LBUTTONDOWN:
      OnPress();
      return 0;
    case WM_SETFOCUS:
    case WM_SIZE:
    case WM_SYSCOLORCHANGE:
    case kResolutionChanged:
    case kThemeChanged:
      if (window == root_) OnOwn(message);
      return 0;
    case WM_CLOSE:
      return 0;  // a multi-line edit posts it at Esc, as if this were a dialog
    case WM_DESTROY:
      if (window == root_) TakeLeave();
      break;
    case WM_NCDESTROY:
      SetWindowLongPtrW(window, GWLP_USERDATA, 0);
      if (window == root_) Forget();
      break;
    default:
      break;
  }
  return DefWindowProcW(window, message, wide, longer);
}

// A mouse press beside the controls.
void FormWindow::OnPress() {
  if (DropDown::IsPart(GetFocus())) ShowFocus();
  TakeFocus();
}

// Messages of scroll bars: those within the form, and the form's own.
bool FormWindow::OnScrollBar(UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_MOUSEWHEEL) return scroll_.OnWheel(root_, GET_WHEEL_DELTA_WPARAM(wide));
  if (longer == 0)
    return scroll_.OnScroll(root_, message == WM_VSCROLL ? SB_VERT : SB_HORZ, LOWORD(wide));
  if (ControlView* view = ViewOf(reinterpret_cast<HWND>(longer)))
    view->OnScroll(LOWORD(wide), HIWORD(wide));
  return true;
}

void FormWindow::GoAway() {
  constexpr int kThisOne = 1;
  if (busy_ > kThisOne) {
    goesLater_ = true;
  } else {
    DestroyWindow(root_);
  }
}

// Messages that concern the whole form.
void FormWindow::OnOwn(UINT message) {
  switch (message) {
    case WM_SETFOCUS:
      if (!isShowing_) OnOwnFocus();
      break;
    case WM_SIZE:
      LayOut();
      break;
    case kResolutionChanged:
      ResolutionChanged();
      break;
    default:
      ColorsChanged();
      break;
  }
}

void FormWindow::OnOwnFocus() {
  owner_.FocusCame();
  if (isRetired_ || root_ == nullptr || GetFocus() != root_) return;
  const Control* first = Form().Focused();
  if (first == nullptr) first = faces::NextInTabOrder(Form(), nullptr, GetKeyState(VK_SHIFT) >= 0);
  if (first != nullptr) FocusOn(*first);
}

void FormWindow::OnCommand(HWND from, int code) {
  if (from == undo_ || from == redo_) {
    if (code == BN_CLICKED) TakeBack(from == undo_);
  } else if (const Control* list = ListOf(from)) {
    if (code == EN_CHANGE) Filter(*list);
  } else if (ControlView* view = ViewOf(from)) {
    view->OnCommand(code);
  }
}

void FormWindow::DrawPanel(HWND window) {
  PAINTSTRUCT paint{};
  const HDC canvas = BeginPaint(window, &paint);
  if (ControlView* view = ViewOf(window)) view->Draw(canvas);
  EndPaint(window, &paint);
}

HBRUSH FormWindow::OnColor(HDC canvas, HWND window) const {
  ControlView* view = ViewOf(window);
  if (view == nullptr) view = ViewOf(GetParent(window));  // the edit of a combo
  if (view != nullptr) return view->Brush(canvas);
  if (!IsOfMarks(window)) return nullptr;
  SetBkMode(canvas, TRANSPARENT);
  SetTextColor(canvas, look_.Text());
  return look_.Brush(canvas);
}

LRESULT CALLBACK FormWindow::ViewMessage(HWND window, UINT message, WPARAM wide, LPARAM longer,
                                         UINT_PTR /*id*/, DWORD_PTR data) {
  auto* const form = reinterpret_cast<FormWindow*>(data);
  ControlView* const view = form->ViewOf(window);
  if (view == nullptr || form->isRetired_) return DefSubclassProc(window, message, wide, longer);
  const Busy busy(*form);
  try {
    switch (message) {
      case WM_GETDLGCODE: {
        // Claims every key except Esc, which closes the dialog around. The window's procedure does
        // not get the key, so that it does not find out about a dialog.
        const auto* key = reinterpret_cast<const MSG*>(longer);
        const LRESULT wanted = DefSubclassProc(window, message, wide, 0);
        const bool isEscape = key != nullptr && key->wParam == VK_ESCAPE;
        return isEscape ? wanted & ~DLGC_WANTALLKEYS : wanted | DLGC_WANTALLKEYS;
      }
      case WM_SETFOCUS:
      case WM_KILLFOCUS: {
        const bool before = std::exchange(form->isFocusing_, message == WM_SETFOCUS);
        const LRESULT result = DefSubclassProc(window, message, wide, longer);
        form->isFocusing_ = before;
        form->OnFocus(window, message == WM_SETFOCUS, reinterpret_cast<HWND>(wide));
        return result;
      }
      default: {
        if (form->OnView(*view, message, wide, longer)) return 0;
        const LRESULT result = DefSubclassProc(window, message, wide, longer);
        // The message may have destroyed the view.
        if (ControlView* const left = form->ViewOf(window)) {
          left->MessageDone(message);
          if (message == WM_KEYDOWN || message == WM_CHAR) form->RevealCaret(window);
        }
        return result;
      }
    }
  } catch (...) {
    return 0;  // memory ran out; the platform takes no exceptions
  }
}

void FormWindow::OnFocus(HWND window, bool came, HWND other) {
  if (isShowing_ || isRetired_) return;
  const bool isWithin = other != nullptr && (other == root_ || IsChild(root_, other));
  if (!came) {
    if (!isWithin) owner_.FocusWent();
    return;
  }
  if (!isWithin) owner_.FocusCame();
  if (isRetired_ || root_ == nullptr) return;
  Reveal(window);
  const ControlView* view = ViewOf(window);
  if (view != nullptr && Form().Focused() != &view->control())
    Make({Gesture::kFocus, &view->control()});
}

void FormWindow::FocusWent(HWND window, HWND other) {
  const Busy busy(*this);
  OnFocus(window, false, other);
}

bool FormWindow::OnView(ControlView& view, UINT message, WPARAM wide, LPARAM longer) {
  if (view.OnMessage(message, wide, longer)) return true;
  switch (message) {
    case WM_KEYDOWN:
      return OnKey(view, wide);
    case WM_SYSKEYDOWN:
      if (wide == VK_MENU || wide == VK_F10) ShowCues(UISF_HIDEACCEL);
      return false;
    case WM_SYSCHAR:
      return ClickMnemonic(static_cast<wchar_t>(wide));
    case WM_CHAR:
      return view.OnCharacter(static_cast<wchar_t>(wide));
    default:
      return false;
  }
}

// Keys.

bool FormWindow::OnKey(ControlView& view, WPARAM key) {
  const bool isControl = GetKeyState(VK_CONTROL) < 0;
  if (key == VK_TAB && !isControl) {
    const bool forward = GetKeyState(VK_SHIFT) >= 0;
    if (MoveFocus(forward)) return true;
    MSG message{};
    message.hwnd = view.window();
    message.message = WM_KEYDOWN;
    message.wParam = VK_TAB;
    if (owner_.LeavesAtTheEnd(message)) return true;
    // Fallback for a container that does not move the focus: moves it on as in any dialog.
    const HWND parent = GetParent(root_);
    const HWND next = GetNextDlgTabItem(GetAncestor(root_, GA_ROOT), root_, !forward);
    if (parent != nullptr && next != nullptr && next != root_ && !IsChild(root_, next))
      SetFocus(next);
    return true;
  }
  if (isControl && GetKeyState(VK_MENU) >= 0 && (key == L'Z' || key == L'Y')) {
    const bool isUndo = key == L'Z' && GetKeyState(VK_SHIFT) >= 0;
    if (view.HasOwn(isUndo)) return false;
    TakeBack(isUndo);
    return true;
  }
  if (isControl && key == L'F' && GetKeyState(VK_MENU) >= 0 && GetKeyState(VK_SHIFT) >= 0) {
    FocusFilter();
    return true;
  }
  if (key >= VK_LEFT && key <= VK_DOWN) ShowCues(UISF_HIDEFOCUS);
  return view.OnKey(key);
}

void FormWindow::TakeBack(bool undo) {
  Try([&] { return undo ? person_.Undo() : person_.Redo(); });
  if (!isRetired_ && root_ != nullptr && HasFocus()) ShowFocus();
}

// UI state: whether focus rectangles and underlined mnemonics show is a state of the whole dialog.
// The dialog changes it on keys that it gets, but not on keys that a control handles itself.
void FormWindow::ShowCues(WORD cues) const {
  if (const HWND around = root_ == nullptr ? nullptr : GetParent(root_))
    SendMessageW(around, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, cues), 0);
}

// Gives a new window the UI state of the dialog around the form (see ShowCues). A window that is
// made later has missed the dialog's messages about that state.
void FormWindow::TakeCues(HWND window) const {
  const auto hidden = LOWORD(SendMessageW(GetParent(root_), WM_QUERYUISTATE, 0, 0));
  if (hidden != 0) SendMessageW(window, WM_UPDATEUISTATE, MAKEWPARAM(UIS_SET, hidden), 0);
}

bool FormWindow::MoveFocus(bool forward) {
  ShowCues(UISF_HIDEFOCUS);
  // From a filter forward to its list.
  const Control* const filtered = ListOf(GetFocus());
  if (filtered != nullptr && forward) {
    FocusOn(*filtered);
    return true;
  }
  const Control* const from = filtered != nullptr ? filtered : Form().Focused();
  const Control* next = faces::NextInTabOrder(Form(), from, forward);
  if (next == nullptr) return false;
  FocusOn(*next);
  return true;
}

bool FormWindow::TranslateKey(const MSG& message) {
  if (root_ == nullptr || !HasFocus()) return false;
  const Busy busy(*this);
  const bool isAlt = GetKeyState(VK_MENU) < 0;
  if (message.message == WM_KEYDOWN && message.wParam == VK_TAB && !isAlt &&
      GetKeyState(VK_CONTROL) >= 0) {
    return MoveFocus(GetKeyState(VK_SHIFT) >= 0);
  }
  // Some containers keep keys that a control leaves to them, so these are dispatched here.
  const bool isOurs =
      IsEditingKey(message) || (message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE &&
                                DropDown::IsPart(message.hwnd));
  if (isOurs && IsChild(root_, message.hwnd)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
    return true;
  }
  if (message.message == WM_SYSCHAR) return ClickMnemonic(static_cast<wchar_t>(message.wParam));
  return false;
}

bool FormWindow::ClickMnemonic(wchar_t letter) {
  const auto lower = [](wchar_t character) {
    return static_cast<wchar_t>(reinterpret_cast<UINT_PTR>(
        CharLowerW(reinterpret_cast<wchar_t*>(static_cast<UINT_PTR>(character)))));
  };
  for (const Control* control : Form().Controls()) {
    const char16_t own = faces::MnemonicOf(*control);
    if (own == 0 || lower(static_cast<wchar_t>(own)) != lower(letter) || !control->Shown() ||
        !control->Enabled())
      continue;
    Make({Gesture::kClick, control});
    return true;
  }
  return false;
}

}  // namespace zolt20::com
