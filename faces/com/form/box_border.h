// The themed border of the platform's edit boxes, for a box that draws the older, unthemed one.
#pragma once

#include <windows.h>

namespace zolt20::com {

/// Draws the border over the one that the window drew, where the platform has a theme. Called
/// after WM_NCPAINT.
void DrawBoxBorder(HWND box);

}  // namespace zolt20::com
