#include "faces/com/form/views.h"

#include <commctrl.h>

#include "faces/shared/form_words.h"
#include "faces/shared/neighbours.h"

// Buttons and options.

namespace zolt20::com {
namespace {

template <typename ControlKind>
class AnyButton : public ViewOf<ControlKind> {
 public:
  AnyButton(ViewOwner& owner, const ControlKind& button, DWORD style)
      : ViewOf<ControlKind>(owner, button, {WC_BUTTONW, style}) {}

  void Show(const faces::Change& /*change*/) override {
    this->ShowCaption(faces::CaptionWithMnemonic(this->control()));
  }
  HBRUSH Brush(HDC canvas) override {
    SetBkMode(canvas, TRANSPARENT);
    const FormLook& look = this->owner_.Look();
    SetTextColor(canvas, look.Text());
    return look.Brush(canvas);
  }
  void OnCommand(int code) override {
    // An option button also sends BN_CLICKED when it gets the focus: that is no gesture.
    if (code == BN_CLICKED && !this->owner_.IsFocusing()) this->Make(Gesture::kClick);
  }
};

class ButtonWindow final : public AnyButton<Button> {
 public:
  ButtonWindow(ViewOwner& owner, const Button& button) : AnyButton(owner, button, BS_PUSHBUTTON) {}

  bool OnKey(WPARAM key) override {
    if (key == VK_RETURN) Make(Gesture::kClick);
    return key == VK_RETURN;
  }
};

class OptionWindow final : public AnyButton<OptionButton> {
 public:
  OptionWindow(ViewOwner& owner, const OptionButton& option)
      : AnyButton(owner, option, BS_RADIOBUTTON) {}

  void Show(const faces::Change& change) override {
    AnyButton::Show(change);
    Send(BM_SETCHECK, control().Value() ? BST_CHECKED : BST_UNCHECKED);
  }
  bool OnKey(WPARAM key) override {
    const bool isForward = key == VK_DOWN || key == VK_RIGHT;
    if (!isForward && key != VK_UP && key != VK_LEFT) return false;
    const Control* next = faces::NextOption(owner_.Form(), control(), isForward);
    if (next != nullptr) owner_.Make({Gesture::kClick, next});
    return true;
  }
};

}  // namespace

std::unique_ptr<ControlView> ButtonView(ViewOwner& owner, const Button& button) {
  return std::make_unique<ButtonWindow>(owner, button);
}

std::unique_ptr<ControlView> OptionView(ViewOwner& owner, const OptionButton& option) {
  return std::make_unique<OptionWindow>(owner, option);
}

}  // namespace zolt20::com
