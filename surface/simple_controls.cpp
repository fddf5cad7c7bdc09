#include "surface/simple_controls.h"

#include <utility>

#include "surface/surface.h"

namespace zolt20 {

CaptionedControl::CaptionedControl(Surface& surface, const Design& design)
    : Control(surface, design) {
  state_.caption = design.caption;
}

void CaptionedControl::Caption(StringView caption) {
  if (caption == state_.caption) return;
  state_.caption = caption;
  Changed(Property::kCaption);
}

void CaptionedControl::RestoreKind(KindState&& state) noexcept {
  state_ = std::move(*std::get_if<CaptionState>(&state));
}

void OptionButton::Value(bool value) {
  if (value == Value()) return;
  if (value) {
    for (Control* other : surface().controls_) {
      if (other->kind() == Kind::OptionButton && other->frame() == frame() && other != this) {
        static_cast<OptionButton*>(other)->Set(false);
      }
    }
  }
  Set(value);
  if (value) surface().OnClick(*this);
}

void OptionButton::Set(bool value) {
  if (value == state_.value) return;
  state_.value = value;
  Changed(Property::kValue);
}

void ScrollBar::Value(int value) {
  if (value < 0 || value > Max()) Raise(ErrorKind::kValue);
  if (value != Value()) Move(value);
}

void ScrollBar::Max(int max) {
  if (max != state_.max) {
    state_.max = max;
    Changed(Property::kMax);
  }
  if (max < Value()) Move(max);
}

void ScrollBar::Move(int value) {
  state_.value = value;
  Changed(Property::kValue);
  surface().OnChange(*this);
}

void ScrollBar::RestoreKind(KindState&& state) noexcept {
  state_ = *std::get_if<ScrollState>(&state);
}

void TabStrip::Tab(Integer page) {
  if (page < 0 || page >= static_cast<int>(kPageCaptions.size())) Raise(ErrorKind::kValue);
  const Integer left = Tab();
  if (page == left) return;
  state_.tab = page.value();
  Changed(Property::kTab);
  surface().DropLostFocus();
  surface().OnTabClick(left);
}

void TabStrip::RestoreKind(KindState&& state) noexcept {
  state_ = *std::get_if<TabStripState>(&state);
}

}  // namespace zolt20
