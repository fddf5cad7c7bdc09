#include "hosts/automation/outline_lines.h"

#include <nlohmann/json.hpp>

#include "hosts/kit/text_coding.h"
#include "language/outline.h"

namespace zolt20::automation {

OutlineLines OutlineOf(StringView text) {
  OutlineLines outline;
  for (const language::Node& node : language::ReadOutline(text)) {
    nlohmann::ordered_json line{
        {"kind", language::NameOf(node.kind)},
        {"first", node.first},
        {"last", node.last},
        {"depth", node.depth},
        {"head", hosts::ToJsonText(language::HeadOf(text, node))},
    };
    if (node.problem != language::Problem::kNone) {
      line["problem"] = language::NameOf(node.problem);
      outline.hasProblems = true;
    }
    outline.lines += hosts::TakeStandIns(line.dump());
    outline.lines += '\n';
  }
  return outline;
}

}  // namespace zolt20::automation
