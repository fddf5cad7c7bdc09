#include "faces/com/control/renderings.h"

#include <ole2.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <cwchar>
#include <new>
#include <utility>

#include "faces/com/form/form_picture.h"

namespace zolt20::com {
namespace {

constexpr int kHimetricPerInch = 2540;

// A device context of the screen, the reference device of all pictures.
class Screen {
 public:
  Screen() : canvas_(GetDC(nullptr)) {}
  ~Screen() { ReleaseDC(nullptr, canvas_); }
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  HDC Canvas() const { return canvas_; }
  int Measure(int index) const { return GetDeviceCaps(canvas_, index); }
  /// The extent in pixels of the screen, each at least 1.
  SIZE Pixels(SIZEL extent) const {
    const auto pixels = [](LONG length, int perInch) {
      return std::max(1, MulDiv(length, perInch, kHimetricPerInch));
    };
    return {pixels(extent.cx, Measure(LOGPIXELSX)), pixels(extent.cy, Measure(LOGPIXELSY))};
  }

 private:
  HDC canvas_;
};

// A movable global memory block of so many bytes, zeroed and locked.
class Block {
 public:
  explicit Block(std::size_t size) : memory_(GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, size)) {
    if (memory_ == nullptr) throw std::bad_alloc();
    bytes_ = static_cast<std::byte*>(GlobalLock(memory_));
  }
  ~Block() {
    if (memory_ == nullptr) return;
    GlobalUnlock(memory_);
    GlobalFree(memory_);
  }
  Block(const Block&) = delete;
  Block& operator=(const Block&) = delete;

  std::byte* Bytes() const { return bytes_; }
  HGLOBAL Detach() {
    GlobalUnlock(memory_);
    return std::exchange(memory_, nullptr);
  }

 private:
  HGLOBAL memory_;
  std::byte* bytes_ = nullptr;
};

HENHMETAFILE DrawnMetafile(const Surface& form, const FormLook& look, SIZEL extent) {
  const Screen screen;
  const RECT frame{0, 0, extent.cx, extent.cy};
  const HDC canvas = CreateEnhMetaFileW(screen.Canvas(), nullptr, &frame, nullptr);
  if (canvas == nullptr) throw std::bad_alloc();
  // The metafile's frame is scaled by the screen's size in millimetres, the form by its resolution.
  const SIZE pixels = screen.Pixels(extent);
  const auto onDevice = [&](LONG length, int resolution, int millimetres) {
    return std::max(1, MulDiv(length, screen.Measure(resolution),
                              std::max(1, screen.Measure(millimetres)) * 100));
  };
  SetMapMode(canvas, MM_ANISOTROPIC);
  SetWindowExtEx(canvas, pixels.cx, pixels.cy, nullptr);
  SetViewportExtEx(canvas, onDevice(extent.cx, HORZRES, HORZSIZE),
                   onDevice(extent.cy, VERTRES, VERTSIZE), nullptr);
  DrawForm(canvas, {0, 0, pixels.cx, pixels.cy}, form, look);
  const HENHMETAFILE metafile = CloseEnhMetaFile(canvas);
  if (metafile == nullptr) throw std::bad_alloc();
  return metafile;
}

}  // namespace

STGMEDIUM EnhancedMetafileOf(const Surface& form, const FormLook& look, SIZEL extent) {
  STGMEDIUM medium{};
  medium.tymed = TYMED_ENHMF;
  medium.hEnhMetaFile = DrawnMetafile(form, look, extent);
  return medium;
}

