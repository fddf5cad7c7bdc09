#include "hosts/automation/opening_lines.h"

#include <nlohmann/json.hpp>
#include <vector>

#include "hosts/kit/request.h"
#include "hosts/kit/text_coding.h"

namespace zolt20::automation {
namespace {

using hosts::Json;
using hosts::ToJsonText;

Json JsonOf(const reopen::Difference& difference);

Json JsonOf(const reopen::Step& step) {
  if (step.property != nullptr)
    return {{"set", step.property->name}, {"value", ToJsonText(step.text)}};
  const UserGesture gesture{step.gesture, nullptr, step.number, step.text};
  return hosts::WriteGesture(gesture, step.control);
}

Json JsonOf(const String& line) {
  return ToJsonText(line);
}

Json JsonOf(const reopen::Problem& problem) {
  return {{"line", problem.line}, {"column", problem.column}, {"message", problem.message}};
}

template <typename Each>
Json ListOf(const std::vector<Each>& all) {
  Json list = Json::array();
  for (const Each& each : all)
    list.push_back(JsonOf(each));
  return list;
}

Json JsonOf(const reopen::Difference& difference) {
  return {{"line", difference.line},
          {"stored", ListOf(difference.stored)},
          {"comes", ListOf(difference.comes)}};
}

}  // namespace

OpeningLine OpeningOf(StringView text, const reopen::Catalogue& catalogue) {
  const reopen::Opening opening = reopen::Open(text, catalogue);
  const Json json = {{"equal", opening.IsEqual()},
                     {"steps", ListOf(opening.steps)},
                     {"finish", ListOf(opening.finish)},
                     {"result", ToJsonText(opening.result)},
                     {"differences", ListOf(opening.differences)},
                     {"problems", ListOf(opening.problems)}};
  return {hosts::TakeStandIns(json.dump()) + "\n", opening.IsEqual()};
}

}  // namespace zolt20::automation
