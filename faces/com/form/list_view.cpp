#include "faces/com/form/views.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "faces/com/com_text.h"
#include "faces/com/form/common_controls.h"
#include "faces/com/form/plain_boxes.h"
#include "faces/com/form/readable.h"
#include "faces/com/form/row_tip.h"
#include "faces/shared/cut_text.h"
#include "faces/shared/drawn_rows.h"
#include "faces/shared/list_keys.h"
#include "faces/shared/type_ahead.h"

// Lists as virtual list views: the platform asks for rows, with marks or check boxes, to draw them.

namespace zolt20::com {
namespace {

// The columns: the texts of rows, and behind them their display names if there are any.
constexpr int kTexts = 0;
constexpr int kNames = 1;

class ListWindow final : public ViewOf<ListBox> {
 public:
  ListWindow(ViewOwner& owner, const ListBox& list);

  void Show(const faces::Change& change) override;
  void Place(const RECT& place) override;
  void LooksChanged() override { UseBoxColors(window()); }
  LRESULT OnNotify(NMHDR& notice) override;
  bool OnMessage(UINT message, WPARAM wide, LPARAM longer) override;
  bool OnKey(WPARAM key) override;
  bool OnCharacter(wchar_t character) override;
  void Filter(StringView text) override;
  void NameRows(std::map<String, String> names) override;
  String HiddenMarks() const override { return drawn_.HiddenMarks(); }

 private:
  void ShowRows();
  void FitColumns();
  int WidthOfTexts() const;
  void ShowMarks(bool rowsChanged);
  void SetState(int row, UINT state, UINT mask);
  void GiveRow(LVITEMW& item) const;
  LRESULT DrawRow(NMLVCUSTOMDRAW& draw);
  void GiveColors(NMLVCUSTOMDRAW& draw, bool isName) const;
  void TakeMark(const NMLISTVIEW& change);
  void Press(POINT point, bool isCountedTwo);
  int Current() const {
    return static_cast<int>(Send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
  }
  void Take(const faces::ListStep& step);

  void PointTo(POINT point);
  String TipOf(int row) const;
  String ShownText(int row, int column) const;
  String CutText(const String& text, int column) const;
  int RoomAround() const;

  // The window's row numbers are those of drawn rows.
  faces::DrawnRows drawn_;
  std::vector<int> marked_;  // a cache of the rows that the platform has selected
  bool isDrawing_ = false;
  faces::TypeAhead ahead_;
  faces::RowPresses presses_;
  RowTip tip_{window()};
};

ListWindow::ListWindow(ViewOwner& owner, const ListBox& list)
    : ViewOf(owner, list,
             {WC_LISTVIEWW,
              LVS_REPORT | LVS_NOCOLUMNHEADER | LVS_OWNERDATA | LVS_SHOWSELALWAYS |
                  (list.IsSingle() ? LVS_SINGLESEL : 0U),
              WS_EX_CLIENTEDGE}),
      drawn_(list, &InLowerCase) {
  LVCOLUMNW column{};
  column.mask = LVCF_WIDTH;
  Send(LVM_INSERTCOLUMNW, kTexts, &column);
  DWORD wanted = LVS_EX_DOUBLEBUFFER | LVS_EX_FULLROWSELECT;
  if (list.HasCheckBoxes()) {
    wanted |= LVS_EX_CHECKBOXES;
    Send(LVM_SETCALLBACKMASK, LVIS_STATEIMAGEMASK);
  }
  Send(LVM_SETEXTENDEDLISTVIEWSTYLE, wanted, static_cast<LPARAM>(wanted));
  UseBoxColors(window());
}

// What is shown.

void ListWindow::Show(const faces::Change& change) {
  const bool rowsChanged = (change.what & faces::Change::kRows) != 0;
  if (rowsChanged) drawn_.Refresh();
  if (rowsChanged) ShowRows();
  if (rowsChanged || (change.what & faces::Change::kMarks) != 0) ShowMarks(rowsChanged);
  const int current = control().ListIndex() < 0 ? -1 : drawn_.DrawnRow(control().ListIndex());
  if (current >= 0) SetState(current, LVIS_FOCUSED, LVIS_FOCUSED);
}

void ListWindow::ShowRows() {
  tip_.Forget();
  Send(LVM_SETITEMCOUNT, static_cast<WPARAM>(drawn_.Count()), LVSICF_NOSCROLL);
  FitColumns();
  InvalidateRect(window(), nullptr, FALSE);
}

void ListWindow::NameRows(std::map<String, String> names) {
  const bool hadNames = drawn_.HasNames();
  drawn_.NameRows(std::move(names));
  if (drawn_.HasNames() && !hadNames) {
    LVCOLUMNW column{};
    column.mask = LVCF_WIDTH | LVCF_TEXT;
    column.pszText = const_cast<wchar_t*>(L"Name");  // for screen readers
    Send(LVM_INSERTCOLUMNW, kNames, &column);
  } else if (!drawn_.HasNames() && hadNames) {
    Send(LVM_DELETECOLUMN, kNames);
  }
  ShowRows();
  ShowMarks(true);
}

// The names get the width that the texts leave, but at least half.
void ListWindow::FitColumns() {
  RECT inside{};
  GetClientRect(window(), &inside);
  const auto fit = [this](int column, LONG width) {
    if (Send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column)) != width)
      Send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), width);
  };
  const LONG texts =
      drawn_.HasNames() ? std::min<LONG>(WidthOfTexts(), inside.right / 2) : inside.right;
  fit(kTexts, texts);
  if (drawn_.HasNames()) fit(kNames, inside.right - texts);
}

