#include "faces/com/form/views.h"

#include <commctrl.h>
#include <windowsx.h>

#include "faces/com/com_text.h"
#include "faces/com/form/drop_down.h"
#include "faces/com/form/form_fonts.h"
#include "faces/com/form/plain_boxes.h"
#include "faces/shared/layout.h"

namespace zolt20::com {
namespace {

class ComboWindow final : public ViewOf<ComboBox> {
 public:
  ComboWindow(ViewOwner& owner, const ComboBox& combo)
      : ViewOf(owner, combo,
               {WC_COMBOBOXW,
                WS_VSCROLL | CBS_HASSTRINGS | CBS_AUTOHSCROLL |
                    (combo.IsEditable() ? DWORD{CBS_DROPDOWN} : DWORD{CBS_DROPDOWNLIST})}),
        dropDown_(owner, combo, [this](int row) { Make(Gesture::kPick, row); }) {
    Send(CB_LIMITTEXT);
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    if (combo.IsEditable() && GetComboBoxInfo(window(), &info)) edit_ = info.hwndItem;
  }
  HWND FocusWindow() const override { return edit_ != nullptr ? edit_ : window(); }

  void Show(const faces::Change& change) override;
  // The height is that with the list open.
  void Place(const RECT& place) override {
    constexpr int kHeightTwips = 4'000;
    const int height = MulDiv(kHeightTwips, owner_.Dpi(), kTwipsPerInch);
    dropDown_.Close();
    PutAt({place.left, place.top, place.right, place.top + height}, nullptr);
  }
  HBRUSH Brush(HDC canvas) override { return BoxBrush(canvas, control()); }

  void OnCommand(int code) override;
  bool OnMessage(UINT message, WPARAM wide, LPARAM longer) override;
  bool OnKey(WPARAM key) override;
  bool HasOwn(bool undo) const override {
    return undo && edit_ != nullptr && SendMessageW(edit_, EM_CANUNDO, 0, 0) != 0;
  }

 private:
  void ShowRows();
  void PickEntry();
  void ForgetEntry();
  bool Opens(UINT message, WPARAM wide, LPARAM longer) const;
  void OpenToSearch();

