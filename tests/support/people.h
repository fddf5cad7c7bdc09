// Random people, from a seed, as steps for the player of a face: see face_player.h.
//
// They follow the courses of SessionMaker on a control of their own without a face, and between
// courses they press keys of any kind and turn the wheel. The face's control may have another state
// from there on, so that some steps are not possible: a player skips those.
#pragma once

#include <deque>
#include <nlohmann/json.hpp>
#include <string>

#include "hosts/automation/session.h"
#include "tests/support/choices.h"
#include "tests/support/session_maker.h"

namespace zolt20::tests {

class People {
 public:
  using Json = nlohmann::ordered_json;

  explicit People(unsigned seed) : choices_(seed), choicesOfCourses_(seed) {}

  /// The next step.
  Json Next();

 private:
  int Any(int count) { return choices_.Below(count); }
  void GoOn();
  void TakeKeys();
  void TakeKeysOfANumber();
  template <typename Keys>
  Json KeyOf(const Keys& keys) {
    return {{"keys", Json::array({choices_.From(keys)})}};
  }
  void Take(const Json& gesture);
  void TypeInto(const std::string& box, const std::string& text);

  SeededChoices choices_;
  SeededChoices choicesOfCourses_;
  automation::Session session_;
  SessionMaker maker_{choicesOfCourses_, Gestures::kOfAPerson};
  std::deque<Json> steps_;
};

}  // namespace zolt20::tests