// The width of the texts with padding, measured for some of the longest: there may be very many.
int ListWindow::WidthOfTexts() const {
  constexpr int kMeasured = 50;
  const ListBox& list = control();
  std::size_t longest = 0;
  for (int row = 0; row < list.ListCount(); ++row)
    longest = std::max(longest, list.List(row).size());
  int width = 0;
  for (int row = 0, measured = 0; row < list.ListCount() && measured < kMeasured; ++row) {
    if (list.List(row).size() != longest) continue;
    width = std::max(width, TextWidthOf(owner_.FontOf(list), list.List(row)));
    ++measured;
  }
  return width + RoomAround();
}

void ListWindow::Filter(StringView text) {
  if (!drawn_.SetFilter(text)) return;
  ShowRows();
  ShowMarks(true);
}

// Shows the marks of the control. Sends only the differences: the platform would scan all rows if
// it had to unselect all.
void ListWindow::ShowMarks(bool rowsChanged) {
  const ListBox& list = control();
  if (list.HasCheckBoxes()) {
    InvalidateRect(window(), nullptr, FALSE);
    return;
  }
  std::vector<int> marked;
  int left = list.SelCount();
  for (int row = 0; left > 0 && row < drawn_.Count(); ++row) {
    if (!list.Selected(drawn_.ControlRow(row))) continue;
    --left;
    marked.push_back(row);
  }
  const std::vector<int> before = std::exchange(marked_, std::move(marked));
  for (const int row : before) {
    if (!std::binary_search(marked_.begin(), marked_.end(), row)) SetState(row, 0, LVIS_SELECTED);
  }
  for (const int row : marked_) {
    if (rowsChanged || !std::binary_search(before.begin(), before.end(), row))
      SetState(row, LVIS_SELECTED, LVIS_SELECTED);
  }
  // If the count differs, rows were selected without us, which is rare: sets all of them anew.
  if (static_cast<std::size_t>(Send(LVM_GETSELECTEDCOUNT)) == marked_.size()) return;
  constexpr int kAllRows = -1;
  SetState(kAllRows, 0, LVIS_SELECTED);
  for (const int row : marked_)
    SetState(row, LVIS_SELECTED, LVIS_SELECTED);
}

void ListWindow::SetState(int row, UINT state, UINT mask) {
  LVITEMW item{};
  item.state = state;
  item.stateMask = mask;
  Send(LVM_SETITEMSTATE, static_cast<WPARAM>(row), &item);
}

