// The controls with little state: buttons, labels, frames, the rectangle, the scroll bar, the tab
// strip.
#pragma once

#include "surface/control.h"

namespace zolt20 {

/// A control with a caption.
class CaptionedControl : public Control {
 public:
  const String& Caption() const { return state_.caption; }
  void Caption(StringView caption);

 protected:
  CaptionedControl(Surface& surface, const Design& design);

  CaptionState state_;

 private:
  KindState SaveKind() const override { return state_; }
  void RestoreKind(KindState&& state) noexcept override;
};

class Button final : public CaptionedControl {
 public:
  Button(Surface& surface, const Design& design) : CaptionedControl(surface, design) {}
};

/// One of the option buttons of a frame, of which at most one is True.
class OptionButton final : public CaptionedControl {
 public:
  OptionButton(Surface& surface, const Design& design) : CaptionedControl(surface, design) {}

  bool Value() const { return state_.value; }
  /// Setting a False option to True makes the other options of the frame False, which fires
  /// nothing, and then runs Click inside the call. Anything else fires nothing.
  void Value(bool value);

 private:
  void Set(bool value);
};

class Label final : public CaptionedControl {
 public:
  Label(Surface& surface, const Design& design) : CaptionedControl(surface, design) {}
};

/// A frame. Hiding it hides all that it holds.
class Frame final : public CaptionedControl {
 public:
  Frame(Surface& surface, const Design& design) : CaptionedControl(surface, design) {}
};

/// A decoration.
class Rectangle final : public Control {
 public:
  Rectangle(Surface& surface, const Design& design) : Control(surface, design) {}
};

/// A vertical scroll bar from 0 to Max.
class ScrollBar final : public Control {
 public:
  ScrollBar(Surface& surface, const Design& design) : Control(surface, design) {}

  int Value() const { return state_.value; }
  /// A different value runs Change inside the call. Raises `value` outside 0 to Max.
  void Value(int value);

  int Max() const { return state_.max; }
  /// A Max below Value lowers Value to it, which runs Change inside the call.
  void Max(int max);

  /// How far one step goes.
  static constexpr int SmallChange() { return 1; }

 private:
  void Move(int value);
  KindState SaveKind() const override { return state_; }
  void RestoreKind(KindState&& state) noexcept override;

  ScrollState state_;
};

/// The strip of the seven pages.
class TabStrip final : public Control {
 public:
  TabStrip(Surface& surface, const Design& design) : Control(surface, design) {}

  /// The number of the active page, 0 to 6.
  Integer Tab() const { return state_.tab; }
  /// A different page becomes active, a control that is no longer shown loses the focus, and Click
  /// runs inside the call with the number of the page left. Raises `value` outside 0 to 6.
  void Tab(Integer page);

 private:
  KindState SaveKind() const override { return state_; }
  void RestoreKind(KindState&& state) noexcept override;

  TabStripState state_;
};

}  // namespace zolt20
