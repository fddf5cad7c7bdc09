// Texts of the statement language that stand in the examples.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "tests/support/example_sessions.h"
#include "tests/support/places.h"

namespace zolt20::tests {

inline std::string ReadFile(const std::filesystem::path& file) {
  std::ifstream input(file, std::ios::binary);
  EXPECT_TRUE(input.good()) << file;
  std::ostringstream text;
  text << input.rdbuf();
  return text.str();
}

/// The Results of the recorded sessions and the rules of the composer.
inline std::vector<String> ExampleTexts() {
  const std::filesystem::path examples = Examples();
  std::vector<String> texts;
  for (const std::string& name : SessionNames(examples / "sessions"))
    texts.push_back(Wide(ReadFile(examples / "sessions" / (name + ".result.txt"))));
  const auto rules = nlohmann::json::parse(ReadFile(examples / "rules.json"));
  for (const auto& rule : rules.at("rules"))
    texts.push_back(Wide(rule.at("text").get<std::string>()));
  EXPECT_GT(texts.size(), 8U);
  return texts;
}

}  // namespace zolt20::tests
