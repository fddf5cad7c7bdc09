#include "faces/com/form/views.h"

#include <commctrl.h>

#include "faces/com/com_text.h"

namespace zolt20::com {
namespace {

class TabStripWindow final : public ViewOf<TabStrip> {
 public:
  TabStripWindow(ViewOwner& owner, const TabStrip& strip) : ViewOf(owner, strip, {WC_TABCONTROLW}) {
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
  LRESULT OnNotify(NMHDR& notice) override {
    if (notice.code == static_cast<UINT>(TCN_SELCHANGE))
      Make(Gesture::kTab, static_cast<int>(Send(TCM_GETCURSEL)));
    return 0;
  }
};

}  // namespace

std::unique_ptr<ControlView> TabStripView(ViewOwner& owner, const TabStrip& strip) {
  return std::make_unique<TabStripWindow>(owner, strip);
}

}  // namespace zolt20::com
