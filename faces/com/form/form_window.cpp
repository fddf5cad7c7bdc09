#include "faces/com/form/form_window.h"

#include <commctrl.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

#include "faces/com/com_text.h"
#include "faces/com/form/common_controls.h"
#include "faces/shared/form_words.h"
#include "faces/shared/neighbours.h"

namespace zolt20::com {
namespace {

constexpr UINT kGoAway = WM_APP + 1;
constexpr UINT kResolutionChanged = 0x02E3;  // WM_DPICHANGED_AFTERPARENT
constexpr UINT kThemeChanged = 0x031A;       // WM_THEMECHANGED
constexpr UINT_PTR kSubclass = 1;

// The keys by which texts and marks are changed and gone through.
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

bool HasCaption(const Control& control) {
  return control.kind() == Kind::Button || control.kind() == Kind::OptionButton;
}

}  // namespace

// A message in progress: the window stays until the last of them is through.
class FormWindow::Busy {
 public:
  explicit Busy(FormWindow& window) : window_(window.shared_from_this()) { ++window_->busy_; }
  ~Busy() {
    --window_->busy_;
    if (window_->busy_ == 0 && window_->root_ != nullptr &&
        std::exchange(window_->goesLater_, false)) {
      PostMessageW(window_->root_, kGoAway, 0, 0);
    }
  }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  std::shared_ptr<FormWindow> window_;
};

// Making windows.

FormWindow::Handle FormWindow::Make(HWND parent, const RECT& place, ZOLT20MapControl& control,
                                    faces::Person& person, Owner& owner) {
  const std::shared_ptr<FormWindow> made(new FormWindow(control, person, owner),
                                         [](FormWindow* window) { delete window; });
  made->self_ = made;
  Handle window(made.get());
  window->Create(parent, place);
  return window;
}

FormWindow::FormWindow(ZOLT20MapControl& control, faces::Person& person, Owner& owner)
    : control_(control), person_(person), owner_(owner) {}

FormWindow::~FormWindow() = default;

void FormWindow::Retire() {
  isRetired_ = true;
  const Busy busy(*this);
  if (root_ == nullptr) {
    self_ = nullptr;
    return;
  }
  control_.RemoveObserver(*this);
  if (HasFocus()) SetFocus(GetParent(root_));
  if (busy_ == 1) {
    DestroyWindow(root_);
    return;
  }
  // Its parent may go before the messages in progress are through.
  ShowWindow(root_, SW_HIDE);
  SetParent(root_, HWND_MESSAGE);
  PostMessageW(root_, kGoAway, 0, 0);
}

void FormWindow::Create(HWND parent, const RECT& place) {
  RegisterClasses(&RootMessage, &PanelMessage);
  const Busy busy(*this);
  const CommonControls commonControls;
  const Showing showing(*this);
  root_ = CreateWindowExW(WS_EX_CONTROLPARENT, kRootClass, L"",
                          WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, place.left, place.top,
                          place.right - place.left, place.bottom - place.top, parent, nullptr,
                          ServerInstance(), this);
  if (root_ == nullptr) throw std::runtime_error("no window");
  MakeFonts();
  for (const auto& caption : kPageCaptions) {
    pages_.push_back(CreateWindowExW(WS_EX_CONTROLPARENT, kPanelClass, Wide(String(Trim(caption))),
                                     WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0, 0, 0, 0,
                                     root_, nullptr, ServerInstance(), this));
  }
  for (const Control* control : Form().Controls())
    CreateView(*control);
  undo_ = MakeTool(L"Undo");
  redo_ = MakeTool(L"Redo");
  control_.AddObserver(*this);
  person_.NoteAll();
  LayOut();
}

void FormWindow::MakeFonts() {
  // The windows have the old ones until they get these.
  const FormFonts before = std::exchange(fonts_, FormFonts(root_));
  for (const auto& [control, view] : views_)
    SendMessageW(view->window(), WM_SETFONT, reinterpret_cast<WPARAM>(FontOf(*control)), TRUE);
  for (const HWND tool : {undo_, redo_})
    SendMessageW(tool, WM_SETFONT, reinterpret_cast<WPARAM>(fonts_.Usual()), TRUE);
}

// A button beside those of the form. It leaves the focus where it is.
HWND FormWindow::MakeTool(const wchar_t* caption) {
  const HWND tool = CreateWindowExW(
      0, WC_BUTTONW, caption, WS_CHILD | WS_CLIPSIBLINGS | WS_VISIBLE | WS_DISABLED | BS_PUSHBUTTON,
      0, 0, 0, 0, root_, nullptr, ServerInstance(), this);
  if (tool == nullptr) throw std::runtime_error("no window");
  SendMessageW(tool, WM_SETFONT, reinterpret_cast<WPARAM>(fonts_.Usual()), FALSE);
  return tool;
}

HWND FormWindow::ParentOf(const Control& control) const {
  if (const Control* frame = control.frame()) return views_.at(frame)->window();
  const int page = control.design().page;
  return page == kEveryPage ? root_ : pages_[static_cast<std::size_t>(page)];
}

HWND FormWindow::MakeWindow(const Control& control, const WindowKind& kind) {
  const DWORD stop = control.TakesFocus() ? WS_TABSTOP : 0;
  const HWND window =
      CreateWindowExW(kind.extended, kind.name, L"", WS_CHILD | WS_CLIPSIBLINGS | kind.style | stop,
                      0, 0, 0, 0, ParentOf(control), nullptr, ServerInstance(), this);
  if (window == nullptr) throw std::runtime_error("no window");
  const ATOM name = GlobalAddAtomW(Wide(Widened(control.name())));
  SetPropW(window, kNameProperty, reinterpret_cast<HANDLE>(static_cast<UINT_PTR>(name)));
  SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(FontOf(control)), FALSE);
  return window;
}

