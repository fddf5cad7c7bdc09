// Functions shared by the views of the platform's plain text boxes and lists.
#pragma once

#include <windows.h>

#include "surface/control.h"

namespace zolt20::com {

String WindowText(HWND window);

/// The text with U+2400 for each NUL, since a NUL would end it in the platform's own boxes.
String WithoutNuls(StringView text);

/// A case-folded text, by the platform's rules.
String InLowerCase(StringView text);

/// Pastes the whole text of the clipboard, of which the platform's box would take only the first
/// line, with CR LF for each line end.
void PasteText(HWND box);

/// Sets the system's current box colours in a list view, which keeps those from when it was loaded.
void UseBoxColors(HWND list);

/// The brush for the BackColor of a box's control, whose colours are also set in the canvas; null
/// when the control has no BackColor.
HBRUSH BoxBrush(HDC canvas, const Control& control);

}  // namespace zolt20::com
