#include "faces/com/form/view.h"

#include "faces/com/com_text.h"

namespace zolt20::com {

void ControlView::PutAt(const RECT& place, HWND behind) {
  SetWindowPos(window_, behind, place.left, place.top, place.right - place.left,
               place.bottom - place.top, (behind == nullptr ? SWP_NOZORDER : 0U) | SWP_NOACTIVATE);
}

bool ControlView::ShowCaption(String caption) {
  if (shown_ == caption) return false;
  shown_ = std::move(caption);
  SetWindowTextW(window_, Wide(shown_));
  return true;
}

}  // namespace zolt20::com
