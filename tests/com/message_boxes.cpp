#include "tests/com/message_boxes.h"

#include <utility>

namespace zolt20::tests {
namespace {

MessageBoxes::Tell told;
HWND box = nullptr;

std::wstring TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(
      static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

}  // namespace

MessageBoxes::MessageBoxes(Tell tell)
    : hook_(SetWindowsHookExW(WH_CBT, &Hook, nullptr, GetCurrentThreadId())) {
  told = std::move(tell);
}

MessageBoxes::~MessageBoxes() {
  UnhookWindowsHookEx(hook_);
  told = {};
}

bool MessageBoxes::IsOfAnError() {
  const auto error = reinterpret_cast<LRESULT>(LoadIconW(nullptr, IDI_ERROR));
  for (HWND part = GetWindow(box, GW_CHILD); part != nullptr; part = GetWindow(part, GW_HWNDNEXT)) {
    if (SendMessageW(part, STM_GETICON, 0, 0) == error) return true;
  }
  return false;
}

LRESULT CALLBACK MessageBoxes::Hook(int code, WPARAM wide, LPARAM longer) {
  constexpr int kText = 0xFFFF;
  const auto window = reinterpret_cast<HWND>(wide);
  wchar_t name[16] = L"";
  if (code == HCBT_ACTIVATE && GetClassNameW(window, name, 16) > 0 &&
      std::wstring(name) == L"#32770" && GetDlgItem(window, kText) != nullptr) {
    box = window;
    told(TextOf(window), TextOf(GetDlgItem(window, kText)));
    PostMessageW(window, WM_COMMAND, IDOK, 0);
  }
  return CallNextHookEx(nullptr, code, wide, longer);
}

}  // namespace zolt20::tests
