#include "faces/shared/act.h"

namespace zolt20::faces {

Outcome Perform(ZOLT20MapControl& control, const Act& act) {
  const Control& target = *act.control;
  switch (act.kind) {
    case Act::kClick:
      return act.number == Act::kNone ? control.UserClick(target)
                                      : control.UserClick(target, act.number);
    case Act::kDoubleClick:
      return control.UserDoubleClick(target, act.number);
    case Act::kPick:
      return control.UserPick(target, act.number);
    case Act::kType:
      return control.UserType(target, act.text);
    case Act::kKey:
      return control.UserKey(target, act.number);
    case Act::kFocus:
      return control.UserFocus(target);
    case Act::kTab:
      return control.UserTab(act.number);
    case Act::kScroll:
      return control.UserScroll(target, act.number);
  }
  return Outcome::kNotOffered;
}

}  // namespace zolt20::faces
