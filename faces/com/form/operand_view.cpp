#include <windowsx.h>

#include <algorithm>
#include <array>
#include <optional>

#include "faces/com/com_text.h"
#include "faces/com/form/combo_window.h"
#include "faces/com/form/common_controls.h"
#include "faces/com/form/drop_down.h"
#include "faces/com/form/plain_boxes.h"
#include "faces/shared/layout.h"
#include "faces/shared/list_keys.h"
#include "faces/shared/type_ahead.h"

// Combos of operands, whose rows may be very many. A person opens a virtual list of our own, which
// asks only for visible rows. The platform's combo holds the chosen row alone, and is filled with
// the others lazily, when a program asks for them.

namespace zolt20::com {
namespace {

// Whether the platform needs its rows to handle the message.
bool AsksForRows(UINT message) {
  switch (message) {
    case CB_GETCOUNT:
    case CB_GETCURSEL:
    case CB_SETCURSEL:
    case CB_GETLBTEXT:
    case CB_GETLBTEXTLEN:
    case CB_FINDSTRING:
    case CB_FINDSTRINGEXACT:
    case CB_SELECTSTRING:
    case CB_GETTOPINDEX:
    case CB_SETTOPINDEX:
    case CB_SHOWDROPDOWN:
      return true;
    default:
      return false;
  }
}

class OperandWindow final : public ComboWindow {
 public:
  OperandWindow(ViewOwner& owner, const ComboBox& combo)
      : ComboWindow(owner, combo),
        drawn_(combo, &InLowerCase),
        dropDown_(owner, combo, [this](int row) { Make(Gesture::kPick, row); }) {}

  void Show(const faces::Change& change) override;
  void Place(const RECT& place) override {
    dropDown_.Close();
    ComboWindow::Place(place);
  }
  bool OnMessage(UINT message, WPARAM wide, LPARAM longer) override;
  bool OnKey(WPARAM key) override;
  bool OnCharacter(wchar_t character) override;

 private:
  void ShowRows() override;
  void ShowChosen(const String& text) override;
  void FillForPrograms();
  bool Opens(UINT message, WPARAM wide, LPARAM longer) const;
  void OpenToSearch();
  void Take(const faces::ListStep& step);

