// Keys and buttons of the control that the composer's windows press for the person.
#pragma once

#include <QKeySequence>

#include "faces/qt/map_widget.h"

class QShortcut;

namespace zolt20::composer {

/// Turns to the page after or before the one that is shown, as by a click on its tab.
void TurnPage(ZOLT20MapWidget& map, bool forward);

/// The control takes these keys itself while the focus is within it; nullptr for none.
QShortcut* ShortcutOf(const ZOLT20MapWidget& map, QKeySequence::StandardKey key);

/// Presses the button that adds what the shown page holds to the Result. Not within an event.
void PressAdd(ZOLT20MapWidget& map);
/// Presses a button of the control by its name. Not within an event.
void PressButton(ZOLT20MapWidget& map, const char* name);

/// What a person did, in few words: "Move CUSTOMER.C_ID", "Add To Result", "Type in SelectDo".
/// `hadSelected` is how many selected fields there were before.
QString NameOfGesture(const ZOLT20Gesture& gesture, const Surface& form, int hadSelected);

}  // namespace zolt20::composer
