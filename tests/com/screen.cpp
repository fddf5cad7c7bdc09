#include "tests/com/screen.h"

#include <gtest/gtest.h>
#include <ole2.h>
// The system's other headers need it.
#include <gdiplus.h>

#include <algorithm>

namespace zolt20::tests {

Screen::Screen(HWND window) {
  RECT place{};
  GetClientRect(window, &place);
  width_ = place.right;
  height_ = place.bottom;
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width_;
  info.bmiHeader.biHeight = -height_;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  const HDC screen = GetDC(window);
  const HDC canvas = CreateCompatibleDC(screen);
  void* pixels = nullptr;
  const HBITMAP bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
  const HGDIOBJ before = SelectObject(canvas, bitmap);
  BitBlt(canvas, 0, 0, width_, height_, screen, 0, 0, SRCCOPY);
  GdiFlush();
  const auto* first = static_cast<const DWORD*>(pixels);
  pixels_.assign(first, first + static_cast<std::ptrdiff_t>(width_) * height_);
  SelectObject(canvas, before);
  DeleteObject(bitmap);
  DeleteDC(canvas);
  ReleaseDC(window, screen);
}

COLORREF Screen::At(int x, int y) const {
  if (x < 0 || y < 0 || x >= width_ || y >= height_) return RGB(0, 0, 0);
  const DWORD pixel = pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                              static_cast<std::size_t>(x)];
  return RGB((pixel >> 16) & 0xFF, (pixel >> 8) & 0xFF, pixel & 0xFF);
}

void Screen::Save(const std::wstring& file) const {
  ULONG_PTR drawing = 0;
  const Gdiplus::GdiplusStartupInput input;
  Gdiplus::GdiplusStartup(&drawing, &input, nullptr);
  {
    std::vector<DWORD> pixels = pixels_;
    Gdiplus::Bitmap picture(width_, height_, width_ * 4, PixelFormat32bppRGB,
                            reinterpret_cast<BYTE*>(pixels.data()));
    const CLSID png = {
        0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
    EXPECT_EQ(picture.Save(file.c_str(), &png, nullptr), Gdiplus::Ok);
  }
  Gdiplus::GdiplusShutdown(drawing);
}

}  // namespace zolt20::tests
