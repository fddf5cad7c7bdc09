#include "faces/com/form/box_border.h"

#include <uxtheme.h>
#include <vssym32.h>

namespace zolt20::com {

void DrawBoxBorder(HWND box) {
  const HTHEME theme = OpenThemeData(box, L"EDIT");
  if (theme == nullptr) return;
  RECT whole{};
  GetWindowRect(box, &whole);
  OffsetRect(&whole, -whole.left, -whole.top);
  const HDC canvas = GetWindowDC(box);
  const int across = GetSystemMetrics(SM_CXEDGE);
  const int down = GetSystemMetrics(SM_CYEDGE);
  ExcludeClipRect(canvas, across, down, whole.right - across, whole.bottom - down);
  // Fills with the colour of the inside what the theme's border leaves uncovered.
  FillRect(canvas, &whole, GetSysColorBrush(COLOR_WINDOW));
  DrawThemeBackground(theme, canvas, EP_EDITTEXT, IsWindowEnabled(box) ? ETS_NORMAL : ETS_DISABLED,
                      &whole, nullptr);
  ReleaseDC(box, canvas);
  CloseThemeData(theme);
}

}  // namespace zolt20::com
