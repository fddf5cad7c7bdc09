// What a window shows, as pixels.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace zolt20::tests {

class Screen {
 public:
  /// What stands in the inside of the window now.
  explicit Screen(HWND window);

  int Width() const { return width_; }
  int Height() const { return height_; }
  /// Black outside of it.
  COLORREF At(int x, int y) const;
  /// Writes it as a picture, a file that ends with .png.
  void Save(const std::wstring& file) const;

 private:
  int width_ = 0;
  int height_ = 0;
  std::vector<DWORD> pixels_;  // 0x00RRGGBB, from the top
};

}  // namespace zolt20::tests
