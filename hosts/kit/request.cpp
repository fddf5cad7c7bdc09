#include "hosts/kit/request.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "hosts/kit/text_coding.h"

namespace zolt20::hosts {
namespace {

// Several gestures have one word: the one that the control offers, or else the first one.
const GestureDesign& DesignOf(std::string_view word, const Control* control) {
  const GestureDesign* found = nullptr;
  for (const GestureDesign& design : kGestures) {
    if (design.word != word) continue;
    const bool isOffered = control != nullptr && Surface::Offers(*control, design.gesture);
    if (found == nullptr || isOffered) found = &design;
  }
  if (found == nullptr) throw BadRequest("there is no gesture " + Quoted(word));
  return *found;
}

// The marked characters of a key, or its caret; nullopt when the request has neither.
std::optional<TextMark> MarkOf(const JsonValue& request) {
  const bool isMarked = FindValue(request, "to") != nullptr;
  if (FindValue(request, "from") == nullptr) {
    if (isMarked) throw BadRequest(R"(a mark that has "to" has "from")");
    return std::nullopt;
  }
  const int from = NeededWhole(request, "from");
  return TextMark{from, isMarked ? NeededWhole(request, "to") : from};
}

bool LiesWithin(const TextMark& mark, const String& text) {
  return mark.from >= 0 && mark.to >= mark.from && mark.to <= static_cast<int>(text.size());
}

}  // namespace

std::string Quoted(std::string_view text) {
  return Json(text).dump();
}

const JsonValue& Needed(const JsonValue& request, std::string_view key) {
  const JsonValue* found = FindValue(request, key);
  if (found == nullptr) throw BadRequest("the request has no \"" + std::string(key) + "\"");
  return *found;
}

std::string_view NeededText(const JsonValue& request, std::string_view key) {
  const JsonValue& value = Needed(request, key);
  if (!value.IsString()) throw BadRequest("\"" + std::string(key) + "\" is no string");
  return TextOf(value);
}

int NeededWhole(const JsonValue& request, std::string_view key) {
  const JsonValue& value = Needed(request, key);
  if (!IsWhole(value)) throw BadRequest("\"" + std::string(key) + "\" is no whole number");
  return WholeNumber(value);
}

bool IsWhole(const JsonValue& value) {
  if (!value.IsNumber()) return false;
  if (!value.IsDouble()) return true;
  const double number = value.GetDouble();
  return std::isfinite(number) && std::trunc(number) == number;
}

int WholeNumber(const JsonValue& value) {
  if (value.IsInt()) return value.GetInt();
  constexpr auto kLeast = static_cast<double>(std::numeric_limits<int>::min());
  constexpr auto kGreatest = static_cast<double>(std::numeric_limits<int>::max());
  return static_cast<int>(std::clamp(value.GetDouble(), kLeast, kGreatest));
}

UserGesture ReadGesture(const JsonValue& request, const Surface& form) {
  const std::string_view word = NeededText(request, "user");
  const bool isTab = word == zolt20::DesignOf(Gesture::kTab).word;
  const std::string_view name = isTab ? form.tabVrn.name() : NeededText(request, "control");
  const Control* control = form.Find(name);
  const GestureDesign& design = DesignOf(word, control);

  UserGesture made{design.gesture, control};
  if (made.gesture == Gesture::kType) {
    made.text = FromJsonText(NeededText(request, design.operand));
  } else if (!design.operand.empty()) {
    made.number = NeededWhole(request, design.operand);
  }
  if (made.gesture == Gesture::kKey) made.mark = MarkOf(request);

  if (control == nullptr) throw BadRequest("the form has no control " + Quoted(name));
  if (!Surface::Offers(*control, made.gesture)) {
    throw BadRequest(std::string(name) + " can't be made to " + std::string(word));
  }
  if (made.mark && !LiesWithin(*made.mark, static_cast<const TextBox*>(control)->Text()))
    throw BadRequest(std::string(name) + " has no such mark");
  const bool isInteger = made.gesture == Gesture::kKey || made.gesture == Gesture::kTab;
  if (isInteger && (made.number < Integer::kLeast || made.number > Integer::kGreatest))
    Raise(ErrorKind::kOverflow);
  return made;
}

Json WriteGesture(const UserGesture& gesture) {
  return WriteGesture(gesture, gesture.control->name());
}

Json WriteGesture(const UserGesture& gesture, std::string_view control) {
  const GestureDesign& design = zolt20::DesignOf(gesture.gesture);
  Json request = {{"user", design.word}};
  if (gesture.gesture != Gesture::kTab) request["control"] = control;
  if (gesture.gesture == Gesture::kType) {
    request[std::string(design.operand)] = ToJsonText(gesture.text);
  } else if (!design.operand.empty()) {
    request[std::string(design.operand)] = gesture.number;
  }
  if (gesture.mark) {
    request["from"] = gesture.mark->from;
    if (gesture.mark->to != gesture.mark->from) request["to"] = gesture.mark->to;
  }
  return request;
}

}  // namespace zolt20::hosts
