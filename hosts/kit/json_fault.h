// Error messages for texts that should be JSON.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "hosts/kit/message.h"

namespace zolt20::hosts {

/// The limit of nesting: deeper values could overflow the stack of recursive readers and writers.
inline constexpr std::size_t kDeepestJson = 100;

/// Whether brackets outside of strings are nested deeper than the limit. The text may be no JSON.
bool IsTooDeep(std::string_view text);

/// "is no JSON: reading stops at line 2, column 7", and so on: where the text, in UTF-8 with
/// stand-ins, is no JSON, a key that stands twice in one place, of which one would be lost, or that
/// it is too deep. Empty when nothing is wrong.
Message FaultIn(std::string_view text);

/// The text as valid UTF-8, to be shown to people: each stand-in for a lone surrogate becomes "?".
std::string ForPeople(std::string_view jsonText);

}  // namespace zolt20::hosts
