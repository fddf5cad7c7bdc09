// Error messages for texts that should be JSON.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zolt20::hosts {

/// The limit of nesting: deeper values could overflow the stack of recursive readers and writers.
inline constexpr std::size_t kDeepestJson = 100;

/// Whether brackets outside of strings are nested deeper than the limit. The text may be no JSON.
bool IsTooDeep(std::string_view text);

/// The error message for a text in UTF-8 with stand-ins: "is no JSON: reading stops at line 2,
/// column 7"; a duplicate key in an object, of which one value would be lost; or nesting beyond the
/// limit. "" when nothing is wrong.
std::string FaultIn(std::string_view text);

/// A text in UTF-8 for people, with "?" for each lone surrogate.
std::string ForPeople(std::string_view jsonText);

}  // namespace zolt20::hosts
