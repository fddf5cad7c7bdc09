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

constexpr UINT_PTR kSubclass = 1;

bool HoldsNames(const Control& control) {
  switch (control.kind()) {
    case Kind::TextBox:
    case Kind::SyntaxTextBox:
    case Kind::ListBox:
    case Kind::ComboBox:
      return true;
    default:
      return false;
  }
}

// Names and statements are always left to right, even in a mirrored form.
void ReadFromTheLeft(HWND window) {
  constexpr LONG_PTR kOtherwise =
      WS_EX_LAYOUTRTL | WS_EX_RTLREADING | WS_EX_RIGHT | WS_EX_LEFTSCROLLBAR;
  const LONG_PTR style = GetWindowLongPtrW(window, GWL_EXSTYLE);
  if ((style & kOtherwise) != 0) SetWindowLongPtrW(window, GWL_EXSTYLE, style & ~kOtherwise);
}

}  // namespace

// Making windows.

FormWindow::Handle FormWindow::Make(HWND parent, const RECT& place, ZOLT20MapControl& control,
                                    faces::Person& person, Owner& owner, const FormLook& look) {
  const std::shared_ptr<FormWindow> made(new FormWindow(control, person, owner, look),
                                         [](FormWindow* window) { delete window; });
  made->self_ = made;
  Handle window(made.get());
  window->Create(parent, place);
  return window;
}

FormWindow::FormWindow(ZOLT20MapControl& control, faces::Person& person, Owner& owner,
                       const FormLook& look)
    : control_(control), person_(person), owner_(owner), look_(look) {}

FormWindow::~FormWindow() = default;

FormWindow::Busy::Busy(FormWindow& window) : window_(window.shared_from_this()) {
  ++window_->busy_;
}

FormWindow::Busy::~Busy() {
  --window_->busy_;
  if (window_->busy_ == 0 && window_->root_ != nullptr && std::exchange(window_->goesLater_, false))
    PostMessageW(window_->root_, kGoAway, 0, 0);
}

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
  // The parent may be destroyed before the messages in progress are done: leaves it.
  ShowWindow(root_, SW_HIDE);
  SetParent(root_, HWND_MESSAGE);
  PostMessageW(root_, kGoAway, 0, 0);
}

void FormWindow::Create(HWND parent, const RECT& place) {
  RegisterClasses(&RootMessage);
  const Busy busy(*this);
  const CommonControls commonControls;
  const Showing showing(*this);
  const DWORD mirrored = look_.IsMirrored() ? WS_EX_LAYOUTRTL : 0;
  root_ = CreateWindowExW(WS_EX_CONTROLPARENT | mirrored, kRootClass, L"",
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
  // Keeps the old fonts alive until all windows have got the new ones.
  const FormFonts before = std::exchange(fonts_, FormFonts(root_));
  for (const auto& [control, view] : views_)
    SendMessageW(view->window(), WM_SETFONT, reinterpret_cast<WPARAM>(FontOf(*control)), TRUE);
  for (const HWND tool : {undo_, redo_})
    SendMessageW(tool, WM_SETFONT, reinterpret_cast<WPARAM>(fonts_.Usual()), TRUE);
  for (const auto& [list, filter] : filters_)
    filter.SetFont(fonts_.Usual());
}

// A button that is no control of the form. A click on it does not move the focus.
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
  if (HoldsNames(control)) ReadFromTheLeft(window);
  TakeCues(window);
  GiveName(window, control.name());
  SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(FontOf(control)), FALSE);
  return window;
}

void FormWindow::CreateView(const Control& control) {
  std::unique_ptr<ControlView> made = MakeView(*this, control);
  ControlView& view = *views_.emplace(&control, std::move(made)).first->second;
  if (control.TakesFocus()) spoken_.Give(view.window(), faces::AccessibleName(control));
  Hear(view.window(), view);
  if (view.FocusWindow() != view.window()) Hear(view.FocusWindow(), view);
  if (faces::HasFilter(control.design())) CreateFilter(control);
}

void FormWindow::CreateFilter(const Control& list) {
  const FilterLine& filter = filters_.emplace(&list, FilterLine(ParentOf(list))).first->second;
  const std::string name(list.name());
  GiveNames(filter.Line(), name + ".filter", u"Filter " + faces::AccessibleName(list));
  GiveName(filter.Marks(), name + ".marks");
  filter.SetFont(fonts_.Usual());
  SetWindowSubclass(filter.Line(), &FilterMessage, kSubclass, reinterpret_cast<DWORD_PTR>(this));
}

void FormWindow::Hear(HWND window, ControlView& view) {
  viewOfWindow_.emplace(window, &view);
  if (view.control().kind() != Kind::Frame)
    SetWindowSubclass(window, &ViewMessage, kSubclass, reinterpret_cast<DWORD_PTR>(this));
}

ControlView* FormWindow::ViewOf(HWND window) const {
  const auto found = viewOfWindow_.find(window);
  return found == viewOfWindow_.end() ? nullptr : found->second;
}

