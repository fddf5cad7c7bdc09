// What the platform's own boxes of plain text have in common.
#pragma once

#include <windows.h>

#include "surface/control.h"

namespace zolt20::com {

String WindowText(HWND window);

/// What the platform's own boxes show of a text: a NUL would end it there.
String WithoutNuls(StringView text);

/// A text in one letter case, as this platform has it.
String InLowerCase(StringView text);

/// Takes the whole text of the clipboard, where the platform's box would end with its first line,
/// and its line ends as CR LF.
void PasteText(HWND box);

/// Gives a list view the system's colours of boxes, which it has from when its library was loaded.
void UseBoxColours(HWND list);

/// The brush by which the canvas of a box gets the BackColor of its control; none when the control
/// has no such colour.
HBRUSH BoxBrush(HDC canvas, const Control& control);

}  // namespace zolt20::com
