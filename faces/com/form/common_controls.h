// What the windows need of the platform: its controls of version 6, the classes of our own, how
// high letters are.
#pragma once

#include <windows.h>

#include <string_view>

#include "surface/string.h"

namespace zolt20::com {

/// As long as one of these is there, windows are made of the controls of version 6, whatever the
/// program around has.
class CommonControls {
 public:
  CommonControls();
  ~CommonControls();
  CommonControls(const CommonControls&) = delete;
  CommonControls& operator=(const CommonControls&) = delete;

 private:
  ULONG_PTR cookie_ = 0;
};

/// Registers the classes of the form's own windows; a second time nothing happens.
void RegisterClasses(WNDPROC procedure);
/// The server is about to be unloaded.
void UnregisterClasses();

/// How high a line of those letters is, in pixels of the canvas; 0 where the canvas cannot tell.
int LineHeightOf(HDC canvas, HFONT font);

/// How wide a text is in those letters, in pixels of the screen.
int TextWidthOf(HFONT font, StringView text);

/// Gives a window of a control, or beside one, its name, and takes it back.
void GiveName(HWND window, std::string_view name);
void ForgetName(HWND window);

inline constexpr wchar_t kRootClass[] = L"ZOLT20MapControl";
inline constexpr wchar_t kPanelClass[] = L"ZOLT20MapControl.Panel";
/// Of each window of a control: its name, as an atom, for programs that look for it.
inline constexpr wchar_t kNameProperty[] = L"ZOLT20.Name";

}  // namespace zolt20::com
