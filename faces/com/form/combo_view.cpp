#include "faces/com/form/combo_window.h"

#include "faces/com/com_text.h"
#include "faces/com/form/form_fonts.h"
#include "faces/com/form/plain_boxes.h"

namespace zolt20::com {

ComboWindow::ComboWindow(ViewOwner& owner, const ComboBox& combo)
    : ViewOf(owner, combo,
             {WC_COMBOBOXW,
              WS_VSCROLL | CBS_HASSTRINGS | CBS_AUTOHSCROLL |
                  (combo.IsEditable() ? DWORD{CBS_DROPDOWN} : DWORD{CBS_DROPDOWNLIST})}) {
  Send(CB_LIMITTEXT);
  COMBOBOXINFO info{};
  info.cbSize = sizeof info;
  if (combo.IsEditable() && GetComboBoxInfo(window(), &info)) edit_ = info.hwndItem;
}

// The height of a combo window includes its open list.
void ComboWindow::Place(const RECT& place) {
  constexpr int kHeightTwips = 4'000;
  const int height = MulDiv(kHeightTwips, owner_.Dpi(), kTwipsPerInch);
  PutAt({place.left, place.top, place.right, place.top + height}, nullptr);
}

HBRUSH ComboWindow::Brush(HDC canvas) {
  return BoxBrush(canvas, control());
}

bool ComboWindow::HasOwn(bool undo) const {
  return undo && edit_ != nullptr && SendMessageW(edit_, EM_CANUNDO, 0, 0) != 0;
}

void ComboWindow::Show(const faces::Change& change) {
  if ((change.what & faces::Change::kRows) != 0) ShowRows();
  ShowChosen(WithoutNuls(control().Text()));
  InvalidateRect(window(), nullptr, FALSE);
}

void ComboWindow::ShowChosen(const String& text) {
  const ComboBox& combo = control();
  // While the text is right, the platform's selection is not reset here but later, by ForgetEntry:
  // resetting it clears the text, and with it the caret and the undo buffer.
  const bool isRight = combo.IsEditable() && WindowText(window()) == text;
  if (Send(CB_GETCURSEL) != combo.ListIndex() && !(isRight && combo.ListIndex() < 0))
    Send(CB_SETCURSEL, static_cast<WPARAM>(combo.ListIndex()));
  if (!combo.IsEditable()) return;
  if (WindowText(window()) != text) SetWindowTextW(window(), Wide(text));
  shown_ = text;
}

void ComboWindow::ShowRows() {
  Send(WM_SETREDRAW, FALSE);
  Send(CB_RESETCONTENT);
  Fill();
  Send(WM_SETREDRAW, TRUE);
  InvalidateRect(window(), nullptr, TRUE);
}

// Sends the rows directly to the list window of the combo, for speed: each message to the combo
// itself passes through the form, and there may be very many rows.
void ComboWindow::Fill() {
  COMBOBOXINFO info{};
  info.cbSize = sizeof info;
  if (!GetComboBoxInfo(window(), &info)) return;
  const auto tell = [&info](UINT message, WPARAM wide, LPARAM longer = 0) {
    SendMessageW(info.hwndList, message, wide, longer);
  };
  tell(WM_SETREDRAW, FALSE);
  for (int row = 0; row < control().ListCount(); ++row) {
    tell(LB_INSERTSTRING, static_cast<WPARAM>(-1),
         reinterpret_cast<LPARAM>(Wide(WithoutNuls(control().List(row)))));
  }
  tell(WM_SETREDRAW, TRUE);
}

bool ComboWindow::OnMessage(UINT message, WPARAM /*wide*/, LPARAM /*longer*/) {
  if (message == WM_KEYDOWN || message == WM_LBUTTONDOWN || message == WM_MOUSEWHEEL)
    wasPicked_ = false;
  // The wheel scrolls an open list, and chooses nothing in a closed one.
  if (message == WM_MOUSEWHEEL) return !IsDropped();
  if (message != WM_PASTE || edit_ == nullptr) return false;
  PasteText(edit_);
  return true;
}

// Platforms send the notices of a choice in different orders, once or twice: makes them one pick,
// when the list is closed.
void ComboWindow::OnCommand(int code) {
  const bool isOpen = IsDropped();
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

// While the text is no entry, the platform would move on from the entry picked before.
bool ComboWindow::OnKey(WPARAM key) {
  if (key == VK_UP || key == VK_DOWN || key == VK_PRIOR || key == VK_NEXT) ForgetEntry();
  const bool isAtNone = control().ListIndex() < 0 && control().ListCount() > 0;
  if (key != VK_DOWN || !isAtNone || IsDropped()) return false;
  Make(Gesture::kPick, 0);
  return true;
}

void ComboWindow::PickEntry() {
  const auto row = static_cast<int>(Send(CB_GETCURSEL));
  if (row >= 0) Make(Gesture::kPick, row);
}

// Clears the selection of the platform's combo box if the control has no selection any more. Called
// before the list opens and before an arrow key changes the selection.
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

}  // namespace zolt20::com
