#include "faces/com/form/form_picture.h"

#include <algorithm>

#include "faces/com/com_text.h"
#include "faces/com/form/common_controls.h"
#include "faces/com/form/form_fonts.h"

namespace zolt20::com {
namespace {

constexpr int kRowTwips = 210;
constexpr int kTextMarginTwips = 45;

// Draws in twips of the form.
class Picture {
 public:
  Picture(HDC canvas, const RECT& place, const Surface& form, const FormLook& look)
      : canvas_(canvas),
        form_(form),
        look_(look),
        place_(place),
        width_(faces::FormPlaces::kWidth),
        height_(faces::FormPlaces::kHeight),
        verdana_(MakeFont(L"Verdana", std::max(1, Down(kFontTwips)))),
        arial_(MakeFont(L"Arial", std::max(1, Down(kFontTwips)))),
        places_(form, width_, height_, {LineTwips(), LineTwips()}),
        saved_(SaveDC(canvas)) {
    width_ = places_.Width();
    height_ = places_.Height();
    SetBkMode(canvas_, TRANSPARENT);
  }
  ~Picture() { RestoreDC(canvas_, saved_); }
  Picture(const Picture&) = delete;
  Picture& operator=(const Picture&) = delete;

  void Draw() {
    FillRect(canvas_, &place_, look_.Brush(canvas_));
    for (const Control* control : form_.Controls()) {
      // Of the two views of the where condition, which at first are both visible, the where text
      // lies on top.
      const bool isCovered =
          (control == &form_.FraCondition || control->frame() == &form_.FraCondition) &&
          form_.FrawhereCondition.Visible();
      if (control->Shown() && !isCovered) DrawWithin(*control);
    }
  }

 private:
  static Font MakeFont(const wchar_t* name, int height) {
    return Font(CreateFontW(-height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                            OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                            DEFAULT_PITCH | FF_DONTCARE, name));
  }

  int Across(int twips) const { return MulDiv(twips, place_.right - place_.left, width_); }
  int Down(int twips) const { return MulDiv(twips, place_.bottom - place_.top, height_); }

  // The line height in twips. A metafile's canvas may not know it, and gives 0.
  int LineTwips() const {
    const int line =
        std::max(LineHeightOf(canvas_, verdana_.get()), LineHeightOf(canvas_, arial_.get()));
    return MulDiv(line, height_, std::max<LONG>(1, place_.bottom - place_.top));
  }

  RECT RectOf(const Control& control) const {
    Geometry place = places_.Of(control);
    for (const Control* frame = control.frame(); frame != nullptr; frame = frame->frame()) {
      const Geometry around = places_.Of(*frame);
      place.left += around.left;
      place.top += around.top;
    }
    return {place_.left + Across(place.left), place_.top + Down(place.top),
            place_.left + Across(place.left + place.width),
            place_.top + Down(place.top + place.height)};
  }

  // Clips a control to its frame, such as case rows that do not fit into theirs.
  void DrawWithin(const Control& control) {
    const int saved = SaveDC(canvas_);
    if (const Control* frame = control.frame()) {
      const RECT inside = RectOf(*frame);
      IntersectClipRect(canvas_, inside.left, inside.top, inside.right, inside.bottom);
    }
    DrawControl(control);
    RestoreDC(canvas_, saved);
  }

  // A button has its own background, on which only the system's text colour is sure to be readable.
  COLORREF TextColorOf(const Control& control) const {
    if (!control.Enabled()) return GetSysColor(COLOR_GRAYTEXT);
    return control.kind() == Kind::Button ? GetSysColor(COLOR_BTNTEXT) : look_.Text();
  }

