// Random people, from a seed, as steps for the player of a face: see face_player.h.
//
// They follow the courses of SessionMaker on a control of their own without a face, and between
// courses they press keys of any kind and turn the wheel. The face's control may have another state
// from there on, so that some steps are not possible: a player skips those.
#pragma once

#include <deque>
#include <nlohmann/json.hpp>
#include <random>
#include <string>

#include "hosts/automation/session.h"
#include "tests/support/session_maker.h"

namespace zolt20::tests {

class People {
 public:
  using Json = nlohmann::ordered_json;

  explicit People(unsigned seed) : random_(seed), maker_(seed, Gestures::kOfAPerson) {}

  /// The next step.
  Json Next();

 private:
  int Any(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
  void GoOn();
  void TakeKeys();
  void TakeKeysOfANumber();
  template <typename Keys>
  Json KeyOf(const Keys& keys) {
    const auto key = static_cast<std::size_t>(Any(static_cast<int>(keys.size())));
    return {{"keys", Json::array({keys[key]})}};
  }
  void Take(const Json& gesture);
  void TypeInto(const std::string& box, const std::string& text);

  std::mt19937 random_;
  automation::Session session_;
  SessionMaker maker_;
  std::deque<Json> steps_;
};

}  // namespace zolt20::tests
