#include "faces/com/form/row_tip.h"

#include <commctrl.h>

#include "faces/com/com_text.h"
#include "faces/com/form/common_controls.h"
#include "faces/com/server/server.h"

namespace zolt20::com {
namespace {

constexpr UINT_PTR kTool = 1;

TTTOOLINFOW ToolOf(HWND list) {
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.hwnd = list;
  tool.uId = kTool;
  return tool;
}

}  // namespace

// The tip's window may have been destroyed along with the program's window, its owner.
RowTip::~RowTip() {
  if (tip_ != nullptr && IsWindow(tip_)) DestroyWindow(tip_);
}

void RowTip::Show(const RECT& place, String text) {
  TTTOOLINFOW tool = ToolOf(list_);
  tool.rect = place;
  tool.lpszText = const_cast<wchar_t*>(Wide(text));
  if (tip_ == nullptr) {
    if (text.empty()) return;
    const CommonControls commonControls;
    tip_ = CreateWindowExW(WS_EX_TOPMOST | WS_EX_TRANSPARENT, TOOLTIPS_CLASSW, L"",
                           WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0, list_, nullptr,
                           ServerInstance(), nullptr);
    if (tip_ == nullptr) return;  // out of resources: no tips
    SendMessageW(tip_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    return;
  }
  SendMessageW(tip_, TTM_POP, 0, 0);
  SendMessageW(tip_, TTM_NEWTOOLRECTW, 0, reinterpret_cast<LPARAM>(&tool));
  SendMessageW(tip_, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
}

void RowTip::Relay(UINT message, WPARAM wide, LPARAM longer) const {
  if (tip_ == nullptr) return;
  MSG relayed{};
  relayed.hwnd = list_;
  relayed.message = message;
  relayed.wParam = wide;
  relayed.lParam = longer;
  SendMessageW(tip_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&relayed));
}

}  // namespace zolt20::com