  void DrawControl(const Control& control) {
    RECT rect = RectOf(control);
    SetTextColor(canvas_, TextColorOf(control));
    SelectObject(canvas_, (control.design().style & kArial) != 0 ? arial_.get() : verdana_.get());
    switch (control.kind()) {
      case Kind::TabStrip:
        DrawTabs(rect);
        break;
      case Kind::TextBox:
      case Kind::SyntaxTextBox:
        DrawBox(rect);
        DrawLines(rect, static_cast<const TextControl&>(control).Text());
        break;
      case Kind::ListBox:
        DrawBox(rect);
        DrawRows(rect, static_cast<const ListBox&>(control));
        break;
      case Kind::ComboBox: {
        DrawBox(rect);
        RECT arrow = rect;
        arrow.left = std::max(rect.left, rect.right - (rect.bottom - rect.top));
        DrawFrameControl(canvas_, &arrow, DFC_SCROLL, DFCS_SCROLLCOMBOBOX);
        rect.right = arrow.left;
        DrawLine(rect, static_cast<const ComboBox&>(control).Text(), DT_VCENTER);
        break;
      }
      case Kind::Button:
        DrawFrameControl(canvas_, &rect, DFC_BUTTON, DFCS_BUTTONPUSH);
        DrawLine(rect, static_cast<const Button&>(control).Caption(), DT_CENTER | DT_VCENTER);
        break;
      case Kind::OptionButton: {
        RECT mark = rect;
        mark.right = mark.left + Across(kRowTwips);
        DrawFrameControl(canvas_, &mark, DFC_BUTTON,
                         static_cast<const OptionButton&>(control).Value()
                             ? DFCS_BUTTONRADIO | DFCS_CHECKED
                             : DFCS_BUTTONRADIO);
        rect.left = mark.right;
        DrawLine(rect, static_cast<const OptionButton&>(control).Caption(), DT_VCENTER);
        break;
      }
      case Kind::Frame:
        if ((control.design().style & kNoBorder) == 0)
          DrawFrame(rect, static_cast<const Frame&>(control).Caption());
        break;
      case Kind::Label:
        DrawLine(rect, static_cast<const Label&>(control).Caption(), 0);
        break;
      case Kind::Rectangle:
        DrawEdge(canvas_, &rect, EDGE_ETCHED, BF_RECT);
        break;
      case Kind::ScrollBar:
        DrawScrollBar(rect);
        break;
    }
  }

  void DrawTabs(RECT rect) {
    const int width = (rect.right - rect.left) / static_cast<int>(kPageCaptions.size());
    for (std::size_t page = 0; page < kPageCaptions.size(); ++page) {
      RECT tab = rect;
      tab.left += static_cast<int>(page) * width;
      tab.right = tab.left + width;
      const bool isActive = form_.tabVrn.Tab().value() == static_cast<int>(page);
      if (!isActive) tab.top += Down(kTextMarginTwips);
      DrawEdge(canvas_, &tab, EDGE_RAISED,
               BF_LEFT | BF_TOP | BF_RIGHT | (isActive ? 0U : BF_BOTTOM));
      DrawLine(tab, Trim(kPageCaptions[page]), DT_CENTER | DT_VCENTER);
    }
  }

  void DrawScrollBar(const RECT& rect) {
    FillRect(canvas_, &rect, GetSysColorBrush(COLOR_SCROLLBAR));
    const LONG side = std::min(rect.right - rect.left, (rect.bottom - rect.top) / 2);
    RECT up{rect.left, rect.top, rect.right, rect.top + side};
    RECT down{rect.left, rect.bottom - side, rect.right, rect.bottom};
    DrawFrameControl(canvas_, &up, DFC_SCROLL, DFCS_SCROLLUP);
    DrawFrameControl(canvas_, &down, DFC_SCROLL, DFCS_SCROLLDOWN);
  }

