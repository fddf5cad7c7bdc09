#include "tests/support/finding_lines.h"

namespace zolt20::tests {

Texts FindingLines(StringView text, const language::Names* names) {
  Texts lines;
  for (const language::Finding& finding : language::Check(text, names)) {
    lines.push_back(std::to_string(finding.line) + ":" + std::to_string(finding.column) + "+" +
                    std::to_string(finding.length) + " " + language::NameOf(finding.severity) +
                    " " + language::CodeOf(finding.mistake) + ": " + Narrow(finding.sentence));
  }
  return lines;
}

}  // namespace zolt20::tests
