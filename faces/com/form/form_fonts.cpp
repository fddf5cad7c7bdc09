#include "faces/com/form/form_fonts.h"

#include <algorithm>

#include "faces/com/form/common_controls.h"

namespace zolt20::com {
namespace {

constexpr int kSmallFontTwips = 150;

int DpiOf(HWND window) {
  // GetDpiForWindow does not exist before Windows 10.
  using GetDpi = UINT(WINAPI*)(HWND);
  static const auto getDpi = reinterpret_cast<GetDpi>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "GetDpiForWindow")));
  if (getDpi != nullptr) {
    if (const UINT dpi = getDpi(window); dpi != 0) return static_cast<int>(dpi);
  }
  const HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return dpi;
}

}  // namespace

FormFonts::FormFonts(HWND window) : dpi_(DpiOf(window)) {
  const auto make = [this](const wchar_t* name, int twips) {
    return Font(CreateFontW(-MulDiv(twips, dpi_, kTwipsPerInch), 0, 0, 0, FW_NORMAL, FALSE, FALSE,
                            FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                            CLEARTYPE_QUALITY, DEFAULT_PITCH | FF_SWISS, name));
  };
  verdana_ = make(L"Verdana", kFontTwips);
  small_ = make(L"Verdana", kSmallFontTwips);
  arial_ = make(L"Arial", kFontTwips);
  const HDC canvas = GetDC(window);
  const auto line = [this, canvas](const Font& font) {
    return Twips(LineHeightOf(canvas, font.get()));
  };
  needs_.line = std::max(line(verdana_), line(arial_));
  needs_.smallLine = line(small_);
  needs_.scrollBar = Twips(GetSystemMetrics(SM_CYHSCROLL));
  ReleaseDC(window, canvas);
  needs_.width = [usual = verdana_.get(), small = small_.get(), dpi = dpi_](StringView text,
                                                                            bool isSmall) {
    return MulDiv(TextWidthOf(isSmall ? small : usual, text), kTwipsPerInch, dpi);
  };
}

int FormFonts::Twips(int pixels) const {
  return MulDiv(pixels, kTwipsPerInch, dpi_);
}

HFONT FormFonts::Of(const Control& control) const {
  if ((control.design().style & kArial) != 0) return arial_.get();
  return faces::IsNote(control.design()) ? small_.get() : verdana_.get();
}

}  // namespace zolt20::com
