#include "tests/com/hands.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>
#include <map>

namespace zolt20::tests {
namespace {

using Json = nlohmann::ordered_json;

constexpr int kInText = 4;

// Rows and marks as screen readers hear of them, by the window and the number of the row.
std::vector<std::string> spoken;

void CALLBACK Hear(HWINEVENTHOOK /*hook*/, DWORD event, HWND window, LONG object, LONG child,
                   DWORD /*thread*/, DWORD /*time*/) {
  if (object != OBJID_CLIENT || child == CHILDID_SELF) return;
  const std::string row = " " + std::to_string(child - 1);
  const std::string name = Narrowed(NameOf(window));
  const auto state =
      static_cast<UINT>(SendMessageW(window, LVM_GETITEMSTATE, static_cast<WPARAM>(child - 1),
                                     LVIS_SELECTED | LVIS_STATEIMAGEMASK));
  if (event == EVENT_OBJECT_FOCUS) spoken.push_back(name + " at" + row);
  if (event == EVENT_OBJECT_SELECTION || event == EVENT_OBJECT_SELECTIONADD)
    spoken.push_back(name + " marked" + row);
  if (event == EVENT_OBJECT_SELECTIONREMOVE) spoken.push_back(name + " not marked" + row);
  if (event == EVENT_OBJECT_STATECHANGE)
    spoken.push_back(name + (state >> 12 == 2 ? " checked" : " not checked") + row);
}

WORD KeyOf(const std::string& name) {
  static const std::map<std::string, WORD> kNamed{
      {"Enter", VK_RETURN},   {"Space", VK_SPACE},      {"Backspace", VK_BACK},
      {"Delete", VK_DELETE},  {"Home", VK_HOME},        {"End", VK_END},
      {"ArrowLeft", VK_LEFT}, {"ArrowRight", VK_RIGHT}, {"ArrowUp", VK_UP},
      {"ArrowDown", VK_DOWN}, {"PageUp", VK_PRIOR},     {"PageDown", VK_NEXT},
      {"Tab", VK_TAB},        {"Escape", VK_ESCAPE}};
  const auto found = kNamed.find(name);
  return found != kNamed.end() ? found->second
                               : static_cast<WORD>(VkKeyScanW(static_cast<WCHAR>(name.at(0))));
}

void Hold(bool shift, bool control) {
  BYTE keys[256]{};
  keys[VK_SHIFT] = keys[VK_LSHIFT] = shift ? 0x80 : 0;
  keys[VK_CONTROL] = keys[VK_LCONTROL] = control ? 0x80 : 0;
  SetKeyboardState(keys);
}

std::wstring ClassOf(HWND window) {
  wchar_t name[64] = L"";
  GetClassNameW(window, name, 64);
  return name;
}

std::string TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(
      static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return Narrowed(text);
}

POINT MiddleOf(HWND window) {
  RECT place{};
  GetClientRect(window, &place);
  return {place.right / 2, place.bottom / 2};
}

// The colour behind the text, as it is drawn.
std::string BackOf(HWND box) {
  RECT place{};
  GetClientRect(box, &place);
  RedrawWindow(box, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE);
  const HDC canvas = GetDC(box);
  const COLORREF color = GetPixel(canvas, place.right - kInText, place.bottom - kInText);
  ReleaseDC(box, canvas);
  if (color == GetSysColor(COLOR_HIGHLIGHTTEXT)) return "highlighted text";
  return color == GetSysColor(COLOR_WINDOW) ? "window" : std::to_string(color);
}

bool IsArial(HWND window) {
  LOGFONTW font{};
  const auto handle = reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
  return GetObjectW(handle, sizeof font, &font) != 0 && std::wstring(font.lfFaceName) == L"Arial";
}

Json CaptionsOf(HWND strip) {
  Json captions = Json::array();
  const auto count = SendMessageW(strip, TCM_GETITEMCOUNT, 0, 0);
  for (LRESULT page = 0; page < count; ++page) {
    wchar_t text[64] = L"";
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    item.cchTextMax = 64;
    SendMessageW(strip, TCM_GETITEMW, static_cast<WPARAM>(page), reinterpret_cast<LPARAM>(&item));
    captions.push_back(Narrowed(text));
  }
  return captions;
}

std::string TextOfRow(HWND list, int row) {
  wchar_t text[512] = L"";
  LVITEMW item{};
  item.pszText = text;
  item.cchTextMax = 512;
  SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
  return Narrowed(text);
}

}  // namespace

std::wstring Widened(const std::string& text) {
  std::wstring wide(static_cast<std::size_t>(MultiByteToWideChar(
                        CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0)),
                    L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), wide.data(),
                      static_cast<int>(wide.size()));
  return wide;
}

