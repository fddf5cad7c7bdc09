// What the windows need of the platform: common controls of version 6, our own window classes,
// font metrics.
#pragma once

#include <windows.h>

#include <string_view>

#include "surface/string.h"

namespace zolt20::com {

/// A guard: during its lifetime windows are made with common controls of version 6, whatever
/// version the program around uses.
class CommonControls {
 public:
  CommonControls();
  ~CommonControls();
  CommonControls(const CommonControls&) = delete;
  CommonControls& operator=(const CommonControls&) = delete;

 private:
  ULONG_PTR cookie_ = 0;
};

/// Registers the classes of the form's own windows. Idempotent.
void RegisterClasses(WNDPROC procedure);
/// Called before the server is unloaded.
void UnregisterClasses();

/// The line height of a font, in pixels of the canvas; 0 where the canvas cannot tell.
int LineHeightOf(HDC canvas, HFONT font);

/// The width of a text in a font, in pixels of the screen.
int TextWidthOf(HFONT font, StringView text);

/// Sets, and removes, the name of a window that belongs to a control.
void GiveName(HWND window, std::string_view name);
void ForgetName(HWND window);

inline constexpr wchar_t kRootClass[] = L"ZOLT20MapControl";
inline constexpr wchar_t kPanelClass[] = L"ZOLT20MapControl.Panel";
/// The window property with a control's name, as an atom, by which programs find the window.
inline constexpr wchar_t kNameProperty[] = L"ZOLT20.Name";

}  // namespace zolt20::com