  bool isFilled_ = false;  // the window has all rows
  bool isOurs_ = false;    // the message in progress was sent by us
  int chosen_ = -1;        // the row whose text the window shows
  faces::DrawnRows drawn_;
  faces::TypeAhead ahead_;
  DropDown dropDown_;
};

void OperandWindow::Show(const faces::Change& change) {
  ComboWindow::Show(change);
  if (!control().Enabled() || !control().Shown()) dropDown_.Close();
  dropDown_.RowsChanged();
}

void OperandWindow::ShowRows() {
  drawn_.Refresh();
  if (!isFilled_) return;
  isFilled_ = false;
  chosen_ = -1;
  shown_.clear();
  Send(CB_RESETCONTENT);
}

void OperandWindow::ShowChosen(const String& text) {
  if (isFilled_) {
    ComboWindow::ShowChosen(text);
    return;
  }
  const bool isOther = std::exchange(chosen_, control().ListIndex()) != control().ListIndex();
  if (!control().IsEditable()) {
    if (!isOther && shown_ == text) return;
    isOurs_ = true;
    Send(CB_RESETCONTENT);
    if (chosen_ >= 0) {
      Send(CB_INSERTSTRING, 0, Wide(text));
      Send(CB_SETCURSEL, 0);
    }
    isOurs_ = false;
  } else if (isOther && chosen_ >= 0) {
    // As the platform does when an entry is chosen: shows its text, selected if it has the focus.
    SetWindowTextW(window(), Wide(text));
    if (GetFocus() == Edit()) SendMessageW(Edit(), EM_SETSEL, 0, -1);
  } else if (WindowText(window()) != text) {
    SetWindowTextW(window(), Wide(text));
  }
  shown_ = text;
}

void OperandWindow::FillForPrograms() {
  const ViewOwner::Showing showing(owner_);
  isFilled_ = true;
  DWORD first = 0;
  DWORD behind = 0;
  Send(CB_GETEDITSEL, reinterpret_cast<WPARAM>(&first), &behind);
  Send(CB_RESETCONTENT);
  Fill();
  Send(CB_SETCURSEL, static_cast<WPARAM>(control().ListIndex()));
  if (!control().IsEditable()) return;
  SetWindowTextW(window(), Wide(shown_));
  Send(CB_SETEDITSEL, 0, MAKELPARAM(first, behind));
}

bool OperandWindow::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  if (!isOurs_ && !isFilled_ && AsksForRows(message)) FillForPrograms();
  if (Opens(message, wide, longer)) {
    OpenToSearch();
    return true;
  }
  return ComboWindow::OnMessage(message, wide, longer);
}

// Whether a message is a person's key or press that opens the list.
bool OperandWindow::Opens(UINT message, WPARAM wide, LPARAM longer) const {
  switch (message) {
    case WM_KEYDOWN:
      return wide == VK_F4 && !IsDropped();
    case WM_SYSKEYDOWN:
      return (wide == VK_DOWN || wide == VK_UP) && !IsDropped();
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: {
      COMBOBOXINFO info{};
      info.cbSize = sizeof info;
      // In an editable combo only a press on the arrow opens the list, not one in the edit.
      return !IsDropped() &&
             (!control().IsEditable() || (GetComboBoxInfo(window(), &info) != FALSE &&
                                          GET_X_LPARAM(longer) >= info.rcButton.left));
    }
    default:
      return false;
  }
}

void OperandWindow::OpenToSearch() {
  if (dropDown_.IsOpen()) {
    dropDown_.Close();
    return;
  }
  // Setting the focus may retire the form and destroy this view.
  const ViewOwner& owner = owner_;
  const HWND own = window();
  if (GetFocus() != FocusWindow()) SetFocus(FocusWindow());
  if (owner.IsGivenUp() || !IsWindow(own) || !control().Enabled() || !control().Shown()) return;
  dropDown_.Open(own, FocusWindow());
}

// The keys of a closed list.
bool OperandWindow::OnKey(WPARAM key) {
  if (IsDropped()) return ComboWindow::OnKey(key);
  using faces::ListKey;
  struct KeyOfList {
    WPARAM key;
    ListKey meaning;
    bool isOfLine;  // in an editable combo the key moves the caret instead
  };
  static constexpr std::array<KeyOfList, 8> kKeys{{{VK_UP, ListKey::kUp, false},
                                                   {VK_DOWN, ListKey::kDown, false},
                                                   {VK_PRIOR, ListKey::kPageUp, false},
                                                   {VK_NEXT, ListKey::kPageDown, false},
                                                   {VK_LEFT, ListKey::kUp, true},
                                                   {VK_RIGHT, ListKey::kDown, true},
                                                   {VK_HOME, ListKey::kHome, true},
                                                   {VK_END, ListKey::kEnd, true}}};
  const auto* const found =
      std::find_if(kKeys.begin(), kKeys.end(), [this, key](const KeyOfList& each) {
        return each.key == key && !(each.isOfLine && control().IsEditable());
      });
  if (found == kKeys.end()) return false;
  constexpr int kPage = 10;
  Take(faces::StepOf(found->meaning, {control().ListIndex(), control().ListCount(), kPage, true}));
  return true;
}

bool OperandWindow::OnCharacter(wchar_t character) {
  if (control().IsEditable() || IsDropped()) return ComboWindow::OnCharacter(character);
  if (character < L' ') return true;
  const std::optional<int> row =
      ahead_.Find(drawn_, control().ListIndex(), static_cast<char16_t>(character), GetTickCount());
  if (row) Take(faces::StepTo(*row, true));
  return true;
}

void OperandWindow::Take(const faces::ListStep& step) {
  if (step.row >= 0 && step.row != control().ListIndex()) Make(Gesture::kPick, step.row);
}

}  // namespace

std::unique_ptr<ControlView> ComboView(ViewOwner& owner, const ComboBox& combo) {
  if (faces::HasSearch(combo.design())) return std::make_unique<OperandWindow>(owner, combo);
  return std::make_unique<ComboWindow>(owner, combo);
}

}  // namespace zolt20::com
