#include "faces/com/form/plain_boxes.h"

#include <commctrl.h>

#include <algorithm>
#include <optional>

#include "faces/com/com_text.h"
#include "faces/com/form/readable.h"
#include "faces/shared/back_colors.h"
#include "faces/shared/shown_text.h"

namespace zolt20::com {
namespace {

// The platform's colour for a BackColor: a plain number is 0xBBGGRR, a system colour has the top
// bit set. The fallback for a colour on which the text could not be read is the form's.
COLORREF ColorOf(unsigned backColor, COLORREF text) {
  constexpr unsigned kSystemColor = 0x80000000;
  if ((backColor & kSystemColor) == 0) return GetSysColor(COLOR_WINDOW);
  const COLORREF meant = GetSysColor(static_cast<int>(backColor & ~kSystemColor));
  return CanBeRead(text, meant) ? meant : GetSysColor(COLOR_BTNFACE);
}

}  // namespace

String WindowText(HWND window) {
  String text(static_cast<std::size_t>(GetWindowTextLengthW(window)), u'\0');
  const int length = GetWindowTextW(window, reinterpret_cast<wchar_t*>(text.data()),
                                    static_cast<int>(text.size()) + 1);
  text.resize(static_cast<std::size_t>(length));
  return text;
}

String WithoutNuls(StringView text) {
  String shown(text);
  std::replace(shown.begin(), shown.end(), u'\0', u'\u2400');
  return shown;
}

String InLowerCase(StringView text) {
  String lower(text);
  CharLowerBuffW(reinterpret_cast<wchar_t*>(lower.data()), static_cast<DWORD>(lower.size()));
  return lower;
}

void PasteText(HWND box) {
  if (!OpenClipboard(box)) return;
  String text;
  if (const HANDLE data = GetClipboardData(CF_UNICODETEXT)) {
    if (const auto* characters = static_cast<const char16_t*>(GlobalLock(data))) {
      text = faces::WithLineEnds(characters);
      GlobalUnlock(data);
    }
  }
  CloseClipboard();
  if (!text.empty()) SendMessageW(box, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(Wide(text)));
}

void UseBoxColors(HWND list) {
  const auto behind = static_cast<LPARAM>(GetSysColor(COLOR_WINDOW));
  SendMessageW(list, LVM_SETBKCOLOR, 0, behind);
  SendMessageW(list, LVM_SETTEXTBKCOLOR, 0, behind);
  SendMessageW(list, LVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(GetSysColor(COLOR_WINDOWTEXT)));
}

HBRUSH BoxBrush(HDC canvas, const Control& control) {
  const std::optional<unsigned> backColor = faces::BackColorOf(control);
  if (!backColor) return nullptr;
  const COLORREF text = GetSysColor(control.Enabled() ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT);
  const COLORREF color = ColorOf(*backColor, text);
  SetTextColor(canvas, text);
  SetBkColor(canvas, color);
  SetDCBrushColor(canvas, color);
  return static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
}

}  // namespace zolt20::com
