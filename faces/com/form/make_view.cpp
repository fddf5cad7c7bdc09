#include "faces/com/form/views.h"

namespace zolt20::com {

std::unique_ptr<ControlView> MakeView(ViewOwner& owner, const Control& control) {
  switch (control.kind()) {
    case Kind::Frame:
      return FrameView(owner, static_cast<const Frame&>(control));
    case Kind::Label:
      return LabelView(owner, static_cast<const Label&>(control));
    case Kind::Rectangle:
      return RectangleView(owner, static_cast<const Rectangle&>(control));
    case Kind::Button:
      return ButtonView(owner, static_cast<const Button&>(control));
    case Kind::OptionButton:
      return OptionView(owner, static_cast<const OptionButton&>(control));
    case Kind::TabStrip:
      return TabStripView(owner, static_cast<const TabStrip&>(control));
    case Kind::ScrollBar:
      return ScrollView(owner, static_cast<const ScrollBar&>(control));
    case Kind::TextBox:
      return TextView(owner, static_cast<const TextBox&>(control));
    case Kind::SyntaxTextBox:
      return StatementsView(owner, static_cast<const SyntaxTextBox&>(control));
    case Kind::ComboBox:
      return ComboView(owner, static_cast<const ComboBox&>(control));
    case Kind::ListBox:
      return ListView(owner, static_cast<const ListBox&>(control));
  }
  return nullptr;
}

}  // namespace zolt20::com
