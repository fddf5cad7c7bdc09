#include "hosts/automation/uses_lines.h"

#include <nlohmann/json.hpp>
#include <vector>

#include "hosts/kit/json_fault.h"
#include "hosts/kit/rules_changes.h"
#include "hosts/kit/text_coding.h"

namespace zolt20::automation {
namespace {

using language::Names;
using language::Node;
using language::Use;
using language::UseKind;
using language::UsePlace;

// Whether a use has this name. A table's name matches uses of its fields, too.
bool IsCalled(const Use& use, StringView name) {
  if (use.kind == UseKind::kFunction) return use.name == name;
  if (use.table == name) return true;
  return !use.name.empty() && rules::NameOf(use) == name;
}

std::string JsonOf(const std::string& rule, const Use& use, const char* node) {
  const nlohmann::ordered_json line{
      {"rule", rule},
      {"line", use.line},
      {"column", use.column},
      {"first", use.first},
      {"length", use.length},
      {"kind", language::NameOf(use.kind)},
      {"name", hosts::ToJsonText(rules::NameOf(use))},
      {"node", node},
      {"place", language::NameOf(use.place)},
  };
  return hosts::TakeStandIns(line.dump());
}

std::string LineOf(const std::string& rule, const Use& use, const std::string& node) {
  const std::string place = language::NameOf(use.place);
  const bool isSure = use.place == UsePlace::kClause || use.place == UsePlace::kHead;
  return rule + ":" + std::to_string(use.line) + ":" + std::to_string(use.column) + ": " +
         language::NameOf(use.kind) + " " + hosts::ToJsonText(rules::NameOf(use)) + " [" + node +
         (isSure || place == node ? "" : ", " + place) + "]";
}

}  // namespace

std::string OnOneLine(StringView name) {
  std::string line = hosts::ForPeople(hosts::ToJsonText(name));
  for (char& c : line) {
    if (static_cast<unsigned char>(c) < 0x20) c = ' ';
  }
  return line;
}

UseLines UsesOf(const rules::RulesContent& content, const Names* names, StringView name,
                bool asJson) {
  UseLines uses;
  for (const rules::Rule& rule : content.rules) {
    const std::vector<Node> nodes = language::ReadOutline(rule.text);
    for (const Use& use : language::UsesIn(rule.text, nodes, names)) {
      if (names != nullptr && !language::IsMissing(use, *names)) continue;
      if (!name.empty() && !IsCalled(use, name)) continue;
      const char* const node = NameOf(rules::KindOf(nodes, use.node));
      uses.lines += asJson ? JsonOf(hosts::ToJsonText(rule.name), use, node)
                           : LineOf(OnOneLine(rule.name), use, node);
      uses.lines += '\n';
      ++uses.count;
    }
  }
  return uses;
}

}  // namespace zolt20::automation
