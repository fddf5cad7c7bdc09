#include "tests/support/face_player.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <set>

namespace zolt20::tests {
namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kFaces[] = {"qt", "com", "web"};

bool IsAmong(const std::vector<std::string>& lines, const std::string& line) {
  return std::find(lines.begin(), lines.end(), line) != lines.end();
}

// The control of a step by the mouse; the tab strip for a turned page.
std::string TargetOf(const Json& step) {
  for (const char* verb : {"click", "doubleClick", "pick", "focus", "scroll", "wheel"}) {
    if (step.contains(verb)) return step[verb];
  }
  return step.contains("page") ? "tabVrn" : "";
}

void Do(FaceHands& hands, const Json& step) {
  const std::string target = TargetOf(step);
  if (step.contains("page")) {
    hands.TurnTo(step["page"]);
  } else if (step.contains("click") && step.contains("row")) {
    hands.Click(target, step["row"]);
  } else if (step.contains("click")) {
    hands.Click(target);
  } else if (step.contains("doubleClick")) {
    hands.DoubleClick(target, step["row"]);
  } else if (step.contains("pick")) {
    hands.Pick(target, step["row"]);
  } else if (step.contains("focus")) {
    hands.Focus(target);
  } else if (step.contains("scroll")) {
    hands.Scroll(target, step["value"]);
  } else if (step.contains("wheel")) {
    hands.TurnWheel(target);
  } else if (step.contains("keys")) {
    for (const Json& key : step["keys"])
      hands.Press(KeyStrokeOf(key));
  } else if (step.contains("type")) {
    for (const char letter : step["type"].get<std::string>())
      hands.Press({letter == ' ' ? "Space" : std::string(1, letter)});
  } else if (step.contains("paste")) {
    hands.Paste(step["paste"]);
  } else if (step.contains("compose")) {
    hands.Compose(step["compose"]);
  } else {
    hands.CarryOut(step);
  }
}

void Expect(FaceHands& hands, const Json& step) {
  if (step.contains("shows")) {
    for (const auto& [control, parts] : step["shows"].items()) {
      for (const auto& [what, value] : parts.items())
        EXPECT_EQ(hands.Shown(control, what), value) << control << " " << what;
    }
  } else if (step.contains("keyboard")) {
    EXPECT_EQ(hands.Keyboard(), step["keyboard"].get<std::string>());
  } else if (step.contains("gestures")) {
    std::vector<Json> made = hands.TakeGestures();
    made.erase(std::remove_if(made.begin(), made.end(),
                              [](const Json& gesture) { return gesture["user"] == "focus"; }),
               made.end());
    EXPECT_EQ(Json(made), step["gestures"]);
  } else if (step.contains("surface")) {
    for (const auto& [control, text] : step["surface"].items())
      EXPECT_EQ(hands.TextOnSurface(control), text.get<std::string>()) << control;
  } else if (step.contains("message")) {
    EXPECT_EQ(hands.TakeMessage(), step["message"]);
  } else {
    const std::vector<std::string> told = hands.TakeSpoken();
    for (const Json& line : step["spoken"])
      EXPECT_TRUE(IsAmong(told, line)) << line << " is not among " << Json(told);
  }
}

bool IsExpectation(const Json& step) {
  for (const char* kind : {"shows", "keyboard", "gestures", "surface", "message", "spoken"}) {
    if (step.contains(kind)) return true;
  }
  return false;
}

// Whether the step's control can be reached. Keys are always possible.
bool IsPossible(FaceHands& hands, const Json& step) {
  const std::string target = TargetOf(step);
  if (target.empty()) return true;
  if (!hands.CanReach(target)) return false;
  return !step.contains("row") || step["row"].get<int>() < hands.RowCount(target);
}

}  // namespace

KeyStroke KeyStrokeOf(const std::string& text) {
  KeyStroke key{text};
  for (std::size_t end = key.name.find('+'); end != std::string::npos && end > 0;
       end = key.name.find('+')) {
    const std::string held = key.name.substr(0, end);
    if (held != "Shift" && held != "Control") throw std::invalid_argument("no key " + text);
    (held == "Shift" ? key.shift : key.control) = true;
    key.name.erase(0, end + 1);
  }
  return key;
}

FaceCases::FaceCases(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  list_ = Json::parse(file);
}

std::vector<Json> FaceCases::PlayedBy(const std::string& face) const {
  std::vector<Json> cases;
  for (const Json& one : list_["cases"]) {
    if (!one.contains("not") || !one["not"].contains(face)) cases.push_back(one);
  }
  return cases;
}

std::string FaceCases::Fault() const {
  std::set<std::string> names;
  for (const Json& one : list_["cases"]) {
    const std::string name = one["name"];
    if (!names.insert(name).second) return "two cases are called " + name;
    const auto isCheck = [](const Json& step) { return IsExpectation(step); };
    if (std::none_of(one["steps"].begin(), one["steps"].end(), isCheck))
      return name + " expects nothing";
    const Json reasons = one.value("not", Json::object());
    for (const auto& [face, reason] : reasons.items()) {
      if (std::find(std::begin(kFaces), std::end(kFaces), face) == std::end(kFaces))
        return name + " names a face that is none: " + face;
      if (reason.get<std::string>().empty()) return name + " gives no reason for " + face;
    }
    if (reasons.size() == std::size(kFaces)) return name + " is played by no face";
  }
  return names.empty() ? "there are no cases" : "";
}

std::string CaseNameOf(const Json& faceCase) {
  std::string name;
  bool isFirst = true;
  for (const char letter : faceCase["name"].get<std::string>()) {
    const bool isLetter = std::isalnum(static_cast<unsigned char>(letter)) != 0;
    if (isLetter) name += isFirst ? static_cast<char>(std::toupper(letter)) : letter;
    isFirst = !isLetter && letter != '\'';
  }
  return name;
}

bool HasStep(const Json& faceCase, const char* kind) {
  const Json& steps = faceCase["steps"];
  return std::any_of(steps.begin(), steps.end(),
                     [kind](const Json& step) { return step.contains(kind); });
}

void PlayStep(FaceHands& hands, const Json& step) {
  SCOPED_TRACE(step.dump().substr(0, 200));
  if (IsExpectation(step)) return Expect(hands, step);
  ASSERT_TRUE(IsPossible(hands, step));
  Do(hands, step);
}

bool TryStep(FaceHands& hands, const Json& step) {
  if (!IsPossible(hands, step)) return false;
  SCOPED_TRACE(step.dump().substr(0, 200));
  Do(hands, step);
  return true;
}

}  // namespace zolt20::tests
