// What zolt20-host does with files of rules: tells where names stand, and gives new names to them.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace zolt20::automation {

/// Whether the words of a command line are for this, and not for sessions and texts.
bool IsOfRules(const std::vector<std::string>& words);

/// Gives the exit status: 0 when all went well, 1 when there is something that a build server
/// should stop at, 2 for a complaint, which goes to `errors`.
int RunOnRules(const std::vector<std::string>& words, std::ostream& out, std::ostream& errors);

}  // namespace zolt20::automation
