// A picture of the form, for containers that do not activate it, for print and for metafiles: drawn
// from the surface, at any size, with no window.
#pragma once

#include <windows.h>

#include "faces/com/form/form_look.h"
#include "surface/surface.h"

namespace zolt20::com {

/// Draws the active page and what is around it into `place`, which is in the canvas's logical
/// units.
void DrawForm(HDC canvas, const RECT& place, const Surface& form, const FormLook& look);

}  // namespace zolt20::com
