#include "hosts/automation/check_lines.h"

#include <nlohmann/json.hpp>
#include <vector>

#include "hosts/kit/text_coding.h"
#include "language/check.h"
#include "language/explain.h"

namespace zolt20::automation {
namespace {

using language::Finding;
using language::Severity;

std::string JsonOf(const Finding& finding) {
  const nlohmann::ordered_json line{
      {"line", finding.line},
      {"column", finding.column},
      {"first", finding.first},
      {"length", finding.length},
      {"code", language::CodeOf(finding.mistake)},
      {"severity", language::NameOf(finding.severity)},
      {"text", hosts::ToJsonText(finding.sentence)},
  };
  return hosts::TakeStandIns(line.dump());
}

std::string LineOf(const Finding& finding, const std::string& file) {
  return file + ":" + std::to_string(finding.line) + ":" + std::to_string(finding.column) + ": " +
         language::NameOf(finding.severity) + ": " + hosts::ToJsonText(finding.sentence) + " [" +
         language::CodeOf(finding.mistake) + "]";
}

}  // namespace

CheckLines CheckOf(StringView text, const language::Names* names, FindingFormat format,
                   const std::string& file) {
  CheckLines check;
  for (const Finding& finding : language::Check(text, names)) {
    check.lines += format == FindingFormat::kJson ? JsonOf(finding) : LineOf(finding, file);
    check.lines += '\n';
    check.hasErrors = check.hasErrors || finding.severity == Severity::kError;
  }
  return check;
}

std::string ExplanationOf(StringView text) {
  const std::vector<language::Node> nodes = language::ReadOutline(text);
  std::string lines;
  std::vector<std::size_t> behindOpen;  // the ends (`behind`) of explained nodes around node i
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    if (language::IsToldByAnother(nodes[i])) continue;
    while (!behindOpen.empty() && behindOpen.back() <= i)
      behindOpen.pop_back();
    lines.append(2 * behindOpen.size(), ' ');
    lines += hosts::ToJsonText(language::Explain(text, nodes, i));
    lines += '\n';
    behindOpen.push_back(nodes[i].behind);
  }
  return lines;
}

}  // namespace zolt20::automation
