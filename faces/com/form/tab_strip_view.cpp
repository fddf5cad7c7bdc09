#include "faces/com/form/views.h"

#include <commctrl.h>

#include "faces/com/com_text.h"

namespace zolt20::com {
namespace {

class TabStripWindow final : public ViewOf<TabStrip> {
 public:
  TabStripWindow(ViewOwner& owner, const TabStrip& strip) : ViewOf(owner, strip, {WC_TABCONTROLW}) {
    LeavePadding();
    for (std::size_t page = 0; page < kPageCaptions.size(); ++page) {
      String caption(kPageCaptions[page]);
      TCITEMW item{};
      item.mask = TCIF_TEXT;
      item.pszText = const_cast<wchar_t*>(Wide(caption));
      Send(TCM_INSERTITEMW, page, &item);
    }
  }

  void Show(const faces::Change& /*change*/) override {
    Send(TCM_SETCURSEL, static_cast<WPARAM>(control().Tab().value()));
  }
  void LooksChanged() override { LeavePadding(); }
  bool OnMessage(UINT message, WPARAM wide, LPARAM /*longer*/) override {
    if (message != WM_ERASEBKGND) return false;
    RECT inside{};
    GetClientRect(window(), &inside);
    const auto canvas = reinterpret_cast<HDC>(wide);
    FillRect(canvas, &inside, owner_.Look().Brush(canvas));
    return true;
  }
  void MessageDone(UINT message) override {
    if (message == WM_PAINT) DrawBeside();
  }
  LRESULT OnNotify(NMHDR& notice) override {
    if (notice.code == static_cast<UINT>(TCN_SELCHANGE))
      Make(Gesture::kTab, static_cast<int>(Send(TCM_GETCURSEL)));
    return 0;
  }

 private:
  // Scales the padding beside the captions, which the platform leaves the same at any resolution.
  void LeavePadding() const {
    constexpr int kAcross = 6;
    constexpr int kDown = 3;
    Send(TCM_SETPADDING, 0, MAKELPARAM(MulDiv(kAcross, owner_.Dpi(), 96), kDown));
  }

  // Hides what the platform draws around the tabs: the pane below them and the room beside the last
  // one. Paints the background of the form there, and a line on which the tabs stand.
  void DrawBeside() {
    RECT inside{};
    RECT last{};
    RECT active{};
    GetClientRect(window(), &inside);
    Send(TCM_GETITEMRECT, kPageCaptions.size() - 1, &last);
    Send(TCM_GETITEMRECT, static_cast<WPARAM>(Send(TCM_GETCURSEL)), &active);
    // The active tab is drawn larger than TCM_GETITEMRECT tells.
    constexpr LONG kMore = 2;
    const HDC canvas = GetDC(window());
    if (const HWND arrows = GetWindow(window(), GW_CHILD)) {
      RECT place{};
      GetWindowRect(arrows, &place);
      MapWindowPoints(nullptr, window(), reinterpret_cast<POINT*>(&place), 2);
      if (IsWindowVisible(arrows))
        ExcludeClipRect(canvas, place.left, place.top, place.right, place.bottom);
    }
    const HBRUSH form = owner_.Look().Brush(canvas);
    const RECT below{0, last.bottom, inside.right, inside.bottom};
    const RECT right{last.right + kMore, 0, inside.right, last.bottom};
    FillRect(canvas, &below, form);
    FillRect(canvas, &right, form);
    const auto line = [&](LONG from, LONG to) {
      const RECT place{from, last.bottom, to, last.bottom + 1};
      FillRect(canvas, &place, GetSysColorBrush(COLOR_BTNSHADOW));
    };
    line(0, active.left - kMore);
    line(active.right + kMore, inside.right);
    ReleaseDC(window(), canvas);
  }
};

}  // namespace

std::unique_ptr<ControlView> TabStripView(ViewOwner& owner, const TabStrip& strip) {
  return std::make_unique<TabStripWindow>(owner, strip);
}

}  // namespace zolt20::com
