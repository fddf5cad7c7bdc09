#include "faces/com/text_box/box_window.h"

#include <commctrl.h>
#include <richedit.h>

#include <stdexcept>
#include <utility>

#include "faces/com/form/common_controls.h"
#include "faces/com/form/views.h"
#include "faces/com/server/server.h"

namespace zolt20::com {
namespace {

constexpr UINT_PTR kSubclass = 1;
// Wider than any line that a person writes: from this margin on lines do not wrap.
constexpr long kNoMargin = 32'000;

}  // namespace

std::shared_ptr<BoxWindow> BoxWindow::Make(HWND parent, const RECT& place, OneBox& surface,
                                           Owner& owner) {
  std::shared_ptr<BoxWindow> made(new BoxWindow(surface, owner));
  made->self_ = made;
  made->Create(parent, place);
  return made;
}

void BoxWindow::Create(HWND parent, const RECT& place) {
  RegisterClasses(&RootMessage);
  const CommonControls commonControls;
  const Showing showing(*this);
  root_ = CreateWindowExW(WS_EX_CONTROLPARENT, kPanelClass, L"",
                          WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, place.left, place.top,
                          place.right - place.left, place.bottom - place.top, parent, nullptr,
                          ServerInstance(), this);
  if (root_ == nullptr) throw std::runtime_error("no window");
  fonts_ = FormFonts(root_);
  view_ = StatementsView(*this, surface_.TxtOutput);
  SetWindowSubclass(view_->window(), &BoxMessage, kSubclass, reinterpret_cast<DWORD_PTR>(this));
  ShowText();
  ShowWindow(view_->window(), SW_SHOW);
}

BoxWindow::~BoxWindow() {
  if (root_ == nullptr) return;
  const HWND root = std::exchange(root_, nullptr);
  RemoveWindowSubclass(view_->window(), &BoxMessage, kSubclass);
  SetWindowLongPtrW(root, GWLP_USERDATA, 0);
  DestroyWindow(root);
}

HWND BoxWindow::MakeWindow(const Control& /*control*/, const WindowKind& kind) {
  RECT inside{};
  GetClientRect(root_, &inside);
  const HWND window = CreateWindowExW(
      kind.extended, kind.name, L"", WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | kind.style, 0, 0,
      inside.right, inside.bottom, root_, nullptr, ServerInstance(), this);
  if (window == nullptr) throw std::runtime_error("no window");
  SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(fonts_.Usual()), FALSE);
  return window;
}

// Calls of the owner: place, text and focus.

void BoxWindow::Place(const RECT& place, const RECT& clip) const {
  SetWindowPos(root_, nullptr, place.left, place.top, place.right - place.left,
               place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
  RECT seen{};
  IntersectRect(&seen, &place, &clip);
  OffsetRect(&seen, -place.left, -place.top);
  const bool isWhole = seen.right - seen.left == place.right - place.left &&
                       seen.bottom - seen.top == place.bottom - place.top;
  SetWindowRgn(root_, isWhole ? nullptr : CreateRectRgnIndirect(&seen), TRUE);
}

void BoxWindow::ShowText() {
  if (!view_) return;
  const Showing showing(*this);
  view_->Show({});
}

void BoxWindow::RightMargin(long twips) const {
  if (!view_) return;
  const HDC screen = GetDC(nullptr);
  if (twips > 0 && twips < kNoMargin) {
    SendMessageW(Box(), EM_SETTARGETDEVICE, reinterpret_cast<WPARAM>(screen), twips);
  } else {
    SendMessageW(Box(), EM_SETTARGETDEVICE, 0, twips == 0 ? 0 : 1);
  }
  ReleaseDC(nullptr, screen);
}

void BoxWindow::Enable(bool enabled) const {
  if (view_) EnableWindow(Box(), enabled);
}

void BoxWindow::TakeFocus() const {
  if (view_ && GetFocus() != Box()) SetFocus(Box());
}

bool BoxWindow::TranslateKey(const MSG& message) const {
  if (!view_ || message.hwnd != Box() || message.message != WM_KEYDOWN) return false;
  // Some containers keep keys that a box leaves to them, so these are dispatched here.
  if (message.wParam == VK_TAB || message.wParam == VK_ESCAPE || GetKeyState(VK_MENU) < 0)
    return false;
  TranslateMessage(&message);
  DispatchMessageW(&message);
  return true;
}

// What a person does.

void BoxWindow::Make(UserGesture gesture) noexcept {
  if (isShowing_ || gesture.gesture != Gesture::kType) return;
  Owner& owner = tell_;
  try {
    surface_.User(gesture);
    owner.TextTyped();
  } catch (...) {
    // Memory ran out: the surface keeps the old text.
  }
}

LRESULT CALLBACK BoxWindow::RootMessage(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_NCCREATE) {
    SetWindowLongPtrW(
        window, GWLP_USERDATA,
        reinterpret_cast<LONG_PTR>(reinterpret_cast<const CREATESTRUCTW*>(longer)->lpCreateParams));
  }
  auto* const box = reinterpret_cast<BoxWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (box == nullptr) return DefWindowProcW(window, message, wide, longer);
  const std::shared_ptr<BoxWindow> keep = box->self_.lock();
  try {
    return box->OnRoot(window, message, wide, longer);
  } catch (...) {
    return 0;  // memory ran out; the platform takes no exceptions
  }
}

