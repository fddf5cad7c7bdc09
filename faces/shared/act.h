// What a person does, as gestures of the surface. Knows no platform.
#pragma once

#include "faces/shared/shown_text.h"
#include "shell/control.h"

namespace zolt20::faces {

/// One gesture.
struct Act {
  enum Kind { kClick, kDoubleClick, kPick, kType, kKey, kFocus, kTab, kScroll };

  Kind kind;
  const Control* control;  // of kTab the strip
  int number = kNone;      // a row, a key's code, a page or a scroll value
  String text = {};        // of kType
  bool goesOn = false;     // with the step of typing before

  static constexpr int kNone = -1;
};

/// Carries the gesture out. Raises what it raises.
Outcome Perform(ZOLT20MapControl& control, const Act& act);

inline constexpr int kBackspace = 8;

/// A key at a place of a one-line box where `count` characters from there on are marked. `act(Act)`
/// carries each gesture of it out. Gives the caret after it.
///
/// A key goes in at the caret of the control, which stands behind what was typed last. Where the
/// person is elsewhere in the text, what lies behind goes away for that moment.
template <typename Do>
int TypeKey(const TextBox& box, int position, int count, int code, const Do& act) {
  const String before(Left(box.Text(), position));
  const String behind(Mid(box.Text(), position + count + 1));
  if (!behind.empty() || count > 0 || box.SelStart() != position)
    act(Act{Act::kType, &box, Act::kNone, before});
  if (code != kBackspace || count == 0) act(Act{Act::kKey, &box, code});
  const int caret = box.SelStart();
  if (!behind.empty()) act(Act{Act::kType, &box, Act::kNone, Concat(box.Text(), behind)});
  return caret;
}

}  // namespace zolt20::faces