// Converted from an enhanced metafile, since text can't be measured on a canvas of the old format.
STGMEDIUM MetafileOf(const Surface& form, const FormLook& look, SIZEL extent) {
  const Screen screen;
  Block block(sizeof(METAFILEPICT));
  const HENHMETAFILE drawn = DrawnMetafile(form, look, extent);
  const UINT size = GetWinMetaFileBits(drawn, 0, nullptr, MM_ANISOTROPIC, screen.Canvas());
  HMETAFILE metafile = nullptr;
  if (size > 0) {
    const Block bits(size);
    auto* const bytes = reinterpret_cast<BYTE*>(bits.Bytes());
    if (GetWinMetaFileBits(drawn, size, bytes, MM_ANISOTROPIC, screen.Canvas()) == size)
      metafile = SetMetaFileBitsEx(size, bytes);
  }
  DeleteEnhMetaFile(drawn);
  if (metafile == nullptr) throw std::bad_alloc();
  *reinterpret_cast<METAFILEPICT*>(block.Bytes()) = {MM_ANISOTROPIC, extent.cx, extent.cy,
                                                     metafile};
  STGMEDIUM medium{};
  medium.tymed = TYMED_MFPICT;
  medium.hMetaFilePict = block.Detach();
  return medium;
}

STGMEDIUM BitmapOf(const Surface& form, const FormLook& look, SIZEL extent) {
  const Screen screen;
  const SIZE pixels = screen.Pixels(extent);
  BITMAPINFOHEADER header{};
  header.biSize = sizeof header;
  header.biWidth = pixels.cx;
  header.biHeight = pixels.cy;
  header.biPlanes = 1;
  header.biBitCount = 24;
  header.biCompression = BI_RGB;
  const std::size_t row = (static_cast<std::size_t>(pixels.cx) * 3 + 3) / 4 * 4;
  const std::size_t size = row * static_cast<std::size_t>(pixels.cy);
  header.biSizeImage = static_cast<DWORD>(size);
  constexpr int kInchesPerHundredMetres = 3937;
  header.biXPelsPerMeter = MulDiv(screen.Measure(LOGPIXELSX), kInchesPerHundredMetres, 100);
  header.biYPelsPerMeter = MulDiv(screen.Measure(LOGPIXELSY), kInchesPerHundredMetres, 100);

  Block block(sizeof header + size);
  void* bits = nullptr;
  const HBITMAP bitmap =
      CreateDIBSection(screen.Canvas(), reinterpret_cast<const BITMAPINFO*>(&header),
                       DIB_RGB_COLORS, &bits, nullptr, 0);
  if (bitmap == nullptr) throw std::bad_alloc();
  const HDC canvas = CreateCompatibleDC(screen.Canvas());
  const HGDIOBJ before = SelectObject(canvas, bitmap);
  DrawForm(canvas, {0, 0, pixels.cx, pixels.cy}, form, look);
  GdiFlush();
  std::memcpy(block.Bytes(), &header, sizeof header);
  std::memcpy(block.Bytes() + sizeof header, bits, size);
  SelectObject(canvas, before);
  DeleteDC(canvas);
  DeleteObject(bitmap);
  STGMEDIUM medium{};
  medium.tymed = TYMED_HGLOBAL;
  medium.hGlobal = block.Detach();
  return medium;
}

STGMEDIUM DescriptionOf(REFCLSID classId, const wchar_t* userType, DWORD status, SIZEL extent) {
  const std::size_t name = (std::wcslen(userType) + 1) * sizeof(wchar_t);
  const std::size_t size = sizeof(OBJECTDESCRIPTOR) + name;
  Block block(size);
  OBJECTDESCRIPTOR description{};
  description.cbSize = static_cast<ULONG>(size);
  description.clsid = classId;
  description.dwDrawAspect = DVASPECT_CONTENT;
  description.sizel = extent;
  description.dwStatus = status;
  description.dwFullUserTypeName = sizeof description;
  std::memcpy(block.Bytes(), &description, sizeof description);
  std::memcpy(block.Bytes() + sizeof description, userType, name);
  STGMEDIUM medium{};
  medium.tymed = TYMED_HGLOBAL;
  medium.hGlobal = block.Detach();
  return medium;
}

}  // namespace zolt20::com
