#include "tests/support/people.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zolt20::tests {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::array<const char*, 26> kKeys{"ArrowDown",
                                            "ArrowUp",
                                            "ArrowLeft",
                                            "ArrowRight",
                                            "Home",
                                            "End",
                                            "PageDown",
                                            "PageUp",
                                            "Backspace",
                                            "Delete",
                                            "Space",
                                            "Enter",
                                            "Tab",
                                            "Shift+Tab",
                                            "Shift+ArrowRight",
                                            "Shift+End",
                                            "Shift+ArrowLeft",
                                            "Control+a",
                                            "Control+z",
                                            "Control+y",
                                            "Control+v",
                                            "a",
                                            "7",
                                            "0",
                                            "t",
                                            "-"};
constexpr std::array<const char*, 12> kKeysOfANumber{
    "1",         "2",        "0",         "x",          "Backspace",
    "Delete",    "Home",     "ArrowLeft", "Shift+Home", "Shift+ArrowRight",
    "Shift+End", "Control+z"};
constexpr std::array<const char*, 5> kUnderTheWheel{"tabVrn", "cboWhereFields", "cboWhereFields1",
                                                    "lstFields", "TxtOutput"};

// A short text of characters that every keyboard can type key by key.
bool IsTypeable(const std::string& text) {
  constexpr std::size_t kMost = 12;
  const auto isPlain = [](char letter) { return letter >= ' ' && letter <= '~'; };
  return text.size() <= kMost && std::all_of(text.begin(), text.end(), isPlain);
}

}  // namespace

Json People::Next() {
  while (steps_.empty())
    GoOn();
  Json step = std::move(steps_.front());
  steps_.pop_front();
  return step;
}

void People::GoOn() {
  constexpr int kKeysInSteps = 4;
  if (Any(kKeysInSteps) == 0) return TakeKeys();
  const Json request = maker_.Next(session_.Control().Form());
  // The control stays the same one.
  if (request.contains("save") || request.contains("new")) return;
  if (request.contains("user") && request["user"] == "dblclick") {
    Json click = request;
    click["user"] = "click";
    session_.Reply(click.dump());
  }
  session_.Reply(request.dump());
  if (request.contains("user")) return Take(request);
  steps_.push_back(request);
}

void People::TakeKeys() {
  constexpr int kMost = 4;
  constexpr int kWheelInKeys = 8;
  constexpr int kNumberInKeys = 5;
  if (Any(kWheelInKeys) == 0) {
    return steps_.push_back({{"wheel", choices_.From(kUnderTheWheel)}});
  }
  if (Any(kNumberInKeys) == 0) return TakeKeysOfANumber();
  for (int count = 1 + Any(kMost); count > 0; --count)
    steps_.push_back(KeyOf(kKeys));
}

// Types into the box that handles keys one by one.
void People::TakeKeysOfANumber() {
  constexpr int kMost = 8;
  steps_.push_back({{"page", 1}});
  steps_.push_back({{"focus", "txtAsSet"}});
  for (int count = 2 + Any(kMost); count > 0; --count)
    steps_.push_back(KeyOf(kKeysOfANumber));
}

// Turns a gesture into steps of mouse and keys.
void People::Take(const Json& gesture) {
  const std::string verb = gesture["user"];
  if (verb == "tab") return steps_.push_back({{"page", gesture["page"]}});
  const std::string control = gesture["control"];
  if (verb == "type") return TypeInto(control, gesture["text"]);
  if (verb == "key") {
    constexpr int kBackspace = 8;
    const int code = gesture["code"];
    steps_.push_back({{"focus", control}});
    const std::string key = code == kBackspace ? "Backspace"
                            : code == ' '      ? "Space"
                                               : std::string(1, static_cast<char>(code));
    return steps_.push_back({{"keys", Json::array({key})}});
  }
  Json step{{verb == "dblclick" ? "doubleClick" : verb, control}};
  for (const char* operand : {"row", "value"}) {
    if (gesture.contains(operand)) step[operand] = gesture[operand];
  }
  steps_.push_back(std::move(step));
}

void People::TypeInto(const std::string& box, const std::string& text) {
  steps_.push_back({{"focus", box}});
  constexpr int kBehindInTexts = 4;
  steps_.push_back({{"keys", Json::array({Any(kBehindInTexts) == 0 ? "End" : "Control+a"})}});
  if (text.empty()) {
    steps_.push_back({{"keys", Json::array({"Delete"})}});
  } else if (IsTypeable(text) && Any(2) == 0) {
    steps_.push_back({{"type", text}});
  } else {
    steps_.push_back({{"paste", text}});
  }
}

}  // namespace zolt20::tests
