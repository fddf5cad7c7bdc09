#include "faces/com/form/views.h"

#include <commctrl.h>

#include "faces/com/com_text.h"
#include "faces/com/form/common_controls.h"
#include "faces/com/form/form_fonts.h"
#include "faces/com/form/readable.h"

// Views of controls without interaction: labels, frames and the rectangle.

namespace zolt20::com {
namespace {

class LabelWindow final : public ViewOf<Label> {
 public:
  LabelWindow(ViewOwner& owner, const Label& label)
      : ViewOf(owner, label, {WC_STATICW, SS_LEFTNOWORDWRAP | SS_NOPREFIX | SS_ENDELLIPSIS}) {}

  void Show(const faces::Change& /*change*/) override { ShowCaption(control().Caption()); }
  HBRUSH Brush(HDC canvas) override {
    SetBkMode(canvas, TRANSPARENT);
    const FormLook& look = owner_.Look();
    const bool isQuiet = faces::IsNote(control().design());
    SetTextColor(canvas, isQuiet ? Quiet(look.Text(), look.Face()) : look.Text());
    return look.Brush(canvas);
  }
};

class FrameWindow final : public ViewOf<Frame> {
 public:
  FrameWindow(ViewOwner& owner, const Frame& frame)
      : ViewOf(owner, frame, {kPanelClass, WS_CLIPCHILDREN, WS_EX_CONTROLPARENT}) {}

  void Show(const faces::Change& /*change*/) override {
    if (ShowCaption(control().Caption())) InvalidateRect(window(), nullptr, TRUE);
  }
  void Draw(HDC canvas) override {
    if ((control().design().style & kNoBorder) != 0) return;
    RECT border{};
    GetClientRect(window(), &border);
    const int line = MulDiv(kFontTwips, owner_.Dpi(), kTwipsPerInch);
    RECT text{line / 2, 0, border.right, line * 3 / 2};
    border.top += line * 2 / 3;
    DrawEdge(canvas, &border, EDGE_ETCHED, BF_RECT);
    const HGDIOBJ before = SelectObject(canvas, owner_.FontOf(control()));
    SetBkColor(canvas, owner_.Look().Face());
    SetTextColor(canvas, owner_.Look().Text());
    DrawTextW(canvas, Wide(shown_), -1, &text, DT_SINGLELINE | DT_NOPREFIX);
    SelectObject(canvas, before);
  }
};

class RectangleWindow final : public ViewOf<Rectangle> {
 public:
  RectangleWindow(ViewOwner& owner, const Rectangle& rectangle)
      : ViewOf(owner, rectangle, {kPanelClass}) {}

  // At the bottom of the z order, behind the controls that it surrounds.
  void Place(const RECT& place) override { PutAt(place, HWND_BOTTOM); }
  void Draw(HDC canvas) override {
    RECT border{};
    GetClientRect(window(), &border);
    DrawEdge(canvas, &border, EDGE_ETCHED, BF_RECT);
  }
};

}  // namespace

std::unique_ptr<ControlView> LabelView(ViewOwner& owner, const Label& label) {
  return std::make_unique<LabelWindow>(owner, label);
}

std::unique_ptr<ControlView> FrameView(ViewOwner& owner, const Frame& frame) {
  return std::make_unique<FrameWindow>(owner, frame);
}

std::unique_ptr<ControlView> RectangleView(ViewOwner& owner, const Rectangle& rectangle) {
  return std::make_unique<RectangleWindow>(owner, rectangle);
}

}  // namespace zolt20::com
