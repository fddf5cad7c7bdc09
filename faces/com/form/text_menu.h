// The context menu of a text box, with the commands of the platform's own edit boxes. The
// platform's rich edit has no context menu.
#pragma once

#include <windows.h>

namespace zolt20::com {

/// Whether a message asks for the context menu of the box: the right mouse button, the menu key,
/// Shift+F10, or WM_CONTEXTMENU. If so, `place` is set to
/// the place of the menu, as the lParam of a WM_CONTEXTMENU has it.
bool AsksForMenu(HWND box, UINT message, WPARAM wide, LPARAM longer, LPARAM& place);

/// Shows the menu and runs the chosen command by the messages of the platform's edit boxes. The
/// box gets the focus first, and may be destroyed when this returns.
void ShowTextMenu(HWND box, LPARAM place);

}  // namespace zolt20::com
