// What a person does to the form, in the order: offered, row there, shown, enabled, focus, action.
#include <algorithm>
#include <utility>

#include "surface/surface.h"

namespace zolt20 {

bool Surface::Offers(const Control& control, Gesture gesture) {
  switch (gesture) {
    case Gesture::kFocus:
      return control.TakesFocus();
    case Gesture::kClick:
      return control.kind() == Kind::Button || control.kind() == Kind::OptionButton;
    case Gesture::kClickRow:
    case Gesture::kDoubleClickRow:
      return control.kind() == Kind::ListBox;
    case Gesture::kPick:
      return control.kind() == Kind::ComboBox;
    case Gesture::kType:
      return control.kind() == Kind::TextBox || control.kind() == Kind::SyntaxTextBox ||
             (control.kind() == Kind::ComboBox &&
              static_cast<const ComboBox&>(control).IsEditable());
    case Gesture::kKey:
      return control.kind() == Kind::TextBox;
    case Gesture::kTab:
      return control.kind() == Kind::TabStrip;
    case Gesture::kScroll:
      return control.kind() == Kind::ScrollBar;
  }
  return false;
}

Outcome Surface::User(const UserGesture& gesture) {
  const Control& control = *gesture.control;
  switch (gesture.gesture) {
    case Gesture::kFocus:
      return UserFocus(control);
    case Gesture::kClick:
      return UserClick(control);
    case Gesture::kClickRow:
      return UserClick(control, gesture.number);
    case Gesture::kDoubleClickRow:
      return UserDoubleClick(control, gesture.number);
    case Gesture::kPick:
      return UserPick(control, gesture.number);
    case Gesture::kType:
      return UserType(control, gesture.text);
    case Gesture::kKey:
      return UserKey(control, gesture.number, gesture.mark);
    case Gesture::kTab:
      return Offers(control, Gesture::kTab) ? UserTab(gesture.number) : Outcome::kNotOffered;
    case Gesture::kScroll:
      return UserScroll(control, gesture.number);
  }
  return Outcome::kNotOffered;
}

Outcome Surface::UserFocus(const Control& control) {
  if (!Offers(control, Gesture::kFocus)) return Outcome::kNotOffered;
  if (const Outcome refusal = Refusal(control); refusal != Outcome::kDone) return refusal;
  TakesGesture(Own(control));
  return Outcome::kDone;
}

Outcome Surface::UserClick(const Control& control) {
  if (!Offers(control, Gesture::kClick)) return Outcome::kNotOffered;
  if (const Outcome refusal = Refusal(control); refusal != Outcome::kDone) return refusal;
  Control& own = Own(control);
  if (!TakesGesture(own)) return Outcome::kDone;
  if (own.kind() == Kind::OptionButton) {
    static_cast<OptionButton&>(own).Value(true);
  } else {
    OnClick(own);
  }
  return Outcome::kDone;
}

Outcome Surface::UserClick(const Control& list, int row) {
  if (!Offers(list, Gesture::kClickRow)) return Outcome::kNotOffered;
  auto& own = static_cast<ListBox&>(Own(list));
  if (row < 0 || row >= own.ListCount()) return Outcome::kNoSuchRow;
  if (const Outcome refusal = Refusal(list); refusal != Outcome::kDone) return refusal;
  if (TakesGesture(own)) own.ClickRow(row);
  return Outcome::kDone;
}

Outcome Surface::UserDoubleClick(const Control& list, int row) {
  if (!Offers(list, Gesture::kDoubleClickRow)) return Outcome::kNotOffered;
  auto& own = static_cast<ListBox&>(Own(list));
  if (row < 0 || row >= own.ListCount()) return Outcome::kNoSuchRow;
  if (const Outcome refusal = Refusal(list); refusal != Outcome::kDone) return refusal;
  if (!TakesGesture(own)) return Outcome::kDone;
  if (own.IsSingle()) own.ClickRow(row);
  OnDoubleClick(own);
  return Outcome::kDone;
}

Outcome Surface::UserPick(const Control& combo, int row) {
  if (!Offers(combo, Gesture::kPick)) return Outcome::kNotOffered;
  auto& own = static_cast<ComboBox&>(Own(combo));
  if (row < 0 || row >= own.ListCount()) return Outcome::kNoSuchRow;
  if (const Outcome refusal = Refusal(combo); refusal != Outcome::kDone) return refusal;
  if (TakesGesture(own)) own.Pick(row);
  return Outcome::kDone;
}

Outcome Surface::UserType(const Control& box, StringView text) {
  if (!Offers(box, Gesture::kType)) return Outcome::kNotOffered;
  if (const Outcome refusal = Refusal(box); refusal != Outcome::kDone) return refusal;
  Control& own = Own(box);
  if (!TakesGesture(own)) return Outcome::kDone;
  if (own.kind() == Kind::TextBox) {
    static_cast<TextBox&>(own).Enter(String(text), static_cast<int>(text.size()));
  } else if (own.kind() == Kind::SyntaxTextBox) {
    static_cast<SyntaxTextBox&>(own).Text(text);
  } else {
    static_cast<ComboBox&>(own).Text(text);
  }
  return Outcome::kDone;
}

Outcome Surface::UserKey(const Control& box, Integer code, std::optional<TextMark> mark) {
  if (!Offers(box, Gesture::kKey)) return Outcome::kNotOffered;
  auto& own = static_cast<TextBox&>(Own(box));
  const int length = static_cast<int>(own.Text().size());
  if (mark && (mark->from < 0 || mark->to < mark->from || mark->to > length))
    return Outcome::kNoSuchMark;
  if (const Outcome refusal = Refusal(box); refusal != Outcome::kDone) return refusal;
  if (TakesGesture(own)) PressKey(own, code, mark);
  return Outcome::kDone;
}

Outcome Surface::UserTab(Integer page) {
  if (const Outcome refusal = Refusal(tabVrn); refusal != Outcome::kDone) return refusal;
  if (TakesGesture(tabVrn)) tabVrn.Tab(page);
  return Outcome::kDone;
}

Outcome Surface::UserScroll(const Control& bar, int value) {
  if (!Offers(bar, Gesture::kScroll)) return Outcome::kNotOffered;
  if (const Outcome refusal = Refusal(bar); refusal != Outcome::kDone) return refusal;
  auto& own = static_cast<ScrollBar&>(Own(bar));
  if (value < 0 || value > own.Max()) return Outcome::kOutside;
  if (TakesGesture(own)) own.Value(value);
  return Outcome::kDone;
}

Control& Surface::Own(const Control& control) const {
  // A face passes a const control, since faces only read; the surface owns the control and may
  // write it.
  return const_cast<Control&>(control);
}

Outcome Surface::Refusal(const Control& control) {
  if (!control.Shown()) return Outcome::kNotShown;
  if (!control.Enabled()) return Outcome::kNotEnabled;
  return Outcome::kDone;
}

bool Surface::TakesGesture(Control& control) {
  if (focus_ != &control) MoveFocus(control);
  return control.Enabled() && control.Shown();
}

void Surface::PressKey(TextBox& box, Integer code, const std::optional<TextMark>& mark) {
  constexpr int kBackspace = 8;
  constexpr int kFirstCharacter = 32;
  OnKeyPress(box, code);
  String text = box.Text();
  // A handler may have made the text shorter.
  const int length = static_cast<int>(text.size());
  int from = mark ? std::min(mark->from, length) : box.SelStart();
  const int to = mark ? std::min(mark->to, length) : from;
  const bool isCharacter = code >= kFirstCharacter;
  if (code == kBackspace && from == to && from > 0) --from;
  int caret = from;
  if (isCharacter || code == kBackspace) {
    const auto count = static_cast<std::size_t>(to - from);
    const auto character = static_cast<char16_t>(code.value());
    text.replace(static_cast<std::size_t>(from), count, isCharacter ? 1 : 0, character);
    if (isCharacter) ++caret;
  }
  box.Enter(std::move(text), caret);
}

}  // namespace zolt20
