#include "faces/com/form/filter_line.h"

#include <commctrl.h>

#include <stdexcept>

#include "faces/com/com_text.h"
#include "faces/com/form/plain_boxes.h"
#include "faces/com/server/server.h"

namespace zolt20::com {
namespace {

HWND MakeWindow(HWND parent, const wchar_t* kind, DWORD style, DWORD extended) {
  const HWND window =
      CreateWindowExW(extended, kind, L"", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | style, 0, 0, 0,
                      0, parent, nullptr, ServerInstance(), nullptr);
  if (window == nullptr) throw std::runtime_error("no window");
  return window;
}

}  // namespace

FilterLine::FilterLine(HWND parent)
    : line_(MakeWindow(parent, WC_EDITW, ES_AUTOHSCROLL, WS_EX_CLIENTEDGE)),
      marks_(MakeWindow(parent, WC_STATICW, SS_RIGHT | SS_NOPREFIX | SS_ENDELLIPSIS, 0)) {
  SendMessageW(line_, EM_SETCUEBANNER, FALSE, reinterpret_cast<LPARAM>(L"Filter (Ctrl+F)"));
}

String FilterLine::Text() const {
  return WindowText(line_);
}

void FilterLine::SetFont(HFONT font) const {
  for (const HWND window : {line_, marks_})
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

void FilterLine::Enable(bool enabled) const {
  if ((IsWindowEnabled(line_) != FALSE) != enabled) EnableWindow(line_, enabled);
}

void FilterLine::ShowMarks(const String& text) const {
  if (WindowText(marks_) != text) SetWindowTextW(marks_, Wide(text));
}

void FilterLine::TakeFocus() const {
  SetFocus(line_);
  SendMessageW(line_, EM_SETSEL, 0, -1);
}

}  // namespace zolt20::com
