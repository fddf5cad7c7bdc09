#include "faces/com/form/views.h"

#include <richedit.h>

#include "faces/com/form/box_border.h"
#include "faces/com/form/statement_box.h"
#include "faces/com/form/text_menu.h"

namespace zolt20::com {
namespace {

class StatementsWindow final : public ViewOf<SyntaxTextBox> {
 public:
  StatementsWindow(ViewOwner& owner, const SyntaxTextBox& box)
      : ViewOf(owner, box, {StatementBox::ClassName(), StatementBox::kStyle, WS_EX_CLIENTEDGE}) {
    statements_.Attach(window());
  }

  void Show(const faces::Change& /*change*/) override {
    statements_.Highlight(control().Highlight());
    statements_.Show(control().Text());
  }
  void LooksChanged() override { statements_.Recolor(); }

  void OnCommand(int code) override {
    if (code != EN_CHANGE || owner_.IsShowing()) return;
    if (std::optional<String> text = statements_.TakeEdit()) Type(std::move(*text));
  }
  bool OnMessage(UINT message, WPARAM wide, LPARAM longer) override;
  bool OnKey(WPARAM key) override;
  bool OnCharacter(wchar_t character) override {
    if (character == 1) Send(EM_SETSEL, 0, -1);  // Ctrl+A
    return character == 1 || (character == L'\t' && GetKeyState(VK_CONTROL) >= 0);
  }
  // After messages that may have scrolled.
  void MessageDone(UINT message) override {
    if (message == WM_NCPAINT) DrawBoxBorder(window());
    if (message == WM_CHAR || message == WM_KEYDOWN) statements_.KeyWent();
    if (message == WM_VSCROLL || message == WM_MOUSEWHEEL || message == WM_KEYDOWN ||
        message == WM_SIZE || message == EM_SCROLLCARET || message == EM_SCROLL)
      statements_.Scrolled();
  }
  bool HasOwn(bool undo) const override { return Send(undo ? EM_CANUNDO : EM_CANREDO) != 0; }

 private:
  StatementBox statements_;
};

bool StatementsWindow::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_PASTE) {
    statements_.Paste();
    return true;
  }
  const bool isOfText =
      message == WM_CHAR
          ? wide >= L' ' || wide == L'\b' || wide == L'\r'
          : message == WM_KEYDOWN && (wide == VK_BACK || wide == VK_DELETE || wide == VK_RETURN);
  if (isOfText) statements_.KeyComes();
  LPARAM place = 0;
  if (!AsksForMenu(window(), message, wide, longer, place)) return false;
  ShowTextMenu(window(), place);  // may destroy this view
  return true;
}

bool StatementsWindow::OnKey(WPARAM key) {
  if (key == VK_ESCAPE) return true;
  const bool isControl = GetKeyState(VK_CONTROL) < 0;
  const bool isShift = GetKeyState(VK_SHIFT) < 0;
  const bool isCommand = isControl && GetKeyState(VK_MENU) >= 0;
  if ((key == L'V' && isCommand) || (key == VK_INSERT && isShift && !isControl)) {
    statements_.Paste();
    return true;
  }
  // Swallows the rich edit's shortcuts for alignment, bullets and font styles.
  const bool isOfText = key == L'A' || key == L'C' || key == L'X' || key == L'Y' || key == L'Z';
  const bool isCharacter = (key >= L'0' && key <= L'Z') || key >= VK_OEM_1;
  return isCommand && isCharacter && !isOfText;
}

}  // namespace

std::unique_ptr<ControlView> StatementsView(ViewOwner& owner, const SyntaxTextBox& box) {
  return std::make_unique<StatementsWindow>(owner, box);
}

}  // namespace zolt20::com
