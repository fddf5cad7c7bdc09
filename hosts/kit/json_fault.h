// What is wrong with a text that should be JSON, in words for people.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zolt20::hosts {

/// Deeper values could run readers and writers out of stack.
inline constexpr std::size_t kDeepestJson = 100;

/// Whether brackets are nested deeper than that, up to the first character that is no JSON.
bool IsTooDeep(std::string_view text);

/// "is no JSON: reading stops at line 2, column 7", and so on: where the text, in UTF-8 with
/// stand-ins, is no JSON, a key that stands twice in one place, of which one would be lost, or that
/// it is too deep. "" when nothing is wrong.
std::string FaultIn(std::string_view text);

/// A text in UTF-8 for people, who see "?" for half of a pair.
std::string ForPeople(std::string_view jsonText);

}  // namespace zolt20::hosts
