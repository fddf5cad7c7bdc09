// The factories of the kinds of views, each in a file of its own. Callers use MakeView.
#pragma once

#include "faces/com/form/view.h"

namespace zolt20::com {

std::unique_ptr<ControlView> LabelView(ViewOwner& owner, const Label& label);
std::unique_ptr<ControlView> FrameView(ViewOwner& owner, const Frame& frame);
std::unique_ptr<ControlView> RectangleView(ViewOwner& owner, const Rectangle& rectangle);
std::unique_ptr<ControlView> ButtonView(ViewOwner& owner, const Button& button);
std::unique_ptr<ControlView> OptionView(ViewOwner& owner, const OptionButton& option);
std::unique_ptr<ControlView> TabStripView(ViewOwner& owner, const TabStrip& strip);
std::unique_ptr<ControlView> ScrollView(ViewOwner& owner, const ScrollBar& bar);
std::unique_ptr<ControlView> TextView(ViewOwner& owner, const TextBox& box);
std::unique_ptr<ControlView> StatementsView(ViewOwner& owner, const SyntaxTextBox& box);
std::unique_ptr<ControlView> ComboView(ViewOwner& owner, const ComboBox& combo);
std::unique_ptr<ControlView> ListView(ViewOwner& owner, const ListBox& list);

}  // namespace zolt20::com
