// Writes the pieces of a file of rules as JSON, indented by two blanks for each level. Called by
// the implementation of rules_text.h only. Texts are UTF-8 in which a pair of code points stands in
// for each lone surrogate; see text_coding.h.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/kit/json_reader.h"
#include "hosts/kit/rules_text.h"

namespace zolt20::rules {

/// The nesting depth of the keys of names, of a rule and of a version.
inline constexpr std::size_t kNameMembers = 2;
inline constexpr std::size_t kRuleMembers = 3;
inline constexpr std::size_t kVersionMembers = 5;

/// A version whose texts are UTF-8 with stand-ins.
struct WrittenVersion {
  std::string_view stored;
  std::string_view text;
  std::string_view fields;
  std::vector<language::NodeNote> notes;
  std::vector<UnknownMember> unknown;
};

std::string WriteVersion(const WrittenVersion& version);

/// Appends a text as a JSON string, in quotes and with escapes. `jsonText` is not escaped yet; the
/// pair that stands in for a lone surrogate is written as the escape of that surrogate.
void AppendString(std::string& out, std::string_view jsonText);
/// Appends a value as JSON; `depth` is that of its key.
void AppendValue(std::string& out, const hosts::JsonValue& value, std::size_t depth);

}  // namespace zolt20::rules
