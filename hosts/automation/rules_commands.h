// The commands of zolt20-host for files of rules: tell where names are used, and rename them.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace zolt20::automation {

/// Whether the words of a command line are a command for files of rules.
bool IsOfRules(const std::vector<std::string>& words);

/// Runs the command and gives the exit status: 0 for success, 1 for findings that should stop a
/// build server, 2 for an error, whose message goes to `errors`.
int RunOnRules(const std::vector<std::string>& words, std::ostream& out, std::ostream& errors);

}  // namespace zolt20::automation