void ListWindow::Place(const RECT& place) {
  PutAt(place, nullptr);
  FitColumns();
}

// Requests and notices of the platform's list view.

LRESULT ListWindow::OnNotify(NMHDR& notice) {
  switch (notice.code) {
    case static_cast<UINT>(LVN_GETDISPINFOW):
      GiveRow(reinterpret_cast<NMLVDISPINFOW&>(notice).item);
      return 0;
    case static_cast<UINT>(NM_CUSTOMDRAW):
      return DrawRow(reinterpret_cast<NMLVCUSTOMDRAW&>(notice));
    case static_cast<UINT>(LVN_ITEMCHANGED):
      TakeMark(reinterpret_cast<const NMLISTVIEW&>(notice));
      return 0;
    default:
      return 0;
  }
}

void ListWindow::GiveRow(LVITEMW& item) const {
  const ListBox& list = control();
  const int row = drawn_.ControlRow(item.iItem);
  if (row < 0) return;
  if ((item.mask & LVIF_TEXT) != 0 && item.cchTextMax > 0) {
    const String text = ShownText(row, item.iSubItem);
    const std::size_t count = std::min(text.size(), static_cast<std::size_t>(item.cchTextMax - 1));
    std::copy_n(text.begin(), count, item.pszText);
    item.pszText[count] = L'\0';
  }
  if ((item.mask & LVIF_STATE) != 0 && list.HasCheckBoxes()) {
    item.stateMask |= LVIS_STATEIMAGEMASK;
    item.state = INDEXTOSTATEIMAGEMASK(list.Selected(row) ? 2U : 1U);
  }
}

// Names differ at their ends, so a text that is too long is elided in the middle when it is drawn.
// Requests for other purposes, such as from a screen reader, get the whole text.
String ListWindow::ShownText(int row, int column) const {
  String text = WithoutNuls(column == kNames ? drawn_.NameOf(row) : control().List(row));
  return isDrawing_ ? CutText(text, column) : text;
}

String ListWindow::CutText(const String& text, int column) const {
  const auto width = static_cast<int>(Send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column)));
  const HFONT font = owner_.FontOf(control());
  return faces::CutInTheMiddle(text, width - RoomAround(),
                               [font](StringView part) { return TextWidthOf(font, part); });
}

int ListWindow::RoomAround() const {
  constexpr int kAround = 12;
  constexpr int kCheckBox = 18;
  return MulDiv(kAround + (control().HasCheckBoxes() ? kCheckBox : 0), owner_.Dpi(), 96);
}

LRESULT ListWindow::DrawRow(NMLVCUSTOMDRAW& draw) {
  constexpr DWORD kColumn = CDDS_ITEMPREPAINT | CDDS_SUBITEM;
  if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  const bool isColumn = draw.nmcd.dwDrawStage == kColumn;
  isDrawing_ = isColumn || draw.nmcd.dwDrawStage == CDDS_ITEMPREPAINT;
  if (!isDrawing_) return CDRF_DODEFAULT;
  GiveColors(draw, isColumn && draw.iSubItem == kNames);
  if (isColumn) return CDRF_DODEFAULT;
  return CDRF_NOTIFYPOSTPAINT | (drawn_.HasNames() ? CDRF_NOTIFYSUBITEMDRAW : 0);
}

// Custom draw: a mark looks the same whether the list has the focus or not, since the form is about
// marks. A name is drawn in a weaker colour than the text of its row.
void ListWindow::GiveColors(NMLVCUSTOMDRAW& draw, bool isName) const {
  const ListBox& list = control();
  const int row = drawn_.ControlRow(static_cast<int>(draw.nmcd.dwItemSpec));
  if (row >= 0 && !list.HasCheckBoxes() && list.Selected(row) && list.Enabled()) {
    draw.nmcd.uItemState &= ~static_cast<UINT>(CDIS_SELECTED);
    draw.clrText = GetSysColor(COLOR_HIGHLIGHTTEXT);
    draw.clrTextBk = GetSysColor(COLOR_HIGHLIGHT);
  } else if (drawn_.HasNames()) {
    draw.clrText = isName ? Quiet(GetSysColor(COLOR_WINDOWTEXT), GetSysColor(COLOR_WINDOW))
                          : GetSysColor(COLOR_WINDOWTEXT);
  }
}