  HWND edit_ = nullptr;     // the line within an editable one
  bool isPicking_ = false;  // the list was open, and an entry was chosen
  bool wasPicked_ = false;  // what the last key or press chose is done
  DropDown dropDown_;
};

void ComboWindow::Show(const faces::Change& change) {
  const ComboBox& combo = control();
  if ((change.what & faces::Change::kRows) != 0) ShowRows();
  String shown = WithoutNuls(combo.Text());
  // An entry that is chosen no more is forgotten later, as long as the text is right: the platform
  // would take the text away, and with it the caret and what can be taken back.
  const bool isRight = combo.IsEditable() && WindowText(window()) == shown;
  if (Send(CB_GETCURSEL) != combo.ListIndex() && !(isRight && combo.ListIndex() < 0))
    Send(CB_SETCURSEL, static_cast<WPARAM>(combo.ListIndex()));
  if (combo.IsEditable()) {
    if (WindowText(window()) != shown) SetWindowTextW(window(), Wide(shown));
    shown_ = std::move(shown);
  }
  InvalidateRect(window(), nullptr, FALSE);
  if (!combo.Enabled() || !combo.Shown()) dropDown_.Close();
  dropDown_.RowsChanged();
}

bool ComboWindow::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  if (Opens(message, wide, longer)) {
    OpenToSearch();
    return true;
  }
  if (message == WM_KEYDOWN || message == WM_LBUTTONDOWN || message == WM_MOUSEWHEEL)
    wasPicked_ = false;
  // It scrolls a list that is open. Nothing is chosen by it.
  if (message == WM_MOUSEWHEEL) return Send(CB_GETDROPPEDSTATE) == 0;
  if (message != WM_PASTE || edit_ == nullptr) return false;
  PasteText(edit_);
  return true;
}

// Whether a person opens the list with it: of operands, which may be very many. The platform's own
// list is for operators, and for programs that ask for it.
bool ComboWindow::Opens(UINT message, WPARAM wide, LPARAM longer) const {
  if (!faces::HasSearch(control().design()) || Send(CB_GETDROPPEDSTATE) != 0) return false;
  switch (message) {
    case WM_KEYDOWN:
      return wide == VK_F4;
    case WM_SYSKEYDOWN:
      return wide == VK_DOWN || wide == VK_UP;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: {
      COMBOBOXINFO info{};
      info.cbSize = sizeof info;
      // A place within the line lies before the arrow.
      return !control().IsEditable() || (GetComboBoxInfo(window(), &info) != FALSE &&
                                         GET_X_LPARAM(longer) >= info.rcButton.left);
    }
    default:
      return false;
  }
}

void ComboWindow::OpenToSearch() {
  if (dropDown_.IsOpen()) {
    dropDown_.Close();
    return;
  }
  // With the focus the form may be given up, and this view be gone.
  const ViewOwner& owner = owner_;
  const HWND own = window();
  if (GetFocus() != FocusWindow()) SetFocus(FocusWindow());
  if (owner.IsGivenUp() || !IsWindow(own) || !control().Enabled() || !control().Shown()) return;
  dropDown_.Open(own, FocusWindow());
}

void ComboWindow::ShowRows() {
  Send(WM_SETREDRAW, FALSE);
  Send(CB_RESETCONTENT);
  for (int row = 0; row < control().ListCount(); ++row)
    Send(CB_INSERTSTRING, static_cast<WPARAM>(-1), Wide(WithoutNuls(control().List(row))));
  Send(WM_SETREDRAW, TRUE);
  InvalidateRect(window(), nullptr, TRUE);
}

// Platforms tell a choice in different orders, once or twice; it is one pick, when the list is
// closed.
void ComboWindow::OnCommand(int code) {
  const bool isOpen = Send(CB_GETDROPPEDSTATE) != 0;
  switch (code) {
    case CBN_EDITCHANGE:
      Type(WindowText(window()));
      break;
    case CBN_DROPDOWN:
    case CBN_SELENDCANCEL:
      if (code == CBN_DROPDOWN) ForgetEntry();
      isPicking_ = false;
      wasPicked_ = false;
      break;
    case CBN_CLOSEUP:
      if (!std::exchange(isPicking_, false)) break;
      wasPicked_ = true;
      PickEntry();
      break;
    case CBN_SELENDOK:
      if (isOpen) {
        isPicking_ = true;
      } else {
        wasPicked_ = true;
        PickEntry();
      }
      break;
    case CBN_SELCHANGE:
      if (!isOpen && !std::exchange(wasPicked_, false)) PickEntry();
      break;
    default:
      break;
  }
}

// Behind a text that is no entry the platform would go on from the one that was picked before.
bool ComboWindow::OnKey(WPARAM key) {
  if (key == VK_UP || key == VK_DOWN || key == VK_PRIOR || key == VK_NEXT) ForgetEntry();
  const bool isAtNone = control().ListIndex() < 0 && control().ListCount() > 0;
  if (key != VK_DOWN || !isAtNone || Send(CB_GETDROPPEDSTATE) != 0) return false;
  Make(Gesture::kPick, 0);
  return true;
}

void ComboWindow::PickEntry() {
  const auto row = static_cast<int>(Send(CB_GETCURSEL));
  if (row >= 0) Make(Gesture::kPick, row);
}

// Before the list or the arrows go on from an entry that is chosen no more.
void ComboWindow::ForgetEntry() {
  const ComboBox& combo = control();
  if (combo.ListIndex() >= 0 || Send(CB_GETCURSEL) < 0) return;
  const ViewOwner::Showing showing(owner_);
  DWORD first = 0;
  DWORD behind = 0;
  Send(CB_GETEDITSEL, reinterpret_cast<WPARAM>(&first), &behind);
  Send(CB_SETCURSEL, static_cast<WPARAM>(-1));
  if (!combo.IsEditable()) return;
  SetWindowTextW(window(), Wide(shown_));
  Send(CB_SETEDITSEL, 0, MAKELPARAM(first, behind));
}

}  // namespace

std::unique_ptr<ControlView> ComboView(ViewOwner& owner, const ComboBox& combo) {
  return std::make_unique<ComboWindow>(owner, combo);
}

}  // namespace zolt20::com
