// The moves of the explorer: everything that a person and a host can do with the smallest catalogue
// that has all kinds of tables and fields.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/both_forms.h"

namespace zolt20::tests {

/// One step of a session: turning to the page of a control, the host's answers, and a gesture; or
/// one call of the host.
struct Move {
  int page = -1;        ///< the page of the control; -1 for a control on no page
  std::string control;  ///< the control of the gesture; "" for a call of the host
  std::vector<Step> steps;
};

/// A subset of the moves, which the explorer walks to a greater depth than all moves.
struct Topic {
  std::string_view name;
  std::size_t share;  ///< the factor for the number of states that are asked for (--states)
  std::vector<Move> moves;
  /// The sessions that the walk of the topic begins with, as requests.
  std::vector<std::vector<std::string>> beginnings;
};

/// All topics; the first one has all moves. Throws nothing.
std::vector<Topic> Topics();

}  // namespace zolt20::tests