  void DrawBox(RECT& rect) {
    FillRect(canvas_, &rect, GetSysColorBrush(COLOR_WINDOW));
    DrawEdge(canvas_, &rect, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
  }

  void DrawFrame(RECT rect, StringView caption) {
    RECT border = rect;
    border.top += Down(kRowTwips) / 2;
    DrawEdge(canvas_, &border, EDGE_ETCHED, BF_RECT);
    RECT text = rect;
    text.left += Across(kRowTwips) / 2;
    text.bottom = text.top + Down(kRowTwips);
    if (caption.empty()) return;
    DrawTextW(canvas_, reinterpret_cast<const wchar_t*>(caption.data()),
              static_cast<int>(caption.size()), &text, DT_CALCRECT | DT_SINGLELINE | DT_NOPREFIX);
    FillRect(canvas_, &text, look_.Brush(canvas_));
    DrawLine(text, caption, 0, 0);
  }

  void DrawRows(const RECT& rect, const ListBox& list) {
    RECT row = rect;
    const int height = std::max(1, Down(kRowTwips));
    for (int number = 0; number < list.ListCount() && row.top < rect.bottom; ++number) {
      row.bottom = std::min<LONG>(rect.bottom, row.top + height);
      const bool isMarked = list.Selected(number);
      if (list.HasCheckBoxes()) {
        RECT mark = row;
        mark.right = std::min<LONG>(rect.right, mark.left + height);
        DrawFrameControl(canvas_, &mark, DFC_BUTTON,
                         isMarked ? DFCS_BUTTONCHECK | DFCS_CHECKED : DFCS_BUTTONCHECK);
        row.left = mark.right;
      } else if (isMarked) {
        FillRect(canvas_, &row, GetSysColorBrush(COLOR_HIGHLIGHT));
      }
      SetTextColor(canvas_, GetSysColor(isMarked && !list.HasCheckBoxes() ? COLOR_HIGHLIGHTTEXT
                                                                          : COLOR_WINDOWTEXT));
      DrawLine(row, list.List(number), DT_VCENTER);
      row.left = rect.left;
      row.top = row.bottom;
    }
  }

  void DrawLines(RECT rect, StringView text) {
    // Draws only so many characters, since the text may be long and the rest is not visible.
    constexpr std::size_t kMost = 20'000;
    rect.left += Across(kTextMarginTwips);
    SetTextColor(canvas_, GetSysColor(COLOR_WINDOWTEXT));
    DrawTextW(canvas_, reinterpret_cast<const wchar_t*>(text.data()),
              static_cast<int>(std::min(text.size(), kMost)), &rect, DT_NOPREFIX | DT_EXPANDTABS);
  }

  void DrawLine(RECT rect, StringView text, UINT format, int margin = kTextMarginTwips) {
    if ((format & DT_CENTER) == 0) rect.left += Across(margin);
    DrawTextW(canvas_, reinterpret_cast<const wchar_t*>(text.data()), static_cast<int>(text.size()),
              &rect, format | DT_SINGLELINE | DT_NOPREFIX);
  }

  HDC canvas_;
  const Surface& form_;
  const FormLook& look_;
  RECT place_;
  int width_;
  int height_;
  Font verdana_;
  Font arial_;
  faces::FormPlaces places_;
  int saved_;
};

}  // namespace

void DrawForm(HDC canvas, const RECT& place, const Surface& form, const FormLook& look) {
  const int saved = SaveDC(canvas);
  RECT pixels = place;
  // Maps to pixels, y downwards, whatever the canvas's mapping mode; a metafile has no pixels.
  if (GetObjectType(canvas) == OBJ_DC || GetObjectType(canvas) == OBJ_MEMDC) {
    LPtoDP(canvas, reinterpret_cast<POINT*>(&pixels), 2);
    SetMapMode(canvas, MM_TEXT);
    SetWindowOrgEx(canvas, 0, 0, nullptr);
    SetViewportOrgEx(canvas, 0, 0, nullptr);
  }
  pixels = {std::min(pixels.left, pixels.right), std::min(pixels.top, pixels.bottom),
            std::max(pixels.left, pixels.right), std::max(pixels.top, pixels.bottom)};
  IntersectClipRect(canvas, pixels.left, pixels.top, pixels.right, pixels.bottom);
  if (IsRectEmpty(&pixels) == FALSE) Picture(canvas, pixels, form, look).Draw();
  RestoreDC(canvas, saved);
}

}  // namespace zolt20::com
