#include "faces/com/form/views.h"

#include <commctrl.h>

#include <algorithm>

#include "faces/com/com_text.h"
#include "faces/com/form/plain_boxes.h"
#include "faces/shared/shown_text.h"

// Text boxes, of one line and of several.

namespace zolt20::com {
namespace {

bool IsMultiLine(const TextBox& box) {
  return (box.design().style & kMultiLine) != 0;
}

class TextWindow final : public ViewOf<TextBox> {
 public:
  TextWindow(ViewOwner& owner, const TextBox& box)
      : ViewOf(owner, box,
               {WC_EDITW,
                ES_NOHIDESEL | ES_AUTOHSCROLL |
                    (IsMultiLine(box)
                         ? ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL | WS_HSCROLL
                         : 0U),
                WS_EX_CLIENTEDGE}) {
    Send(EM_SETLIMITTEXT, 0x7FFFFFFE);
  }

  void Show(const faces::Change& change) override {
    ShowText(control().Text());
    if (!change.Has(Property::kSelStart)) return;
    Send(EM_SETSEL, static_cast<WPARAM>(control().SelStart()), control().SelStart());
    Send(EM_SCROLLCARET);
  }
  HBRUSH Brush(HDC canvas) override { return BoxBrush(canvas, control()); }

  void OnCommand(int code) override {
    if (code == EN_CHANGE && !owner_.IsShowing()) TakeEdit();
  }
  bool OnMessage(UINT message, WPARAM /*wide*/, LPARAM /*longer*/) override {
    if (message == WM_PASTE) PasteText(window());
    return message == WM_PASTE;
  }
  bool OnKey(WPARAM key) override { return key == VK_ESCAPE; }
  bool OnCharacter(wchar_t character) override;
  bool HasOwn(bool undo) const override { return undo && Send(EM_CANUNDO) != 0; }

 private:
  void ShowText(StringView text);
  void TakeEdit();
};

// In a box of several lines, replaces only the part of the text that differs, so that the scroll
// position stays.
void TextWindow::ShowText(StringView text) {
  String shown = WithoutNuls(text);
  if (shown == shown_) return;
  if (IsMultiLine(control())) {
    const faces::Edit edit = faces::EditBetween(shown_, shown, shown.size());
    const String added = shown.substr(edit.position, edit.added);
    Send(EM_SETSEL, edit.position, static_cast<LPARAM>(edit.position + edit.removed));
    Send(EM_REPLACESEL, FALSE, Wide(added));
    Send(EM_EMPTYUNDOBUFFER);
  } else {
    SetWindowTextW(window(), Wide(shown));
  }
  shown_ = std::move(shown);
}

// Takes the person's edit from the window as a gesture.
void TextWindow::TakeEdit() {
  String now = WindowText(window());
  if (now == shown_) return;
  DWORD caret = 0;
  Send(EM_GETSEL, 0, &caret);
  const faces::Edit edit =
      faces::EditBetween(shown_, now, std::min<std::size_t>(caret, now.size()));
  const StringView text = control().Text();
  String changed =
      Concat(text.substr(0, edit.position), StringView(now).substr(edit.position, edit.added),
             text.substr(edit.position + edit.removed));
  shown_ = std::move(now);
  Type(std::move(changed));
}

bool TextWindow::OnCharacter(wchar_t character) {
  const bool isControl = GetKeyState(VK_CONTROL) < 0;
  if (character == L'\t') return !(IsMultiLine(control()) && isControl);
  if (character == 1) {  // Ctrl+A
    Send(EM_SETSEL, 0, -1);
    return true;
  }
  const bool isKey =
      (character >= L' ' || character == L'\b' || character == L'\r') && character != 0x7F;
  if (isKey && &control() == &owner_.Form().txtAsSet) {
    DWORD first = 0;
    DWORD behind = 0;
    Send(EM_GETSEL, reinterpret_cast<WPARAM>(&first), &behind);
    owner_.Key(control(), static_cast<char16_t>(character),
               {static_cast<int>(first), static_cast<int>(behind)});
    return true;
  }
  return character == L'\r' && !IsMultiLine(control());
}

}  // namespace

std::unique_ptr<ControlView> TextView(ViewOwner& owner, const TextBox& box) {
  return std::make_unique<TextWindow>(owner, box);
}

}  // namespace zolt20::com
