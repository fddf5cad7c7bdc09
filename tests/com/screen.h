// A screenshot of a window.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace zolt20::tests {

class Screen {
 public:
  /// Takes the client area of the window as it is now.
  explicit Screen(HWND window);

  int Width() const { return width_; }
  int Height() const { return height_; }
  /// The colour of a pixel; black outside of the picture.
  COLORREF At(int x, int y) const;
  /// Writes the screenshot to a file whose name ends with .png.
  void Save(const std::wstring& file) const;

 private:
  int width_ = 0;
  int height_ = 0;
  std::vector<DWORD> pixels_;  // 0x00RRGGBB, row by row from the top
};

}  // namespace zolt20::tests