std::string Narrowed(const std::wstring& text) {
  std::string narrow(
      static_cast<std::size_t>(WideCharToMultiByte(
          CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0, nullptr, nullptr)),
      '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), narrow.data(),
                      static_cast<int>(narrow.size()), nullptr, nullptr);
  return narrow;
}

WindowHands::WindowHands()
    : boxes_([this](const std::wstring& title, const std::wstring& text) {
        message_ = {{"text", Narrowed(text)},
                    {"title", Narrowed(title)},
                    {"sign", MessageBoxes::IsOfAnError() ? "error" : "another"}};
      }) {
  static const HWINEVENTHOOK kHook =
      SetWinEventHook(EVENT_OBJECT_FOCUS, EVENT_OBJECT_STATECHANGE, nullptr, &Hear,
                      GetCurrentProcessId(), 0, WINEVENT_OUTOFCONTEXT);
  EXPECT_NE(kHook, nullptr);
  spoken.clear();
}

WindowHands::~WindowHands() {
  Hold(false, false);
}

HWND WindowHands::On(const std::string& control) const {
  return WindowOf(Around(), Widened(control).c_str());
}

// The window that the text of a control is in.
HWND WindowHands::BoxOf(const std::string& control) const {
  const HWND window = On(control);
  COMBOBOXINFO info{};
  info.cbSize = sizeof info;
  const bool isCombo = ClassOf(window) == WC_COMBOBOXW && GetComboBoxInfo(window, &info);
  return isCombo && info.hwndItem != nullptr && info.hwndItem != window ? info.hwndItem : window;
}

