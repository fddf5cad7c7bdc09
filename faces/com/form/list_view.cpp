#include "faces/com/form/views.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>
#include <array>

#include "faces/com/com_text.h"
#include "faces/com/form/plain_boxes.h"
#include "faces/shared/list_keys.h"
#include "faces/shared/type_ahead.h"

// Lists: rows, with marks or check boxes, which the platform asks for when it draws them.

namespace zolt20::com {
namespace {

class ListWindow final : public ViewOf<ListBox> {
 public:
  ListWindow(ViewOwner& owner, const ListBox& list);

  void Show(const faces::Change& change) override;
  void Place(const RECT& place) override;
  LRESULT OnNotify(NMHDR& notice) override;
  bool OnMessage(UINT message, WPARAM wide, LPARAM longer) override;
  bool OnKey(WPARAM key) override;
  bool OnCharacter(wchar_t character) override;

 private:
  void ShowRows(const faces::Change& change);
  void ShowMarks();
  void SetState(int row, UINT state, UINT mask);
  void GiveRow(LVITEMW& item) const;
  LRESULT DrawMark(NMLVCUSTOMDRAW& draw) const;
  void TakeMark(const NMLISTVIEW& change);
  void Press(POINT point, Gesture gesture);
  int Current() const {
    return static_cast<int>(Send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
  }
  void Take(const faces::ListStep& step);

  String longestRow_;  // the one of the most characters that was there
  faces::TypeAhead ahead_;
};

ListWindow::ListWindow(ViewOwner& owner, const ListBox& list)
    : ViewOf(owner, list,
             {WC_LISTVIEWW,
              LVS_REPORT | LVS_NOCOLUMNHEADER | LVS_OWNERDATA | LVS_SHOWSELALWAYS |
                  (list.IsSingle() ? LVS_SINGLESEL : 0U),
              WS_EX_CLIENTEDGE}) {
  LVCOLUMNW column{};
  column.mask = LVCF_WIDTH;
  Send(LVM_INSERTCOLUMNW, 0, &column);
  DWORD wanted = LVS_EX_DOUBLEBUFFER | LVS_EX_FULLROWSELECT;
  if (list.HasCheckBoxes()) {
    wanted |= LVS_EX_CHECKBOXES;
    Send(LVM_SETCALLBACKMASK, LVIS_STATEIMAGEMASK);
  }
  Send(LVM_SETEXTENDEDLISTVIEWSTYLE, wanted, static_cast<LPARAM>(wanted));
}

// What is shown.

void ListWindow::Show(const faces::Change& change) {
  const bool rowsChanged = (change.what & faces::Change::kRows) != 0;
  if (rowsChanged) ShowRows(change);
  if (rowsChanged || (change.what & faces::Change::kMarks) != 0) ShowMarks();
  if (control().ListIndex() >= 0) SetState(control().ListIndex(), LVIS_FOCUSED, LVIS_FOCUSED);
}

void ListWindow::ShowRows(const faces::Change& change) {
  const ListBox& list = control();
  Send(LVM_SETITEMCOUNT, static_cast<WPARAM>(list.ListCount()), LVSICF_NOSCROLL);
  if (change.behindRows == faces::Change::kAllRows) longestRow_.clear();
  const int behind = std::min(change.behindRows, list.ListCount());
  for (int row = change.firstRow; row < behind; ++row) {
    if (list.List(row).size() > longestRow_.size()) longestRow_ = list.List(row);
  }
  RECT inside{};
  GetClientRect(window(), &inside);
  const int around = list.HasCheckBoxes() ? 26 : 12;
  const auto width = static_cast<int>(Send(LVM_GETSTRINGWIDTHW, 0, Wide(longestRow_)));
  Send(LVM_SETCOLUMNWIDTH, 0,
       std::max<int>(width + MulDiv(around, owner_.Dpi(), 96), inside.right));
  InvalidateRect(window(), nullptr, FALSE);
}

void ListWindow::ShowMarks() {
  const ListBox& list = control();
  if (list.HasCheckBoxes()) {
    InvalidateRect(window(), nullptr, FALSE);
    return;
  }
  constexpr int kAllRows = -1;
  SetState(kAllRows, 0, LVIS_SELECTED);
  int left = list.SelCount();
  for (int row = 0; left > 0; ++row) {
    if (!list.Selected(row)) continue;
    --left;
    SetState(row, LVIS_SELECTED, LVIS_SELECTED);
  }
}

void ListWindow::SetState(int row, UINT state, UINT mask) {
  LVITEMW item{};
  item.state = state;
  item.stateMask = mask;
  Send(LVM_SETITEMSTATE, static_cast<WPARAM>(row), &item);
}

void ListWindow::Place(const RECT& place) {
  PutAt(place, nullptr);
  RECT inside{};
  GetClientRect(window(), &inside);
  if (Send(LVM_GETCOLUMNWIDTH) < inside.right) Send(LVM_SETCOLUMNWIDTH, 0, inside.right);
}

// What the platform asks and tells.

LRESULT ListWindow::OnNotify(NMHDR& notice) {
  switch (notice.code) {
    case static_cast<UINT>(LVN_GETDISPINFOW):
      GiveRow(reinterpret_cast<NMLVDISPINFOW&>(notice).item);
      return 0;
    case static_cast<UINT>(NM_CUSTOMDRAW):
      return DrawMark(reinterpret_cast<NMLVCUSTOMDRAW&>(notice));
    case static_cast<UINT>(LVN_ITEMCHANGED):
      TakeMark(reinterpret_cast<const NMLISTVIEW&>(notice));
      return 0;
    default:
      return 0;
  }
}

void ListWindow::GiveRow(LVITEMW& item) const {
  const ListBox& list = control();
  if (item.iItem < 0 || item.iItem >= list.ListCount()) return;
  if ((item.mask & LVIF_TEXT) != 0 && item.cchTextMax > 0) {
    const String text = WithoutNuls(list.List(item.iItem));
    const std::size_t count = std::min(text.size(), static_cast<std::size_t>(item.cchTextMax - 1));
    std::copy_n(text.begin(), count, item.pszText);
    item.pszText[count] = L'\0';
  }
  if ((item.mask & LVIF_STATE) != 0 && list.HasCheckBoxes()) {
    item.stateMask |= LVIS_STATEIMAGEMASK;
    item.state = INDEXTOSTATEIMAGEMASK(list.Selected(item.iItem) ? 2U : 1U);
  }
}

// A mark looks the same whether the list has the focus or not: it is what the form is about.
LRESULT ListWindow::DrawMark(NMLVCUSTOMDRAW& draw) const {
  const ListBox& list = control();
  if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  const auto row = static_cast<int>(draw.nmcd.dwItemSpec);
  if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT || list.HasCheckBoxes() ||
      row >= list.ListCount() || !list.Selected(row) || !list.Enabled()) {
    return CDRF_DODEFAULT;
  }
  draw.nmcd.uItemState &= ~static_cast<UINT>(CDIS_SELECTED);
  draw.clrText = GetSysColor(COLOR_HIGHLIGHTTEXT);
  draw.clrTextBk = GetSysColor(COLOR_HIGHLIGHT);
  return CDRF_DODEFAULT;
}

// A mark that came by another way than the mouse and the keys, such as from an aid for reading the
// screen.
void ListWindow::TakeMark(const NMLISTVIEW& change) {
  const ListBox& list = control();
  const bool isMarked = (change.uNewState & LVIS_SELECTED) != 0;
  const bool wasMarked = (change.uOldState & LVIS_SELECTED) != 0;
  if (owner_.IsShowing() || isMarked == wasMarked || change.iItem < 0 ||
      change.iItem >= list.ListCount())
    return;
  if (list.Selected(change.iItem) == isMarked || (!isMarked && list.IsSingle())) return;
  Make(Gesture::kClickRow, change.iItem);
}

// What the person does.

bool ListWindow::OnMessage(UINT message, WPARAM /*wide*/, LPARAM longer) {
  switch (message) {
    case WM_LBUTTONDOWN:
      Press({GET_X_LPARAM(longer), GET_Y_LPARAM(longer)}, Gesture::kClickRow);
      return true;
    case WM_LBUTTONDBLCLK:
      Press({GET_X_LPARAM(longer), GET_Y_LPARAM(longer)}, Gesture::kDoubleClickRow);
      return true;
    case WM_LBUTTONUP:
    case WM_RBUTTONDOWN:
      return true;
    default:
      return false;
  }
}

void ListWindow::Press(POINT point, Gesture gesture) {
  LVHITTESTINFO hit{};
  hit.pt = point;
  const auto row = static_cast<int>(Send(LVM_SUBITEMHITTEST, 0, &hit));
  // With the focus the form may be given up, and this view be gone.
  ViewOwner& owner = owner_;
  const ListBox& list = control();
  if (GetFocus() != window()) SetFocus(window());
  if (!owner.IsGivenUp() && row >= 0 && row < list.ListCount()) owner.Make({gesture, &list, row});
}

bool ListWindow::OnKey(WPARAM key) {
  using faces::ListKey;
  static constexpr std::array<std::pair<WPARAM, ListKey>, 8> kKeys{{{VK_UP, ListKey::kUp},
                                                                    {VK_DOWN, ListKey::kDown},
                                                                    {VK_PRIOR, ListKey::kPageUp},
                                                                    {VK_NEXT, ListKey::kPageDown},
                                                                    {VK_HOME, ListKey::kHome},
                                                                    {VK_END, ListKey::kEnd},
                                                                    {VK_SPACE, ListKey::kSpace},
                                                                    {VK_RETURN, ListKey::kEnter}}};
  const auto* const found = std::find_if(kKeys.begin(), kKeys.end(),
                                         [key](const auto& each) { return each.first == key; });
  if (found == kKeys.end()) return false;
  const auto page = static_cast<int>(Send(LVM_GETCOUNTPERPAGE));
  Take(
      faces::StepOf(found->second, {Current(), control().ListCount(), page, control().IsSingle()}));
  return true;
}

bool ListWindow::OnCharacter(wchar_t character) {
  if (character <= L' ') return true;
  const std::optional<int> row =
      ahead_.Find(control(), Current(), static_cast<char16_t>(character), GetTickCount());
  if (row) Take(faces::StepTo(*row, control().IsSingle()));
  return true;
}

void ListWindow::Take(const faces::ListStep& step) {
  if (step.row < 0) return;
  if (step.moves) {
    SetState(step.row, LVIS_FOCUSED, LVIS_FOCUSED);
    Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(step.row), FALSE);
  }
  if (step.gesture) Make(*step.gesture, step.row);
}

}  // namespace

std::unique_ptr<ControlView> ListView(ViewOwner& owner, const ListBox& list) {
  return std::make_unique<ListWindow>(owner, list);
}

}  // namespace zolt20::com
