// What a person does, as values. The list of gestures is surface/gestures.def.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

#include "surface/string.h"

namespace zolt20 {

class Control;

/// What a person can do to a control.
enum class Gesture {
#define ZOLT20_GESTURE(name, word, operand) k##name,
#include "surface/gestures.def"
};

/// A row of the list of gestures.
struct GestureDesign {
  Gesture gesture;
  std::string_view name;     ///< the enumerator without the k
  std::string_view word;     ///< the name of the gesture in JSON lines
  std::string_view operand;  ///< the argument beside the control, "" for none
};

/// All gestures, in the order of their numbers.
inline constexpr std::array kGestures{
#define ZOLT20_GESTURE(name, word, operand) GestureDesign{Gesture::k##name, #name, word, operand},
#include "surface/gestures.def"
};

constexpr const GestureDesign& DesignOf(Gesture gesture) {
  return kGestures[static_cast<std::size_t>(gesture)];
}

/// Marked characters of a text: those from place `from` on and before place `to`, counted from 0 in
/// 16-bit units. With `to` the same as `from` none is marked, and the caret is there.
struct TextMark {
  int from = 0;
  int to = 0;

  bool operator==(const TextMark&) const = default;
};

/// One gesture on a control.
struct UserGesture {
  Gesture gesture = Gesture::kFocus;
  const Control* control = nullptr;   ///< for kTab the tab strip
  int number = kNone;                 ///< a row, a key's code, a page or a scroll value
  String text = {};                   ///< for kType
  std::optional<TextMark> mark = {};  ///< for kKey

  static constexpr int kNone = -1;
};

/// The result of a gesture. Only kDone means that anything happened.
enum class Outcome {
  kDone,
  kNotShown,
  kNotEnabled,
  kNotOffered,  ///< the kind of control does not have the gesture
  kNoSuchRow,
  kNoSuchMark,  ///< a mark that does not lie within the text
  kOutside,     ///< a scroll value outside 0 to Max
};

}  // namespace zolt20
