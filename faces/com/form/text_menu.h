// The context menu of a box of texts, with what the platform's own boxes have in theirs. Those of
// rich edits have none.
#pragma once

#include <windows.h>

namespace zolt20::com {

/// Whether a message of the box asks for its menu: the second button of the mouse, the keyboard's
/// key for it, Shift+F10, or the platform. `place` becomes that of a WM_CONTEXTMENU.
bool AsksForMenu(HWND box, UINT message, WPARAM wide, LPARAM longer, LPARAM& place);

/// Shows the menu and does what is chosen in it, by the messages of the platform's boxes. The box
/// gets the focus before, and may be gone when this returns.
void ShowTextMenu(HWND box, LPARAM place);

}  // namespace zolt20::com