void FormWindow::CreateView(const Control& control) {
  std::unique_ptr<ControlView> made = MakeView(*this, control);
  ControlView& view = *views_.emplace(&control, std::move(made)).first->second;
  if (control.TakesFocus() && !HasCaption(control))
    spoken_.Give(view.window(), faces::AccessibleName(control));
  Hear(view.window(), view);
  if (view.FocusWindow() != view.window()) Hear(view.FocusWindow(), view);
}

void FormWindow::Hear(HWND window, ControlView& view) {
  viewOfWindow_.emplace(window, &view);
  if (view.control().kind() != Kind::Frame)
    SetWindowSubclass(window, &ViewMessage, kSubclass, reinterpret_cast<DWORD_PTR>(this));
}

// Notices.

void FormWindow::ElementUnloading(const Control& element) noexcept {
  const auto found = views_.find(&element);
  if (found == views_.end()) return;
  const Showing showing(*this);
  const HWND window = found->second->window();
  if (GetFocus() == window) SetFocus(root_);
  viewOfWindow_.erase(window);
  RemoveWindowSubclass(window, &ViewMessage, kSubclass);
  ForgetName(window);
  spoken_.Take(window);
  views_.erase(found);
  DestroyWindow(window);
}

// Showing.

void FormWindow::ShowChanges() noexcept {
  const Busy busy(*this);
  ShowNow();
}

void FormWindow::ShowNow() noexcept {
  if (isShowing_ || isRetired_ || root_ == nullptr) return;
  const Showing showing(*this);
  try {
    ShowEverything();
  } catch (...) {
    // No memory or no room: all of it the next time.
    try {
      person_.NoteAll();
    } catch (...) {
    }
  }
}

void FormWindow::ShowEverything() {
  const bool hadFocus = HasFocus();
  const faces::Changes changes = person_.TakeChanges();
  bool placesChanged = false;
  {
    const CommonControls commonControls;
    for (const auto& [control, change] : changes.changed) {
      if (views_.count(control) != 0) continue;
      CreateView(*control);
      placesChanged = true;
    }
  }
  for (const auto& [control, change] : changes.changed) {
    ShowView(*views_.at(control), change);
    placesChanged |= change.Has(Property::kPlace) || change.Has(Property::kTab);
  }
  if (placesChanged) LayOut();
  if (hadFocus && changes.focusMoved) ShowFocus();
  if (changes.historyChanged) {
    EnableWindow(undo_, person_.CanUndo());
    EnableWindow(redo_, person_.CanRedo());
  }
}