void WindowHands::Pump() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    const bool isKey = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
    if (isKey && TakesKey(message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void WindowHands::Send(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  PostMessageW(window, message, wide, longer);
  Pump();
}

// A press is where the mouse is: on what lies on top there.
void WindowHands::PressAt(HWND window, POINT place, bool isSecond) {
  const LPARAM point = MAKELPARAM(place.x, place.y);
  Send(window, WM_LBUTTONDOWN, MK_LBUTTON, point);
  Send(window, WM_LBUTTONUP, 0, point);
  if (!isSecond) return;
  Send(window, WM_LBUTTONDBLCLK, MK_LBUTTON, point);
  Send(window, WM_LBUTTONUP, 0, point);
}

bool WindowHands::CanReach(const std::string& control) {
  // A list that is open would take the press.
  const HWND focus = GetFocus();
  for (HWND at = focus; at != nullptr; at = GetParent(at)) {
    if (ClassOf(at) == WC_COMBOBOXW) SendMessageW(at, CB_SHOWDROPDOWN, FALSE, 0);
  }
  Pump();
  const HWND window = On(control);
  if (window == nullptr || !IsWindowVisible(window) || !IsWindowEnabled(window)) return false;
  RECT place{};
  GetWindowRect(window, &place);
  const POINT middle{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
  const HWND hit = WindowFromPoint(middle);
  return hit == window || IsChild(window, hit);
}

int WindowHands::RowCount(const std::string& list) {
  const HWND window = On(list);
  const UINT ask = ClassOf(window) == WC_COMBOBOXW ? CB_GETCOUNT : LVM_GETITEMCOUNT;
  return static_cast<int>(SendMessageW(window, ask, 0, 0));
}

void WindowHands::TurnTo(int page) {
  const HWND strip = On("tabVrn");
  RECT place{};
  SendMessageW(strip, TCM_GETITEMRECT, static_cast<WPARAM>(page), reinterpret_cast<LPARAM>(&place));
  PressAt(strip, {(place.left + place.right) / 2, (place.top + place.bottom) / 2});
}

void WindowHands::Click(const std::string& control) {
  PressAt(On(control), MiddleOf(On(control)));
}

RECT WindowHands::PlaceOfRow(HWND list, int row) const {
  SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
  RECT place{};
  place.left = LVIR_LABEL;
  SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
  return place;
}

void WindowHands::Click(const std::string& list, int row) {
  const RECT place = PlaceOfRow(On(list), row);
  PressAt(On(list), {place.left + kInText, (place.top + place.bottom) / 2});
}

void WindowHands::DoubleClick(const std::string& list, int row) {
  const RECT place = PlaceOfRow(On(list), row);
  PressAt(On(list), {place.left + kInText, (place.top + place.bottom) / 2}, true);
}

// Opens the list by its arrow and presses the entry.
void WindowHands::Pick(const std::string& combo, int row) {
  const HWND window = On(combo);
  COMBOBOXINFO info{};
  info.cbSize = sizeof info;
  GetComboBoxInfo(window, &info);
  PressAt(window, {(info.rcButton.left + info.rcButton.right) / 2,
                   (info.rcButton.top + info.rcButton.bottom) / 2});
  if (const HWND entries = On(combo + ".entries"); entries != nullptr) {
    EXPECT_TRUE(IsWindowVisible(entries)) << combo << " shows no list";
    const RECT place = PlaceOfRow(entries, row);
    PressAt(entries, {place.left + kInText, (place.top + place.bottom) / 2});
    EXPECT_FALSE(IsWindowVisible(entries)) << combo << " keeps its list open";
    return;
  }
  EXPECT_NE(SendMessageW(window, CB_GETDROPPEDSTATE, 0, 0), 0) << combo << " shows no list";
  const auto shown = static_cast<WPARAM>(row);
  SendMessageW(info.hwndList, LB_SETTOPINDEX, shown, 0);
  RECT place{};
  SendMessageW(info.hwndList, LB_GETITEMRECT, shown, reinterpret_cast<LPARAM>(&place));
  const LPARAM point = MAKELPARAM(place.left + kInText, (place.top + place.bottom) / 2);
  Send(info.hwndList, WM_MOUSEMOVE, 0, point);
  Send(info.hwndList, WM_LBUTTONDOWN, MK_LBUTTON, point);
  Send(info.hwndList, WM_LBUTTONUP, 0, point);
  EXPECT_EQ(SendMessageW(window, CB_GETDROPPEDSTATE, 0, 0), 0) << combo << " keeps its list open";
}

// On a button the mouse goes away before the release, so that it is not clicked.
void WindowHands::Focus(const std::string& control) {
  const HWND window = BoxOf(control);
  if (ClassOf(window) != WC_BUTTONW) return PressAt(window, MiddleOf(window));
  const POINT middle = MiddleOf(window);
  const LPARAM kBeside = MAKELPARAM(0xFFF0, 0xFFF0);
  Send(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(middle.x, middle.y));
  Send(window, WM_MOUSEMOVE, MK_LBUTTON, kBeside);
  Send(window, WM_LBUTTONUP, 0, kBeside);
}

// Presses the arrows of the bar until it is there.
void WindowHands::Scroll(const std::string& bar, int value) {
  const HWND window = On(bar);
  const auto now = [window] {
    SCROLLINFO info{sizeof info, SIF_POS, 0, 0, 0, 0, 0};
    GetScrollInfo(window, SB_CTL, &info);
    return info.nPos;
  };
  constexpr int kMostPresses = 20;
  for (int presses = 0; now() != value && presses < kMostPresses; ++presses) {
    SetFocus(window);
    SendMessageW(GetParent(window), WM_VSCROLL,
                 MAKEWPARAM(now() < value ? SB_LINEDOWN : SB_LINEUP, 0),
                 reinterpret_cast<LPARAM>(window));
    Pump();
  }
  EXPECT_EQ(now(), value) << bar << " does not come there";
}

void WindowHands::TurnWheel(const std::string& over) {
  const HWND window = BoxOf(over);
  POINT place = MiddleOf(window);
  ClientToScreen(window, &place);
  Send(window, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)),
       MAKELPARAM(place.x, place.y));
}

void WindowHands::Press(const KeyStroke& key) {
  const WORD code = KeyOf(key.name);
  const auto virtualKey = static_cast<WPARAM>(code & 0xFF);
  Hold(key.shift || (code & 0x100) != 0, key.control);
  const LPARAM scan =
      1 | static_cast<LPARAM>(MapVirtualKeyW(static_cast<UINT>(virtualKey), MAPVK_VK_TO_VSC)) << 16;
  Send(GetFocus(), WM_KEYDOWN, virtualKey, scan);
  Hold(false, false);
  Send(GetFocus(), WM_KEYUP, virtualKey, scan | static_cast<LPARAM>(0xC0000000));
}

void WindowHands::Paste(const std::string& text) {
  ASSERT_TRUE(OpenClipboard(Around()));
  EmptyClipboard();
  const std::wstring wide = Widened(text);
  const std::size_t bytes = (wide.size() + 1) * sizeof(wchar_t);
  const HGLOBAL data = GlobalAlloc(GMEM_MOVEABLE, bytes);
  memcpy(GlobalLock(data), wide.c_str(), bytes);
  GlobalUnlock(data);
  SetClipboardData(CF_UNICODETEXT, data);
  CloseClipboard();
  Press({"v", false, true});
}

void WindowHands::Compose(const std::string& text) {
  for (const wchar_t character : Widened(text))
    Send(GetFocus(), WM_IME_CHAR, character, 1);
}

Json WindowHands::Shown(const std::string& control, const std::string& what) {
  const HWND window = On(control);
  const HWND box = BoxOf(control);
  if (what == "enabled") return IsWindowEnabled(window) != FALSE;
  if (what == "isOn") return SendMessageW(window, BM_GETCHECK, 0, 0) == BST_CHECKED;
  if (what == "isArial") return IsArial(window);
  if (what == "back") return BackOf(box);
  if (what == "page") return SendMessageW(window, TCM_GETCURSEL, 0, 0);
  if (what == "captions") return CaptionsOf(window);
  if (what == "text") return TextOf(box);
  if (what == "mark") {
    DWORD from = 0;
    DWORD to = 0;
    SendMessageW(box, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    return {from, to};
  }
  const LONG style = GetWindowLongW(window, GWL_STYLE);
  if (what == "wraps") return (style & ES_AUTOHSCROLL) == 0;
  if (what == "scrolls") {
    Json ways = Json::array();
    if ((style & WS_HSCROLL) != 0) ways.push_back("across");
    if ((style & WS_VSCROLL) != 0) ways.push_back("down");
    return ways;
  }
  return ShownOfList(window, what);
}

Json WindowHands::ShownOfList(HWND list, const std::string& what) const {
  if (what == "at")
    return SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED);
  Json found = Json::array();
  const auto count = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
  const bool hasCheckBoxes =
      (SendMessageW(list, LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0) & LVS_EX_CHECKBOXES) != 0;
  for (int row = 0; row < count; ++row) {
    const auto state = static_cast<UINT>(SendMessageW(
        list, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED | LVIS_STATEIMAGEMASK));
    const bool isMarked = hasCheckBoxes ? state >> 12 == 2 : (state & LVIS_SELECTED) != 0;
    if (what == "rows") found.push_back(TextOfRow(list, row));
    if (what == "marked" && isMarked) found.push_back(row);
  }
  return found;
}

std::string WindowHands::Keyboard() {
  return Narrowed(NameOf(GetFocus()));
}

std::vector<std::string> WindowHands::TakeSpoken() {
  Pump();
  return std::exchange(spoken, {});
}

}  // namespace zolt20::tests