// Called before the windows are destroyed.
void FormWindow::TakeLeave() {
  isShowing_ = true;  // notices of windows being destroyed are no gestures
  for (const auto& [window, view] : viewOfWindow_)
    RemoveWindowSubclass(window, &ViewMessage, kSubclass);
  for (const auto& [control, view] : views_) {
    TakeNames(view->window());
  }
  for (const auto& [list, filter] : filters_) {
    RemoveWindowSubclass(filter.Line(), &FilterMessage, kSubclass);
    TakeNames(filter.Line());
    ForgetName(filter.Marks());
  }
}

// Called after the windows were destroyed.
void FormWindow::Forget() {
  root_ = nullptr;
  if (isRetired_) {
    self_ = nullptr;
  } else {
    control_.RemoveObserver(*this);  // the parent window was destroyed
  }
  views_.clear();
  viewOfWindow_.clear();
  filters_.clear();
  pages_.clear();
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
  TakeNames(window);
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
    // Memory or window handles ran out: everything is dirty and shown the next time.
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
  if (change.Has(Property::kCaption) && view.control().TakesFocus())
    spoken_.Give(view.window(), faces::AccessibleName(view.control()));
  if (const auto filter = filters_.find(&view.control()); filter != filters_.end()) {
    filter->second.ShowMarks(view.HiddenMarks());
    filter->second.Enable(view.control().Enabled());
  }
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
  if (root_ == nullptr || isFitting_) return;
  RECT whole{};
  GetWindowRect(root_, &whole);
  const SIZE size{whole.right - whole.left, whole.bottom - whole.top};
  const auto pixels = [this](int twips) { return MulDiv(twips, Dpi(), kTwipsPerInch); };
  const auto placesIn = [&](SIZE room) {
    return faces::FormPlaces(Form(), fonts_.Twips(room.cx), fonts_.Twips(room.cy), fonts_.Needs());
  };
  const auto sizeOf = [&](const faces::FormPlaces& places) {
    return SIZE{pixels(places.Width()), pixels(places.Height())};
  };
  const faces::FormPlaces places = placesIn(FormScroll::RoomFor(sizeOf(placesIn({0, 0})), size));
  isFitting_ = true;
  scroll_.Fit(root_, sizeOf(places));
  isFitting_ = false;
  PutOnForm(places);
}

void FormWindow::PutOnForm(const faces::FormPlaces& places) {
  const auto pixels = [this](int twips) { return MulDiv(twips, Dpi(), kTwipsPerInch); };
  const auto rect = [&](const Geometry& place, POINT by) {
    return RECT{pixels(place.left) + by.x, pixels(place.top) + by.y,
                pixels(place.left + place.width) + by.x, pixels(place.top + place.height) + by.y};
  };
  const auto put = [](HWND window, const RECT& to) {
    SetWindowPos(window, nullptr, to.left, to.top, to.right - to.left, to.bottom - to.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
  };
  const POINT corner = scroll_.Corner();
  const POINT onRoot{-corner.x, -corner.y};
  const Geometry area = places.Pages();
  const POINT onPage{-pixels(area.left), -pixels(area.top)};
  for (std::size_t page = 0; page < pages_.size(); ++page) {
    put(pages_[page], rect(area, onRoot));
    ShowWindow(pages_[page],
               Form().tabVrn.Tab().value() == static_cast<int>(page) ? SW_SHOWNA : SW_HIDE);
  }
  put(undo_, rect(places.Undo(), onRoot));
  put(redo_, rect(places.Redo(), onRoot));
  for (const auto& [control, view] : views_) {
    const bool isOnRoot = control->design().page == kEveryPage;
    const POINT by = control->frame() != nullptr ? POINT{} : isOnRoot ? onRoot : onPage;
    view->Place(rect(places.Of(*control), by));
  }
  for (const auto& [list, filter] : filters_) {
    put(filter.Line(), rect(places.FilterOf(*list), onPage));
    put(filter.Marks(), rect(places.MarksOf(*list), onPage));
  }
}

void FormWindow::Reveal(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  MapWindowPoints(nullptr, root_, reinterpret_cast<POINT*>(&place), 2);
  scroll_.Reveal(root_, place);
}

// Scrolls the form to the caret, for a box that is larger than the window.
void FormWindow::RevealCaret(HWND window) {
  POINT caret{};
  if (GetFocus() != window || !GetCaretPos(&caret)) return;
  RECT inside{};
  GetClientRect(window, &inside);
  const LONG x = std::clamp<LONG>(caret.x, 0, inside.right);
  const LONG y = std::clamp<LONG>(caret.y, 0, inside.bottom);
  RECT place{x, y, x + 1, y + MulDiv(kFontTwips, Dpi(), kTwipsPerInch)};
  MapWindowPoints(window, root_, reinterpret_cast<POINT*>(&place), 2);
  scroll_.Reveal(root_, place);
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
  person_.NoteAll();  // since rows have a new width
  ShowChanges();
}

void FormWindow::ColorsChanged() {
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

RECT FormWindow::PlaceNow() const {
  RECT place{};
  if (root_ == nullptr) return place;
  GetWindowRect(root_, &place);
  MapWindowPoints(nullptr, GetParent(root_), reinterpret_cast<POINT*>(&place), 2);
  return place;
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

void FormWindow::UseLook(const FormLook& look) {
  look_ = look;
  if (root_ != nullptr)
    RedrawWindow(root_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
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
    // Memory ran out while telling of the failure.
  }
  owner_.GestureEnds();
}

}  // namespace zolt20::com
