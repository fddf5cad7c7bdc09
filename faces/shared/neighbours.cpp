#include "faces/shared/neighbours.h"

#include <algorithm>
#include <vector>

namespace zolt20::faces {

const Control* NextInTabOrder(const Surface& form, const Control* from, bool forward) {
  std::vector<const Control*> order = form.TabOrder();
  if (!forward) std::reverse(order.begin(), order.end());
  auto next = order.begin();
  if (from != nullptr) next = std::next(std::find(order.begin(), order.end(), from));
  next = std::find_if(next, order.end(), [](const Control* control) {
    return control->TakesFocus() && control->Enabled() && control->Shown();
  });
  return next == order.end() ? nullptr : *next;
}

const Control* NextOption(const Surface& form, const Control& option, bool forward) {
  std::vector<const Control*> options;
  for (const Control* control : form.Controls()) {
    if (control->kind() == Kind::OptionButton && control->frame() == option.frame())
      options.push_back(control);
  }
  if (!forward) std::reverse(options.begin(), options.end());
  const auto next = std::next(std::find(options.begin(), options.end(), &option));
  return next == options.end() ? nullptr : *next;
}

}  // namespace zolt20::faces
