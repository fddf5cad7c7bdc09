// Presses keys and buttons of the control for the composer's windows.
#pragma once

#include <QKeySequence>

#include "faces/qt/map_widget.h"

class QShortcut;

namespace zolt20::composer {

/// Shows the next or the previous page, as a click on its tab does.
void TurnPage(ZOLT20MapWidget& map, bool forward);

/// The control's own shortcut for a standard key, which acts while the focus is within the control;
/// nullptr if it has none.
QShortcut* ShortcutOf(const ZOLT20MapWidget& map, QKeySequence::StandardKey key);

/// Presses the button that adds the shown page to the Result. Not to be called within an event.
void PressAdd(ZOLT20MapWidget& map);
/// Presses a button of the control by its name. Not to be called within an event.
void PressButton(ZOLT20MapWidget& map, const char* name);

/// A gesture in few words, for Undo and Redo: "Move CUSTOMER.C_ID", "Add To Result", "Type in
/// SelectDo". `hadSelected` is the number of selected fields before the gesture.
QString NameOfGesture(const ZOLT20Gesture& gesture, const Surface& form, int hadSelected);

}  // namespace zolt20::composer
