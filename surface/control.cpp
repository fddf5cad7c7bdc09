#include "surface/control.h"

#include <utility>

#include "surface/surface.h"

namespace zolt20 {

Control::Control(Surface& surface, const Design& design)
    : surface_(surface),
      design_(&design),
      visible_((design.style & kHidden) == 0),
      place_(PlaceAtDesign(design.name)) {}

void Control::Enabled(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  Changed(Property::kEnabled);
  surface_.DropLostFocus();
}

void Control::Visible(bool visible) {
  if (visible == visible_) return;
  visible_ = visible;
  Changed(Property::kVisible);
  surface_.DropLostFocus();
}

bool Control::Shown() const {
  if (!surface_.IsVisible()) return false;
  if (design_->page != kEveryPage && surface_.tabVrn.Tab() != design_->page) return false;
  const Control* control = this;
  while (control != nullptr && control->visible_)
    control = control->frame_;
  return control == nullptr;
}

bool Control::TakesFocus() const {
  return kind() != Kind::Label && kind() != Kind::Frame && kind() != Kind::Rectangle;
}

void Control::SetFocus() {
  if (!TakesFocus() || !enabled_ || !Shown()) Raise(ErrorKind::kArgument);
  if (surface_.focus_ != this) surface_.MoveFocus(*this);
}

Integer Control::TabIndex() const {
  return surface_.PlaceInTabOrder(*this);
}

void Control::TabIndex(Integer place) {
  surface_.MoveInTabOrder(*this, place);
}

void Control::Left(int left) {
  PlaceAt({left, place_.top, place_.width, place_.height});
}

void Control::Top(int top) {
  PlaceAt({place_.left, top, place_.width, place_.height});
}

void Control::Changed(Property property) const {
  surface_.Notify([&](SurfaceObserver& observer) { observer.ControlChanged(*this, property); });
}

ControlState Control::Save() const {
  return {enabled_, visible_, place_, SaveKind()};
}

void Control::Restore(ControlState&& state) noexcept {
  enabled_ = state.enabled;
  visible_ = state.visible;
  place_ = state.place;
  RestoreKind(std::move(state.kind));
}

void Control::PlaceAt(const Geometry& place) {
  if (place == place_) return;
  place_ = place;
  Changed(Property::kPlace);
}

}  // namespace zolt20
