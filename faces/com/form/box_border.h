// The border of a box as the platform's own boxes have it, for one that draws an older one.
#pragma once

#include <windows.h>

namespace zolt20::com {

/// Draws it over the border that the window drew, where the platform has such a look. Called after
/// WM_NCPAINT.
void DrawBoxBorder(HWND box);

}  // namespace zolt20::com
