// What a session of the explorer may be made of: the smallest catalogue that has all kinds, and all
// that a person and a host can do with it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/both_forms.h"

namespace zolt20::tests {

/// What counts as one step: the way to the page of a control, what the host answers with, and then
/// a gesture; or one call of the host.
struct Move {
  int page = -1;        ///< of the control; -1 when it stands on none
  std::string control;  ///< of the gesture; "" for a call of the host
  std::vector<Step> steps;
};

/// A part of all moves, walked deeper than all together.
struct Topic {
  std::string_view name;
  std::size_t share;  ///< of the states that are asked for it walks on from so many times as many
  std::vector<Move> moves;
  /// The sessions that it begins with, as requests.
  std::vector<std::vector<std::string>> beginnings;
};

/// Throws nothing; the first topic has all moves.
std::vector<Topic> Topics();

}  // namespace zolt20::tests
