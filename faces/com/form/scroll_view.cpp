#include "faces/com/form/views.h"

#include <commctrl.h>

#include <algorithm>

namespace zolt20::com {
namespace {

class ScrollWindow final : public ViewOf<ScrollBar> {
 public:
  ScrollWindow(ViewOwner& owner, const ScrollBar& bar)
      : ViewOf(owner, bar, {WC_SCROLLBARW, SBS_VERT}) {}

  void Show(const faces::Change& /*change*/) override {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_POS | SIF_PAGE;
    info.nMax = control().Max();
    info.nPage = 1;
    info.nPos = control().Value();
    SetScrollInfo(window(), SB_CTL, &info, TRUE);
  }

  void OnScroll(int code, int place) override {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(window(), SB_CTL, &info);
    int value = info.nPos;
    switch (code) {
      case SB_LINEUP:
      case SB_PAGEUP:
        value -= ScrollBar::SmallChange();
        break;
      case SB_LINEDOWN:
      case SB_PAGEDOWN:
        value += ScrollBar::SmallChange();
        break;
      case SB_TOP:
        value = 0;
        break;
      case SB_BOTTOM:
        value = info.nMax;
        break;
      case SB_THUMBPOSITION:  // a drag is one gesture, when the slider is let go
        value = place;
        break;
      default:
        return;
    }
    Make(Gesture::kScroll, std::clamp(value, 0, info.nMax));
  }
};

}  // namespace

std::unique_ptr<ControlView> ScrollView(ViewOwner& owner, const ScrollBar& bar) {
  return std::make_unique<ScrollWindow>(owner, bar);
}

}  // namespace zolt20::com
