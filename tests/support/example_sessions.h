// The recorded sessions of examples/, for tests that play each of them.
#pragma once

#include <algorithm>
#include <filesystem>
#include <string>

#include "tests/support/control_test.h"

namespace zolt20::tests {

/// The names of the sessions in a folder, in alphabetical order.
inline Texts SessionNames(const std::filesystem::path& folder) {
  Texts names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    const std::string file = entry.path().filename().string();
    if (!file.ends_with(".jsonl") || file.ends_with(".replies.jsonl")) continue;
    names.push_back(entry.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

/// A session's name as GoogleTest takes it in the name of a test.
inline std::string CaseName(std::string session) {
  std::replace(session.begin(), session.end(), '-', '_');
  return session;
}

}  // namespace zolt20::tests