// Makes a gesture of a mark that the platform changed by itself, as for a screen reader. Marks that
// the control has already (from mouse and keys) are skipped.
void ListWindow::TakeMark(const NMLISTVIEW& change) {
  const ListBox& list = control();
  const bool isMarked = (change.uNewState & LVIS_SELECTED) != 0;
  const bool wasMarked = (change.uOldState & LVIS_SELECTED) != 0;
  const int row = drawn_.ControlRow(change.iItem);
  if (owner_.IsShowing() || isMarked == wasMarked || row < 0) return;
  if (list.Selected(row) == isMarked || (!isMarked && list.IsSingle())) return;
  Make(Gesture::kClickRow, row);
}

// What the person does.

// The mouse is over that point: shows the tip of its row.
void ListWindow::PointTo(POINT point) {
  LVHITTESTINFO hit{};
  hit.pt = point;
  const auto row = static_cast<int>(Send(LVM_SUBITEMHITTEST, 0, &hit));
  RECT place{};
  place.left = LVIR_BOUNDS;
  if (row >= 0) Send(LVM_GETITEMRECT, static_cast<WPARAM>(row), &place);
  tip_.Over(row, place, [&] { return TipOf(drawn_.ControlRow(row)); });
}

// The text of the tip: the whole row with its name when any of it is elided, else "".
String ListWindow::TipOf(int row) const {
  if (row < 0) return {};
  const String text = ShownText(row, kTexts);
  const String name = drawn_.HasNames() ? ShownText(row, kNames) : String();
  if (CutText(text, kTexts) == text && (name.empty() || CutText(name, kNames) == name)) return {};
  return name.empty() ? text : text + u"  " + name;
}

bool ListWindow::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_MOUSEMOVE) PointTo({GET_X_LPARAM(longer), GET_Y_LPARAM(longer)});
  if (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) tip_.Relay(message, wide, longer);
  switch (message) {
    case WM_LBUTTONDOWN:
      Press({GET_X_LPARAM(longer), GET_Y_LPARAM(longer)}, false);
      return true;
    case WM_LBUTTONDBLCLK:
      Press({GET_X_LPARAM(longer), GET_Y_LPARAM(longer)}, true);
      return true;
    case WM_LBUTTONUP:
    case WM_RBUTTONDOWN:
      return true;
    default:
      return false;
  }
}

void ListWindow::Press(POINT point, bool isCountedTwo) {
  LVHITTESTINFO hit{};
  hit.pt = point;
  const int row = drawn_.ControlRow(static_cast<int>(Send(LVM_SUBITEMHITTEST, 0, &hit)));
  const Gesture gesture = presses_.GestureOf(row, isCountedTwo);
  // Setting the focus may retire the form and destroy this view.
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
  Take(faces::StepOf(found->second, {Current(), drawn_.Count(), page, control().IsSingle()}));
  return true;
}

bool ListWindow::OnCharacter(wchar_t character) {
  if (character <= L' ') return true;
  const std::optional<int> row =
      ahead_.Find(drawn_, Current(), static_cast<char16_t>(character), GetTickCount());
  if (row) Take(faces::StepTo(*row, control().IsSingle()));
  return true;
}

void ListWindow::Take(const faces::ListStep& step) {
  if (step.row < 0) return;
  if (step.moves) {
    SetState(step.row, LVIS_FOCUSED, LVIS_FOCUSED);
    Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(step.row), FALSE);
  }
  if (step.gesture) Make(*step.gesture, drawn_.ControlRow(step.row));
}

}  // namespace

std::unique_ptr<ControlView> ListView(ViewOwner& owner, const ListBox& list) {
  return std::make_unique<ListWindow>(owner, list);
}

}  // namespace zolt20::com