LRESULT BoxWindow::OnRoot(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  switch (message) {
    case WM_COMMAND:
      if (view_) view_->OnCommand(HIWORD(wide));
      return 0;
    case WM_SIZE:
      if (view_) view_->Place({0, 0, LOWORD(longer), HIWORD(longer)});
      return 0;
    case WM_SETFOCUS:
      TakeFocus();
      return 0;
    case WM_SYSCOLORCHANGE:
      if (view_) view_->LooksChanged();
      return 0;
    case WM_CLOSE:
      return 0;         // a multi-line edit posts it at Esc, as if this were a dialog
    case WM_NCDESTROY:  // destroyed with its parent
      SetWindowLongPtrW(window, GWLP_USERDATA, 0);
      root_ = nullptr;
      view_.reset();
      break;
    default:
      break;
  }
  return DefWindowProcW(window, message, wide, longer);
}

LRESULT CALLBACK BoxWindow::BoxMessage(HWND window, UINT message, WPARAM wide, LPARAM longer,
                                       UINT_PTR /*id*/, DWORD_PTR data) {
  auto* const box = reinterpret_cast<BoxWindow*>(data);
  const std::shared_ptr<BoxWindow> keep = box->self_.lock();
  if (!keep || !box->view_) return DefSubclassProc(window, message, wide, longer);
  try {
    if (message == WM_GETDLGCODE) {
      const auto* key = reinterpret_cast<const MSG*>(longer);
      const LRESULT wanted = DefSubclassProc(window, message, wide, 0);
      const bool isEscape = key != nullptr && key->wParam == VK_ESCAPE;
      return isEscape ? wanted & ~DLGC_WANTALLKEYS : wanted | DLGC_WANTALLKEYS;
    }
    if (box->OnBox(message, wide, longer)) return 0;
    const LRESULT result = DefSubclassProc(window, message, wide, longer);
    if (box->view_) box->view_->MessageDone(message);
    if (message == WM_SETFOCUS) box->tell_.FocusCame();
    if (message == WM_KILLFOCUS) box->tell_.FocusWent();
    return result;
  } catch (...) {
    return 0;  // memory ran out; the platform takes no exceptions
  }
}

bool BoxWindow::OnBox(UINT message, WPARAM wide, LPARAM longer) {
  if (view_->OnMessage(message, wide, longer)) return true;
  switch (message) {
    case WM_KEYDOWN:
      if (wide == VK_TAB && GetKeyState(VK_CONTROL) >= 0) return OnTab(view_->window());
      return view_->OnKey(wide);
    case WM_CHAR:
      return view_->OnCharacter(static_cast<wchar_t>(wide));
    default:
      return false;
  }
}

// Fallback for a container that does not move the focus: moves it on as in any dialog.
bool BoxWindow::OnTab(HWND window) {
  MSG message{};
  message.hwnd = window;
  message.message = WM_KEYDOWN;
  message.wParam = VK_TAB;
  const HWND root = root_;
  if (tell_.Leaves(message)) return true;
  const HWND next =
      GetNextDlgTabItem(GetAncestor(root, GA_ROOT), root, GetKeyState(VK_SHIFT) < 0 ? TRUE : FALSE);
  if (next != nullptr && next != root && !IsChild(root, next)) SetFocus(next);
  return true;
}

}  // namespace zolt20::com