void FormWindow::ShowView(ControlView& view, const faces::Change& change) {
  view.Show(change);
  if ((IsWindowEnabled(view.window()) != FALSE) != view.control().Enabled())
    EnableWindow(view.window(), view.control().Enabled());
  const bool isVisible = (GetWindowLongPtrW(view.window(), GWL_STYLE) & WS_VISIBLE) != 0;
  if (isVisible != view.control().Visible()) {
    ShowWindow(view.window(), view.control().Visible() ? SW_SHOWNA : SW_HIDE);
    // The two views of the where condition lie over each other, and at first both are visible.
    if (view.control().Visible() && &view.control() == &Form().FrawhereCondition) {
      SetWindowPos(view.window(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }
  }
}

void FormWindow::LayOut() {
  if (root_ == nullptr) return;
  RECT inside{};
  GetClientRect(root_, &inside);
  const auto twips = [this](int pixels) { return MulDiv(pixels, kTwipsPerInch, Dpi()); };
  const auto pixels = [this](int inTwips) { return MulDiv(inTwips, Dpi(), kTwipsPerInch); };
  const FormPlaces places(Form(), twips(inside.right), twips(inside.bottom), fonts_.Lines());
  const Geometry strip = places.Of(Form().tabVrn);
  const int top = strip.top + strip.height;
  const int width = std::max<int>(inside.right, pixels(strip.width));
  const int bottom = places.Of(Form().lblResult).top;
  for (std::size_t page = 0; page < pages_.size(); ++page) {
    SetWindowPos(pages_[page], nullptr, 0, pixels(top), width, pixels(bottom) - pixels(top),
                 SWP_NOZORDER | SWP_NOACTIVATE);
    ShowWindow(pages_[page],
               Form().tabVrn.Tab().value() == static_cast<int>(page) ? SW_SHOWNA : SW_HIDE);
  }
  const auto put = [&](HWND window, const Geometry& place) {
    SetWindowPos(window, nullptr, pixels(place.left), pixels(place.top), pixels(place.width),
                 pixels(place.height), SWP_NOZORDER | SWP_NOACTIVATE);
  };
  put(undo_, places.Undo());
  put(redo_, places.Redo());
  for (const auto& [control, view] : views_) {
    Geometry place = places.Of(*control);
    if (control->frame() == nullptr && control->design().page != kEveryPage) place.top -= top;
    view->Place({pixels(place.left), pixels(place.top), pixels(place.left + place.width),
                 pixels(place.top + place.height)});
  }
}

bool FormWindow::HasFocus() const {
  const HWND focus = GetFocus();
  return focus != nullptr && (focus == root_ || IsChild(root_, focus));
}

void FormWindow::ShowFocus() {
  if (const Control* focused = Form().Focused()) {
    FocusOn(*focused);
  } else if (GetFocus() != root_) {
    SetFocus(root_);
  }
}

void FormWindow::FocusOn(const Control& control) {
  const auto found = views_.find(&control);
  if (found == views_.end()) return;
  const HWND wanted = found->second->FocusWindow();
  if (GetFocus() != wanted) SetFocus(wanted);
}

void FormWindow::ResolutionChanged() {
  MakeFonts();
  for (const auto& [control, view] : views_)
    view->LooksChanged();
  person_.NoteAll();  // the rows have another width
  ShowChanges();
}

void FormWindow::ColoursChanged() {
  for (const auto& [control, view] : views_) {
    SendMessageW(view->window(), WM_SYSCOLORCHANGE, 0, 0);
    view->LooksChanged();
  }
  InvalidateRect(root_, nullptr, TRUE);
}

void FormWindow::Place(const RECT& place, const RECT& clip) {
  if (root_ == nullptr) return;
  const Busy busy(*this);
  SetWindowPos(root_, nullptr, place.left, place.top, place.right - place.left,
               place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
  RECT seen{};
  IntersectRect(&seen, &place, &clip);
  if (EqualRect(&seen, &place)) {
    SetWindowRgn(root_, nullptr, TRUE);
  } else {
    OffsetRect(&seen, -place.left, -place.top);
    SetWindowRgn(root_, CreateRectRgnIndirect(&seen), TRUE);
  }
}

void FormWindow::Show(bool visible) {
  if (root_ == nullptr) return;
  const Busy busy(*this);
  ShowNow();
  ShowWindow(root_, visible ? SW_SHOW : SW_HIDE);
}

void FormWindow::Enable(bool enabled) {
  if (root_ != nullptr) EnableWindow(root_, enabled);
}

void FormWindow::TakeFocus() {
  if (root_ == nullptr || HasFocus()) return;
  const Busy busy(*this);
  if (Form().Focused() != nullptr) {
    ShowFocus();
    return;
  }
  const Control* first = faces::NextInTabOrder(Form(), nullptr, GetKeyState(VK_SHIFT) >= 0);
  if (first == nullptr) {
    SetFocus(root_);
  } else {
    FocusOn(*first);
  }
}

// Gestures.

void FormWindow::Make(UserGesture gesture) noexcept {
  Try([&] { return person_.Make(std::move(gesture)); });
}

void FormWindow::Key(const TextBox& box, char16_t code, TextMark mark) noexcept {
  Try([&] { return person_.Key(box, code, mark); });
}

void FormWindow::Try(const std::function<faces::End()>& gesture) noexcept {
  if (isShowing_ || isRetired_) return;
  const Busy busy(*this);
  owner_.GestureBegins();
  try {
    const faces::End end = gesture();
    const bool hasFailed = end == faces::End::kRuntimeError || end == faces::End::kFailed;
    if (hasFailed && !isRetired_) {
      const faces::Failure& failure = person_.failure();
      std::wstring text = L"The program failed that answers the events of the control.";
      if (end == faces::End::kRuntimeError) {
        text = L"Run-time error " + std::to_wstring(failure.number) + L": " +
               std::wstring(failure.text.begin(), failure.text.end());
      }
      ShowChanges();
      owner_.GestureFailed(text.c_str());
    }
  } catch (...) {
    // No memory to tell it.
  }
  owner_.GestureEnds();
}

bool FormWindow::MoveFocus(bool forward) {
  const Control* next = faces::NextInTabOrder(Form(), Form().Focused(), forward);
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
  // Some containers take for themselves what a control leaves to them.
  if (IsEditingKey(message) && IsChild(root_, message.hwnd)) {
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

// What comes from the windows.

ControlView* FormWindow::ViewOf(HWND window) const {
  const auto found = viewOfWindow_.find(window);
  return found == viewOfWindow_.end() ? nullptr : found->second;
}

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

LRESULT CALLBACK FormWindow::PanelMessage(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  return RootMessage(window, message, wide, longer);
}

LRESULT FormWindow::OnRoot(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  if (message == kGoAway) {
    constexpr int kThisOne = 1;
    if (busy_ > kThisOne) {
      goesLater_ = true;
    } else {
      DestroyWindow(root_);
    }
    return 0;
  }
  // Once it is given up there may be no control any more.
  if (isRetired_ && message != WM_DESTROY && message != WM_NCDESTROY)
    return DefWindowProcW(window, message, wide, longer);
  switch (message) {
    case WM_COMMAND:
      if (const HWND from = reinterpret_cast<HWND>(longer); from == undo_ || from == redo_) {
        if (HIWORD(wide) == BN_CLICKED) TakeBack(from == undo_);
        return 0;
      }
      if (ControlView* view = ViewOf(reinterpret_cast<HWND>(longer))) view->OnCommand(HIWORD(wide));
      return 0;
    case WM_NOTIFY:
      if (auto& notice = *reinterpret_cast<NMHDR*>(longer);
          ControlView* view = ViewOf(notice.hwndFrom))
        return view->OnNotify(notice);
      return 0;
    case WM_VSCROLL:
      if (ControlView* view = ViewOf(reinterpret_cast<HWND>(longer)))
        view->OnScroll(LOWORD(wide), HIWORD(wide));
      return 0;
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORLISTBOX:
      if (const HBRUSH brush =
              OnColour(reinterpret_cast<HDC>(wide), reinterpret_cast<HWND>(longer))) {
        return reinterpret_cast<LRESULT>(brush);
      }
      break;
    case WM_ERASEBKGND: {
      RECT inside{};
      GetClientRect(window, &inside);
      FillRect(reinterpret_cast<HDC>(wide), &inside, GetSysColorBrush(COLOR_BTNFACE));
      return 1;
    }
    case WM_PAINT:
      DrawPanel(window);
      return 0;
    case WM_LBUTTONDOWN:
      TakeFocus();
      return 0;
    case WM_SETFOCUS:
      if (window == root_ && !isShowing_ && !isRetired_) {
        owner_.FocusCame();
        if (isRetired_ || root_ == nullptr || GetFocus() != root_) return 0;
        const Control* first = Form().Focused();
        if (first == nullptr)
          first = faces::NextInTabOrder(Form(), nullptr, GetKeyState(VK_SHIFT) >= 0);
        if (first != nullptr) FocusOn(*first);
      }
      return 0;
    case WM_SIZE:
      if (window == root_) LayOut();
      return 0;
    case kResolutionChanged:
      if (window == root_) ResolutionChanged();
      return 0;
    case WM_SYSCOLORCHANGE:
    case kThemeChanged:
      if (window == root_) ColoursChanged();
      return 0;
    case WM_CLOSE:
      return 0;  // a box of several lines asks for it at Esc, in the belief that this is a dialog
    case WM_DESTROY:
      if (window == root_) {
        isShowing_ = true;  // what the windows tell on their way is nobody's act
        for (const auto& [heard, view] : viewOfWindow_)
          RemoveWindowSubclass(heard, &ViewMessage, kSubclass);
        for (const auto& [control, view] : views_) {
          ForgetName(view->window());
          spoken_.Take(view->window());
        }
      }
      break;
    case WM_NCDESTROY:
      SetWindowLongPtrW(window, GWLP_USERDATA, 0);
      if (window == root_) {
        root_ = nullptr;
        if (isRetired_) {
          self_ = nullptr;
        } else {
          control_.RemoveObserver(*this);  // its container took it away
        }
        views_.clear();
        viewOfWindow_.clear();
        pages_.clear();
      }
      break;
    default:
      break;
  }
  return DefWindowProcW(window, message, wide, longer);
}

void FormWindow::DrawPanel(HWND window) {
  PAINTSTRUCT paint{};
  const HDC canvas = BeginPaint(window, &paint);
  if (ControlView* view = ViewOf(window)) view->Draw(canvas);
  EndPaint(window, &paint);
}

HBRUSH FormWindow::OnColour(HDC canvas, HWND window) const {
  ControlView* view = ViewOf(window);
  if (view == nullptr) view = ViewOf(GetParent(window));  // the line of a combo
  return view == nullptr ? nullptr : view->Brush(canvas);
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
        // Every key is the form's but Esc, which closes the dialog around. The window does not
        // learn that there is one.
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
        // The view may be gone with the message.
        if (ControlView* const left = form->ViewOf(window)) left->MessageDone(message);
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
  const ControlView* view = ViewOf(window);
  if (view != nullptr && Form().Focused() != &view->control())
    Make({Gesture::kFocus, &view->control()});
}

bool FormWindow::OnView(ControlView& view, UINT message, WPARAM wide, LPARAM longer) {
  if (view.OnMessage(message, wide, longer)) return true;
  switch (message) {
    case WM_KEYDOWN:
      return OnKey(view, wide);
    case WM_SYSCHAR:
      return ClickMnemonic(static_cast<wchar_t>(wide));
    case WM_CHAR:
      return view.OnCharacter(static_cast<wchar_t>(wide));
    default:
      return false;
  }
}

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
    // In a container that knows nothing of this it goes on as in any dialog.
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
  return view.OnKey(key);
}

void FormWindow::TakeBack(bool undo) {
  Try([&] { return undo ? person_.Undo() : person_.Redo(); });
  if (!isRetired_ && root_ != nullptr && HasFocus()) ShowFocus();
}

}  // namespace zolt20::com
